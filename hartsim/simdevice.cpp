#include "simdevice.h"

#include "datacodec.h"
#include "genericdevice.h"
#include "ph77device.h"
#include "qp1device.h"
#include "tcvdevice.h"

#include <QDate>
#include <QSet>

#include <cmath>

namespace hartsim {

namespace {

constexpr double metrologyTimeout = 600.0; // seconds without a protected command
constexpr double pi = 3.14159265358979323846;
constexpr quint8 notUsed = 250;
constexpr float currentLow = 3.8f;
constexpr float currentHigh = 20.5f;

// Unit codes by class, for the checks of commands 35, 44 and 53.
int unitClass(int unit)
{
    static const QHash<int, int> classes = {
        {1, 65},  {2, 65},  {4, 65},  {5, 65},  {6, 65},   {7, 65},  {8, 65},  {10, 65}, {11, 65}, {12, 65},  {237, 65},
        {32, 64}, {33, 64}, {34, 64}, {35, 64}, {17, 66},  {19, 66}, {24, 66}, {28, 66}, {29, 66}, {131, 66}, {138, 66},
        {36, 83}, {58, 83}, {39, 84}, {37, 85}, {163, 85}, {59, 81}, {57, 0},  {41, 68}, {43, 68}, {45, 69},  {49, 69},
    };
    return classes.value(unit, -1);
}

// The keys of the device variables assigned to PV, SV, TV and QV.
const char* const dynamicSlots[] = {"PV_dev_variable_code", "SV_dev_variable_code", "TV_dev_variable_code",
                                    "QV_dev_variable_code"};

QString key(const char* pattern, int code)
{
    return QString::fromLatin1(pattern).arg(code);
}

QVariantMap baseDefaults()
{
    return {
        // Identity.
        {"manufacturer_code", 0x26},
        {"device_type_code", 0x01},
        {"device_id", 0x000001},
        {"min_preambles_count", 5},
        {"preambles_count", 5},
        {"universal_cmd_version", 7},
        {"specific_cmd_version", 1},
        {"software_version", 1},
        {"hardware_version", 0x08},
        {"device_flags", 0},
        {"vendor_id", 0x0026},
        {"extended_status", 0},
        {"modify_count", 0},
        // Addressing and identification.
        {"polling_address", 0},
        {"current_loop_mode", 1},
        {"tag", ""},
        {"descriptor", ""},
        {"message", ""},
        {"long_tag", ""},
        {"date", "2026-01-01"},
        {"final_assembly_number", 0},
        // Dynamic variables and the output.
        {"PV_dev_variable_code", 0},
        {"SV_dev_variable_code", 1},
        {"TV_dev_variable_code", 2},
        {"QV_dev_variable_code", 3},
        {"range_unit_code", 12},
        {"range_max", 100.0},
        {"range_min", 0.0},
        {"damping_time", 0.5},
        {"PV_alarm_selection_code", 0},
        {"conversion_function", 0},
        {"write_protection", 0},
        {"distributor_label", 0},
        {"fixed_current", 0.0},
        {"adjust_4mA", 4.0},
        {"adjust_20mA", 20.0},
        // Sensor of the primary variable (commands 14, 49, 54).
        {"sensor_number", 1},
        {"sensor_unit_code", 12},
        {"sensor_range_max", 250.0},
        {"sensor_range_min", -100.0},
        {"sensor_minimum_range", 1.0},
        // Status and behaviour.
        {"malfunction", false},
        {"error_code", 0},
        {"ADC_flags", 0},
        {"EEPROM_flags", 0},
        {"standard_status_0", 0},
        {"self_test_ms", 0},
        {"button_pressed", false},
        {"access_code", 0},
    };
}

} // namespace

SimDevice::SimDevice(const QString& model, const QVariantMap& defaults) : m_params(baseDefaults()), m_model(model)
{
    for (auto it = defaults.constBegin(); it != defaults.constEnd(); ++it)
        m_params.insert(it.key(), it.value());
    powerUp();
}

SimDevice::~SimDevice() = default;

void SimDevice::addVariables(QVariantMap& defaults, std::initializer_list<VariableSpec> variables)
{
    for (const VariableSpec& v : variables) {
        const QString p = QStringLiteral("var_%1_").arg(v.code);
        defaults.insert(p + "unit", v.unit);
        defaults.insert(p + "class", v.cls);
        defaults.insert(p + "family", v.family);
        defaults.insert(p + "usl", v.usl);
        defaults.insert(p + "lsl", v.lsl);
        defaults.insert(p + "min_span", v.minSpan);
        defaults.insert(p + "damping", 0.5);
        defaults.insert(p + "sensor", v.code + 1);
        defaults.insert(p + "offset", 0.0);
        if (v.period > 0.0 || v.value != 0.0) {
            defaults.insert(p + "value", v.value);
            defaults.insert(p + "amplitude", v.amplitude);
            defaults.insert(p + "period", v.period);
        }
    }
}

QStringList SimDevice::models()
{
    return {QStringLiteral("generic"), QStringLiteral("hart5"), QStringLiteral("TCV-C"),
            QStringLiteral("DX-C"),    QStringLiteral("QP-1C"), QStringLiteral("pH-7702")};
}

std::unique_ptr<SimDevice> SimDevice::create(const QString& model, const QVariantMap& settings, QString* error)
{
    std::unique_ptr<SimDevice> device;
    if (model == QLatin1String("generic"))
        device.reset(new GenericDevice(false));
    else if (model == QLatin1String("hart5"))
        device.reset(new GenericDevice(true));
    else if (model == QLatin1String("TCV-C") || model == QLatin1String("DX-C"))
        device.reset(new TcvDevice(model));
    else if (model == QLatin1String("QP-1C"))
        device.reset(new Qp1Device);
    else if (model == QLatin1String("pH-7702"))
        device.reset(new Ph77Device);
    if (!device) {
        if (error)
            *error = QStringLiteral("unknown model \"%1\" (models: %2)").arg(model, models().join(QLatin1String(", ")));
        return nullptr;
    }

    for (auto it = settings.constBegin(); it != settings.constEnd(); ++it) {
        const QVariant present = device->m_params.value(it.key());
        if (!present.isValid()) {
            if (error)
                *error = QStringLiteral("%1: unknown setting \"%2\"").arg(model, it.key());
            return nullptr;
        }
        const bool wantText = present.typeId() == QMetaType::QString;
        const bool wantBool = present.typeId() == QMetaType::Bool;
        const int given = it.value().typeId();
        const bool isText = given == QMetaType::QString;
        const bool isBool = given == QMetaType::Bool;
        const bool isNumber = it.value().canConvert<double>() && !isText && !isBool;
        if ((wantText && !isText) || (wantBool && !isBool) || (!wantText && !wantBool && !isNumber)) {
            if (error)
                *error = QStringLiteral("%1: setting \"%2\" must be %3")
                             .arg(model, it.key(),
                                  wantText   ? "a string"
                                  : wantBool ? "true or false"
                                             : "a number");
            return nullptr;
        }
        device->m_params.insert(it.key(), it.value());
    }
    device->m_buttonPressed = device->m_params.value(QStringLiteral("button_pressed")).toBool();
    device->powerUp();
    return device;
}

void SimDevice::powerUp()
{
    m_coldStart[0] = m_coldStart[1] = true;
    m_accessOpen = false;
    m_busyUntil = 0.0;
    m_params.insert(QStringLiteral("fixed_current"), 0.0);
    m_acknowledged48 = QByteArray(isHart5() ? 9 : 25, '\0');
}

void SimDevice::clearWriteProtectionFromMenu()
{
    m_params.insert(QStringLiteral("write_protection"), 0);
}

int SimDevice::pollingAddress() const
{
    return i(QStringLiteral("polling_address"));
}

int SimDevice::responsePreambles() const
{
    return i(QStringLiteral("preambles_count"));
}

QByteArray SimDevice::longAddress() const
{
    QByteArray address;
    address.append(char(i(QStringLiteral("manufacturer_code")) & 0x3F));
    address.append(char(i(QStringLiteral("device_type_code"))));
    DataCodec::putUInt(address, quint32(i(QStringLiteral("device_id"))), 3);
    return address;
}

bool SimDevice::isAddressedBy(const QByteArray& address, quint8 command) const
{
    if (address.size() == 1)
        return (quint8(address.at(0)) & 0x3F) == pollingAddress();
    if (address.size() != 5)
        return false;
    QByteArray masked = address;
    masked[0] = char(masked.at(0) & 0x3F);
    if (masked == longAddress())
        return true;
    return masked == QByteArray(5, '\0') && (command == 11 || command == 21 || command == 73);
}

QByteArray SimDevice::identityData() const
{
    QByteArray data;
    data.append(char(254));
    data.append(char(i(QStringLiteral("manufacturer_code"))));
    data.append(char(i(QStringLiteral("device_type_code"))));
    data.append(char(i(QStringLiteral("min_preambles_count"))));
    data.append(char(i(QStringLiteral("universal_cmd_version"))));
    data.append(char(i(QStringLiteral("specific_cmd_version"))));
    data.append(char(i(QStringLiteral("software_version"))));
    data.append(char(i(QStringLiteral("hardware_version"))));
    data.append(char(i(QStringLiteral("device_flags"))));
    DataCodec::putUInt(data, quint32(i(QStringLiteral("device_id"))), 3);
    if (isHart5())
        return data;
    data.append(char(i(QStringLiteral("preambles_count"))));
    int last = 0;
    for (int code = 0; code < 250; ++code)
        if (hasVariable(code))
            last = code;
    data.append(char(last));
    DataCodec::putUInt(data, quint32(i(QStringLiteral("modify_count"))), 2);
    data.append(char(i(QStringLiteral("extended_status"))));
    DataCodec::putUInt(data, quint32(i(QStringLiteral("vendor_id"))), 2);
    DataCodec::putUInt(data, quint32(i(QStringLiteral("vendor_id"))), 2);
    data.append(char(1)); // a process automation device
    return data;
}

bool SimDevice::hasVariable(int code) const
{
    return m_params.contains(key("var_%1_unit", code));
}

int SimDevice::variableUnit(int code) const
{
    return i(key("var_%1_unit", code));
}

int SimDevice::variableClass(int code) const
{
    return i(key("var_%1_class", code));
}

float SimDevice::variableValue(int code, double now) const
{
    const double base = f(key("var_%1_value", code));
    const double amplitude = f(key("var_%1_amplitude", code));
    const double period = f(key("var_%1_period", code));
    const double wave = period > 0 ? amplitude * std::sin(2.0 * pi * now / period) : 0.0;
    return float(base + wave + f(key("var_%1_offset", code)));
}

double SimDevice::rangeCurrent(double now) const
{
    const double lower = f(QStringLiteral("range_min"));
    const double upper = f(QStringLiteral("range_max"));
    if (upper == lower)
        return 4.0;
    return 4.0 + 16.0 * (double(primaryValue(now)) - lower) / (upper - lower);
}

bool SimDevice::outputFixed() const
{
    return f(QStringLiteral("fixed_current")) != 0.0f;
}

bool SimDevice::outputSaturated(double now) const
{
    if (outputFixed() || i(QStringLiteral("current_loop_mode")) == 0)
        return false;
    const double current = rangeCurrent(now);
    return current < currentLow || current > currentHigh;
}

float SimDevice::loopCurrent(double now) const
{
    if (outputFixed())
        return f(QStringLiteral("fixed_current"));
    if (i(QStringLiteral("current_loop_mode")) == 0)
        return 4.0f;
    return float(qBound(double(currentLow), rangeCurrent(now), double(currentHigh)));
}

bool SimDevice::metrologyAccessOpen(double now) const
{
    return m_accessOpen && now - m_lastProtected <= metrologyTimeout;
}

void SimDevice::configurationChanged()
{
    m_configChanged[0] = m_configChanged[1] = true;
    m_params.insert(QStringLiteral("modify_count"), (i(QStringLiteral("modify_count")) + 1) & 0xFFFF);
}

bool SimDevice::isWriteCommand(quint8 cmd) const
{
    static const QSet<int> writes = {6, 17, 18, 19, 22, 34, 35, 36, 37, 43, 44, 45, 46, 47, 49, 51, 53, 59, 194};
    return writes.contains(cmd);
}

bool SimDevice::isProtectedCommand(quint8 cmd) const
{
    // Only instruments with an access code guard their adjustments.
    if (i(QStringLiteral("access_code")) == 0)
        return false;
    return cmd == 45 || cmd == 46 || cmd == 192 || cmd == 194;
}

bool SimDevice::isWarning(quint8 cmd, quint8 code) const
{
    Q_UNUSED(cmd)
    return code == 8 || code == 14;
}

QByteArray SimDevice::deviceSpecificStatus() const
{
    QByteArray status;
    status.append(char(i(QStringLiteral("error_code"))));
    status.append(char(i(QStringLiteral("ADC_flags"))));
    status.append(char(i(QStringLiteral("EEPROM_flags"))));
    status.append(QByteArray(3, '\0'));
    return status;
}

QStringList SimDevice::factoryKeys() const
{
    return QStringList();
}

QStringList SimDevice::outputFactoryKeys()
{
    return {QStringLiteral("range_unit_code"), QStringLiteral("range_max"),  QStringLiteral("range_min"),
            QStringLiteral("damping_time"),    QStringLiteral("adjust_4mA"), QStringLiteral("adjust_20mA")};
}

Reply SimDevice::handle(quint8 command, const QByteArray& data, Master master, double now)
{
    m_now = now;
    if (now < m_busyUntil)
        return Reply::error(32);
    if (m_accessOpen && now - m_lastProtected > metrologyTimeout)
        m_accessOpen = false;
    if (isWriteCommand(command) && i(QStringLiteral("write_protection")) != 0)
        return Reply::error(7);
    if (isProtectedCommand(command)) {
        if (!metrologyAccessOpen(now))
            return Reply::error(16);
        m_lastProtected = now;
    }

    const Reply reply = this->command(command, data, master, now);
    const bool executed = !reply.silent && (reply.code == 0 || isWarning(command, reply.code));
    if (executed && isWriteCommand(command))
        configurationChanged();
    return reply;
}

QByteArray SimDevice::additionalStatus(double now) const
{
    QByteArray data = deviceSpecificStatus().left(6).leftJustified(6, '\0');
    data.append(char(i(QStringLiteral("extended_status"))));
    data.append(char(0)); // operating mode
    data.append(char(i(QStringLiteral("standard_status_0"))));
    if (isHart5())
        return data;
    data.append(char(0));                    // standardized status 1
    data.append(char(outputSaturated(now))); // analog channel saturated
    data.append(char(0));                    // standardized status 2
    data.append(char(0));                    // standardized status 3
    data.append(char(outputFixed()));        // analog channel fixed
    data.append(QByteArray(11, '\0'));       // further device-specific status
    return data;
}

quint8 SimDevice::deviceStatus(Master master)
{
    const int m = master == Master::Primary ? 0 : 1;
    quint8 status = 0;
    if (m_params.value(QStringLiteral("malfunction")).toBool())
        status |= 0x80;
    if (m_configChanged[m])
        status |= 0x40;
    if (m_coldStart[m]) {
        status |= 0x20;
        m_coldStart[m] = false;
    }
    const float pv = primaryValue(m_now);
    if (additionalStatus(m_now) != m_acknowledged48)
        status |= 0x10;
    if (outputFixed())
        status |= 0x08;
    if (outputSaturated(m_now))
        status |= 0x04;
    const int pvCode = i(QStringLiteral("PV_dev_variable_code"));
    for (const char* slot : {"SV_dev_variable_code", "TV_dev_variable_code", "QV_dev_variable_code"}) {
        const int code = i(QLatin1String(slot));
        if (code == notUsed || code == pvCode || !hasVariable(code) || !m_params.contains(key("var_%1_usl", code)))
            continue;
        const float value = variableValue(code, m_now);
        if (value > f(key("var_%1_usl", code)) || value < f(key("var_%1_lsl", code)))
            status |= 0x02;
    }
    if (pv > f(QStringLiteral("sensor_range_max")) || pv < f(QStringLiteral("sensor_range_min")))
        status |= 0x01;
    return status;
}

Reply SimDevice::writeByte(const QByteArray& data, const QString& key, int min, int max, quint8 refusal)
{
    if (data.size() < 1)
        return Reply::error(5);
    const int value = quint8(data.at(0));
    if (value < min || value > max)
        return Reply::error(refusal);
    m_params.insert(key, value);
    return Reply::ok(data.left(1));
}

Reply SimDevice::command(quint8 cmd, const QByteArray& data, Master master, double now)
{
    const int m = master == Master::Primary ? 0 : 1;
    const bool hart5 = isHart5();
    auto tooFew = [&](int size) { return data.size() < size; };
    auto dynamicCode = [&](const char* slot) { return i(QLatin1String(slot)); };

    switch (cmd) {
    case 0:
        return Reply::ok(identityData());

    case 1: {
        QByteArray out;
        out.append(char(variableUnit(dynamicCode("PV_dev_variable_code"))));
        DataCodec::putFloat(out, primaryValue(now));
        return Reply::ok(out);
    }

    case 2: {
        QByteArray out;
        const float current = loopCurrent(now);
        DataCodec::putFloat(out, current);
        DataCodec::putFloat(out, (current - 4.0f) / 16.0f * 100.0f);
        return Reply::ok(out);
    }

    case 3: {
        QByteArray out;
        DataCodec::putFloat(out, loopCurrent(now));
        for (const char* slot : dynamicSlots) {
            const int code = dynamicCode(slot);
            if (code == notUsed || !hasVariable(code))
                break;
            out.append(char(variableUnit(code)));
            DataCodec::putFloat(out, variableValue(code, now));
        }
        return Reply::ok(out);
    }

    case 6: {
        if (tooFew(1))
            return Reply::error(5);
        const int address = quint8(data.at(0));
        if (address > (hart5 ? 15 : 63))
            return Reply::error(2);
        if (hart5) {
            m_params.insert(QStringLiteral("polling_address"), address);
            m_params.insert(QStringLiteral("current_loop_mode"), address == 0 ? 1 : 0);
            return Reply::ok(data.left(1));
        }
        const int mode = data.size() > 1 ? quint8(data.at(1)) : (address == 0 ? 1 : 0);
        if (mode > 1)
            return Reply::error(2);
        m_params.insert(QStringLiteral("polling_address"), address);
        m_params.insert(QStringLiteral("current_loop_mode"), mode);
        QByteArray out;
        out.append(char(address));
        out.append(char(mode));
        return Reply::ok(out);
    }

    case 7: {
        if (hart5)
            return Reply::error(64);
        QByteArray out;
        out.append(char(pollingAddress()));
        out.append(char(i(QStringLiteral("current_loop_mode"))));
        return Reply::ok(out);
    }

    case 8: {
        if (hart5)
            return Reply::error(64);
        QByteArray out;
        for (const char* slot : dynamicSlots) {
            const int code = dynamicCode(slot);
            out.append(char(code != notUsed && hasVariable(code) ? variableClass(code) : notUsed));
        }
        return Reply::ok(out);
    }

    case 9: {
        if (hart5)
            return Reply::error(64);
        if (tooFew(1))
            return Reply::error(5);
        QByteArray out;
        out.append(char(i(QStringLiteral("extended_status"))));
        for (int k = 0; k < data.size() && k < 8; ++k) {
            int code = quint8(data.at(k));
            // 246 to 249 stand for the dynamic variables PV to QV.
            const int variable = code >= 246 && code <= 249 ? dynamicCode(dynamicSlots[code - 246]) : code;
            if (!hasVariable(variable))
                return Reply::error(2);
            out.append(char(code));
            out.append(char(variableClass(variable)));
            out.append(char(variableUnit(variable)));
            DataCodec::putFloat(out, variableValue(variable, now));
            out.append(char(0xC0)); // good, not limited
        }
        // Time stamp: 1/32 ms since midnight of the simulator's clock.
        DataCodec::putUInt(out, quint32(std::fmod(now, 86400.0) * 32000.0), 4);
        return Reply::ok(out);
    }

    case 11: {
        if (data.left(6) != DataCodec::packAscii(m_params.value(QStringLiteral("tag")).toString(), 8))
            return Reply::none();
        return Reply::ok(identityData());
    }

    case 12:
        return Reply::ok(DataCodec::packAscii(m_params.value(QStringLiteral("message")).toString(), 32));

    case 13: {
        QByteArray out = DataCodec::packAscii(m_params.value(QStringLiteral("tag")).toString(), 8);
        out += DataCodec::packAscii(m_params.value(QStringLiteral("descriptor")).toString(), 16);
        const QDate date = QDate::fromString(m_params.value(QStringLiteral("date")).toString(), Qt::ISODate);
        out.append(char(date.isValid() ? date.day() : 1));
        out.append(char(date.isValid() ? date.month() : 1));
        out.append(char(date.isValid() ? date.year() - 1900 : 0));
        return Reply::ok(out);
    }

    case 14: {
        QByteArray out;
        DataCodec::putUInt(out, quint32(i(QStringLiteral("sensor_number"))), 3);
        out.append(char(i(QStringLiteral("sensor_unit_code"))));
        DataCodec::putFloat(out, f(QStringLiteral("sensor_range_max")));
        DataCodec::putFloat(out, f(QStringLiteral("sensor_range_min")));
        DataCodec::putFloat(out, f(QStringLiteral("sensor_minimum_range")));
        return Reply::ok(out);
    }

    case 15: {
        QByteArray out;
        out.append(char(i(QStringLiteral("PV_alarm_selection_code"))));
        out.append(char(i(QStringLiteral("conversion_function"))));
        out.append(char(i(QStringLiteral("range_unit_code"))));
        DataCodec::putFloat(out, f(QStringLiteral("range_max")));
        DataCodec::putFloat(out, f(QStringLiteral("range_min")));
        DataCodec::putFloat(out, f(QStringLiteral("damping_time")));
        out.append(char(i(QStringLiteral("write_protection"))));
        out.append(char(i(QStringLiteral("distributor_label"))));
        if (!hart5)
            out.append(char(1)); // analog channel flags: the output is analog
        return Reply::ok(out);
    }

    case 16: {
        QByteArray out;
        DataCodec::putUInt(out, quint32(i(QStringLiteral("final_assembly_number"))), 3);
        return Reply::ok(out);
    }

    case 17:
        if (tooFew(24))
            return Reply::error(5);
        m_params.insert(QStringLiteral("message"), DataCodec::unpackAscii(data.left(24)));
        return Reply::ok(data.left(24));

    case 18: {
        if (tooFew(21))
            return Reply::error(5);
        const QDate date(1900 + quint8(data.at(20)), quint8(data.at(19)), quint8(data.at(18)));
        if (!date.isValid())
            return Reply::error(2);
        m_params.insert(QStringLiteral("tag"), DataCodec::unpackAscii(data.left(6)));
        m_params.insert(QStringLiteral("descriptor"), DataCodec::unpackAscii(data.mid(6, 12)));
        m_params.insert(QStringLiteral("date"), date.toString(Qt::ISODate));
        return Reply::ok(data.left(21));
    }

    case 19:
        if (tooFew(3))
            return Reply::error(5);
        m_params.insert(QStringLiteral("final_assembly_number"), int(DataCodec::getUInt(data, 0, 3)));
        return Reply::ok(data.left(3));

    case 20:
        if (hart5)
            return Reply::error(64);
        return Reply::ok(
            m_params.value(QStringLiteral("long_tag")).toString().toLatin1().leftJustified(32, '\0', true));

    case 21: {
        if (hart5)
            return Reply::none();
        const QByteArray own =
            m_params.value(QStringLiteral("long_tag")).toString().toLatin1().leftJustified(32, '\0', true);
        if (data.leftJustified(32, '\0', true) != own)
            return Reply::none();
        return Reply::ok(identityData());
    }

    case 22: {
        if (hart5)
            return Reply::error(64);
        if (tooFew(32))
            return Reply::error(5);
        QByteArray text = data.left(32);
        const int end = text.indexOf('\0');
        if (end >= 0)
            text.truncate(end);
        m_params.insert(QStringLiteral("long_tag"), QString::fromLatin1(text));
        return Reply::ok(data.left(32));
    }

    case 33: {
        if (tooFew(1))
            return Reply::error(5);
        QByteArray out;
        for (int k = 0; k < data.size() && k < 4; ++k) {
            const int code = quint8(data.at(k));
            if (!hasVariable(code))
                return Reply::error(2);
            out.append(char(code));
            out.append(char(variableUnit(code)));
            DataCodec::putFloat(out, variableValue(code, now));
        }
        return Reply::ok(out);
    }

    case 34: {
        if (tooFew(4))
            return Reply::error(5);
        const float damping = DataCodec::getFloat(data, 0);
        if (std::isnan(damping) || damping > 60.0f)
            return Reply::error(3);
        if (damping < 0.0f)
            return Reply::error(4);
        m_params.insert(QStringLiteral("damping_time"), damping);
        return Reply::ok(data.left(4));
    }

    case 35: {
        if (tooFew(9))
            return Reply::error(5);
        const int unit = quint8(data.at(0));
        const float upper = DataCodec::getFloat(data, 1);
        const float lower = DataCodec::getFloat(data, 5);
        if (unit != i(QStringLiteral("range_unit_code")))
            return Reply::error(18);
        const float usl = f(QStringLiteral("sensor_range_max"));
        const float lsl = f(QStringLiteral("sensor_range_min"));
        if (lower > usl)
            return Reply::error(9);
        if (lower < lsl)
            return Reply::error(10);
        if (upper > usl)
            return Reply::error(11);
        if (upper < lsl)
            return Reply::error(12);
        if (upper == lower)
            return Reply::error(29);
        m_params.insert(QStringLiteral("range_max"), upper);
        m_params.insert(QStringLiteral("range_min"), lower);
        const bool narrow = std::fabs(upper - lower) < f(QStringLiteral("sensor_minimum_range"));
        return Reply{quint8(narrow ? 14 : 0), data.left(9), false};
    }

    case 36:
    case 37: {
        const float pv = primaryValue(now);
        if (pv > f(QStringLiteral("sensor_range_max")))
            return Reply::error(9);
        if (pv < f(QStringLiteral("sensor_range_min")))
            return Reply::error(10);
        const QString own = cmd == 36 ? QStringLiteral("range_max") : QStringLiteral("range_min");
        const QString other = cmd == 36 ? QStringLiteral("range_min") : QStringLiteral("range_max");
        if (pv == f(other))
            return Reply::error(29);
        m_params.insert(own, pv);
        return Reply::ok();
    }

    case 38: {
        if (!data.isEmpty()) {
            if (tooFew(2))
                return Reply::error(5);
            if (int(DataCodec::getUInt(data, 0, 2)) != i(QStringLiteral("modify_count")))
                return Reply::error(9);
        }
        m_configChanged[m] = false;
        return Reply::ok(data.left(2));
    }

    case 40: {
        if (tooFew(4))
            return Reply::error(5);
        if (i(QStringLiteral("current_loop_mode")) == 0)
            return Reply::error(11);
        const float current = DataCodec::getFloat(data, 0);
        if (current != 0.0f && (std::isnan(current) || current > 24.0f))
            return Reply::error(3);
        if (current != 0.0f && current < 3.5f)
            return Reply::error(4);
        m_params.insert(QStringLiteral("fixed_current"), current);
        QByteArray out;
        DataCodec::putFloat(out, current);
        return Reply::ok(out);
    }

    case 41:
        m_busyUntil = now + i(QStringLiteral("self_test_ms")) / 1000.0;
        return Reply::ok();

    case 42:
        // The answer goes out first; the device then starts afresh.
        powerUp();
        return Reply::ok();

    case 43: {
        const int pvCode = dynamicCode("PV_dev_variable_code");
        const QString offset = key("var_%1_offset", pvCode);
        m_params.insert(offset, f(offset) - primaryValue(now));
        return Reply::ok();
    }

    case 44: {
        if (tooFew(1))
            return Reply::error(5);
        const int unit = quint8(data.at(0));
        const int pvCode = dynamicCode("PV_dev_variable_code");
        if (unitClass(unit) < 0 || unitClass(unit) != unitClass(variableUnit(pvCode)))
            return Reply::error(2);
        m_params.insert(key("var_%1_unit", pvCode), unit);
        m_params.insert(QStringLiteral("range_unit_code"), unit);
        return Reply::ok(data.left(1));
    }

    case 45:
    case 46: {
        if (tooFew(4))
            return Reply::error(5);
        if (i(QStringLiteral("current_loop_mode")) == 0)
            return Reply::error(11);
        const float expected = cmd == 45 ? 4.0f : 20.0f;
        if (f(QStringLiteral("fixed_current")) != expected)
            return Reply::error(9);
        const float measured = DataCodec::getFloat(data, 0);
        if (std::isnan(measured) || std::fabs(measured - expected) > 1.0f)
            return Reply::error(measured > expected ? 3 : 4);
        m_params.insert(cmd == 45 ? QStringLiteral("adjust_4mA") : QStringLiteral("adjust_20mA"), measured);
        return Reply::ok(data.left(4));
    }

    case 47: {
        if (tooFew(1))
            return Reply::error(5);
        if (quint8(data.at(0)) > 1)
            return Reply::error(2);
        m_params.insert(QStringLiteral("conversion_function"), int(quint8(data.at(0))));
        return Reply::ok(data.left(1));
    }

    case 48: {
        const QByteArray current = additionalStatus(now);
        // A master acknowledges the status by sending back what it read;
        // an old device takes the read itself as the acknowledgement.
        if (hart5 || (!data.isEmpty() && data == current.left(data.size())))
            m_acknowledged48 = current;
        return Reply::ok(current);
    }

    case 49:
        if (tooFew(3))
            return Reply::error(5);
        m_params.insert(QStringLiteral("sensor_number"), int(DataCodec::getUInt(data, 0, 3)));
        return Reply::ok(data.left(3));

    case 50: {
        QByteArray out;
        for (const char* slot : dynamicSlots)
            out.append(char(dynamicCode(slot)));
        return Reply::ok(out);
    }

    case 51: {
        if (tooFew(1))
            return Reply::error(5);
        const int count = qMin(4, int(data.size()));
        for (int k = 0; k < count; ++k) {
            const int code = quint8(data.at(k));
            if ((code == notUsed && k == 0) || (code != notUsed && !hasVariable(code)))
                return Reply::error(2);
        }
        for (int k = 0; k < count; ++k)
            m_params.insert(QLatin1String(dynamicSlots[k]), int(quint8(data.at(k))));
        return Reply::ok(data.left(count));
    }

    case 53: {
        if (tooFew(2))
            return Reply::error(5);
        const int code = quint8(data.at(0));
        const int unit = quint8(data.at(1));
        if (!hasVariable(code))
            return Reply::error(2);
        if (unitClass(unit) < 0 || unitClass(unit) != unitClass(variableUnit(code)))
            return Reply::error(2);
        m_params.insert(key("var_%1_unit", code), unit);
        return Reply::ok(data.left(2));
    }

    case 54: {
        if (tooFew(1))
            return Reply::error(5);
        const int code = quint8(data.at(0));
        if (!hasVariable(code))
            return Reply::error(2);
        const bool isPv = code == dynamicCode("PV_dev_variable_code");
        QByteArray out;
        out.append(char(code));
        DataCodec::putUInt(out, quint32(isPv ? i(QStringLiteral("sensor_number")) : i(key("var_%1_sensor", code))), 3);
        out.append(char(variableUnit(code)));
        DataCodec::putFloat(out, isPv ? f(QStringLiteral("sensor_range_max")) : f(key("var_%1_usl", code)));
        DataCodec::putFloat(out, isPv ? f(QStringLiteral("sensor_range_min")) : f(key("var_%1_lsl", code)));
        DataCodec::putFloat(out, isPv ? f(QStringLiteral("damping_time")) : f(key("var_%1_damping", code)));
        DataCodec::putFloat(out, isPv ? f(QStringLiteral("sensor_minimum_range")) : f(key("var_%1_min_span", code)));
        out.append(char(variableClass(code)));
        out.append(char(i(key("var_%1_family", code))));
        if (!hart5) {
            DataCodec::putUInt(out, 32000, 4); // acquisition period: one second in 1/32 ms
            out.append(char(0));               // properties
        }
        return Reply::ok(out);
    }

    case 59: {
        if (tooFew(1))
            return Reply::error(5);
        const int count = quint8(data.at(0));
        if (count > 20)
            return Reply::error(3);
        if (count < 5)
            return Reply::error(4);
        m_params.insert(QStringLiteral("preambles_count"), count);
        return Reply::ok(data.left(1));
    }

    case 73:
        if (hart5 || !m_buttonPressed)
            return Reply::none();
        return Reply::ok(identityData());

    case 129: {
        if (tooFew(1))
            return Reply::error(5);
        const int protect = quint8(data.at(0));
        if (protect > 1)
            return Reply::error(2);
        // Protection is lifted only from the instrument's own menu.
        if (protect == 0 && i(QStringLiteral("write_protection")) != 0)
            return Reply::error(7);
        if (protect != i(QStringLiteral("write_protection")))
            configurationChanged();
        m_params.insert(QStringLiteral("write_protection"), protect);
        return Reply::ok(data.left(1));
    }

    case 190: {
        const int code = i(QStringLiteral("access_code"));
        if (code == 0)
            return Reply::error(64);
        if (tooFew(4))
            return Reply::error(5);
        const quint32 given = DataCodec::getUInt(data, 0, 4);
        if (given == 0) {
            m_accessOpen = false;
            return Reply::ok(QByteArray(1, '\0'));
        }
        if (given != quint32(code))
            return Reply::error(16);
        m_accessOpen = true;
        m_lastProtected = now;
        return Reply::ok(QByteArray(1, '\1'));
    }

    case 192: {
        const QStringList keys = factoryKeys();
        if (keys.isEmpty())
            return Reply::error(64);
        if (tooFew(1))
            return Reply::error(5);
        const int mode = quint8(data.at(0));
        if (mode == 1) {
            m_factorySaved.clear();
            for (const QString& k : keys)
                m_factorySaved.insert(k, m_params.value(k));
        } else if (mode == 0) {
            if (m_factorySaved.isEmpty())
                return Reply::error(12);
            for (auto it = m_factorySaved.constBegin(); it != m_factorySaved.constEnd(); ++it)
                m_params.insert(it.key(), it.value());
            configurationChanged();
        } else {
            return Reply::error(2);
        }
        return Reply::ok(data.left(1));
    }

    case 194:
        if (i(QStringLiteral("access_code")) == 0)
            return Reply::error(64);
        if (tooFew(3))
            return Reply::error(5);
        m_params.insert(QStringLiteral("device_id"), int(DataCodec::getUInt(data, 0, 3)));
        return Reply::ok(data.left(3));

    default:
        return Reply::error(64);
    }
}

} // namespace hartsim
