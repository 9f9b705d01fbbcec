#include "tag.h"

#include "debugqt.h"
#include "device.h"
#include "utils.h"

#include <QRegularExpression>
#include <QThread>
#include <QtEndian>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

const char* const TypeNames[] = {"bool", "int16", "uint16", "int32", "uint32", "float32", "float64"};
const int TypeLengths[] = {1, 2, 2, 4, 4, 4, 8};
const int TypeCount = 7;
const char* const AccessNames[] = {"ReadOnly", "WriteOnly", "ReadWrite"};
const int AccessCount = 3;

// A number of a variant for the integer device types: whole numbers as they
// are, fractions cut toward zero, and what is no number at all as 0.
qint64 integerOf(const QVariant& value)
{
    bool ok = false;
    if (value.typeId() != QMetaType::Double && value.typeId() != QMetaType::Float) {
        const qint64 number = value.toLongLong(&ok);
        if (ok)
            return number;
    }
    const double number = value.toDouble(&ok);
    if (!ok || std::isnan(number))
        return 0;
    if (number >= 9.2e18)
        return std::numeric_limits<qint64>::max();
    if (number <= -9.2e18)
        return std::numeric_limits<qint64>::min();
    return qint64(number);
}

// Shifts that give 0 when every bit is shifted out, and leave the value
// alone for a negative count, which only a window outside the value makes.
quint64 shiftLeft(quint64 value, int count)
{
    if (count <= 0)
        return value;
    return count >= 64 ? 0 : value << count;
}

quint64 shiftRight(quint64 value, int count)
{
    if (count <= 0)
        return value;
    return count >= 64 ? 0 : value >> count;
}

} // namespace

// ---------------------------------------------------------------------------
// Type names

QString Tag::serverTypeToString(int type)
{
    return type >= 0 && type < TypeCount ? QString::fromLatin1(TypeNames[type]) : QStringLiteral("Invalid");
}

Tag::ServerType Tag::serverTypeFromString(const QString& text)
{
    for (int i = 0; i < TypeCount; ++i) {
        if (text == QLatin1String(TypeNames[i]))
            return ServerType(i);
    }
    return ServerInvalid;
}

QString Tag::deviceTypeToString(int type)
{
    if (type == DeviceBit)
        return QStringLiteral("bit");
    return serverTypeToString(type);
}

Tag::DeviceType Tag::deviceTypeFromString(const QString& text)
{
    if (text == QLatin1String("bit"))
        return DeviceBit;
    const ServerType type = serverTypeFromString(text);
    // "bool" names the server type only.
    return type == ServerBool || type == ServerInvalid ? DeviceInvalid : DeviceType(type);
}

int Tag::deviceTypeLength(int type)
{
    return type >= 0 && type < TypeCount ? TypeLengths[type] : 0;
}

QString Tag::accessToString(int access)
{
    return access >= 0 && access < AccessCount ? QString::fromLatin1(AccessNames[access]) : QStringLiteral("Invalid");
}

Tag::OpcAccessType Tag::accessFromString(const QString& text)
{
    for (int i = 0; i < AccessCount; ++i) {
        if (text == QLatin1String(AccessNames[i]))
            return OpcAccessType(i);
    }
    return AccessInvalid;
}

// ---------------------------------------------------------------------------

Tag::Tag(ServerItem* parent) : ServerItem(parent), m_value(0.0)
{
    const Device* owner = device();
    setName(createUniqName(QStringLiteral("Tag%1")));
    setProperty("priority", owner ? owner->priority() : 0);
    setProperty("period", owner ? owner->pollingPeriod() : 1000);
    setProperty("comment", QString());
    setProperty("read_func", 0);
    setProperty("write_func", 0);
    setProperty("byteorder", QStringLiteral("0123"));
    setProperty("byteorder_enabled", false);
    setProperty("modified", false);
    setProperty("values_prefix", QString());
    setProperty("value", 0.0);
}

Tag::~Tag()
{
    emit deleting(this);
    releaseRequest();
}

Device* Tag::device() const
{
    return qobject_cast<Device*>(parentItem());
}

QString Tag::fullName() const
{
    const ServerItem* owner = parentItem();
    return owner ? owner->fullName() + QLatin1Char('/') + name() : name();
}

int Tag::processingTime() const
{
    const Device* owner = device();
    return owner ? owner->processingTime() : 0;
}

// ---------------------------------------------------------------------------
// Address and value

