#ifndef DEVICE_H
#define DEVICE_H

#include "serialportsettings.h"
#include "serveritem.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QVariantMap>

class Port;

// One HART field instrument on a Port. What is known of it lives in one map
// of named parameters, the device-information map: read commands fill it,
// write commands take their request data from it, and the editors, polling
// and the archive work through it and the two numbered operations
// readDevice(cmd) and writeDevice(cmd). The base class runs the universal and
// common-practice commands; the model classes add their own.
//
// Dynamic properties: "address" (polling address), "polling_period",
// "request_timeout", "responce_timeout" (spelled so), "byte_timeout",
// "close_port_if_error", "producer", "comment", "variant", "enabled",
// "priority".
class Device : public ServerItem
{
    Q_OBJECT

public:
    // Bits of deviceTagState().
    enum TagState {
        TagStateNone = 1,
        TagStateChanged = 2,  // edited in the program
        TagStateRead = 4,     // last read good
        TagStateWritten = 8,  // last write good
        TagStatePolled = 16,  // periodically requested
        TagStateArchived = 64 // archived
    };

    // The data of a vendor command as a run of fields, each a key of the
    // device-information map holding a byte or a float (4 bytes, IEEE,
    // big-endian), one after the other from offset 0.
    enum FieldType { ByteField, FloatField };
    struct Field
    {
        const char* key;
        FieldType type;
    };
    using Fields = QList<Field>;

    explicit Device(ServerItem* parent = nullptr);
    ~Device() override;

    QString fullName() const override;
    QIcon icon() const override { return QIcon(); }
    bool load(const QMap<QString, QVariant>& map) override;
    QMap<QString, QVariant> save() const override;
    int type() const override { return TypeDevice; }
    ServerItem* createChild() override;

    Port* port() const;

    // The label of a command in logs and errors; empty for unknown numbers.
    virtual QString readFunContext(int cmd) const;
    virtual QString writeFunContext(int cmd) const;
    // One command, read or with request data from the map; true on success.
    virtual bool readDevice(int cmd);
    virtual bool writeDevice(int cmd);
    // Lines telling the device-specific error code of command 48.
    virtual QString getADCCodeString(int code) const;

    // The device-information map. A missing key read through these is created
    // empty.
    QVariant getDeviceInfo(const QString& key);
    int getDeviceInfoByte(const QString& key);
    float getDeviceInfoFloat(const QString& key);
    QString getDeviceInfoString(const QString& key);
    QByteArray getDeviceInfoByteArray(const QString& key);
    void setDeviceInfo(const QString& key, const QVariant& value);
    void removeDeviceInfo(const QString& key);
    bool hasDeviceInfoParam(const QString& key) const;
    void removeAllSlotesInfo();
    const QVariantMap& deviceInfo() const { return m_deviceInfo; }

    void sendModbusMessage(const QString& text);
    const QList<QString>& messageLog() const { return m_messageLog; }
    int messageLogDepth() const { return m_messageLogDepth; }
    void setMessageLogDepth(int depth);

    // The instrument models of our maker by the identity codes of command 0.
    struct ModelIdentity
    {
        const char* templateName;
        int manufacturerCode;
        int deviceTypeCode;
    };
    static const QList<ModelIdentity>& modelIdentities();
    static constexpr int OurManufacturerCode = 0xE0;
    // The template of a device that answered with these codes: one of our
    // models, "Unknown" for a device type of ours that no model knows, and
    // "General" for any other maker's device, which the default model serves.
    static QString templateNameByCodes(int manufacturerCode, int deviceTypeCode);

    // Takes "address", "deviceID", "vendorID" and "expanded_device_type" of
    // the device-information map as the device's identity, as a good
    // identification does; a device found by a scan of the line is known by
    // what it answered there.
    void takeIdentityFromDeviceInfo();

    QByteArray hartAddress() const { return m_hartAddress; }
    QByteArray hartDeviceID() const { return m_hartDeviceID; }
    QByteArray vendorID() const { return m_vendorID; }
    QByteArray expandedDeviceType() const { return m_expandedDeviceType; }
    bool isIdentified() const { return !m_hartDeviceID.isEmpty(); }
    SerialPortSettings serialSettings() const { return m_serialSettings; }

    void checkAndSetPortTimeouts();
    int set_as_custom() { return 1; }
    void incrementModifyCount();

    bool setDeviceName(const QString& name, bool onlyCheck);
    // "%1 {%2}" with the template name and the tag, or the polling address.
    void updateDeviceName();
    void setCommentFromDeviceInfo(const QString& key);
    QString deviceTemplateName() const { return m_deviceTemplateName; }
    void setDeviceTemplateName(const QString& name);

