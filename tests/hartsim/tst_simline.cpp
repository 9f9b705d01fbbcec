#include "columns.h"
#include "simframe.h"
#include "simline.h"

#include <QTemporaryDir>
#include <QtTest>

#include <chrono>
#include <ctime>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

using namespace hartsim;

namespace {

using Clock = std::chrono::steady_clock;

qint64 msSince(Clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
}

// Generic devices at 0 to 2 whose PV stands at 42 kPa; the long address of 1
// is 91 2A 00 01 01.
QVariantMap deviceSettings(int pollingAddress)
{
    return {{"polling_address", pollingAddress},
            {"var_0_amplitude", 0.0},
            {"device_id", 0x000100 + pollingAddress},
            {"tag", QStringLiteral("DEV-%1").arg(pollingAddress)},
            {"long_tag", QStringLiteral("Device number %1").arg(pollingAddress)}};
}

QByteArray shortAddress(int pollingAddress)
{
    return QByteArray(1, char(0x80 | pollingAddress));
}

QByteArray requestTo(int pollingAddress, quint8 command, const QByteArray& data = {})
{
    return SimFrame::buildRequest(5, shortAddress(pollingAddress), command, data);
}

// The master end of a line in raw mode, with plain POSIX calls: the slave end
// of the line's pty, or the master end of a pair of the test's own.
struct Port
{
    explicit Port(int fd) : fd(fd)
    {
        termios tio{};
        ::tcgetattr(fd, &tio);
        ::cfmakeraw(&tio);
        ::tcsetattr(fd, TCSANOW, &tio);
    }
    explicit Port(const QString& path)
        : Port(::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
    {}
    ~Port() { ::close(fd); }
    bool write(const QByteArray& bytes) { return ::write(fd, bytes.constData(), size_t(bytes.size())) == bytes.size(); }
    // Reads until count bytes are there or timeoutMs has passed, then as long
    // as more keep coming within 20 ms.
    QByteArray read(int count, int timeoutMs)
    {
        QByteArray out;
        const auto start = Clock::now();
        pollfd p{fd, POLLIN, 0};
        char buffer[512];
        ssize_t n = 0;
        while (::poll(&p, 1, int(out.size() < count ? qMax<qint64>(0, timeoutMs - msSince(start)) : 20)) > 0 &&
               (n = ::read(fd, buffer, sizeof(buffer))) > 0)
            out.append(buffer, int(n));
        return out;
    }
    const int fd;
};

} // namespace

class TestSimLine : public QObject
{
    Q_OBJECT

    std::unique_ptr<SimLine> m_line;
    std::unique_ptr<SimDevice> m_twins[3];
    std::unique_ptr<Port> m_port;
    QString m_path;
    static constexpr double Now = 100.0;

    // The answer the device at this polling address gives, worked out on its
    // twin: a device made with the same settings and fed the same requests.
    QByteArray twinAnswer(int pollingAddress, const QByteArray& address, quint8 command, const QByteArray& data = {})
    {
        SimDevice& twin = *m_twins[pollingAddress];
        const Master master = quint8(address.at(0)) & 0x80 ? Master::Primary : Master::Secondary;
        const Reply reply = twin.handle(command, data, master, Now);
        return SimFrame::buildResponse(twin.responsePreambles(), address, command, reply.code,
                                       twin.deviceStatus(master), reply.data);
    }

    // Sends a request to the device and checks that the twin's answer comes back.
    void exchange(int pollingAddress, quint8 command, const QByteArray& data = {})
    {
        QVERIFY(m_port->write(requestTo(pollingAddress, command, data)));
        const QByteArray expected = twinAnswer(pollingAddress, shortAddress(pollingAddress), command, data);
        QCOMPARE(m_port->read(expected.size(), 2000), expected);
    }

private slots:
    void init()
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
        m_port = std::make_unique<Port>(m_path);
    }

