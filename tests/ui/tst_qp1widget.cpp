#include "editorfixture.h"
#include "qp1widget.h"

#include <QComboBox>
#include <QTableWidget>

class TestQP1Widget : public QObject, public EditorFixture<QP1Widget>
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(startLine({{"QP-1C", {{"polling_address", 0}}}})); }
    void init()
    {
        QVERIFY(openEditor(0, QStringLiteral("QP-1C")));
        click("btnReadCfgFromDevice");
        QVERIFY(green());
        clearLog();
    }
    void cleanup()
    {
        closeEditor();
        line.sim.setParam(0, "line_points_count", 0);
    }

    void unitsWriteReadsRange()
    {
        auto* units = child<QComboBox>("cmbInputUnits");
        units->setCurrentIndex(units->findData(7)); // bar
        QSignalSpy bar(editor.data(), &DeviceWidget::init_progress_bar);
        clickAnswering("btnWriteCfgInDevice", {QMessageBox::Yes});
        QVERIFY(green());
        // New units: the range is read again, one more step on the bar.
        QCOMPARE(commands(), (QList<int>{44, 15}));
        QCOMPARE(bar.first().at(1).toInt(), 2);
        QCOMPARE(line.sim.param(0, "input_units").toInt(), 7);
    }

    void linePointsStopAtFailure()
    {
        // The device holds ten points: the eleventh is refused.
        line.sim.setParam(0, "line_points_count", 12);
        line.sim.setParam(0, "line_point_3_value", 2.5);
        QVERIFY(device->readDevice(135));
        openAccess("btnStartLinePointAdjust", 3, {QMessageBox::Ok});
        auto* table = child<QTableWidget>("tblLinePoints");
        QCOMPARE(table->rowCount(), 12);
        QCOMPARE(commands().count(148), 11);
        QVERIFY(!green());
        QVERIFY2(table->item(3, 0) && table->item(3, 0)->text().startsWith("   2.5\t"),
                 qPrintable(table->item(3, 0)->text()));
        QVERIFY(table->item(9, 0));
        QVERIFY(!table->item(10, 0));
    }

    void temperatureWizard_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("differs"); // the point had another temperature before: code 8
        QTest::newRow("mode 0 keeps the wizard closed") << 0 << false;
        QTest::newRow("a new point") << 1 << false;
        QTest::newRow("a point with another temperature") << 1 << true;
    }

    void temperatureWizard()
    {
        QFETCH(int, mode);
        QFETCH(bool, differs);
        line.sim.setParam(0, "temper_correction_mode", mode);
        line.sim.setParam(0, "tcorr_0_set", differs);
        line.sim.setParam(0, "tcorr_0_temperature", 10.0);
        openAccess("btnStartTemperAdjust", 4);
        QCOMPARE(child<QPushButton>("btnAdjustT1T2")->isEnabled(), mode != 0);
        if (mode == 0)
            return;

        click("btnAdjustT1T2");
        child<QDoubleSpinBox>("dspnT1")->setValue(25);
        click("btnNext");
        QCOMPARE(child<QStackedWidget>("stackedWidgetT1T2")->currentIndex(), 1);
        clearLog();
        const QStringList seen = clickAnswering("btnSaveT1T2", {QMessageBox::Ok});
        QCOMPARE(seen.size(), differs ? 1 : 0);
        if (differs)
            QVERIFY2(seen.first().startsWith("P1T1 correction saving|Operation completed successfully!"),
                     qPrintable(seen.first()));
        // Code 8 on a saved point is still a success.
        QVERIFY(green());
        QCOMPARE(commands(), QList<int>{141});
        QCOMPARE(line.sim.param(0, "tcorr_0_temperature").toFloat(), 25.0f);
    }
};

QTEST_MAIN(TestQP1Widget)
#include "tst_qp1widget.moc"
