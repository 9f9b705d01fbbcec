#include "debugqt.h"
#include "device.h"
#include "port.h"
#include "qjsonsettings.h"
#include "server.h"
#include "simulatedline.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

using hartsim::Fault;

Q_DECLARE_METATYPE(hartsim::Fault)

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

Fault fault(Fault::Kind kind, int command = -1)
{
    Fault f;
    f.kind = kind;
    f.command = command;
    return f;
}

// The long addresses of the simulator's models with their default device ids.
const char* const GenericAddress = "11 2A 00 2A 01";
const char* const Hart5Address = "11 05 00 05 01";

QByteArray bytesOf(float value)
{
    QByteArray bytes(4, '\0');
    std::memcpy(bytes.data(), &value, 4);
    return bytes;
}

QStringList g_log;
void collect(QtMsgType, const QMessageLogContext&, const QString& text)
{
    g_log << text;
}

} // namespace

class TestPort : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    // Without a line.
    void defaults();
    void portTypes();
    void baudrateIndex_data();
    void baudrateIndex();
    void setBaudrateByIndex_data();
    void setBaudrateByIndex();
    void parityIndex_data();
    void parityIndex();
    void setParityByIndex_data();
    void setParityByIndex();
    void configName_data();
    void configName();
    void setSerialName();
    void serialNameUniqueOnTheServer();
    void openHartFailures_data();
    void openHartFailures();
    void bufferFromInt_data();
    void bufferFromInt();
    void intFromBuffer_data();
    void intFromBuffer();
    void floatBytes_data();
    void floatBytes();
    void floatFromShortBuffer_data();
    void floatFromShortBuffer();
    void packAscii();
    void devices();
    void deviceStates();
    void saveLoadRoundTrip();
    void loadMalformed_data();
    void loadMalformed();

    // With the simulator on a pseudo-terminal.
    void openAndClose();
    void polledDevicesKeepTheLineOpen();
    void renamingAnOpenPortReopensIt();
    void sendHartCommandResultCodes_data();
    void sendHartCommandResultCodes();
    void masterFlag_data();
    void masterFlag();
    void statusByte();
    void checkHartDevice_data();
    void checkHartDevice();
    void checkHartDeviceByTag_data();
    void checkHartDeviceByTag();
    void checkHartDeviceByLongTag_data();
    void checkHartDeviceByLongTag();
    void findHartDeviceBy73_data();
    void findHartDeviceBy73();

private:
    void startLine();
    QScopedPointer<QTemporaryDir> m_dir;
    QString m_startDir;
    SimulatedLine m_sim;
};

void TestPort::initTestCase()
{
    DebugQt::instance(0x8ED0007, nullptr);
    m_startDir = QDir::currentPath();
}

void TestPort::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    QVERIFY(QDir::setCurrent(m_dir->path()));
}

void TestPort::cleanup()
{
    m_sim.stop();
    QDir::setCurrent(m_startDir);
}

void TestPort::startLine()
{
    QString error;
    QVERIFY2(m_sim.start({{"generic", {{"polling_address", 0}, {"tag", "PT-1"}, {"long_tag", "Pump one"}}},
                          {"hart5", {{"polling_address", 1}, {"tag", "TT-101"}}}},
                         &error),
             qPrintable(error));
}

// ---------------------------------------------------------------------------
// Without a line

void TestPort::defaults()
{
    Server server;
    Port* first = server.addPort(QStringLiteral("P"));
    QVERIFY(first);
    auto* made = qobject_cast<Port*>(server.createChild());
    QVERIFY(made);
    QVERIFY(made->name().startsWith(QLatin1String("Port_")));
    delete made;

    Port port;
    QCOMPARE(port.type(), 2);
    QCOMPARE(port.fullName(), port.name());
    QVERIFY(port.icon().isNull());
    QCOMPARE(port.property("priority").toInt(), 10);
    QCOMPARE(port.serialName(), QString());
    QCOMPARE(port.baudrate(), 1200);
    QCOMPARE(port.property("parity"), QVariant(QStringLiteral("O")));
    QCOMPARE(port.parity(), QLatin1Char('O'));
    QCOMPARE(port.dataBits(), 8);
    QCOMPARE(port.stopBits(), 1);
    QCOMPARE(port.closePortAfterTransaction(), false);
    QCOMPARE(port.hart().requestTimeout(), 200);
    QCOMPARE(port.hart().responseTimeout(), 370);
    QCOMPARE(port.hart().byteTimeout(), 50);
    QCOMPARE(port.hart().startPreambles(), 10);
    QCOMPARE(port.semaphore().available(), 1);
    QVERIFY(!port.isOpened());
    QVERIFY(port.devices().isEmpty());
    QVERIFY(!port.hasConnectionDevices());
    QVERIFY(!port.hasPeriodicallyRequestedDevices());
    QVERIFY(!port.hasArchivatedDevices());
}

void TestPort::portTypes()
{
    QCOMPARE(Port::portTypeToString(Port::HART), QStringLiteral("HART"));
    QCOMPARE(Port::portTypeToString(Port::MODBUS_TCP), QStringLiteral("MODBUS_TCP"));
    QCOMPARE(Port::portTypeFromString(QStringLiteral("MODBUS_TCP")), Port::MODBUS_TCP);
    QCOMPARE(Port::portTypeFromString(QStringLiteral("HART")), Port::HART);
    QCOMPARE(Port::portTypeFromString(QStringLiteral("modbus_tcp")), Port::HART);
    QCOMPARE(Port::portTypeFromString(QString()), Port::HART);
}

void TestPort::baudrateIndex_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("index");

    const int rates[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
    for (int i = 0; i < 8; ++i)
        QTest::addRow("%d", rates[i]) << 1200 << rates[i] << i;
    QTest::newRow("300 is unknown") << 1200 << 300 << -1;
    QTest::newRow("0 is unknown") << 1200 << 0 << -1;
    QTest::newRow("-1 is the current 9600") << 9600 << -1 << 3;
    QTest::newRow("-1 is the current 300") << 300 << -1 << -1;
}

