#include "periodthread33.h"

#include "debugqt.h"
#include "device.h"
#include "periodthread.h"

#include <QMutexLocker>
#include <QTimer>

#include <algorithm>

PeriodThread33::PeriodThread33(QObject* parent) : QThread(parent), m_timer(new QTimer(this))
{
    connect(m_timer, &QTimer::timeout, this, &PeriodThread33::timerPeriod);
}

PeriodThread33::~PeriodThread33()
{
    DBG(LevelInfo) << "quit thread...";
    stopThread();
    DBG(LevelInfo) << "OK";
}

void PeriodThread33::setDevice(Device* device, int periodMs, int slot0, int slot1, int slot2, int slot3)
{
    if (!device || periodMs < 1) {
        DBG(LevelErr) << "polling refused: device" << (device ? device->name() : QStringLiteral("none")) << "period"
                      << periodMs << "ms";
        return;
    }
    QMutexLocker lock(&m_mutex);
    m_period = periodMs;
    if (m_timer->isActive())
        m_timer->stop();
    if (m_device && m_device != device)
        m_device->setDeviceTagState(m_device->deviceTagState() & ~Device::TagStatePolled);
    m_device = device;
    // The worker of a running thread may be marking the device's read at
    // this moment: the mark is written only when it is missing.
    if (!(m_device->deviceTagState() & Device::TagStatePolled))
        m_device->setDeviceTagState(m_device->deviceTagState() | Device::TagStatePolled);
    m_quit = false;
    m_slots[0] = slot0;
    m_slots[1] = slot1;
    m_slots[2] = slot2;
    m_slots[3] = slot3;
    m_timer->start(m_period);
    if (!isRunning()) {
        start();
    } else {
        // Not lost like a tick: a worker still in a cycle runs the next one
        // right after it.
        m_cycleRequested = true;
        m_condition.wakeOne();
    }
}

void PeriodThread33::stopThread()
{
    if (!isRunning())
        return;
    DBG(LevelInfo) << "stopThread"
                   << " ...";
    m_timer->stop();
    {
        QMutexLocker lock(&m_mutex);
        m_quit = true;
        m_condition.wakeOne();
    }
    wait();
    if (m_device)
        m_device->setDeviceTagState(m_device->deviceTagState() & ~Device::TagStatePolled);
    DBG(LevelInfo) << "OK";
}

void PeriodThread33::timerPeriod()
{
    DBG(LevelInfo) << "timerPeriod";
    QMutexLocker lock(&m_mutex);
    if (m_quit)
        return;
    m_condition.wakeOne();
}

bool PeriodThread33::isQuitting()
{
    QMutexLocker lock(&m_mutex);
    return m_quit;
}

void PeriodThread33::run()
{
    DBG(LevelInfo) << "run"
                   << "start";
    forever
    {
        Device* device = nullptr;
        int codes[SlotCount];
        {
            QMutexLocker lock(&m_mutex);
            if (m_quit)
                break;
            device = m_device;
            std::copy(m_slots, m_slots + SlotCount, codes);
        }
        DBG(LevelInfo) << " ### read device variables F33 ###";
        for (int slot = 0; slot < SlotCount; ++slot)
            device->setDeviceInfo(QStringLiteral("slot_%1_code").arg(slot), codes[slot]);
        QVariantMap map;
        if (!device->writeDevice(33)) {
            if (!device->errorText().isEmpty() && !isQuitting())
                map = failureMap(device);
        } else if (!isQuitting()) {
            map = goodMap(device);
        }
        if (!map.isEmpty())
            emit responsePeriodThrd33(map);

        QMutexLocker lock(&m_mutex);
        if (!m_quit && !m_cycleRequested)
            m_condition.wait(&m_mutex);
        m_cycleRequested = false;
    }
    DBG(LevelInfo) << ">>>>>>>>> run F33 OK";
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
    map.insert(QStringLiteral("statusCode"), PeriodThread::statusCodeText(device));
    map.insert(QStringLiteral("statusText"), PeriodThread::statusText(device));
    return map;
}

QVariantMap PeriodThread33::failureMap(Device* device)
{
    QVariantMap map;
    map.insert(QStringLiteral("slot_0_value"), 0.0);
    map.insert(QStringLiteral("statusCode"), PeriodThread::statusCodeText(device));
    map.insert(QStringLiteral("errorText"), PeriodThread::errorTextOf(device));
    return map;
}
