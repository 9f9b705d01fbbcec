#include "scenario.h"
#include "simdevice.h"
#include "simframe.h"
#include "simline.h"

#include <QSerialPort>
#include <QTemporaryDir>
#include <QtTest>

#include <chrono>
#include <map>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/resource.h>
#include <termios.h>
#include <unistd.h>

using namespace hartsim;

Q_DECLARE_METATYPE(hartsim::Fault)

namespace {

using Clock = std::chrono::steady_clock;

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

qint64 msSince(Clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
}

// Six-bit packing of a text of chars characters (a multiple of four), padded
// with blanks, as a master sends tags (8) and messages (32).
QByteArray packAscii(const QString& text_, int chars)
{
    const QByteArray text = text_.toUpper().toLatin1().leftJustified(chars, ' ');
    QByteArray packed;
    for (int k = 0; k < chars; k += 4) {
        const quint32 group = (quint32(text[k] & 0x3F) << 18) | (quint32(text[k + 1] & 0x3F) << 12) |
                              (quint32(text[k + 2] & 0x3F) << 6) | quint32(text[k + 3] & 0x3F);
        packed.append(char(group >> 16)).append(char(group >> 8)).append(char(group));
    }
    return packed;
}

QByteArray packTag(const QString& tag)
{
    return packAscii(tag, 8);
}

QVariantMap deviceSettings(int pollingAddress)
{
    return {
        {"polling_address", pollingAddress},
        {"device_id", 0x000100 + pollingAddress},
        {"tag", QStringLiteral("DEV-%1").arg(pollingAddress)},
        {"long_tag", QStringLiteral("Device number %1").arg(pollingAddress)},
    };
}

// A serial port on the slave end of the line, with plain POSIX calls.
class Port
{
public:
    explicit Port(const QString& path)
    {
        m_fd = ::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (m_fd >= 0) {
            termios tio{};
            ::tcgetattr(m_fd, &tio);
            ::cfmakeraw(&tio);
            ::tcsetattr(m_fd, TCSANOW, &tio);
        }
    }
    ~Port() { close(); }
    bool isOpen() const { return m_fd >= 0; }
    void close()
    {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = -1;
    }
    bool write(const QByteArray& bytes)
    {
        return ::write(m_fd, bytes.constData(), size_t(bytes.size())) == bytes.size();
    }
    // Reads until count bytes are there or timeoutMs has passed, then goes on
    // while bytes keep coming within quietMs.
    QByteArray read(int count, int timeoutMs, int quietMs = 50)
    {
        QByteArray out;
        const auto deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
        while (true) {
            const bool enough = out.size() >= count;
            const int wait =
                enough
                    ? quietMs
                    : int(std::max<qint64>(
                          0, std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count()));
            pollfd fd{m_fd, POLLIN, 0};
            if (::poll(&fd, 1, wait) <= 0 || !(fd.revents & POLLIN)) {
                if (enough || Clock::now() >= deadline)
                    return out;
                continue;
            }
            char buffer[512];
            const ssize_t n = ::read(m_fd, buffer, sizeof(buffer));
            if (n > 0) {
                if (out.isEmpty())
                    m_firstByte = Clock::now();
                out.append(buffer, int(n));
            }
        }
    }
    Clock::time_point firstByte() const { return m_firstByte; }

private:
    int m_fd = -1;
    Clock::time_point m_firstByte;
};

} // namespace

class TestSimLine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void routing_data();
    void routing();
    void framesWithoutAnswer_data();
    void framesWithoutAnswer();
    void faults_data();
    void faults();
    void faultCountAndFilters();
    void noAnswerLeavesTheDeviceAlone();
    void lineTiming();
    void slaveClosedAndOpenedAgain();
    void serialPortInTheTestThread();
    void servesATty();
    void symbolicLink();
    void devicesAndClock();
    void demoLineAnswers_data();
    void demoLineAnswers();

