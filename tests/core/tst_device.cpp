#include "debugqt.h"
#include "device.h"
#include "port.h"
#include "qjsonsettings.h"
#include "server.h"
#include "simulatedline.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <limits>

using hartsim::Fault;

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// The lines of a device's log that start with a text.
QStringList linesStartingWith(const Device& device, const QString& start)
{
    QStringList found;
    for (const QString& line : device.messageLog())
        if (line.startsWith(start))
            found << line;
    return found;
}

// What a malformed-configuration row looks at after the load.
QVariant probe(Device& device, const QString& what)
{
    if (what == QLatin1String("address"))
        return device.address();
    if (what == QLatin1String("polling_period"))
        return device.pollingPeriod();
    if (what == QLatin1String("comment"))
        return device.comment();
    if (what == QLatin1String("template"))
        return device.deviceTemplateName();
    if (what == QLatin1String("measure"))
        return device.measureInfo();
    if (what == QLatin1String("hartAddress"))
        return device.hartAddress();
    if (what == QLatin1String("hartDeviceID"))
        return device.hartDeviceID();
    if (what.startsWith(QLatin1String("param:")))
        return device.deviceInfo().value(what.mid(6));
    return QStringLiteral("<unknown probe %1>").arg(what);
}

} // namespace

class TestDevice : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    // The core, without traffic.
    void defaults();
    void propertyAccessors();
    void deviceInfoAccess();
    void removeAllSlotesInfo();
    void messageLogDepth();
    void saveWritesTheKeysOfTheFile();
    void fileRoundTrip();
    void enabledAndPriorityReadOnlyBySettings();
    void malformedConfiguration_data();
    void malformedConfiguration();
    void unreadableFileLosesNothing();
    void tagStateStrings_data();
    void tagStateStrings();
    void checkOffDeviceForgetsIdentity();
    void names();
    void loadFromTemplateKeepsIdentity();
    void unitCodeTexts_data();
    void unitCodeTexts();
    void unitTextsOfTheMap();
    void classificationTexts_data();
    void classificationTexts();
    void familyTexts_data();
    void familyTexts();
    void variableStatusTexts_data();
    void variableStatusTexts();
    void alarmSelectionTexts_data();
    void alarmSelectionTexts();
    void snapshotsUndoEachOther();
    void deviceAndFileSnapshots();
    void pasteFromClipboard();
    void deviceInfoBackup();
    void valuesInDeviceData();
    void saveCmd48Responce();
    void additionalStatusTexts_data();
    void additionalStatusTexts();

    // Exchanges with the simulator.
    void identifyByAddress();
    void identifyFailsAtEmptyAddress();
    void identifyByTag();
    void identifyByTagRefusesLowerCase();
    void identifyByLongTag();
    void identifyBy73();
    void readHoldsTheSemaphore();
    void readLogLines();
    void statusLinesOnlyWhenNonZero();
    void writeLogLines_data();
    void writeLogLines();
    void failedReadAndClosePortOnError_data();
    void failedReadAndClosePortOnError();
    void portThatCannotOpen_data();
    void portThatCannotOpen();
    void additionalStatusFromTheDevice_data();
    void additionalStatusFromTheDevice();
    void alwaysAdditionalStatus();
    void hart5TakesTheReadAsAcknowledgement();

private:
    // A line with the simulator's devices, and a server with one port on it.
    bool startLine(const QList<SimulatedLine::Device>& devices);
    Device* addDevice(int pollingAddress, const QString& templateName = QStringLiteral("Custom"));
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
};

void TestDevice::initTestCase()
{
    DebugQt::instance(0x8ED0007, nullptr);
    m_startDir = QDir::currentPath();
}

void TestDevice::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    QVERIFY(QDir::setCurrent(m_dir->path()));
}

void TestDevice::cleanup()
{
    // The port goes before the line it talks on.
    m_server.reset();
    m_port = nullptr;
    m_sim.stop();
    QDir::setCurrent(m_startDir);
}

bool TestDevice::startLine(const QList<SimulatedLine::Device>& devices)
{
    QString error;
    if (!m_sim.start(devices, &error)) {
        qWarning() << "simulator:" << error;
        return false;
    }
    m_server.reset(new Server);
    m_port = m_server->addPort(QStringLiteral("P1"));
    return m_port && m_port->setSerialName(m_sim.path());
}

Device* TestDevice::addDevice(int pollingAddress, const QString& templateName)
{
    Device* device = m_port->addDevice(QStringLiteral("D%1").arg(pollingAddress), templateName, -1);
    device->setAddress(pollingAddress);
    return device;
}

QList<int> TestDevice::served(Device* device, int expected)
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
// The core

void TestDevice::defaults()
{
    Server server;
    Port* port = server.addPort(QStringLiteral("P1"));
    Device* device = port->addDevice(QStringLiteral("D1"), QStringLiteral("Custom"), -1);
    QCOMPARE(device->type(), 3);
    QCOMPARE(device->port(), port);
    QCOMPARE(device->pollingPeriod(), 1000);
    QCOMPARE(device->address(), 0);
    QCOMPARE(device->closePortOnError(), false);
    QCOMPARE(device->set_as_custom(), 1);
    QCOMPARE(device->deviceTagState(), 1);
    QCOMPARE(device->priority(), port->property("priority").toInt());
    QVERIFY(!device->isIdentified());
    // The name follows the template and the polling address.
    QCOMPARE(device->name(), QStringLiteral("Custom_{0}"));
    QCOMPARE(device->fullName(), QStringLiteral("P1/Custom_{0}"));
    QCOMPARE(device->getADCCodeString(5), QString());
    QCOMPARE(device->readFunContext(200), QString());
    QCOMPARE(device->writeFunContext(200), QString());
    QCOMPARE(device->writeFunContext(38), QStringLiteral("reset config changed flag "));
    QCOMPARE(device->writeFunContext(48), QStringLiteral("reset additional status flag "));
    QCOMPARE(device->readFunContext(0), QStringLiteral("device identifier"));
    QCOMPARE(device->readFunContext(73), QStringLiteral("find device"));
}

void TestDevice::propertyAccessors()
{
    Device device;
    device.setAddress(12);
    device.setPollingPeriod(2500);
    device.setRequestTimeout(210);
    device.setResponceTimeout(400);
    device.setByteTimeout(60);
    device.setClosePortOnError(true);
    device.setProducer(QStringLiteral("ACME"));
    device.setComment(QStringLiteral("boiler"));
    device.setVariant(QStringLiteral("v2"));
    device.setPriority(3);
    QCOMPARE(device.address(), 12);
    QCOMPARE(device.property("address").toInt(), 12);
    QCOMPARE(device.pollingPeriod(), 2500);
    QCOMPARE(device.requestTimeout(), 210);
    QCOMPARE(device.responceTimeout(), 400);
    QCOMPARE(device.property("responce_timeout").toInt(), 400);
    QCOMPARE(device.byteTimeout(), 60);
    QCOMPARE(device.closePortOnError(), true);
    QCOMPARE(device.property("close_port_if_error").toBool(), true);
    QCOMPARE(device.producer(), QStringLiteral("ACME"));
    QCOMPARE(device.comment(), QStringLiteral("boiler"));
    QCOMPARE(device.variant(), QStringLiteral("v2"));
    QCOMPARE(device.priority(), 3);

    // The device's own timeouts go to the port when they are set.
    Server server;
    Port* port = server.addPort(QStringLiteral("P1"));
    Device* onPort = port->addDevice(QStringLiteral("D1"), QStringLiteral("Custom"), -1);
    onPort->checkAndSetPortTimeouts();
    QCOMPARE(port->hart().responseTimeout(), 370);
    QCOMPARE(port->hart().byteTimeout(), 50);
    onPort->setResponceTimeout(500);
    onPort->setByteTimeout(80);
    onPort->checkAndSetPortTimeouts();
    QCOMPARE(port->hart().responseTimeout(), 500);
    QCOMPARE(port->hart().byteTimeout(), 80);
}

