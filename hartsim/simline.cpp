#include "simline.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace hartsim {

namespace {

// How long the line waits before it looks again at a port that nobody holds
// (a pty slave with no master program on it) or that has failed.
constexpr int IdleRetryMs = 50;
// How long a tty that vanished is left alone before it is opened again.
constexpr int ReopenRetryMs = 500;
// The longest an answer waits for room in the output buffer.
constexpr int WriteTimeoutMs = 1000;

// In the order of Fault::Kind.
const char* const kindNames[] = {"no_answer", "bad_checksum",  "noise",     "split",         "delay",   "wrong_address",
                                 "burst",     "response_code", "preambles", "wrong_command", "truncate"};
static_assert(sizeof(kindNames) / sizeof(kindNames[0]) == Fault::KindCount, "a name for each kind of fault");

QString errnoText(const QString& what)
{
    return QStringLiteral("%1: %2").arg(what, QString::fromLocal8Bit(std::strerror(errno)));
}

void setNonBlocking(int fd)
{
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) | O_NONBLOCK);
    ::fcntl(fd, F_SETFD, ::fcntl(fd, F_GETFD) | FD_CLOEXEC);
}

// Opens a tty for the line: raw, 1200 baud, 8 data bits, odd parity, one stop
// bit, no flow control. Something that is not a tty is used as it is.
int openTtyFd(const QString& device, QString* error)
{
    const QByteArray path = QFile::encodeName(device);
    const int fd = ::open(path.constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        if (error)
            *error = errnoText(QStringLiteral("cannot open %1").arg(device));
        return -1;
    }
    if (::isatty(fd)) {
        termios tio{};
        if (::tcgetattr(fd, &tio) == 0) {
            ::cfmakeraw(&tio);
            ::cfsetispeed(&tio, B1200);
            ::cfsetospeed(&tio, B1200);
            tio.c_cflag &= ~(CSIZE | CSTOPB | CRTSCTS);
            tio.c_cflag |= CS8 | PARENB | PARODD | CLOCAL | CREAD;
            tio.c_iflag &= ~(IXON | IXOFF | IXANY);
            // With VMIN 1 a read with nothing to read gives EAGAIN, and 0
            // only at a hang-up.
            tio.c_cc[VMIN] = 1;
            tio.c_cc[VTIME] = 0;
            ::tcsetattr(fd, TCSANOW, &tio);
        }
    }
    return fd;
}

} // namespace

QString Fault::kindName(Kind kind)
{
    if (kind < 0 || kind >= KindCount)
        return QStringLiteral("?");
    return QString::fromLatin1(kindNames[kind]);
}

Fault::Kind Fault::kindFromName(const QString& name)
{
    for (int k = 0; k < KindCount; ++k) {
        if (name == QLatin1String(kindNames[k]))
            return Kind(k);
    }
    return KindCount;
}

SimLine::SimLine() : m_start(SteadyClock::now())
{}

SimLine::~SimLine()
{
    stop();
}

bool SimLine::addDevice(std::unique_ptr<SimDevice> device, QString* error)
{
    if (!device) {
        if (error)
            *error = QStringLiteral("no device");
        return false;
    }
    const int address = device->pollingAddress();
    if (address < 0 || address > 63) {
        if (error)
            *error = QStringLiteral("polling address %1 is outside 0..63").arg(address);
        return false;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& present : m_devices) {
        if (present->pollingAddress() == address) {
            if (error)
                *error = QStringLiteral("polling address %1 is already taken by a %2 device")
                             .arg(address)
                             .arg(present->model());
            return false;
        }
    }
    m_devices.push_back(std::move(device));
    return true;
}

QList<int> SimLine::pollingAddresses() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QList<int> addresses;
    for (const auto& device : m_devices)
        addresses << device->pollingAddress();
    std::sort(addresses.begin(), addresses.end());
    return addresses;
}

bool SimLine::withDevice(int pollingAddress, const std::function<void(SimDevice&)>& fn)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& device : m_devices) {
        if (device->pollingAddress() == pollingAddress) {
            fn(*device);
            return true;
        }
    }
    return false;
}

void SimLine::setTiming(Timing timing)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_timing = timing;
}

SimLine::Timing SimLine::timing() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_timing;
}

void SimLine::setTurnaroundMs(int ms)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_turnaroundMs = std::max(0, ms);
}

int SimLine::turnaroundMs() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_turnaroundMs;
}

void SimLine::setGapMs(int ms)
{
    m_gapMs = std::max(1, ms);
}

