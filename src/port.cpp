#include "port.h"

#include "byteswapper.h"
#include "configvalue.h"
#include "debugqt.h"
#include "defaultdevice.h"
#include "device.h"
#include "ph77device.h"
#include "qp1device.h"
#include "server.h"
#include "tcv2device.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSerialPortInfo>

#include <cstring>

namespace {

const int BaudRates[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
const int BaudRateCount = int(sizeof(BaudRates) / sizeof(BaudRates[0]));

const int DefaultPriority = 10;
const int DefaultStartPreambles = 10;

// The long address that every device listens to with commands 11, 21 and 73.
QByteArray broadcastAddress()
{
    return QByteArray(5, '\0');
}

// The byte at index of a buffer, 0 beyond either end.
quint8 byteAt(const QByteArray& buffer, qsizetype index)
{
    return index >= 0 && index < buffer.size() ? quint8(buffer.at(index)) : quint8(0);
}

} // namespace

QString Port::portTypeToString(PortType type)
{
    return type == MODBUS_TCP ? QStringLiteral("MODBUS_TCP") : QStringLiteral("HART");
}

Port::PortType Port::portTypeFromString(const QString& text)
{
    return text == QLatin1String("MODBUS_TCP") ? MODBUS_TCP : HART;
}

Port::Port(ServerItem* parent) : ServerItem(parent), m_semaphore(0)
{
    setName(createUniqName(QStringLiteral("Port_%1")));
    setProperty("priority", DefaultPriority);
    setProperty("serial_name", QString());
    setProperty("baudrate", 1200);
    setProperty("parity", QStringLiteral("O"));
    setProperty("databits", 8);
    setProperty("stopbits", 1);
    setProperty("close_port_after_transaction", false);
    m_hart.setStartPreambles(DefaultStartPreambles);
    // One permit: one exchange at a time on the line.
    m_semaphore.release(1);
}

Port::~Port()
{
    if (isOpened())
        closeHart();
    // The devices go while their port is whole: they may still reach it.
    removeChildren();
}

// ---------------------------------------------------------------------------
// Configuration

bool Port::load(const QMap<QString, QVariant>& map)
{
    QStringList wrong;
    auto check = [&wrong, &map](bool ok, const QString& key) {
        if (!ok && map.contains(key))
            wrong << key;
        return ok;
    };

    QString text;
    int number = 0;
    bool flag = false;

    if (check(ConfigValue::toText(map.value(QStringLiteral("name")), &text), QStringLiteral("name")) && !text.isEmpty())
        setName(text);
    if (check(ConfigValue::toBool(map.value(QStringLiteral("enabled")), &flag), QStringLiteral("enabled")))
        setProperty("enabled", flag);
    if (check(ConfigValue::toInt(map.value(QStringLiteral("priority")), &number), QStringLiteral("priority")))
        setProperty("priority", number);

    if (check(ConfigValue::toText(map.value(QStringLiteral("serial_name")), &text), QStringLiteral("serial_name")) &&
        text != serialName() && !setSerialName(text)) {
        DBG(LevelWarn) << "port" << name() << ": the serial name" << text << "is used by another port";
        wrong << QStringLiteral("serial_name");
    }

    if (check(ConfigValue::toInt(map.value(QStringLiteral("baudrate")), &number) && number > 0,
              QStringLiteral("baudrate")))
        setBaudrate(number);
    if (check(ConfigValue::toText(map.value(QStringLiteral("parity")), &text) && text.size() == 1,
              QStringLiteral("parity")))
        setParity(text.at(0));
    if (check(ConfigValue::toInt(map.value(QStringLiteral("databits")), &number) && number > 0,
              QStringLiteral("databits")))
        setDatabits(number);
    if (check(ConfigValue::toInt(map.value(QStringLiteral("stopbits")), &number) && number > 0,
              QStringLiteral("stopbits")))
        setStopbits(number);

    // A timeout that is missing, not a number or below 1 ms is the default.
    number = 0;
    check(ConfigValue::toInt(map.value(QStringLiteral("request_timeout")), &number), QStringLiteral("request_timeout"));
    m_hart.setProperty("request_timeout", number < 1 ? int(HartPort::DefaultRequestTimeout) : number);
    number = 0;
    check(ConfigValue::toInt(map.value(QStringLiteral("response_timeout")), &number),
          QStringLiteral("response_timeout"));
    m_hart.setResponseTimeout(number);
    number = 0;
    check(ConfigValue::toInt(map.value(QStringLiteral("byte_timeout")), &number), QStringLiteral("byte_timeout"));
    m_hart.setByteTimeout(number);

    if (check(ConfigValue::toBool(map.value(QStringLiteral("close_port_after_transaction")), &flag),
              QStringLiteral("close_port_after_transaction")))
        setClosePortAfterTransaction(flag);

    number = 0;
    check(ConfigValue::toInt(map.value(QStringLiteral("initial_number_of_preambles")), &number),
          QStringLiteral("initial_number_of_preambles"));
    m_hart.setStartPreambles(number < 1 ? DefaultStartPreambles : number);

    if (map.contains(QStringLiteral("devices"))) {
        const QVariant devicesValue = map.value(QStringLiteral("devices"));
        if (devicesValue.typeId() != QMetaType::QVariantList) {
            wrong << QStringLiteral("devices");
        } else {
            const QVariantList list = devicesValue.toList();
            for (int i = 0; i < list.size(); ++i) {
                if (list.at(i).typeId() != QMetaType::QVariantMap) {
                    wrong << QStringLiteral("devices[%1]").arg(i);
                    continue;
                }
                const QVariantMap deviceMap = list.at(i).toMap();
                QString deviceName;
                QString templateName;
                ConfigValue::toText(deviceMap.value(QStringLiteral("name")), &deviceName);
                ConfigValue::toText(deviceMap.value(QStringLiteral("template")), &templateName);
                Device* device = addDevice(deviceName, templateName, -1);
                if (!device->load(deviceMap))
                    wrong << QStringLiteral("devices[%1]").arg(i);
            }
        }
    }

    if (!wrong.isEmpty())
        DBG(LevelWarn) << "port" << name()
                       << ": not loaded, wrong or unusable values:" << wrong.join(QStringLiteral(", "));
    return wrong.isEmpty();
}

QMap<QString, QVariant> Port::save() const
{
    QVariantMap map;
    map.insert(QStringLiteral("name"), name());
    map.insert(QStringLiteral("enabled"), isEnabled());
    map.insert(QStringLiteral("priority"), property("priority").toInt());
    map.insert(QStringLiteral("serial_name"), serialName());
    map.insert(QStringLiteral("baudrate"), baudrate());
    map.insert(QStringLiteral("parity"), QString(parity()));
    map.insert(QStringLiteral("databits"), dataBits());
    map.insert(QStringLiteral("stopbits"), stopBits());
    map.insert(QStringLiteral("request_timeout"), m_hart.requestTimeout());
    map.insert(QStringLiteral("response_timeout"), m_hart.responseTimeout());
    map.insert(QStringLiteral("byte_timeout"), m_hart.byteTimeout());
    map.insert(QStringLiteral("close_port_after_transaction"), closePortAfterTransaction());
    map.insert(QStringLiteral("initial_number_of_preambles"), m_hart.startPreambles());
    QVariantList list;
    for (const Device* device : devices())
        list << device->save();
    map.insert(QStringLiteral("devices"), list);
    return map;
}

// ---------------------------------------------------------------------------
// Line settings

QString Port::configName() const
{
    return QStringLiteral("%1 ; %2 ; %3%4%5")
        .arg(serialName(), QString::number(baudrate()), QString::number(dataBits()), QString(parity()),
             QString::number(stopBits()));
}

int Port::baudrateIndex(int baudrate) const
{
    if (baudrate == -1)
        baudrate = this->baudrate();
    for (int i = 0; i < BaudRateCount; ++i) {
        if (BaudRates[i] == baudrate)
            return i;
    }
    return -1;
}

void Port::setBaudrateByIndex(int index)
{
    setBaudrate(index >= 0 && index < BaudRateCount ? BaudRates[index] : 1200);
}

int Port::parityIndex(QChar parity) const
{
    if (parity == QLatin1Char(' '))
        parity = this->parity();
    if (parity == QLatin1Char('N'))
        return 1;
    if (parity == QLatin1Char('E'))
        return 2;
    if (parity == QLatin1Char('O'))
        return 3;
    return 0;
}

void Port::setParityByIndex(int index)
{
    setParity(index == 2 ? QLatin1Char('E') : index == 3 ? QLatin1Char('O') : QLatin1Char('N'));
}

QString Port::serialName() const
{
    return property("serial_name").toString();
}

int Port::baudrate() const
{
    return property("baudrate").toInt();
}

QChar Port::parity() const
{
    const QString text = property("parity").toString();
    return text.isEmpty() ? QChar() : text.at(0);
}

int Port::dataBits() const
{
    return property("databits").toInt();
}

int Port::stopBits() const
{
    return property("stopbits").toInt();
}

void Port::setBaudrate(int baudrate)
{
    setProperty("baudrate", baudrate);
}

void Port::setParity(QChar parity)
{
    setProperty("parity", QString(parity));
}

void Port::setDatabits(int bits)
{
    setProperty("databits", bits);
}

void Port::setStopbits(int bits)
{
    setProperty("stopbits", bits);
}

bool Port::setSerialName(const QString& name)
{
    if (name == serialName())
        return false;
    if (!checkUniqSerialName(name))
        return false;
    setProperty("serial_name", name);
    if (isOpened()) {
        closeHart();
        openHart();
    }
    emit serialNameChanged();
    return true;
}

bool Port::checkUniqSerialName(const QString& name) const
{
    if (serialName() == name)
        return false;
    const ServerItem* server = parentItem();
    if (!server)
        return true;
    for (const ServerItem* item : server->children()) {
        const Port* port = qobject_cast<const Port*>(item);
        if (port && port->serialName() == name)
            return false;
    }
    return true;
}

QStringList Port::devices_available()
{
    QStringList names;
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& info : ports)
        names << info.systemLocation();
    names.removeDuplicates();
    names.sort();
    return names;
}