private:
    // The answer the device at this polling address gives, worked out on its
    // twin: a device made with the same settings and fed the same requests.
    QByteArray twinAnswer(int pollingAddress, const QByteArray& address, quint8 command, const QByteArray& data = {});
    QByteArray requestTo(int pollingAddress, quint8 command, const QByteArray& data = {}) const;
    QByteArray longAddressOf(int pollingAddress) const;

    std::unique_ptr<SimLine> m_line;
    std::map<int, std::unique_ptr<SimDevice>> m_twins;
    std::unique_ptr<Port> m_port;
    QString m_path;
    static constexpr double Now = 100.0;
};

void TestSimLine::init()
{
    m_line = std::make_unique<SimLine>();
    m_twins.clear();
    for (int address = 0; address < 3; ++address) {
        QString error;
        auto device = SimDevice::create("generic", deviceSettings(address), &error);
        QVERIFY2(device, qPrintable(error));
        QVERIFY2(m_line->addDevice(std::move(device), &error), qPrintable(error));
        m_twins[address] = SimDevice::create("generic", deviceSettings(address), &error);
    }
    m_line->freezeClock(true);
    m_line->setClock(Now);
    QString error;
    m_path = m_line->startPty(QString(), &error);
    QVERIFY2(!m_path.isEmpty(), qPrintable(error));
    QVERIFY(m_line->isRunning());
    m_port = std::make_unique<Port>(m_path);
    QVERIFY(m_port->isOpen());
}

void TestSimLine::cleanup()
{
    m_port.reset();
    m_line.reset();
    m_twins.clear();
}

QByteArray TestSimLine::twinAnswer(int pollingAddress, const QByteArray& address, quint8 command,
                                   const QByteArray& data)
{
    SimDevice& twin = *m_twins.at(pollingAddress);
    const Master master = quint8(address.at(0)) & 0x80 ? Master::Primary : Master::Secondary;
    const Reply reply = twin.handle(command, data, master, Now);
    if (reply.silent)
        return QByteArray();
    const quint8 status = twin.deviceStatus(master);
    return SimFrame::buildResponse(twin.responsePreambles(), address, command, reply.code, status, reply.data);
}

QByteArray TestSimLine::requestTo(int pollingAddress, quint8 command, const QByteArray& data) const
{
    return SimFrame::buildRequest(5, QByteArray(1, char(0x80 | pollingAddress)), command, data);
}

QByteArray TestSimLine::longAddressOf(int pollingAddress) const
{
    QByteArray address = m_twins.at(pollingAddress)->longAddress();
    address[0] = char(address.at(0) | 0x80);
    return address;
}

void TestSimLine::routing_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("button"); // polling address of the device whose button is pressed, or -1
    QTest::addColumn<int>("device"); // the device that answers, or -1

    const QByteArray broadcast = hx("80 00 00 00 00");
    QTest::newRow("short 0") << hx("80") << 0 << QByteArray() << -1 << 0;
    QTest::newRow("short 1, command 1") << hx("81") << 1 << QByteArray() << -1 << 1;
    QTest::newRow("short 2, secondary master") << hx("02") << 0 << QByteArray() << -1 << 2;
    QTest::newRow("short 5, nobody there") << hx("85") << 0 << QByteArray() << -1 << -1;
    QTest::newRow("long address of 1") << QByteArray("long 1") << 1 << QByteArray() << -1 << 1;
    QTest::newRow("long address of 2, secondary") << QByteArray("long 2 secondary") << 0 << QByteArray() << -1 << 2;
    QTest::newRow("long address of nobody") << hx("91 2A 00 09 99") << 0 << QByteArray() << -1 << -1;
    QTest::newRow("broadcast 11, tag of 2") << broadcast << 11 << packTag("DEV-2") << -1 << 2;
    QTest::newRow("broadcast 11, tag of 0") << broadcast << 11 << packTag("DEV-0") << -1 << 0;
    QTest::newRow("broadcast 11, unknown tag") << broadcast << 11 << packTag("NOBODY") << -1 << -1;
    QTest::newRow("broadcast 21, long tag of 1")
        << broadcast << 21 << QByteArray("Device number 1").leftJustified(32, '\0') << -1 << 1;
    QTest::newRow("broadcast 73, button of 2") << broadcast << 73 << QByteArray() << 2 << 2;
    QTest::newRow("broadcast 73, no button") << broadcast << 73 << QByteArray() << -1 << -1;
    QTest::newRow("broadcast address, command 0") << broadcast << 0 << QByteArray() << -1 << -1;
}

