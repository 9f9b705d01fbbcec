#include "qp1device.h"

namespace {

Device::Fields readFields(int cmd)
{
    switch (cmd) {
    case 132:
        return {{"decimal_point_position", Device::ByteField}};
    case 135:
        return {{"decimal_point_position", Device::ByteField},
                {"average_count", Device::ByteField},
                {"input_units", Device::ByteField},
                {"free_range_min", Device::FloatField},
                {"free_range_max", Device::FloatField},
                {"indicate_range_min", Device::FloatField},
                {"indicate_range_max", Device::FloatField},
                {"calibrate_unit_code", Device::ByteField},
                {"line_points_count", Device::ByteField}};
    case 139:
        // The keys of the two temperatures are spelt so.
        return {{"temper_correction_mode", Device::ByteField},
                {"t1_correcton_value", Device::FloatField},
                {"t2_correcton_value", Device::FloatField}};
    case 149:
        return {{"line_point_pressure", Device::FloatField}};
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
    case 136:
        return {{"calibrate_unit_code", Device::ByteField}};
    case 137:
        return {{"line_points_count", Device::ByteField}};
    case 138:
        return {{"line_point_number", Device::ByteField}, {"line_point_value", Device::FloatField}};
    case 140:
        return {{"temper_correction_mode", Device::ByteField}};
    case 141:
        return {{"temper_correction_step", Device::ByteField}, {"temper_correction_value", Device::FloatField}};
    case 142:
        return {{"gain_adjustment", Device::FloatField}};
    case 145:
        return {{"free_range_min", Device::FloatField}, {"free_range_max", Device::FloatField}};
    case 146:
        return {{"indicate_range_min", Device::FloatField}, {"indicate_range_max", Device::FloatField}};
    case 147:
        return {{"sensor_unit_code", Device::ByteField},
                {"sensor_range_max", Device::FloatField},
                {"sensor_range_min", Device::FloatField},
                {"sensor_minimum_range", Device::FloatField}};
    default:
        // No row: empty data, echoed.
        return {};
    }
}

} // namespace

QP1Device::QP1Device(ServerItem* parent) : Device(parent)
{
    setName(createUniqName(QStringLiteral("QP-1C (%1)")));
    setPollingPeriod(1000);
}

QString QP1Device::readFunContext(int cmd) const
{
    switch (cmd) {
    case 132:
        return tr("decimal point position");
    case 135:
        return tr("device configuration");
    case 139:
        return tr("temperature correction params");
    case 149:
        return tr("pressure for line point");
    default:
        return Device::readFunContext(cmd);
    }
}

QString QP1Device::writeFunContext(int cmd) const
{
    // The misspelt labels are those the log has always shown.
    switch (cmd) {
    case 133:
        return tr("decimal point position");
    case 134:
        return tr("average_count");
    case 136:
        return tr("calibration unit code");
    case 137:
        return tr("line points count");
    case 138:
        return tr("line point value");
    case 140:
        return tr("temper corretion mode");
    case 141:
        return tr("temper corretion");
    case 142:
        return tr("adjust gain");
    case 145:
        return tr("free ragne");
    case 146:
        return tr("indication range");
    case 148:
        return tr("get line point value");
    case CmdManufacturerSettings:
        return tr("manufacturer settings");
    default:
        return Device::writeFunContext(cmd);
    }
}

bool QP1Device::readDevice(int cmd)
{
    if (cmd <= 129)
        return Device::readDevice(cmd);
    return readVendor(cmd, readFields(cmd));
}

bool QP1Device::writeDevice(int cmd)
{
    switch (cmd) {
    case CmdManufacturerSettings:
        return writeManufacturerSettings();
    case 148:
        // Reads the point back: what the device holds, not what was asked.
        return writeVendor(cmd, {{"line_point_number", ByteField}}, false, false,
                           {{"line_point_number", ByteField}, {"line_point_value", FloatField}});
    default:
        return cmd <= 129 ? Device::writeDevice(cmd) : writeVendor(cmd, writeFields(cmd));
    }
}
