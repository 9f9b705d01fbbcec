#include "debugqt.h"
#include "modelline.h"
#include "ph77device.h"

#include <QSignalSpy>
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
        QVERIFY2(m_line.start(&error), qPrintable(error));
        m_device = m_line.identify(QStringLiteral("pH-7702"), 2);
        QVERIFY(m_device);
        QVERIFY(qobject_cast<PH77Device*>(m_device));
    }

    void cleanup()
    {
        m_device = nullptr;
        m_line.stop();
    }

    void reads_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QVariantMap>("values");
        QTest::addColumn<bool>("noData");

        QTest::newRow("130") << 130 << "device configuration (part 1)"
                             << QVariantMap{{"input_units", 1},
                                            {"ei_isopotential_point", -12.5f},
                                            {"steepness", 58.5f},
                                            {"phi_isopotential_point", 7.25f},
                                            {"average_time_small_sig_ph", 6},
                                            {"average_time_big_sig_ph", 3},
                                            {"big_sig_threshold_ph", 0.75f},
                                            {"electrode_diag", 1}}
                             << false;
        QTest::newRow("134") << 134 << "device configuration (part 2)"
                             << QVariantMap{{"t_measurement_mode", 1},
                                            {"ts_type", 1},
                                            {"ts_0", 500.0f},
                                            {"t_for_correction", 1.5f},
                                            {"t_manual", 30.5f},
                                            {"average_time_small_sig_t", 5},
                                            {"average_time_big_sig_t", 7},
                                            {"big_sig_threshold_t", 2.5f}}
                             << false;
        QTest::newRow("140") << 140 << "indication range"
                             << QVariantMap{{"indicate_range_min", 2.0f}, {"indicate_range_max", 12.0f}} << false;
        QTest::newRow("150") << 150 << "current graduation values"
                             << QVariantMap{{"current_grd_type", 1},   {"current_ph_1", 4.0f},
                                            {"current_eds_1", 170.5f}, {"current_t_1", 25.0f},
                                            {"current_ph_2", 9.25f},   {"current_eds_2", -130.25f},
                                            {"current_t_2", 24.5f}}
                             << false;
        QTest::newRow("152") << 152 << "Ei and S ranges"
                             << QVariantMap{{"ei_min", -40.0f}, {"ei_max", 40.0f}, {"s_min", 52.0f}, {"s_max", 60.0f}}
                             << false;
        QTest::newRow("171") << 171 << "adjustment parameters"
                             << QVariantMap{{"adjust_U_p1", 100.0f},
                                            {"adjust_U_p2", -100.0f},
                                            {"adjust_Rt_p", 110.0f},
                                            {"adjust_Rc_p1", 10.0f},
                                            {"adjust_Rc_p2", 1000.0f}}
                             << false;
        QTest::newRow("171 without data: zeros")
            << 171 << "adjustment parameters" << QVariantMap{{"adjust_U_p1", 1.0f}, {"adjust_Rc_p2", 1.0f}} << true;
    }

    void reads() { m_line.checkRead(m_device, 2); }

    void writes_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("label");
        QTest::addColumn<bool>("access");
        QTest::addColumn<QVariantMap>("simSetup");
        QTest::addColumn<QVariantMap>("info");
        QTest::addColumn<QByteArray>("request");

        const QVariantMap none;
        QTest::newRow("131") << 131 << "electrode parameters" << false << none
                             << QVariantMap{{"input_units", 1}, {"ei_isopotential_point", -5.5f}, {"steepness", 58.0f}}
                             << hx("01c0b0000042680000");
        QTest::newRow("132") << 132 << "PV filter parameters" << false << none
                             << QVariantMap{{"average_time_small_sig_ph", 10},
                                            {"average_time_big_sig_ph", 2},
                                            {"big_sig_threshold_ph", 0.25f}}
                             << hx("0a023e800000");
        QTest::newRow("133") << 133 << "electrode diagnostic on/off" << false << none
                             << QVariantMap{{"electrode_diag", 1}} << hx("01");
        QTest::newRow("135") << 135 << "temperature measurement mode" << false << none
                             << QVariantMap{{"t_measurement_mode", 1}, {"t_manual", 40.0f}} << hx("0142200000");
        QTest::newRow("136") << 136 << "temperature sensor parameters" << false << none
                             << QVariantMap{{"ts_type", 1}, {"ts_0", 1000.0f}, {"t_for_correction", -0.5f}}
                             << hx("01447a0000bf000000");
        QTest::newRow("137") << 137 << "temperature filter parameters" << false << none
                             << QVariantMap{{"average_time_small_sig_t", 3},
                                            {"average_time_big_sig_t", 1},
                                            {"big_sig_threshold_t", 1.5f}}
                             << hx("03013fc00000");
        QTest::newRow("141") << 141 << "indication range" << false << none
                             << QVariantMap{{"indicate_range_min", 1.0f}, {"indicate_range_max", 13.0f}}
                             << hx("3f80000041500000");
        // The unit must be that of the primary variable, pH (59).
        QTest::newRow("142 sensor, without a label") << 142 << "" << true << none
                                                     << QVariantMap{{"sensor_unit_code", 59},
                                                                    {"sensor_range_max", 12.0f},
                                                                    {"sensor_range_min", 1.0f},
                                                                    {"sensor_minimum_range", 0.5f}}
                                                     << hx("3b414000003f8000003f000000");
        QTest::newRow("172") << 172 << "adjust U" << true << none
                             << QVariantMap{{"adjust_U_point", 2}, {"adjust_U", 150.0f}} << hx("0243160000");
        QTest::newRow("173") << 173 << "adjust Rt" << true << none << QVariantMap{{"adjust_Rt", 109.5f}}
                             << hx("42db0000");
        QTest::newRow("174") << 174 << "adjust Rc" << true << none
                             << QVariantMap{{"adjust_Rc_point", 2}, {"adjust_Rc", 5.0f}} << hx("0240a00000");
        QTest::newRow("176") << 176 << "Ei and S ranges" << true << none
                             << QVariantMap{{"ei_min", -50.0f}, {"ei_max", 50.0f}, {"s_min", 54.0f}, {"s_max", 61.0f}}
                             << hx("c24800004248000042580000"
                                   "42740000");
    }

    void writes() { m_line.checkWrite(m_device, 2); }

    void graduationStoresWhatTheDeviceComputed()
    {
        // One point at pH 7: the device moves Ei onto the electrode's EMF and
        // keeps its steepness.
        m_device->setDeviceInfo("grd_type", 0);
        m_device->setDeviceInfo("grd_point_number", 1);
        m_device->setDeviceInfo("grd_point_value", 7.0f);
        m_device->setDeviceInfo("ei_isopotential_point", 123.0f);
        m_device->setDeviceInfo("steepness", 1.0f);
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");

        QVERIFY(m_device->writeDevice(151));
        QCOMPARE(m_line.sim().record(2).data, hx("000140e00000"));
        const float ei = m_line.sim().param(2, "ei_isopotential_point").toFloat();
        QVERIFY(ei != 0.0f);
        QCOMPARE(m_device->deviceInfo().value("ei_isopotential_point"), QVariant(ei));
        QCOMPARE(m_device->deviceInfo().value("steepness"), QVariant(59.16f));
        QCOMPARE(m_device->deviceInfo().value("grd_point_number"), QVariant(1));
        // The graduation changes the configuration of the device.
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount + 1);
        QVERIFY(m_device->messageLog().contains(QStringLiteral("writing graduation point (cmd=151)...\n")));
    }

    void changedEcho()
    {
        m_device->setDeviceInfo("electrode_diag", 1);
        m_line.sim().addFault(2, emptyAnswer(133));
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");
        QVERIFY(!m_device->writeDevice(133));
        QCOMPARE(m_device->errorText(), QStringLiteral("*** cmdData != response"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
        QCOMPARE(m_line.sim().record(2).data, hx("01"));
    }

    void protectedCommands()
    {
        m_device->setDeviceInfo("ei_min", -55.0f);
        m_device->setDeviceInfo("ei_max", 55.0f);
        m_device->setDeviceInfo("s_min", 50.0f);
        m_device->setDeviceInfo("s_max", 62.0f);
        QVERIFY(!m_device->writeDevice(176));
        QCOMPARE(m_device->errorText(), QStringLiteral("Command error (error code 16): *** restricted access"));
        QCOMPARE(m_line.sim().param(2, "ei_max").toDouble(), 60.0);

        QVERIFY(m_device->sendAdjustCode(12345));
        // Saved as the manufacturer's, changed, restored: the save alone
        // leaves the configuration as it is.
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");
        m_device->setDeviceInfo("manufacturer_settings", 1);
        QVERIFY(m_device->writeDevice(192));
        QCOMPARE(m_line.sim().record(4).data, hx("01"));
        QVERIFY(m_device->writeDevice(176));
        QCOMPARE(m_line.sim().param(2, "ei_max").toDouble(), 55.0);
        m_device->setDeviceInfo("manufacturer_settings", 0);
        QVERIFY(m_device->writeDevice(192));
        QCOMPARE(m_line.sim().record(6).data, hx("00"));
        QCOMPARE(m_line.sim().param(2, "ei_max").toDouble(), 60.0);
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount + 2);

        QVERIFY(m_device->sendAdjustCode(0));
        QVERIFY(!m_device->writeDevice(176));
        QCOMPARE(m_device->errorCode(), -3);
    }

    void adcCodeTexts_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");

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
        QTest::addColumn<QVariantMap>("simSetup");
        QTest::addColumn<QString>("text");

        QTest::newRow("short circuit") << QVariantMap{{"ts_fault", 1}}
                                       << "\n--- Device ADC error code: 1\n--- Temperature sensor short circuit.";
        QTest::newRow("no sensor, Ei") << QVariantMap{{"ts_fault", 2}, {"ei_isopotential_point", 70.0}}
                                       << "\n--- Device ADC error code: 6\n--- Temperature sensor not connected. "
                                          "\n--- Ei is out of range.";
    }

    void adcErrorOfTheDevice()
    {
        QFETCH(QVariantMap, simSetup);

        for (auto it = simSetup.constBegin(); it != simSetup.constEnd(); ++it)
            m_line.sim().setParam(2, it.key(), it.value());
        QVERIFY(m_device->readDevice(1));
        QCOMPARE(int(m_line.sim().record(3).command), 48);
        QTEST(m_device->additionalStatusText(), "text");
    }
};

QTEST_GUILESS_MAIN(TestPH77Device)
#include "tst_ph77device.moc"
