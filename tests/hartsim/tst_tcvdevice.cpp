#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

// A converter whose process temperature stands still at 25 degC unless the
// settings say otherwise.
std::unique_ptr<SimDevice> make(const QVariantMap& settings = {})
{
    return simtest::make(QStringLiteral("TCV-C"), settings, {"process_temperature_amplitude"});
}

} // namespace

// The reads and writes of the configuration, the correction points, the
// channel readings and the adjustments are driven end to end by the program's
// tests of its TCV-C model; here are the converter's refusals, its access
// code and how it measures each input.
class TestTcvDevice : public QObject
{
    Q_OBJECT

private slots:
    void commands_data();
    void commands();
    void temperatureFromInput_data();
    void temperatureFromInput();
    void accessCode();
};

void TestTcvDevice::commands_data()
{
    exchangeColumns();
    const QVariantMap none;
    const QVariantMap thermocouple{{"input_signal_type", 1}};
    const QVariantMap protectedWrites{{"write_protection", 1}};

    // The sensor limits follow the sensor: Pt -200..850 degC, A-1 0..2500,
    // K -200..1372; the least span 10 degC.
    readRow("14 Pt", none, 14, hx("009101 20 44548000 C3480000 41200000"));
    readRow("14 A-1", thermocouple, 14, hx("009101 20 451C4000 00000000 41200000"));
    readRow("14 K", {{"input_signal_type", 1}, {"sensor_type", 6}}, 14, hx("009101 20 44AB8000 C3480000 41200000"));
    // A new input whose list lacks the sensor chosen starts from its first.
    writeRow("151 back to resistance", {{"input_signal_type", 1}, {"sensor_type", 9}}, 151, hx("00"), 150, hx("00 00"));

    refusalRow("133 two decimals", none, 133, hx("02"), 9);
    refusalRow("133 empty", none, 133, QByteArray(), 5);
    refusalRow("134 zero samples", none, 134, hx("00"), 4);
    refusalRow("151 no such input", none, 151, hx("03"), 2);
    refusalRow("152 thermometer list has 5", none, 152, hx("05"), 2);
    refusalRow("152 thermocouple list has 13", thermocouple, 152, hx("0D"), 2);
    refusalRow("152 empty", none, 152, QByteArray(), 5);
    refusalRow("154 no such schema", none, 154, hx("02"), 2);
    refusalRow("156 zero R0", none, 156, f32(0.0f), 4);
    refusalRow("156 short", none, 156, hx("42C8"), 5);
    refusalRow("158 negative wires", none, 158, f32(-1.0f), 4);
    refusalRow("143 short", none, 143, hx("000000"), 5);
    refusalRow("143 on a thermocouple", thermocouple, 143, f32(0.0f), 8);
    refusalRow("144 on the free ends", {{"input_signal_type", 2}}, 144, f32(100.0f), 8);
    // The second point needs a first at another temperature and a resistance
    // that rises with it (here 109.625 ohm at 25 degC).
    refusalRow("144 without a first point", none, 144, f32(100.0f), 6);
    refusalRow("144 at the first point's temperature",
               {{"first_correction_point", 25.0}, {"correction_resistance_1", 109.625}}, 144, f32(25.5f), 6);
    refusalRow("144 with a falling resistance", {{"first_correction_point", 10.0}, {"correction_resistance_1", 120.0}},
               144, f32(80.0f), 6);
    refusalRow("174 resistance of a thermocouple", thermocouple, 174, hx("00"), 8);
    refusalRow("174 voltage of a thermometer", none, 174, hx("01"), 8);
    refusalRow("174 free ends of a thermometer", none, 174, hx("02"), 8);
    refusalRow("174 empty", none, 174, QByteArray(), 5);
    // Access open: a thermometer has no voltage channel to adjust.
    refusalRow("171 on a thermometer", none, 171, f32(1.0f), 8);
    refusalRow("192 mode 2", none, 192, hx("02"), 2);
    refusalRow("192 empty", none, 192, QByteArray(), 5);
    refusalRow("135 not ours", none, 135, QByteArray(), 64);
    refusalRow("156 write-protected", protectedWrites, 156, f32(101.0f), 7);
    refusalRow("172 write-protected", protectedWrites, 172, f32(109.625f), 7);
}

