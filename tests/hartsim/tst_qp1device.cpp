#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

// A converter whose pressure stands still (250 kPa unless set otherwise).
std::unique_ptr<SimDevice> make(const QVariantMap& settings = {})
{
    return simtest::make(QStringLiteral("QP-1C"), settings, {"process_pressure_amplitude"});
}

void setPressure(SimDevice& device, double kpa)
{
    device.setParam(QStringLiteral("process_pressure"), kpa);
}

// A table of three points: 0, 100 and 200 kPa stored at those pressures.
void loadTable(SimDevice& device)
{
    QCOMPARE(code(device, 137, hx("03")), 0);
    for (int n = 0; n < 3; ++n) {
        setPressure(device, 100.0 * n);
        const QByteArray request = QByteArray(1, char(n)) + f32(100.0f * n);
        QCOMPARE(run(device, 138, request).data, request);
    }
}

} // namespace

// The reads and writes of the configuration, the line points, the units, the
// gain and the zero are driven end to end by the program's tests of its QP-1C
// model; here are the converter's refusals, its access code, and its
// linearization and temperature correction.
class TestQp1Device : public QObject
{
    Q_OBJECT

private slots:
    void commands_data();
    void commands();
    void linearization_data();
    void linearization();
    void temperatureCorrection_data();
    void temperatureCorrection();
    void accessCode();
};

void TestQp1Device::commands_data()
{
    exchangeColumns();
    const QVariantMap none;
    const QVariantMap protectedWrites{{"write_protection", 1}};

    readRow("149 pressure now in bar", {{"calibrate_unit_code", 7}}, 149, hx("40200000"));
    // The free range is kept in the calibration unit: 1000 kPa become 10 bar.
    writeRow("136 calibration in bar", none, 136, hx("07"), 135,
             hx("01 04 0C 00000000 41200000 00000000 42C80000 07 00"));
    // The PV in another unit (250 kPa are 0.25 MPa), or freely converted:
    // 0..1000 kPa onto 0..100.
    readRow("1 in MPa", {{"input_units", 237}}, 1, hx("0C 3E800000"));
    readRow("1 freely converted", {{"input_units", 251}}, 1, hx("0C 41C80000"));
    writeRow("44 input in psi", none, 44, hx("06"), 135, hx("01 04 06 00000000 447A0000 00000000 42C80000 0C 00"));
    writeRow("44 free conversion", none, 44, hx("FB"), 135, hx("01 04 FB 00000000 447A0000 00000000 42C80000 0C 00"));

    refusalRow("133 four decimals", none, 133, hx("04"), 9);
    refusalRow("133 empty", none, 133, QByteArray(), 5);
    refusalRow("134 zero samples", none, 134, hx("00"), 4);
    refusalRow("136 not a pressure unit", none, 136, hx("20"), 2);
    refusalRow("136 free conversion", none, 136, hx("FB"), 2);
    refusalRow("136 empty", none, 136, QByteArray(), 5);
    refusalRow("137 eleven points", none, 137, hx("0B"), 3);
    refusalRow("138 point 10", none, 138, hx("0A 3F800000"), 2);
    refusalRow("138 short", none, 138, hx("00 3F80"), 5);
    refusalRow("148 point 10", none, 148, hx("0A"), 2);
    refusalRow("148 empty", none, 148, QByteArray(), 5);
    refusalRow("140 mode 3", none, 140, hx("03"), 2);
    refusalRow("141 step 4", none, 141, hx("04 41A00000"), 2);
    refusalRow("141 short", none, 141, hx("00"), 5);
    refusalRow("142 short", none, 142, hx("42C8"), 5);
    // The gain stays within 0.5..2 of the reading, here 250 kPa; at zero
    // nothing can be scaled.
    refusalRow("142 gain above 2", none, 142, f32(1000.0f), 9);
    refusalRow("142 gain below 0.5", none, 142, f32(10.0f), 10);
    refusalRow("142 at zero", {{"process_pressure", 0.0}}, 142, f32(5.0f), 9);
    refusalRow("145 empty range", none, 145, hx("40A00000 40A00000"), 29);
    refusalRow("145 short", none, 145, hx("40A00000"), 5);
    refusalRow("146 empty range", none, 146, hx("00000000 00000000"), 29);
    refusalRow("147 degC", none, 147, hx("20 43FA0000 C2480000 40A00000"), 2);
    refusalRow("147 upside down", none, 147, hx("0C C2480000 43FA0000 40A00000"), 29);
    refusalRow("147 negative span", none, 147, hx("0C 43FA0000 C2480000 BF800000"), 4);
    refusalRow("147 short", none, 147, hx("0C 43FA0000 C2480000"), 5);
    refusalRow("44 degC", none, 44, hx("20"), 2);
    refusalRow("44 empty", none, 44, QByteArray(), 5);
    refusalRow("130 not ours", none, 130, QByteArray(), 64);
    refusalRow("145 write-protected", protectedWrites, 145, hx("41200000 41A00000"), 7);
    refusalRow("137 write-protected", protectedWrites, 137, hx("02"), 7);
    refusalRow("43 write-protected", protectedWrites, 43, QByteArray(), 7);
}