void SimLine::setLogger(std::function<void(LogLevel, const QString&)> logger)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_logger = std::move(logger);
}

QString SimLine::startPty(const QString& linkPath, QString* error)
{
    if (m_running) {
        if (error)
            *error = QStringLiteral("the line is already serving %1").arg(m_path);
        return QString();
    }
    int master = -1;
    int slave = -1;
    char name[256] = {};
    if (::openpty(&master, &slave, name, nullptr, nullptr) != 0) {
        if (error)
            *error = errnoText(QStringLiteral("cannot open a pseudo-terminal"));
        return QString();
    }
    termios tio{};
    for (const int fd : {master, slave}) {
        if (::tcgetattr(fd, &tio) == 0) {
            ::cfmakeraw(&tio);
            ::tcsetattr(fd, TCSANOW, &tio);
        }
    }
    // The slave is the master program's to open and close; the line keeps only
    // the master end, and copes with the time when nobody holds the slave.
    ::close(slave);
    setNonBlocking(master);
    const QString slavePath = QString::fromLocal8Bit(name);

    if (!linkPath.isEmpty()) {
        const QByteArray link = QFile::encodeName(linkPath);
        struct stat st
        {};
        if (::lstat(link.constData(), &st) == 0 && !S_ISLNK(st.st_mode)) {
            if (error)
                *error = QStringLiteral("%1 exists and is not a symbolic link: left as it is").arg(linkPath);
            ::close(master);
            return QString();
        }
        // Made beside and renamed over, so that an older link is replaced at once.
        const QByteArray temporary = link + ".new" + QByteArray::number(::getpid());
        ::unlink(temporary.constData());
        if (::symlink(name, temporary.constData()) != 0 || ::rename(temporary.constData(), link.constData()) != 0) {
            if (error)
                *error = errnoText(QStringLiteral("cannot make the link %1").arg(linkPath));
            ::unlink(temporary.constData());
            ::close(master);
            return QString();
        }
    }
    m_path = slavePath;
    m_linkPath = linkPath;
    m_isPty = true;
    if (!startThread(master, error)) {
        removeLink();
        return QString();
    }
    return slavePath;
}

bool SimLine::startTty(const QString& device, QString* error)
{
    if (m_running) {
        if (error)
            *error = QStringLiteral("the line is already serving %1").arg(m_path);
        return false;
    }
    const int fd = openTtyFd(device, error);
    if (fd < 0)
        return false;
    m_path = device;
    m_linkPath.clear();
    m_isPty = false;
    return startThread(fd, error);
}

bool SimLine::startThread(int fd, QString* error)
{
    if (::pipe2(m_wakePipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        if (error)
            *error = errnoText(QStringLiteral("cannot make a pipe"));
        ::close(fd);
        return false;
    }
    m_fd = fd;
    m_receiver.reset();
    m_stopping = false;
    m_running = true;
    m_thread = std::thread(&SimLine::run, this);
    return true;
}

void SimLine::stop()
{
    if (m_thread.joinable()) {
        m_stopping = true;
        wake();
        m_thread.join();
    }
    for (int& fd : m_wakePipe) {
        if (fd >= 0)
            ::close(fd);
        fd = -1;
    }
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
    removeLink();
    m_running = false;
}

void SimLine::removeLink()
{
    if (m_linkPath.isEmpty())
        return;
    // Only our own link: another line may have taken the name over since.
    const QByteArray link = QFile::encodeName(m_linkPath);
    char target[512] = {};
    const ssize_t size = ::readlink(link.constData(), target, sizeof(target) - 1);
    if (size > 0 && QString::fromLocal8Bit(target, int(size)) == m_path)
        ::unlink(link.constData());
    m_linkPath.clear();
}

int SimLine::addFault(const Fault& fault)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Fault added = fault;
    added.id = m_nextFaultId++;
    m_faults.append(added);
    return added.id;
}

bool SimLine::removeFault(int id)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (int i = 0; i < m_faults.size(); ++i) {
        if (m_faults.at(i).id == id) {
            m_faults.removeAt(i);
            return true;
        }
    }
    return false;
}

void SimLine::clearFaults(int pollingAddress)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (pollingAddress < 0) {
        m_faults.clear();
        return;
    }
    m_faults.removeIf([pollingAddress](const Fault& f) { return f.pollingAddress == pollingAddress; });
}

QList<Fault> SimLine::faults() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_faults;
}

QList<RequestRecord> SimLine::requests() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_log;
}

int SimLine::requestCount() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_served;
}

bool SimLine::waitForRequests(int count, int timeoutMs) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_logChanged.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                                 [this, count] { return m_served >= count; });
}

