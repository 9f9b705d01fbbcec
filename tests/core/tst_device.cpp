#include "debugqt.h"
#include "deviceline.h"
#include "scratchdir.h"

#include <QSignalSpy>
#include <QtTest>

#include <limits>

using hartsim::Fault;

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
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

Fault silence(int command = -1)
{
    Fault fault;
    fault.kind = Fault::NoAnswer;
    fault.command = command;
    return fault;
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
    void deviceInfoAccess();
    void names();
    void fileRoundTrip();
    void malformedConfiguration_data();
    void malformedConfiguration();
    void loadFromTemplateKeepsIdentity();
    void tagStateStrings();
    void checkOffDeviceForgetsIdentity();
    void codeTexts();
    void snapshots();
    void deviceInfoBackup();
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
    void readLogAndStatusLines();
    void writeLogLines_data();
    void writeLogLines();
    void failedReadAndClosePortOnError_data();
    void failedReadAndClosePortOnError();
    void portThatCannotOpen_data();
    void portThatCannotOpen();
    void additionalStatusFromTheDevice();
    void alwaysAdditionalStatus();
    void hart5TakesTheReadAsAcknowledgement();

private:
    // The line with one generic device at 0 and a device of the template
    // on it, identified.
    Device* identifiedOnLine(const QString& templateName = QStringLiteral("Custom"));

    ScratchDir m_dir;
    DeviceLine m_line;
};

void TestDevice::initTestCase()
{
    DebugQt::instance(0x8ED0007, nullptr);
}

void TestDevice::init()
{
    QVERIFY(m_dir.enter());
}

void TestDevice::cleanup()
{
    m_line.stop();
    m_dir.leave();
}

Device* TestDevice::identifiedOnLine(const QString& templateName)
{
    if (!m_line.start({{"generic", {{"polling_address", 0}}}}))
        return nullptr;
    Device* device = m_line.addDevice(0, templateName);
    return device->readDevice(0) ? device : nullptr;
}

// ---------------------------------------------------------------------------
// The core

void TestDevice::deviceInfoAccess()
{
    Device device;
    // Reading a missing key makes it, empty.
    QCOMPARE(device.getDeviceInfoFloat(QStringLiteral("range_max")), 0.0f);
    QVERIFY(device.hasDeviceInfoParam(QStringLiteral("range_max")));
    QVERIFY(!device.deviceInfo().value(QStringLiteral("range_max")).isValid());
    QCOMPARE(device.getDeviceInfoByte(QStringLiteral("unit")), 0);
    QCOMPARE(device.getDeviceInfoString(QStringLiteral("tag")), QString());
    QCOMPARE(device.getDeviceInfoByteArray(QStringLiteral("address")), QByteArray());
    QCOMPARE(device.deviceInfo().keys(), QStringList({"address", "range_max", "tag", "unit"}));

    device.setDeviceInfo(QStringLiteral("modify_count"), 41);
    device.incrementModifyCount();
    QCOMPARE(device.getDeviceInfoByte(QStringLiteral("modify_count")), 42);
    device.removeDeviceInfo(QStringLiteral("modify_count"));
    device.incrementModifyCount();
    QCOMPARE(device.getDeviceInfoByte(QStringLiteral("modify_count")), 1);

    // Every key of a slot goes, and nothing else.
    for (const char* key : {"slot_0_code", "slot_0_class", "slot_0_unit_code", "slot_0_value", "slot_0_status",
                            "slot_12_value", "slot_count", "slot_0_comment"})
        device.setDeviceInfo(QLatin1String(key), 1);
    device.removeAllSlotesInfo();
    QCOMPARE(device.deviceInfo().keys(),
             QStringList({"address", "modify_count", "range_max", "slot_0_comment", "slot_count", "tag", "unit"}));

    // The oldest lines of the log go beyond its depth; each goes out with
    // the polling address.
    device.setAddress(5);
    QSignalSpy spy(&device, &Device::modbusMessage);
    for (int i = 0; i < 10005; ++i)
        device.sendModbusMessage(QStringLiteral("line %1").arg(i));
    QCOMPARE(device.messageLog().size(), 10000);
    QCOMPARE(device.messageLog().first(), QStringLiteral("line 5"));
    QCOMPARE(spy.size(), 10005);
    QCOMPARE(spy.last(), (QList<QVariant>{5, QStringLiteral("line 10004")}));
}

