#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

// A meter in a solution that stands still: pH 6.86 at 25 degC unless the
// settings say otherwise. The electrode is Ei 8 mV, S 57 mV/pH, pHi 7; the
// meter believes Ei 0 mV, S 59.16 mV/pH (426CA3D7), pHi 7.
std::unique_ptr<SimDevice> make(const QVariantMap& settings = {})
{
    return simtest::make(QStringLiteral("pH-7702"), settings, {"solution_ph_amplitude"});
}

void setSolution(SimDevice& device, double ph, double temperature = 25.0)
{
    device.setParam(QStringLiteral("solution_ph"), ph);
    device.setParam(QStringLiteral("solution_temperature"), temperature);
}

// A graduation request: type (0 one point, 1 two), point, buffer pH.
QByteArray grd(int type, int point, float value)
{
    return QByteArray(1, char(type)) + QByteArray(1, char(point)) + f32(value);
}

int additionalBits(SimDevice& device)
{
    return device.deviceStatus(Master::Primary) & 0x10;
}

} // namespace

class TestPh77Device : public QObject
{
    Q_OBJECT

private slots:
    void identity();
    void commands_data();
    void commands();
    void variables_data();
    void variables();
    void bufferRecognition_data();
    void bufferRecognition();
    void onePointGraduation_data();
    void onePointGraduation();
    void twoPointGraduation();
    void graduationOfImpossiblePoints();
    void errorBits_data();
    void errorBits();
    void steepnessOutOfRangeAfterGraduation();
    void temperatureSensorFaults();
    void adjustU();
    void adjustRt();
    void adjustRc();
    void inputUnits();
    void accessCode();
    void manufacturerSettings();
};

void TestPh77Device::identity()
{
    checkIdentity(*make(), hx("FE E0 94 05 07"), hx("20 94 00 94 01"), 7);
}

