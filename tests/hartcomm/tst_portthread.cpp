#include "hartcommand.h"
#include "portthread.h"
#include "simulatedline.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include <unistd.h>

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

void run(PortThread& thread, const QString& port, const QByteArray& request)
{
    thread.transaction(port, 200, 370, 50, request);
    thread.waitResponse();
}

} // namespace

class TestPortThread : public QObject
{
    Q_OBJECT

    SimulatedLine m_sim;

private slots:
    void init()
    {
        QString error;
        QVERIFY2(m_sim.start({{"generic", {{"polling_address", 0}}}}, &error), qPrintable(error));
    }

    void cleanup() { m_sim.stop(); }

    // A device file closed to the user names the group that owns serial ports.
    void closedPort()
    {
        const QString path = m_sim.path();
        const QFile::Permissions permissions = QFile::permissions(path);
        const bool root = geteuid() == 0;
        QVERIFY(QFile::setPermissions(path, root ? QFile::ReadOwner | QFile::WriteOwner : QFile::Permissions()));
        QVERIFY(!root || seteuid(65534) == 0); // root opens anything
        PortThread thread;
        run(thread, path, QByteArray());
        QVERIFY(!root || seteuid(0) == 0);
        QFile::setPermissions(path, permissions);
        QCOMPARE(thread.result().error, 2);
        QVERIFY2(thread.result().errorText.contains("\"dialout\"") && thread.result().errorText.contains(path),
                 qPrintable(thread.result().errorText));
    }

    void openCloseAndFailure()
    {
        QScopedPointer<PortThread> owner(new PortThread);
        PortThread& thread = *owner;
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

        // The next transaction starts it anew. An answer later than the response
        // timeout fails its exchange, and is stale by the next one.
        run(thread, m_sim.path(), QByteArray());
        QVERIFY(thread.isOpen());
        QCOMPARE(thread.result().error, 0);
        Fault late = fault(Fault::Delay);
        late.delayMs = 500;
        late.count = 1;
        m_sim.addFault(0, late);
        thread.transaction(m_sim.path(), 200, 100, 50, requestFor(0, 2));
        thread.waitResponse();
        QCOMPARE(thread.result().errorText, QStringLiteral("Response timeout (100ms)"));
        QVERIFY(m_sim.line().waitForRequests(1, 2000));
        run(thread, m_sim.path(), requestFor(0, 1));
        QCOMPARE(thread.result().error, 0);
        QCOMPARE(thread.result().response, m_sim.record(2).answer);
        QCOMPARE(m_sim.line().droppedTotal(), 0);

        // Someone else holds the port: refused with the port's own error,
        // not the advice on the group.
        PortThread second;
        run(second, m_sim.path(), QByteArray());
        QVERIFY(!second.isOpen());
        QCOMPARE(second.result().error, 2); // permission
        QVERIFY(!second.result().errorText.contains("dialout"));
        // Deleted while it runs, the thread frees the line for another master.
        QVERIFY(thread.isRunning());
        owner.reset();
        run(second, m_sim.path(), QByteArray());
        QVERIFY(second.isOpen());
    }

    void exchange_data()
    {
        QTest::addColumn<Fault>("spoiler");

        QTest::newRow("plain answer") << fault(Fault::Delay) /* of 0 ms */;
        Fault split = fault(Fault::Split);
        split.at = 9;
        split.pauseMs = 25;
        QTest::newRow("in two pieces, pause below the byte timeout") << split;
    }

    void exchange()
    {
        QFETCH(Fault, spoiler);

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

    void lineThatVanishes()
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
};

QTEST_GUILESS_MAIN(TestPortThread)
#include "tst_portthread.moc"
