#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

QByteArray blanks(int count) // packed: every four blanks make 82 08 20
{
    QByteArray out;
    for (int k = 0; k < count; k += 4)
        out += hx("820820");
    return out;
}

// A generic device whose variables stand still: PV 42 kPa, SV 23.5 degC,
// TV 12 m3/h, QV 50 %, range 0 to 100 kPa. The setting "model" picks another.
std::unique_ptr<SimDevice> still(QVariantMap settings = {})
{
    const QString model = settings.take(QStringLiteral("model")).toString();
    return make(model.isEmpty() ? QStringLiteral("generic") : model, settings,
                {"var_0_amplitude", "var_1_amplitude", "var_2_amplitude", "var_3_amplitude"});
}

int status(SimDevice& device, int bit, Master master = Master::Primary)
{
    return device.deviceStatus(master) & bit;
}

} // namespace

class TestSimDevice : public QObject
{
    Q_OBJECT

private slots:
    void createRefusesBadSettings_data();
    void createRefusesBadSettings();
    void addressing_data();
    void addressing();
    void commands_data();
    void commands();
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
    QCOMPARE(still({{"polling_address", 3}})->isAddressedBy(address, quint8(command)), addressed);
}

void TestSimDevice::commands_data()
{
    exchangeColumns();
    const QVariantMap none;
    const QVariantMap hart5{{"model", "hart5"}};
    const QByteArray output = hx("00 00 0C") + f32(100.0f) + f32(0.0f) + f32(0.5f) + hx("00 00 01"); // command 15

    // 254, manufacturer, type, min preambles, revisions 7/1/1, hardware 08,
    // flags, device id, response preambles, last variable, counter, extended
    // status, vendor, private label, profile.
    readRow("0: HART 7", none, 0, hx("FE 11 2A 05 07 01 01 08 00 002A01 05 03 0000 00 0011 0011 01"));
    readRow("0: HART 5", hart5, 0, hx("FE 11 05 05 05 01 01 08 00 000501"));
    readRow("1: PV", none, 1, hx("0C") + f32(42.0f));
    // 42 kPa in 0..100 kPa: 4 + 16 * 0.42 = 10.72 mA, 42 %.
    readRow("2: current", none, 2, f32(10.72f) + f32(42.0f));
    readRow("3: four variables", none, 3,
            f32(10.72f) + hx("0C") + f32(42.0f) + hx("20") + f32(23.5f) + hx("13") + f32(12.0f) + hx("39") +
                f32(50.0f));
    readRow("3: two variables assigned", {{"TV_dev_variable_code", 250}}, 3,
            f32(10.72f) + hx("0C") + f32(42.0f) + hx("20") + f32(23.5f));
    readRow("2: multidrop holds 4 mA", {{"current_loop_mode", 0}}, 2, f32(4.0f) + f32(0.0f));
    readRow("2: saturated above 20.5 mA", {{"range_max", 20.0}}, 2, f32(20.5f) + f32(103.125f));
    readRow("7", {{"polling_address", 5}, {"current_loop_mode", 0}}, 7, hx("05 00"));
    readRow("8", none, 8, hx("41 40 42 00"));
    readRow("9: PV code and variable 1", none, 9,
            hx("00 F6 41 0C") + f32(42.0f) + hx("C0 01 40 20") + f32(23.5f) + hx("C0 00000000"), hx("F6 01"));
    refusalRow("9: unknown variable", none, 9, hx("07"), 2);
    readRow("12: message", {{"message", "ABCD"}}, 12, hx("04 20 C4") + blanks(28));
    readRow("13: tag, descriptor, date", {{"tag", "ABCD"}, {"descriptor", ""}, {"date", "2026-11-22"}}, 13,
            hx("04 20 C4 82 08 20") + blanks(16) + hx("16 0B 7E"));
    readRow("14: sensor", none, 14, hx("002A01 0C") + f32(250.0f) + f32(-100.0f) + f32(1.0f));
    readRow("15: output info", none, 15, output);
    readRow("16", {{"final_assembly_number", 0x123456}}, 16, hx("123456"));
    readRow("20: long tag", {{"long_tag", "Boiler 3 feed"}}, 20, QByteArray("Boiler 3 feed").leftJustified(32, '\0'));
    readRow("33", none, 33, hx("03 39") + f32(50.0f) + hx("00 0C") + f32(42.0f), hx("03 00"));
    refusalRow("33: no codes", none, 33, QByteArray(), 5);
    readRow("50", none, 50, hx("00 01 02 03"));
    readRow("54: PV variable", none, 54,
            hx("00 002A01 0C") + f32(250.0f) + f32(-100.0f) + f32(0.5f) + f32(1.0f) + hx("41 05 00007D00 00"),
            hx("00"));
    readRow("54: variable 1", none, 54,
            hx("01 000002 20") + f32(85.0f) + f32(-40.0f) + f32(0.5f) + f32(1.0f) + hx("40 04 00007D00 00"), hx("01"));
    refusalRow("HART 5: 7 not implemented", hart5, 7, QByteArray(), 64);
    refusalRow("HART 5: 8 not implemented", hart5, 8, QByteArray(), 64);
    refusalRow("HART 5: 9 not implemented", hart5, 9, hx("00"), 64);
    refusalRow("HART 5: 20 not implemented", hart5, 20, QByteArray(), 64);
    readRow("HART 5: 15 without channel flags", hart5, 15, output.left(output.size() - 1));
    refusalRow("unknown command", none, 200, QByteArray(), 64);
    refusalRow("no access code on a generic device", none, 190, hx("00003039"), 64);

    writeRow("6: address and loop mode", none, 6, hx("07 00"), 7, hx("07 00"));
    const QByteArray message = DataCodec::packAscii(QStringLiteral("HELLO PLANT"), 32);
    writeRow("17: message", none, 17, message, 12, message);
    const QByteArray tag = DataCodec::packAscii("PT-7", 8) + DataCodec::packAscii("FEED LINE", 16) + hx("16 0B 7E");
    writeRow("18: tag, descriptor, date", none, 18, tag, 13, tag);
    writeRow("19: final assembly", none, 19, hx("0A0B0C"), 16, hx("0A0B0C"));
    const QByteArray longTag = QByteArray("Pump 7").leftJustified(32, '\0');
    writeRow("22: long tag", none, 22, longTag, 20, longTag);
    writeRow("34: damping", none, 34, f32(2.5f), 15,
             hx("00 00 0C") + f32(100.0f) + f32(0.0f) + f32(2.5f) + hx("00 00 01"));
    writeRow("35: range", none, 35, hx("0C") + f32(200.0f) + f32(-50.0f), 15,
             hx("00 00 0C") + f32(200.0f) + f32(-50.0f) + f32(0.5f) + hx("00 00 01"));
    writeRow("35: span below the minimum is a warning", none, 35, hx("0C") + f32(10.5f) + f32(10.0f), 15,
             hx("00 00 0C") + f32(10.5f) + f32(10.0f) + f32(0.5f) + hx("00 00 01"), QByteArray(), 14);
    writeRow("44: PV unit", none, 44, hx("07"), 1, hx("07") + f32(42.0f));
    writeRow("47: transfer function", none, 47, hx("01"), 15,
             hx("00 01 0C") + f32(100.0f) + f32(0.0f) + f32(0.5f) + hx("00 00 01"));
    writeRow("49: sensor number", none, 49, hx("00BEEF"), 14, hx("00BEEF 0C") + f32(250.0f) + f32(-100.0f) + f32(1.0f));
    writeRow("51: assignments", none, 51, hx("01 00 FA FA"), 50, hx("01 00 FA FA"));
    writeRow("53: variable unit", none, 53, hx("01 21"), 33, hx("01 21") + f32(23.5f), hx("01"));
    writeRow("59: preambles", none, 59, hx("08"), 0,
             hx("FE 11 2A 05 07 01 01 08 00 002A01 08 03 0001 00 0011 0011 01"));

    refusalRow("6: address 64", none, 6, hx("40 00"), 2);
    refusalRow("6: no data", none, 6, QByteArray(), 5);
    refusalRow("17: short message", none, 17, QByteArray(23, '\0'), 5);
    refusalRow("18: 31 February", none, 18, QByteArray(18, '\0') + hx("1F 02 7E"), 2);
    refusalRow("34: damping above 60 s", none, 34, f32(61.0f), 3);
    refusalRow("34: negative damping", none, 34, f32(-1.0f), 4);
    refusalRow("35: other unit", none, 35, hx("07") + f32(100.0f) + f32(0.0f), 18);
    refusalRow("35: lower above the sensor", none, 35, hx("0C") + f32(300.0f) + f32(260.0f), 9);
    refusalRow("35: lower below the sensor", none, 35, hx("0C") + f32(100.0f) + f32(-101.0f), 10);
    refusalRow("35: upper above the sensor", none, 35, hx("0C") + f32(251.0f) + f32(0.0f), 11);
    refusalRow("35: upper below the sensor", none, 35, hx("0C") + f32(-101.0f) + f32(0.0f), 12);
    refusalRow("35: no span", none, 35, hx("0C") + f32(10.0f) + f32(10.0f), 29);
    refusalRow("38: counter mismatch", none, 38, hx("0005"), 9);
    refusalRow("44: unit of another class", none, 44, hx("20"), 2);
    refusalRow("47: unknown function", none, 47, hx("05"), 2);
    refusalRow("51: PV not used", none, 51, hx("FA 01"), 2);
    refusalRow("53: unknown variable", none, 53, hx("09 0C"), 2);
    refusalRow("59: too many preambles", none, 59, hx("15"), 3);
    refusalRow("59: too few preambles", none, 59, hx("04"), 4);
    refusalRow("129: unknown selection", none, 129, hx("02"), 2);
}

