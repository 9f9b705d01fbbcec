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

// A converter whose process temperature stands still at 25 degC unless the
// settings say otherwise.
std::unique_ptr<SimDevice> make(const QString& model = QStringLiteral("TCV-C"), QVariantMap settings = {})
{
    if (!settings.contains(QStringLiteral("process_temperature_amplitude")))
        settings.insert(QStringLiteral("process_temperature_amplitude"), 0.0);
    QString error;
    auto device = SimDevice::create(model, settings, &error);
    if (!device)
        qWarning("%s", qPrintable(error));
    return device;
}

Reply run(SimDevice& device, int command, const QByteArray& data = QByteArray(), double now = 0.0)
{
    return device.handle(quint8(command), data, Master::Primary, now);
}

bool openAccess(SimDevice& device, double now = 0.0)
{
    const Reply reply = run(device, 190, hx("00003039"), now); // 12345
    return reply.code == 0 && reply.data == hx("01");
}

float pv(SimDevice& device)
{
    const Reply reply = run(device, 1);
    return DataCodec::getFloat(reply.data, 1);
}

int modifyCount(SimDevice& device)
{
    return int(DataCodec::getUInt(run(device, 0).data, 14, 2));
}

bool near(double actual, double expected, double tolerance)
{
    return std::fabs(actual - expected) <= tolerance;
}

} // namespace

class TestTcvDevice : public QObject
{
    Q_OBJECT

private slots:
    void identity_data();
    void identity();
    void reads_data();
    void reads();
    void echoedWrites_data();
    void echoedWrites();
    void refusals_data();
    void refusals();
    void temperatureFromInput_data();
    void temperatureFromInput();
    void channelsOfTheInput();
    void sensorLimitsFollowTheSensor();
    void twoPointCorrection();
    void twoPointCorrectionRefused();
    void adjustment_data();
    void adjustment();
    void readingAChannelChangesNothing();
    void accessCode();
    void factoryNumber();
    void manufacturerSettings();
    void writeProtection();
};

void TestTcvDevice::identity_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QByteArray>("longAddress");

    // 254, maker E0, type, 5 preambles, HART 7, ..., device id; the long
    // address keeps the low six bits of the maker code: E0 & 3F = 20.
    QTest::newRow("TCV-C") << "TCV-C" << hx("FE E0 91 05 07") << hx("20 91 00 91 01");
    QTest::newRow("DX-C") << "DX-C" << hx("FE E0 92 05 07") << hx("20 92 00 92 01");
}

void TestTcvDevice::identity()
{
    QFETCH(QString, model);
    QFETCH(QByteArray, head);
    QFETCH(QByteArray, longAddress);

    auto device = make(model);
    QVERIFY(device);
    const Reply reply = run(*device, 0);
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 22);
    QCOMPARE(reply.data.left(5), head);
    QCOMPARE(reply.data.mid(9, 3), longAddress.right(3));
    QCOMPARE(reply.data.mid(17, 2), hx("00E0")); // vendor
    QCOMPARE(device->longAddress(), longAddress);
    // Variables 0 to 3.
    QCOMPARE(int(quint8(reply.data.at(13))), 3);
}

void TestTcvDevice::reads_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("expected");

    const QVariantMap configured{
        {"decimal_point_position", 0}, {"input_signal_type", 1},          {"sensor_type", 6},
        {"connection_schema", 1},      {"resistanceTS_0", 50.0},          {"resistance_conn_wires", 1.5},
        {"free_ends_compensation", 0}, {"first_correction_point", -10.0}, {"second_correction_point", 250.0},
        {"average_count", 8}};

    QTest::newRow("130 as delivered") << QVariantMap() << 130
                                      << hx("01 00 00 00 42C80000 00000000 01 00000000 42C80000 04");
    QTest::newRow("130 configured") << configured << 130 << hx("00 01 06 01 42480000 3FC00000 00 C1200000 437A0000 08");
    QTest::newRow("132") << configured << 132 << hx("00");
    QTest::newRow("150") << configured << 150 << hx("01 06");
    QTest::newRow("153") << configured << 153 << hx("01");
    QTest::newRow("155") << configured << 155 << hx("42480000");
    QTest::newRow("157") << configured << 157 << hx("3FC00000");
    QTest::newRow("160") << configured << 160 << hx("00");
    QTest::newRow("160 as delivered") << QVariantMap() << 160 << hx("01");
}