void TestDevice::deviceInfoAccess()
{
    Device device;
    QVERIFY(!device.hasDeviceInfoParam(QStringLiteral("range_max")));
    QCOMPARE(device.getDeviceInfoFloat(QStringLiteral("range_max")), 0.0f);
    // Reading a missing key makes it, empty.
    QVERIFY(device.hasDeviceInfoParam(QStringLiteral("range_max")));
    QVERIFY(!device.deviceInfo().value(QStringLiteral("range_max")).isValid());
    QCOMPARE(device.getDeviceInfoByte(QStringLiteral("unit")), 0);
    QVERIFY(device.hasDeviceInfoParam(QStringLiteral("unit")));
    QCOMPARE(device.getDeviceInfoString(QStringLiteral("tag")), QString());
    QCOMPARE(device.getDeviceInfoByteArray(QStringLiteral("address")), QByteArray());
    QCOMPARE(device.deviceInfo().size(), 4);

    device.setDeviceInfo(QStringLiteral("range_max"), 150.5f);
    device.setDeviceInfo(QStringLiteral("unit"), 12);
    device.setDeviceInfo(QStringLiteral("tag"), QStringLiteral("PT-1"));
    device.setDeviceInfo(QStringLiteral("address"), hx("112a002a01"));
    QCOMPARE(device.getDeviceInfoFloat(QStringLiteral("range_max")), 150.5f);
    QCOMPARE(device.getDeviceInfoByte(QStringLiteral("unit")), 12);
    QCOMPARE(device.getDeviceInfoString(QStringLiteral("tag")), QStringLiteral("PT-1"));
    QCOMPARE(device.getDeviceInfoByteArray(QStringLiteral("address")), hx("112a002a01"));
    QCOMPARE(device.getDeviceInfo(QStringLiteral("unit")), QVariant(12));

    device.removeDeviceInfo(QStringLiteral("unit"));
    QVERIFY(!device.hasDeviceInfoParam(QStringLiteral("unit")));

    device.setDeviceInfo(QStringLiteral("modify_count"), 41);
    device.incrementModifyCount();
    QCOMPARE(device.getDeviceInfoByte(QStringLiteral("modify_count")), 42);
    device.removeDeviceInfo(QStringLiteral("modify_count"));
    device.incrementModifyCount();
    QCOMPARE(device.getDeviceInfoByte(QStringLiteral("modify_count")), 1);
}

void TestDevice::removeAllSlotesInfo()
{
    Device device;
    const QStringList slotKeys = {"slot_0_code",   "slot_0_class", "slot_0_unit_code", "slot_0_value",
                                  "slot_0_status", "slot_7_code",  "slot_12_value"};
    for (const QString& key : slotKeys)
        device.setDeviceInfo(key, 1);
    device.setDeviceInfo(QStringLiteral("slot_count"), 4);
    device.setDeviceInfo(QStringLiteral("PV"), 1.5f);
    device.setDeviceInfo(QStringLiteral("slot_0_comment"), QStringLiteral("kept"));
    device.removeAllSlotesInfo();
    for (const QString& key : slotKeys)
        QVERIFY2(!device.hasDeviceInfoParam(key), qPrintable(key));
    QCOMPARE(device.deviceInfo().keys(), QStringList({"PV", "slot_0_comment", "slot_count"}));
}

void TestDevice::messageLogDepth()
{
    Device device;
    device.setAddress(5);
    QSignalSpy spy(&device, &Device::modbusMessage);
    for (int i = 0; i < 10005; ++i)
        device.sendModbusMessage(QStringLiteral("line %1").arg(i));
    QCOMPARE(device.messageLog().size(), 10000);
    QCOMPARE(device.messageLog().first(), QStringLiteral("line 5"));
    QCOMPARE(device.messageLog().last(), QStringLiteral("line 10004"));
    QCOMPARE(spy.size(), 10005);
    QCOMPARE(spy.last().at(0).toInt(), 5);
    QCOMPARE(spy.last().at(1).toString(), QStringLiteral("line 10004"));
}

void TestDevice::saveWritesTheKeysOfTheFile()
{
    Device device;
    device.setDeviceTemplateName(QStringLiteral("Custom"));
    device.setProducer(QStringLiteral("ACME"));
    QVariantMap map = device.save();
    QCOMPARE(map.keys(), QStringList({"comment", "enabled", "name", "parameters", "polling_address", "polling_period",
                                      "priority", "template"}));
    QCOMPARE(map.value("template").toString(), QStringLiteral("Custom"));

    device.setVariant(QStringLiteral("v2"));
    device.setMeasureInfo({{"period", 500}});
    map = device.save();
    QCOMPARE(map.value("variant").toString(), QStringLiteral("v2"));
    QCOMPARE(map.value("measure_info").toMap(), QVariantMap({{"period", 500}}));
    QVERIFY(!map.contains("producer"));
}

void TestDevice::fileRoundTrip()
{
    const QByteArray address = hx("a0ff007f80");
    const QByteArray deviceId = hx("00ff80");
    const QByteArray vendor = hx("0026");
    const QByteArray expanded = hx("e091");
    const QByteArray specific = hx("0500ff008000");

    Device device;
    device.setDeviceTemplateName(QStringLiteral("TCV-C"));
    device.setAddress(7);
    device.setPollingPeriod(2500);
    device.setComment(QStringLiteral("boiler"));
    device.setVariant(QStringLiteral("v2"));
    device.setEnabled(false);
    device.setPriority(3);
    device.setMeasureInfo({{"period", 500}, {"archive", true}});
    device.setDeviceInfo("address", address);
    device.setDeviceInfo("deviceID", deviceId);
    device.setDeviceInfo("vendorID", vendor);
    device.setDeviceInfo("expanded_device_type", expanded);
    device.setDeviceInfo("device_specific_status", specific);
    device.setDeviceInfo("PV", std::numeric_limits<float>::quiet_NaN());
    device.setDeviceInfo("SV", std::numeric_limits<double>::infinity());
    device.setDeviceInfo("TV", -std::numeric_limits<float>::infinity());
    device.setDeviceInfo("QV", 1.5f);
    device.setDeviceInfo("tag", QStringLiteral("TT-101"));
    device.setDeviceInfo("descriptor", QStringLiteral("0x41h looks like a byte"));
    device.setDeviceInfo("date", QDate(2026, 5, 20));
    device.setDeviceInfo("modify_count", 7);
    device.getDeviceInfo("never_read"); // made empty by reading it

    const QString file = m_dir->filePath(QStringLiteral("device.json"));
    {
        QJsonSettings settings(file);
        settings.setValue(QStringLiteral("device"), device.save());
        settings.sync();
        QCOMPARE(settings.status(), QSettings::NoError);
    }
    // The bytes stand in the file as text of "0xHHh" groups.
    const QByteArray text = contentOf(file);
    QVERIFY2(text.contains("\"0xA0h 0xFFh 0x00h 0x7Fh 0x80h\""), text.constData());
    QVERIFY2(text.contains("\"0x05h 0x00h 0xFFh 0x00h 0x80h 0x00h\""), text.constData());

    // A second settings object on a copy: the first one caches the file.
    const QString copy = m_dir->filePath(QStringLiteral("copy.json"));
    QVERIFY(QFile::copy(file, copy));
    const QVariantMap map = QJsonSettings(copy).value(QStringLiteral("device")).toMap();
    QCOMPARE(map.value("enabled").toBool(), false);
    QCOMPARE(map.value("priority").toInt(), 3);

    Device loaded;
    QVERIFY(loaded.load(map));
    const QVariantMap info = loaded.deviceInfo();
    QCOMPARE(info.value("address").typeId(), int(QMetaType::QByteArray));
    QCOMPARE(info.value("address").toByteArray(), address);
    QCOMPARE(info.value("deviceID").toByteArray(), deviceId);
    QCOMPARE(info.value("vendorID").toByteArray(), vendor);
    QCOMPARE(info.value("expanded_device_type").toByteArray(), expanded);
    QCOMPARE(info.value("device_specific_status").typeId(), int(QMetaType::QByteArray));
    QCOMPARE(info.value("device_specific_status").toByteArray(), specific);
    QCOMPARE(loaded.hartAddress(), address);
    QCOMPARE(loaded.hartDeviceID(), deviceId);
    QCOMPARE(loaded.vendorID(), vendor);
    QCOMPARE(loaded.expandedDeviceType(), expanded);
    QVERIFY(loaded.isIdentified());
    // NaN and the infinities come back as 0.0.
    QVERIFY(info.value("PV").isValid());
    QCOMPARE(info.value("PV").toDouble(), 0.0);
    QCOMPARE(info.value("SV").toDouble(), 0.0);
    QCOMPARE(info.value("TV").toDouble(), 0.0);
    QCOMPARE(info.value("QV").toDouble(), 1.5);
    QCOMPARE(info.value("tag").toString(), QStringLiteral("TT-101"));
    QCOMPARE(info.value("descriptor").toString(), QStringLiteral("0x41h looks like a byte"));
    QCOMPARE(info.value("date").toDate(), QDate(2026, 5, 20));
    QCOMPARE(info.value("modify_count").toInt(), 7);
    QVERIFY(info.contains("never_read"));
    QVERIFY(!info.value("never_read").isValid());
    QCOMPARE(info.size(), device.deviceInfo().size());

    QCOMPARE(loaded.deviceTemplateName(), QStringLiteral("TCV-C"));
    QCOMPARE(loaded.address(), 7);
    QCOMPARE(loaded.pollingPeriod(), 2500);
    QCOMPARE(loaded.comment(), QStringLiteral("boiler"));
    QCOMPARE(loaded.variant(), QStringLiteral("v2"));
    QCOMPARE(loaded.measureInfo().value("period").toInt(), 500);
    QCOMPARE(loaded.measureInfo().value("archive").toBool(), true);
    QCOMPARE(loaded.name(), QStringLiteral("TCV-C_{TT-101}"));
    // Written, but a plain load leaves them at their defaults.
    QCOMPARE(loaded.isEnabled(), true);
    QCOMPARE(loaded.priority(), 10);

    // And the loaded device writes what it read.
    QCOMPARE(loaded.save().value("parameters").toMap().value("address").toString(),
             QStringLiteral("0xA0h 0xFFh 0x00h 0x7Fh 0x80h"));
}