void SimLine::clearLog()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_log.clear();
    m_served = 0;
}

int SimLine::dropped(FrameReceiver::DropReason reason) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return reason >= 0 && reason < FrameReceiver::DropReasonCount ? m_dropped[reason] : 0;
}

int SimLine::droppedTotal() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    int total = 0;
    for (const int n : m_dropped)
        total += n;
    return total;
}

qint64 SimLine::noiseBytes() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_noiseBytes;
}

double SimLine::clock() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return clockLocked();
}

void SimLine::setClock(double seconds)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_clockFrozen)
        m_frozenAt = seconds;
    else
        m_clockOffset = seconds - std::chrono::duration<double>(SteadyClock::now() - m_start).count();
}

void SimLine::freezeClock(bool frozen)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (frozen == m_clockFrozen)
        return;
    if (frozen)
        m_frozenAt = clockLocked();
    else
        m_clockOffset = m_frozenAt - std::chrono::duration<double>(SteadyClock::now() - m_start).count();
    m_clockFrozen = frozen;
}

double SimLine::clockLocked() const
{
    if (m_clockFrozen)
        return m_frozenAt;
    return std::chrono::duration<double>(SteadyClock::now() - m_start).count() + m_clockOffset;
}

qint64 SimLine::msSinceStart() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(SteadyClock::now() - m_start).count();
}

void SimLine::wake()
{
    if (m_wakePipe[1] >= 0) {
        const char byte = 1;
        [[maybe_unused]] const ssize_t written = ::write(m_wakePipe[1], &byte, 1);
    }
}

bool SimLine::sleepUntil(SteadyClock::time_point when)
{
    while (!m_stopping) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(when - SteadyClock::now()).count();
        if (left <= 0)
            return true;
        pollfd wakeFd{m_wakePipe[0], POLLIN, 0};
        ::poll(&wakeFd, 1, int(std::min<qint64>(left, 1000)));
    }
    return false;
}

void SimLine::log(LogLevel level, const QString& text)
{
    std::function<void(LogLevel, const QString&)> logger;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        logger = m_logger;
    }
    if (logger)
        logger(level, QStringLiteral("%1 %2").arg(double(msSinceStart()) / 1000.0, 0, 'f', 3).arg(text));
}

void SimLine::logDrops(const QList<FrameReceiver::Drop>& drops)
{
    for (const FrameReceiver::Drop& drop : drops) {
        log(LogLevel::Traffic,
            QStringLiteral("RX %1 dropped: %2")
                .arg(SimFrame::hex(drop.bytes), QLatin1String(FrameReceiver::reasonName(drop.reason))));
    }
}

void SimLine::run()
{
    bool idle = false; // the port gives nothing but hang-ups or errors just now
    bool warned = false;
    char buffer[256];
    while (!m_stopping) {
        m_receiver.setGapMs(m_gapMs);

        if (m_fd < 0) {
            // A tty that vanished: look for it again now and then.
            QString error;
            m_fd = openTtyFd(m_path, &error);
            if (m_fd < 0) {
                sleepUntil(SteadyClock::now() + std::chrono::milliseconds(ReopenRetryMs));
                continue;
            }
            log(LogLevel::Warning, QStringLiteral("%1 is back").arg(m_path));
            warned = false;
        }

        int timeout = -1;
        if (idle)
            timeout = IdleRetryMs;
        else if (m_receiver.inFrame())
            timeout = int(std::max<qint64>(0, m_receiver.gapDeadlineMs() - msSinceStart() + 1));
        pollfd fds[2] = {{m_wakePipe[0], POLLIN, 0}, {idle ? -1 : m_fd, POLLIN, 0}};
        const int ready = ::poll(fds, 2, timeout);
        if (ready < 0) {
            if (errno != EINTR)
                sleepUntil(SteadyClock::now() + std::chrono::milliseconds(IdleRetryMs));
            continue;
        }
        if (fds[0].revents & POLLIN) {
            char drain[64];
            while (::read(m_wakePipe[0], drain, sizeof(drain)) > 0) {
            }
            continue;
        }
        if (idle) {
            idle = false; // the pause is over: look at the port again
            continue;
        }

        QByteArray received;
        QString failure;
        if (fds[1].revents & POLLIN) {
            const ssize_t n = ::read(m_fd, buffer, sizeof(buffer));
            if (n > 0)
                received = QByteArray(buffer, int(n));
            else if (n == 0)
                failure = QStringLiteral("hang-up");
            else if (errno != EAGAIN && errno != EINTR)
                failure = QString::fromLocal8Bit(std::strerror(errno));
        } else if (fds[1].revents & (POLLHUP | POLLERR | POLLNVAL)) {
            failure = QStringLiteral("hang-up or error");
        }
        const bool failed = !failure.isEmpty();

        if (failed) {
            // On a pty this is the time when no master program holds the slave:
            // reads give EIO until one opens it. A tty that fails is closed and
            // opened again.
            m_receiver.reset();
            if (!m_isPty) {
                if (!warned)
                    log(LogLevel::Warning, QStringLiteral("%1: %2; opening it again").arg(m_path, failure));
                warned = true;
                ::close(m_fd);
                m_fd = -1;
                continue;
            }
            idle = true;
            continue;
        }

        const QList<SimFrame> frames = m_receiver.feed(received, msSinceStart());
        const QList<FrameReceiver::Drop> drops = m_receiver.takeDrops();
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            for (int r = 0; r < FrameReceiver::DropReasonCount; ++r)
                m_dropped[r] = m_receiver.dropped(FrameReceiver::DropReason(r));
            m_noiseBytes = m_receiver.noiseBytes();
        }
        logDrops(drops);
        for (const SimFrame& frame : frames) {
            if (m_stopping)
                break;
            serve(frame);
        }
    }
}