void TestPort::baudrateIndex()
{
    QFETCH(int, current);
    QFETCH(int, asked);
    QFETCH(int, index);
    Port port;
    port.setBaudrate(current);
    QCOMPARE(port.baudrateIndex(asked), index);
}

void TestPort::setBaudrateByIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("rate");

    const int rates[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
    for (int i = 0; i < 8; ++i)
        QTest::addRow("%d", i) << i << rates[i];
    QTest::newRow("8") << 8 << 1200;
    QTest::newRow("9") << 9 << 1200;
    QTest::newRow("-1") << -1 << 1200;
}

void TestPort::setBaudrateByIndex()
{
    QFETCH(int, index);
    QFETCH(int, rate);
    Port port;
    port.setBaudrate(4242);
    port.setBaudrateByIndex(index);
    QCOMPARE(port.baudrate(), rate);
}

void TestPort::parityIndex_data()
{
    QTest::addColumn<QChar>("current");
    QTest::addColumn<QChar>("asked");
    QTest::addColumn<int>("index");

    QTest::newRow("N") << QChar('O') << QChar('N') << 1;
    QTest::newRow("E") << QChar('O') << QChar('E') << 2;
    QTest::newRow("O") << QChar('N') << QChar('O') << 3;
    QTest::newRow("M") << QChar('O') << QChar('M') << 0;
    QTest::newRow("lower case n") << QChar('O') << QChar('n') << 0;
    QTest::newRow("blank is the current E") << QChar('E') << QChar(' ') << 2;
    QTest::newRow("blank is the current O") << QChar('O') << QChar(' ') << 3;
    QTest::newRow("blank is the current S") << QChar('S') << QChar(' ') << 0;
}

void TestPort::parityIndex()
{
    QFETCH(QChar, current);
    QFETCH(QChar, asked);
    QFETCH(int, index);
    Port port;
    port.setParity(current);
    QCOMPARE(port.parityIndex(asked), index);
    if (asked == QLatin1Char(' '))
        QCOMPARE(port.parityIndex(), index);
}

void TestPort::setParityByIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("parity");

    QTest::newRow("0") << 0 << "N";
    QTest::newRow("1") << 1 << "N";
    QTest::newRow("2") << 2 << "E";
    QTest::newRow("3") << 3 << "O";
    QTest::newRow("4") << 4 << "N";
    QTest::newRow("7") << 7 << "N";
    QTest::newRow("-1") << -1 << "N";
}

void TestPort::setParityByIndex()
{
    QFETCH(int, index);
    QFETCH(QString, parity);
    Port port;
    port.setParity(QLatin1Char('X'));
    port.setParityByIndex(index);
    QCOMPARE(port.property("parity"), QVariant(parity));
    QCOMPARE(QString(port.parity()), parity);
}

void TestPort::configName_data()
{
    QTest::addColumn<QString>("serial");
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("databits");
    QTest::addColumn<QChar>("parity");
    QTest::addColumn<int>("stopbits");
    QTest::addColumn<QString>("text");

    QTest::newRow("defaults") << "" << 1200 << 8 << QChar('O') << 1 << " ; 1200 ; 8O1";
    QTest::newRow("USB") << "/dev/ttyUSB0" << 9600 << 7 << QChar('E') << 2 << "/dev/ttyUSB0 ; 9600 ; 7E2";
    QTest::newRow("a name with a marker") << "/tmp/a%2b" << 2400 << 8 << QChar('N') << 1 << "/tmp/a%2b ; 2400 ; 8N1";
}

void TestPort::configName()
{
    QFETCH(QString, serial);
    QFETCH(int, baud);
    QFETCH(int, databits);
    QFETCH(QChar, parity);
    QFETCH(int, stopbits);
    QFETCH(QString, text);

    Port port;
    if (!serial.isEmpty())
        QVERIFY(port.setSerialName(serial));
    port.setBaudrate(baud);
    port.setDatabits(databits);
    port.setParity(parity);
    port.setStopbits(stopbits);
    QCOMPARE(port.configName(), text);
}

void TestPort::setSerialName()
{
    Port port;
    QSignalSpy changed(&port, &Port::serialNameChanged);
    QVERIFY(port.setSerialName(QStringLiteral("/dev/ttyS7")));
    QCOMPARE(port.serialName(), QStringLiteral("/dev/ttyS7"));
    QCOMPARE(changed.count(), 1);
    // The same name again changes nothing.
    QVERIFY(!port.setSerialName(QStringLiteral("/dev/ttyS7")));
    QCOMPARE(changed.count(), 1);
    QVERIFY(!port.checkUniqSerialName(QStringLiteral("/dev/ttyS7")));
    QVERIFY(port.setSerialName(QString()));
    QCOMPARE(changed.count(), 2);
}

void TestPort::serialNameUniqueOnTheServer()
{
    Server server;
    Port* first = server.addPort(QStringLiteral("First"));
    Port* second = server.addPort(QStringLiteral("Second"));
    QVERIFY(first && second && first != second);
    QVERIFY(first->setSerialName(QStringLiteral("/dev/ttyUSB0")));
    QSignalSpy changed(second, &Port::serialNameChanged);
    QVERIFY(!second->checkUniqSerialName(QStringLiteral("/dev/ttyUSB0")));
    QVERIFY(!second->setSerialName(QStringLiteral("/dev/ttyUSB0")));
    QCOMPARE(second->serialName(), QString());
    QCOMPARE(changed.count(), 0);
    QVERIFY(second->setSerialName(QStringLiteral("/dev/ttyUSB1")));
    // Once the first lets it go, the name is free.
    QVERIFY(first->setSerialName(QStringLiteral("/dev/ttyUSB2")));
    QVERIFY(second->setSerialName(QStringLiteral("/dev/ttyUSB0")));
}

void TestPort::openHartFailures_data()
{
    QTest::addColumn<QString>("serial");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty name") << "" << 3 << "not such device ''";
    QTest::newRow("missing file") << "/nonexistent/ttyHART" << 3 << "not such device '/nonexistent/ttyHART'";
    QTest::newRow("missing device") << "ttyNoSuchHART" << 3 << "not such device 'ttyNoSuchHART'";
    // A file that is there but no serial line: "<file>" stands for its path.
    QTest::newRow("not a tty") << "<file>" << 4 << "Can't open <file>!\n error code: ";
}

