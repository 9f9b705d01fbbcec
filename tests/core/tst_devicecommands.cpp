#include "debugqt.h"
#include "device.h"
#include "port.h"
#include "server.h"
#include "simulatedline.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <atomic>

using hartsim::Fault;

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

// An answer with response code 0 and no data at all, for a command.
Fault emptyAnswer(int command)
{
    Fault fault;
    fault.kind = Fault::ResponseCode;
    fault.command = command;
    fault.code = 0;
    fault.keepData = false;
    return fault;
}

// The same value and the same type: floats stay float, bytes int, three-byte
// numbers unsigned int.
QString mismatch(const QString& key, const QVariant& actual, const QVariant& expected)
{
    if (actual.typeId() != expected.typeId())
        return QStringLiteral("%1: type %2, expected %3").arg(key, actual.typeName(), expected.typeName());
    if (actual != expected)
        return QStringLiteral("%1: %2, expected %3").arg(key, actual.toString(), expected.toString());
    return QString();
}

// A simulator parameter against an expected value: texts as texts, numbers
// as numbers (the simulator keeps floats, ints and doubles as they came).
QString simMismatch(const QString& key, const QVariant& actual, const QVariant& expected)
{
    if (!actual.isValid())
        return QStringLiteral("%1: missing in the simulator").arg(key);
    const bool same = expected.typeId() == QMetaType::QString ? actual.toString() == expected.toString()
                                                              : actual.toDouble() == expected.toDouble();
    return same ? QString() : QStringLiteral("%1: %2, expected %3").arg(key, actual.toString(), expected.toString());
}

} // namespace

class TestDeviceCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void reads_data();
    void reads();
    void emptyAnswersWriteZeros_data();
    void emptyAnswersWriteZeros();
    void command3WithPVOnly();
    void versionGate_data();
    void versionGate();
    void readOfACommandNotInTheTable();
    void readFailureChangesNothing();
    void pollingAddressChangeStands();

    void writes_data();
    void writes();
    void changedEcho_data();
    void changedEcho();
    void refusedWrite();
    void writeProtection();
    void write18RenamesTheDevice();
    void write38ClearsConfigurationChanged();
    void commandsWithoutARow_data();
    void commandsWithoutARow();
    void slotWalks_data();
    void slotWalks();
    void command54_data();
    void command54();

    void twoThreadsNeverInterleave();

private:
    Device* addDevice(int pollingAddress);
    // The commands the line served, after one more request, command 16, sent
    // as a fence once the expected count of requests is in: the line logs in
    // order, so a request sent before the fence is in the list when the fence
    // is, and an unexpected one shows.
    QList<int> served(Device* device, int expected);

    QScopedPointer<QTemporaryDir> m_dir;
    QString m_startDir;
    SimulatedLine m_sim;
    QScopedPointer<Server> m_server;
    Port* m_port = nullptr;
    Device* m_device = nullptr; // the generic HART 7 device at 0, identified
};

void TestDeviceCommands::initTestCase()
{
    DebugQt::instance(0x8ED0001, nullptr);
    m_startDir = QDir::currentPath();
}

void TestDeviceCommands::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    QVERIFY(QDir::setCurrent(m_dir->path()));

    // Values that stand still and come out exact in binary.
    const QVariantMap generic = {{"polling_address", 0},
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
    QString error;
    QVERIFY2(m_sim.start({{"generic", generic}, {"hart5", hart5}}, &error), qPrintable(error));
    m_server.reset(new Server);
    m_port = m_server->addPort(QStringLiteral("P1"));
    QVERIFY(m_port->setSerialName(m_sim.path()));
    m_device = addDevice(0);
    QVERIFY(m_device->readDevice(0));
    QVERIFY(m_sim.line().waitForRequests(1, 3000));
}

void TestDeviceCommands::cleanup()
{
    // The port goes before the line it talks on.
    m_server.reset();
    m_port = nullptr;
    m_device = nullptr;
    m_sim.stop();
    QDir::setCurrent(m_startDir);
}

Device* TestDeviceCommands::addDevice(int pollingAddress)
{
    Device* device = m_port->addDevice(QStringLiteral("D%1").arg(pollingAddress), QStringLiteral("Custom"), -1);
    device->setAddress(pollingAddress);
    return device;
}

QList<int> TestDeviceCommands::served(Device* device, int expected)
{
    QByteArray response;
    device->read(QStringLiteral("fence"), 16, response);
    m_sim.line().waitForRequests(expected + 1, 3000);
    QList<int> commands;
    for (const hartsim::RequestRecord& record : m_sim.line().requests())
        commands << record.command;
    return commands;
}

// ---------------------------------------------------------------------------
// Reads

