#include "debugqt.h"
#include "hartcommand.h"

#include <QRegularExpression>
#include <QtTest>

#include <iterator>

namespace {

// Responses used across the tests, with their checksums worked out by hand.
// Short response to command 1 from polling address 3 (primary master's bit set):
// status 00 00, data 20 41 C8 00 00 (unit code and PV).
const char* const shortResp = "06 83 01 07 00 00 20 41 C8 00 00 2A";
// Long response to command 1 from address A6 0A 12 34 56: status 00 40.
const char* const longResp = "86 A6 0A 12 34 56 01 07 00 40 20 41 C8 00 00 B5";

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

QByteArray pre(int count)
{
    return QByteArray(count, char(0xFF));
}

enum Level {
    Err = DebugQt::LevelErr,
    Warn = DebugQt::LevelWarn,
    Info = DebugQt::LevelInfo,
};

// The pattern of a log line written by the class at the given level, whose
// items begin with text.
QString logLine(Level level, const QString& text)
{
    return QStringLiteral("^%1 %2 \\S+ \\S+ \\d+ HartCommand \\* 0 %3")
        .arg(QLatin1String(DebugQt::prefix), QString::number(int(level)), QRegularExpression::escape(text));
}

void expectLogs(const QStringList& patterns)
{
    for (const QString& pattern : patterns)
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(pattern));
}

// A short response from polling address 0 (primary master) carrying the given
// status bytes and no data; the checksum is summed here for the input only.
QByteArray statusFrame(int command, const QByteArray& status)
{
    QByteArray frame = hx("06 80");
    frame.append(char(command));
    frame.append(char(status.size()));
    frame.append(status);
    char checksum = 0;
    for (const char c : frame)
        checksum ^= c;
    frame.append(checksum);
    return pre(5) + frame;
}

// A row of request(): byteAddress >= 0 takes the one-byte constructor with
// that address, -2 the default constructor; frame is the hex after the
// preambles.
void requestRow(const char* name, const QByteArray& address, int command, bool primary, const char* frame,
                const QByteArray& data = QByteArray(), int byteAddress = -1, int preambles = 5)
{
    QTest::newRow(name) << preambles << address << byteAddress << command << data << primary
                        << pre(preambles) + hx(frame);
}

// A row of parseGood(): the buffer parses into these fields.
void goodRow(const char* name, const QByteArray& buffer, int preambles, const QByteArray& status = hx("00 00"),
             const QByteArray& address = hx("83"), const QByteArray& data = hx("20 41 C8 00 00"), int command = 1,
             bool findStart = false, bool trash = false, const QStringList& logs = {})
{
    const int delimiter = address.size() == 5 ? 0x86 : 0x06;
    QTest::newRow(name) << buffer << findStart << delimiter << command << address << status << data << preambles
                        << trash << logs;
}

} // namespace

class TestHartCommand : public QObject
{
    Q_OBJECT

private slots:
    void frameText_data();
    void frameText();
    void request_data();
    void request();
    void parseGood_data();
    void parseGood();
    void parseBad_data();
    void parseBad();
    void wrongChecksum_data();
    void wrongChecksum();
    void stateAcrossCalls();
    void longAddressParts_data();
    void longAddressParts();
    void checkAnswer_data();
    void checkAnswer();
    void checkStatus_data();
    void checkStatus();
    void checkStatusLogs_data();
    void checkStatusLogs();
};

void TestHartCommand::frameText_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("text");
    QTest::newRow("access code, short address") << hx("ffff0280be0400003039ad") << "ff ff 02 80 be 04 ** ** ** ** **";
    QTest::newRow("access code, long address")
        << hx("ff82a091009101be0400003039cc") << "ff 82 a0 91 00 91 01 be 04 ** ** ** ** **";
    QTest::newRow("its answer shows") << hx("ff0680be03000001bc") << "ff 06 80 be 03 00 00 01 bc";
    QTest::newRow("another command shows") << hx("ff0280220400003039ad") << "ff 02 80 22 04 00 00 30 39 ad";
    QTest::newRow("cut before the command") << hx("ffff82a0") << "ff ff 82 a0";
}

void TestHartCommand::frameText()
{
    QFETCH(QByteArray, frame);
    QTEST(HartCommand::frameText(frame), "text");
}

