#ifndef SIMDEVICETESTUTIL_H
#define SIMDEVICETESTUTIL_H

// Shared by the simulator's own device tests: byte helpers, devices whose
// process values stand still, one table of requests with the answer each must
// get, and the check of the access code.

#include "datacodec.h"
#include "simdevice.h"

#include <QtTest>

#include <cmath>
#include <memory>

namespace simtest {

using hartsim::DataCodec;
using hartsim::Master;
using hartsim::Reply;
using hartsim::SimDevice;
using Requests = QList<QPair<int, QByteArray>>;

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

inline float floatAt(const QByteArray& data, int offset)
{
    return DataCodec::getFloat(data, offset);
}

// A device of the model; each setting named in still is 0 unless given.
inline std::unique_ptr<SimDevice> make(const QString& model, QVariantMap settings, const QStringList& still)
{
    for (const QString& key : still)
        if (!settings.contains(key))
            settings.insert(key, 0.0);
    QString error;
    auto device = SimDevice::create(model, settings, &error);
    if (!device)
        qWarning("%s", qPrintable(error));
    return device;
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

inline float pv(SimDevice& device)
{
    return floatAt(run(device, 1).data, 1);
}

// One device variable through command 33; NaN when the device refuses it.
inline float variable(SimDevice& device, int code)
{
    const Reply reply = run(device, 33, QByteArray(1, char(code)));
    return reply.data.size() == 6 ? floatAt(reply.data, 2) : std::nanf("");
}

inline int status(SimDevice& device, int bits, Master master = Master::Primary)
{
    return device.deviceStatus(master) & bits;
}

#define QVERIFY_NEAR(actual, expected, tolerance)                                                                      \
    do {                                                                                                               \
        const double a_ = (actual);                                                                                    \
        QVERIFY2(std::fabs(a_ - double(expected)) <= (tolerance),                                                      \
                 qPrintable(QStringLiteral("%1, expected %2").arg(a_, 0, 'f', 6).arg(double(expected), 0, 'f', 6)));   \
    } while (false)

// The table of requests: a row made by readRow or refusalRow must change no
// parameter and raise no configuration-changed flag; a writeRow is echoed,
// counted as one change, and readCommand then answers readBack.
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

inline void readRow(const char* name, const QVariantMap& settings, int command, const QByteArray& reply,
                    const QByteArray& request = QByteArray(), int code = 0)
{
    QTest::newRow(name) << settings << command << request << code << reply << -1 << QByteArray();
}

inline void refusalRow(const char* name, const QVariantMap& settings, int command, const QByteArray& request, int code)
{
    readRow(name, settings, command, QByteArray(), request, code);
}

inline void writeRow(const char* name, const QVariantMap& settings, int command, const QByteArray& request,
                     int readCommand, const QByteArray& readBack, int code = 0)
{
    QTest::newRow(name) << settings << command << request << code << request << readCommand << readBack;
}

// Runs the present row on a device the test made from the row's settings.
inline void checkExchange(SimDevice& device)
{
    QFETCH(int, command);
    QFETCH(QByteArray, request);
    QFETCH(int, code);
    QFETCH(QByteArray, reply);
    QFETCH(int, readCommand);
    QFETCH(QByteArray, readBack);

    run(device, 38); // the primary resets its configuration-changed flag
    QCOMPARE(status(device, 0x40), 0);
    const QVariantMap before = device.params();
    const Reply answer = run(device, command, request);
    QVERIFY(!answer.silent);
    QCOMPARE(int(answer.code), code);
    QCOMPARE(answer.data.toHex(' '), reply.toHex(' '));
    if (readCommand < 0) {
        QCOMPARE(device.params(), before);
        QCOMPARE(status(device, 0x40), 0);
        return;
    }
    QCOMPARE(device.param("modify_count").toInt(), before.value("modify_count").toInt() + 1);
    QCOMPARE(status(device, 0x40), 0x40);
    QCOMPARE(run(device, readCommand).data.toHex(' '), readBack.toHex(' '));
}

// Each protected request is refused with 16 while access is closed, also
// after a wrong code, and taken once the code opens it; the open requests
// are taken with access closed.
inline void checkAccess(SimDevice& device, const Requests& protectedRequests, const Requests& openRequests)
{
    for (const auto& [command, request] : openRequests)
        QVERIFY2(code(device, command, request) == 0, qPrintable(QString::number(command)));
    for (const auto& [command, request] : protectedRequests)
        QVERIFY2(code(device, command, request) == 16, qPrintable(QString::number(command)));
    QCOMPARE(code(device, 190, hx("00003038")), 16);
    QCOMPARE(code(device, protectedRequests.first().first, protectedRequests.first().second), 16);
    QVERIFY(openAccess(device));
    for (const auto& [command, request] : protectedRequests)
        QVERIFY2(code(device, command, request) != 16, qPrintable(QString::number(command)));
}

} // namespace simtest

#endif // SIMDEVICETESTUTIL_H
