#include "portthread.h"

#include "debugqt.h"
#include "hartcommand.h"
#include "utils.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QSerialPort>
#include <QTime>

#include <atomic>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {
std::atomic<int> characterUs{PortThread::ModemCharacterUs};
std::atomic<int> turnaroundMs{PortThread::ModemTurnaroundMs};
std::atomic<int> breakMs{PortThread::ModemBreakMs};
std::atomic<int> settleMs{PortThread::ModemSettleMs};
} // namespace

QString PortThread::openErrorText(const QSerialPort& serial)
{
    if (serial.error() == QSerialPort::PermissionError) {
        // A port held by another program fails with the same error; only a
        // device file closed to this user needs the group.
        QString path = serial.portName();
        if (!path.startsWith(QLatin1Char('/')))
            path.prepend(QLatin1String("/dev/"));
        if (faccessat(AT_FDCWD, QFile::encodeName(path).constData(), R_OK | W_OK, AT_EACCESS) != 0 && errno == EACCES)
            return tr("No permission to open %1. Serial ports are open to the members of the group \"dialout\": "
                      "add your user to it (sudo adduser $USER dialout), then log out and in again.")
                .arg(path);
    }
    return serial.errorString();
}

void PortThread::setModemTiming(int characterTimeUs, int turnaroundTimeMs, int breakTimeMs, int settleTimeMs)
{
    characterUs = characterTimeUs;
    turnaroundMs = turnaroundTimeMs;
    breakMs = breakTimeMs;
    settleMs = settleTimeMs;
}

int PortThread::transmitWaitMs(int bytes)
{
    return int((qint64(bytes) * characterUs + 500) / 1000) + turnaroundMs;
}

PortThread::PortThread(QObject* parent) : QThread(parent)
{}

PortThread::~PortThread()
{
    DBG(LevelInfo) << "quit port thread...";
    {
        QMutexLocker locker(&m_mutex);
        m_quit = true;
        m_cond.wakeOne();
    }
    if (!wait(QuitWaitLimitMs)) {
        // An exchange with long timeouts is still under way: the thread owns
        // the port and must end before the object goes.
        DBG(LevelWarn) << "port thread still busy after" << QuitWaitLimitMs << "ms, waiting for it";
        wait();
    }
    DBG(LevelInfo) << "OK";
}

void PortThread::transaction(const QString& portName, int requestTimeout, int responseTimeout, int byteTimeout,
                             const QByteArray& request)
{
    if (portName.isEmpty())
        DBG(LevelInfo) << "close port";
    else if (request.isEmpty())
        DBG(LevelInfo) << "open port";
    else
        DBG(LevelInfo) << "request data";

    m_responseMutex.lock();
    QMutexLocker locker(&m_mutex);
    m_portName = portName;
    m_requestTimeout = requestTimeout;
    m_responseTimeout = responseTimeout;
    m_byteTimeout = byteTimeout;
    m_request = request;
    m_pending = true;
    m_callerId = ++m_issued;
    if (!m_running) {
        // A thread that ended after a failed open may still be on its way out.
        wait();
        m_running = true;
        start(QThread::InheritPriority);
    } else {
        m_cond.wakeOne();
    }
}

bool PortThread::waitResponse()
{
    bool done;
    {
        QMutexLocker locker(&m_resultMutex);
        QDeadlineTimer deadline(ResponseWaitLimitMs);
        while (m_finished < m_callerId && m_responseCond.wait(&m_resultMutex, deadline)) {
        }
        done = m_finished >= m_callerId;
    }
    m_responseMutex.unlock();
    DBG(LevelInfo) << "response unlock (rv: " << done << ")";
    return done;
}

PortThread::Result PortThread::result() const
{
    QMutexLocker locker(&m_resultMutex);
    return m_result;
}

int PortThread::errorCode(int serialPortError)
{
    switch (serialPortError) {
    case QSerialPort::NoError:
        return 0;
    case QSerialPort::DeviceNotFoundError:
        return 1;
    case QSerialPort::PermissionError:
        return 2;
    case QSerialPort::OpenError:
        return 3;
    case QSerialPort::WriteError:
        return WriteErrorCode;
    case QSerialPort::ReadError:
        return 8;
    case QSerialPort::ResourceError:
        return 9;
    case QSerialPort::UnsupportedOperationError:
        return 10;
    case QSerialPort::TimeoutError:
        return TimeoutErrorCode;
    case QSerialPort::NotOpenError:
        return 13;
    default:
        return 11;
    }
}

QString PortThread::buildLogString(const QString& direction, const QByteArray& data) const
{
    const Result last = result();
    return logLine(direction, direction == QLatin1String("TX") ? last.txTime : last.rxTime, data);
}

QString PortThread::logLine(const QString& direction, int ms, const QByteArray& data)
{
    return QStringLiteral("%1 %2 (%3 ms): ")
               .arg(QTime::currentTime().toString(QStringLiteral("hh:mm:ss.zzz")), direction)
               .arg(ms) +
           HartCommand::frameText(data);
}

PortThread::Job PortThread::takeJob()
{
    Job job;
    job.id = m_issued;
    job.portName = m_portName;
    job.requestTimeout = m_requestTimeout;
    job.responseTimeout = m_responseTimeout;
    job.byteTimeout = m_byteTimeout;
    job.request = m_request;
    m_pending = false;
    return job;
}

void PortThread::publish(quint64 id, const Result& result)
{
    QMutexLocker locker(&m_resultMutex);
    m_result = result;
    m_finished = id;
    m_responseCond.wakeAll();
}