void TestHartCommand::request_data()
{
    QTest::addColumn<int>("preambles");
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<int>("byteAddress");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("primary");
    QTest::addColumn<QByteArray>("frame");

    const QByteArray none;
    const QByteArray longAddr = hx("26 0A 12 34 56");
    // 5 preambles, polling address 0, command 0, primary master.
    requestRow("default", none, 0, true, "02 80 00 00 82", none, -2);
    // Short frames.
    requestRow("short 3, primary", hx("03"), 1, true, "02 83 01 00 80");
    requestRow("short 3, secondary", hx("03"), 1, false, "02 03 01 00 00");
    requestRow("byte form, short 3, primary", none, 1, true, "02 83 01 00 80", none, 3);
    requestRow("byte form, short 3, secondary", none, 1, false, "02 03 01 00 00", none, 3);
    requestRow("byte form, 10 preambles", none, 0, true, "02 80 00 00 82", none, 0, 10);
    requestRow("no preambles", hx("03"), 13, true, "02 83 0D 00 8C", none, -1, 0);
    requestRow("low bits of short address kept", hx("3F"), 0, true, "02 BF 00 00 BD");
    requestRow("three-byte address", hx("05 11 22"), 0, true, "02 85 00 00 87");
    requestRow("two-byte address, secondary", hx("85 11"), 0, false, "02 05 00 00 07");
    requestRow("empty address, secondary", none, 0, false, "02 00 00 00 02");
    requestRow("empty address, primary", none, 0, true, "02 80 00 00 82");
    // The burst bit is cleared on every request.
    requestRow("bit 6 cleared, short primary", hx("43"), 1, true, "02 83 01 00 80");
    requestRow("bit 6 cleared, byte form secondary", none, 0, false, "02 03 00 00 01", none, 0xC3);
    requestRow("bit 6 cleared, long secondary", hx("66 0A 12 34 56"), 1, false, "82 26 0A 12 34 56 01 00 DF");
    // Long frames.
    requestRow("long, primary", longAddr, 0, true, "82 A6 0A 12 34 56 00 00 5E");
    requestRow("seven-byte address", hx("26 0A 12 34 56 77 88"), 0, true, "82 A6 0A 12 34 56 00 00 5E");
    requestRow("long, with data", longAddr, 35, true, "82 A6 0A 12 34 56 23 09 20 42 C8 00 00 00 00 00 00 DE",
               hx("20 42 C8 00 00 00 00 00 00"));
    // 300 bytes of data: the count keeps its low 8 bits (0x2C).
    QTest::newRow("byte count truncated") << 5 << hx("00") << -1 << 0 << QByteArray(300, '\0') << true
                                          << pre(5) + hx("02 80 00 2C") + QByteArray(300, '\0') + hx("AE");
}

void TestHartCommand::request()
{
    QFETCH(int, preambles);
    QFETCH(QByteArray, address);
    QFETCH(int, byteAddress);
    QFETCH(int, command);
    QFETCH(QByteArray, data);
    QFETCH(bool, primary);
    QFETCH(QByteArray, frame);

    const auto cmdByte = static_cast<unsigned char>(command);
    QScopedPointer<HartCommand> cmd(
        byteAddress == -2 ? new HartCommand
        : byteAddress >= 0
            ? new HartCommand(nullptr, preambles, static_cast<unsigned char>(byteAddress), cmdByte, data, primary)
            : new HartCommand(nullptr, preambles, address, cmdByte, data, primary));
    QCOMPARE(cmd->ToByteArray(), frame);
    QCOMPARE(cmd->preamblesLenght(), preambles);
    QCOMPARE(int(cmd->commandNumber()), command);
    QCOMPARE(cmd->commandData(), data);
    QVERIFY(cmd->statusCode().isEmpty());
    QVERIFY(cmd->errorText().isEmpty());
    QVERIFY(!cmd->hasTrash());
}

