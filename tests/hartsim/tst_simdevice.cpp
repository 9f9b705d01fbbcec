#include "datacodec.h"
#include "simdevice.h"

#include <QtTest>

using namespace hartsim;

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

// Packed blanks: every four blanks make the three bytes 82 08 20.
QByteArray blanks(int count)
{
    QByteArray out;
    for (int k = 0; k < count; k += 4)
        out += QByteArray::fromHex("820820");
    return out;
}

QByteArray f32(float value)
{
    QByteArray out;
    DataCodec::putFloat(out, value);
    return out;
}

// A generic device whose variables stand still: PV 42 kPa, SV 23.5 degC,
// TV 12 m3/h, QV 50 %, range 0 to 100 kPa.
std::unique_ptr<SimDevice> still(const QString& model = QStringLiteral("generic"), QVariantMap settings = {})
{
    for (int code = 0; code < 4; ++code)
        settings.insert(QStringLiteral("var_%1_amplitude").arg(code), 0.0);
    QString error;
    auto device = SimDevice::create(model, settings, &error);
    if (!device)
        qWarning("%s", qPrintable(error));
    return device;
}

Reply run(SimDevice& device, int command, const QByteArray& data = QByteArray(), Master master = Master::Primary)
{
    return device.handle(quint8(command), data, master, 0.0);
}

} // namespace

Q_DECLARE_METATYPE(hartsim::Master)

class TestSimDevice : public QObject
{
    Q_OBJECT

private slots:
    void createRefusesBadSettings_data();
    void createRefusesBadSettings();
    void identity_data();
    void identity();
    void addressing_data();
    void addressing();
    void reads_data();
    void reads();
    void echoedWrites_data();
    void echoedWrites();
    void refusals_data();
    void refusals();
    void configurationChangedPerMaster();
    void coldStartOncePerMaster();
    void writeProtection();
    void additionalStatus();
    void fixedCurrentAndTrim();
    void findByButton();
    void busyAfterSelfTest();
};

void TestSimDevice::createRefusesBadSettings_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<QString>("error");

    QTest::newRow("unknown model") << "TCV-X" << QVariantMap() << "unknown model \"TCV-X\"";
    QTest::newRow("unknown key") << "generic" << QVariantMap{{"tagg", "X"}} << "unknown setting \"tagg\"";
    QTest::newRow("text for a number") << "generic" << QVariantMap{{"polling_address", "3"}}
                                       << "\"polling_address\" must be a number";
    QTest::newRow("number for a text") << "generic" << QVariantMap{{"tag", 5}} << "\"tag\" must be a string";
    QTest::newRow("number for a flag") << "generic" << QVariantMap{{"malfunction", 1}}
                                       << "\"malfunction\" must be true or false";
}

void TestSimDevice::createRefusesBadSettings()
{
    QFETCH(QString, model);
    QFETCH(QVariantMap, settings);
    QFETCH(QString, error);
    QString text;
    QVERIFY(!SimDevice::create(model, settings, &text));
    QVERIFY2(text.contains(error), qPrintable(text));
}

void TestSimDevice::identity_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("longAddress");

    // 254, manufacturer, type, min preambles, revisions 7/1/1, hardware 08,
    // flags, device id, response preambles, last variable, counter, extended
    // status, vendor, private label, profile.
    QTest::newRow("HART 7") << "generic" << hx("FE 11 2A 05 07 01 01 08 00 002A01 05 03 0000 00 0011 0011 01")
                            << hx("11 2A 00 2A 01");
    QTest::newRow("HART 5") << "hart5" << hx("FE 11 05 05 05 01 01 08 00 000501") << hx("11 05 00 05 01");
}

void TestSimDevice::identity()
{
    QFETCH(QString, model);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, longAddress);
    auto device = still(model);
    const Reply reply = run(*device, 0);
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, data);
    QCOMPARE(device->longAddress(), longAddress);
}

void TestSimDevice::addressing_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<int>("command");
    QTest::addColumn<bool>("addressed");

    QTest::newRow("short, primary") << hx("83") << 1 << true;
    QTest::newRow("short, secondary") << hx("03") << 1 << true;
    QTest::newRow("short, burst bit") << hx("C3") << 1 << true;
    QTest::newRow("other short") << hx("84") << 1 << false;
    QTest::newRow("long, primary") << hx("91 2A 00 2A 01") << 1 << true;
    QTest::newRow("long, secondary") << hx("11 2A 00 2A 01") << 1 << true;
    QTest::newRow("other device id") << hx("91 2A 00 2A 02") << 1 << false;
    QTest::newRow("broadcast, command 11") << hx("80 00 00 00 00") << 11 << true;
    QTest::newRow("broadcast, command 21") << hx("00 00 00 00 00") << 21 << true;
    QTest::newRow("broadcast, command 73") << hx("80 00 00 00 00") << 73 << true;
    QTest::newRow("broadcast, command 1") << hx("80 00 00 00 00") << 1 << false;
    QTest::newRow("three bytes") << hx("83 00 00") << 1 << false;
}