void TestDevice::names()
{
    Server server;
    Port* port = server.addPort(QStringLiteral("P1"));
    Device* first = port->addDevice(QStringLiteral("D1"), QStringLiteral("Custom"), -1);
    // The name follows the template and the polling address; the priority is the port's.
    QCOMPARE(first->fullName(), QStringLiteral("P1/Custom_{0}"));
    QCOMPARE(first->priority(), port->property("priority").toInt());
    Device* second = port->addDevice(QStringLiteral("D2"), QStringLiteral("Custom"), -1);
    second->setAddress(3);
    second->updateDeviceName();
    QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));

    // The tag wins over the address, but a name a sibling holds is not taken.
    first->setDeviceInfo(QStringLiteral("tag"), QStringLiteral("PT-1"));
    first->updateDeviceName();
    QCOMPARE(first->name(), QStringLiteral("Custom_{PT-1}"));
    second->setDeviceInfo(QStringLiteral("tag"), QStringLiteral("PT-1"));
    second->updateDeviceName();
    QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));

    QVERIFY(!second->setDeviceName(QStringLiteral("Custom_{PT-1}"), false));
    QVERIFY(!second->setDeviceName(QString(), false));
    QVERIFY(second->setDeviceName(QStringLiteral("Feed"), true));
    QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));
    QVERIFY(second->setDeviceName(QStringLiteral("Feed"), false));
    QCOMPARE(port->device(QStringLiteral("Feed")), second);

    second->setDeviceInfo(QStringLiteral("descriptor"), QStringLiteral("feed pump"));
    second->setCommentFromDeviceInfo(QStringLiteral("descriptor"));
    QCOMPARE(second->comment(), QStringLiteral("feed pump"));
    QSignalSpy spy(second, &Device::deviceTemplateChanged);
    second->setDeviceTemplateName(QStringLiteral("QP-1C"));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().at(0).toString(), QStringLiteral("QP-1C"));

    // The device's own timeouts go to the port when they are set.
    second->checkAndSetPortTimeouts();
    QCOMPARE(port->hart().responseTimeout(), 370);
    second->setResponceTimeout(500);
    second->setByteTimeout(80);
    second->checkAndSetPortTimeouts();
    QCOMPARE(port->hart().responseTimeout(), 500);
    QCOMPARE(port->hart().byteTimeout(), 80);

    // The labels that Device::write looks into, with their blanks.
    QCOMPARE(first->writeFunContext(38), QStringLiteral("reset config changed flag "));
    QCOMPARE(first->writeFunContext(48), QStringLiteral("reset additional status flag "));
    QCOMPARE(first->readFunContext(73), QStringLiteral("find device"));
    QCOMPARE(first->readFunContext(200), QString());
    QCOMPARE(first->writeFunContext(200), QString());
}

