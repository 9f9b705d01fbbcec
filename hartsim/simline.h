#ifndef HARTSIM_SIMLINE_H
#define HARTSIM_SIMLINE_H

#include "framereceiver.h"
#include "simdevice.h"
#include "simframe.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace hartsim {

// A fault injected into the answers of the line. It matches a request by the
// polling address of the device that would answer it and by the command; it
// changes what the device answered, or when.
struct Fault
{
    enum Kind {
        NoAnswer,     // the request is not handled at all and nothing is sent
        BadChecksum,  // the checksum byte of the answer is inverted
        Noise,        // the bytes in noise go out before the preambles
        Split,        // the answer goes out in two, the second part from byte at on, pauseMs later
        Delay,        // the answer goes out delayMs later than it would
        WrongAddress, // the lowest bit of the last address byte is flipped
        Burst,        // bit 6 of the first address byte is set
        ResponseCode, // the response code becomes code; the data stays only when keepData
        Preambles,    // the answer has this many preambles instead of the device's
        WrongCommand, // the answer carries command + 1
        Truncate,     // the answer is cut to its first length bytes, preambles included
        KindCount
    };

    Kind kind = NoAnswer;
    int pollingAddress = -1; // the device's polling address; -1 any device
    int command = -1;        // -1 any command
    int count = 0;           // answers still to spoil; 0 until cleared
    QByteArray noise;        // Noise
    int at = 0;              // Split: index of the first byte of the second part
    int pauseMs = 0;         // Split
    int delayMs = 0;         // Delay
    int code = 0;            // ResponseCode
    bool keepData = false;   // ResponseCode
    int preambles = 0;       // Preambles
    int length = 0;          // Truncate

    int id = 0; // given by SimLine::addFault

    // The names used in scenario files and logs: "no_answer", "bad_checksum"...
    static QString kindName(Kind kind);
    // KindCount for an unknown name.
    static Kind kindFromName(const QString& name);
};

// What the line did with one valid request.
struct RequestRecord
{
    qint64 ms = 0;      // arrival of the first preamble, milliseconds since the line started
    double clock = 0.0; // the devices' clock (seconds) when the request was handled
    QByteArray raw;     // the request as received, preambles included
    QByteArray address; // as received, flag bits included
    quint8 command = 0;
    QByteArray data;
    bool primaryMaster = false;
    int device = -1;       // polling address of the device that answered, or that a
                           // request to its own address reached; -1 none
    QString model;         // its model
    bool answered = false; // an answer was sent
    quint8 responseCode = 0;
    QByteArray answer;  // the bytes sent, after faults; empty when none
    QStringList faults; // the kinds of the faults applied
};

// A HART line with simulated slaves on a pseudo-terminal or a tty.
//
// The line owns the devices, reads the masters' requests from the master end of
// a pty pair (or from a tty), routes each valid request to the device it is for,
// and writes the answer back, with the faults and the timing it is set to. Its
// I/O runs in a thread of its own with poll(), so a test can drive a serial port
// on the slave end in its own thread, and reach the devices and the request log
// at any time through the thread-safe calls below.
//
// Routing: a short frame goes to the device whose polling address is the low
// six bits of the address byte; a long frame to the device whose long address it
// is (SimDevice::isAddressedBy). The all-zero long address of commands 11, 21
// and 73 goes to every device in the order of their polling addresses until one
// answers. A request for no device, or a device that stays silent, gets no
// answer.
class SimLine
{
public:
    enum class Timing {
        Fast, // the answer goes out at once, in one write
        Line  // 1200 baud, 11 bits a character: the request's time on the wire,
              // the turnaround, then the answer byte by byte
    };

    // One character at 1200 baud with 11 bits (start, 8 data, parity, stop).
    static constexpr double CharMs = 1000.0 * 11.0 / 1200.0;

    SimLine();
    ~SimLine();
    SimLine(const SimLine&) = delete;
    SimLine& operator=(const SimLine&) = delete;

    // Devices. Refused with an error text when the polling address is outside
    // 0..63 or already taken on the line. Allowed while the line runs.
    bool addDevice(std::unique_ptr<SimDevice> device, QString* error = nullptr);
    // The polling addresses of the devices, in ascending order.
    QList<int> pollingAddresses() const;
    // Runs fn on the device at this polling address under the line's lock;
    // false when there is none. fn must not call the line again.
    bool withDevice(int pollingAddress, const std::function<void(SimDevice&)>& fn);

