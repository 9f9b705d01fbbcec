#include "debugqt.h"
#include "modelline.h"
#include "ph77device.h"

#include <QtTest>

class TestPH77Device : public QObject
{
    Q_OBJECT

    ModelLine m_line;
    Device* m_device = nullptr; // the pH-7702 at 2, identified

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init()
    {
        QString error;
        m_device = m_line.startWith(QStringLiteral("pH-7702"), 2, &error);
        QVERIFY2(qobject_cast<PH77Device*>(m_device), qPrintable(error));
    }

    void cleanup() { m_line.stop(); }

    void reads_data()
    {
        ModelLine::readColumns();
        const auto row = [](auto... a) { ModelLine::readRow(a...); };
        row(130, "device configuration (part 1)",
            "input_units=1; ei_isopotential_point=-12.5f; steepness=58.5f; phi_isopotential_point=7.25f; "
            "average_time_small_sig_ph=6; average_time_big_sig_ph=3; big_sig_threshold_ph=0.75f; electrode_diag=1");
        row(134, "device configuration (part 2)",
            "t_measurement_mode=1; ts_type=1; ts_0=500.0f; t_for_correction=1.5f; t_manual=30.5f; "
            "average_time_small_sig_t=5; average_time_big_sig_t=7; big_sig_threshold_t=2.5f");
        row(140, "indication range", "indicate_range_min=2.0f; indicate_range_max=12.0f");
        row(150, "current graduation values",
            "current_grd_type=1; current_ph_1=4.0f; current_eds_1=170.5f; current_t_1=25.0f; current_ph_2=9.25f; "
            "current_eds_2=-130.25f; current_t_2=24.5f");
        row(152, "Ei and S ranges", "ei_min=-40.0f; ei_max=40.0f; s_min=52.0f; s_max=60.0f");
        row(171, "adjustment parameters",
            "adjust_U_p1=100.0f; adjust_U_p2=-100.0f; adjust_Rt_p=110.0f; adjust_Rc_p1=10.0f; adjust_Rc_p2=1000.0f");
        row(171, "adjustment parameters", "adjust_U_p1=1.0f; adjust_Rc_p2=1.0f", true);
    }

    void reads() { m_line.checkRead(m_device, 2); }

    void writes_data()
    {
        ModelLine::writeColumns();
        const auto row = [](auto... a) { ModelLine::writeRow(a...); };
        row(131, "electrode parameters", "input_units=1; ei_isopotential_point=-5.5f; steepness=58.0f",
            "01c0b0000042680000");
        row(132, "PV filter parameters",
            "average_time_small_sig_ph=10; average_time_big_sig_ph=2; big_sig_threshold_ph=0.25f", "0a023e800000");
        row(133, "electrode diagnostic on/off", "electrode_diag=1", "01");
        row(135, "temperature measurement mode", "t_measurement_mode=1; t_manual=40.0f", "0142200000");
        row(136, "temperature sensor parameters", "ts_type=1; ts_0=1000.0f; t_for_correction=-0.5f",
            "01447a0000bf000000");
        row(137, "temperature filter parameters",
            "average_time_small_sig_t=3; average_time_big_sig_t=1; big_sig_threshold_t=1.5f", "03013fc00000");
        row(141, "indication range", "indicate_range_min=1.0f; indicate_range_max=13.0f", "3f80000041500000");
        // The unit must be that of the primary variable, pH (59).
        row(142, "", "sensor_unit_code=59; sensor_range_max=12.0f; sensor_range_min=1.0f; sensor_minimum_range=0.5f",
            "3b414000003f8000003f000000", true);
        row(172, "adjust U", "adjust_U_point=2; adjust_U=150.0f", "0243160000", true);
        row(173, "adjust Rt", "adjust_Rt=109.5f", "42db0000", true);
        row(174, "adjust Rc", "adjust_Rc_point=2; adjust_Rc=5.0f", "0240a00000", true);
        row(176, "Ei and S ranges", "ei_min=-50.0f; ei_max=50.0f; s_min=54.0f; s_max=61.0f",
            "c2480000424800004258000042740000", true);
    }

    void writes() { m_line.checkWrite(m_device, 2); }

    void graduationStoresWhatTheDeviceComputed()
    {
        // One point at pH 7: the device moves Ei onto the electrode's EMF and
        // keeps its steepness; the graduation changes the configuration.
        setInfo(m_device, vmap("grd_type=0; grd_point_number=1; grd_point_value=7.0f; ei_isopotential_point=123.0f; "
                               "steepness=1.0f"));
        QVERIFY(m_device->writeDevice(151));
        QCOMPARE(m_line.sim().record(2).data, hx("000140e00000"));
        const float ei = m_line.sim().param(2, "ei_isopotential_point").toFloat();
        QVERIFY(ei != 0.0f);
        VERIFY_NO_MISMATCH(mismatches(m_device->deviceInfo(),
                                      {{"ei_isopotential_point", ei}, {"steepness", 59.16f}, {"grd_point_number", 1}}));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 1);
        QVERIFY(m_device->messageLog().contains(QStringLiteral("writing graduation point (cmd=151)...\n")));
    }

    void manufacturerSettings()
    {
        m_line.checkManufacturerSettings(m_device, 2, 176,
                                         vmap("ei_min=-55.0f; ei_max=55.0f; s_min=50.0f; s_max=62.0f"));
    }

    void adcCodeTexts_data()
    {
        addColumns<int, QString>({"code", "text"});
        QTest::newRow("none") << 0 << "";
        QTest::newRow("5") << 5 << "Temperature sensor short circuit.\nEi is out of range.";
        QTest::newRow("10") << 10 << "Temperature sensor not connected. \nS is out of range. ";
        QTest::newRow("all and more") << 0xFF
                                      << "Temperature sensor short circuit.\nTemperature sensor not connected. \n"
                                         "Ei is out of range.\nS is out of range. ";
    }

    void adcCodeTexts()
    {
        QFETCH(int, code);
        QTEST(m_device->getADCCodeString(code), "text");
    }

    // The device flags more status; command 48 brings its error bits, and the
    // additional status shows their lines.
    void adcErrorOfTheDevice_data()
    {
        addColumns<QVariantMap, QString>({"simSetup", "text"});
        QTest::newRow("short circuit") << QVariantMap{{"ts_fault", 1}}
                                       << "\n--- Device ADC error code: 1\n--- Temperature sensor short circuit.";
        QTest::newRow("no sensor, Ei") << QVariantMap{{"ts_fault", 2}, {"ei_isopotential_point", 70.0}}
                                       << "\n--- Device ADC error code: 6\n--- Temperature sensor not connected. "
                                          "\n--- Ei is out of range.";
    }

    void adcErrorOfTheDevice()
    {
        QFETCH(QVariantMap, simSetup);
        m_line.sim().setParams(2, simSetup);
        QVERIFY(m_device->readDevice(1));
        QCOMPARE(int(m_line.sim().record(3).command), 48);
        QTEST(m_device->additionalStatusText(), "text");
    }
};

QTEST_GUILESS_MAIN(TestPH77Device)
#include "tst_ph77device.moc"