int Tag::address() const
{
    static const QRegularExpression hex(
        QRegularExpression::anchoredPattern(QStringLiteral("(0[xX][0-9a-fA-F]+)|([0-9a-fA-F]+[hH])")));
    bool ok = false;
    int number = 0;
    if (hex.match(m_address).hasMatch()) {
        QString digits = m_address;
        if (digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
            digits = digits.mid(2);
        digits.remove(QLatin1Char('h'), Qt::CaseInsensitive);
        number = digits.toInt(&ok, 16);
    } else {
        number = m_address.toInt(&ok, 10);
    }
    return ok ? number : 0;
}

QVariant Tag::value() const
{
    QReadLocker locker(&m_valueLock);
    return m_value;
}

void Tag::setValue(const QVariant& value)
{
    {
        QWriteLocker locker(&m_valueLock);
        m_value = value;
        QWriteLocker timeLocker(&m_timestampLock);
        m_timestamp = QDateTime::currentDateTime();
    }
    emit valueChanged(value);
}

void Tag::writeValueScheduled(const QVariant& value)
{
    {
        QWriteLocker locker(&m_valueLock);
        m_value = value;
    }
    emit writeRequest();
}

QDateTime Tag::timestamp() const
{
    QReadLocker locker(&m_timestampLock);
    return m_timestamp;
}

void Tag::setTimeStamp(const QDateTime& timestamp)
{
    QWriteLocker locker(&m_timestampLock);
    m_timestamp = timestamp;
}

QString Tag::valueFromValues() const
{
    const QString text = value().toString();
    if (m_values.isEmpty())
        return text;
    static const QRegularExpression digits(QRegularExpression::anchoredPattern(QStringLiteral("[0-9]*")));
    if (!digits.match(text).hasMatch())
        return m_values.contains(text) ? m_values.value(text).toString() : text;
    const QString prefix = property("values_prefix").toString();
    const QString key = prefix + text;
    if (m_values.contains(key))
        return m_values.value(key).toString();
    const QString zeroKey = prefix + QLatin1Char('0') + text;
    if (m_values.contains(zeroKey))
        return m_values.value(zeroKey).toString();
    return text;
}

QString Tag::configGroupID() const
{
    return m_configGroup.size() == 2 ? m_configGroup.at(0) : QString();
}

QString Tag::configGroupName() const
{
    return m_configGroup.size() == 2 ? m_configGroup.at(1) : QString();
}

bool Tag::isChannel() const
{
    return configGroupID().toLower() == QLatin1String("channel");
}

bool Tag::isValueNaN() const
{
    const QString text = value().toString();
    return text == QLatin1String("nan") || text.contains(QLatin1String("inf"));
}

bool Tag::isValueLimitsOut() const
{
    if (m_limits.size() != 2)
        return false;
    const double number = value().toDouble();
    return number < m_limits.at(0).toDouble() || number > m_limits.at(1).toDouble();
}

QList<Tag*> Tag::tags() const
{
    return {const_cast<Tag*>(this)};
}

QList<Tag*> Tag::activeTags() const
{
    return isEnabled() ? QList<Tag*>{const_cast<Tag*>(this)} : QList<Tag*>();
}

// ---------------------------------------------------------------------------
// Bit window

void Tag::setExtractBitFrom(int bit)
{
    const int width = deviceTypeLength(m_deviceType) * 8;
    if (width > 0) {
        if (bit >= width)
            bit = width - 1;
    } else if (bit >= 0) {
        bit = -1;
    }
    m_extractBitFrom = bit;
    if (m_extractBitTo < m_extractBitFrom)
        m_extractBitTo = m_extractBitFrom;
}

void Tag::setExtractBitTo(int bit)
{
    const int width = deviceTypeLength(m_deviceType) * 8;
    // The upper end may stand one past the last bit.
    if (width > 0) {
        if (bit > width)
            bit = width;
    } else if (bit > 0) {
        bit = 0;
    }
    m_extractBitTo = bit;
    if (m_extractBitFrom > m_extractBitTo)
        m_extractBitFrom = m_extractBitTo;
}

quint64 Tag::extractBits(quint64 value) const
{
    const int length = m_extractBitTo - m_extractBitFrom + 1;
    return shiftRight(shiftLeft(value, 64 - m_extractBitFrom - length), 64 - length);
}

// ---------------------------------------------------------------------------
// Read and write on the raw buffer

QVariant Tag::read()
{
    if (m_opcAccess == WriteOnly) {
        setErrorCode(3);
        setErrorText(getErrorString(3, 0));
        releaseRequest();
        return QVariant();
    }
    if (m_requestDelay > 0)
        mySleep(m_requestDelay);

    if (m_serverType == ServerBool) {
        setValue(!m_rawBuffer.isEmpty() && m_rawBuffer.at(0) != 0);
    } else {
        const int length = deviceTypeLength(m_deviceType);
        // An invalid device type reads nothing and leaves the value.
        if (length > 0) {
            // The raw buffer holds the value with its lowest byte first.
            uchar area[8] = {};
            std::memcpy(area, m_rawBuffer.constData(), size_t(qMin<qsizetype>(length, m_rawBuffer.size())));
            quint64 bits = qFromLittleEndian<quint64>(area);
            if (m_useBitExtraction)
                bits = extractBits(bits);
            QVariant result;
            switch (m_deviceType) {
            case DeviceBit:
                result = bits != 0;
                break;
            case DeviceInt16:
                result = int(qint16(quint16(bits)));
                break;
            case DeviceUInt16:
                result = uint(quint16(bits));
                break;
            case DeviceInt32:
                result = int(qint32(quint32(bits)));
                break;
            case DeviceUInt32:
                result = uint(quint32(bits));
                break;
            case DeviceFloat32: {
                const quint32 word = quint32(bits);
                float number = 0.0f;
                std::memcpy(&number, &word, sizeof(number));
                result = number;
                break;
            }
            case DeviceFloat64: {
                double number = 0.0;
                std::memcpy(&number, &bits, sizeof(number));
                result = number;
                break;
            }
            case DeviceInvalid:
                break;
            }
            setValue(result);
        }
    }
    finishRequest(1, "error reading tag '%1' - %2", QString());
    return value();
}

bool Tag::write(const QVariant& value)
{
    if (m_opcAccess != WriteOnly && m_opcAccess != ReadWrite) {
        setErrorCode(3);
        setErrorText(getErrorString(3, 0));
        releaseRequest();
        return false;
    }
    setValue(value);

    int code = 1;
    QString error;
    QByteArray raw;
    if (deviceTypeLength(m_deviceType) == 0) {
        code = 3;
        error = tr("Invalid device type of tag '%1'").arg(name());
    }
    if (code == 1) {
        switch (m_deviceType) {
        case DeviceBit:
            raw = QByteArray(1, value.toBool() ? '\1' : '\0');
            break;
        case DeviceInt16:
        case DeviceUInt16: {
            const quint16 word = quint16(integerOf(value));
            raw.resize(2);
            qToLittleEndian(word, raw.data());
            break;
        }
        case DeviceInt32:
        case DeviceUInt32: {
            const quint32 word = quint32(integerOf(value));
            raw.resize(4);
            qToLittleEndian(word, raw.data());
            break;
        }
        case DeviceFloat32: {
            const float number = float(value.toDouble());
            quint32 word = 0;
            std::memcpy(&word, &number, sizeof(word));
            raw.resize(4);
            qToLittleEndian(word, raw.data());
            break;
        }
        case DeviceFloat64: {
            const double number = value.toDouble();
            quint64 word = 0;
            std::memcpy(&word, &number, sizeof(word));
            raw.resize(8);
            qToLittleEndian(word, raw.data());
            break;
        }
        case DeviceInvalid:
            break;
        }
        m_rawBuffer = raw;
    }
    if (m_requestDelay > 0)
        mySleep(m_requestDelay);
    finishRequest(code, "error writing tag '%1' - %2", error);
    return errorCode() == 1;
}

void Tag::finishRequest(int code, const char* pattern, const QString& error)
{
    if (!error.isEmpty()) {
        setErrorText(error);
    } else {
        const Device* owner = device();
        setErrorText(owner ? owner->errorText() : QString());
    }
    updateState(code);
    if (code != 1) {
        QString text = errorText();
        text.replace(QLatin1Char('\n'), QLatin1String("d - "));
        DBG(LevelErr) << QString::fromLatin1(pattern).arg(fullName(), text);
    }
    releaseRequest();
}

void Tag::tagRequesting()
{
    m_requestMutex.lock();
    m_requestOwner.storeRelease(QThread::currentThread());
}

void Tag::waitTagRequested()
{
    m_requestMutex.lock();
    m_requestDone.wait(&m_requestMutex);
    m_requestMutex.unlock();
}

void Tag::releaseRequest()
{
    m_requestDone.wakeAll();
    // Only the thread that took the mutex in tagRequesting() gives it back;
    // a read or write without it leaves the mutex alone.
    if (m_requestOwner.testAndSetOrdered(QThread::currentThread(), nullptr))
        m_requestMutex.unlock();
}

void Tag::appendModbusMessage(const QString& text)
{
    m_messageLog.append(text);
    while (!m_messageLog.isEmpty() && m_messageLog.size() > qMax(0, m_messageLogDepth))
        m_messageLog.removeFirst();
}

// ---------------------------------------------------------------------------
// Configuration

bool Tag::load(const QMap<QString, QVariant>& map)
{
    const QString newName = map.value(QStringLiteral("name")).toString();
    if (!newName.isEmpty())
        setName(newName);
    setProperty("enabled", map.value(QStringLiteral("enabled")).toBool());
    m_address = map.value(QStringLiteral("address")).toString();
    setProperty("priority", map.value(QStringLiteral("priority")).toInt());
    setProperty("period", map.value(QStringLiteral("polling_period")).toInt());
    // The types first: they bound the bit window.
    m_serverType = serverTypeFromString(map.value(QStringLiteral("server_type")).toString());
    m_deviceType = deviceTypeFromString(map.value(QStringLiteral("device_type")).toString());
    m_opcAccess = accessFromString(map.value(QStringLiteral("access")).toString());
    setProperty("comment", map.value(QStringLiteral("comment")).toString());
    setProperty("read_func", map.value(QStringLiteral("read_func")).toInt());
    setProperty("write_func", map.value(QStringLiteral("write_func")).toInt());
    // "byteorder" and "byteorder_enabled" are written and never read back.
    m_useBitExtraction = map.value(QStringLiteral("use_bit_extraction")).toBool();
    m_extractBitFrom = 0;
    m_extractBitTo = 0;
    setExtractBitFrom(map.value(QStringLiteral("extract_bit_from")).toInt());
    setExtractBitTo(map.value(QStringLiteral("extract_bit_to")).toInt());

    if (map.contains(QStringLiteral("config_group"))) {
        const QVariant group = map.value(QStringLiteral("config_group"));
        m_configGroup = group.typeId() == QMetaType::QVariantList || group.typeId() == QMetaType::QStringList
                            ? group.toStringList()
                            : QStringList();
    }
    if (map.contains(QStringLiteral("value")))
        setValue(map.value(QStringLiteral("value")));
    else
        setValue(0);
    const QVariant limits = map.value(QStringLiteral("limits"));
    m_limits = limits.typeId() == QMetaType::QVariantList ? limits.toList() : QVariantList();
    const QVariant values = map.value(QStringLiteral("values"));
    m_values = values.typeId() == QMetaType::QVariantMap ? values.toMap() : QVariantMap();
    setProperty("modified", map.value(QStringLiteral("modified")).toBool());
    return true;
}

QMap<QString, QVariant> Tag::save() const
{
    QVariantMap map;
    map.insert(QStringLiteral("name"), name());
    map.insert(QStringLiteral("enabled"), isEnabled());
    map.insert(QStringLiteral("address"), m_address);
    map.insert(QStringLiteral("priority"), property("priority").toInt());
    map.insert(QStringLiteral("polling_period"), property("period").toInt());
    map.insert(QStringLiteral("server_type"), serverTypeToString(m_serverType));
    map.insert(QStringLiteral("device_type"), deviceTypeToString(m_deviceType));
    map.insert(QStringLiteral("access"), accessToString(m_opcAccess));
    map.insert(QStringLiteral("comment"), property("comment").toString());
    map.insert(QStringLiteral("read_func"), property("read_func").toInt());
    map.insert(QStringLiteral("write_func"), property("write_func").toInt());
    map.insert(QStringLiteral("byteorder"), property("byteorder").toString());
    map.insert(QStringLiteral("byteorder_enabled"), property("byteorder_enabled").toBool());
    map.insert(QStringLiteral("use_bit_extraction"), m_useBitExtraction);
    map.insert(QStringLiteral("extract_bit_from"), m_extractBitFrom);
    map.insert(QStringLiteral("extract_bit_to"), m_extractBitTo);
    QVariantList group;
    for (const QString& entry : m_configGroup)
        group << entry;
    map.insert(QStringLiteral("config_group"), group);
    // The file's JSON has no NaN or infinity.
    QVariant current = value();
    if ((current.typeId() == QMetaType::Double || current.typeId() == QMetaType::Float) &&
        !std::isfinite(current.toDouble()))
        current = 0.0;
    map.insert(QStringLiteral("value"), current);
    map.insert(QStringLiteral("limits"), m_limits);
    map.insert(QStringLiteral("values"), m_values);
    map.insert(QStringLiteral("modified"), property("modified").toBool());
    return map;
}
