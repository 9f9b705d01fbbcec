#include "qp1device.h"

#include "datacodec.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace hartsim {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr int maxLinePoints = 10;
constexpr int correctionSteps = 4;
constexpr int freeConversion = 251;
constexpr double referenceTemperature = 20.0;
constexpr double minGain = 0.5;
constexpr double maxGain = 2.0;

// kPa in one unit of a pressure unit code; 0 for any other code.
double kpaPerUnit(int unit)
{
    switch (unit) {
    case 1:
        return 0.24884; // inH2O at 4 degC
    case 2:
        return 3.38639; // inHg at 0 degC
    case 4:
        return 0.00980665; // mmH2O
    case 5:
        return 0.133322; // mmHg
    case 6:
        return 6.894757; // psi
    case 7:
        return 100.0; // bar
    case 8:
        return 0.1; // mbar
    case 10:
        return 98.0665; // kgf/cm2
    case 11:
        return 0.001; // Pa
    case 12:
        return 1.0; // kPa
    case 237:
        return 1000.0; // MPa
    default:
        return 0.0;
    }
}

QString linePoint(int n, const char* field)
{
    return QStringLiteral("line_point_%1_%2").arg(n).arg(QLatin1String(field));
}

QString correctionStep(int step, const char* field)
{
    return QStringLiteral("tcorr_%1_%2").arg(step).arg(QLatin1String(field));
}

QVariantMap qp1Defaults()
{
    QVariantMap d{
        {"manufacturer_code", 0xE0},
        {"device_type_code", 0x93},
        {"device_id", 0x009301},
        {"universal_cmd_version", 7},
        {"vendor_id", 0x00E0},
        {"access_code", 12345},
        {"sensor_number", 0x009301},
        {"QV_dev_variable_code", 250},
        {"range_unit_code", 12},
        {"range_max", 600.0},
        {"range_min", 0.0},
        {"sensor_unit_code", 12},
        {"sensor_range_max", 1000.0},
        {"sensor_range_min", -100.0},
        {"sensor_minimum_range", 10.0},
        // The configuration read by command 135.
        {"decimal_point_position", 1},
        {"average_count", 4},
        {"input_units", 12},
        {"free_range_min", 0.0},
        {"free_range_max", 1000.0},
        {"indicate_range_min", 0.0},
        {"indicate_range_max", 100.0},
        {"calibrate_unit_code", 12},
        {"line_points_count", 0},
        // The last point written or read, under the names the program uses.
        {"line_point_number", 0},
        {"line_point_value", 0.0},
        // Temperature correction.
        {"temper_correction_mode", 0},
        {"t1_correcton_value", 20.0},
        {"t2_correcton_value", 60.0},
        {"temper_correction_step", 0},
        {"temper_correction_value", 0.0},
        // Gain.
        {"gain_adjustment", 0.0},
        {"gain_factor", 1.0},
        // The simulated process and sensor.
        {"process_pressure", 250.0},
        {"process_pressure_amplitude", 5.0},
        {"process_pressure_period", 180.0},
        {"sensor_temperature", 20.0},
        {"sensor_zero_error", 0.0},
        {"sensor_span_error", 0.0},
        {"sensor_nonlinearity", 0.0},
        {"sensor_zero_tempco", 0.0},
        {"sensor_span_tempco", 0.0},
    };
    for (int n = 0; n < maxLinePoints; ++n) {
        d.insert(linePoint(n, "pressure"), 0.0);
        d.insert(linePoint(n, "value"), 0.0);
        d.insert(linePoint(n, "set"), false);
    }
    for (int step = 0; step < correctionSteps; ++step) {
        d.insert(correctionStep(step, "temperature"), 0.0);
        d.insert(correctionStep(step, "pressure"), 0.0);
        d.insert(correctionStep(step, "set"), false);
    }
    SimDevice::addVariables(d, {
                                   {0, 12, 65, 5, 1000.0, -100.0, 10.0},
                                   {1, 32, 64, 4, 85.0, -40.0, 1.0},
                                   {2, 12, 65, 5, 1000.0, -100.0, 10.0},
                               });
    return d;
}

} // namespace

Qp1Device::Qp1Device() : SimDevice(QStringLiteral("QP-1C"), qp1Defaults())
{}

double Qp1Device::sensorTemperature(double) const
{
    return f(QStringLiteral("sensor_temperature"));
}

double Qp1Device::sensorKpa(double now) const
{
    const double period = f(QStringLiteral("process_pressure_period"));
    const double wave =
        period > 0 ? f(QStringLiteral("process_pressure_amplitude")) * std::sin(2.0 * pi * now / period) : 0.0;
    const double p = f(QStringLiteral("process_pressure")) + wave;
    const double dt = sensorTemperature(now) - referenceTemperature;
    return p * (1.0 + f(QStringLiteral("sensor_span_error"))) + f(QStringLiteral("sensor_zero_error")) +
           f(QStringLiteral("sensor_nonlinearity")) * p * p + f(QStringLiteral("sensor_zero_tempco")) * dt +
           f(QStringLiteral("sensor_span_tempco")) * dt * p;
}

