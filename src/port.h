#ifndef PORT_H
#define PORT_H

#include "hartport.h"
#include "serveritem.h"

#include <QSemaphore>

class Device;

// One serial line in the tree: the settings of the line, the devices on it,
// and the HartPort that talks on it. Devices exchange through
// sendHartCommand while holding semaphore(), which makes one exchange at a
// time on the line across the main thread and the polling threads.
//
// The settings are dynamic properties named as the keys of the port's entry
// in the configuration file: "name", "enabled", "priority", "serial_name",
// "baudrate", "parity", "databits", "stopbits", "close_port_after_transaction";
// the timeouts "request_timeout", "response_timeout", "byte_timeout" are
// properties of the HartPort, and "initial_number_of_preambles" is its start
// preamble count. The line itself always runs at 1200 baud 8O1: the four line
// settings are stored and shown, and never reach the line.
class Port : public ServerItem
{
    Q_OBJECT

public:
    enum PortType { HART = 0, MODBUS_TCP = 1 };
    static QString portTypeToString(PortType type);
    static PortType portTypeFromString(const QString& text);

    explicit Port(ServerItem* parent = nullptr);
    ~Port() override;

    QString fullName() const override { return name(); }
    QIcon icon() const override { return QIcon(); }
    bool load(const QMap<QString, QVariant>& map) override;
    QMap<QString, QVariant> save() const override;
    int type() const override { return TypePort; }
    ServerItem* createChild() override;

    // "%1 ; %2 ; %3%4%5": serial name, baud rate, data bits, parity, stop bits.
    QString configName() const;
    int baudrateIndex(int baudrate = -1) const;
    void setBaudrateByIndex(int index);
    int parityIndex(QChar parity = QLatin1Char(' ')) const;
    void setParityByIndex(int index);

    QString serialName() const;
    int baudrate() const;
    QChar parity() const;
    int dataBits() const;
    int stopBits() const;
    void setBaudrate(int baudrate);
    void setParity(QChar parity);
    void setDatabits(int bits);
    void setStopbits(int bits);
    // False for the present name and for a name another port of the server
    // has; a running line is opened again on the new name.
    bool setSerialName(const QString& name);
    bool checkUniqSerialName(const QString& name) const;
    // The serial devices of the system, sorted, each once.
    static QStringList devices_available();
    // The device a line name stands for: QSerialPort puts "/dev/" before a
    // name without a directory ("ttyUSB0").
    static QString systemLocation(const QString& name);

    bool closePortAfterTransaction() const;
    void setClosePortAfterTransaction(bool close);

    // Devices. The class follows the template name: a model of ours, the
    // default model "General", or a plain Device for any other name.
    Device* createDevice(const QString& templateName);
    Device* addDevice(const QString& name, const QString& templateName, int position);
    Device* device(const QString& name) const;
    Device* device(int pollingAddress) const;
    QStringList deviceIds() const;
    QList<Device*> devices() const;
    void removeDevice(const QString& name);
    bool hasPeriodicallyRequestedDevices() const;
    bool hasArchivatedDevices() const;
    bool hasConnectionDevices() const;
    QList<Device*> connectionDevices() const;

    // The line.
    bool openHart();
    void closeHart();
    bool isOpened();
    // One exchange; errorCode() then holds 1, 4 (a port error) or the
    // HartPort's negative code, and errorText() its text.
    bool sendHartCommand(const QByteArray& address, unsigned char command, const QByteArray& data,
                         QByteArray& response);
    int statusByte(int index) const;
    QStringList statusText() const;
    QString requestTrace() const { return m_hart.txLog(); }
    QString responseTrace() const { return m_hart.rxLog(); }
    QSemaphore& semaphore() { return m_semaphore; }
    HartPort& hart() { return m_hart; }

    // Finding a device, each filling info from the identity it answers with.
    bool checkHartDevice(int pollingAddress, QVariantMap& info);
    bool checkHartDeviceByTag(const QString& tag, QVariantMap& info);
    bool checkHartDeviceByLongTag(const QString& tag, QVariantMap& info);
    bool findHartDeviceBy73(QVariantMap& info);

    // Text and numbers of the data field; big-endian.
    QByteArray packAscii(const QString& text, int size);
    QString unpackAscii(const QByteArray& buffer, int size);
    static QByteArray getBufferFromInt(int value, int size);
    static int getIntFromBufferByOffset(const QByteArray& buffer, int offset, int size);
    static QByteArray getBufferFromFloat(float value);
    static float getFloatFromBufferByOffset(const QByteArray& buffer, int offset);

signals:
    void serialNameChanged();

private:
    bool primaryMaster() const;
    // Reads the identity of an answer to command 11, 21 or 73; a failure
    // leaves the HartPort's code and text in the item.
    bool parseIdentity(const QByteArray& response, QVariantMap& info);

    QSemaphore m_semaphore;
    HartPort m_hart;
};

#endif // PORT_H
