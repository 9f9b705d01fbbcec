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
    QCOMPARE(run(device, 137, hx("03")).code, quint8(0));
    for (int n = 0; n < 3; ++n) {
        setPressure(device, 100.0 * n);
        const QByteArray request = QByteArray(1, char(n)) + f32(100.0f * n);
        QCOMPARE(run(device, 138, request).data, request);
    }
}

} // namespace

class TestQp1Device : public QObject
{
    Q_OBJECT

private slots:
    void identity();
    void commands_data();
    void commands();
    void linearization_data();
    void linearization();
    void linePoints();
    void calibrationUnitConvertsTheTable();
    void temperatureCorrection_data();
    void temperatureCorrection();
    void correctionStepAtAnotherTemperature();
    void zeroAndGain();
    void units_data();
    void units();
    void accessCode();
    void manufacturerSettings();
};

void TestQp1Device::identity()
{
    checkIdentity(*make(), hx("FE E0 93 05 07"), hx("20 93 00 93 01"), 2);
}

void TestQp1Device::commands_data()
{
    exchangeColumns();
    const QVariantMap none;
    const QVariantMap protectedWrites{{"write_protection", 1}};
    // Decimals, samples, input unit, free range, indication range,
    // calibration unit, line points.
    const QByteArray delivered = hx("01 04 0C 00000000 447A0000 00000000 42C80000 0C 00");

    readRow("50: QV not used", none, 50, hx("00 01 02 FA"));
    readRow("135 as delivered", none, 135, delivered);
    readRow("139 as delivered", none, 139, hx("00 41A00000 42700000"));
    readRow("149 pressure now", none, 149, hx("437A0000"));
    readRow("149 in bar", {{"calibrate_unit_code", 7}}, 149, hx("40200000"));
    readRow("14 sensor", none, 14, hx("009301 0C 447A0000 C2C80000 41200000"));

    writeRow("133 decimal point", none, 133, hx("03"), 132, hx("03"));
    writeRow("134 average count", none, 134, hx("10"), 135, hx("01 10 0C 00000000 447A0000 00000000 42C80000 0C 00"));
    // The free range is kept in the calibration unit: 1000 kPa become 10 bar.
    writeRow("136 calibration in bar", none, 136, hx("07"), 135,
             hx("01 04 0C 00000000 41200000 00000000 42C80000 07 00"));
    writeRow("137 line points", none, 137, hx("05"), 135, hx("01 04 0C 00000000 447A0000 00000000 42C80000 0C 05"));
    writeRow("140 correction mode", none, 140, hx("02"), 139, hx("02 41A00000 42700000"));
    writeRow("141 step of T2", none, 141, hx("02 41C80000"), 139, hx("00 41A00000 41C80000"));
    writeRow("141 step of T1", none, 141, hx("01 41200000"), 139, hx("00 41200000 42700000"));
    writeRow("145 free range", none, 145, hx("41200000 41A00000"), 135,
             hx("01 04 0C 41200000 41A00000 00000000 42C80000 0C 00"));
    writeRow("146 indication range", none, 146, hx("BF800000 3F800000"), 135,
             hx("01 04 0C 00000000 447A0000 BF800000 3F800000 0C 00"));
    writeRow("147 sensor", none, 147, hx("0C 43FA0000 C2480000 40A00000"), 14,
             hx("009301 0C 43FA0000 C2480000 40A00000"));
    writeRow("147 sensor in bar", none, 147, hx("07 40A00000 BF800000 3C23D70A"), 14,
             hx("009301 07 40A00000 BF800000 3C23D70A"));
    writeRow("44 input in bar", none, 44, hx("07"), 135, hx("01 04 07 00000000 447A0000 00000000 42C80000 0C 00"));
    // A point beyond the count (0 points by default) is stored with a warning.
    writeRow("138 point beyond the count", none, 138, hx("03 40E00000"), 148, hx("03 40E00000"), hx("03"), 8);

    refusalRow("133 four decimals", none, 133, hx("04"), 9);
    refusalRow("133 empty", none, 133, QByteArray(), 5);
    refusalRow("134 zero samples", none, 134, hx("00"), 4);
    refusalRow("136 not a pressure unit", none, 136, hx("20"), 2);
    refusalRow("136 free conversion", none, 136, hx("FB"), 2);
    refusalRow("137 eleven points", none, 137, hx("0B"), 3);
    refusalRow("138 point 10", none, 138, hx("0A 3F800000"), 2);
    refusalRow("138 short", none, 138, hx("00 3F80"), 5);
    refusalRow("148 point 10", none, 148, hx("0A"), 2);
    refusalRow("148 empty", none, 148, QByteArray(), 5);
    refusalRow("140 mode 3", none, 140, hx("03"), 2);
    refusalRow("141 step 4", none, 141, hx("04 41A00000"), 2);
    refusalRow("141 short", none, 141, hx("00"), 5);
    refusalRow("142 short", none, 142, hx("42C8"), 5);
    refusalRow("145 empty range", none, 145, hx("40A00000 40A00000"), 29);
    refusalRow("145 short", none, 145, hx("40A00000"), 5);
    refusalRow("146 empty range", none, 146, hx("00000000 00000000"), 29);
    refusalRow("147 degC", none, 147, hx("20 43FA0000 C2480000 40A00000"), 2);
    refusalRow("147 upside down", none, 147, hx("0C C2480000 43FA0000 40A00000"), 29);
    refusalRow("147 negative span", none, 147, hx("0C 43FA0000 C2480000 BF800000"), 4);
    refusalRow("147 short", none, 147, hx("0C 43FA0000 C2480000"), 5);
    refusalRow("44 degC", none, 44, hx("20"), 2);
    refusalRow("130 not ours", none, 130, QByteArray(), 64);
    refusalRow("145 write-protected", protectedWrites, 145, hx("41200000 41A00000"), 7);
    refusalRow("142 write-protected", protectedWrites, 142, f32(250.0f), 7);
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
    QTest::newRow("second segment") << straight << hx("03") << 150.0 << 150.0;
    QTest::newRow("beyond the last point") << straight << hx("03") << 300.0 << 300.0;
    QTest::newRow("two points in use") << straight << hx("02") << 150.0 << 150.0;
    QTest::newRow("none in use: the sensor") << straight << hx("00") << 150.0 << 154.0;
    // A sensor reading P + 0.0001 P^2: exact at the points, the chord between:
    // 50.25 * 100 / 101 = 49.75248; 100 + (152.25 - 101) * 100 / 103 = 149.75728.
    const QVariantMap curved{{"sensor_nonlinearity", 0.0001}};
    QTest::newRow("curved, at a point") << curved << hx("03") << 100.0 << 100.0;
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
    QCOMPARE(run(*device, 137, inUse).code, quint8(0));
    setPressure(*device, pressure);
    QVERIFY_NEAR(pv(*device), expected, 1e-3);
}

