#ifndef TESTS_SIMULATEDLINE_H
#define TESTS_SIMULATEDLINE_H

// A line of simulated HART devices on a pseudo-terminal, answering at once,
// for the tests of the program's link and everything above it.

#include "portthread.h"
#include "scenario.h"
#include "simdevice.h"
#include "simline.h"

#include <QPair>
#include <QString>
#include <QVariantMap>

#include <memory>

class SimulatedLine
{
public:
    using Device = QPair<QString, QVariantMap>; // model, settings with "polling_address"

    // Starts a line with these devices; the clock stands still at 100 s
    // unless the test moves it. The path is empty and error says why when the
    // line does not start.
    bool start(const QList<Device>& devices, QString* error)
    {
        m_line = std::make_unique<hartsim::SimLine>();
        for (const Device& d : devices) {
            auto device = hartsim::SimDevice::create(d.first, d.second, error);
            if (!device || !m_line->addDevice(std::move(device), error))
                return false;
        }
        return run(error);
    }

    // The built-in demo line: TCV-C at 0, QP-1C at 1, pH-7702 at 2, generic at 3.
    bool startDemo(QString* error)
    {
        m_line = std::make_unique<hartsim::SimLine>();
        if (!hartsim::Scenario::load(QString::fromLatin1(hartsim::Scenario::DemoPath), *m_line, error))
            return false;
        return run(error);
    }

    void stop()
    {
        if (m_line)
            m_line->stop();
    }

    QString path() const { return m_path; }
    hartsim::SimLine& line() { return *m_line; }

    int addFault(int pollingAddress, hartsim::Fault fault)
    {
        fault.pollingAddress = pollingAddress;
        return m_line->addFault(fault);
    }

    QVariant param(int pollingAddress, const QString& key)
    {
        QVariant value;
        m_line->withDevice(pollingAddress, [&](hartsim::SimDevice& d) { value = d.param(key); });
        return value;
    }

    void setParam(int pollingAddress, const QString& key, const QVariant& value)
    {
        m_line->withDevice(pollingAddress, [&](hartsim::SimDevice& d) { d.setParam(key, value); });
    }

    QVariantMap params(int pollingAddress, const QStringList& keys)
    {
        QVariantMap values;
        for (const QString& key : keys)
            values.insert(key, param(pollingAddress, key));
        return values;
    }

    void setParams(int pollingAddress, const QVariantMap& values)
    {
        for (auto it = values.constBegin(); it != values.constEnd(); ++it)
            setParam(pollingAddress, it.key(), it.value());
    }

    // The n-th request the line served (from 1), once it is served: the
    // line logs a request when its answer has gone out. An empty record
    // when it does not come within 3 s.
    hartsim::RequestRecord record(int n) const
    {
        if (n < 1 || !m_line->waitForRequests(n, 3000))
            return hartsim::RequestRecord();
        const QList<hartsim::RequestRecord> log = m_line->requests();
        return n <= log.size() ? log.at(n - 1) : hartsim::RequestRecord();
    }

    // Preambles in front of the last request the line received.
    int lastRequestPreambles() const
    {
        const QList<hartsim::RequestRecord> log = m_line->requests();
        if (log.isEmpty())
            return -1;
        const QByteArray& raw = log.last().raw;
        int count = 0;
        while (count < raw.size() && quint8(raw.at(count)) == 0xFF)
            ++count;
        return count;
    }

private:
    bool run(QString* error)
    {
        m_line->setTiming(hartsim::SimLine::Timing::Fast);
        // The simulator answers at once: the program need not wait out a
        // modem's transmit time nor wake it either.
        PortThread::setModemTiming(0, 0, 0, 0);
        m_line->freezeClock(true);
        m_line->setClock(100.0);
        m_path = m_line->startPty(QString(), error);
        return !m_path.isEmpty();
    }

    std::unique_ptr<hartsim::SimLine> m_line;
    QString m_path;
};

#endif // TESTS_SIMULATEDLINE_H