QString Port::systemLocation(const QString& name)
{
    return name.isEmpty() || name.contains(QLatin1Char('/')) ? name : QStringLiteral("/dev/") + name;
}

bool Port::closePortAfterTransaction() const
{
    return property("close_port_after_transaction").toBool();
}

void Port::setClosePortAfterTransaction(bool close)
{
    setProperty("close_port_after_transaction", close);
}

// ---------------------------------------------------------------------------
// Devices

ServerItem* Port::createChild()
{
    return createDevice(QString());
}

Device* Port::createDevice(const QString& templateName)
{
    // The one place where a template picks the class of a device:
    //   "TCV-C", "DX-C"  TCV2Device
    //   "QP-1C"          QP1Device
    //   "pH-7702"        PH77Device
    //   "General"        DefaultDevice
    //   any other name   Device
    Device* device = nullptr;
    if (templateName == QLatin1String("TCV-C") || templateName == QLatin1String("DX-C"))
        device = new TCV2Device(this);
    else if (templateName == QLatin1String("QP-1C"))
        device = new QP1Device(this);
    else if (templateName == QLatin1String("pH-7702"))
        device = new PH77Device(this);
    else if (templateName == QLatin1String("General"))
        device = new DefaultDevice(this);
    else
        device = new Device(this);
    device->setDeviceTemplateName(templateName);
    connect(device, &ServerItem::modified, this, &ServerItem::modified);
    return device;
}