void TestQp1Device::linePoints()
{
    auto device = make({{"sensor_zero_error", 1.0}, {"sensor_span_error", 0.02}});
    QVERIFY(openAccess(*device));
    // Before the table the PV is the sensor: 50 kPa read as 52; 149 gives what
    // a point would store now.
    setPressure(*device, 50.0);
    QVERIFY_NEAR(pv(*device), 52.0, 1e-3);
    QVERIFY_NEAR(floatAt(run(*device, 149).data, 0), 52.0, 1e-3);

    // A point in the count but never stored reads with the warning; one point
    // makes no table.
    QCOMPARE(run(*device, 137, hx("03")).code, quint8(0));
    const Reply unset = run(*device, 148, hx("01"));
    QCOMPARE(unset.code, quint8(8));
    QCOMPARE(unset.data, hx("01 00000000"));
    setPressure(*device, 0.0);
    QCOMPARE(run(*device, 138, hx("00 00000000")).code, quint8(0));
    setPressure(*device, 50.0);
    QVERIFY_NEAR(pv(*device), 52.0, 1e-3);

    // The first point beyond the count stays out of use until the table grows.
    QCOMPARE(run(*device, 138, hx("03 40E00000")).code, quint8(8));
    QCOMPARE(run(*device, 148, hx("03")).code, quint8(8));
    QCOMPARE(run(*device, 137, hx("05")).code, quint8(0));
    const Reply grown = run(*device, 148, hx("03"));
    QCOMPARE(grown.code, quint8(0));
    QCOMPARE(grown.data, hx("03 40E00000"));

    loadTable(*device);
    QCOMPARE(run(*device, 148, hx("02")).data, hx("02 43480000"));
}

void TestQp1Device::calibrationUnitConvertsTheTable()
{
    auto device = make({{"sensor_zero_error", 1.0}, {"sensor_span_error", 0.02}});
    QVERIFY(openAccess(*device));
    loadTable(*device);
    QCOMPARE(run(*device, 136, hx("07")).code, quint8(0));
    // 100 kPa is 1 bar, 200 kPa 2 bar; the pressure now, 50 kPa read as 52.
    QVERIFY_NEAR(floatAt(run(*device, 148, hx("01")).data, 1), 1.0, 1e-6);
    QVERIFY_NEAR(floatAt(run(*device, 148, hx("02")).data, 1), 2.0, 1e-6);
    setPressure(*device, 50.0);
    QVERIFY_NEAR(floatAt(run(*device, 149).data, 0), 0.52, 1e-6);
    // The PV is still kPa and still linearized.
    QVERIFY_NEAR(pv(*device), 50.0, 1e-3);
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
    QTest::newRow("zero at 40") << 1 << 40.0 << 51.0;
    // Zero and gain: (54 - 2) * 100 / 104 = 50; (52 - 1) * 100 / 102 = 50;
    // beyond T2 the lines go on: (56 - 3) * 100 / 106 = 50.
    QTest::newRow("zero and gain at 60") << 2 << 60.0 << 50.0;
    QTest::newRow("zero and gain at 40") << 2 << 40.0 << 50.0;
    QTest::newRow("zero and gain at 20") << 2 << 20.0 << 50.0;
    QTest::newRow("zero and gain at 80") << 2 << 80.0 << 50.0;
}