bool SimLine::takeFault(Fault::Kind kind, int pollingAddress, quint8 command, Fault* fault)
{
    for (int i = 0; i < m_faults.size(); ++i) {
        Fault& f = m_faults[i];
        if (f.kind != kind || (f.pollingAddress >= 0 && f.pollingAddress != pollingAddress) ||
            (f.command >= 0 && f.command != command))
            continue;
        *fault = f;
        if (f.count > 0 && --f.count == 0)
            m_faults.removeAt(i);
        return true;
    }
    return false;
}

void SimLine::serve(const SimFrame& frame)
{
    RequestRecord record;
    record.ms = frame.firstByteMs();
    record.raw = frame.toBytes();
    record.address = frame.address();
    record.command = frame.command();
    record.data = frame.data();
    record.primaryMaster = frame.fromPrimaryMaster();
    log(LogLevel::Traffic, QStringLiteral("RX %1").arg(SimFrame::hex(record.raw)));

    Outgoing out;
    Timing timing;
    int turnaround;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        timing = m_timing;
        turnaround = m_turnaroundMs;
        record.clock = clockLocked();

        // The devices the request may be for, in the order they are asked.
        std::vector<SimDevice*> candidates;
        for (const auto& device : m_devices) {
            if (frame.isLong() ? device->isAddressedBy(frame.address(), frame.command())
                               : device->pollingAddress() == frame.pollingAddress())
                candidates.push_back(device.get());
        }
        std::stable_sort(candidates.begin(), candidates.end(), [](const SimDevice* a, const SimDevice* b) {
            return a->pollingAddress() < b->pollingAddress();
        });
        // Only the broadcast address passes a silent device over to the next.
        if (!frame.isBroadcast() && candidates.size() > 1)
            candidates.resize(1);

        for (SimDevice* device : candidates) {
            record.device = device->pollingAddress();
            record.model = device->model();
            if (answer(frame, *device, record, out))
                break;
            // A broadcast that a device lets pass is not that device's.
            if (frame.isBroadcast()) {
                record.device = -1;
                record.model.clear();
            }
        }
    }

    if (record.answered) {
        log(LogLevel::Traffic,
            QStringLiteral("TX %1 (device %2, %3%4)")
                .arg(SimFrame::hex(out.bytes))
                .arg(record.device)
                .arg(record.model)
                .arg(record.faults.isEmpty() ? QString() : QStringLiteral(", faults: ") + record.faults.join(", ")));
        if (timing == Timing::Fast)
            sendFast(out);
        else
            sendPaced(frame, out, turnaround);
    } else {
        log(LogLevel::Traffic,
            record.device < 0 ? QStringLiteral("no device on the line is addressed")
                              : QStringLiteral("device %1 does not answer%2")
                                    .arg(record.device)
                                    .arg(record.faults.isEmpty() ? QString() : QStringLiteral(" (fault no_answer)")));
    }

    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_log.size() >= MaxLogSize)
        m_log.removeFirst();
    m_log.append(record);
    ++m_served;
    m_logChanged.notify_all();
}