void TestSimDevice::addressing()
{
    QFETCH(QByteArray, address);
    QFETCH(int, command);
    QFETCH(bool, addressed);
    auto device = still(QStringLiteral("generic"), {{"polling_address", 3}});
    QCOMPARE(device->isAddressedBy(address, quint8(command)), addressed);
}

void TestSimDevice::reads_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("data");

    const QVariantMap none;
    QTest::newRow("1: PV") << "generic" << none << 1 << QByteArray() << 0 << hx("0C") + f32(42.0f);
    // 42 kPa in 0..100 kPa: 4 + 16 * 0.42 = 10.72 mA, 42 %.
    QTest::newRow("2: current") << "generic" << none << 2 << QByteArray() << 0 << f32(10.72f) + f32(42.0f);
    QTest::newRow("3: four variables") << "generic" << none << 3 << QByteArray() << 0
                                       << f32(10.72f) + hx("0C") + f32(42.0f) + hx("20") + f32(23.5f) + hx("13") +
                                              f32(12.0f) + hx("39") + f32(50.0f);
    QTest::newRow("3: two variables assigned")
        << "generic" << QVariantMap{{"TV_dev_variable_code", 250}} << 3 << QByteArray() << 0
        << f32(10.72f) + hx("0C") + f32(42.0f) + hx("20") + f32(23.5f);
    QTest::newRow("3: multidrop holds 4 mA")
        << "generic" << QVariantMap{{"current_loop_mode", 0}} << 2 << QByteArray() << 0 << f32(4.0f) + f32(0.0f);
    QTest::newRow("3: saturated above 20.5 mA")
        << "generic" << QVariantMap{{"range_max", 20.0}} << 2 << QByteArray() << 0 << f32(20.5f) + f32(103.125f);
    QTest::newRow("7") << "generic" << QVariantMap{{"polling_address", 5}, {"current_loop_mode", 0}} << 7
                       << QByteArray() << 0 << hx("05 00");
    QTest::newRow("8") << "generic" << none << 8 << QByteArray() << 0 << hx("41 40 42 00");
    QTest::newRow("9: PV code and variable 1")
        << "generic" << none << 9 << hx("F6 01") << 0
        << hx("00") + hx("F6 41 0C") + f32(42.0f) + hx("C0") + hx("01 40 20") + f32(23.5f) + hx("C0") + hx("00000000");
    QTest::newRow("9: unknown variable") << "generic" << none << 9 << hx("07") << 2 << QByteArray();
    QTest::newRow("12: message") << "generic" << QVariantMap{{"message", "ABCD"}} << 12 << QByteArray() << 0
                                 << hx("04 20 C4") + blanks(28);
    QTest::newRow("13: tag, descriptor, date")
        << "generic" << QVariantMap{{"tag", "ABCD"}, {"descriptor", ""}, {"date", "2026-11-22"}} << 13 << QByteArray()
        << 0 << hx("04 20 C4 82 08 20") + blanks(16) + hx("16 0B 7E");
    QTest::newRow("14: sensor") << "generic" << none << 14 << QByteArray() << 0
                                << hx("002A01 0C") + f32(250.0f) + f32(-100.0f) + f32(1.0f);
    QTest::newRow("15: output info") << "generic" << none << 15 << QByteArray() << 0
                                     << hx("00 00 0C") + f32(100.0f) + f32(0.0f) + f32(0.5f) + hx("00 00 01");
    QTest::newRow("16") << "generic" << QVariantMap{{"final_assembly_number", 0x123456}} << 16 << QByteArray() << 0
                        << hx("123456");
    QTest::newRow("20: long tag") << "generic" << QVariantMap{{"long_tag", "Boiler 3 feed"}} << 20 << QByteArray() << 0
                                  << QByteArray("Boiler 3 feed").leftJustified(32, '\0');
    QTest::newRow("33") << "generic" << none << 33 << hx("03 00") << 0
                        << hx("03 39") + f32(50.0f) + hx("00 0C") + f32(42.0f);
    QTest::newRow("33: no codes") << "generic" << none << 33 << QByteArray() << 5 << QByteArray();
    QTest::newRow("50") << "generic" << none << 50 << QByteArray() << 0 << hx("00 01 02 03");
    QTest::newRow("54: PV variable") << "generic" << none << 54 << hx("00") << 0
                                     << hx("00 002A01 0C") + f32(250.0f) + f32(-100.0f) + f32(0.5f) + f32(1.0f) +
                                            hx("41 05") + hx("00007D00 00");
    QTest::newRow("54: variable 1") << "generic" << none << 54 << hx("01") << 0
                                    << hx("01 000002 20") + f32(85.0f) + f32(-40.0f) + f32(0.5f) + f32(1.0f) +
                                           hx("40 04") + hx("00007D00 00");
    QTest::newRow("HART 5: 7 not implemented") << "hart5" << none << 7 << QByteArray() << 64 << QByteArray();
    QTest::newRow("HART 5: 8 not implemented") << "hart5" << none << 8 << QByteArray() << 64 << QByteArray();
    QTest::newRow("HART 5: 9 not implemented") << "hart5" << none << 9 << hx("00") << 64 << QByteArray();
    QTest::newRow("HART 5: 20 not implemented") << "hart5" << none << 20 << QByteArray() << 64 << QByteArray();
    QTest::newRow("HART 5: 15 without channel flags")
        << "hart5" << none << 15 << QByteArray() << 0
        << hx("00 00 0C") + f32(100.0f) + f32(0.0f) + f32(0.5f) + hx("00 00");
    QTest::newRow("unknown command") << "generic" << none << 200 << QByteArray() << 64 << QByteArray();
    QTest::newRow("no access code on a generic device")
        << "generic" << none << 190 << hx("00003039") << 64 << QByteArray();
}

