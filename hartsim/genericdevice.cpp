#include "genericdevice.h"

namespace hartsim {

namespace {

QVariantMap genericDefaults(bool hart5)
{
    QVariantMap d{
        {"manufacturer_code", 0x11},
        {"device_type_code", hart5 ? 0x05 : 0x2A},
        {"device_id", hart5 ? 0x000501 : 0x002A01},
        {"universal_cmd_version", hart5 ? 5 : 7},
        {"vendor_id", 0x0011},
        {"range_unit_code", 12},
        {"range_max", 100.0},
        {"range_min", 0.0},
        {"sensor_unit_code", 12},
        {"sensor_range_max", 250.0},
        {"sensor_range_min", -100.0},
        {"sensor_minimum_range", 1.0},
        {"sensor_number", 0x002A01},
    };
    SimDevice::addVariables(d, {
                                   {0, 12, 65, 5, 250.0, -100.0, 1.0, 42.0, 2.0, 60.0},
                                   {1, 32, 64, 4, 85.0, -40.0, 1.0, 23.5, 0.5, 300.0},
                                   {2, 19, 66, 250, 50.0, 0.0, 1.0, 12.0, 1.0, 90.0},
                                   {3, 57, 0, 250, 100.0, 0.0, 1.0, 50.0, 10.0, 120.0},
                               });
    return d;
}

} // namespace

GenericDevice::GenericDevice(bool hart5)
    : SimDevice(hart5 ? QStringLiteral("hart5") : QStringLiteral("generic"), genericDefaults(hart5))
{}

} // namespace hartsim