void TestHartCommand::parseGood_data()
{
    QTest::addColumn<QByteArray>("buffer");
    QTest::addColumn<bool>("findStart");
    QTest::addColumn<int>("delimiter");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("preambles");
    QTest::addColumn<bool>("trash");
    QTest::addColumn<QStringList>("logs");

    const QByteArray s = hx(shortResp);
    const QByteArray l = hx(longResp);
    const QByteArray lAddr = hx("A6 0A 12 34 56");
    const QByteArray pv = hx("20 41 C8 00 00");
    const QByteArray ok = hx("00 00"), changed = hx("00 40"), none;
    const QString fewLog = logLine(Err, "*** Too few preambles have been received");
    const QString fewAndBadLog = logLine(Err, "*** Too few preambles & invalid delimiter have been received");

    // Clean frames.
    goodRow("short, 5 preambles", pre(5) + s, 5);
    goodRow("long, 5 preambles", pre(5) + l, 5, changed, lAddr);
    goodRow("search asked, clean frame", pre(5) + s, 5, ok, hx("83"), pv, 1, true);
    goodRow("burst bit in address", pre(5) + hx("06 C3 01 07 00 00 20 41 C8 00 00 6A"), 5, ok, hx("C3"));
    goodRow("data holding FF", pre(5) + hx("86 A6 0A 12 34 56 03 04 00 00 FF FF 5D"), 5, ok, lAddr, hx("FF FF"), 3);
    // Byte counts 0 and 2.
    goodRow("byte count 0", pre(5) + hx("06 83 01 00 84"), 5, none, hx("83"), none);
    goodRow("byte count 0, 9 bytes", pre(4) + hx("06 83 01 00 84"), 4, none, hx("83"), none);
    goodRow("byte count 2", pre(5) + hx("06 83 26 02 00 00 A1"), 5, ok, hx("83"), none, 38);
    goodRow("bytes after checksum ignored", pre(5) + s + hx("12 FF FF 41 06"), 5);
    // Two to four preambles are enough before a response delimiter.
    goodRow("2 preambles", pre(2) + s, 2);
    goodRow("3 preambles, long", pre(3) + l, 3, changed, lAddr);
    goodRow("4 preambles", pre(4) + s, 4);
    // Noise ahead of the frame.
    goodRow("noise before preambles", hx("00 12 34") + pre(5) + s, 5, ok, hx("83"), pv, 1, false, true,
            {logLine(Warn, "*** Unexpected start of message:  00")});
    goodRow("noise with a lone FF", hx("00 FF 55") + pre(5) + s, 5, ok, hx("83"), pv, 1, false, true, {fewLog});
    goodRow("1 preamble, resync", pre(1) + s + pre(5) + s, 5, ok, hx("83"), pv, 1, false, true, {fewLog});
    goodRow("2 preambles, request delimiter, resync", pre(2) + hx("02 83 01 00 80") + pre(5) + s, 5, ok, hx("83"), pv,
            1, false, true, {fewAndBadLog});
    goodRow("4 preambles, 0x82, resync", pre(4) + hx("82 A6 0A 12 34 56 00 00 5E") + pre(3) + l, 3, changed, lAddr, pv,
            1, false, true, {fewAndBadLog});
    // Five preambles and a bad delimiter only restart the search after noise or when asked to search.
    goodRow("5 preambles, bad delimiter after noise", hx("00") + pre(5) + hx("41") + pre(5) + s, 5, ok, hx("83"), pv, 1,
            false, true, {logLine(Err, "*** Preambles: 5  but invalid delimiter:  41")});
    goodRow("5 preambles, bad delimiter, search asked", pre(5) + hx("41") + pre(5) + s, 5, ok, hx("83"), pv, 1, true,
            true, {logLine(Err, "*** Preambles: 5  but invalid delimiter:  41")});
    goodRow("6 preambles, request delimiter, search asked", pre(6) + hx("02 80 00 00 82") + pre(2) + l, 2, changed,
            lAddr, pv, 1, true, true, {logLine(Err, "*** Preambles: 6  but invalid delimiter:  02")});
}

void TestHartCommand::parseGood()
{
    QFETCH(QByteArray, buffer);
    QFETCH(bool, findStart);
    QFETCH(QStringList, logs);

    expectLogs(logs << logLine(Info, "*** SUCCESS ***"));
    HartCommand cmd;
    QVERIFY2(cmd.fromByteArray(buffer, findStart), qPrintable(cmd.errorText()));
    QTEST(int(cmd.startDelimiter()), "delimiter");
    QTEST(int(cmd.commandNumber()), "command");
    QTEST(cmd.address(), "address");
    QTEST(cmd.statusCode(), "status");
    QTEST(cmd.commandData(), "data");
    QTEST(cmd.preamblesLenght(), "preambles");
    QTEST(cmd.hasTrash(), "trash");
    QVERIFY(cmd.errorText().isEmpty());
}

