#include "ph77device.h"

#include "datacodec.h"

#include <QSet>

#include <cmath>

namespace hartsim {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double kelvin = 273.15;
constexpr double reference = 298.15; // 25 degC, where the steepness is given
constexpr double bufferWindow = 0.3;
const double buffers[] = {1.65, 4.01, 6.86, 9.18, 12.43};

double alphaOf(int tsType)
{
    return tsType == 1 ? 0.00391 : 0.00385;
}

QVariantMap ph77Defaults()
{
    QVariantMap d{
        {"manufacturer_code", 0xE0},
        {"device_type_code", 0x94},
        {"device_id", 0x009401},
        {"universal_cmd_version", 7},
        {"vendor_id", 0x00E0},
        {"access_code", 12345},
        {"sensor_number", 0x009401},
        {"PV_dev_variable_code", 0},
        {"SV_dev_variable_code", 1},
        {"TV_dev_variable_code", 3},
        {"QV_dev_variable_code", 4},
        {"range_unit_code", 59},
        {"range_max", 14.0},
        {"range_min", 0.0},
        {"sensor_unit_code", 59},
        {"sensor_range_max", 14.0},
        {"sensor_range_min", 0.0},
        {"sensor_minimum_range", 1.0},
        // The first configuration block (command 130).
        {"input_units", 0},
        {"ei_isopotential_point", 0.0},
        {"steepness", 59.16},
        {"phi_isopotential_point", 7.0},
        {"average_time_small_sig_ph", 4},
        {"average_time_big_sig_ph", 1},
        {"big_sig_threshold_ph", 0.5},
        {"electrode_diag", 0},
        // The second configuration block (command 134).
        {"t_measurement_mode", 0},
        {"ts_type", 0},
        {"ts_0", 100.0},
        {"t_for_correction", 0.0},
        {"t_manual", 25.0},
        {"average_time_small_sig_t", 8},
        {"average_time_big_sig_t", 2},
        {"big_sig_threshold_t", 1.0},
        // Indication range and the ranges of Ei and S.
        {"indicate_range_min", 0.0},
        {"indicate_range_max", 14.0},
        {"ei_min", -60.0},
        {"ei_max", 60.0},
        {"s_min", 50.0},
        {"s_max", 62.0},
        // Graduation: the last request and the points recorded.
        {"grd_type", 0},
        {"grd_point_number", 1},
        {"grd_point_value", 0.0},
        {"current_grd_type", 0},
        {"current_ph_1", 0.0},
        {"current_eds_1", 0.0},
        {"current_t_1", 0.0},
        {"current_ph_2", 0.0},
        {"current_eds_2", 0.0},
        {"current_t_2", 0.0},
        {"grd_point_1_set", false},
        {"grd_point_2_set", false},
        // Adjustment of the channels: the true values given (command 171),
        // the raw readings they were given at, and the Rt trim.
        {"adjust_U_p1", 0.0},
        {"adjust_U_p2", 0.0},
        {"adjust_Rt_p", 0.0},
        {"adjust_Rc_p1", 0.0},
        {"adjust_Rc_p2", 0.0},
        {"adjust_U_raw_1", 0.0},
        {"adjust_U_raw_2", 0.0},
        {"adjust_U_set_1", false},
        {"adjust_U_set_2", false},
        {"adjust_Rc_raw_1", 0.0},
        {"adjust_Rc_raw_2", 0.0},
        {"adjust_Rc_set_1", false},
        {"adjust_Rc_set_2", false},
        {"rt_trim", 0.0},
        {"adjust_U_point", 1},
        {"adjust_U", 0.0},
        {"adjust_Rt", 0.0},
        {"adjust_Rc_point", 1},
        {"adjust_Rc", 0.0},
        // The simulated solution, electrode, sensor and channels.
        {"solution_ph", 6.86},
        // The buffer the electrode is put into once the first of two
        // graduation points is written, as a technician would; 0 leaves it.
        {"second_buffer_ph", 0.0},
        {"solution_ph_amplitude", 0.02},
        {"solution_ph_period", 300.0},
        {"solution_temperature", 25.0},
        {"solution_temperature_amplitude", 0.0},
        {"solution_temperature_period", 0.0},
        {"electrode_ei", 8.0},
        {"electrode_s25", 57.0},
        {"electrode_phi", 7.0},
        {"reference_potential", 207.0},
        {"ts_r0_true", 100.0},
        {"ts_fault", 0},
        {"adc_u_error", 0.0},
        {"adc_u_gain_error", 0.0},
        {"adc_rt_error", 0.0},
        {"electrode_rc_true", 5.0},
        {"adc_rc_error", 0.0},
    };
    SimDevice::addVariables(d, {
                                   {0, 59, 81, 8, 14.0, 0.0, 1.0},
                                   {1, 32, 64, 4, 150.0, -20.0, 1.0},
                                   {2, 36, 83, 8, 2000.0, -2000.0, 10.0},
                                   {3, 36, 83, 8, 2000.0, -2000.0, 10.0},
                                   {4, 36, 83, 8, 2000.0, -2000.0, 10.0},
                                   {5, 37, 85, 4, 200.0, 70.0, 1.0},
                                   {6, 59, 81, 8, 14.0, 0.0, 1.0},
                                   {7, 163, 85, 8, 1000.0, 0.0, 1.0},
                               });
    return d;
}

} // namespace

