#include "datacodec.h"
#include "simdevice.h"
#include "simframe.h"
#include "simline.h"

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

// Generic devices at 0 to 2; the long address of 1 is 91 2A 00 01 01.
QVariantMap deviceSettings(int pollingAddress)
{
    return {{"polling_address", pollingAddress},
            {"device_id", 0x000100 + pollingAddress},
            {"tag", QStringLiteral("DEV-%1").arg(pollingAddress)},
            {"long_tag", QStringLiteral("Device number %1").arg(pollingAddress)}};
}

// The master end of a line, with plain POSIX calls on the slave end of a
// pty or on the master end of a pair of the test's own.
class Port
{
public:
    explicit Port(const QString& path)
        : m_fd(::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
    {
        termios tio{};
        if (m_fd >= 0 && ::tcgetattr(m_fd, &tio) == 0) {
            ::cfmakeraw(&tio);
            ::tcsetattr(m_fd, TCSANOW, &tio);
        }
    }
    explicit Port(int fd) : m_fd(fd) {}
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
    // while bytes keep coming within 50 ms.
    QByteArray read(int count, int timeoutMs)
    {
        QByteArray out;
        const auto start = Clock::now();
        while (out.size() < count ? msSince(start) < timeoutMs : true) {
            pollfd fd{m_fd, POLLIN, 0};
            const int wait = out.size() < count ? int(qMax<qint64>(0, timeoutMs - msSince(start))) : 50;
            char buffer[512];
            if (::poll(&fd, 1, wait) <= 0) {
                if (out.size() >= count)
                    break;
                continue;
            }
            const ssize_t n = ::read(m_fd, buffer, sizeof(buffer));
            if (n > 0 && out.isEmpty())
                m_firstByte = Clock::now();
            if (n > 0)
                out.append(buffer, int(n));
        }
        return out;
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
    void lineTiming();
    void slaveClosedAndOpenedAgain();
    void servesATty();
    void symbolicLink();
    void devicesAndClock();

private:
    // The answer the device at this polling address gives, worked out on its
    // twin: a device made with the same settings and fed the same requests.
    QByteArray twinAnswer(int pollingAddress, const QByteArray& address, quint8 command, const QByteArray& data = {});
    static QByteArray requestTo(int pollingAddress, quint8 command, const QByteArray& data = {})
    {
        return SimFrame::buildRequest(5, QByteArray(1, char(0x80 | pollingAddress)), command, data);
    }
    // Sends a request to the device and checks that the twin's answer comes back.
    void exchange(int pollingAddress, quint8 command, const QByteArray& data = {});

    std::unique_ptr<SimLine> m_line;
    std::map<int, std::unique_ptr<SimDevice>> m_twins;
    std::unique_ptr<Port> m_port;
    QString m_path;
    static constexpr double Now = 100.0;
};

void TestSimLine::init()
{
    m_line = std::make_unique<SimLine>();
    QString error;
    for (int address = 0; address < 3; ++address) {
        QVERIFY2(m_line->addDevice(SimDevice::create("generic", deviceSettings(address), &error), &error),
                 qPrintable(error));
        m_twins[address] = SimDevice::create("generic", deviceSettings(address), &error);
    }
    m_line->freezeClock(true);
    m_line->setClock(Now);
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

void TestSimLine::exchange(int pollingAddress, quint8 command, const QByteArray& data)
{
    const int served = m_line->requestCount();
    QVERIFY(m_port->write(requestTo(pollingAddress, command, data)));
    const QByteArray expected = twinAnswer(pollingAddress, QByteArray(1, char(0x80 | pollingAddress)), command, data);
    QCOMPARE(m_port->read(expected.size(), 2000), expected);
    QVERIFY(m_line->waitForRequests(served + 1, 2000));
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
    QTest::newRow("short 2, secondary master") << hx("02") << 1 << QByteArray() << -1 << 2;
    QTest::newRow("short 5, nobody there") << hx("85") << 0 << QByteArray() << -1 << -1;
    QTest::newRow("long address of 1") << hx("91 2A 00 01 01") << 1 << QByteArray() << -1 << 1;
    QTest::newRow("long address of 2, secondary") << hx("11 2A 00 01 02") << 0 << QByteArray() << -1 << 2;
    QTest::newRow("long address of nobody") << hx("91 2A 00 09 99") << 0 << QByteArray() << -1 << -1;
    QTest::newRow("broadcast 11, tag of 2") << broadcast << 11 << DataCodec::packAscii("DEV-2", 8) << -1 << 2;
    QTest::newRow("broadcast 11, unknown tag") << broadcast << 11 << DataCodec::packAscii("NOBODY", 8) << -1 << -1;
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

    if (button >= 0) {
        QVERIFY(m_line->withDevice(button, [](SimDevice& d) { d.setButtonPressed(true); }));
        m_twins.at(button)->setButtonPressed(true);
    }
    const QByteArray request = SimFrame::buildRequest(5, address, quint8(command), data);
    QVERIFY(m_port->write(request));
    QVERIFY(m_line->waitForRequests(1, 5000));
    const QByteArray expected = device >= 0 ? twinAnswer(device, address, quint8(command), data) : QByteArray();
    QCOMPARE(expected.isEmpty(), device < 0);
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
    // The line goes on serving: the next good request gets its own answer.
    exchange(1, 0);
}

void TestSimLine::faults_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("value"); // the pause, delay, code, preambles or length the kind takes
    QTest::addColumn<bool>("longFrame");
    QTest::addColumn<bool>("keepData");

    QTest::newRow("no answer") << int(Fault::NoAnswer) << 0 << false << false;
    QTest::newRow("bad checksum") << int(Fault::BadChecksum) << 0 << false << false;
    QTest::newRow("noise") << int(Fault::Noise) << 0 << false << false;
    QTest::newRow("split") << int(Fault::Split) << 300 << false << false;
    QTest::newRow("delay") << int(Fault::Delay) << 300 << false << false;
    QTest::newRow("wrong address, short") << int(Fault::WrongAddress) << 0 << false << false;
    QTest::newRow("wrong address, long") << int(Fault::WrongAddress) << 0 << true << false;
    QTest::newRow("burst") << int(Fault::Burst) << 0 << false << false;
    QTest::newRow("burst, long") << int(Fault::Burst) << 0 << true << false;
    QTest::newRow("response code, data dropped") << int(Fault::ResponseCode) << 32 << false << false;
    QTest::newRow("response code, data kept") << int(Fault::ResponseCode) << 8 << false << true;
    QTest::newRow("more preambles") << int(Fault::Preambles) << 12 << false << false;
    QTest::newRow("fewer preambles") << int(Fault::Preambles) << 2 << false << false;
    QTest::newRow("wrong command") << int(Fault::WrongCommand) << 0 << false << false;
    QTest::newRow("truncate") << int(Fault::Truncate) << 9 << false << false;
}

void TestSimLine::faults()
{
    QFETCH(int, kind);
    QFETCH(int, value);
    QFETCH(bool, longFrame);
    QFETCH(bool, keepData);

    Fault fault;
    fault.kind = Fault::Kind(kind);
    fault.pollingAddress = 1;
    fault.noise = hx("00 12 FE");
    fault.at = 6;
    fault.pauseMs = fault.delayMs = fault.code = fault.preambles = fault.length = value;
    fault.keepData = keepData;
    m_line->addFault(fault);
    const quint8 command = 1; // unit and primary value: an answer with data
    const QByteArray address = longFrame ? hx("91 2A 00 01 01") : hx("81");
    QVERIFY(m_port->write(SimFrame::buildRequest(5, address, command)));

    // What the device would have said, changed by hand as the fault says.
    const int pre = m_twins.at(1)->responsePreambles();
    const int addressAt = pre + 1;
    const int commandAt = addressAt + address.size();
    const int codeAt = commandAt + 2;
    const QByteArray clean = fault.kind == Fault::NoAnswer ? QByteArray() : twinAnswer(1, address, command);
    QByteArray expected = clean;
    int atLeastMs = 0;
    auto change = [&expected](int at, quint8 value) {
        const quint8 old = quint8(expected.at(at));
        expected[at] = char(value);
        expected[expected.size() - 1] = char(quint8(expected.back()) ^ old ^ value);
    };
    switch (fault.kind) {
    case Fault::BadChecksum:
        expected[expected.size() - 1] = char(~quint8(expected.back()));
        break;
    case Fault::Noise:
        expected.prepend(fault.noise);
        break;
    case Fault::Split:
    case Fault::Delay:
        atLeastMs = value;
        break;
    case Fault::WrongAddress:
        change(commandAt - 1, quint8(expected.at(commandAt - 1)) ^ 0x01);
        break;
    case Fault::Burst:
        change(addressAt, quint8(expected.at(addressAt)) | 0x40);
        break;
    case Fault::ResponseCode:
        if (keepData) {
            change(codeAt, quint8(value));
        } else {
            expected = clean.left(codeAt - 1) + char(2) + char(value) + clean.at(codeAt + 1);
            expected.append(char(SimFrame::checksum(expected.mid(pre))));
        }
        break;
    case Fault::Preambles:
        expected = QByteArray(value, char(0xFF)) + clean.mid(pre);
        break;
    case Fault::WrongCommand:
        change(commandAt, command + 1);
        break;
    case Fault::Truncate:
        expected = clean.left(value);
        break;
    default:
        break;
    }
    QVERIFY(expected != clean || atLeastMs > 0 || fault.kind == Fault::NoAnswer);

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
    const int steps[][3] = {{1, 1, false}, {0, 0, false}, {1, 0, true}, {1, 0, true}, {1, 0, false}};
    int count = 0;
    for (const auto& [device, command, spoiled] : steps) {
        QVERIFY(m_port->write(requestTo(device, quint8(command))));
        QVERIFY(m_line->waitForRequests(++count, 5000));
        const QByteArray clean = twinAnswer(device, QByteArray(1, char(0x80 | device)), quint8(command));
        const QByteArray answer = m_port->read(clean.size(), 2000);
        QCOMPARE(answer.size(), clean.size());
        QCOMPARE(answer == clean, !spoiled);
    }
    QVERIFY(m_line->faults().isEmpty());

    // Added and removed while the line runs; a count of 0 lasts.
    fault.count = 0;
    fault.command = -1;
    fault.kind = Fault::NoAnswer;
    const int id = m_line->addFault(fault);
    // With no answer the request is not run at all: a message written then is
    // not taken.
    const QByteArray message = DataCodec::packAscii("CHANGED", 32);
    auto messageOf1 = [this] {
        QString text;
        m_line->withDevice(1, [&text](SimDevice& d) { text = d.param("message").toString().trimmed(); });
        return text;
    };
    QVERIFY(m_port->write(requestTo(1, 17, message)));
    QVERIFY(m_line->waitForRequests(++count, 5000));
    QCOMPARE(m_port->read(1, 200), QByteArray());
    QCOMPARE(messageOf1(), QString());
    QCOMPARE(m_line->faults().size(), 1);
    QVERIFY(m_line->removeFault(id));
    QVERIFY(!m_line->removeFault(id));
    exchange(1, 17, message);
    QCOMPARE(messageOf1(), QStringLiteral("CHANGED"));

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
    QCOMPARE(m_port->read(expected.size(), 10000), expected);
    const qint64 elapsed = msSince(sent);
    const double firstByteMs = request.size() * SimLine::CharMs + turnaround + SimLine::CharMs;
    const double lastByteMs = firstByteMs + (expected.size() - 1) * SimLine::CharMs;
    const qint64 first = std::chrono::duration_cast<std::chrono::milliseconds>(m_port->firstByte() - sent).count();
    QVERIFY2(first >= qint64(firstByteMs) - 2, qPrintable(QStringLiteral("first byte after %1 ms").arg(first)));
    QVERIFY2(elapsed >= qint64(lastByteMs) - 2, qPrintable(QStringLiteral("answer after %1 ms").arg(elapsed)));
}

void TestSimLine::slaveClosedAndOpenedAgain()
{
    // While nobody holds the slave the line waits without spinning, and it
    // serves the next master that opens it.
    m_port->close();
    const auto cpuMs = [] {
        rusage r{};
        ::getrusage(RUSAGE_SELF, &r);
        return (r.ru_utime.tv_sec + r.ru_stime.tv_sec) * 1000 + (r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1000;
    };
    const auto before = cpuMs();
    QTest::qWait(600);
    QVERIFY2(cpuMs() - before < 300, qPrintable(QStringLiteral("%1 ms of CPU in 600 ms").arg(cpuMs() - before)));
    m_port = std::make_unique<Port>(m_path);
    QVERIFY(m_port->isOpen());
    exchange(0, 0);
}

void TestSimLine::servesATty()
{
    // A tty given by path: here the slave end of a pair of the test's own,
    // written from its master end.
    int master = -1;
    int slave = -1;
    char name[256] = {};
    QCOMPARE(::openpty(&master, &slave, name, nullptr, nullptr), 0);
    Port port(master);
    termios raw{};
    ::tcgetattr(master, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(master, TCSANOW, &raw);

    SimLine line;
    line.freezeClock(true);
    line.setClock(Now);
    QString error;
    QVERIFY(line.addDevice(SimDevice::create("generic", deviceSettings(1), &error), &error));
    QVERIFY2(line.startTty(QString::fromLocal8Bit(name), &error), qPrintable(error));
    QCOMPARE(line.path(), QString::fromLocal8Bit(name));
    termios tio{};
    QCOMPARE(::tcgetattr(slave, &tio), 0);
    // A pty keeps the speed and the raw mode; its driver drops the parity bit.
    QCOMPARE(int(::cfgetispeed(&tio)), int(B1200));
    QCOMPARE(int(tio.c_cflag & (CSIZE | CSTOPB)), int(CS8));
    QCOMPARE(int(tio.c_lflag & (ICANON | ECHO | ISIG)), 0);

    QVERIFY(port.write(requestTo(1, 0)));
    const QByteArray expected = twinAnswer(1, hx("81"), 0);
    QCOMPARE(port.read(expected.size(), 2000), expected);
    QVERIFY(line.waitForRequests(1, 2000));
    QCOMPARE(line.requests().first().device, 1);

    // The other side goes away: the line keeps running and stops cleanly.
    port.close();
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

    // A stale link from an earlier run is replaced, and removed at stop.
    QVERIFY(QFile::link(dir.filePath("gone"), link));
    {
        SimLine line;
        const QString path = line.startPty(link, &error);
        QVERIFY2(!path.isEmpty(), qPrintable(error));
        QCOMPARE(QFileInfo(link).symLinkTarget(), path);
        QCOMPARE(line.linkPath(), link);
        QVERIFY(Port(link).isOpen());
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

    // The request log records the clock and the model the device saw.
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

QTEST_GUILESS_MAIN(TestSimLine)
#include "tst_simline.moc"