void TestQp1Device::temperatureCorrection()
{
    QFETCH(int, mode);
    QFETCH(double, temperature);
    QFETCH(double, expected);

    auto device = make({{"sensor_zero_tempco", 0.05}, {"sensor_span_tempco", 0.001}});
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 140, QByteArray(1, char(mode))).code, quint8(0));
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

void TestQp1Device::correctionStepAtAnotherTemperature()
{
    auto device = make({{"sensor_zero_tempco", 0.05}});
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 140, hx("01")).code, quint8(0));
    // The same step again at the same temperature: no warning; at another
    // one: stored, echoed, and warned about; another step, first time: none.
    QCOMPARE(run(*device, 141, hx("00") + f32(20.0f)).code, quint8(0));
    QCOMPARE(run(*device, 141, hx("00") + f32(20.0f)).code, quint8(0));
    const Reply reply = run(*device, 141, hx("00") + f32(25.0f));
    QCOMPARE(reply.code, quint8(8));
    QCOMPARE(reply.data, hx("00") + f32(25.0f));
    QCOMPARE(run(*device, 139).data, hx("01") + f32(25.0f) + f32(60.0f));
    QCOMPARE(run(*device, 141, hx("03") + f32(70.0f)).code, quint8(0));
    // Two of the four steps: no correction yet, the zero reads 0.05 * 40.
    setPressure(*device, 0.0);
    device->setParam(QStringLiteral("sensor_temperature"), 60.0);
    QVERIFY_NEAR(pv(*device), 2.0, 1e-3);
}

void TestQp1Device::zeroAndGain()
{
    // The sensor reads 2 % high. The gain needs no access: 80 / 81.6.
    auto device = make({{"sensor_span_error", 0.02}, {"process_pressure", 80.0}});
    QVERIFY_NEAR(pv(*device), 81.6, 1e-3);
    QCOMPARE(run(*device, 142, f32(80.0f)).data, f32(80.0f));
    QVERIFY_NEAR(pv(*device), 80.0, 1e-3);
    setPressure(*device, 40.0);
    QVERIFY_NEAR(pv(*device), 40.0, 1e-3);

    // Zero at 10 kPa (read 10.2); the gain holds: (61.2 - 10.2) * 0.980392.
    setPressure(*device, 10.0);
    const Reply zero = run(*device, 43);
    QCOMPARE(zero.code, quint8(0));
    QVERIFY(zero.data.isEmpty());
    QVERIFY_NEAR(pv(*device), 0.0, 1e-3);
    setPressure(*device, 60.0);
    QVERIFY_NEAR(pv(*device), 50.0, 1e-3);

    // A gain beyond 0.5..2 is refused: 1000 / 51 and 10 / 51; at the zero
    // nothing can be scaled.
    QCOMPARE(run(*device, 142, f32(1000.0f)).code, quint8(9));
    QCOMPARE(run(*device, 142, f32(10.0f)).code, quint8(10));
    QVERIFY_NEAR(pv(*device), 50.0, 1e-3);
    setPressure(*device, 10.0);
    QCOMPARE(run(*device, 142, f32(5.0f)).code, quint8(9));
}

void TestQp1Device::units_data()
{
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<double>("expected");
    QTest::addColumn<double>("rangeMax");

    // 250 kPa; range 0..600 kPa, converted with the unit.
    QTest::newRow("bar") << hx("07") << 2.5 << 6.0;
    QTest::newRow("MPa") << hx("ED") << 0.25 << 0.6;
    // 1 psi = 6.894757 kPa.
    QTest::newRow("psi") << hx("06") << 36.25944 << 87.02265;
    // Free conversion: 0..1000 kPa onto 0..100. The range stays as it was.
    QTest::newRow("free conversion") << hx("FB") << 25.0 << 600.0;
}

void TestQp1Device::units()
{
    QFETCH(QByteArray, unit);
    QFETCH(double, expected);
    QFETCH(double, rangeMax);

    auto device = make();
    QCOMPARE(run(*device, 44, unit).data, unit);
    const Reply one = run(*device, 1);
    QCOMPARE(one.data.left(1), unit);
    QVERIFY_NEAR(floatAt(one.data, 1), expected, 1e-4);
    const Reply range = run(*device, 15);
    QCOMPARE(range.data.mid(2, 1), unit);
    QVERIFY_NEAR(floatAt(range.data, 3), rangeMax, 1e-4);
    QCOMPARE(floatAt(range.data, 7), 0.0f);
    QCOMPARE(run(*device, 135).data.mid(2, 1), unit);
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

void TestQp1Device::manufacturerSettings()
{
    auto device = make();
    checkFactoryRestore(*device, {{137, hx("03")}, {138, hx("01 42C80000")}, {140, hx("02")}, {136, hx("07")}},
                        {{135, {}}, {139, {}}, {148, hx("01")}});
    QCOMPARE(run(*device, 148, hx("01")).code, quint8(8));
}

QTEST_APPLESS_MAIN(TestQp1Device)

#include "tst_qp1device.moc"
