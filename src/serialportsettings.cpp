#include "serialportsettings.h"

#include "port.h"

bool SerialPortSettings::equalsTo(const Port* port) const
{
    if (!port)
        return false;
    return name == port->serialName() && baudRate == port->baudrate() && dataBits == port->dataBits() &&
           parity == port->parity() && stopBits == port->stopBits();
}

void SerialPortSettings::takeFrom(const Port* port)
{
    if (!port)
        return;
    name = port->serialName();
    baudRate = port->baudrate();
    dataBits = port->dataBits();
    parity = port->parity();
    stopBits = port->stopBits();
}
