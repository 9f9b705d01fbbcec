#include "datacodec.h"
#include "simdevice.h"

#include <QtTest>

#include <cmath>

using namespace hartsim;

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

QByteArray f32(float value)
{
    QByteArray out;
    DataCodec::putFloat(out, value);
    return out;
}

// A converter whose pressure stands still (250 kPa unless set otherwise).
std::unique_ptr<SimDevice> make(QVariantMap settings = {})
{
    if (!settings.contains(QStringLiteral("process_pressure_amplitude")))
        settings.insert(QStringLiteral("process_pressure_amplitude"), 0.0);
    QString error;
    auto device = SimDevice::create(QStringLiteral("QP-1C"), settings, &error);
    if (!device)
        qWarning("%s", qPrintable(error));
    return device;
}

Reply run(SimDevice& device, int command, const QByteArray& data = QByteArray())
{
    return device.handle(quint8(command), data, Master::Primary, 0.0);
}

bool openAccess(SimDevice& device)
{
    const Reply reply = run(device, 190, hx("00003039")); // 12345
    return reply.code == 0 && reply.data == hx("01");
}

float pv(SimDevice& device)
{
    return DataCodec::getFloat(run(device, 1).data, 1);
}

void setPressure(SimDevice& device, double kpa)
{
    device.setParam(QStringLiteral("process_pressure"), kpa);
}

int modifyCount(SimDevice& device)
{
    return int(DataCodec::getUInt(run(device, 0).data, 14, 2));
}

bool near(double actual, double expected, double tolerance)
{
    return std::fabs(actual - expected) <= tolerance;
}

#define QVERIFY_NEAR(actual, expected, tolerance)                                                                      \
    do {                                                                                                               \
        const double a_ = (actual);                                                                                    \
        QVERIFY2(near(a_, (expected), (tolerance)),                                                                    \
                 qPrintable(QStringLiteral("%1, expected %2").arg(a_, 0, 'f', 6).arg(double(expected), 0, 'f', 6)));   \
    } while (false)

// The sensor of the linearization cases reads 1 kPa + 1.02 P, and the table
// gets three points: 0, 100 and 200 kPa read as 1, 103 and 205 kPa.
void loadTable(SimDevice& device)
{
    QCOMPARE(run(device, 137, hx("03")).code, quint8(0));
    const double pressures[] = {0.0, 100.0, 200.0};
    for (int n = 0; n < 3; ++n) {
        setPressure(device, pressures[n]);
        const QByteArray request = QByteArray(1, char(n)) + f32(float(pressures[n]));
        const Reply reply = run(device, 138, request);
        QCOMPARE(reply.code, quint8(0));
        QCOMPARE(reply.data, request);
    }
}

} // namespace

class TestQp1Device : public QObject
{
    Q_OBJECT

private slots:
    void identity();
    void reads_data();
    void reads();
    void echoedWrites_data();
    void echoedWrites();
    void refusals_data();
    void refusals();
    void linearization();
    void linearizationOfACurvedSensor();
    void linePointsOutOfUse();
    void calibrationUnitConvertsTheTable();
    void temperatureCorrection_data();
    void temperatureCorrection();
    void correctionStepAtAnotherTemperature();
    void zeroAndGain();
    void units_data();
    void units();
    void accessCode();
    void factoryNumber();
    void manufacturerSettings();
    void writeProtection();
};

void TestQp1Device::identity()
{
    auto device = make();
    QVERIFY(device);
    const Reply reply = run(*device, 0);
    QCOMPARE(reply.data.size(), 22);
    QCOMPARE(reply.data.left(5), hx("FE E0 93 05 07"));
    QCOMPARE(reply.data.mid(9, 3), hx("009301"));
    QCOMPARE(reply.data.mid(17, 2), hx("00E0"));
    QCOMPARE(device->longAddress(), hx("20 93 00 93 01"));
    // Variables 0 to 2; QV is not used.
    QCOMPARE(int(quint8(reply.data.at(13))), 2);
    QCOMPARE(run(*device, 50).data, hx("00 01 02 FA"));
}