Device* Port::addDevice(const QString& name, const QString& templateName, int position)
{
    Device* device = createDevice(templateName);
    insertChild(position, device);
    // Without a name of its own the device keeps the one it was made with.
    if (!name.isEmpty())
        device->setName(name);
    device->updateDeviceName();
    return device;
}

Device* Port::device(const QString& name) const
{
    return qobject_cast<Device*>(childByName(name));
}

Device* Port::device(int pollingAddress) const
{
    for (Device* device : devices()) {
        if (device->address() == pollingAddress)
            return device;
    }
    return nullptr;
}

QStringList Port::deviceIds() const
{
    QStringList names;
    for (const Device* device : devices())
        names << device->name();
    return names;
}

QList<Device*> Port::devices() const
{
    QList<Device*> list;
    for (ServerItem* item : children()) {
        if (Device* device = qobject_cast<Device*>(item))
            list << device;
    }
    return list;
}

void Port::removeDevice(const QString& name)
{
    Device* item = device(name);
    if (!item)
        return;
    takeChild(item);
    delete item;
}

bool Port::hasPeriodicallyRequestedDevices() const
{
    for (const Device* device : devices()) {
        if (device->deviceTagState() & Device::TagStatePolled)
            return true;
    }
    return false;
}

bool Port::hasArchivatedDevices() const
{
    for (const Device* device : devices()) {
        if (device->deviceTagState() & Device::TagStateArchived)
            return true;
    }
    return false;
}

