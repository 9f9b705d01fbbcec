#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

// A converter whose process temperature stands still at 25 degC unless the
// settings say otherwise.
std::unique_ptr<SimDevice> make(QVariantMap settings = {}, const QString& model = QStringLiteral("TCV-C"))
{
    return simtest::make(model, settings, {"process_temperature_amplitude"});
}

void setTemperature(SimDevice& device, double celsius)
{
    device.setParam(QStringLiteral("process_temperature"), celsius);
}

} // namespace

class TestTcvDevice : public QObject
{
    Q_OBJECT

private slots:
    void identity();
    void commands_data();
    void commands();
    void temperatureFromInput_data();
    void temperatureFromInput();
    void channelsOfTheInput();
    void twoPointCorrection();
    void adjustment_data();
    void adjustment();
    void accessCode();
    void manufacturerSettings();
};

void TestTcvDevice::identity()
{
    checkIdentity(*make(), hx("FE E0 91 05 07"), hx("20 91 00 91 01"), 3);
    checkIdentity(*make({}, QStringLiteral("DX-C")), hx("FE E0 92 05 07"), hx("20 92 00 92 01"), 3);
}

void TestTcvDevice::commands_data()
{
    exchangeColumns();
    const QVariantMap none;
    const QVariantMap thermocouple{{"input_signal_type", 1}};
    const QVariantMap freeEnds{{"input_signal_type", 2}};
    const QVariantMap protectedWrites{{"write_protection", 1}};
    const QVariantMap configured{
        {"decimal_point_position", 0}, {"input_signal_type", 1},          {"sensor_type", 6},
        {"connection_schema", 1},      {"resistanceTS_0", 50.0},          {"resistance_conn_wires", 1.5},
        {"free_ends_compensation", 0}, {"first_correction_point", -10.0}, {"second_correction_point", 250.0},
        {"average_count", 8}};

    readRow("130 as delivered", none, 130, hx("01 00 00 00 42C80000 00000000 01 00000000 42C80000 04"));
    readRow("130 configured", configured, 130, hx("00 01 06 01 42480000 3FC00000 00 C1200000 437A0000 08"));
    // The sensor limits follow the sensor: Pt -200..850 degC, A-1 0..2500,
    // K -200..1372; the least span 10 degC.
    readRow("14 Pt", none, 14, hx("009101 20 44548000 C3480000 41200000"));
    readRow("14 A-1", thermocouple, 14, hx("009101 20 451C4000 00000000 41200000"));
    readRow("14 K", {{"input_signal_type", 1}, {"sensor_type", 6}}, 14, hx("009101 20 44AB8000 C3480000 41200000"));
    // Reading a channel changes nothing.
    readRow("174 resistance", none, 174, f32(109.625f), hx("00"));

    writeRow("133 decimal point", none, 133, hx("00"), 132, hx("00"));
    writeRow("134 average count", none, 134, hx("10"), 130,
             hx("01 00 00 00 42C80000 00000000 01 00000000 42C80000 10"));
    writeRow("151 thermocouple", none, 151, hx("01"), 150, hx("01 00"));
    writeRow("151 free ends", none, 151, hx("02"), 150, hx("02 00"));
    writeRow("152 Cu'", none, 152, hx("03"), 150, hx("00 03"));
    writeRow("152 type T", thermocouple, 152, hx("0C"), 150, hx("01 0C"));
    writeRow("154 3-wire", none, 154, hx("01"), 153, hx("01"));
    writeRow("156 R0", none, 156, hx("42CA0000"), 155, hx("42CA0000"));
    writeRow("158 wires", none, 158, hx("3F400000"), 157, hx("3F400000"));
    writeRow("161 compensation off", none, 161, hx("00"), 160, hx("00"));
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
    refusalRow("161 not a switch", none, 161, hx("02"), 2);
    refusalRow("156 zero R0", none, 156, f32(0.0f), 4);
    refusalRow("156 short", none, 156, hx("42C8"), 5);
    refusalRow("158 negative wires", none, 158, f32(-1.0f), 4);
    refusalRow("143 short", none, 143, hx("000000"), 5);
    refusalRow("143 on a thermocouple", thermocouple, 143, f32(0.0f), 8);
    refusalRow("144 on the free ends", freeEnds, 144, f32(100.0f), 8);
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
    refusalRow("151 write-protected", protectedWrites, 151, hx("01"), 7);
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
    QTest::newRow("Pt100 as set") << QVariantMap() << 25.0;
    // Rm = 1.2 + 101.5 * (1 + 0.00385 * 25) = 112.469375;
    // T = (112.469375 - 100) / (100 * 0.00385) = 32.38799.
    const QVariantMap wrongR0{{"sensor_r0_true", 101.5}, {"wire_resistance_true", 1.2}};
    QTest::newRow("wrong R0, leads not known") << wrongR0 << 32.38799;
    // The 3-wire schema cancels the leads, and so does knowing them:
    // 11.269375 / 0.385 = 29.27110.
    QTest::newRow("wrong R0, 3-wire") << QVariantMap{{"sensor_r0_true", 101.5},
                                                     {"wire_resistance_true", 1.2},
                                                     {"connection_schema", 1}}
                                      << 29.27110;
    QTest::newRow("wrong R0, leads known")
        << QVariantMap{{"sensor_r0_true", 101.5}, {"wire_resistance_true", 1.2}, {"resistance_conn_wires", 1.2}}
        << 29.27110;
    // Cu (alpha 0.00428), true 53 ohm at 80 degC, converter thinks 50 ohm:
    // Rm = 53 * 1.3424 = 71.1472; T = 21.1472 / (50 * 0.00428) = 98.81869.
    QTest::newRow("Cu, wrong R0") << QVariantMap{{"sensor_type", 2},
                                                 {"sensor_r0_true", 53.0},
                                                 {"resistanceTS_0", 50.0},
                                                 {"process_temperature", 80.0}}
                                  << 98.81869;
    // Thermocouple K (0.041 mV/degC), 500 degC, free ends at 22 degC:
    // E = 0.041 * 478 mV, 478 degC, + 22 when compensated.
    const QVariantMap k{
        {"input_signal_type", 1}, {"sensor_type", 6}, {"process_temperature", 500.0}, {"free_ends_temperature", 22.0}};
    QTest::newRow("K compensated") << k << 500.0;
    QVariantMap uncompensated = k;
    uncompensated.insert("free_ends_compensation", 0);
    QTest::newRow("K uncompensated") << uncompensated << 478.0;
    // J (0.0552 mV/degC) with a channel error of 0.0552 mV, one degree.
    QTest::newRow("J with a voltage error") << QVariantMap{{"input_signal_type", 1},
                                                           {"sensor_type", 5},
                                                           {"process_temperature", 300.0},
                                                           {"adc_voltage_error", 0.0552}}
                                            << 301.0;
    // The compensation reads the free ends through its own channel.
    QVariantMap freeEndsError = k;
    freeEndsError.insert("adc_temperature_error", -0.7);
    QTest::newRow("K with a free-ends error") << freeEndsError << 499.3;
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
    QCOMPARE(int(quint8(reply.data.at(0))), 32);
    QVERIFY_NEAR(floatAt(reply.data, 1), expected, 2e-3);
}