void TestDevice::fileRoundTrip()
{
    // Only what is set is written, and never the producer.
    Device device;
    device.setProducer(QStringLiteral("ACME"));
    QCOMPARE(device.save().keys(), QStringList({"comment", "enabled", "name", "parameters", "polling_address",
                                                "polling_period", "priority", "template"}));

    const QByteArray address = hx("a0ff007f80");
    const QByteArray specific = hx("0500ff008000");
    device.setDeviceTemplateName(QStringLiteral("TCV-C"));
    device.setAddress(7);
    device.setPollingPeriod(2500);
    device.setComment(QStringLiteral("boiler"));
    device.setVariant(QStringLiteral("v2"));
    device.setEnabled(false);
    device.setPriority(3);
    device.setMeasureInfo({{"period", 500}, {"archive", true}});
    device.setDeviceInfo("address", address);
    device.setDeviceInfo("deviceID", hx("00ff80"));
    device.setDeviceInfo("vendorID", hx("0026"));
    device.setDeviceInfo("expanded_device_type", hx("e091"));
    device.setDeviceInfo("device_specific_status", specific);
    device.setDeviceInfo("PV", std::numeric_limits<float>::quiet_NaN());
    device.setDeviceInfo("SV", std::numeric_limits<double>::infinity());
    device.setDeviceInfo("TV", -std::numeric_limits<float>::infinity());
    device.setDeviceInfo("QV", 1.5f);
    device.setDeviceInfo("tag", QStringLiteral("TT-101"));
    device.setDeviceInfo("descriptor", QStringLiteral("0x41h looks like a byte"));
    device.setDeviceInfo("date", QDate(2026, 5, 20));
    device.getDeviceInfo("never_read"); // made empty by reading it

    QByteArray text;
    const QVariantMap map = m_dir.throughConfigFile(QStringLiteral("device"), device.save(), &text).toMap();
    // The bytes stand in the file as text of "0xHHh" groups.
    QVERIFY2(text.contains("\"0xA0h 0xFFh 0x00h 0x7Fh 0x80h\""), text.constData());
    QVERIFY2(text.contains("\"0x05h 0x00h 0xFFh 0x00h 0x80h 0x00h\""), text.constData());
    QCOMPARE(map.value("enabled").toBool(), false);
    QCOMPARE(map.value("priority").toInt(), 3);

    Device loaded;
    QVERIFY(loaded.load(map));
    // The bytes are bytes again, and the identity is taken from them.
    QCOMPARE(loaded.deviceInfo().value("address").typeId(), int(QMetaType::QByteArray));
    QCOMPARE(loaded.deviceInfo().value("device_specific_status").toByteArray(), specific);
    QCOMPARE(loaded.deviceInfo().value("date").toDate(), QDate(2026, 5, 20));
    QCOMPARE(loaded.deviceInfo().value("PV"), QVariant(0.0));
    QCOMPARE(loaded.hartAddress(), address);
    QCOMPARE(loaded.hartDeviceID(), hx("00ff80"));
    QCOMPARE(loaded.vendorID(), hx("0026"));
    QCOMPARE(loaded.expandedDeviceType(), hx("e091"));
    // The loaded device writes what it read, NaN and the infinities as 0.0,
    // but a plain load leaves "enabled" and "priority" at their defaults.
    QVariantMap expected = device.save();
    QCOMPARE(expected.value("parameters").toMap().value("SV"), QVariant(0.0));
    expected.insert("name", "TCV-C_{TT-101}");
    expected.insert("enabled", true);
    expected.insert("priority", 10);
    QCOMPARE(loaded.save(), expected);

    // Those two only the settings take, and the settings take nothing else.
    Device settings;
    settings.loadDeviceSettings({{"name", "Boiler"},
                                 {"enabled", false},
                                 {"priority", 4},
                                 {"polling_period", 700},
                                 {"polling_address", 9},
                                 {"producer", "ACME"},
                                 {"comment", "hot"},
                                 {"template", "Other"},
                                 {"parameters", QVariantMap{{"x", 1}}}});
    QCOMPARE(settings.isEnabled(), false);
    QCOMPARE(settings.priority(), 4);
    QCOMPARE(settings.pollingPeriod(), 700);
    QCOMPARE(settings.address(), 9);
    QCOMPARE(settings.producer(), QStringLiteral("ACME"));
    QCOMPARE(settings.comment(), QStringLiteral("hot"));
    QCOMPARE(settings.name(), QStringLiteral("Boiler"));
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
                                  << QVariantMap{
                                         {"address", 4}, {"comment", "old"}, {"template", "Old"}, {"param:tag", "T1"}};
    QTest::newRow("parameters as text") << QVariantMap{{"parameters", "abc"}, {"comment", "new"}} << false
                                        << QVariantMap{{"comment", "new"}, {"param:tag", "T1"}};
    QTest::newRow("polling address as text") << QVariantMap{{"polling_address", "abc"}, {"comment", "new"}} << false
                                             << QVariantMap{{"address", 4}, {"comment", "new"}};
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

void TestDevice::loadFromTemplateKeepsIdentity()
{
    Server server;
    Device* device = server.addPort(QStringLiteral("P1"))->addDevice(QStringLiteral("D1"), QString(), -1);
    device->setAddress(5);
    device->setEnabled(false);
    device->setComment(QStringLiteral("mine"));
    device->setName(QStringLiteral("Live"));

    const QVariantMap templ = {
        {"name", "Template"},         {"polling_address", 0},
        {"polling_period", 1000},     {"template", "QP-1C"},
        {"comment", "from template"}, {"parameters", QVariantMap{{"range_max", 250.0}, {"tag", "TPL"}}}};
    QVERIFY(device->loadFromTemplate(templ));
    QCOMPARE(device->name(), QStringLiteral("Live"));
    QCOMPARE(device->address(), 5);
    QCOMPARE(device->isEnabled(), false);
    QCOMPARE(device->comment(), QStringLiteral("mine"));
    QCOMPARE(device->deviceTemplateName(), QStringLiteral("QP-1C"));
    QCOMPARE(device->deviceInfo().value("range_max").toDouble(), 250.0);

    QVERIFY(!device->loadFromTemplate({{"template", 5}}));
    QCOMPARE(device->name(), QStringLiteral("Live"));
}

void TestDevice::tagStateStrings()
{
    Device device;
    QCOMPARE(device.deviceTagsStateToShortString(), QString());
    QCOMPARE(device.deviceTagsStateToLongString(), QStringLiteral("from file"));
    device.setDeviceTagState(64);
    QCOMPARE(device.deviceTagsStateToShortString(), QStringLiteral("[!]"));
    QCOMPARE(device.deviceTagsStateToLongString(), QStringLiteral("from file"));
    device.setDeviceTagState(1 | 2 | 4 | 8 | 16 | 64);
    QCOMPARE(device.deviceTagsStateToShortString(), QStringLiteral("[>*<@!]"));
    QCOMPARE(device.deviceTagsStateToLongString(),
             QStringLiteral("form device / changed / saved in device / periodically requested"));
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
    device.checkOffDevice();
    QVERIFY(!device.isIdentified());
    QCOMPARE(device.hartAddress(), QByteArray());
    QCOMPARE(device.deviceInfo().value("address").toByteArray(), QByteArray());
    QCOMPARE(device.deviceInfo().value("deviceID").toByteArray(), QByteArray());
    QCOMPARE(device.deviceInfo().value("tag").toString(), QStringLiteral("PT-1"));
    QCOMPARE(device.deviceTagState(), 1);
    QCOMPARE(device.state(), 1);
    QCOMPARE(device.errorCode(), 1);
}

void TestDevice::codeTexts()
{
    // One row for each rule: the odd spellings, the class-dependent range
    // 170 to 219, the edges of ranges and codes not listed.
    const struct
    {
        int unit;
        int classCode;
        const char* text;
    } units[] = {{1, 0, "inchWS"}, {10, 0, "kgf/sm2"}, {12, 73, "kPa"},  {37, 0, "Om"},     {163, 0, "kOm"},
                 {237, 0, "MPa"},  {3, 0, "?"},        {170, 0, "?"},    {170, 73, "mg/l"}, {170, 85, "MOm"},
                 {171, 85, "?"},   {170, 97, "FNU"},   {171, 97, "FTU"}, {172, 97, "NTU"},  {173, 97, "?"}};
    for (const auto& u : units)
        QCOMPARE(Device::getUnitCodeText(u.unit, u.classCode), QLatin1String(u.text));
    QCOMPARE(Device::getUnitCodeText(32, 0), QString::fromLatin1("\xB0"
                                                                 "C"));

    const auto cls = &Device::getClassificationText;
    const auto family = &Device::getFamilyText;
    const auto status = &Device::getDeviceVariableStatusText;
    const auto alarm = &Device::getPVAlarmSelectionText;
    const struct
    {
        QString (*text)(int);
        int code;
        const char* expected;
    } texts[] = {{cls, 0, "Not Classified"},
                 {cls, 77, "Energy (Work)"},
                 {cls, 96, "?"},
                 {cls, 97, "Turbidity"},
                 {cls, 250, "Not used"},
                 {family, 3, "Reserved"},
                 {family, 4, "Temperature"},
                 {family, 6, "Valve / Actuator"},
                 {family, 15, "?"},
                 {family, 132, "Reserved"},
                 {family, 249, "Reserved"},
                 {family, 250, "Not Used"},
                 {family, 251, "?"},
                 {status, 0x40, "Poor Accuracy | Not Limited"},
                 {status, 0x90, "Manual/Fixed | Low Limited"},
                 {status, 0xE0, "Good | High Limited"},
                 {status, 0x3F, "Bad | Constant"},
                 {alarm, 0, "High"},
                 {alarm, 2, "?"},
                 {alarm, 239, "Hold Last Output Value"},
                 {alarm, 240, "Manufacturer Specific"},
                 {alarm, 249, "Manufacturer Specific"},
                 {alarm, 250, "Not Used"},
                 {alarm, 254, "?"}};
    for (const auto& t : texts)
        QCOMPARE(t.text(t.code), QLatin1String(t.expected));

    // The variables' units are looked up with their classes, calibration
    // with class 0.
    Device device;
    device.setDeviceInfo("PV_unit_code", 170);
    device.setDeviceInfo("PV_class_code", 97);
    device.setDeviceInfo("SV_unit_code", 171);
    device.setDeviceInfo("SV_class_code", 97);
    device.setDeviceInfo("TV_unit_code", 170);
    device.setDeviceInfo("TV_class_code", 73);
    device.setDeviceInfo("QV_unit_code", 170);
    device.setDeviceInfo("QV_class_code", 85);
    device.setDeviceInfo("calibrate_unit_code", 170);
    device.setDeviceInfo("calibrate_class_code", 73);
    QCOMPARE(device.getPVUnitCodeText(), QStringLiteral("FNU"));
    QCOMPARE(device.getSVUnitCodeText(), QStringLiteral("FTU"));
    QCOMPARE(device.getTVUnitCodeText(), QStringLiteral("mg/l"));
    QCOMPARE(device.getQVUnitCodeText(), QStringLiteral("MOm"));
    QCOMPARE(device.getCalibrateUnitCodeText(), QStringLiteral("?"));
}

void TestDevice::snapshots()
{
    Device device;
    device.setDeviceInfo("range_max", 100.0);
    device.setDeviceTagState(1 | 4);
    QVERIFY(!device.hasBackup());
    device.backupTags();
    QVERIFY(device.hasBackup());
    QVERIFY(!device.hasRollback());
    device.setDeviceInfo("range_max", 250.0);
    device.setComment(QStringLiteral("edited"));
    device.setDeviceTagState(1 | 2);

    // Restore and rollback undo each other.
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
    // A new backup forgets the rollback.
    device.backupTags();
    QVERIFY(!device.hasRollback());

    // What the device and the file held; what stood before goes to the backup.
    device.setDeviceInfo("tag", QStringLiteral("FROM-DEV"));
    device.setDeviceTagState(4);
    device.backupTagsInDeviceData();
    device.setDeviceInfo("tag", QStringLiteral("FROM-FILE"));
    device.setDeviceTagState(1);
    device.backupTagsInFileData();
    QVERIFY(device.hasDeviceData() && device.hasFileData());
    device.setDeviceInfo("tag", QStringLiteral("EDITED"));
    device.setDeviceTagState(2);
    device.restoreTagsFromDeviceData();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("FROM-DEV"));
    QCOMPARE(device.deviceTagState(), 4);
    device.restoreTags();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("EDITED"));
    QCOMPARE(device.deviceTagState(), 2);
    device.restoreTagsFromFileData();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("FROM-FILE"));
    QCOMPARE(device.deviceTagState(), 1);
    device.clearFileData();
    QVERIFY(!device.hasFileData());

    // A paste is marked changed and undone from the backup it made; what is
    // no device is refused and not marked.
    QSignalSpy modified(&device, &ServerItem::modified);
    Device source;
    source.setDeviceInfo("tag", QStringLiteral("COPIED"));
    QVERIFY(device.pasteFromClipboard(source.save()));
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("COPIED"));
    QCOMPARE(device.deviceTagState(), 1 | 2);
    QCOMPARE(modified.size(), 1);
    device.restoreTags();
    QCOMPARE(device.getDeviceInfoString("tag"), QStringLiteral("FROM-FILE"));
    QCOMPARE(device.deviceTagState(), 1);
    QVERIFY(!device.pasteFromClipboard({{"parameters", "not a map"}}));
    QCOMPARE(modified.size(), 1);
    QCOMPARE(device.deviceTagState(), 1);
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
    QTest::newRow("EEPROM bits, 0x04 without a text")
        << "Custom" << hx("000037000000000000")
        << "\n--- Error of writing configuration to EEPROM."
           "\n--- Device configuration is restored (from the secondary page)."
           "\n--- Error of writing the device HART_UID to the EEPROM"
           "\n--- Factory device number is restored (from the sub-page).";
    QTest::newRow("extended and standardized status") << "Custom" << hx("000000000000030016")
                                                      << "\n--- Device requires maintenance."
                                                         "\n--- Device variable is in an Alarm state."
                                                         "\n--- Non-Volatile Memory Defect."
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
    const QString line = QStringLiteral("Additional status info:") + text;
    QCOMPARE(status.size(), text.isEmpty() ? 0 : 1);
    QCOMPARE(device.messageLog(), text.isEmpty() ? QList<QString>() : QList<QString>{line});
    if (!text.isEmpty())
        QCOMPARE(status.first().at(0).toString(), line);
}