void TestSimDevice::commands()
{
    QFETCH(QVariantMap, settings);
    auto device = still(settings);
    QVERIFY(device);
    checkExchange(*device);
}

void TestSimDevice::configurationChangedPerMaster()
{
    auto device = still();
    run(*device, 0);
    status(*device, 0x20);
    status(*device, 0x20, Master::Secondary);
    QCOMPARE(run(*device, 19, hx("000001")).code, quint8(0));
    QCOMPARE(status(*device, 0x40), 0x40);
    QCOMPARE(status(*device, 0x40, Master::Secondary), 0x40);

    // The primary master resets its flag with the counter it knows; a reset
    // is not itself a change.
    const Reply reset = run(*device, 38, hx("0001"));
    QCOMPARE(reset.code, quint8(0));
    QCOMPARE(reset.data, hx("0001"));
    QCOMPARE(status(*device, 0x40), 0);
    QCOMPARE(status(*device, 0x40, Master::Secondary), 0x40);
    QCOMPARE(device->param("modify_count").toInt(), 1);
}

void TestSimDevice::coldStartOncePerMaster()
{
    auto device = still();
    run(*device, 0);
    QCOMPARE(status(*device, 0x20), 0x20);
    QCOMPARE(status(*device, 0x20), 0);
    QCOMPARE(status(*device, 0x20, Master::Secondary), 0x20);
    QCOMPARE(run(*device, 42).code, quint8(0));
    QCOMPARE(status(*device, 0x20), 0x20);
}

