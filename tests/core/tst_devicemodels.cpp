#include "debugqt.h"
#include "defaultdevice.h"
#include "modelline.h"
#include "ph77device.h"
#include "qp1device.h"
#include "tcv2device.h"

#include <QJsonDocument>
#include <QMutex>
#include <QSignalSpy>
#include <QtTest>

// The device classes of the demo line's models: TCV-C at 0, QP-1C at 1,
// pH-7702 at 2 and the generic device at 3. Each test identifies the device
// it works on; that is the line's first request.
class TestDeviceModels : public QObject
{
    Q_OBJECT

    ModelLine m_line;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }
    void init() { QVERIFY(m_line.start()); }
    void cleanup() { m_line.stop(); }

    void classes()
    {
        QVERIFY(qobject_cast<TCV2Device*>(m_line.identify(0)));
        QVERIFY(qobject_cast<QP1Device*>(m_line.identify(1)));
        QVERIFY(qobject_cast<PH77Device*>(m_line.identify(2)));
        QVERIFY(qobject_cast<DefaultDevice*>(m_line.identify(3)));
    }

    void reads_data()
    {
        addReadColumns();
        const char* tcv = "decimal_point_position=0; input_signal_type=1; sensor_type=6; connection_schema=1; "
                          "resistanceTS_0=50.5f; resistance_conn_wires=1.25f; free_ends_compensation=0; "
                          "first_correction_point=-10.5f; second_correction_point=150.25f; average_count=7";
        readRow(0, 130, "device configuration", tcv);
        readRow(0, 130, "device configuration", tcv, true);
        readRow(0, 132, "decimal point position", "decimal_point_position=0");
        readRow(0, 150, "input signal type & sensor", "input_signal_type=2; sensor_type=3");
        readRow(0, 153, "connection schema", "connection_schema=1");
        readRow(0, 155, "resistance TS at 0", "resistanceTS_0=46.75f");
        readRow(0, 157, "resistance of connecting wires", "resistance_conn_wires=0.5f");
        readRow(0, 160, "free ends compensation", "free_ends_compensation=0");

        const char* qp1 = "decimal_point_position=2; average_count=8; input_units=7; free_range_min=-50.5f; "
                          "free_range_max=750.25f; indicate_range_min=1.5f; indicate_range_max=99.5f; "
                          "calibrate_unit_code=11; line_points_count=4";
        readRow(1, 132, "decimal point position", "decimal_point_position=3");
        readRow(1, 135, "device configuration", qp1);
        readRow(1, 135, "device configuration", qp1, true);
        readRow(1, 139, "temperature correction params",
                "temper_correction_mode=2; t1_correcton_value=15.5f; t2_correcton_value=45.25f");
        // The device computes the pressure for a line point.
        readRow(1, 149, "pressure for line point", "line_point_pressure=1.0f", true);

        readRow(2, 130, "device configuration (part 1)",
                "input_units=1; ei_isopotential_point=-12.5f; steepness=58.5f; phi_isopotential_point=7.25f; "
                "average_time_small_sig_ph=6; average_time_big_sig_ph=3; big_sig_threshold_ph=0.75f; electrode_diag=1");
        readRow(2, 134, "device configuration (part 2)",
                "t_measurement_mode=1; ts_type=1; ts_0=500.0f; t_for_correction=1.5f; t_manual=30.5f; "
                "average_time_small_sig_t=5; average_time_big_sig_t=7; big_sig_threshold_t=2.5f");
        readRow(2, 140, "indication range", "indicate_range_min=2.0f; indicate_range_max=12.0f");
        readRow(2, 150, "current graduation values",
                "current_grd_type=1; current_ph_1=4.0f; current_eds_1=170.5f; current_t_1=25.0f; current_ph_2=9.25f; "
                "current_eds_2=-130.25f; current_t_2=24.5f");
        readRow(2, 152, "Ei and S ranges", "ei_min=-40.0f; ei_max=40.0f; s_min=52.0f; s_max=60.0f");
        readRow(
            2, 171, "adjustment parameters",
            "adjust_U_p1=100.0f; adjust_U_p2=-100.0f; adjust_Rt_p=110.0f; adjust_Rc_p1=10.0f; adjust_Rc_p2=1000.0f");
        readRow(2, 171, "adjustment parameters", "adjust_U_p1=1.0f; adjust_Rc_p2=1.0f", true);
    }

    void reads() { m_line.checkRead(); }

    void writes_data()
    {
        addWriteColumns();
        writeRow(0, 133, "decimal point position", "decimal_point_position=0", "00");
        writeRow(0, 134, "average_count", "average_count=16", "10");
        writeRow(0, 143, "first correction point", "first_correction_point=20.5f", "41a40000");
        // The first point measured 100 ohm at 0 degC; the second completes the pair.
        writeRow(0, 144, "second correction point", "second_correction_point=26.0f", "41d00000", false,
                 "correction_resistance_1=100.0");
        writeRow(0, 151, "input signal type", "input_signal_type=1", "01");
        writeRow(0, 152, "sensor type", "sensor_type=4", "04");
        writeRow(0, 154, "connection schema", "connection_schema=1", "01");
        writeRow(0, 156, "resistance TS at 0", "resistanceTS_0=50.0f", "42480000");
        writeRow(0, 158, "resistance of connecting wires", "resistance_conn_wires=1.5f", "3fc00000");
        writeRow(0, 161, "free ends compensation", "free_ends_compensation=0", "00");
        writeRow(0, 171, "adjust voltage", "adjust_voltage=1.5f", "3fc00000", true, "input_signal_type=1");
        writeRow(0, 172, "adjust resistance", "adjust_resistance=110.0f", "42dc0000", true);
        writeRow(0, 173, "adjust temperature", "adjust_temperature=21.5f", "41ac0000", true, "input_signal_type=2");

        writeRow(1, 133, "decimal point position", "decimal_point_position=3", "03");
        writeRow(1, 134, "average_count", "average_count=12", "0c");
        writeRow(1, 136, "calibration unit code", "calibrate_unit_code=7", "07", true);
        writeRow(1, 137, "line points count", "line_points_count=5", "05", true);
        writeRow(1, 138, "line point value", "line_point_number=2; line_point_value=12.5f", "0241480000", true,
                 "line_points_count=4");
        writeRow(1, 138, "line point value", "line_point_number=6; line_point_value=3.0f", "0640400000", true, "",
                 "*** linearization point not used");
        writeRow(1, 140, "temper corretion mode", "temper_correction_mode=1", "01", true);
        writeRow(1, 141, "temper corretion", "temper_correction_step=2; temper_correction_value=55.0f", "02425c0000",
                 true);
        writeRow(1, 141, "temper corretion", "temper_correction_step=1; temper_correction_value=25.0f", "0141c80000",
                 true, "tcorr_1_set=true; tcorr_1_temperature=20.0",
                 "*** temperature is different from previous value at this point");
        writeRow(1, 142, "adjust gain", "gain_adjustment=250.0f", "437a0000");
        writeRow(1, 145, "free ragne", "free_range_min=-10.0f; free_range_max=500.0f", "c120000043fa0000");
        writeRow(1, 146, "indication range", "indicate_range_min=0.5f; indicate_range_max=80.0f", "3f00000042a00000");
        writeRow(1, 147, "",
                 "sensor_unit_code=7; sensor_range_max=16.0f; sensor_range_min=-1.0f; sensor_minimum_range=0.5f",
                 "0741800000bf8000003f000000", true);

        writeRow(2, 131, "electrode parameters", "input_units=1; ei_isopotential_point=-5.5f; steepness=58.0f",
                 "01c0b0000042680000");
        writeRow(2, 132, "PV filter parameters",
                 "average_time_small_sig_ph=10; average_time_big_sig_ph=2; big_sig_threshold_ph=0.25f", "0a023e800000");
        writeRow(2, 133, "electrode diagnostic on/off", "electrode_diag=1", "01");
        writeRow(2, 135, "temperature measurement mode", "t_measurement_mode=1; t_manual=40.0f", "0142200000");
        writeRow(2, 136, "temperature sensor parameters", "ts_type=1; ts_0=1000.0f; t_for_correction=-0.5f",
                 "01447a0000bf000000");
        writeRow(2, 137, "temperature filter parameters",
                 "average_time_small_sig_t=3; average_time_big_sig_t=1; big_sig_threshold_t=1.5f", "03013fc00000");
        writeRow(2, 141, "indication range", "indicate_range_min=1.0f; indicate_range_max=13.0f", "3f80000041500000");
        // The unit must be that of the primary variable, pH (59).
        writeRow(2, 142, "",
                 "sensor_unit_code=59; sensor_range_max=12.0f; sensor_range_min=1.0f; sensor_minimum_range=0.5f",
                 "3b414000003f8000003f000000", true);
        writeRow(2, 172, "adjust U", "adjust_U_point=2; adjust_U=150.0f", "0243160000", true);
        writeRow(2, 173, "adjust Rt", "adjust_Rt=109.5f", "42db0000", true);
        writeRow(2, 174, "adjust Rc", "adjust_Rc_point=2; adjust_Rc=5.0f", "0240a00000", true);
        writeRow(2, 176, "Ei and S ranges", "ei_min=-50.0f; ei_max=50.0f; s_min=54.0f; s_max=61.0f",
                 "c2480000424800004258000042740000", true);
    }

    void writes() { m_line.checkWrite(); }

    void manufacturerSettings_data()
    {
        addColumns<int, int, QVariantMap>({"address", "command", "info"});
        QTest::newRow("TCV-C") << 0 << 134 << QVariantMap{{"average_count", 9}};
        QTest::newRow("QP-1C") << 1 << 136 << QVariantMap{{"calibrate_unit_code", 7}};
        QTest::newRow("pH-7702") << 2 << 176 << vmap("ei_min=-55.0f; ei_max=55.0f; s_min=50.0f; s_max=62.0f");
    }

    // Metrology access closed, even the save of the manufacturer's settings
    // is refused. Open, a restore with nothing saved is refused; the save
    // changes nothing, the command writes the values, and the restore brings
    // the old ones back, a change of the configuration.
    void manufacturerSettings()
    {
        QFETCH(int, address);
        QFETCH(int, command);
        QFETCH(QVariantMap, info);

        Device* device = m_line.identify(address);
        QVERIFY(device);
        SimulatedLine& sim = m_line.sim;
        const QVariantMap before = sim.params(address, info.keys());
        device->setDeviceInfo("manufacturer_settings", 1);
        QVERIFY(!device->writeDevice(192));
        QCOMPARE(device->errorText(), QStringLiteral("Command error (error code 16): *** restricted access"));
        QVERIFY(device->sendAdjustCode(12345));
        device->setDeviceInfo("manufacturer_settings", 0);
        QVERIFY(!device->writeDevice(192));
        QCOMPARE(device->errorText(),
                 QStringLiteral("Command error (error code 12): *** saved factory settings are missing"));

        const int modifyCount = device->getDeviceInfoByte("modify_count");
        device->setDeviceInfo("manufacturer_settings", 1);
        QVERIFY(device->writeDevice(192));
        QCOMPARE(sim.record(5).data, hx("01"));
        QCOMPARE(device->getDeviceInfoByte("modify_count"), modifyCount);
        setInfo(device, info);
        QVERIFY(device->writeDevice(command));
        VERIFY_NO_MISMATCH(mismatches(sim.params(address, info.keys()), info, true));
        device->setDeviceInfo("manufacturer_settings", 0);
        QVERIFY(device->writeDevice(192));
        QCOMPARE(sim.record(7).data, hx("00"));
        QCOMPARE(sim.params(address, info.keys()), before);
        QCOMPARE(device->getDeviceInfoByte("modify_count"), modifyCount + 2);
        QVERIFY(device->messageLog().contains(QStringLiteral("writing manufacturer settings (cmd=192)...\n")));
    }

    // TCV-C command 174 asks what an adjustment acts on; the reading the
    // device answers goes to the key of that quantity, and nothing is counted.
    void adjustParameterCode_data()
    {
        addColumns<int, QVariantMap, QString, float>({"code", "simSetup", "key", "reading"});
        QTest::newRow("0 resistance") << 0 << vmap("process_temperature=0.0; sensor_r0_true=120.5")
                                      << "adjust_resistance" << 120.5f;
        QTest::newRow("1 voltage") << 1 << vmap("input_signal_type=1; process_temperature=22.0; adc_voltage_error=1.25")
                                   << "adjust_voltage" << 1.25f;
        QTest::newRow("2 temperature") << 2 << vmap("input_signal_type=2; free_ends_temperature=18.5")
                                       << "adjust_temperature" << 18.5f;
        QTest::newRow("3 temperature too")
            << 3 << vmap("input_signal_type=2; free_ends_temperature=-4.0") << "adjust_temperature" << -4.0f;
    }

    void adjustParameterCode()
    {
        QFETCH(int, code);
        QFETCH(QVariantMap, simSetup);
        QFETCH(QString, key);
        QFETCH(float, reading);

        Device* device = m_line.identify(0);
        QVERIFY(device);
        m_line.sim.setParam(0, "process_temperature_amplitude", 0.0);
        m_line.sim.setParams(0, simSetup);
        const QStringList keys = {"adjust_resistance", "adjust_voltage", "adjust_temperature"};
        for (const QString& k : keys)
            device->setDeviceInfo(k, -1.0f);
        device->setDeviceInfo("adjust_parameter_code", code);

        QVERIFY(device->writeDevice(174));
        QCOMPARE(m_line.sim.record(2).data, QByteArray(1, char(code)));
        QCOMPARE(m_line.sim.param(0, "adjust_parameter_code").toInt(), code);
        for (const QString& k : keys)
            QCOMPARE(device->deviceInfo().value(k), QVariant(k == key ? reading : -1.0f));
        QCOMPARE(device->getDeviceInfoByte("modify_count"), 0);
    }

    void tcvWithoutARowAndChangedEcho()
    {
        Device* device = m_line.identify(0);
        QVERIFY(device);
        // Command 131 has no row either way; answered well and without data.
        m_line.sim.addFault(0, emptyAnswer(131));
        const QVariantMap before = device->deviceInfo();
        QVERIFY(!device->readDevice(131));
        QCOMPARE(device->state(), 2);
        QCOMPARE(device->deviceInfo(), before);
        QVERIFY(device->writeDevice(131));
        const hartsim::RequestRecord record = m_line.sim.record(3);
        QCOMPARE(int(record.command), 131);
        QCOMPARE(record.data, QByteArray());
        QCOMPARE(device->getDeviceInfoByte("modify_count"), 1);

        // Answered without data, the echo of a write differs; nothing is counted.
        device->setDeviceInfo("resistanceTS_0", 50.0f);
        m_line.sim.addFault(0, emptyAnswer(156));
        QSignalSpy errors(device, &Device::deviceError);
        QVERIFY(!device->writeDevice(156));
        QCOMPARE(m_line.sim.record(4).data, hx("42480000"));
        const QString mismatch = QStringLiteral("*** cmdData != response");
        QCOMPARE(errors, QList<QList<QVariant>>{{mismatch}});
        QCOMPARE((QStringList{device->errorText(), device->messageLog().last()}), QStringList({mismatch, mismatch}));
        QCOMPARE(device->getDeviceInfoByte("modify_count"), 1);
    }

    void tcvMetrologyAccess()
    {
        Device* device = m_line.identify(0);
        QVERIFY(device);
        const QString restricted = QStringLiteral("Command error (error code 16): *** restricted access");
        device->setDeviceInfo("adjust_resistance", 105.0f);
        QVERIFY(device->hasMetrologyAccess());

        const auto refused = [&] { return QString::number(device->errorCode()) + ' ' + device->errorText(); };

        // Closed: the adjustment is refused. A wrong code is refused and
        // leaves access as it was.
        QVERIFY(!device->writeDevice(172));
        QCOMPARE(refused(), "-3 " + restricted);
        QVERIFY(!device->sendAdjustCode(54321));
        QCOMPARE(refused(), "-3 " + restricted);
        QVERIFY(!device->hasDeviceInfoParam("metrology_access"));
        QCOMPARE(m_line.sim.record(3).data, hx("0000d431"));

        // The right one opens it, and the adjustment goes through. The code
        // reaches neither a log line of any level nor the device's message log.
        QStringList logLines;
        QMutex logMutex;
        DebugQt* log = DebugQt::instance(0, nullptr);
        const unsigned int flags = log->flags();
        log->set_flags(flags | DebugQt::LevelInfo | DebugQt::ShowMessage);
        log->set_emitting(true);
        const QMetaObject::Connection collect = connect(
            log, &DebugQt::msg, this,
            [&](const QString& line) {
                QMutexLocker lock(&logMutex);
                logLines << line;
            },
            Qt::DirectConnection);
        QVERIFY(device->sendAdjustCode(12345));
        disconnect(collect);
        log->set_emitting(false);
        log->set_flags(flags);
        QCOMPARE(m_line.sim.record(4).data, hx("00003039"));
        const QString everything = logLines.join('\n') + device->messageLog().join('\n');
        QVERIFY(everything.contains(QStringLiteral(" 82 a0 91 00 91 01 be 04 ** ** ** ** **")));
        QVERIFY2(!everything.contains(QStringLiteral("30 39")), qPrintable(everything));
        QVERIFY(device->deviceInfo().value("metrology_access") == QVariant(1) && device->isMetrologyAccessOpen());
        // An open session is no part of the configuration the file keeps.
        QVERIFY(!device->save().value("parameters").toMap().contains("metrology_access"));
        QVERIFY(!QJsonDocument::fromVariant(device->save()).toJson().contains("12345"));
        QVERIFY(device->messageLog().contains(QStringLiteral("writing metrology access (cmd=190)...\n")));
        QVERIFY(device->writeDevice(172));
        QCOMPARE(m_line.sim.param(0, "adjust_resistance").toDouble(), 105.0);

        // Code 0 closes it again.
        QVERIFY(device->sendAdjustCode(0));
        QCOMPARE(m_line.sim.record(6).data, hx("00000000"));
        QVERIFY(device->deviceInfo().value("metrology_access") == QVariant(0) && !device->isMetrologyAccessOpen());
        QVERIFY(!device->writeDevice(172));
        QCOMPARE(device->errorText(), restricted);

        // An answer that doesn't say open is no success.
        m_line.sim.addFault(0, emptyAnswer(190));
        QSignalSpy errors(device, &Device::deviceError);
        QVERIFY(!device->sendAdjustCode(12345));
        QCOMPARE(device->errorText(), QStringLiteral("*** metrology access is not open"));
        QCOMPARE(errors.size(), 1);
    }

    void tcvFactoryNumber()
    {
        Device* device = m_line.identify(0);
        QVERIFY(device);
        QCOMPARE(device->hartAddress(), hx("2091009101"));

        // Not three bytes: nothing goes out.
        QVERIFY(!device->writeFactoryNumber(hx("1234")));
        QCOMPARE(device->errorText(), QStringLiteral("the factory number must have 3 bytes, not 2"));

        // Access closed: the device refuses and keeps its number.
        QVERIFY(!device->writeFactoryNumber(hx("123456")));
        QCOMPARE(device->errorCode(), -3);
        QCOMPARE(m_line.sim.record(2).command, quint8(194));
        QCOMPARE(m_line.sim.param(0, "device_id").toInt(), 0x009101);

        QVERIFY(device->sendAdjustCode(12345));
        QVERIFY(device->writeFactoryNumber(hx("123456")));
        QCOMPARE(m_line.sim.param(0, "device_id").toInt(), 0x123456);
        const hartsim::RequestRecord write = m_line.sim.record(4);
        QCOMPARE((QList<QByteArray>{QByteArray::number(write.command), write.data, write.address}),
                 (QList<QByteArray>{"194", hx("123456"), hx("a091009101")}));
        // Identified again at the polling address, and from now on reached at
        // the new long address.
        const hartsim::RequestRecord identification = m_line.sim.record(5);
        QCOMPARE((QList<QByteArray>{QByteArray::number(identification.command), identification.address,
                                    device->hartDeviceID(), device->hartAddress()}),
                 (QList<QByteArray>{"0", hx("80"), hx("123456"), hx("2091123456")}));
        QVERIFY(device->readDevice(132));
        QCOMPARE(m_line.sim.record(6).address, hx("a091123456"));
        QCOMPARE(device->state(), 2);
    }

    // QP-1C command 148 stores what the device holds for the point, even for
    // a point it does not use (response code 8, a warning).
    void qp1LinePointReadBack_data()
    {
        addColumns<int, QVariantMap, float, bool>({"point", "simSetup", "value", "warning"});
        QTest::newRow("a point in use") << 2
                                        << vmap("line_points_count=3; line_point_2_value=1.5; line_point_2_set=true")
                                        << 1.5f << false;
        QTest::newRow("an unused point") << 5 << vmap("line_point_5_value=7.25") << 7.25f << true;
    }

    void qp1LinePointReadBack()
    {
        QFETCH(int, point);
        QFETCH(QVariantMap, simSetup);
        QFETCH(float, value);

        Device* device = m_line.identify(1);
        QVERIFY(device);
        m_line.sim.setParams(1, simSetup);
        setInfo(device, {{"line_point_number", point}, {"line_point_value", 99.0f}});
        QVERIFY(device->writeDevice(148));
        QCOMPARE(m_line.sim.record(2).data, QByteArray(1, char(point)));
        VERIFY_NO_MISMATCH(
            mismatches(device->deviceInfo(), {{"line_point_number", point}, {"line_point_value", value}}));
        QTEST(device->statusTexts().contains(QStringLiteral("*** linearization point not used")), "warning");
        QCOMPARE(device->getDeviceInfoByte("modify_count"), 0);
        // The label holds "get": the log line takes it as it stands.
        QVERIFY(device->messageLog().contains(QStringLiteral("get line point value (cmd=148)...\n")));
    }

    void ph77Graduation()
    {
        // One point at pH 7: the device moves Ei onto the electrode's EMF and
        // keeps its steepness; the graduation changes the configuration.
        Device* device = m_line.identify(2);
        QVERIFY(device);
        setInfo(device, vmap("grd_type=0; grd_point_number=1; grd_point_value=7.0f; ei_isopotential_point=123.0f; "
                             "steepness=1.0f"));
        QVERIFY(device->writeDevice(151));
        QCOMPARE(m_line.sim.record(2).data, hx("000140e00000"));
        const float ei = m_line.sim.param(2, "ei_isopotential_point").toFloat();
        QVERIFY(ei != 0.0f);
        VERIFY_NO_MISMATCH(mismatches(device->deviceInfo(),
                                      {{"ei_isopotential_point", ei}, {"steepness", 59.16f}, {"grd_point_number", 1}}));
        QCOMPARE(device->getDeviceInfoByte("modify_count"), 1);
        QVERIFY(device->messageLog().contains(QStringLiteral("writing graduation point (cmd=151)...\n")));
    }

    // The pH-7702 flags more status; command 48 brings its error bits, and the
    // additional status shows their lines.
    void ph77AdcErrors_data()
    {
        addColumns<QVariantMap, QString>({"simSetup", "text"});
        QTest::newRow("short circuit") << QVariantMap{{"ts_fault", 1}}
                                       << "\n--- Device ADC error code: 1\n--- Temperature sensor short circuit.";
        QTest::newRow("no sensor, Ei") << QVariantMap{{"ts_fault", 2}, {"ei_isopotential_point", 70.0}}
                                       << "\n--- Device ADC error code: 6\n--- Temperature sensor not connected. "
                                          "\n--- Ei is out of range.";
    }

    void ph77AdcErrors()
    {
        QFETCH(QVariantMap, simSetup);
        Device* device = m_line.identify(2);
        QVERIFY(device);
        m_line.sim.setParams(2, simSetup);
        QVERIFY(device->readDevice(1));
        QCOMPARE(int(m_line.sim.record(3).command), 48);
        QTEST(device->additionalStatusText(), "text");
        // The texts of each bit, and of codes no device sends.
        QCOMPARE(device->getADCCodeString(0), QString());
        QCOMPARE(device->getADCCodeString(10),
                 QStringLiteral("Temperature sensor not connected. \nS is out of range. "));
        QCOMPARE(device->getADCCodeString(0xFF),
                 QStringLiteral("Temperature sensor short circuit.\nTemperature sensor "
                                "not connected. \nEi is out of range.\nS is out of range. "));
    }

    void generalHasNoProtectedFunctions()
    {
        Device* device = m_line.identify(3);
        QVERIFY(device);
        QSignalSpy errors(device, &Device::deviceError);
        QVERIFY(!device->sendAdjustCode(12345));
        QCOMPARE(device->errorCode(), 3);
        QCOMPARE(device->errorText(),
                 QStringLiteral("the device '%1' has no protected function 'metrology access' (cmd=190)")
                     .arg(device->name()));
        QVERIFY(!device->writeFactoryNumber(hx("123456")));
        QCOMPARE(device->errorText(),
                 QStringLiteral("the device '%1' has no protected function 'write factory number' (cmd=194)")
                     .arg(device->name()));
        QCOMPARE(errors.size(), 2);
        QVERIFY(!device->hasDeviceInfoParam("metrology_access"));
        // Nothing went out: the next request the line serves follows command 0.
        QVERIFY(device->readDevice(1));
        QCOMPARE(int(m_line.sim.record(2).command), 1);
        QCOMPARE(m_line.sim.line().requests().size(), 2);
    }
};

QTEST_GUILESS_MAIN(TestDeviceModels)
#include "tst_devicemodels.moc"
