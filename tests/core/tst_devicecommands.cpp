#include "debugqt.h"
#include "deviceline.h"
#include "modelline.h"
#include "scratchdir.h"

#include <QSignalSpy>
#include <QThread>
#include <QtTest>

#include <atomic>

using hartsim::Fault;

namespace {

// The keys of the map against what is expected, value and type: floats stay
// float, bytes int, three-byte numbers unsigned int. Empty when all match.
QString mismatches(const QVariantMap& info, const QVariantMap& expected)
{
    QStringList wrong;
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        const QVariant actual = info.value(it.key());
        if (actual.typeId() != it.value().typeId() || actual != it.value())
            wrong << QStringLiteral("%1: %2 (%3), expected %4 (%5)")
                         .arg(it.key(), actual.toString(), actual.typeName(), it.value().toString(),
                              it.value().typeName());
    }
    return wrong.join(QStringLiteral("; "));
}

} // namespace

namespace {

// A row of writes(): the request data the device information makes, what the
// answer leaves in it, whether the write counts as a change, and whether the
// device answers with no data at all.
void writeRow(const char* name, int command, const QVariantMap& info, const QByteArray& request, bool counts = true,
              const QVariantMap& stored = QVariantMap(), bool empty = false)
{
    QTest::newRow(name) << command << info << empty << request << stored << counts;
}

} // namespace

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
        // Values that stand still and come out exact in binary.
        const QVariantMap generic{{"polling_address", 0},
                                  {"tag", "PT-1"},
                                  {"descriptor", "PRESSURE LOOP"},
                                  {"message", "HELLO WORLD"},
                                  {"long_tag", "Pump one"},
                                  {"date", "2026-03-15"},
                                  {"final_assembly_number", 0x123456},
                                  {"PV_alarm_selection_code", 1},
                                  {"conversion_function", 1},
                                  {"damping_time", 2.5},
                                  {"distributor_label", 7},
                                  {"var_0_value", 62.5},
                                  {"var_0_amplitude", 0.0},
                                  {"var_1_amplitude", 0.0},
                                  {"var_2_amplitude", 0.0},
                                  {"var_3_amplitude", 0.0}};
        const QVariantMap hart5 = {{"polling_address", 1}, {"var_0_value", 62.5}, {"var_0_amplitude", 0.0}};
        QVERIFY(m_line.start({{"generic", generic}, {"hart5", hart5}}));
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

    void reads_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QVariantMap>("simSetup");
        QTest::addColumn<QVariantMap>("expected");

        auto row = [](const char* name, int command, const QVariantMap& expected, const QVariantMap& simSetup = {}) {
            QTest::newRow(name) << command << simSetup << expected;
        };
        const QVariantMap variables{
            {"output_current", 14.0f}, {"PV_unit_code", 12}, {"PV", 62.5f},        {"SV_unit_code", 32}, {"SV", 23.5f},
            {"TV_unit_code", 19},      {"TV", 12.0f},        {"QV_unit_code", 57}, {"QV", 50.0f}};
        const QVariantMap classes{
            {"PV_class_code", 65}, {"SV_class_code", 64}, {"TV_class_code", 66}, {"QV_class_code", 0}};
        const QVariantMap sensor{{"sensor_number", 0xABCDEFu},
                                 {"sensor_unit_code", 12},
                                 {"sensor_range_max", 250.0f},
                                 {"sensor_range_min", -100.0f},
                                 {"sensor_minimum_range", 1.0f}};
        const QVariantMap output{{"PV_alarm_selection_code", 1}, {"conversion_function", 1}, {"range_unit_code", 12},
                                 {"range_max", 100.0f},          {"range_min", 0.0f},        {"damping_time", 2.5f},
                                 {"write_protection", 1},        {"distributor_label", 7}};
        const QVariantMap status{{"error_code", 3},      {"ADC_flags", 0},
                                 {"EEPROM_flags", 0},    {"device_specific_status", hx("030000000000")},
                                 {"extended_status", 2}, {"standart_status_0", 0}};
        const QVariantMap assignments{{"PV_dev_variable_code", 1},
                                      {"SV_dev_variable_code", 0},
                                      {"TV_dev_variable_code", 3},
                                      {"QV_dev_variable_code", 2}};
        row("1 PV", 1, {{"PV_unit_code", 12}, {"PV", 62.5f}});
        row("2 output current", 2, {{"output_current", 14.0f}, {"output_current_%", 62.5f}});
        row("3 device variables", 3, variables);
        row("7 polling address", 7, {{"polling_address", 0}, {"current_loop_mode", 0}}, {{"current_loop_mode", 0}});
        row("8 classifications", 8, classes);
        row("12 message", 12, {{"message", "HELLO WORLD"}});
        row("13 tag, descriptor, date", 13,
            {{"tag", "PT-1"}, {"descriptor", "PRESSURE LOOP"}, {"date", QDate(2026, 3, 15)}});
        row("14 sensor", 14, sensor, {{"sensor_number", 0xABCDEF}});
        row("15 output info", 15, output, {{"write_protection", 1}});
        row("16 final assembly number", 16, {{"final_assembly_number", 0x123456u}});
        row("20 long tag", 20, {{"long_tag", "Pump one"}});
        row("48 device status", 48, status, {{"error_code", 3}, {"extended_status", 2}});
        row("50 assignments", 50, assignments, assignments);
    }

    void reads()
    {
        QFETCH(int, command);
        QFETCH(QVariantMap, simSetup);
        QFETCH(QVariantMap, expected);

        for (auto it = simSetup.constBegin(); it != simSetup.constEnd(); ++it)
            m_line.sim.setParam(0, it.key(), it.value());
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");
        QVERIFY(m_device->readDevice(command));
        const QString wrong = mismatches(m_device->deviceInfo(), expected);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        const hartsim::RequestRecord record = m_line.sim.record(2);
        QCOMPARE(int(record.command), command);
        QCOMPARE(record.data, QByteArray());
        QCOMPARE(record.address, hx("912a002a01"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
        QCOMPARE(m_device->state(), 2);
        QVERIFY(m_device->deviceTagState() & Device::TagStateRead);
    }

    void shortAnswersWriteZeros_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QVariantMap>("expected");

        QTest::newRow("3 keeps SV on") << 3
                                       << QVariantMap{{"output_current", 0.0f}, {"PV_unit_code", 0}, {"PV", 0.0f},
                                                      {"SV_unit_code", 7},      {"SV", 99.0f},       {"QV", 99.0f}};
        QTest::newRow("13: an invalid date is stored")
            << 13 << QVariantMap{{"tag", ""}, {"descriptor", ""}, {"date", QDate()}};
        QTest::newRow("14") << 14 << QVariantMap{{"sensor_number", 0u}, {"sensor_minimum_range", 0.0f}};
        QTest::newRow("20") << 20 << QVariantMap{{"long_tag", ""}};
        QTest::newRow("48") << 48
                            << QVariantMap{{"error_code", 0},
                                           {"device_specific_status", QByteArray()},
                                           {"standart_status_0", 0}};
    }

    void shortAnswersWriteZeros()
    {
        QFETCH(int, command);
        QFETCH(QVariantMap, expected);

        // What was there before: replaced by zeros where the answer falls short.
        for (const char* key : {"PV", "SV", "QV", "sensor_minimum_range", "output_current"})
            m_device->setDeviceInfo(QLatin1String(key), 99.0f);
        m_device->setDeviceInfo("SV_unit_code", 7);
        m_device->setDeviceInfo("long_tag", QStringLiteral("old"));
        m_device->setDeviceInfo("date", QDate(2020, 1, 1));

        m_line.sim.addFault(0, emptyAnswer(command));
        QVERIFY(m_device->readDevice(command));
        QCOMPARE(int(m_line.sim.record(2).command), command);
        const QString wrong = mismatches(m_device->deviceInfo(), expected);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

    void command3WithPVOnly()
    {
        // A device with only PV assigned answers command 3 with 9 data bytes.
        m_line.sim.setParam(0, "SV_dev_variable_code", 250);
        m_device->setDeviceInfo("SV_unit_code", 7);
        m_device->setDeviceInfo("SV", 1.25f);
        QVERIFY(m_device->readDevice(3));
        QCOMPARE(m_line.sim.record(2).answer.size(), 5 + 1 + 5 + 1 + 1 + 2 + 9 + 1);
        const QString wrong = mismatches(
            m_device->deviceInfo(),
            {{"output_current", 14.0f}, {"PV_unit_code", 12}, {"PV", 62.5f}, {"SV_unit_code", 7}, {"SV", 1.25f}});
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        QVERIFY(!m_device->hasDeviceInfoParam("TV_unit_code"));
        QVERIFY(!m_device->hasDeviceInfoParam("QV"));
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

    void readFailureChangesNothing()
    {
        QVERIFY(m_device->readDevice(15));
        const QVariantMap before = m_device->deviceInfo();
        Fault refusal = emptyAnswer(15);
        refusal.code = 6;
        refusal.keepData = true;
        m_line.sim.addFault(0, refusal);
        m_line.sim.setParam(0, "range_max", 80.0);
        QVERIFY(!m_device->readDevice(15));
        QCOMPARE(m_device->deviceInfo(), before);
        QCOMPARE(m_device->errorCode(), -3);
        QCOMPARE(m_device->state(), 3);
        QCOMPARE(m_device->statusBytes(), hx("0600"));
    }

    void pollingAddressChangeStands()
    {
        m_device->setDeviceInfo("polling_address", 5);
        m_device->setDeviceInfo("current_loop_mode", 0);
        QVERIFY(m_device->writeDevice(6));
        QCOMPARE(m_line.sim.param(5, "polling_address").toInt(), 5);
        QCOMPARE(m_device->address(), 0); // a write does not move the device in the tree

        m_device->setDeviceInfo("polling_address", 0);
        QVERIFY(m_device->readDevice(7));
        QCOMPARE(m_device->address(), 5);
        QCOMPARE(m_device->deviceInfo().value("polling_address"), QVariant(5));
        QCOMPARE(m_device->save().value("polling_address").toInt(), 5);
        // Frames go on to the long address, and command 0 now finds it at 5.
        QVERIFY(m_device->readDevice(1));
        QVERIFY(m_device->readDevice(0));
        QCOMPARE(m_line.sim.record(4).address, hx("912a002a01"));
        QCOMPARE(m_line.sim.record(5).address, hx("85"));
        QCOMPARE(m_device->state(), 2);
    }

    void writes_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QVariantMap>("info");
        QTest::addColumn<bool>("empty");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QVariantMap>("infoExpected");
        QTest::addColumn<bool>("counts");

        writeRow("6 polling address", 6, {{"polling_address", 0}, {"current_loop_mode", 0}}, hx("0000"));
        writeRow("17 message", 17, {{"message", "Calibrated on site"}},
                 hx("0c130909205414480f3a04c9505820820820820820820820"));
        writeRow("17 message cut to 32", 17, {{"message", "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"}},
                 hx("0420c41461c824a2cc34e3d04524d45565d865ac31cb3d35"));
        writeRow("18 tag, descriptor, date 2026", 18,
                 {{"tag", "TT-101"}, {"descriptor", "Boiler feed"}, {"date", QDate(2026, 5, 20)}},
                 hx("514b71c31820 08f24c152806145120820820 14057e"));
        writeRow("19 final assembly number", 19, {{"final_assembly_number", 0x0A0B0C}}, hx("0a0b0c"));
        writeRow("22 long tag in Latin-1", 22, {{"long_tag", QString::fromUtf8("Bomba de alimentación")}},
                 QByteArray("Bomba de alimentaci\xF3n") + QByteArray(11, '\0'));
        writeRow("22 long tag cut to 32", 22, {{"long_tag", "Feed water pump, north side, #02 (spare)"}},
                 QByteArray("Feed water pump, north side, #02"));
        writeRow("34 damping", 34, {{"damping_time", 2.5f}}, hx("40200000"));
        writeRow("35 range", 35, {{"range_unit_code", 12}, {"range_max", 200.0f}, {"range_min", -50.0f}},
                 hx("0c43480000c2480000"));
        writeRow("36 PV as upper range value", 36, {}, QByteArray());
        writeRow("38 reset config changed flag: no count", 38, {}, hx("0000"), false);
        writeRow("40 fixed current: no count", 40, {{"fixed_current", 12.0f}}, hx("41400000"), false,
                 {{"fixed_current", 12.0f}});
        writeRow("40 answered without data: stored", 40, {{"fixed_current", 12.0f}}, hx("41400000"), false,
                 {{"fixed_current", 0.0f}}, true);
        writeRow("41 self test: no count", 41, {}, QByteArray(), false);
        writeRow("44 PV unit", 44, {{"input_units", 11}}, hx("0b"));
        writeRow("45 adjust 4 mA", 45, {{"adjust_4mA", 4.25f}}, hx("40880000"), true, {{"adjust_4mA", 4.25f}});
        writeRow("45 answered without data: stored", 45, {{"adjust_4mA", 4.25f}}, hx("40880000"), true,
                 {{"adjust_4mA", 0.0f}}, true);
        writeRow("46 adjust 20 mA", 46, {{"adjust_20mA", 20.5f}}, hx("41a40000"), true, {{"adjust_20mA", 20.5f}});
        writeRow("46 answered without data: stored", 46, {{"adjust_20mA", 20.5f}}, hx("41a40000"), true,
                 {{"adjust_20mA", 0.0f}}, true);
        writeRow("47 transfer function", 47, {{"conversion_function", 0}}, hx("00"));
        writeRow("48 with nothing read yet: no count", 48, {}, QByteArray(), false,
                 {{"error_code", 0}, {"device_specific_status", hx("000000000000")}});
        writeRow("49 sensor number", 49, {{"sensor_number", 0x010203}}, hx("010203"));
        const QVariantMap assignments{{"PV_dev_variable_code", 1},
                                      {"SV_dev_variable_code", 0},
                                      {"TV_dev_variable_code", 3},
                                      {"QV_dev_variable_code", 2}};
        writeRow("51 assignments", 51, assignments, hx("01000302"));
        writeRow("53 variable units", 53, {{"dev_variable_code", 1}, {"dev_variable_limits_unit_code", 33}},
                 hx("0121"));
        writeRow("59 preambles", 59, {{"preambles_count", 7}}, hx("07"));
        writeRow("129 write protection", 129, {{"write_protection", 1}}, hx("01"));
    }

    void writes()
    {
        QFETCH(int, command);
        QFETCH(QVariantMap, info);
        QFETCH(bool, empty);
        QFETCH(QVariantMap, infoExpected);
        QFETCH(bool, counts);

        for (auto it = info.constBegin(); it != info.constEnd(); ++it)
            m_device->setDeviceInfo(it.key(), it.value());
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
        const QString wrong = mismatches(m_device->deviceInfo(), infoExpected);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount + (counts ? 1 : 0));
        QCOMPARE(m_device->state(), 2);
        QVERIFY(m_device->deviceTagState() & Device::TagStateWritten);
        QCOMPARE(m_device->messageLog().last(),
                 QStringLiteral("Success (processing time: %1ms)").arg(m_device->processingTime()));
        // A new tag renames the device; the device keeps the blanks it was padded with.
        if (command == 18) {
            QCOMPARE(m_device->name(), QStringLiteral("Custom_{TT-101}"));
            QCOMPARE(m_line.sim.param(0, "tag").toString(), QStringLiteral("TT-101  "));
        }
    }

    void changedEcho_data()
    {
        QTest::addColumn<int>("pollingAddress");
        QTest::addColumn<int>("command");
        QTest::addColumn<QVariantMap>("info");
        QTest::addColumn<bool>("emptyAnswer");
        QTest::addColumn<QByteArray>("request");

        QTest::newRow("HART 5 answers command 6 with one byte")
            << 1 << 6 << QVariantMap{{"polling_address", 1}, {"current_loop_mode", 0}} << false << hx("0100");
        QTest::newRow("damping echoed without data")
            << 0 << 34 << QVariantMap{{"damping_time", 2.0f}} << true << hx("40000000");
        QTest::newRow("range echoed without data")
            << 0 << 35 << QVariantMap{{"range_unit_code", 12}, {"range_max", 90.0f}, {"range_min", 0.0f}} << true
            << hx("0c42b4000000000000");
        QTest::newRow("a command without a row that answers with data")
            << 0 << 3 << QVariantMap() << false << QByteArray();
    }

    void changedEcho()
    {
        QFETCH(int, pollingAddress);
        QFETCH(int, command);
        QFETCH(QVariantMap, info);
        QFETCH(bool, emptyAnswer);

        Device* device = pollingAddress == 0 ? m_device : m_line.addDevice(pollingAddress);
        if (device != m_device)
            QVERIFY(device->readDevice(0));
        for (auto it = info.constBegin(); it != info.constEnd(); ++it)
            device->setDeviceInfo(it.key(), it.value());
        if (emptyAnswer)
            m_line.sim.addFault(pollingAddress, ::emptyAnswer(command));
        const int modifyCount = device->getDeviceInfoByte("modify_count");
        QSignalSpy errors(device, &Device::deviceError);

        QVERIFY(!device->writeDevice(command));
        QCOMPARE(device->errorText(), QStringLiteral("*** cmdData != response"));
        QCOMPARE(errors.size(), 1);
        QCOMPARE(errors.first().at(0).toString(), QStringLiteral("*** cmdData != response"));
        QCOMPARE(device->messageLog().last(), QStringLiteral("*** cmdData != response"));
        QCOMPARE(device->getDeviceInfoByte("modify_count"), modifyCount);
        const hartsim::RequestRecord record = m_line.sim.record(device == m_device ? 2 : 3);
        QCOMPARE(int(record.command), command);
        QTEST(record.data, "request");
    }

    void write38ClearsConfigurationChanged()
    {
        m_device->setDeviceInfo("damping_time", 3.0f);
        QVERIFY(m_device->writeDevice(34));
        QCOMPARE(m_device->statusBytes(), hx("0040"));
        // Both counters went up: the device's and ours.
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 1);
        QCOMPARE(m_line.sim.param(0, "modify_count").toInt(), 1);

        QVERIFY(m_device->writeDevice(38));
        QCOMPARE(m_line.sim.record(3).data, hx("0001"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 1);
        QVERIFY(m_device->readDevice(1));
        QCOMPARE(m_device->statusBytes(), hx("0000"));

        // A wrong counter is refused.
        m_device->setDeviceInfo("modify_count", 5);
        QVERIFY(!m_device->writeDevice(38));
        QCOMPARE(m_device->errorText(),
                 QStringLiteral("Command error (error code 9): *** mismatch counter configuration change"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 5);
    }

    void commandsWithoutARow_data()
    {
        QTest::addColumn<bool>("spoiled");
        QTest::newRow("the device does not know it") << false;
        QTest::newRow("answered without data") << true;
    }

    void commandsWithoutARow()
    {
        QFETCH(bool, spoiled);

        if (spoiled) {
            // A read answered well: the state says so, only the result does not.
            m_line.sim.addFault(0, emptyAnswer(200));
            const QVariantMap before = m_device->deviceInfo();
            QVERIFY(!m_device->readDevice(200));
            QCOMPARE(int(m_line.sim.record(2).command), 200);
            QCOMPARE(m_device->state(), 2);
            QCOMPARE(m_device->errorCode(), 1);
            QCOMPARE(m_device->deviceInfo(), before);
        }
        m_device->setDeviceInfo("damping_time", 9.0f);
        QCOMPARE(m_device->writeDevice(200), spoiled);
        const hartsim::RequestRecord record = m_line.sim.record(spoiled ? 3 : 2);
        QCOMPARE(int(record.command), 200);
        QCOMPARE(record.data, QByteArray());
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), spoiled ? 1 : 0);
        if (!spoiled)
            QCOMPARE(m_device->errorText(),
                     QStringLiteral("Command error (error code 64): *** command not implemented"));
        QVERIFY(m_device->messageLog().contains(QStringLiteral("writing  (cmd=200)...\n")));
    }

    void slotWalks_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QVariantMap>("slotCodes");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<bool>("result");
        QTest::addColumn<QVariantMap>("expected");
        QTest::addColumn<QStringList>("absent");

        const QVariantMap four{{"slot_0_unit_code", 12}, {"slot_0_value", 62.5f},  {"slot_1_unit_code", 32},
                               {"slot_1_value", 23.5f},  {"slot_2_unit_code", 19}, {"slot_2_value", 12.0f},
                               {"slot_3_unit_code", 57}, {"slot_3_value", 50.0f}};
        QTest::newRow("33 four slots")
            << 33 << QVariantMap{{"slot_0_code", 0}, {"slot_1_code", 1}, {"slot_2_code", 2}, {"slot_3_code", 3}}
            << hx("00010203") << true << four << QStringList{"slot_0_class", "slot_0_status"};
        const QVariantMap five{
            {"slot_0_code", 3}, {"slot_1_code", 2}, {"slot_2_code", 1}, {"slot_3_code", 0}, {"slot_4_code", 2}};
        QTest::newRow("33 takes four of five")
            << 33 << five << hx("03020100") << true << QVariantMap{{"slot_0_value", 50.0f}, {"slot_3_value", 62.5f}}
            << QStringList{"slot_4_value", "slot_4_unit_code"};
        QTest::newRow("33 250 left out, records counted as they come")
            << 33 << QVariantMap{{"slot_0_code", 250}, {"slot_1_code", 1}} << hx("01") << true << QVariantMap()
            << QStringList{"slot_0_value", "slot_1_value"};
        QTest::newRow("33 a missing key ends the list")
            << 33 << QVariantMap{{"slot_0_code", 2}, {"slot_2_code", 1}} << hx("02") << true
            << QVariantMap{{"slot_0_unit_code", 19}, {"slot_0_value", 12.0f}} << QStringList{"slot_2_value"};
        const QVariantMap nine{{"slot_0_code", 0}, {"slot_1_code", 1}, {"slot_2_code", 2},
                               {"slot_3_code", 3}, {"slot_4_code", 3}, {"slot_5_code", 2},
                               {"slot_6_code", 1}, {"slot_7_code", 0}, {"slot_8_code", 1}};
        const QVariantMap eight{{"extended_status", 3},   {"slot_0_class", 65},     {"slot_0_unit_code", 12},
                                {"slot_0_value", 62.5f},  {"slot_0_status", 0xC0},  {"slot_3_class", 0},
                                {"slot_3_unit_code", 57}, {"slot_3_value", 50.0f},  {"slot_6_class", 64},
                                {"slot_6_value", 23.5f},  {"slot_7_unit_code", 12}, {"slot_7_status", 0xC0}};
        QTest::newRow("9 eight of nine slots")
            << 9 << nine << hx("0001020303020100") << true << eight << QStringList{"slot_8_value"};
        const QVariantMap first{
            {"slot_0_class", 64}, {"slot_0_unit_code", 32}, {"slot_0_value", 23.5f}, {"slot_0_status", 0xC0}};
        QTest::newRow("9 250 left out") << 9
                                        << QVariantMap{{"slot_0_code", 1}, {"slot_1_code", 250}, {"slot_2_code", 3}}
                                        << hx("0103") << true << first << QStringList{"slot_1_value", "slot_2_value"};
        QTest::newRow("9 no slots: no data")
            << 9 << QVariantMap() << QByteArray() << false << QVariantMap() << QStringList{"extended_status"};
    }

    void slotWalks()
    {
        QFETCH(int, command);
        QFETCH(QVariantMap, slotCodes);
        QFETCH(QVariantMap, expected);
        QFETCH(QStringList, absent);

        if (expected.contains("extended_status"))
            m_line.sim.setParam(0, "extended_status", expected.value("extended_status"));
        m_device->removeDeviceInfo("extended_status");
        for (auto it = slotCodes.constBegin(); it != slotCodes.constEnd(); ++it)
            m_device->setDeviceInfo(it.key(), it.value());

        QTEST(m_device->writeDevice(command), "result");
        const hartsim::RequestRecord record = m_line.sim.record(2);
        QCOMPARE(int(record.command), command);
        QTEST(record.data, "request");
        const QString wrong = mismatches(m_device->deviceInfo(), expected);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        for (const QString& key : absent)
            QVERIFY2(!m_device->hasDeviceInfoParam(key), qPrintable(key));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 0);
    }

    void command54_data()
    {
        QTest::addColumn<bool>("otherVariable");
        QTest::newRow("the primary variable") << false;
        QTest::newRow("another variable answered: nothing stored") << true;
    }

    void command54()
    {
        QFETCH(bool, otherVariable);

        // The empty answer tells of variable 0, not of the one asked for.
        if (otherVariable)
            m_line.sim.addFault(0, emptyAnswer(54));
        m_device->setDeviceInfo("dev_variable_code", otherVariable ? 1 : 0);
        QVERIFY(m_device->writeDevice(54));
        const hartsim::RequestRecord record = m_line.sim.record(2);
        QCOMPARE(int(record.command), 54);
        QCOMPARE(record.data, hx(otherVariable ? "01" : "00"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 0);
        QStringList stored = m_device->deviceInfo().keys().filter(QRegularExpression(QStringLiteral("^dev_variable_")));
        stored.removeOne(QStringLiteral("dev_variable_code"));
        if (otherVariable) {
            QCOMPARE(stored, QStringList());
            return;
        }
        const QVariantMap info{{"dev_variable_sensor", 0x2A01u},     {"dev_variable_limits_unit_code", 12},
                               {"dev_variable_usl", 250.0f},         {"dev_variable_lsl", -100.0f},
                               {"dev_variable_damping_value", 2.5f}, {"dev_variable_span", 1.0f},
                               {"dev_variable_class", 65},           {"dev_variable_family", 5}};
        const QString wrong = mismatches(m_device->deviceInfo(), info);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

    void twoThreadsNeverInterleave()
    {
        hartsim::SimLine& line = m_line.sim.line();
        QString error;
        auto second = hartsim::SimDevice::create(QStringLiteral("generic"),
                                                 {{"polling_address", 2},
                                                  {"device_id", 0x000202},
                                                  {"var_0_unit", 7},
                                                  {"var_0_value", 3.25},
                                                  {"var_0_amplitude", 0.0}},
                                                 &error);
        QVERIFY2(second && line.addDevice(std::move(second), &error), qPrintable(error));
        Device* other = m_line.addDevice(2);
        QVERIFY(other->readDevice(0));
        QCOMPARE(other->hartAddress(), hx("112a000202"));
        QVERIFY(line.waitForRequests(2, 3000));
        line.clearLog();

        // The answers to command 1: unit and PV of each device.
        constexpr int rounds = 25;
        struct Worker
        {
            Worker(Device* d, const QByteArray& e) : device(d), expected(e) {}
            Device* device;
            QByteArray expected;
            std::atomic<int> good{0};
            QByteArray lastBad;
        };
        Worker first(m_device, hx("0c427a0000"));
        Worker next(other, hx("0740500000"));
        auto work = [](Worker* w) {
            for (int k = 0; k < rounds; ++k) {
                QByteArray response;
                if (w->device->read(QStringLiteral("PV"), 1, response) == 1 && response == w->expected)
                    ++w->good;
                else
                    w->lastBad = response;
            }
        };
        QScopedPointer<QThread> a(QThread::create(work, &first));
        QScopedPointer<QThread> b(QThread::create(work, &next));
        a->start();
        b->start();
        QVERIFY(a->wait(60000));
        QVERIFY(b->wait(60000));

        QVERIFY2(first.good == rounds, first.lastBad.toHex(' ').constData());
        QVERIFY2(next.good == rounds, next.lastBad.toHex(' ').constData());
        QVERIFY(line.waitForRequests(2 * rounds, 3000));
        QCOMPARE(line.droppedTotal(), 0);
        QCOMPARE(line.noiseBytes(), qint64(0));
        const QList<hartsim::RequestRecord> log = line.requests();
        QCOMPARE(log.size(), 2 * rounds);
        int toFirst = 0;
        for (const hartsim::RequestRecord& record : log) {
            QCOMPARE(int(record.command), 1);
            QVERIFY(record.answered);
            const bool first = record.address == hx("912a002a01");
            QCOMPARE(record.address, hx(first ? "912a002a01" : "912a000202"));
            QCOMPARE(record.device, first ? 0 : 2);
            toFirst += first ? 1 : 0;
        }
        QCOMPARE(toFirst, rounds);
        QCOMPARE(m_line.port->semaphore().available(), 1);
    }
};

QTEST_GUILESS_MAIN(TestDeviceCommands)
#include "tst_devicecommands.moc"
