#ifndef PERIODTHREAD33_H
#define PERIODTHREAD33_H

#include "periodthread.h"

#include <QMutex>

// PeriodThread for four chosen device variables: each cycle puts the four
// slot codes into the device's "slot_0_code" to "slot_3_code" and sends HART
// command 33 with them (a code of 250 is not used and stays out of the
// request). Timing, waking and stopping are those of PeriodThread; the maps
// go out by responsePeriodThrd33, never by responsePV.
//
// A good cycle gives "slot_N_value" and "slot_N_unit_code" for N from 0 to 3,
// "statusCode" and "statusText"; a failed one "slot_0_value" 0.0,
// "statusCode" and "errorText". Neither has "DateTime" or "output_current".
class PeriodThread33 : public PeriodThread
{
    Q_OBJECT

public:
    explicit PeriodThread33(QObject* parent = nullptr);
    ~PeriodThread33() override;

    void setDevice(Device* device, int periodMs, int slot0, int slot1, int slot2, int slot3);

signals:
    void responsePeriodThrd33(const QVariantMap& map);

protected:
    bool poll(Device* device) override;
    QVariantMap goodMap(Device* device) override;
    QVariantMap failureMap(Device* device) override;
    void deliver(const QVariantMap& map) override;

private:
    static constexpr int SlotCount = 4;

    QMutex m_slotsMutex;
    int m_slots[SlotCount] = {250, 250, 250, 250};
};

#endif // PERIODTHREAD33_H