void TestHartCommand::parseBad_data()
{
    QTest::addColumn<QByteArray>("buffer");
    QTest::addColumn<bool>("findStart");
    QTest::addColumn<QString>("error");
    QTest::addColumn<bool>("trash");
    QTest::addColumn<QStringList>("logs");

    const QByteArray s = hx(shortResp);
    const QString notFound = "*** Start of message not found!";
    const QString unexpectedEnd = "*** Unexpected end of message!";
    const QString size = "*** Invalid message size for command parsing: ";
    const QString endLog = logLine(Err, "*** Incorrect start or end of message!");
    const QString stepLog = logLine(Err, "*** ERROR on step ");
    const QString sizeLog = logLine(Err, size);

    // Fewer than 9 bytes are refused whatever they hold.
    QTest::newRow("empty buffer") << QByteArray() << false << size + "0" << false << QStringList{sizeLog};
    QTest::newRow("8 bytes, a whole frame")
        << pre(3) + hx("06 83 01 00 84") << false << size + "8" << false << QStringList{sizeLog};
    QTest::newRow("8 preambles") << pre(8) << true << size + "8" << false << QStringList{sizeLog};
    // No frame start in the buffer.
    QTest::newRow("noise only") << hx("00 01 02 03 04 05 06 07 08") << false << notFound << true << QStringList{endLog};
    QTest::newRow("preambles only") << pre(9) << false << notFound << false << QStringList{endLog};
    QTest::newRow("1 preamble then a response")
        << pre(1) + s << false << notFound << true
        << QStringList{logLine(Err, "*** Too few preambles have been received"), endLog};
    QTest::newRow("4 preambles then a request")
        << pre(4) + hx("02 83 01 00 80") << false << notFound << true
        << QStringList{logLine(Err, "*** Too few preambles & invalid delimiter have been received"), endLog};
    QTest::newRow("noise, 5 preambles, bad delimiter, nothing more")
        << hx("00") + pre(5) + hx("41 00 00") << false << notFound << true << QStringList{endLog};
    // Five clean preambles commit the parser: a bad delimiter is a hard failure,
    // even when a good frame follows.
    QTest::newRow("5 preambles then 41") << pre(5) + hx("41") + pre(5) + s << false << "*** Invalid delimiter: 41"
                                         << false
                                         << QStringList{logLine(Err, "*** Invalid delimiter:  41"), stepLog + " 2"};
    QTest::newRow("5 preambles then a request") << pre(5) + hx("02 83 01 00 80") << false << "*** Invalid delimiter: 02"
                                                << false << QStringList{logLine(Err, "*** Invalid delimiter:  02")};
    QTest::newRow("delimiter in lower-case hex")
        << pre(6) + hx("AB 00 00") << false << "*** Invalid delimiter: ab" << false << QStringList{stepLog};
    // Bad counts and short frames.
    QTest::newRow("byte count 1") << pre(5) + hx("06 83 01 01 00 00") << false << "*** Invalid dataLength (=1)" << false
                                  << QStringList{logLine(Err, "*** Invalid dataLength (=1) ! "), stepLog + " 5"};
    QTest::newRow("ends after delimiter")
        << pre(8) + hx("06") << false << unexpectedEnd << false << QStringList{endLog};
    QTest::newRow("ends in data") << pre(5) + hx("06 83 01 07 00 00 20") << false << unexpectedEnd << false
                                  << QStringList{endLog};
    QTest::newRow("ends before checksum")
        << pre(5) + s.left(s.size() - 1) << false << unexpectedEnd << false << QStringList{endLog};
}

void TestHartCommand::parseBad()
{
    QFETCH(QByteArray, buffer);
    QFETCH(bool, findStart);
    QFETCH(QStringList, logs);

    expectLogs(logs);
    HartCommand cmd;
    QVERIFY(!cmd.fromByteArray(buffer, findStart));
    QTEST(cmd.errorText(), "error");
    QTEST(cmd.hasTrash(), "trash");
}

