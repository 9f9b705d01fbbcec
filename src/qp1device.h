#ifndef QP1DEVICE_H
#define QP1DEVICE_H

#include "device.h"

// The pressure converter, template "QP-1C". Adds the converter's own commands
// above 129: configuration, ranges, the linearisation points and the
// temperature correction; the universal ones stay with Device. A response
// code 8 on the line points (138, 148) and the correction steps (141) is a
// warning: the command was carried out.
class QP1Device : public Device
{
    Q_OBJECT

public:
    explicit QP1Device(ServerItem* parent = nullptr);

    QString readFunContext(int cmd) const override;
    QString writeFunContext(int cmd) const override;
    bool readDevice(int cmd) override;
    bool writeDevice(int cmd) override;
    bool hasMetrologyAccess() const override { return true; }
};

#endif // QP1DEVICE_H
