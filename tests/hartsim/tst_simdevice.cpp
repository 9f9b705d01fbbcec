#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

// A generic device whose variables stand still: PV 42 kPa, SV 23.5 degC,
// TV 12 m3/h, QV 50 %, range 0 to 100 kPa. The setting "model" picks another.
std::unique_ptr<SimDevice> still(QVariantMap settings = {})
{
    const QString model = settings.take(QStringLiteral("model")).toString();
    return make(model.isEmpty() ? QStringLiteral("generic") : model, settings,
                {"var_0_amplitude", "var_1_amplitude", "var_2_amplitude", "var_3_amplitude"});
}

} // namespace

// The identities and the commands of the generic device that the program's
// tests read and write end to end are left to them; here is what they do not
// see.
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
    void processValuesMove();
    void configurationChangedAndColdStartPerMaster();
    void writeProtection();
    void additionalStatus();
    void fixedCurrent();
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

    QTest::newRow("short, burst bit") << hx("C3") << 1 << true;
    QTest::newRow("other short") << hx("84") << 1 << false;
    QTest::newRow("long, secondary") << hx("11 2A 00 2A 01") << 1 << true;
    QTest::newRow("other device id") << hx("91 2A 00 2A 02") << 1 << false;
    QTest::newRow("broadcast, command 21") << hx("00 00 00 00 00") << 21 << true;
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

    // 42 kPa in 0..100 kPa is 10.72 mA; multidrop holds 4 mA; 42 kPa in
    // 0..20 kPa saturates at 20.5 mA.
    readRow("2: multidrop holds 4 mA", {{"current_loop_mode", 0}}, 2, f32(4.0f) + f32(0.0f));
    readRow("2: saturated above 20.5 mA", {{"range_max", 20.0}}, 2, f32(20.5f) + f32(103.125f));
    // Code 246 stands for the PV's variable; the time stamp of clock 0 is 0.
    readRow("9: PV code and variable 1", none, 9,
            hx("00 F6 41 0C") + f32(42.0f) + hx("C0 01 40 20") + f32(23.5f) + hx("C0 00000000"), hx("F6 01"));
    readRow("54: variable 1", none, 54,
            hx("01 000002 20") + f32(85.0f) + f32(-40.0f) + f32(0.5f) + f32(1.0f) + hx("40 04 00007D00 00"), hx("01"));
    readRow("HART 5: 15 without channel flags", hart5, 15,
            hx("00 00 0C") + f32(100.0f) + f32(0.0f) + f32(0.5f) + hx("00 00"));
    refusalRow("HART 5: 7 not implemented", hart5, 7, QByteArray(), 64);
    refusalRow("HART 5: 9 not implemented", hart5, 9, hx("00"), 64);
    refusalRow("HART 5: 20 not implemented", hart5, 20, QByteArray(), 64);
    refusalRow("unknown command", none, 200, QByteArray(), 64);
    refusalRow("no access code on a generic device", none, 190, hx("00003039"), 64);
    refusalRow("no factory settings on a generic device", none, 192, hx("01"), 64);

    writeRow("6: address and loop mode", none, 6, hx("07 00"), 7, hx("07 00"));
    writeRow("35: span below the minimum is a warning", none, 35, hx("0C") + f32(10.5f) + f32(10.0f), 15,
             hx("00 00 0C") + f32(10.5f) + f32(10.0f) + f32(0.5f) + hx("00 00 01"), 14);
    writeRow("59: preambles", none, 59, hx("08"), 0,
             hx("FE 11 2A 05 07 01 01 08 00 002A01 08 03 0001 00 0011 0011 01"));

    refusalRow("6: address 64", none, 6, hx("40 00"), 2);
    refusalRow("6: no data", none, 6, QByteArray(), 5);
    refusalRow("9: unknown variable", none, 9, hx("07"), 2);
    refusalRow("17: short message", none, 17, QByteArray(23, '\0'), 5);
    refusalRow("18: 31 February", none, 18, QByteArray(18, '\0') + hx("1F 02 7E"), 2);
    refusalRow("33: no codes", none, 33, QByteArray(), 5);
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
    // Trimming needs the output fixed at the point trimmed, and a loop current.
    refusalRow("40: above 24 mA", none, 40, f32(30.0f), 3);
    refusalRow("45: output not fixed", none, 45, f32(4.01f), 9);
    refusalRow("40: multidrop", {{"polling_address", 4}, {"current_loop_mode", 0}}, 40, f32(4.0f), 11);
    refusalRow("45: multidrop", {{"polling_address", 4}, {"current_loop_mode", 0}}, 45, f32(4.0f), 11);
}