// ---------------------------------------------------------------------------
// Exchanges

void TestDevice::identifyByAddress()
{
    QVERIFY(m_line.start({{"generic", {{"polling_address", 0}, {"device_id", 0x123456}, {"tag", "PT-1"}}}}));
    Device* device = m_line.addDevice(0);
    QSignalSpy errors(device, &Device::deviceError);
    QVERIFY(device->readDevice(0));
    QCOMPARE(device->hartAddress(), hx("112a123456"));
    QCOMPARE(device->hartDeviceID(), hx("123456"));
    QCOMPARE(device->vendorID(), hx("0011"));
    QCOMPARE(device->expandedDeviceType(), hx("112a"));
    QCOMPARE(device->deviceInfo().value("universal_cmd_version").toInt(), 7);
    QCOMPARE(device->state(), 2);
    QCOMPARE(errors.size(), 0);
    QCOMPARE(device->serialSettings().name, m_line.sim.path());

    QCOMPARE(linesStartingWith(*device, QStringLiteral("Try to check")),
             QStringList(
                 {QStringLiteral("Try to check Custom_{0} at address 0 via %1 ...").arg(m_line.port->configName())}));
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Checked")),
             QStringList({QStringLiteral("Checked successfully - Custom_{0} (11 2A 12 34 56 12 34 56 exts:00)!")}));
    QCOMPARE(int(m_line.sim.record(1).command), 0);
    QCOMPARE(m_line.sim.record(1).address, hx("80"));

    // Later frames go to the long address.
    QVERIFY(device->readDevice(1));
    QCOMPARE(m_line.sim.record(2).address, hx("912a123456"));
}

