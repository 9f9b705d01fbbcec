#include "tcvdevice.h"

#include "datacodec.h"

#include <QSet>

#include <cmath>

namespace hartsim {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr int rtdTypes = 5;
constexpr int thermocoupleTypes = 13;

struct Sensor
{
    double coefficient;  // alpha in 1/degC for a thermometer, mV/degC for a thermocouple
    double lower, upper; // degC
};

// Pt, Pt', Cu, Cu', Ni; also the sensors for the free ends.
const Sensor rtd[rtdTypes] = {
    {0.00385, -200.0, 850.0}, {0.00391, -200.0, 850.0}, {0.00428, -180.0, 200.0},
    {0.00426, -50.0, 200.0},  {0.00617, -60.0, 180.0},
};

// B, E, J, K, L, M, N, R, S, T: mean sensitivities.
const Sensor thermocouple[thermocoupleTypes] = {
    {0.0140, 0.0, 2500.0},   {0.0138, 0.0, 1800.0},    {0.0136, 0.0, 1800.0},    {0.0077, 600.0, 1800.0},
    {0.0681, -200.0, 900.0}, {0.0552, -200.0, 1200.0}, {0.0410, -200.0, 1372.0}, {0.0700, -200.0, 800.0},
    {0.0426, -200.0, 100.0}, {0.0298, -200.0, 1300.0}, {0.0118, 0.0, 1768.0},    {0.0102, 0.0, 1768.0},
    {0.0467, -200.0, 400.0},
};

constexpr double freeEndsLower = -40.0;
constexpr double freeEndsUpper = 85.0;

QVariantMap tcvDefaults(const QString& model)
{
    const bool dx = model == QLatin1String("DX-C");
    QVariantMap d{
        {"manufacturer_code", 0xE0},
        {"device_type_code", dx ? 0x92 : 0x91},
        {"device_id", dx ? 0x009201 : 0x009101},
        {"universal_cmd_version", 7},
        {"vendor_id", 0x00E0},
        {"access_code", 12345},
        {"sensor_number", dx ? 0x009201 : 0x009101},
        {"range_unit_code", 32},
        {"range_max", 100.0},
        {"range_min", 0.0},
        {"sensor_unit_code", 32},
        {"sensor_range_max", 850.0},
        {"sensor_range_min", -200.0},
        {"sensor_minimum_range", 10.0},
        // The configuration read by command 130.
        {"decimal_point_position", 1},
        {"input_signal_type", 0},
        {"sensor_type", 0},
        {"connection_schema", 0},
        {"resistanceTS_0", 100.0},
        {"resistance_conn_wires", 0.0},
        {"free_ends_compensation", 1},
        {"first_correction_point", 0.0},
        {"second_correction_point", 100.0},
        {"average_count", 4},
        // The resistances measured at the two correction points; 0 is none.
        {"correction_resistance_1", 0.0},
        {"correction_resistance_2", 0.0},
        // Adjustment: the last values given and the trims of the channels.
        {"adjust_parameter_code", 0},
        {"adjust_resistance", 0.0},
        {"adjust_voltage", 0.0},
        {"adjust_temperature", 0.0},
        {"resistance_trim", 0.0},
        {"voltage_trim", 0.0},
        {"temperature_trim", 0.0},
        // The simulated process, sensor and channels.
        {"process_temperature", 25.0},
        {"process_temperature_amplitude", 2.0},
        {"process_temperature_period", 240.0},
        {"free_ends_temperature", 22.0},
        {"sensor_r0_true", 100.0},
        {"wire_resistance_true", 0.0},
        {"adc_resistance_error", 0.0},
        {"adc_voltage_error", 0.0},
        {"adc_temperature_error", 0.0},
    };
    SimDevice::addVariables(d, {
                                   {0, 32, 64, 4, 850.0, -200.0, 10.0},
                                   {1, 37, 85, 250, 500.0, 0.0, 1.0},
                                   {2, 36, 83, 250, 100.0, -10.0, 1.0},
                                   {3, 32, 64, 4, freeEndsUpper, freeEndsLower, 1.0},
                               });
    return d;
}

// degC into a temperature unit: 32 degC, 33 degF, 34 degR, 35 K.
double fromCelsius(double value, int unit)
{
    switch (unit) {
    case 33:
        return value * 1.8 + 32.0;
    case 34:
        return (value + 273.15) * 1.8;
    case 35:
        return value + 273.15;
    default:
        return value;
    }
}

} // namespace

TcvDevice::TcvDevice(const QString& model) : SimDevice(model, tcvDefaults(model))
{}