    int deviceTagState() const { return m_deviceTagState; }
    void setDeviceTagState(int state) { m_deviceTagState = state; }
    QString deviceTagsStateToShortString() const;
    QString deviceTagsStateToLongString() const;
    // The device is lost: identity, address and state are forgotten.
    void checkOffDevice();

    int address() const;
    void setAddress(int pollingAddress);
    int pollingPeriod() const;
    void setPollingPeriod(int ms);
    int requestTimeout() const;
    void setRequestTimeout(int ms);
    int responceTimeout() const;
    void setResponceTimeout(int ms);
    int byteTimeout() const;
    void setByteTimeout(int ms);
    bool closePortOnError() const;
    void setClosePortOnError(bool close);
    QString producer() const;
    void setProducer(const QString& producer);
    QString comment() const;
    void setComment(const QString& comment);
    QString variant() const;
    void setVariant(const QString& variant);
    int priority() const;
    void setPriority(int priority);

    // The line: opens the port with the settings the device was found with
    // (-1, -1, or when identified) or with the given indices.
    bool openPort(int baudIndex, int parityIndex);
    bool openHartPort();

    // One exchange under the port's semaphore; the result is the tree's
    // result code (1 good).
    int read(const QString& label, int cmd, QByteArray& response);
    int write(const QString& label, int cmd, const QByteArray& request, QByteArray& response);

    // Identification by polling address (command 0), tag (11) or long tag (21).
    bool checkHartDevice(const QString& tag, const QString& longTag, bool flag);
    // Identification of a device whose button is pressed (command 73).
    bool checkHartDeviceBy73();

    void saveCmd48Responce(const QByteArray& response);
    bool checkAdditionalStatus(bool request, bool onlyIfFlagged);
    void signalAdditionalStatusInfo();
    QString additionalStatusText() const { return m_additionalStatusText; }
    QByteArray cmd48Data() const { return m_cmd48Data; }
    bool alwaysAdditionalStatus() const { return m_alwaysAdditionalStatus; }
    void setAlwaysAdditionalStatus(bool always) { m_alwaysAdditionalStatus = always; }
    QStringList statusTexts() const { return m_statusTexts; }
    QByteArray statusBytes() const { return m_statusBytes; }
    int processingTime() const { return m_processingTime; }

    // Snapshots: save() plus "device_tag_state".
    bool hasDeviceData() const { return !m_deviceData.isEmpty(); }
    bool hasFileData() const { return !m_fileData.isEmpty(); }
    bool hasBackup() const { return !m_backup.isEmpty(); }
    bool hasRollback() const { return !m_rollback.isEmpty(); }
    void backupTagsInDeviceData();
    void backupTagsInFileData();
    void restoreTagsFromDeviceData();
    void restoreTagsFromFileData();
    void backupTags();
    void restoreTags();
    void rollbackTags();
    void clearFileData() { m_fileData.clear(); }
    bool pasteFromClipboard(const QVariantMap& map);
    void backupDeviceInfo();
    void checkAndRestoreDeviceInfo();
    QVariant valueFromDeviceData(const QString& name) const;
    void setValueInDeviceData(const QString& name, const QVariant& value);

    bool loadFromTemplate(const QVariantMap& map);
    void loadDeviceSettings(const QVariantMap& map);
    QVariantMap measureInfo() const { return m_measureInfo; }
    void setMeasureInfo(const QVariantMap& info) { m_measureInfo = info; }

    // Protected functions of the model instruments. The metrology access
    // check, command 190, opens the adjustment and factory commands of the
    // instrument (with access closed the instrument refuses them with response
    // code 16); the factory number, command 194, is the 3-byte device
    // identifier. A device without them, the base class and the generic
    // device, refuses these calls with an error text and sends nothing.
    enum ProtectedCommand { CmdMetrologyAccess = 190, CmdManufacturerSettings = 192, CmdWriteFactoryNumber = 194 };
    // True for a device that has the protected functions.
    virtual bool hasMetrologyAccess() const;
    // Command 190 with the access code, 4 bytes unsigned big-endian; the code
    // 0 closes access. The answer, 1 open or 0 closed, goes to
    // "metrology_access". True when the device reports the state the code
    // asks for; a wrong code is refused by the device (response code 16,
    // result -3), and "metrology_access" keeps its value.
    bool sendAdjustCode(quint32 code);
    // The access state the device last reported through sendAdjustCode. The
    // instrument also closes access by itself (reset, power-up, ten minutes
    // without a protected command); a refused command then tells.
    bool isMetrologyAccessOpen() const;
    // Command 194 with a new factory number of 3 bytes, echoed. The long
    // address changes with it, so the device is then identified again at its
    // polling address; true when both went well.
    bool writeFactoryNumber(const QByteArray& deviceId);

