#ifndef SERIALPORTSETTINGS_H
#define SERIALPORTSETTINGS_H

#include <QChar>
#include <QString>

class Port;

// The line settings with which a device was last found.
class SerialPortSettings
{
public:
    QString name;
    int baudRate = 1200;
    int dataBits = 8;
    QChar parity = QLatin1Char('O');
    int stopBits = 1;

    // True when the port has the same name and line settings.
    bool equalsTo(const Port* port) const;
    // Takes the port's name and line settings.
    void takeFrom(const Port* port);
};

#endif // SERIALPORTSETTINGS_H
