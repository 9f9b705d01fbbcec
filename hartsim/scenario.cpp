#include "scenario.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace hartsim {

const char* const Scenario::DemoPath = ":/hartsim/scenarios/demo.json";

namespace {

QString typeName(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return QStringLiteral("null");
    case QJsonValue::Bool:
        return QStringLiteral("a boolean");
    case QJsonValue::Double:
        return QStringLiteral("a number");
    case QJsonValue::String:
        return QStringLiteral("a string");
    case QJsonValue::Array:
        return QStringLiteral("an array");
    case QJsonValue::Object:
        return QStringLiteral("an object");
    case QJsonValue::Undefined:
        break;
    }
    return QStringLiteral("nothing");
}

// Reads an integer within min..max. False with an error text when the value
// is not a whole number in range.
bool readInt(const QJsonValue& value, const QString& where, int min, int max, int* out, QString* error)
{
    const double number = value.toDouble();
    if (!value.isDouble() || std::floor(number) != number) {
        *error = QStringLiteral("%1 must be an integer, not %2").arg(where, typeName(value));
        return false;
    }
    if (number < min || number > max) {
        *error = QStringLiteral("%1 is %2, outside %3..%4").arg(where).arg(number).arg(min).arg(max);
        return false;
    }
    *out = int(number);
    return true;
}

bool readHex(const QJsonValue& value, const QString& where, QByteArray* out, QString* error)
{
    static const QRegularExpression hexPairs(QStringLiteral("^\\s*([0-9A-Fa-f]{2}\\s*)+$"));
    if (!value.isString() || !hexPairs.match(value.toString()).hasMatch()) {
        *error = QStringLiteral("%1 must be a string of hexadecimal bytes such as \"00 3A 7E\"").arg(where);
        return false;
    }
    *out = QByteArray::fromHex(value.toString().toLatin1());
    return true;
}

struct KindKeys
{
    Fault::Kind kind;
    QStringList required;
    QStringList optional;
};

const QList<KindKeys>& kindKeys()
{
    static const QList<KindKeys> keys = {
        {Fault::NoAnswer, {}, {}},
        {Fault::BadChecksum, {}, {}},
        {Fault::Noise, {QStringLiteral("noise")}, {}},
        {Fault::Split, {QStringLiteral("at"), QStringLiteral("pause_ms")}, {}},
        {Fault::Delay, {QStringLiteral("delay_ms")}, {}},
        {Fault::WrongAddress, {}, {}},
        {Fault::Burst, {}, {}},
        {Fault::ResponseCode, {QStringLiteral("code")}, {QStringLiteral("keep_data")}},
        {Fault::Preambles, {QStringLiteral("preambles")}, {}},
        {Fault::WrongCommand, {}, {}},
        {Fault::Truncate, {QStringLiteral("length")}, {}},
    };
    return keys;
}

QStringList kindNames()
{
    QStringList names;
    for (int k = 0; k < Fault::KindCount; ++k)
        names << Fault::kindName(Fault::Kind(k));
    return names;
}

