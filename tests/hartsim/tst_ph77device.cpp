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

// A meter in a solution that stands still: pH 6.86 at 25 degC unless the
// settings say otherwise. The electrode is Ei 8 mV, S 57 mV/pH, pHi 7; the
// meter believes Ei 0 mV, S 59.16 mV/pH, pHi 7.
std::unique_ptr<SimDevice> make(QVariantMap settings = {})
{
    if (!settings.contains(QStringLiteral("solution_ph_amplitude")))
        settings.insert(QStringLiteral("solution_ph_amplitude"), 0.0);
    QString error;
    auto device = SimDevice::create(QStringLiteral("pH-7702"), settings, &error);
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

// The value of one device variable through command 33.
float variable(SimDevice& device, int code)
{
    const Reply reply = run(device, 33, QByteArray(1, char(code)));
    return reply.data.size() == 6 ? DataCodec::getFloat(reply.data, 2) : std::nanf("");
}

float pv(SimDevice& device)
{
    return DataCodec::getFloat(run(device, 1).data, 1);
}

void setSolution(SimDevice& device, double ph, double temperature = 25.0)
{
    device.setParam(QStringLiteral("solution_ph"), ph);
    device.setParam(QStringLiteral("solution_temperature"), temperature);
}

int modifyCount(SimDevice& device)
{
    return int(DataCodec::getUInt(run(device, 0).data, 14, 2));
}

bool near(double actual, double expected, double tolerance)
{
    return std::fabs(actual - expected) <= tolerance;
}

QByteArray grd(int type, int point, float value)
{
    return QByteArray(1, char(type)) + QByteArray(1, char(point)) + f32(value);
}

#define QVERIFY_NEAR(actual, expected, tolerance)                                                                      \
    do {                                                                                                               \
        const double a_ = (actual);                                                                                    \
        QVERIFY2(near(a_, (expected), (tolerance)),                                                                    \
                 qPrintable(QStringLiteral("%1, expected %2").arg(a_, 0, 'f', 6).arg(double(expected), 0, 'f', 6)));   \
    } while (false)

} // namespace

class TestPh77Device : public QObject
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
    void variables_data();
    void variables();
    void watches();
    void bufferRecognition_data();
    void bufferRecognition();
    void onePointGraduation_data();
    void onePointGraduation();
    void twoPointGraduation();
    void graduationRefused_data();
    void graduationRefused();
    void graduationOfImpossiblePoints();
    void errorBits_data();
    void errorBits();
    void steepnessOutOfRangeAfterGraduation();
    void temperatureSensorFaults();
    void adjustU();
    void adjustRt();
    void inputUnits();
    void accessCode();
    void factoryNumber();
    void manufacturerSettings();
    void writeProtection();
};

void TestPh77Device::identity()
{
    auto device = make();
    QVERIFY(device);
    const Reply reply = run(*device, 0);
    QCOMPARE(reply.data.size(), 22);
    QCOMPARE(reply.data.left(5), hx("FE E0 94 05 07"));
    QCOMPARE(reply.data.mid(9, 3), hx("009401"));
    QCOMPARE(reply.data.mid(17, 2), hx("00E0"));
    QCOMPARE(device->longAddress(), hx("20 94 00 94 01"));
    // Variables 0 to 6.
    QCOMPARE(int(quint8(reply.data.at(13))), 6);
}

void TestPh77Device::reads_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("130 as delivered") << QVariantMap() << 130 << hx("00 00000000 426CA3D7 40E00000 04 01 3F000000 00");
    QTest::newRow("130 configured") << QVariantMap{{"input_units", 3},
                                                   {"ei_isopotential_point", -50.0},
                                                   {"steepness", 58.0},
                                                   {"phi_isopotential_point", 5.0},
                                                   {"average_time_small_sig_ph", 12},
                                                   {"average_time_big_sig_ph", 3},
                                                   {"big_sig_threshold_ph", 0.25},
                                                   {"electrode_diag", 1}}
                                    << 130 << hx("03 C2480000 42680000 40A00000 0C 03 3E800000 01");
    QTest::newRow("134 as delivered") << QVariantMap() << 134 << hx("00 00 42C80000 00000000 41C80000 08 02 3F800000");
    QTest::newRow("134 configured") << QVariantMap{{"t_measurement_mode", 1},
                                                   {"ts_type", 1},
                                                   {"ts_0", 101.0},
                                                   {"t_for_correction", 0.5},
                                                   {"t_manual", 30.0},
                                                   {"average_time_small_sig_t", 5},
                                                   {"average_time_big_sig_t", 1},
                                                   {"big_sig_threshold_t", 2.0}}
                                    << 134 << hx("01 01 42CA0000 3F000000 41F00000 05 01 40000000");
    QTest::newRow("140") << QVariantMap() << 140 << hx("00000000 41600000");
    QTest::newRow("150 nothing graduated") << QVariantMap() << 150 << hx("00") + QByteArray(24, '\0');
    QTest::newRow("152") << QVariantMap() << 152 << hx("C2700000 42700000 42480000 42780000");
    QTest::newRow("171 nothing adjusted") << QVariantMap() << 171 << QByteArray(20, '\0');
    QTest::newRow("14 sensor") << QVariantMap() << 14 << hx("009401 3B 41600000 00000000 3F800000");
}