void TestSimDevice::reads()
{
    QFETCH(QString, model);
    QFETCH(QVariantMap, settings);
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, code);
    QFETCH(QByteArray, data);

    auto device = still(model, settings);
    QVERIFY(device);
    const Reply reply = run(*device, command, request);
    QVERIFY(!reply.silent);
    QCOMPARE(int(reply.code), code);
    QCOMPARE(reply.data.toHex(' '), data.toHex(' '));
}

void TestSimDevice::echoedWrites_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("readCommand");
    QTest::addColumn<QByteArray>("readRequest");
    QTest::addColumn<QByteArray>("readBack");

    QTest::newRow("6: address and loop mode") << 6 << hx("07 00") << 7 << QByteArray() << hx("07 00");
    QTest::newRow("17: message") << 17 << DataCodec::packAscii(QStringLiteral("HELLO PLANT"), 32) << 12 << QByteArray()
                                 << DataCodec::packAscii(QStringLiteral("HELLO PLANT"), 32);
    QTest::newRow("18: tag, descriptor, date")
        << 18 << DataCodec::packAscii("PT-7", 8) + DataCodec::packAscii("FEED LINE", 16) + hx("16 0B 7E") << 13
        << QByteArray() << DataCodec::packAscii("PT-7", 8) + DataCodec::packAscii("FEED LINE", 16) + hx("16 0B 7E");
    QTest::newRow("19: final assembly") << 19 << hx("0A0B0C") << 16 << QByteArray() << hx("0A0B0C");
    QTest::newRow("22: long tag") << 22 << QByteArray("Pump 7").leftJustified(32, '\0') << 20 << QByteArray()
                                  << QByteArray("Pump 7").leftJustified(32, '\0');
    QTest::newRow("34: damping") << 34 << f32(2.5f) << 15 << QByteArray()
                                 << hx("00 00 0C") + f32(100.0f) + f32(0.0f) + f32(2.5f) + hx("00 00 01");
    QTest::newRow("35: range") << 35 << hx("0C") + f32(200.0f) + f32(-50.0f) << 15 << QByteArray()
                               << hx("00 00 0C") + f32(200.0f) + f32(-50.0f) + f32(0.5f) + hx("00 00 01");
    QTest::newRow("44: PV unit") << 44 << hx("07") << 1 << QByteArray() << hx("07") + f32(42.0f);
    QTest::newRow("47: transfer function") << 47 << hx("01") << 15 << QByteArray()
                                           << hx("00 01 0C") + f32(100.0f) + f32(0.0f) + f32(0.5f) + hx("00 00 01");
    QTest::newRow("49: sensor number") << 49 << hx("00BEEF") << 14 << QByteArray()
                                       << hx("00BEEF 0C") + f32(250.0f) + f32(-100.0f) + f32(1.0f);
    QTest::newRow("51: assignments") << 51 << hx("01 00 FA FA") << 50 << QByteArray() << hx("01 00 FA FA");
    QTest::newRow("53: variable unit") << 53 << hx("01 21") << 33 << hx("01") << hx("01 21") + f32(23.5f);
    QTest::newRow("59: preambles") << 59 << hx("08") << 0 << QByteArray()
                                   << hx("FE 11 2A 05 07 01 01 08 00 002A01 08 03 0001 00 0011 0011 01");
}

