#include "columns.h"
#include "debugqt.h"
#include "deviceline.h"
#include "measurewidget.h"
#include "modalanswerer.h"
#include "plotter.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDirIterator>
#include <QDoubleSpinBox>
#include <QLCDNumber>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

namespace {

QVariantMap reading(int second, float pv)
{
    return {{"DateTime", QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addSecs(second)},
            {"PV", pv},
            {"output_current", 12.0f},
            {"statusCode", "00 00"},
            {"statusText", ""}};
}

} // namespace

class TestMeasureWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        DebugQt::instance(0, nullptr);
        QVERIFY(m_line.start({{"generic", {{"polling_address", 0}}}}));
        m_device = m_line.addDevice(0, QStringLiteral("General"));
        QVERIFY(m_device->readDevice(0));
    }

    void startRefused_data()
    {
        addColumns<bool, int>({"withDevice", "period"});
        QTest::newRow("period 0") << true << 0;
        QTest::newRow("no device") << false << 1;
    }

    void startRefused()
    {
        QFETCH(bool, withDevice);
        QFETCH(int, period);
        MeasureWidget tab;
        tab.onDeviceChanged(withDevice ? m_device : nullptr);
        tab.onUpdateButtons(true);
        child<QSpinBox>(tab, "spnPeriod")->setValue(period);
        QSignalSpy started(&tab, &MeasureWidget::startPeriod);
        child<QPushButton>(tab, "btnStartStop")->click();
        QVERIFY(!tab.isPolling());
        QVERIFY(!child<QPushButton>(tab, "btnStartStop")->isChecked());
        QCOMPARE(started.size(), 0);
    }

    void viewEdgeRefused_data()
    {
        addColumns<QString, QString>({"field", "box"});
        QTest::newRow("Max Y below Min Y")
            << QString("dspnViewMaxY") << "Max Y value|The entered value Max Y (-100) less than Min Y";
        QTest::newRow("Min Y above Max Y")
            << QString("dspnViewMinY") << "Min Y value|The entered value Min Y (1000) is greater";
        QTest::newRow("Max X before Min X")
            << QString("dtViewMaxX") << "Max X value|The entered value Max X (01.01.2000";
        QTest::newRow("Min X after Max X")
            << QString("dtViewMinX") << "Min X value|The entered value Min X (01.01.2100";
    }

    void viewEdgeRefused()
    {
        QFETCH(QString, field);
        QFETCH(QString, box);
        MeasureWidget tab;
        tab.showPeriodResponsePV(reading(0, 5.0f)); // a plot to view
        auto* edit = tab.findChild<QAbstractSpinBox*>(field);
        const QString before = edit->text();
        if (auto* spin = qobject_cast<QDoubleSpinBox*>(edit))
            spin->setValue(field.endsWith("MaxY") ? -100 : 1000);
        else
            qobject_cast<QDateTimeEdit*>(edit)->setDateTime(
                QDateTime(QDate(field.endsWith("MaxX") ? 2000 : 2100, 1, 1), QTime(0, 0)));
        ModalAnswerer answerer;
        QMetaObject::invokeMethod(edit, "editingFinished");
        QCOMPARE(answerer.seen().size(), 1);
        QVERIFY2(answerer.seen().first().startsWith(box), qPrintable(answerer.seen().first()));
        QCOMPARE(edit->text(), before);
    }

    void closingWhilePollingCompletesArchive()
    {
        QTemporaryDir dir;
        QScopedPointer<MeasureWidget> window(new MeasureWidget);
        MeasureWidget& tab = *window;
        tab.onDeviceChanged(m_device);
        tab.onUpdateButtons(true);
        m_device->setDeviceInfo("archive_path_name", dir.path());
        child<QCheckBox>(tab, "chkPeriod")->setChecked(true);
        child<QSpinBox>(tab, "spnLineCount")->setValue(1000); // all of it still queued at the close
        child<QComboBox>(tab, "cmbTimes")->setCurrentIndex(0);
        child<QSpinBox>(tab, "spnPeriod")->setValue(50);
        QSignalSpy started(&tab, &MeasureWidget::startPeriod);
        child<QPushButton>(tab, "btnStartStop")->click();
        QVERIFY(tab.isPolling());
        QCOMPARE(started.value(0).value(0).toBool(), false);
        QTRY_VERIFY_WITH_TIMEOUT(tab.readings()->rowCount() >= 5, 10000);

        tab.onCloseApplication();
        const int readings = tab.readings()->rowCount();
        QVERIFY(!tab.isPolling());
        QVERIFY(!(m_device->deviceTagState() & Device::TagStatePolled));
        window.reset(); // the program ends: what the writer still holds goes to the file
        QDirIterator files(dir.path(), {"*.csv"}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(files.hasNext());
        QFile archive(files.next());
        QVERIFY(archive.open(QIODevice::ReadOnly));
        QCOMPARE(archive.readAll().count('\n'), readings + 1); // the header and every reading
    }

    void tableSavedAsArchive()
    {
        // A failed reading has its row, with the error, but no point and no display.
        QTemporaryDir dir;
        MeasureWidget tab;
        tab.showPeriodResponsePV(reading(0, 5.0f));
        QVariantMap failed = reading(1, 0.0f);
        failed.insert("errorText", "Response timeout (370ms)");
        tab.showPeriodResponsePV(failed);
        QVERIFY(tab.readings()->data(tab.readings()->index(1, 3)).toString().contains("Response timeout"));
        QCOMPARE(child<QLCDNumber>(tab, "lcdPV")->value(), 5.0);
        QCOMPARE(child<Plotter>(tab, "plotter")->curveData(0).size(), 1);
        tab.showPeriodResponsePV(reading(2, 6.125f));
        const QString name = dir.path() + "/table.csv";
        ModalAnswerer answerer({name});
        child<QPushButton>(tab, "btnSaveAsFile")->click();
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLocal8Bit(file.readAll()).split('\n');
        QCOMPARE(lines.mid(1),
                 (QStringList{"1;2026-01-01 00:00:00;5.00;12.00;00 00;", "2;2026-01-01 00:00:01;0.00;12.00;00 00;",
                              "3;2026-01-01 00:00:02;6.13;12.00;00 00;", ""}));
        QVERIFY(lines.first().startsWith(" ;  ; 01.01.2026 00:00:00 ; @ ; -1 ;"));
    }

private:
    template <typename T>
    T* child(MeasureWidget& tab, const char* name)
    {
        return tab.findChild<T*>(QLatin1String(name));
    }

    DeviceLine m_line;
    Device* m_device = nullptr;
};

QTEST_MAIN(TestMeasureWidget)
#include "tst_measurewidget.moc"