bool TcvDevice::channelInUse(int channel) const
{
    const int input = i(QStringLiteral("input_signal_type"));
    switch (channel) {
    case Resistance:
        return input == 0;
    case Voltage:
        return input == 1;
    default:
        return input == 1 || input == 2;
    }
}

double TcvDevice::measuredResistance(double now) const
{
    const double period = f(QStringLiteral("process_temperature_period"));
    const double wave =
        period > 0 ? f(QStringLiteral("process_temperature_amplitude")) * std::sin(2.0 * pi * now / period) : 0.0;
    const double t = f(QStringLiteral("process_temperature")) + wave;
    const int type = qBound(0, i(QStringLiteral("sensor_type")), rtdTypes - 1);
    double r = f(QStringLiteral("sensor_r0_true")) * (1.0 + rtd[type].coefficient * t);
    if (i(QStringLiteral("connection_schema")) == 0)
        r += f(QStringLiteral("wire_resistance_true"));
    return r + f(QStringLiteral("adc_resistance_error")) + f(QStringLiteral("resistance_trim"));
}

double TcvDevice::measuredVoltage(double now) const
{
    const double period = f(QStringLiteral("process_temperature_period"));
    const double wave =
        period > 0 ? f(QStringLiteral("process_temperature_amplitude")) * std::sin(2.0 * pi * now / period) : 0.0;
    const double t = f(QStringLiteral("process_temperature")) + wave;
    const int type = qBound(0, i(QStringLiteral("sensor_type")), thermocoupleTypes - 1);
    const double emf = thermocouple[type].coefficient * (t - f(QStringLiteral("free_ends_temperature")));
    return emf + f(QStringLiteral("adc_voltage_error")) + f(QStringLiteral("voltage_trim"));
}

double TcvDevice::measuredFreeEnds(double) const
{
    return f(QStringLiteral("free_ends_temperature")) + f(QStringLiteral("adc_temperature_error")) +
           f(QStringLiteral("temperature_trim"));
}

double TcvDevice::temperature(double now) const
{
    const int input = i(QStringLiteral("input_signal_type"));
    if (input == 0) {
        const int type = qBound(0, i(QStringLiteral("sensor_type")), rtdTypes - 1);
        const double r0 = f(QStringLiteral("resistanceTS_0"));
        const double wires =
            i(QStringLiteral("connection_schema")) == 0 ? f(QStringLiteral("resistance_conn_wires")) : 0.0;
        if (r0 <= 0.0)
            return std::nan("");
        return (measuredResistance(now) - wires - r0) / (r0 * rtd[type].coefficient);
    }
    if (input == 1) {
        const int type = qBound(0, i(QStringLiteral("sensor_type")), thermocoupleTypes - 1);
        double t = measuredVoltage(now) / thermocouple[type].coefficient;
        if (i(QStringLiteral("free_ends_compensation")) != 0)
            t += measuredFreeEnds(now);
        return t;
    }
    return measuredFreeEnds(now);
}

float TcvDevice::variableValue(int code, double now) const
{
    double value;
    switch (code) {
    case 0:
        value = temperature(now);
        break;
    case 1:
        value = channelInUse(Resistance) ? measuredResistance(now) : std::nan("");
        break;
    case 2:
        value = channelInUse(Voltage) ? measuredVoltage(now) : std::nan("");
        break;
    case 3:
        value = channelInUse(FreeEnds) ? measuredFreeEnds(now) : std::nan("");
        break;
    default:
        return SimDevice::variableValue(code, now);
    }
    if (code == 0 || code == 3)
        value = fromCelsius(value, variableUnit(code));
    if (code == 1 && variableUnit(code) == 163)
        value /= 1000.0;
    if (code == 2 && variableUnit(code) == 58)
        value /= 1000.0;
    return float(value + f(QStringLiteral("var_%1_offset").arg(code)));
}

void TcvDevice::updateSensorLimits()
{
    const int input = i(QStringLiteral("input_signal_type"));
    const int type = i(QStringLiteral("sensor_type"));
    Sensor sensor{0.0, freeEndsLower, freeEndsUpper};
    if (input == 0)
        sensor = rtd[qBound(0, type, rtdTypes - 1)];
    else if (input == 1)
        sensor = thermocouple[qBound(0, type, thermocoupleTypes - 1)];
    m_params.insert(QStringLiteral("sensor_unit_code"), 32);
    m_params.insert(QStringLiteral("sensor_range_min"), sensor.lower);
    m_params.insert(QStringLiteral("sensor_range_max"), sensor.upper);
}