    void routing_data()
    {
        addColumns<QByteArray, int, QByteArray>({"address", "command", "data"});
        QTest::addColumn<int>("device"); // the device that answers (its button pressed for 73), or -1

        const QByteArray broadcast = hx("80 00 00 00 00");
        QTest::newRow("short 0") << hx("80") << 0 << QByteArray() << 0;
        QTest::newRow("short 2, secondary master") << hx("02") << 1 << QByteArray() << 2;
        QTest::newRow("short 5, nobody there") << hx("85") << 0 << QByteArray() << -1;
        QTest::newRow("long address of 1") << hx("91 2A 00 01 01") << 1 << QByteArray() << 1;
        QTest::newRow("long address of nobody") << hx("91 2A 00 09 99") << 0 << QByteArray() << -1;
        QTest::newRow("broadcast 11, tag of 2") << broadcast << 11 << DataCodec::packAscii("DEV-2", 8) << 2;
        QTest::newRow("broadcast 11, unknown tag") << broadcast << 11 << DataCodec::packAscii("NOBODY", 8) << -1;
        QTest::newRow("broadcast 21, long tag of 1")
            << broadcast << 21 << QByteArray("Device number 1").leftJustified(32, '\0') << 1;
        QTest::newRow("broadcast 73, button of 2") << broadcast << 73 << QByteArray() << 2;
        QTest::newRow("broadcast 73, no button") << broadcast << 73 << QByteArray() << -1;
    }

    void routing()
    {
        QFETCH(QByteArray, address);
        QFETCH(int, command);
        QFETCH(QByteArray, data);
        QFETCH(int, device);

        if (command == 73 && device >= 0) {
            QVERIFY(m_line->withDevice(device, [](SimDevice& d) { d.setButtonPressed(true); }));
            m_twins[device]->setButtonPressed(true);
        }
        const QByteArray request = SimFrame::buildRequest(5, address, quint8(command), data);
        QVERIFY(m_port->write(request));
        QVERIFY(m_line->waitForRequests(1, 5000));
        const QByteArray expected = device >= 0 ? twinAnswer(device, address, quint8(command), data) : QByteArray();
        QCOMPARE(m_port->read(expected.size(), 2000), expected);

        const RequestRecord record = m_line->requests().first();
        QCOMPARE(record.raw, request);
        QCOMPARE(record.primaryMaster, bool(quint8(address.at(0)) & 0x80));
        QCOMPARE(record.answered, device >= 0);
        QCOMPARE(record.answer, expected);
        QCOMPARE(record.device, device);
        QCOMPARE(record.model, device >= 0 ? QStringLiteral("generic") : QString());
        QCOMPARE(record.clock, Now);
    }

    void framesWithoutAnswer()
    {
        // To device 1, checksums summed by hand: a wrong checksum, a response
        // delimiter, one preamble. None is answered, and the line goes on.
        QVERIFY(
            m_port->write(hx("FF FF FF FF FF 02 81 00 00 82 FF FF FF FF FF 06 81 00 02 00 00 85 FF 02 81 00 00 83")));
        QTRY_COMPARE_WITH_TIMEOUT(m_line->droppedTotal(), 3, 5000);
        for (const auto reason :
             {FrameReceiver::BadChecksum, FrameReceiver::BadDelimiter, FrameReceiver::TooFewPreambles})
            QCOMPARE(m_line->dropped(reason), 1);
        QCOMPARE(m_port->read(1, 100), QByteArray());
        QCOMPARE(m_line->requestCount(), 0);
        exchange(1, 0);
    }

