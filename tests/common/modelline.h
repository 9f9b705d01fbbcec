#ifndef TESTS_MODELLINE_H
#define TESTS_MODELLINE_H

// The demo line of simulated instruments (TCV-C at 0, QP-1C at 1, pH-7702
// at 2, a generic HART 7 device at 3) with one port of the program on it,
// for the tests of the model classes; and the checks they share.

#include "device.h"
#include "port.h"
#include "scratchdir.h"
#include "server.h"
#include "simulatedline.h"

#include <QByteArray>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QVariant>
#include <QtTest>

inline QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

// An answer with response code 0 and no data at all, for a command.
inline hartsim::Fault emptyAnswer(int command)
{
    hartsim::Fault fault;
    fault.kind = hartsim::Fault::ResponseCode;
    fault.command = command;
    fault.code = 0;
    fault.keepData = false;
    return fault;
}

// The same value and the same type (floats stay float, bytes int), or for a
// simulator parameter, which keeps floats, ints, doubles and flags as they
// came, the same number. An empty text when they match.
inline QString mismatch(const QString& key, const QVariant& actual, const QVariant& expected, bool asNumber = false)
{
    const bool same = asNumber ? actual.isValid() && actual.toDouble() == expected.toDouble()
                               : actual.typeId() == expected.typeId() && actual == expected;
    return same ? QString()
                : QStringLiteral("%1: %2 (%3), expected %4 (%5)")
                      .arg(key, actual.toString(), actual.typeName(), expected.toString(), expected.typeName());
}

class ModelLine
{
public:
    // Starts the demo line in a temporary working directory and puts a port
    // of the program on it, with a short byte timeout.
    bool start(QString* error)
    {
        if (!m_dir.enter()) {
            *error = QStringLiteral("no temporary directory");
            return false;
        }
        if (!m_sim.startDemo(error))
            return false;
        m_server.reset(new Server);
        m_port = m_server->addPort(QStringLiteral("P1"));
        m_port->hart().setByteTimeout(20);
        if (!m_port->setSerialName(m_sim.path())) {
            *error = QStringLiteral("the port does not take %1").arg(m_sim.path());
            return false;
        }
        return true;
    }

    // A device of the template at the polling address, identified by
    // command 0: the line's first request.
    Device* identify(const QString& templateName, int pollingAddress)
    {
        Device* device = m_port->addDevice(QString(), templateName, -1);
        device->setAddress(pollingAddress);
        if (!device->readDevice(0) || !m_sim.line().waitForRequests(1, 3000))
            return nullptr;
        return device;
    }

    void stop()
    {
        // The port goes before the line it talks on.
        m_server.reset();
        m_port = nullptr;
        m_sim.stop();
        m_dir.leave();
    }

    // One row of a table of reads, columns "command", "label", "values" (what
    // the device holds, and what is expected back) and "noData" (the answer
    // carries no data, and every value comes back 0).
    void checkRead(Device* device, int pollingAddress)
    {
        QFETCH(int, command);
        QFETCH(QString, label);
        QFETCH(QVariantMap, values);
        QFETCH(bool, noData);

        // What was there before is replaced, by zeros where the answer falls short.
        for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
            if (!noData)
                m_sim.setParam(pollingAddress, it.key(), it.value());
            device->setDeviceInfo(it.key(), QStringLiteral("old"));
        }
        if (noData)
            m_sim.addFault(pollingAddress, emptyAnswer(command));

        QVERIFY(device->readDevice(command));
        for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
            const QVariant expected = !noData                                   ? it.value()
                                      : it.value().typeId() == QMetaType::Float ? QVariant(0.0f)
                                                                                : QVariant(0);
            const QString wrong = mismatch(it.key(), device->deviceInfo().value(it.key()), expected);
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        }
        const hartsim::RequestRecord record = m_sim.record(2);
        QCOMPARE(int(record.command), command);
        QCOMPARE(record.data, QByteArray());
        QVERIFY(device->messageLog().contains(QStringLiteral("reading %1 (cmd=%2)...\n").arg(label).arg(command)));
    }

    // One row of a table of writes, columns "command", "label", "access" (the
    // metrology access is opened first), "simSetup" (parameters of the
    // simulated device), "info" (the values to write) and "request" (the
    // bytes expected on the line).
    void checkWrite(Device* device, int pollingAddress)
    {
        QFETCH(int, command);
        QFETCH(QString, label);
        QFETCH(bool, access);
        QFETCH(QVariantMap, simSetup);
        QFETCH(QVariantMap, info);
        QFETCH(QByteArray, request);

        for (auto it = simSetup.constBegin(); it != simSetup.constEnd(); ++it)
            m_sim.setParam(pollingAddress, it.key(), it.value());
        for (auto it = info.constBegin(); it != info.constEnd(); ++it)
            device->setDeviceInfo(it.key(), it.value());
        if (access)
            QVERIFY(device->sendAdjustCode(12345));
        const int modifyCount = device->getDeviceInfoByte("modify_count");
        QSignalSpy errors(device, &Device::deviceError);

        QVERIFY(device->writeDevice(command));
        QCOMPARE(errors.size(), 0);
        const hartsim::RequestRecord record = m_sim.record(access ? 3 : 2);
        QCOMPARE(int(record.command), command);
        QCOMPARE(record.data, request);
        // The device keeps the values under the keys the program has them.
        for (auto it = info.constBegin(); it != info.constEnd(); ++it) {
            const QString wrong = mismatch(it.key(), m_sim.param(pollingAddress, it.key()), it.value(), true);
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        }
        QCOMPARE(device->getDeviceInfoByte("modify_count"), modifyCount + 1);
        QVERIFY(device->messageLog().contains(QStringLiteral("writing %1 (cmd=%2)...\n").arg(label).arg(command)));
    }

    SimulatedLine& sim() { return m_sim; }
    Port* port() const { return m_port; }

private:
    ScratchDir m_dir;
    SimulatedLine m_sim;
    QScopedPointer<Server> m_server;
    Port* m_port = nullptr;
};

#endif // TESTS_MODELLINE_H