bool TcvDevice::isWriteCommand(quint8 cmd) const
{
    static const QSet<int> writes = {133, 134, 143, 144, 151, 152, 154, 156, 158, 161, 171, 172, 173};
    return writes.contains(cmd) || SimDevice::isWriteCommand(cmd);
}

bool TcvDevice::isProtectedCommand(quint8 cmd) const
{
    if (i(QStringLiteral("access_code")) == 0)
        return false;
    return cmd == 171 || cmd == 172 || cmd == 173 || SimDevice::isProtectedCommand(cmd);
}

bool TcvDevice::isWarning(quint8 cmd, quint8 code) const
{
    // Code 8 on the converter's own commands means the selected input doesn't
    // have that channel: the command was refused.
    if (code == 8 && cmd > 129)
        return false;
    return SimDevice::isWarning(cmd, code);
}

QStringList TcvDevice::factoryKeys() const
{
    return QStringList{QStringLiteral("decimal_point_position"),
                       QStringLiteral("input_signal_type"),
                       QStringLiteral("sensor_type"),
                       QStringLiteral("connection_schema"),
                       QStringLiteral("resistanceTS_0"),
                       QStringLiteral("resistance_conn_wires"),
                       QStringLiteral("free_ends_compensation"),
                       QStringLiteral("first_correction_point"),
                       QStringLiteral("second_correction_point"),
                       QStringLiteral("correction_resistance_1"),
                       QStringLiteral("correction_resistance_2"),
                       QStringLiteral("average_count"),
                       QStringLiteral("resistance_trim"),
                       QStringLiteral("voltage_trim"),
                       QStringLiteral("temperature_trim"),
                       QStringLiteral("var_0_unit"),
                       QStringLiteral("var_0_offset")} +
           outputFactoryKeys();
}