bool readFault(const QJsonValue& value, const QString& where, int pollingAddress, Fault* fault, QString* error)
{
    if (!value.isObject()) {
        *error = QStringLiteral("%1 must be an object, not %2").arg(where, typeName(value));
        return false;
    }
    const QJsonObject object = value.toObject();
    const QJsonValue kindValue = object.value(QLatin1String("kind"));
    if (!kindValue.isString()) {
        *error = QStringLiteral("%1: \"kind\" must be given as a string (%2)").arg(where, kindNames().join(", "));
        return false;
    }
    const Fault::Kind kind = Fault::kindFromName(kindValue.toString());
    if (kind == Fault::KindCount) {
        *error = QStringLiteral("%1: unknown fault kind \"%2\" (kinds: %3)")
                     .arg(where, kindValue.toString(), kindNames().join(", "));
        return false;
    }
    const auto found =
        std::find_if(kindKeys().cbegin(), kindKeys().cend(), [kind](const KindKeys& k) { return k.kind == kind; });
    Q_ASSERT(found != kindKeys().cend());
    const KindKeys& keys = *found;
    const QString at = QStringLiteral("%1 (%2)").arg(where, kindValue.toString());

    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        const QString key = it.key();
        if (key != QLatin1String("kind") && key != QLatin1String("command") && key != QLatin1String("count") &&
            !keys.required.contains(key) && !keys.optional.contains(key)) {
            const QStringList allowed = QStringList{"kind", "command", "count"} + keys.required + keys.optional;
            *error = QStringLiteral("%1: key \"%2\" does not belong to this kind of fault (keys: %3)")
                         .arg(at, key, allowed.join(", "));
            return false;
        }
    }
    for (const QString& key : keys.required) {
        if (!object.contains(key)) {
            *error = QStringLiteral("%1: key \"%2\" is required").arg(at, key);
            return false;
        }
    }

    Fault f;
    f.kind = kind;
    f.pollingAddress = pollingAddress;
    auto intKey = [&](const char* key, int min, int max, int* out) {
        const QJsonValue v = object.value(QLatin1String(key));
        if (v.isUndefined())
            return true;
        return readInt(v, QStringLiteral("%1: \"%2\"").arg(at, QLatin1String(key)), min, max, out, error);
    };
    if (!intKey("command", 0, 255, &f.command) || !intKey("count", 0, 1000000, &f.count) ||
        !intKey("at", 1, 100000, &f.at) || !intKey("pause_ms", 0, 600000, &f.pauseMs) ||
        !intKey("delay_ms", 0, 600000, &f.delayMs) || !intKey("code", 0, 255, &f.code) ||
        !intKey("preambles", 0, 255, &f.preambles) || !intKey("length", 0, 100000, &f.length))
        return false;
    if (object.contains(QLatin1String("noise")) &&
        !readHex(object.value(QLatin1String("noise")), at + QStringLiteral(": \"noise\""), &f.noise, error))
        return false;
    if (object.contains(QLatin1String("keep_data"))) {
        const QJsonValue v = object.value(QLatin1String("keep_data"));
        if (!v.isBool()) {
            *error = QStringLiteral("%1: \"keep_data\" must be true or false, not %2").arg(at, typeName(v));
            return false;
        }
        f.keepData = v.toBool();
    }
    *fault = f;
    return true;
}

} // namespace

Scenario::Scenario() = default;
Scenario::~Scenario() = default;
Scenario::Scenario(Scenario&&) noexcept = default;
Scenario& Scenario::operator=(Scenario&&) noexcept = default;

void Scenario::clear()
{
    m_devices.clear();
    m_faults.clear();
    m_hasTiming = false;
    m_timing = SimLine::Timing::Fast;
    m_hasTurnaround = false;
    m_turnaroundMs = 20;
    m_description.clear();
}

bool Scenario::loadFile(const QString& path, QString* error)
{
    clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("%1: cannot read the scenario: %2").arg(path, file.errorString());
        return false;
    }
    return loadJson(file.readAll(), path, error);
}

