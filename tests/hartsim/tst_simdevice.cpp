#include "columns.h"
#include "simdevice.h"

#include <QtTest>

#include <cmath>

using namespace hartsim;

namespace {

QByteArray f32(float value)
{
    QByteArray out;
    DataCodec::putFloat(out, value);
    return out;
}

// The settings that keep the process values of each model still.
const QStringList genericStill{"var_0_amplitude", "var_1_amplitude", "var_2_amplitude", "var_3_amplitude"};
const QMap<QString, QStringList> stillKeys{{"generic", genericStill},
                                           {"hart5", genericStill},
                                           {"TCV-C", {"process_temperature_amplitude"}},
                                           {"QP-1C", {"process_pressure_amplitude"}},
                                           {"pH-7702", {"solution_ph_amplitude"}}};

// A device of the model whose process values stand still unless the settings
// move them. The generic one: PV 42 kPa (10.72 mA in its range 0 to 100 kPa),
// SV 23.5 degC, TV 12 m3/h, QV 50 %. The TCV-C: 25 degC. The QP-1C: 250 kPa.
// The pH-7702: a solution of pH 6.86 at 25 degC; the electrode is Ei 8 mV,
// S 57 mV/pH, pHi 7, and the meter believes Ei 0 mV, S 59.16 mV/pH
// (426CA3D7), pHi 7.
std::unique_ptr<SimDevice> make(const QString& model, QVariantMap settings = {})
{
    for (const QString& key : stillKeys.value(model))
        if (!settings.contains(key))
            settings.insert(key, 0.0);
    QString error;
    return SimDevice::create(model, settings, &error);
}

Reply run(SimDevice& device, int command, const QByteArray& data = QByteArray(), double now = 0.0)
{
    return device.handle(quint8(command), data, Master::Primary, now);
}

int code(SimDevice& device, int command, const QByteArray& data = QByteArray(), double now = 0.0)
{
    return run(device, command, data, now).code;
}

bool openAccess(SimDevice& device, double now = 0.0)
{
    const Reply reply = run(device, 190, hx("00003039"), now); // 12345
    return reply.code == 0 && reply.data == hx("01");
}

float pv(SimDevice& device, double now = 0.0)
{
    return DataCodec::getFloat(run(device, 1, {}, now).data, 1);
}

int status(SimDevice& device, int bits, Master master = Master::Primary)
{
    return device.deviceStatus(master) & bits;
}

// Evaluates actual twice: pass only reads without side effects.
#define QVERIFY_NEAR(actual, expected, tolerance)                                                                      \
    QVERIFY2(std::fabs((actual) - double(expected)) <= (tolerance),                                                    \
             qPrintable(QStringLiteral("%1, expected %2").arg(actual, 0, 'f', 6).arg(double(expected), 0, 'f', 6)))

// Stores each point of a QP-1C calibration command at the pressure and sensor
// temperature given with it; the request is the point's number and value.
void store(SimDevice& device, int command, const QList<QList<double>>& points)
{
    QVERIFY(openAccess(device));
    for (int n = 0; n < points.size(); ++n) {
        device.setParam("process_pressure", points[n][0]);
        device.setParam("sensor_temperature", points[n][1]);
        const QByteArray request = QByteArray(1, char(n)) + f32(float(points[n][2]));
        QCOMPARE(run(device, command, request).data, request);
    }
}

// A pH-7702 graduation request: type (0 one point, 1 two), point, buffer pH.
QByteArray grd(int type, int point, float value)
{
    return QByteArray(1, char(type)) + QByteArray(1, char(point)) + f32(value);
}

} // namespace

