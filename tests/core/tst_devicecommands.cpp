#include "debugqt.h"
#include "deviceline.h"
#include "modelline.h"
#include "scratchdir.h"

#include <QSignalSpy>
#include <QThread>
#include <QtTest>

class TestDeviceCommands : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;
    DeviceLine m_line;
    Device* m_device = nullptr; // the generic HART 7 device at 0, identified

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init()
    {
        QVERIFY(m_dir.enter());
        // Values that stand still and come out exact in binary; a second
        // generic device at 2, and a HART 5 one at 1.
        const QVariantMap generic = vmap(
            "polling_address=0; tag='PT-1'; descriptor='PRESSURE LOOP'; message='HELLO WORLD'; long_tag='Pump one'; "
            "date='2026-03-15'; final_assembly_number=0x123456; PV_alarm_selection_code=1; conversion_function=1; "
            "damping_time=2.5; distributor_label=7; var_0_value=62.5; var_0_amplitude=0.0; var_1_amplitude=0.0; "
            "var_2_amplitude=0.0; var_3_amplitude=0.0");
        const QVariantMap second =
            vmap("polling_address=2; device_id=0x000202; var_0_unit=7; var_0_value=3.25; var_0_amplitude=0.0");
        const QVariantMap hart5 = vmap("polling_address=1; var_0_value=62.5; var_0_amplitude=0.0");
        QVERIFY(m_line.start({{"generic", generic}, {"hart5", hart5}, {"generic", second}}));
        m_device = m_line.addDevice(0);
        QVERIFY(m_device->readDevice(0));
        QVERIFY(m_line.sim.line().waitForRequests(1, 3000));
    }

    void cleanup()
    {
        m_device = nullptr;
        m_line.stop();
        m_dir.leave();
    }

    // With "empty" the answer carries no data: what was there before is
    // replaced by zeros where the answer falls short, and kept where it ends,
    // as it is by a device with only PV assigned.
    void reads_data()
    {
        addColumns<int, QVariantMap, bool, QVariantMap>({"command", "simSetup", "empty", "expected"});
        auto row = [](const char* name, int command, const char* expected, const char* simSetup = "",
                      bool empty = false) {
            QTest::newRow(name) << command << vmap(simSetup) << empty << vmap(expected);
        };
        const char* assignments = "PV_dev_variable_code=1; SV_dev_variable_code=0; TV_dev_variable_code=3; "
                                  "QV_dev_variable_code=2";
        row("1 PV", 1, "PV_unit_code=12; PV=62.5f");
        row("2 output current", 2, "output_current=14.0f; output_current_%=62.5f");
        row("3 device variables", 3,
            "output_current=14.0f; PV_unit_code=12; PV=62.5f; SV_unit_code=32; SV=23.5f; TV_unit_code=19; TV=12.0f; "
            "QV_unit_code=57; QV=50.0f");
        row("3 empty keeps SV on", 3,
            "output_current=0.0f; PV_unit_code=0; PV=0.0f; SV_unit_code=7; SV=99.0f; QV=99.0f", "", true);
        row("3 with PV only", 3,
            "output_current=14.0f; PV_unit_code=12; PV=62.5f; SV_unit_code=7; SV=99.0f; TV_unit_code=",
            "SV_dev_variable_code=250");
        row("7 polling address", 7, "polling_address=0; current_loop_mode=0", "current_loop_mode=0");
        row("8 classifications", 8, "PV_class_code=65; SV_class_code=64; TV_class_code=66; QV_class_code=0");
        row("12 message", 12, "message='HELLO WORLD'");
        QTest::newRow("13 tag, descriptor, date")
            << 13 << QVariantMap() << false
            << QVariantMap{{"tag", "PT-1"}, {"descriptor", "PRESSURE LOOP"}, {"date", QDate(2026, 3, 15)}};
        QTest::newRow("13 empty: an invalid date is stored")
            << 13 << QVariantMap() << true << QVariantMap{{"tag", ""}, {"descriptor", ""}, {"date", QDate()}};
        row("14 sensor", 14,
            "sensor_number=0xABCDEFu; sensor_unit_code=12; sensor_range_max=250.0f; sensor_range_min=-100.0f; "
            "sensor_minimum_range=1.0f",
            "sensor_number=0xABCDEF");
        row("14 empty", 14, "sensor_number=0u; sensor_minimum_range=0.0f", "", true);
        row("15 output info", 15,
            "PV_alarm_selection_code=1; conversion_function=1; range_unit_code=12; range_max=100.0f; range_min=0.0f; "
            "damping_time=2.5f; write_protection=1; distributor_label=7",
            "write_protection=1");
        row("16 final assembly number", 16, "final_assembly_number=0x123456u");
        row("20 long tag", 20, "long_tag='Pump one'");
        row("20 empty", 20, "long_tag=''", "", true);
        row("48 device status", 48,
            "error_code=3; ADC_flags=0; EEPROM_flags=0; device_specific_status=#030000000000; extended_status=2; "
            "standart_status_0=0",
            "error_code=3; extended_status=2");
        row("48 empty", 48, "error_code=0; device_specific_status=#; standart_status_0=0", "", true);
        row("50 assignments", 50, assignments, assignments);
    }

    void reads()
    {
        QFETCH(int, command);
        QFETCH(QVariantMap, simSetup);
        QFETCH(bool, empty);
        QFETCH(QVariantMap, expected);

        for (const char* key : {"PV", "SV", "QV", "sensor_minimum_range", "output_current"})
            m_device->setDeviceInfo(QLatin1String(key), 99.0f);
        setInfo(m_device, {{"SV_unit_code", 7}, {"long_tag", "old"}, {"date", QDate(2020, 1, 1)}});
        m_line.sim.setParams(0, simSetup);
        if (empty)
            m_line.sim.addFault(0, emptyAnswer(command));
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");
        QVERIFY(m_device->readDevice(command));
        VERIFY_NO_MISMATCH(mismatches(m_device->deviceInfo(), expected));
        const hartsim::RequestRecord record = m_line.sim.record(2);
        QCOMPARE(int(record.command), command);
        QCOMPARE(record.data, QByteArray());
        QCOMPARE(record.address, hx("912a002a01"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
        QCOMPARE(m_device->state(), 2);
        QVERIFY(m_device->deviceTagState() & Device::TagStateRead);
    }

    void versionGate()
    {
        const QList<int> gated{7, 8, 9, 20, 21};
        Device* old = m_line.addDevice(1);
        QVERIFY(old->readDevice(0));
        QCOMPARE(old->deviceInfo().value("universal_cmd_version").toInt(), 5);
        const QVariantMap before = old->deviceInfo();
        for (int command : gated) {
            QVERIFY(old->readDevice(command));
            QCOMPARE(old->messageLog().last(),
                     QStringLiteral("Device command version is 5. Command #%1 not supported").arg(command));
        }
        QCOMPARE(old->deviceInfo(), before);
        // Nothing went out between the two identifications and the fence.
        QCOMPARE(m_line.served(old, 2), QList<int>({0, 0, 16}));

        // The gate looks at the map only: told otherwise, the device is asked
        // and refuses (command not implemented).
        old->setDeviceInfo("universal_cmd_version", 7);
        for (int command : gated)
            QVERIFY(!old->readDevice(command));
        QCOMPARE(old->state(), 3);
        QCOMPARE(m_line.served(old, 8), QList<int>({0, 0, 16, 7, 8, 9, 20, 21, 16}));
    }

    void writes_data()
    {
        // The request data the device information makes, what the answer
        // leaves in it, whether the write counts as a change, and whether the
        // device answers with no data at all.
        addColumns<int, QVariantMap, bool, QByteArray, QVariantMap, bool>(
            {"command", "info", "empty", "request", "infoExpected", "counts"});
        const auto genericWriteRow = [](const char* name, int command, const QVariantMap& info,
                                        const QByteArray& request, bool counts = true, const char* stored = "",
                                        bool empty = false) {
            QTest::newRow(name) << command << info << empty << request << vmap(stored) << counts;
        };
        genericWriteRow("6 polling address", 6, {{"polling_address", 0}, {"current_loop_mode", 0}}, hx("0000"));
        genericWriteRow("17 message", 17, {{"message", "Calibrated on site"}},
                        hx("0c130909205414480f3a04c9505820820820820820820820"));
        genericWriteRow("17 message cut to 32", 17, {{"message", "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"}},
                        hx("0420c41461c824a2cc34e3d04524d45565d865ac31cb3d35"));
        genericWriteRow("18 tag, descriptor, date 2026", 18,
                        {{"tag", "TT-101"}, {"descriptor", "Boiler feed"}, {"date", QDate(2026, 5, 20)}},
                        hx("514b71c31820 08f24c152806145120820820 14057e"));
        genericWriteRow("19 final assembly number", 19, {{"final_assembly_number", 0x0A0B0C}}, hx("0a0b0c"));
        genericWriteRow("22 long tag in Latin-1", 22, {{"long_tag", QString::fromUtf8("Bomba de alimentación")}},
                        QByteArray("Bomba de alimentaci\xF3n") + QByteArray(11, '\0'));
        genericWriteRow("22 long tag cut to 32", 22, {{"long_tag", "Feed water pump, north side, #02 (spare)"}},
                        QByteArray("Feed water pump, north side, #02"));
        genericWriteRow("34 damping", 34, {{"damping_time", 2.5f}}, hx("40200000"));
        genericWriteRow("35 range", 35, {{"range_unit_code", 12}, {"range_max", 200.0f}, {"range_min", -50.0f}},
                        hx("0c43480000c2480000"));
        genericWriteRow("36 PV as upper range value", 36, {}, QByteArray());
        genericWriteRow("38 reset config changed flag: no count", 38, {}, hx("0000"), false);
        genericWriteRow("40 fixed current: no count", 40, {{"fixed_current", 12.0f}}, hx("41400000"), false,
                        "fixed_current=12.0f");
        genericWriteRow("40 answered without data: stored", 40, {{"fixed_current", 12.0f}}, hx("41400000"), false,
                        "fixed_current=0.0f", true);
        genericWriteRow("41 self test: no count", 41, {}, QByteArray(), false);
        genericWriteRow("44 PV unit", 44, {{"input_units", 11}}, hx("0b"));
        genericWriteRow("45 adjust 4 mA", 45, {{"adjust_4mA", 4.25f}}, hx("40880000"), true, "adjust_4mA=4.25f");
        genericWriteRow("46 adjust 20 mA", 46, {{"adjust_20mA", 20.5f}}, hx("41a40000"), true, "adjust_20mA=20.5f");
        genericWriteRow("47 transfer function", 47, {{"conversion_function", 0}}, hx("00"));
        genericWriteRow("48 with nothing read yet: no count", 48, {}, QByteArray(), false,
                        "error_code=0; device_specific_status=#000000000000");
        genericWriteRow("49 sensor number", 49, {{"sensor_number", 0x010203}}, hx("010203"));
        genericWriteRow(
            "51 assignments", 51,
            vmap("PV_dev_variable_code=1; SV_dev_variable_code=0; TV_dev_variable_code=3; QV_dev_variable_code=2"),
            hx("01000302"));
        genericWriteRow("53 variable units", 53, {{"dev_variable_code", 1}, {"dev_variable_limits_unit_code", 33}},
                        hx("0121"));
        genericWriteRow("59 preambles", 59, {{"preambles_count", 7}}, hx("07"));
        genericWriteRow("129 write protection", 129, {{"write_protection", 1}}, hx("01"));
    }

    void writes()
    {
        QFETCH(int, command);
        QFETCH(QVariantMap, info);
        QFETCH(bool, empty);
        QFETCH(QVariantMap, infoExpected);
        QFETCH(bool, counts);

        setInfo(m_device, info);
        // The simulated device adjusts only at the current it puts out.
        if (command == 45 || command == 46)
            m_line.sim.setParam(0, "fixed_current", command == 45 ? 4.0 : 20.0);
        if (empty)
            m_line.sim.addFault(0, emptyAnswer(command));
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");

        QSignalSpy errors(m_device, &Device::deviceError);
        QVERIFY(m_device->writeDevice(command));
        QCOMPARE(errors.size(), 0);
        const hartsim::RequestRecord record = m_line.sim.record(2);
        QCOMPARE(int(record.command), command);
        QTEST(record.data, "request");
        VERIFY_NO_MISMATCH(mismatches(m_device->deviceInfo(), infoExpected));
        QCOMPARE((QList<int>{m_device->getDeviceInfoByte("modify_count"), m_device->state()}),
                 (QList<int>{modifyCount + (counts ? 1 : 0), 2}));
        QVERIFY(m_device->deviceTagState() & Device::TagStateWritten);
        QCOMPARE(m_device->messageLog().last(),
                 QStringLiteral("Success (processing time: %1ms)").arg(m_device->processingTime()));
        // A new tag renames the device; the device keeps the blanks it was padded with.
        if (command == 18) {
            QCOMPARE(m_device->name(), QStringLiteral("Custom_{TT-101}"));
            QCOMPARE(m_line.sim.param(0, "tag").toString(), QStringLiteral("TT-101  "));
        }
    }

    // Writes the device answers other than asked: an echo that differs from
    // the request, or a refusal with the response code, the device's own or
    // one put on its answer ("injected"; 0: no data at all). "logged" is the
    // last line of the log, %1 the error.
    void refusedWrites_data()
    {
        addColumns<int, int, QVariantMap, bool, int, QByteArray, QString, QString>(
            {"pollingAddress", "command", "info", "injected", "code", "request", "error", "logged"});
        const QString mismatch = QStringLiteral("*** cmdData != response");
        const auto refusal = [](int code, const char* reason) {
            return QStringLiteral("Command error (error code %1): *** %2").arg(code).arg(reason);
        };
        QTest::newRow("HART 5 answers command 6 with one byte")
            << 1 << 6 << QVariantMap{{"polling_address", 1}, {"current_loop_mode", 0}} << false << 0 << hx("0100")
            << mismatch << "%1";
        QTest::newRow("damping echoed without data")
            << 0 << 34 << QVariantMap{{"damping_time", 2.0f}} << true << 0 << hx("40000000") << mismatch << "%1";
        QTest::newRow("a command without a row that answers with data")
            << 0 << 3 << QVariantMap() << false << 0 << QByteArray() << mismatch << "%1";
        // The device clears its flag only for its own counter of changes.
        QTest::newRow("38 with another counter") << 0 << 38 << QVariantMap{{"modify_count", 5}} << false << 9
                                                 << hx("0005") << refusal(9, "mismatch counter configuration change")
                                                 << "error -3 executing reset config changed flag  - %1";
        QTest::newRow("a command the device does not know")
            << 0 << 200 << QVariantMap{{"damping_time", 9.0f}} << false << 64 << QByteArray()
            << refusal(64, "command not implemented") << "error -3 writing  - %1";
        // A reset or a self test is logged as it is called.
        QTest::newRow("42 reset") << 0 << 42 << QVariantMap() << true << 6 << QByteArray()
                                  << refusal(6, "command not executed") << "error -3 executing reset device - %1";
        QTest::newRow("41 self test") << 0 << 41 << QVariantMap() << true << 32 << QByteArray()
                                      << refusal(32, "device is busy")
                                      << "error -3 executing start device self test - %1";
    }

    void refusedWrites()
    {
        QFETCH(int, pollingAddress);
        QFETCH(int, command);
        QFETCH(QVariantMap, info);
        QFETCH(bool, injected);
        QFETCH(int, code);
        QFETCH(QString, error);
        QFETCH(QString, logged);

        Device* device = pollingAddress == 0 ? m_device : m_line.addDevice(pollingAddress);
        if (device != m_device)
            QVERIFY(device->readDevice(0));
        setInfo(device, info);
        if (injected)
            m_line.sim.addFault(pollingAddress, fault(hartsim::Fault::ResponseCode, command, code));
        const int modifyCount = device->getDeviceInfoByte("modify_count");
        QSignalSpy errors(device, &Device::deviceError);

        QVERIFY(!device->writeDevice(command));
        QCOMPARE(device->errorText(), error);
        // A refusal is told with the command, and its code stands in the
        // status and in the log; a mismatch is told as it is.
        const bool refused = code != 0;
        QCOMPARE(errors,
                 QList<QList<QVariant>>{
                     {refused ? QStringLiteral("error executing cmd=%1 - %2").arg(command).arg(error) : error}});
        QCOMPARE(device->messageLog().last(),
                 logged.arg(error) +
                     (refused ? QStringLiteral("\nError (processing time: %1ms)").arg(device->processingTime()) : ""));
        QCOMPARE(device->statusBytes().left(1), QByteArray(1, char(code)));
        const QString status = QStringLiteral("Device status: [%1 ").arg(code, 2, 16, QLatin1Char('0'));
        QVERIFY(!refused || (device->messageLog().filter(status, Qt::CaseInsensitive).size() == 1 &&
                             !(device->deviceTagState() & Device::TagStateWritten)));
        QCOMPARE((QList<int>{device->errorCode(), device->state(), device->getDeviceInfoByte("modify_count")}),
                 (QList<int>{refused ? -3 : 1, refused ? 3 : 2, modifyCount}));
        const hartsim::RequestRecord record = m_line.sim.record(device == m_device ? 2 : 3);
        QCOMPARE(int(record.command), command);
        QTEST(record.data, "request");
    }

    // A command without a row that the device answers without data: the
    // read fails though the state is good, the write goes through.
    void commandWithoutARowAnsweredEmpty()
    {
        m_line.sim.addFault(0, emptyAnswer(200));
        const QVariantMap before = m_device->deviceInfo();
        QVERIFY(!m_device->readDevice(200));
        QCOMPARE(int(m_line.sim.record(2).command), 200);
        QCOMPARE((QList<int>{m_device->state(), m_device->errorCode()}), (QList<int>{2, 1}));
        QCOMPARE(m_device->deviceInfo(), before);
        m_device->setDeviceInfo("damping_time", 9.0f);
        QVERIFY(m_device->writeDevice(200));
        const hartsim::RequestRecord record = m_line.sim.record(3);
        QCOMPARE(int(record.command), 200);
        QCOMPARE(record.data, QByteArray());
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 1);
        QVERIFY(m_device->messageLog().contains(QStringLiteral("writing  (cmd=200)...\n")));
    }

    // The slot codes are given in order, "-" for a slot without one, or as a
    // map; an expected key without a value must be missing. With "empty" the
    // answer carries no data.
    void slotWalks_data()
    {
        addColumns<int, QVariantMap, QByteArray, bool, QVariantMap, bool>(
            {"command", "slotCodes", "request", "result", "expected", "empty"});
        const auto row = [](const char* name, int command, const char* codes, const char* request, bool result,
                            const char* expected, bool empty = false) {
            const bool asMap = QByteArray(codes).contains('=');
            QVariantMap slotCodes = asMap ? vmap(codes) : QVariantMap();
            const QStringList list = QString::fromLatin1(codes).split(' ', Qt::SkipEmptyParts);
            for (int i = 0; !asMap && i < list.size(); ++i) {
                if (list.at(i) != QLatin1String("-"))
                    slotCodes.insert(QStringLiteral("slot_%1_code").arg(i), list.at(i).toInt());
            }
            QTest::newRow(name) << command << slotCodes << hx(request) << result << vmap(expected) << empty;
        };
        row("33 four slots", 33, "0 1 2 3", "00010203", true,
            "slot_0_unit_code=12; slot_0_value=62.5f; slot_1_unit_code=32; slot_1_value=23.5f; slot_2_unit_code=19; "
            "slot_2_value=12.0f; slot_3_unit_code=57; slot_3_value=50.0f; slot_0_class=; slot_0_status=");
        row("33 takes four of five", 33, "3 2 1 0 2", "03020100", true,
            "slot_0_value=50.0f; slot_3_value=62.5f; slot_4_value=; slot_4_unit_code=");
        row("33 250 left out, records counted as they come", 33, "250 1", "01", true, "slot_0_value=; slot_1_value=");
        row("33 a missing key ends the list", 33, "2 - 1", "02", true,
            "slot_0_unit_code=19; slot_0_value=12.0f; slot_2_value=");
        row("33 no slots: refused", 33, "", "", false, "");
        row("9 eight of nine slots", 9, "0 1 2 3 3 2 1 0 1", "0001020303020100", true,
            "extended_status=3; slot_0_class=65; slot_0_unit_code=12; slot_0_value=62.5f; slot_0_status=0xC0; "
            "slot_3_class=0; slot_3_unit_code=57; slot_3_value=50.0f; slot_6_class=64; slot_6_value=23.5f; "
            "slot_7_unit_code=12; slot_7_status=0xC0; slot_8_value=");
        row("9 250 left out", 9, "1 250 3", "0103", true,
            "slot_0_class=64; slot_0_unit_code=32; slot_0_value=23.5f; slot_0_status=0xC0; slot_1_value=; "
            "slot_2_value=");
        row("9 no slots: no data", 9, "", "", false, "extended_status=");
        row("54 the primary variable", 54, "dev_variable_code=0", "00", true,
            "dev_variable_sensor=0x2A01u; dev_variable_limits_unit_code=12; dev_variable_usl=250.0f; "
            "dev_variable_lsl=-100.0f; dev_variable_damping_value=2.5f; dev_variable_span=1.0f; "
            "dev_variable_class=65; dev_variable_family=5");
        // The empty answer tells of variable 0, not of the one asked for.
        row("54 another variable answered: nothing stored", 54, "dev_variable_code=1", "01", true,
            "dev_variable_sensor=; dev_variable_limits_unit_code=; dev_variable_usl=; dev_variable_lsl=; "
            "dev_variable_damping_value=; dev_variable_span=; dev_variable_class=; dev_variable_family=",
            true);
    }

    void slotWalks()
    {
        QFETCH(int, command);
        QFETCH(QVariantMap, slotCodes);
        QFETCH(QVariantMap, expected);
        QFETCH(bool, empty);

        if (empty)
            m_line.sim.addFault(0, emptyAnswer(command));
        if (expected.value("extended_status").isValid())
            m_line.sim.setParam(0, "extended_status", expected.value("extended_status"));
        m_device->removeDeviceInfo("extended_status");
        setInfo(m_device, slotCodes);

        QTEST(m_device->writeDevice(command), "result");
        const hartsim::RequestRecord record = m_line.sim.record(2);
        QCOMPARE(int(record.command), command);
        QTEST(record.data, "request");
        VERIFY_NO_MISMATCH(mismatches(m_device->deviceInfo(), expected));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 0);
    }

    void twoThreadsNeverInterleave()
    {
        hartsim::SimLine& line = m_line.sim.line();
        Device* other = m_line.addDevice(2);
        QVERIFY(other->readDevice(0));
        QCOMPARE(other->hartAddress(), hx("112a000202"));
        QVERIFY(line.waitForRequests(2, 3000));
        line.clearLog();

        // The answers to command 1: unit and PV of each device. Each thread
        // notes the rounds that went wrong.
        constexpr int rounds = 25;
        const auto work = [](Device* device, const QByteArray& expected, QStringList* wrong) {
            for (int k = 0; k < rounds; ++k) {
                QByteArray response;
                if (device->read(QStringLiteral("PV"), 1, response) != 1 || response != expected)
                    *wrong << QStringLiteral("%1: %2").arg(k).arg(QString::fromLatin1(response.toHex(' ')));
            }
        };
        QStringList wrongFirst, wrongOther;
        QScopedPointer<QThread> a(QThread::create(work, m_device, hx("0c427a0000"), &wrongFirst));
        QScopedPointer<QThread> b(QThread::create(work, other, hx("0740500000"), &wrongOther));
        a->start();
        b->start();
        QVERIFY(a->wait(60000));
        QVERIFY(b->wait(60000));
        QVERIFY2(wrongFirst.isEmpty() && wrongOther.isEmpty(), qPrintable((wrongFirst + wrongOther).join('\n')));

        // Each frame went out whole: the line saw nothing it could not read.
        QVERIFY(line.waitForRequests(2 * rounds, 3000));
        QCOMPARE(line.requests().size(), 2 * rounds);
        QCOMPARE(line.droppedTotal(), 0);
        QCOMPARE(line.noiseBytes(), qint64(0));
        QCOMPARE(m_line.port->semaphore().available(), 1);
    }
};

QTEST_GUILESS_MAIN(TestDeviceCommands)
#include "tst_devicecommands.moc"
