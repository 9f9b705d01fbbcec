#ifndef TESTS_MODELLINE_H
#define TESTS_MODELLINE_H

// The demo line of simulated instruments (TCV-C at 0, QP-1C at 1, pH-7702
// at 2, a generic HART 7 device at 3) with one port of the program on it,
// for the tests of the model classes; and the checks they share.

#include "columns.h"
#include "deviceline.h"
#include "scratchdir.h"

#include <QByteArray>
#include <QSignalSpy>
#include <QVariant>
#include <QtTest>

#include <array>

// A fault of this kind for the command (-1: any), with the response code it sets.
inline hartsim::Fault fault(hartsim::Fault::Kind kind, int command = -1, int code = 0)
{
    hartsim::Fault fault;
    fault.kind = kind;
    fault.command = command;
    fault.code = code;
    return fault;
}

// An answer with response code 0 and no data at all, for a command.
inline hartsim::Fault emptyAnswer(int command)
{
    return fault(hartsim::Fault::ResponseCode, command);
}

inline QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

// The keys of the map against those expected: the same value and the same
// type (floats stay float, bytes int), or for a simulator parameter, which
// keeps floats, ints, doubles and flags as they came, the same number. An
// empty text when all match.
inline QString mismatches(const QVariantMap& actual, const QVariantMap& expected, bool asNumber = false)
{
    QStringList wrong;
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        const QVariant a = actual.value(it.key());
        if (asNumber ? !a.isValid() || a.toDouble() != it->toDouble() : a.typeId() != it->typeId() || a != *it)
            wrong << QStringLiteral("%1: %2 (%3), expected %4 (%5)")
                         .arg(it.key(), a.toString(), a.typeName(), it->toString(), it->typeName());
    }
    return wrong.join(QStringLiteral("; "));
}

// Fails with the text, unless it is empty.
#define VERIFY_NO_MISMATCH(text)                                                                                       \
    do {                                                                                                               \
        const QString wrong_ = (text);                                                                                 \
        QVERIFY2(wrong_.isEmpty(), qPrintable(wrong_));                                                                \
    } while (false)

// A map written as "key=value; ...": 12 an int, 12u unsigned, 1.5f a float,
// 1.5 a double, true or false a flag, 'text' a text, #0a1b bytes, nothing
// an invalid value.
inline QVariantMap vmap(const char* text)
{
    QVariantMap map;
    for (const QString& item : QString::fromUtf8(text).split(';', Qt::SkipEmptyParts)) {
        const QString v = item.section('=', 1).trimmed();
        map.insert(item.section('=', 0, 0).trimmed(),
                   v.isEmpty()                          ? QVariant()
                   : v.startsWith('\'')                 ? QVariant(v.mid(1, v.size() - 2))
                   : v.startsWith('#')                  ? QVariant(QByteArray::fromHex(v.mid(1).toLatin1()))
                   : v == "true" || v == "false"        ? QVariant(v == "true")
                   : v.endsWith('u')                    ? QVariant(v.chopped(1).toUInt(nullptr, 0))
                   : v.endsWith('f') && v.contains('.') ? QVariant(v.chopped(1).toFloat())
                   : v.contains('.')                    ? QVariant(v.toDouble())
                                                        : QVariant(v.toInt(nullptr, 0)));
    }
    return map;
}

inline void setInfo(Device* device, const QVariantMap& info)
{
    for (auto it = info.constBegin(); it != info.constEnd(); ++it)
        device->setDeviceInfo(it.key(), it.value());
}

// The models of the demo line, by polling address.
inline constexpr const char* DemoModels[] = {"TCV-C", "QP-1C", "pH-7702", "General"};

// A table of reads for ModelLine::checkRead(): "values" is what the device at
// the address holds and what is expected back; with "noData" the answer
// carries no data, and every value comes back 0.
inline void addReadColumns()
{
    addColumns<int, int, QString, QVariantMap, bool>({"address", "command", "label", "values", "noData"});
}

inline void readRow(int address, int command, const char* label, const char* values, bool noData = false)
{
    QTest::addRow("%s %d%s", DemoModels[address], command, noData ? " without data: zeros" : "")
        << address << command << QString(label) << vmap(values) << noData;
}