void TestPh77Device::commands_data()
{
    exchangeColumns();
    const QVariantMap none;
    const QVariantMap protectedWrites{{"write_protection", 1}};
    const QByteArray ranges = hx("C2480000 42480000 42500000 42700000");

    readRow("130 as delivered", none, 130, hx("00 00000000 426CA3D7 40E00000 04 01 3F000000 00"));
    readRow("134 as delivered", none, 134, hx("00 00 42C80000 00000000 41C80000 08 02 3F800000"));
    readRow("140", none, 140, hx("00000000 41600000"));
    readRow("150 nothing graduated", none, 150, QByteArray(25, '\0'));
    readRow("152", none, 152, hx("C2700000 42700000 42480000 42780000"));
    readRow("171 nothing adjusted", none, 171, QByteArray(20, '\0'));
    readRow("14 sensor", none, 14, hx("009401 3B 41600000 00000000 3F800000"));

    writeRow("131 electrode", none, 131, hx("00 40A00000 42680000"), 130,
             hx("00 40A00000 42680000 40E00000 04 01 3F000000 00"));
    writeRow("132 pH filter", none, 132, hx("05 02 3E800000"), 130,
             hx("00 00000000 426CA3D7 40E00000 05 02 3E800000 00"));
    writeRow("133 diagnostics on", none, 133, hx("01"), 130, hx("00 00000000 426CA3D7 40E00000 04 01 3F000000 01"));
    writeRow("135 manual temperature", none, 135, hx("01 41F00000"), 134,
             hx("01 00 42C80000 00000000 41F00000 08 02 3F800000"));
    writeRow("136 sensor", none, 136, hx("01 42CA0000 3F000000"), 134,
             hx("00 01 42CA0000 3F000000 41C80000 08 02 3F800000"));
    writeRow("137 temperature filter", none, 137, hx("03 01 40000000"), 134,
             hx("00 00 42C80000 00000000 41C80000 03 01 40000000"));
    writeRow("141 indication", none, 141, hx("40000000 41400000"), 140, hx("40000000 41400000"));
    writeRow("142 sensor limits", none, 142, hx("3B 41400000 3F800000 3F000000"), 14,
             hx("009401 3B 41400000 3F800000 3F000000"));
    writeRow("176 Ei and S ranges", none, 176, ranges, 152, ranges);
    writeRow("172 U point 1", none, 172, hx("01 42C80000"), 171, hx("42C80000") + QByteArray(16, '\0'));
    writeRow("172 U point 2", none, 172, hx("02 42C80000"), 171,
             QByteArray(4, '\0') + hx("42C80000") + QByteArray(12, '\0'));
    writeRow("173 Rt", none, 173, hx("42DC0000"), 171, QByteArray(8, '\0') + hx("42DC0000") + QByteArray(8, '\0'));
    writeRow("174 Rc point 1", none, 174, hx("01 40A00000"), 171,
             QByteArray(12, '\0') + hx("40A00000") + QByteArray(4, '\0'));
    writeRow("174 Rc point 2", none, 174, hx("02 40400000"), 171, QByteArray(16, '\0') + hx("40400000"));

    refusalRow("131 mode 4", none, 131, hx("04 00000000 426CA3D7"), 2);
    refusalRow("131 zero steepness", none, 131, hx("00 00000000 00000000"), 4);
    refusalRow("131 short", none, 131, hx("00 00000000 426C"), 5);
    refusalRow("132 negative threshold", none, 132, hx("04 01 BF800000"), 4);
    refusalRow("132 short", none, 132, hx("04 01"), 5);
    refusalRow("133 not a switch", none, 133, hx("02"), 2);
    refusalRow("135 mode 2", none, 135, hx("02 41C80000"), 2);
    refusalRow("135 too hot", none, 135, hx("00 43480000"), 3);
    refusalRow("136 type 2", none, 136, hx("02 42C80000 00000000"), 2);
    refusalRow("136 zero R0", none, 136, hx("00 00000000 00000000"), 4);
    refusalRow("137 short", none, 137, hx("03 01 4000"), 5);
    refusalRow("141 empty range", none, 141, hx("40000000 40000000"), 29);
    refusalRow("142 degC", none, 142, hx("20 41400000 3F800000 3F000000"), 2);
    refusalRow("142 upside down", none, 142, hx("3B 3F800000 41400000 3F000000"), 29);
    refusalRow("172 point 3", none, 172, hx("03 42C80000"), 2);
    refusalRow("172 short", none, 172, hx("01 42C8"), 5);
    refusalRow("173 zero ohm", none, 173, hx("00000000"), 4);
    refusalRow("174 point 0", none, 174, hx("00 40A00000"), 2);
    refusalRow("176 Ei upside down", none, 176, hx("42480000 C2480000 42500000 42700000"), 29);
    refusalRow("176 S upside down", none, 176, hx("C2480000 42480000 42700000 42500000"), 29);
    refusalRow("176 short", none, 176, hx("C2480000 42480000 42500000"), 5);
    refusalRow("33 no variable 8", none, 33, hx("08"), 2);
    refusalRow("143 not ours", none, 143, QByteArray(), 64);
    refusalRow("151 type 2", none, 151, grd(2, 1, 4.01f), 2);
    refusalRow("151 point 0", none, 151, grd(0, 0, 4.01f), 2);
    refusalRow("151 point 3", none, 151, grd(1, 3, 4.01f), 2);
    refusalRow("151 one-point has no point 2", none, 151, grd(0, 2, 4.01f), 2);
    refusalRow("151 point 2 without point 1", none, 151, grd(1, 2, 9.18f), 6);
    refusalRow("151 pH 17", none, 151, grd(0, 1, 17.0f), 3);
    refusalRow("151 pH -3", none, 151, grd(0, 1, -3.0f), 4);
    refusalRow("151 short", none, 151, hx("00 01 4080"), 5);
    refusalRow("131 write-protected", protectedWrites, 131, hx("00 40A00000 42680000"), 7);
    refusalRow("151 write-protected", protectedWrites, 151, grd(0, 1, 6.86f), 7);
    refusalRow("176 write-protected", protectedWrites, 176, ranges, 7);
}

