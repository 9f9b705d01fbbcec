#ifndef TCV2DEVICE_H
#define TCV2DEVICE_H

#include "device.h"

// The temperature converter, templates "TCV-C" and "DX-C": a resistance
// thermometer, a thermocouple or the sensor of a thermocouple's free ends on
// its input. Adds the converter's own commands above 129; the universal ones
// stay with Device. The codes of the input signal, the sensor and the
// connection schema are kept as raw numbers; the editor gives their meaning.
class TCV2Device : public Device
{
    Q_OBJECT

public:
    explicit TCV2Device(ServerItem* parent = nullptr);

    QString readFunContext(int cmd) const override;
    QString writeFunContext(int cmd) const override;
    bool readDevice(int cmd) override;
    bool writeDevice(int cmd) override;
    bool hasMetrologyAccess() const override { return true; }
};

#endif // TCV2DEVICE_H