    void faults_data()
    {
        // value: the pause, delay, code, preambles or length the kind takes
        addColumns<int, int, bool, bool, QByteArray>({"kind", "value", "longFrame", "keepData", "expected"});

        // Device 1 answers command 1 with kPa and 42, telling its cold start;
        // the checksums are summed by hand.
        const QByteArray pre = hx("FF FF FF FF FF");
        const QByteArray answer = hx("06 81 01 07 00 20 0C 42 28 00 00 C7");
        auto row = [](const char* name, Fault::Kind kind, int value, const QByteArray& expected, bool longFrame = false,
                      bool keepData = false) {
            QTest::newRow(name) << int(kind) << value << longFrame << keepData << expected;
        };
        row("no answer", Fault::NoAnswer, 0, {});
        row("bad checksum", Fault::BadChecksum, 0, pre + answer.chopped(1) + hx("38"));
        row("noise", Fault::Noise, 0, hx("00 12 FE") + pre + answer);
        row("split", Fault::Split, 100, pre + answer);
        row("delay", Fault::Delay, 100, pre + answer);
        row("wrong address, short", Fault::WrongAddress, 0, pre + hx("06 80 01 07 00 20 0C 42 28 00 00 C6"));
        row("wrong address, long", Fault::WrongAddress, 0, pre + hx("86 91 2A 00 01 00 01 07 00 20 0C 42 28 00 00 7C"),
            true);
        row("burst", Fault::Burst, 0, pre + hx("06 C1 01 07 00 20 0C 42 28 00 00 87"));
        row("burst, long", Fault::Burst, 0, pre + hx("86 D1 2A 00 01 01 01 07 00 20 0C 42 28 00 00 3D"), true);
        row("response code, data dropped", Fault::ResponseCode, 32, pre + hx("06 81 01 02 20 20 84"));
        row("response code, data kept", Fault::ResponseCode, 8, pre + hx("06 81 01 07 08 20 0C 42 28 00 00 CF"), false,
            true);
        row("more preambles", Fault::Preambles, 12, QByteArray(12, char(0xFF)) + answer);
        row("fewer preambles", Fault::Preambles, 2, hx("FF FF") + answer);
        row("wrong command", Fault::WrongCommand, 0, pre + hx("06 81 02 07 00 20 0C 42 28 00 00 C4"));
        row("truncate", Fault::Truncate, 9, pre + answer.left(4));
    }

    void faults()
    {
        QFETCH(int, kind);
        QFETCH(int, value);
        QFETCH(bool, longFrame);
        QFETCH(bool, keepData);
        QFETCH(QByteArray, expected);

        Fault fault;
        fault.kind = Fault::Kind(kind);
        fault.pollingAddress = 1;
        fault.noise = hx("00 12 FE");
        fault.at = 6;
        fault.pauseMs = fault.delayMs = fault.code = fault.preambles = fault.length = value;
        fault.keepData = keepData;
        m_line->addFault(fault);
        const auto sent = Clock::now();
        QVERIFY(m_port->write(SimFrame::buildRequest(5, longFrame ? hx("91 2A 00 01 01") : hx("81"), 1)));
        QVERIFY(m_line->waitForRequests(1, 5000));
        QCOMPARE(m_port->read(expected.size(), 2000), expected);
        QVERIFY2(msSince(sent) >= value - 2 || (fault.kind != Fault::Split && fault.kind != Fault::Delay),
                 qPrintable(QString::number(msSince(sent))));
        const RequestRecord record = m_line->requests().first();
        QCOMPARE(record.faults, QStringList{Fault::kindName(fault.kind)});
        QCOMPARE(record.answered, fault.kind != Fault::NoAnswer);
        QCOMPARE(record.answer, expected);
    }

    void faultCountAndFilters()
    {
        // Two spoiled answers to command 0 of device 1, then clean ones;
        // command 1 and device 0 are not touched.
        Fault fault;
        fault.kind = Fault::WrongCommand;
        fault.pollingAddress = 1;
        fault.command = 0;
        fault.count = 2;
        m_line->addFault(fault);
        const int steps[][3] = {{1, 1, false}, {0, 0, false}, {1, 0, true}, {1, 0, true}, {1, 0, false}};
        for (const auto& [device, command, spoiled] : steps) {
            const QByteArray clean = twinAnswer(device, shortAddress(device), quint8(command));
            QVERIFY(m_port->write(requestTo(device, quint8(command))));
            const QByteArray answer = m_port->read(clean.size(), 2000);
            QCOMPARE(answer.size(), clean.size());
            QCOMPARE(answer == clean, !spoiled);
        }
        QVERIFY(m_line->faults().isEmpty());

        // A count of 0 lasts until removed. With no answer the request is not
        // run at all: the message written is counted once, as on the twin.
        fault = Fault();
        fault.pollingAddress = 1;
        const int id = m_line->addFault(fault);
        const QByteArray message = DataCodec::packAscii("CHANGED", 32);
        QVERIFY(m_port->write(requestTo(1, 17, message)));
        QVERIFY(m_line->waitForRequests(6, 5000));
        QCOMPARE(m_port->read(1, 100), QByteArray());
        QVERIFY(m_line->removeFault(id));
        QVERIFY(!m_line->removeFault(id));
        exchange(1, 17, message);
        exchange(1, 0);

        m_line->addFault(fault);
        m_line->clearFaults(2);
        QCOMPARE(m_line->faults().size(), 1);
        m_line->clearFaults(1);
        QVERIFY(m_line->faults().isEmpty());
    }