void TestPh77Device::commands()
{
    QFETCH(QVariantMap, settings);
    auto device = make(settings);
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    checkExchange(*device);
}

void TestPh77Device::variables_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("unit");
    QTest::addColumn<double>("expected");

    // The electrode in pH 6.86 at 25 degC: E = 8 - 57 * (6.86 - 7) = 15.98 mV.
    // The meter: pH = 7 + (0 - 15.98) / 59.16 = 6.729885.
    QTest::newRow("pH") << 0 << 59 << 6.729885;
    QTest::newRow("temperature") << 1 << 32 << 25.0;
    QTest::newRow("U") << 2 << 36 << 15.98;
    QTest::newRow("ORP") << 3 << 36 << 222.98; // 15.98 + 207
    QTest::newRow("EMF") << 4 << 36 << 15.98;
    QTest::newRow("Rt") << 5 << 37 << 109.625;  // Pt100 at 25 degC
    QTest::newRow("buffer") << 6 << 59 << 6.86; // 6.73 lies 0.13 from 6.86
    QTest::newRow("Rc") << 7 << 163 << 5.0;
}

void TestPh77Device::variables()
{
    QFETCH(int, code);
    QFETCH(int, unit);
    QFETCH(double, expected);

    const Reply reply = run(*make(), 33, QByteArray(1, char(code)));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 6);
    QCOMPARE(int(quint8(reply.data.at(0))), code);
    QCOMPARE(int(quint8(reply.data.at(1))), unit);
    QVERIFY_NEAR(floatAt(reply.data, 2), expected, 1e-4);
}

void TestPh77Device::bufferRecognition_data()
{
    QTest::addColumn<double>("solution");
    QTest::addColumn<double>("buffer");

    // A meter that knows its electrode reads the solution as it is.
    QTest::newRow("4.2 is 4.01") << 4.2 << 4.01;
    QTest::newRow("4.4 is none") << 4.4 << qQNaN();
    QTest::newRow("1.9 is 1.65") << 1.9 << 1.65;
    QTest::newRow("7.1 is 6.86") << 7.1 << 6.86;
    QTest::newRow("9.0 is 9.18") << 9.0 << 9.18;
    QTest::newRow("12.2 is 12.43") << 12.2 << 12.43;
    QTest::newRow("5.5 is none") << 5.5 << qQNaN();
    QTest::newRow("11.0 is none") << 11.0 << qQNaN();
}

void TestPh77Device::bufferRecognition()
{
    QFETCH(double, solution);
    QFETCH(double, buffer);

    auto device = make({{"ei_isopotential_point", 8.0}, {"steepness", 57.0}, {"solution_ph", solution}});
    QVERIFY_NEAR(pv(*device), solution, 1e-4);
    const float recognised = variable(*device, 6);
    if (std::isnan(buffer))
        QVERIFY2(std::isnan(recognised), qPrintable(QString::number(recognised)));
    else
        QVERIFY_NEAR(recognised, buffer, 1e-6);
}

void TestPh77Device::onePointGraduation_data()
{
    QTest::addColumn<double>("temperature");
    QTest::addColumn<double>("emf");
    QTest::addColumn<double>("ei");

    // The electrode in buffer 4.01 at 25 degC: E = 8 + 57 * 2.99 = 178.43 mV.
    // With the present S = 59.16 the line through the point gives
    // Ei = 178.43 - 59.16 * 2.99 = 1.5416.
    QTest::newRow("25 degC") << 25.0 << 178.43 << 1.5416;
    // At 35 degC both slopes grow by 308.15 / 298.15: E = 8 + 58.91179 * 2.99
    // = 184.1462; Ei = 184.1462 - 61.14424 * 2.99 = 1.3250.
    QTest::newRow("35 degC") << 35.0 << 184.1462 << 1.3250;
}

