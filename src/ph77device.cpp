#include "ph77device.h"

#include <QStringList>

namespace {

Device::Fields readFields(int cmd)
{
    switch (cmd) {
    case 130:
        return {{"input_units", Device::ByteField},
                {"ei_isopotential_point", Device::FloatField},
                {"steepness", Device::FloatField},
                {"phi_isopotential_point", Device::FloatField},
                {"average_time_small_sig_ph", Device::ByteField},
                {"average_time_big_sig_ph", Device::ByteField},
                {"big_sig_threshold_ph", Device::FloatField},
                {"electrode_diag", Device::ByteField}};
    case 134:
        return {{"t_measurement_mode", Device::ByteField},
                {"ts_type", Device::ByteField},
                {"ts_0", Device::FloatField},
                {"t_for_correction", Device::FloatField},
                {"t_manual", Device::FloatField},
                {"average_time_small_sig_t", Device::ByteField},
                {"average_time_big_sig_t", Device::ByteField},
                {"big_sig_threshold_t", Device::FloatField}};
    case 140:
        return {{"indicate_range_min", Device::FloatField}, {"indicate_range_max", Device::FloatField}};
    case 150:
        return {{"current_grd_type", Device::ByteField}, {"current_ph_1", Device::FloatField},
                {"current_eds_1", Device::FloatField},   {"current_t_1", Device::FloatField},
                {"current_ph_2", Device::FloatField},    {"current_eds_2", Device::FloatField},
                {"current_t_2", Device::FloatField}};
    case 152:
        return {{"ei_min", Device::FloatField},
                {"ei_max", Device::FloatField},
                {"s_min", Device::FloatField},
                {"s_max", Device::FloatField}};
    case 171:
        return {{"adjust_U_p1", Device::FloatField},
                {"adjust_U_p2", Device::FloatField},
                {"adjust_Rt_p", Device::FloatField},
                {"adjust_Rc_p1", Device::FloatField},
                {"adjust_Rc_p2", Device::FloatField}};
    default:
        // Sent and answered, but no table holds it.
        return {};
    }
}

Device::Fields writeFields(int cmd)
{
    switch (cmd) {
    case 131:
        return {{"input_units", Device::ByteField},
                {"ei_isopotential_point", Device::FloatField},
                {"steepness", Device::FloatField}};
    case 132:
        return {{"average_time_small_sig_ph", Device::ByteField},
                {"average_time_big_sig_ph", Device::ByteField},
                {"big_sig_threshold_ph", Device::FloatField}};
    case 133:
        return {{"electrode_diag", Device::ByteField}};
    case 135:
        return {{"t_measurement_mode", Device::ByteField}, {"t_manual", Device::FloatField}};
    case 136:
        return {{"ts_type", Device::ByteField}, {"ts_0", Device::FloatField}, {"t_for_correction", Device::FloatField}};
    case 137:
        return {{"average_time_small_sig_t", Device::ByteField},
                {"average_time_big_sig_t", Device::ByteField},
                {"big_sig_threshold_t", Device::FloatField}};
    case 141:
        return {{"indicate_range_min", Device::FloatField}, {"indicate_range_max", Device::FloatField}};
    case 142:
        return {{"sensor_unit_code", Device::ByteField},
                {"sensor_range_max", Device::FloatField},
                {"sensor_range_min", Device::FloatField},
                {"sensor_minimum_range", Device::FloatField}};
    case 172:
        return {{"adjust_U_point", Device::ByteField}, {"adjust_U", Device::FloatField}};
    case 173:
        return {{"adjust_Rt", Device::FloatField}};
    case 174:
        return {{"adjust_Rc_point", Device::ByteField}, {"adjust_Rc", Device::FloatField}};
    case 176:
        return {{"ei_min", Device::FloatField},
                {"ei_max", Device::FloatField},
                {"s_min", Device::FloatField},
                {"s_max", Device::FloatField}};
    default:
        // No row: empty data, echoed.
        return {};
    }
}

} // namespace

PH77Device::PH77Device(ServerItem* parent) : Device(parent)
{
    setName(createUniqName(QStringLiteral("pH-7702 (%1)")));
    setPollingPeriod(1000);
}

QString PH77Device::getADCCodeString(int code) const
{
    // Two of the texts end in a blank, as the instrument's manual has them.
    QStringList lines;
    if (code & 0x01)
        lines << tr("Temperature sensor short circuit.");
    if (code & 0x02)
        lines << tr("Temperature sensor not connected. ");
    if (code & 0x04)
        lines << tr("Ei is out of range.");
    if (code & 0x08)
        lines << tr("S is out of range. ");
    return lines.join(QLatin1Char('\n'));
}

QString PH77Device::readFunContext(int cmd) const
{
    switch (cmd) {
    case 130:
        return tr("device configuration (part 1)");
    case 134:
        return tr("device configuration (part 2)");
    case 140:
        return tr("indication range");
    case 150:
        return tr("current graduation values");
    case 152:
        return tr("Ei and S ranges");
    case 171:
        return tr("adjustment parameters");
    default:
        return Device::readFunContext(cmd);
    }
}

QString PH77Device::writeFunContext(int cmd) const
{
    switch (cmd) {
    case 131:
        return tr("electrode parameters");
    case 132:
        return tr("PV filter parameters");
    case 133:
        return tr("electrode diagnostic on/off");
    case 135:
        return tr("temperature measurement mode");
    case 136:
        return tr("temperature sensor parameters");
    case 137:
        return tr("temperature filter parameters");
    case 141:
        return tr("indication range");
    case 151:
        return tr("graduation point");
    case 172:
        return tr("adjust U");
    case 173:
        return tr("adjust Rt");
    case 174:
        return tr("adjust Rc");
    case 176:
        return tr("Ei and S ranges");
    case CmdManufacturerSettings:
        return tr("manufacturer settings");
    default:
        return Device::writeFunContext(cmd);
    }
}

bool PH77Device::readDevice(int cmd)
{
    if (cmd <= 129)
        return Device::readDevice(cmd);
    return readVendor(cmd, readFields(cmd));
}

bool PH77Device::writeDevice(int cmd)
{
    switch (cmd) {
    case CmdManufacturerSettings:
        return writeManufacturerSettings();
    case 151:
        // The device answers the electrode parameters it computed from the
        // point; the graduation changes its configuration.
        return writeVendor(
            cmd, {{"grd_type", ByteField}, {"grd_point_number", ByteField}, {"grd_point_value", FloatField}}, false,
            true, {{"grd_point_number", ByteField}, {"ei_isopotential_point", FloatField}, {"steepness", FloatField}});
    default:
        return cmd <= 129 ? Device::writeDevice(cmd) : writeVendor(cmd, writeFields(cmd));
    }
}