void TestQp1Device::reads_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("132") << QVariantMap() << 132 << 0 << hx("01");
    QTest::newRow("135 as delivered") << QVariantMap() << 135 << 0
                                      << hx("01 04 0C 00000000 447A0000 00000000 42C80000 0C 00");
    QTest::newRow("135 configured")
        << QVariantMap{{"decimal_point_position", 2}, {"average_count", 16},      {"input_units", 7},
                       {"free_range_min", 10.0},      {"free_range_max", 20.0},   {"indicate_range_min", -1.0},
                       {"indicate_range_max", 1.0},   {"calibrate_unit_code", 6}, {"line_points_count", 5}}
        << 135 << 0 << hx("02 10 07 41200000 41A00000 BF800000 3F800000 06 05");
    QTest::newRow("139 as delivered") << QVariantMap() << 139 << 0 << hx("00 41A00000 42700000");
    QTest::newRow("139 configured") << QVariantMap{{"temper_correction_mode", 1},
                                                   {"t1_correcton_value", 25.0},
                                                   {"t2_correcton_value", 10.0}}
                                    << 139 << 0 << hx("01 41C80000 41200000");
    QTest::newRow("149 pressure now") << QVariantMap() << 149 << 0 << hx("437A0000");
    QTest::newRow("149 in bar") << QVariantMap{{"calibrate_unit_code", 7}} << 149 << 0 << hx("40200000");
    QTest::newRow("14 sensor") << QVariantMap() << 14 << 0 << hx("009301 0C 447A0000 C2C80000 41200000");
}

void TestQp1Device::reads()
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, command);
    QFETCH(int, code);
    QFETCH(QByteArray, expected);

    auto device = make(settings);
    QVERIFY(device);
    const Reply reply = run(*device, command);
    QCOMPARE(int(reply.code), code);
    QCOMPARE(reply.data.toHex(' '), expected.toHex(' '));
}

void TestQp1Device::echoedWrites_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("readCommand");
    QTest::addColumn<QByteArray>("readRequest");
    QTest::addColumn<QByteArray>("readBack");

    QTest::newRow("133 decimal point") << 133 << hx("03") << 132 << QByteArray() << hx("03");
    QTest::newRow("134 average count") << 134 << hx("10") << 135 << QByteArray()
                                       << hx("01 10 0C 00000000 447A0000 00000000 42C80000 0C 00");
    // The free range is kept in the calibration unit: 1000 kPa become 10 bar.
    QTest::newRow("136 calibration in bar")
        << 136 << hx("07") << 135 << QByteArray() << hx("01 04 0C 00000000 41200000 00000000 42C80000 07 00");
    QTest::newRow("137 line points") << 137 << hx("05") << 135 << QByteArray()
                                     << hx("01 04 0C 00000000 447A0000 00000000 42C80000 0C 05");
    QTest::newRow("140 correction mode") << 140 << hx("02") << 139 << QByteArray() << hx("02 41A00000 42700000");
    QTest::newRow("141 step of T2") << 141 << hx("02 41C80000") << 139 << QByteArray() << hx("00 41A00000 41C80000");
    QTest::newRow("141 step of T1") << 141 << hx("01 41200000") << 139 << QByteArray() << hx("00 41200000 42700000");
    QTest::newRow("145 free range") << 145 << hx("41200000 41A00000") << 135 << QByteArray()
                                    << hx("01 04 0C 41200000 41A00000 00000000 42C80000 0C 00");
    QTest::newRow("146 indication range") << 146 << hx("BF800000 3F800000") << 135 << QByteArray()
                                          << hx("01 04 0C 00000000 447A0000 BF800000 3F800000 0C 00");
    QTest::newRow("147 sensor") << 147 << hx("0C 43FA0000 C2480000 40A00000") << 14 << QByteArray()
                                << hx("009301 0C 43FA0000 C2480000 40A00000");
    QTest::newRow("147 sensor in bar") << 147 << hx("07 40A00000 BF800000 3C23D70A") << 14 << QByteArray()
                                       << hx("009301 07 40A00000 BF800000 3C23D70A");
    QTest::newRow("44 input in bar") << 44 << hx("07") << 135 << QByteArray()
                                     << hx("01 04 07 00000000 447A0000 00000000 42C80000 0C 00");
    QTest::newRow("138 point") << 138 << hx("03 40E00000") << 148 << hx("03") << hx("03 40E00000");
}