void TestPh77Device::onePointGraduation()
{
    QFETCH(double, temperature);
    QFETCH(double, emf);
    QFETCH(double, ei);

    auto device = make();
    setSolution(*device, 4.01, temperature);
    // Graduation needs no access code; S stays as it was.
    const Reply reply = run(*device, 151, grd(0, 1, 4.01f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 9);
    QCOMPARE(reply.data.left(1), hx("01"));
    QVERIFY_NEAR(floatAt(reply.data, 1), ei, 1e-3);
    QCOMPARE(reply.data.mid(5, 4), hx("426CA3D7"));
    QVERIFY_NEAR(floatAt(run(*device, 130).data, 1), ei, 1e-3);

    const Reply point = run(*device, 150);
    QCOMPARE(point.data.size(), 25);
    QCOMPARE(point.data.left(5), hx("00 408051EC")); // one-point, 4.01
    QVERIFY_NEAR(floatAt(point.data, 5), emf, 1e-3);
    QVERIFY_NEAR(floatAt(point.data, 9), temperature, 1e-3);
    QCOMPARE(point.data.mid(13), QByteArray(12, '\0'));

    // In the buffer the meter now reads 4.01; elsewhere the wrong steepness
    // still shows: 7 + (1.5416 - 15.98) / 59.16 = 6.755943 in 6.86, the same
    // at 35 degC.
    QVERIFY_NEAR(pv(*device), 4.01, 1e-3);
    setSolution(*device, 6.86, temperature);
    QVERIFY_NEAR(pv(*device), 6.755943, 1e-3);
}

void TestPh77Device::twoPointGraduation()
{
    auto device = make();
    // Point 1, buffer 4.01 at 20 degC: S(20) = 57 * 293.15 / 298.15 =
    // 56.04411, E1 = 8 + 56.04411 * 2.99 = 175.5719 mV. Nothing computed yet.
    setSolution(*device, 4.01, 20.0);
    QCOMPARE(run(*device, 151, grd(1, 1, 4.01f)).data.toHex(' '), hx("01 00000000 426CA3D7").toHex(' '));

    // Point 2, buffer 9.18 at 30 degC: S(30) = 57.95589, E2 = 8 - 57.95589 *
    // 2.18 = -118.3439 mV. Both give back the electrode: Ei = 8, S25 = 57.
    setSolution(*device, 9.18, 30.0);
    const Reply reply = run(*device, 151, grd(1, 2, 9.18f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 9);
    QCOMPARE(reply.data.left(1), hx("02"));
    QVERIFY_NEAR(floatAt(reply.data, 1), 8.0, 1e-3);
    QVERIFY_NEAR(floatAt(reply.data, 5), 57.0, 1e-3);

    const Reply points = run(*device, 150);
    QCOMPARE(points.data.size(), 25);
    QCOMPARE(points.data.left(5), hx("01 408051EC"));
    QVERIFY_NEAR(floatAt(points.data, 5), 175.5719, 1e-3);
    QVERIFY_NEAR(floatAt(points.data, 9), 20.0, 1e-3);
    QCOMPARE(points.data.mid(13, 4), hx("4112E148")); // 9.18
    QVERIFY_NEAR(floatAt(points.data, 17), -118.3439, 1e-3);
    QVERIFY_NEAR(floatAt(points.data, 21), 30.0, 1e-3);
    QVERIFY_NEAR(floatAt(run(*device, 130).data, 1), 8.0, 1e-3);
    QVERIFY_NEAR(floatAt(run(*device, 130).data, 5), 57.0, 1e-3);

    // Now the meter reads true at any pH and temperature.
    setSolution(*device, 6.86, 25.0);
    QVERIFY_NEAR(pv(*device), 6.86, 1e-3);
    setSolution(*device, 11.5, 45.0);
    QVERIFY_NEAR(pv(*device), 11.5, 1e-3);

    // With a second buffer named, the first of two points puts the
    // electrode into it; a one-point graduation leaves it where it is.
    device->setParam(QStringLiteral("second_buffer_ph"), 4.01);
    QCOMPARE(run(*device, 151, grd(0, 1, 11.5f)).code, quint8(0));
    QVERIFY_NEAR(device->param(QStringLiteral("solution_ph")).toDouble(), 11.5, 1e-6);
    QCOMPARE(run(*device, 151, grd(1, 1, 11.5f)).code, quint8(0));
    QVERIFY_NEAR(device->param(QStringLiteral("solution_ph")).toDouble(), 4.01, 1e-6);
}

void TestPh77Device::graduationOfImpossiblePoints()
{
    auto device = make();
    // Both points in one buffer at one temperature: no steepness follows.
    setSolution(*device, 4.01);
    QCOMPARE(run(*device, 151, grd(1, 1, 4.01f)).code, quint8(0));
    QCOMPARE(run(*device, 151, grd(1, 2, 4.01f)).code, quint8(6));
    // Buffers swapped: the steepness would come out -57.
    QCOMPARE(run(*device, 151, grd(1, 1, 9.18f)).code, quint8(0));
    setSolution(*device, 9.18);
    QCOMPARE(run(*device, 151, grd(1, 2, 4.01f)).code, quint8(6));
    QCOMPARE(run(*device, 130).data.mid(1, 8), hx("00000000 426CA3D7"));
}

void TestPh77Device::errorBits_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("bits");

    QTest::newRow("all well") << QVariantMap() << 0x00;
    QTest::newRow("sensor short") << QVariantMap{{"ts_fault", 1}} << 0x01;
    QTest::newRow("sensor open") << QVariantMap{{"ts_fault", 2}} << 0x02;
    QTest::newRow("Ei above") << QVariantMap{{"ei_isopotential_point", 70.0}} << 0x04;
    QTest::newRow("Ei below") << QVariantMap{{"ei_isopotential_point", -61.0}} << 0x04;
    QTest::newRow("Ei range moved") << QVariantMap{{"ei_min", 1.0}} << 0x04;
    QTest::newRow("S below") << QVariantMap{{"steepness", 45.0}} << 0x08;
    QTest::newRow("S above") << QVariantMap{{"steepness", 63.0}} << 0x08;
    QTest::newRow("short and Ei") << QVariantMap{{"ts_fault", 1}, {"ei_isopotential_point", -70.0}} << 0x05;
    QTest::newRow("Ei and S") << QVariantMap{{"ei_isopotential_point", 61.0}, {"steepness", 63.0}} << 0x0C;
}

void TestPh77Device::errorBits()
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, bits);

    auto device = make(settings);
    const Reply status = run(*device, 48);
    QCOMPARE(status.code, quint8(0));
    QCOMPARE(status.data.size(), 25);
    QCOMPARE(int(quint8(status.data.at(0))), bits);
    QCOMPARE(additionalBits(*device), bits ? 0x10 : 0);
    // Sending the status back acknowledges it.
    QCOMPARE(run(*device, 48, status.data).data, status.data);
    QCOMPARE(additionalBits(*device), 0);
}