    void lineTiming()
    {
        // 1200 baud, 11 bits a character: the request's bytes, the turnaround
        // and the answer's bytes at the least; a loaded machine may be slower.
        m_line->setTiming(SimLine::Timing::Line);
        m_line->setTurnaroundMs(40);
        const QByteArray request = requestTo(0, 0);
        const QByteArray expected = twinAnswer(0, hx("80"), 0);
        const auto sent = Clock::now();
        QVERIFY(m_port->write(request));
        QCOMPARE(m_port->read(expected.size(), 10000), expected);
        const qint64 leastMs = qint64((request.size() + expected.size()) * SimLine::CharMs) + 40;
        QVERIFY2(msSince(sent) >= leastMs - 2, qPrintable(QStringLiteral("after %1 ms").arg(msSince(sent))));
    }

    void slaveClosedAndOpenedAgain()
    {
        // While nobody holds the slave the line waits without spinning, and it
        // serves the next master that opens it.
        m_port.reset();
        const std::clock_t before = std::clock();
        QTest::qWait(300);
        const qint64 cpuMs = qint64(std::clock() - before) * 1000 / CLOCKS_PER_SEC;
        QVERIFY2(cpuMs < 150, qPrintable(QStringLiteral("%1 ms of CPU in 300 ms").arg(cpuMs)));
        m_port = std::make_unique<Port>(m_path);
        exchange(0, 0);
    }

    void servesATty()
    {
        // The line stopped and started again on a tty given by path: here the
        // slave end of a pair of the test's own, written from its master end.
        int master = -1, slave = -1;
        char name[256] = {};
        QCOMPARE(::openpty(&master, &slave, name, nullptr, nullptr), 0);
        m_port = std::make_unique<Port>(master);
        m_line->stop();
        QString error;
        QVERIFY2(m_line->startTty(QString::fromLocal8Bit(name), &error), qPrintable(error));
        // A pty keeps the speed and the raw mode.
        termios tio{};
        QCOMPARE(::tcgetattr(slave, &tio), 0);
        QCOMPARE(int(::cfgetispeed(&tio)), int(B1200));
        QCOMPARE(int(tio.c_lflag & (ICANON | ECHO | ISIG)), 0);
        exchange(1, 0);

        // The other side goes away: the line keeps running and stops cleanly.
        m_port.reset();
        ::close(slave);
        QTest::qWait(50);
        QVERIFY(m_line->isRunning());
        m_line->stop();
        QVERIFY(!m_line->isRunning());
    }

    void symbolicLink()
    {
        // A stale link from an earlier run is replaced, and removed at stop; a
        // file that is not a link is left alone.
        QTemporaryDir dir;
        const QString link = dir.filePath("hart0");
        QVERIFY(QFile::link(dir.filePath("gone"), link));
        SimLine line;
        QString error;
        const QString path = line.startPty(link, &error);
        QVERIFY2(!path.isEmpty(), qPrintable(error));
        QCOMPARE(QFileInfo(link).symLinkTarget(), path);
        QCOMPARE(line.linkPath(), link);
        QVERIFY(Port(link).fd >= 0);
        line.stop();
        QVERIFY(!QFileInfo(link).isSymLink());

        QFile file(link);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("keep me");
        file.close();
        QVERIFY(line.startPty(link, &error).isEmpty());
        QVERIFY(error.contains(link));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("keep me"));
    }
};

QTEST_GUILESS_MAIN(TestSimLine)
#include "tst_simline.moc"
