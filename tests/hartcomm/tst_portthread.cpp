#include "hartcommand.h"
#include "portthread.h"
#include "simulatedline.h"

#include <QRegularExpression>
#include <QSerialPort>
#include <QtTest>

using hartsim::Fault;

Q_DECLARE_METATYPE(hartsim::Fault)

namespace {

QByteArray requestFor(int pollingAddress, int command)
{
    return HartCommand(nullptr, 5, quint8(pollingAddress), quint8(command), QByteArray(), true).ToByteArray();
}

Fault fault(Fault::Kind kind)
{
    Fault f;
    f.kind = kind;
    return f;
}

// One whole transaction, as HartPort runs it.
void run(PortThread& thread, const QString& port, const QByteArray& request, int responseTimeout = 370)
{
    thread.transaction(port, 200, responseTimeout, 50, request);
    thread.waitResponse();
}

} // namespace

class TestPortThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void openCloseAndFailure();
    void changeOfPortSendsNothing();
    void exchange_data();
    void exchange();
    void answerSplitAcrossTheByteTimeout();
    void responseTimeouts();
    void secondCallerWaitsForTheFirst();
    void lineThatVanishes();
    void deletedWhileRunning();

private:
    SimulatedLine m_sim;
};

void TestPortThread::init()
{
    QString error;
    QVERIFY2(
        m_sim.start({{"generic", {{"polling_address", 0}}}, {"generic", {{"polling_address", 1}, {"device_id", 2}}}},
                    &error),
        qPrintable(error));
}

void TestPortThread::cleanup()
{
    m_sim.stop();
}

void TestPortThread::openCloseAndFailure()
{
    PortThread thread;
    run(thread, m_sim.path(), QByteArray());
    QVERIFY(thread.isOpen());
    QCOMPARE(thread.result().error, 0);

    run(thread, QString(), QByteArray());
    QVERIFY(!thread.isOpen());
    QVERIFY(thread.isRunning()); // it sleeps on, for the next opening

    // A port that does not exist: the error of the port, and the thread ends.
    run(thread, QStringLiteral("/nonexistent/ttyHART"), QByteArray());
    QVERIFY(!thread.isOpen());
    QCOMPARE(thread.result().error, 1); // device not found
    QVERIFY(!thread.result().errorText.isEmpty());
    QVERIFY(thread.wait(2000));

    // The next transaction starts it anew.
    run(thread, m_sim.path(), QByteArray());
    QVERIFY(thread.isOpen());
    QCOMPARE(thread.result().error, 0);
    run(thread, m_sim.path(), requestFor(0, 1));
    QCOMPARE(thread.result().error, 0);
    QCOMPARE(thread.result().response, m_sim.record(1).answer);

    // Someone else holds the port: refused with the port's own error.
    PortThread second;
    run(second, m_sim.path(), QByteArray());
    QVERIFY(!second.isOpen());
    QCOMPARE(second.result().error, 2); // permission
}

void TestPortThread::changeOfPortSendsNothing()
{
    SimulatedLine other;
    QString error;
    QVERIFY2(other.start({{"generic", {{"polling_address", 0}}}}, &error), qPrintable(error));

    PortThread thread;
    run(thread, m_sim.path(), QByteArray());
    // The request that comes with a change of port is dropped.
    run(thread, other.path(), requestFor(0, 1));
    QVERIFY(thread.isOpen());
    QCOMPARE(thread.result().error, 0);
    QVERIFY(!other.line().waitForRequests(1, 300));
    QCOMPARE(m_sim.line().requestCount(), 0);
    // The same name again is no change: the request goes out.
    run(thread, other.path(), requestFor(0, 1));
    QCOMPARE(thread.result().response, other.record(1).answer);
    other.stop();
}

void TestPortThread::exchange_data()
{
    QTest::addColumn<Fault>("spoiler");
    QTest::addColumn<bool>("noisePrefix");

    QTest::newRow("plain answer") << fault(Fault::Delay) /* of 0 ms */ << false;
    Fault split = fault(Fault::Split);
    split.at = 9;
    split.pauseMs = 25;
    QTest::newRow("in two pieces, pause below the byte timeout") << split << false;
    Fault late = fault(Fault::Delay);
    late.delayMs = 250;
    QTest::newRow("late, within the response timeout") << late << false;
    Fault noise = fault(Fault::Noise);
    noise.noise = QByteArray::fromHex("00 3A 7E");
    QTest::newRow("noise ahead") << noise << true;
}

void TestPortThread::exchange()
{
    QFETCH(Fault, spoiler);
    QFETCH(bool, noisePrefix);

    m_sim.addFault(0, spoiler);
    // The modem's own timing, which the other tests leave out.
    PortThread::setModemTiming(PortThread::ModemCharacterUs, PortThread::ModemTurnaroundMs, 0, 0);
    PortThread thread;
    run(thread, m_sim.path(), QByteArray());
    run(thread, m_sim.path(), requestFor(0, 1));
    QCOMPARE(thread.result().error, 0);
    const hartsim::RequestRecord record = m_sim.record(1);
    QCOMPARE(record.raw, requestFor(0, 1));
    QCOMPARE(thread.result().response, record.answer);
    if (noisePrefix)
        QVERIFY(thread.result().response.startsWith(QByteArray::fromHex("00 3A 7E FF")));
    // The thread waits out the modem's sending time before it listens.
    QVERIFY(thread.result().txTime >= int(requestFor(0, 1).size() * 9.1525 + 50.0));
    PortThread::setModemTiming(0, 0, 0, 0);

    // The log lines: the time each direction took and the bytes.
    const QRegularExpression tx(QRegularExpression::anchoredPattern(
        QStringLiteral("\\d\\d:\\d\\d:\\d\\d\\.\\d{3} TX \\((\\d+) ms\\): ff ff ff ff ff 02 80 01 00 83")));
    const QRegularExpressionMatch txMatch = tx.match(thread.result().txLog);
    QVERIFY2(txMatch.hasMatch(), qPrintable(thread.result().txLog));
    QCOMPARE(txMatch.captured(1).toInt(), thread.result().txTime);
    const QString answer = QString::fromLatin1(record.answer.toHex(' '));
    QVERIFY2(thread.result().rxLog.endsWith(QStringLiteral(" RX (%1 ms): ").arg(thread.result().rxTime) + answer),
             qPrintable(thread.result().rxLog));
    // The frame ends with a pause of the byte timeout, which the time includes.
    QVERIFY(thread.result().rxTime >= 50);
}