void TestPh77Device::steepnessOutOfRangeAfterGraduation()
{
    // A tired electrode: 45 mV/pH.
    auto device = make({{"electrode_s25", 45.0}});
    setSolution(*device, 4.01);
    QCOMPARE(run(*device, 151, grd(1, 1, 4.01f)).code, quint8(0));
    setSolution(*device, 9.18);
    QVERIFY_NEAR(floatAt(run(*device, 151, grd(1, 2, 9.18f)).data, 5), 45.0, 1e-3);

    const Reply status = run(*device, 48);
    QCOMPARE(int(quint8(status.data.at(0))), 0x08);
    QCOMPARE(additionalBits(*device), 0x10);
    run(*device, 48, status.data);
    QCOMPARE(additionalBits(*device), 0);

    // Widening the range clears the bit, which is news again.
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 176, f32(-60.0f) + f32(60.0f) + f32(40.0f) + f32(62.0f)).code, quint8(0));
    QCOMPARE(int(quint8(run(*device, 48).data.at(0))), 0x00);
    QCOMPARE(additionalBits(*device), 0x10);
}

void TestPh77Device::temperatureSensorFaults()
{
    // Buffer 4.01 at 25 degC, E = 178.43 mV. Without its sensor the meter
    // compensates at the manual 35 degC: S(35) = 59.16 * 308.15 / 298.15 =
    // 61.14421, pH = 7 - 178.43 / 61.14421 = 4.081818.
    auto device = make({{"solution_ph", 4.01}, {"t_manual", 35.0}, {"ts_fault", 2}});
    QVERIFY(std::isnan(variable(*device, 1)));
    QVERIFY(std::isnan(variable(*device, 5)));
    QVERIFY_NEAR(pv(*device), 4.081818, 1e-4);
    device->setParam(QStringLiteral("ts_fault"), 1);
    QVERIFY(std::isnan(variable(*device, 1)));
    QCOMPARE(variable(*device, 5), 0.0f);
    QVERIFY_NEAR(pv(*device), 4.081818, 1e-4);

    // The sensor back, the meter compensates at the measured 25 degC:
    // 7 - 178.43 / 59.16 = 3.983942. Manual mode ignores the sensor.
    device->setParam(QStringLiteral("ts_fault"), 0);
    QVERIFY_NEAR(variable(*device, 1), 25.0, 1e-4);
    QVERIFY_NEAR(pv(*device), 3.983942, 1e-4);
    QCOMPARE(run(*device, 135, hx("01") + f32(35.0f)).code, quint8(0));
    QVERIFY_NEAR(variable(*device, 1), 35.0, 1e-4);
    QVERIFY_NEAR(pv(*device), 4.081818, 1e-4);
}