void TestSimDevice::commands()
{
    QFETCH(QVariantMap, settings);
    auto device = still(settings);
    QVERIFY(device);
    checkExchange(*device);
}

void TestSimDevice::processValuesMove()
{
    // PV 42 kPa swinging by 2 kPa over 60 s; the time stamp of command 9
    // counts 1/32 ms from midnight of the clock.
    auto device = make("generic", {}, {});
    QVERIFY_NEAR(floatAt(run(*device, 1, {}, 15.0).data, 1), 44.0, 1e-4);
    QVERIFY_NEAR(floatAt(run(*device, 1, {}, 30.0).data, 1), 42.0, 1e-4);
    QVERIFY_NEAR(floatAt(run(*device, 1, {}, 45.0).data, 1), 40.0, 1e-4);
    QCOMPARE(run(*device, 9, hx("00"), 86401.0).data.right(4), hx("00007D00"));
}

void TestSimDevice::configurationChangedAndColdStartPerMaster()
{
    auto device = still();
    run(*device, 0);
    // The cold start is told once to each master, and again after a reset.
    QCOMPARE(status(*device, 0x20), 0x20);
    QCOMPARE(status(*device, 0x20), 0);
    QCOMPARE(status(*device, 0x60, Master::Secondary), 0x20);
    QCOMPARE(code(*device, 19, hx("000001")), 0);
    QCOMPARE(status(*device, 0x60), 0x40);
    QCOMPARE(status(*device, 0x60, Master::Secondary), 0x40);

    // The primary master resets its flag with the counter it knows; a reset
    // is not itself a change.
    const Reply reset = run(*device, 38, hx("0001"));
    QCOMPARE(int(reset.code), 0);
    QCOMPARE(reset.data, hx("0001"));
    QCOMPARE(status(*device, 0x40), 0);
    QCOMPARE(status(*device, 0x40, Master::Secondary), 0x40);
    QCOMPARE(device->param("modify_count").toInt(), 1);
    QCOMPARE(code(*device, 42), 0);
    QCOMPARE(status(*device, 0x20), 0x20);
}

void TestSimDevice::writeProtection()
{
    auto device = still();
    QCOMPARE(code(*device, 129, hx("01")), 0);
    QCOMPARE(status(*device, 0x40), 0x40);
    QCOMPARE(code(*device, 18, QByteArray(18, '\0') + hx("01 01 7E")), 7);
    QCOMPARE(code(*device, 34, f32(1.0f)), 7);
    // Lifting it over the line is refused; reading still works.
    QCOMPARE(code(*device, 129, hx("00")), 7);
    QCOMPARE(code(*device, 13), 0);
    QCOMPARE(run(*device, 15).data.at(15), '\x01');
    QCOMPARE(device->param("modify_count").toInt(), 1);
    device->clearWriteProtectionFromMenu();
    QCOMPARE(code(*device, 34, f32(1.0f)), 0);
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

void TestSimDevice::fixedCurrent()
{
    auto device = still();
    QCOMPARE(run(*device, 40, f32(4.0f)).data, f32(4.0f));
    QCOMPARE(status(*device, 0x08), 0x08);
    QCOMPARE(run(*device, 2).data, f32(4.0f) + f32(0.0f));
    QCOMPARE(run(*device, 45, f32(4.01f)).data, f32(4.01f));
    QCOMPARE(code(*device, 46, f32(20.0f)), 9);
    // 0 leaves the fixed mode: 42 kPa in 0..100 kPa is 10.72 mA again.
    QCOMPARE(run(*device, 40, f32(0.0f)).data, f32(0.0f));
    QCOMPARE(status(*device, 0x08), 0);
    QCOMPARE(run(*device, 2).data, f32(10.72f) + f32(42.0f));
}

void TestSimDevice::busyAfterSelfTest()
{
    auto device = still({{"self_test_ms", 500}});
    QCOMPARE(code(*device, 41, QByteArray(), 10.0), 0);
    QCOMPARE(code(*device, 1, QByteArray(), 10.4), 32);
    QCOMPARE(code(*device, 1, QByteArray(), 10.6), 0);
}

QTEST_GUILESS_MAIN(TestSimDevice)
#include "tst_simdevice.moc"