void TestDevice::enabledAndPriorityReadOnlyBySettings()
{
    const QVariantMap map = {{"name", "Boiler"},      {"enabled", false},     {"priority", 4},
                             {"polling_period", 700}, {"polling_address", 9}, {"producer", "ACME"},
                             {"comment", "hot"},      {"template", "Other"},  {"parameters", QVariantMap{{"x", 1}}}};
    Device loaded;
    QVERIFY(loaded.load(map));
    QCOMPARE(loaded.isEnabled(), true);
    QCOMPARE(loaded.priority(), 10);
    QCOMPARE(loaded.producer(), QStringLiteral("ACME"));

    Device settings;
    settings.loadDeviceSettings(map);
    QCOMPARE(settings.isEnabled(), false);
    QCOMPARE(settings.priority(), 4);
    QCOMPARE(settings.pollingPeriod(), 700);
    QCOMPARE(settings.address(), 9);
    QCOMPARE(settings.producer(), QStringLiteral("ACME"));
    QCOMPARE(settings.comment(), QStringLiteral("hot"));
    QCOMPARE(settings.name(), QStringLiteral("Boiler"));
    // Only those: template and parameters stay.
    QCOMPARE(settings.deviceTemplateName(), QString());
    QVERIFY(settings.deviceInfo().isEmpty());
}

void TestDevice::malformedConfiguration_data()
{
    QTest::addColumn<QVariantMap>("map");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QVariantMap>("expected");

    const QVariant null = QVariant::fromValue(nullptr);
    QTest::newRow("empty object") << QVariantMap() << true
                                  << QVariantMap{{"address", 4},
                                                 {"polling_period", 1000},
                                                 {"comment", "old"},
                                                 {"template", "Old"},
                                                 {"param:tag", "T1"}};
    QTest::newRow("parameters as text") << QVariantMap{{"parameters", "abc"}, {"polling_period", 1500}} << false
                                        << QVariantMap{{"polling_period", 1500}, {"param:tag", "T1"}};
    QTest::newRow("parameters as list") << QVariantMap{{"parameters", QVariantList{1, 2}}} << false
                                        << QVariantMap{{"param:tag", "T1"}};
    QTest::newRow("polling address as text") << QVariantMap{{"polling_address", "abc"}, {"comment", "new"}} << false
                                             << QVariantMap{{"address", 4}, {"comment", "new"}};
    QTest::newRow("polling address as a number in text")
        << QVariantMap{{"polling_address", "12"}} << true << QVariantMap{{"address", 12}};
    QTest::newRow("polling period as object")
        << QVariantMap{{"polling_period", QVariantMap()}} << false << QVariantMap{{"polling_period", 1000}};
    QTest::newRow("template as list") << QVariantMap{{"template", QVariantList{1}}, {"comment", "new"}} << false
                                      << QVariantMap{{"template", "Old"}, {"comment", "new"}};
    QTest::newRow("measure info as number")
        << QVariantMap{{"measure_info", 5}} << false << QVariantMap{{"measure", QVariantMap{{"a", 1}}}};
    QTest::newRow("comment null") << QVariantMap{{"comment", null}} << false << QVariantMap{{"comment", "old"}};
    QTest::newRow("device id as number") << QVariantMap{{"parameters", QVariantMap{{"deviceID", 5}, {"tag", "T2"}}}}
                                         << false << QVariantMap{{"hartDeviceID", QByteArray()}, {"param:tag", "T2"}};
    QTest::newRow("address not in byte text")
        << QVariantMap{{"parameters", QVariantMap{{"address", "11 2a 00 2a 01"}, {"tag", "T2"}}}} << false
        << QVariantMap{{"hartAddress", QByteArray()}, {"param:tag", "T2"}};
    QTest::newRow("address in byte text, lower case")
        << QVariantMap{{"parameters", QVariantMap{{"address", "0x11h 0x2ah 0x00h 0x2ah 0x01h"}}}} << true
        << QVariantMap{{"hartAddress", hx("112a002a01")}};
    QTest::newRow("null parameter") << QVariantMap{{"parameters", QVariantMap{{"PV", null}}}} << true
                                    << QVariantMap{{"param:PV", QVariant()}};
}

void TestDevice::malformedConfiguration()
{
    QFETCH(QVariantMap, map);
    QFETCH(bool, result);
    QFETCH(QVariantMap, expected);

    Device device;
    device.setAddress(4);
    device.setComment(QStringLiteral("old"));
    device.setDeviceTemplateName(QStringLiteral("Old"));
    device.setDeviceInfo(QStringLiteral("tag"), QStringLiteral("T1"));
    device.setMeasureInfo({{"a", 1}});

    QCOMPARE(device.load(map), result);
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        const QVariant actual = probe(device, it.key());
        QVERIFY2(actual == it.value(), qPrintable(QStringLiteral("%1: %2").arg(it.key(), actual.toString())));
    }
}

void TestDevice::unreadableFileLosesNothing()
{
    const QString file = m_dir->filePath(QStringLiteral("broken.json"));
    {
        QFile broken(file);
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write("{ \"device\": { \"name\": ");
    }
    Device device;
    device.setDeviceInfo(QStringLiteral("tag"), QStringLiteral("T1"));
    device.setPollingPeriod(1500);
    const QVariantMap map = QJsonSettings(file).value(QStringLiteral("device")).toMap();
    QVERIFY(map.isEmpty());
    QVERIFY(device.load(map));
    QCOMPARE(device.getDeviceInfoString(QStringLiteral("tag")), QStringLiteral("T1"));
    QCOMPARE(device.pollingPeriod(), 1500);
}

void TestDevice::tagStateStrings_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("shortText");
    QTest::addColumn<QString>("longText");

    QTest::newRow("none") << 1 << QString() << QStringLiteral("from file");
    QTest::newRow("zero") << 0 << QString() << QStringLiteral("from file");
    QTest::newRow("read") << (1 | 4) << QStringLiteral("[>]") << QStringLiteral("form device");
    QTest::newRow("changed") << 2 << QStringLiteral("[*]") << QStringLiteral("from file / changed");
    QTest::newRow("written") << 8 << QStringLiteral("[<]") << QStringLiteral("from file / saved in device");
    QTest::newRow("polled") << 16 << QStringLiteral("[@]") << QStringLiteral("from file / periodically requested");
    QTest::newRow("archived") << 64 << QStringLiteral("[!]") << QStringLiteral("from file");
    QTest::newRow("all") << (1 | 2 | 4 | 8 | 16 | 64) << QStringLiteral("[>*<@!]")
                         << QStringLiteral("form device / changed / saved in device / periodically requested");
    QTest::newRow("read and written") << (4 | 8) << QStringLiteral("[><]")
                                      << QStringLiteral("form device / saved in device");
}

void TestDevice::tagStateStrings()
{
    QFETCH(int, state);
    QFETCH(QString, shortText);
    QFETCH(QString, longText);

    Device device;
    device.setDeviceTagState(state);
    QCOMPARE(device.deviceTagsStateToShortString(), shortText);
    QCOMPARE(device.deviceTagsStateToLongString(), longText);
}