void TestSimLine::routing()
{
    QFETCH(QByteArray, address);
    QFETCH(int, command);
    QFETCH(QByteArray, data);
    QFETCH(int, button);
    QFETCH(int, device);

    if (address == "long 1")
        address = longAddressOf(1);
    if (address == "long 2 secondary") {
        address = longAddressOf(2);
        address[0] = char(address.at(0) & 0x3F);
    }
    if (button >= 0) {
        QVERIFY(m_line->withDevice(button, [](SimDevice& d) { d.setButtonPressed(true); }));
        m_twins.at(button)->setButtonPressed(true);
    }

    const QByteArray request = SimFrame::buildRequest(5, address, quint8(command), data);
    QVERIFY(m_port->write(request));
    QVERIFY(m_line->waitForRequests(1, 5000));
    const QByteArray expected = device >= 0 ? twinAnswer(device, address, quint8(command), data) : QByteArray();
    if (device >= 0)
        QVERIFY(!expected.isEmpty());
    QCOMPARE(m_port->read(expected.size(), 2000), expected);

    const RequestRecord record = m_line->requests().first();
    QCOMPARE(record.raw, request);
    QCOMPARE(record.address, address);
    QCOMPARE(int(record.command), command);
    QCOMPARE(record.data, data);
    QCOMPARE(record.primaryMaster, bool(quint8(address.at(0)) & 0x80));
    QCOMPARE(record.answered, device >= 0);
    QCOMPARE(record.answer, expected);
    QCOMPARE(record.device, device);
}

void TestSimLine::framesWithoutAnswer_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("reason");

    // Checksums summed by hand; each frame is addressed to device 1, which
    // stands on the line.
    QTest::newRow("wrong checksum") << hx("FF FF FF FF FF 02 81 00 00 82") << int(FrameReceiver::BadChecksum);
    QTest::newRow("unknown delimiter 41") << hx("FF FF FF FF FF 41 81 00 00 C0") << int(FrameReceiver::BadDelimiter);
    QTest::newRow("a response delimiter")
        << hx("FF FF FF FF FF 06 81 00 02 00 00 85") << int(FrameReceiver::BadDelimiter);
    QTest::newRow("one preamble") << hx("FF 02 81 00 00 83") << int(FrameReceiver::TooFewPreambles);
}

void TestSimLine::framesWithoutAnswer()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, reason);

    QVERIFY(m_port->write(bytes));
    QTRY_COMPARE_WITH_TIMEOUT(m_line->dropped(FrameReceiver::DropReason(reason)), 1, 5000);
    QCOMPARE(m_line->droppedTotal(), 1);
    QCOMPARE(m_port->read(1, 200), QByteArray());
    QCOMPARE(m_line->requestCount(), 0);

    // The line goes on serving: the next good request gets its own answer and
    // nothing else.
    const QByteArray request = requestTo(1, 0);
    QVERIFY(m_port->write(request));
    const QByteArray expected = twinAnswer(1, hx("81"), 0);
    QCOMPARE(m_port->read(expected.size(), 2000), expected);
    QVERIFY(m_line->waitForRequests(1, 2000));
}