void TestDeviceCommands::reads_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QVariantMap>("simSetup");
    QTest::addColumn<QVariantMap>("expected");

    QTest::newRow("1 PV") << 1 << QVariantMap() << QVariantMap{{"PV_unit_code", 12}, {"PV", 62.5f}};
    QTest::newRow("2 output current") << 2 << QVariantMap()
                                      << QVariantMap{{"output_current", 14.0f}, {"output_current_%", 62.5f}};
    QTest::newRow("3 device variables") << 3 << QVariantMap() << QVariantMap{{"output_current", 14.0f},
                                                                             {"PV_unit_code", 12},
                                                                             {"PV", 62.5f},
                                                                             {"SV_unit_code", 32},
                                                                             {"SV", 23.5f},
                                                                             {"TV_unit_code", 19},
                                                                             {"TV", 12.0f},
                                                                             {"QV_unit_code", 57},
                                                                             {"QV", 50.0f}};
    QTest::newRow("7 polling address") << 7 << QVariantMap{{"current_loop_mode", 0}}
                                       << QVariantMap{{"polling_address", 0}, {"current_loop_mode", 0}};
    QTest::newRow("8 classifications") << 8 << QVariantMap()
                                       << QVariantMap{{"PV_class_code", 65},
                                                      {"SV_class_code", 64},
                                                      {"TV_class_code", 66},
                                                      {"QV_class_code", 0}};
    QTest::newRow("12 message") << 12 << QVariantMap() << QVariantMap{{"message", "HELLO WORLD"}};
    QTest::newRow("13 tag, descriptor, date")
        << 13 << QVariantMap()
        << QVariantMap{{"tag", "PT-1"}, {"descriptor", "PRESSURE LOOP"}, {"date", QDate(2026, 3, 15)}};
    QTest::newRow("13 a date of the last century")
        << 13 << QVariantMap{{"date", "1999-12-31"}} << QVariantMap{{"date", QDate(1999, 12, 31)}};
    QTest::newRow("14 sensor") << 14 << QVariantMap{{"sensor_number", 0xABCDEF}}
                               << QVariantMap{{"sensor_number", 0xABCDEFu},
                                              {"sensor_unit_code", 12},
                                              {"sensor_range_max", 250.0f},
                                              {"sensor_range_min", -100.0f},
                                              {"sensor_minimum_range", 1.0f}};
    QTest::newRow("15 output info")
        << 15 << QVariantMap{{"write_protection", 1}}
        << QVariantMap{{"PV_alarm_selection_code", 1}, {"conversion_function", 1}, {"range_unit_code", 12},
                       {"range_max", 100.0f},          {"range_min", 0.0f},        {"damping_time", 2.5f},
                       {"write_protection", 1},        {"distributor_label", 7}};
    QTest::newRow("16 final assembly number")
        << 16 << QVariantMap() << QVariantMap{{"final_assembly_number", 0x123456u}};
    QTest::newRow("20 long tag") << 20 << QVariantMap() << QVariantMap{{"long_tag", "Pump one"}};
    QTest::newRow("20 long tag of 32 characters") << 20 << QVariantMap{{"long_tag", "Feed water pump, north side, #02"}}
                                                  << QVariantMap{{"long_tag", "Feed water pump, north side, #02"}};
    QTest::newRow("48 device status") << 48 << QVariantMap{{"error_code", 3}, {"extended_status", 2}}
                                      << QVariantMap{
                                             {"error_code", 3},      {"ADC_flags", 0},
                                             {"EEPROM_flags", 0},    {"device_specific_status", hx("030000000000")},
                                             {"extended_status", 2}, {"standart_status_0", 0}};
    QTest::newRow("50 assignments") << 50
                                    << QVariantMap{{"PV_dev_variable_code", 1},
                                                   {"SV_dev_variable_code", 0},
                                                   {"TV_dev_variable_code", 3},
                                                   {"QV_dev_variable_code", 2}}
                                    << QVariantMap{{"PV_dev_variable_code", 1},
                                                   {"SV_dev_variable_code", 0},
                                                   {"TV_dev_variable_code", 3},
                                                   {"QV_dev_variable_code", 2}};
}

void TestDeviceCommands::reads()
{
    QFETCH(int, command);
    QFETCH(QVariantMap, simSetup);
    QFETCH(QVariantMap, expected);

    for (auto it = simSetup.constBegin(); it != simSetup.constEnd(); ++it)
        m_sim.setParam(0, it.key(), it.value());
    const int modifyCount = m_device->getDeviceInfoByte("modify_count");
    QVERIFY(m_device->readDevice(command));
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        const QString wrong = mismatch(it.key(), m_device->deviceInfo().value(it.key()), it.value());
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
    const hartsim::RequestRecord record = m_sim.record(2);
    QCOMPARE(int(record.command), command);
    QCOMPARE(record.data, QByteArray());
    QCOMPARE(record.address, hx("912a002a01"));
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
    QCOMPARE(m_device->state(), 2);
    QVERIFY(m_device->deviceTagState() & Device::TagStateRead);
}

void TestDeviceCommands::emptyAnswersWriteZeros_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QVariantMap>("expected");

    QTest::newRow("1") << 1 << QVariantMap{{"PV_unit_code", 0}, {"PV", 0.0f}};
    QTest::newRow("2") << 2 << QVariantMap{{"output_current", 0.0f}, {"output_current_%", 0.0f}};
    QTest::newRow("3 keeps SV on") << 3 << QVariantMap{{"output_current", 0.0f}, {"PV_unit_code", 0}, {"PV", 0.0f},
                                                       {"SV_unit_code", 7},      {"SV", 99.0f},       {"QV", 99.0f}};
    QTest::newRow("8") << 8 << QVariantMap{{"PV_class_code", 0}, {"QV_class_code", 0}};
    QTest::newRow("12") << 12 << QVariantMap{{"message", ""}};
    QTest::newRow("13: an invalid date is stored")
        << 13 << QVariantMap{{"tag", ""}, {"descriptor", ""}, {"date", QDate()}};
    QTest::newRow("14") << 14
                        << QVariantMap{{"sensor_number", 0u},
                                       {"sensor_unit_code", 0},
                                       {"sensor_range_max", 0.0f},
                                       {"sensor_minimum_range", 0.0f}};
    QTest::newRow("15") << 15
                        << QVariantMap{{"PV_alarm_selection_code", 0},
                                       {"range_max", 0.0f},
                                       {"damping_time", 0.0f},
                                       {"distributor_label", 0}};
    QTest::newRow("16") << 16 << QVariantMap{{"final_assembly_number", 0u}};
    QTest::newRow("20") << 20 << QVariantMap{{"long_tag", ""}};
    QTest::newRow("48") << 48
                        << QVariantMap{
                               {"error_code", 0}, {"device_specific_status", QByteArray()}, {"standart_status_0", 0}};
    QTest::newRow("50") << 50 << QVariantMap{{"PV_dev_variable_code", 0}, {"QV_dev_variable_code", 0}};
}