void TestDevice::checkOffDeviceForgetsIdentity()
{
    Device device;
    device.load({{"parameters", QVariantMap{{"address", "0x11h 0x2Ah 0x00h 0x2Ah 0x01h"},
                                            {"deviceID", "0x00h 0x2Ah 0x01h"},
                                            {"tag", "PT-1"}}}});
    QVERIFY(device.isIdentified());
    device.setDeviceTagState(4 | 8);
    device.updateState(5);
    QCOMPARE(device.state(), 3);
    device.checkOffDevice();
    QVERIFY(!device.isIdentified());
    QCOMPARE(device.hartAddress(), QByteArray());
    QCOMPARE(device.deviceInfo().value("address").toByteArray(), QByteArray());
    QCOMPARE(device.deviceInfo().value("deviceID").toByteArray(), QByteArray());
    QCOMPARE(device.deviceInfo().value("tag").toString(), QStringLiteral("PT-1"));
    QCOMPARE(device.deviceTagState(), 1);
    QCOMPARE(device.state(), 1);
    QCOMPARE(device.errorCode(), 1);
    QCOMPARE(device.errorCount(), 0);
}

void TestDevice::names()
{
    Server server;
    Port* port = server.addPort(QStringLiteral("P1"));
    Device* first = port->addDevice(QStringLiteral("D1"), QStringLiteral("Custom"), -1);
    Device* second = port->addDevice(QStringLiteral("D2"), QStringLiteral("Custom"), -1);
    second->setAddress(3);
    second->updateDeviceName();
    QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));

    // The tag wins over the address.
    first->setDeviceInfo(QStringLiteral("tag"), QStringLiteral("PT-1"));
    first->updateDeviceName();
    QCOMPARE(first->name(), QStringLiteral("Custom_{PT-1}"));
    // A name a sibling holds is not taken.
    second->setDeviceInfo(QStringLiteral("tag"), QStringLiteral("PT-1"));
    second->updateDeviceName();
    QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));

    QVERIFY(!second->setDeviceName(QStringLiteral("Custom_{PT-1}"), false));
    QVERIFY(!second->setDeviceName(QString(), false));
    QVERIFY(second->setDeviceName(QStringLiteral("Feed"), true));
    QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));
    QVERIFY(second->setDeviceName(QStringLiteral("Feed"), false));
    QCOMPARE(second->name(), QStringLiteral("Feed"));
    QCOMPARE(port->device(QStringLiteral("Feed")), second);

    second->setDeviceInfo(QStringLiteral("descriptor"), QStringLiteral("feed pump"));
    second->setCommentFromDeviceInfo(QStringLiteral("descriptor"));
    QCOMPARE(second->comment(), QStringLiteral("feed pump"));

    QSignalSpy spy(second, &Device::deviceTemplateChanged);
    second->setDeviceTemplateName(QStringLiteral("QP-1C"));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().at(0).toString(), QStringLiteral("QP-1C"));
    QCOMPARE(second->deviceTemplateName(), QStringLiteral("QP-1C"));
}

void TestDevice::loadFromTemplateKeepsIdentity()
{
    Server server;
    Port* port = server.addPort(QStringLiteral("P1"));
    Device* device = port->addDevice(QStringLiteral("D1"), QStringLiteral("Custom"), -1);
    device->setAddress(5);
    device->setPollingPeriod(3000);
    device->setEnabled(false);
    device->setPriority(2);
    device->setComment(QStringLiteral("mine"));
    device->setName(QStringLiteral("Live"));

    const QVariantMap templ = {
        {"name", "Template"},         {"polling_address", 0},
        {"polling_period", 1000},     {"template", "QP-1C"},
        {"comment", "from template"}, {"parameters", QVariantMap{{"range_max", 250.0}, {"tag", "TPL"}}}};
    QVERIFY(device->loadFromTemplate(templ));
    QCOMPARE(device->name(), QStringLiteral("Live"));
    QCOMPARE(device->address(), 5);
    QCOMPARE(device->pollingPeriod(), 3000);
    QCOMPARE(device->isEnabled(), false);
    QCOMPARE(device->priority(), 2);
    QCOMPARE(device->comment(), QStringLiteral("mine"));
    QCOMPARE(device->deviceTemplateName(), QStringLiteral("QP-1C"));
    QCOMPARE(device->deviceInfo().value("range_max").toDouble(), 250.0);
    QCOMPARE(device->deviceInfo().value("tag").toString(), QStringLiteral("TPL"));

    QVERIFY(!device->loadFromTemplate({{"template", 5}}));
    QCOMPARE(device->name(), QStringLiteral("Live"));
    QCOMPARE(device->deviceTemplateName(), QStringLiteral("QP-1C"));
}

void TestDevice::unitCodeTexts_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("classCode");
    QTest::addColumn<QString>("text");

    QTest::newRow("1") << 1 << 0 << "inchWS";
    QTest::newRow("7") << 7 << 0 << "bar";
    QTest::newRow("10") << 10 << 0 << "kgf/sm2";
    QTest::newRow("12") << 12 << 0 << "kPa";
    QTest::newRow("12, class outside the range does not matter") << 12 << 73 << "kPa";
    QTest::newRow("32 degree sign") << 32 << 0
                                    << QString::fromLatin1("\xB0"
                                                           "C");
    QTest::newRow("37") << 37 << 0 << "Om";
    QTest::newRow("57") << 57 << 0 << "%";
    QTest::newRow("59") << 59 << 0 << "pH";
    QTest::newRow("67") << 67 << 0 << "mcS/cm";
    QTest::newRow("135") << 135 << 0 << "bbls/day";
    QTest::newRow("163") << 163 << 0 << "kOm";
    QTest::newRow("169") << 169 << 0 << "ppb";
    QTest::newRow("237") << 237 << 0 << "MPa";
    QTest::newRow("3 not listed") << 3 << 0 << "?";
    QTest::newRow("0 not listed") << 0 << 0 << "?";
    QTest::newRow("250 not listed") << 250 << 0 << "?";
    QTest::newRow("170 without class") << 170 << 0 << "?";
    QTest::newRow("170 mass per volume") << 170 << 73 << "mg/l";
    QTest::newRow("170 resistance") << 170 << 85 << "MOm";
    QTest::newRow("171 resistance") << 171 << 85 << "?";
    QTest::newRow("170 turbidity") << 170 << 97 << "FNU";
    QTest::newRow("171 turbidity") << 171 << 97 << "FTU";
    QTest::newRow("172 turbidity") << 172 << 97 << "NTU";
    QTest::newRow("173 turbidity") << 173 << 97 << "?";
    QTest::newRow("219 mass per volume") << 219 << 73 << "?";
    QTest::newRow("220") << 220 << 73 << "?";
}

void TestDevice::unitCodeTexts()
{
    QFETCH(int, unit);
    QFETCH(int, classCode);
    QFETCH(QString, text);
    QCOMPARE(Device::getUnitCodeText(unit, classCode), text);
}

void TestDevice::unitTextsOfTheMap()
{
    Device device;
    device.setDeviceInfo("PV_unit_code", 170);
    device.setDeviceInfo("PV_class_code", 97);
    device.setDeviceInfo("SV_unit_code", 32);
    device.setDeviceInfo("SV_class_code", 64);
    device.setDeviceInfo("TV_unit_code", 170);
    device.setDeviceInfo("TV_class_code", 73);
    device.setDeviceInfo("QV_unit_code", 170);
    device.setDeviceInfo("calibrate_unit_code", 170);
    QCOMPARE(device.getPVUnitCodeText(), QStringLiteral("FNU"));
    QCOMPARE(device.getSVUnitCodeText(), QString::fromLatin1("\xB0"
                                                             "C"));
    QCOMPARE(device.getTVUnitCodeText(), QStringLiteral("mg/l"));
    QCOMPARE(device.getQVUnitCodeText(), QStringLiteral("?"));
    // The calibration unit is looked up with class 0.
    QCOMPARE(device.getCalibrateUnitCodeText(), QStringLiteral("?"));
    device.setDeviceInfo("calibrate_unit_code", 39);
    QCOMPARE(device.getCalibrateUnitCodeText(), QStringLiteral("mA"));
}