void TestPh77Device::reads()
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, command);
    QFETCH(QByteArray, expected);

    auto device = make(settings);
    QVERIFY(device);
    const Reply reply = run(*device, command);
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.toHex(' '), expected.toHex(' '));
}

void TestPh77Device::echoedWrites_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("readCommand");
    QTest::addColumn<QByteArray>("readBack");

    QTest::newRow("131 electrode") << 131 << hx("00 40A00000 42680000") << 130
                                   << hx("00 40A00000 42680000 40E00000 04 01 3F000000 00");
    QTest::newRow("132 pH filter") << 132 << hx("05 02 3E800000") << 130
                                   << hx("00 00000000 426CA3D7 40E00000 05 02 3E800000 00");
    QTest::newRow("133 diagnostics on") << 133 << hx("01") << 130
                                        << hx("00 00000000 426CA3D7 40E00000 04 01 3F000000 01");
    QTest::newRow("135 manual temperature")
        << 135 << hx("01 41F00000") << 134 << hx("01 00 42C80000 00000000 41F00000 08 02 3F800000");
    QTest::newRow("136 sensor") << 136 << hx("01 42CA0000 3F000000") << 134
                                << hx("00 01 42CA0000 3F000000 41C80000 08 02 3F800000");
    QTest::newRow("137 temperature filter")
        << 137 << hx("03 01 40000000") << 134 << hx("00 00 42C80000 00000000 41C80000 03 01 40000000");
    QTest::newRow("141 indication") << 141 << hx("40000000 41400000") << 140 << hx("40000000 41400000");
    QTest::newRow("142 sensor limits") << 142 << hx("3B 41400000 3F800000 3F000000") << 14
                                       << hx("009401 3B 41400000 3F800000 3F000000");
    QTest::newRow("176 Ei and S ranges") << 176 << hx("C2480000 42480000 42500000 42700000") << 152
                                         << hx("C2480000 42480000 42500000 42700000");
    QTest::newRow("172 U point 1") << 172 << hx("01 42C80000") << 171
                                   << hx("42C80000 00000000 00000000 00000000 00000000");
    QTest::newRow("172 U point 2") << 172 << hx("02 42C80000") << 171
                                   << hx("00000000 42C80000 00000000 00000000 00000000");
    QTest::newRow("173 Rt") << 173 << hx("42DC0000") << 171 << hx("00000000 00000000 42DC0000 00000000 00000000");
    QTest::newRow("174 Rc point 1") << 174 << hx("01 40A00000") << 171
                                    << hx("00000000 00000000 00000000 40A00000 00000000");
    QTest::newRow("174 Rc point 2") << 174 << hx("02 40400000") << 171
                                    << hx("00000000 00000000 00000000 00000000 40400000");
}

void TestPh77Device::echoedWrites()
{
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, readCommand);
    QFETCH(QByteArray, readBack);

    auto device = make();
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    run(*device, 38);
    const int before = modifyCount(*device);

    const Reply reply = run(*device, command, request);
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.toHex(' '), request.toHex(' '));
    QCOMPARE(modifyCount(*device), before + 1);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0x40);
    QCOMPARE(run(*device, readCommand).data.toHex(' '), readBack.toHex(' '));
}

