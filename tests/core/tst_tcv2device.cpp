#include "debugqt.h"
#include "modelline.h"
#include "tcv2device.h"

#include <QJsonDocument>
#include <QMutex>
#include <QSignalSpy>
#include <QtTest>

class TestTCV2Device : public QObject
{
    Q_OBJECT

    ModelLine m_line;
    Device* m_device = nullptr; // the TCV-C at 0, identified

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init()
    {
        QString error;
        QVERIFY2(m_line.start(&error), qPrintable(error));
        m_device = m_line.identify(QStringLiteral("TCV-C"), 0);
        QVERIFY(m_device);
        QVERIFY(qobject_cast<TCV2Device*>(m_device));
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

        const QVariantMap configuration = {
            {"decimal_point_position", 0}, {"input_signal_type", 1},           {"sensor_type", 6},
            {"connection_schema", 1},      {"resistanceTS_0", 50.5f},          {"resistance_conn_wires", 1.25f},
            {"free_ends_compensation", 0}, {"first_correction_point", -10.5f}, {"second_correction_point", 150.25f},
            {"average_count", 7}};

        QTest::newRow("130 configuration") << 130 << "device configuration" << configuration << false;
        QTest::newRow("130 without data: zeros") << 130 << "device configuration" << configuration << true;
        QTest::newRow("132") << 132 << "decimal point position" << QVariantMap{{"decimal_point_position", 0}} << false;
        QTest::newRow("150") << 150 << "input signal type & sensor"
                             << QVariantMap{{"input_signal_type", 2}, {"sensor_type", 3}} << false;
        QTest::newRow("153") << 153 << "connection schema" << QVariantMap{{"connection_schema", 1}} << false;
        QTest::newRow("155") << 155 << "resistance TS at 0" << QVariantMap{{"resistanceTS_0", 46.75f}} << false;
        QTest::newRow("157") << 157 << "resistance of connecting wires" << QVariantMap{{"resistance_conn_wires", 0.5f}}
                             << false;
        QTest::newRow("160") << 160 << "free ends compensation" << QVariantMap{{"free_ends_compensation", 0}} << false;
    }

    void reads() { m_line.checkRead(m_device, 0); }

    void writes_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("label");
        QTest::addColumn<bool>("access");
        QTest::addColumn<QVariantMap>("simSetup");
        QTest::addColumn<QVariantMap>("info");
        QTest::addColumn<QByteArray>("request");