void TestDevice::classificationTexts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "Not Classified";
    QTest::newRow("64") << 64 << "Temperature";
    QTest::newRow("65") << 65 << "Pressure";
    QTest::newRow("73") << 73 << "Mass Per Volume";
    QTest::newRow("77") << 77 << "Energy (Work)";
    QTest::newRow("85") << 85 << "Resistance";
    QTest::newRow("95") << 95 << "Coriolis Flow";
    QTest::newRow("96 not listed") << 96 << "?";
    QTest::newRow("97") << 97 << "Turbidity";
    QTest::newRow("250") << 250 << "Not used";
    QTest::newRow("1") << 1 << "?";
    QTest::newRow("63") << 63 << "?";
}

void TestDevice::classificationTexts()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    QCOMPARE(Device::getClassificationText(code), text);
}

void TestDevice::familyTexts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "Reserved";
    QTest::newRow("3") << 3 << "Reserved";
    QTest::newRow("4") << 4 << "Temperature";
    QTest::newRow("6") << 6 << "Valve / Actuator";
    QTest::newRow("8") << 8 << "pH";
    QTest::newRow("14") << 14 << "Coriolis Flow";
    QTest::newRow("15") << 15 << "?";
    QTest::newRow("131") << 131 << "?";
    QTest::newRow("132") << 132 << "Reserved";
    QTest::newRow("249") << 249 << "Reserved";
    QTest::newRow("250") << 250 << "Not Used";
    QTest::newRow("251") << 251 << "?";
}

void TestDevice::familyTexts()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    QCOMPARE(Device::getFamilyText(code), text);
}

void TestDevice::variableStatusTexts_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");
    QTest::newRow("0x00") << 0x00 << "Bad | Not Limited";
    QTest::newRow("0xC0") << 0xC0 << "Good | Not Limited";
    QTest::newRow("0x40") << 0x40 << "Poor Accuracy | Not Limited";
    QTest::newRow("0x90") << 0x90 << "Manual/Fixed | Low Limited";
    QTest::newRow("0xE0") << 0xE0 << "Good | High Limited";
    QTest::newRow("0x3F") << 0x3F << "Bad | Constant";
}

void TestDevice::variableStatusTexts()
{
    QFETCH(int, status);
    QFETCH(QString, text);
    QCOMPARE(Device::getDeviceVariableStatusText(status), text);
}

void TestDevice::alarmSelectionTexts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "High";
    QTest::newRow("1") << 1 << "Low";
    QTest::newRow("2") << 2 << "?";
    QTest::newRow("239") << 239 << "Hold Last Output Value";
    QTest::newRow("240") << 240 << "Manufacturer Specific";
    QTest::newRow("249") << 249 << "Manufacturer Specific";
    QTest::newRow("250") << 250 << "Not Used";
    QTest::newRow("251") << 251 << "None";
    QTest::newRow("252") << 252 << "Unknown";
    QTest::newRow("253") << 253 << "Special";
    QTest::newRow("254") << 254 << "?";
}

void TestDevice::alarmSelectionTexts()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    QCOMPARE(Device::getPVAlarmSelectionText(code), text);
}

void TestDevice::snapshotsUndoEachOther()
{
    Device device;
    device.setDeviceTemplateName(QStringLiteral("Custom"));
    device.setDeviceInfo("range_max", 100.0);
    device.setDeviceTagState(1 | 4);
    QVERIFY(!device.hasBackup());
    QVERIFY(!device.hasRollback());

    device.backupTags();
    QVERIFY(device.hasBackup());
    QVERIFY(!device.hasRollback());

    device.setDeviceInfo("range_max", 250.0);
    device.setComment(QStringLiteral("edited"));
    device.setDeviceTagState(1 | 2);

    device.restoreTags();
    QVERIFY(device.hasRollback());
    QCOMPARE(device.deviceInfo().value("range_max").toDouble(), 100.0);
    QCOMPARE(device.comment(), QString());
    QCOMPARE(device.deviceTagState(), 1 | 4);

    device.rollbackTags();
    QCOMPARE(device.deviceInfo().value("range_max").toDouble(), 250.0);
    QCOMPARE(device.comment(), QStringLiteral("edited"));
    QCOMPARE(device.deviceTagState(), 1 | 2);

    device.restoreTags();
    QCOMPARE(device.deviceInfo().value("range_max").toDouble(), 100.0);
    QCOMPARE(device.deviceTagState(), 1 | 4);

    // A new backup forgets the rollback.
    device.backupTags();
    QVERIFY(!device.hasRollback());
    device.setDeviceInfo("range_max", 7.0);
    device.rollbackTags();
    QCOMPARE(device.deviceInfo().value("range_max").toDouble(), 7.0);
}

void TestDevice::deviceAndFileSnapshots()
{
    Device device;
    device.setDeviceInfo("tag", QStringLiteral("FROM-DEV"));
    device.setDeviceTagState(4);
    QVERIFY(!device.hasDeviceData());
    device.backupTagsInDeviceData();
    QVERIFY(device.hasDeviceData());

    device.setDeviceInfo("tag", QStringLiteral("FROM-FILE"));
    device.setDeviceTagState(1);
    QVERIFY(!device.hasFileData());
    device.backupTagsInFileData();
    QVERIFY(device.hasFileData());

    device.setDeviceInfo("tag", QStringLiteral("EDITED"));
    device.setDeviceTagState(2);

    device.restoreTagsFromDeviceData();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("FROM-DEV"));
    QCOMPARE(device.deviceTagState(), 4);
    // What stood before went to the backup.
    device.restoreTags();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("EDITED"));
    QCOMPARE(device.deviceTagState(), 2);

    device.restoreTagsFromFileData();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("FROM-FILE"));
    QCOMPARE(device.deviceTagState(), 1);

    device.clearFileData();
    QVERIFY(!device.hasFileData());
    device.setDeviceInfo("tag", QStringLiteral("AGAIN"));
    device.restoreTagsFromFileData();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("AGAIN"));
}

void TestDevice::pasteFromClipboard()
{
    Device device;
    device.setDeviceInfo("tag", QStringLiteral("OLD"));
    device.setDeviceTagState(4);
    QSignalSpy modified(&device, &ServerItem::modified);

    Device source;
    source.setDeviceInfo("tag", QStringLiteral("COPIED"));
    source.setDeviceInfo("range_max", 42.0);
    QVERIFY(device.pasteFromClipboard(source.save()));
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("COPIED"));
    QCOMPARE(device.deviceTagState(), 4 | 2);
    QCOMPARE(modified.size(), 1);

    // The paste is undone from the backup it made.
    device.restoreTags();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("OLD"));
    QCOMPARE(device.deviceTagState(), 4);

    // Something that is no device is refused and not marked.
    QVERIFY(!device.pasteFromClipboard({{"parameters", "not a map"}}));
    QCOMPARE(modified.size(), 1);
    QCOMPARE(device.deviceTagState(), 4);
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("OLD"));
}

void TestDevice::deviceInfoBackup()
{
    Device device;
    device.setDeviceInfo("address", hx("112a002a01"));
    device.setDeviceInfo("tag", QStringLiteral("PT-1"));
    device.setDeviceInfo("range_max", 100.0);
    device.backupDeviceInfo();

    device.removeDeviceInfo("tag");
    device.setDeviceInfo("range_max", 50.0);
    device.checkAndRestoreDeviceInfo();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("PT-1"));
    // Only missing keys come back.
    QCOMPARE(device.deviceInfo().value("range_max").toDouble(), 50.0);

    // Another device at the address: nothing is taken from the backup.
    device.removeDeviceInfo("tag");
    device.setDeviceInfo("address", hx("112a002a02"));
    device.checkAndRestoreDeviceInfo();
    QVERIFY(!device.hasDeviceInfoParam("tag"));
}

void TestDevice::valuesInDeviceData()
{
    Device device;
    device.setDeviceInfo("tag", QStringLiteral("PT-1"));
    device.backupTagsInDeviceData();
    // Devices save no "tags": nothing is found and nothing changes.
    QVERIFY(!device.valueFromDeviceData(QStringLiteral("tag")).isValid());
    device.setValueInDeviceData(QStringLiteral("tag"), QStringLiteral("X"));
    QVERIFY(!device.valueFromDeviceData(QStringLiteral("tag")).isValid());
    device.restoreTagsFromDeviceData();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("PT-1"));
}

