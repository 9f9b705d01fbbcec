#include "columns.h"
#include "debugqt.h"
#include "hartcommand.h"

#include <QRegularExpression>
#include <QtTest>

#include <tuple>

namespace {

// Responses used across the tests, with their checksums worked out by hand.
// Short response to command 1 from polling address 3 (primary master's bit set):
// status 00 00, data 20 41 C8 00 00 (unit code and PV).
const char* const shortResp = "06 83 01 07 00 00 20 41 C8 00 00 2A";
// Long response to command 1 from address A6 0A 12 34 56: status 00 40.
const char* const longResp = "86 A6 0A 12 34 56 01 07 00 40 20 41 C8 00 00 B5";

QByteArray pre(int count)
{
    return QByteArray(count, char(0xFF));
}

const int Err = DebugQt::LevelErr, Warn = DebugQt::LevelWarn, Info = DebugQt::LevelInfo;

// The pattern of a log line written by the class at the given level, whose
// items begin with text.
QString logLine(int level, const QString& text)
{
    return QStringLiteral("^%1 %2 \\S+ \\S+ \\d+ HartCommand \\* 0 %3")
        .arg(QLatin1String(DebugQt::prefix), QString::number(level), QRegularExpression::escape(text));
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

// A row of request(): the frame built, and the one expected (hex after the
// preambles). byteAddress >= 0 takes the one-byte constructor with that
// address, -2 the default constructor.
void requestRow(const char* name, const QByteArray& address, int command, bool primary, const QByteArray& frame,
                const QByteArray& data = QByteArray(), int byteAddress = -1, int preambles = 5)
{
    const auto cmd = quint8(command);
    QTest::newRow(name) << (byteAddress == -2 ? HartCommand().ToByteArray()
                            : byteAddress >= 0
                                ? HartCommand(nullptr, preambles, quint8(byteAddress), cmd, data, primary).ToByteArray()
                                : HartCommand(nullptr, preambles, address, cmd, data, primary).ToByteArray())
                        << pre(preambles) + frame;
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
    void frameText_data()
    {
        addColumns<QByteArray, QString>({"frame", "text"});
        QTest::newRow("access code, short address")
            << hx("ffff0280be0400003039ad") << "ff ff 02 80 be 04 ** ** ** ** **";
        QTest::newRow("access code, long address")
            << hx("ff82a091009101be0400003039cc") << "ff 82 a0 91 00 91 01 be 04 ** ** ** ** **";
        QTest::newRow("its answer shows") << hx("ff0680be03000001bc") << "ff 06 80 be 03 00 00 01 bc";
        QTest::newRow("another command shows") << hx("ff0280220400003039ad") << "ff 02 80 22 04 00 00 30 39 ad";
        QTest::newRow("cut before the command") << hx("ffff82a0") << "ff ff 82 a0";
    }

    void frameText()
    {
        QFETCH(QByteArray, frame);
        QTEST(HartCommand::frameText(frame), "text");
    }

    void request_data()
    {
        addColumns<QByteArray, QByteArray>({"built", "frame"});

        const QByteArray none;
        // 5 preambles, polling address 0, command 0, primary master.
        requestRow("default", none, 0, true, hx("02 80 00 00 82"), none, -2);
        requestRow("short 3, primary", hx("03"), 1, true, hx("02 83 01 00 80"));
        requestRow("byte form, short 3, primary", none, 1, true, hx("02 83 01 00 80"), none, 3);
        requestRow("no preambles", hx("03"), 13, true, hx("02 83 0D 00 8C"), none, -1, 0);
        requestRow("two-byte address, secondary", hx("85 11"), 0, false, hx("02 05 00 00 07"));
        requestRow("empty address, secondary", none, 0, false, hx("02 00 00 00 02"));
        // The burst bit is cleared on every request.
        requestRow("bit 6 cleared, long secondary", hx("66 0A 12 34 56"), 1, false, hx("82 26 0A 12 34 56 01 00 DF"));
        requestRow("seven-byte address", hx("26 0A 12 34 56 77 88"), 0, true, hx("82 A6 0A 12 34 56 00 00 5E"));
        requestRow("long, with data", hx("26 0A 12 34 56"), 35, true,
                   hx("82 A6 0A 12 34 56 23 09 20 42 C8 00 00 00 00 00 00 DE"), hx("20 42 C8 00 00 00 00 00 00"));
        // 300 bytes of data: the count keeps its low 8 bits (0x2C).
        requestRow("byte count truncated", hx("00"), 0, true, hx("02 80 00 2C") + QByteArray(300, '\0') + hx("AE"),
                   QByteArray(300, '\0'));
    }

    void request()
    {
        QFETCH(QByteArray, built);
        QTEST(built, "frame");
    }

    void parseGood_data()
    {
        addColumns<QByteArray, bool, int, int, QByteArray, QByteArray, QByteArray, int, bool, QStringList>(
            {"buffer", "findStart", "delimiter", "command", "address", "status", "data", "preambles", "trash", "logs"});

        const QByteArray s = hx(shortResp);
        const QByteArray l = hx(longResp);
        const QByteArray pv = hx("20 41 C8 00 00");
        const QByteArray ok = hx("00 00"), none;
        const QString fewLog = logLine(Err, "*** Too few preambles have been received");
        const QString fewAndBadLog = logLine(Err, "*** Too few preambles & invalid delimiter have been received");

        goodRow("short, 5 preambles", pre(5) + s, 5);
        goodRow("long, 5 preambles", pre(5) + l, 5, hx("00 40"), hx("A6 0A 12 34 56"));
        goodRow("byte count 0, 9 bytes", pre(4) + hx("06 83 01 00 84"), 4, none, hx("83"), none);
        goodRow("bytes after checksum ignored", pre(5) + s + hx("12 FF FF 41 06"), 5);
        // Two to four preambles are enough before a response delimiter.
        goodRow("2 preambles", pre(2) + s, 2);
        goodRow("noise before preambles", hx("00 12 34") + pre(5) + s, 5, ok, hx("83"), pv, 1, false, true,
                {logLine(Warn, "*** Unexpected start of message:  00")});
        goodRow("1 preamble, resync", pre(1) + s + pre(5) + s, 5, ok, hx("83"), pv, 1, false, true, {fewLog});
        goodRow("2 preambles, request delimiter, resync", pre(2) + hx("02 83 01 00 80") + pre(5) + s, 5, ok, hx("83"),
                pv, 1, false, true, {fewAndBadLog});
        // Five preambles and a bad delimiter only restart the search after noise or when asked to search.
        goodRow("5 preambles, bad delimiter after noise", hx("00") + pre(5) + hx("41") + pre(5) + s, 5, ok, hx("83"),
                pv, 1, false, true, {logLine(Err, "*** Preambles: 5  but invalid delimiter:  41")});
        goodRow("5 preambles, bad delimiter, search asked", pre(5) + hx("41") + pre(5) + s, 5, ok, hx("83"), pv, 1,
                true, true, {logLine(Err, "*** Preambles: 5  but invalid delimiter:  41")});
    }

    void parseGood()
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

    void parseBad_data()
    {
        addColumns<QByteArray, QString, bool, QStringList>({"buffer", "error", "trash", "logs"});

        const QByteArray s = hx(shortResp);
        const QString notFound = "*** Start of message not found!";
        const QString size = "*** Invalid message size for command parsing: ";
        const QString endLog = logLine(Err, "*** Incorrect start or end of message!");
        const QString stepLog = logLine(Err, "*** ERROR on step ");
        const QString sizeLog = logLine(Err, size);

        // Fewer than 9 bytes are refused whatever they hold.
        QTest::newRow("8 bytes, a whole frame")
            << pre(3) + hx("06 83 01 00 84") << size + "8" << false << QStringList{sizeLog};
        QTest::newRow("noise only") << hx("00 01 02 03 04 05 06 07 08") << notFound << true << QStringList{endLog};
        QTest::newRow("preambles only") << pre(9) << notFound << false << QStringList{endLog};
        // Five clean preambles commit the parser: a bad delimiter is a hard failure,
        // even when a good frame follows.
        QTest::newRow("5 preambles then 41") << pre(5) + hx("41") + pre(5) + s << "*** Invalid delimiter: 41" << false
                                             << QStringList{logLine(Err, "*** Invalid delimiter:  41"), stepLog + " 2"};
        QTest::newRow("byte count 1") << pre(5) + hx("06 83 01 01 00 00") << "*** Invalid dataLength (=1)" << false
                                      << QStringList{logLine(Err, "*** Invalid dataLength (=1) ! "), stepLog + " 5"};
        QTest::newRow("ends after delimiter")
            << pre(8) + hx("06") << "*** Unexpected end of message!" << false << QStringList{endLog};
    }

    void parseBad()
    {
        QFETCH(QByteArray, buffer);
        QFETCH(QStringList, logs);

        expectLogs(logs);
        HartCommand cmd;
        QVERIFY(!cmd.fromByteArray(buffer, false));
        QTEST(cmd.errorText(), "error");
        QTEST(cmd.hasTrash(), "trash");
    }

    void longAddressParts()
    {
        HartCommand cmd(nullptr, 5, hx("26 0A 12 34 56"), 1, QByteArray(), true);
        QCOMPARE(QList<int>({cmd.manufacturerID(), cmd.manufacturerDeviceTypeCode()}), QList<int>({0xA6, 0x0A}));
        QCOMPARE(cmd.deviceID(), hx("12 34 56"));
        // A response keeps the flags of its first byte; a short address has no parts.
        QVERIFY(cmd.fromByteArray(pre(5) + hx("86 E6 0A 12 34 56 01 07 00 40 20 41 C8 00 00 F5"), false));
        QCOMPARE(int(cmd.manufacturerID()), 0xE6);
        const HartCommand shortOne(nullptr, 5, hx("03"), 1, QByteArray(), true);
        QCOMPARE(QList<int>({shortOne.manufacturerID(), shortOne.manufacturerDeviceTypeCode()}), QList<int>({0, 0}));
        QVERIFY(shortOne.deviceID().isEmpty());
    }

    void checkAnswer_data()
    {
        addColumns<QByteArray, int, bool, QByteArray, QString, QStringList>(
            {"address", "command", "primary", "response", "error", "logs"});

        const QByteArray sAddr = hx("03"), lAddr = hx("26 0A 12 34 56");
        const QByteArray s = pre(5) + hx(shortResp), l = pre(5) + hx(longResp);
        const QByteArray sBurst = pre(5) + hx("06 C3 01 07 00 00 20 41 C8 00 00 6A");
        const QByteArray sSecondaryBurst = pre(5) + hx("06 43 01 07 00 00 20 41 C8 00 00 EA");
        const QStringList success{logLine(Info, "success")};
        const QStringList burst{logLine(Info, "### BURST MODE")};
        const QStringList burstOk = burst + QStringList{logLine(Info, "success ### BURST MODE")};
        const QStringList none;

        QTest::newRow("short, same address") << sAddr << 1 << true << s << QString() << success;
        QTest::newRow("short request, long response")
            << sAddr << 1 << true << l << "*** start delimiter check error:  02 / 86" << none;
        QTest::newRow("long request, short response")
            << lAddr << 1 << true << s << "*** start delimiter check error:  82 / 06" << none;
        QTest::newRow("command differs, short")
            << sAddr << 13 << true << s << "*** command number check error:  13 / 1" << none;
        QTest::newRow("other long address")
            << hx("26 0A 12 34 57") << 1 << true << l << "*** address check error: a60a123457 / a60a123456" << none;
        QTest::newRow("master bit differs") << sAddr << 1 << false << s << "*** address check error: 03 / 83" << none;
        QTest::newRow("burst, short") << sAddr << 1 << true << sBurst << QString() << burstOk;
        QTest::newRow("burst, master bit cleared")
            << sAddr << 1 << true << sSecondaryBurst << "*** address check error: 83 / 43" << burst;
    }

    void checkAnswer()
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
        QFETCH(QString, error);
        QCOMPARE(request.checkAnswer(answer), error.isEmpty());
        QCOMPARE(request.errorText(), error);
        QVERIFY(answer.errorText().isEmpty());
    }

    void checkStatus_data()
    {
        addColumns<int, QByteArray, bool, QString, QStringList>({"command", "status", "ok", "error", "texts"});

        const QStringList none;
        const QString comm = "Communication error: ";
        const QStringList allDeviceStatus =
            QString("*** Field device malfunction|*** Configuration changed|*** Cold start|*** More status available|"
                    "*** Analogue output fixed|*** Analogue output out of limits|"
                    "*** Non-primary variable out of limits|*** Primary variable out of limits")
                .split('|');

        // No error, device status only.
        QTest::newRow("00 00") << 1 << hx("00 00") << true << QString() << none;
        QTest::newRow("byte count 0") << 1 << QByteArray() << true << QString() << none;
        for (int bit = 0; bit < 8; ++bit)
            QTest::addRow("00 %02X", 0x80 >> bit) << 1 << QByteArray(1, '\0') + char(0x80 >> bit) << true << QString()
                                                  << QStringList{allDeviceStatus[bit]};

        // Communication errors: the second byte is not read.
        QTest::newRow("80 00") << 1 << hx("80 00") << false << comm << none;
        QTest::newRow("C8 00") << 1 << hx("C8 00") << false << comm + "*** parity error*** checksum error" << none;
        QTest::newRow("FF 00") << 1 << hx("FF 00") << false
                               << comm + "*** parity error*** speed overflow error*** synhronization (frame) error"
                                         "*** checksum error*** receive buffer overflow error"
                               << none;

        // Response codes; those from 8 to 12 mean something else for some
        // commands. Command 1 stands for any command.
        const std::tuple<int, int, const char*> errors[] = {
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
            {9, 38, "*** mismatch counter configuration change"},
            {9, 45, "*** incorrect fixed current value"},
            {9, 133, "*** number of decimal places is too large"},
            {9, 3, "*** value set is too large"},
            {10, 35, "*** the lower range limit less of minimum  allowable value"},
            {10, 36, "*** PV value is less of lower range limit"},
            {10, 3, "*** value set is too small"},
            {11, 35, "*** the upper range limit greater of maximum allowable value"},
            {11, 40, "*** current output off - device in multidrop mode"},
            {11, 1, "*** loop Current Not Active (Device in Multidrop Mode)"},
            {12, 6, "*** current output mode incorrect selection"},
            {12, 35, "*** the upper range value less of minimum  allowable value"},
            {12, 192, "*** saved factory settings are missing"},
            {12, 1, "*** unrecognized error 12"}};
        for (const auto& [code, command, text] : errors)
            QTest::addRow("code %d, command %d", code, command)
                << command << QByteArray(1, char(code)) + '\0' << false
                << QString("Command error (error code %1): %2").arg(code).arg(text) << none;

        // Warnings: the command was carried out. Code 8 elsewhere is listed like a
        // warning, and yet a failure with only the head as error text.
        QTest::newRow("code 14") << 1 << hx("0E 00") << true << "Command error (error code 14): "
                                 << QStringList{"*** the minimum range is too small - impaired accuracy"};
        const QString head8 = "Command error (error code 8): ";
        QTest::newRow("08, command 48") << 48 << hx("08 00") << true << head8 << QStringList{"*** update in progress"};
        QTest::newRow("08, command 138") << 138 << hx("08 00") << true << head8
                                         << QStringList{"*** linearization point not used"};
        QTest::newRow("08, command 141") << 141 << hx("08 00") << true << head8
                                         << QStringList{
                                                "*** temperature is different from previous value at this point"};
        QTest::newRow("08, command 1") << 1 << hx("08 00") << false << head8
                                       << QStringList{"*** incorrect input signal type selected"};

        // Codes that are not in the tables.
        for (const int code : {1, 15, 17, 19, 30, 33, 63, 65, 127})
            QTest::addRow("unknown code %d", code)
                << 1 << QByteArray(1, char(code)) + '\x40' << false
                << QString("Command error (error code %1): *** unknown error code: %1 hex: %2")
                       .arg(code)
                       .arg(code, 0, 16)
                << none;
    }

    void checkStatus()
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
};

QTEST_GUILESS_MAIN(TestHartCommand)
#include "tst_hartcommand.moc"