        const QVariantMap none;
        QTest::newRow("133") << 133 << "decimal point position" << false << none
                             << QVariantMap{{"decimal_point_position", 0}} << hx("00");
        QTest::newRow("134") << 134 << "average_count" << false << none << QVariantMap{{"average_count", 16}}
                             << hx("10");
        QTest::newRow("143") << 143 << "first correction point" << false << none
                             << QVariantMap{{"first_correction_point", 20.5f}} << hx("41a40000");
        // The first point measured 100 ohm at 0 degC; the second completes the pair.
        QTest::newRow("144") << 144 << "second correction point" << false
                             << QVariantMap{{"correction_resistance_1", 100.0}}
                             << QVariantMap{{"second_correction_point", 26.0f}} << hx("41d00000");
        QTest::newRow("151") << 151 << "input signal type" << false << none << QVariantMap{{"input_signal_type", 1}}
                             << hx("01");
        QTest::newRow("152") << 152 << "sensor type" << false << none << QVariantMap{{"sensor_type", 4}} << hx("04");
        QTest::newRow("154") << 154 << "connection schema" << false << none << QVariantMap{{"connection_schema", 1}}
                             << hx("01");
        QTest::newRow("156") << 156 << "resistance TS at 0" << false << none << QVariantMap{{"resistanceTS_0", 50.0f}}
                             << hx("42480000");
        QTest::newRow("158") << 158 << "resistance of connecting wires" << false << none
                             << QVariantMap{{"resistance_conn_wires", 1.5f}} << hx("3fc00000");
        QTest::newRow("161") << 161 << "free ends compensation" << false << none
                             << QVariantMap{{"free_ends_compensation", 0}} << hx("00");
        QTest::newRow("171") << 171 << "adjust voltage" << true << QVariantMap{{"input_signal_type", 1}}
                             << QVariantMap{{"adjust_voltage", 1.5f}} << hx("3fc00000");
        QTest::newRow("172") << 172 << "adjust resistance" << true << none << QVariantMap{{"adjust_resistance", 110.0f}}
                             << hx("42dc0000");
        QTest::newRow("173") << 173 << "adjust temperature" << true << QVariantMap{{"input_signal_type", 2}}
                             << QVariantMap{{"adjust_temperature", 21.5f}} << hx("41ac0000");
    }

    void writes() { m_line.checkWrite(m_device, 0); }

    // Command 174 asks what an adjustment acts on; the reading the device answers
    // goes to the key of that quantity, and nothing is counted.
    void adjustParameterCode_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QVariantMap>("simSetup");
        QTest::addColumn<QString>("key");
        QTest::addColumn<float>("reading");

        QTest::newRow("0 resistance") << 0
                                      << QVariantMap{{"process_temperature", 0.0},
                                                     {"process_temperature_amplitude", 0.0},
                                                     {"sensor_r0_true", 120.5}}
                                      << "adjust_resistance" << 120.5f;
        QTest::newRow("1 voltage") << 1
                                   << QVariantMap{{"input_signal_type", 1},
                                                  {"process_temperature", 22.0},
                                                  {"process_temperature_amplitude", 0.0},
                                                  {"adc_voltage_error", 1.25}}
                                   << "adjust_voltage" << 1.25f;
        QTest::newRow("2 temperature") << 2 << QVariantMap{{"input_signal_type", 2}, {"free_ends_temperature", 18.5}}
                                       << "adjust_temperature" << 18.5f;
        QTest::newRow("3 temperature too")
            << 3 << QVariantMap{{"input_signal_type", 2}, {"free_ends_temperature", -4.0}} << "adjust_temperature"
            << -4.0f;
    }

    void adjustParameterCode()
    {
        QFETCH(int, code);
        QFETCH(QVariantMap, simSetup);
        QFETCH(QString, key);
        QFETCH(float, reading);

        for (auto it = simSetup.constBegin(); it != simSetup.constEnd(); ++it)
            m_line.sim().setParam(0, it.key(), it.value());
        const QStringList keys = {"adjust_resistance", "adjust_voltage", "adjust_temperature"};
        for (const QString& k : keys)
            m_device->setDeviceInfo(k, -1.0f);
        m_device->setDeviceInfo("adjust_parameter_code", code);
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");

        QVERIFY(m_device->writeDevice(174));
        QCOMPARE(m_line.sim().record(2).data, QByteArray(1, char(code)));
        QCOMPARE(m_line.sim().param(0, "adjust_parameter_code").toInt(), code);
        for (const QString& k : keys)
            QCOMPARE(m_device->deviceInfo().value(k), QVariant(k == key ? reading : -1.0f));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
    }

    void changedEcho_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<bool>("noData");
        QTest::addColumn<QByteArray>("request");

        QTest::newRow("156 answered without data") << 156 << true << hx("42480000");
        QTest::newRow("132 has no write row and answers with data") << 132 << false << QByteArray();
    }

    void changedEcho()
    {
        QFETCH(int, command);
        QFETCH(bool, noData);

        m_device->setDeviceInfo("resistanceTS_0", 50.0f);
        if (noData)
            m_line.sim().addFault(0, emptyAnswer(command));
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");
        QSignalSpy errors(m_device, &Device::deviceError);

        QVERIFY(!m_device->writeDevice(command));
        QCOMPARE(m_device->errorText(), QStringLiteral("*** cmdData != response"));
        QCOMPARE(errors.size(), 1);
        QCOMPARE(errors.first().at(0).toString(), QStringLiteral("*** cmdData != response"));
        QCOMPARE(m_device->messageLog().last(), QStringLiteral("*** cmdData != response"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
        QTEST(m_line.sim().record(2).data, "request");
    }

    void commandsWithoutARow()
    {
        // Command 131 has no row either way; answered well and without data.
        m_line.sim().addFault(0, emptyAnswer(131));
        const QVariantMap before = m_device->deviceInfo();
        QVERIFY(!m_device->readDevice(131));
        QCOMPARE(m_device->state(), 2);
        QCOMPARE(m_device->deviceInfo(), before);

        QVERIFY(m_device->writeDevice(131));
        const hartsim::RequestRecord record = m_line.sim().record(3);
        QCOMPARE(int(record.command), 131);
        QCOMPARE(record.data, QByteArray());
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), before.value("modify_count").toInt() + 1);
    }

    void metrologyAccess()
    {
        const QString restricted = QStringLiteral("Command error (error code 16): *** restricted access");
        m_device->setDeviceInfo("adjust_resistance", 105.0f);
        QVERIFY(m_device->hasMetrologyAccess());

        // Closed: the adjustment is refused.
        QVERIFY(!m_device->writeDevice(172));
        QCOMPARE(m_device->errorCode(), -3);
        QCOMPARE(m_device->errorText(), restricted);

        // A wrong code is refused and leaves access as it was.
        QVERIFY(!m_device->sendAdjustCode(54321));
        QCOMPARE(m_device->errorCode(), -3);
        QCOMPARE(m_device->errorText(), restricted);
        QVERIFY(!m_device->hasDeviceInfoParam("metrology_access"));
        QCOMPARE(m_line.sim().record(3).data, hx("0000d431"));

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
        QVERIFY(m_device->sendAdjustCode(12345));
        disconnect(collect);
        log->set_emitting(false);
        log->set_flags(flags);
        QCOMPARE(m_line.sim().record(4).data, hx("00003039"));
        const QString everything = logLines.join('\n') + m_device->messageLog().join('\n');
        QVERIFY(everything.contains(QStringLiteral(" 82 a0 91 00 91 01 be 04 ** ** ** ** **")));
        QVERIFY2(!everything.contains(QStringLiteral("30 39")), qPrintable(everything));
        QCOMPARE(m_device->deviceInfo().value("metrology_access"), QVariant(1));
        QVERIFY(m_device->isMetrologyAccessOpen());
        // An open session is no part of the configuration the file keeps.
        QVERIFY(!m_device->save().value("parameters").toMap().contains("metrology_access"));
        QVERIFY(!QJsonDocument::fromVariant(m_device->save()).toJson().contains("12345"));
        QVERIFY(m_device->messageLog().contains(QStringLiteral("writing metrology access (cmd=190)...\n")));
        QVERIFY(m_device->writeDevice(172));
        QCOMPARE(m_line.sim().param(0, "adjust_resistance").toDouble(), 105.0);

        // Code 0 closes it again.
        QVERIFY(m_device->sendAdjustCode(0));
        QCOMPARE(m_line.sim().record(6).data, hx("00000000"));
        QCOMPARE(m_device->deviceInfo().value("metrology_access"), QVariant(0));
        QVERIFY(!m_device->isMetrologyAccessOpen());
        QVERIFY(!m_device->writeDevice(172));
        QCOMPARE(m_device->errorText(), restricted);

        // An answer that doesn't say open is no success.
        m_line.sim().addFault(0, emptyAnswer(190));
        QSignalSpy errors(m_device, &Device::deviceError);
        QVERIFY(!m_device->sendAdjustCode(12345));
        QCOMPARE(m_device->errorText(), QStringLiteral("*** metrology access is not open"));
        QCOMPARE(errors.size(), 1);
    }

    void factoryNumber()
    {
        const QByteArray oldAddress = m_device->hartAddress();
        QCOMPARE(oldAddress, hx("2091009101"));

        // Not three bytes: nothing goes out.
        QVERIFY(!m_device->writeFactoryNumber(hx("1234")));
        QCOMPARE(m_device->errorText(), QStringLiteral("the factory number must have 3 bytes, not 2"));

        // Access closed: the device refuses and keeps its number.
        QVERIFY(!m_device->writeFactoryNumber(hx("123456")));
        QCOMPARE(m_device->errorCode(), -3);
        QCOMPARE(m_line.sim().record(2).command, quint8(194));
        QCOMPARE(m_line.sim().param(0, "device_id").toInt(), 0x009101);

        QVERIFY(m_device->sendAdjustCode(12345));
        QVERIFY(m_device->writeFactoryNumber(hx("123456")));
        QCOMPARE(m_line.sim().param(0, "device_id").toInt(), 0x123456);
        const hartsim::RequestRecord write = m_line.sim().record(4);
        QCOMPARE(int(write.command), 194);
        QCOMPARE(write.data, hx("123456"));
        QCOMPARE(write.address, hx("a091009101"));
        // Identified again at the polling address, and from now on reached at
        // the new long address.
        const hartsim::RequestRecord identification = m_line.sim().record(5);
        QCOMPARE(int(identification.command), 0);
        QCOMPARE(identification.address, hx("80"));
        QCOMPARE(m_device->hartDeviceID(), hx("123456"));
        QCOMPARE(m_device->hartAddress(), hx("2091123456"));
        QVERIFY(m_device->readDevice(132));
        QCOMPARE(m_line.sim().record(6).address, hx("a091123456"));
        QCOMPARE(m_device->state(), 2);
    }

    void manufacturerSettings()
    {
        // Closed access refuses even the save.
        m_device->setDeviceInfo("manufacturer_settings", 1);
        QVERIFY(!m_device->writeDevice(192));
        QCOMPARE(m_device->errorCode(), -3);
        QVERIFY(m_device->sendAdjustCode(12345));

        // Nothing saved yet to restore.
        m_device->setDeviceInfo("manufacturer_settings", 0);
        QVERIFY(!m_device->writeDevice(192));
        QCOMPARE(m_device->errorText(), QStringLiteral("Command error (error code 12): *** saved factory settings are "
                                                       "missing"));

        // A save changes nothing in the configuration; a restore does.
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");
        m_device->setDeviceInfo("manufacturer_settings", 1);
        QVERIFY(m_device->writeDevice(192));
        QCOMPARE(m_line.sim().record(5).data, hx("01"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
        QVERIFY(m_device->messageLog().contains(QStringLiteral("writing manufacturer settings (cmd=192)...\n")));

        m_line.sim().setParam(0, "average_count", 9);
        m_device->setDeviceInfo("manufacturer_settings", 0);
        QVERIFY(m_device->writeDevice(192));
        QCOMPARE(m_line.sim().record(6).data, hx("00"));
        QCOMPARE(m_line.sim().param(0, "average_count").toInt(), 4);
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount + 1);
    }
};

QTEST_GUILESS_MAIN(TestTCV2Device)
#include "tst_tcv2device.moc"