void TestQp1Device::echoedWrites()
{
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, readCommand);
    QFETCH(QByteArray, readRequest);
    QFETCH(QByteArray, readBack);

    auto device = make();
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    run(*device, 38);
    const int before = modifyCount(*device);

    const Reply reply = run(*device, command, request);
    // A point beyond the count (0 points by default) is a warning.
    QCOMPARE(int(reply.code), command == 138 ? 8 : 0);
    QCOMPARE(reply.data.toHex(' '), request.toHex(' '));
    QCOMPARE(modifyCount(*device), before + 1);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0x40);
    QCOMPARE(run(*device, readCommand, readRequest).data.toHex(' '), readBack.toHex(' '));
}

void TestQp1Device::refusals_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("code");

    QTest::newRow("133 four decimals") << 133 << hx("04") << 9;
    QTest::newRow("133 empty") << 133 << QByteArray() << 5;
    QTest::newRow("134 zero samples") << 134 << hx("00") << 4;
    QTest::newRow("136 not a pressure unit") << 136 << hx("20") << 2;
    QTest::newRow("136 free conversion") << 136 << hx("FB") << 2;
    QTest::newRow("137 eleven points") << 137 << hx("0B") << 3;
    QTest::newRow("138 point 10") << 138 << hx("0A 3F800000") << 2;
    QTest::newRow("138 short") << 138 << hx("00 3F80") << 5;
    QTest::newRow("148 point 10") << 148 << hx("0A") << 2;
    QTest::newRow("148 empty") << 148 << QByteArray() << 5;
    QTest::newRow("140 mode 3") << 140 << hx("03") << 2;
    QTest::newRow("141 step 4") << 141 << hx("04 41A00000") << 2;
    QTest::newRow("141 short") << 141 << hx("00") << 5;
    QTest::newRow("142 short") << 142 << hx("42C8") << 5;
    QTest::newRow("145 empty range") << 145 << hx("40A00000 40A00000") << 29;
    QTest::newRow("145 short") << 145 << hx("40A00000") << 5;
    QTest::newRow("146 empty range") << 146 << hx("00000000 00000000") << 29;
    QTest::newRow("147 degC") << 147 << hx("20 43FA0000 C2480000 40A00000") << 2;
    QTest::newRow("147 upside down") << 147 << hx("0C C2480000 43FA0000 40A00000") << 29;
    QTest::newRow("147 negative span") << 147 << hx("0C 43FA0000 C2480000 BF800000") << 4;
    QTest::newRow("147 short") << 147 << hx("0C 43FA0000 C2480000") << 5;
    QTest::newRow("44 degC") << 44 << hx("20") << 2;
    QTest::newRow("130 not ours") << 130 << QByteArray() << 64;
}

void TestQp1Device::refusals()
{
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, code);

    auto device = make();
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    run(*device, 38);
    const QVariantMap before = device->params();
    const Reply reply = run(*device, command, request);
    QCOMPARE(int(reply.code), code);
    QVERIFY(reply.data.isEmpty());
    QCOMPARE(device->params(), before);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0);
}