void TestSimLine::faults_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<bool>("longFrame");

    auto make = [](Fault::Kind kind) {
        Fault f;
        f.kind = kind;
        f.pollingAddress = 1;
        return f;
    };
    QTest::newRow("no answer") << make(Fault::NoAnswer) << false;
    QTest::newRow("bad checksum") << make(Fault::BadChecksum) << false;
    Fault noise = make(Fault::Noise);
    noise.noise = hx("00 12 FE");
    QTest::newRow("noise") << noise << false;
    Fault split = make(Fault::Split);
    split.at = 6;
    split.pauseMs = 300;
    QTest::newRow("split") << split << false;
    Fault delay = make(Fault::Delay);
    delay.delayMs = 300;
    QTest::newRow("delay") << delay << false;
    QTest::newRow("wrong address, short") << make(Fault::WrongAddress) << false;
    QTest::newRow("wrong address, long") << make(Fault::WrongAddress) << true;
    QTest::newRow("burst") << make(Fault::Burst) << false;
    QTest::newRow("burst, long") << make(Fault::Burst) << true;
    Fault code = make(Fault::ResponseCode);
    code.code = 32;
    QTest::newRow("response code, data dropped") << code << false;
    code.code = 8;
    code.keepData = true;
    QTest::newRow("response code, data kept") << code << false;
    Fault preambles = make(Fault::Preambles);
    preambles.preambles = 12;
    QTest::newRow("more preambles") << preambles << false;
    preambles.preambles = 2;
    QTest::newRow("fewer preambles") << preambles << false;
    QTest::newRow("wrong command") << make(Fault::WrongCommand) << false;
    Fault truncate = make(Fault::Truncate);
    truncate.length = 9;
    QTest::newRow("truncate") << truncate << false;
}

void TestSimLine::faults()
{
    QFETCH(Fault, fault);
    QFETCH(bool, longFrame);

    const quint8 command = 1; // unit and primary value: an answer with data
    const QByteArray address = longFrame ? longAddressOf(1) : hx("81");
    m_line->addFault(fault);
    QVERIFY(m_port->write(SimFrame::buildRequest(5, address, command)));

    // What the device would have said, changed by hand as the fault says.
    const int pre = m_twins.at(1)->responsePreambles();
    const int addressAt = pre + 1;
    const int commandAt = addressAt + address.size();
    const int codeAt = commandAt + 2;
    QByteArray clean;
    if (fault.kind != Fault::NoAnswer)
        clean = twinAnswer(1, address, command);
    QByteArray expected = clean;
    int atLeastMs = 0;
    auto change = [&expected](int at, quint8 value) {
        const quint8 old = quint8(expected.at(at));
        expected[at] = char(value);
        expected[expected.size() - 1] = char(quint8(expected.back()) ^ old ^ value);
    };
    switch (fault.kind) {
    case Fault::NoAnswer:
        break;
    case Fault::BadChecksum:
        expected[expected.size() - 1] = char(~quint8(expected.back()));
        break;
    case Fault::Noise:
        expected.prepend(fault.noise);
        break;
    case Fault::Split:
        atLeastMs = fault.pauseMs;
        break;
    case Fault::Delay:
        atLeastMs = fault.delayMs;
        break;
    case Fault::WrongAddress:
        change(commandAt - 1, quint8(expected.at(commandAt - 1)) ^ 0x01);
        break;
    case Fault::Burst:
        change(addressAt, quint8(expected.at(addressAt)) | 0x40);
        break;
    case Fault::ResponseCode:
        if (fault.keepData) {
            change(codeAt, quint8(fault.code));
        } else {
            expected = clean.left(codeAt - 1) + char(2) + char(fault.code) + clean.at(codeAt + 1);
            expected.append(char(SimFrame::checksum(expected.mid(pre))));
        }
        break;
    case Fault::Preambles:
        expected = QByteArray(fault.preambles, char(0xFF)) + clean.mid(pre);
        break;
    case Fault::WrongCommand:
        change(commandAt, command + 1);
        break;
    case Fault::Truncate:
        expected = clean.left(fault.length);
        break;
    case Fault::KindCount:
        QFAIL("no such fault");
    }
    QVERIFY(expected != clean || fault.kind == Fault::NoAnswer || fault.kind == Fault::Split ||
            fault.kind == Fault::Delay);

    const auto sent = Clock::now();
    QVERIFY(m_line->waitForRequests(1, 5000));
    QCOMPARE(m_port->read(expected.size(), 2000), expected);
    QVERIFY2(msSince(sent) >= atLeastMs - 2, qPrintable(QString::number(msSince(sent))));
    const RequestRecord record = m_line->requests().first();
    QCOMPARE(record.faults, QStringList{Fault::kindName(fault.kind)});
    QCOMPARE(record.answered, fault.kind != Fault::NoAnswer);
    QCOMPARE(record.answer, expected);
}