void TestHartCommand::wrongChecksum_data()
{
    QTest::addColumn<QByteArray>("buffer");
    QTest::addColumn<QByteArray>("status");

    QTest::newRow("short") << pre(5) + hx("06 83 01 07 00 00 20 41 C8 00 00 2B") << hx("00 00");
    QTest::newRow("long, status 00 40") << pre(5) + hx("86 A6 0A 12 34 56 01 07 00 40 20 41 C8 00 00 B4")
                                        << hx("00 40");
    QTest::newRow("status 07 20") << pre(5) + hx("06 83 01 04 07 20 01 02 00") << hx("07 20");
}

void TestHartCommand::wrongChecksum()
{
    QFETCH(QByteArray, buffer);
    QFETCH(QByteArray, status);

    expectLogs({logLine(Err, "*** Checksum is wrong!"), logLine(Err, "*** ERROR on step  7")});
    HartCommand cmd;
    QVERIFY(!cmd.fromByteArray(buffer, false));
    QCOMPARE(cmd.errorText(), QString("*** Checksum is wrong!"));
    QVERIFY(!cmd.hasTrash());
    QVERIFY(cmd.commandData().isEmpty());
    QCOMPARE(cmd.statusCode(), status);
}

// What a parse keeps and what it resets from one call to the next.
void TestHartCommand::stateAcrossCalls()
{
    HartCommand cmd(nullptr, 10, 3, 0, QByteArray(), true);

    // No preamble ended: the count is the one of the request.
    QVERIFY(!cmd.fromByteArray(pre(12), false));
    QCOMPARE(cmd.preamblesLenght(), 10);
    QCOMPARE(cmd.errorText(), QString("*** Start of message not found!"));

    // The error text of an earlier failure survives a later success.
    QVERIFY(!cmd.fromByteArray(pre(4), false));
    QVERIFY(cmd.fromByteArray(hx("00") + pre(7) + hx(shortResp), false));
    QCOMPARE(cmd.errorText(), QString("*** Invalid message size for command parsing: 4"));
    QCOMPARE(cmd.preamblesLenght(), 7);
    QVERIFY(cmd.hasTrash());

    // A second parse starts over: state, delimiter and the trash flag.
    QVERIFY(cmd.fromByteArray(pre(3) + hx(longResp), false));
    QVERIFY(!cmd.hasTrash());
    QCOMPARE(int(cmd.startDelimiter()), 0x86);
    QCOMPARE(cmd.address(), hx("A6 0A 12 34 56"));
    QCOMPARE(cmd.preamblesLenght(), 3);

    // The delimiter is cleared on entry even when nothing is found.
    QVERIFY(!cmd.fromByteArray(hx("00 01 02 03 04 05 06 07 08"), false));
    QCOMPARE(int(cmd.startDelimiter()), 0);

    // Reused as a request: flags cleared, status emptied, a fresh frame.
    QVERIFY(cmd.fromByteArray(hx("00") + pre(5) + hx(shortResp), true));
    QVERIFY(cmd.hasTrash());
    cmd.ItitCommand(5, hx("03"), 1, QByteArray(), true);
    QVERIFY(!cmd.hasTrash());
    QVERIFY(cmd.statusCode().isEmpty());
    QCOMPARE(cmd.ToByteArray(), hx("FF FF FF FF FF 02 83 01 00 80"));
}

void TestHartCommand::longAddressParts_data()
{
    QTest::addColumn<QByteArray>("address"); // request address, unless a response is given
    QTest::addColumn<bool>("primary");
    QTest::addColumn<QByteArray>("response");
    QTest::addColumn<int>("manufacturer");
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<QByteArray>("deviceId");

    const QByteArray none;
    QTest::newRow("long, primary") << hx("26 0A 12 34 56") << true << none << 0xA6 << 0x0A << hx("12 34 56");
    QTest::newRow("long, secondary") << hx("26 0A 12 34 56") << false << none << 0x26 << 0x0A << hx("12 34 56");
    QTest::newRow("seven bytes") << hx("11 E2 AB CD EF 01 02") << false << none << 0x11 << 0xE2 << hx("AB CD EF");
    QTest::newRow("short request") << hx("03") << true << none << 0 << 0 << none;
    QTest::newRow("long response, flags kept")
        << none << true << pre(5) + hx("86 E6 0A 12 34 56 01 07 00 40 20 41 C8 00 00 F5") << 0xE6 << 0x0A
        << hx("12 34 56");
    QTest::newRow("short response") << none << true << pre(5) + hx(shortResp) << 0 << 0 << none;
}

