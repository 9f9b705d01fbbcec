#ifndef DEFAULTDEVICE_H
#define DEFAULTDEVICE_H

#include "device.h"

// Any HART instrument without a model class of its own, template "General":
// the universal and common-practice commands of Device, unchanged, and
// nothing more. Its vendor commands are reached through the custom command
// tab; readDevice of such a command still sends it, and the result is false,
// as no table holds it. It has no protected functions, and command 48 shows
// its device-specific status as raw bytes (Device looks at the template).
class DefaultDevice : public Device
{
    Q_OBJECT

public:
    explicit DefaultDevice(ServerItem* parent = nullptr);
};

#endif // DEFAULTDEVICE_H