Ph77Device::Ph77Device() : SimDevice(QStringLiteral("pH-7702"), ph77Defaults())
{}

double Ph77Device::wave(const char* key, double now) const
{
    const QString base = QLatin1String(key);
    const double period = f(base + QStringLiteral("_period"));
    const double swing = period > 0 ? f(base + QStringLiteral("_amplitude")) * std::sin(2.0 * pi * now / period) : 0.0;
    return f(base) + swing;
}

double Ph77Device::inputVoltage(double now) const
{
    const double t = wave("solution_temperature", now);
    const double slope = f(QStringLiteral("electrode_s25")) * (t + kelvin) / reference;
    const double e =
        f(QStringLiteral("electrode_ei")) - slope * (wave("solution_ph", now) - f(QStringLiteral("electrode_phi")));
    return e * (1.0 + f(QStringLiteral("adc_u_gain_error"))) + f(QStringLiteral("adc_u_error"));
}

double Ph77Device::adjusted(const char* channel, double raw) const
{
    // One point shifts the reading; two points set its gain as well.
    const QString c = QLatin1String(channel);
    const bool one = m_params.value(QStringLiteral("adjust_%1_set_1").arg(c)).toBool();
    const bool two = m_params.value(QStringLiteral("adjust_%1_set_2").arg(c)).toBool();
    const double r1 = f(QStringLiteral("adjust_%1_raw_1").arg(c));
    const double r2 = f(QStringLiteral("adjust_%1_raw_2").arg(c));
    const double v1 = f(QStringLiteral("adjust_%1_p1").arg(c));
    const double v2 = f(QStringLiteral("adjust_%1_p2").arg(c));
    if (one && two && r1 != r2)
        return v1 + (raw - r1) * (v2 - v1) / (r2 - r1);
    if (one)
        return raw + (v1 - r1);
    if (two)
        return raw + (v2 - r2);
    return raw;
}

double Ph77Device::emf(double now) const
{
    return adjusted("U", inputVoltage(now));
}

double Ph77Device::rt(double now) const
{
    const int fault = i(QStringLiteral("ts_fault"));
    if (fault == 2)
        return std::nan("");
    const double raw = fault == 1 ? 0.0
                                  : f(QStringLiteral("ts_r0_true")) * (1.0 + alphaOf(i(QStringLiteral("ts_type"))) *
                                                                                 wave("solution_temperature", now));
    return raw + f(QStringLiteral("adc_rt_error")) + f(QStringLiteral("rt_trim"));
}

double Ph77Device::rawRc() const
{
    return f(QStringLiteral("electrode_rc_true")) + f(QStringLiteral("adc_rc_error"));
}

double Ph77Device::rc(double) const
{
    return adjusted("Rc", rawRc());
}

double Ph77Device::measuredTemperature(double now) const
{
    if (i(QStringLiteral("t_measurement_mode")) != 0)
        return f(QStringLiteral("t_manual"));
    const double r0 = f(QStringLiteral("ts_0"));
    if (i(QStringLiteral("ts_fault")) != 0 || r0 <= 0.0)
        return std::nan("");
    return (rt(now) / r0 - 1.0) / alphaOf(i(QStringLiteral("ts_type"))) + f(QStringLiteral("t_for_correction"));
}

double Ph77Device::compensationTemperature(double now) const
{
    const double t = measuredTemperature(now);
    return std::isnan(t) ? f(QStringLiteral("t_manual")) : t;
}