void TestDeviceCommands::emptyAnswersWriteZeros()
{
    QFETCH(int, command);
    QFETCH(QVariantMap, expected);

    // What was there before: replaced by zeros where the answer falls short.
    for (const char* key : {"PV", "SV", "QV", "range_max", "damping_time", "sensor_range_max", "sensor_minimum_range",
                            "output_current", "output_current_%"})
        m_device->setDeviceInfo(QLatin1String(key), 99.0f);
    m_device->setDeviceInfo("SV_unit_code", 7);
    m_device->setDeviceInfo("message", QStringLiteral("old"));
    m_device->setDeviceInfo("long_tag", QStringLiteral("old"));
    m_device->setDeviceInfo("date", QDate(2020, 1, 1));

    m_sim.addFault(0, emptyAnswer(command));
    QVERIFY(m_device->readDevice(command));
    QCOMPARE(int(m_sim.record(2).command), command);
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        const QString wrong = mismatch(it.key(), m_device->deviceInfo().value(it.key()), it.value());
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
}

void TestDeviceCommands::command3WithPVOnly()
{
    // A device with only PV assigned answers command 3 with 9 data bytes.
    m_sim.setParam(0, "SV_dev_variable_code", 250);
    m_device->setDeviceInfo("SV_unit_code", 7);
    m_device->setDeviceInfo("SV", 1.25f);
    m_device->setDeviceInfo("TV", 2.25f);
    QVERIFY(m_device->readDevice(3));
    QCOMPARE(m_sim.record(2).answer.size(), 5 + 1 + 5 + 1 + 1 + 2 + 9 + 1);
    QCOMPARE(m_device->deviceInfo().value("output_current"), QVariant(14.0f));
    QCOMPARE(m_device->deviceInfo().value("PV_unit_code"), QVariant(12));
    QCOMPARE(m_device->deviceInfo().value("PV"), QVariant(62.5f));
    QCOMPARE(m_device->deviceInfo().value("SV_unit_code"), QVariant(7));
    QCOMPARE(m_device->deviceInfo().value("SV"), QVariant(1.25f));
    QCOMPARE(m_device->deviceInfo().value("TV"), QVariant(2.25f));
    QVERIFY(!m_device->hasDeviceInfoParam("TV_unit_code"));
    QVERIFY(!m_device->hasDeviceInfoParam("QV"));
}

void TestDeviceCommands::versionGate_data()
{
    QTest::addColumn<int>("command");
    QTest::newRow("7") << 7;
    QTest::newRow("8") << 8;
    QTest::newRow("9") << 9;
    QTest::newRow("20") << 20;
    QTest::newRow("21") << 21;
}

void TestDeviceCommands::versionGate()
{
    QFETCH(int, command);

    Device* old = addDevice(1);
    QVERIFY(old->readDevice(0));
    QCOMPARE(old->deviceInfo().value("universal_cmd_version").toInt(), 5);
    const QVariantMap before = old->deviceInfo();
    QVERIFY(old->readDevice(command));
    QCOMPARE(old->messageLog().last(),
             QStringLiteral("Device command version is 5. Command #%1 not supported").arg(command));
    QCOMPARE(old->deviceInfo(), before);
    // Nothing went out between the two identifications and the fence.
    QCOMPARE(served(old, 2), QList<int>({0, 0, 16}));

    // The gate looks at the map only: told otherwise, the device is asked
    // and refuses (command not implemented).
    old->setDeviceInfo("universal_cmd_version", 7);
    QVERIFY(!old->readDevice(command));
    QCOMPARE(old->state(), 3);
    QCOMPARE(int(m_sim.record(4).command), command);
}

void TestDeviceCommands::readOfACommandNotInTheTable()
{
    m_sim.addFault(0, emptyAnswer(200));
    const QVariantMap before = m_device->deviceInfo();
    QVERIFY(!m_device->readDevice(200));
    QCOMPARE(int(m_sim.record(2).command), 200);
    // The device answered well: the state says so, only the result does not.
    QCOMPARE(m_device->state(), 2);
    QCOMPARE(m_device->errorCode(), 1);
    QCOMPARE(m_device->deviceInfo(), before);

    // And without the spoiler the device refuses it.
    m_sim.line().clearFaults();
    QVERIFY(!m_device->readDevice(200));
    QCOMPARE(m_device->errorCode(), -3);
    QCOMPARE(m_device->errorText(), QStringLiteral("Command error (error code 64): *** command not implemented"));
}