void TestPh77Device::adjustU()
{
    // The U channel reads 1 % high plus 2 mV: U = 1.01 E + 2. At pH 7 the
    // electrode gives Ei = 8 mV: U = 10.08.
    auto device = make({{"adc_u_error", 2.0}, {"adc_u_gain_error", 0.01}, {"solution_ph", 7.0}});
    QVERIFY_NEAR(variable(*device, 2), 10.08, 1e-4);
    QVERIFY_NEAR(variable(*device, 4), 10.08, 1e-4);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 172, hx("01") + f32(8.0f)).data, hx("01") + f32(8.0f));
    // One point shifts: EMF = 8; U stays the raw reading.
    QVERIFY_NEAR(variable(*device, 4), 8.0, 1e-4);
    QVERIFY_NEAR(variable(*device, 2), 10.08, 1e-4);

    // In 4.01, E = 178.43, U = 1.01 * 178.43 + 2 = 182.2143; shifted by
    // -2.08: 180.1343, the gain error still in.
    setSolution(*device, 4.01);
    QVERIFY_NEAR(variable(*device, 4), 180.1343, 1e-3);
    QCOMPARE(run(*device, 172, hx("02") + f32(178.43f)).code, quint8(0));
    QVERIFY_NEAR(variable(*device, 4), 178.43, 1e-3);
    // Two points fix the gain as well: in 9.18, E = 8 - 57 * 2.18 = -116.26.
    setSolution(*device, 9.18);
    QVERIFY_NEAR(variable(*device, 2), -115.4226, 1e-3);
    QVERIFY_NEAR(variable(*device, 4), -116.26, 1e-3);
    QCOMPARE(run(*device, 171).data.left(8), f32(8.0f) + f32(178.43f));
}

void TestPh77Device::adjustRt()
{
    // The Rt channel reads 0.5 ohm high: 110.125 ohm, and the temperature
    // (110.125 / 100 - 1) / 0.00385 = 26.29870 degC.
    auto device = make({{"adc_rt_error", 0.5}});
    QVERIFY_NEAR(variable(*device, 5), 110.125, 1e-4);
    QVERIFY_NEAR(variable(*device, 1), 26.29870, 1e-4);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 173, f32(109.625f)).data, f32(109.625f));
    QVERIFY_NEAR(variable(*device, 5), 109.625, 1e-4);
    QVERIFY_NEAR(variable(*device, 1), 25.0, 1e-4);
    QCOMPARE(run(*device, 171).data.mid(8, 4), f32(109.625f));
    // No adjustment on a failed sensor.
    device->setParam(QStringLiteral("ts_fault"), 1);
    QCOMPARE(run(*device, 173, f32(109.625f)).code, quint8(6));
}