void TestPort::openHartFailures()
{
    QFETCH(QString, serial);
    QFETCH(int, code);
    QFETCH(QString, text);

    const QString file = m_dir->filePath(QStringLiteral("plain.txt"));
    QFile plain(file);
    QVERIFY(plain.open(QIODevice::WriteOnly));
    plain.write("not a line");
    plain.close();
    serial.replace(QLatin1String("<file>"), file);
    text.replace(QLatin1String("<file>"), file);

    Port port;
    if (!serial.isEmpty())
        QVERIFY(port.setSerialName(serial));
    QVERIFY(!port.openHart());
    QVERIFY(!port.isOpened());
    QCOMPARE(port.errorCode(), code);
    if (code == 3) {
        QCOMPARE(port.errorText(), text);
    } else {
        QVERIFY2(port.errorText().startsWith(text), qPrintable(port.errorText()));
        // The code and the text of the line follow.
        QVERIFY(port.errorText().size() > text.size() + 4);
    }
}

void TestPort::bufferFromInt_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("0x123456, 3") << 0x123456 << 3 << hx("12 34 56");
    QTest::newRow("0x123456, 1") << 0x123456 << 1 << hx("34 56");
    QTest::newRow("0x123456, 2") << 0x123456 << 2 << hx("34 56");
    QTest::newRow("0x123456, 5") << 0x123456 << 5 << hx("34 56");
    QTest::newRow("0x12345678, 4") << 0x12345678 << 4 << hx("12 34 56 78");
    QTest::newRow("0x12345678, 3") << 0x12345678 << 3 << hx("34 56 78");
    QTest::newRow("-1, 4") << -1 << 4 << hx("FF FF FF FF");
    QTest::newRow("-2, 2") << -2 << 2 << hx("FF FE");
    QTest::newRow("0, 0") << 0 << 0 << hx("00 00");
}

void TestPort::bufferFromInt()
{
    QFETCH(int, value);
    QFETCH(int, size);
    QFETCH(QByteArray, bytes);
    QCOMPARE(Port::getBufferFromInt(value, size).toHex(' '), bytes.toHex(' '));
}

void TestPort::intFromBuffer_data()
{
    QTest::addColumn<QByteArray>("buffer");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("value");

    const QByteArray buffer = hx("12 34 56 78");
    QTest::newRow("4 at 0") << buffer << 0 << 4 << 0x12345678;
    QTest::newRow("3 at 1") << buffer << 1 << 3 << 0x345678;
    QTest::newRow("2 at 2") << buffer << 2 << 2 << 0x5678;
    QTest::newRow("2 at 3: past the end is 0") << buffer << 3 << 2 << 0x7800;
    QTest::newRow("4 at 2: past the end is 0") << buffer << 2 << 4 << 0x56780000;
    // One byte is taken and two are read: the byte is the high one.
    QTest::newRow("1 at 0") << buffer << 0 << 1 << 0x1200;
    QTest::newRow("5 at 0: three read") << buffer << 0 << 5 << 0x123456;
    QTest::newRow("0 at 0") << buffer << 0 << 0 << 0;
    QTest::newRow("offset at the end") << buffer << 4 << 2 << 0;
    QTest::newRow("offset far out") << buffer << 1000 << 4 << 0;
    QTest::newRow("negative offset") << buffer << -1 << 2 << 0;
    QTest::newRow("empty buffer") << QByteArray() << 0 << 4 << 0;
    QTest::newRow("unsigned 2 bytes") << hx("FF FE") << 0 << 2 << 0xFFFE;
    QTest::newRow("4 bytes, negative") << hx("FF FF FF FE") << 0 << 4 << -2;
}

void TestPort::intFromBuffer()
{
    QFETCH(QByteArray, buffer);
    QFETCH(int, offset);
    QFETCH(int, size);
    QFETCH(int, value);
    QCOMPARE(Port::getIntFromBufferByOffset(buffer, offset, size), value);
}

void TestPort::floatBytes_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("1.0") << 1.0f << hx("3F 80 00 00");
    QTest::newRow("-2.5") << -2.5f << hx("C0 20 00 00");
    QTest::newRow("0.1") << 0.1f << hx("3D CC CC CD");
    QTest::newRow("0") << 0.0f << hx("00 00 00 00");
    QTest::newRow("-273.15") << -273.15f << hx("C3 88 93 33");
    QTest::newRow("1e30") << 1e30f << hx("71 49 F2 CA");
}

void TestPort::floatBytes()
{
    QFETCH(float, value);
    QFETCH(QByteArray, bytes);
    const QByteArray buffer = Port::getBufferFromFloat(value);
    QCOMPARE(buffer.toHex(' '), bytes.toHex(' '));
    // Back again, bit for bit, at offset 0 and further in.
    QCOMPARE(bytesOf(Port::getFloatFromBufferByOffset(buffer, 0)).toHex(), bytesOf(value).toHex());
    QCOMPARE(bytesOf(Port::getFloatFromBufferByOffset(hx("AA BB") + buffer + hx("CC"), 2)).toHex(),
             bytesOf(value).toHex());
}

void TestPort::floatFromShortBuffer_data()
{
    QTest::addColumn<QByteArray>("buffer");
    QTest::addColumn<int>("offset");
    QTest::addColumn<float>("value");

    // Bytes past the end count as 0.
    QTest::newRow("two bytes of 1.0") << hx("3F 80") << 0 << 1.0f;
    QTest::newRow("offset at the end") << hx("3F 80 00 00") << 4 << 0.0f;
    QTest::newRow("offset far out") << hx("3F 80 00 00") << 100000 << 0.0f;
    QTest::newRow("negative offset") << hx("3F 80 00 00") << -2 << 0.0f;
    QTest::newRow("empty") << QByteArray() << 0 << 0.0f;
}

void TestPort::floatFromShortBuffer()
{
    QFETCH(QByteArray, buffer);
    QFETCH(int, offset);
    QFETCH(float, value);
    QCOMPARE(Port::getFloatFromBufferByOffset(buffer, offset), value);
}