void TestDevice::saveCmd48Responce()
{
    Device device;
    const QByteArray response = hx("05813300000003001600000000000000000000000000000000");
    device.saveCmd48Responce(response);
    QCOMPARE(device.deviceInfo().value("error_code"), QVariant(5));
    QCOMPARE(device.deviceInfo().value("ADC_flags"), QVariant(0x81));
    QCOMPARE(device.deviceInfo().value("EEPROM_flags"), QVariant(0x33));
    QCOMPARE(device.deviceInfo().value("device_specific_status").toByteArray(), hx("058133000000"));
    QCOMPARE(device.deviceInfo().value("extended_status"), QVariant(3));
    QCOMPARE(device.deviceInfo().value("standart_status_0"), QVariant(0x16));
    QCOMPARE(device.cmd48Data(), response);

    // A short answer gives 0 for what is missing.
    device.saveCmd48Responce(hx("07"));
    QCOMPARE(device.deviceInfo().value("error_code"), QVariant(7));
    QCOMPARE(device.deviceInfo().value("extended_status"), QVariant(0));
    QCOMPARE(device.deviceInfo().value("standart_status_0"), QVariant(0));
    QCOMPARE(device.deviceInfo().value("device_specific_status").toByteArray(), hx("07"));
}

void TestDevice::additionalStatusTexts_data()
{
    QTest::addColumn<QString>("templateName");
    QTest::addColumn<QByteArray>("status48");
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing") << "Custom" << hx("000000000000000000") << QString();
    QTest::newRow("ADC error code") << "Custom" << hx("050000000000000000") << "\n--- Device ADC error code: 5";
    QTest::newRow("ADC overload") << "Custom" << hx("008100000000000000") << "\n--- The ADC is overloaded. Flags: 0x81";
    QTest::newRow("EEPROM bits") << "Custom" << hx("000033000000000000")
                                 << "\n--- Error of writing configuration to EEPROM."
                                    "\n--- Device configuration is restored (from the secondary page)."
                                    "\n--- Error of writing the device HART_UID to the EEPROM"
                                    "\n--- Factory device number is restored (from the sub-page).";
    QTest::newRow("EEPROM bit 0x04 has no text") << "Custom" << hx("000004000000000000") << QString();
    QTest::newRow("extended status") << "Custom" << hx("000000000000030000")
                                     << "\n--- Device requires maintenance."
                                        "\n--- Device variable is in an Alarm state.";
    QTest::newRow("standardized status 0") << "Custom" << hx("000000000000000016")
                                           << "\n--- Non-Volatile Memory Defect."
                                              "\n--- Volatile Memory Defect."
                                              "\n--- Voltage Conditions Out of Range.";
    QTest::newRow("vendor fields in order") << "Custom" << hx("0A0201000000010002")
                                            << "\n--- Device ADC error code: 10"
                                               "\n--- The ADC is overloaded. Flags: 0x02"
                                               "\n--- Error of writing configuration to EEPROM."
                                               "\n--- Device requires maintenance."
                                               "\n--- Non-Volatile Memory Defect.";
    QTest::newRow("General shows the raw bytes") << "General" << hx("0A0201000000010002")
                                                 << "\n--- Device specific status: 0A 02 01 00 00 00"
                                                    "\n--- Device requires maintenance."
                                                    "\n--- Non-Volatile Memory Defect.";
    QTest::newRow("General with zero bytes")
        << "General" << hx("000000000000020000") << "\n--- Device variable is in an Alarm state.";
    QTest::newRow("a name containing General")
        << "General HART 7" << hx("000000000005000000") << "\n--- Device specific status: 00 00 00 00 00 05";
}

void TestDevice::additionalStatusTexts()
{
    QFETCH(QString, templateName);
    QFETCH(QByteArray, status48);
    QFETCH(QString, text);

    Device device;
    device.setDeviceTemplateName(templateName);
    device.saveCmd48Responce(status48);
    QSignalSpy status(&device, &Device::deviceStatus);
    // Without a request and without the flag: the texts of what is held.
    QVERIFY(device.checkAdditionalStatus(false, false));
    QCOMPARE(device.additionalStatusText(), text);
    if (text.isEmpty()) {
        QCOMPARE(status.size(), 0);
        QVERIFY(device.messageLog().isEmpty());
    } else {
        QCOMPARE(status.size(), 1);
        QCOMPARE(status.first().at(0).toString(), QStringLiteral("Additional status info:") + text);
        QCOMPARE(device.messageLog(), QList<QString>({QStringLiteral("Additional status info:") + text}));
    }
}

// ---------------------------------------------------------------------------
// Exchanges

void TestDevice::identifyByAddress()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}, {"device_id", 0x123456}, {"tag", "PT-1"}}}}));
    Device* device = addDevice(0);
    QSignalSpy errors(device, &Device::deviceError);
    QVERIFY(device->readDevice(0));
    QCOMPARE(device->hartAddress(), hx("112a123456"));
    QCOMPARE(device->hartDeviceID(), hx("123456"));
    QCOMPARE(device->vendorID(), hx("0011"));
    QCOMPARE(device->expandedDeviceType(), hx("112a"));
    QCOMPARE(device->deviceInfo().value("universal_cmd_version").toInt(), 7);
    QCOMPARE(device->deviceInfo().value("address").toByteArray(), hx("112a123456"));
    QCOMPARE(device->state(), 2);
    QCOMPARE(device->errorCode(), 1);
    QCOMPARE(errors.size(), 0);
    QCOMPARE(device->serialSettings().name, m_sim.path());

    const QString config = m_port->configName();
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Try to check")),
             QStringList({QStringLiteral("Try to check Custom_{0} at address 0 via %1 ...").arg(config)}));
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Checked")),
             QStringList({QStringLiteral("Checked successfully - Custom_{0} (11 2A 12 34 56 12 34 56 exts:00)!")}));
    const hartsim::RequestRecord record = m_sim.record(1);
    QCOMPARE(int(record.command), 0);
    QCOMPARE(record.address, hx("80"));

    // Later frames go to the long address.
    QVERIFY(device->readDevice(1));
    QCOMPARE(m_sim.record(2).address, hx("912a123456"));
}

void TestDevice::identifyFailsAtEmptyAddress()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(9);
    QSignalSpy errors(device, &Device::deviceError);
    QVERIFY(!device->readDevice(0));
    QVERIFY(!device->isIdentified());
    QCOMPARE(device->state(), 3);
    QCOMPARE(device->errorCode(), 4);
    QVERIFY(!device->errorText().isEmpty());
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Get device ID by cmd 0 error:")).size(), 1);
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().at(0).toString().startsWith(QStringLiteral("error 4 executing cmd=0 - ")));
    QVERIFY(!errors.first().at(0).toString().contains(QLatin1Char('\n')));
}

void TestDevice::identifyByTag()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}, {"tag", "PT-1"}}},
                       {"generic", {{"polling_address", 1}, {"device_id", 0x000777}, {"tag", "TT-101"}}}}));
    Device* device = addDevice(0);
    device->setDeviceInfo("tag", QStringLiteral("TT-101"));
    QVERIFY(device->writeDevice(11));
    QCOMPARE(device->hartAddress(), hx("112a000777"));
    QCOMPARE(device->hartDeviceID(), hx("000777"));
    const hartsim::RequestRecord record = m_sim.record(1);
    QCOMPARE(int(record.command), 11);
    QCOMPARE(record.address, hx("8000000000"));
    QCOMPARE(record.data, hx("514b71c31820"));
    QCOMPARE(
        linesStartingWith(*device, QStringLiteral("Try to check")),
        QStringList(
            {QStringLiteral("Try to check %1 by tag 'TT-101' via %2 ...").arg(device->name(), m_port->configName())}));

    // A tag nobody has.
    Device* other = addDevice(2);
    other->setDeviceInfo("tag", QStringLiteral("NONE"));
    QVERIFY(!other->writeDevice(11));
    QVERIFY(!other->isIdentified());
    QCOMPARE(other->state(), 3);
    QCOMPARE(linesStartingWith(*other, QStringLiteral("Get device ID by cmd 11 error:")).size(), 1);
}

void TestDevice::identifyByTagRefusesLowerCase()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}, {"tag", "PT-1"}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(0));
    device->setDeviceInfo("tag", QStringLiteral("pt-1"));
    QSignalSpy errors(device, &Device::deviceError);
    const int before = int(device->messageLog().size());
    QVERIFY(!device->writeDevice(11));
    QCOMPARE(device->errorText(), QStringLiteral("Invalid chars in device tag!"));
    QCOMPARE(device->state(), 3);
    QVERIFY(device->errorCode() != 1);
    QCOMPARE(errors.size(), 1);
    // Nothing went out, so no traces and no status of the earlier exchange.
    QCOMPARE(device->messageLog().mid(before),
             QList<QString>(
                 {QStringLiteral("Try to check %1 by tag 'pt-1' via %2 ...").arg(device->name(), m_port->configName()),
                  QStringLiteral("Get device ID by cmd 11 error: Invalid chars in device tag!")}));
    QCOMPARE(device->statusBytes(), QByteArray());
    QCOMPARE(served(device, 1), QList<int>({0, 16}));
}