void TestSimDevice::writeProtection()
{
    auto device = still();
    QCOMPARE(run(*device, 129, hx("01")).code, quint8(0));
    QCOMPARE(run(*device, 18, QByteArray(18, '\0') + hx("01 01 7E")).code, quint8(7));
    QCOMPARE(run(*device, 34, f32(1.0f)).code, quint8(7));
    // Lifting it over the line is refused; reading still works.
    QCOMPARE(run(*device, 129, hx("00")).code, quint8(7));
    QCOMPARE(run(*device, 13).code, quint8(0));
    QCOMPARE(run(*device, 15).data.at(15), '\x01');
    device->clearWriteProtectionFromMenu();
    QCOMPARE(run(*device, 34, f32(1.0f)).code, quint8(0));
}

void TestSimDevice::additionalStatus()
{
    auto device = still();
    run(*device, 0);
    QCOMPARE(status(*device, 0x10), 0);
    device->setParam("error_code", 5);
    device->setParam("EEPROM_flags", 0x02);
    QCOMPARE(status(*device, 0x10), 0x10);
    const Reply read = run(*device, 48);
    QCOMPARE(read.data.size(), 25);
    QCOMPARE(read.data.left(9), hx("05 00 02 00 00 00 00 00 00"));
    // Reading alone does not acknowledge on a HART 7 device; other bytes sent
    // back answer the present status and clear nothing; the bytes read clear.
    QCOMPARE(status(*device, 0x10), 0x10);
    QCOMPARE(run(*device, 48, QByteArray(9, '\0')).data, read.data);
    QCOMPARE(status(*device, 0x10), 0x10);
    QCOMPARE(run(*device, 48, read.data).data, read.data);
    QCOMPARE(status(*device, 0x10), 0);

    // A HART 5 device takes the read as the acknowledgement.
    auto old = still({{"model", "hart5"}, {"error_code", 1}});
    QCOMPARE(status(*old, 0x10), 0x10);
    QCOMPARE(run(*old, 48).data.size(), 9);
    QCOMPARE(status(*old, 0x10), 0);
}