// A table of writes for ModelLine::checkWrite(): with "access" the metrology
// access is opened first; "simSetup" sets the simulated device, "info" holds
// the values to write, "request" the bytes expected on the line, "warning" a
// status text the answer brings.
inline void addWriteColumns()
{
    addColumns<int, int, QString, bool, QVariantMap, QVariantMap, QByteArray, QString>(
        {"address", "command", "label", "access", "simSetup", "info", "request", "warning"});
}

inline void writeRow(int address, int command, const char* label, const char* info, const char* request,
                     bool access = false, const char* simSetup = "", const char* warning = "")
{
    QTest::addRow("%s %d %s%s", DemoModels[address], command, *label ? label : "without a label",
                  *warning ? ": a warning" : "")
        << address << command << QString(label) << access << vmap(simSetup) << vmap(info) << hx(request)
        << QString(warning);
}

// The demo line in a temporary working directory.
class ModelLine : public DeviceLine
{
public:
    bool start() { return m_dir.enter() && DeviceLine::start(); }

    void stop()
    {
        DeviceLine::stop();
        m_dir.leave();
    }

    // A device of the template at the polling address, identified by
    // command 0: the line's first request.
    Device* identify(const QString& templateName, int pollingAddress)
    {
        Device* device = port->addDevice(QString(), templateName, -1);
        device->setAddress(pollingAddress);
        if (!device->readDevice(0) || !sim.line().waitForRequests(1, 3000))
            return nullptr;
        return device;
    }

    // The same, with the line's log cleared of the identification.
    Device* identifyAndClearLog(const QString& templateName, int pollingAddress)
    {
        Device* device = identify(templateName, pollingAddress);
        sim.line().clearLog();
        return device;
    }

    // The demo line's device at the polling address, of its own template.
    Device* identify(int pollingAddress) { return identify(QLatin1String(DemoModels[pollingAddress]), pollingAddress); }

    void checkRead()
    {
        QFETCH(int, address);
        QFETCH(int, command);
        QFETCH(QString, label);
        QFETCH(QVariantMap, values);
        QFETCH(bool, noData);

        Device* device = identify(address);
        QVERIFY(device);
        // What was there before is replaced, by zeros where the answer falls short.
        QVariantMap expected;
        for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
            device->setDeviceInfo(it.key(), QStringLiteral("old"));
            expected.insert(it.key(), !noData                                   ? it.value()
                                      : it.value().typeId() == QMetaType::Float ? QVariant(0.0f)
                                                                                : QVariant(0));
        }
        if (noData)
            sim.addFault(address, emptyAnswer(command));
        else
            sim.setParams(address, values);

        QVERIFY(device->readDevice(command));
        VERIFY_NO_MISMATCH(mismatches(device->deviceInfo(), expected));
        const hartsim::RequestRecord record = sim.record(2);
        QCOMPARE(int(record.command), command);
        QCOMPARE(record.data, QByteArray());
        QVERIFY(device->messageLog().contains(QStringLiteral("reading %1 (cmd=%2)...\n").arg(label).arg(command)));
    }

    void checkWrite()
    {
        QFETCH(int, address);
        QFETCH(int, command);
        QFETCH(QString, label);
        QFETCH(bool, access);
        QFETCH(QVariantMap, simSetup);
        QFETCH(QVariantMap, info);
        QFETCH(QString, warning);

        Device* device = identify(address);
        QVERIFY(device);
        sim.setParams(address, simSetup);
        setInfo(device, info);
        if (access)
            QVERIFY(device->sendAdjustCode(12345));
        const int modifyCount = device->getDeviceInfoByte("modify_count");
        QSignalSpy errors(device, &Device::deviceError);

        QVERIFY(device->writeDevice(command));
        QCOMPARE(errors.size(), 0);
        const hartsim::RequestRecord record = sim.record(access ? 3 : 2);
        QCOMPARE(int(record.command), command);
        QTEST(record.data, "request");
        // The device keeps the values under the keys the program has them.
        VERIFY_NO_MISMATCH(mismatches(sim.params(address, info.keys()), info, true));
        QCOMPARE(device->getDeviceInfoByte("modify_count"), modifyCount + 1);
        QVERIFY(device->messageLog().contains(QStringLiteral("writing %1 (cmd=%2)...\n").arg(label).arg(command)));
        QCOMPARE(device->statusTexts().contains(warning), !warning.isEmpty());
    }

private:
    ScratchDir m_dir;
};

#endif // TESTS_MODELLINE_H
