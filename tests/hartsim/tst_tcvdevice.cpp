#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

// The configuration, the correction points, the channel readings and the
// adjustments are driven end to end by the program's tests of its TCV-C model.
// The process temperature stands still at 25 degC unless a row sets it.
class TestTcvDevice : public QObject
{
    Q_OBJECT

private slots:
    void commands_data()
    {
        exchangeColumns();
        const QVariantMap none;
        const QVariantMap thermocouple{{"input_signal_type", 1}};

        // The sensor limits follow the sensor: Pt -200..850 degC, A-1
        // 0..2500; the least span 10 degC.
        row("14 Pt", none, 14, {}, 0, hx("009101 20 44548000 C3480000 41200000"));
        row("14 A-1", thermocouple, 14, {}, 0, hx("009101 20 451C4000 00000000 41200000"));
        // A new input whose list lacks the sensor chosen starts from its first.
        writeRow("151 back to resistance", {{"input_signal_type", 1}, {"sensor_type", 9}}, 151, hx("00"), 150,
                 hx("00 00"));
        // A resistance thermometer gives R0 (1 + alpha T) plus the leads on the
        // 2/4-wire schema; the converter uses its own R0 and leads. Rm = 1.2 +
        // 101.5 * (1 + 0.00385 * 25) = 112.469375; the 3-wire schema cancels the
        // leads. PV in degC.
        const QVariantMap wrongR0{{"sensor_r0_true", 101.5}, {"wire_resistance_true", 1.2}};
        row("1 wrong R0, leads not known", wrongR0, 1, {}, 0, hx("20") + f32(float(12.469375 / 0.385)));
        QVariantMap threeWire = wrongR0;
        threeWire.insert("connection_schema", 1);
        row("1 wrong R0, 3-wire", threeWire, 1, {}, 0, hx("20") + f32(float(11.269375 / 0.385)));
        // Thermocouple K (0.041 mV/degC), 500 degC, free ends at 22 degC read
        // through their own channel 0.7 degC low: E = 0.041 * 478 mV, 478 degC,
        // + 21.3 when compensated.
        QVariantMap k{{"input_signal_type", 1},
                      {"sensor_type", 6},
                      {"process_temperature", 500.0},
                      {"free_ends_temperature", 22.0},
                      {"adc_temperature_error", -0.7}};
        row("1 K compensated", k, 1, {}, 0, hx("20") + f32(499.3f));
        k.insert("free_ends_compensation", 0);
        row("1 K uncompensated", k, 1, {}, 0, hx("20") + f32(478.0f));
        row("152 thermocouple list has 13", thermocouple, 152, hx("0D"), 2);
        // The second point needs a first at another temperature and a
        // resistance that rises with it (here 109.625 ohm at 25 degC).
        row("144 with a falling resistance", {{"first_correction_point", 10.0}, {"correction_resistance_1", 120.0}},
            144, f32(80.0f), 6);
        row("171 on a thermometer", none, 171, f32(1.0f), 8);
        row("135 not ours", none, 135, {}, 64);
        row("156 write-protected", {{"write_protection", 1}}, 156, f32(101.0f), 7);
    }

    void commands() { checkExchange("TCV-C", {"process_temperature_amplitude"}); }

    void accessCode()
    {
        // A wrong code, the code 0 and a reset close.
        auto device = make("TCV-C", {}, {"process_temperature_amplitude"});
        const QByteArray ohms = f32(109.625f);
        QCOMPARE(code(*device, 172, ohms), 16);
        QCOMPARE(code(*device, 190, hx("00003038")), 16);
        QCOMPARE(code(*device, 172, ohms), 16);
        QCOMPARE(code(*device, 190, hx("3039")), 5);
        QVERIFY(openAccess(*device));
        QCOMPARE(code(*device, 172, ohms), 0);
        QCOMPARE(run(*device, 190, hx("00000000")).data, hx("00"));
        QCOMPARE(code(*device, 172, ohms), 16);
        QVERIFY(openAccess(*device));
        QCOMPARE(code(*device, 42), 0);
        QCOMPARE(code(*device, 172, ohms), 16);

        // Ten minutes without a protected command close; each one restarts
        // the time.
        QVERIFY(openAccess(*device, 0.0));
        QCOMPARE(code(*device, 172, ohms, 500.0), 0);
        QCOMPARE(code(*device, 172, ohms, 1000.0), 0);
        QCOMPARE(code(*device, 172, ohms, 1601.0), 16);
    }
};

QTEST_APPLESS_MAIN(TestTcvDevice)

#include "tst_tcvdevice.moc"
