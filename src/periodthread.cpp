#include "periodthread.h"

#include "debugqt.h"
#include "device.h"
#include "utils.h"

#include <QDateTime>
#include <QMutexLocker>
#include <QTimer>

namespace {

const int UnitNotUsed = 250;

} // namespace

PeriodThread::PeriodThread(QObject* parent) : QThread(parent), m_timer(new QTimer(this))
{
    connect(m_timer, &QTimer::timeout, this, &PeriodThread::timerPeriod);
}

PeriodThread::~PeriodThread()
{
    DBG(LevelInfo) << "quit thread...";
    stopThread();
    DBG(LevelInfo) << "OK";
}

void PeriodThread::setDevice(Device* device, int periodMs)
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
    // A device left for another one is no longer polled.
    if (m_device && m_device != device)
        m_device->setDeviceTagState(m_device->deviceTagState() & ~Device::TagStatePolled);
    m_device = device;
    // The worker of a running thread may be marking the device's read at
    // this moment: the mark is written only when it is missing.
    if (!(m_device->deviceTagState() & Device::TagStatePolled))
        m_device->setDeviceTagState(m_device->deviceTagState() | Device::TagStatePolled);
    m_quit = false;
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

void PeriodThread::stopThread()
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

void PeriodThread::timerPeriod()
{
    DBG(LevelInfo) << "timerPeriod";
    QMutexLocker lock(&m_mutex);
    if (m_quit)
        return;
    m_condition.wakeOne();
}

bool PeriodThread::isQuitting()
{
    QMutexLocker lock(&m_mutex);
    return m_quit;
}

void PeriodThread::run()
{
    DBG(LevelInfo) << "run"
                   << "start";
    forever
    {
        Device* device = nullptr;
        {
            QMutexLocker lock(&m_mutex);
            if (m_quit)
                break;
            device = m_device;
        }
        QVariantMap map;
        if (!poll(device)) {
            // An empty error text is a silent failure; a result that comes
            // after stopThread is dropped.
            if (!device->errorText().isEmpty() && !isQuitting())
                map = failureMap(device);
        } else if (!isQuitting()) {
            map = goodMap(device);
        }
        if (!map.isEmpty())
            deliver(map);

        QMutexLocker lock(&m_mutex);
        if (!m_quit && !m_cycleRequested)
            m_condition.wait(&m_mutex);
        m_cycleRequested = false;
    }
    DBG(LevelInfo) << ">>>>>>>>> run OK";
}

bool PeriodThread::poll(Device* device)
{
    DBG(LevelInfo) << " ### read device ###";
    // A variable the device no longer delivers must not pass for fresh.
    for (const char* key : {"PV", "SV", "TV", "QV"})
        device->removeDeviceInfo(QLatin1String(key));
    return device->readDevice(3);
}

void PeriodThread::deliver(const QVariantMap& map)
{
    emit responsePV(map);
}

QVariantMap PeriodThread::goodMap(Device* device)
{
    QVariantMap map;
    map.insert(QStringLiteral("PV"), device->getDeviceInfo(QStringLiteral("PV")));
    map.insert(QStringLiteral("PVUnitCodeText"), device->getPVUnitCodeText());
    struct Variable
    {
        const char* key;
        const char* unitKey;
        const char* unitTextKey;
        QString (Device::*unitText)();
    };
    const Variable variables[] = {{"SV", "SV_unit_code", "SVUnitCodeText", &Device::getSVUnitCodeText},
                                  {"TV", "TV_unit_code", "TVUnitCodeText", &Device::getTVUnitCodeText},
                                  {"QV", "QV_unit_code", "QVUnitCodeText", &Device::getQVUnitCodeText}};
    for (const Variable& v : variables) {
        const QString key = QLatin1String(v.key);
        if (!device->hasDeviceInfoParam(key) || device->getDeviceInfoByte(QLatin1String(v.unitKey)) == UnitNotUsed)
            continue;
        map.insert(key, device->getDeviceInfo(key));
        map.insert(QLatin1String(v.unitTextKey), (device->*v.unitText)());
    }
    map.insert(QStringLiteral("output_current"), device->getDeviceInfo(QStringLiteral("output_current")));
    map.insert(QStringLiteral("DateTime"), QDateTime::currentDateTime());
    map.insert(QStringLiteral("statusCode"), statusCodeText(device));
    map.insert(QStringLiteral("statusText"), statusText(device));
    return map;
}

QVariantMap PeriodThread::failureMap(Device* device)
{
    QVariantMap map;
    map.insert(QStringLiteral("PV"), 0.0);
    map.insert(QStringLiteral("output_current"), device->getDeviceInfo(QStringLiteral("output_current")));
    map.insert(QStringLiteral("DateTime"), QDateTime::currentDateTime());
    map.insert(QStringLiteral("statusCode"), statusCodeText(device));
    map.insert(QStringLiteral("errorText"), errorTextOf(device));
    return map;
}

QString PeriodThread::statusCodeText(Device* device)
{
    const QByteArray bytes = device->statusBytes();
    return byteBufferToString(bytes.constData(), int(bytes.size())).toUpper();
}

QString PeriodThread::statusText(Device* device)
{
    // The device's own status text is the one of its additional status,
    // which the device keeps with a line break in front of each item.
    QString text = device->additionalStatusText();
    while (text.startsWith(QLatin1Char('\n')))
        text.remove(0, 1);
    const QStringList lines = device->statusTexts();
    if (lines.isEmpty())
        return text;
    return text.isEmpty() ? lines.join(QLatin1Char('\n')) : text + QLatin1Char('\n') + lines.join(QLatin1Char('\n'));
}

QString PeriodThread::errorTextOf(Device* device)
{
    return device->errorText().replace(QLatin1String("***"), QLatin1String("\n***"));
}