// The identities, the configuration and the adjustments that the program's
// tests of its models read and write end to end are left to them.
class TestSimDevice : public QObject
{
    Q_OBJECT

private slots:
    // Requests, each run with access open unless refused with 16. A row
    // changes nothing; a writeRow is echoed, counted as one change, and
    // readCommand then answers readBack.
    void commands_data()
    {
        addColumns<QString, QVariantMap, int, QByteArray, int, QByteArray, int, QByteArray>(
            {"model", "settings", "command", "request", "code", "reply", "readCommand", "readBack"});

        const char* model = "generic";
        const auto row = [&model](const char* name, const QVariantMap& settings, int command, const QByteArray& request,
                                  int code, const QByteArray& reply = QByteArray()) {
            QTest::addRow("%s %s", model, name)
                << QString(model) << settings << command << request << code << reply << -1 << QByteArray();
        };
        const auto writeRow = [&model](const char* name, const QVariantMap& settings, int command,
                                       const QByteArray& request, int readCommand, const QByteArray& readBack,
                                       int code = 0) {
            QTest::addRow("%s %s", model, name)
                << QString(model) << settings << command << request << code << request << readCommand << readBack;
        };
        const QVariantMap none;
        const QVariantMap multidrop{{"polling_address", 4}, {"current_loop_mode", 0}};

        // Multidrop holds 4 mA; 42 kPa in 0..20 kPa saturates at 20.5 mA.
        row("2: multidrop holds 4 mA", multidrop, 2, {}, 0, f32(4.0f) + f32(0.0f));
        row("2: saturated above 20.5 mA", {{"range_max", 20.0}}, 2, {}, 0, f32(20.5f) + f32(103.125f));
        // Code 246 stands for the PV's variable; the time stamp of clock 0 is 0.
        row("9: PV code and variable 1", none, 9, hx("F6 01"), 0,
            hx("00 F6 41 0C") + f32(42.0f) + hx("C0 01 40 20") + f32(23.5f) + hx("C0 00000000"));
        row("no access code", none, 190, hx("00003039"), 64);
        writeRow("35: span below the minimum is a warning", none, 35, hx("0C") + f32(10.5f) + f32(10.0f), 15,
                 hx("00 00 0C") + f32(10.5f) + f32(10.0f) + f32(0.5f) + hx("00 00 01"), 14);
        row("34: damping above 60 s", none, 34, f32(61.0f), 3);
        row("35: other unit", none, 35, hx("07") + f32(100.0f) + f32(0.0f), 18);
        row("35: no span", none, 35, hx("0C") + f32(10.0f) + f32(10.0f), 29);
        // Trimming needs the output fixed at the point trimmed, and a loop current.
        row("45: output not fixed", none, 45, f32(4.01f), 9);
        row("40: multidrop", multidrop, 40, f32(4.0f), 11);
        model = "hart5";
        row("15 without channel flags", none, 15, {}, 0,
            hx("00 00 0C") + f32(100.0f) + f32(0.0f) + f32(0.5f) + hx("00 00"));

        model = "TCV-C";
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

        model = "QP-1C";
        row("149 pressure now in bar", {{"calibrate_unit_code", 7}}, 149, {}, 0, hx("40200000"));
        // The PV in another unit (250 kPa are 0.25 MPa), or freely converted:
        // 0..1000 kPa onto 0..100.
        row("1 in MPa", {{"input_units", 237}}, 1, {}, 0, hx("0C 3E800000"));
        row("1 freely converted", {{"input_units", 251}}, 1, {}, 0, hx("0C 41C80000"));
        row("133 four decimals", none, 133, hx("04"), 9);
        row("138 short", none, 138, hx("00 3F80"), 5);
        // The gain stays within 0.5..2 of the reading, here 250 kPa.
        row("142 gain above 2", none, 142, f32(1000.0f), 9);
        row("142 gain below 0.5", none, 142, f32(10.0f), 10);
        // The current trims and the calibration need the access code.
        row("138 closed", none, 138, hx("00 00000000"), 16);
        row("45 closed", none, 45, f32(4.0f), 16);

        model = "pH-7702";
        row("33 Rt of a Pt100 at 25 degC", none, 33, hx("05"), 0, hx("05 25") + f32(109.625f));
        row("33 no variable 8", none, 33, hx("08"), 2);
        // The error bits: Ei within -60..60 mV, S within 50..62 mV/pH.
        row("48 Ei and S above", {{"ei_isopotential_point", 61.0}, {"steepness", 63.0}}, 48, {}, 0,
            hx("0C") + QByteArray(24, '\0'));
        // An ORP meter: the limits in mV.
        writeRow("131 ORP meter", none, 131, hx("02 00000000 426CA3D7"), 14,
                 hx("009401 24 44FA0000 C4FA0000 41200000"));
        row("131 mode 4", none, 131, hx("04 00000000 426CA3D7"), 2);
        row("135 too hot", none, 135, hx("00 43480000"), 3);
        row("173 on a failed sensor", {{"ts_fault", 1}}, 173, f32(109.625f), 6);
        row("151 point 2 without point 1", none, 151, grd(1, 2, 9.18f), 6);
        // The metrology and the current trims need the access code.
        row("142 closed", none, 142, hx("3B 41400000 3F800000 3F000000"), 16);
        row("46 closed", none, 46, f32(20.0f), 16);
    }