double Ph77Device::ph(double now) const
{
    const double slope = f(QStringLiteral("steepness")) * (compensationTemperature(now) + kelvin) / reference;
    return f(QStringLiteral("phi_isopotential_point")) +
           (f(QStringLiteral("ei_isopotential_point")) - emf(now)) / slope;
}

float Ph77Device::variableValue(int code, double now) const
{
    double value;
    switch (code) {
    case 0:
        value = ph(now);
        break;
    case 1:
        value = measuredTemperature(now);
        break;
    case 2:
        value = inputVoltage(now);
        break;
    case 3:
        value = emf(now) + f(QStringLiteral("reference_potential"));
        break;
    case 4:
        value = emf(now);
        break;
    case 5:
        value = rt(now);
        break;
    case 7:
        value = rc(now);
        break;
    case 6: {
        const double present = ph(now);
        value = std::nan("");
        for (double buffer : buffers)
            if (std::fabs(present - buffer) <= bufferWindow)
                value = buffer;
        break;
    }
    default:
        return SimDevice::variableValue(code, now);
    }
    return float(value + f(QStringLiteral("var_%1_offset").arg(code)));
}

int Ph77Device::errorBits() const
{
    int bits = 0;
    const int fault = i(QStringLiteral("ts_fault"));
    if (fault == 1)
        bits |= 0x01;
    if (fault == 2)
        bits |= 0x02;
    const float ei = f(QStringLiteral("ei_isopotential_point"));
    if (ei < f(QStringLiteral("ei_min")) || ei > f(QStringLiteral("ei_max")))
        bits |= 0x04;
    const float s = f(QStringLiteral("steepness"));
    if (s < f(QStringLiteral("s_min")) || s > f(QStringLiteral("s_max")))
        bits |= 0x08;
    return bits;
}

QByteArray Ph77Device::deviceSpecificStatus() const
{
    QByteArray status = SimDevice::deviceSpecificStatus();
    status[0] = char(quint8(status.at(0)) | errorBits());
    return status;
}

void Ph77Device::applyInputUnits(int mode)
{
    const bool wasPh = i(QStringLiteral("range_unit_code")) == 59;
    const bool isPh = mode < 2;
    m_params.insert(QStringLiteral("input_units"), mode);
    m_params.insert(QStringLiteral("PV_dev_variable_code"), mode < 2 ? 0 : mode == 2 ? 3 : 4);
    if (wasPh == isPh)
        return;
    // From pH to millivolts or back: the range and the sensor limits of the
    // other quantity.
    m_params.insert(QStringLiteral("range_unit_code"), isPh ? 59 : 36);
    m_params.insert(QStringLiteral("range_min"), isPh ? 0.0 : -1000.0);
    m_params.insert(QStringLiteral("range_max"), isPh ? 14.0 : 1000.0);
    m_params.insert(QStringLiteral("sensor_unit_code"), isPh ? 59 : 36);
    m_params.insert(QStringLiteral("sensor_range_min"), isPh ? 0.0 : -2000.0);
    m_params.insert(QStringLiteral("sensor_range_max"), isPh ? 14.0 : 2000.0);
    m_params.insert(QStringLiteral("sensor_minimum_range"), isPh ? 1.0 : 10.0);
}

bool Ph77Device::isWriteCommand(quint8 cmd) const
{
    static const QSet<int> writes = {131, 132, 133, 135, 136, 137, 141, 142, 151, 172, 173, 174, 176};
    return writes.contains(cmd) || SimDevice::isWriteCommand(cmd);
}

bool Ph77Device::isProtectedCommand(quint8 cmd) const
{
    if (i(QStringLiteral("access_code")) == 0)
        return false;
    static const QSet<int> metrology = {142, 172, 173, 174, 176};
    return metrology.contains(cmd) || SimDevice::isProtectedCommand(cmd);
}