void TestHartCommand::longAddressParts()
{
    QFETCH(QByteArray, address);
    QFETCH(bool, primary);
    QFETCH(QByteArray, response);

    HartCommand cmd(nullptr, 5, address, 1, QByteArray(), primary);
    if (!response.isEmpty())
        QVERIFY(cmd.fromByteArray(response, false));
    QTEST(int(cmd.manufacturerID()), "manufacturer");
    QTEST(int(cmd.manufacturerDeviceTypeCode()), "deviceType");
    QTEST(cmd.deviceID(), "deviceId");
}

void TestHartCommand::checkAnswer_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<int>("command");
    QTest::addColumn<bool>("primary");
    QTest::addColumn<QByteArray>("response");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QStringList>("logs");

    const QByteArray sAddr = hx("03"), lAddr = hx("26 0A 12 34 56");
    const QByteArray s = pre(5) + hx(shortResp), l = pre(5) + hx(longResp);
    const QByteArray sBurst = pre(5) + hx("06 C3 01 07 00 00 20 41 C8 00 00 6A");
    const QByteArray lBurst = pre(5) + hx("86 E6 0A 12 34 56 01 07 00 40 20 41 C8 00 00 F5");
    const QByteArray sSecondaryBurst = pre(5) + hx("06 43 01 07 00 00 20 41 C8 00 00 EA");
    const QStringList success{logLine(Info, "success")};
    const QStringList burst{logLine(Info, "### BURST MODE")};
    const QStringList burstOk = burst + QStringList{logLine(Info, "success ### BURST MODE")};
    const QStringList none;

    QTest::newRow("short, same address") << sAddr << 1 << true << s << true << QString() << success;
    QTest::newRow("long, same address") << lAddr << 1 << true << l << true << QString() << success;
    QTest::newRow("short request, long response")
        << sAddr << 1 << true << l << false << "*** start delimiter check error:  02 / 86" << none;
    QTest::newRow("long request, short response")
        << lAddr << 1 << true << s << false << "*** start delimiter check error:  82 / 06" << none;
    QTest::newRow("command differs, short")
        << sAddr << 13 << true << s << false << "*** command number check error:  13 / 1" << none;
    QTest::newRow("command differs, long")
        << lAddr << 3 << true << l << false << "*** command number check error:  3 / 1" << none;
    QTest::newRow("other short address") << hx("04") << 1 << true << s << false << "*** address check error: 84 / 83"
                                         << none;
    QTest::newRow("other long address") << hx("26 0A 12 34 57") << 1 << true << l << false
                                        << "*** address check error: a60a123457 / a60a123456" << none;
    QTest::newRow("master bit differs") << sAddr << 1 << false << s << false << "*** address check error: 03 / 83"
                                        << none;
    QTest::newRow("burst, short") << sAddr << 1 << true << sBurst << true << QString() << burstOk;
    QTest::newRow("burst, long") << lAddr << 1 << true << lBurst << true << QString() << burstOk;
    QTest::newRow("burst, master bit cleared")
        << sAddr << 1 << true << sSecondaryBurst << false << "*** address check error: 83 / 43" << burst;
    QTest::newRow("burst, master bit set for secondary")
        << sAddr << 1 << false << sBurst << false << "*** address check error: 03 / c3" << burst;
}

void TestHartCommand::checkAnswer()
{
    QFETCH(QByteArray, address);
    QFETCH(int, command);
    QFETCH(bool, primary);
    QFETCH(QByteArray, response);
    QFETCH(QStringList, logs);

    HartCommand request(nullptr, 5, address, static_cast<unsigned char>(command), QByteArray(), primary);
    HartCommand answer;
    QVERIFY2(answer.fromByteArray(response, false), qPrintable(answer.errorText()));
    expectLogs(logs);
    QTEST(request.checkAnswer(answer), "ok");
    QTEST(request.errorText(), "error");
    QVERIFY(answer.errorText().isEmpty());
}

