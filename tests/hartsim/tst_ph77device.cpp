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

} // namespace

// The reads and writes of the configuration, the one-point graduation, the
// adjustments and the input units are driven end to end by the program's tests
// of its pH-7702 model; here are the meter's refusals, its access code, its
// device variables and error bits, and the two-point graduation.
class TestPh77Device : public QObject
{
    Q_OBJECT

private slots:
    void commands_data();
    void commands();
    void variables_data();
    void variables();
    void twoPointGraduation();
    void graduationOfImpossiblePoints();
    void errorBits_data();
    void errorBits();
    void accessCode();
};

void TestPh77Device::commands_data()
{
    exchangeColumns();
    const QVariantMap none;
    const QVariantMap protectedWrites{{"write_protection", 1}};

    // An ORP meter: the limits in mV.
    writeRow("131 ORP meter", none, 131, hx("02 00000000 426CA3D7"), 14, hx("009401 24 44FA0000 C4FA0000 41200000"));
    refusalRow("131 mode 4", none, 131, hx("04 00000000 426CA3D7"), 2);
    refusalRow("131 zero steepness", none, 131, hx("00 00000000 00000000"), 4);
    refusalRow("131 short", none, 131, hx("00 00000000 426C"), 5);
    refusalRow("132 negative threshold", none, 132, hx("04 01 BF800000"), 4);
    refusalRow("132 short", none, 132, hx("04 01"), 5);
    refusalRow("133 not a switch", none, 133, hx("02"), 2);
    refusalRow("135 mode 2", none, 135, hx("02 41C80000"), 2);
    refusalRow("135 too hot", none, 135, hx("00 43480000"), 3);
    refusalRow("135 too cold", none, 135, hx("00 C1A80000"), 4);
    refusalRow("136 type 2", none, 136, hx("02 42C80000 00000000"), 2);
    refusalRow("136 zero R0", none, 136, hx("00 00000000 00000000"), 4);
    refusalRow("137 short", none, 137, hx("03 01 4000"), 5);
    refusalRow("141 empty range", none, 141, hx("40000000 40000000"), 29);
    refusalRow("142 degC", none, 142, hx("20 41400000 3F800000 3F000000"), 2);
    refusalRow("142 upside down", none, 142, hx("3B 3F800000 41400000 3F000000"), 29);
    refusalRow("172 point 3", none, 172, hx("03 42C80000"), 2);
    refusalRow("172 short", none, 172, hx("01 42C8"), 5);
    refusalRow("173 zero ohm", none, 173, hx("00000000"), 4);
    refusalRow("173 on a failed sensor", {{"ts_fault", 1}}, 173, f32(109.625f), 6);
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
    refusalRow("176 write-protected", protectedWrites, 176, hx("C2480000 42480000 42500000 42700000"), 7);
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
    QCOMPARE(reply.data.size(), 6);
    QCOMPARE(int(quint8(reply.data.at(0))), code);
    QCOMPARE(int(quint8(reply.data.at(1))), unit);
    QVERIFY_NEAR(floatAt(reply.data, 2), expected, 1e-4);
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
    QVERIFY_NEAR(floatAt(run(*device, 130).data, 5), 57.0, 1e-3);

    // Now the meter reads true at any pH and temperature.
    setSolution(*device, 6.86, 25.0);
    QVERIFY_NEAR(pv(*device), 6.86, 1e-3);
    setSolution(*device, 11.5, 45.0);
    QVERIFY_NEAR(pv(*device), 11.5, 1e-3);

    // With a second buffer named, the first of two points puts the
    // electrode into it; a one-point graduation leaves it where it is.
    device->setParam(QStringLiteral("second_buffer_ph"), 4.01);
    QCOMPARE(code(*device, 151, grd(0, 1, 11.5f)), 0);
    QVERIFY_NEAR(device->param(QStringLiteral("solution_ph")).toDouble(), 11.5, 1e-6);
    QCOMPARE(code(*device, 151, grd(1, 1, 11.5f)), 0);
    QVERIFY_NEAR(device->param(QStringLiteral("solution_ph")).toDouble(), 4.01, 1e-6);
}

void TestPh77Device::graduationOfImpossiblePoints()
{
    // Both points in one buffer at one temperature: no steepness follows;
    // buffers swapped: the steepness would come out -57.
    auto device = make({{"solution_ph", 4.01}});
    QCOMPARE(code(*device, 151, grd(1, 1, 4.01f)), 0);
    QCOMPARE(code(*device, 151, grd(1, 2, 4.01f)), 6);
    QCOMPARE(code(*device, 151, grd(1, 1, 9.18f)), 0);
    setSolution(*device, 9.18);
    QCOMPARE(code(*device, 151, grd(1, 2, 4.01f)), 6);
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
    QTest::newRow("S below") << QVariantMap{{"steepness", 45.0}} << 0x08;
    QTest::newRow("S above") << QVariantMap{{"steepness", 63.0}} << 0x08;
    QTest::newRow("Ei and S") << QVariantMap{{"ei_isopotential_point", 61.0}, {"steepness", 63.0}} << 0x0C;
}

void TestPh77Device::errorBits()
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, bits);

    auto device = make(settings);
    const Reply reply = run(*device, 48);
    QCOMPARE(reply.data.size(), 25);
    QCOMPARE(int(quint8(reply.data.at(0))), bits);
    QCOMPARE(status(*device, 0x10), bits ? 0x10 : 0);
    // Sending the status back acknowledges it.
    QCOMPARE(run(*device, 48, reply.data).data, reply.data);
    QCOMPARE(status(*device, 0x10), 0);
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

QTEST_APPLESS_MAIN(TestPh77Device)

#include "tst_ph77device.moc"