void TestDeviceCommands::readFailureChangesNothing()
{
    QVERIFY(m_device->readDevice(15));
    const QVariantMap before = m_device->deviceInfo();
    Fault refusal;
    refusal.kind = Fault::ResponseCode;
    refusal.command = 15;
    refusal.code = 6;
    refusal.keepData = true;
    m_sim.addFault(0, refusal);
    m_sim.setParam(0, "range_max", 80.0);
    QVERIFY(!m_device->readDevice(15));
    QCOMPARE(m_device->deviceInfo(), before);
    QCOMPARE(m_device->errorCode(), -3);
    QCOMPARE(m_device->state(), 3);
    QCOMPARE(m_device->statusBytes(), hx("0600"));
}

void TestDeviceCommands::pollingAddressChangeStands()
{
    m_device->setDeviceInfo("polling_address", 5);
    m_device->setDeviceInfo("current_loop_mode", 0);
    QVERIFY(m_device->writeDevice(6));
    QCOMPARE(m_sim.param(5, "polling_address").toInt(), 5);
    QCOMPARE(m_device->address(), 0); // a write does not move the device in the tree

    m_device->setDeviceInfo("polling_address", 0);
    QVERIFY(m_device->readDevice(7));
    QCOMPARE(m_device->address(), 5);
    QCOMPARE(m_device->deviceInfo().value("polling_address"), QVariant(5));
    QCOMPARE(m_device->save().value("polling_address").toInt(), 5);
    // Frames go on to the long address, and command 0 now finds it at 5.
    QVERIFY(m_device->readDevice(1));
    QVERIFY(m_device->readDevice(0));
    QCOMPARE(m_sim.record(4).address, hx("912a002a01"));
    QCOMPARE(m_sim.record(5).address, hx("85"));
    QCOMPARE(m_device->state(), 2);
}

// ---------------------------------------------------------------------------
// Writes

