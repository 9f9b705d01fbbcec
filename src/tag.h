#ifndef TAG_H
#define TAG_H

#include "serveritem.h"

#include <QAtomicPointer>
#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMutex>
#include <QReadWriteLock>
#include <QStringList>
#include <QVariant>
#include <QWaitCondition>

class Device;
class QThread;

// One named value of a Device: a value shown in one type (the server type)
// and kept in the device in another (the device type), with an access mode,
// a raw buffer of the device's bytes, an optional window of bits, limits and
// a map of texts for values. read() and write() convert between the raw
// buffer and the value; they never send anything on a line. The numbers of
// the read and write function and the byte order are kept and saved only.
//
// Dynamic properties: "enabled", "priority", "period", "comment",
// "read_func", "write_func", "byteorder" ("0123"), "byteorder_enabled",
// "modified", "values_prefix", "value".
class Tag : public ServerItem
{
    Q_OBJECT

public:
    // The two type lists share their numbers and byte lengths and differ only
    // in the name of 0.
    enum ServerType {
        ServerBool = 0,
        ServerInt16 = 1,
        ServerUInt16 = 2,
        ServerInt32 = 3,
        ServerUInt32 = 4,
        ServerFloat32 = 5,
        ServerFloat64 = 6,
        ServerInvalid = 7
    };
    enum DeviceType {
        DeviceBit = 0,
        DeviceInt16 = 1,
        DeviceUInt16 = 2,
        DeviceInt32 = 3,
        DeviceUInt32 = 4,
        DeviceFloat32 = 5,
        DeviceFloat64 = 6,
        DeviceInvalid = 7
    };
    enum OpcAccessType { ReadOnly = 0, WriteOnly = 1, ReadWrite = 2, AccessInvalid = 3 };

    // "bool"/"bit", "int16", "uint16", "int32", "uint32", "float32",
    // "float64"; "Invalid" for any other number. Reading a text back is exact;
    // an unknown text gives the invalid value.
    static QString serverTypeToString(int type);
    static ServerType serverTypeFromString(const QString& text);
    static QString deviceTypeToString(int type);
    static DeviceType deviceTypeFromString(const QString& text);
    // Bytes of a device type: 1, 2, 2, 4, 4, 4, 8; 0 when invalid.
    static int deviceTypeLength(int type);
    // "ReadOnly", "WriteOnly", "ReadWrite"; "Invalid" for any other.
    static QString accessToString(int access);
    static OpcAccessType accessFromString(const QString& text);

    explicit Tag(ServerItem* parent = nullptr);
    ~Tag() override;

    // The device's full name, "/" and the tag's name.
    QString fullName() const override;
    QIcon icon() const override { return QIcon(); }
    bool load(const QMap<QString, QVariant>& map) override;
    QMap<QString, QVariant> save() const override;
    int type() const override { return TypeTag; }
    // A tag has no children.
    ServerItem* createChild() override { return nullptr; }

    Device* device() const;

    ServerType serverType() const { return m_serverType; }
    void setServerType(ServerType type) { m_serverType = type; }
    DeviceType deviceType() const { return m_deviceType; }
    void setDeviceType(DeviceType type) { m_deviceType = type; }
    int deviceTypeLength() const { return deviceTypeLength(m_deviceType); }
    OpcAccessType access() const { return m_opcAccess; }
    void setAccess(OpcAccessType access) { m_opcAccess = access; }

    // The address as a number: "0x1A" and "1Ah" are hexadecimal, anything
    // else decimal.
    int address() const;
    QString addressText() const { return m_address; }
    void setAddress(const QString& address) { m_address = address; }

    QVariant value() const;
    // Stores the value with the time of now and emits valueChanged, also for
    // the value it already had.
    void setValue(const QVariant& value);
    // Stores the value and asks for it to be written (writeRequest).
    void writeValueScheduled(const QVariant& value);
    QDateTime timestamp() const;
    void setTimeStamp(const QDateTime& timestamp);
    // The text shown for the value: its entry in the values map, tried with
    // "values_prefix" before a number and then with a "0" between them, or
    // the value itself.
    QString valueFromValues() const;

    QByteArray rawBuffer() const { return m_rawBuffer; }
    void setRawBuffer(const QByteArray& buffer) { m_rawBuffer = buffer; }
    int requestDelay() const { return m_requestDelay; }
    void setRequestDelay(int ms) { m_requestDelay = ms; }

    // The window of bits taken from the raw value; clamped by the device type.
    bool useBitExtraction() const { return m_useBitExtraction; }
    void setUseBitExtraction(bool use) { m_useBitExtraction = use; }
    int extractBitFrom() const { return m_extractBitFrom; }
    int extractBitTo() const { return m_extractBitTo; }
    void setExtractBitFrom(int bit);
    void setExtractBitTo(int bit);

    // Empty, or the low and the high limit.
    QList<QVariant> limits() const { return m_limits; }
    void setLimits(const QList<QVariant>& limits) { m_limits = limits; }
    QMap<QString, QVariant> values() const { return m_values; }
    void setValues(const QMap<QString, QVariant>& values) { m_values = values; }
    // Empty, or the group's identifier and name.
    QList<QString> configGroup() const { return m_configGroup; }
    void setConfigGroup(const QList<QString>& group) { m_configGroup = group; }
    QString configGroupID() const;
    QString configGroupName() const;
    bool isChannel() const;

    bool isValueNaN() const;
    bool isValueLimitsOut() const;

    QList<Tag*> tags() const;
    QList<Tag*> activeTags() const;

    // The value from the raw buffer; result code 3 for a write-only tag, and
    // then nothing is read and an invalid value comes back.
    QVariant read();
    // The value into the raw buffer; false with result code 3 for a read-only
    // tag or a device type without a length.
    bool write(const QVariant& value);
    // A caller that waits for the end of the next read or write: the one who
    // starts it calls tagRequesting() first, the waiter waitTagRequested().
    void tagRequesting();
    void waitTagRequested();

    const QList<QString>& messageLog() const { return m_messageLog; }
    int messageLogDepth() const { return m_messageLogDepth; }
    void setMessageLogDepth(int depth) { m_messageLogDepth = depth; }

    // The device's processing time of its last exchange.
    int processingTime() const;

public slots:
    void appendModbusMessage(const QString& text);

signals:
    void valueChanged(const QVariant& value);
    void writeRequest();
    void deleting(QObject* tag);

private:
    // The end of a read or write: the result code, its log line, and the
    // release of a caller waiting for it.
    void finishRequest(int code, const char* pattern, const QString& error);
    void releaseRequest();
    quint64 extractBits(quint64 value) const;

    ServerType m_serverType = ServerFloat32;
    DeviceType m_deviceType = DeviceFloat32;
    OpcAccessType m_opcAccess = ReadWrite;
    QVariant m_value;
    mutable QReadWriteLock m_valueLock;
    QDateTime m_timestamp;
    mutable QReadWriteLock m_timestampLock;
    QByteArray m_rawBuffer;
    QString m_address = QStringLiteral("0");
    int m_requestDelay = 0;
    QList<QString> m_messageLog;
    int m_messageLogDepth = 10000;
    bool m_useBitExtraction = false;
    int m_extractBitFrom = 0;
    int m_extractBitTo = 0;
    QList<QVariant> m_limits;
    QMap<QString, QVariant> m_values;
    QList<QString> m_configGroup;
    QMutex m_requestMutex;
    QWaitCondition m_requestDone;
    // The thread that holds m_requestMutex through tagRequesting(), if any.
    QAtomicPointer<QThread> m_requestOwner;
};

#endif // TAG_H