void TestTcvDevice::reads()
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, command);
    QFETCH(QByteArray, expected);

    auto device = make(QStringLiteral("TCV-C"), settings);
    QVERIFY(device);
    const Reply reply = run(*device, command);
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.toHex(' '), expected.toHex(' '));
}

void TestTcvDevice::echoedWrites_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("readCommand");
    QTest::addColumn<QByteArray>("readBack");

    const QVariantMap thermocouple{{"input_signal_type", 1}};
    QTest::newRow("133 decimal point") << QVariantMap() << 133 << hx("00") << 132 << hx("00");
    QTest::newRow("134 average count") << QVariantMap() << 134 << hx("10") << 130
                                       << hx("01 00 00 00 42C80000 00000000 01 00000000 42C80000 10");
    QTest::newRow("151 thermocouple") << QVariantMap() << 151 << hx("01") << 150 << hx("01 00");
    QTest::newRow("151 free ends") << QVariantMap() << 151 << hx("02") << 150 << hx("02 00");
    QTest::newRow("152 Cu'") << QVariantMap() << 152 << hx("03") << 150 << hx("00 03");
    QTest::newRow("152 type T") << thermocouple << 152 << hx("0C") << 150 << hx("01 0C");
    QTest::newRow("154 3-wire") << QVariantMap() << 154 << hx("01") << 153 << hx("01");
    QTest::newRow("156 R0") << QVariantMap() << 156 << hx("42CA0000") << 155 << hx("42CA0000");
    QTest::newRow("158 wires") << QVariantMap() << 158 << hx("3F400000") << 157 << hx("3F400000");
    QTest::newRow("161 compensation off") << QVariantMap() << 161 << hx("00") << 160 << hx("00");
    // A new input whose list lacks the sensor chosen starts from its first.
    QTest::newRow("151 back to resistance")
        << QVariantMap{{"input_signal_type", 1}, {"sensor_type", 9}} << 151 << hx("00") << 150 << hx("00 00");
}

void TestTcvDevice::echoedWrites()
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, readCommand);
    QFETCH(QByteArray, readBack);

    auto device = make(QStringLiteral("TCV-C"), settings);
    QVERIFY(device);
    run(*device, 38); // clears the configuration-changed flag of the primary
    const int before = modifyCount(*device);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0);

    const Reply reply = run(*device, command, request);
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.toHex(' '), request.toHex(' '));
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0x40);
    QCOMPARE(modifyCount(*device), before + 1);
    QCOMPARE(run(*device, readCommand).data.toHex(' '), readBack.toHex(' '));
}

void TestTcvDevice::refusals_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("code");

    const QVariantMap thermocouple{{"input_signal_type", 1}};
    const QVariantMap freeEnds{{"input_signal_type", 2}};
    QTest::newRow("133 two decimals") << QVariantMap() << 133 << hx("02") << 9;
    QTest::newRow("133 empty") << QVariantMap() << 133 << QByteArray() << 5;
    QTest::newRow("134 zero samples") << QVariantMap() << 134 << hx("00") << 4;
    QTest::newRow("151 no such input") << QVariantMap() << 151 << hx("03") << 2;
    QTest::newRow("152 thermometer list has 5") << QVariantMap() << 152 << hx("05") << 2;
    QTest::newRow("152 thermocouple list has 13") << thermocouple << 152 << hx("0D") << 2;
    QTest::newRow("152 empty") << QVariantMap() << 152 << QByteArray() << 5;
    QTest::newRow("154 no such schema") << QVariantMap() << 154 << hx("02") << 2;
    QTest::newRow("161 not a switch") << QVariantMap() << 161 << hx("02") << 2;
    QTest::newRow("156 zero R0") << QVariantMap() << 156 << f32(0.0f) << 4;
    QTest::newRow("156 short") << QVariantMap() << 156 << hx("42C8") << 5;
    QTest::newRow("158 negative wires") << QVariantMap() << 158 << f32(-1.0f) << 4;
    QTest::newRow("143 short") << QVariantMap() << 143 << hx("000000") << 5;
    QTest::newRow("143 on a thermocouple") << thermocouple << 143 << f32(0.0f) << 8;
    QTest::newRow("144 on the free ends") << freeEnds << 144 << f32(100.0f) << 8;
    QTest::newRow("174 resistance of a thermocouple") << thermocouple << 174 << hx("00") << 8;
    QTest::newRow("174 voltage of a thermometer") << QVariantMap() << 174 << hx("01") << 8;
    QTest::newRow("174 free ends of a thermometer") << QVariantMap() << 174 << hx("02") << 8;
    QTest::newRow("174 empty") << QVariantMap() << 174 << QByteArray() << 5;
    QTest::newRow("135 not ours") << QVariantMap() << 135 << QByteArray() << 64;
}