void PortThread::run()
{
    Job job;
    {
        QMutexLocker locker(&m_mutex);
        job = takeJob();
    }
    QString currentPort;
    bool changed = false;
    if (!job.portName.isEmpty()) {
        currentPort = job.portName;
        changed = true;
    }

    QSerialPort serial;
    Result result;
    {
        QMutexLocker locker(&m_resultMutex);
        result.response = m_result.response;
    }

    forever
    {
        result.error = 0;
        result.errorText.clear();
        bool opened = true;
        if (changed) {
            opened = changePort(serial, currentPort, result);
            // A request that comes with a change of port is not sent.
            job.request.clear();
        }
        if (opened && !job.request.isEmpty())
            exchange(serial, job, currentPort, result);
        if (!opened)
            break;
        publish(job.id, result);

        QMutexLocker locker(&m_mutex);
        while (!m_pending && !m_quit)
            m_cond.wait(&m_mutex);
        if (m_quit) {
            job.id = m_issued;
            break;
        }
        job = takeJob();
        // An empty name always counts as a change: it closes the line.
        changed = job.portName != currentPort || job.portName.isEmpty();
        if (changed)
            currentPort = job.portName;
    }

    closePort(serial, result);
    {
        QMutexLocker locker(&m_mutex);
        m_running = false;
    }
    publish(job.id, result);
    DBG(LevelInfo) << ">>> run completed.";
}

void PortThread::closePort(QSerialPort& serial, Result& result)
{
    if (serial.isOpen()) {
        serial.clear(QSerialPort::AllDirections);
        serial.close();
    }
    result.isOpen = false;
}

bool PortThread::changePort(QSerialPort& serial, const QString& name, Result& result)
{
    closePort(serial, result);
    if (name.isEmpty()) {
        DBG(LevelInfo) << "*** Serial port close:" << serial.isOpen();
        return true;
    }

    serial.setPortName(name);
    if (!serial.open(QIODevice::ReadWrite)) {
        DBG(LevelErr) << "*** Serial port" << name << "open error - " << serial.errorString();
        result.error = errorCode(serial.error());
        result.errorText = openErrorText(serial);
        return false;
    }
    serial.setBaudRate(QSerialPort::Baud1200, QSerialPort::AllDirections);
    serial.setParity(QSerialPort::OddParity);
    serial.setDataBits(QSerialPort::Data8);
    serial.setStopBits(QSerialPort::OneStop);
    serial.setFlowControl(QSerialPort::NoFlowControl);
    serial.setReadBufferSize(256);
    result.isOpen = true;
    DBG(LevelInfo) << "*** Serial port open:" << serial.isOpen();

    // A break wakes the modem; a pseudo-terminal refuses it, which does not
    // matter.
    if (!serial.setBreakEnabled(true))
        DBG(LevelInfo) << "break not available on" << name << ":" << serial.errorString();
    mySleep(breakMs);
    serial.setBreakEnabled(false);
    serial.clear(QSerialPort::AllDirections);
    serial.clearError();
    mySleep(settleMs);
    return true;
}

bool PortThread::lineLost(QSerialPort& serial, QString& currentPort, Result& result)
{
    const QSerialPort::SerialPortError cause = serial.error();
    if (cause != QSerialPort::ResourceError && cause != QSerialPort::ReadError && cause != QSerialPort::WriteError)
        return false;
    result.error = errorCode(cause);
    result.errorText = serial.errorString();
    DBG(LevelErr) << "*** Serial port" << currentPort << "lost - " << serial.errorString();
    closePort(serial, result);
    currentPort.clear();
    return true;
}

void PortThread::exchange(QSerialPort& serial, const Job& job, QString& currentPort, Result& result)
{
    result.txLog.clear();
    result.rxLog.clear();
    result.txTime = 0;
    result.rxTime = 0;
    serial.clearError();

    // Whatever came in since the last exchange is stale: a late answer, noise.
    if (serial.bytesAvailable() != 0 || serial.waitForReadyRead(0))
        serial.clear(QSerialPort::AllDirections);
    mySleep(5);

    QElapsedTimer clock;
    clock.start();
    const qint64 written = serial.write(job.request);
    if (written < job.request.size()) {
        DBG(LevelErr) << "*** Serial port" << currentPort << "write error - " << serial.errorString();
        result.error = errorCode(serial.error());
        result.errorText =
            tr("Write error %1, error code: %2 - %3").arg(currentPort).arg(result.error).arg(serial.errorString());
    }
    if (!serial.waitForBytesWritten(job.requestTimeout)) {
        if (lineLost(serial, currentPort, result))
            return;
        result.error = TimeoutErrorCode;
        result.errorText = tr("Request timeout (%1ms)").arg(job.requestTimeout);
        DBG(LevelErr) << QStringLiteral("Request timeout (%1ms)").arg(job.requestTimeout);
        // The next transaction opens the line afresh.
        currentPort.clear();
        return;
    }
    serial.flush();
    mySleep(transmitWaitMs(int(job.request.size())));
    result.txTime = int(clock.elapsed());
    result.txLog = logLine(QStringLiteral("TX"), result.txTime, job.request);

    clock.restart();
    if (!serial.waitForReadyRead(job.responseTimeout)) {
        if (lineLost(serial, currentPort, result))
            return;
        result.error = TimeoutErrorCode;
        result.errorText = tr("Response timeout (%1ms)").arg(job.responseTimeout);
        DBG(LevelErr) << QStringLiteral("Response timeout (%1ms)").arg(job.responseTimeout);
        return;
    }
    // The frame ends with a pause of byteTimeout; its length is not consulted.
    QByteArray response = serial.readAll();
    while (serial.waitForReadyRead(job.byteTimeout))
        response += serial.readAll();
    result.rxTime = int(clock.elapsed());
    result.rxLog = logLine(QStringLiteral("RX"), result.rxTime, response);

    serial.clearError();
    result.error = 0;
    result.errorText.clear();
    result.response = response;
}