void TestPh77Device::refusals_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("code");

    QTest::newRow("131 mode 4") << 131 << hx("04 00000000 426CA3D7") << 2;
    QTest::newRow("131 zero steepness") << 131 << hx("00 00000000 00000000") << 4;
    QTest::newRow("131 short") << 131 << hx("00 00000000 426C") << 5;
    QTest::newRow("132 negative threshold") << 132 << hx("04 01 BF800000") << 4;
    QTest::newRow("132 short") << 132 << hx("04 01") << 5;
    QTest::newRow("133 not a switch") << 133 << hx("02") << 2;
    QTest::newRow("135 mode 2") << 135 << hx("02 41C80000") << 2;
    QTest::newRow("135 too hot") << 135 << hx("00 43480000") << 3;
    QTest::newRow("136 type 2") << 136 << hx("02 42C80000 00000000") << 2;
    QTest::newRow("136 zero R0") << 136 << hx("00 00000000 00000000") << 4;
    QTest::newRow("137 short") << 137 << hx("03 01 4000") << 5;
    QTest::newRow("141 empty range") << 141 << hx("40000000 40000000") << 29;
    QTest::newRow("142 degC") << 142 << hx("20 41400000 3F800000 3F000000") << 2;
    QTest::newRow("142 upside down") << 142 << hx("3B 3F800000 41400000 3F000000") << 29;
    QTest::newRow("172 point 3") << 172 << hx("03 42C80000") << 2;
    QTest::newRow("172 short") << 172 << hx("01 42C8") << 5;
    QTest::newRow("173 zero ohm") << 173 << hx("00000000") << 4;
    QTest::newRow("174 point 0") << 174 << hx("00 40A00000") << 2;
    QTest::newRow("176 Ei upside down") << 176 << hx("42480000 C2480000 42500000 42700000") << 29;
    QTest::newRow("176 S upside down") << 176 << hx("C2480000 42480000 42700000 42500000") << 29;
    QTest::newRow("176 short") << 176 << hx("C2480000 42480000 42500000") << 5;
    QTest::newRow("143 not ours") << 143 << QByteArray() << 64;
}

void TestPh77Device::refusals()
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
    // ORP: 15.98 + 207.
    QTest::newRow("ORP") << 3 << 36 << 222.98;
    QTest::newRow("EMF") << 4 << 36 << 15.98;
    // Pt100 at 25 degC: 100 * (1 + 0.00385 * 25).
    QTest::newRow("Rt") << 5 << 37 << 109.625;
    // 6.73 lies 0.13 from the buffer 6.86.
    QTest::newRow("buffer") << 6 << 59 << 6.86;
}

void TestPh77Device::variables()
{
    QFETCH(int, code);
    QFETCH(int, unit);
    QFETCH(double, expected);

    auto device = make();
    QVERIFY(device);
    const Reply reply = run(*device, 33, QByteArray(1, char(code)));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 6);
    QCOMPARE(int(quint8(reply.data.at(0))), code);
    QCOMPARE(int(quint8(reply.data.at(1))), unit);
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 2), expected, 1e-4);
}

void TestPh77Device::watches()
{
    auto device = make();
    QVERIFY(device);
    // The graduation watch: temperature, EMF, buffer.
    Reply reply = run(*device, 33, hx("01 04 06"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 18);
    QCOMPARE(reply.data.mid(0, 2), hx("01 20"));
    QCOMPARE(reply.data.mid(6, 2), hx("04 24"));
    QCOMPARE(reply.data.mid(12, 2), hx("06 3B"));
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 2), 25.0, 1e-4);
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 8), 15.98, 1e-4);
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 14), 6.86, 1e-6);
    // The adjustment watch: U, EMF, Rt.
    reply = run(*device, 33, hx("02 04 05"));
    QCOMPARE(reply.data.size(), 18);
    QCOMPARE(reply.data.mid(0, 2), hx("02 24"));
    QCOMPARE(reply.data.mid(6, 2), hx("04 24"));
    QCOMPARE(reply.data.mid(12, 2), hx("05 25"));
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 14), 109.625, 1e-4);
    // No variable 7.
    QCOMPARE(run(*device, 33, hx("07")).code, quint8(2));
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
    QVERIFY(device);
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

    // The electrode in buffer 4.01 at 25 degC: E = 8 - 57 * (4.01 - 7) =
    // 8 + 170.43 = 178.43 mV. With the present S = 59.16 the line through the
    // point gives Ei = 178.43 + 59.16 * (4.01 - 7) = 178.43 - 176.8884 = 1.5416.
    QTest::newRow("25 degC") << 25.0 << 178.43 << 1.5416;
    // At 35 degC both slopes grow by 308.15 / 298.15 = 1.033540: the electrode
    // 58.91179 mV/pH, E = 8 + 58.91179 * 2.99 = 184.1462; the meter 61.14424,
    // Ei = 184.1462 - 61.14424 * 2.99 = 1.3250.
    QTest::newRow("35 degC") << 35.0 << 184.1462 << 1.3250;
}

