#ifndef SIMDEVICETESTUTIL_H
#define SIMDEVICETESTUTIL_H

// Shared by the simulator's own tests: byte helpers, devices whose process
// values stand still, and a table of requests with the answer each must get.

#include "datacodec.h"
#include "simdevice.h"

#include <QtTest>

#include <cmath>

namespace simtest {

using hartsim::DataCodec;
using hartsim::Master;
using hartsim::Reply;
using hartsim::SimDevice;

inline QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

inline QByteArray f32(float value)
{
    QByteArray out;
    DataCodec::putFloat(out, value);
    return out;
}

// A device of the model, or of the model named in the settings; each setting
// named in still is 0 unless given.
inline std::unique_ptr<SimDevice> make(const QString& model, QVariantMap settings, const QStringList& still)
{
    for (const QString& key : still)
        if (!settings.contains(key))
            settings.insert(key, 0.0);
    const QString named = settings.take("model").toString();
    QString error;
    return SimDevice::create(named.isEmpty() ? model : named, settings, &error);
}

inline Reply run(SimDevice& device, int command, const QByteArray& data = QByteArray(), double now = 0.0)
{
    return device.handle(quint8(command), data, Master::Primary, now);
}

inline int code(SimDevice& device, int command, const QByteArray& data = QByteArray(), double now = 0.0)
{
    return run(device, command, data, now).code;
}

inline bool openAccess(SimDevice& device, double now = 0.0)
{
    const Reply reply = run(device, 190, hx("00003039"), now); // 12345
    return reply.code == 0 && reply.data == hx("01");
}

inline float pv(SimDevice& device, double now = 0.0)
{
    return DataCodec::getFloat(run(device, 1, {}, now).data, 1);
}

inline int status(SimDevice& device, int bits, Master master = Master::Primary)
{
    return device.deviceStatus(master) & bits;
}

// Evaluates actual twice: pass only reads without side effects.
#define QVERIFY_NEAR(actual, expected, tolerance)                                                                      \
    QVERIFY2(std::fabs((actual) - double(expected)) <= (tolerance),                                                    \
             qPrintable(QStringLiteral("%1, expected %2").arg(actual, 0, 'f', 6).arg(double(expected), 0, 'f', 6)))

// The table of requests, each run with access open unless refused with 16. A
// row changes nothing; a writeRow is echoed, counted as one change, and
// readCommand then answers readBack.
inline void exchangeColumns()
{
    QTest::addColumn<QVariantMap>("settings");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<int>("readCommand");
    QTest::addColumn<QByteArray>("readBack");
}

inline void row(const char* name, const QVariantMap& settings, int command, const QByteArray& request, int code,
                const QByteArray& reply = QByteArray())
{
    QTest::newRow(name) << settings << command << request << code << reply << -1 << QByteArray();
}

inline void writeRow(const char* name, const QVariantMap& settings, int command, const QByteArray& request,
                     int readCommand, const QByteArray& readBack, int code = 0)
{
    QTest::newRow(name) << settings << command << request << code << request << readCommand << readBack;
}

// Runs the present row on a device of the model made from the row's settings.
inline void checkExchange(const QString& model, const QStringList& still)
{
    QFETCH(QVariantMap, settings);
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, code);
    QFETCH(QByteArray, reply);
    QFETCH(int, readCommand);
    QFETCH(QByteArray, readBack);

    auto device = make(model, settings, still);
    QVERIFY(device);
    if (code != 16)
        run(*device, 190, hx("00003039"));
    run(*device, 38); // the primary resets its configuration-changed flag
    const QVariantMap before = device->params();
    const Reply answer = run(*device, command, request);
    QCOMPARE(int(answer.code), code);
    QCOMPARE(answer.data.toHex(' '), reply.toHex(' '));
    if (readCommand < 0) {
        QCOMPARE(device->params(), before);
        QCOMPARE(status(*device, 0x40), 0);
        return;
    }
    QCOMPARE(device->param("modify_count").toInt(), before.value("modify_count").toInt() + 1);
    QCOMPARE(status(*device, 0x40), 0x40);
    QCOMPARE(run(*device, readCommand).data.toHex(' '), readBack.toHex(' '));
}

} // namespace simtest

#endif // SIMDEVICETESTUTIL_H
