#include "device.h"

#include "configvalue.h"
#include "debugqt.h"
#include "port.h"
#include "tag.h"
#include "utils.h"

#include <QDate>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSemaphore>

#include <algorithm>
#include <cmath>

namespace {

constexpr int NotUsedSlot = 250;             // slot code of a device variable that is not used
constexpr int MoreStatusAvailable = 0x10;    // bit of the device status byte
constexpr int MaxStatusAcknowledgeDepth = 3; // nested command 48 rounds of checkAdditionalStatus

// Holds one permit of a port's semaphore for the length of a scope.
class PermitHolder
{
public:
    explicit PermitHolder(QSemaphore* semaphore) : m_semaphore(semaphore)
    {
        if (m_semaphore)
            m_semaphore->acquire();
    }
    ~PermitHolder()
    {
        if (m_semaphore)
            m_semaphore->release();
    }
    PermitHolder(const PermitHolder&) = delete;
    PermitHolder& operator=(const PermitHolder&) = delete;

private:
    QSemaphore* m_semaphore;
};

// Response fields; bytes beyond the end of the response read as 0.
int byteAt(const QByteArray& buffer, int offset)
{
    return offset >= 0 && offset < buffer.size() ? int(quint8(buffer.at(offset))) : 0;
}

QByteArray chunkAt(const QByteArray& buffer, int offset, int size)
{
    QByteArray chunk = offset < buffer.size() ? buffer.mid(offset, size) : QByteArray();
    if (chunk.size() < size)
        chunk.append(QByteArray(size - chunk.size(), '\0'));
    return chunk;
}

float floatAt(const QByteArray& buffer, int offset)
{
    return Port::getFloatFromBufferByOffset(chunkAt(buffer, offset, 4), 0);
}

unsigned int uintAt(const QByteArray& buffer, int offset, int size)
{
    const unsigned int value =
        static_cast<unsigned int>(Port::getIntFromBufferByOffset(chunkAt(buffer, offset, size), 0, size));
    return size >= 4 ? value : value & ((1u << (8 * size)) - 1u);
}

QString hexBytes(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

// The parameters that are byte arrays in memory; the file keeps them as
// text of "0xHHh" groups.
const QStringList& byteArrayKeys()
{
    static const QStringList keys = {QStringLiteral("address"), QStringLiteral("deviceID"), QStringLiteral("vendorID"),
                                     QStringLiteral("expanded_device_type"), QStringLiteral("device_specific_status")};
    return keys;
}

} // namespace

Device::Device(ServerItem* parent) : ServerItem(parent)
{
    setName(createUniqName(QStringLiteral("Device%1")));
    setProperty("address", 0);
    setProperty("polling_period", 1000);
    setProperty("request_timeout", 0);
    setProperty("responce_timeout", 0);
    setProperty("byte_timeout", 0);
    setProperty("close_port_if_error", false);
    setProperty("producer", QString());
    setProperty("comment", QString());
    setProperty("variant", QString());
    const QVariant parentPriority = parent ? parent->property("priority") : QVariant();
    setProperty("priority", parentPriority.isValid() ? parentPriority.toInt() : 10);
}

Device::~Device() = default;

Port* Device::port() const
{
    ServerItem* parent = parentItem();
    return parent && parent->type() == TypePort ? static_cast<Port*>(parent) : nullptr;
}

QString Device::fullName() const
{
    const Port* p = port();
    return p ? p->fullName() + QLatin1Char('/') + name() : name();
}

ServerItem* Device::createChild()
{
    return new Tag(this);
}

// ---------------------------------------------------------------------------
// The device-information map

QVariant Device::getDeviceInfo(const QString& key)
{
    auto it = m_deviceInfo.find(key);
    if (it == m_deviceInfo.end())
        it = m_deviceInfo.insert(key, QVariant());
    return it.value();
}

int Device::getDeviceInfoByte(const QString& key)
{
    return getDeviceInfo(key).toInt();
}

float Device::getDeviceInfoFloat(const QString& key)
{
    return getDeviceInfo(key).toFloat();
}

QString Device::getDeviceInfoString(const QString& key)
{
    return getDeviceInfo(key).toString();
}

QByteArray Device::getDeviceInfoByteArray(const QString& key)
{
    return getDeviceInfo(key).toByteArray();
}

void Device::setDeviceInfo(const QString& key, const QVariant& value)
{
    m_deviceInfo.insert(key, value);
}

void Device::removeDeviceInfo(const QString& key)
{
    m_deviceInfo.remove(key);
}

bool Device::hasDeviceInfoParam(const QString& key) const
{
    return m_deviceInfo.contains(key);
}

void Device::removeAllSlotesInfo()
{
    static const QRegularExpression slotKey(
        QRegularExpression::anchoredPattern(QStringLiteral("slot_\\d+_(code|class|unit_code|value|status)")));
    for (auto it = m_deviceInfo.begin(); it != m_deviceInfo.end();) {
        if (slotKey.match(it.key()).hasMatch())
            it = m_deviceInfo.erase(it);
        else
            ++it;
    }
}

void Device::sendModbusMessage(const QString& text)
{
    appendModbusMessage(text);
    emit modbusMessage(address(), text);
}

void Device::appendModbusMessage(const QString& text)
{
    m_messageLog.append(text);
    while (m_messageLog.size() > m_messageLogDepth)
        m_messageLog.removeFirst();
}

void Device::setMessageLogDepth(int depth)
{
    m_messageLogDepth = std::max(1, depth);
    while (m_messageLog.size() > m_messageLogDepth)
        m_messageLog.removeFirst();
}

// ---------------------------------------------------------------------------
// Settings and names

void Device::checkAndSetPortTimeouts()
{
    Port* p = port();
    if (!p)
        return;
    if (responceTimeout() > 0 && responceTimeout() != p->hart().responseTimeout())
        p->hart().setResponseTimeout(responceTimeout());
    if (byteTimeout() > 0 && byteTimeout() != p->hart().byteTimeout())
        p->hart().setByteTimeout(byteTimeout());
}

void Device::incrementModifyCount()
{
    setDeviceInfo(QStringLiteral("modify_count"), getDeviceInfoByte(QStringLiteral("modify_count")) + 1);
}

bool Device::setDeviceName(const QString& name, bool onlyCheck)
{
    if (name.isEmpty() || !isNameValid(name))
        return false;
    if (!onlyCheck)
        setName(name);
    return true;
}

void Device::updateDeviceName()
{
    const QString tag = m_deviceInfo.value(QStringLiteral("tag")).toString();
    const QString newName =
        QStringLiteral("%1 {%2}").arg(m_deviceTemplateName, tag.isEmpty() ? QString::number(address()) : tag);
    // setName cleans the blanks out; the cleaned name is the one that must be free.
    if (isNameValid(validName(newName)))
        setName(newName);
}

void Device::setCommentFromDeviceInfo(const QString& key)
{
    setComment(m_deviceInfo.value(key).toString());
}

void Device::setDeviceTemplateName(const QString& name)
{
    m_deviceTemplateName = name;
    emit deviceTemplateChanged(name);
}

QString Device::deviceTagsStateToShortString() const
{
    QString marks;
    if (m_deviceTagState & TagStateRead)
        marks += QLatin1Char('>');
    if (m_deviceTagState & TagStateChanged)
        marks += QLatin1Char('*');
    if (m_deviceTagState & TagStateWritten)
        marks += QLatin1Char('<');
    if (m_deviceTagState & TagStatePolled)
        marks += QLatin1Char('@');
    if (m_deviceTagState & TagStateArchived)
        marks += QLatin1Char('!');
    return marks.isEmpty() ? QString() : QStringLiteral("[%1]").arg(marks);
}

QString Device::deviceTagsStateToLongString() const
{
    QStringList words;
    words << ((m_deviceTagState & TagStateRead) ? tr("form device") : tr("from file"));
    if (m_deviceTagState & TagStateChanged)
        words << tr("changed");
    if (m_deviceTagState & TagStateWritten)
        words << tr("saved in device");
    if (m_deviceTagState & TagStatePolled)
        words << tr("periodically requested");
    return words.join(QStringLiteral(" / "));
}

void Device::checkOffDevice()
{
    m_hartAddress.clear();
    m_hartDeviceID.clear();
    m_deviceInfo.insert(QStringLiteral("address"), QByteArray());
    m_deviceInfo.insert(QStringLiteral("deviceID"), QByteArray());
    m_deviceTagState = TagStateNone;
    setErrorText(QString());
    resetState();
}

int Device::address() const
{
    return property("address").toInt();
}

void Device::setAddress(int pollingAddress)
{
    setProperty("address", pollingAddress);
}

int Device::pollingPeriod() const
{
    return property("polling_period").toInt();
}

void Device::setPollingPeriod(int ms)
{
    setProperty("polling_period", ms);
}

int Device::requestTimeout() const
{
    return property("request_timeout").toInt();
}

void Device::setRequestTimeout(int ms)
{
    setProperty("request_timeout", ms);
}

int Device::responceTimeout() const
{
    return property("responce_timeout").toInt();
}

void Device::setResponceTimeout(int ms)
{
    setProperty("responce_timeout", ms);
}

int Device::byteTimeout() const
{
    return property("byte_timeout").toInt();
}

void Device::setByteTimeout(int ms)
{
    setProperty("byte_timeout", ms);
}

bool Device::closePortOnError() const
{
    return property("close_port_if_error").toBool();
}

void Device::setClosePortOnError(bool close)
{
    setProperty("close_port_if_error", close);
}

QString Device::producer() const
{
    return property("producer").toString();
}

void Device::setProducer(const QString& producer)
{
    setProperty("producer", producer);
}

QString Device::comment() const
{
    return property("comment").toString();
}

void Device::setComment(const QString& comment)
{
    setProperty("comment", comment);
}

QString Device::variant() const
{
    return property("variant").toString();
}

void Device::setVariant(const QString& variant)
{
    setProperty("variant", variant);
}

int Device::priority() const
{
    return property("priority").toInt();
}

void Device::setPriority(int priority)
{
    setProperty("priority", priority);
}

// ---------------------------------------------------------------------------
// The configuration file

bool Device::isByteArrayParameter(const QString& key) const
{
    return byteArrayKeys().contains(key);
}

QVariantMap Device::parametersForFile() const
{
    QVariantMap parameters;
    for (auto it = m_deviceInfo.constBegin(); it != m_deviceInfo.constEnd(); ++it) {
        // Metrology access is a state of the instrument's session, which
        // ends with the program: it is not part of the configuration.
        if (it.key() == QLatin1String("metrology_access"))
            continue;
        const QVariant& value = it.value();
        switch (value.typeId()) {
        case QMetaType::QByteArray: {
            // JSON has no bytes: hexadecimal text that reads back exactly.
            const QByteArray bytes = value.toByteArray();
            parameters.insert(it.key(), byteBufferToString16(bytes.constData(), int(bytes.size())));
            break;
        }
        case QMetaType::Float:
        case QMetaType::Double: {
            // JSON has no NaN and no infinity.
            const double number = value.toDouble();
            parameters.insert(it.key(), std::isfinite(number) ? value : QVariant(0.0));
            break;
        }
        case QMetaType::QDate:
            parameters.insert(it.key(), value.toDate().toString(Qt::ISODate));
            break;
        default:
            parameters.insert(it.key(), value);
            break;
        }
    }
    return parameters;
}

QVariantMap Device::parametersFromFile(const QVariantMap& parameters, QStringList* badKeys) const
{
    static const QRegularExpression hexBytesText(
        QRegularExpression::anchoredPattern(QStringLiteral("(0[xX][0-9a-fA-F]{2}[hH])( 0[xX][0-9a-fA-F]{2}[hH])*")));
    QVariantMap info;
    for (auto it = parameters.constBegin(); it != parameters.constEnd(); ++it) {
        QVariant value = it.value();
        if (value.isNull() || value.typeId() == QMetaType::Nullptr) {
            value = QVariant();
        } else if (isByteArrayParameter(it.key())) {
            if (value.typeId() == QMetaType::QByteArray) {
                // already bytes: a map that never went through a file
            } else if (ConfigValue::isText(value) &&
                       (value.toString().isEmpty() || hexBytesText.match(value.toString()).hasMatch())) {
                value = stringToByteArray(value.toString());
            } else {
                // Never guess bytes out of another form: an identity made up
                // of them would address some other device.
                badKeys->append(it.key());
                value = QByteArray();
            }
        } else if (it.key() == QLatin1String("date") && ConfigValue::isText(value)) {
            const QDate date = QDate::fromString(value.toString(), Qt::ISODate);
            if (date.isValid() || value.toString().isEmpty())
                value = date;
        }
        info.insert(it.key(), value);
    }
    return info;
}

QMap<QString, QVariant> Device::save() const
{
    QVariantMap map;
    map.insert(QStringLiteral("name"), name());
    map.insert(QStringLiteral("enabled"), isEnabled());
    map.insert(QStringLiteral("priority"), priority());
    map.insert(QStringLiteral("polling_period"), pollingPeriod());
    map.insert(QStringLiteral("polling_address"), address());
    map.insert(QStringLiteral("template"), m_deviceTemplateName);
    map.insert(QStringLiteral("comment"), comment());
    if (!variant().isEmpty())
        map.insert(QStringLiteral("variant"), variant());
    map.insert(QStringLiteral("parameters"), parametersForFile());
    if (!m_measureInfo.isEmpty())
        map.insert(QStringLiteral("measure_info"), m_measureInfo);
    return map;
}

void Device::reportBadKey(const QString& key, const QVariant& value)
{
    DBG(LevelErr) << "device" << name() << ": key" << key << "has a value of the wrong type (" << value.typeName()
                  << "), ignored";
}

bool Device::load(const QMap<QString, QVariant>& map)
{
    m_loading = true;
    emit tagsDeleting();
    bool allRead = true;
    auto bad = [&](const QString& key) {
        reportBadKey(key, map.value(key));
        allRead = false;
    };
    int number = 0;

    const QString nameKey = QStringLiteral("name");
    if (map.contains(nameKey)) {
        if (ConfigValue::isText(map.value(nameKey)) && !map.value(nameKey).toString().isEmpty())
            setName(map.value(nameKey).toString());
        else
            bad(nameKey);
    }
    const QString periodKey = QStringLiteral("polling_period");
    if (map.contains(periodKey)) {
        if (ConfigValue::toInt(map.value(periodKey), &number))
            setPollingPeriod(number);
        else
            bad(periodKey);
    }
    const QString addressKey = QStringLiteral("polling_address");
    if (map.contains(addressKey)) {
        if (ConfigValue::toInt(map.value(addressKey), &number))
            setAddress(number);
        else
            bad(addressKey);
    }
    const QString templateKey = QStringLiteral("template");
    if (map.contains(templateKey)) {
        if (ConfigValue::isText(map.value(templateKey)))
            setDeviceTemplateName(map.value(templateKey).toString());
        else
            bad(templateKey);
    }
    const QString commentKey = QStringLiteral("comment");
    if (map.contains(commentKey)) {
        if (ConfigValue::isText(map.value(commentKey)))
            setComment(map.value(commentKey).toString());
        else
            bad(commentKey);
    }
    const QString variantKey = QStringLiteral("variant");
    if (map.contains(variantKey)) {
        if (ConfigValue::isText(map.value(variantKey)))
            setVariant(map.value(variantKey).toString());
        else
            bad(variantKey);
    }
    const QString producerKey = QStringLiteral("producer");
    if (map.contains(producerKey)) {
        if (ConfigValue::isText(map.value(producerKey)))
            setProducer(map.value(producerKey).toString());
        else
            bad(producerKey);
    }
    const QString parametersKey = QStringLiteral("parameters");
    if (map.contains(parametersKey)) {
        if (ConfigValue::isMap(map.value(parametersKey))) {
            QStringList badParameters;
            m_deviceInfo = parametersFromFile(map.value(parametersKey).toMap(), &badParameters);
            for (const QString& key : badParameters) {
                reportBadKey(parametersKey + QLatin1Char('/') + key, map.value(parametersKey).toMap().value(key));
                allRead = false;
            }
        } else {
            bad(parametersKey);
        }
    }
    const QString measureKey = QStringLiteral("measure_info");
    if (map.contains(measureKey)) {
        if (ConfigValue::isMap(map.value(measureKey)))
            m_measureInfo = map.value(measureKey).toMap();
        else
            bad(measureKey);
    }

    m_hartAddress = m_deviceInfo.value(QStringLiteral("address")).toByteArray();
    m_hartDeviceID = m_deviceInfo.value(QStringLiteral("deviceID")).toByteArray();
    if (m_deviceInfo.contains(QStringLiteral("vendorID")))
        m_vendorID = m_deviceInfo.value(QStringLiteral("vendorID")).toByteArray();
    if (m_deviceInfo.contains(QStringLiteral("expanded_device_type")))
        m_expandedDeviceType = m_deviceInfo.value(QStringLiteral("expanded_device_type")).toByteArray();

    updateDeviceName();
    m_loading = false;
    return allRead;
}

void Device::loadDeviceSettings(const QVariantMap& map)
{
    int number = 0;
    bool flag = false;
    auto take = [&](const char* key, auto apply) {
        const QString k = QLatin1String(key);
        if (map.contains(k) && !apply(map.value(k)))
            reportBadKey(k, map.value(k));
    };
    take("name", [&](const QVariant& v) {
        if (!ConfigValue::isText(v) || v.toString().isEmpty())
            return false;
        setName(v.toString());
        return true;
    });
    take("polling_address", [&](const QVariant& v) {
        if (!ConfigValue::toInt(v, &number))
            return false;
        setAddress(number);
        return true;
    });
    take("enabled", [&](const QVariant& v) {
        if (!ConfigValue::toBool(v, &flag))
            return false;
        setEnabled(flag);
        return true;
    });
    take("priority", [&](const QVariant& v) {
        if (!ConfigValue::toInt(v, &number))
            return false;
        setPriority(number);
        return true;
    });
    take("polling_period", [&](const QVariant& v) {
        if (!ConfigValue::toInt(v, &number))
            return false;
        setPollingPeriod(number);
        return true;
    });
    take("producer", [&](const QVariant& v) {
        if (!ConfigValue::isText(v))
            return false;
        setProducer(v.toString());
        return true;
    });
    take("comment", [&](const QVariant& v) {
        if (!ConfigValue::isText(v))
            return false;
        setComment(v.toString());
        return true;
    });
}

bool Device::loadFromTemplate(const QVariantMap& map)
{
    const QString oldName = name();
    const QVariantMap saved = save();
    const bool result = load(map);
    loadDeviceSettings(saved);
    if (!oldName.isEmpty())
        setName(oldName);
    return result;
}

// ---------------------------------------------------------------------------
// Snapshots

QVariantMap Device::snapshot() const
{
    QVariantMap map = save();
    map.insert(QStringLiteral("device_tag_state"), m_deviceTagState);
    return map;
}

void Device::loadSnapshot(const QVariantMap& snapshot)
{
    load(snapshot);
    int state = TagStateNone;
    if (ConfigValue::toInt(snapshot.value(QStringLiteral("device_tag_state")), &state))
        m_deviceTagState = state;
}

void Device::backupTagsInDeviceData()
{
    m_deviceData = snapshot();
}

void Device::backupTagsInFileData()
{
    m_fileData = snapshot();
}

void Device::restoreTagsFromDeviceData()
{
    if (m_deviceData.isEmpty())
        return;
    m_backup = snapshot();
    loadSnapshot(m_deviceData);
}

void Device::restoreTagsFromFileData()
{
    if (m_fileData.isEmpty())
        return;
    m_backup = snapshot();
    loadSnapshot(m_fileData);
}

void Device::backupTags()
{
    m_backup = snapshot();
    m_rollback.clear();
}

void Device::restoreTags()
{
    if (m_backup.isEmpty())
        return;
    m_rollback = snapshot();
    loadSnapshot(m_backup);
}

void Device::rollbackTags()
{
    if (m_rollback.isEmpty())
        return;
    m_backup = snapshot();
    loadSnapshot(m_rollback);
}

bool Device::pasteFromClipboard(const QVariantMap& map)
{
    backupTags();
    const bool result = load(map);
    if (result) {
        m_deviceTagState |= TagStateChanged;
        emit modified();
    }
    return result;
}

void Device::backupDeviceInfo()
{
    m_deviceInfoBackup = m_deviceInfo;
}

void Device::checkAndRestoreDeviceInfo()
{
    const QString key = QStringLiteral("address");
    if (m_deviceInfoBackup.value(key) != m_deviceInfo.value(key))
        return;
    for (auto it = m_deviceInfoBackup.constBegin(); it != m_deviceInfoBackup.constEnd(); ++it)
        if (!m_deviceInfo.contains(it.key()))
            m_deviceInfo.insert(it.key(), it.value());
}

QVariant Device::valueFromDeviceData(const QString& name) const
{
    const QVariantList tags = m_deviceData.value(QStringLiteral("tags")).toList();
    for (const QVariant& tag : tags) {
        const QVariantMap element = tag.toMap();
        if (element.value(QStringLiteral("name")).toString() == name)
            return element.value(QStringLiteral("value"));
    }
    return QVariant();
}

void Device::setValueInDeviceData(const QString& name, const QVariant& value)
{
    QVariantList tags = m_deviceData.value(QStringLiteral("tags")).toList();
    for (QVariant& tag : tags) {
        QVariantMap element = tag.toMap();
        if (element.value(QStringLiteral("name")).toString() == name) {
            element.insert(QStringLiteral("value"), value);
            tag = element;
            m_deviceData.insert(QStringLiteral("tags"), tags);
            return;
        }
    }
}

// ---------------------------------------------------------------------------
// The line

bool Device::openPortFailed(Port* p)
{
    const QString portError = p ? p->errorText() : tr("the device '%1' is not on a port").arg(name());
    setErrorText(portError);
    const QString line = tr("error open port '%1' - %2").arg(p ? p->serialName() : QString(), portError);
    DBG(LevelErr) << line;
    updateState(4);
    if (isIdentified())
        checkOffDevice();
    sendModbusMessage(line);
    return false;
}

bool Device::openPort(int baudIndex, int parityIndex)
{
    Port* p = port();
    if (!p)
        return openPortFailed(p);

    if (baudIndex == -1 || parityIndex == -1 || isIdentified()) {
        // A device never found on a line takes the port as it stands.
        if (m_serialSettings.name.isEmpty())
            m_serialSettings.takeFrom(p);
        if (p->isOpened() && !m_serialSettings.equalsTo(p))
            p->closeHart();
        if (p->isOpened())
            return true;
        p->setBaudrate(m_serialSettings.baudRate);
        p->setParity(m_serialSettings.parity);
        p->setDatabits(m_serialSettings.dataBits);
        p->setStopbits(m_serialSettings.stopBits);
        if (p->openHart())
            return true;
        return openPortFailed(p);
    }

    if (p->isOpened() && (p->baudrateIndex() != baudIndex || p->parityIndex() != parityIndex))
        p->closeHart();
    bool opened = p->isOpened();
    if (!opened) {
        p->setBaudrateByIndex(baudIndex);
        p->setParityByIndex(parityIndex);
        opened = p->openHart();
    }
    if (!opened)
        return openPortFailed(p);
    m_serialSettings.takeFrom(p);
    return true;
}

bool Device::openHartPort()
{
    const bool opened = openPort(0, 3);
    if (Port* p = port()) {
        p->setDatabits(8);
        p->setStopbits(1);
    }
    return opened;
}

// ---------------------------------------------------------------------------
// Exchanges

void Device::sendPortTraces(Port* p)
{
    if (!p->requestTrace().isEmpty())
        sendModbusMessage(p->requestTrace());
    if (!p->responseTrace().isEmpty())
        sendModbusMessage(p->responseTrace());
}

void Device::takeStatus(Port* p, bool exchanged)
{
    m_statusBytes = exchanged ? p->hart().statusCode() : QByteArray();
    m_statusTexts = exchanged ? p->statusText() : QStringList();
}

void Device::reportStatus()
{
    emit deviceStatus(m_statusTexts.join(QLatin1Char('\n')), m_statusBytes);
    if (byteAt(m_statusBytes, 0) != 0 || byteAt(m_statusBytes, 1) != 0) {
        sendModbusMessage(tr("Device status: [%1]")
                              .arg(twoHexDigits(byteAt(m_statusBytes, 0)) + QLatin1Char(' ') +
                                   twoHexDigits(byteAt(m_statusBytes, 1))));
        if (!m_statusTexts.isEmpty())
            sendModbusMessage(m_statusTexts.join(QLatin1Char('\n')));
    }
}

QByteArray Device::frameAddress() const
{
    // A device not identified yet is reached by its polling address.
    return m_hartAddress.isEmpty() ? QByteArray(1, char(address() & 0x3F)) : m_hartAddress;
}

int Device::exchange(const QString& label, const QString& logLine, int cmd, const QByteArray& request,
                     QByteArray& response, bool isWrite)
{
    m_processingTime = 0;
    QElapsedTimer clock;
    clock.start();
    Port* p = port();
    if (!p) {
        setErrorText(tr("the device '%1' is not on a port").arg(name()));
        m_statusBytes.clear();
        m_statusTexts.clear();
        updateState(4);
        sendModbusMessage(errorText());
        emit deviceError(errorText());
        return 4;
    }

    int code = 1;
    {
        PermitHolder permit(&p->semaphore());
        bool exchanged = false;
        if (openPort(-1, -1)) {
            sendModbusMessage(logLine + QLatin1Char('\n'));
            p->sendHartCommand(frameAddress(), static_cast<unsigned char>(cmd), request, response);
            exchanged = true;
            m_processingTime = int(clock.elapsed());
            sendPortTraces(p);
        }
        takeStatus(p, exchanged);
        if (exchanged)
            reportStatus();

        code = p->errorCode();
        setErrorText(p->errorText());
        updateState(code);

        if (code == 1) {
            sendModbusMessage(tr("Success (processing time: %1ms)").arg(m_processingTime));
            m_deviceTagState |= isWrite ? TagStateWritten : TagStateRead;
        } else {
            QString failure;
            QString signalText;
            if (isWrite) {
                DBG(LevelErr)
                    << QStringLiteral("error %1 writing cmd=%2 (%3ms)").arg(code).arg(cmd).arg(m_processingTime);
                if (label.contains(tr("reset")) || label.contains(tr("start")))
                    failure = tr("error %1 %2 %3 - %4").arg(code).arg(tr("executing"), label, errorText());
                else if (label.contains(tr("get")))
                    failure = tr("error %1 %2 - %3").arg(code).arg(label, errorText());
                else
                    failure = tr("error %1 %2 %3 - %4").arg(code).arg(tr("writing"), label, errorText());
                signalText = tr("error executing cmd=%1 - %2").arg(cmd).arg(errorText());
            } else {
                DBG(LevelErr)
                    << QStringLiteral("error %1 reading cmd=%2 (%3ms)").arg(code).arg(cmd).arg(m_processingTime);
                failure = tr("error %1 reading '%2' - %3").arg(code).arg(label, errorText());
                signalText = tr("error %1 executing cmd=%2 - %3").arg(code).arg(cmd).arg(errorText());
            }
            sendModbusMessage(failure + tr("\nError (processing time: %1ms)").arg(m_processingTime));
            emit deviceError(signalText.replace(QLatin1Char('\n'), QStringLiteral("d - ")));
            if (p->isOpened() && closePortOnError())
                p->closeHart();
        }
    }
    return code;
}

int Device::read(const QString& label, int cmd, QByteArray& response)
{
    return exchange(label, tr("reading %1 (cmd=%2)...").arg(label).arg(cmd), cmd, QByteArray(), response, false);
}

int Device::write(const QString& label, int cmd, const QByteArray& request, QByteArray& response)
{
    const bool asItStands = label.contains(tr("reset")) || label.contains(tr("start")) || label.contains(tr("get"));
    const QString subject = asItStands ? label : tr("writing %1").arg(label);
    return exchange(label, tr("%1 (cmd=%2)...").arg(subject).arg(cmd), cmd, request, response, true);
}

bool Device::finishIdentification(Port* p, bool found, int cmd, qint64 elapsedMs, bool frameSent)
{
    m_processingTime = int(elapsedMs);
    takeStatus(p, frameSent);
    reportStatus();

    int code = 1;
    if (!found) {
        // The search may refuse a tag before any frame goes out.
        code = p->errorCode() != 1 ? p->errorCode() : 4;
        setErrorText(p->errorText());
        sendModbusMessage(tr("Get device ID by cmd %1 error:").arg(cmd) + QLatin1Char(' ') + errorText());
    } else {
        setErrorText(QString());
    }
    updateState(code);
    if (!found) {
        emit deviceError(tr("error %1 executing cmd=%2 - %3")
                             .arg(code)
                             .arg(cmd)
                             .arg(errorText())
                             .replace(QLatin1Char('\n'), QStringLiteral("d - ")));
        if (p->isOpened() && closePortOnError())
            p->closeHart();
    }
    return found;
}

bool Device::checkHartDevice(const QString& tag, const QString& longTag, bool flag)
{
    resetState();
    Port* p = port();
    if (!p)
        return openPortFailed(p);
    PermitHolder permit(&p->semaphore());
    if (!openHartPort())
        return false;

    QElapsedTimer clock;
    clock.start();
    // A tag that packed ASCII cannot carry is refused before anything goes
    // out; the traces of the port are then those of an earlier exchange.
    const QString lastTrace = p->requestTrace();
    bool found = false;
    int cmd = 0;
    DBG(LevelInfo) << "identify" << name() << "tag:" << tag << "long tag:" << longTag << "flag:" << flag;
    if (!tag.isEmpty()) {
        cmd = 11;
        sendModbusMessage(tr("Try to check %1 by tag '%2' via %3 ...").arg(name(), tag, p->configName()));
        found = p->checkHartDeviceByTag(tag, m_deviceInfo);
    } else if (!longTag.isEmpty()) {
        cmd = 21;
        sendModbusMessage(tr("Try to check %1 by long tag '%2' via %3 ...").arg(name(), longTag, p->configName()));
        found = p->checkHartDeviceByLongTag(longTag, m_deviceInfo);
    } else {
        sendModbusMessage(
            tr("Try to check %1 at address %2 via %3 ...").arg(name(), QString::number(address()), p->configName()));
        found = p->checkHartDevice(address(), m_deviceInfo);
    }
    const bool frameSent = found || p->requestTrace() != lastTrace;
    if (frameSent)
        sendPortTraces(p);

    if (found) {
        takeIdentityFromDeviceInfo();
        sendModbusMessage(tr("Checked successfully - %1 (%2 %3 exts:%4)!")
                              .arg(name(), hexBytes(m_hartAddress), hexBytes(m_hartDeviceID),
                                   twoHexDigits(m_deviceInfo.value(QStringLiteral("extended_status")).toInt())));
    }
    return finishIdentification(p, found, cmd, clock.elapsed(), frameSent);
}

void Device::takeIdentityFromDeviceInfo()
{
    m_hartAddress = m_deviceInfo.value(QStringLiteral("address")).toByteArray();
    m_hartDeviceID = m_deviceInfo.value(QStringLiteral("deviceID")).toByteArray();
    m_vendorID = m_deviceInfo.value(QStringLiteral("vendorID")).toByteArray();
    m_expandedDeviceType = m_deviceInfo.value(QStringLiteral("expanded_device_type")).toByteArray();
}

const QList<Device::ModelIdentity>& Device::modelIdentities()
{
    static const QList<ModelIdentity> models = {{"TCV-C", OurManufacturerCode, 0x91},
                                                {"DX-C", OurManufacturerCode, 0x92},
                                                {"QP-1C", OurManufacturerCode, 0x93},
                                                {"pH-7702", OurManufacturerCode, 0x94}};
    return models;
}

QString Device::templateNameByCodes(int manufacturerCode, int deviceTypeCode)
{
    if (manufacturerCode != OurManufacturerCode)
        return QStringLiteral("General");
    for (const ModelIdentity& model : modelIdentities()) {
        if (model.deviceTypeCode == deviceTypeCode)
            return QString::fromLatin1(model.templateName);
    }
    return QStringLiteral("Unknown");
}

bool Device::checkHartDeviceBy73()
{
    resetState();
    Port* p = port();
    if (!p)
        return openPortFailed(p);
    PermitHolder permit(&p->semaphore());
    if (!openHartPort())
        return false;

    QElapsedTimer clock;
    clock.start();
    sendModbusMessage(tr("Try to check %1 via %3 ...").arg(name(), p->configName()));
    QVariantMap found;
    const bool ok = p->findHartDeviceBy73(found);
    sendPortTraces(p);
    if (ok) {
        for (auto it = found.constBegin(); it != found.constEnd(); ++it)
            m_deviceInfo.insert(it.key(), it.value());
        m_hartAddress = found.value(QStringLiteral("address")).toByteArray();
        m_hartDeviceID = found.value(QStringLiteral("deviceID")).toByteArray();
        m_vendorID = found.value(QStringLiteral("vendorID")).toByteArray();
        m_expandedDeviceType = found.value(QStringLiteral("expanded_device_type")).toByteArray();
        sendModbusMessage(tr("Checked successfully - %1!").arg(hexBytes(m_hartAddress)));
    }
    return finishIdentification(p, ok, 73, clock.elapsed(), true);
}

// ---------------------------------------------------------------------------
// Additional status (command 48)

void Device::saveCmd48Responce(const QByteArray& response)
{
    setDeviceInfo(QStringLiteral("error_code"), byteAt(response, 0));
    setDeviceInfo(QStringLiteral("ADC_flags"), byteAt(response, 1));
    setDeviceInfo(QStringLiteral("EEPROM_flags"), byteAt(response, 2));
    setDeviceInfo(QStringLiteral("device_specific_status"), response.left(6));
    setDeviceInfo(QStringLiteral("extended_status"), byteAt(response, 6));
    setDeviceInfo(QStringLiteral("standart_status_0"), byteAt(response, 8));
    m_cmd48Data = response;
}

bool Device::checkAdditionalStatus(bool request, bool onlyIfFlagged)
{
    if (onlyIfFlagged && (m_statusBytes.size() < 2 || !(byteAt(m_statusBytes, 1) & MoreStatusAvailable))) {
        signalAdditionalStatusInfo();
        return true;
    }
    // A device whose status changes at every exchange must not keep us
    // acknowledging for ever.
    if (m_statusDepth >= MaxStatusAcknowledgeDepth) {
        DBG(LevelWarn) << "additional status still changing after" << m_statusDepth << "rounds";
        return false;
    }
    struct DepthGuard
    {
        int& depth;
        explicit DepthGuard(int& d) : depth(d) { ++depth; }
        ~DepthGuard() { --depth; }
    } guard(m_statusDepth);

    if (request && !readDevice(48))
        return false;

    const QString prefix = QStringLiteral("\n--- ");
    QString text;
    if (!m_deviceTemplateName.contains(QLatin1String("General"))) {
        const int errorCode = m_deviceInfo.value(QStringLiteral("error_code")).toInt();
        if (errorCode > 0) {
            text += prefix + tr("Device ADC error code: %1").arg(errorCode);
            const QStringList lines = getADCCodeString(errorCode).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            for (const QString& line : lines)
                text += prefix + line;
        }
        const int adcFlags = m_deviceInfo.value(QStringLiteral("ADC_flags")).toInt();
        if (adcFlags > 0)
            text += prefix + tr("The ADC is overloaded. Flags: 0x%1").arg(twoHexDigits(adcFlags));
        const int eepromFlags = m_deviceInfo.value(QStringLiteral("EEPROM_flags")).toInt();
        if (eepromFlags > 0) {
            if (eepromFlags & 0x01)
                text += prefix + tr("Error of writing configuration to EEPROM.");
            if (eepromFlags & 0x02)
                text += prefix + tr("Device configuration is restored (from the secondary page).");
            if (eepromFlags & 0x10)
                text += prefix + tr("Error of writing the device HART_UID to the EEPROM");
            if (eepromFlags & 0x20)
                text += prefix + tr("Factory device number is restored (from the sub-page).");
        }
    } else {
        const QByteArray specific = m_deviceInfo.value(QStringLiteral("device_specific_status")).toByteArray();
        bool any = false;
        for (char byte : specific)
            any = any || quint8(byte) > 0;
        if (any)
            text += prefix + tr("Device specific status: ") + hexBytes(specific);
    }
    const int extended = m_deviceInfo.value(QStringLiteral("extended_status")).toInt();
    if (extended & 0x01)
        text += prefix + tr("Device requires maintenance.");
    if (extended & 0x02)
        text += prefix + tr("Device variable is in an Alarm state.");
    const int standard0 = m_deviceInfo.value(QStringLiteral("standart_status_0")).toInt();
    if (standard0 & 0x02)
        text += prefix + tr("Non-Volatile Memory Defect.");
    if (standard0 & 0x04)
        text += prefix + tr("Volatile Memory Defect.");
    if (standard0 & 0x10)
        text += prefix + tr("Voltage Conditions Out of Range.");

    m_additionalStatusText = text;
    signalAdditionalStatusInfo();

    if (byteAt(m_statusBytes, 1) & MoreStatusAvailable)
        return writeDevice(48);
    return true;
}

void Device::signalAdditionalStatusInfo()
{
    if (m_additionalStatusText.isEmpty())
        return;
    const QString info = tr("Additional status info:") + m_additionalStatusText;
    sendModbusMessage(info);
    QString status = m_statusTexts.join(QLatin1Char('\n'));
    if (!status.isEmpty())
        status += QLatin1Char('\n');
    emit deviceStatus(status + info, m_statusBytes);
}

QString Device::getADCCodeString(int code) const
{
    Q_UNUSED(code)
    return QString();
}

// ---------------------------------------------------------------------------
// Universal read commands

QString Device::readFunContext(int cmd) const
{
    switch (cmd) {
    case 0:
        return tr("device identifier");
    case 1:
        return tr("PV");
    case 2:
        return tr("output current");
    case 3:
        return tr("device variables & output current");
    case 7:
        return tr("polling address");
    case 8:
        return tr("dynamic variable classifications");
    case 12:
        return tr("message");
    case 13:
        return tr("tag, descriptor, data");
    case 14:
        return tr("PV sensor info (number & range)");
    case 15:
        return tr("output info (range & damping time)");
    case 16:
        return tr("final assembly number");
    case 20:
        return tr("long tag");
    case 48:
        return tr("device status info");
    case 50:
        return tr("dynamic variable assignments");
    case 73:
        return tr("find device");
    default:
        return QString();
    }
}

bool Device::readDevice(int cmd)
{
    const QString label = readFunContext(cmd);
    if (cmd == 0)
        return checkHartDevice(QString(), QString(), true);
    if (cmd == 73)
        return checkHartDeviceBy73();

    const bool newerCommand = cmd == 7 || cmd == 8 || cmd == 9 || cmd == 20 || cmd == 21;
    if (newerCommand && m_deviceInfo.value(QStringLiteral("universal_cmd_version")).toInt() == 5) {
        sendModbusMessage(tr("Device command version is 5. Command #%1 not supported").arg(cmd));
        return true;
    }

    QByteArray response;
    if (read(label, cmd, response) != 1)
        return false;
    if (cmd == 48) {
        saveCmd48Responce(response);
        return true;
    }
    checkAdditionalStatus(true, cmd == 3 ? !m_alwaysAdditionalStatus : true);

    auto putByte = [&](const char* key, int offset) { setDeviceInfo(QLatin1String(key), byteAt(response, offset)); };
    auto putFloat = [&](const char* key, int offset) { setDeviceInfo(QLatin1String(key), floatAt(response, offset)); };
    auto putUInt = [&](const char* key, int offset, int size) {
        setDeviceInfo(QLatin1String(key), uintAt(response, offset, size));
    };

    switch (cmd) {
    case 1:
        putByte("PV_unit_code", 0);
        putFloat("PV", 1);
        return true;
    case 2:
        putFloat("output_current", 0);
        putFloat("output_current_%", 4);
        return true;
    case 3:
        putFloat("output_current", 0);
        putByte("PV_unit_code", 4);
        putFloat("PV", 5);
        // The later variables only as far as the device sent them.
        if (response.size() > 9) {
            putByte("SV_unit_code", 9);
            putFloat("SV", 10);
        }
        if (response.size() > 14) {
            putByte("TV_unit_code", 14);
            putFloat("TV", 15);
        }
        if (response.size() > 19) {
            putByte("QV_unit_code", 19);
            putFloat("QV", 20);
        }
        return true;
    case 7:
        putByte("polling_address", 0);
        putByte("current_loop_mode", 1);
        setAddress(m_deviceInfo.value(QStringLiteral("polling_address")).toInt());
        return true;
    case 8:
        putByte("PV_class_code", 0);
        putByte("SV_class_code", 1);
        putByte("TV_class_code", 2);
        putByte("QV_class_code", 3);
        return true;
    case 12: {
        const QString message = port()->unpackAscii(response, int(response.size()));
        DBG(LevelInfo) << "### MSG: " << message;
        setDeviceInfo(QStringLiteral("message"), message);
        return true;
    }
    case 13: {
        port()->hart().parseCommand13Response(response, m_deviceInfo);
        updateDeviceName();
        return true;
    }
    case 14:
        putUInt("sensor_number", 0, 3);
        DBG(LevelInfo) << "### sensor_number ### " << m_deviceInfo.value(QStringLiteral("sensor_number")).toUInt();
        putByte("sensor_unit_code", 3);
        putFloat("sensor_range_max", 4);
        putFloat("sensor_range_min", 8);
        putFloat("sensor_minimum_range", 12);
        return true;
    case 15:
        putByte("PV_alarm_selection_code", 0);
        putByte("conversion_function", 1);
        putByte("range_unit_code", 2);
        putFloat("range_max", 3);
        putFloat("range_min", 7);
        putFloat("damping_time", 11);
        putByte("write_protection", 15);
        putByte("distributor_label", 16);
        return true;
    case 16:
        putUInt("final_assembly_number", 0, 3);
        DBG(LevelInfo) << "### final_assembly_number ###"
                       << m_deviceInfo.value(QStringLiteral("final_assembly_number")).toUInt();
        return true;
    case 20: {
        // The text ends at the first zero byte, as a C string did.
        QByteArray text = response;
        const qsizetype end = text.indexOf('\0');
        if (end >= 0)
            text.truncate(end);
        const QString longTag = QString::fromLatin1(text);
        sendModbusMessage(tr("long tag: '") + longTag + QLatin1Char('\''));
        setDeviceInfo(QStringLiteral("long_tag"), longTag);
        return true;
    }
    case 50:
        putByte("PV_dev_variable_code", 0);
        putByte("SV_dev_variable_code", 1);
        putByte("TV_dev_variable_code", 2);
        putByte("QV_dev_variable_code", 3);
        return true;
    default:
        return false;
    }
}

// ---------------------------------------------------------------------------
// Universal write commands

QString Device::writeFunContext(int cmd) const
{
    switch (cmd) {
    case 6:
        return tr("polling address");
    case 9:
        return tr("get device variables with status");
    case 11:
        return tr("get device identifier by tag");
    case 17:
        return tr("message");
    case 18:
        return tr("tag, descriptor, data");
    case 19:
        return tr("final assembly number");
    case 21:
        return tr("get device identifier by long tag");
    case 22:
        return tr("long tag");
    case 33:
        return tr("get device variables");
    case 34:
        return tr("damping value");
    case 35:
        return tr("range (min / max)");
    case 36:
        return tr("PV as upper range value");
    case 37:
        return tr("PV as lower range value");
    case 38:
        return tr("reset config changed flag ");
    case 40:
        return tr("set fixed current");
    case 41:
        return tr("start device self test");
    case 42:
        return tr("reset device");
    case 43:
        return tr("adjust zero");
    case 44:
        return tr("PV unit code");
    case 45:
        return tr("adjust current 4 mA");
    case 46:
        return tr("adjust current 20 mA");
    case 47:
        return tr("PV transfer function");
    case 48:
        return tr("reset additional status flag ");
    case 49:
        return tr("sensor number");
    case 51:
        return tr("dynamic variable assignments");
    case 53:
        return tr("device variable units");
    case 54:
        return tr("get device variable information");
    case 59:
        return tr("response preambles count");
    case 129:
        return tr("set write protection by HART protocol");
    case CmdMetrologyAccess:
        return tr("metrology access");
    case CmdWriteFactoryNumber:
        return tr("write factory number");
    default:
        return QString();
    }
}

QByteArray Device::slotRequest(int slotCount) const
{
    QByteArray request;
    for (int slot = 0; slot < slotCount; ++slot) {
        const QString key = QStringLiteral("slot_%1_code").arg(slot);
        if (!m_deviceInfo.contains(key))
            break;
        const int code = m_deviceInfo.value(key).toInt();
        if (code == NotUsedSlot)
            continue;
        request.append(char(code));
    }
    return request;
}

QByteArray Device::packedText(const QString& text, int size)
{
    Port* p = port();
    return p ? p->packAscii(text, size) : QByteArray();
}

void Device::storeSlots9(const QByteArray& response)
{
    setDeviceInfo(QStringLiteral("extended_status"), byteAt(response, 0));
    if (response.size() < 6)
        return;
    int slot = 0;
    for (int p = 1; p < response.size() - 4; p += 8, ++slot) {
        const int code = byteAt(response, p);
        if (code != m_deviceInfo.value(QStringLiteral("slot_%1_code").arg(slot)).toInt())
            continue;
        const int cls = byteAt(response, p + 1);
        const int unit = byteAt(response, p + 2);
        const float value = floatAt(response, p + 3);
        const int status = byteAt(response, p + 7);
        setDeviceInfo(QStringLiteral("slot_%1_class").arg(slot), cls);
        setDeviceInfo(QStringLiteral("slot_%1_unit_code").arg(slot), unit);
        setDeviceInfo(QStringLiteral("slot_%1_value").arg(slot), value);
        setDeviceInfo(QStringLiteral("slot_%1_status").arg(slot), status);
        DBG(LevelInfo) << "slot" << slot << "code" << code << "Class" << cls << "Unit" << unit << "Value" << value
                       << "Status" << status;
    }
}

void Device::storeSlots33(const QByteArray& response)
{
    int slot = 0;
    for (int p = 0; p < response.size(); p += 6, ++slot) {
        const int code = byteAt(response, p);
        if (code != m_deviceInfo.value(QStringLiteral("slot_%1_code").arg(slot)).toInt())
            continue;
        setDeviceInfo(QStringLiteral("slot_%1_unit_code").arg(slot), byteAt(response, p + 1));
        setDeviceInfo(QStringLiteral("slot_%1_value").arg(slot), floatAt(response, p + 2));
    }
}

void Device::storeVariableInfo54(const QByteArray& response)
{
    if (byteAt(response, 0) != m_deviceInfo.value(QStringLiteral("dev_variable_code")).toInt())
        return;
    setDeviceInfo(QStringLiteral("dev_variable_sensor"), uintAt(response, 1, 3));
    setDeviceInfo(QStringLiteral("dev_variable_limits_unit_code"), byteAt(response, 4));
    setDeviceInfo(QStringLiteral("dev_variable_usl"), floatAt(response, 5));
    setDeviceInfo(QStringLiteral("dev_variable_lsl"), floatAt(response, 9));
    setDeviceInfo(QStringLiteral("dev_variable_damping_value"), floatAt(response, 13));
    setDeviceInfo(QStringLiteral("dev_variable_span"), floatAt(response, 17));
    setDeviceInfo(QStringLiteral("dev_variable_class"), byteAt(response, 21));
    setDeviceInfo(QStringLiteral("dev_variable_family"), byteAt(response, 22));
}

bool Device::writeDevice(int cmd)
{
    const QString label = writeFunContext(cmd);
    QByteArray request;
    bool echo = true;
    bool count = true;
    auto byte = [&](const char* key) { request.append(char(getDeviceInfoByte(QLatin1String(key)))); };
    auto number = [&](const char* key) {
        request.append(Port::getBufferFromFloat(getDeviceInfoFloat(QLatin1String(key))));
    };
    auto integer = [&](const char* key, int size) {
        request.append(Port::getBufferFromInt(getDeviceInfoByte(QLatin1String(key)), size));
    };

    switch (cmd) {
    case 6:
        byte("polling_address");
        byte("current_loop_mode");
        break;
    case 9:
        request = slotRequest(8);
        echo = count = false;
        break;
    case 11:
        return checkHartDevice(getDeviceInfoString(QStringLiteral("tag")), QString(), true);
    case 17: {
        const QString message =
            getDeviceInfoString(QStringLiteral("message")).left(32).leftJustified(32, QLatin1Char(' '));
        request = packedText(message, 24);
        break;
    }
    case 18: {
        request = packedText(getDeviceInfoString(QStringLiteral("tag")).leftJustified(8, QLatin1Char(' ')), 6);
        request +=
            packedText(getDeviceInfoString(QStringLiteral("descriptor")).leftJustified(16, QLatin1Char(' ')), 12);
        const QDate date = getDeviceInfo(QStringLiteral("date")).toDate();
        request.append(char(date.isValid() ? date.day() : 0));
        request.append(char(date.isValid() ? date.month() : 0));
        request.append(char(date.isValid() ? date.year() - 1900 : 0));
        break;
    }
    case 19:
        integer("final_assembly_number", 3);
        break;
    case 21:
        return checkHartDevice(QString(), getDeviceInfoString(QStringLiteral("long_tag")), false);
    case 22:
        request = getDeviceInfoString(QStringLiteral("long_tag")).toLatin1().leftJustified(32, '\0', true);
        break;
    case 33:
        request = slotRequest(4);
        echo = count = false;
        break;
    case 34:
        number("damping_time");
        break;
    case 35:
        byte("range_unit_code");
        number("range_max");
        number("range_min");
        break;
    case 38:
        integer("modify_count", 2);
        count = false;
        break;
    case 40:
        number("fixed_current");
        echo = count = false;
        break;
    case 41:
    case 42:
        count = false;
        break;
    case 44:
        byte("input_units");
        break;
    case 45:
        number("adjust_4mA");
        echo = false;
        break;
    case 46:
        number("adjust_20mA");
        echo = false;
        break;
    case 47:
        byte("conversion_function");
        break;
    case 48:
        request = m_cmd48Data;
        count = false;
        break;
    case 49:
        integer("sensor_number", 3);
        break;
    case 51:
        byte("PV_dev_variable_code");
        byte("SV_dev_variable_code");
        byte("TV_dev_variable_code");
        byte("QV_dev_variable_code");
        break;
    case 53:
        byte("dev_variable_code");
        byte("dev_variable_limits_unit_code");
        break;
    case 54:
        byte("dev_variable_code");
        echo = count = false;
        break;
    case 59:
        byte("preambles_count");
        break;
    case 129:
        byte("write_protection");
        break;
    default:
        // 36, 37, 43 and any other number: no data, echo and count.
        break;
    }

    QByteArray response;
    if (write(label, cmd, request, response) != 1)
        return false;
    if (cmd == 18)
        updateDeviceName();

    if (echo) {
        if (response == request) {
            if (count)
                incrementModifyCount();
            if (cmd != 48)
                checkAdditionalStatus(true, true);
            return true;
        }
        if (cmd == 48) {
            // The status changed since it was read: take the new one.
            saveCmd48Responce(response);
            checkAdditionalStatus(false, false);
            return true;
        }
        const QString mismatch = tr("*** cmdData != response");
        DBG(LevelErr) << mismatch << "cmd" << cmd << "sent" << hexBytes(request) << "got" << hexBytes(response);
        setErrorText(mismatch);
        emit deviceError(mismatch);
        sendModbusMessage(mismatch);
        return false;
    }

    switch (cmd) {
    case 9:
        storeSlots9(response);
        break;
    case 33:
        storeSlots33(response);
        break;
    case 40:
        setDeviceInfo(QStringLiteral("fixed_current"), floatAt(response, 0));
        break;
    case 45:
        setDeviceInfo(QStringLiteral("adjust_4mA"), floatAt(response, 0));
        break;
    case 46:
        setDeviceInfo(QStringLiteral("adjust_20mA"), floatAt(response, 0));
        break;
    case 54:
        storeVariableInfo54(response);
        break;
    default:
        break;
    }
    if (count)
        incrementModifyCount();
    checkAdditionalStatus(true, true);
    return true;
}

// ---------------------------------------------------------------------------
// Commands of the models and the protected functions

bool Device::writeChecked(int cmd, const QByteArray& request, bool echo, QByteArray& response)
{
    if (write(writeFunContext(cmd), cmd, request, response) != 1)
        return false;
    if (!echo || response == request)
        return true;
    const QString mismatch = tr("*** cmdData != response");
    DBG(LevelErr) << mismatch << "cmd" << cmd << "sent" << hexBytes(request) << "got" << hexBytes(response);
    setErrorText(mismatch);
    emit deviceError(mismatch);
    sendModbusMessage(mismatch);
    return false;
}

QByteArray Device::packFields(const Fields& fields)
{
    QByteArray data;
    for (const Field& field : fields) {
        const QString key = QLatin1String(field.key);
        if (field.type == ByteField)
            data.append(char(getDeviceInfoByte(key)));
        else
            data.append(Port::getBufferFromFloat(getDeviceInfoFloat(key)));
    }
    return data;
}

void Device::unpackFields(const QByteArray& data, const Fields& fields)
{
    int offset = 0;
    for (const Field& field : fields) {
        const QString key = QLatin1String(field.key);
        if (field.type == ByteField) {
            setDeviceInfo(key, byteAt(data, offset));
            offset += 1;
        } else {
            setDeviceInfo(key, floatAt(data, offset));
            offset += 4;
        }
    }
}

bool Device::readVendor(int cmd, const Fields& response)
{
    QByteArray data;
    if (read(readFunContext(cmd), cmd, data) != 1)
        return false;
    checkAdditionalStatus(true, true);
    if (response.isEmpty())
        return false;
    unpackFields(data, response);
    return true;
}

bool Device::writeVendor(int cmd, const Fields& request, bool echo, bool count, const Fields& answer)
{
    QByteArray response;
    if (!writeChecked(cmd, packFields(request), echo, response))
        return false;
    unpackFields(response, answer);
    if (count)
        incrementModifyCount();
    checkAdditionalStatus(true, true);
    return true;
}

bool Device::writeManufacturerSettings()
{
    const bool restore = getDeviceInfoByte(QStringLiteral("manufacturer_settings")) == 0;
    return writeVendor(CmdManufacturerSettings, {{"manufacturer_settings", ByteField}}, false, restore);
}

bool Device::hasMetrologyAccess() const
{
    return false;
}

bool Device::refuseProtectedFunction(int cmd)
{
    const QString text =
        tr("the device '%1' has no protected function '%2' (cmd=%3)").arg(name(), writeFunContext(cmd)).arg(cmd);
    DBG(LevelErr) << text;
    setErrorText(text);
    updateState(3);
    sendModbusMessage(text);
    emit deviceError(text);
    return false;
}

bool Device::sendAdjustCode(quint32 code)
{
    if (!hasMetrologyAccess())
        return refuseProtectedFunction(CmdMetrologyAccess);
    QByteArray request(4, '\0');
    for (int i = 0; i < 4; ++i)
        request[i] = char((code >> (8 * (3 - i))) & 0xFF);
    QByteArray response;
    if (!writeChecked(CmdMetrologyAccess, request, false, response))
        return false;
    const int open = byteAt(response, 0);
    setDeviceInfo(QStringLiteral("metrology_access"), open);
    checkAdditionalStatus(true, true);
    if ((open == 1) == (code != 0))
        return true;
    const QString text = open == 1 ? tr("*** metrology access stays open") : tr("*** metrology access is not open");
    DBG(LevelErr) << text << "answer" << hexBytes(response);
    setErrorText(text);
    sendModbusMessage(text);
    emit deviceError(text);
    return false;
}

bool Device::isMetrologyAccessOpen() const
{
    return m_deviceInfo.value(QStringLiteral("metrology_access")).toInt() == 1;
}

bool Device::writeFactoryNumber(const QByteArray& deviceId)
{
    if (!hasMetrologyAccess())
        return refuseProtectedFunction(CmdWriteFactoryNumber);
    if (deviceId.size() != 3) {
        const QString text = tr("the factory number must have 3 bytes, not %1").arg(deviceId.size());
        DBG(LevelErr) << text;
        setErrorText(text);
        updateState(3);
        sendModbusMessage(text);
        emit deviceError(text);
        return false;
    }
    QByteArray response;
    if (!writeChecked(CmdWriteFactoryNumber, deviceId, true, response))
        return false;
    incrementModifyCount();
    // The long address holds the identifier: the old one reaches nobody now.
    if (!checkHartDevice(QString(), QString(), true))
        return false;
    checkAdditionalStatus(true, true);
    return true;
}

// ---------------------------------------------------------------------------
// Codes into text

QString Device::getUnitCodeText(int unit, int classCode)
{
    if (unit >= 170 && unit <= 219) {
        if (classCode == 85 && unit == 170)
            return tr("MOm");
        if (classCode == 73 && unit == 170)
            return tr("mg/l");
        if (classCode == 97) {
            if (unit == 170)
                return tr("FNU");
            if (unit == 171)
                return tr("FTU");
            if (unit == 172)
                return tr("NTU");
        }
        return QStringLiteral("?");
    }
    switch (unit) {
    case 1:
        return tr("inchWS");
    case 2:
        return tr("inchHg");
    case 4:
        return tr("mmWS");
    case 5:
        return tr("mmHg");
    case 6:
        return tr("lb/inch2");
    case 7:
        return tr("bar");
    case 8:
        return tr("mbar");
    case 10:
        return tr("kgf/sm2");
    case 11:
        return tr("Pa");
    case 12:
        return tr("kPa");
    case 17:
        return tr("l/min");
    case 19:
        return tr("m3/h");
    case 24:
        return tr("l/s");
    case 28:
        return tr("m3/s");
    case 29:
        return tr("m3/day");
    case 32:
        return QString::fromLatin1("\xB0"
                                   "C");
    case 36:
        return tr("mV");
    case 37:
        return tr("Om");
    case 39:
        return tr("mA");
    case 40:
        return tr("gallons");
    case 41:
        return tr("l");
    case 43:
        return tr("m3");
    case 45:
        return tr("m");
    case 46:
        return tr("bbls");
    case 47:
        return tr("inches");
    case 48:
        return tr("cm");
    case 49:
        return tr("mm");
    case 50:
        return tr("minutes");
    case 51:
        return tr("seconds");
    case 52:
        return tr("hours");
    case 53:
        return tr("days");
    case 56:
        return tr("mcS");
    case 57:
        return tr("%");
    case 58:
        return tr("V");
    case 59:
        return tr("pH");
    case 60:
        return tr("g");
    case 61:
        return tr("kg");
    case 62:
        return tr("tons");
    case 66:
        return tr("mS/cm");
    case 67:
        return tr("mcS/cm");
    case 70:
        return tr("g/s");
    case 71:
        return tr("g/min");
    case 72:
        return tr("g/h");
    case 73:
        return tr("kg/s");
    case 74:
        return tr("kg/min");
    case 75:
        return tr("kg/h");
    case 91:
        return tr("g/cm3");
    case 92:
        return tr("kg/m3");
    case 95:
        return tr("g/ml");
    case 96:
        return tr("kg/l");
    case 97:
        return tr("g/l");
    case 113:
        return tr("in3");
    case 131:
        return tr("m3/min");
    case 132:
        return tr("bbls/s");
    case 133:
        return tr("bbls/min");
    case 134:
        return tr("bbls/h");
    case 135:
        return tr("bbls/day");
    case 138:
        return tr("l/h");
    case 139:
        return tr("ppm");
    case 146:
        return tr("mcg/l");
    case 147:
        return tr("mcg/m3");
    case 163:
        return tr("kOm");
    case 169:
        return tr("ppb");
    case 237:
        return tr("MPa");
    default:
        return QStringLiteral("?");
    }
}

QString Device::unitTextOf(const char* unitKey, const char* classKey) const
{
    return getUnitCodeText(m_deviceInfo.value(QLatin1String(unitKey)).toInt(),
                           classKey ? m_deviceInfo.value(QLatin1String(classKey)).toInt() : 0);
}

QString Device::getPVUnitCodeText()
{
    return unitTextOf("PV_unit_code", "PV_class_code");
}

QString Device::getSVUnitCodeText()
{
    return unitTextOf("SV_unit_code", "SV_class_code");
}

QString Device::getTVUnitCodeText()
{
    return unitTextOf("TV_unit_code", "TV_class_code");
}

QString Device::getQVUnitCodeText()
{
    return unitTextOf("QV_unit_code", "QV_class_code");
}

QString Device::getCalibrateUnitCodeText()
{
    return unitTextOf("calibrate_unit_code", nullptr);
}

QString Device::getClassificationText(int code)
{
    switch (code) {
    case 0:
        return tr("Not Classified");
    case 64:
        return tr("Temperature");
    case 65:
        return tr("Pressure");
    case 66:
        return tr("Volumetric Flow");
    case 67:
        return tr("Velocity");
    case 68:
        return tr("Volume");
    case 69:
        return tr("Length");
    case 70:
        return tr("Time");
    case 71:
        return tr("Mass");
    case 72:
        return tr("Mass Flow");
    case 73:
        return tr("Mass Per Volume");
    case 74:
        return tr("Viscosity");
    case 75:
        return tr("Angular Velocity");
    case 76:
        return tr("Area");
    case 77:
        return tr("Energy (Work)");
    case 78:
        return tr("Force");
    case 79:
        return tr("Power");
    case 80:
        return tr("Frequency");
    case 81:
        return tr("Analytical");
    case 82:
        return tr("Capacitance");
    case 83:
        return tr("Emf");
    case 84:
        return tr("Current");
    case 85:
        return tr("Resistance");
    case 86:
        return tr("Angle");
    case 87:
        return tr("Conductance");
    case 88:
        return tr("Volume Per Volume");
    case 89:
        return tr("Volume Per Mass");
    case 90:
        return tr("Concentration");
    case 91:
        return tr("Valve Actuator");
    case 92:
        return tr("Level");
    case 93:
        return tr("Vortex Flow");
    case 94:
        return tr("Mag Flow");
    case 95:
        return tr("Coriolis Flow");
    case 97:
        return tr("Turbidity");
    case 250:
        return tr("Not used");
    default:
        return QStringLiteral("?");
    }
}

QString Device::getFamilyText(int code)
{
    if ((code >= 0 && code <= 3) || (code >= 132 && code <= 249))
        return tr("Reserved");
    switch (code) {
    case 4:
        return tr("Temperature");
    case 5:
        return tr("Pressure");
    case 6:
        return tr("Valve / Actuator");
    case 7:
        return tr("Simple PID Control");
    case 8:
        return tr("pH");
    case 9:
        return tr("Conductivity");
    case 10:
        return tr("Totalizer");
    case 11:
        return tr("Level");
    case 12:
        return tr("Vortex Flow");
    case 13:
        return tr("Mag Flow");
    case 14:
        return tr("Coriolis Flow");
    case 250:
        return tr("Not Used");
    default:
        return QStringLiteral("?");
    }
}

QString Device::getDeviceVariableStatusText(int status)
{
    static const char* const quality[] = {QT_TR_NOOP("Bad"), QT_TR_NOOP("Poor Accuracy"), QT_TR_NOOP("Manual/Fixed"),
                                          QT_TR_NOOP("Good")};
    static const char* const limits[] = {QT_TR_NOOP("Not Limited"), QT_TR_NOOP("Low Limited"),
                                         QT_TR_NOOP("High Limited"), QT_TR_NOOP("Constant")};
    return tr(quality[(status >> 6) & 0x03]) + QStringLiteral(" | ") + tr(limits[(status >> 4) & 0x03]);
}

QString Device::getPVAlarmSelectionText(int code)
{
    if (code >= 240 && code <= 249)
        return tr("Manufacturer Specific");
    switch (code) {
    case 0:
        return tr("High");
    case 1:
        return tr("Low");
    case 239:
        return tr("Hold Last Output Value");
    case 250:
        return tr("Not Used");
    case 251:
        return tr("None");
    case 252:
        return tr("Unknown");
    case 253:
        return tr("Special");
    default:
        return QStringLiteral("?");
    }
}