void TestSimLine::faultCountAndFilters()
{
    // Two spoiled answers to command 0 of device 1, then clean ones; command 1
    // and device 0 are not touched.
    Fault fault;
    fault.kind = Fault::WrongCommand;
    fault.pollingAddress = 1;
    fault.command = 0;
    fault.count = 2;
    m_line->addFault(fault);
    QCOMPARE(m_line->faults().size(), 1);

    struct Step
    {
        int device;
        quint8 command;
        bool spoiled;
    };
    const Step steps[] = {{1, 1, false}, {0, 0, false}, {1, 0, true}, {1, 0, true}, {1, 0, false}};
    int count = 0;
    for (const Step& step : steps) {
        QVERIFY(m_port->write(requestTo(step.device, step.command)));
        QVERIFY(m_line->waitForRequests(++count, 5000));
        const QByteArray clean = twinAnswer(step.device, QByteArray(1, char(0x80 | step.device)), step.command);
        const QByteArray answer = m_port->read(clean.size(), 2000);
        QCOMPARE(answer.size(), clean.size());
        QCOMPARE(answer == clean, !step.spoiled);
    }
    QVERIFY(m_line->faults().isEmpty());

    // Added and cleared while the line runs.
    fault.count = 0;
    fault.kind = Fault::NoAnswer;
    const int id = m_line->addFault(fault);
    QVERIFY(m_port->write(requestTo(1, 0)));
    QVERIFY(m_line->waitForRequests(++count, 5000));
    QCOMPARE(m_port->read(1, 200), QByteArray());
    QCOMPARE(m_line->faults().size(), 1); // a count of 0 lasts
    QVERIFY(m_line->removeFault(id));
    QVERIFY(!m_line->removeFault(id));
    QVERIFY(m_port->write(requestTo(1, 0)));
    QVERIFY(m_line->waitForRequests(++count, 5000));
    const QByteArray clean = twinAnswer(1, hx("81"), 0);
    QCOMPARE(m_port->read(clean.size(), 2000), clean);

    fault.pollingAddress = 2;
    m_line->addFault(fault);
    fault.pollingAddress = 0;
    m_line->addFault(fault);
    m_line->clearFaults(2);
    QCOMPARE(m_line->faults().size(), 1);
    QCOMPARE(m_line->faults().first().pollingAddress, 0);
    m_line->clearFaults();
    QVERIFY(m_line->faults().isEmpty());
}

void TestSimLine::noAnswerLeavesTheDeviceAlone()
{
    // With no answer the request is not run at all: a message written then is
    // not taken.
    Fault fault;
    fault.kind = Fault::NoAnswer;
    fault.pollingAddress = 2;
    fault.count = 1;
    m_line->addFault(fault);
    const QByteArray message = packAscii("CHANGED", 32);
    QVERIFY(m_port->write(requestTo(2, 17, message)));
    QVERIFY(m_line->waitForRequests(1, 5000));
    QCOMPARE(m_port->read(1, 200), QByteArray());
    auto messageOf2 = [this] {
        QString text;
        m_line->withDevice(2, [&text](SimDevice& d) { text = d.param("message").toString().trimmed(); });
        return text;
    };
    QCOMPARE(messageOf2(), QString());

    QVERIFY(m_port->write(requestTo(2, 17, message)));
    QVERIFY(m_line->waitForRequests(2, 5000));
    const QByteArray expected = twinAnswer(2, hx("82"), 17, message);
    QCOMPARE(m_port->read(expected.size(), 2000), expected);
    QCOMPARE(messageOf2(), QStringLiteral("CHANGED"));
}