bool Port::hasConnectionDevices() const
{
    return !connectionDevices().isEmpty();
}

QList<Device*> Port::connectionDevices() const
{
    QList<Device*> list;
    for (Device* device : devices()) {
        if (device->isIdentified())
            list << device;
    }
    return list;
}

// ---------------------------------------------------------------------------
// The line

bool Port::primaryMaster() const
{
    const Server* server = qobject_cast<const Server*>(parentItem());
    return server ? server->isPrimaryMaster() : true;
}

bool Port::openHart()
{
    const QString name = serialName();
    const bool exists = !name.isEmpty() && (QFileInfo::exists(name) || QFileInfo::exists(systemLocation(name)));
    if (!exists) {
        setErrorText(tr("not such device '%1'").arg(name));
        setErrorCode(3);
        DBG(LevelErr) << "open error:" << errorText();
        return false;
    }
    m_hart.setSerialName(name);
    if (!m_hart.open()) {
        setErrorCode(4);
        setErrorText(
            tr("Can't open %1!\n error code: %2 - %3").arg(name, QString::number(m_hart.error()), m_hart.errorText()));
        DBG(LevelErr) << "open error:" << errorText();
        return false;
    }
    return true;
}

void Port::closeHart()
{
    if (hasPeriodicallyRequestedDevices()) {
        DBG(LevelInfo) << "port" << name() << "stays open: devices on it are polled periodically";
        return;
    }
    m_hart.close();
}

bool Port::isOpened()
{
    return m_hart.isOpen();
}

bool Port::sendHartCommand(const QByteArray& address, unsigned char command, const QByteArray& data,
                           QByteArray& response)
{
    const bool ok = m_hart.sendCommand(address, command, data, response, primaryMaster());
    const int code = m_hart.error();
    setErrorCode(code == 0 ? 1 : code > 0 ? 4 : code);
    setErrorText(m_hart.errorText());
    return ok;
}

int Port::statusByte(int index) const
{
    const QByteArray status = m_hart.statusCode();
    return index >= 0 && index < status.size() ? int(qint8(status.at(index))) : 0;
}

QStringList Port::statusText() const
{
    return m_hart.statusText();
}

// ---------------------------------------------------------------------------
// Finding devices

bool Port::checkHartDevice(int pollingAddress, QVariantMap& info)
{
    if (!isOpened()) {
        setErrorText(tr("port '%1' is not opened").arg(name()));
        updateState(4);
        DBG(LevelErr) << QStringLiteral("check error '%1' - %2").arg(QString::number(errorCode()), errorText());
        return false;
    }
    setErrorText(QString());
    QByteArray response;
    if (!m_hart.sendZeroCommand(quint8(pollingAddress), response, primaryMaster())) {
        setErrorText(m_hart.errorText());
        updateState(4);
        return false;
    }
    // The exchange went well, even when the answer is too short to read.
    const bool ok = m_hart.parseCommandZeroResponse(response, info);
    updateState(1);
    return ok;
}

