#include "columns.h"
#include "debugqt.h"
#include "hartcommand.h"
#include "hartport.h"
#include "simulatedline.h"

#include <QtTest>

using hartsim::Fault;

Q_DECLARE_METATYPE(hartsim::Fault)

namespace {

// A fault of the kind; value is the code, the preambles or the length it takes.
Fault fault(Fault::Kind kind, int value = 0, bool keepData = false)
{
    Fault f;
    f.kind = kind;
    f.code = f.preambles = f.length = value;
    f.keepData = keepData;
    return f;
}

} // namespace

class TestHartPort : public QObject
{
    Q_OBJECT

    SimulatedLine m_sim;

    bool openPort(HartPort& port)
    {
        port.setSerialName(m_sim.path());
        return port.open();
    }

private slots:
    void init()
    {
        QString error;
        QVERIFY2(m_sim.start({{"generic", {{"polling_address", 0}, {"tag", "PT-1"}, {"long_tag", "Pump one"}}},
                              {"hart5", {{"polling_address", 1}}}},
                             &error),
                 qPrintable(error));
    }

    void cleanup() { m_sim.stop(); }

    void preambleLists_data()
    {
        addColumns<bool, int, int>({"byteForm", "command", "preambles"});

        // The two forms deliberately test different lists of commands.
        QTest::newRow("byte form, command 0: start preambles") << true << 0 << 10;
        QTest::newRow("byte form, command 11") << true << 11 << 5;
        QTest::newRow("array form, command 1") << false << 1 << 5;
        QTest::newRow("array form, command 11: start preambles") << false << 11 << 10;
        QTest::newRow("array form, command 21: start preambles") << false << 21 << 10;
        QTest::newRow("array form, command 73: start preambles") << false << 73 << 10;
    }

    void preambleLists()
    {
        QFETCH(bool, byteForm);
        QFETCH(int, command);

        HartPort port;
        QVERIFY(openPort(port));
        QByteArray response;
        if (byteForm)
            port.sendCommand(quint8(0), quint8(command), QByteArray(), response, true);
        else
            port.sendCommand(hx("11 2A 00 2A 01"), quint8(command), QByteArray(), response, true);
        QVERIFY(m_sim.line().waitForRequests(1, 3000));
        QTEST(m_sim.lastRequestPreambles(), "preambles");
    }

    void preambleLearning_data()
    {
        addColumns<QVariantMap, Fault, int, int>({"settings", "spoiler", "command", "learned"});

        const Fault none = fault(Fault::Delay);
        const Fault three = fault(Fault::Preambles, 3);
        QTest::newRow("answer to 0 with 7") << QVariantMap{{"preambles_count", 7}} << none << 0 << 7;
        QTest::newRow("answer to 0 with 3: floor of 5") << QVariantMap() << three << 0 << 5;
        QTest::newRow("answer to 11 with 7") << QVariantMap() << fault(Fault::Preambles, 7) << 11 << 7;
        QTest::newRow("answer to 73 with 7") << QVariantMap() << fault(Fault::Preambles, 7) << 73 << 7;
        QTest::newRow("answer to 1 with 7: not learned") << QVariantMap() << fault(Fault::Preambles, 7) << 1 << 5;
        QTest::newRow("min preambles 8 in the identity") << QVariantMap{{"min_preambles_count", 8}} << none << 0 << 8;
    }