void TestSimDevice::fixedCurrentAndTrim()
{
    auto device = still();
    // Trimming needs the output fixed at the point being trimmed.
    QCOMPARE(run(*device, 45, f32(4.01f)).code, quint8(9));
    QCOMPARE(run(*device, 40, f32(4.0f)).data, f32(4.0f));
    QCOMPARE(status(*device, 0x08), 0x08);
    QCOMPARE(run(*device, 2).data, f32(4.0f) + f32(0.0f));
    const Reply trim = run(*device, 45, f32(4.01f));
    QCOMPARE(trim.code, quint8(0));
    QCOMPARE(trim.data, f32(4.01f));
    QCOMPARE(run(*device, 46, f32(20.0f)).code, quint8(9));
    QCOMPARE(run(*device, 40, f32(30.0f)).code, quint8(3));
    // 0 leaves the fixed mode.
    QCOMPARE(run(*device, 40, f32(0.0f)).data, f32(0.0f));
    QCOMPARE(status(*device, 0x08), 0);
    QCOMPARE(run(*device, 2).data, f32(10.72f) + f32(42.0f));

    auto multidrop = still({{"polling_address", 4}, {"current_loop_mode", 0}});
    QCOMPARE(run(*multidrop, 40, f32(4.0f)).code, quint8(11));
    QCOMPARE(run(*multidrop, 45, f32(4.0f)).code, quint8(11));
}

void TestSimDevice::findByButton()
{
    auto device = still();
    QVERIFY(run(*device, 73).silent);
    device->setButtonPressed(true);
    const Reply found = run(*device, 73);
    QVERIFY(!found.silent);
    QCOMPARE(found.data, run(*device, 0).data);
    QVERIFY(run(*still({{"model", "hart5"}, {"button_pressed", true}}), 73).silent);
}

void TestSimDevice::busyAfterSelfTest()
{
    auto device = still({{"self_test_ms", 500}});
    QCOMPARE(run(*device, 41, QByteArray(), 10.0).code, quint8(0));
    QCOMPARE(run(*device, 1, QByteArray(), 10.4).code, quint8(32));
    QCOMPARE(run(*device, 1, QByteArray(), 10.6).code, quint8(0));
}

QTEST_GUILESS_MAIN(TestSimDevice)
#include "tst_simdevice.moc"
