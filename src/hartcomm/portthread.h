#ifndef PORTTHREAD_H
#define PORTTHREAD_H

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QThread>
#include <QWaitCondition>

class QSerialPort;

// The thread that drives one serial line. It owns the QSerialPort and serves
// one transaction at a time: open the port (a name, no data), close it (no
// name), or send a request and collect the answer (a name and data). The
// caller hands a transaction over with transaction() and blocks in
// waitResponse() until the thread is done (at most 5 s), then reads the
// results. The bytes mean nothing here: the thread moves them, keeps time and
// reports errors.
class PortThread : public QThread
{
    Q_OBJECT

public:
    explicit PortThread(QObject* parent = nullptr);
    ~PortThread() override;

    // Starts a transaction and returns at once, keeping the caller's lock: a
    // second caller waits here until the first has left waitResponse().
    void transaction(const QString& portName, int requestTimeout, int responseTimeout, int byteTimeout,
                     const QByteArray& request);
    // Waits for the end of the transaction, at most 5000 ms, and releases the
    // caller's lock. Returns false when the limit ran out.
    bool waitResponse();

    QString buildLogString(const QString& direction, const QByteArray& data) const;
    // "hh:mm:ss.zzz TX (159 ms): ff ff ..." for a frame that took ms.
    static QString logLine(const QString& direction, int ms, const QByteArray& data);

    // What a transaction leaves for the caller. The response is the last
    // good one: it is not cleared when a transaction fails.
    struct Result
    {
        QByteArray response;
        QString txLog;
        QString rxLog;
        int txTime = 0;
        int rxTime = 0;
        int error = 0;
        QString errorText;
        bool isOpen = false;
    };
    // The results of the last finished transaction.
    Result result() const;
    bool isOpen() const { return result().isOpen; }

    // The error codes of the line, as the program has always numbered them
    // (the numbering of QSerialPort before Qt 6): 0 none, 1 device not found,
    // 2 permission, 3 open, 7 write, 8 read, 9 resource (the line is gone),
    // 10 unsupported operation, 11 unknown, 12 timeout, 13 not open.
    enum ErrorCode { TimeoutErrorCode = 12, WriteErrorCode = 7 };
    static int errorCode(int serialPortError);
    // The text of a failed open: for a device file the user may not read or
    // write, a hint to join the group that owns serial ports; otherwise the
    // port's own error text.
    static QString openErrorText(const QSerialPort& serial);

    // After sending, the modem still has each byte to put on the line (11
    // bits at 1200 baud, about 9.15 ms) and then turns the line round
    // (50 ms): the wait before the answer is looked for. Opening the port
    // wakes the modem with a break (50 ms) and lets it settle (70 ms). A line
    // that answers at once, such as a simulator without line timing, may set
    // all four to 0.
    static void setModemTiming(int characterUs, int turnaroundMs, int breakMs, int settleMs);
    static int transmitWaitMs(int bytes);
    static constexpr int ModemCharacterUs = 9153;
    static constexpr int ModemTurnaroundMs = 50;
    static constexpr int ModemBreakMs = 50;
    static constexpr int ModemSettleMs = 70;

    static constexpr int ResponseWaitLimitMs = 5000;
    static constexpr int QuitWaitLimitMs = 7000;

protected:
    void run() override;

private:
    // One transaction as the thread took it.
    struct Job
    {
        quint64 id = 0;
        QString portName;
        int requestTimeout = 0;
        int responseTimeout = 0;
        int byteTimeout = 0;
        QByteArray request;
    };
    // Closes the line and opens the one named (an empty name only closes).
    // False when it does not open: the thread then ends.
    bool changePort(QSerialPort& serial, const QString& name, Result& result);
    // Sends the request and collects the answer. Clears currentPort when the
    // line must be opened again before the next request.
    void exchange(QSerialPort& serial, const Job& job, QString& currentPort, Result& result);
    void closePort(QSerialPort& serial, Result& result);
    // After a failed wait: true when the line itself is gone (a modem
    // unplugged, a simulator ended). The port is then closed and the error
    // set, and the next transaction opens it again.
    bool lineLost(QSerialPort& serial, QString& currentPort, Result& result);
    Job takeJob();
    void publish(quint64 id, const Result& result);

    // Inputs, guarded by m_mutex.
    QString m_portName;
    QByteArray m_request;
    int m_responseTimeout = 0;
    int m_requestTimeout = 0;
    int m_byteTimeout = 0;
    bool m_pending = false; // handed over, not yet taken by the thread
    bool m_running = false; // the thread serves, or is about to
    bool m_quit = false;
    quint64 m_issued = 0;
    QMutex m_mutex;
    QWaitCondition m_cond;

    // Held by a caller from transaction() to the end of waitResponse().
    QMutex m_responseMutex;
    quint64 m_callerId = 0;

    // Results, guarded by m_resultMutex, which the thread holds only to
    // publish. Transactions are numbered: a late end of an earlier one never
    // answers a later one.
    mutable QMutex m_resultMutex;
    QWaitCondition m_responseCond;
    Result m_result;
    quint64 m_finished = 0;
};

#endif // PORTTHREAD_H