void TestHartCommand::checkStatus_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QStringList>("texts");

    const QStringList none;
    const QString comm = "Communication error: ";
    const QString allDeviceStatus[] = {"*** Field device malfunction",
                                       "*** Configuration changed",
                                       "*** Cold start",
                                       "*** More status available",
                                       "*** Analogue output fixed",
                                       "*** Analogue output out of limits",
                                       "*** Non-primary variable out of limits",
                                       "*** Primary variable out of limits"};

    // No error, device status only.
    QTest::newRow("00 00") << 1 << hx("00 00") << true << QString() << none;
    QTest::newRow("byte count 0") << 1 << QByteArray() << true << QString() << none;
    for (int bit = 0; bit < 8; ++bit)
        QTest::addRow("00 %02X", 0x80 >> bit)
            << 1 << QByteArray(1, '\0') + char(0x80 >> bit) << true << QString() << QStringList{allDeviceStatus[bit]};
    QTest::newRow("00 FF") << 1 << hx("00 FF") << true << QString()
                           << QStringList(std::begin(allDeviceStatus), std::end(allDeviceStatus));
    QTest::newRow("00 60") << 1 << hx("00 60") << true << QString()
                           << QStringList{"*** Configuration changed", "*** Cold start"};

    // Communication errors: the second byte is not read.
    const struct
    {
        const char* status;
        const char* text;
    } commErrors[] = {{"80 00", ""},
                      {"C0 00", "*** parity error"},
                      {"A0 00", "*** speed overflow error"},
                      {"90 00", "*** synhronization (frame) error"},
                      {"88 00", "*** checksum error"},
                      {"82 00", "*** receive buffer overflow error"},
                      {"84 00", ""},
                      {"81 00", ""},
                      {"80 FF", ""},
                      {"88 40", "*** checksum error"},
                      {"C8 00", "*** parity error*** checksum error"},
                      {"FF 00", "*** parity error*** speed overflow error*** synhronization (frame) error"
                                "*** checksum error*** receive buffer overflow error"}};
    for (const auto& e : commErrors)
        QTest::newRow(e.status) << 1 << hx(e.status) << false << comm + e.text << none;

    // Response codes; those from 8 to 12 mean something else for some
    // commands. Command 1 stands for any command.
    const struct
    {
        int code;
        int command;
        const char* text;
    } errors[] = {
        {2, 1, "*** wrong choice"},
        {3, 1, "*** last parameter too large"},
        {4, 1, "*** last parameter too small"},
        {5, 1, "*** too few data bytes have been received"},
        {6, 1, "*** command not executed"},
        {7, 1, "*** write protection mode set"},
        {13, 1, "*** upper and lower conversion limits are out of permissible values"},
        {16, 1, "*** restricted access"},
        {18, 1, "*** invalid unit code"},
        {29, 1, "*** invalid range"},
        {32, 1, "*** device is busy"},
        {64, 1, "*** command not implemented"},
        {9, 35, "*** the lower range limit greater of maximum allowable value"},
        {9, 36, "*** PV value is greater of upper range limit"},
        {9, 37, "*** PV value is greater of upper range limit"},
        {9, 38, "*** mismatch counter configuration change"},
        {9, 45, "*** incorrect fixed current value"},
        {9, 46, "*** incorrect fixed current value"},
        {9, 133, "*** number of decimal places is too large"},
        {9, 3, "*** value set is too large"},
        {9, 48, "*** value set is too large"},
        {10, 35, "*** the lower range limit less of minimum  allowable value"},
        {10, 36, "*** PV value is less of lower range limit"},
        {10, 37, "*** PV value is less of lower range limit"},
        {10, 3, "*** value set is too small"},
        {11, 35, "*** the upper range limit greater of maximum allowable value"},
        {11, 40, "*** current output off - device in multidrop mode"},
        {11, 45, "*** current output off - device in multidrop mode"},
        {11, 46, "*** current output off - device in multidrop mode"},
        {11, 1, "*** loop Current Not Active (Device in Multidrop Mode)"},
        {12, 6, "*** current output mode incorrect selection"},
        {12, 35, "*** the upper range value less of minimum  allowable value"},
        {12, 192, "*** saved factory settings are missing"},
        {12, 1, "*** unrecognized error 12"},
    };
    for (const auto& e : errors)
        QTest::addRow("code %d, command %d", e.code, e.command)
            << e.command << QByteArray(1, char(e.code)) + '\0' << false
            << QString("Command error (error code %1): %2").arg(e.code).arg(e.text) << none;
    QTest::newRow("07 40: device status not read")
        << 1 << hx("07 40") << false << "Command error (error code 7): *** write protection mode set" << none;

    // Warnings: the command was carried out. Code 8 elsewhere is listed like a
    // warning, and yet a failure with only the head as error text.
    const QString head14 = "Command error (error code 14): ";
    const QString range = "*** the minimum range is too small - impaired accuracy";
    QTest::newRow("code 14") << 1 << hx("0E 00") << true << head14 << QStringList{range};
    QTest::newRow("0E 40: device status not read") << 1 << hx("0E 40") << true << head14 << QStringList{range};
    const QString head8 = "Command error (error code 8): ";
    const struct
    {
        int command;
        const char* status;
        bool ok;
        const char* text;
    } eights[] = {{48, "08 00", true, "*** update in progress"},
                  {138, "08 00", true, "*** linearization point not used"},
                  {148, "08 00", true, "*** linearization point not used"},
                  {141, "08 00", true, "*** temperature is different from previous value at this point"},
                  {48, "08 FF", true, "*** update in progress"},
                  {1, "08 00", false, "*** incorrect input signal type selected"},
                  {3, "08 40", false, "*** incorrect input signal type selected"}};
    for (const auto& e : eights)
        QTest::addRow("%s, command %d", e.status, e.command)
            << e.command << hx(e.status) << e.ok << head8 << QStringList{e.text};

    // Codes that are not in the tables.
    for (const int code : {1, 15, 17, 19, 30, 33, 63, 65, 127})
        QTest::addRow("unknown code %d", code)
            << 1 << QByteArray(1, char(code)) + '\x40' << false
            << QString("Command error (error code %1): *** unknown error code: %1 hex: %2").arg(code).arg(code, 0, 16)
            << none;
}