    // Settings; all may change while the line runs.
    void setTiming(Timing timing);
    Timing timing() const;
    void setTurnaroundMs(int ms);
    int turnaroundMs() const;
    // The pause that drops a partial request (default 100 ms).
    void setGapMs(int ms);
    // Called from the line's thread with one line of text: Traffic for each
    // request, answer and dropped frame (bytes in hexadecimal), Warning when the
    // line itself fails (a tty that vanished, an answer that could not be sent).
    enum class LogLevel { Traffic, Warning };
    void setLogger(std::function<void(LogLevel, const QString&)> logger);

    // Opens a pseudo-terminal pair and serves it. The slave end is for the
    // master; its path is returned (empty on failure, with an error text). With
    // a link path, a symbolic link to the slave is made there, replacing an
    // older link (a file that is not a link is never replaced), and removed at
    // stop.
    QString startPty(const QString& linkPath = QString(), QString* error = nullptr);
    // Serves a tty device (raw, 1200 baud, 8 data bits, odd parity, 1 stop bit).
    bool startTty(const QString& device, QString* error = nullptr);
    // Ends the thread, closes the line and removes the link. Idempotent.
    void stop();
    bool isRunning() const { return m_running; }
    // The slave path of the pty, or the tty served.
    QString path() const { return m_path; }
    QString linkPath() const { return m_linkPath; }

    // Faults. addFault returns the fault's id.
    int addFault(const Fault& fault);
    bool removeFault(int id);
    // -1: all faults of the line.
    void clearFaults(int pollingAddress = -1);
    // The faults still in force, with their remaining counts.
    QList<Fault> faults() const;

    // The log of valid requests, oldest first: the newest MaxLogSize of them.
    static constexpr int MaxLogSize = 10000;
    QList<RequestRecord> requests() const;
    // Requests served since the start or clearLog(), those gone from the log too.
    int requestCount() const;
    // Waits until at least count requests have been served since the start or
    // clearLog(), their answers (if any) written; false on timeout.
    bool waitForRequests(int count, int timeoutMs) const;
    void clearLog();
    // Frames dropped by the receiver, by reason, and noise bytes skipped.
    int dropped(FrameReceiver::DropReason reason) const;
    int droppedTotal() const;
    qint64 noiseBytes() const;

    // The devices' clock in seconds since the line was made. Tests can freeze
    // it and set it.
    double clock() const;
    void setClock(double seconds);
    void freezeClock(bool frozen);

private:
    using SteadyClock = std::chrono::steady_clock;

    struct Outgoing
    {
        QByteArray bytes;
        int splitAt = 0; // 0: no split
        int splitPauseMs = 0;
        int delayMs = 0;
    };

    bool startThread(int fd, QString* error);
    void run();
    void serve(const SimFrame& frame);
    bool answer(const SimFrame& frame, SimDevice& device, RequestRecord& record, Outgoing& out);
    bool takeFault(Fault::Kind kind, int pollingAddress, quint8 command, Fault* fault);
    // Writes an answer at once (Fast timing), or byte by byte as the wire
    // would carry it after the request (Line timing).
    void sendFast(const Outgoing& out);
    void sendPaced(const SimFrame& frame, const Outgoing& out, int turnaroundMs);
    bool writeAll(const char* data, int size);
    // Sleeps until the given time; false when the line is stopping.
    bool sleepUntil(SteadyClock::time_point when);
    void wake();
    void log(LogLevel level, const QString& text);
    void logDrops(const QList<FrameReceiver::Drop>& drops);
    qint64 msSinceStart() const;
    double clockLocked() const;
    void removeLink();

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_logChanged;
    std::vector<std::unique_ptr<SimDevice>> m_devices;
    QList<Fault> m_faults;
    int m_nextFaultId = 1;
    QList<RequestRecord> m_log;
    int m_served = 0;
    Timing m_timing = Timing::Fast;
    int m_turnaroundMs = 20;
    std::function<void(LogLevel, const QString&)> m_logger;
    std::atomic<int> m_gapMs{100};
    FrameReceiver m_receiver; // the line's thread only
    int m_dropped[FrameReceiver::DropReasonCount] = {};
    qint64 m_noiseBytes = 0;

    const SteadyClock::time_point m_start;
    double m_clockOffset = 0.0;
    bool m_clockFrozen = false;
    double m_frozenAt = 0.0;

    std::thread m_thread;
    std::atomic<bool> m_stopping{false};
    std::atomic<bool> m_running{false};
    int m_fd = -1;
    bool m_isPty = false;
    int m_wakePipe[2] = {-1, -1};
    QString m_path;
    QString m_linkPath;
};

} // namespace hartsim

#endif // HARTSIM_SIMLINE_H
