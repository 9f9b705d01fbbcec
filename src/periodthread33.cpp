#include "periodthread33.h"

#include "debugqt.h"
#include "device.h"

#include <QMutexLocker>

#include <algorithm>

PeriodThread33::PeriodThread33(QObject* parent) : PeriodThread(parent)
{}

PeriodThread33::~PeriodThread33()
{
    // The worker calls this class's overrides: it must be gone before this
    // part of the object is.
    stopThread();
}

void PeriodThread33::setDevice(Device* device, int periodMs, int slot0, int slot1, int slot2, int slot3)
{
    {
        QMutexLocker lock(&m_slotsMutex);
        m_slots[0] = slot0;
        m_slots[1] = slot1;
        m_slots[2] = slot2;
        m_slots[3] = slot3;
    }
    PeriodThread::setDevice(device, periodMs);
}

bool PeriodThread33::poll(Device* device)
{
    int codes[SlotCount];
    {
        QMutexLocker lock(&m_slotsMutex);
        std::copy(m_slots, m_slots + SlotCount, codes);
    }
    DBG(LevelInfo) << " ### read device variables F33 ###";
    for (int slot = 0; slot < SlotCount; ++slot)
        device->setDeviceInfo(QStringLiteral("slot_%1_code").arg(slot), codes[slot]);
    return device->writeDevice(33);
}

void PeriodThread33::deliver(const QVariantMap& map)
{
    emit responsePeriodThrd33(map);
}

QVariantMap PeriodThread33::goodMap(Device* device)
{
    QVariantMap map;
    for (int slot = 0; slot < SlotCount; ++slot) {
        const QString value = QStringLiteral("slot_%1_value").arg(slot);
        const QString unit = QStringLiteral("slot_%1_unit_code").arg(slot);
        map.insert(value, device->getDeviceInfo(value));
        map.insert(unit, device->getDeviceInfo(unit));
    }
    map.insert(QStringLiteral("statusCode"), statusCodeText(device));
    map.insert(QStringLiteral("statusText"), statusText(device));
    return map;
}

QVariantMap PeriodThread33::failureMap(Device* device)
{
    QVariantMap map;
    map.insert(QStringLiteral("slot_0_value"), 0.0);
    map.insert(QStringLiteral("statusCode"), statusCodeText(device));
    map.insert(QStringLiteral("errorText"), errorTextOf(device));
    return map;
}