void TestTcvDevice::refusals()
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, code);

    auto device = make(QStringLiteral("TCV-C"), settings);
    QVERIFY(device);
    run(*device, 38);
    const QVariantMap before = device->params();
    const Reply reply = run(*device, command, request);
    QCOMPARE(int(reply.code), code);
    QVERIFY(reply.data.isEmpty());
    QCOMPARE(device->params(), before);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0);
}

void TestTcvDevice::temperatureFromInput_data()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<double>("expected");

    // Resistance thermometers: the sensor gives R0 (1 + alpha T) plus the
    // leads on the 2/4-wire schema; the converter uses its own R0 and leads.
    QTest::newRow("Pt100 as set") << QVariantMap() << 25.0;
    // Rm = 1.2 + 101.5 * (1 + 0.00385 * 25) = 1.2 + 111.269375 = 112.469375;
    // T = (112.469375 - 100) / (100 * 0.00385) = 12.469375 / 0.385 = 32.38799.
    QTest::newRow("wrong R0, leads not known")
        << QVariantMap{{"sensor_r0_true", 101.5}, {"wire_resistance_true", 1.2}} << 32.38799;
    // The 3-wire schema cancels the leads: 11.269375 / 0.385 = 29.27110.
    QTest::newRow("wrong R0, 3-wire") << QVariantMap{{"sensor_r0_true", 101.5},
                                                     {"wire_resistance_true", 1.2},
                                                     {"connection_schema", 1}}
                                      << 29.27110;
    // Leads known: 112.469375 - 1.2 = 111.269375, same as above.
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
    // E = 0.041 * 478 = 19.598 mV; 19.598 / 0.041 = 478, + 22 compensated.
    QTest::newRow("K compensated") << QVariantMap{{"input_signal_type", 1},
                                                  {"sensor_type", 6},
                                                  {"process_temperature", 500.0},
                                                  {"free_ends_temperature", 22.0}}
                                   << 500.0;
    QTest::newRow("K uncompensated") << QVariantMap{{"input_signal_type", 1},
                                                    {"sensor_type", 6},
                                                    {"process_temperature", 500.0},
                                                    {"free_ends_temperature", 22.0},
                                                    {"free_ends_compensation", 0}}
                                     << 478.0;
    // J (0.0552 mV/degC) with a channel error of 0.0552 mV, one degree.
    QTest::newRow("J with a voltage error") << QVariantMap{{"input_signal_type", 1},
                                                           {"sensor_type", 5},
                                                           {"process_temperature", 300.0},
                                                           {"adc_voltage_error", 0.0552}}
                                            << 301.0;
    // The compensation reads the free ends through its own channel: an error
    // of -0.7 degC there shows in the result.
    QTest::newRow("K with a free-ends error") << QVariantMap{{"input_signal_type", 1},
                                                             {"sensor_type", 6},
                                                             {"process_temperature", 500.0},
                                                             {"adc_temperature_error", -0.7}}
                                              << 499.3;
    QTest::newRow("free-ends sensor") << QVariantMap{{"input_signal_type", 2},
                                                     {"free_ends_temperature", 22.0},
                                                     {"adc_temperature_error", 0.5}}
                                      << 22.5;
}

void TestTcvDevice::temperatureFromInput()
{
    QFETCH(QVariantMap, settings);
    QFETCH(double, expected);

    auto device = make(QStringLiteral("TCV-C"), settings);
    QVERIFY(device);
    const Reply reply = run(*device, 1);
    QCOMPARE(reply.data.size(), 5);
    QCOMPARE(int(quint8(reply.data.at(0))), 32);
    const float value = DataCodec::getFloat(reply.data, 1);
    QVERIFY2(near(value, expected, 2e-3), qPrintable(QString::number(value, 'f', 5)));
}