void TestPortThread::answerSplitAcrossTheByteTimeout()
{
    // A pause longer than the byte timeout ends the frame: the answer comes
    // back cut, and its tail is stale by the next exchange.
    Fault split = fault(Fault::Split);
    split.at = 9;
    split.pauseMs = 400;
    split.count = 1;
    m_sim.addFault(0, split);
    PortThread thread;
    run(thread, m_sim.path(), QByteArray());
    run(thread, m_sim.path(), requestFor(0, 1));
    QCOMPARE(thread.result().error, 0);
    const QByteArray whole = m_sim.record(1).answer;
    QCOMPARE(thread.result().response, whole.left(9));

    run(thread, m_sim.path(), requestFor(1, 1));
    QCOMPARE(thread.result().error, 0);
    QCOMPARE(thread.result().response, m_sim.record(2).answer);
}

void TestPortThread::responseTimeouts()
{
    Fault silent = fault(Fault::NoAnswer);
    silent.count = 1;
    m_sim.addFault(0, silent);
    PortThread thread;
    run(thread, m_sim.path(), QByteArray());
    run(thread, m_sim.path(), requestFor(0, 1));
    QCOMPARE(thread.result().error, int(PortThread::TimeoutErrorCode));
    QCOMPARE(thread.result().errorText, QStringLiteral("Response timeout (370ms)"));
    QVERIFY(thread.isOpen());
    QVERIFY(!thread.result().txLog.isEmpty());
    QVERIFY(thread.result().rxLog.isEmpty());
    QVERIFY(thread.result().response.isEmpty()); // no good answer yet

    run(thread, m_sim.path(), requestFor(0, 1));
    QCOMPARE(thread.result().error, 0);
    const QByteArray good = thread.result().response;
    QCOMPARE(good, m_sim.record(2).answer);

    // An answer later than the response timeout: a failure, which keeps the
    // last good answer. The late answer arrives while nobody listens and is
    // stale by the next exchange.
    Fault late = fault(Fault::Delay);
    late.delayMs = 500;
    late.count = 1;
    m_sim.addFault(0, late);
    run(thread, m_sim.path(), requestFor(0, 2), 100);
    QCOMPARE(thread.result().error, int(PortThread::TimeoutErrorCode));
    QCOMPARE(thread.result().errorText, QStringLiteral("Response timeout (100ms)"));
    QCOMPARE(thread.result().response, good);
    QTest::qWait(600);
    run(thread, m_sim.path(), requestFor(1, 2));
    QCOMPARE(thread.result().error, 0);
    const hartsim::RequestRecord record = m_sim.record(4);
    QCOMPARE(record.command, quint8(2));
    QCOMPARE(thread.result().response, record.answer);
}

void TestPortThread::secondCallerWaitsForTheFirst()
{
    PortThread thread;
    run(thread, m_sim.path(), QByteArray());
    Fault late = fault(Fault::Delay);
    late.delayMs = 150;
    m_sim.addFault(0, late);

    QByteArray first, second;
    QThread* other = QThread::create([&] {
        thread.transaction(m_sim.path(), 200, 370, 50, requestFor(0, 1));
        thread.waitResponse();
        first = thread.result().response;
    });
    other->start();
    QVERIFY(m_sim.line().waitForRequests(1, 2000));
    run(thread, m_sim.path(), requestFor(1, 2));
    second = thread.result().response;
    QVERIFY(other->wait(5000));
    delete other;

    QCOMPARE(m_sim.record(1).raw, requestFor(0, 1));
    QCOMPARE(m_sim.record(2).raw, requestFor(1, 2));
    QCOMPARE(m_sim.line().requestCount(), 2);
    QCOMPARE(first, m_sim.record(1).answer);
    QCOMPARE(second, m_sim.record(2).answer);
    QCOMPARE(m_sim.line().droppedTotal(), 0);
}

void TestPortThread::lineThatVanishes()
{
    PortThread thread;
    run(thread, m_sim.path(), QByteArray());
    m_sim.stop();
    run(thread, m_sim.path(), requestFor(0, 1));
    // The line is gone, not merely silent; the port is closed for a new start.
    QVERIFY(thread.result().error == 7 || thread.result().error == 8 || thread.result().error == 9);
    QVERIFY(!thread.result().errorText.isEmpty());
    QVERIFY(!thread.isOpen());
}

void TestPortThread::deletedWhileRunning()
{
    auto* thread = new PortThread;
    run(*thread, m_sim.path(), QByteArray());
    run(*thread, m_sim.path(), requestFor(0, 1));
    QVERIFY(thread->isRunning());
    delete thread;
    // The line is free again for another master.
    PortThread next;
    run(next, m_sim.path(), QByteArray());
    QVERIFY(next.isOpen());
}

QTEST_GUILESS_MAIN(TestPortThread)
#include "tst_portthread.moc"