void TestPort::packAscii()
{
    Port port;
    // Upper case first; the size is not looked at.
    QCOMPARE(port.packAscii(QStringLiteral("abcd"), 8).toHex(' '), hx("04 20 C4").toHex(' '));
    QCOMPARE(port.packAscii(QStringLiteral("PT-1    "), 3).toHex(' '), hx("41 4B 71 82 08 20").toHex(' '));
    QCOMPARE(port.unpackAscii(hx("04 20 C4"), 1), QStringLiteral("ABCD"));
}

void TestPort::devices()
{
    Port port;
    port.setName(QStringLiteral("Line"));
    QSignalSpy modified(&port, &ServerItem::modified);

    Device* made = port.createDevice(QStringLiteral("QP-1C"));
    QVERIFY(made);
    QCOMPARE(made->deviceTemplateName(), QStringLiteral("QP-1C"));
    QVERIFY(made->port() == &port);
    emit made->modified();
    QCOMPARE(modified.count(), 1);
    delete made;

    Device* first = port.addDevice(QStringLiteral("First"), QStringLiteral("General"), -1);
    QVERIFY(first);
    first->setAddress(4);
    Device* second = port.addDevice(QStringLiteral("Second"), QStringLiteral("Unknown"), 0);
    QVERIFY(second);
    second->setAddress(9);
    QCOMPARE(second->deviceTemplateName(), QStringLiteral("Unknown"));
    QCOMPARE(port.devices(), (QList<Device*>{second, first}));
    QVERIFY(port.device(first->name()) == first);
    QVERIFY(port.device(second->name()) == second);
    QVERIFY(port.device(QStringLiteral("nobody")) == nullptr);
    QVERIFY(port.device(4) == first);
    QVERIFY(port.device(9) == second);
    QVERIFY(port.device(5) == nullptr);
    QCOMPARE(port.deviceIds().size(), 2);
    QVERIFY(port.deviceIds().contains(first->name()));
    QVERIFY(port.deviceIds().contains(second->name()));

    // A change in a device reaches the port.
    modified.clear();
    emit first->modified();
    QCOMPARE(modified.count(), 1);

    port.removeDevice(QStringLiteral("nobody"));
    QCOMPARE(port.devices().size(), 2);
    port.removeDevice(second->name());
    QCOMPARE(port.devices(), QList<Device*>{first});

    // Children made by the tree are devices too.
    QVERIFY(port.insertChildren(0, 1));
    QCOMPARE(port.devices().size(), 2);
}

void TestPort::deviceStates()
{
    Port port;
    Device* polled = port.addDevice(QStringLiteral("A"), QString(), -1);
    Device* archived = port.addDevice(QStringLiteral("B"), QString(), -1);
    QVERIFY(!port.hasPeriodicallyRequestedDevices());
    QVERIFY(!port.hasArchivatedDevices());
    polled->setDeviceTagState(Device::TagStateNone | Device::TagStatePolled);
    QVERIFY(port.hasPeriodicallyRequestedDevices());
    QVERIFY(!port.hasArchivatedDevices());
    archived->setDeviceTagState(Device::TagStateRead | Device::TagStateArchived);
    QVERIFY(port.hasArchivatedDevices());
    polled->setDeviceTagState(Device::TagStateRead | Device::TagStateWritten | Device::TagStateChanged);
    QVERIFY(!port.hasPeriodicallyRequestedDevices());

    // Identified devices are the ones with a connection.
    QVERIFY(!port.hasConnectionDevices());
    QVariantMap map = archived->save();
    QVariantMap parameters = map.value(QStringLiteral("parameters")).toMap();
    parameters.insert(QStringLiteral("deviceID"), QStringLiteral("0x00h 0x2Ah 0x01h"));
    parameters.insert(QStringLiteral("address"), QStringLiteral("0x11h 0x2Ah 0x00h 0x2Ah 0x01h"));
    map.insert(QStringLiteral("parameters"), parameters);
    QVERIFY(archived->load(map));
    QVERIFY(archived->isIdentified());
    QVERIFY(port.hasConnectionDevices());
    QCOMPARE(port.connectionDevices(), QList<Device*>{archived});
}