void TestTcvDevice::channelsOfTheInput()
{
    // Variables 1 to 3 are the channels; a channel the input doesn't use
    // reads as NaN.
    auto device = make(QStringLiteral("TCV-C"), {{"process_temperature", 50.0}});
    QVERIFY(device);
    Reply reply = run(*device, 33, hx("00 01 02 03"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 24);
    QCOMPARE(reply.data.mid(0, 2), hx("00 20"));  // degC
    QCOMPARE(reply.data.mid(6, 2), hx("01 25"));  // ohm
    QCOMPARE(reply.data.mid(12, 2), hx("02 24")); // mV
    QCOMPARE(reply.data.mid(18, 2), hx("03 20")); // degC
    // 100 * (1 + 0.00385 * 50) = 119.25 ohm.
    QVERIFY(near(DataCodec::getFloat(reply.data, 8), 119.25, 1e-3));
    QVERIFY(std::isnan(DataCodec::getFloat(reply.data, 14)));
    QVERIFY(std::isnan(DataCodec::getFloat(reply.data, 20)));

    QCOMPARE(run(*device, 151, hx("01")).code, quint8(0));
    QCOMPARE(run(*device, 152, hx("06")).code, quint8(0));
    reply = run(*device, 33, hx("01 02 03"));
    QVERIFY(std::isnan(DataCodec::getFloat(reply.data, 2)));
    // K: 0.041 * (50 - 22) = 1.148 mV; the free ends at 22 degC.
    QVERIFY(near(DataCodec::getFloat(reply.data, 8), 1.148, 1e-4));
    QVERIFY(near(DataCodec::getFloat(reply.data, 14), 22.0, 1e-4));

    // Command 44 to kelvin: the PV follows in the new unit.
    QCOMPARE(run(*device, 44, hx("23")).code, quint8(0));
    reply = run(*device, 1);
    QCOMPARE(int(quint8(reply.data.at(0))), 35);
    QVERIFY(near(DataCodec::getFloat(reply.data, 1), 323.15, 1e-3));
}

void TestTcvDevice::sensorLimitsFollowTheSensor()
{
    auto device = make();
    QVERIFY(device);
    // Pt: -200 to 850 degC.
    Reply reply = run(*device, 14);
    QCOMPARE(reply.data.mid(3, 9), hx("20 44548000 C3480000"));
    // A thermocouple, first of its list: 0 to 2500 degC.
    QCOMPARE(run(*device, 151, hx("01")).code, quint8(0));
    reply = run(*device, 14);
    QCOMPARE(reply.data.mid(3, 9), hx("20 451C4000 00000000"));
    // K: -200 to 1372 degC.
    QCOMPARE(run(*device, 152, hx("06")).code, quint8(0));
    reply = run(*device, 14);
    QCOMPARE(reply.data.mid(3, 9), hx("20 44AB8000 C3480000"));
}

void TestTcvDevice::twoPointCorrection()
{
    // The converter believes in a bare Pt100; the sensor is 101.5 ohm at
    // 0 degC behind 1.2 ohm of leads.
    auto device = make(QStringLiteral("TCV-C"), {{"sensor_r0_true", 101.5}, {"wire_resistance_true", 1.2}});
    QVERIFY(device);

    // At 20 degC the converter measures 1.2 + 101.5 * (1 + 0.00385 * 20) =
    // 1.2 + 109.3155 = 110.5155 ohm and shows 10.5155 / 0.385 = 27.31299.
    device->setParam(QStringLiteral("process_temperature"), 20.0);
    QVERIFY(near(pv(*device), 27.31299, 1e-3));
    Reply reply = run(*device, 143, f32(20.0f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, f32(20.0f));
    // Nothing computed yet.
    QCOMPARE(run(*device, 155).data, hx("42C80000"));

    // At 120 degC: 1.2 + 101.5 * 1.462 = 149.593 ohm. The slope between the
    // points is (149.593 - 110.5155) / 100 = 0.390775 ohm/degC = R0 * alpha,
    // so R0 = 0.390775 / 0.00385 = 101.5, and the leads are what is left at
    // 20 degC: 110.5155 - 109.3155 = 1.2.
    device->setParam(QStringLiteral("process_temperature"), 120.0);
    reply = run(*device, 144, f32(120.0f));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, f32(120.0f));

    reply = run(*device, 155);
    QCOMPARE(reply.data.size(), 4);
    QVERIFY2(near(DataCodec::getFloat(reply.data, 0), 101.5, 1e-3),
             qPrintable(QString::number(DataCodec::getFloat(reply.data, 0))));
    reply = run(*device, 157);
    QCOMPARE(reply.data.size(), 4);
    QVERIFY2(near(DataCodec::getFloat(reply.data, 0), 1.2, 1e-3),
             qPrintable(QString::number(DataCodec::getFloat(reply.data, 0))));

    // The two points stand in the configuration block.
    reply = run(*device, 130);
    QCOMPARE(reply.data.mid(13, 8), f32(20.0f) + f32(120.0f));

    // And the converter now reads true anywhere.
    QVERIFY(near(pv(*device), 120.0, 2e-3));
    device->setParam(QStringLiteral("process_temperature"), 37.0);
    QVERIFY(near(pv(*device), 37.0, 2e-3));
}

void TestTcvDevice::twoPointCorrectionRefused()
{
    auto device = make();
    QVERIFY(device);
    // No first point measured.
    QCOMPARE(run(*device, 144, f32(100.0f)).code, quint8(6));
    // Both points at one temperature fix nothing.
    QCOMPARE(run(*device, 143, f32(25.0f)).code, quint8(0));
    QCOMPARE(run(*device, 144, f32(25.5f)).code, quint8(6));
    QCOMPARE(run(*device, 155).data, hx("42C80000"));
    // A resistance that falls while the temperature rises: no sensor is so.
    device->setParam(QStringLiteral("process_temperature"), 10.0);
    QCOMPARE(run(*device, 144, f32(80.0f)).code, quint8(6));
    QCOMPARE(run(*device, 155).data, hx("42C80000"));
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

    auto device = make(QStringLiteral("TCV-C"), settings);
    QVERIFY(device);
    Reply reply = run(*device, 174, QByteArray(1, char(code)));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data.size(), 4);
    QVERIFY2(near(DataCodec::getFloat(reply.data, 0), before, 1e-4),
             qPrintable(QString::number(DataCodec::getFloat(reply.data, 0))));

    // Closed access refuses the adjustment and changes nothing.
    QCOMPARE(run(*device, adjustCommand, f32(float(truth))).code, quint8(16));
    QVERIFY(openAccess(*device));
    reply = run(*device, adjustCommand, f32(float(truth)));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, f32(float(truth)));

    reply = run(*device, 174, QByteArray(1, char(code)));
    QVERIFY(near(DataCodec::getFloat(reply.data, 0), truth, 1e-4));
    QVERIFY2(near(pv(*device), pvAfter, 2e-3), qPrintable(QString::number(pv(*device))));
}