void TestDeviceCommands::writes_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QVariantMap>("simSetup");
    QTest::addColumn<QVariantMap>("info");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QVariantMap>("simExpected");
    QTest::addColumn<QVariantMap>("infoExpected");
    QTest::addColumn<bool>("counts");

    const QVariantMap none;
    QTest::newRow("6 polling address") << 6 << none << QVariantMap{{"polling_address", 0}, {"current_loop_mode", 0}}
                                       << hx("0000") << QVariantMap{{"current_loop_mode", 0}} << none << true;
    QTest::newRow("17 message") << 17 << none << QVariantMap{{"message", "Calibrated on site"}}
                                << hx("0c130909205414480f3a04c9505820820820820820820820") << none << none << true;
    QTest::newRow("17 message cut to 32")
        << 17 << none << QVariantMap{{"message", "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"}}
        << hx("0420c41461c824a2cc34e3d04524d45565d865ac31cb3d35")
        << QVariantMap{{"message", "ABCDEFGHIJKLMNOPQRSTUVWXYZ012345"}} << none << true;
    // The simulated device keeps packed fields with the blanks they were padded with.
    QTest::newRow("18 tag, descriptor, date 2026")
        << 18 << none << QVariantMap{{"tag", "TT-101"}, {"descriptor", "Boiler feed"}, {"date", QDate(2026, 5, 20)}}
        << hx("514b71c31820"
              "08f24c152806145120820820"
              "14057e")
        << QVariantMap{{"tag", "TT-101  "}, {"descriptor", "BOILER FEED     "}, {"date", "2026-05-20"}} << none << true;
    QTest::newRow("18 date as text from a file")
        << 18 << none << QVariantMap{{"tag", "A"}, {"descriptor", ""}, {"date", "1999-12-31"}}
        << hx("060820820820"
              "820820820820820820820820"
              "1f0c63")
        << QVariantMap{{"tag", "A       "}, {"descriptor", "                "}, {"date", "1999-12-31"}} << none << true;
    QTest::newRow("19 final assembly number")
        << 19 << none << QVariantMap{{"final_assembly_number", 0x0A0B0C}} << hx("0a0b0c")
        << QVariantMap{{"final_assembly_number", 0x0A0B0C}} << none << true;
    QTest::newRow("22 long tag in Latin-1")
        << 22 << none << QVariantMap{{"long_tag", QString::fromUtf8("Bomba de alimentación")}}
        << QByteArray("Bomba de alimentaci\xF3n") + QByteArray(11, '\0')
        << QVariantMap{{"long_tag", QString::fromUtf8("Bomba de alimentación")}} << none << true;
    QTest::newRow("22 long tag cut to 32")
        << 22 << none << QVariantMap{{"long_tag", "Feed water pump, north side, #02 (spare)"}}
        << QByteArray("Feed water pump, north side, #02")
        << QVariantMap{{"long_tag", "Feed water pump, north side, #02"}} << none << true;
    QTest::newRow("34 damping") << 34 << none << QVariantMap{{"damping_time", 2.5f}} << hx("40200000")
                                << QVariantMap{{"damping_time", 2.5}} << none << true;
    QTest::newRow("35 range") << 35 << none
                              << QVariantMap{{"range_unit_code", 12}, {"range_max", 200.0f}, {"range_min", -50.0f}}
                              << hx("0c43480000c2480000") << QVariantMap{{"range_max", 200.0}, {"range_min", -50.0}}
                              << none << true;
    QTest::newRow("35 a narrow range is a warning")
        << 35 << none << QVariantMap{{"range_unit_code", 12}, {"range_max", 12.0f}, {"range_min", 11.5f}}
        << hx("0c4140000041380000") << QVariantMap{{"range_max", 12.0}, {"range_min", 11.5}} << none << true;
    QTest::newRow("36 PV as upper range value")
        << 36 << none << none << QByteArray() << QVariantMap{{"range_max", 62.5}} << none << true;
    QTest::newRow("37 PV as lower range value")
        << 37 << none << none << QByteArray() << QVariantMap{{"range_min", 62.5}} << none << true;
    QTest::newRow("38 reset config changed flag: no count")
        << 38 << none << none << hx("0000") << none << none << false;
    QTest::newRow("40 fixed current: no count")
        << 40 << none << QVariantMap{{"fixed_current", 12.0f}} << hx("41400000") << QVariantMap{{"fixed_current", 12.0}}
        << QVariantMap{{"fixed_current", 12.0f}} << false;
    QTest::newRow("41 self test: no count") << 41 << none << none << QByteArray() << none << none << false;
    QTest::newRow("42 reset: no count") << 42 << none << none << QByteArray() << none << none << false;
    QTest::newRow("43 adjust zero") << 43 << none << none << QByteArray() << QVariantMap{{"var_0_offset", -62.5}}
                                    << none << true;
    QTest::newRow("44 PV unit") << 44 << none << QVariantMap{{"input_units", 11}} << hx("0b")
                                << QVariantMap{{"var_0_unit", 11}, {"range_unit_code", 11}} << none << true;
    QTest::newRow("45 adjust 4 mA") << 45 << QVariantMap{{"fixed_current", 4.0}} << QVariantMap{{"adjust_4mA", 4.25f}}
                                    << hx("40880000") << QVariantMap{{"adjust_4mA", 4.25}}
                                    << QVariantMap{{"adjust_4mA", 4.25f}} << true;
    QTest::newRow("46 adjust 20 mA") << 46 << QVariantMap{{"fixed_current", 20.0}}
                                     << QVariantMap{{"adjust_20mA", 20.5f}} << hx("41a40000")
                                     << QVariantMap{{"adjust_20mA", 20.5}} << QVariantMap{{"adjust_20mA", 20.5f}}
                                     << true;
    QTest::newRow("47 transfer function") << 47 << none << QVariantMap{{"conversion_function", 0}} << hx("00")
                                          << QVariantMap{{"conversion_function", 0}} << none << true;
    QTest::newRow("48 with nothing read yet: no count")
        << 48 << none << none << QByteArray() << none
        << QVariantMap{{"error_code", 0}, {"device_specific_status", hx("000000000000")}} << false;
    QTest::newRow("49 sensor number") << 49 << none << QVariantMap{{"sensor_number", 0x010203}} << hx("010203")
                                      << QVariantMap{{"sensor_number", 0x010203}} << none << true;
    QTest::newRow("51 assignments") << 51 << none
                                    << QVariantMap{{"PV_dev_variable_code", 1},
                                                   {"SV_dev_variable_code", 0},
                                                   {"TV_dev_variable_code", 3},
                                                   {"QV_dev_variable_code", 2}}
                                    << hx("01000302")
                                    << QVariantMap{{"PV_dev_variable_code", 1},
                                                   {"SV_dev_variable_code", 0},
                                                   {"TV_dev_variable_code", 3},
                                                   {"QV_dev_variable_code", 2}}
                                    << none << true;
    QTest::newRow("53 variable units") << 53 << none
                                       << QVariantMap{{"dev_variable_code", 1}, {"dev_variable_limits_unit_code", 33}}
                                       << hx("0121") << QVariantMap{{"var_1_unit", 33}} << none << true;
    QTest::newRow("59 preambles") << 59 << none << QVariantMap{{"preambles_count", 7}} << hx("07")
                                  << QVariantMap{{"preambles_count", 7}} << none << true;
    QTest::newRow("129 write protection") << 129 << none << QVariantMap{{"write_protection", 1}} << hx("01")
                                          << QVariantMap{{"write_protection", 1}} << none << true;
}

void TestDeviceCommands::writes()
{
    QFETCH(int, command);
    QFETCH(QVariantMap, simSetup);
    QFETCH(QVariantMap, info);
    QFETCH(QByteArray, request);
    QFETCH(QVariantMap, simExpected);
    QFETCH(QVariantMap, infoExpected);
    QFETCH(bool, counts);

    for (auto it = simSetup.constBegin(); it != simSetup.constEnd(); ++it)
        m_sim.setParam(0, it.key(), it.value());
    for (auto it = info.constBegin(); it != info.constEnd(); ++it)
        m_device->setDeviceInfo(it.key(), it.value());
    const int modifyCount = m_device->getDeviceInfoByte("modify_count");

    QSignalSpy errors(m_device, &Device::deviceError);
    QVERIFY(m_device->writeDevice(command));
    QCOMPARE(errors.size(), 0);
    const hartsim::RequestRecord record = m_sim.record(2);
    QCOMPARE(int(record.command), command);
    QCOMPARE(record.data, request);
    for (auto it = simExpected.constBegin(); it != simExpected.constEnd(); ++it) {
        const QString wrong = simMismatch(it.key(), m_sim.param(0, it.key()), it.value());
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
    for (auto it = infoExpected.constBegin(); it != infoExpected.constEnd(); ++it) {
        const QString wrong = mismatch(it.key(), m_device->deviceInfo().value(it.key()), it.value());
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount + (counts ? 1 : 0));
    QCOMPARE(m_device->state(), 2);
    QVERIFY(m_device->deviceTagState() & Device::TagStateWritten);
    QCOMPARE(m_device->messageLog().last(),
             QStringLiteral("Success (processing time: %1ms)").arg(m_device->processingTime()));
}

void TestDeviceCommands::changedEcho_data()
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
    QTest::newRow("a command without a row that answers with data") << 0 << 3 << QVariantMap() << false << QByteArray();
}