void TestPort::saveLoadRoundTrip()
{
    Server server;
    Port* port = server.addPort(QStringLiteral("Line A"));
    QVERIFY(port);
    port->setProperty("enabled", false);
    port->setProperty("priority", 3);
    QVERIFY(port->setSerialName(QStringLiteral("/dev/ttyUSB3")));
    port->setBaudrate(9600);
    port->setParity(QLatin1Char('E'));
    port->setDatabits(7);
    port->setStopbits(2);
    port->hart().setProperty("request_timeout", 250);
    port->hart().setResponseTimeout(600);
    port->hart().setByteTimeout(80);
    port->setClosePortAfterTransaction(true);
    port->hart().setStartPreambles(20);
    Device* first = port->addDevice(QStringLiteral("Dev A"), QStringLiteral("TCV-C"), -1);
    first->setAddress(2);
    first->setDeviceInfo(QStringLiteral("tag"), QStringLiteral("TT-1"));
    Device* second = port->addDevice(QStringLiteral("Dev B"), QStringLiteral("General"), -1);
    second->setAddress(5);
    second->setComment(QStringLiteral("spare"));
    // Loading names a device after its template and tag or address.
    first->updateDeviceName();
    second->updateDeviceName();
    const QVariantMap saved = port->save();

    const QStringList keys{"name",
                           "enabled",
                           "priority",
                           "serial_name",
                           "baudrate",
                           "parity",
                           "databits",
                           "stopbits",
                           "request_timeout",
                           "response_timeout",
                           "byte_timeout",
                           "close_port_after_transaction",
                           "initial_number_of_preambles",
                           "devices"};
    QStringList sortedKeys = keys;
    sortedKeys.sort();
    QCOMPARE(QStringList(saved.keys()), sortedKeys);

    {
        QJsonSettings settings(QStringLiteral("calvane.cfg"));
        settings.setValue(QStringLiteral("srv"), QVariantMap{{QStringLiteral("ports"), QVariantList{saved}}});
        settings.sync();
        QCOMPARE(settings.status(), QSettings::NoError);
    }

    // In the file: the parity is a text of one character, the devices a list.
    QFile file(QStringLiteral("calvane.cfg"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject object = QJsonDocument::fromJson(file.readAll())
                                   .object()
                                   .value(QStringLiteral("srv"))
                                   .toObject()
                                   .value(QStringLiteral("ports"))
                                   .toArray()
                                   .at(0)
                                   .toObject();
    QCOMPARE(object.value(QStringLiteral("parity")).toString(), QStringLiteral("E"));
    QCOMPARE(object.value(QStringLiteral("devices")).toArray().size(), 2);
    QCOMPARE(object.value(QStringLiteral("initial_number_of_preambles")).toInt(), 20);

    // Read a copy: QSettings would otherwise serve its cache of the file.
    QVERIFY(QFile::copy(QStringLiteral("calvane.cfg"), QStringLiteral("copy.cfg")));
    const QVariantList ports =
        QJsonSettings(QStringLiteral("copy.cfg")).value(QStringLiteral("srv")).toMap().value("ports").toList();
    QCOMPARE(ports.size(), 1);
    const QVariantMap read = ports.at(0).toMap();

    Server other;
    Port* back = other.addPort(read.value(QStringLiteral("name")).toString());
    QVERIFY(back);
    QVERIFY(back->load(read));
    QCOMPARE(back->name(), QStringLiteral("Line_A"));
    QCOMPARE(back->isEnabled(), false);
    QCOMPARE(back->property("priority").toInt(), 3);
    QCOMPARE(back->serialName(), QStringLiteral("/dev/ttyUSB3"));
    QCOMPARE(back->baudrate(), 9600);
    QCOMPARE(back->parity(), QLatin1Char('E'));
    QCOMPARE(back->dataBits(), 7);
    QCOMPARE(back->stopBits(), 2);
    QCOMPARE(back->hart().requestTimeout(), 250);
    QCOMPARE(back->hart().responseTimeout(), 600);
    QCOMPARE(back->hart().byteTimeout(), 80);
    QCOMPARE(back->closePortAfterTransaction(), true);
    QCOMPARE(back->hart().startPreambles(), 20);
    QCOMPARE(back->devices().size(), 2);
    QCOMPARE(back->devices().at(0)->deviceTemplateName(), QStringLiteral("TCV-C"));
    QCOMPARE(back->devices().at(0)->address(), 2);
    QCOMPARE(back->devices().at(0)->name(), first->name());
    QCOMPARE(back->devices().at(1)->deviceTemplateName(), QStringLiteral("General"));
    QCOMPARE(back->devices().at(1)->comment(), QStringLiteral("spare"));
    QCOMPARE(back->devices().at(1)->name(), second->name());
    // The devices come back with the port.
    QCOMPARE(back->save(), saved);
}

void TestPort::loadMalformed_data()
{
    QTest::addColumn<QVariantMap>("config");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("expected"); // invalid: as a new port has it; for "devices" their count
    QTest::addColumn<QVariant>("result");   // invalid: either

    const QVariant asNew;
    QTest::newRow("nothing") << QVariantMap() << "baudrate" << asNew << QVariant(true);
    QTest::newRow("no devices") << QVariantMap() << "devices" << QVariant(0) << QVariant(true);
    QTest::newRow("devices a text") << QVariantMap{{"devices", "x"}} << "devices" << QVariant(0) << QVariant(false);
    QTest::newRow("devices a map") << QVariantMap{{"devices", QVariantMap{{"name", "D"}}}} << "devices" << QVariant(0)
                                   << QVariant(false);
    QTest::newRow("device entries that are no maps")
        << QVariantMap{{"devices",
                        QVariantList{"x", 5, QVariantMap{{"name", "D"}, {"template", "General"}}, QVariantList{}}}}
        << "devices" << QVariant(1) << QVariant(false);
    QTest::newRow("device entry with wrong types")
        << QVariantMap{{"devices", QVariantList{QVariantMap{{"name", 5},
                                                            {"template", QVariantList{}},
                                                            {"parameters", "x"},
                                                            {"polling_address", "abc"},
                                                            {"measure_info", 3}}}}}
        << "devices" << QVariant(1) << QVariant();
    QTest::newRow("devices with the others wrong")
        << QVariantMap{{"baudrate", "fast"}, {"devices", QVariantList{QVariantMap{{"name", "D"}}}}} << "devices"
        << QVariant(1) << QVariant(false);
    QTest::newRow("request timeout a text")
        << QVariantMap{{"request_timeout", "abc"}} << "request_timeout" << QVariant(200) << QVariant(false);
    QTest::newRow("request timeout 0") << QVariantMap{{"request_timeout", 0}} << "request_timeout" << QVariant(200)
                                       << QVariant(true);
    QTest::newRow("request timeout 90") << QVariantMap{{"request_timeout", 90}} << "request_timeout" << QVariant(90)
                                        << QVariant(true);
    QTest::newRow("response timeout negative")
        << QVariantMap{{"response_timeout", -5}} << "response_timeout" << QVariant(370) << QVariant(true);
    QTest::newRow("response timeout 500")
        << QVariantMap{{"response_timeout", 500}} << "response_timeout" << QVariant(500) << QVariant(true);
    QTest::newRow("response timeout as text")
        << QVariantMap{{"response_timeout", "450"}} << "response_timeout" << QVariant(450) << QVariant(true);
    QTest::newRow("byte timeout a list") << QVariantMap{{"byte_timeout", QVariantList{1}}} << "byte_timeout"
                                         << QVariant(50) << QVariant(false);
    QTest::newRow("baud rate a text") << QVariantMap{{"baudrate", "fast"}} << "baudrate" << asNew << QVariant(false);
    QTest::newRow("baud rate 9600") << QVariantMap{{"baudrate", 9600}} << "baudrate" << QVariant(9600)
                                    << QVariant(true);
    QTest::newRow("baud rate negative") << QVariantMap{{"baudrate", -9600}} << "baudrate" << asNew << QVariant(false);
    QTest::newRow("parity empty") << QVariantMap{{"parity", ""}} << "parity" << asNew << QVariant(false);
    QTest::newRow("parity too long") << QVariantMap{{"parity", "Even"}} << "parity" << asNew << QVariant(false);
    QTest::newRow("parity a list") << QVariantMap{{"parity", QVariantList{"E"}}} << "parity" << asNew
                                   << QVariant(false);
    QTest::newRow("parity E") << QVariantMap{{"parity", "E"}} << "parity" << QVariant("E") << QVariant(true);
    QTest::newRow("data bits a map") << QVariantMap{{"databits", QVariantMap()}} << "databits" << asNew
                                     << QVariant(false);
    QTest::newRow("stop bits 2") << QVariantMap{{"stopbits", 2}} << "stopbits" << QVariant(2) << QVariant(true);
    QTest::newRow("priority a map") << QVariantMap{{"priority", QVariantMap()}} << "priority" << asNew
                                    << QVariant(false);
    QTest::newRow("enabled a word") << QVariantMap{{"enabled", "yes"}} << "enabled" << asNew << QVariant(false);
    QTest::newRow("enabled false") << QVariantMap{{"enabled", false}} << "enabled" << QVariant(false) << QVariant(true);
    QTest::newRow("close after 1") << QVariantMap{{"close_port_after_transaction", 1}} << "close_port_after_transaction"
                                   << QVariant(true) << QVariant(true);
    QTest::newRow("close after a list") << QVariantMap{{"close_port_after_transaction", QVariantList{}}}
                                        << "close_port_after_transaction" << asNew << QVariant(false);
    QTest::newRow("preambles 0") << QVariantMap{{"initial_number_of_preambles", 0}} << "initial_number_of_preambles"
                                 << QVariant(10) << QVariant(true);
    QTest::newRow("preambles a text") << QVariantMap{{"initial_number_of_preambles", "abc"}}
                                      << "initial_number_of_preambles" << QVariant(10) << QVariant(false);
    QTest::newRow("preambles 7") << QVariantMap{{"initial_number_of_preambles", 7}} << "initial_number_of_preambles"
                                 << QVariant(7) << QVariant(true);
    QTest::newRow("serial name a list") << QVariantMap{{"serial_name", QVariantList{"/dev/x"}}} << "serial_name"
                                        << asNew << QVariant(false);
    QTest::newRow("serial name") << QVariantMap{{"serial_name", "/dev/ttyS3"}} << "serial_name"
                                 << QVariant("/dev/ttyS3") << QVariant(true);
    QTest::newRow("serial name of another port")
        << QVariantMap{{"serial_name", "/dev/taken"}} << "serial_name" << asNew << QVariant(false);
    QTest::newRow("name empty") << QVariantMap{{"name", ""}} << "name" << asNew << QVariant(true);
    QTest::newRow("name a map") << QVariantMap{{"name", QVariantMap()}} << "name" << asNew << QVariant(false);
    QTest::newRow("name") << QVariantMap{{"name", "Line 9"}} << "name" << QVariant("Line_9") << QVariant(true);
}

void TestPort::loadMalformed()
{
    QFETCH(QVariantMap, config);
    QFETCH(QString, key);
    QFETCH(QVariant, expected);
    QFETCH(QVariant, result);

    Server server;
    Port* other = server.addPort(QStringLiteral("Other"));
    QVERIFY(other->setSerialName(QStringLiteral("/dev/taken")));
    Port* port = server.addPort(QStringLiteral("Port"));
    const QVariantMap fresh = port->save();

    const bool ok = port->load(config);
    if (result.isValid())
        QCOMPARE(ok, result.toBool());
    const QVariantMap saved = port->save();
    if (key == QLatin1String("devices")) {
        QCOMPARE(saved.value(key).toList().size(), expected.toInt());
        QCOMPARE(port->devices().size(), expected.toInt());
    } else {
        QCOMPARE(saved.value(key), expected.isValid() ? expected : fresh.value(key));
    }
    // Whatever was wrong, the rest of the port is whole and saves.
    QCOMPARE(saved.size(), fresh.size());
}

// ---------------------------------------------------------------------------
// With the simulator

void TestPort::openAndClose()
{
    startLine();
    Port port;
    QVERIFY(port.setSerialName(m_sim.path()));
    QVERIFY(!port.isOpened());
    QVERIFY2(port.openHart(), qPrintable(port.errorText()));
    QVERIFY(port.isOpened());
    port.closeHart();
    QVERIFY(!port.isOpened());
    QVERIFY(port.openHart());
    QVERIFY(port.isOpened());
}

void TestPort::polledDevicesKeepTheLineOpen()
{
    startLine();
    Port port;
    QVERIFY(port.setSerialName(m_sim.path()));
    Device* device = port.addDevice(QStringLiteral("D"), QString(), -1);
    QVERIFY(port.openHart());
    device->setDeviceTagState(Device::TagStateNone | Device::TagStatePolled);
    port.closeHart();
    QVERIFY(port.isOpened());
    device->setDeviceTagState(Device::TagStateNone);
    port.closeHart();
    QVERIFY(!port.isOpened());
}

void TestPort::renamingAnOpenPortReopensIt()
{
    startLine();
    Port port;
    QVERIFY(port.setSerialName(m_sim.path()));
    QVERIFY(port.openHart());
    QVERIFY(port.setSerialName(QStringLiteral("/nonexistent/ttyHART")));
    QVERIFY(!port.isOpened());
    QCOMPARE(port.errorCode(), 3);
    // A closed port stays closed under a new name.
    QVERIFY(port.setSerialName(m_sim.path()));
    QVERIFY(!port.isOpened());
    QVERIFY(port.openHart());
    QVERIFY(port.setSerialName(m_sim.path() + QStringLiteral("/")));
    QVERIFY(!port.isOpened());
}

void TestPort::sendHartCommandResultCodes_data()
{
    QTest::addColumn<Fault>("spoiler");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("error");

    Fault writeProtected = fault(Fault::ResponseCode);
    writeProtected.code = 7;
    QTest::newRow("good") << fault(Fault::Delay) << true << 1 << QString();
    QTest::newRow("no answer: a port error") << fault(Fault::NoAnswer) << false << 4 << "Response timeout (370ms)";
    QTest::newRow("wrong checksum") << fault(Fault::BadChecksum) << false << -1
                                    << "Response command parsing error: *** Checksum is wrong!";
    QTest::newRow("other command") << fault(Fault::WrongCommand) << false << -2
                                   << "Invalid command response: *** command number check error:  1 / 2";
    QTest::newRow("device error") << writeProtected << false << -3
                                  << "Command error (error code 7): *** write protection mode set";
}

void TestPort::sendHartCommandResultCodes()
{
    QFETCH(Fault, spoiler);
    QFETCH(bool, ok);
    QFETCH(int, code);
    QFETCH(QString, error);

    startLine();
    Port port;
    QVERIFY(port.setSerialName(m_sim.path()));
    QVERIFY(port.openHart());
    QByteArray response;
    QVERIFY(port.sendHartCommand(hx(GenericAddress), 0, QByteArray(), response)); // past the cold start
    QCOMPARE(port.errorCode(), 1);

    m_sim.addFault(0, spoiler);
    response = QByteArray("untouched");
    QCOMPARE(port.sendHartCommand(hx(GenericAddress), 1, QByteArray(), response), ok);
    QCOMPARE(port.errorCode(), code);
    QCOMPARE(port.errorText(), error);
    if (ok)
        QCOMPARE(response.size(), 5); // unit and PV
    else
        QCOMPARE(response, QByteArray("untouched"));

    // The next good exchange clears code and text.
    m_sim.line().clearFaults();
    QVERIFY(port.sendHartCommand(hx(GenericAddress), 1, QByteArray(), response));
    QCOMPARE(port.errorCode(), 1);
    QCOMPARE(port.errorText(), QString());
}

void TestPort::masterFlag_data()
{
    QTest::addColumn<int>("setting"); // 0 no server, 1 primary, 2 secondary
    QTest::addColumn<bool>("primary");

    QTest::newRow("without a server") << 0 << true;
    QTest::newRow("primary") << 1 << true;
    QTest::newRow("secondary") << 2 << false;
}

void TestPort::masterFlag()
{
    QFETCH(int, setting);
    QFETCH(bool, primary);

    startLine();
    Server server;
    server.setPrimaryMaster(setting != 2);
    QScopedPointer<Port> alone(setting == 0 ? new Port : nullptr);
    Port* port = setting == 0 ? alone.data() : server.addPort(QStringLiteral("P"));
    QVERIFY(port->setSerialName(m_sim.path()));
    QVERIFY(port->openHart());
    QByteArray response;
    QVERIFY(port->sendHartCommand(hx(GenericAddress), 1, QByteArray(), response));
    QVariantMap info;
    QVERIFY(port->checkHartDevice(0, info));
    const hartsim::RequestRecord first = m_sim.record(1);
    const hartsim::RequestRecord second = m_sim.record(2);
    QCOMPARE(first.command, quint8(1));
    QCOMPARE(first.primaryMaster, primary);
    QCOMPARE(second.command, quint8(0));
    QCOMPARE(second.primaryMaster, primary);
}

void TestPort::statusByte()
{
    startLine();
    Port port;
    QVERIFY(port.setSerialName(m_sim.path()));
    QVERIFY(port.openHart());
    QCOMPARE(port.statusByte(0), 0);
    QByteArray response;
    QVERIFY(port.sendHartCommand(hx(GenericAddress), 0, QByteArray(), response));
    QCOMPARE(port.statusByte(0), 0);
    QCOMPARE(port.statusByte(1), 0x20); // cold start
    QCOMPARE(port.statusByte(2), 0);
    QCOMPARE(port.statusByte(-1), 0);
    QCOMPARE(port.statusText(), QStringList{QStringLiteral("*** Cold start")});

    // A communication error reported by the device: the byte is signed.
    Fault parity = fault(Fault::ResponseCode);
    parity.code = 0xC0;
    m_sim.addFault(0, parity);
    QVERIFY(!port.sendHartCommand(hx(GenericAddress), 1, QByteArray(), response));
    QCOMPARE(port.errorCode(), -3);
    QCOMPARE(port.statusByte(0), -64);
}

void TestPort::checkHartDevice_data()
{
    QTest::addColumn<int>("pollingAddress");
    QTest::addColumn<bool>("open");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QByteArray>("longAddress");

    QTest::newRow("generic at 0") << 0 << true << true << int(ServerItem::StateGood) << 1 << QString()
                                  << hx(GenericAddress);
    QTest::newRow("HART 5 at 1") << 1 << true << true << int(ServerItem::StateGood) << 1 << QString()
                                 << hx(Hart5Address);
    QTest::newRow("nobody at 7") << 7 << true << false << int(ServerItem::StateFailed) << 4
                                 << "Response timeout (370ms)" << QByteArray();
    QTest::newRow("port not open") << 0 << false << false << int(ServerItem::StateFailed) << 4
                                   << "port 'Line' is not opened" << QByteArray();
}

void TestPort::checkHartDevice()
{
    QFETCH(int, pollingAddress);
    QFETCH(bool, open);
    QFETCH(bool, ok);
    QFETCH(int, state);
    QFETCH(int, code);
    QFETCH(QString, error);
    QFETCH(QByteArray, longAddress);

    startLine();
    Port port;
    port.setName(QStringLiteral("Line"));
    QVERIFY(port.setSerialName(m_sim.path()));
    if (open)
        QVERIFY(port.openHart());

    g_log.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collect);
    QVariantMap info;
    const bool result = port.checkHartDevice(pollingAddress, info);
    qInstallMessageHandler(previous);

    QCOMPARE(result, ok);
    QCOMPARE(port.state(), state);
    QCOMPARE(port.errorCode(), code);
    QCOMPARE(port.errorText(), error);
    QCOMPARE(info.value(QStringLiteral("address")).toByteArray().toHex(' '), longAddress.toHex(' '));
    if (ok)
        QCOMPARE(info.value(QStringLiteral("manufacturer_code")).toInt(), 0x11);
    if (!open) {
        QCOMPARE(m_sim.line().requestCount(), 0);
        QVERIFY(!g_log.filter(QStringLiteral("check error '4' - port 'Line' is not opened")).isEmpty());
    } else {
        const hartsim::RequestRecord record = m_sim.record(1);
        QCOMPARE(record.command, quint8(0));
        QCOMPARE(record.address.size(), 1);
        QCOMPARE(record.address.at(0) & 0x3F, pollingAddress);
    }
}

void TestPort::checkHartDeviceByTag_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("deviceTag");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("error");
    QTest::addColumn<bool>("sent");
    QTest::addColumn<QByteArray>("request"); // empty: not looked at
    QTest::addColumn<QByteArray>("longAddress");

    QTest::newRow("padded tag") << "PT-1"
                                << "PT-1" << true << QString() << true << hx("41 4B 71 82 08 20") << hx(GenericAddress);
    QTest::newRow("eight characters, no padding")
        << "ABCDEFGH"
        << "ABCDEFGH" << true << QString() << true << hx("04 20 C4 14 61 C8") << hx(GenericAddress);
    QTest::newRow("marks") << "A.B/C:1+"
                           << "A.B/C:1+" << true << QString() << true << QByteArray() << hx(GenericAddress);
    QTest::newRow("the HART 5 device") << "TT-101"
                                       << "PT-1" << true << QString() << true << QByteArray() << hx(Hart5Address);
    QTest::newRow("lower case") << "pt-1"
                                << "PT-1" << false << "Invalid chars in device tag!" << false << QByteArray()
                                << QByteArray();
    QTest::newRow("tilde") << "PT~1"
                           << "PT-1" << false << "Invalid chars in device tag!" << false << QByteArray()
                           << QByteArray();
    QTest::newRow("quote") << "PT\"1"
                           << "PT-1" << false << "Invalid chars in device tag!" << false << QByteArray()
                           << QByteArray();
    QTest::newRow("empty") << ""
                           << "PT-1" << false << "*** pack/unpack error!" << false << QByteArray() << QByteArray();
    QTest::newRow("nobody has it") << "NOPE"
                                   << "PT-1" << false << "Response timeout (370ms)" << true << QByteArray()
                                   << QByteArray();
}