void TestDevice::identifyFailsAtEmptyAddress()
{
    QVERIFY(m_line.start({{"generic", {{"polling_address", 0}}}}));
    Device* device = m_line.addDevice(9);
    QSignalSpy errors(device, &Device::deviceError);
    QVERIFY(!device->readDevice(0));
    QVERIFY(!device->isIdentified());
    QCOMPARE(device->state(), 3);
    QCOMPARE(device->errorCode(), 4);
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Get device ID by cmd 0 error:")).size(), 1);
    QCOMPARE(errors.size(), 1);
    const QString signalText = errors.first().at(0).toString();
    QVERIFY2(signalText.startsWith(QStringLiteral("error 4 executing cmd=0 - ")), qPrintable(signalText));
    QVERIFY(!signalText.contains(QLatin1Char('\n')));
}

void TestDevice::identifyByTag()
{
    QVERIFY(m_line.start({{"generic", {{"polling_address", 0}, {"tag", "PT-1"}}},
                          {"generic", {{"polling_address", 1}, {"device_id", 0x000777}, {"tag", "TT-101"}}}}));
    Device* device = m_line.addDevice(0);
    device->setDeviceInfo("tag", QStringLiteral("TT-101"));
    QVERIFY(device->writeDevice(11));
    QCOMPARE(device->hartAddress(), hx("112a000777"));
    QCOMPARE(device->hartDeviceID(), hx("000777"));
    const hartsim::RequestRecord record = m_line.sim.record(1);
    QCOMPARE(int(record.command), 11);
    QCOMPARE(record.address, hx("8000000000"));
    QCOMPARE(record.data, hx("514b71c31820"));
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Try to check")),
             QStringList({QStringLiteral("Try to check %1 by tag 'TT-101' via %2 ...")
                              .arg(device->name(), m_line.port->configName())}));
}