double Qp1Device::sensorReading(double now) const
{
    const double factor = kpaPerUnit(i(QStringLiteral("calibrate_unit_code")));
    return sensorKpa(now) / (factor > 0 ? factor : 1.0);
}

double Qp1Device::corrected(double now) const
{
    const double reading = sensorReading(now);
    const int mode = i(QStringLiteral("temper_correction_mode"));
    if (mode == 0)
        return reading;
    for (int step = 0; step < correctionSteps; ++step)
        if (!m_params.value(correctionStep(step, "set")).toBool())
            return reading;
    auto pressure = [&](int step) { return double(f(correctionStep(step, "pressure"))); };
    // Steps 0 and 1 hold P1 and P2 at T1, steps 2 and 3 at T2.
    const double ta = f(correctionStep(0, "temperature"));
    const double tb = f(correctionStep(2, "temperature"));
    if (ta == tb)
        return reading;
    const double x = (sensorTemperature(now) - ta) / (tb - ta);
    const double zero = pressure(0) + (pressure(2) - pressure(0)) * x;
    if (mode == 1)
        return reading - (zero - pressure(0));
    const double spanA = pressure(1) - pressure(0);
    const double span = spanA + ((pressure(3) - pressure(2)) - spanA) * x;
    if (span == 0.0)
        return reading;
    return pressure(0) + (reading - zero) * spanA / span;
}

double Qp1Device::linearized(double reading) const
{
    std::vector<std::pair<double, double>> points;
    const int count = qMin(i(QStringLiteral("line_points_count")), maxLinePoints);
    for (int n = 0; n < count; ++n)
        if (m_params.value(linePoint(n, "set")).toBool())
            points.emplace_back(f(linePoint(n, "pressure")), f(linePoint(n, "value")));
    std::sort(points.begin(), points.end());
    // Points measured at the same pressure can't both stand.
    points.erase(
        std::unique(points.begin(), points.end(), [](const auto& a, const auto& b) { return a.first == b.first; }),
        points.end());
    if (points.size() < 2)
        return reading;
    std::size_t k = 1;
    while (k + 1 < points.size() && reading > points[k].first)
        ++k;
    const auto& a = points[k - 1];
    const auto& b = points[k];
    return a.second + (reading - a.first) * (b.second - a.second) / (b.first - a.first);
}

double Qp1Device::beforeOffset(double now) const
{
    const double value = linearized(corrected(now));
    const int unit = i(QStringLiteral("input_units"));
    if (unit == freeConversion) {
        const double inLow = f(QStringLiteral("free_range_min"));
        const double inHigh = f(QStringLiteral("free_range_max"));
        const double outLow = f(QStringLiteral("indicate_range_min"));
        const double outHigh = f(QStringLiteral("indicate_range_max"));
        if (inHigh == inLow)
            return std::nan("");
        return outLow + (value - inLow) * (outHigh - outLow) / (inHigh - inLow);
    }
    const double from = kpaPerUnit(i(QStringLiteral("calibrate_unit_code")));
    const double to = kpaPerUnit(unit);
    return from > 0 && to > 0 ? value * from / to : value;
}

float Qp1Device::variableValue(int code, double now) const
{
    switch (code) {
    case 0:
        return float((beforeOffset(now) + f(QStringLiteral("var_0_offset"))) * f(QStringLiteral("gain_factor")));
    case 1:
        return float(sensorTemperature(now) + f(QStringLiteral("var_1_offset")));
    case 2: {
        const double factor = kpaPerUnit(variableUnit(2));
        return float(sensorKpa(now) / (factor > 0 ? factor : 1.0) + f(QStringLiteral("var_2_offset")));
    }
    default:
        return SimDevice::variableValue(code, now);
    }
}

void Qp1Device::convertStoredPressures(double factor)
{
    QStringList keys = {QStringLiteral("free_range_min"), QStringLiteral("free_range_max")};
    for (int n = 0; n < maxLinePoints; ++n)
        keys << linePoint(n, "pressure") << linePoint(n, "value");
    for (int step = 0; step < correctionSteps; ++step)
        keys << correctionStep(step, "pressure");
    for (const QString& key : keys)
        m_params.insert(key, f(key) * factor);
}

bool Qp1Device::isWriteCommand(quint8 cmd) const
{
    static const QSet<int> writes = {133, 134, 136, 137, 138, 140, 141, 142, 145, 146, 147};
    return writes.contains(cmd) || SimDevice::isWriteCommand(cmd);
}