void TestQp1Device::linearization()
{
    auto device = make({{"sensor_zero_error", 1.0}, {"sensor_span_error", 0.02}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));

    // Before the table the PV is the sensor: 50 kPa read as 1 + 51 = 52.
    setPressure(*device, 50.0);
    QVERIFY_NEAR(pv(*device), 52.0, 1e-3);
    // 149 gives what a point would store now.
    QVERIFY_NEAR(DataCodec::getFloat(run(*device, 149).data, 0), 52.0, 1e-3);

    // One point doesn't make a table.
    QCOMPARE(run(*device, 137, hx("03")).code, quint8(0));
    setPressure(*device, 0.0);
    QCOMPARE(run(*device, 138, hx("00 00000000")).code, quint8(0));
    setPressure(*device, 50.0);
    QVERIFY_NEAR(pv(*device), 52.0, 1e-3);

    loadTable(*device);
    // 50 kPa reads 52, between the points (1, 0) and (103, 100):
    // (52 - 1) * 100 / 102 = 50.
    setPressure(*device, 50.0);
    QVERIFY_NEAR(pv(*device), 50.0, 1e-3);
    // 150 kPa reads 154, between (103, 100) and (205, 200): 100 + 51 * 100 / 102.
    setPressure(*device, 150.0);
    QVERIFY_NEAR(pv(*device), 150.0, 1e-3);
    // Beyond the last point the last segment goes on: 300 kPa reads 307.
    setPressure(*device, 300.0);
    QVERIFY_NEAR(pv(*device), 300.0, 1e-3);

    // The points read back.
    const QByteArray values[] = {hx("00 00000000"), hx("01 42C80000"), hx("02 43480000")};
    for (int n = 0; n < 3; ++n) {
        const Reply reply = run(*device, 148, QByteArray(1, char(n)));
        QCOMPARE(reply.code, quint8(0));
        QCOMPARE(reply.data.toHex(' '), values[n].toHex(' '));
    }

    // Fewer points in use: the table of the first two alone still maps the
    // same straight sensor line.
    QCOMPARE(run(*device, 137, hx("02")).code, quint8(0));
    setPressure(*device, 150.0);
    QVERIFY_NEAR(pv(*device), 150.0, 1e-3);
    // None in use: the sensor again, 1 + 1.02 * 150 = 154.
    QCOMPARE(run(*device, 137, hx("00")).code, quint8(0));
    QVERIFY_NEAR(pv(*device), 154.0, 1e-3);
}