void TestTcvDevice::commands()
{
    QFETCH(QVariantMap, settings);
    auto device = make(settings);
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    checkExchange(*device);
}

void TestTcvDevice::temperatureFromInput_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<double>("expected");

    // Resistance thermometers: the sensor gives R0 (1 + alpha T) plus the
    // leads on the 2/4-wire schema; the converter uses its own R0 and leads.
    // Rm = 1.2 + 101.5 * (1 + 0.00385 * 25) = 112.469375; T = 12.469375 / 0.385.
    const QVariantMap wrongR0{{"sensor_r0_true", 101.5}, {"wire_resistance_true", 1.2}};
    QTest::newRow("wrong R0, leads not known") << wrongR0 << 32.38799;
    // The 3-wire schema cancels the leads, and so does knowing them: 11.269375 / 0.385.
    QVariantMap threeWire = wrongR0;
    threeWire.insert("connection_schema", 1);
    QTest::newRow("wrong R0, 3-wire") << threeWire << 29.27110;
    QVariantMap leadsKnown = wrongR0;
    leadsKnown.insert("resistance_conn_wires", 1.2);
    QTest::newRow("wrong R0, leads known") << leadsKnown << 29.27110;
    // Thermocouple K (0.041 mV/degC), 500 degC, free ends at 22 degC:
    // E = 0.041 * 478 mV, 478 degC, + 22 when compensated.
    const QVariantMap k{
        {"input_signal_type", 1}, {"sensor_type", 6}, {"process_temperature", 500.0}, {"free_ends_temperature", 22.0}};
    QTest::newRow("K compensated") << k << 500.0;
    QVariantMap uncompensated = k;
    uncompensated.insert("free_ends_compensation", 0);
    QTest::newRow("K uncompensated") << uncompensated << 478.0;
    // The compensation reads the free ends through its own channel.
    QVariantMap freeEndsError = k;
    freeEndsError.insert("adc_temperature_error", -0.7);
    QTest::newRow("K with a free-ends error") << freeEndsError << 499.3;
    // In kelvin: 25 degC.
    QTest::newRow("Pt100 in kelvin") << QVariantMap{{"var_0_unit", 35}} << 298.15;
    QTest::newRow("free-ends sensor") << QVariantMap{{"input_signal_type", 2},
                                                     {"free_ends_temperature", 22.0},
                                                     {"adc_temperature_error", 0.5}}
                                      << 22.5;
}

void TestTcvDevice::temperatureFromInput()
{
    QFETCH(QVariantMap, settings);
    QFETCH(double, expected);
    const Reply reply = run(*make(settings), 1);
    QCOMPARE(reply.data.size(), 5);
    QCOMPARE(int(quint8(reply.data.at(0))), settings.value("var_0_unit", 32).toInt());
    QVERIFY_NEAR(floatAt(reply.data, 1), expected, 2e-3);
}

void TestTcvDevice::accessCode()
{
    auto device = make();
    const QByteArray ohms = f32(109.625f);
    // The current trims are adjustments too; configuration writes are not.
    checkAccess(*device, {{172, ohms}, {45, f32(4.0f)}, {46, f32(20.0f)}, {171, f32(1.0f)}, {173, f32(22.0f)}},
                {{156, f32(100.0f)}, {143, f32(25.0f)}});
    QCOMPARE(code(*device, 190, hx("3039")), 5);

    // The code 0 closes, and so does a reset.
    QCOMPARE(run(*device, 190, hx("00000000")).data, hx("00"));
    QCOMPARE(code(*device, 172, ohms), 16);
    QVERIFY(openAccess(*device));
    QCOMPARE(code(*device, 42), 0);
    QCOMPARE(code(*device, 172, ohms), 16);

    // Ten minutes without a protected command close; each one restarts the time.
    QVERIFY(openAccess(*device, 0.0));
    QCOMPARE(code(*device, 172, ohms, 500.0), 0);
    QCOMPARE(code(*device, 172, ohms, 1000.0), 0);
    QCOMPARE(code(*device, 172, ohms, 1601.0), 16);
}

QTEST_APPLESS_MAIN(TestTcvDevice)

#include "tst_tcvdevice.moc"
