#include "defaultdevice.h"

DefaultDevice::DefaultDevice(ServerItem* parent) : Device(parent)
{
    setName(createUniqName(QStringLiteral("Default (%1)")));
    setPollingPeriod(1000);
    // The priority of the line it stands on.
    const QVariant priority = parent ? parent->property("priority") : QVariant();
    if (priority.isValid())
        setPriority(priority.toInt());
}
