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
        m_device = m_line.startWith(QStringLiteral("TCV-C"), 0, &error);
        QVERIFY2(qobject_cast<TCV2Device*>(m_device), qPrintable(error));
    }

    void cleanup() { m_line.stop(); }

    void reads_data()
    {
        ModelLine::readColumns();
        const auto row = [](auto... a) { ModelLine::readRow(a...); };
        const char* configuration =
            "decimal_point_position=0; input_signal_type=1; sensor_type=6; connection_schema=1; resistanceTS_0=50.5f; "
            "resistance_conn_wires=1.25f; free_ends_compensation=0; first_correction_point=-10.5f; "
            "second_correction_point=150.25f; average_count=7";
        row(130, "device configuration", configuration);
        row(130, "device configuration", configuration, true);
        row(132, "decimal point position", "decimal_point_position=0");
        row(150, "input signal type & sensor", "input_signal_type=2; sensor_type=3");
        row(153, "connection schema", "connection_schema=1");
        row(155, "resistance TS at 0", "resistanceTS_0=46.75f");
        row(157, "resistance of connecting wires", "resistance_conn_wires=0.5f");
        row(160, "free ends compensation", "free_ends_compensation=0");
    }

    void reads() { m_line.checkRead(m_device, 0); }

    void writes_data()
    {
        ModelLine::writeColumns();
        const auto row = [](auto... a) { ModelLine::writeRow(a...); };
        row(133, "decimal point position", "decimal_point_position=0", "00");
        row(134, "average_count", "average_count=16", "10");
        row(143, "first correction point", "first_correction_point=20.5f", "41a40000");
        // The first point measured 100 ohm at 0 degC; the second completes the pair.
        row(144, "second correction point", "second_correction_point=26.0f", "41d00000", false,
            "correction_resistance_1=100.0");
        row(151, "input signal type", "input_signal_type=1", "01");
        row(152, "sensor type", "sensor_type=4", "04");
        row(154, "connection schema", "connection_schema=1", "01");
        row(156, "resistance TS at 0", "resistanceTS_0=50.0f", "42480000");
        row(158, "resistance of connecting wires", "resistance_conn_wires=1.5f", "3fc00000");
        row(161, "free ends compensation", "free_ends_compensation=0", "00");
        row(171, "adjust voltage", "adjust_voltage=1.5f", "3fc00000", true, "input_signal_type=1");
        row(172, "adjust resistance", "adjust_resistance=110.0f", "42dc0000", true);
        row(173, "adjust temperature", "adjust_temperature=21.5f", "41ac0000", true, "input_signal_type=2");
    }

    void writes() { m_line.checkWrite(m_device, 0); }

    // Command 174 asks what an adjustment acts on; the reading the device answers
    // goes to the key of that quantity, and nothing is counted.
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

        m_line.sim().setParam(0, "process_temperature_amplitude", 0.0);
        m_line.sim().setParams(0, simSetup);
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

    void changedEcho()
    {
        // Answered without data, the echo of a write differs; nothing is counted.
        m_device->setDeviceInfo("resistanceTS_0", 50.0f);
        m_line.sim().addFault(0, emptyAnswer(156));
        QSignalSpy errors(m_device, &Device::deviceError);
        QVERIFY(!m_device->writeDevice(156));
        QCOMPARE(m_line.sim().record(2).data, hx("42480000"));
        const QString mismatch = QStringLiteral("*** cmdData != response");
        QCOMPARE(errors, QList<QList<QVariant>>{{mismatch}});
        QCOMPARE((QStringList{m_device->errorText(), m_device->messageLog().last()}),
                 QStringList({mismatch, mismatch}));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 0);
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

        const auto refused = [&] { return QString::number(m_device->errorCode()) + ' ' + m_device->errorText(); };

        // Closed: the adjustment is refused. A wrong code is refused and
        // leaves access as it was.
        QVERIFY(!m_device->writeDevice(172));
        QCOMPARE(refused(), "-3 " + restricted);
        QVERIFY(!m_device->sendAdjustCode(54321));
        QCOMPARE(refused(), "-3 " + restricted);
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
        QVERIFY(m_device->deviceInfo().value("metrology_access") == QVariant(1) && m_device->isMetrologyAccessOpen());
        // An open session is no part of the configuration the file keeps.
        QVERIFY(!m_device->save().value("parameters").toMap().contains("metrology_access"));
        QVERIFY(!QJsonDocument::fromVariant(m_device->save()).toJson().contains("12345"));
        QVERIFY(m_device->messageLog().contains(QStringLiteral("writing metrology access (cmd=190)...\n")));
        QVERIFY(m_device->writeDevice(172));
        QCOMPARE(m_line.sim().param(0, "adjust_resistance").toDouble(), 105.0);

        // Code 0 closes it again.
        QVERIFY(m_device->sendAdjustCode(0));
        QCOMPARE(m_line.sim().record(6).data, hx("00000000"));
        QVERIFY(m_device->deviceInfo().value("metrology_access") == QVariant(0) && !m_device->isMetrologyAccessOpen());
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
        QCOMPARE(m_device->hartAddress(), hx("2091009101"));

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
        QCOMPARE((QList<QByteArray>{QByteArray::number(write.command), write.data, write.address}),
                 (QList<QByteArray>{"194", hx("123456"), hx("a091009101")}));
        // Identified again at the polling address, and from now on reached at
        // the new long address.
        const hartsim::RequestRecord identification = m_line.sim().record(5);
        QCOMPARE((QList<QByteArray>{QByteArray::number(identification.command), identification.address,
                                    m_device->hartDeviceID(), m_device->hartAddress()}),
                 (QList<QByteArray>{"0", hx("80"), hx("123456"), hx("2091123456")}));
        QVERIFY(m_device->readDevice(132));
        QCOMPARE(m_line.sim().record(6).address, hx("a091123456"));
        QCOMPARE(m_device->state(), 2);
    }

    void manufacturerSettings() { m_line.checkManufacturerSettings(m_device, 0, 134, {{"average_count", 9}}); }
};

QTEST_GUILESS_MAIN(TestTCV2Device)
#include "tst_tcv2device.moc"
