#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

// A converter whose pressure stands still (250 kPa unless set otherwise).
const QStringList stillPressure{"process_pressure_amplitude"};

// Stores each point of the calibration command at the pressure and sensor
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

} // namespace

// The configuration, the line points, the units, the gain and the zero are
// driven end to end by the program's tests of its QP-1C model.
class TestQp1Device : public QObject
{
    Q_OBJECT

private slots:
    void commands_data()
    {
        exchangeColumns();
        const QVariantMap none;

        row("149 pressure now in bar", {{"calibrate_unit_code", 7}}, 149, {}, 0, hx("40200000"));
        // The free range is kept in the calibration unit: 1000 kPa become 10 bar.
        writeRow("136 calibration in bar", none, 136, hx("07"), 135,
                 hx("01 04 0C 00000000 41200000 00000000 42C80000 07 00"));
        // The PV in another unit (250 kPa are 0.25 MPa), or freely converted:
        // 0..1000 kPa onto 0..100.
        row("1 in MPa", {{"input_units", 237}}, 1, {}, 0, hx("0C 3E800000"));
        row("1 freely converted", {{"input_units", 251}}, 1, {}, 0, hx("0C 41C80000"));
        writeRow("44 input in psi", none, 44, hx("06"), 135, hx("01 04 06 00000000 447A0000 00000000 42C80000 0C 00"));
        row("133 four decimals", none, 133, hx("04"), 9);
        row("138 short", none, 138, hx("00 3F80"), 5);
        // The gain stays within 0.5..2 of the reading, here 250 kPa.
        row("142 gain above 2", none, 142, f32(1000.0f), 9);
        row("142 gain below 0.5", none, 142, f32(10.0f), 10);
        row("130 not ours", none, 130, {}, 64);
        row("145 write-protected", {{"write_protection", 1}}, 145, hx("41200000 41A00000"), 7);
        // The current trims and the calibration need the access code.
        row("138 closed", none, 138, hx("00 00000000"), 16);
        row("45 closed", none, 45, f32(4.0f), 16);
    }

    void commands() { checkExchange("QP-1C", stillPressure); }

    void linearization()
    {
        // A sensor reading P + 0.0001 P^2 gives the points (0, 0), (101, 100)
        // and (204, 200): exact there, the chord between and beyond: 150 kPa
        // read as 152.25 are 100 + 51.25 * 100 / 103; 300 kPa read as 309 are
        // 200 + 105 * 100 / 103.
        auto device = make("QP-1C", {{"sensor_nonlinearity", 0.0001}}, stillPressure);
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

    void temperatureCorrection()
    {
        // The sensor drifts 0.05 kPa/degC at zero and 0.1 %/degC in span from
        // 20 degC: 50 kPa read as 54 at 60 degC. Zero only: the zero drift
        // comes off. Zero and gain: (54 - 2) * 100 / 104 = 50; beyond T2 the
        // lines go on: (56 - 3) * 100 / 106 = 50.
        auto device = make("QP-1C", {{"sensor_zero_tempco", 0.05}, {"sensor_span_tempco", 0.001}}, stillPressure);
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
};

QTEST_APPLESS_MAIN(TestQp1Device)

#include "tst_qp1device.moc"