bool Qp1Device::isProtectedCommand(quint8 cmd) const
{
    if (i(QStringLiteral("access_code")) == 0)
        return false;
    static const QSet<int> calibration = {136, 137, 138, 140, 141, 147};
    return calibration.contains(cmd) || SimDevice::isProtectedCommand(cmd);
}

QStringList Qp1Device::factoryKeys() const
{
    QStringList keys = QStringList{QStringLiteral("decimal_point_position"),
                                   QStringLiteral("average_count"),
                                   QStringLiteral("input_units"),
                                   QStringLiteral("free_range_min"),
                                   QStringLiteral("free_range_max"),
                                   QStringLiteral("indicate_range_min"),
                                   QStringLiteral("indicate_range_max"),
                                   QStringLiteral("calibrate_unit_code"),
                                   QStringLiteral("line_points_count"),
                                   QStringLiteral("temper_correction_mode"),
                                   QStringLiteral("t1_correcton_value"),
                                   QStringLiteral("t2_correcton_value"),
                                   QStringLiteral("gain_factor"),
                                   QStringLiteral("var_0_offset"),
                                   QStringLiteral("var_0_unit"),
                                   QStringLiteral("sensor_unit_code"),
                                   QStringLiteral("sensor_range_max"),
                                   QStringLiteral("sensor_range_min"),
                                   QStringLiteral("sensor_minimum_range")} +
                       outputFactoryKeys();
    for (int n = 0; n < maxLinePoints; ++n)
        keys << linePoint(n, "pressure") << linePoint(n, "value") << linePoint(n, "set");
    for (int step = 0; step < correctionSteps; ++step)
        keys << correctionStep(step, "temperature") << correctionStep(step, "pressure") << correctionStep(step, "set");
    return keys;
}

