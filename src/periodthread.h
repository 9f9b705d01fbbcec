#ifndef PERIODTHREAD_H
#define PERIODTHREAD_H

#include <QMutex>
#include <QStringList>
#include <QThread>
#include <QVariantMap>
#include <QWaitCondition>

class Device;
class QTimer;

// Polls one device with HART command 3 at a fixed period and hands each
// result to the main thread as one map by responsePV.
//
// The object and its timer live on the main thread; only run() is on the
// worker. The timer does nothing but wake the worker, which waits on a
// condition between cycles: a tick that comes while a cycle is still running
// wakes nobody and is lost, so the effective period is the greater of the set
// period and the length of one exchange, and ticks never queue up. The mutex
// guards the quit flag, the period and the device; it is never held during an
// exchange.
//
// A good cycle gives "PV", "PVUnitCodeText", "SV"/"TV"/"QV" with their unit
// texts (only those the device delivered, with a unit code other than 250),
// "output_current", "DateTime", "statusCode" and "statusText". A failed cycle
// gives "PV" 0.0, "output_current", "DateTime", "statusCode" and "errorText".
// The signals error and timeout are never emitted: failures travel in the map.
class PeriodThread : public QThread
{
    Q_OBJECT

public:
    explicit PeriodThread(QObject* parent = nullptr);
    ~PeriodThread() override;

    // Starts polling, or retargets a running thread; either way one cycle
    // runs at once (on a running thread: as soon as its present cycle is
    // over). Marks the device as polled. A null device or a period below
    // 1 ms is refused with a log line.
    void setDevice(Device* device, int periodMs);
    // Stops the timer, waits for an exchange under way (its result is
    // dropped) and clears the device's polled mark. Nothing happens on a
    // thread that is not running.
    void stopThread();

    // The parts of the maps shared with PeriodThread33.
    // The status bytes in upper-case hexadecimal, "0A 40".
    static QString statusCodeText(Device* device);
    // The device's status text and its status lines, one a line.
    static QString statusText(Device* device);
    // The device's error text, with a line break put in front of each "***".
    static QString errorTextOf(Device* device);

public slots:
    void timerPeriod();

signals:
    void responsePV(const QVariantMap& map);
    void error(const QString& text);
    void timeout(const QString& text);

protected:
    void run() override;
    // One cycle's exchange with the device, on the worker; true on success.
    virtual bool poll(Device* device);
    // The map of a good and of a failed cycle.
    virtual QVariantMap goodMap(Device* device);
    virtual QVariantMap failureMap(Device* device);
    // Hands a cycle's map to the listeners.
    virtual void deliver(const QVariantMap& map);

private:
    bool isQuitting();

    QMutex m_mutex;
    QWaitCondition m_condition;
    bool m_quit = false;
    bool m_cycleRequested = false; // by setDevice on a running thread
    Device* m_device = nullptr;
    QTimer* m_timer = nullptr;
    int m_period = 0;
};

#endif // PERIODTHREAD_H