bool Port::checkHartDeviceByTag(const QString& tag, QVariantMap& info)
{
    // The characters of packed ASCII, upper case only.
    static const QRegularExpression legal(
        QRegularExpression::anchoredPattern(QStringLiteral(R"(^[A-Z0-9,.!?@#$%^&*()_+-=\]\[{}<>;:\'/\\ ]*$)")));
    if (!legal.match(tag).hasMatch()) {
        setErrorText(tr("Invalid chars in device tag!"));
        DBG(LevelErr) << "invalid tag" << tag;
        return false;
    }

    // The tag must come back from packed ASCII as it went in.
    const QString padded = tag.leftJustified(8, QLatin1Char(' '));
    const QByteArray packed = packAscii(padded, 8);
    const QString unpacked = m_hart.unpackAscii(packed);
    if (packed.isEmpty() || unpacked.isEmpty() || unpacked.leftJustified(8, QLatin1Char(' ')) != padded) {
        setErrorText(tr("*** pack/unpack error!"));
        DBG(LevelErr) << "*** pack/unpack error!";
        return false;
    }

    QByteArray response;
    if (!sendHartCommand(broadcastAddress(), 11, packed, response)) {
        DBG(LevelErr) << "device with tag " << tag << "not found!";
        return false;
    }
    return parseIdentity(response, info);
}

bool Port::checkHartDeviceByLongTag(const QString& tag, QVariantMap& info)
{
    QByteArray data = tag.toLatin1().left(32);
    data.append(QByteArray(32 - data.size(), '\0'));
    QByteArray response;
    if (!sendHartCommand(broadcastAddress(), 21, data, response)) {
        DBG(LevelErr) << "device with tag " << tag << "not found!";
        return false;
    }
    return parseIdentity(response, info);
}

bool Port::findHartDeviceBy73(QVariantMap& info)
{
    QByteArray response;
    if (!sendHartCommand(broadcastAddress(), 73, QByteArray(), response)) {
        DBG(LevelErr) << "no device answered command 73:" << errorText();
        return false;
    }
    return parseIdentity(response, info);
}

bool Port::parseIdentity(const QByteArray& response, QVariantMap& info)
{
    if (m_hart.parseCommandZeroResponse(response, info))
        return true;
    setErrorCode(m_hart.error());
    setErrorText(m_hart.errorText());
    return false;
}

// ---------------------------------------------------------------------------
// Text and numbers

QByteArray Port::packAscii(const QString& text, int size)
{
    Q_UNUSED(size)
    return m_hart.packAscii(text.toUpper());
}

QString Port::unpackAscii(const QByteArray& buffer, int size)
{
    Q_UNUSED(size)
    return m_hart.unpackAscii(buffer);
}

QByteArray Port::getBufferFromInt(int value, int size)
{
    const int count = size == 4 ? 4 : size == 3 ? 3 : 2;
    const quint32 bits = quint32(value);
    QByteArray buffer(count, '\0');
    for (int i = 0; i < count; ++i)
        buffer[i] = char((bits >> (8 * (count - 1 - i))) & 0xFF);
    return buffer;
}

int Port::getIntFromBufferByOffset(const QByteArray& buffer, int offset, int size)
{
    // size bytes are taken from the offset, and as many as the size says are
    // read from them: a byte past what was taken counts as 0. So a size of 1
    // reads the byte as the high byte of two.
    const QByteArray taken =
        offset >= 0 && offset < buffer.size() && size > 0 ? buffer.mid(offset, size) : QByteArray();
    const int count = size == 4 ? 4 : size < 3 ? 2 : 3;
    quint32 value = 0;
    for (int i = 0; i < count; ++i)
        value = (value << 8) | byteAt(taken, i);
    return int(value);
}

QByteArray Port::getBufferFromFloat(float value)
{
    QByteArray raw(int(sizeof(float)), '\0');
    std::memcpy(raw.data(), &value, sizeof(float));
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    raw = ByteSwapper::swap_byteorder(raw, 4);
#endif
    return raw;
}

float Port::getFloatFromBufferByOffset(const QByteArray& buffer, int offset)
{
    QByteArray raw(4, '\0');
    for (int i = 0; i < 4; ++i)
        raw[i] = char(byteAt(buffer, qsizetype(offset) + i));
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    raw = ByteSwapper::swap_byteorder(raw, 4);
#endif
    float value = 0.0f;
    std::memcpy(&value, raw.constData(), sizeof(float));
    return value;
}