void TestQp1Device::linearizationOfACurvedSensor()
{
    // The sensor reads P + 0.0001 P^2: 0, 101 and 204 kPa at 0, 100 and 200.
    auto device = make({{"sensor_nonlinearity", 0.0001}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    setPressure(*device, 50.0);
    QVERIFY_NEAR(pv(*device), 50.25, 1e-3);
    loadTable(*device);
    // The points are exact; between them the chord: 50 kPa read as 50.25
    // map to 50.25 * 100 / 101 = 49.75248.
    setPressure(*device, 100.0);
    QVERIFY_NEAR(pv(*device), 100.0, 1e-3);
    setPressure(*device, 50.0);
    QVERIFY_NEAR(pv(*device), 49.75248, 1e-3);
    // 150 kPa read as 152.25: 100 + (152.25 - 101) * 100 / 103 = 149.75728.
    setPressure(*device, 150.0);
    QVERIFY_NEAR(pv(*device), 149.75728, 1e-3);
}

void TestQp1Device::linePointsOutOfUse()
{
    auto device = make();
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 137, hx("03")).code, quint8(0));

    // A point in the count but never stored.
    Reply reply = run(*device, 148, hx("01"));
    QCOMPARE(reply.code, quint8(8));
    QCOMPARE(reply.data, hx("01 00000000"));

    // A point beyond the count is stored with the warning, echoed, and stays
    // out of use.
    reply = run(*device, 138, hx("04 40E00000"));
    QCOMPARE(reply.code, quint8(8));
    QCOMPARE(reply.data, hx("04 40E00000"));
    reply = run(*device, 148, hx("04"));
    QCOMPARE(reply.code, quint8(8));
    QCOMPARE(reply.data, hx("04 40E00000"));

    // Once the table grows it counts.
    QCOMPARE(run(*device, 137, hx("05")).code, quint8(0));
    reply = run(*device, 148, hx("04"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("04 40E00000"));
}

void TestQp1Device::calibrationUnitConvertsTheTable()
{
    auto device = make({{"sensor_zero_error", 1.0}, {"sensor_span_error", 0.02}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    loadTable(*device);
    QCOMPARE(run(*device, 136, hx("07")).code, quint8(0));
    // 100 kPa is 1 bar; 200 kPa is 2 bar.
    QVERIFY_NEAR(DataCodec::getFloat(run(*device, 148, hx("01")).data, 1), 1.0, 1e-6);
    QVERIFY_NEAR(DataCodec::getFloat(run(*device, 148, hx("02")).data, 1), 2.0, 1e-6);
    // The pressure now, 50 kPa read as 52 kPa, in bar.
    setPressure(*device, 50.0);
    QVERIFY_NEAR(DataCodec::getFloat(run(*device, 149).data, 0), 0.52, 1e-6);
    // The PV is still kPa and still linearized.
    QVERIFY_NEAR(pv(*device), 50.0, 1e-3);
}

void TestQp1Device::temperatureCorrection_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("temperature");
    QTest::addColumn<double>("expected");

    // The sensor drifts 0.05 kPa/degC at zero and 0.1 %/degC in span from
    // 20 degC: at 60 degC, 50 kPa read as 50 + 2 + 0.04 * 50 = 54; at
    // 40 degC as 50 + 1 + 0.02 * 50 = 52.
    QTest::newRow("off at 60") << 0 << 60.0 << 54.0;
    // Zero only: the zero drift, 2 kPa at 60 degC, comes off.
    QTest::newRow("zero at 60") << 1 << 60.0 << 52.0;
    QTest::newRow("zero at 40") << 1 << 40.0 << 51.0;
    // Zero and gain: the span 104 at 60 degC is brought back to 100:
    // (54 - 2) * 100 / 104 = 50; at 40 degC (52 - 1) * 100 / 102 = 50.
    QTest::newRow("zero and gain at 60") << 2 << 60.0 << 50.0;
    QTest::newRow("zero and gain at 40") << 2 << 40.0 << 50.0;
    QTest::newRow("zero and gain at 20") << 2 << 20.0 << 50.0;
    // Beyond T2 the straight lines go on: at 80 degC 50 + 3 + 3 = 56,
    // zero 3, span 106: 53 * 100 / 106 = 50.
    QTest::newRow("zero and gain at 80") << 2 << 80.0 << 50.0;
}

void TestQp1Device::temperatureCorrection()
{
    QFETCH(int, mode);
    QFETCH(double, temperature);
    QFETCH(double, expected);

    auto device = make({{"sensor_zero_tempco", 0.05}, {"sensor_span_tempco", 0.001}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 140, QByteArray(1, char(mode))).code, quint8(0));

    struct Step
    {
        int step;
        double pressure, temperature;
    };
    const Step steps[] = {{0, 0.0, 20.0}, {1, 100.0, 20.0}, {2, 0.0, 60.0}, {3, 100.0, 60.0}};
    for (const Step& s : steps) {
        setPressure(*device, s.pressure);
        device->setParam(QStringLiteral("sensor_temperature"), s.temperature);
        const QByteArray request = QByteArray(1, char(s.step)) + f32(float(s.temperature));
        const Reply reply = run(*device, 141, request);
        QCOMPARE(reply.code, quint8(0));
        QCOMPARE(reply.data, request);
    }
    QCOMPARE(run(*device, 139).data, QByteArray(1, char(mode)) + f32(20.0f) + f32(60.0f));

    setPressure(*device, 50.0);
    device->setParam(QStringLiteral("sensor_temperature"), temperature);
    QVERIFY_NEAR(pv(*device), expected, 1e-3);
}

void TestQp1Device::correctionStepAtAnotherTemperature()
{
    auto device = make({{"sensor_zero_tempco", 0.05}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 140, hx("01")).code, quint8(0));

    QCOMPARE(run(*device, 141, QByteArray(1, '\0') + f32(20.0f)).code, quint8(0));
    // The same step again at the same temperature: no warning.
    QCOMPARE(run(*device, 141, QByteArray(1, '\0') + f32(20.0f)).code, quint8(0));
    // At another one: stored, echoed, and warned about.
    const QByteArray request = QByteArray(1, '\0') + f32(25.0f);
    const Reply reply = run(*device, 141, request);
    QCOMPARE(reply.code, quint8(8));
    QCOMPARE(reply.data, request);
    QCOMPARE(run(*device, 139).data, hx("01") + f32(25.0f) + f32(60.0f));
    // Another step, first time: no warning whatever its temperature.
    QCOMPARE(run(*device, 141, QByteArray(1, '\3') + f32(70.0f)).code, quint8(0));

    // Only two of the four steps stored: no correction yet. At 60 degC the zero reads
    // 0.05 * 40 = 2 kPa.
    setPressure(*device, 0.0);
    device->setParam(QStringLiteral("sensor_temperature"), 60.0);
    QVERIFY_NEAR(pv(*device), 2.0, 1e-3);
}

void TestQp1Device::zeroAndGain()
{
    // The sensor reads 2 % high.
    auto device = make({{"sensor_span_error", 0.02}, {"process_pressure", 80.0}});
    QVERIFY(device);
    QVERIFY_NEAR(pv(*device), 81.6, 1e-3);

    // Gain is no calibration command: no access needed. 80 / 81.6 = 0.980392.
    Reply reply = run(*device, 142, f32(80.0f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, f32(80.0f));
    QVERIFY_NEAR(pv(*device), 80.0, 1e-3);
    setPressure(*device, 40.0); // 40.8 * 0.980392 = 40
    QVERIFY_NEAR(pv(*device), 40.0, 1e-3);

    // Zero at 10 kPa (read 10.2): the PV shows 0 there, and the gain holds:
    // at 60 kPa (61.2 - 10.2) * 0.980392 = 50.
    setPressure(*device, 10.0);
    reply = run(*device, 43);
    QCOMPARE(reply.code, quint8(0));
    QVERIFY(reply.data.isEmpty());
    QVERIFY_NEAR(pv(*device), 0.0, 1e-3);
    setPressure(*device, 60.0);
    QVERIFY_NEAR(pv(*device), 50.0, 1e-3);

    // A gain beyond 0.5..2 is refused: 1000 / 51 and 10 / 51.
    QCOMPARE(run(*device, 142, f32(1000.0f)).code, quint8(9));
    QCOMPARE(run(*device, 142, f32(10.0f)).code, quint8(10));
    QVERIFY_NEAR(pv(*device), 50.0, 1e-3);
    // At the zero nothing can be scaled.
    setPressure(*device, 10.0);
    QCOMPARE(run(*device, 142, f32(5.0f)).code, quint8(9));
}

void TestQp1Device::units_data()
{
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<int>("pvUnit");
    QTest::addColumn<double>("expected");
    QTest::addColumn<double>("rangeMax");

    // 250 kPa; range 0..600 kPa, converted with the unit.
    QTest::newRow("bar") << hx("07") << 7 << 2.5 << 6.0;
    QTest::newRow("MPa") << hx("ED") << 237 << 0.25 << 0.6;
    // 1 psi = 6.894757 kPa: 250 / 6.894757 = 36.25944, 600 / 6.894757 = 87.02265.
    QTest::newRow("psi") << hx("06") << 6 << 36.25944 << 87.02265;
    // Free conversion: 0..1000 kPa onto 0..100 gives 25. The range stays as it was.
    QTest::newRow("free conversion") << hx("FB") << 251 << 25.0 << 600.0;
}

void TestQp1Device::units()
{
    QFETCH(QByteArray, unit);
    QFETCH(int, pvUnit);
    QFETCH(double, expected);
    QFETCH(double, rangeMax);

    auto device = make();
    QVERIFY(device);
    const Reply reply = run(*device, 44, unit);
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, unit);
    const Reply one = run(*device, 1);
    QCOMPARE(int(quint8(one.data.at(0))), pvUnit);
    QVERIFY_NEAR(DataCodec::getFloat(one.data, 1), expected, 1e-4);
    const Reply range = run(*device, 15);
    QCOMPARE(int(quint8(range.data.at(2))), pvUnit);
    QVERIFY_NEAR(DataCodec::getFloat(range.data, 3), rangeMax, 1e-4);
    QCOMPARE(DataCodec::getFloat(range.data, 7), 0.0f);
    QCOMPARE(int(quint8(run(*device, 135).data.at(2))), pvUnit);
}

void TestQp1Device::accessCode()
{
    auto device = make();
    QVERIFY(device);
    // The current trims are adjustments too.
    QCOMPARE(run(*device, 45, f32(4.0f)).code, quint8(16));
    QCOMPARE(run(*device, 46, f32(20.0f)).code, quint8(16));
    const int calibration[] = {136, 137, 138, 140, 141, 147, 192};
    const QByteArray requests[] = {hx("07"), hx("02"),          hx("00 00000000"),
                                   hx("01"), hx("00 41A00000"), hx("0C 43FA0000 C2480000 40A00000"),
                                   hx("01")};
    for (int k = 0; k < 7; ++k)
        QCOMPARE(int(run(*device, calibration[k], requests[k]).code), 16);
    QCOMPARE(run(*device, 190, hx("0000303A")).code, quint8(16));
    QCOMPARE(run(*device, 137, hx("02")).code, quint8(16));
    QVERIFY(openAccess(*device));
    for (int k = 0; k < 7; ++k)
        QVERIFY(run(*device, calibration[k], requests[k]).code != 16);
    QCOMPARE(run(*device, 190, hx("00000000")).data, hx("00"));
    QCOMPARE(run(*device, 137, hx("02")).code, quint8(16));
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 42).code, quint8(0));
    QCOMPARE(run(*device, 137, hx("02")).code, quint8(16));
    // Not protected: the configuration, the gain, the zero, the reads.
    QCOMPARE(run(*device, 145, hx("41200000 41A00000")).code, quint8(0));
    QCOMPARE(run(*device, 142, f32(250.0f)).code, quint8(0));
    QCOMPARE(run(*device, 43).code, quint8(0));
    QCOMPARE(run(*device, 149).code, quint8(0));
}