void TestSimLine::lineTiming()
{
    // 1200 baud, 11 bits a character: the answer cannot be complete before the
    // request's own time on the wire, the turnaround and its own bytes have
    // passed. Only lower bounds are checked: a loaded machine may be slower.
    const int turnaround = 40;
    m_line->setTiming(SimLine::Timing::Line);
    m_line->setTurnaroundMs(turnaround);
    const QByteArray request = requestTo(0, 0);
    const QByteArray expected = twinAnswer(0, hx("80"), 0);

    const auto sent = Clock::now();
    QVERIFY(m_port->write(request));
    const QByteArray answer = m_port->read(expected.size(), 10000);
    const qint64 elapsed = msSince(sent);
    QCOMPARE(answer, expected);

    const double firstByteMs = request.size() * SimLine::CharMs + turnaround + SimLine::CharMs;
    const double lastByteMs = request.size() * SimLine::CharMs + turnaround + expected.size() * SimLine::CharMs;
    const qint64 first = std::chrono::duration_cast<std::chrono::milliseconds>(m_port->firstByte() - sent).count();
    QVERIFY2(first >= qint64(firstByteMs) - 2, qPrintable(QStringLiteral("first byte after %1 ms").arg(first)));
    QVERIFY2(elapsed >= qint64(lastByteMs) - 2, qPrintable(QStringLiteral("answer after %1 ms").arg(elapsed)));
    QVERIFY(m_line->waitForRequests(1, 2000));
}

void TestSimLine::slaveClosedAndOpenedAgain()
{
    // While nobody holds the slave the line waits without spinning, and it
    // serves the next master that opens it.
    m_port->close();
    rusage before{};
    ::getrusage(RUSAGE_SELF, &before);
    QTest::qWait(600);
    rusage after{};
    ::getrusage(RUSAGE_SELF, &after);
    const auto cpuMs = [](const rusage& r) {
        return (r.ru_utime.tv_sec + r.ru_stime.tv_sec) * 1000 + (r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1000;
    };
    QVERIFY2(cpuMs(after) - cpuMs(before) < 300,
             qPrintable(QStringLiteral("%1 ms of CPU in 600 ms").arg(cpuMs(after) - cpuMs(before))));

    m_port = std::make_unique<Port>(m_path);
    QVERIFY(m_port->isOpen());
    QVERIFY(m_port->write(requestTo(0, 0)));
    const QByteArray expected = twinAnswer(0, hx("80"), 0);
    QCOMPARE(m_port->read(expected.size(), 2000), expected);
}

void TestSimLine::serialPortInTheTestThread()
{
    m_port.reset();
    QSerialPort serial;
    serial.setPortName(m_path);
    QVERIFY2(serial.open(QIODevice::ReadWrite), qPrintable(serial.errorString()));
    serial.setBaudRate(QSerialPort::Baud1200);
    serial.setParity(QSerialPort::OddParity);
    serial.setDataBits(QSerialPort::Data8);
    serial.setStopBits(QSerialPort::OneStop);
    serial.setFlowControl(QSerialPort::NoFlowControl);

    const QByteArray expected = twinAnswer(1, hx("81"), 0);
    serial.write(requestTo(1, 0));
    QVERIFY(serial.waitForBytesWritten(2000));
    QByteArray answer;
    const auto start = Clock::now();
    while (answer.size() < expected.size() && msSince(start) < 5000) {
        if (serial.waitForReadyRead(200))
            answer += serial.readAll();
    }
    QCOMPARE(answer, expected);
}

void TestSimLine::servesATty()
{
    // A tty given by path: here the slave end of a pair of the test's own,
    // written from its master end.
    int master = -1;
    int slave = -1;
    char name[256] = {};
    QCOMPARE(::openpty(&master, &slave, name, nullptr, nullptr), 0);
    termios raw{};
    ::tcgetattr(master, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(master, TCSANOW, &raw);

    SimLine line;
    line.freezeClock(true);
    QString error;
    QVERIFY(line.addDevice(SimDevice::create("generic", deviceSettings(4), &error), &error));
    QVERIFY2(line.startTty(QString::fromLocal8Bit(name), &error), qPrintable(error));
    QCOMPARE(line.path(), QString::fromLocal8Bit(name));

    termios tio{};
    QCOMPARE(::tcgetattr(slave, &tio), 0);
    // A pty keeps the speed and the raw mode; its driver drops the parity bit.
    QCOMPARE(int(::cfgetispeed(&tio)), int(B1200));
    QCOMPARE(int(tio.c_cflag & (CSIZE | CSTOPB)), int(CS8));
    QCOMPARE(int(tio.c_lflag & (ICANON | ECHO | ISIG)), 0);

    const QByteArray request = requestTo(4, 0);
    QCOMPARE(::write(master, request.constData(), size_t(request.size())), ssize_t(request.size()));
    QVERIFY(line.waitForRequests(1, 5000));
    const RequestRecord record = line.requests().first();
    QCOMPARE(record.device, 4);
    QVERIFY(record.answered);
    QByteArray answer;
    const auto start = Clock::now();
    while (answer.size() < record.answer.size() && msSince(start) < 2000) {
        pollfd fd{master, POLLIN, 0};
        char buffer[256];
        if (::poll(&fd, 1, 100) > 0) {
            const ssize_t n = ::read(master, buffer, sizeof(buffer));
            if (n > 0)
                answer.append(buffer, int(n));
        }
    }
    QCOMPARE(answer, record.answer);
    QString twinError;
    auto twin = SimDevice::create("generic", deviceSettings(4), &twinError);
    const Reply reply = twin->handle(0, {}, Master::Primary, line.clock());
    QCOMPARE(answer, SimFrame::buildResponse(twin->responsePreambles(), hx("84"), 0, reply.code,
                                             twin->deviceStatus(Master::Primary), reply.data));

    // The other side goes away: the line keeps running and stops cleanly.
    ::close(master);
    ::close(slave);
    QTest::qWait(100);
    QVERIFY(line.isRunning());
    line.stop();
    QVERIFY(!line.isRunning());
}

void TestSimLine::symbolicLink()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString link = dir.filePath("hart0");
    QString error;

    // A stale link from an earlier run is replaced.
    QVERIFY(QFile::link(dir.filePath("gone"), link));
    {
        SimLine line;
        const QString path = line.startPty(link, &error);
        QVERIFY2(!path.isEmpty(), qPrintable(error));
        QCOMPARE(QFileInfo(link).symLinkTarget(), path);
        QCOMPARE(line.linkPath(), link);
        Port port(link);
        QVERIFY(port.isOpen());
        line.stop();
        QVERIFY(!QFileInfo(link).isSymLink());
        QVERIFY(!QFileInfo::exists(link));
    }

    // The destructor removes it too.
    {
        SimLine line;
        QVERIFY(!line.startPty(link, &error).isEmpty());
        QVERIFY(QFileInfo(link).isSymLink());
    }
    QVERIFY(!QFileInfo(link).isSymLink());

    // A file that is not a link is left alone.
    QFile file(link);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("keep me");
    file.close();
    SimLine line;
    QVERIFY(line.startPty(link, &error).isEmpty());
    QVERIFY(error.contains(link));
    QVERIFY(!line.isRunning());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("keep me"));
}