void TestTcvDevice::channelsOfTheInput()
{
    // Variables 1 to 3 are the channels; one the input doesn't use is NaN.
    auto device = make({{"process_temperature", 50.0}});
    Reply reply = run(*device, 33, hx("00 01 02 03"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 24);
    QCOMPARE(reply.data.mid(0, 2) + reply.data.mid(6, 2) + reply.data.mid(12, 2) + reply.data.mid(18, 2),
             hx("00 20 01 25 02 24 03 20"));            // degC, ohm, mV, degC
    QVERIFY_NEAR(floatAt(reply.data, 8), 119.25, 1e-3); // 100 * (1 + 0.00385 * 50)
    QVERIFY(std::isnan(floatAt(reply.data, 14)));
    QVERIFY(std::isnan(floatAt(reply.data, 20)));

    QCOMPARE(run(*device, 151, hx("01")).code, quint8(0));
    QCOMPARE(run(*device, 152, hx("06")).code, quint8(0));
    reply = run(*device, 33, hx("01 02 03"));
    QVERIFY(std::isnan(floatAt(reply.data, 2)));
    // K: 0.041 * (50 - 22) = 1.148 mV; the free ends at 22 degC.
    QVERIFY_NEAR(floatAt(reply.data, 8), 1.148, 1e-4);
    QVERIFY_NEAR(floatAt(reply.data, 14), 22.0, 1e-4);

    // Command 44 to kelvin: the PV follows in the new unit.
    QCOMPARE(run(*device, 44, hx("23")).code, quint8(0));
    reply = run(*device, 1);
    QCOMPARE(int(quint8(reply.data.at(0))), 35);
    QVERIFY_NEAR(floatAt(reply.data, 1), 323.15, 1e-3);
}

void TestTcvDevice::twoPointCorrection()
{
    // The converter believes in a bare Pt100; the sensor is 101.5 ohm at
    // 0 degC behind 1.2 ohm of leads. At 20 degC the converter measures
    // 1.2 + 101.5 * 1.077 = 110.5155 ohm and shows 10.5155 / 0.385 = 27.31299.
    auto device = make({{"sensor_r0_true", 101.5}, {"wire_resistance_true", 1.2}});
    setTemperature(*device, 20.0);
    QVERIFY_NEAR(pv(*device), 27.31299, 1e-3);
    QCOMPARE(run(*device, 143, f32(20.0f)).data, f32(20.0f));
    QCOMPARE(run(*device, 155).data, hx("42C80000")); // nothing computed yet

    // At 120 degC: 1.2 + 101.5 * 1.462 = 149.593 ohm. The slope between the
    // points, 0.390775 ohm/degC, is R0 * alpha: R0 = 101.5, and the leads are
    // what is left at 20 degC: 110.5155 - 109.3155 = 1.2.
    setTemperature(*device, 120.0);
    const Reply second = run(*device, 144, f32(120.0f));
    QCOMPARE(second.code, quint8(0));
    QCOMPARE(second.data, f32(120.0f));
    QCOMPARE(run(*device, 155).data.size(), 4);
    QVERIFY_NEAR(floatAt(run(*device, 155).data, 0), 101.5, 1e-3);
    QVERIFY_NEAR(floatAt(run(*device, 157).data, 0), 1.2, 1e-3);
    QCOMPARE(run(*device, 130).data.mid(13, 8), f32(20.0f) + f32(120.0f));
    // The converter now reads true anywhere.
    QVERIFY_NEAR(pv(*device), 120.0, 2e-3);
    setTemperature(*device, 37.0);
    QVERIFY_NEAR(pv(*device), 37.0, 2e-3);
}

void TestTcvDevice::adjustment_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("adjustCommand");
    QTest::addColumn<double>("before");
    QTest::addColumn<double>("truth");
    QTest::addColumn<double>("pvAfter");

    // Pt100 at 25 degC: 109.625 ohm; the channel reads 0.4 ohm high.
    QTest::newRow("resistance") << QVariantMap{{"adc_resistance_error", 0.4}} << 0 << 172 << 110.025 << 109.625 << 25.0;
    // K at 500 degC, free ends 22 degC: 19.598 mV; the channel reads 0.1 mV high.
    QTest::newRow("voltage") << QVariantMap{{"input_signal_type", 1},
                                            {"sensor_type", 6},
                                            {"process_temperature", 500.0},
                                            {"adc_voltage_error", 0.1}}
                             << 1 << 171 << 19.698 << 19.598 << 500.0;
    // Free-ends sensor at 22 degC reading 0.7 degC low.
    QTest::newRow("free ends") << QVariantMap{{"input_signal_type", 2}, {"adc_temperature_error", -0.7}} << 2 << 173
                               << 21.3 << 22.0 << 22.0;
    // Any code above 1 means the free ends, here on a thermocouple.
    QTest::newRow("free ends of a thermocouple") << QVariantMap{{"input_signal_type", 1},
                                                                {"sensor_type", 6},
                                                                {"process_temperature", 500.0},
                                                                {"adc_temperature_error", -0.7}}
                                                 << 7 << 173 << 21.3 << 22.0 << 500.0;
}