void TestDeviceCommands::changedEcho()
{
    QFETCH(int, pollingAddress);
    QFETCH(int, command);
    QFETCH(QVariantMap, info);
    QFETCH(bool, emptyAnswer);
    QFETCH(QByteArray, request);

    Device* device = pollingAddress == 0 ? m_device : addDevice(pollingAddress);
    if (device != m_device)
        QVERIFY(device->readDevice(0));
    for (auto it = info.constBegin(); it != info.constEnd(); ++it)
        device->setDeviceInfo(it.key(), it.value());
    if (emptyAnswer)
        m_sim.addFault(pollingAddress, ::emptyAnswer(command));
    const int modifyCount = device->getDeviceInfoByte("modify_count");
    QSignalSpy errors(device, &Device::deviceError);

    QVERIFY(!device->writeDevice(command));
    QCOMPARE(device->errorText(), QStringLiteral("*** cmdData != response"));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).toString(), QStringLiteral("*** cmdData != response"));
    QCOMPARE(device->messageLog().last(), QStringLiteral("*** cmdData != response"));
    QCOMPARE(device->getDeviceInfoByte("modify_count"), modifyCount);
    const hartsim::RequestRecord record = m_sim.record(device == m_device ? 2 : 3);
    QCOMPARE(int(record.command), command);
    QCOMPARE(record.data, request);
}

void TestDeviceCommands::refusedWrite()
{
    // The simulated device refuses a damping above 60 s.
    m_device->setDeviceInfo("damping_time", 75.0f);
    const int modifyCount = m_device->getDeviceInfoByte("modify_count");
    QVERIFY(!m_device->writeDevice(34));
    QCOMPARE(m_device->errorCode(), -3);
    QCOMPARE(m_device->errorText(), QStringLiteral("Command error (error code 3): *** last parameter too large"));
    QCOMPARE(m_device->statusBytes().at(0), char(3));
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
    QCOMPARE(m_sim.param(0, "damping_time").toDouble(), 2.5);
    QCOMPARE(m_sim.record(2).data, hx("42960000"));
}

void TestDeviceCommands::writeProtection()
{
    m_sim.setParam(0, "write_protection", 1);
    m_device->setDeviceInfo("damping_time", 4.0f);
    const int modifyCount = m_device->getDeviceInfoByte("modify_count");
    QSignalSpy errors(m_device, &Device::deviceError);
    QVERIFY(!m_device->writeDevice(34));
    QCOMPARE(m_device->errorCode(), -3);
    QCOMPARE(m_device->state(), 3);
    QCOMPARE(m_device->errorText(), QStringLiteral("Command error (error code 7): *** write protection mode set"));
    QCOMPARE(m_device->statusBytes(), hx("0700"));
    QVERIFY(m_device->messageLog().contains(QStringLiteral("Device status: [07 00]")));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).toString(),
             QStringLiteral("error executing cmd=34 - Command error (error code 7): *** write protection mode set"));
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
    QCOMPARE(m_sim.param(0, "damping_time").toDouble(), 2.5);

    // Protection cannot be lifted over the line.
    m_device->setDeviceInfo("write_protection", 0);
    QVERIFY(!m_device->writeDevice(129));
    QCOMPARE(m_device->errorCode(), -3);
    QCOMPARE(m_sim.param(0, "write_protection").toInt(), 1);
}

void TestDeviceCommands::write18RenamesTheDevice()
{
    QCOMPARE(m_device->name(), QStringLiteral("Custom_{0}"));
    m_device->setDeviceInfo("tag", QStringLiteral("TT-101"));
    m_device->setDeviceInfo("descriptor", QString());
    m_device->setDeviceInfo("date", QDate(2026, 1, 2));
    QVERIFY(m_device->writeDevice(18));
    QCOMPARE(m_device->name(), QStringLiteral("Custom_{TT-101}"));
    // The device keeps the blanks the field was padded with.
    QCOMPARE(m_sim.param(0, "tag").toString(), QStringLiteral("TT-101  "));
}

void TestDeviceCommands::write38ClearsConfigurationChanged()
{
    m_device->setDeviceInfo("damping_time", 3.0f);
    QVERIFY(m_device->writeDevice(34));
    QCOMPARE(m_device->statusBytes(), hx("0040"));
    // Both counters went up: the device's and ours.
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 1);
    QCOMPARE(m_sim.param(0, "modify_count").toInt(), 1);

    QVERIFY(m_device->writeDevice(38));
    QCOMPARE(m_sim.record(3).data, hx("0001"));
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 1);
    QVERIFY(m_device->readDevice(1));
    QCOMPARE(m_device->statusBytes(), hx("0000"));

    // A wrong counter is refused.
    m_device->setDeviceInfo("modify_count", 5);
    QVERIFY(!m_device->writeDevice(38));
    QCOMPARE(m_device->errorText(), QStringLiteral("Command error (error code 9): *** mismatch counter configuration "
                                                   "change"));
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), 5);
}

void TestDeviceCommands::commandsWithoutARow_data()
{
    QTest::addColumn<bool>("spoiled");
    QTest::newRow("the device does not know it") << false;
    QTest::newRow("answered without data") << true;
}