void TestSimLine::devicesAndClock()
{
    QString error;
    QVERIFY(!m_line->addDevice(SimDevice::create("generic", deviceSettings(1), &error), &error));
    QVERIFY(error.contains("1"));
    QVERIFY(!m_line->addDevice(SimDevice::create("generic", {{"polling_address", 64}}, &error), &error));
    QVERIFY(!m_line->addDevice(nullptr, &error));
    QVERIFY(m_line->addDevice(SimDevice::create("hart5", deviceSettings(63), &error), &error));
    QCOMPARE(m_line->pollingAddresses(), (QList<int>{0, 1, 2, 63}));
    QVERIFY(!m_line->withDevice(5, [](SimDevice&) {}));
    QString model;
    QVERIFY(m_line->withDevice(63, [&model](SimDevice& d) { model = d.model(); }));
    QCOMPARE(model, QStringLiteral("hart5"));

    QCOMPARE(m_line->clock(), Now);
    QTest::qWait(20);
    QCOMPARE(m_line->clock(), Now);
    m_line->setClock(5.0);
    QCOMPARE(m_line->clock(), 5.0);
    m_line->freezeClock(false);
    QTest::qWait(20);
    QVERIFY(m_line->clock() > 5.0);
    m_line->setClock(1000.0);
    QVERIFY(m_line->clock() >= 1000.0);

    // The request log records the clock the devices saw.
    m_line->freezeClock(true);
    m_line->setClock(42.0);
    QVERIFY(m_port->write(requestTo(63, 0)));
    QVERIFY(m_line->waitForRequests(1, 5000));
    QCOMPARE(m_line->requests().first().clock, 42.0);
    QCOMPARE(m_line->requests().first().model, QStringLiteral("hart5"));
    m_line->clearLog();
    QCOMPARE(m_line->requestCount(), 0);
    QVERIFY(!m_line->waitForRequests(1, 10));
}