QStringList Ph77Device::factoryKeys() const
{
    return QStringList{QStringLiteral("input_units"),
                       QStringLiteral("ei_isopotential_point"),
                       QStringLiteral("steepness"),
                       QStringLiteral("phi_isopotential_point"),
                       QStringLiteral("average_time_small_sig_ph"),
                       QStringLiteral("average_time_big_sig_ph"),
                       QStringLiteral("big_sig_threshold_ph"),
                       QStringLiteral("electrode_diag"),
                       QStringLiteral("t_measurement_mode"),
                       QStringLiteral("ts_type"),
                       QStringLiteral("ts_0"),
                       QStringLiteral("t_for_correction"),
                       QStringLiteral("t_manual"),
                       QStringLiteral("average_time_small_sig_t"),
                       QStringLiteral("average_time_big_sig_t"),
                       QStringLiteral("big_sig_threshold_t"),
                       QStringLiteral("indicate_range_min"),
                       QStringLiteral("indicate_range_max"),
                       QStringLiteral("ei_min"),
                       QStringLiteral("ei_max"),
                       QStringLiteral("s_min"),
                       QStringLiteral("s_max"),
                       QStringLiteral("current_grd_type"),
                       QStringLiteral("current_ph_1"),
                       QStringLiteral("current_eds_1"),
                       QStringLiteral("current_t_1"),
                       QStringLiteral("current_ph_2"),
                       QStringLiteral("current_eds_2"),
                       QStringLiteral("current_t_2"),
                       QStringLiteral("grd_point_1_set"),
                       QStringLiteral("grd_point_2_set"),
                       QStringLiteral("adjust_U_p1"),
                       QStringLiteral("adjust_U_p2"),
                       QStringLiteral("adjust_Rt_p"),
                       QStringLiteral("adjust_Rc_p1"),
                       QStringLiteral("adjust_Rc_p2"),
                       QStringLiteral("adjust_U_raw_1"),
                       QStringLiteral("adjust_U_raw_2"),
                       QStringLiteral("adjust_U_set_1"),
                       QStringLiteral("adjust_U_set_2"),
                       QStringLiteral("adjust_Rc_raw_1"),
                       QStringLiteral("adjust_Rc_raw_2"),
                       QStringLiteral("adjust_Rc_set_1"),
                       QStringLiteral("adjust_Rc_set_2"),
                       QStringLiteral("rt_trim"),
                       QStringLiteral("PV_dev_variable_code"),
                       QStringLiteral("sensor_unit_code"),
                       QStringLiteral("sensor_range_max"),
                       QStringLiteral("sensor_range_min"),
                       QStringLiteral("sensor_minimum_range")} +
           outputFactoryKeys();
}