void TestDevice::identifyByTagRefusesLowerCase()
{
    Device* device = identifiedOnLine();
    QVERIFY(device);
    device->setDeviceInfo("tag", QStringLiteral("pt-1"));
    QSignalSpy errors(device, &Device::deviceError);
    const int before = int(device->messageLog().size());
    QVERIFY(!device->writeDevice(11));
    QCOMPARE(device->errorText(), QStringLiteral("Invalid chars in device tag!"));
    QCOMPARE(device->state(), 3);
    QVERIFY(device->errorCode() != 1);
    QCOMPARE(errors.size(), 1);
    // Nothing went out, so no traces and no status of the earlier exchange.
    QCOMPARE(
        device->messageLog().mid(before),
        QList<QString>(
            {QStringLiteral("Try to check %1 by tag 'pt-1' via %2 ...").arg(device->name(), m_line.port->configName()),
             QStringLiteral("Get device ID by cmd 11 error: Invalid chars in device tag!")}));
    QCOMPARE(device->statusBytes(), QByteArray());
    QCOMPARE(m_line.served(device, 1), QList<int>({0, 16}));
}

void TestDevice::identifyByLongTag()
{
    QVERIFY(m_line.start({{"generic", {{"polling_address", 0}, {"long_tag", "Pump one"}}},
                          {"generic", {{"polling_address", 1}, {"device_id", 0x000888}, {"long_tag", "Pump two"}}}}));
    Device* device = m_line.addDevice(0);
    device->setDeviceInfo("long_tag", QStringLiteral("Pump two"));
    QVERIFY(device->writeDevice(21));
    QCOMPARE(device->hartAddress(), hx("112a000888"));
    const hartsim::RequestRecord record = m_line.sim.record(1);
    QCOMPARE(int(record.command), 21);
    QCOMPARE(record.data, QByteArray("Pump two") + QByteArray(24, '\0'));
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Try to check")),
             QStringList({QStringLiteral("Try to check %1 by long tag 'Pump two' via %2 ...")
                              .arg(device->name(), m_line.port->configName())}));
}

void TestDevice::identifyBy73()
{
    QVERIFY(m_line.start({{"generic", {{"polling_address", 0}}},
                          {"generic", {{"polling_address", 4}, {"device_id", 0x000999}, {"button_pressed", true}}}}));
    Device* device = m_line.addDevice(0);
    QVERIFY(device->readDevice(73));
    QCOMPARE(device->hartAddress(), hx("112a000999"));
    QCOMPARE(device->hartDeviceID(), hx("000999"));
    QCOMPARE(device->deviceInfo().value("deviceID").toByteArray(), hx("000999"));
    QCOMPARE(int(m_line.sim.record(1).command), 73);
    QCOMPARE(
        linesStartingWith(*device, QStringLiteral("Try to check")),
        QStringList({QStringLiteral("Try to check %1 via %2 ...").arg(device->name(), m_line.port->configName())}));
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Checked successfully")),
             QStringList({QStringLiteral("Checked successfully - 11 2A 00 09 99!")}));
}

void TestDevice::readHoldsTheSemaphore()
{
    Device* device = identifiedOnLine();
    QVERIFY(device);
    QSemaphore& semaphore = m_line.port->semaphore();
    QCOMPARE(semaphore.available(), 1);

    // Every line of the exchange is logged while the permit is held, and a
    // failed exchange gives the permit back too.
    QList<int> permits;
    const QMetaObject::Connection connection = connect(
        device, &Device::modbusMessage, this, [&](int, const QString&) { permits << semaphore.available(); },
        Qt::DirectConnection);
    QByteArray response;
    QCOMPARE(device->read(QStringLiteral("PV"), 1, response), 1);
    QCOMPARE(semaphore.available(), 1);
    QVERIFY(permits.size() >= 3);
    m_line.sim.addFault(0, silence());
    QVERIFY(device->read(QStringLiteral("PV"), 1, response) != 1);
    QCOMPARE(semaphore.available(), 1);
    QVERIFY(permits.size() >= 5);
    QCOMPARE(permits, QList<int>(permits.size(), 0));
    disconnect(connection);
}

void TestDevice::readLogAndStatusLines()
{
    Device* device = identifiedOnLine(); // takes the cold start
    QVERIFY(device);
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Device status:")),
             QStringList({QStringLiteral("Device status: [00 20]")}));
    QSignalSpy status(device, &Device::deviceStatus);
    int before = int(device->messageLog().size());
    QByteArray response;
    QCOMPARE(device->read(QStringLiteral("PV"), 1, response), 1);
    QCOMPARE(response.size(), 5);
    QList<QString> lines = device->messageLog().mid(before);
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), QStringLiteral("reading PV (cmd=1)...\n"));
    QVERIFY2(lines.at(1).contains(QLatin1String(" TX (")), qPrintable(lines.at(1)));
    QVERIFY2(lines.at(2).contains(QLatin1String(" RX (")), qPrintable(lines.at(2)));
    QCOMPARE(lines.at(3), QStringLiteral("Success (processing time: %1ms)").arg(device->processingTime()));
    QCOMPARE(device->state(), 2);
    QCOMPARE(device->deviceTagState() & (Device::TagStateRead | Device::TagStateWritten), int(Device::TagStateRead));
    QCOMPARE(status.size(), 1);
    QCOMPARE(status.first(), (QList<QVariant>{QString(), hx("0000")}));

    // A write raises the configuration-changed flag: every answer now tells it.
    device->setDeviceInfo("damping_time", 2.0f);
    QVERIFY(device->writeDevice(34));
    status.clear();
    before = int(device->messageLog().size());
    QVERIFY(device->readDevice(1));
    lines = device->messageLog().mid(before);
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines.at(3), QStringLiteral("Device status: [00 40]"));
    QCOMPARE(lines.at(4), QStringLiteral("*** Configuration changed"));
    QCOMPARE(status.size(), 1);
    QCOMPARE(status.first(), (QList<QVariant>{QStringLiteral("*** Configuration changed"), hx("0040")}));
}