void TestHartCommand::checkStatus()
{
    QFETCH(int, command);
    QFETCH(QByteArray, status);
    QFETCH(bool, ok);
    QFETCH(QStringList, texts);

    HartCommand answer;
    QVERIFY2(answer.fromByteArray(statusFrame(command, status), false), qPrintable(answer.errorText()));
    QCOMPARE(answer.statusCode(), status);
    QCOMPARE(answer.checkStatus(), ok);
    QTEST(answer.errorText(), "error");
    QCOMPARE(answer.statusText(), texts);
    // A second check gives the same list, not a longer one.
    QCOMPARE(answer.checkStatus(), ok);
    QCOMPARE(answer.statusText(), texts);
}

void TestHartCommand::checkStatusLogs_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<QStringList>("logs");

    QTest::newRow("communication error") << 1 << hx("88 00") << QStringList{logLine(Err, "*** checksum error")};
    QTest::newRow("error code") << 1 << hx("07 00") << QStringList{logLine(Err, "*** write protection mode set")};
    QTest::newRow("unknown code") << 1 << hx("41 00") << QStringList{logLine(Err, "*** unknown error code:")};
    QTest::newRow("code 8, command 1") << 1 << hx("08 00")
                                       << QStringList{logLine(Err, "*** incorrect input signal type selected")};
    QTest::newRow("warning") << 1 << hx("0E 00")
                             << QStringList{logLine(Warn, "*** the minimum range is too small - impaired accuracy")};
    QTest::newRow("code 8, command 48") << 48 << hx("08 00") << QStringList{logLine(Warn, "*** update in progress")};
    QTest::newRow("device status") << 1 << hx("00 41")
                                   << QStringList{logLine(Info, "### Check second byte..."),
                                                  logLine(Warn, "*** Configuration changed"),
                                                  logLine(Warn, "*** Primary variable out of limits")};
}

void TestHartCommand::checkStatusLogs()
{
    QFETCH(int, command);
    QFETCH(QByteArray, status);
    QFETCH(QStringList, logs);

    HartCommand answer;
    QVERIFY(answer.fromByteArray(statusFrame(command, status), false));
    expectLogs(logs);
    answer.checkStatus();
}

QTEST_GUILESS_MAIN(TestHartCommand)
#include "tst_hartcommand.moc"