void TestSimDevice::echoedWrites()
{
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, readCommand);
    QFETCH(QByteArray, readRequest);
    QFETCH(QByteArray, readBack);

    auto device = still();
    const Reply reply = run(*device, command, request);
    QCOMPARE(int(reply.code), 0);
    QCOMPARE(reply.data.toHex(' '), request.toHex(' '));
    const Reply read = run(*device, readCommand, readRequest);
    QCOMPARE(int(read.code), 0);
    QCOMPARE(read.data.toHex(' '), readBack.toHex(' '));
}

void TestSimDevice::refusals_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("code");

    QTest::newRow("6: address 64") << 6 << hx("40 00") << 2;
    QTest::newRow("6: no data") << 6 << QByteArray() << 5;
    QTest::newRow("17: short message") << 17 << QByteArray(23, '\0') << 5;
    QTest::newRow("18: 31 February") << 18 << QByteArray(18, '\0') + hx("1F 02 7E") << 2;
    QTest::newRow("34: damping above 60 s") << 34 << f32(61.0f) << 3;
    QTest::newRow("34: negative damping") << 34 << f32(-1.0f) << 4;
    QTest::newRow("35: other unit") << 35 << hx("07") + f32(100.0f) + f32(0.0f) << 18;
    QTest::newRow("35: lower above the sensor") << 35 << hx("0C") + f32(300.0f) + f32(260.0f) << 9;
    QTest::newRow("35: lower below the sensor") << 35 << hx("0C") + f32(100.0f) + f32(-101.0f) << 10;
    QTest::newRow("35: upper above the sensor") << 35 << hx("0C") + f32(251.0f) + f32(0.0f) << 11;
    QTest::newRow("35: upper below the sensor") << 35 << hx("0C") + f32(-101.0f) + f32(0.0f) << 12;
    QTest::newRow("35: no span") << 35 << hx("0C") + f32(10.0f) + f32(10.0f) << 29;
    QTest::newRow("35: span below the minimum is a warning") << 35 << hx("0C") + f32(10.5f) + f32(10.0f) << 14;
    QTest::newRow("38: counter mismatch") << 38 << hx("0005") << 9;
    QTest::newRow("44: unit of another class") << 44 << hx("20") << 2;
    QTest::newRow("47: unknown function") << 47 << hx("05") << 2;
    QTest::newRow("51: PV not used") << 51 << hx("FA 01") << 2;
    QTest::newRow("53: unknown variable") << 53 << hx("09 0C") << 2;
    QTest::newRow("59: too many preambles") << 59 << hx("15") << 3;
    QTest::newRow("59: too few preambles") << 59 << hx("04") << 4;
    QTest::newRow("129: unknown selection") << 129 << hx("02") << 2;
}

void TestSimDevice::refusals()
{
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, code);
    auto device = still();
    const int before = device->param("modify_count").toInt();
    const Reply reply = run(*device, command, request);
    QCOMPARE(int(reply.code), code);
    // Only an executed write counts as a configuration change.
    QCOMPARE(device->param("modify_count").toInt(), before + (code == 14 ? 1 : 0));
}

void TestSimDevice::configurationChangedPerMaster()
{
    auto device = still();
    run(*device, 0);
    device->deviceStatus(Master::Primary);
    device->deviceStatus(Master::Secondary);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x40, 0);

    QCOMPARE(int(run(*device, 19, hx("000001")).code), 0);
    QCOMPARE(device->param("modify_count").toInt(), 1);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x40, 0x40);
    QCOMPARE(device->deviceStatus(Master::Secondary) & 0x40, 0x40);

    // The primary master resets its flag with the counter it knows.
    const Reply reset = run(*device, 38, hx("0001"));
    QCOMPARE(int(reset.code), 0);
    QCOMPARE(reset.data, hx("0001"));
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x40, 0);
    QCOMPARE(device->deviceStatus(Master::Secondary) & 0x40, 0x40);
    // A reset is not itself a change.
    QCOMPARE(device->param("modify_count").toInt(), 1);
}