void TestPort::checkHartDeviceByTag()
{
    QFETCH(QString, tag);
    QFETCH(QString, deviceTag);
    QFETCH(bool, ok);
    QFETCH(QString, error);
    QFETCH(bool, sent);
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, longAddress);

    startLine();
    m_sim.setParam(0, QStringLiteral("tag"), deviceTag);
    Port port;
    QVERIFY(port.setSerialName(m_sim.path()));
    QVERIFY(port.openHart());

    g_log.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collect);
    QVariantMap info;
    const bool result = port.checkHartDeviceByTag(tag, info);
    qInstallMessageHandler(previous);

    QCOMPARE(result, ok);
    QCOMPARE(port.errorText(), error);
    QCOMPARE(info.value(QStringLiteral("address")).toByteArray().toHex(' '), longAddress.toHex(' '));
    if (!sent) {
        QCOMPARE(m_sim.line().requestCount(), 0);
        return;
    }
    const hartsim::RequestRecord record = m_sim.record(1);
    QCOMPARE(record.command, quint8(11));
    QCOMPARE(record.address.size(), 5);
    QCOMPARE(record.address.at(0) & 0x3F, 0);
    QCOMPARE(record.address.mid(1), QByteArray(4, '\0'));
    QCOMPARE(record.data.size(), 6);
    if (!request.isEmpty())
        QCOMPARE(record.data.toHex(' '), request.toHex(' '));
    if (!ok) {
        QCOMPARE(port.errorCode(), 4);
        QVERIFY(!g_log.filter(QStringLiteral("device with tag ")).filter(QStringLiteral("not found!")).isEmpty());
    }
}

