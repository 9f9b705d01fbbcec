#include "debugqt.h"
#include "deviceline.h"
#include "modelline.h"
#include "scratchdir.h"

#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <limits>

using hartsim::Fault;

namespace {

// The lines of a device's log that start with a text.
QStringList linesStartingWith(const Device& device, const QString& start)
{
    return device.messageLog().filter(QRegularExpression(QLatin1Char('^') + QRegularExpression::escape(start)));
}

} // namespace

class TestDevice : public QObject
{
    Q_OBJECT

    // The line with one simulated device at polling address 0 and a device of
    // the program on it, identified.
    Device* identifiedOnLine(const QString& model = QStringLiteral("generic"), QVariantMap settings = {})
    {
        settings.insert(QStringLiteral("polling_address"), 0);
        if (!m_line.start({{model, settings}}))
            return nullptr;
        Device* device = m_line.addDevice(0);
        return device->readDevice(0) ? device : nullptr;
    }

    ScratchDir m_dir;
    DeviceLine m_line;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0007, nullptr); }
    void init() { QVERIFY(m_dir.enter()); }
    void cleanup()
    {
        m_line.stop();
        m_dir.leave();
    }

    void messageLogDepth()
    {
        // The oldest lines of the log go beyond its depth; each goes out with
        // the polling address.
        Device device;
        device.setAddress(5);
        QSignalSpy spy(&device, &Device::modbusMessage);
        for (int i = 0; i < 10005; ++i)
            device.sendModbusMessage(QStringLiteral("line %1").arg(i));
        QCOMPARE(device.messageLog().size(), 10000);
        QCOMPARE(device.messageLog().first(), QStringLiteral("line 5"));
        QCOMPARE(spy.size(), 10005);
        QCOMPARE(spy.last(), (QList<QVariant>{5, QStringLiteral("line 10004")}));
    }

    void namesAndTemplate()
    {
        Server server;
        Port* port = server.addPort(QStringLiteral("P1"));
        Device* first = port->addDevice(QStringLiteral("D1"), QStringLiteral("Custom"), -1);
        // The name follows the template and the polling address.
        QCOMPARE(first->fullName(), QStringLiteral("P1/Custom_{0}"));
        Device* second = port->addDevice(QStringLiteral("D2"), QStringLiteral("Custom"), -1);
        second->setAddress(3);
        second->updateDeviceName();
        QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));

        // The tag wins over the address, but a name a sibling holds is not taken.
        first->setDeviceInfo("tag", QStringLiteral("PT-1"));
        first->updateDeviceName();
        QCOMPARE(first->name(), QStringLiteral("Custom_{PT-1}"));
        second->setDeviceInfo("tag", QStringLiteral("PT-1"));
        second->updateDeviceName();
        QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));

        QVERIFY(!second->setDeviceName(QStringLiteral("Custom_{PT-1}"), false));
        QVERIFY(!second->setDeviceName(QString(), false));
        QVERIFY(second->setDeviceName(QStringLiteral("Feed"), true));
        QCOMPARE(second->name(), QStringLiteral("Custom_{3}"));
        QVERIFY(second->setDeviceName(QStringLiteral("Feed"), false));
        QCOMPARE(port->device(QStringLiteral("Feed")), second);

        second->setDeviceInfo("descriptor", QStringLiteral("feed pump"));
        second->setCommentFromDeviceInfo("descriptor");
        QCOMPARE(second->comment(), QStringLiteral("feed pump"));
        QSignalSpy spy(second, &Device::deviceTemplateChanged);
        second->setDeviceTemplateName(QStringLiteral("QP-1C"));
        QCOMPARE(spy, QList<QList<QVariant>>{{QStringLiteral("QP-1C")}});

        // The device's own timeouts go to the port when they are set.
        second->checkAndSetPortTimeouts();
        QCOMPARE(port->hart().responseTimeout(), 370);
        second->setResponceTimeout(500);
        second->setByteTimeout(80);
        second->checkAndSetPortTimeouts();
        QCOMPARE((QList<int>{port->hart().responseTimeout(), port->hart().byteTimeout()}), (QList<int>{500, 80}));

        // The blank ends the label: a write logs it as it stands.
        QCOMPARE(first->writeFunContext(38), QStringLiteral("reset config changed flag "));
        QCOMPARE(first->readFunContext(200), QString());

        // A template gives its settings but not the identity of the device.
        second->setAddress(5);
        second->setEnabled(false);
        second->setComment(QStringLiteral("mine"));
        second->setName(QStringLiteral("Live"));
        QVariantMap fromTemplate =
            vmap("name='Template'; polling_address=0; polling_period=1000; template='TCV-C'; comment='from template'");
        fromTemplate.insert("parameters", vmap("range_max=250.0; tag='TPL'"));
        QVERIFY(second->loadFromTemplate(fromTemplate));
        QCOMPARE((QVariantList{second->name(), second->address(), second->isEnabled(), second->comment(),
                               second->deviceTemplateName(), second->deviceInfo().value("range_max")}),
                 (QVariantList{"Live", 5, false, "mine", "TCV-C", 250.0}));
        QVERIFY(!second->loadFromTemplate({{"template", 5}}));
        QCOMPARE(second->name(), QStringLiteral("Live"));
    }

    void fileRoundTrip()
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
        setInfo(&device, vmap("address=#a0ff007f80; deviceID=#00ff80; vendorID=#0026; expanded_device_type=#e091; "
                              "device_specific_status=#0500ff008000; QV=1.5f; tag='TT-101'; "
                              "descriptor='0x41h looks like a byte'"));
        setInfo(&device, {{"PV", std::numeric_limits<float>::quiet_NaN()},
                          {"SV", std::numeric_limits<double>::infinity()},
                          {"TV", -std::numeric_limits<float>::infinity()},
                          {"date", QDate(2026, 5, 20)}});
        device.getDeviceInfo("never_read"); // made empty by reading it

        // The bytes stand in the file as text of "0xHHh" groups.
        QByteArray text;
        const QVariantMap map = m_dir.throughConfigFile(QStringLiteral("device"), device.save(), &text).toMap();
        QVERIFY2(text.contains("\"0xA0h 0xFFh 0x00h 0x7Fh 0x80h\""), text.constData());
        QVERIFY2(text.contains("\"0x05h 0x00h 0xFFh 0x00h 0x80h 0x00h\""), text.constData());
        QCOMPARE((QVariantList{map.value("enabled"), map.value("priority")}), (QVariantList{false, 3}));

        // The bytes are bytes again, and the identity is taken from them.
        Device loaded;
        QVERIFY(loaded.load(map));
        VERIFY_NO_MISMATCH(
            mismatches(loaded.deviceInfo(),
                       {{"address", address}, {"device_specific_status", specific}, {"date", QDate(2026, 5, 20)}}));
        QCOMPARE(loaded.deviceInfo().value("PV"), QVariant(0.0));
        QCOMPARE((QList<QByteArray>{loaded.hartAddress(), loaded.hartDeviceID(), loaded.vendorID(),
                                    loaded.expandedDeviceType()}),
                 (QList<QByteArray>{address, hx("00ff80"), hx("0026"), hx("e091")}));
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
        QVariantMap taken{{"name", "Boiler"},     {"enabled", false}, {"priority", 4},      {"polling_period", 700},
                          {"polling_address", 9}, {"comment", "hot"}, {"template", "Other"}};
        taken.insert("producer", "ACME");
        taken.insert("parameters", QVariantMap{{"x", 1}});
        settings.loadDeviceSettings(taken);
        QCOMPARE(settings.producer(), QStringLiteral("ACME"));
        taken.remove("producer");
        taken.insert("template", QString());
        taken.insert("parameters", QVariantMap());
        QCOMPARE(settings.save(), taken);
    }

    void malformedConfiguration_data()
    {
        addColumns<QVariantMap, bool, QVariantMap>({"map", "result", "expected"});
        const QVariant null = QVariant::fromValue(nullptr);
        auto row = [](const char* name, const QVariantMap& map, bool result, const QVariantMap& expected) {
            QTest::newRow(name) << map << result << expected;
        };
        row("empty object", {}, true, {{"address", 4}, {"comment", "old"}, {"template", "Old"}, {"param:tag", "T1"}});
        row("parameters as text", {{"parameters", "abc"}, {"comment", "new"}}, false,
            {{"comment", "new"}, {"param:tag", "T1"}});
        row("polling address as text", {{"polling_address", "abc"}, {"comment", "new"}}, false,
            {{"address", 4}, {"comment", "new"}});
        row("template as list", {{"template", QVariantList{1}}, {"comment", "new"}}, false,
            {{"template", "Old"}, {"comment", "new"}});
        row("measure info as number", {{"measure_info", 5}}, false, {{"measure", QVariantMap{{"a", 1}}}});
        row("comment null", {{"comment", null}}, false, {{"comment", "old"}});
        row("device id as number", {{"parameters", QVariantMap{{"deviceID", 5}, {"tag", "T2"}}}}, false,
            {{"hartDeviceID", QByteArray()}, {"param:tag", "T2"}});
        row("address not in byte text", {{"parameters", QVariantMap{{"address", "11 2a 00 2a 01"}, {"tag", "T2"}}}},
            false, {{"hartAddress", QByteArray()}, {"param:tag", "T2"}});
        row("address in byte text, lower case",
            {{"parameters", QVariantMap{{"address", "0x11h 0x2ah 0x00h 0x2ah 0x01h"}}}}, true,
            {{"hartAddress", hx("112a002a01")}});
        row("null parameter", {{"parameters", QVariantMap{{"PV", null}}}}, true, {{"param:PV", QVariant()}});
    }

    void malformedConfiguration()
    {
        QFETCH(QVariantMap, map);
        QFETCH(QVariantMap, expected);

        Device device;
        device.setAddress(4);
        device.setComment(QStringLiteral("old"));
        device.setDeviceTemplateName(QStringLiteral("Old"));
        device.setDeviceInfo("tag", QStringLiteral("T1"));
        device.setMeasureInfo({{"a", 1}});

        QTEST(device.load(map), "result");
        const QVariantMap probes{{"address", device.address()},
                                 {"comment", device.comment()},
                                 {"template", device.deviceTemplateName()},
                                 {"measure", device.measureInfo()},
                                 {"hartAddress", device.hartAddress()},
                                 {"hartDeviceID", device.hartDeviceID()}};
        for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
            const QVariant actual =
                it.key().startsWith("param:") ? device.deviceInfo().value(it.key().mid(6)) : probes.value(it.key());
            QVERIFY2(actual == it.value(), qPrintable(QStringLiteral("%1: %2").arg(it.key(), actual.toString())));
        }
    }

    void tagStateAndCheckOff()
    {
        Device device;
        const auto texts = [&] {
            return QStringList{device.deviceTagsStateToShortString(), device.deviceTagsStateToLongString()};
        };
        QCOMPARE(texts(), QStringList({"", "from file"}));
        device.setDeviceTagState(64);
        QCOMPARE(texts(), QStringList({"[!]", "from file"}));
        device.setDeviceTagState(1 | 2 | 4 | 8 | 16 | 64);
        QCOMPARE(texts(), QStringList({"[>*<@!]", "form device / changed / saved in device / periodically requested"}));

        // A device checked off forgets its identity and its state, not its tag.
        device.load({{"parameters",
                      vmap("address='0x11h 0x2Ah 0x00h 0x2Ah 0x01h'; deviceID='0x00h 0x2Ah 0x01h'; tag='PT-1'")}});
        QVERIFY(device.isIdentified());
        device.setDeviceTagState(4 | 8);
        device.updateState(5);
        device.checkOffDevice();
        QVERIFY(!device.isIdentified());
        QCOMPARE(device.hartAddress(), QByteArray());
        VERIFY_NO_MISMATCH(
            mismatches(device.deviceInfo(), {{"address", QByteArray()}, {"deviceID", QByteArray()}, {"tag", "PT-1"}}));
        QCOMPARE((QList<int>{device.deviceTagState(), device.state(), device.errorCode()}), (QList<int>{1, 1, 1}));
    }

    void codeTexts()
    {
        // "code:text" rows: the odd spellings, the class-dependent range 170
        // to 219, the edges of ranges and codes not listed.
        const auto check = [](const QString& rows, const std::function<QString(int)>& text) {
            for (const QString& row : rows.split(QLatin1Char(';')))
                QCOMPARE(text(row.section(QLatin1Char(':'), 0, 0).toInt()), row.section(QLatin1Char(':'), 1));
        };
        check("1:inchWS;10:kgf/sm2;36:mV;37:Om;59:pH;163:kOm;237:MPa;3:?;170:?",
              [](int u) { return Device::getUnitCodeText(u, 0); });
        check("12:kPa;170:mg/l", [](int u) { return Device::getUnitCodeText(u, 73); });
        check("170:MOm;171:?", [](int u) { return Device::getUnitCodeText(u, 85); });
        check("170:FNU;171:FTU;172:NTU;173:?", [](int u) { return Device::getUnitCodeText(u, 97); });
        QCOMPARE(Device::getUnitCodeText(32, 0), QString::fromLatin1("\xB0"
                                                                     "C"));
        check("0:Not Classified;77:Energy (Work);96:?;97:Turbidity;250:Not used", &Device::getClassificationText);
        check("3:Reserved;4:Temperature;6:Valve / Actuator;15:?;132:Reserved;249:Reserved;250:Not Used;251:?",
              &Device::getFamilyText);
        check("64:Poor Accuracy | Not Limited;144:Manual/Fixed | Low Limited;224:Good | High Limited;63:Bad | Constant",
              &Device::getDeviceVariableStatusText);
        check("0:High;2:?;239:Hold Last Output Value;240:Manufacturer Specific;249:Manufacturer Specific;"
              "250:Not Used;254:?",
              &Device::getPVAlarmSelectionText);
        // Templates by identity, maker * 1000 + type: our maker's types, an
        // unknown type of ours, any other maker.
        check("224145:TCV-C;224146:DX-C;224147:QP-1C;224148:pH-7702;224149:Unknown;224000:Unknown;17042:General;"
              "17145:General;148:General",
              [](int codes) { return Device::templateNameByCodes(codes / 1000, codes % 1000); });

        // The variables' units are looked up with their classes, calibration
        // with class 0.
        Device device;
        setInfo(&device,
                vmap("PV_unit_code=170; PV_class_code=97; SV_unit_code=171; SV_class_code=97; TV_unit_code=170; "
                     "TV_class_code=73; QV_unit_code=170; QV_class_code=85; calibrate_unit_code=170; "
                     "calibrate_class_code=73"));
        QCOMPARE((QStringList{device.getPVUnitCodeText(), device.getSVUnitCodeText(), device.getTVUnitCodeText(),
                              device.getQVUnitCodeText(), device.getCalibrateUnitCodeText()}),
                 QStringList({"FNU", "FTU", "mg/l", "MOm", "?"}));
    }

    void snapshots()
    {
        Device device;
        // The tag, the state and the comment a snapshot holds, as one text.
        const auto now = [&] {
            return device.getDeviceInfoString("tag") + QString::number(device.deviceTagState()) + '/' +
                   device.comment();
        };
        const auto set = [&](const char* tag, int state) {
            device.setDeviceInfo("tag", QLatin1String(tag));
            device.setDeviceTagState(state);
        };
        set("FIRST", 1 | 4);
        QVERIFY(!device.hasBackup());
        device.backupTags();
        QVERIFY(device.hasBackup() && !device.hasRollback());
        set("EDITED", 1 | 2);
        device.setComment(QStringLiteral("edited"));

        // Restore and rollback undo each other; a new backup forgets the rollback.
        device.restoreTags();
        QVERIFY(device.hasRollback());
        QCOMPARE(now(), QStringLiteral("FIRST5/"));
        device.rollbackTags();
        QCOMPARE(now(), QStringLiteral("EDITED3/edited"));
        device.restoreTags();
        QCOMPARE(now(), QStringLiteral("FIRST5/"));
        device.backupTags();
        QVERIFY(!device.hasRollback());

        // What the device and the file held; what stood before goes to the backup.
        set("FROM-DEV", 4);
        device.backupTagsInDeviceData();
        set("FROM-FILE", 1);
        device.backupTagsInFileData();
        QVERIFY(device.hasDeviceData() && device.hasFileData());
        set("EDITED", 2);
        device.restoreTagsFromDeviceData();
        QCOMPARE(now(), QStringLiteral("FROM-DEV4/"));
        device.restoreTags();
        QCOMPARE(now(), QStringLiteral("EDITED2/"));
        device.restoreTagsFromFileData();
        QCOMPARE(now(), QStringLiteral("FROM-FILE1/"));
        device.clearFileData();
        QVERIFY(!device.hasFileData());

        // A paste is marked changed and undone from the backup it made; what is
        // no device is refused and not marked.
        QSignalSpy modified(&device, &ServerItem::modified);
        Device source;
        source.setDeviceInfo("tag", QStringLiteral("COPIED"));
        QVERIFY(device.pasteFromClipboard(source.save()));
        QCOMPARE(now(), QStringLiteral("COPIED3/"));
        QCOMPARE(modified.size(), 1);
        device.restoreTags();
        QVERIFY(!device.pasteFromClipboard({{"parameters", "not a map"}}));
        QCOMPARE(modified.size(), 1);
        QCOMPARE(now(), QStringLiteral("FROM-FILE1/"));

        // The backup of the map gives back only missing keys, and only to the
        // device at the same address.
        setInfo(&device, {{"address", hx("112a002a01")}, {"range_max", 100.0}});
        device.backupDeviceInfo();
        device.removeDeviceInfo("tag");
        device.setDeviceInfo("range_max", 50.0);
        device.checkAndRestoreDeviceInfo();
        VERIFY_NO_MISMATCH(mismatches(device.deviceInfo(), {{"tag", "FROM-FILE"}, {"range_max", 50.0}}));
        device.removeDeviceInfo("tag");
        device.setDeviceInfo("address", hx("112a002a02"));
        device.checkAndRestoreDeviceInfo();
        QVERIFY(!device.hasDeviceInfoParam("tag"));
    }

    void additionalStatusTexts_data()
    {
        addColumns<QString, QByteArray, QString>({"templateName", "status48", "text"});
        auto row = [](const char* name, const char* templ, const char* status, const char* text) {
            QTest::newRow(name) << QString(templ) << hx(status) << QString(text);
        };
        row("nothing", "Custom", "000000000000000000", "");
        row("EEPROM bits, 0x04 without a text", "Custom", "000037000000000000",
            "\n--- Error of writing configuration to EEPROM.\n--- Device configuration is restored (from the secondary "
            "page).\n--- Error of writing the device HART_UID to the EEPROM\n--- Factory device number is restored "
            "(from the sub-page).");
        row("vendor fields in order", "Custom", "0A0201000000010002",
            "\n--- Device ADC error code: 10\n--- The ADC is overloaded. Flags: 0x02\n--- Error of writing "
            "configuration to EEPROM.\n--- Device requires maintenance.\n--- Non-Volatile Memory Defect.");
        row("extended and standardized status", "Custom", "000000000000030016",
            "\n--- Device requires maintenance.\n--- Device variable is in an Alarm state.\n--- Non-Volatile Memory "
            "Defect.\n--- Volatile Memory Defect.\n--- Voltage Conditions Out of Range.");
        row("General shows the raw bytes", "General", "0A0201000000010002",
            "\n--- Device specific status: 0A 02 01 00 00 00\n--- Device requires maintenance.\n--- Non-Volatile "
            "Memory Defect.");
        row("General with zero bytes", "General", "000000000000020000", "\n--- Device variable is in an Alarm state.");
        row("a name containing General", "General HART 7", "000000000005000000",
            "\n--- Device specific status: 00 00 00 00 00 05");
        // A short answer: what is missing counts as 0.
        row("one byte", "Custom", "07", "\n--- Device ADC error code: 7");
    }

    void additionalStatusTexts()
    {
        QFETCH(QString, templateName);
        QFETCH(QByteArray, status48);
        QFETCH(QString, text);

        Device device;
        device.setDeviceTemplateName(templateName);
        setInfo(&device, {{"extended_status", 0xFF}, {"standart_status_0", 0xFF}});
        device.saveCmd48Responce(status48);
        // The fields of the answer are kept under their keys.
        QCOMPARE(device.cmd48Data(), status48);
        const auto byte = [&](int i) { return QVariant(i < status48.size() ? int(quint8(status48.at(i))) : 0); };
        VERIFY_NO_MISMATCH(mismatches(device.deviceInfo(), {{"error_code", byte(0)},
                                                            {"ADC_flags", byte(1)},
                                                            {"EEPROM_flags", byte(2)},
                                                            {"device_specific_status", status48.left(6)},
                                                            {"extended_status", byte(6)},
                                                            {"standart_status_0", byte(8)}}));

        // Without a request and without the flag: the texts of what is held.
        QSignalSpy status(&device, &Device::deviceStatus);
        QVERIFY(device.checkAdditionalStatus(false, false));
        QCOMPARE(device.additionalStatusText(), text);
        const QStringList lines = text.isEmpty() ? QStringList() : QStringList{"Additional status info:" + text};
        QCOMPARE(device.messageLog(), lines);
        QCOMPARE(status.size(), lines.size());
        if (!text.isEmpty())
            QCOMPARE(status.first().at(0).toString(), lines.first());
    }

    void identify_data()
    {
        // The device looked for stands at "pollingAddress", another one at 0;
        // "frameAddress" is that of the first request; in "tryLine" %1 is the port.
        addColumns<int, int, QVariantMap, QByteArray, QByteArray, QByteArray, QString, QString>(
            {"command", "pollingAddress", "settings", "hartAddress", "frameAddress", "request", "tryLine",
             "checkedLine"});
        const auto row = [](int command, int pollingAddress, const char* settings, const char* hartAddress,
                            const char* frameAddress, const QByteArray& request, const char* tryLine) {
            const QByteArray id = hx(hartAddress).mid(2).toHex(' ').toUpper();
            QTest::addRow("%d", command)
                << command << pollingAddress << vmap(settings) << hx(hartAddress) << hx(frameAddress) << request
                << QStringLiteral("Try to check Custom_{0} %1 via %2 ...").arg(QLatin1String(tryLine), "%1")
                << QStringLiteral("Checked successfully - Custom_{0} (11 2A %1 %1 exts:00)!").arg(QLatin1String(id));
        };
        row(0, 0, "device_id=0x123456; tag='PT-1'", "112a123456", "80", QByteArray(), "at address 0");
        row(11, 1, "device_id=0x000777; tag='TT-101'", "112a000777", "8000000000", hx("514b71c31820"),
            "by tag 'TT-101'");
        row(21, 1, "device_id=0x000888; long_tag='Pump two'", "112a000888", "8000000000",
            QByteArray("Pump two") + QByteArray(24, '\0'), "by long tag 'Pump two'");
        QTest::newRow("73, button pressed")
            << 73 << 4 << vmap("device_id=0x000999; button_pressed=true") << hx("112a000999") << hx("8000000000")
            << QByteArray() << "Try to check Custom_{0} via %1 ..."
            << "Checked successfully - 11 2A 00 09 99!";
    }

    void identify()
    {
        QFETCH(int, command);
        QFETCH(int, pollingAddress);
        QFETCH(QVariantMap, settings);
        QFETCH(QByteArray, hartAddress);
        QFETCH(QString, tryLine);
        QFETCH(QString, checkedLine);

        settings.insert("polling_address", pollingAddress);
        QList<SimulatedLine::Device> line{{"generic", settings}};
        if (pollingAddress != 0)
            line.prepend({"generic", vmap("polling_address=0; tag='PT-1'; long_tag='Pump one'")});
        QVERIFY(m_line.start(line));
        Device* device = m_line.addDevice(0);
        // What the program looks for.
        for (const char* key : {"tag", "long_tag"})
            if ((command == 11 || command == 21) && settings.contains(key))
                device->setDeviceInfo(key, settings.value(key));
        QSignalSpy errors(device, &Device::deviceError);
        QVERIFY(command == 11 || command == 21 ? device->writeDevice(command) : device->readDevice(command));
        QCOMPARE((QList<QByteArray>{device->hartAddress(), device->hartDeviceID(), device->vendorID(),
                                    device->expandedDeviceType()}),
                 (QList<QByteArray>{hartAddress, hartAddress.mid(2), hx("0011"), hx("112a")}));
        VERIFY_NO_MISMATCH(
            mismatches(device->deviceInfo(), {{"deviceID", hartAddress.mid(2)}, {"universal_cmd_version", 7}}));
        QCOMPARE((QList<int>{device->state(), int(errors.size())}), (QList<int>{2, 0}));
        QCOMPARE(device->serialSettings().name, m_line.sim.path());
        QCOMPARE(linesStartingWith(*device, QStringLiteral("Try to check")),
                 QStringList({tryLine.arg(m_line.port->configName())}));
        QCOMPARE(linesStartingWith(*device, QStringLiteral("Checked")), QStringList({checkedLine}));
        const hartsim::RequestRecord record = m_line.sim.record(1);
        QCOMPARE(int(record.command), command);
        QTEST(record.address, "frameAddress");
        QTEST(record.data, "request");

        // Later frames go to the long address, with the master's bit.
        QVERIFY(device->readDevice(1));
        QCOMPARE(m_line.sim.record(2).address, char(0x80 | hartAddress.at(0)) + hartAddress.mid(1));
    }

    void identifyFails()
    {
        // Nobody at the address.
        QVERIFY(m_line.start({{"generic", {{"polling_address", 0}}}}));
        Device* device = m_line.addDevice(9);
        QSignalSpy errors(device, &Device::deviceError);
        QVERIFY(!device->readDevice(0));
        QVERIFY(!device->isIdentified());
        QCOMPARE((QList<int>{device->state(), device->errorCode()}), (QList<int>{3, 4}));
        QCOMPARE(linesStartingWith(*device, QStringLiteral("Get device ID by cmd 0 error:")).size(), 1);
        QCOMPARE(errors.size(), 1);
        const QString signalText = errors.first().at(0).toString();
        QVERIFY2(signalText.startsWith(QStringLiteral("error 4 executing cmd=0 - ")), qPrintable(signalText));
        QVERIFY(!signalText.contains(QLatin1Char('\n')));

        // A tag the line cannot carry: nothing goes out, so no traces and no
        // status of the earlier exchange.
        m_line.sim.line().clearLog();
        device = m_line.addDevice(0);
        QVERIFY(device->readDevice(0));
        QVERIFY(m_line.sim.line().waitForRequests(1, 3000));
        m_line.sim.line().clearLog();
        device->setDeviceInfo("tag", QStringLiteral("pt-1"));
        QSignalSpy tagErrors(device, &Device::deviceError);
        const int before = int(device->messageLog().size());
        QVERIFY(!device->writeDevice(11));
        QCOMPARE(device->errorText(), QStringLiteral("Invalid chars in device tag!"));
        QCOMPARE((QList<int>{device->state(), device->errorCode() != 1, int(tagErrors.size())}), (QList<int>{3, 1, 1}));
        QCOMPARE(device->messageLog().mid(before),
                 QList<QString>({QStringLiteral("Try to check %1 by tag 'pt-1' via %2 ...")
                                     .arg(device->name(), m_line.port->configName()),
                                 QStringLiteral("Get device ID by cmd 11 error: Invalid chars in device tag!")}));
        QCOMPARE(device->statusBytes(), QByteArray());
        QCOMPARE(m_line.served(device, 0), QList<int>({16}));
    }

    void failedRead_data()
    {
        addColumns<QString, bool, int>({"cause", "closeOnError", "code"});
        QTest::newRow("no answer, port closed") << "no answer" << true << 4;
        QTest::newRow("no answer, port kept open") << "no answer" << false << 4;
        QTest::newRow("no such file") << "no such file" << true << 3;
        QTest::newRow("a file that is no serial port") << "no tty" << false << 4;
    }

    void failedRead()
    {
        QFETCH(QString, cause);
        QFETCH(bool, closeOnError);
        QFETCH(int, code);

        Device* device = identifiedOnLine();
        QVERIFY(device);
        device->setClosePortOnError(closeOnError);
        QVERIFY(device->readDevice(1));
        Port* port = m_line.port;
        QVERIFY(port->isOpened()); // a good exchange never closes it
        const bool noAnswer = cause == "no answer";
        const QString path = m_dir.filePath("no-modem");
        if (noAnswer) {
            m_line.sim.addFault(0, fault(Fault::NoAnswer, 1));
        } else {
            port->closeHart();
            if (cause == "no tty")
                QVERIFY(!m_dir.writeFile("no-modem", "not a tty").isEmpty());
            QVERIFY(port->setSerialName(path));
        }
        device->setDeviceTagState(1 | 4);
        QSignalSpy errors(device, &Device::deviceError);
        const QVariant pvBefore = device->deviceInfo().value("PV");
        const int requests = m_line.sim.line().requestCount();
        QVERIFY(!device->readDevice(1));
        QCOMPARE((QList<int>{device->errorCode(), device->state()}), (QList<int>{code, 3}));
        const QString portText = port->errorText();
        QVERIFY(!portText.isEmpty() && device->errorText() == portText);
        QCOMPARE(device->deviceInfo().value("PV"), pvBefore);
        QCOMPARE(device->statusBytes(), QByteArray());
        QCOMPARE(device->messageLog().last(),
                 QStringLiteral("error %1 reading 'PV' - %2\nError (processing time: %3ms)")
                     .arg(code)
                     .arg(portText)
                     .arg(device->processingTime()));
        // A line end of the port's text is replaced in the signal.
        QCOMPARE(portText.contains('\n'), cause == "no tty");
        QCOMPARE(errors, QList<QList<QVariant>>({{QStringLiteral("error %1 executing cmd=1 - %2")
                                                      .arg(code)
                                                      .arg(QString(portText).replace('\n', "d - "))}}));
        // Without an answer the identity stays: the line is there. A port that
        // does not open loses it, and tells why.
        QCOMPARE((QList<int>{port->isOpened(), device->isIdentified(), device->deviceTagState()}),
                 (QList<int>{noAnswer && !closeOnError, noAnswer, noAnswer ? 1 | 4 : 1}));
        QCOMPARE(linesStartingWith(*device, "error open port"),
                 noAnswer ? QStringList()
                          : QStringList{QStringLiteral("error open port '%1' - %2").arg(path, portText)});
        if (!noAnswer) {
            QCOMPARE(m_line.sim.line().requestCount(), requests);
            QCOMPARE(device->deviceInfo().value("address").toByteArray(), QByteArray());
        }
        if (cause == "no such file")
            QCOMPARE(portText, QStringLiteral("not such device '%1'").arg(path));

        // And the next read goes through again.
        m_line.sim.line().clearFaults();
        QVERIFY(noAnswer || port->setSerialName(m_line.sim.path()));
        QVERIFY(device->readDevice(1));
        QCOMPARE(device->state(), 2);
    }

    // Command 48 is asked for when the device tells, or always after command 3.
    void additionalStatusRequests_data()
    {
        addColumns<bool, QList<int>>({"always", "served"});
        QTest::newRow("only when the device tells") << false << QList<int>{0, 3, 1, 16};
        QTest::newRow("always: after command 3 only") << true << QList<int>{0, 3, 48, 1, 16};
    }

    void additionalStatusRequests()
    {
        QFETCH(bool, always);
        QFETCH(QList<int>, served);

        Device* device = identifiedOnLine();
        QVERIFY(device);
        device->setAlwaysAdditionalStatus(always);
        QVERIFY(device->readDevice(3));
        QVERIFY(device->readDevice(1));
        QCOMPARE(m_line.served(device, int(served.size()) - 1), served);
        QCOMPARE(device->additionalStatusText(), QString());
    }
};

QTEST_GUILESS_MAIN(TestDevice)
#include "tst_device.moc"