    void preambleLearning()
    {
        QFETCH(QVariantMap, settings);
        QFETCH(Fault, spoiler);
        QFETCH(int, command);
        QFETCH(int, learned);

        for (auto it = settings.constBegin(); it != settings.constEnd(); ++it)
            m_sim.setParam(0, it.key(), it.value());
        m_sim.addFault(0, spoiler);

        HartPort port;
        QVERIFY(openPort(port));
        QByteArray response;
        // 11 and 73 go to the broadcast address: the tag, or the button pressed.
        m_sim.line().withDevice(0, [](hartsim::SimDevice& d) { d.setButtonPressed(true); });
        QVERIFY(port.sendCommand(hx(command == 11 || command == 73 ? "00 00 00 00 00" : "00"), quint8(command),
                                 command == 11 ? port.packAscii(QStringLiteral("PT-1    ")) : QByteArray(), response,
                                 true));
        if (command != 1) {
            QVariantMap info;
            QVERIFY(port.parseCommandZeroResponse(response, info));
            QCOMPARE(info.value("preambles_count").toInt(), settings.value("preambles_count", 5).toInt());
        }
        QCOMPARE(port.preambles(), learned);

        // What was learned is what the next ordinary command goes out with.
        m_sim.line().clearFaults();
        QVERIFY(port.sendCommand(quint8(0), 1, QByteArray(), response, true));
        QCOMPARE(m_sim.lastRequestPreambles(), learned);
    }

    void resultCodes_data()
    {
        addColumns<Fault, bool, int, QString, QStringList>({"spoiler", "ok", "code", "error", "status"});

        QTest::newRow("good") << fault(Fault::Delay) << true << 0 << QString() << QStringList();
        QTest::newRow("warning still succeeds")
            << fault(Fault::ResponseCode, 14, true) << true << 0 << QString()
            << QStringList{QStringLiteral("*** the minimum range is too small - impaired accuracy")};
        QTest::newRow("wrong checksum") << fault(Fault::BadChecksum) << false << -1
                                        << "Response command parsing error: *** Checksum is wrong!" << QStringList();
        QTest::newRow("other command") << fault(Fault::WrongCommand) << false << -2
                                       << "Invalid command response: *** command number check error:  1 / 2"
                                       << QStringList();
        QTest::newRow("device error") << fault(Fault::ResponseCode, 7) << false << -3
                                      << "Command error (error code 7): *** write protection mode set" << QStringList();
        QTest::newRow("no answer") << fault(Fault::NoAnswer) << false << 12 << "Response timeout (370ms)"
                                   << QStringList();
    }

    void resultCodes()
    {
        QFETCH(Fault, spoiler);
        QFETCH(bool, ok);
        QFETCH(int, code);
        QFETCH(QString, error);

        HartPort port;
        QVERIFY(openPort(port));
        QByteArray response;
        QVERIFY(port.sendCommand(quint8(0), 0, QByteArray(), response, true)); // past the cold start
        m_sim.addFault(0, spoiler);
        response = QByteArray("untouched");
        QCOMPARE(port.sendCommand(quint8(0), 1, QByteArray(), response, true), ok);
        QCOMPARE(port.error(), code);
        QCOMPARE(port.errorText(), error);
        QTEST(port.statusText(), "status");
        if (ok)
            QCOMPARE(response.size(), 5); // unit and PV
        else
            QCOMPARE(response, QByteArray("untouched"));
        if (code == -3)
            QCOMPARE(quint8(port.statusCode().at(0)), quint8(spoiler.code));
    }

    void commandZeroLayouts_data()
    {
        addColumns<QByteArray, bool, QVariantMap>({"response", "ok", "expected"});

        const QByteArray twelve = hx("FE E0 94 06 05 03 02 21 01 AB CD EF");
        QTest::newRow("12 bytes") << twelve << true
                                  << QVariantMap{{"manufacturer_code", 0xE0},  {"device_type_code", 0x94},
                                                 {"min_preambles_count", 6},   {"expanded_device_type", hx("E0 94")},
                                                 {"preambles_count", 6},       {"universal_cmd_version", 5},
                                                 {"specific_cmd_version", 3},  {"software_version", 2},
                                                 {"hardware_version", 0x21},   {"device_flags", 1},
                                                 {"deviceID", hx("AB CD EF")}, {"address", hx("20 94 AB CD EF")},
                                                 {"vendorID", hx("00 00")}};
        QTest::newRow("14 bytes: no more than there is")
            << twelve + hx("07 04") << true << QVariantMap{{"dev_variables_count", 4}, {"vendorID", hx("00 00")}};
        QTest::newRow("22 bytes") << twelve + hx("05 06 01 02 03 00 E0 00 E0 01") << true
                                  << QVariantMap{{"preambles_count", 5},
                                                 {"dev_variables_count", 6},
                                                 {"modify_count", 258},
                                                 {"extended_status", 3},
                                                 {"vendorID", hx("00 E0")}};
        QTest::newRow("11 bytes") << twelve.left(11) << false << QVariantMap();
    }