void TestDevice::identifyByLongTag()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}, {"long_tag", "Pump one"}}},
                       {"generic", {{"polling_address", 1}, {"device_id", 0x000888}, {"long_tag", "Pump two"}}}}));
    Device* device = addDevice(0);
    device->setDeviceInfo("long_tag", QStringLiteral("Pump two"));
    QVERIFY(device->writeDevice(21));
    QCOMPARE(device->hartAddress(), hx("112a000888"));
    const hartsim::RequestRecord record = m_sim.record(1);
    QCOMPARE(int(record.command), 21);
    QCOMPARE(record.data, QByteArray("Pump two") + QByteArray(24, '\0'));
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Try to check")),
             QStringList({QStringLiteral("Try to check %1 by long tag 'Pump two' via %2 ...")
                              .arg(device->name(), m_port->configName())}));
}

void TestDevice::identifyBy73()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}}},
                       {"generic", {{"polling_address", 4}, {"device_id", 0x000999}, {"button_pressed", true}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(73));
    QCOMPARE(device->hartAddress(), hx("112a000999"));
    QCOMPARE(device->hartDeviceID(), hx("000999"));
    QCOMPARE(device->deviceInfo().value("deviceID").toByteArray(), hx("000999"));
    QCOMPARE(int(m_sim.record(1).command), 73);
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Try to check")),
             QStringList({QStringLiteral("Try to check %1 via %2 ...").arg(device->name(), m_port->configName())}));
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Checked successfully")),
             QStringList({QStringLiteral("Checked successfully - 11 2A 00 09 99!")}));
}

void TestDevice::readHoldsTheSemaphore()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(0));
    QCOMPARE(m_port->semaphore().available(), 1);

    // Every line of the exchange is logged while the permit is held.
    QList<int> permits;
    QStringList lines;
    const QMetaObject::Connection connection = connect(
        device, &Device::modbusMessage, this,
        [&](int, const QString& line) {
            lines << line;
            permits << m_port->semaphore().available();
        },
        Qt::DirectConnection);
    QByteArray response;
    QCOMPARE(device->read(QStringLiteral("PV"), 1, response), 1);
    QCOMPARE(m_port->semaphore().available(), 1);
    QVERIFY(lines.size() >= 3);
    QCOMPARE(permits, QList<int>(lines.size(), 0));

    // A failed exchange gives the permit back too.
    lines.clear();
    permits.clear();
    Fault silent;
    silent.kind = Fault::NoAnswer;
    m_sim.addFault(0, silent);
    QVERIFY(device->read(QStringLiteral("PV"), 1, response) != 1);
    QCOMPARE(m_port->semaphore().available(), 1);
    QVERIFY(!lines.isEmpty());
    QCOMPARE(permits, QList<int>(lines.size(), 0));
    disconnect(connection);
}

void TestDevice::readLogLines()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(0));
    const int before = int(device->messageLog().size());
    QByteArray response;
    QCOMPARE(device->read(QStringLiteral("PV"), 1, response), 1);
    const QList<QString> lines = device->messageLog().mid(before);
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), QStringLiteral("reading PV (cmd=1)...\n"));
    QVERIFY2(lines.at(1).contains(QLatin1String(" TX (")), qPrintable(lines.at(1)));
    QVERIFY2(lines.at(2).contains(QLatin1String(" RX (")), qPrintable(lines.at(2)));
    QCOMPARE(lines.at(3), QStringLiteral("Success (processing time: %1ms)").arg(device->processingTime()));
    QCOMPARE(response.size(), 5);
    QCOMPARE(device->statusBytes(), hx("0000"));
    QCOMPARE(device->state(), 2);
    QVERIFY(device->deviceTagState() & Device::TagStateRead);
    QVERIFY(!(device->deviceTagState() & Device::TagStateWritten));
}

void TestDevice::statusLinesOnlyWhenNonZero()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(0)); // takes the cold start
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Device status:")),
             QStringList({QStringLiteral("Device status: [00 20]")}));
    QSignalSpy status(device, &Device::deviceStatus);
    QVERIFY(device->readDevice(1));
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Device status:")).size(), 1);
    QCOMPARE(status.size(), 1);
    QCOMPARE(status.first().at(0).toString(), QString());
    QCOMPARE(status.first().at(1).toByteArray(), hx("0000"));

    // A write raises the configuration-changed flag: every answer now tells it.
    device->setDeviceInfo("damping_time", 2.0f);
    QVERIFY(device->writeDevice(34));
    status.clear();
    const int before = int(device->messageLog().size());
    QVERIFY(device->readDevice(1));
    const QList<QString> lines = device->messageLog().mid(before);
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines.at(3), QStringLiteral("Device status: [00 40]"));
    QCOMPARE(lines.at(4), QStringLiteral("*** Configuration changed"));
    QCOMPARE(status.size(), 1);
    QCOMPARE(status.first().at(0).toString(), QStringLiteral("*** Configuration changed"));
    QCOMPARE(status.first().at(1).toByteArray(), hx("0040"));
    QCOMPARE(device->statusTexts(), QStringList({"*** Configuration changed"}));
}

void TestDevice::writeLogLines_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QVariantMap>("request");
    QTest::addColumn<int>("spoilCode");
    QTest::addColumn<QString>("logLine");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("signalText");

    QTest::newRow("writing") << 34 << QVariantMap{{"damping_time", 75.0f}} << 0 << "writing damping value (cmd=34)...\n"
                             << "error -3 writing damping value - Command error (error code 3): *** last parameter "
                                "too large\nError (processing time: %1ms)"
                             << "error executing cmd=34 - Command error (error code 3): *** last parameter too large";
    QTest::newRow("reset: executing") << 42 << QVariantMap() << 6 << "reset device (cmd=42)...\n"
                                      << "error -3 executing reset device - Command error (error code 6): *** "
                                         "command not executed\nError (processing time: %1ms)"
                                      << "error executing cmd=42 - Command error (error code 6): *** command not "
                                         "executed";
    QTest::newRow("start: executing") << 41 << QVariantMap() << 32 << "start device self test (cmd=41)...\n"
                                      << "error -3 executing start device self test - Command error (error code "
                                         "32): *** device is busy\nError (processing time: %1ms)"
                                      << "error executing cmd=41 - Command error (error code 32): *** device is busy";
    QTest::newRow("get: no word") << 33 << QVariantMap{{"slot_0_code", 9}} << 0 << "get device variables (cmd=33)...\n"
                                  << "error -3 get device variables - Command error (error code 2): *** wrong "
                                     "choice\nError (processing time: %1ms)"
                                  << "error executing cmd=33 - Command error (error code 2): *** wrong choice";
}

void TestDevice::writeLogLines()
{
    QFETCH(int, command);
    QFETCH(QVariantMap, request);
    QFETCH(int, spoilCode);
    QFETCH(QString, logLine);
    QFETCH(QString, failure);
    QFETCH(QString, signalText);

    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(0));
    for (auto it = request.constBegin(); it != request.constEnd(); ++it)
        device->setDeviceInfo(it.key(), it.value());
    if (spoilCode != 0) {
        Fault refusal;
        refusal.kind = Fault::ResponseCode;
        refusal.command = command;
        refusal.code = spoilCode;
        m_sim.addFault(0, refusal);
    }
    QSignalSpy errors(device, &Device::deviceError);
    const int before = int(device->messageLog().size());
    QVERIFY(!device->writeDevice(command));
    const QList<QString> lines = device->messageLog().mid(before);
    QVERIFY(!lines.isEmpty());
    QCOMPARE(lines.first(), logLine);
    QCOMPARE(lines.last(), failure.arg(device->processingTime()));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).toString(), signalText);
    QCOMPARE(device->errorCode(), -3);
    QCOMPARE(device->state(), 3);
    QVERIFY(!(device->deviceTagState() & Device::TagStateWritten));
}

void TestDevice::failedReadAndClosePortOnError_data()
{
    QTest::addColumn<bool>("closeOnError");
    QTest::newRow("close port on error") << true;
    QTest::newRow("keep the port open") << false;
}