void TestPh77Device::adjustRc()
{
    // The Rc channel reads 0.3 kOhm high; the two points set offset and gain.
    auto device = make({{"adc_rc_error", 0.3}});
    QVERIFY_NEAR(variable(*device, 7), 5.3, 1e-4);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 174, hx("01") + f32(5.0f)).code, quint8(0));
    QVERIFY_NEAR(variable(*device, 7), 5.0, 1e-4);
    device->setParam(QStringLiteral("electrode_rc_true"), 10.0);
    QCOMPARE(run(*device, 174, hx("02") + f32(9.8f)).code, quint8(0));
    QVERIFY_NEAR(variable(*device, 7), 9.8, 1e-4);
    // Back at 5 kOhm the line through both points gives point 1 again.
    device->setParam(QStringLiteral("electrode_rc_true"), 5.0);
    QVERIFY_NEAR(variable(*device, 7), 5.0, 1e-4);
}

void TestPh77Device::inputUnits()
{
    auto device = make();
    // ORP meter: the PV is variable 3 in mV, the range and limits in mV.
    QCOMPARE(run(*device, 131, hx("02 00000000 426CA3D7")).code, quint8(0));
    QCOMPARE(run(*device, 50).data.left(1), hx("03"));
    const Reply orp = run(*device, 1);
    QCOMPARE(orp.data.left(1), hx("24"));
    QVERIFY_NEAR(floatAt(orp.data, 1), 222.98, 1e-3);
    QCOMPARE(run(*device, 15).data.mid(2, 9), hx("24 447A0000 C47A0000"));
    QCOMPARE(run(*device, 14).data.mid(3, 9), hx("24 44FA0000 C4FA0000"));
    // EMF meter: variable 4, the range kept.
    QCOMPARE(run(*device, 131, hx("03 00000000 426CA3D7")).code, quint8(0));
    QCOMPARE(run(*device, 50).data.left(1), hx("04"));
    QVERIFY_NEAR(pv(*device), 15.98, 1e-3);
    QCOMPARE(run(*device, 15).data.mid(2, 9), hx("24 447A0000 C47A0000"));
    // Back to pH.
    QCOMPARE(run(*device, 131, hx("01 00000000 426CA3D7")).code, quint8(0));
    QCOMPARE(run(*device, 50).data.left(1), hx("00"));
    QCOMPARE(run(*device, 15).data.mid(2, 9), hx("3B 41600000 00000000"));
    QVERIFY_NEAR(pv(*device), 6.729885, 1e-4);
}

void TestPh77Device::accessCode()
{
    // The metrology and the current trims are protected; the configuration
    // and the graduation are open to all.
    checkAccess(*make(),
                {{142, hx("3B 41400000 3F800000 3F000000")},
                 {172, hx("01 42C80000")},
                 {173, hx("42DC0000")},
                 {174, hx("01 40A00000")},
                 {176, hx("C2480000 42480000 42500000 42700000")},
                 {192, hx("01")},
                 {45, f32(4.0f)},
                 {46, f32(20.0f)}},
                {{131, hx("00 00000000 426CA3D7")}, {151, grd(0, 1, 6.86f)}});
}

void TestPh77Device::manufacturerSettings()
{
    checkFactoryRestore(*make({{"solution_ph", 4.01}}),
                        {{151, grd(0, 1, 4.01f)}, {176, hx("C2480000 42480000 42500000 42700000")}},
                        {{130, {}}, {150, {}}, {152, {}}, {1, {}}});
}

QTEST_APPLESS_MAIN(TestPh77Device)

#include "tst_ph77device.moc"
