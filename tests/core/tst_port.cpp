#include "debugqt.h"
#include "device.h"
#include "modelline.h"
#include "port.h"
#include "scratchdir.h"
#include "server.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QtTest>

#include <cstring>
#include <tuple>

using hartsim::Fault;

Q_DECLARE_METATYPE(hartsim::Fault)

namespace {

Fault fault(Fault::Kind kind, int code = 0)
{
    Fault f;
    f.kind = kind;
    f.code = code;
    return f;
}

// The long address of the simulator's generic device with its default id.
const QByteArray GenericAddress = hx("112a002a01");

QByteArray bytesOf(float value)
{
    QByteArray bytes(4, '\0');
    std::memcpy(bytes.data(), &value, 4);
    return bytes.toHex();
}

} // namespace

class TestPort : public QObject
{
    Q_OBJECT

    // A generic HART 7 device at 0 and a HART 5 one at 1, and port open on them.
    void openOnLine(Port& port)
    {
        QString error;
        QVERIFY2(m_sim.start({{"generic", {{"polling_address", 0}, {"tag", "PT-1"}, {"long_tag", "Pump one"}}},
                              {"hart5", {{"polling_address", 1}, {"tag", "TT-101"}}}},
                             &error),
                 qPrintable(error));
        QVERIFY(port.setSerialName(m_sim.path()));
        QVERIFY2(port.openHart(), qPrintable(port.errorText()));
    }