void TestPh77Device::onePointGraduation()
{
    QFETCH(double, temperature);
    QFETCH(double, emf);
    QFETCH(double, ei);

    auto device = make();
    QVERIFY(device);
    setSolution(*device, 4.01, temperature);
    // Graduation needs no access code.
    const Reply reply = run(*device, 151, grd(0, 1, 4.01f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 9);
    QCOMPARE(reply.data.left(1), hx("01"));
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 1), ei, 1e-3);
    QCOMPARE(reply.data.mid(5, 4), hx("426CA3D7")); // S as it was, 59.16

    // The meter reports the new Ei.
    QVERIFY_NEAR(DataCodec::getFloat(run(*device, 130).data, 1), ei, 1e-3);

    const Reply point = run(*device, 150);
    QCOMPARE(point.data.size(), 25);
    QCOMPARE(point.data.left(5), hx("00 408051EC")); // one-point, 4.01
    QVERIFY_NEAR(DataCodec::getFloat(point.data, 5), emf, 1e-3);
    QVERIFY_NEAR(DataCodec::getFloat(point.data, 9), temperature, 1e-3);
    QCOMPARE(point.data.mid(13), QByteArray(12, '\0'));

    // In the buffer the meter now reads 4.01; elsewhere the wrong steepness
    // still shows. At 25 degC in 6.86, E = 15.98 and
    // pH = 7 + (1.5416 - 15.98) / 59.16 = 6.755943; at 35 degC the same
    // ratio of the slopes gives the same reading.
    QVERIFY_NEAR(pv(*device), 4.01, 1e-3);
    setSolution(*device, 6.86, temperature);
    QVERIFY_NEAR(pv(*device), 6.755943, 1e-3);
}

void TestPh77Device::twoPointGraduation()
{
    auto device = make();
    QVERIFY(device);

    // Point 1, buffer 4.01 at 20 degC: S(20) = 57 * 293.15 / 298.15 =
    // 57 * 0.983230 = 56.04411, E1 = 8 + 56.04411 * 2.99 = 175.5719 mV.
    setSolution(*device, 4.01, 20.0);
    Reply reply = run(*device, 151, grd(1, 1, 4.01f));
    QCOMPARE(reply.code, quint8(0));
    // Nothing computed at the first point of two.
    QCOMPARE(reply.data.toHex(' '), hx("01 00000000 426CA3D7").toHex(' '));

    // Point 2, buffer 9.18 at 30 degC: S(30) = 57 * 303.15 / 298.15 =
    // 57.95589, E2 = 8 - 57.95589 * 2.18 = -118.3439 mV. Solving both gives
    // back the electrode: S25 = 57, Ei = 8.
    setSolution(*device, 9.18, 30.0);
    reply = run(*device, 151, grd(1, 2, 9.18f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 9);
    QCOMPARE(reply.data.left(1), hx("02"));
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 1), 8.0, 1e-3);
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 5), 57.0, 1e-3);

    const Reply points = run(*device, 150);
    QCOMPARE(points.data.size(), 25);
    QCOMPARE(points.data.left(5), hx("01 408051EC"));
    QVERIFY_NEAR(DataCodec::getFloat(points.data, 5), 175.5719, 1e-3);
    QVERIFY_NEAR(DataCodec::getFloat(points.data, 9), 20.0, 1e-3);
    QCOMPARE(points.data.mid(13, 4), hx("4112E148")); // 9.18
    QVERIFY_NEAR(DataCodec::getFloat(points.data, 17), -118.3439, 1e-3);
    QVERIFY_NEAR(DataCodec::getFloat(points.data, 21), 30.0, 1e-3);

    const Reply config = run(*device, 130);
    QVERIFY_NEAR(DataCodec::getFloat(config.data, 1), 8.0, 1e-3);
    QVERIFY_NEAR(DataCodec::getFloat(config.data, 5), 57.0, 1e-3);

    // Now the meter reads true at any pH and temperature.
    setSolution(*device, 6.86, 25.0);
    QVERIFY_NEAR(pv(*device), 6.86, 1e-3);
    setSolution(*device, 11.5, 45.0);
    QVERIFY_NEAR(pv(*device), 11.5, 1e-3);
}