void TestSimDevice::coldStartOncePerMaster()
{
    auto device = still();
    run(*device, 0);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x20, 0x20);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x20, 0);
    QCOMPARE(device->deviceStatus(Master::Secondary) & 0x20, 0x20);

    QCOMPARE(int(run(*device, 42).code), 0);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x20, 0x20);
}

void TestSimDevice::writeProtection()
{
    auto device = still();
    QCOMPARE(int(run(*device, 129, hx("01")).code), 0);
    QCOMPARE(int(run(*device, 18, QByteArray(18, '\0') + hx("01 01 7E")).code), 7);
    QCOMPARE(int(run(*device, 34, f32(1.0f)).code), 7);
    // Lifting it over the line is refused; reading still works.
    QCOMPARE(int(run(*device, 129, hx("00")).code), 7);
    QCOMPARE(int(run(*device, 13).code), 0);
    QCOMPARE(run(*device, 15).data.at(15), '\x01');

    device->clearWriteProtectionFromMenu();
    QCOMPARE(int(run(*device, 34, f32(1.0f)).code), 0);
}

void TestSimDevice::additionalStatus()
{
    auto device = still();
    run(*device, 0);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x10, 0);

    device->setParam("error_code", 5);
    device->setParam("EEPROM_flags", 0x02);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x10, 0x10);
    const Reply read = run(*device, 48);
    QCOMPARE(read.data.size(), 25);
    QCOMPARE(read.data.left(9), hx("05 00 02 00 00 00 00 00 00"));
    // Reading alone does not acknowledge on a HART 7 device.
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x10, 0x10);
    // Sending back other bytes answers the present status and clears nothing.
    const Reply stale = run(*device, 48, QByteArray(9, '\0'));
    QCOMPARE(stale.data, read.data);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x10, 0x10);
    // Sending back what was read clears it.
    QCOMPARE(run(*device, 48, read.data).data, read.data);
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x10, 0);

    // A HART 5 device takes the read as the acknowledgement.
    auto old = still(QStringLiteral("hart5"), {{"error_code", 1}});
    QCOMPARE(old->deviceStatus(Master::Primary) & 0x10, 0x10);
    QCOMPARE(run(*old, 48).data.size(), 9);
    QCOMPARE(old->deviceStatus(Master::Primary) & 0x10, 0);
}

void TestSimDevice::fixedCurrentAndTrim()
{
    auto device = still();
    // Trimming needs the output fixed at the point being trimmed.
    QCOMPARE(int(run(*device, 45, f32(4.01f)).code), 9);
    QCOMPARE(run(*device, 40, f32(4.0f)).data, f32(4.0f));
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x08, 0x08);
    QCOMPARE(run(*device, 2).data, f32(4.0f) + f32(0.0f));
    const Reply trim = run(*device, 45, f32(4.01f));
    QCOMPARE(int(trim.code), 0);
    QCOMPARE(trim.data, f32(4.01f));
    QCOMPARE(int(run(*device, 46, f32(20.0f)).code), 9);
    QCOMPARE(int(run(*device, 40, f32(30.0f)).code), 3);
    // 0 leaves the fixed mode.
    QCOMPARE(run(*device, 40, f32(0.0f)).data, f32(0.0f));
    QCOMPARE(device->deviceStatus(Master::Primary) & 0x08, 0);
    QCOMPARE(run(*device, 2).data, f32(10.72f) + f32(42.0f));

    auto multidrop = still(QStringLiteral("generic"), {{"polling_address", 4}, {"current_loop_mode", 0}});
    QCOMPARE(int(run(*multidrop, 40, f32(4.0f)).code), 11);
    QCOMPARE(int(run(*multidrop, 45, f32(4.0f)).code), 11);
}

void TestSimDevice::findByButton()
{
    auto device = still();
    QVERIFY(run(*device, 73).silent);
    device->setButtonPressed(true);
    const Reply found = run(*device, 73);
    QVERIFY(!found.silent);
    QCOMPARE(found.data, run(*device, 0).data);
    QVERIFY(run(*still(QStringLiteral("hart5"), {{"button_pressed", true}}), 73).silent);
}

void TestSimDevice::busyAfterSelfTest()
{
    auto device = still(QStringLiteral("generic"), {{"self_test_ms", 500}});
    QCOMPARE(int(device->handle(41, QByteArray(), Master::Primary, 10.0).code), 0);
    QCOMPARE(int(device->handle(1, QByteArray(), Master::Primary, 10.4).code), 32);
    QCOMPARE(int(device->handle(1, QByteArray(), Master::Primary, 10.6).code), 0);
}

QTEST_GUILESS_MAIN(TestSimDevice)
#include "tst_simdevice.moc"
