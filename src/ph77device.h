#ifndef PH77DEVICE_H
#define PH77DEVICE_H

#include "device.h"

// The pH meter, template "pH-7702". Adds the meter's own commands above 129:
// electrode, temperature channel, filters, graduation and adjustment; the
// universal ones stay with Device. Its error code of command 48 is a set of
// bits that getADCCodeString turns into lines.
class PH77Device : public Device
{
    Q_OBJECT

public:
    explicit PH77Device(ServerItem* parent = nullptr);

    QString readFunContext(int cmd) const override;
    QString writeFunContext(int cmd) const override;
    bool readDevice(int cmd) override;
    bool writeDevice(int cmd) override;
    // One line for each bit set, from bit 0 upward, joined by line ends.
    QString getADCCodeString(int code) const override;
    bool hasMetrologyAccess() const override { return true; }
};

#endif // PH77DEVICE_H
