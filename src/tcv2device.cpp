#include "tcv2device.h"

namespace {

Device::Fields readFields(int cmd)
{
    switch (cmd) {
    case 130:
        return {{"decimal_point_position", Device::ByteField},
                {"input_signal_type", Device::ByteField},
                {"sensor_type", Device::ByteField},
                {"connection_schema", Device::ByteField},
                {"resistanceTS_0", Device::FloatField},
                {"resistance_conn_wires", Device::FloatField},
                {"free_ends_compensation", Device::ByteField},
                {"first_correction_point", Device::FloatField},
                {"second_correction_point", Device::FloatField},
                {"average_count", Device::ByteField}};
    case 132:
        return {{"decimal_point_position", Device::ByteField}};
    case 150:
        return {{"input_signal_type", Device::ByteField}, {"sensor_type", Device::ByteField}};
    case 153:
        return {{"connection_schema", Device::ByteField}};
    case 155:
        return {{"resistanceTS_0", Device::FloatField}};
    case 157:
        return {{"resistance_conn_wires", Device::FloatField}};
    case 160:
        return {{"free_ends_compensation", Device::ByteField}};
    default:
        // Sent and answered, but no table holds it.
        return {};
    }
}

Device::Fields writeFields(int cmd)
{
    switch (cmd) {
    case 133:
        return {{"decimal_point_position", Device::ByteField}};
    case 134:
        return {{"average_count", Device::ByteField}};
    case 143:
        return {{"first_correction_point", Device::FloatField}};
    case 144:
        return {{"second_correction_point", Device::FloatField}};
    case 151:
        return {{"input_signal_type", Device::ByteField}};
    case 152:
        return {{"sensor_type", Device::ByteField}};
    case 154:
        return {{"connection_schema", Device::ByteField}};
    case 156:
        return {{"resistanceTS_0", Device::FloatField}};
    case 158:
        return {{"resistance_conn_wires", Device::FloatField}};
    case 161:
        return {{"free_ends_compensation", Device::ByteField}};
    case 171:
        return {{"adjust_voltage", Device::FloatField}};
    case 172:
        return {{"adjust_resistance", Device::FloatField}};
    case 173:
        return {{"adjust_temperature", Device::FloatField}};
    default:
        // No row: empty data, echoed.
        return {};
    }
}

} // namespace

TCV2Device::TCV2Device(ServerItem* parent) : Device(parent)
{
    setName(createUniqName(QStringLiteral("TCV-C (%1)")));
    setPollingPeriod(1000);
}

QString TCV2Device::readFunContext(int cmd) const
{
    switch (cmd) {
    case 130:
        return tr("device configuration");
    case 132:
        return tr("decimal point position");
    case 150:
        return tr("input signal type & sensor");
    case 153:
        return tr("connection schema");
    case 155:
        return tr("resistance TS at 0");
    case 157:
        return tr("resistance of connecting wires");
    case 160:
        return tr("free ends compensation");
    default:
        return Device::readFunContext(cmd);
    }
}

QString TCV2Device::writeFunContext(int cmd) const
{
    switch (cmd) {
    case 133:
        return tr("decimal point position");
    case 134:
        return tr("average_count");
    case 143:
        return tr("first correction point");
    case 144:
        return tr("second correction point");
    case 151:
        return tr("input signal type");
    case 152:
        return tr("sensor type");
    case 154:
        return tr("connection schema");
    case 156:
        return tr("resistance TS at 0");
    case 158:
        return tr("resistance of connecting wires");
    case 161:
        return tr("free ends compensation");
    case 171:
        return tr("adjust voltage");
    case 172:
        return tr("adjust resistance");
    case 173:
        return tr("adjust temperature");
    case 174:
        return tr("adjust parameter code");
    case CmdManufacturerSettings:
        return tr("manufacturer settings");
    default:
        return Device::writeFunContext(cmd);
    }
}

bool TCV2Device::readDevice(int cmd)
{
    if (cmd <= 129)
        return Device::readDevice(cmd);
    return readVendor(cmd, readFields(cmd));
}

bool TCV2Device::writeDevice(int cmd)
{
    switch (cmd) {
    case CmdManufacturerSettings:
        return writeManufacturerSettings();
    case 174: {
        // Asks what the adjustment acts on; the device answers the reading.
        const int code = getDeviceInfoByte(QStringLiteral("adjust_parameter_code"));
        const char* key = code == 0 ? "adjust_resistance" : code == 1 ? "adjust_voltage" : "adjust_temperature";
        return writeVendor(cmd, {{"adjust_parameter_code", ByteField}}, false, false, {{key, FloatField}});
    }
    default:
        return cmd <= 129 ? Device::writeDevice(cmd) : writeVendor(cmd, writeFields(cmd));
    }
}