void TestTcvDevice::adjustment()
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, code);
    QFETCH(int, adjustCommand);
    QFETCH(double, before);
    QFETCH(double, truth);
    QFETCH(double, pvAfter);

    auto device = make(settings);
    const QByteArray channel(1, char(code));
    QCOMPARE(run(*device, 174, channel).data.size(), 4);
    QVERIFY_NEAR(floatAt(run(*device, 174, channel).data, 0), before, 1e-4);
    QCOMPARE(run(*device, adjustCommand, f32(float(truth))).code, quint8(16));
    QVERIFY(openAccess(*device));
    const Reply reply = run(*device, adjustCommand, f32(float(truth)));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, f32(float(truth)));
    QVERIFY_NEAR(floatAt(run(*device, 174, channel).data, 0), truth, 1e-4);
    QVERIFY_NEAR(pv(*device), pvAfter, 2e-3);
}

void TestTcvDevice::accessCode()
{
    auto device = make();
    const QByteArray ohms = f32(109.625f);
    // The current trims are adjustments too; configuration writes are not.
    checkAccess(*device, {{172, ohms}, {45, f32(4.0f)}, {46, f32(20.0f)}, {171, f32(1.0f)}, {173, f32(22.0f)}},
                {{156, f32(100.0f)}, {143, f32(25.0f)}});
    QCOMPARE(run(*device, 190, hx("3039")).code, quint8(5));

    // The code 0 closes, and so does a reset.
    QCOMPARE(run(*device, 190, hx("00000000")).data, hx("00"));
    QCOMPARE(run(*device, 172, ohms).code, quint8(16));
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 42).code, quint8(0));
    QCOMPARE(run(*device, 172, ohms).code, quint8(16));

    // Ten minutes without a protected command close; each one restarts the time.
    QVERIFY(openAccess(*device, 0.0));
    QCOMPARE(run(*device, 172, ohms, 500.0).code, quint8(0));
    QCOMPARE(run(*device, 172, ohms, 1000.0).code, quint8(0));
    QCOMPARE(run(*device, 172, ohms, 1601.0).code, quint8(16));
}

void TestTcvDevice::manufacturerSettings()
{
    auto device = make();
    QCOMPARE(run(*device, 192, hx("01")).code, quint8(16));
    checkFactoryRestore(*device, {{156, f32(101.0f)}, {151, hx("01")}, {133, hx("00")}, {154, hx("01")}},
                        {{130, {}}, {150, {}}, {153, {}}});
}

QTEST_APPLESS_MAIN(TestTcvDevice)

#include "tst_tcvdevice.moc"
