#include "ph77device.h"

#include "port.h"

#include <QStringList>

namespace {

// Response fields; bytes beyond the end of the response read as 0.
int byteAt(const QByteArray& buffer, int offset)
{
    return offset < buffer.size() ? int(quint8(buffer.at(offset))) : 0;
}

float floatAt(const QByteArray& buffer, int offset)
{
    return Port::getFloatFromBufferByOffset(buffer, offset);
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

    QByteArray response;
    if (read(readFunContext(cmd), cmd, response) != 1)
        return false;
    checkAdditionalStatus(true, true);

    auto putByte = [&](const char* key, int offset) { setDeviceInfo(QLatin1String(key), byteAt(response, offset)); };
    auto putFloat = [&](const char* key, int offset) { setDeviceInfo(QLatin1String(key), floatAt(response, offset)); };
    switch (cmd) {
    case 130:
        putByte("input_units", 0);
        putFloat("ei_isopotential_point", 1);
        putFloat("steepness", 5);
        putFloat("phi_isopotential_point", 9);
        putByte("average_time_small_sig_ph", 13);
        putByte("average_time_big_sig_ph", 14);
        putFloat("big_sig_threshold_ph", 15);
        putByte("electrode_diag", 19);
        return true;
    case 134:
        putByte("t_measurement_mode", 0);
        putByte("ts_type", 1);
        putFloat("ts_0", 2);
        putFloat("t_for_correction", 6);
        putFloat("t_manual", 10);
        putByte("average_time_small_sig_t", 14);
        putByte("average_time_big_sig_t", 15);
        putFloat("big_sig_threshold_t", 16);
        return true;
    case 140:
        putFloat("indicate_range_min", 0);
        putFloat("indicate_range_max", 4);
        return true;
    case 150:
        putByte("current_grd_type", 0);
        putFloat("current_ph_1", 1);
        putFloat("current_eds_1", 5);
        putFloat("current_t_1", 9);
        putFloat("current_ph_2", 13);
        putFloat("current_eds_2", 17);
        putFloat("current_t_2", 21);
        return true;
    case 152:
        putFloat("ei_min", 0);
        putFloat("ei_max", 4);
        putFloat("s_min", 8);
        putFloat("s_max", 12);
        return true;
    case 171:
        putFloat("adjust_U_p1", 0);
        putFloat("adjust_U_p2", 4);
        putFloat("adjust_Rt_p", 8);
        putFloat("adjust_Rc_p1", 12);
        putFloat("adjust_Rc_p2", 16);
        return true;
    default:
        // Sent and answered, but no table holds it.
        return false;
    }
}

bool PH77Device::writeDevice(int cmd)
{
    if (cmd <= 129)
        return Device::writeDevice(cmd);

    QByteArray request;
    bool echo = true;
    bool count = true;
    auto byte = [&](const char* key) { request.append(char(getDeviceInfoByte(QLatin1String(key)))); };
    auto number = [&](const char* key) {
        request.append(Port::getBufferFromFloat(getDeviceInfoFloat(QLatin1String(key))));
    };

    switch (cmd) {
    case 131:
        byte("input_units");
        number("ei_isopotential_point");
        number("steepness");
        break;
    case 132:
        byte("average_time_small_sig_ph");
        byte("average_time_big_sig_ph");
        number("big_sig_threshold_ph");
        break;
    case 133:
        byte("electrode_diag");
        break;
    case 135:
        byte("t_measurement_mode");
        number("t_manual");
        break;
    case 136:
        byte("ts_type");
        number("ts_0");
        number("t_for_correction");
        break;
    case 137:
        byte("average_time_small_sig_t");
        byte("average_time_big_sig_t");
        number("big_sig_threshold_t");
        break;
    case 141:
        number("indicate_range_min");
        number("indicate_range_max");
        break;
    case 142:
        byte("sensor_unit_code");
        number("sensor_range_max");
        number("sensor_range_min");
        number("sensor_minimum_range");
        break;
    case 151:
        // The device answers the electrode parameters it computed from the
        // point; the graduation changes its configuration.
        byte("grd_type");
        byte("grd_point_number");
        number("grd_point_value");
        echo = false;
        break;
    case 172:
        byte("adjust_U_point");
        number("adjust_U");
        break;
    case 173:
        number("adjust_Rt");
        break;
    case 174:
        byte("adjust_Rc_point");
        number("adjust_Rc");
        break;
    case 176:
        number("ei_min");
        number("ei_max");
        number("s_min");
        number("s_max");
        break;
    case CmdManufacturerSettings:
        // 1 saves the settings as the manufacturer's, 0 restores them; only a
        // restore changes the configuration.
        byte("manufacturer_settings");
        echo = false;
        count = getDeviceInfoByte(QStringLiteral("manufacturer_settings")) == 0;
        break;
    default:
        // No row: empty data, echoed.
        break;
    }

    QByteArray response;
    if (!writeChecked(cmd, request, echo, response))
        return false;
    if (cmd == 151) {
        setDeviceInfo(QStringLiteral("grd_point_number"), byteAt(response, 0));
        setDeviceInfo(QStringLiteral("ei_isopotential_point"), floatAt(response, 1));
        setDeviceInfo(QStringLiteral("steepness"), floatAt(response, 5));
    }
    if (count)
        incrementModifyCount();
    checkAdditionalStatus(true, true);
    return true;
}