Reply TcvDevice::command(quint8 cmd, const QByteArray& data, Master master, double now)
{
    auto byteAt = [&](int offset) { return int(quint8(data.at(offset))); };
    // The limits of command 14 follow the sensor chosen, however it was chosen.
    updateSensorLimits();

    switch (cmd) {
    case 130: {
        QByteArray out;
        out.append(char(i(QStringLiteral("decimal_point_position"))));
        out.append(char(i(QStringLiteral("input_signal_type"))));
        out.append(char(i(QStringLiteral("sensor_type"))));
        out.append(char(i(QStringLiteral("connection_schema"))));
        out += DataCodec::floatBytes(f(QStringLiteral("resistanceTS_0")));
        out += DataCodec::floatBytes(f(QStringLiteral("resistance_conn_wires")));
        out.append(char(i(QStringLiteral("free_ends_compensation"))));
        out += DataCodec::floatBytes(f(QStringLiteral("first_correction_point")));
        out += DataCodec::floatBytes(f(QStringLiteral("second_correction_point")));
        out.append(char(i(QStringLiteral("average_count"))));
        return Reply::ok(out);
    }

    case 132:
        return byteReply("decimal_point_position");

    case 150: {
        QByteArray out;
        out.append(char(i(QStringLiteral("input_signal_type"))));
        out.append(char(i(QStringLiteral("sensor_type"))));
        return Reply::ok(out);
    }

    case 153:
        return byteReply("connection_schema");

    case 155:
        return floatReply("resistanceTS_0");

    case 157:
        return floatReply("resistance_conn_wires");

    case 160:
        return byteReply("free_ends_compensation");

    case 133: // the indicator shows "0000." or "000.0"
        return writeByte(data, QStringLiteral("decimal_point_position"), 0, 1, 9);

    case 134:
        return writeByte(data, QStringLiteral("average_count"), 1, 255, 4);

    case 143: {
        if (data.size() < 4)
            return Reply::error(5);
        const float point = DataCodec::getFloat(data, 0);
        if (!std::isfinite(point))
            return Reply::error(2);
        if (!channelInUse(Resistance))
            return Reply::error(8);
        m_params.insert(QStringLiteral("first_correction_point"), point);
        m_params.insert(QStringLiteral("correction_resistance_1"), measuredResistance(now));
        return Reply::ok(data.left(4));
    }

    case 144: {
        if (data.size() < 4)
            return Reply::error(5);
        const float point = DataCodec::getFloat(data, 0);
        if (!std::isfinite(point))
            return Reply::error(2);
        if (!channelInUse(Resistance))
            return Reply::error(8);
        // The sensor is R = R0 (1 + alpha T) plus the leads; two measured
        // points fix both R0 and the leads.
        const double t1 = f(QStringLiteral("first_correction_point"));
        const double r1 = f(QStringLiteral("correction_resistance_1"));
        const double r2 = measuredResistance(now);
        const double alpha = rtd[qBound(0, i(QStringLiteral("sensor_type")), rtdTypes - 1)].coefficient;
        if (r1 <= 0.0 || std::fabs(point - t1) < 1.0)
            return Reply::error(6);
        const double r0 = (r2 - r1) / (alpha * (point - t1));
        if (!(r0 > 0.0))
            return Reply::error(6);
        const double wires = r1 - r0 * (1.0 + alpha * t1);
        m_params.insert(QStringLiteral("second_correction_point"), point);
        m_params.insert(QStringLiteral("correction_resistance_2"), r2);
        m_params.insert(QStringLiteral("resistanceTS_0"), r0);
        m_params.insert(QStringLiteral("resistance_conn_wires"), wires);
        return Reply::ok(data.left(4));
    }

    case 151: {
        if (data.size() < 1)
            return Reply::error(5);
        const int input = byteAt(0);
        if (input > 2)
            return Reply::error(2);
        m_params.insert(QStringLiteral("input_signal_type"), input);
        // A sensor of the old list that the new one lacks falls back to the first.
        if (i(QStringLiteral("sensor_type")) >= (input == 1 ? thermocoupleTypes : rtdTypes))
            m_params.insert(QStringLiteral("sensor_type"), 0);
        updateSensorLimits();
        return Reply::ok(data.left(1));
    }

    case 152: {
        if (data.size() < 1)
            return Reply::error(5);
        const int type = byteAt(0);
        if (type >= (i(QStringLiteral("input_signal_type")) == 1 ? thermocoupleTypes : rtdTypes))
            return Reply::error(2);
        m_params.insert(QStringLiteral("sensor_type"), type);
        updateSensorLimits();
        return Reply::ok(data.left(1));
    }

    case 154:
    case 161:
        return writeByte(
            data, cmd == 154 ? QStringLiteral("connection_schema") : QStringLiteral("free_ends_compensation"), 0, 1, 2);

    case 156:
    case 158: {
        if (data.size() < 4)
            return Reply::error(5);
        const float value = DataCodec::getFloat(data, 0);
        if (std::isnan(value))
            return Reply::error(2);
        if (cmd == 156 ? !(value > 0.0f) : value < 0.0f)
            return Reply::error(4);
        if (value > 10000.0f)
            return Reply::error(3);
        m_params.insert(cmd == 156 ? QStringLiteral("resistanceTS_0") : QStringLiteral("resistance_conn_wires"), value);
        return Reply::ok(data.left(4));
    }

    case 171:
    case 172:
    case 173: {
        if (data.size() < 4)
            return Reply::error(5);
        const float value = DataCodec::getFloat(data, 0);
        if (!std::isfinite(value))
            return Reply::error(2);
        const int channel = cmd == 172 ? Resistance : cmd == 171 ? Voltage : FreeEnds;
        if (!channelInUse(channel))
            return Reply::error(8);
        // The trim moves the channel so that it reads the true value now.
        const QString trim = channel == Resistance ? QStringLiteral("resistance_trim")
                             : channel == Voltage  ? QStringLiteral("voltage_trim")
                                                   : QStringLiteral("temperature_trim");
        const double reading = channel == Resistance ? measuredResistance(now)
                               : channel == Voltage  ? measuredVoltage(now)
                                                     : measuredFreeEnds(now);
        m_params.insert(trim, f(trim) + (value - reading));
        m_params.insert(channel == Resistance ? QStringLiteral("adjust_resistance")
                        : channel == Voltage  ? QStringLiteral("adjust_voltage")
                                              : QStringLiteral("adjust_temperature"),
                        value);
        return Reply::ok(data.left(4));
    }

    case 174: {
        if (data.size() < 1)
            return Reply::error(5);
        const int code = byteAt(0);
        const int channel = code == 0 ? Resistance : code == 1 ? Voltage : FreeEnds;
        if (!channelInUse(channel))
            return Reply::error(8);
        m_params.insert(QStringLiteral("adjust_parameter_code"), code);
        const double reading = channel == Resistance ? measuredResistance(now)
                               : channel == Voltage  ? measuredVoltage(now)
                                                     : measuredFreeEnds(now);
        return Reply::ok(DataCodec::floatBytes(reading));
    }

    default:
        return SimDevice::command(cmd, data, master, now);
    }
}

} // namespace hartsim
