#include "tcv2device.h"

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

    QByteArray response;
    if (read(readFunContext(cmd), cmd, response) != 1)
        return false;
    checkAdditionalStatus(true, true);

    auto putByte = [&](const char* key, int offset) { setDeviceInfo(QLatin1String(key), byteAt(response, offset)); };
    auto putFloat = [&](const char* key, int offset) { setDeviceInfo(QLatin1String(key), floatAt(response, offset)); };
    switch (cmd) {
    case 130:
        putByte("decimal_point_position", 0);
        putByte("input_signal_type", 1);
        putByte("sensor_type", 2);
        putByte("connection_schema", 3);
        putFloat("resistanceTS_0", 4);
        putFloat("resistance_conn_wires", 8);
        putByte("free_ends_compensation", 12);
        putFloat("first_correction_point", 13);
        putFloat("second_correction_point", 17);
        putByte("average_count", 21);
        return true;
    case 132:
        putByte("decimal_point_position", 0);
        return true;
    case 150:
        putByte("input_signal_type", 0);
        putByte("sensor_type", 1);
        return true;
    case 153:
        putByte("connection_schema", 0);
        return true;
    case 155:
        putFloat("resistanceTS_0", 0);
        return true;
    case 157:
        putFloat("resistance_conn_wires", 0);
        return true;
    case 160:
        putByte("free_ends_compensation", 0);
        return true;
    default:
        // Sent and answered, but no table holds it.
        return false;
    }
}

bool TCV2Device::writeDevice(int cmd)
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
    case 143:
        number("first_correction_point");
        break;
    case 144:
        number("second_correction_point");
        break;
    case 151:
        byte("input_signal_type");
        break;
    case 152:
        byte("sensor_type");
        break;
    case 154:
        byte("connection_schema");
        break;
    case 156:
        number("resistanceTS_0");
        break;
    case 158:
        number("resistance_conn_wires");
        break;
    case 161:
        byte("free_ends_compensation");
        break;
    case 171:
        number("adjust_voltage");
        break;
    case 172:
        number("adjust_resistance");
        break;
    case 173:
        number("adjust_temperature");
        break;
    case 174:
        // Asks what the adjustment acts on; the device answers the reading.
        byte("adjust_parameter_code");
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
    if (cmd == 174) {
        const int code = getDeviceInfoByte(QStringLiteral("adjust_parameter_code"));
        const QString key = code == 0   ? QStringLiteral("adjust_resistance")
                            : code == 1 ? QStringLiteral("adjust_voltage")
                                        : QStringLiteral("adjust_temperature");
        setDeviceInfo(key, floatAt(response, 0));
    }
    if (count)
        incrementModifyCount();
    checkAdditionalStatus(true, true);
    return true;
}
