#include "qp1device.h"

#include "port.h"

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

    QByteArray response;
    if (read(readFunContext(cmd), cmd, response) != 1)
        return false;
    checkAdditionalStatus(true, true);

    auto putByte = [&](const char* key, int offset) { setDeviceInfo(QLatin1String(key), byteAt(response, offset)); };
    auto putFloat = [&](const char* key, int offset) { setDeviceInfo(QLatin1String(key), floatAt(response, offset)); };
    switch (cmd) {
    case 132:
        putByte("decimal_point_position", 0);
        return true;
    case 135:
        putByte("decimal_point_position", 0);
        putByte("average_count", 1);
        putByte("input_units", 2);
        putFloat("free_range_min", 3);
        putFloat("free_range_max", 7);
        putFloat("indicate_range_min", 11);
        putFloat("indicate_range_max", 15);
        putByte("calibrate_unit_code", 19);
        putByte("line_points_count", 20);
        return true;
    case 139:
        // The keys of the two temperatures are spelt so.
        putByte("temper_correction_mode", 0);
        putFloat("t1_correcton_value", 1);
        putFloat("t2_correcton_value", 5);
        return true;
    case 149:
        putFloat("line_point_pressure", 0);
        return true;
    default:
        // Sent and answered, but no table holds it.
        return false;
    }
}

bool QP1Device::writeDevice(int cmd)
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
    case 133:
        byte("decimal_point_position");
        break;
    case 134:
        byte("average_count");
        break;
    case 136:
        byte("calibrate_unit_code");
        break;
    case 137:
        byte("line_points_count");
        break;
    case 138:
        byte("line_point_number");
        number("line_point_value");
        break;
    case 140:
        byte("temper_correction_mode");
        break;
    case 141:
        byte("temper_correction_step");
        number("temper_correction_value");
        break;
    case 142:
        number("gain_adjustment");
        break;
    case 145:
        number("free_range_min");
        number("free_range_max");
        break;
    case 146:
        number("indicate_range_min");
        number("indicate_range_max");
        break;
    case 147:
        byte("sensor_unit_code");
        number("sensor_range_max");
        number("sensor_range_min");
        number("sensor_minimum_range");
        break;
    case 148:
        // Reads the point back: what the device holds, not what was asked.
        byte("line_point_number");
        echo = count = false;
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
    if (cmd == 148) {
        setDeviceInfo(QStringLiteral("line_point_number"), byteAt(response, 0));
        setDeviceInfo(QStringLiteral("line_point_value"), floatAt(response, 1));
    }
    if (count)
        incrementModifyCount();
    checkAdditionalStatus(true, true);
    return true;
}