bool Scenario::loadJson(const QByteArray& json, const QString& source, QString* error)
{
    clear();
    QString text;
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        const QByteArray before = json.left(parseError.offset);
        const int line = int(before.count('\n')) + 1;
        const int column = int(before.size() - before.lastIndexOf('\n'));
        if (error)
            *error = QStringLiteral("%1:%2:%3: JSON syntax error: %4")
                         .arg(source)
                         .arg(line)
                         .arg(column)
                         .arg(parseError.errorString());
        return false;
    }
    auto fail = [&](const QString& message) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(source, message);
        clear();
        return false;
    };
    if (!document.isObject())
        return fail(QStringLiteral("the scenario must be one JSON object"));
    const QJsonObject root = document.object();

    for (auto it = root.constBegin(); it != root.constEnd(); ++it) {
        static const QStringList known = {"description", "timing", "turnaround_ms", "devices"};
        if (!known.contains(it.key()))
            return fail(QStringLiteral("unknown key \"%1\" (keys: %2)").arg(it.key(), known.join(QLatin1String(", "))));
    }

    if (root.contains(QLatin1String("description"))) {
        const QJsonValue v = root.value(QLatin1String("description"));
        if (!v.isString())
            return fail(QStringLiteral("\"description\" must be a string, not %1").arg(typeName(v)));
        m_description = v.toString();
    }
    if (root.contains(QLatin1String("timing"))) {
        const QJsonValue v = root.value(QLatin1String("timing"));
        if (v == QJsonValue(QLatin1String("fast")))
            m_timing = SimLine::Timing::Fast;
        else if (v == QJsonValue(QLatin1String("line")))
            m_timing = SimLine::Timing::Line;
        else
            return fail(QStringLiteral("\"timing\" must be \"fast\" or \"line\""));
        m_hasTiming = true;
    }
    if (root.contains(QLatin1String("turnaround_ms"))) {
        if (!readInt(root.value(QLatin1String("turnaround_ms")), QStringLiteral("\"turnaround_ms\""), 0, 10000,
                     &m_turnaroundMs, &text))
            return fail(text);
        m_hasTurnaround = true;
    }

    const QJsonValue devices = root.value(QLatin1String("devices"));
    if (!devices.isArray())
        return fail(QStringLiteral("\"devices\" must be given as an array of devices, not %1").arg(typeName(devices)));
    const QJsonArray list = devices.toArray();
    QSet<int> taken;
    for (int index = 0; index < list.size(); ++index) {
        const QString where = QStringLiteral("devices[%1]").arg(index);
        const QJsonValue entry = list.at(index);
        if (!entry.isObject())
            return fail(QStringLiteral("%1 must be an object, not %2").arg(where, typeName(entry)));
        const QJsonObject object = entry.toObject();

        const QJsonValue model = object.value(QLatin1String("model"));
        if (!model.isString())
            return fail(QStringLiteral("%1: \"model\" must be given as a string (%2)")
                            .arg(where, SimDevice::models().join(QLatin1String(", "))));
        int pollingAddress = 0;
        if (!object.contains(QLatin1String("polling_address")))
            return fail(QStringLiteral("%1: \"polling_address\" is required").arg(where));
        if (!readInt(object.value(QLatin1String("polling_address")), where + QStringLiteral(": \"polling_address\""), 0,
                     63, &pollingAddress, &text))
            return fail(text);
        if (taken.contains(pollingAddress))
            return fail(
                QStringLiteral("%1: polling address %2 is taken by another device").arg(where).arg(pollingAddress));
        taken.insert(pollingAddress);

        QVariantMap settings;
        for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
            if (it.key() != QLatin1String("model") && it.key() != QLatin1String("faults"))
                settings.insert(it.key(), it.value().toVariant());
        }
        std::unique_ptr<SimDevice> device = SimDevice::create(model.toString(), settings, &text);
        if (!device)
            return fail(QStringLiteral("%1: %2").arg(where, text));
        if (device->pollingAddress() != pollingAddress)
            return fail(
                QStringLiteral("%1: the device did not take polling address %2").arg(where).arg(pollingAddress));

        if (object.contains(QLatin1String("faults"))) {
            const QJsonValue faults = object.value(QLatin1String("faults"));
            if (!faults.isArray())
                return fail(QStringLiteral("%1: \"faults\" must be an array, not %2").arg(where, typeName(faults)));
            const QJsonArray faultList = faults.toArray();
            for (int f = 0; f < faultList.size(); ++f) {
                Fault fault;
                if (!readFault(faultList.at(f), QStringLiteral("%1: faults[%2]").arg(where).arg(f), pollingAddress,
                               &fault, &text))
                    return fail(text);
                m_faults << fault;
            }
        }
        m_devices.push_back(std::move(device));
    }
    return true;
}

QList<int> Scenario::pollingAddresses() const
{
    QList<int> addresses;
    for (const auto& device : m_devices)
        addresses << device->pollingAddress();
    return addresses;
}