void TestTcvDevice::readingAChannelChangesNothing()
{
    auto device = make();
    QVERIFY(device);
    run(*device, 38);
    const int before = modifyCount(*device);
    QCOMPARE(run(*device, 174, hx("00")).code, quint8(0));
    QCOMPARE(modifyCount(*device), before);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0);

    // A refused adjustment (a thermometer has no voltage channel) counts no
    // change either.
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 171, f32(1.0f)).code, quint8(8));
    QCOMPARE(modifyCount(*device), before);
    QCOMPARE(int(device->deviceStatus(Master::Primary) & 0x40), 0);
    QCOMPARE(device->param(QStringLiteral("voltage_trim")).toDouble(), 0.0);
}

void TestTcvDevice::accessCode()
{
    auto device = make();
    QVERIFY(device);
    // The current trims are adjustments too.
    QCOMPARE(run(*device, 45, f32(4.0f)).code, quint8(16));
    QCOMPARE(run(*device, 46, f32(20.0f)).code, quint8(16));
    const QByteArray ohms = f32(109.625f);

    QCOMPARE(run(*device, 172, ohms).code, quint8(16));
    QCOMPARE(run(*device, 190, hx("00003038")).code, quint8(16)); // 12344
    QCOMPARE(run(*device, 172, ohms).code, quint8(16));
    QCOMPARE(run(*device, 190, hx("3039")).code, quint8(5));
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 172, ohms).code, quint8(0));

    // The code 0 closes.
    Reply reply = run(*device, 190, hx("00000000"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("00"));
    QCOMPARE(run(*device, 172, ohms).code, quint8(16));

    // A reset closes.
    QVERIFY(openAccess(*device));
    QCOMPARE(run(*device, 42).code, quint8(0));
    QCOMPARE(run(*device, 172, ohms).code, quint8(16));

    // Ten minutes without a protected command close; each one restarts the time.
    QVERIFY(openAccess(*device, 0.0));
    QCOMPARE(run(*device, 172, ohms, 500.0).code, quint8(0));
    QCOMPARE(run(*device, 172, ohms, 1000.0).code, quint8(0));
    QCOMPARE(run(*device, 172, ohms, 1601.0).code, quint8(16));

    // Configuration writes are not protected.
    QCOMPARE(run(*device, 156, f32(100.0f), 1602.0).code, quint8(0));
    QCOMPARE(run(*device, 143, f32(25.0f), 1602.0).code, quint8(0));
}