void TestDevice::writeLogLines_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QVariantMap>("request");
    QTest::addColumn<int>("code"); // the response code; the device is made to give it unless it is 2
    QTest::addColumn<QString>("logLine");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("signalText");

    QTest::newRow("writing, write protected")
        << 34 << QVariantMap{{"damping_time", 4.0f}} << 7 << "writing damping value (cmd=34)...\n"
        << "error -3 writing damping value - Command error (error code 7): *** write protection mode set"
        << "error executing cmd=34 - Command error (error code 7): *** write protection mode set";
    QTest::newRow("reset: executing") << 42 << QVariantMap() << 6 << "reset device (cmd=42)...\n"
                                      << "error -3 executing reset device - Command error (error code 6): *** "
                                         "command not executed"
                                      << "error executing cmd=42 - Command error (error code 6): *** command not "
                                         "executed";
    QTest::newRow("start: executing") << 41 << QVariantMap() << 32 << "start device self test (cmd=41)...\n"
                                      << "error -3 executing start device self test - Command error (error code "
                                         "32): *** device is busy"
                                      << "error executing cmd=41 - Command error (error code 32): *** device is busy";
    QTest::newRow("get: no word") << 33 << QVariantMap{{"slot_0_code", 9}} << 2 << "get device variables (cmd=33)...\n"
                                  << "error -3 get device variables - Command error (error code 2): *** wrong choice"
                                  << "error executing cmd=33 - Command error (error code 2): *** wrong choice";
}

void TestDevice::writeLogLines()
{
    QFETCH(int, command);
    QFETCH(QVariantMap, request);
    QFETCH(int, code);
    QFETCH(QString, logLine);
    QFETCH(QString, failure);
    QFETCH(QString, signalText);

    Device* device = identifiedOnLine();
    QVERIFY(device);
    for (auto it = request.constBegin(); it != request.constEnd(); ++it)
        device->setDeviceInfo(it.key(), it.value());
    if (code != 2) {
        Fault refusal;
        refusal.kind = Fault::ResponseCode;
        refusal.command = command;
        refusal.code = code;
        m_line.sim.addFault(0, refusal);
    }
    QSignalSpy errors(device, &Device::deviceError);
    const int before = int(device->messageLog().size());
    QVERIFY(!device->writeDevice(command));
    const QList<QString> lines = device->messageLog().mid(before);
    QVERIFY(!lines.isEmpty());
    QCOMPARE(lines.first(), logLine);
    QCOMPARE(lines.last(), failure + QStringLiteral("\nError (processing time: %1ms)").arg(device->processingTime()));
    // The response code stands in the status, and so in the log.
    QCOMPARE(device->statusBytes().size(), 2);
    QCOMPARE(int(quint8(device->statusBytes().at(0))), code);
    const QString hexCode = QString::number(code, 16).rightJustified(2, QLatin1Char('0')).toUpper();
    QCOMPARE(linesStartingWith(*device, QStringLiteral("Device status: [%1 ").arg(hexCode)).size(), 1);
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).toString(), signalText);
    QCOMPARE(device->errorCode(), -3);
    QCOMPARE(device->state(), 3);
    QVERIFY(!(device->deviceTagState() & Device::TagStateWritten));
    QCOMPARE(device->getDeviceInfoByte("modify_count"), 0);
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

    Device* device = identifiedOnLine();
    QVERIFY(device);
    device->setClosePortOnError(closeOnError);
    QVERIFY(device->readDevice(1));
    QVERIFY(m_line.port->isOpened()); // a good exchange never closes it

    m_line.sim.addFault(0, silence(1));
    QSignalSpy errors(device, &Device::deviceError);
    const QVariant pvBefore = device->deviceInfo().value("PV");
    QVERIFY(!device->readDevice(1));
    QCOMPARE(device->errorCode(), 4);
    QCOMPARE(device->state(), 3);
    QCOMPARE(device->errorText(), m_line.port->errorText());
    QVERIFY(!device->errorText().isEmpty());
    QCOMPARE(device->deviceInfo().value("PV"), pvBefore);
    QCOMPARE(device->statusBytes(), QByteArray());
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).toString(), QStringLiteral("error 4 executing cmd=1 - %1").arg(device->errorText()));
    QCOMPARE(device->messageLog().last(), QStringLiteral("error 4 reading 'PV' - %1\nError (processing time: %2ms)")
                                              .arg(device->errorText())
                                              .arg(device->processingTime()));
    QCOMPARE(m_line.port->isOpened(), !closeOnError);
    // The identity stays: the device did not answer, the line is there.
    QVERIFY(device->isIdentified());

    // And the next read goes through again.
    m_line.sim.line().clearFaults();
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

    Device* device = identifiedOnLine();
    QVERIFY(device);
    device->setDeviceTagState(1 | 4);
    Port* port = m_line.port;
    port->closeHart();
    const QString path = m_dir.filePath(QStringLiteral("no-modem"));
    if (existingFile)
        QVERIFY(!m_dir.writeFile(QStringLiteral("no-modem"), "not a tty").isEmpty());
    QVERIFY(port->setSerialName(path));
    QSignalSpy errors(device, &Device::deviceError);
    const int requests = m_line.sim.line().requestCount();
    QVERIFY(!device->readDevice(1));
    QCOMPARE(m_line.sim.line().requestCount(), requests);

    // The device lost its identity, and tells why.
    QVERIFY(!device->isIdentified());
    QCOMPARE(device->hartAddress(), QByteArray());
    QCOMPARE(device->deviceInfo().value("address").toByteArray(), QByteArray());
    QCOMPARE(device->deviceTagState(), 1);
    QCOMPARE(device->state(), 3);
    QCOMPARE(device->errorCode(), code);
    QCOMPARE(device->errorText(), port->errorText());
    QCOMPARE(linesStartingWith(*device, QStringLiteral("error open port")),
             QStringList({QStringLiteral("error open port '%1' - %2").arg(path, port->errorText())}));
    QCOMPARE(errors.size(), 1);
    // A line end of the port's text is replaced in the signal.
    QString portText = port->errorText();
    QCOMPARE(portText.contains(QLatin1Char('\n')), existingFile);
    QCOMPARE(errors.first().at(0).toString(),
             QStringLiteral("error %1 executing cmd=1 - %2").arg(code).arg(portText.replace('\n', "d - ")));
    if (!existingFile)
        QCOMPARE(port->errorText(), QStringLiteral("not such device '%1'").arg(path));
}