void TestQp1Device::factoryNumber()
{
    auto device = make();
    QVERIFY(device);
    QCOMPARE(run(*device, 194, hx("0A0B0C")).code, quint8(16));
    QVERIFY(openAccess(*device));
    const Reply reply = run(*device, 194, hx("0A0B0C"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("0A0B0C"));
    QCOMPARE(device->longAddress(), hx("20 93 0A 0B 0C"));
}

void TestQp1Device::manufacturerSettings()
{
    auto device = make({{"sensor_zero_error", 1.0}, {"sensor_span_error", 0.02}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 192, hx("00")).code, quint8(12));
    QCOMPARE(run(*device, 192, hx("01")).data, hx("01"));

    loadTable(*device);
    QCOMPARE(run(*device, 140, hx("02")).code, quint8(0));
    setPressure(*device, 50.0);
    QVERIFY_NEAR(pv(*device), 50.0, 1e-3);

    const Reply reply = run(*device, 192, hx("00"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("00"));
    QCOMPARE(run(*device, 135).data.right(2), hx("0C 00"));
    QCOMPARE(run(*device, 139).data.left(1), hx("00"));
    QCOMPARE(run(*device, 148, hx("01")).code, quint8(8));
    QVERIFY_NEAR(pv(*device), 52.0, 1e-3);
}

void TestQp1Device::writeProtection()
{
    auto device = make({{"write_protection", 1}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 145, hx("41200000 41A00000")).code, quint8(7));
    QCOMPARE(run(*device, 142, f32(250.0f)).code, quint8(7));
    QCOMPARE(run(*device, 137, hx("02")).code, quint8(7));
    QCOMPARE(run(*device, 43).code, quint8(7));
    QCOMPARE(run(*device, 135).data, hx("01 04 0C 00000000 447A0000 00000000 42C80000 0C 00"));
    QVERIFY_NEAR(pv(*device), 250.0, 1e-3);
    // Reads go on.
    QCOMPARE(run(*device, 148, hx("00")).code, quint8(8));
    QCOMPARE(run(*device, 149).code, quint8(0));
}

QTEST_APPLESS_MAIN(TestQp1Device)

#include "tst_qp1device.moc"