void TestDeviceCommands::commandsWithoutARow()
{
    QFETCH(bool, spoiled);

    if (spoiled)
        m_sim.addFault(0, emptyAnswer(200));
    m_device->setDeviceInfo("damping_time", 9.0f);
    const int modifyCount = m_device->getDeviceInfoByte("modify_count");
    QCOMPARE(m_device->writeDevice(200), spoiled);
    const hartsim::RequestRecord record = m_sim.record(2);
    QCOMPARE(int(record.command), 200);
    QCOMPARE(record.data, QByteArray());
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount + (spoiled ? 1 : 0));
    if (!spoiled)
        QCOMPARE(m_device->errorText(), QStringLiteral("Command error (error code 64): *** command not implemented"));
    QCOMPARE(m_device->messageLog().contains(QStringLiteral("writing  (cmd=200)...\n")), true);
}

void TestDeviceCommands::slotWalks_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QVariantMap>("simSetup");
    QTest::addColumn<QVariantMap>("slotCodes");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QVariantMap>("expected");
    QTest::addColumn<QStringList>("absent");

    const QVariantMap none;
    QTest::newRow("33 four slots")
        << 33 << none << QVariantMap{{"slot_0_code", 0}, {"slot_1_code", 1}, {"slot_2_code", 2}, {"slot_3_code", 3}}
        << hx("00010203") << true
        << QVariantMap{{"slot_0_unit_code", 12}, {"slot_0_value", 62.5f},  {"slot_1_unit_code", 32},
                       {"slot_1_value", 23.5f},  {"slot_2_unit_code", 19}, {"slot_2_value", 12.0f},
                       {"slot_3_unit_code", 57}, {"slot_3_value", 50.0f}}
        << QStringList{"slot_0_class", "slot_0_status"};
    QTest::newRow("33 takes four of five")
        << 33 << none
        << QVariantMap{{"slot_0_code", 3},
                       {"slot_1_code", 2},
                       {"slot_2_code", 1},
                       {"slot_3_code", 0},
                       {"slot_4_code", 2}}
        << hx("03020100") << true << QVariantMap{{"slot_0_value", 50.0f}, {"slot_3_value", 62.5f}}
        << QStringList{"slot_4_value", "slot_4_unit_code"};
    QTest::newRow("33 250 left out, records counted as they come")
        << 33 << none << QVariantMap{{"slot_0_code", 250}, {"slot_1_code", 1}} << hx("01") << true << none
        << QStringList{"slot_0_value", "slot_1_value"};
    QTest::newRow("33 250 in the middle")
        << 33 << none << QVariantMap{{"slot_0_code", 0}, {"slot_1_code", 250}, {"slot_2_code", 2}} << hx("0002") << true
        << QVariantMap{{"slot_0_unit_code", 12}, {"slot_0_value", 62.5f}}
        << QStringList{"slot_1_value", "slot_2_value"};
    QTest::newRow("33 a missing key ends the list")
        << 33 << none << QVariantMap{{"slot_0_code", 2}, {"slot_2_code", 1}} << hx("02") << true
        << QVariantMap{{"slot_0_unit_code", 19}, {"slot_0_value", 12.0f}} << QStringList{"slot_2_value"};
    QTest::newRow("33 no slots: no data")
        << 33 << none << none << QByteArray() << false << none << QStringList{"slot_0_value"};
    QTest::newRow("9 eight slots") << 9 << QVariantMap{{"extended_status", 3}}
                                   << QVariantMap{{"slot_0_code", 0}, {"slot_1_code", 1}, {"slot_2_code", 2},
                                                  {"slot_3_code", 3}, {"slot_4_code", 3}, {"slot_5_code", 2},
                                                  {"slot_6_code", 1}, {"slot_7_code", 0}, {"slot_8_code", 1}}
                                   << hx("0001020303020100") << true
                                   << QVariantMap{{"extended_status", 3},   {"slot_0_class", 65},
                                                  {"slot_0_unit_code", 12}, {"slot_0_value", 62.5f},
                                                  {"slot_0_status", 0xC0},  {"slot_3_class", 0},
                                                  {"slot_3_unit_code", 57}, {"slot_3_value", 50.0f},
                                                  {"slot_6_class", 64},     {"slot_6_value", 23.5f},
                                                  {"slot_7_unit_code", 12}, {"slot_7_status", 0xC0}}
                                   << QStringList{"slot_8_value"};
    QTest::newRow("9 250 left out")
        << 9 << none << QVariantMap{{"slot_0_code", 1}, {"slot_1_code", 250}, {"slot_2_code", 3}} << hx("0103") << true
        << QVariantMap{{"slot_0_class", 64}, {"slot_0_unit_code", 32}, {"slot_0_value", 23.5f}, {"slot_0_status", 0xC0}}
        << QStringList{"slot_1_value", "slot_2_value"};
    QTest::newRow("9 code 246 stands for PV")
        << 9 << none << QVariantMap{{"slot_0_code", 246}} << hx("f6") << true
        << QVariantMap{{"slot_0_class", 65}, {"slot_0_unit_code", 12}, {"slot_0_value", 62.5f}} << QStringList();
    QTest::newRow("9 no slots: no data") << 9 << none << none << QByteArray() << false << none
                                         << QStringList{"extended_status"};
}