void TestPh77Device::graduationRefused_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("code");

    QTest::newRow("type 2") << grd(2, 1, 4.01f) << 2;
    QTest::newRow("point 0") << grd(0, 0, 4.01f) << 2;
    QTest::newRow("point 3") << grd(1, 3, 4.01f) << 2;
    QTest::newRow("one-point has no point 2") << grd(0, 2, 4.01f) << 2;
    QTest::newRow("point 2 without point 1") << grd(1, 2, 9.18f) << 6;
    QTest::newRow("pH 17") << grd(0, 1, 17.0f) << 3;
    QTest::newRow("pH -3") << grd(0, 1, -3.0f) << 4;
    QTest::newRow("short") << hx("00 01 4080") << 5;
}

void TestPh77Device::graduationRefused()
{
    QFETCH(QByteArray, request);
    QFETCH(int, code);

    auto device = make();
    QVERIFY(device);
    run(*device, 38);
    const QVariantMap before = device->params();
    const Reply reply = run(*device, 151, request);
    QCOMPARE(int(reply.code), code);
    QVERIFY(reply.data.isEmpty());
    QCOMPARE(device->params(), before);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0);
}

void TestPh77Device::graduationOfImpossiblePoints()
{
    auto device = make();
    QVERIFY(device);
    // Both points in one buffer at one temperature: no steepness follows.
    setSolution(*device, 4.01);
    QCOMPARE(run(*device, 151, grd(1, 1, 4.01f)).code, quint8(0));
    QCOMPARE(run(*device, 151, grd(1, 2, 4.01f)).code, quint8(6));
    // Buffers swapped: the steepness would come out -57.
    setSolution(*device, 4.01);
    QCOMPARE(run(*device, 151, grd(1, 1, 9.18f)).code, quint8(0));
    setSolution(*device, 9.18);
    QCOMPARE(run(*device, 151, grd(1, 2, 4.01f)).code, quint8(6));
    const Reply config = run(*device, 130);
    QCOMPARE(config.data.mid(1, 8), hx("00000000 426CA3D7"));
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
    QVERIFY(device);
    const Reply status = run(*device, 48);
    QCOMPARE(status.code, quint8(0));
    QCOMPARE(status.data.size(), 25);
    QCOMPARE(int(quint8(status.data.at(0))), bits);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x10), bits ? 0x10 : 0);
    // Sending the status back acknowledges it.
    QCOMPARE(run(*device, 48, status.data).data, status.data);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x10), 0);
}

void TestPh77Device::steepnessOutOfRangeAfterGraduation()
{
    // A tired electrode: 45 mV/pH.
    auto device = make({{"electrode_s25", 45.0}});
    QVERIFY(device);
    setSolution(*device, 4.01);
    QCOMPARE(run(*device, 151, grd(1, 1, 4.01f)).code, quint8(0));
    setSolution(*device, 9.18);
    const Reply reply = run(*device, 151, grd(1, 2, 9.18f));
    QCOMPARE(reply.code, quint8(0));
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 5), 45.0, 1e-3);

    Reply status = run(*device, 48);
    QCOMPARE(int(quint8(status.data.at(0))), 0x08);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x10), 0x10);
    run(*device, 48, status.data);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x10), 0);

    // Widening the range clears the bit, which is news again.
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 176, f32(-60.0f) + f32(60.0f) + f32(40.0f) + f32(62.0f)).code, quint8(0));
    status = run(*device, 48);
    QCOMPARE(int(quint8(status.data.at(0))), 0x00);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x10), 0x10);
}

