#include "debugqt.h"
#include "device.h"
#include "modelline.h"
#include "port.h"
#include "scratchdir.h"
#include "server.h"

#include <QSignalSpy>
#include <QtTest>

#include <cstring>
#include <tuple>

using hartsim::Fault;

namespace {

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

    void lineSettings()
    {
        QCOMPARE(Port::portTypeToString(Port::MODBUS_TCP), QStringLiteral("MODBUS_TCP"));
        QCOMPARE(Port::portTypeFromString(QStringLiteral("MODBUS_TCP")), Port::MODBUS_TCP);
        QCOMPARE(Port::portTypeFromString(QStringLiteral("modbus_tcp")), Port::HART);

        Port port;
        const QList<int> rates{1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
        for (int i = 0; i < rates.size(); ++i) {
            port.setBaudrateByIndex(i);
            QCOMPARE((QList<int>{port.baudrate(), port.baudrateIndex(), port.baudrateIndex(rates.at(i))}),
                     (QList<int>{rates.at(i), i, i}));
        }
        // An index past either end gives 1200; a rate not in the list has none.
        for (int index : {8, -1}) {
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

        // A port saves what it loaded, its name cleaned.
        QVariantMap config =
            vmap("name='Line A'; enabled=false; priority=3; serial_name='/dev/ttyUSB0'; baudrate=9600; parity='E'; "
                 "databits=7; stopbits=2; request_timeout=250; response_timeout=600; byte_timeout=80; "
                 "close_port_after_transaction=true; initial_number_of_preambles=20");
        QVERIFY(port.load(config));
        config.insert("name", "Line_A");
        config.insert("devices", QVariantList());
        QCOMPARE(port.save(), config);
        QCOMPARE(port.configName(), QStringLiteral("/dev/ttyUSB0 ; 9600 ; 7E2"));
        // A marker in the name is no place for the next value.
        QVERIFY(port.setSerialName(QStringLiteral("/tmp/a%2b")));
        QCOMPARE(port.configName(), QStringLiteral("/tmp/a%2b ; 9600 ; 7E2"));

        // Serial names: the same name again changes nothing, and a name
        // another port of the server has is refused until it lets it go.
        Server server;
        Port* first = server.addPort(QStringLiteral("First"));
        Port* second = server.addPort(QStringLiteral("Second"));
        const QString usb0 = QStringLiteral("/dev/ttyUSB0");
        QSignalSpy changed(first, &Port::serialNameChanged);
        QSignalSpy secondChanged(second, &Port::serialNameChanged);
        QVERIFY(first->setSerialName(usb0));
        QVERIFY(!first->setSerialName(usb0));
        QVERIFY(!second->checkUniqSerialName(usb0));
        QVERIFY(!second->setSerialName(usb0));
        QCOMPARE(second->serialName(), QString());
        QCOMPARE((QList<int>{int(changed.count()), int(secondChanged.count())}), (QList<int>{1, 0}));
        QVERIFY(first->setSerialName(QStringLiteral("/dev/ttyUSB2")));
        QVERIFY(second->setSerialName(usb0));
    }

    void numbersAndText()
    {
        // Big-endian; a size of 4 gives four bytes, 3 three, any other two.
        const QList<std::tuple<int, int, QByteArray>> toBytes{
            {0x123456, 3, "123456"}, {0x123456, 1, "3456"}, {0x12345678, 4, "12345678"},
            {0x12345678, 5, "5678"}, {-2, 2, "fffe"},       {0x7f, 0, "007f"}};
        for (const auto& [value, size, bytes] : toBytes)
            QCOMPARE(Port::getBufferFromInt(value, size).toHex(), bytes);
        // size bytes are taken, and as many as the size says read: a byte past
        // those taken or the buffer is 0, so one byte taken is the high one of two.
        const QList<std::tuple<int, int, int>> fromBytes{{0, 4, 0x12345678}, {1, 3, 0x345678}, {3, 2, 0x7800},
                                                         {0, 1, 0x1200},     {0, 5, 0x123456}, {1000, 4, 0},
                                                         {-1, 2, 0}};
        for (const auto& [offset, size, value] : fromBytes)
            QCOMPARE(Port::getIntFromBufferByOffset(hx("12345678"), offset, size), value);
        QCOMPARE(Port::getIntFromBufferByOffset(hx("FFFFFFFE"), 0, 4), -2);

        // Floats bit for bit, there and back again, at offset 0 and further in.
        QCOMPARE(Port::getBufferFromFloat(-273.15f).toHex(), QByteArray("c3889333"));
        QCOMPARE(bytesOf(Port::getFloatFromBufferByOffset(hx("AABBc3889333CC"), 2)), bytesOf(-273.15f));
        QCOMPARE(bytesOf(Port::getFloatFromBufferByOffset(Port::getBufferFromFloat(1.0f), 0)), bytesOf(1.0f));
        // Bytes outside the buffer count as 0.
        QCOMPARE(Port::getFloatFromBufferByOffset(hx("3F80"), 0), 1.0f);
        QCOMPARE(Port::getFloatFromBufferByOffset(hx("3F800000"), 100000), 0.0f);
        QCOMPARE(Port::getFloatFromBufferByOffset(hx("3F800000"), -2), 0.0f);
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
        QCOMPARE((QList<Device*>{port.device(first->name()), port.device(QStringLiteral("nobody")), port.device(9),
                                 port.device(5)}),
                 (QList<Device*>{first, nullptr, second, nullptr}));
        // A change in a device reaches the port.
        emit first->modified();
        QCOMPARE(modified.count(), 1);

        QVERIFY(!port.hasPeriodicallyRequestedDevices() && !port.hasArchivatedDevices());
        first->setDeviceTagState(Device::TagStateNone | Device::TagStatePolled);
        second->setDeviceTagState(Device::TagStateRead | Device::TagStateArchived);
        QVERIFY(port.hasPeriodicallyRequestedDevices() && port.hasArchivatedDevices());
        first->setDeviceTagState(Device::TagStateRead | Device::TagStateWritten | Device::TagStateChanged);
        QVERIFY(!port.hasPeriodicallyRequestedDevices());
        // Identified devices are the ones with a connection.
        QVERIFY(!port.hasConnectionDevices());
        QVERIFY(second->load(
            {{"parameters", vmap("deviceID='0x00h 0x2Ah 0x01h'; address='0x11h 0x2Ah 0x00h 0x2Ah 0x01h'")}}));
        QCOMPARE(port.connectionDevices(), QList<Device*>{second});
        QVERIFY(port.hasConnectionDevices());

        port.removeDevice(QStringLiteral("nobody"));
        port.removeDevice(second->name());
        QCOMPARE(port.devices(), QList<Device*>{first});
        // Children made by the tree are devices too.
        QVERIFY(port.insertChildren(0, 1));
        QCOMPARE(port.devices().size(), 2);
    }

    void loadMalformed_data()
    {
        // "expected" invalid: as a new port has it; for "devices" their count.
        // "result" invalid: either.
        addColumns<QVariantMap, QString, QVariant, QVariant>({"config", "key", "expected", "result"});
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
        // closed under a new name. A name without a path is looked for in /dev.
        QVERIFY(port.setSerialName(QStringLiteral("ttyNoSuchHART")));
        QVERIFY(!port.isOpened());
        QCOMPARE(port.errorCode(), 3);
        QCOMPARE(port.errorText(), QStringLiteral("not such device 'ttyNoSuchHART'"));
        QVERIFY(port.setSerialName(m_sim.path()));
        QVERIFY(!port.isOpened());
        Port unnamed;
        QVERIFY(!unnamed.openHart());
        QCOMPARE(unnamed.errorText(), QStringLiteral("not such device ''"));
    }

    void statusByte()
    {
        Port port;
        openOnLine(port);
        QCOMPARE(port.statusByte(0), 0);
        QByteArray response;
        QVERIFY(port.sendHartCommand(GenericAddress, 0, QByteArray(), response));
        // The cold start; nothing before or after the two bytes.
        QCOMPARE((QList<int>{port.statusByte(1), port.statusByte(2), port.statusByte(-1)}), (QList<int>{0x20, 0, 0}));
        QCOMPARE(port.statusText(), QStringList{QStringLiteral("*** Cold start")});

        // A communication error reported by the device: the byte is signed.
        m_sim.addFault(0, fault(Fault::ResponseCode, -1, 0xC0));
        QVERIFY(!port.sendHartCommand(GenericAddress, 1, QByteArray(), response));
        QCOMPARE(port.errorCode(), -3);
        QCOMPARE(port.statusByte(0), -64);
    }

    // The searches by polling address (0), tag (11), long tag (21) and button
    // (73). For 0 the argument is the polling address, or how the port fails.
    // "request" is invalid when nothing is sent; "logLine" a part of a line
    // the log must hold.
    void searches_data()
    {
        addColumns<int, QString, bool, int, QString, QVariant, QString>(
            {"command", "argument", "ok", "code", "error", "request", "logLine"});
        const auto row = [](const char* name, int command, const QString& argument, bool ok, int code,
                            const char* error, const QVariant& request, const char* logLine = "") {
            QTest::newRow(name) << command << argument << ok << code << QString(error) << request << QString(logLine);
        };
        const QVariant none;
        row("0, generic at 0", 0, "0", true, 1, "", QByteArray());
        row("0, nobody at 7", 0, "7", false, 4, "Response timeout (370ms)", QByteArray());
        row("0, port not open", 0, "closed", false, 4, "port 'Line' is not opened", none,
            "check error '4' - port 'Line' is not opened");
        // The exchange went well: the port is good though the answer is no identity.
        row("0, answer too short", 0, "short", false, 1, "", QByteArray());
        row("0, an answer to another command", 0, "wrong", false, 4,
            "Invalid command response: *** command number check error:  0 / 1", QByteArray());
        row("0, as the secondary master", 0, "secondary", true, 1, "", QByteArray());
        row("11, padded tag", 11, "PT-1", true, 1, "", hx("414B71820820"));
        row("11, eight characters, no padding", 11, "ABCDEFGH", true, 1, "", hx("0420C41461C8"));
        row("11, marks", 11, "A.B/C:1+", true, 1, "", hx("06e0af0fac6b"));
        row("11, lower case", 11, "pt-1", false, 1, "Invalid chars in device tag!", none);
        row("11, empty", 11, "", false, 1, "*** pack/unpack error!", none);
        row("11, nobody has it", 11, "NOPE", false, 4, "Response timeout (370ms)", hx("38f405820820"),
            "device with tag  \"NOPE\" not found!");
        // The long tag goes as 32 bytes of Latin-1, zero-filled or cut.
        row("21, long tag", 21, "Pump one", true, 1, "", QByteArray("Pump one") + QByteArray(24, '\0'));
        row("21, long tag cut to 32", 21, QString(40, 'A'), false, 4, "Response timeout (370ms)", QByteArray(32, 'A'));
        row("73, button pressed", 73, "", true, 1, "", QByteArray());
        row("73, button not pressed", 73, "", false, 4, "Response timeout (370ms)", QByteArray());
    }

    void searches()
    {
        QFETCH(int, command);
        QFETCH(QString, argument);
        QFETCH(bool, ok);
        QFETCH(int, code);
        QFETCH(QVariant, request);
        QFETCH(QString, logLine);

        Server server;
        server.setPrimaryMaster(argument != QLatin1String("secondary"));
        Port& port = *server.addPort(QStringLiteral("Line"));
        openOnLine(port);
        const int pollingAddress = argument.toInt();
        if (argument == QLatin1String("closed"))
            port.closeHart();
        if (argument == QLatin1String("short") || argument == QLatin1String("wrong"))
            m_sim.addFault(0, fault(argument == QLatin1String("short") ? Fault::ResponseCode : Fault::WrongCommand));
        if (command == 11)
            m_sim.setParam(0, QStringLiteral("tag"), ok ? argument : QStringLiteral("PT-1"));
        m_sim.line().withDevice(0, [&](hartsim::SimDevice& d) { d.setButtonPressed(ok); });

        QVariantMap info;
        bool result = false;
        const QStringList log = logOf([&] {
            result = command == 0    ? port.checkHartDevice(pollingAddress, info)
                     : command == 11 ? port.checkHartDeviceByTag(argument, info)
                     : command == 21 ? port.checkHartDeviceByLongTag(argument, info)
                                     : port.findHartDeviceBy73(info);
        });
        QCOMPARE(result, ok);
        QCOMPARE(port.errorCode(), code);
        QTEST(port.errorText(), "error");
        QCOMPARE(info.value(QStringLiteral("address")).toByteArray(), ok ? GenericAddress : QByteArray());
        if (command == 0)
            QCOMPARE(port.state(), code == 1 ? int(ServerItem::StateGood) : int(ServerItem::StateFailed));
        QVERIFY2(logLine.isEmpty() || !log.filter(logLine).isEmpty(), qPrintable(log.join('\n')));
        if (!request.isValid()) {
            QCOMPARE(m_sim.line().requestCount(), 0);
            return;
        }
        const hartsim::RequestRecord record = m_sim.record(1);
        QCOMPARE(int(record.command), command);
        const char master = server.isPrimaryMaster() ? char(0x80) : char(0);
        QCOMPARE(record.address, command == 0 ? QByteArray(1, char(master | pollingAddress)) : hx("8000000000"));
        QCOMPARE(record.data, request.toByteArray());
    }
};

QTEST_GUILESS_MAIN(TestPort)
#include "tst_port.moc"