Reply Qp1Device::command(quint8 cmd, const QByteArray& data, Master master, double now)
{
    auto byteAt = [&](int offset) { return int(quint8(data.at(offset))); };
    auto floatAt = [&](int offset) { return DataCodec::getFloat(data, offset); };
    auto appendByte = [&](QByteArray& out, const char* key) { out.append(char(i(QLatin1String(key)))); };
    auto appendFloat = [&](QByteArray& out, const char* key) { out += DataCodec::floatBytes(f(QLatin1String(key))); };

    switch (cmd) {
    case 43:
        // Zero: the offset cancels the present reading, whatever the gain.
        m_params.insert(QStringLiteral("var_0_offset"), -beforeOffset(now));
        return Reply::ok();

    case 44: {
        if (data.size() < 1)
            return Reply::error(5);
        const int unit = byteAt(0);
        const int old = i(QStringLiteral("input_units"));
        if (unit != freeConversion && kpaPerUnit(unit) == 0.0)
            return Reply::error(2);
        if (unit != freeConversion && kpaPerUnit(old) > 0.0) {
            const double factor = kpaPerUnit(old) / kpaPerUnit(unit);
            for (const char* key : {"range_max", "range_min", "var_0_offset"})
                m_params.insert(QLatin1String(key), f(QLatin1String(key)) * factor);
        } else if (unit != old) {
            m_params.insert(QStringLiteral("var_0_offset"), 0.0);
        }
        m_params.insert(QStringLiteral("input_units"), unit);
        m_params.insert(QStringLiteral("var_0_unit"), unit);
        m_params.insert(QStringLiteral("range_unit_code"), unit);
        return Reply::ok(data.left(1));
    }

    case 132: {
        QByteArray out;
        appendByte(out, "decimal_point_position");
        return Reply::ok(out);
    }

    case 135: {
        QByteArray out;
        appendByte(out, "decimal_point_position");
        appendByte(out, "average_count");
        appendByte(out, "input_units");
        appendFloat(out, "free_range_min");
        appendFloat(out, "free_range_max");
        appendFloat(out, "indicate_range_min");
        appendFloat(out, "indicate_range_max");
        appendByte(out, "calibrate_unit_code");
        appendByte(out, "line_points_count");
        return Reply::ok(out);
    }

    case 139: {
        QByteArray out;
        appendByte(out, "temper_correction_mode");
        appendFloat(out, "t1_correcton_value");
        appendFloat(out, "t2_correcton_value");
        return Reply::ok(out);
    }

    case 149:
        return Reply::ok(DataCodec::floatBytes(corrected(now)));

    case 148: {
        if (data.size() < 1)
            return Reply::error(5);
        const int n = byteAt(0);
        if (n >= maxLinePoints)
            return Reply::error(2);
        QByteArray out;
        out.append(char(n));
        out += DataCodec::floatBytes(f(linePoint(n, "value")));
        const bool used = n < i(QStringLiteral("line_points_count")) && m_params.value(linePoint(n, "set")).toBool();
        return Reply{quint8(used ? 0 : 8), out, false};
    }

    case 133:
        return writeByte(data, QStringLiteral("decimal_point_position"), 0, 3, 9);

    case 134:
        return writeByte(data, QStringLiteral("average_count"), 1, 255, 4);

    case 136: {
        if (data.size() < 1)
            return Reply::error(5);
        const int unit = byteAt(0);
        if (kpaPerUnit(unit) == 0.0)
            return Reply::error(2);
        convertStoredPressures(kpaPerUnit(i(QStringLiteral("calibrate_unit_code"))) / kpaPerUnit(unit));
        m_params.insert(QStringLiteral("calibrate_unit_code"), unit);
        return Reply::ok(data.left(1));
    }

    case 137:
        return writeByte(data, QStringLiteral("line_points_count"), 0, maxLinePoints, 3);

    case 138: {
        if (data.size() < 5)
            return Reply::error(5);
        const int n = byteAt(0);
        const float value = floatAt(1);
        if (n >= maxLinePoints || !std::isfinite(value))
            return Reply::error(2);
        m_params.insert(linePoint(n, "pressure"), corrected(now));
        m_params.insert(linePoint(n, "value"), value);
        m_params.insert(linePoint(n, "set"), true);
        m_params.insert(QStringLiteral("line_point_number"), n);
        m_params.insert(QStringLiteral("line_point_value"), value);
        // A point beyond the count is kept for when the table grows.
        const bool used = n < i(QStringLiteral("line_points_count"));
        return Reply{quint8(used ? 0 : 8), data.left(5), false};
    }

    case 140:
        return writeByte(data, QStringLiteral("temper_correction_mode"), 0, 2, 2);

    case 141: {
        if (data.size() < 5)
            return Reply::error(5);
        const int step = byteAt(0);
        const float temperature = floatAt(1);
        if (step >= correctionSteps || !std::isfinite(temperature))
            return Reply::error(2);
        const bool differs = m_params.value(correctionStep(step, "set")).toBool() &&
                             std::fabs(f(correctionStep(step, "temperature")) - temperature) > 1e-3;
        m_params.insert(correctionStep(step, "temperature"), temperature);
        m_params.insert(correctionStep(step, "pressure"), sensorReading(now));
        m_params.insert(correctionStep(step, "set"), true);
        m_params.insert(step < 2 ? QStringLiteral("t1_correcton_value") : QStringLiteral("t2_correcton_value"),
                        temperature);
        m_params.insert(QStringLiteral("temper_correction_step"), step);
        m_params.insert(QStringLiteral("temper_correction_value"), temperature);
        return Reply{quint8(differs ? 8 : 0), data.left(5), false};
    }

    case 142: {
        if (data.size() < 4)
            return Reply::error(5);
        const float wanted = floatAt(0);
        if (!std::isfinite(wanted))
            return Reply::error(2);
        const double reading = beforeOffset(now) + f(QStringLiteral("var_0_offset"));
        const double gain = wanted / reading;
        if (!(gain <= maxGain) && !(gain < minGain))
            return Reply::error(9);
        if (!(gain >= minGain))
            return Reply::error(10);
        m_params.insert(QStringLiteral("gain_factor"), gain);
        m_params.insert(QStringLiteral("gain_adjustment"), wanted);
        return Reply::ok(data.left(4));
    }

    case 145:
    case 146: {
        if (data.size() < 8)
            return Reply::error(5);
        const float low = floatAt(0);
        const float high = floatAt(4);
        if (!std::isfinite(low) || !std::isfinite(high))
            return Reply::error(2);
        if (low == high)
            return Reply::error(29);
        const bool free = cmd == 145;
        m_params.insert(free ? QStringLiteral("free_range_min") : QStringLiteral("indicate_range_min"), low);
        m_params.insert(free ? QStringLiteral("free_range_max") : QStringLiteral("indicate_range_max"), high);
        return Reply::ok(data.left(8));
    }

    case 147: {
        if (data.size() < 13)
            return Reply::error(5);
        const int unit = byteAt(0);
        const float upper = floatAt(1);
        const float lower = floatAt(5);
        const float span = floatAt(9);
        if (kpaPerUnit(unit) == 0.0)
            return Reply::error(2);
        if (!std::isfinite(upper) || !std::isfinite(lower) || !std::isfinite(span))
            return Reply::error(2);
        if (!(upper > lower))
            return Reply::error(29);
        if (span < 0.0f)
            return Reply::error(4);
        m_params.insert(QStringLiteral("sensor_unit_code"), unit);
        m_params.insert(QStringLiteral("sensor_range_max"), upper);
        m_params.insert(QStringLiteral("sensor_range_min"), lower);
        m_params.insert(QStringLiteral("sensor_minimum_range"), span);
        return Reply::ok(data.left(13));
    }

    default:
        return SimDevice::command(cmd, data, master, now);
    }
}

} // namespace hartsim