void TestPh77Device::temperatureSensorFaults()
{
    // Buffer 4.01 at 25 degC, E = 178.43 mV. Without its sensor the meter
    // compensates at the manual 35 degC: S(35) = 59.16 * 308.15 / 298.15 =
    // 61.14421, pH = 7 - 178.43 / 61.14421 = 4.081818.
    auto device = make({{"solution_ph", 4.01}, {"t_manual", 35.0}, {"ts_fault", 2}});
    QVERIFY(device);
    QVERIFY(std::isnan(variable(*device, 1)));
    QVERIFY(std::isnan(variable(*device, 5)));
    QVERIFY_NEAR(pv(*device), 4.081818, 1e-4);

    device->setParam(QStringLiteral("ts_fault"), 1);
    QVERIFY(std::isnan(variable(*device, 1)));
    QCOMPARE(variable(*device, 5), 0.0f);
    QVERIFY_NEAR(pv(*device), 4.081818, 1e-4);

    // The sensor back, the meter compensates at the measured 25 degC:
    // 7 - 178.43 / 59.16 = 3.983942.
    device->setParam(QStringLiteral("ts_fault"), 0);
    QVERIFY_NEAR(variable(*device, 1), 25.0, 1e-4);
    QVERIFY_NEAR(pv(*device), 3.983942, 1e-4);

    // Manual mode ignores the sensor.
    QCOMPARE(run(*device, 135, hx("01") + f32(35.0f)).code, quint8(0));
    QVERIFY_NEAR(variable(*device, 1), 35.0, 1e-4);
    QVERIFY_NEAR(pv(*device), 4.081818, 1e-4);
}

void TestPh77Device::adjustU()
{
    // The U channel reads 1 % high plus 2 mV: U = 1.01 E + 2.
    auto device = make({{"adc_u_error", 2.0}, {"adc_u_gain_error", 0.01}, {"solution_ph", 7.0}});
    QVERIFY(device);
    // At pH 7 the electrode gives Ei = 8 mV: U = 8.08 + 2 = 10.08.
    QVERIFY_NEAR(variable(*device, 2), 10.08, 1e-4);
    QVERIFY_NEAR(variable(*device, 4), 10.08, 1e-4);

    QCOMPARE(run(*device, 172, hx("01") + f32(8.0f)).code, quint8(16));
    QVERIFY(openAccess(*device));
    Reply reply = run(*device, 172, hx("01") + f32(8.0f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("01") + f32(8.0f));
    // One point shifts: EMF = 8; U stays the raw reading.
    QVERIFY_NEAR(variable(*device, 4), 8.0, 1e-4);
    QVERIFY_NEAR(variable(*device, 2), 10.08, 1e-4);

    // In 4.01, E = 178.43, U = 1.01 * 178.43 + 2 = 182.2143; shifted by
    // -2.08: 180.1343, the gain error still in.
    setSolution(*device, 4.01);
    QVERIFY_NEAR(variable(*device, 4), 180.1343, 1e-3);
    reply = run(*device, 172, hx("02") + f32(178.43f));
    QCOMPARE(reply.code, quint8(0));
    QVERIFY_NEAR(variable(*device, 4), 178.43, 1e-3);

    // Two points fix the gain as well: in 9.18, E = 8 - 57 * 2.18 = -116.26.
    setSolution(*device, 9.18);
    QVERIFY_NEAR(variable(*device, 2), -115.4226, 1e-3);
    QVERIFY_NEAR(variable(*device, 4), -116.26, 1e-3);

    const Reply values = run(*device, 171);
    QCOMPARE(values.data.left(8), f32(8.0f) + f32(178.43f));
}

void TestPh77Device::adjustRt()
{
    // The Rt channel reads 0.5 ohm high: 110.125 ohm, and the temperature
    // (110.125 / 100 - 1) / 0.00385 = 26.29870 degC.
    auto device = make({{"adc_rt_error", 0.5}});
    QVERIFY(device);
    QVERIFY_NEAR(variable(*device, 5), 110.125, 1e-4);
    QVERIFY_NEAR(variable(*device, 1), 26.29870, 1e-4);

    QVERIFY(openAccess(*device));
    const Reply reply = run(*device, 173, f32(109.625f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, f32(109.625f));
    QVERIFY_NEAR(variable(*device, 5), 109.625, 1e-4);
    QVERIFY_NEAR(variable(*device, 1), 25.0, 1e-4);
    QCOMPARE(run(*device, 171).data.mid(8, 4), f32(109.625f));

    // No adjustment on a failed sensor.
    device->setParam(QStringLiteral("ts_fault"), 1);
    QCOMPARE(run(*device, 173, f32(109.625f)).code, quint8(6));
}

void TestPh77Device::inputUnits()
{
    auto device = make();
    QVERIFY(device);
    // ORP meter: the PV is variable 3 in mV, the range and limits in mV.
    QCOMPARE(run(*device, 131, hx("02 00000000 426CA3D7")).code, quint8(0));
    QCOMPARE(run(*device, 50).data.left(1), hx("03"));
    Reply reply = run(*device, 1);
    QCOMPARE(reply.data.left(1), hx("24"));
    QVERIFY_NEAR(DataCodec::getFloat(reply.data, 1), 222.98, 1e-3);
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
    auto device = make();
    QVERIFY(device);
    // The current trims are adjustments too.
    QCOMPARE(run(*device, 45, f32(4.0f)).code, quint8(16));
    QCOMPARE(run(*device, 46, f32(20.0f)).code, quint8(16));
    const int metrology[] = {142, 172, 173, 174, 176, 192};
    const QByteArray requests[] = {
        hx("3B 41400000 3F800000 3F000000"),       hx("01 42C80000"), hx("42DC0000"), hx("01 40A00000"),
        hx("C2480000 42480000 42500000 42700000"), hx("01")};
    for (int k = 0; k < 6; ++k)
        QCOMPARE(int(run(*device, metrology[k], requests[k]).code), 16);
    QCOMPARE(run(*device, 190, hx("00000001")).code, quint8(16));
    QVERIFY(openAccess(*device));
    for (int k = 0; k < 6; ++k)
        QCOMPARE(int(run(*device, metrology[k], requests[k]).code), 0);
    QCOMPARE(run(*device, 190, hx("00000000")).data, hx("00"));
    QCOMPARE(run(*device, 176, requests[4]).code, quint8(16));
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 42).code, quint8(0));
    QCOMPARE(run(*device, 176, requests[4]).code, quint8(16));
    // The configuration and the graduation are open to all.
    QCOMPARE(run(*device, 131, hx("00 00000000 426CA3D7")).code, quint8(0));
    QCOMPARE(run(*device, 151, grd(0, 1, 6.86f)).code, quint8(0));
}