void TestDevice::additionalStatusFromTheDevice()
{
    Device* device = identifiedOnLine();
    QVERIFY(device);
    QVERIFY(device->readDevice(1));
    QCOMPARE(device->additionalStatusText(), QString());

    m_line.sim.setParam(0, "error_code", 5);
    m_line.sim.setParam(0, "ADC_flags", 0x81);
    m_line.sim.setParam(0, "EEPROM_flags", 0x03);
    m_line.sim.setParam(0, "extended_status", 0x01);
    m_line.sim.setParam(0, "standard_status_0", 0x16);
    QVERIFY(device->readDevice(1));
    QCOMPARE(device->cmd48Data().left(9), hx("058103000000010016"));
    // Command 1 tells of more status; 48 reads it, and 48 with the bytes read
    // acknowledges it.
    QCOMPARE(m_line.served(device, 5), QList<int>({0, 1, 1, 48, 48, 16}));
    const QList<hartsim::RequestRecord> log = m_line.sim.line().requests();
    QCOMPARE(log.at(3).data, QByteArray());
    QCOMPARE(log.at(4).data, device->cmd48Data());
    const QString text = "\n--- Device ADC error code: 5"
                         "\n--- The ADC is overloaded. Flags: 0x81"
                         "\n--- Error of writing configuration to EEPROM."
                         "\n--- Device configuration is restored (from the secondary page)."
                         "\n--- Device requires maintenance."
                         "\n--- Non-Volatile Memory Defect."
                         "\n--- Volatile Memory Defect."
                         "\n--- Voltage Conditions Out of Range.";
    QCOMPARE(device->additionalStatusText(), text);
    QVERIFY(device->messageLog().contains(QStringLiteral("Additional status info:") + text));
    // Acknowledged, and command 48 is no change of configuration.
    QCOMPARE(device->deviceInfo().value("modify_count").toInt(), 0);
    QVERIFY(device->readDevice(1));
    QCOMPARE(int(device->statusBytes().at(1)) & 0x10, 0);
    QCOMPARE(m_line.served(device, 7), QList<int>({0, 1, 1, 48, 48, 16, 1, 16}));
}

void TestDevice::alwaysAdditionalStatus()
{
    Device* device = identifiedOnLine();
    QVERIFY(device);
    QVERIFY(device->readDevice(3));
    device->setAlwaysAdditionalStatus(true);
    QVERIFY(device->readDevice(3));
    // Only command 3 asks every time.
    QVERIFY(device->readDevice(1));
    QCOMPARE(m_line.served(device, 5), QList<int>({0, 3, 3, 48, 1, 16}));
}

void TestDevice::hart5TakesTheReadAsAcknowledgement()
{
    QVERIFY(m_line.start({{"hart5", {{"polling_address", 0}, {"extended_status", 2}}}}));
    Device* device = m_line.addDevice(0);
    QVERIFY(device->readDevice(0));
    QVERIFY(device->readDevice(1));
    // The read of 48 clears the flag of an old device: no acknowledgement.
    QCOMPARE(m_line.served(device, 3), QList<int>({0, 1, 48, 16}));
    QCOMPARE(device->cmd48Data(), hx("000000000000020000"));
    QCOMPARE(device->additionalStatusText(), QStringLiteral("\n--- Device variable is in an Alarm state."));
}

QTEST_GUILESS_MAIN(TestDevice)
#include "tst_device.moc"