bool Scenario::apply(SimLine& line, QString* error)
{
    const QList<int> present = line.pollingAddresses();
    for (const auto& device : m_devices) {
        if (present.contains(device->pollingAddress())) {
            if (error)
                *error =
                    QStringLiteral("polling address %1 is already taken on the line").arg(device->pollingAddress());
            return false;
        }
    }
    for (auto& device : m_devices) {
        QString text;
        if (!line.addDevice(std::move(device), &text)) {
            // Only a device added by another thread meanwhile can get here.
            if (error)
                *error = text;
            m_devices.clear();
            return false;
        }
    }
    m_devices.clear();
    for (const Fault& fault : m_faults)
        line.addFault(fault);
    if (m_hasTiming)
        line.setTiming(m_timing);
    if (m_hasTurnaround)
        line.setTurnaroundMs(m_turnaroundMs);
    return true;
}

bool Scenario::load(const QString& path, SimLine& line, QString* error)
{
    Scenario scenario;
    return scenario.loadFile(path, error) && scenario.apply(line, error);
}

QString Scenario::formatHelp()
{
    return QStringLiteral(
        R"(Scenario files
  A scenario is one JSON object:
    {
        "description": "free text",
        "timing": "line",
        "turnaround_ms": 20,
        "devices": [
            { "model": "TCV-C", "polling_address": 0, "tag": "TT-101",
              "faults": [ { "kind": "split", "command": 3, "count": 1, "at": 5, "pause_ms": 30 } ] }
        ]
    }

  Top-level keys:
    description     string, optional: a note for the reader.
    timing          "fast" or "line", optional (default "fast"). "fast" answers at
                    once; "line" keeps the times of a 1200-baud line (11 bits a
                    character, about 9.17 ms a byte): the request's own time on the
                    wire, the turnaround, then the answer byte by byte.
    turnaround_ms   integer 0..10000, optional (default 20): pause between the end
                    of a request and the start of its answer ("line" timing).
    devices         array, required: one object for each device.

  Device keys:
    model           string, required: the model (see Models).
    polling_address integer 0..63, required, unique on the line.
    faults          array of fault objects, optional.
    any other key   a device parameter ("tag", "long_tag", "descriptor", "message",
                    "date", "device_id", "range_max", "write_protection", ...);
                    unknown keys and values of the wrong type are refused.

  Fault keys (a fault acts on the answers of the device it is listed under):
    kind            string, required: one of the kinds below.
    command         integer 0..255, optional: only answers to this command
                    (default: every command).
    count           integer >= 0, optional: how many answers it spoils; 0, the
                    default, for all of them.
  Fault kinds, with their own keys:
    no_answer       the device does not see the request and sends nothing.
    bad_checksum    the checksum byte of the answer is inverted.
    noise           noise: hexadecimal string ("00 3A 7E"), required: these bytes
                    go out before the preambles.
    split           at: integer >= 1, pause_ms: integer >= 0, both required: the
                    answer goes out in two, the second part from byte "at" on
                    (counting every byte sent), "pause_ms" later.
    delay           delay_ms: integer >= 0, required: the answer starts later.
    wrong_address   the lowest bit of the last address byte of the answer is
                    flipped, as if another device answered.
    burst           bit 6 of the first address byte (the burst bit) is set.
    response_code   code: integer 0..255, required; keep_data: true or false,
                    optional (default false): the answer carries this response
                    code, and its data only with keep_data.
    preambles       preambles: integer 0..255, required: the answer has this many
                    preambles instead of the device's.
    wrong_command   the answer carries the command number plus one.
    truncate        length: integer >= 0, required: the answer is cut to its
                    first "length" bytes (preambles included).

  Any other key, a value of the wrong type or out of range, an unknown model or
  fault kind, two devices at one polling address, a missing file or a JSON syntax
  error (reported with its line) is an error, and nothing is loaded.
)");
}

} // namespace hartsim
