#ifndef HARTSIM_SIMDEVICE_H
#define HARTSIM_SIMDEVICE_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include "datacodec.h"

#include <initializer_list>
#include <memory>

namespace hartsim {

enum class Master { Primary, Secondary };

// What a device does with one request addressed to it.
struct Reply
{
    quint8 code = 0;     // response code, the first status byte; 0 is success
    QByteArray data;     // the data field behind the two status bytes
    bool silent = false; // the device does not answer at all

    static Reply ok(const QByteArray& data = QByteArray()) { return Reply{0, data, false}; }
    static Reply error(quint8 code) { return Reply{code, QByteArray(), false}; }
    static Reply none() { return Reply{0, QByteArray(), true}; }
};

// One simulated field device. Its whole configuration lives in one map of
// parameters, whose keys are, where the two meet, the keys under which the
// configurator keeps the same values ("tag", "range_max", "PV_unit_code"...),
// so that a test reads back what a write put into the device by the name the
// program wrote it under. A scenario sets the same keys.
//
// Not thread-safe: the line serialises every call under its own lock.
class SimDevice
{
public:
    virtual ~SimDevice();

    // Makes a device of a model: "generic" (HART 7), "hart5", "TCV-C",
    // "DX-C", "QP-1C", "pH-7702". The settings override the model's defaults
    // (identity, polling address, values, behaviour). Null with an error text
    // for an unknown model or a setting of the wrong type.
    static std::unique_ptr<SimDevice> create(const QString& model, const QVariantMap& settings, QString* error);
    static QStringList models();

    // One device variable of a model's table: the keys var_<code>_* of its
    // defaults. value, amplitude and period make the variable move (see
    // variableValue); a model that computes the value leaves them at 0.
    struct VariableSpec
    {
        int code, unit, cls, family;
        double usl, lsl, minSpan;
        double value = 0.0, amplitude = 0.0, period = 0.0;
    };
    static void addVariables(QVariantMap& defaults, std::initializer_list<VariableSpec> variables);

    QString model() const { return m_model; }

    // Runs one request and returns what the device answers. now is the
    // simulator's clock in seconds; process values move with it.
    Reply handle(quint8 command, const QByteArray& data, Master master, double now);
    // The device status byte to put in the answer just produced by handle,
    // for that master. Reports a cold start once to each master.
    quint8 deviceStatus(Master master);

    // Addressing.
    int pollingAddress() const;
    // The 5-byte long address without the master and burst bits.
    QByteArray longAddress() const;
    // True when a request with this address (1 or 5 bytes, flags included) is
    // meant for this device. The all-zero long address is the broadcast
    // address: it reaches the device for commands 11, 21 and 73 only, and the
    // device then answers only when the tag, the long tag or the pressed
    // button says it is the one asked for (handle returns Reply::none()).
    bool isAddressedBy(const QByteArray& address, quint8 command) const;
    // Preambles the device puts before its answers (command 59 changes it).
    int responsePreambles() const;

    // Parameters, for scenarios and tests.
    QVariant param(const QString& key) const { return m_params.value(key); }
    void setParam(const QString& key, const QVariant& value) { m_params.insert(key, value); }
    const QVariantMap& params() const { return m_params; }
    // Power cycle: cold start for both masters, metrology access closed,
    // fixed current released.
    void powerUp();
    // The button that arms the device for command 73.
    void setButtonPressed(bool pressed) { m_buttonPressed = pressed; }
    // The local menu of the instrument: the only way to lift write protection.
    void clearWriteProtectionFromMenu();

    // Values of device variables at time now, with their units, as command 9
    // and 33 report them.
    virtual float variableValue(int code, double now) const;
    virtual int variableUnit(int code) const;
    virtual int variableClass(int code) const;
    virtual bool hasVariable(int code) const;
    // Primary variable and the loop current that follows the range.
    float primaryValue(double now) const { return variableValue(m_params.value("PV_dev_variable_code").toInt(), now); }
    float loopCurrent(double now) const;
    // The reply of command 48 as it stands at time now.
    QByteArray additionalStatus(double now) const;

protected:
    SimDevice(const QString& model, const QVariantMap& defaults);

    // Answers carrying one parameter, as a byte or as a float.
    Reply byteReply(const QString& key) const { return Reply::ok(QByteArray(1, char(i(key)))); }
    Reply floatReply(const QString& key) const { return Reply::ok(DataCodec::floatBytes(f(key))); }
    // A write of one byte kept under the key: code 5 when the data fall
    // short, the refusal code when the byte lies outside min to max, else the
    // byte is stored and echoed.
    Reply writeByte(const QByteArray& data, const QString& key, int min, int max, quint8 refusal);

    // One command; the base runs the universal and common-practice commands
    // and the protected functions 190 and 194. A model overrides it for its
    // own commands and passes the others on.
    virtual Reply command(quint8 cmd, const QByteArray& data, Master master, double now);

    // Commands that change the configuration: refused with code 7 under write
    // protection, and they raise the configuration-changed flag and counter.
    virtual bool isWriteCommand(quint8 cmd) const;
    // Commands that need metrology access (code 16 when it is closed).
    virtual bool isProtectedCommand(quint8 cmd) const;
    // True when a response code other than 0 still means the command was
    // carried out (a warning): 8 and 14 here. A model whose code 8 refuses
    // some of its commands says so.
    virtual bool isWarning(quint8 cmd, quint8 code) const;
    // The six device-specific bytes of command 48.
    virtual QByteArray deviceSpecificStatus() const;
    // Settings kept by a factory save (command 192, mode 1) and put back by a
    // restore (mode 0).
    virtual QStringList factoryKeys() const;
    // The keys of the range, the damping and the output trims, which every
    // model keeps among its factory settings.
    static QStringList outputFactoryKeys();

    // Marks a configuration change seen by both masters.
    void configurationChanged();
    bool metrologyAccessOpen(double now) const;

    float f(const QString& key) const { return m_params.value(key).toFloat(); }
    int i(const QString& key) const { return m_params.value(key).toInt(); }
    bool isHart5() const { return i(QStringLiteral("universal_cmd_version")) < 6; }

    // The data of command 0 (and of 11, 21, 73): 12 bytes under revision 5,
    // 22 bytes under revision 7.
    QByteArray identityData() const;

    QVariantMap m_params;
    double m_now = 0.0;

private:
    // The current the range asks for, before the limits of the output stage.
    double rangeCurrent(double now) const;
    bool outputFixed() const;
    bool outputSaturated(double now) const;

    QString m_model;
    bool m_buttonPressed = false;
    bool m_coldStart[2] = {true, true};
    bool m_configChanged[2] = {false, false};
    bool m_accessOpen = false;
    double m_lastProtected = 0.0;
    double m_busyUntil = 0.0;
    QByteArray m_acknowledged48;
    QVariantMap m_factorySaved;
};

} // namespace hartsim

#endif // HARTSIM_SIMDEVICE_H
