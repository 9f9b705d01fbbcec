#ifndef TESTS_DEVICELINE_H
#define TESTS_DEVICELINE_H

// A line of simulated devices with a server and one port of the program on
// it, for the tests of Device and its exchanges.

#include "device.h"
#include "port.h"
#include "server.h"
#include "simulatedline.h"

#include <QScopedPointer>
#include <QtGlobal>

class DeviceLine
{
public:
    ~DeviceLine() { stop(); }

    // Starts the line, the demo line when no devices are given, and a port
    // "P1" on it; false, with a warning, when the simulator does not start.
    bool start(const QList<SimulatedLine::Device>& devices = {})
    {
        QString error;
        if (!(devices.isEmpty() ? sim.startDemo(&error) : sim.start(devices, &error))) {
            qWarning() << "simulator:" << error;
            return false;
        }
        server.reset(new Server);
        port = server->addPort(QStringLiteral("P1"));
        port->hart().setByteTimeout(20); // the simulator answers at once: a short pause ends a frame
        return port->setSerialName(sim.path());
    }

    // The port goes before the line it talks on.
    void stop()
    {
        server.reset();
        port = nullptr;
        sim.stop();
    }

    // A device "D<address>" of the template at the polling address, not
    // identified yet.
    Device* addDevice(int pollingAddress, const QString& templateName = QStringLiteral("Custom"))
    {
        Device* device = port->addDevice(QStringLiteral("D%1").arg(pollingAddress), templateName, -1);
        device->setAddress(pollingAddress);
        return device;
    }

    // The commands the line served, after one more request, command 16, sent
    // as a fence once the expected count of requests is in: the line logs in
    // order, so a request sent before the fence is in the list when the fence
    // is, and an unexpected one shows.
    QList<int> served(Device* device, int expected)
    {
        QByteArray response;
        device->read(QStringLiteral("fence"), 16, response);
        sim.line().waitForRequests(expected + 1, 3000);
        QList<int> commands;
        for (const hartsim::RequestRecord& record : sim.line().requests())
            commands << record.command;
        return commands;
    }

    SimulatedLine sim;
    QScopedPointer<Server> server;
    Port* port = nullptr;
};

#endif // TESTS_DEVICELINE_H