    void commands()
    {
        QFETCH(QString, model);
        QFETCH(QVariantMap, settings);
        QFETCH(int, command);
        QFETCH(QByteArray, request);
        QFETCH(int, code);
        QFETCH(QByteArray, reply);
        QFETCH(int, readCommand);
        QFETCH(QByteArray, readBack);

        auto device = make(model, settings);
        QVERIFY(device);
        if (code != 16)
            run(*device, 190, hx("00003039"));
        run(*device, 38); // the primary resets its configuration-changed flag
        const QVariantMap before = device->params();
        const Reply answer = run(*device, command, request);
        QCOMPARE(int(answer.code), code);
        QCOMPARE(answer.data.toHex(' '), reply.toHex(' '));
        if (readCommand < 0) {
            QCOMPARE(device->params(), before);
            QCOMPARE(status(*device, 0x40), 0);
            return;
        }
        QCOMPARE(device->param("modify_count").toInt(), before.value("modify_count").toInt() + 1);
        QCOMPARE(status(*device, 0x40), 0x40);
        QCOMPARE(run(*device, readCommand).data.toHex(' '), readBack.toHex(' '));
    }

    void processValuesMove()
    {
        // PV 42 kPa swinging by 2 kPa over 60 s; the time stamp of command 9
        // counts 1/32 ms from midnight of the clock.
        auto device = make("generic", {{"var_0_amplitude", 2.0}});
        QVERIFY_NEAR(pv(*device, 15.0), 44.0, 1e-4);
        QVERIFY_NEAR(pv(*device, 45.0), 40.0, 1e-4);
        QCOMPARE(run(*device, 9, hx("00"), 86401.0).data.right(4), hx("00007D00"));
    }

    void configurationChangedAndColdStartPerMaster()
    {
        auto device = make("generic");
        // The cold start is told once to each master, and again after a reset.
        QCOMPARE(status(*device, 0x20), 0x20);
        QCOMPARE(status(*device, 0x20), 0);
        QCOMPARE(status(*device, 0x60, Master::Secondary), 0x20);
        QCOMPARE(code(*device, 19, hx("000001")), 0);
        QCOMPARE(status(*device, 0x60), 0x40);
        QCOMPARE(status(*device, 0x60, Master::Secondary), 0x40);

        // The primary master resets its flag with the counter it knows; a
        // reset is not itself a change.
        QCOMPARE(run(*device, 38, hx("0001")).data, hx("0001"));
        QCOMPARE(status(*device, 0x40), 0);
        QCOMPARE(status(*device, 0x40, Master::Secondary), 0x40);
        QCOMPARE(device->param("modify_count").toInt(), 1);
        QCOMPARE(code(*device, 42), 0);
        QCOMPARE(status(*device, 0x20), 0x20);
    }