    // Codes into text.
    static QString getUnitCodeText(int unit, int classCode);
    QString getPVUnitCodeText();
    QString getSVUnitCodeText();
    QString getTVUnitCodeText();
    QString getQVUnitCodeText();
    QString getCalibrateUnitCodeText();
    static QString getClassificationText(int code);
    static QString getFamilyText(int code);
    static QString getDeviceVariableStatusText(int status);
    static QString getPVAlarmSelectionText(int code);

public slots:
    void appendModbusMessage(const QString& text);

signals:
    void tagsDeleting();
    void appendChannelData(const QString& name, const QVariant& value);
    void channelReaded();
    void deviceTemplateChanged(const QString& newName);
    void modbusMessage(int address, const QString& text);
    void modbusErrorMessage(int address, const QString& text);
    void deviceStatus(const QString& statusText, const QByteArray& statusCode);
    void deviceError(const QString& errorText);

protected:
    // The flow of an exchange, shared by read and write.
    int exchange(const QString& label, const QString& logLine, int cmd, const QByteArray& request, QByteArray& response,
                 bool isWrite);
    // Parameters that are byte arrays in memory: the file keeps them as
    // byteBufferToString16 text, and load turns that text back into bytes.
    // A model with byte-array parameters of its own adds their keys.
    virtual bool isByteArrayParameter(const QString& key) const;
    // One exchange with request data, for the commands of the models and the
    // protected functions: the label of writeFunContext, write, and with echo
    // the response must equal the request in length and bytes, or the result
    // is false with "*** cmdData != response". The caller stores what the
    // response brings, counts and checks the additional status.
    bool writeChecked(int cmd, const QByteArray& request, bool echo, QByteArray& response);

    QByteArray packFields(const Fields& fields);
    // Fields beyond the end of the data read as 0.
    void unpackFields(const QByteArray& data, const Fields& fields);
    // A vendor read: the exchange, the additional status, and the response's
    // fields into the map. A command without fields is sent and answered but
    // gives false.
    bool readVendor(int cmd, const Fields& response);
    // A vendor write: the request from its fields, the exchange (with echo,
    // the response must repeat the request), the answer's fields into the
    // map, the configuration change counted when asked, the additional
    // status.
    bool writeVendor(int cmd, const Fields& request, bool echo = true, bool count = true,
                     const Fields& answer = Fields());
    // Command 192 of the model instruments: "manufacturer_settings" 1 saves
    // the settings as the manufacturer's, 0 restores them; only a restore
    // changes the configuration.
    bool writeManufacturerSettings();

private:
    QVariantMap parametersForFile() const;
    QVariantMap parametersFromFile(const QVariantMap& parameters, QStringList* badKeys) const;
    void reportBadKey(const QString& key, const QVariant& value);
    QVariantMap snapshot() const;
    void loadSnapshot(const QVariantMap& snapshot);
    bool openPortFailed(Port* p);
    bool refuseProtectedFunction(int cmd);
    QByteArray frameAddress() const;
    void sendPortTraces(Port* p);
    void takeStatus(Port* p, bool exchanged);
    void reportStatus();
    bool finishIdentification(Port* p, bool found, int cmd, qint64 elapsedMs, bool frameSent);
    QByteArray slotRequest(int slotCount) const;
    QByteArray packedText(const QString& text, int size);
    void storeSlots9(const QByteArray& response);
    void storeSlots33(const QByteArray& response);
    void storeVariableInfo54(const QByteArray& response);
    QString unitTextOf(const char* unitKey, const char* classKey) const;

    int m_processingTime = 0;
    QString m_deviceTemplateName;
    bool m_loading = false;
    QVariantMap m_deviceData;
    QVariantMap m_fileData;
    QVariantMap m_backup;
    QVariantMap m_rollback;
    QByteArray m_hartAddress;
    QByteArray m_hartDeviceID;
    QByteArray m_vendorID;
    QByteArray m_expandedDeviceType;
    SerialPortSettings m_serialSettings;
    int m_deviceTagState = TagStateNone;
    QList<QString> m_messageLog;
    int m_messageLogDepth = 10000;
    QVariantMap m_deviceInfo;
    QVariantMap m_deviceInfoBackup;
    QList<QString> m_statusTexts;
    QByteArray m_statusBytes;
    QByteArray m_cmd48Data;
    QString m_additionalStatusText;
    bool m_alwaysAdditionalStatus = false;
    QVariantMap m_measureInfo;
    int m_statusDepth = 0; // nesting of checkAdditionalStatus through command 48
};

#endif // DEVICE_H