void TestQp1Device::commands()
{
    QFETCH(QVariantMap, settings);
    auto device = make(settings);
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    checkExchange(*device);
}

void TestQp1Device::linearization_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<QByteArray>("inUse");
    QTest::addColumn<double>("pressure");
    QTest::addColumn<double>("expected");

    // A sensor reading 1 kPa + 1.02 P: the points (1, 0), (103, 100), (205, 200).
    const QVariantMap straight{{"sensor_zero_error", 1.0}, {"sensor_span_error", 0.02}};
    QTest::newRow("first segment") << straight << hx("03") << 50.0 << 50.0;
    QTest::newRow("beyond the last point") << straight << hx("03") << 300.0 << 300.0;
    QTest::newRow("two points in use") << straight << hx("02") << 150.0 << 150.0;
    QTest::newRow("none in use: the sensor") << straight << hx("00") << 150.0 << 154.0;
    // A sensor reading P + 0.0001 P^2: exact at the points, the chord between:
    // 50.25 * 100 / 101 = 49.75248; 100 + (152.25 - 101) * 100 / 103 = 149.75728.
    const QVariantMap curved{{"sensor_nonlinearity", 0.0001}};
    QTest::newRow("curved, first segment") << curved << hx("03") << 50.0 << 49.75248;
    QTest::newRow("curved, second segment") << curved << hx("03") << 150.0 << 149.75728;
}

void TestQp1Device::linearization()
{
    QFETCH(QVariantMap, settings);
    QFETCH(QByteArray, inUse);
    QFETCH(double, pressure);
    QFETCH(double, expected);

    auto device = make(settings);
    QVERIFY(openAccess(*device));
    loadTable(*device);
    QCOMPARE(code(*device, 137, inUse), 0);
    setPressure(*device, pressure);
    QVERIFY_NEAR(pv(*device), expected, 1e-3);
}

void TestQp1Device::temperatureCorrection_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("temperature");
    QTest::addColumn<double>("expected");

    // The sensor drifts 0.05 kPa/degC at zero and 0.1 %/degC in span from
    // 20 degC: 50 kPa read as 54 at 60 degC, 52 at 40 degC.
    QTest::newRow("off at 60") << 0 << 60.0 << 54.0;
    // Zero only: the zero drift comes off.
    QTest::newRow("zero at 60") << 1 << 60.0 << 52.0;
    // Zero and gain: (54 - 2) * 100 / 104 = 50; (52 - 1) * 100 / 102 = 50;
    // beyond T2 the lines go on: (56 - 3) * 100 / 106 = 50.
    QTest::newRow("zero and gain at 60") << 2 << 60.0 << 50.0;
    QTest::newRow("zero and gain at 40") << 2 << 40.0 << 50.0;
    QTest::newRow("zero and gain at 80") << 2 << 80.0 << 50.0;
}

void TestQp1Device::temperatureCorrection()
{
    QFETCH(int, mode);
    QFETCH(double, temperature);
    QFETCH(double, expected);

    auto device = make({{"sensor_zero_tempco", 0.05}, {"sensor_span_tempco", 0.001}});
    QVERIFY(openAccess(*device));
    QCOMPARE(code(*device, 140, QByteArray(1, char(mode))), 0);
    const double steps[4][2] = {{0.0, 20.0}, {100.0, 20.0}, {0.0, 60.0}, {100.0, 60.0}};
    for (int step = 0; step < 4; ++step) {
        setPressure(*device, steps[step][0]);
        device->setParam(QStringLiteral("sensor_temperature"), steps[step][1]);
        const QByteArray request = QByteArray(1, char(step)) + f32(float(steps[step][1]));
        QCOMPARE(run(*device, 141, request).data, request);
    }
    QCOMPARE(run(*device, 139).data, QByteArray(1, char(mode)) + f32(20.0f) + f32(60.0f));
    setPressure(*device, 50.0);
    device->setParam(QStringLiteral("sensor_temperature"), temperature);
    QVERIFY_NEAR(pv(*device), expected, 1e-3);
}

void TestQp1Device::accessCode()
{
    // The current trims and the calibration are protected; the
    // configuration, the gain, the zero and the reads are not.
    checkAccess(*make(),
                {{136, hx("07")},
                 {137, hx("02")},
                 {138, hx("00 00000000")},
                 {140, hx("01")},
                 {141, hx("00 41A00000")},
                 {147, hx("0C 43FA0000 C2480000 40A00000")},
                 {192, hx("01")},
                 {45, f32(4.0f)},
                 {46, f32(20.0f)}},
                {{145, hx("41200000 41A00000")}, {142, f32(250.0f)}, {43, {}}, {149, {}}});
}

QTEST_APPLESS_MAIN(TestQp1Device)

#include "tst_qp1device.moc"