    void writeProtection()
    {
        auto device = make("generic");
        QCOMPARE(code(*device, 129, hx("01")), 0);
        QCOMPARE(code(*device, 34, f32(1.0f)), 7);
        // Lifting it over the line is refused; reading still works.
        QCOMPARE(code(*device, 129, hx("00")), 7);
        QCOMPARE(run(*device, 15).data.at(15), '\x01');
        QCOMPARE(device->param("modify_count").toInt(), 1);
        device->clearWriteProtectionFromMenu();
        QCOMPARE(code(*device, 34, f32(1.0f)), 0);
    }

    void additionalStatus()
    {
        // Bytes sent back other than those read answer the present status and
        // clear nothing; the bytes read clear.
        auto device = make("generic", {{"error_code", 5}});
        const QByteArray read = run(*device, 48).data;
        QCOMPARE(read, hx("05") + QByteArray(24, '\0'));
        QCOMPARE(run(*device, 48, QByteArray(9, '\0')).data, read);
        QCOMPARE(status(*device, 0x10), 0x10);
        QCOMPARE(run(*device, 48, read).data, read);
        QCOMPARE(status(*device, 0x10), 0);
    }

    void fixedCurrent()
    {
        auto device = make("generic");
        QCOMPARE(run(*device, 40, f32(4.0f)).data, f32(4.0f));
        QCOMPARE(status(*device, 0x08), 0x08);
        QCOMPARE(run(*device, 2).data, f32(4.0f) + f32(0.0f));
        // 0 leaves the fixed mode.
        QCOMPARE(run(*device, 40, f32(0.0f)).data, f32(0.0f));
        QCOMPARE(status(*device, 0x08), 0);
    }

    void busyAfterSelfTest()
    {
        auto device = make("generic", {{"self_test_ms", 500}});
        QCOMPARE(code(*device, 41, QByteArray(), 10.0), 0);
        QCOMPARE(code(*device, 1, QByteArray(), 10.4), 32);
        QCOMPARE(code(*device, 1, QByteArray(), 10.6), 0);
    }

    void accessCode()
    {
        // A short code is refused; a reset, and ten minutes without a
        // protected command close; each protected command restarts the time.
        // A wrong code and the code 0 are left to the TCV-C model's test.
        auto device = make("TCV-C");
        const QByteArray ohms = f32(109.625f);
        QCOMPARE(code(*device, 190, hx("3039")), 5);
        QVERIFY(openAccess(*device));
        QCOMPARE(code(*device, 42), 0);
        QCOMPARE(code(*device, 172, ohms), 16);
        QVERIFY(openAccess(*device, 0.0));
        QCOMPARE(code(*device, 172, ohms, 500.0), 0);
        QCOMPARE(code(*device, 172, ohms, 1000.0), 0);
        QCOMPARE(code(*device, 172, ohms, 1601.0), 16);
    }

    void qp1Linearization()
    {
        // A sensor reading P + 0.0001 P^2 gives the points (0, 0), (101, 100)
        // and (204, 200): exact there, the chord between and beyond: 150 kPa
        // read as 152.25 are 100 + 51.25 * 100 / 103; 300 kPa read as 309 are
        // 200 + 105 * 100 / 103.
        auto device = make("QP-1C", {{"sensor_nonlinearity", 0.0001}});
        store(*device, 138, {{0.0, 20.0, 0.0}, {100.0, 20.0, 100.0}, {200.0, 20.0, 200.0}});
        QCOMPARE(code(*device, 137, hx("03")), 0);
        device->setParam("process_pressure", 150.0);
        QVERIFY_NEAR(pv(*device), 149.75728, 1e-3);
        device->setParam("process_pressure", 300.0);
        QVERIFY_NEAR(pv(*device), 301.94175, 1e-3);
        // No point in use: the sensor as it reads.
        QCOMPARE(code(*device, 137, hx("00")), 0);
        QVERIFY_NEAR(pv(*device), 309.0, 1e-3);
    }