void TestPh77Device::factoryNumber()
{
    auto device = make();
    QVERIFY(device);
    QCOMPARE(run(*device, 194, hx("000777")).code, quint8(16));
    QVERIFY(openAccess(*device));
    const Reply reply = run(*device, 194, hx("000777"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("000777"));
    QCOMPARE(device->longAddress(), hx("20 94 00 07 77"));
    QCOMPARE(run(*device, 0).data.mid(9, 3), hx("000777"));
}

void TestPh77Device::manufacturerSettings()
{
    auto device = make({{"solution_ph", 4.01}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 192, hx("00")).code, quint8(12));
    QCOMPARE(run(*device, 192, hx("01")).data, hx("01"));

    QCOMPARE(run(*device, 151, grd(0, 1, 4.01f)).code, quint8(0));
    QCOMPARE(run(*device, 176, hx("C2480000 42480000 42500000 42700000")).code, quint8(0));
    QVERIFY_NEAR(pv(*device), 4.01, 1e-3);

    const Reply reply = run(*device, 192, hx("00"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("00"));
    QCOMPARE(run(*device, 130).data.mid(1, 8), hx("00000000 426CA3D7"));
    QCOMPARE(run(*device, 150).data, hx("00") + QByteArray(24, '\0'));
    QCOMPARE(run(*device, 152).data, hx("C2700000 42700000 42480000 42780000"));
    // 7 - 178.43 / 59.16 again.
    QVERIFY_NEAR(pv(*device), 3.983942, 1e-4);
}

void TestPh77Device::writeProtection()
{
    auto device = make({{"write_protection", 1}});
    QVERIFY(device);
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 131, hx("00 40A00000 42680000")).code, quint8(7));
    QCOMPARE(run(*device, 151, grd(0, 1, 6.86f)).code, quint8(7));
    QCOMPARE(run(*device, 176, hx("C2480000 42480000 42500000 42700000")).code, quint8(7));
    QCOMPARE(run(*device, 130).data.mid(1, 8), hx("00000000 426CA3D7"));
    QCOMPARE(run(*device, 150).code, quint8(0));
}

QTEST_APPLESS_MAIN(TestPh77Device)

#include "tst_ph77device.moc"