void TestPort::checkHartDeviceByLongTag_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QByteArray>("longAddress");

    QTest::newRow("Pump one") << "Pump one" << true << hx(GenericAddress);
    QTest::newRow("Pump two") << "Pump two" << false << QByteArray();
    QTest::newRow("too long") << QString(40, QLatin1Char('A')) << false << QByteArray();
}

void TestPort::checkHartDeviceByLongTag()
{
    QFETCH(QString, tag);
    QFETCH(bool, ok);
    QFETCH(QByteArray, longAddress);

    startLine();
    Port port;
    QVERIFY(port.setSerialName(m_sim.path()));
    QVERIFY(port.openHart());
    QVariantMap info;
    QCOMPARE(port.checkHartDeviceByLongTag(tag, info), ok);
    QCOMPARE(port.errorCode(), ok ? 1 : 4);
    QCOMPARE(info.value(QStringLiteral("address")).toByteArray().toHex(' '), longAddress.toHex(' '));

    // 32 bytes of Latin-1, zero-filled or cut.
    QByteArray expected = tag.toLatin1().left(32);
    expected.append(QByteArray(32 - expected.size(), '\0'));
    const hartsim::RequestRecord record = m_sim.record(1);
    QCOMPARE(record.command, quint8(21));
    QCOMPARE(record.address.mid(1), QByteArray(4, '\0'));
    QCOMPARE(record.data, expected);
}