    ScratchDir m_dir;
    SimulatedLine m_sim;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0007, nullptr); }
    void init() { QVERIFY(m_dir.enter()); }
    void cleanup()
    {
        m_sim.stop();
        m_dir.leave();
    }

    // -----------------------------------------------------------------------
    // Without a line

    void lineSettings()
    {
        QCOMPARE(Port::portTypeToString(Port::MODBUS_TCP), QStringLiteral("MODBUS_TCP"));
        QCOMPARE(Port::portTypeFromString(QStringLiteral("MODBUS_TCP")), Port::MODBUS_TCP);
        QCOMPARE(Port::portTypeFromString(QStringLiteral("modbus_tcp")), Port::HART);

        Port port;
        const QList<int> rates{1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
        for (int i = 0; i < rates.size(); ++i) {
            port.setBaudrateByIndex(i);
            QCOMPARE(port.baudrate(), rates.at(i));
            QCOMPARE(port.baudrateIndex(), i);
            QCOMPARE(port.baudrateIndex(rates.at(i)), i);
        }
        QCOMPARE(port.baudrateIndex(300), -1);
        // An index past either end gives 1200.
        for (int index : {8, 9, -1}) {
            port.setBaudrate(300);
            QCOMPARE(port.baudrateIndex(), -1);
            port.setBaudrateByIndex(index);
            QCOMPARE(port.baudrate(), 1200);
        }

        for (const auto& [parity, index] : QList<QPair<QChar, int>>{{'N', 1}, {'E', 2}, {'O', 3}, {'M', 0}, {'n', 0}}) {
            QCOMPARE(port.parityIndex(parity), index);
            // A blank stands for the current setting.
            port.setParity(parity);
            QCOMPARE(port.parityIndex(), index);
        }
        for (const auto& [index, parity] :
             QList<QPair<int, QString>>{{1, "N"}, {2, "E"}, {3, "O"}, {7, "N"}, {-1, "N"}}) {
            port.setParity(QLatin1Char('X'));
            port.setParityByIndex(index);
            QCOMPARE(port.property("parity"), QVariant(parity));
        }

        QVERIFY(port.setSerialName(QStringLiteral("/dev/ttyUSB0")));
        port.setBaudrate(9600);
        port.setDatabits(7);
        port.setParity(QLatin1Char('E'));
        port.setStopbits(2);
        QCOMPARE(port.configName(), QStringLiteral("/dev/ttyUSB0 ; 9600 ; 7E2"));
        // A marker in the name is no place for the next value.
        QVERIFY(port.setSerialName(QStringLiteral("/tmp/a%2b")));
        QCOMPARE(port.configName(), QStringLiteral("/tmp/a%2b ; 9600 ; 7E2"));

        // Serial names: the same name again changes nothing, and a name
        // another port of the server has is refused until it lets it go.
        Server server;
        Port* first = server.addPort(QStringLiteral("First"));
        Port* second = server.addPort(QStringLiteral("Second"));
        QSignalSpy changed(first, &Port::serialNameChanged);
        QSignalSpy secondChanged(second, &Port::serialNameChanged);
        QVERIFY(first->setSerialName(QStringLiteral("/dev/ttyUSB0")));
        QVERIFY(!first->setSerialName(QStringLiteral("/dev/ttyUSB0")));
        QCOMPARE(changed.count(), 1);
        QVERIFY(!second->checkUniqSerialName(QStringLiteral("/dev/ttyUSB0")));
        QVERIFY(!second->setSerialName(QStringLiteral("/dev/ttyUSB0")));
        QCOMPARE(second->serialName(), QString());
        QCOMPARE(secondChanged.count(), 0);
        QVERIFY(first->setSerialName(QStringLiteral("/dev/ttyUSB2")));
        QVERIFY(second->setSerialName(QStringLiteral("/dev/ttyUSB0")));
    }

    void openHartFailures_data()
    {
        QTest::addColumn<QString>("serial");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");

        QTest::newRow("empty name") << "" << 3 << "not such device ''";
        QTest::newRow("missing device") << "ttyNoSuchHART" << 3 << "not such device 'ttyNoSuchHART'";
        // A file that is there but no serial line: "<file>" stands for its path.
        QTest::newRow("not a tty") << "<file>" << 4 << "Can't open <file>!\n error code: ";
    }

    void openHartFailures()
    {
        QFETCH(QString, serial);
        QFETCH(int, code);
        QFETCH(QString, text);

        const QString file = m_dir.writeFile(QStringLiteral("plain.txt"), "not a line");
        QVERIFY(!file.isEmpty());
        serial.replace(QLatin1String("<file>"), file);
        text.replace(QLatin1String("<file>"), file);
        Port port;
        if (!serial.isEmpty())
            QVERIFY(port.setSerialName(serial));
        QVERIFY(!port.openHart());
        QVERIFY(!port.isOpened());
        QCOMPARE(port.errorCode(), code);
        if (code == 3)
            QCOMPARE(port.errorText(), text);
        // Else the code and the text of the line follow.
        QVERIFY2(port.errorText().startsWith(text), qPrintable(port.errorText()));
        QVERIFY(code == 3 || port.errorText().size() > text.size() + 4);
    }

    void numbersAndText()
    {
        // Big-endian; a size of 4 gives four bytes, 3 three, any other two.
        for (const auto& [value, size, bytes] : QList<std::tuple<int, int, QByteArray>>{{0x123456, 3, "123456"},
                                                                                        {0x123456, 1, "3456"},
                                                                                        {0x12345678, 4, "12345678"},
                                                                                        {0x12345678, 5, "5678"},
                                                                                        {-2, 2, "fffe"}})
            QCOMPARE(Port::getBufferFromInt(value, size).toHex(), bytes);

        // size bytes are taken, and as many as the size says read: a byte past
        // those taken or the buffer is 0, so one byte taken is the high one of two.
        for (const auto& [offset, size, value] : QList<std::tuple<int, int, int>>{{0, 4, 0x12345678},
                                                                                  {1, 3, 0x345678},
                                                                                  {3, 2, 0x7800},
                                                                                  {0, 1, 0x1200},
                                                                                  {0, 5, 0x123456},
                                                                                  {1000, 4, 0},
                                                                                  {-1, 2, 0}})
            QCOMPARE(Port::getIntFromBufferByOffset(hx("12345678"), offset, size), value);
        QCOMPARE(Port::getIntFromBufferByOffset(hx("FFFFFFFE"), 0, 4), -2);

        for (const auto& [value, bytes] : QList<QPair<float, QByteArray>>{{1.0f, "3f800000"}, {-273.15f, "c3889333"}}) {
            const QByteArray buffer = Port::getBufferFromFloat(value);
            QCOMPARE(buffer.toHex(), bytes);
            // Back again, bit for bit, at offset 0 and further in.
            QCOMPARE(bytesOf(Port::getFloatFromBufferByOffset(buffer, 0)), bytesOf(value));
            QCOMPARE(bytesOf(Port::getFloatFromBufferByOffset(hx("AABB") + buffer + hx("CC"), 2)), bytesOf(value));
        }
        // Bytes outside the buffer count as 0.
        QCOMPARE(Port::getFloatFromBufferByOffset(hx("3F80"), 0), 1.0f);
        QCOMPARE(Port::getFloatFromBufferByOffset(hx("3F800000"), 100000), 0.0f);
        QCOMPARE(Port::getFloatFromBufferByOffset(hx("3F800000"), -2), 0.0f);

        Port port;
        // Upper case first; the size is not looked at.
        QCOMPARE(port.packAscii(QStringLiteral("abcd"), 8).toHex(), QByteArray("0420c4"));
        QCOMPARE(port.packAscii(QStringLiteral("PT-1    "), 3).toHex(), QByteArray("414b71820820"));
        QCOMPARE(port.unpackAscii(hx("0420C4"), 1), QStringLiteral("ABCD"));
    }

    void devices()
    {
        Port port;
        QSignalSpy modified(&port, &ServerItem::modified);
        Device* first = port.addDevice(QStringLiteral("First"), QStringLiteral("Unknown"), -1);
        first->setAddress(4);
        Device* second = port.addDevice(QStringLiteral("Second"), QStringLiteral("Custom"), 0);
        second->setAddress(9);
        QCOMPARE(second->deviceTemplateName(), QStringLiteral("Custom"));
        QVERIFY(second->port() == &port);
        QCOMPARE(port.devices(), (QList<Device*>{second, first}));
        QCOMPARE(port.deviceIds(), (QStringList{second->name(), first->name()}));
        QVERIFY(port.device(first->name()) == first);
        QVERIFY(port.device(QStringLiteral("nobody")) == nullptr);
        QVERIFY(port.device(9) == second);
        QVERIFY(port.device(5) == nullptr);
        // A change in a device reaches the port.
        emit first->modified();
        QCOMPARE(modified.count(), 1);

        QVERIFY(!port.hasPeriodicallyRequestedDevices());
        QVERIFY(!port.hasArchivatedDevices());
        first->setDeviceTagState(Device::TagStateNone | Device::TagStatePolled);
        second->setDeviceTagState(Device::TagStateRead | Device::TagStateArchived);
        QVERIFY(port.hasPeriodicallyRequestedDevices());
        QVERIFY(port.hasArchivatedDevices());
        first->setDeviceTagState(Device::TagStateRead | Device::TagStateWritten | Device::TagStateChanged);
        QVERIFY(!port.hasPeriodicallyRequestedDevices());
        // Identified devices are the ones with a connection.
        QVERIFY(!port.hasConnectionDevices());
        QVERIFY(second->load({{"parameters", QVariantMap{{"deviceID", "0x00h 0x2Ah 0x01h"},
                                                         {"address", "0x11h 0x2Ah 0x00h 0x2Ah 0x01h"}}}}));
        QCOMPARE(port.connectionDevices(), QList<Device*>{second});
        QVERIFY(port.hasConnectionDevices());

        port.removeDevice(QStringLiteral("nobody"));
        port.removeDevice(second->name());
        QCOMPARE(port.devices(), QList<Device*>{first});
        // Children made by the tree are devices too.
        QVERIFY(port.insertChildren(0, 1));
        QCOMPARE(port.devices().size(), 2);
    }

    void saveLoadRoundTrip()
    {
        Server server;
        Port* port = server.addPort(QStringLiteral("Line A"));
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
        Device* first = port->addDevice(QStringLiteral("Dev A"), QStringLiteral("Custom"), -1);
        first->setAddress(2);
        first->setDeviceInfo(QStringLiteral("tag"), QStringLiteral("TT-1"));
        Device* second = port->addDevice(QStringLiteral("Dev B"), QStringLiteral("Other"), -1);
        second->setAddress(5);
        second->setComment(QStringLiteral("spare"));
        // Loading names a device after its template and tag or address.
        first->updateDeviceName();
        second->updateDeviceName();
        const QVariantMap saved = port->save();
        const QVariantMap expected = {{"name", "Line_A"},
                                      {"enabled", false},
                                      {"priority", 3},
                                      {"serial_name", "/dev/ttyUSB3"},
                                      {"baudrate", 9600},
                                      {"parity", "E"},
                                      {"databits", 7},
                                      {"stopbits", 2},
                                      {"request_timeout", 250},
                                      {"response_timeout", 600},
                                      {"byte_timeout", 80},
                                      {"close_port_after_transaction", true},
                                      {"initial_number_of_preambles", 20},
                                      {"devices", QVariantList{first->save(), second->save()}}};
        QCOMPARE(saved, expected);

        // In the file the parity is a text of one character, the devices a list.
        QByteArray text;
        const QVariantMap read = m_dir.throughConfigFile(QStringLiteral("port"), saved, &text).toMap();
        const QJsonObject object = QJsonDocument::fromJson(text).object().value(QStringLiteral("port")).toObject();
        QCOMPARE(object.value(QStringLiteral("parity")).toString(), QStringLiteral("E"));
        QCOMPARE(object.value(QStringLiteral("devices")).toArray().size(), 2);

        // Everything, the devices too, comes back.
        Server other;
        Port* back = other.addPort(QStringLiteral("Somewhere"));
        QVERIFY(back->load(read));
        QCOMPARE(back->save(), saved);
    }

    void loadMalformed_data()
    {
        QTest::addColumn<QVariantMap>("config");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("expected"); // invalid: as a new port has it; for "devices" their count
        QTest::addColumn<QVariant>("result");   // invalid: either

        const QVariant asNew;
        auto row = [](const char* name, const QVariantMap& config, const char* key, const QVariant& expected,
                      const QVariant& result) { QTest::newRow(name) << config << QString(key) << expected << result; };
        row("nothing", {}, "baudrate", asNew, true);
        row("devices a text", {{"devices", "x"}}, "devices", 0, false);
        row("device entries that are no maps",
            {{"devices", QVariantList{"x", 5, QVariantMap{{"name", "D"}}, QVariantList{}}}}, "devices", 1, false);
        row("device entry with wrong types",
            {{"devices", QVariantList{QVariantMap{{"name", 5},
                                                  {"template", QVariantList{}},
                                                  {"parameters", "x"},
                                                  {"polling_address", "abc"},
                                                  {"measure_info", 3}}}}},
            "devices", 1, QVariant());
        row("devices with the others wrong",
            {{"baudrate", "fast"}, {"devices", QVariantList{QVariantMap{{"name", "D"}}}}}, "devices", 1, false);
        row("request timeout a text", {{"request_timeout", "abc"}}, "request_timeout", 200, false);
        row("request timeout 0", {{"request_timeout", 0}}, "request_timeout", 200, true);
        row("response timeout negative", {{"response_timeout", -5}}, "response_timeout", 370, true);
        row("baud rate negative", {{"baudrate", -9600}}, "baudrate", asNew, false);
        row("parity too long", {{"parity", "Even"}}, "parity", asNew, false);
        row("preambles 0", {{"initial_number_of_preambles", 0}}, "initial_number_of_preambles", 10, true);
        row("serial name of another port", {{"serial_name", "/dev/taken"}}, "serial_name", asNew, false);
        row("name empty", {{"name", ""}}, "name", asNew, true);
    }

    void loadMalformed()
    {
        QFETCH(QVariantMap, config);
        QFETCH(QString, key);
        QFETCH(QVariant, expected);
        QFETCH(QVariant, result);

        Server server;
        QVERIFY(server.addPort(QStringLiteral("Other"))->setSerialName(QStringLiteral("/dev/taken")));
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

    // -----------------------------------------------------------------------
    // With the simulator

    void openCloseAndRename()
    {
        Port port;
        openOnLine(port);
        QVERIFY(port.isOpened());
        port.closeHart();
        QVERIFY(!port.isOpened());

        // Devices polled periodically keep the line open.
        QVERIFY(port.openHart());
        Device* device = port.addDevice(QStringLiteral("D"), QString(), -1);
        device->setDeviceTagState(Device::TagStateNone | Device::TagStatePolled);
        port.closeHart();
        QVERIFY(port.isOpened());
        device->setDeviceTagState(Device::TagStateNone);

        // A new name reopens an open port on the new line; a closed port stays
        // closed under a new name.
        QVERIFY(port.setSerialName(QStringLiteral("/nonexistent/ttyHART")));
        QVERIFY(!port.isOpened());
        QCOMPARE(port.errorCode(), 3);
        QVERIFY(port.setSerialName(m_sim.path()));
        QVERIFY(!port.isOpened());
    }

    void sendHartCommandResultCodes_data()
    {
        QTest::addColumn<Fault>("spoiler");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("error");

        QTest::newRow("good") << fault(Fault::Delay) << true << 1 << QString();
        QTest::newRow("no answer: a port error") << fault(Fault::NoAnswer) << false << 4 << "Response timeout (370ms)";
        QTest::newRow("wrong checksum") << fault(Fault::BadChecksum) << false << -1
                                        << "Response command parsing error: *** Checksum is wrong!";
        QTest::newRow("other command") << fault(Fault::WrongCommand) << false << -2
                                       << "Invalid command response: *** command number check error:  1 / 2";
        QTest::newRow("device error") << fault(Fault::ResponseCode, 7) << false << -3
                                      << "Command error (error code 7): *** write protection mode set";
    }

    void sendHartCommandResultCodes()
    {
        QFETCH(Fault, spoiler);
        QFETCH(bool, ok);

        Port port;
        openOnLine(port);
        QByteArray response;
        QVERIFY(port.sendHartCommand(GenericAddress, 0, QByteArray(), response)); // past the cold start
        m_sim.addFault(0, spoiler);
        response = QByteArray("untouched");
        QCOMPARE(port.sendHartCommand(GenericAddress, 1, QByteArray(), response), ok);
        QTEST(port.errorCode(), "code");
        QTEST(port.errorText(), "error");
        if (ok)
            QCOMPARE(response.size(), 5); // unit and PV
        else
            QCOMPARE(response, QByteArray("untouched"));

        // The next good exchange clears code and text.
        m_sim.line().clearFaults();
        QVERIFY(port.sendHartCommand(GenericAddress, 1, QByteArray(), response));
        QCOMPARE(port.errorCode(), 1);
        QCOMPARE(port.errorText(), QString());
    }

    void masterFlag_data()
    {
        QTest::addColumn<bool>("onServer");
        QTest::newRow("without a server: primary") << false;
        QTest::newRow("secondary server") << true;
    }

    void masterFlag()
    {
        QFETCH(bool, onServer);

        Server server;
        server.setPrimaryMaster(!onServer);
        QScopedPointer<Port> alone(onServer ? nullptr : new Port);
        Port* port = onServer ? server.addPort(QStringLiteral("P")) : alone.data();
        openOnLine(*port);
        QByteArray response;
        QVERIFY(port->sendHartCommand(GenericAddress, 1, QByteArray(), response));
        QVariantMap info;
        QVERIFY(port->checkHartDevice(0, info));
        QCOMPARE(m_sim.record(1).primaryMaster, !onServer);
        QCOMPARE(m_sim.record(2).command, quint8(0));
        QCOMPARE(m_sim.record(2).primaryMaster, !onServer);
    }

    void statusByte()
    {
        Port port;
        openOnLine(port);
        QCOMPARE(port.statusByte(0), 0);
        QByteArray response;
        QVERIFY(port.sendHartCommand(GenericAddress, 0, QByteArray(), response));
        QCOMPARE(port.statusByte(1), 0x20); // cold start
        QCOMPARE(port.statusByte(2), 0);
        QCOMPARE(port.statusByte(-1), 0);
        QCOMPARE(port.statusText(), QStringList{QStringLiteral("*** Cold start")});

        // A communication error reported by the device: the byte is signed.
        m_sim.addFault(0, fault(Fault::ResponseCode, 0xC0));
        QVERIFY(!port.sendHartCommand(GenericAddress, 1, QByteArray(), response));
        QCOMPARE(port.errorCode(), -3);
        QCOMPARE(port.statusByte(0), -64);
    }

    void checkHartDevice_data()
    {
        QTest::addColumn<int>("pollingAddress");
        QTest::addColumn<QString>("how"); // "open", "closed", or "short" for an answer without data
        QTest::addColumn<bool>("ok");
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("error");

        const int good = ServerItem::StateGood;
        const int failed = ServerItem::StateFailed;
        QTest::newRow("generic at 0") << 0 << "open" << true << good << QString();
        QTest::newRow("nobody at 7") << 7 << "open" << false << failed << "Response timeout (370ms)";
        QTest::newRow("port not open") << 0 << "closed" << false << failed << "port 'Line' is not opened";
        // The exchange went well: the port is good though the answer is no identity.
        QTest::newRow("answer too short") << 0 << "short" << false << good << QString();
    }

    void checkHartDevice()
    {
        QFETCH(int, pollingAddress);
        QFETCH(QString, how);
        QFETCH(bool, ok);
        QFETCH(int, state);

        Port port;
        port.setName(QStringLiteral("Line"));
        openOnLine(port);
        if (how == QLatin1String("closed"))
            port.closeHart();
        if (how == QLatin1String("short"))
            m_sim.addFault(0, fault(Fault::ResponseCode, 0));

        QVariantMap info;
        bool result = false;
        const QStringList log = logOf([&] { result = port.checkHartDevice(pollingAddress, info); });
        QCOMPARE(result, ok);
        QCOMPARE(port.state(), state);
        QCOMPARE(port.errorCode(), state == int(ServerItem::StateGood) ? 1 : 4);
        QTEST(port.errorText(), "error");
        QCOMPARE(info.value(QStringLiteral("address")).toByteArray(), ok ? GenericAddress : QByteArray());
        if (how == QLatin1String("closed")) {
            QCOMPARE(m_sim.line().requestCount(), 0);
            QVERIFY(!log.filter(QStringLiteral("check error '4' - port 'Line' is not opened")).isEmpty());
            return;
        }
        const hartsim::RequestRecord record = m_sim.record(1);
        QCOMPARE(record.command, quint8(0));
        QCOMPARE(record.address.size(), 1);
        QCOMPARE(record.address.at(0) & 0x3F, pollingAddress);
    }

    void checkHartDeviceByTag_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QByteArray>("request"); // empty: nothing sent; "-": not looked at

        QTest::newRow("padded tag") << "PT-1" << true << QString() << hx("414B71820820");
        QTest::newRow("eight characters, no padding") << "ABCDEFGH" << true << QString() << hx("0420C41461C8");
        QTest::newRow("marks") << "A.B/C:1+" << true << QString() << QByteArray("-");
        QTest::newRow("lower case") << "pt-1" << false << "Invalid chars in device tag!" << QByteArray();
        QTest::newRow("empty") << "" << false << "*** pack/unpack error!" << QByteArray();
        QTest::newRow("nobody has it") << "NOPE" << false << "Response timeout (370ms)" << QByteArray("-");
    }

    void checkHartDeviceByTag()
    {
        QFETCH(QString, tag);
        QFETCH(bool, ok);
        QFETCH(QByteArray, request);

        Port port;
        openOnLine(port);
        m_sim.setParam(0, QStringLiteral("tag"), ok ? tag : QStringLiteral("PT-1"));
        QVariantMap info;
        bool result = false;
        const QStringList log = logOf([&] { result = port.checkHartDeviceByTag(tag, info); });
        QCOMPARE(result, ok);
        QTEST(port.errorText(), "error");
        QCOMPARE(info.value(QStringLiteral("address")).toByteArray(), ok ? GenericAddress : QByteArray());
        if (request.isEmpty()) {
            QCOMPARE(m_sim.line().requestCount(), 0);
            return;
        }
        const hartsim::RequestRecord record = m_sim.record(1);
        QCOMPARE(record.command, quint8(11));
        QCOMPARE(record.address.toHex(), QByteArray("8000000000"));
        QCOMPARE(record.data.size(), 6);
        if (request != "-")
            QCOMPARE(record.data.toHex(), request.toHex());
        if (!ok) {
            QCOMPARE(port.errorCode(), 4);
            QVERIFY(!log.filter(QStringLiteral("device with tag ")).filter(QStringLiteral("not found!")).isEmpty());
        }
    }

    void searchesByLongTagAnd73_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<bool>("ok");

        QTest::newRow("long tag") << 21 << "Pump one" << true;
        QTest::newRow("long tag cut to 32") << 21 << QString(40, QLatin1Char('A')) << false;
        QTest::newRow("73, button pressed") << 73 << QString() << true;
        QTest::newRow("73, button not pressed") << 73 << QString() << false;
    }

    void searchesByLongTagAnd73()
    {
        QFETCH(int, command);
        QFETCH(QString, tag);
        QFETCH(bool, ok);

        Port port;
        openOnLine(port);
        m_sim.line().withDevice(0, [&](hartsim::SimDevice& d) { d.setButtonPressed(ok); });
        QVariantMap info;
        QCOMPARE(command == 21 ? port.checkHartDeviceByLongTag(tag, info) : port.findHartDeviceBy73(info), ok);
        QCOMPARE(port.errorCode(), ok ? 1 : 4);
        QCOMPARE(info.value(QStringLiteral("address")).toByteArray(), ok ? GenericAddress : QByteArray());
        // The long tag goes as 32 bytes of Latin-1, zero-filled or cut.
        QByteArray data = tag.toLatin1().left(32);
        if (command == 21)
            data.append(QByteArray(32 - data.size(), '\0'));
        const hartsim::RequestRecord record = m_sim.record(1);
        QCOMPARE(int(record.command), command);
        QCOMPARE(record.address.mid(1), QByteArray(4, '\0'));
        QCOMPARE(record.data, data);
    }
};

QTEST_GUILESS_MAIN(TestPort)
#include "tst_port.moc"