Reply Ph77Device::command(quint8 cmd, const QByteArray& data, Master master, double now)
{
    auto byteAt = [&](int offset) { return int(quint8(data.at(offset))); };
    auto floatAt = [&](int offset) { return DataCodec::getFloat(data, offset); };
    auto finite = [&](int offset, int count) {
        for (int k = 0; k < count; ++k)
            if (!std::isfinite(floatAt(offset + 4 * k)))
                return false;
        return true;
    };
    auto appendByte = [&](QByteArray& out, const char* key) { out.append(char(i(QLatin1String(key)))); };
    auto appendFloat = [&](QByteArray& out, const char* key) { out += DataCodec::floatBytes(f(QLatin1String(key))); };
    auto setByte = [&](const char* key, int offset) { m_params.insert(QLatin1String(key), byteAt(offset)); };
    auto setFloat = [&](const char* key, int offset) { m_params.insert(QLatin1String(key), floatAt(offset)); };

    switch (cmd) {
    case 130: {
        QByteArray out;
        appendByte(out, "input_units");
        appendFloat(out, "ei_isopotential_point");
        appendFloat(out, "steepness");
        appendFloat(out, "phi_isopotential_point");
        appendByte(out, "average_time_small_sig_ph");
        appendByte(out, "average_time_big_sig_ph");
        appendFloat(out, "big_sig_threshold_ph");
        appendByte(out, "electrode_diag");
        return Reply::ok(out);
    }

    case 134: {
        QByteArray out;
        appendByte(out, "t_measurement_mode");
        appendByte(out, "ts_type");
        appendFloat(out, "ts_0");
        appendFloat(out, "t_for_correction");
        appendFloat(out, "t_manual");
        appendByte(out, "average_time_small_sig_t");
        appendByte(out, "average_time_big_sig_t");
        appendFloat(out, "big_sig_threshold_t");
        return Reply::ok(out);
    }

    case 140: {
        QByteArray out;
        appendFloat(out, "indicate_range_min");
        appendFloat(out, "indicate_range_max");
        return Reply::ok(out);
    }

    case 150: {
        QByteArray out;
        appendByte(out, "current_grd_type");
        for (const char* key :
             {"current_ph_1", "current_eds_1", "current_t_1", "current_ph_2", "current_eds_2", "current_t_2"})
            appendFloat(out, key);
        return Reply::ok(out);
    }

    case 152: {
        QByteArray out;
        for (const char* key : {"ei_min", "ei_max", "s_min", "s_max"})
            appendFloat(out, key);
        return Reply::ok(out);
    }

    case 171: {
        QByteArray out;
        for (const char* key : {"adjust_U_p1", "adjust_U_p2", "adjust_Rt_p", "adjust_Rc_p1", "adjust_Rc_p2"})
            appendFloat(out, key);
        return Reply::ok(out);
    }

    case 131: {
        if (data.size() < 9)
            return Reply::error(5);
        if (byteAt(0) > 3 || !finite(1, 2))
            return Reply::error(2);
        if (!(floatAt(5) > 0.0f))
            return Reply::error(4);
        applyInputUnits(byteAt(0));
        setFloat("ei_isopotential_point", 1);
        setFloat("steepness", 5);
        return Reply::ok(data.left(9));
    }

    case 132:
    case 137: {
        if (data.size() < 6)
            return Reply::error(5);
        if (!finite(2, 1))
            return Reply::error(2);
        if (floatAt(2) < 0.0f)
            return Reply::error(4);
        const bool phFilter = cmd == 132;
        setByte(phFilter ? "average_time_small_sig_ph" : "average_time_small_sig_t", 0);
        setByte(phFilter ? "average_time_big_sig_ph" : "average_time_big_sig_t", 1);
        setFloat(phFilter ? "big_sig_threshold_ph" : "big_sig_threshold_t", 2);
        return Reply::ok(data.left(6));
    }

    case 133:
        return writeByte(data, QStringLiteral("electrode_diag"), 0, 1, 2);

    case 135:
        if (data.size() < 5)
            return Reply::error(5);
        if (byteAt(0) > 1 || !finite(1, 1))
            return Reply::error(2);
        if (floatAt(1) > 150.0f)
            return Reply::error(3);
        if (floatAt(1) < -20.0f)
            return Reply::error(4);
        setByte("t_measurement_mode", 0);
        setFloat("t_manual", 1);
        return Reply::ok(data.left(5));

    case 136:
        if (data.size() < 9)
            return Reply::error(5);
        if (byteAt(0) > 1 || !finite(1, 2))
            return Reply::error(2);
        if (!(floatAt(1) > 0.0f))
            return Reply::error(4);
        setByte("ts_type", 0);
        setFloat("ts_0", 1);
        setFloat("t_for_correction", 5);
        return Reply::ok(data.left(9));

    case 141:
        if (data.size() < 8)
            return Reply::error(5);
        if (!finite(0, 2))
            return Reply::error(2);
        if (floatAt(0) == floatAt(4))
            return Reply::error(29);
        setFloat("indicate_range_min", 0);
        setFloat("indicate_range_max", 4);
        return Reply::ok(data.left(8));

    case 142: {
        if (data.size() < 13)
            return Reply::error(5);
        const int pvUnit = i(QStringLiteral("input_units")) < 2 ? 59 : 36;
        if (byteAt(0) != pvUnit || !finite(1, 3))
            return Reply::error(2);
        if (!(floatAt(1) > floatAt(5)))
            return Reply::error(29);
        if (floatAt(9) < 0.0f)
            return Reply::error(4);
        setByte("sensor_unit_code", 0);
        setFloat("sensor_range_max", 1);
        setFloat("sensor_range_min", 5);
        setFloat("sensor_minimum_range", 9);
        return Reply::ok(data.left(13));
    }

    case 151: {
        if (data.size() < 6)
            return Reply::error(5);
        const int type = byteAt(0);
        const int point = byteAt(1);
        const float value = floatAt(2);
        if (type > 1 || point < 1 || point > 2 || (type == 0 && point == 2) || !std::isfinite(value))
            return Reply::error(2);
        if (value > 16.0f)
            return Reply::error(3);
        if (value < -2.0f)
            return Reply::error(4);
        const double e = emf(now);
        const double t = compensationTemperature(now);
        const double phi = f(QStringLiteral("phi_isopotential_point"));
        auto factor = [](double celsius) { return (celsius + kelvin) / reference; };
        double ei = f(QStringLiteral("ei_isopotential_point"));
        double s = f(QStringLiteral("steepness"));
        if (type == 0) {
            // One point: the line keeps its steepness and passes through it.
            ei = e + s * factor(t) * (value - phi);
        } else if (point == 2) {
            // Two points, each at its own temperature:
            // E_k = Ei - S25 f(T_k) (pH_k - pHi), solved for S25 and Ei.
            if (!m_params.value(QStringLiteral("grd_point_1_set")).toBool())
                return Reply::error(6);
            const double e1 = f(QStringLiteral("current_eds_1"));
            const double f1 = factor(f(QStringLiteral("current_t_1")));
            const double p1 = f(QStringLiteral("current_ph_1"));
            const double divisor = f1 * (p1 - phi) - factor(t) * (value - phi);
            if (std::fabs(divisor) < 1e-6)
                return Reply::error(6);
            s = (e - e1) / divisor;
            if (!(s > 0.0))
                return Reply::error(6);
            ei = e1 + s * f1 * (p1 - phi);
        }
        const QString n = QString::number(point);
        m_params.insert(QStringLiteral("current_grd_type"), type);
        m_params.insert(QStringLiteral("current_ph_") + n, value);
        m_params.insert(QStringLiteral("current_eds_") + n, e);
        m_params.insert(QStringLiteral("current_t_") + n, t);
        m_params.insert(QStringLiteral("grd_point_") + n + QStringLiteral("_set"), true);
        if (point == 1) {
            // A new graduation: the second point of an earlier one is gone.
            for (const char* key : {"current_ph_2", "current_eds_2", "current_t_2"})
                m_params.insert(QLatin1String(key), 0.0);
            m_params.insert(QStringLiteral("grd_point_2_set"), false);
        }
        if (type == 1 && point == 1 && f(QStringLiteral("second_buffer_ph")) > 0.0)
            m_params.insert(QStringLiteral("solution_ph"), f(QStringLiteral("second_buffer_ph")));
        m_params.insert(QStringLiteral("grd_type"), type);
        m_params.insert(QStringLiteral("grd_point_number"), point);
        m_params.insert(QStringLiteral("grd_point_value"), value);
        m_params.insert(QStringLiteral("ei_isopotential_point"), ei);
        m_params.insert(QStringLiteral("steepness"), s);
        QByteArray out;
        out.append(char(point));
        out += DataCodec::floatBytes(ei);
        out += DataCodec::floatBytes(s);
        return Reply::ok(out);
    }

    case 172:
    case 174: {
        if (data.size() < 5)
            return Reply::error(5);
        const int point = byteAt(0);
        if (point < 1 || point > 2 || !finite(1, 1))
            return Reply::error(2);
        const QString n = QString::number(point);
        const float value = floatAt(1);
        if (cmd == 172) {
            // The U channel: the raw reading of now stands for the voltage given.
            m_params.insert(QStringLiteral("adjust_U_raw_") + n, inputVoltage(now));
            m_params.insert(QStringLiteral("adjust_U_set_") + n, true);
            m_params.insert(QStringLiteral("adjust_U_p") + n, value);
            m_params.insert(QStringLiteral("adjust_U_point"), point);
            m_params.insert(QStringLiteral("adjust_U"), value);
        } else {
            m_params.insert(QStringLiteral("adjust_Rc_raw_") + n, rawRc());
            m_params.insert(QStringLiteral("adjust_Rc_set_") + n, true);
            m_params.insert(QStringLiteral("adjust_Rc_p") + n, value);
            m_params.insert(QStringLiteral("adjust_Rc_point"), point);
            m_params.insert(QStringLiteral("adjust_Rc"), value);
        }
        return Reply::ok(data.left(5));
    }

    case 173: {
        if (data.size() < 4)
            return Reply::error(5);
        const float value = floatAt(0);
        if (!std::isfinite(value))
            return Reply::error(2);
        if (!(value > 0.0f))
            return Reply::error(4);
        const double reading = rt(now);
        if (!std::isfinite(reading) || i(QStringLiteral("ts_fault")) != 0)
            return Reply::error(6);
        m_params.insert(QStringLiteral("rt_trim"), f(QStringLiteral("rt_trim")) + (value - reading));
        m_params.insert(QStringLiteral("adjust_Rt_p"), value);
        m_params.insert(QStringLiteral("adjust_Rt"), value);
        return Reply::ok(data.left(4));
    }

    case 176:
        if (data.size() < 16)
            return Reply::error(5);
        if (!finite(0, 4))
            return Reply::error(2);
        if (!(floatAt(0) < floatAt(4)) || !(floatAt(8) < floatAt(12)))
            return Reply::error(29);
        setFloat("ei_min", 0);
        setFloat("ei_max", 4);
        setFloat("s_min", 8);
        setFloat("s_max", 12);
        return Reply::ok(data.left(16));

    default:
        return SimDevice::command(cmd, data, master, now);
    }
}

} // namespace hartsim