void TestPort::findHartDeviceBy73_data()
{
    QTest::addColumn<bool>("pressed");
    QTest::addColumn<bool>("ok");

    QTest::newRow("button pressed") << true << true;
    QTest::newRow("button not pressed") << false << false;
}

void TestPort::findHartDeviceBy73()
{
    QFETCH(bool, pressed);
    QFETCH(bool, ok);

    startLine();
    m_sim.line().withDevice(0, [&](hartsim::SimDevice& d) { d.setButtonPressed(pressed); });
    Port port;
    QVERIFY(port.setSerialName(m_sim.path()));
    QVERIFY(port.openHart());
    QVariantMap info;
    QCOMPARE(port.findHartDeviceBy73(info), ok);
    QCOMPARE(port.errorCode(), ok ? 1 : 4);
    QCOMPARE(info.value(QStringLiteral("address")).toByteArray().toHex(' '),
             ok ? hx(GenericAddress).toHex(' ') : QByteArray());
    const hartsim::RequestRecord record = m_sim.record(1);
    QCOMPARE(record.command, quint8(73));
    QCOMPARE(record.address.mid(1), QByteArray(4, '\0'));
    QVERIFY(record.data.isEmpty());
}

QTEST_GUILESS_MAIN(TestPort)
#include "tst_port.moc"
