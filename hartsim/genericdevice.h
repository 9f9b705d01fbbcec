#ifndef HARTSIM_GENERICDEVICE_H
#define HARTSIM_GENERICDEVICE_H

#include "simdevice.h"

namespace hartsim {

// A HART device of another maker: the universal and common-practice commands
// only, no access code. Model "generic" is a HART 7 device (manufacturer code
// 0x11, device type 0x2A, vendor 0x0011); model "hart5" is a HART 5 device
// (0x11, 0x05): 12-byte identity, and no commands 7, 8, 9, 20, 21.
//
// Device variables: 0 pressure (kPa), 1 temperature (degC), 2 volume flow
// (m3/h), 3 level (%); PV to QV are 0 to 3.
class GenericDevice : public SimDevice
{
public:
    explicit GenericDevice(bool hart5);
};

} // namespace hartsim

#endif // HARTSIM_GENERICDEVICE_H