    void commandZeroLayouts()
    {
        QFETCH(QByteArray, response);
        QFETCH(bool, ok);
        QFETCH(QVariantMap, expected);

        HartPort port;
        QVariantMap info;
        QCOMPARE(port.parseCommandZeroResponse(response, info), ok);
        if (!ok) {
            QCOMPARE(port.error(), -2);
            QCOMPARE(port.errorText(), QStringLiteral("Invalid response lenght of command ZERO."));
            QVERIFY(info.isEmpty());
            return;
        }
        for (auto it = expected.constBegin(); it != expected.constEnd(); ++it)
            QCOMPARE(info.value(it.key()), it.value());
        // The count asked for in the identity raises the learned one.
        QCOMPARE(port.preambles(), 6);
    }

    void packedAscii_data()
    {
        // text: none: the bytes are only unpacked
        addColumns<QString, QByteArray, QString>({"text", "packed", "unpacked"});

        QTest::newRow("ABCD") << "ABCD" << hx("04 20 C4") << "ABCD";
        QTest::newRow("one character") << "A" << hx("04") << "A";
        QTest::newRow("two characters") << "AB" << hx("04 20") << "AB";
        QTest::newRow("tag padded with blanks") << "PT-1    " << hx("41 4B 71 82 08 20") << "PT-1";
        QTest::newRow("32 characters") << QString(32, 'A') << hx("04 10 41").repeated(8) << QString(32, 'A');
        QTest::newRow("33 characters: too long") << QString(33, 'A') << QByteArray() << QString();
        QTest::newRow("25 bytes: too long") << QString() << QByteArray(25, '\x04') << QString();
        // Trailing zero bytes are not characters.
        QTest::newRow("trailing zeros") << QString() << hx("04 20 C4 00 00 00") << "ABCD";
    }

    void packedAscii()
    {
        QFETCH(QString, text);
        QFETCH(QByteArray, packed);
        HartPort port;
        if (!text.isNull())
            QCOMPARE(port.packAscii(text).toHex(' '), packed.toHex(' '));
        QTEST(port.unpackAscii(packed), "unpacked");
    }

    void openCloseWithAndWithoutThread()
    {
        HartPort port(nullptr, QStringLiteral("/nonexistent/ttyHART"));
        QVERIFY(!port.open());
        QByteArray response;
        QVERIFY(!port.sendZeroCommand(0, response, true));
        QVERIFY(port.error() > 0);
        QVERIFY(openPort(port));
        QVERIFY(port.sendZeroCommand(0, response, true));
        port.close();
        QVERIFY(!port.isOpen());

        // Without the thread: the modem handshake on RTS and DTR, which a
        // pseudo-terminal refuses, must not stop the exchange.
        port.setUseThread(false);
        QVERIFY(openPort(port));
        QVERIFY2(port.sendZeroCommand(1, response, true), qPrintable(port.errorText()));
        QCOMPARE(response.size(), 12); // the HART 5 device
        QVERIFY(port.txLog().contains(QLatin1String(" TX (")));
        m_sim.addFault(1, fault(Fault::NoAnswer));
        QVERIFY(!port.sendCommand(quint8(1), 1, QByteArray(), response, true));
        QCOMPARE(port.error(), 12);
        port.close();
        QVERIFY(!port.isOpen());
    }
};

QTEST_GUILESS_MAIN(TestHartPort)
#include "tst_hartport.moc"
