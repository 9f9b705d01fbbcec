#ifndef PERIODTHREAD33_H
#define PERIODTHREAD33_H

#include <QMutex>
#include <QThread>
#include <QVariantMap>
#include <QWaitCondition>

class Device;
class QTimer;

// The twin of PeriodThread for four chosen device variables: each cycle puts
// the four slot codes into the device's "slot_0_code" to "slot_3_code" and
// sends HART command 33 with them (a code of 250 is not used and stays out
// of the request). Timing, waking and stopping are those of PeriodThread.
//
// A good cycle gives "slot_N_value" and "slot_N_unit_code" for N from 0 to 3,
// "statusCode" and "statusText"; a failed one "slot_0_value" 0.0,
// "statusCode" and "errorText". Neither has "DateTime" or "output_current".
class PeriodThread33 : public QThread
{
    Q_OBJECT

public:
    explicit PeriodThread33(QObject* parent = nullptr);
    ~PeriodThread33() override;

    void setDevice(Device* device, int periodMs, int slot0, int slot1, int slot2, int slot3);
    void stopThread();

public slots:
    void timerPeriod();

signals:
    void responsePeriodThrd33(const QVariantMap& map);
    void error(const QString& text);
    void timeout(const QString& text);

protected:
    void run() override;

private:
    static constexpr int SlotCount = 4;

    bool isQuitting();
    QVariantMap goodMap(Device* device);
    QVariantMap failureMap(Device* device);

    QMutex m_mutex;
    QWaitCondition m_condition;
    bool m_quit = false;
    bool m_cycleRequested = false; // by setDevice on a running thread
    Device* m_device = nullptr;
    int m_slots[SlotCount] = {250, 250, 250, 250};
    QTimer* m_timer = nullptr;
    int m_period = 0;
};

#endif // PERIODTHREAD33_H