void TestTcvDevice::factoryNumber()
{
    auto device = make(QStringLiteral("DX-C"));
    QVERIFY(device);
    QCOMPARE(run(*device, 194, hx("123456")).code, quint8(16));
    QCOMPARE(device->longAddress(), hx("20 92 00 92 01"));
    QVERIFY(openAccess(*device));
    const Reply reply = run(*device, 194, hx("123456"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("123456"));
    QCOMPARE(device->longAddress(), hx("20 92 12 34 56"));
    QCOMPARE(run(*device, 0).data.mid(9, 3), hx("123456"));
    QVERIFY(device->isAddressedBy(hx("A0 92 12 34 56"), 1));
    QVERIFY(!device->isAddressedBy(hx("A0 92 00 92 01"), 1));
}

void TestTcvDevice::manufacturerSettings()
{
    auto device = make();
    QVERIFY(device);
    QCOMPARE(run(*device, 192, hx("01")).code, quint8(16));
    QVERIFY(openAccess(*device));
    // Nothing saved yet.
    QCOMPARE(run(*device, 192, hx("00")).code, quint8(12));
    QCOMPARE(run(*device, 192, hx("02")).code, quint8(2));
    QCOMPARE(run(*device, 192, QByteArray()).code, quint8(5));

    Reply reply = run(*device, 192, hx("01"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("01"));

    QCOMPARE(run(*device, 156, f32(101.0f)).code, quint8(0));
    QCOMPARE(run(*device, 151, hx("01")).code, quint8(0));
    QCOMPARE(run(*device, 133, hx("00")).code, quint8(0));
    QCOMPARE(run(*device, 130).data.left(2), hx("00 01"));

    reply = run(*device, 192, hx("00"));
    QCOMPARE(reply.code, quint8(0));
    QCOMPARE(reply.data, hx("00"));
    QCOMPARE(run(*device, 155).data, hx("42C80000"));
    QCOMPARE(run(*device, 130).data.left(2), hx("01 00"));
    QVERIFY(near(pv(*device), 25.0, 1e-3));
}

void TestTcvDevice::writeProtection()
{
    auto device = make(QStringLiteral("TCV-C"), {{"write_protection", 1}});
    QVERIFY(device);
    QCOMPARE(run(*device, 156, f32(101.0f)).code, quint8(7));
    QCOMPARE(run(*device, 151, hx("01")).code, quint8(7));
    QCOMPARE(run(*device, 155).data, hx("42C80000"));
    QCOMPARE(run(*device, 150).data, hx("00 00"));
    // Reads and the channel reading still work.
    QCOMPARE(run(*device, 174, hx("00")).code, quint8(0));
    device->clearWriteProtectionFromMenu();
    QCOMPARE(run(*device, 156, f32(101.0f)).code, quint8(0));
}

QTEST_APPLESS_MAIN(TestTcvDevice)

#include "tst_tcvdevice.moc"