bool SimLine::answer(const SimFrame& frame, SimDevice& device, RequestRecord& record, Outgoing& out)
{
    const int pollingAddress = device.pollingAddress();
    const quint8 command = frame.command();
    Fault fault;
    if (takeFault(Fault::NoAnswer, pollingAddress, command, &fault)) {
        record.faults << Fault::kindName(Fault::NoAnswer);
        return false;
    }
    const Master master = frame.fromPrimaryMaster() ? Master::Primary : Master::Secondary;
    const Reply reply = device.handle(command, frame.data(), master, record.clock);
    if (reply.silent)
        return false;
    const quint8 status = device.deviceStatus(master);

    quint8 code = reply.code;
    QByteArray data = reply.data;
    quint8 answerCommand = command;
    QByteArray address = frame.address();
    bool burst = false;
    int preambles = device.responsePreambles();
    auto applies = [&](Fault::Kind kind) {
        if (!takeFault(kind, pollingAddress, command, &fault))
            return false;
        record.faults << Fault::kindName(kind);
        return true;
    };
    if (applies(Fault::ResponseCode)) {
        code = quint8(fault.code);
        if (!fault.keepData)
            data.clear();
    }
    if (applies(Fault::WrongCommand))
        answerCommand = quint8(command + 1);
    if (applies(Fault::WrongAddress))
        address[address.size() - 1] = char(address.back() ^ 0x01);
    if (applies(Fault::Burst))
        burst = true;
    if (applies(Fault::Preambles))
        preambles = fault.preambles;

    QByteArray bytes = SimFrame::buildResponse(preambles, address, answerCommand, code, status, data, burst);
    if (applies(Fault::BadChecksum))
        bytes[bytes.size() - 1] = char(bytes.back() ^ 0xFF);
    if (applies(Fault::Truncate))
        bytes.truncate(std::max(0, fault.length));
    if (applies(Fault::Noise))
        bytes.prepend(fault.noise);
    if (applies(Fault::Delay))
        out.delayMs = std::max(0, fault.delayMs);
    if (applies(Fault::Split)) {
        out.splitAt = std::max(0, fault.at);
        out.splitPauseMs = std::max(0, fault.pauseMs);
    }

    out.bytes = bytes;
    record.answered = true;
    record.responseCode = code;
    record.answer = bytes;
    return true;
}

void SimLine::sendFast(const Outgoing& out)
{
    if (out.delayMs > 0 && !sleepUntil(SteadyClock::now() + std::chrono::milliseconds(out.delayMs)))
        return;
    if (out.splitAt > 0 && out.splitAt < out.bytes.size()) {
        if (!writeAll(out.bytes.constData(), out.splitAt))
            return;
        if (!sleepUntil(SteadyClock::now() + std::chrono::milliseconds(out.splitPauseMs)))
            return;
        writeAll(out.bytes.constData() + out.splitAt, int(out.bytes.size()) - out.splitAt);
        return;
    }
    writeAll(out.bytes.constData(), int(out.bytes.size()));
}

void SimLine::sendPaced(const SimFrame& frame, const Outgoing& out, int turnaroundMs)
{
    // The answer begins when the request has gone over the wire (from its first
    // byte on) and the turnaround has passed; each byte then takes one
    // character time. Every byte has its own due time, so sleeps that run late
    // do not add up.
    using std::chrono::microseconds;
    const auto requestEnd = m_start + std::chrono::milliseconds(frame.firstByteMs()) +
                            microseconds(qint64(frame.toBytes().size() * CharMs * 1000.0));
    const auto begin = requestEnd + std::chrono::milliseconds(turnaroundMs + out.delayMs);
    for (int i = 0; i < out.bytes.size(); ++i) {
        auto due = begin + microseconds(qint64((i + 1) * CharMs * 1000.0));
        if (out.splitAt > 0 && i >= out.splitAt)
            due += std::chrono::milliseconds(out.splitPauseMs);
        if (!sleepUntil(due) || !writeAll(out.bytes.constData() + i, 1))
            return;
    }
}

bool SimLine::writeAll(const char* data, int size)
{
    const auto deadline = SteadyClock::now() + std::chrono::milliseconds(WriteTimeoutMs);
    while (size > 0 && m_fd >= 0) {
        const ssize_t n = ::write(m_fd, data, size_t(size));
        if (n > 0) {
            data += n;
            size -= int(n);
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN && SteadyClock::now() < deadline) {
            pollfd fd{m_fd, POLLOUT, 0};
            ::poll(&fd, 1, 50);
            continue;
        }
        log(LogLevel::Warning, n < 0 ? errnoText(QStringLiteral("answer lost on %1").arg(m_path))
                                     : QStringLiteral("answer lost on %1").arg(m_path));
        return false;
    }
    return size == 0;
}

} // namespace hartsim