void TestSimLine::demoLineAnswers_data()
{
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("size");           // data bytes behind the status
    QTest::addColumn<QByteArray>("leading"); // the first data bytes

    // Identity: 254, manufacturer, device type of each model.
    QTest::newRow("TCV-C, 0") << 0 << 0 << 0 << 22 << hx("FE E0 91");
    QTest::newRow("QP-1C, 0") << 1 << 0 << 0 << 22 << hx("FE E0 93");
    QTest::newRow("pH-7702, 0") << 2 << 0 << 0 << 22 << hx("FE E0 94");
    QTest::newRow("generic, 0") << 3 << 0 << 0 << 22 << hx("FE 11 2A");
    // Command 3: the current and PV to QV (QV is not used on the pressure converter).
    QTest::newRow("TCV-C, 3") << 0 << 3 << 0 << 24 << QByteArray();
    QTest::newRow("QP-1C, 3") << 1 << 3 << 0 << 19 << QByteArray();
    QTest::newRow("pH-7702, 3") << 2 << 3 << 0 << 24 << QByteArray();
    QTest::newRow("generic, 3") << 3 << 3 << 0 << 24 << QByteArray();
    // Command 13: the packed tag first.
    QTest::newRow("TCV-C, 13") << 0 << 13 << 0 << 21 << packTag("TT-101");
    QTest::newRow("QP-1C, 13") << 1 << 13 << 0 << 21 << packTag("PT-102");
    QTest::newRow("pH-7702, 13") << 2 << 13 << 0 << 21 << packTag("AT-103");
    QTest::newRow("generic, 13") << 3 << 13 << 0 << 21 << packTag("FT-104");
    // The configuration block of each model; a generic device has none.
    QTest::newRow("TCV-C, 130") << 0 << 130 << 0 << 22 << QByteArray();
    QTest::newRow("QP-1C, 135") << 1 << 135 << 0 << 21 << QByteArray();
    QTest::newRow("pH-7702, 130") << 2 << 130 << 0 << 20 << QByteArray();
    QTest::newRow("generic, 130") << 3 << 130 << 64 << 0 << QByteArray();
}

void TestSimLine::demoLineAnswers()
{
    QFETCH(int, address);
    QFETCH(int, command);
    QFETCH(int, code);
    QFETCH(int, size);
    QFETCH(QByteArray, leading);

    SimLine demo;
    QString error;
    QVERIFY2(Scenario::load(QString::fromLatin1(Scenario::DemoPath), demo, &error), qPrintable(error));
    demo.setTiming(SimLine::Timing::Fast);
    const QString path = demo.startPty(QString(), &error);
    QVERIFY2(!path.isEmpty(), qPrintable(error));
    Port port(path);
    QVERIFY(port.isOpen());

    QVERIFY(port.write(requestTo(address, quint8(command))));
    const QByteArray answer = port.read(5 + 6 + size + 1, 2000);
    const int start = answer.indexOf(char(SimFrame::ShortResponse));
    QVERIFY2(start >= 2, answer.toHex(' ').constData());
    const QByteArray frame = answer.mid(start);
    QCOMPARE(frame.size(), 6 + size + 1);
    QCOMPARE(quint8(frame.at(1)), quint8(0x80 | address));
    QCOMPARE(quint8(frame.at(2)), quint8(command));
    QCOMPARE(int(quint8(frame.at(3))), 2 + size);
    QCOMPARE(int(quint8(frame.at(4))), code);
    QCOMPARE(SimFrame::checksum(frame.left(frame.size() - 1)), quint8(frame.back()));
    QCOMPARE(frame.mid(6, leading.size()).toHex(' '), leading.toHex(' '));
}

QTEST_GUILESS_MAIN(TestSimLine)
#include "tst_simline.moc"