void TestDevice::failedReadAndClosePortOnError()
{
    QFETCH(bool, closeOnError);

    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(0);
    device->setClosePortOnError(closeOnError);
    QVERIFY(device->readDevice(0));
    QVERIFY(device->readDevice(1));
    QVERIFY(m_port->isOpened()); // a good exchange never closes it

    Fault silent;
    silent.kind = Fault::NoAnswer;
    silent.command = 1;
    m_sim.addFault(0, silent);
    QSignalSpy errors(device, &Device::deviceError);
    const QVariant pvBefore = device->deviceInfo().value("PV");
    QVERIFY(!device->readDevice(1));
    QCOMPARE(device->errorCode(), 4);
    QCOMPARE(device->state(), 3);
    QCOMPARE(device->errorText(), m_port->errorText());
    QVERIFY(!device->errorText().isEmpty());
    QCOMPARE(device->deviceInfo().value("PV"), pvBefore);
    QCOMPARE(device->statusBytes(), QByteArray());
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).toString(), QStringLiteral("error 4 executing cmd=1 - %1").arg(device->errorText()));
    QCOMPARE(device->messageLog().last(), QStringLiteral("error 4 reading 'PV' - %1\nError (processing time: %2ms)")
                                              .arg(device->errorText())
                                              .arg(device->processingTime()));
    QCOMPARE(m_port->isOpened(), !closeOnError);
    // The identity stays: the device did not answer, the line is there.
    QVERIFY(device->isIdentified());

    // And the next read goes through again.
    m_sim.line().clearFaults();
    QVERIFY(device->readDevice(1));
    QCOMPARE(device->state(), 2);
}

void TestDevice::portThatCannotOpen_data()
{
    QTest::addColumn<bool>("existingFile");
    QTest::addColumn<int>("code");
    QTest::newRow("no such file") << false << 3;
    QTest::newRow("a file that is no serial port") << true << 4;
}

void TestDevice::portThatCannotOpen()
{
    QFETCH(bool, existingFile);
    QFETCH(int, code);

    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(0));
    QVERIFY(device->isIdentified());
    device->setDeviceTagState(1 | 4);
    m_port->closeHart();

    const QString path = m_dir->filePath(QStringLiteral("no-modem"));
    if (existingFile) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a tty");
    }
    QVERIFY(m_port->setSerialName(path));
    QSignalSpy errors(device, &Device::deviceError);
    const int requests = m_sim.line().requestCount();
    QVERIFY(!device->readDevice(1));
    QCOMPARE(m_sim.line().requestCount(), requests);

    // The device lost its identity, and tells why.
    QVERIFY(!device->isIdentified());
    QCOMPARE(device->hartAddress(), QByteArray());
    QCOMPARE(device->deviceInfo().value("address").toByteArray(), QByteArray());
    QCOMPARE(device->deviceInfo().value("deviceID").toByteArray(), QByteArray());
    QCOMPARE(device->deviceTagState(), 1);
    QCOMPARE(device->state(), 3);
    QCOMPARE(device->errorCode(), code);
    QCOMPARE(device->errorText(), m_port->errorText());
    QCOMPARE(linesStartingWith(*device, QStringLiteral("error open port")),
             QStringList({QStringLiteral("error open port '%1' - %2").arg(path, m_port->errorText())}));
    QCOMPARE(errors.size(), 1);
    const QString signalText = errors.first().at(0).toString();
    QVERIFY(!signalText.contains(QLatin1Char('\n')));
    if (existingFile) {
        // The port's text has a line end: it is replaced in the signal.
        QVERIFY(m_port->errorText().contains(QLatin1Char('\n')));
        QCOMPARE(signalText, QStringLiteral("error 4 executing cmd=1 - %1")
                                 .arg(m_port->errorText().replace(QLatin1Char('\n'), QStringLiteral("d - "))));
        QVERIFY(signalText.contains(QStringLiteral("!d -  error code: ")));
    } else {
        QCOMPARE(signalText, QStringLiteral("error 3 executing cmd=1 - not such device '%1'").arg(path));
    }
}

void TestDevice::additionalStatusFromTheDevice_data()
{
    QTest::addColumn<QString>("templateName");
    QTest::addColumn<QString>("text");

    QTest::newRow("a model's device") << "Custom"
                                      << "\n--- Device ADC error code: 5"
                                         "\n--- The ADC is overloaded. Flags: 0x81"
                                         "\n--- Error of writing configuration to EEPROM."
                                         "\n--- Device configuration is restored (from the secondary page)."
                                         "\n--- Device requires maintenance."
                                         "\n--- Non-Volatile Memory Defect."
                                         "\n--- Volatile Memory Defect."
                                         "\n--- Voltage Conditions Out of Range.";
    QTest::newRow("General") << "General"
                             << "\n--- Device specific status: 05 81 03 00 00 00"
                                "\n--- Device requires maintenance."
                                "\n--- Non-Volatile Memory Defect."
                                "\n--- Volatile Memory Defect."
                                "\n--- Voltage Conditions Out of Range.";
}

void TestDevice::additionalStatusFromTheDevice()
{
    QFETCH(QString, templateName);
    QFETCH(QString, text);

    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(0, templateName);
    QVERIFY(device->readDevice(0));
    QVERIFY(device->readDevice(1));
    QCOMPARE(device->additionalStatusText(), QString());

    m_sim.setParam(0, "error_code", 5);
    m_sim.setParam(0, "ADC_flags", 0x81);
    m_sim.setParam(0, "EEPROM_flags", 0x03);
    m_sim.setParam(0, "extended_status", 0x01);
    m_sim.setParam(0, "standard_status_0", 0x16);
    QVERIFY(device->readDevice(1));
    QCOMPARE(device->cmd48Data().left(9), hx("058103000000010016"));
    // Command 1 tells of more status; 48 reads it, and 48 with the bytes read
    // acknowledges it.
    QCOMPARE(served(device, 5), QList<int>({0, 1, 1, 48, 48, 16}));
    const QList<hartsim::RequestRecord> log = m_sim.line().requests();
    QCOMPARE(log.at(3).data, QByteArray());
    QCOMPARE(log.at(4).data, device->cmd48Data());

    QCOMPARE(device->deviceInfo().value("error_code"), QVariant(5));
    QCOMPARE(device->deviceInfo().value("ADC_flags"), QVariant(0x81));
    QCOMPARE(device->deviceInfo().value("EEPROM_flags"), QVariant(3));
    QCOMPARE(device->deviceInfo().value("device_specific_status").toByteArray(), hx("058103000000"));
    QCOMPARE(device->deviceInfo().value("extended_status"), QVariant(1));
    QCOMPARE(device->deviceInfo().value("standart_status_0"), QVariant(0x16));
    QCOMPARE(device->additionalStatusText(), text);
    QVERIFY(device->messageLog().contains(QStringLiteral("Additional status info:") + text));
    // Acknowledged, and command 48 is no change of configuration.
    QCOMPARE(device->deviceInfo().value("modify_count").toInt(), 0);
    QVERIFY(device->readDevice(1));
    QCOMPARE(int(device->statusBytes().at(1)) & 0x10, 0);
    QCOMPARE(served(device, 7), QList<int>({0, 1, 1, 48, 48, 16, 1, 16}));
}

void TestDevice::alwaysAdditionalStatus()
{
    QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(0));
    QVERIFY(device->readDevice(3));
    device->setAlwaysAdditionalStatus(true);
    QVERIFY(device->readDevice(3));
    // Only command 3 asks every time.
    QVERIFY(device->readDevice(1));
    QCOMPARE(served(device, 5), QList<int>({0, 3, 3, 48, 1, 16}));
}

void TestDevice::hart5TakesTheReadAsAcknowledgement()
{
    QVERIFY(startLine({{"hart5", {{"polling_address", 0}, {"extended_status", 2}}}}));
    Device* device = addDevice(0);
    QVERIFY(device->readDevice(0));
    QVERIFY(device->readDevice(1));
    // The read of 48 clears the flag of an old device: no acknowledgement.
    QCOMPARE(served(device, 3), QList<int>({0, 1, 48, 16}));
    QCOMPARE(device->cmd48Data(), hx("000000000000020000"));
    QCOMPARE(device->additionalStatusText(), QStringLiteral("\n--- Device variable is in an Alarm state."));
}

QTEST_GUILESS_MAIN(TestDevice)
#include "tst_device.moc"