void TestDeviceCommands::slotWalks()
{
    QFETCH(int, command);
    QFETCH(QVariantMap, simSetup);
    QFETCH(QVariantMap, slotCodes);
    QFETCH(QByteArray, request);
    QFETCH(bool, result);
    QFETCH(QVariantMap, expected);
    QFETCH(QStringList, absent);

    for (auto it = simSetup.constBegin(); it != simSetup.constEnd(); ++it)
        m_sim.setParam(0, it.key(), it.value());
    m_device->removeDeviceInfo("extended_status");
    for (auto it = slotCodes.constBegin(); it != slotCodes.constEnd(); ++it)
        m_device->setDeviceInfo(it.key(), it.value());
    const int modifyCount = m_device->getDeviceInfoByte("modify_count");

    QCOMPARE(m_device->writeDevice(command), result);
    const hartsim::RequestRecord record = m_sim.record(2);
    QCOMPARE(int(record.command), command);
    QCOMPARE(record.data, request);
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        const QString wrong = mismatch(it.key(), m_device->deviceInfo().value(it.key()), it.value());
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
    for (const QString& key : absent)
        QVERIFY2(!m_device->hasDeviceInfoParam(key), qPrintable(key));
    QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
}

void TestDeviceCommands::command54_data()
{
    QTest::addColumn<int>("pollingAddress");
    QTest::addColumn<int>("variable");
    QTest::addColumn<bool>("emptyAnswer");
    QTest::addColumn<QVariantMap>("expected");

    QTest::newRow("temperature") << 0 << 1 << false
                                 << QVariantMap{
                                        {"dev_variable_sensor", 2u},          {"dev_variable_limits_unit_code", 32},
                                        {"dev_variable_usl", 85.0f},          {"dev_variable_lsl", -40.0f},
                                        {"dev_variable_damping_value", 0.5f}, {"dev_variable_span", 1.0f},
                                        {"dev_variable_class", 64},           {"dev_variable_family", 4}};
    QTest::newRow("the primary variable: its sensor")
        << 0 << 0 << false << QVariantMap{{"dev_variable_sensor", 0x2A01u},     {"dev_variable_limits_unit_code", 12},
                                          {"dev_variable_usl", 250.0f},         {"dev_variable_lsl", -100.0f},
                                          {"dev_variable_damping_value", 2.5f}, {"dev_variable_span", 1.0f},
                                          {"dev_variable_class", 65},           {"dev_variable_family", 5}};
    QTest::newRow("HART 5, level") << 1 << 3 << false
                                   << QVariantMap{{"dev_variable_sensor", 4u},
                                                  {"dev_variable_limits_unit_code", 57},
                                                  {"dev_variable_usl", 100.0f},
                                                  {"dev_variable_class", 0},
                                                  {"dev_variable_family", 250}};
    QTest::newRow("another variable answered: nothing stored") << 0 << 1 << true << QVariantMap();
}

void TestDeviceCommands::command54()
{
    QFETCH(int, pollingAddress);
    QFETCH(int, variable);
    QFETCH(bool, emptyAnswer);
    QFETCH(QVariantMap, expected);

    Device* device = pollingAddress == 0 ? m_device : addDevice(pollingAddress);
    if (device != m_device)
        QVERIFY(device->readDevice(0));
    if (emptyAnswer)
        m_sim.addFault(pollingAddress, ::emptyAnswer(54));
    device->setDeviceInfo("dev_variable_code", variable);
    const int modifyCount = device->getDeviceInfoByte("modify_count");
    QVERIFY(device->writeDevice(54));
    const hartsim::RequestRecord record = m_sim.record(device == m_device ? 2 : 3);
    QCOMPARE(int(record.command), 54);
    QCOMPARE(record.data, QByteArray(1, char(variable)));
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        const QString wrong = mismatch(it.key(), device->deviceInfo().value(it.key()), it.value());
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
    if (expected.isEmpty()) {
        for (const QString& key : device->deviceInfo().keys())
            QVERIFY2(!key.startsWith(QLatin1String("dev_variable_")) || key == QLatin1String("dev_variable_code"),
                     qPrintable(key));
    }
    QCOMPARE(device->getDeviceInfoByte("modify_count"), modifyCount);
}

// ---------------------------------------------------------------------------
// Concurrency

void TestDeviceCommands::twoThreadsNeverInterleave()
{
    hartsim::SimLine& line = m_sim.line();
    QString error;
    auto second = hartsim::SimDevice::create(QStringLiteral("generic"),
                                             {{"polling_address", 2},
                                              {"device_id", 0x000202},
                                              {"var_0_unit", 7},
                                              {"var_0_value", 3.25},
                                              {"var_0_amplitude", 0.0}},
                                             &error);
    QVERIFY2(second && line.addDevice(std::move(second), &error), qPrintable(error));
    Device* other = addDevice(2);
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
    int toSecond = 0;
    for (const hartsim::RequestRecord& record : log) {
        QCOMPARE(int(record.command), 1);
        QVERIFY(record.answered);
        if (record.address == hx("912a002a01")) {
            QCOMPARE(record.device, 0);
            ++toFirst;
        } else {
            QCOMPARE(record.address, hx("912a000202"));
            QCOMPARE(record.device, 2);
            ++toSecond;
        }
    }
    QCOMPARE(toFirst, rounds);
    QCOMPARE(toSecond, rounds);
    QCOMPARE(m_port->semaphore().available(), 1);
}

QTEST_GUILESS_MAIN(TestDeviceCommands)
#include "tst_devicecommands.moc"
