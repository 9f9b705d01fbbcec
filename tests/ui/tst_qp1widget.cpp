#include "debugqt.h"
#include "deviceline.h"
#include "modalanswerer.h"
#include "qp1widget.h"
#include "statuswidget.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableWidget>
#include <QtTest>

class TestQP1Widget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void unitsWriteReadsRange();
    void linePointsStopAtFailure();
    void temperatureWizard_data();
    void temperatureWizard();

private:
    template <class T>
    T* child(const QString& name) const
    {
        return m_editor->findChild<T*>(name);
    }
    void click(const QString& button) { child<QPushButton>(button)->click(); }
    bool green() const { return m_editor->statusWidget()->errorText().contains("completed successfully"); }
    QList<int> commands();
    // Metrology access opened for the adjustment behind this start button;
    // the line's log starts with the code.
    void openAdjustment(const QString& start);

    DeviceLine m_line;
    Device* m_device = nullptr;
    QScopedPointer<QP1Widget> m_editor;
};

void TestQP1Widget::initTestCase()
{
    DebugQt::instance(0, nullptr);
    QVERIFY(m_line.start({{"QP-1C", {{"polling_address", 0}}}}));
    m_line.port->hart().setByteTimeout(20);
}

void TestQP1Widget::init()
{
    m_device = m_line.addDevice(0, QStringLiteral("QP-1C"));
    QVERIFY(m_device->readDevice(0));
    m_editor.reset(new QP1Widget);
    m_editor->setItem(m_device);
    m_editor->onUpdateButtons(true);
    click("btnReadCfgFromDevice");
    QVERIFY(green());
    m_line.sim.line().clearLog();
}

void TestQP1Widget::cleanup()
{
    m_editor.reset();
    m_line.port->removeDevice(m_device->name());
}

QList<int> TestQP1Widget::commands()
{
    QList<int> list;
    for (const hartsim::RequestRecord& record : m_line.sim.line().requests())
        list << record.command;
    return list;
}

void TestQP1Widget::openAdjustment(const QString& start)
{
    click(start);
    child<QDoubleSpinBox>("dspnAdjustCode")->setValue(12345);
    m_line.sim.line().clearLog();
    click("btnCheckCode");
    QVERIFY(m_device->isMetrologyAccessOpen());
}

void TestQP1Widget::unitsWriteReadsRange()
{
    auto* units = child<QComboBox>("cmbInputUnits");
    units->setCurrentIndex(units->findData(7)); // bar
    QSignalSpy bar(m_editor.data(), &DeviceWidget::init_progress_bar);
    {
        ModalAnswerer yes({QMessageBox::Yes});
        click("btnWriteCfgInDevice");
    }
    QVERIFY(green());
    // New units: the range is read again, one more step on the bar.
    QCOMPARE(commands(), (QList<int>{44, 15}));
    QCOMPARE(bar.first().at(1).toInt(), 2);
    QCOMPARE(m_line.sim.param(0, "input_units").toInt(), 7);
}

void TestQP1Widget::linePointsStopAtFailure()
{
    // The device holds ten points: the eleventh is refused.
    m_line.sim.setParam(0, "line_points_count", 12);
    m_line.sim.setParam(0, "line_point_3_value", 2.5);
    QVERIFY(m_device->readDevice(135));
    {
        ModalAnswerer ok({QMessageBox::Ok});
        openAdjustment("btnStartLinePointAdjust");
    }
    auto* table = child<QTableWidget>("tblLinePoints");
    QCOMPARE(table->rowCount(), 12);
    QCOMPARE(commands().count(148), 11);
    QVERIFY(!green());
    QVERIFY2(table->item(3, 0) && table->item(3, 0)->text().startsWith("   2.5\t"),
             qPrintable(table->item(3, 0)->text()));
    QVERIFY(table->item(9, 0));
    QVERIFY(!table->item(10, 0));
    m_line.sim.setParam(0, "line_points_count", 0);
}

void TestQP1Widget::temperatureWizard_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("differs"); // the point had another temperature before: code 8
    QTest::newRow("mode 0 keeps the wizard closed") << 0 << false;
    QTest::newRow("a new point") << 1 << false;
    QTest::newRow("a point with another temperature") << 1 << true;
}

void TestQP1Widget::temperatureWizard()
{
    QFETCH(int, mode);
    QFETCH(bool, differs);
    m_line.sim.setParam(0, "temper_correction_mode", mode);
    m_line.sim.setParam(0, "tcorr_0_set", differs);
    m_line.sim.setParam(0, "tcorr_0_temperature", 10.0);
    openAdjustment("btnStartTemperAdjust");
    QCOMPARE(child<QPushButton>("btnAdjustT1T2")->isEnabled(), mode != 0);
    if (mode == 0)
        return;

    click("btnAdjustT1T2");
    child<QDoubleSpinBox>("dspnT1")->setValue(25);
    click("btnNext");
    QCOMPARE(child<QStackedWidget>("stackedWidgetT1T2")->currentIndex(), 1);
    m_line.sim.line().clearLog();
    {
        ModalAnswerer ok({QMessageBox::Ok});
        click("btnSaveT1T2");
        QCOMPARE(ok.seen().size(), differs ? 1 : 0);
        if (differs)
            QVERIFY2(ok.seen().first().startsWith("P1T1 correction saving|Operation completed successfully!"),
                     qPrintable(ok.seen().first()));
    }
    // Code 8 on a saved point is still a success.
    QVERIFY(green());
    QCOMPARE(commands(), QList<int>{141});
    QCOMPARE(m_line.sim.param(0, "tcorr_0_temperature").toFloat(), 25.0f);
}

QTEST_MAIN(TestQP1Widget)
#include "tst_qp1widget.moc"