    void qp1TemperatureCorrection()
    {
        // The sensor drifts 0.05 kPa/degC at zero and 0.1 %/degC in span from
        // 20 degC: 50 kPa read as 54 at 60 degC. Zero only: the zero drift
        // comes off. Zero and gain: (54 - 2) * 100 / 104 = 50; beyond T2 the
        // lines go on: (56 - 3) * 100 / 106 = 50.
        auto device = make("QP-1C", {{"sensor_zero_tempco", 0.05}, {"sensor_span_tempco", 0.001}});
        store(*device, 141, {{0.0, 20.0, 20.0}, {100.0, 20.0, 20.0}, {0.0, 60.0, 60.0}, {100.0, 60.0, 60.0}});
        device->setParam("process_pressure", 50.0);
        const double expected[] = {54.0, 52.0, 50.0};
        for (int mode = 0; mode < 3; ++mode) {
            QCOMPARE(code(*device, 140, QByteArray(1, char(mode))), 0);
            QCOMPARE(run(*device, 139).data, QByteArray(1, char(mode)) + f32(20.0f) + f32(60.0f));
            QVERIFY_NEAR(pv(*device), expected[mode], 1e-3);
        }
        device->setParam("sensor_temperature", 80.0);
        QVERIFY_NEAR(pv(*device), 50.0, 1e-3);
    }

    void ph77TwoPointGraduation()
    {
        auto device = make("pH-7702");
        // Point 1, buffer 4.01 at 20 degC: S(20) = 57 * 293.15 / 298.15 =
        // 56.04411, E1 = 8 + 56.04411 * 2.99 = 175.5719 mV. Nothing computed yet.
        device->setParam("solution_ph", 4.01);
        device->setParam("solution_temperature", 20.0);
        QCOMPARE(run(*device, 151, grd(1, 1, 4.01f)).data.toHex(' '), hx("01 00000000 426CA3D7").toHex(' '));
        // Point 2, buffer 9.18 at 30 degC: S(30) = 57.95589, E2 = 8 - 57.95589
        // * 2.18 = -118.3439 mV. Both give back the electrode: Ei 8, S25 57.
        device->setParam("solution_ph", 9.18);
        device->setParam("solution_temperature", 30.0);
        const QByteArray reply = run(*device, 151, grd(1, 2, 9.18f)).data;
        QCOMPARE(reply.size(), 9);
        QCOMPARE(reply.at(0), '\x02');
        QVERIFY_NEAR(DataCodec::getFloat(reply, 1), 8.0, 1e-3);
        QVERIFY_NEAR(DataCodec::getFloat(reply, 5), 57.0, 1e-3);
        const QByteArray points = run(*device, 150).data;
        QCOMPARE(points.size(), 25);
        QCOMPARE(points.left(5) + points.mid(13, 4), hx("01 408051EC 4112E148")); // 4.01, 9.18
        QVERIFY_NEAR(DataCodec::getFloat(points, 5), 175.5719, 1e-3);
        QVERIFY_NEAR(DataCodec::getFloat(points, 17), -118.3439, 1e-3);
        QVERIFY_NEAR(DataCodec::getFloat(points, 21), 30.0, 1e-3);
        // Now the meter reads true at any pH and temperature.
        device->setParam("solution_ph", 11.5);
        device->setParam("solution_temperature", 45.0);
        QVERIFY_NEAR(pv(*device), 11.5, 1e-3);
        // With a second buffer named, the first of two points puts the
        // electrode into it.
        device->setParam("second_buffer_ph", 4.01);
        QCOMPARE(code(*device, 151, grd(1, 1, 11.5f)), 0);
        QCOMPARE(device->param("solution_ph").toFloat(), 4.01f);
    }
};

QTEST_GUILESS_MAIN(TestSimDevice)
#include "tst_simdevice.moc"
