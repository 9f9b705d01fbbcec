#include "debugqt.h"
#include "modelline.h"
#include "qp1device.h"

#include <QtTest>

class TestQP1Device : public QObject
{
    Q_OBJECT

    ModelLine m_line;
    Device* m_device = nullptr; // the QP-1C at 1, identified

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init()
    {
        QString error;
        m_device = m_line.startWith(QStringLiteral("QP-1C"), 1, &error);
        QVERIFY2(qobject_cast<QP1Device*>(m_device), qPrintable(error));
    }

    void cleanup() { m_line.stop(); }

    void reads_data()
    {
        ModelLine::readColumns();
        const auto row = [](auto... a) { ModelLine::readRow(a...); };
        const char* configuration = "decimal_point_position=2; average_count=8; input_units=7; free_range_min=-50.5f; "
                                    "free_range_max=750.25f; indicate_range_min=1.5f; indicate_range_max=99.5f; "
                                    "calibrate_unit_code=11; line_points_count=4";
        row(132, "decimal point position", "decimal_point_position=3");
        row(135, "device configuration", configuration);
        row(135, "device configuration", configuration, true);
        row(139, "temperature correction params",
            "temper_correction_mode=2; t1_correcton_value=15.5f; t2_correcton_value=45.25f");
        // The device computes the pressure for a line point.
        row(149, "pressure for line point", "line_point_pressure=1.0f", true);
    }

    void reads() { m_line.checkRead(m_device, 1); }

    void writes_data()
    {
        ModelLine::writeColumns();
        const auto row = [](auto... a) { ModelLine::writeRow(a...); };
        row(133, "decimal point position", "decimal_point_position=3", "03");
        row(134, "average_count", "average_count=12", "0c");
        row(136, "calibration unit code", "calibrate_unit_code=7", "07", true);
        row(137, "line points count", "line_points_count=5", "05", true);
        row(138, "line point value", "line_point_number=2; line_point_value=12.5f", "0241480000", true,
            "line_points_count=4");
        row(138, "line point value", "line_point_number=6; line_point_value=3.0f", "0640400000", true, "",
            "*** linearization point not used");
        row(140, "temper corretion mode", "temper_correction_mode=1", "01", true);
        row(141, "temper corretion", "temper_correction_step=2; temper_correction_value=55.0f", "02425c0000", true);
        row(141, "temper corretion", "temper_correction_step=1; temper_correction_value=25.0f", "0141c80000", true,
            "tcorr_1_set=true; tcorr_1_temperature=20.0",
            "*** temperature is different from previous value at this point");
        row(142, "adjust gain", "gain_adjustment=250.0f", "437a0000");
        row(145, "free ragne", "free_range_min=-10.0f; free_range_max=500.0f", "c120000043fa0000");
        row(146, "indication range", "indicate_range_min=0.5f; indicate_range_max=80.0f", "3f00000042a00000");
        row(147, "", "sensor_unit_code=7; sensor_range_max=16.0f; sensor_range_min=-1.0f; sensor_minimum_range=0.5f",
            "0741800000bf8000003f000000", true);
    }

    void writes() { m_line.checkWrite(m_device, 1); }

    // Command 148 stores what the device holds for the point, even for a point
    // it does not use (response code 8, a warning).
    void linePointReadBack_data()
    {
        addColumns<int, QVariantMap, float, bool>({"point", "simSetup", "value", "warning"});
        QTest::newRow("a point in use") << 2
                                        << vmap("line_points_count=3; line_point_2_value=1.5; line_point_2_set=true")
                                        << 1.5f << false;
        QTest::newRow("an unused point") << 5 << vmap("line_point_5_value=7.25") << 7.25f << true;
    }

    void linePointReadBack()
    {
        QFETCH(int, point);
        QFETCH(QVariantMap, simSetup);
        QFETCH(float, value);

        m_line.sim().setParams(1, simSetup);
        setInfo(m_device, {{"line_point_number", point}, {"line_point_value", 99.0f}});
        QVERIFY(m_device->writeDevice(148));
        QCOMPARE(m_line.sim().record(2).data, QByteArray(1, char(point)));
        VERIFY_NO_MISMATCH(
            mismatches(m_device->deviceInfo(), {{"line_point_number", point}, {"line_point_value", value}}));
        QTEST(m_device->statusTexts().contains(QStringLiteral("*** linearization point not used")), "warning");
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 0);
        // The label holds "get": the log line takes it as it stands.
        QVERIFY(m_device->messageLog().contains(QStringLiteral("get line point value (cmd=148)...\n")));
    }

    void manufacturerSettings() { m_line.checkManufacturerSettings(m_device, 1, 136, {{"calibrate_unit_code", 7}}); }
};

QTEST_GUILESS_MAIN(TestQP1Device)
#include "tst_qp1device.moc"
