#include "debugqt.h"
#include "device.h"
#include "modelline.h"
#include "periodthread.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

using hartsim::Fault;

namespace {

// The keys of a good map besides those of the variables.
const QStringList GoodKeys = {"PV", "PVUnitCodeText", "output_current", "DateTime", "statusCode", "statusText"};

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

QStringList goodKeys(const QStringList& variables)
{
    QStringList keys = GoodKeys;
    for (const QString& v : variables)
        keys << v << v + "UnitCodeText";
    return sorted(keys);
}

Fault fault(Fault::Kind kind, int command, int delayMs = 0)
{
    Fault f;
    f.kind = kind;
    f.command = command;
    f.delayMs = delayMs;
    return f;
}

QVariantMap mapAt(const QSignalSpy& spy, int index)
{
    return spy.at(index).at(0).toMap();
}

} // namespace

class TestPeriodThread : public QObject
{
    Q_OBJECT

    Device* device(int pollingAddress)
    {
        // Identified, with the line's log cleared of the identification.
        Device* d = m_line.identify(QStringLiteral("Custom"), pollingAddress);
        m_line.sim().line().clearLog();
        return d;
    }

    ModelLine m_line;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init()
    {
        QString error;
        QVERIFY2(m_line.start(&error), qPrintable(error));
    }

    void cleanup() { m_line.stop(); }

    void goodMaps_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<QVariantMap>("changes"); // in the simulator after the first map
        QTest::addColumn<QString>("first");       // the variables after PV, before the change
        QTest::addColumn<QString>("last");        // and after it
        QTest::addColumn<QString>("unit");
        QTest::addColumn<QString>("status"); // "statusCode|statusText" of the last map

        const QVariantMap none;
        QTest::newRow("temperature converter")
            << 0 << none << "SV TV QV" << QString("SV TV QV") << "°C" << QString("00 00|");
        QTest::newRow("pressure converter, no QV")
            << 1 << none << "SV TV" << QString("SV TV") << "kPa" << QString("00 00|");
        QTest::newRow("pH meter") << 2 << none << "SV TV QV" << QString("SV TV QV") << "pH" << QString("00 00|");
        // Command 3 answers only up to the first variable not assigned.
        QTest::newRow("SV no longer delivered") << 3 << QVariantMap{{"SV_dev_variable_code", 250}} << "SV TV QV"
                                                << QString("") << "kPa" << QString("00 00|");
        QTest::newRow("SV of unit 250") << 3 << QVariantMap{{"var_1_unit", 250}} << "SV TV QV" << QString("TV QV")
                                        << "kPa" << QString("00 00|");
        // Loop current fixed (0x08) and SV out of its limits (0x02).
        QTest::newRow("device status")
            << 3 << QVariantMap{{"fixed_current", 12.0}, {"var_1_value", 200.0}} << "SV TV QV" << QString("SV TV QV")
            << "kPa" << QString("00 0A|*** Analogue output fixed\n*** Non-primary variable out of limits");
    }

    void goodMaps()
    {
        QFETCH(int, address);
        QFETCH(QVariantMap, changes);
        QFETCH(QString, first);
        QFETCH(QString, last);

        Device* d = device(address);
        QVERIFY(d);
        PeriodThread thread;
        QSignalSpy maps(&thread, &PeriodThread::responsePV);
        const QDateTime begin = QDateTime::currentDateTime();
        thread.setDevice(d, 20);
        QTRY_VERIFY_WITH_TIMEOUT(!maps.isEmpty(), 10000);
        for (auto it = changes.constBegin(); it != changes.constEnd(); ++it)
            m_line.sim().setParam(address, it.key(), it.value());
        // The cycle under way may have started before the change.
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 3, 10000);
        thread.stopThread();

        for (const QString& variables : {first, last}) {
            const QVariantMap map = mapAt(maps, variables == first ? 0 : int(maps.count()) - 1);
            QCOMPARE(sorted(map.keys()), goodKeys(variables.split(' ', Qt::SkipEmptyParts)));
            QTEST(map.value("PVUnitCodeText").toString(), "unit");
            QCOMPARE(map.value("PV").typeId(), int(QMetaType::Float));
            const QDateTime time = map.value("DateTime").toDateTime();
            QVERIFY(time >= begin && time <= QDateTime::currentDateTime());
        }
        const QVariantMap map = mapAt(maps, int(maps.count()) - 1);
        QTEST(map.value("statusCode").toString() + '|' + map.value("statusText").toString(), "status");
        // The last map holds what the device keeps from the last read.
        QCOMPARE(map.value("PV"), d->getDeviceInfo("PV"));
        QCOMPARE(map.value("output_current"), d->getDeviceInfo("output_current"));
        // One command 3 for each map, and one more when stopThread dropped a result.
        int polls = 0;
        for (const hartsim::RequestRecord& record : m_line.sim().line().requests())
            polls += record.command == 3 ? 1 : 0;
        QVERIFY2(polls == maps.count() || polls == maps.count() + 1, qPrintable(QString::number(polls)));
    }

    void failedCycles_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("errorPart");

        QTest::newRow("no answer") << int(Fault::NoAnswer) << "Response timeout";
        QTest::newRow("bad checksum") << int(Fault::BadChecksum) << "\n*** Checksum is wrong!";
    }

    void failedCycles()
    {
        QFETCH(int, kind);
        QFETCH(QString, errorPart);

        Device* d = device(3);
        QVERIFY(d);
        // Good first: the failure map then shows the current of the last good read.
        QVERIFY(d->readDevice(3));
        const QVariant current = d->getDeviceInfo("output_current");
        QVERIFY(current.toFloat() > 3.9f);
        const int faultId = m_line.sim().addFault(3, fault(Fault::Kind(kind), 3));

        PeriodThread thread;
        QSignalSpy maps(&thread, &PeriodThread::responsePV);
        thread.setDevice(d, 20);
        // A failure does not stop the polling.
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 2, 20000);
        QVERIFY(m_line.sim().line().removeFault(faultId));
        // The cycle under way may still fail; the one after it is good.
        const int failed = int(maps.count());
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= failed + 2, 20000);
        thread.stopThread();
        QVERIFY(mapAt(maps, int(maps.count()) - 1).contains("statusText"));

        const QVariantMap map = mapAt(maps, 0);
        QCOMPARE(sorted(map.keys()), sorted({"PV", "output_current", "DateTime", "statusCode", "errorText"}));
        QCOMPARE(map.value("PV").typeId(), int(QMetaType::Double));
        QCOMPARE(map.value("PV").toDouble(), 0.0);
        QCOMPARE(map.value("output_current"), current);
        const QString error = map.value("errorText").toString();
        QVERIFY2(error.contains(errorPart), qPrintable(error));
        // Every "***" starts a line of its own.
        QCOMPARE(error.count("***"), error.count("\n***"));
    }

    void slowDevice()
    {
        Device* d = device(3);
        QVERIFY(d);
        m_line.port()->hart().setResponseTimeout(3000);
        const int exchangeMs = 200;
        m_line.sim().addFault(3, fault(Fault::Delay, 3, exchangeMs));

        PeriodThread thread;
        QSignalSpy maps(&thread, &PeriodThread::responsePV);
        auto* timer = thread.findChild<QTimer*>();
        QVERIFY(timer);
        QSignalSpy ticks(timer, &QTimer::timeout);
        QElapsedTimer clock;
        clock.start();
        thread.setDevice(d, 40);
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 3, 30000);
        // Cycles follow the exchanges, not the ticks.
        const int requests = m_line.sim().line().requestCount();
        QVERIFY2(requests <= clock.elapsed() / exchangeMs + 1, qPrintable(QString::number(requests)));
        QVERIFY(ticks.count() > requests);
        // Without further ticks the cycle under way is the last: no tick is
        // queued behind it.
        timer->stop();
        maps.wait(2 * exchangeMs + 500);
        const int last = int(maps.count());
        QVERIFY(!maps.wait(3 * exchangeMs));
        QCOMPARE(m_line.sim().line().requestCount(), last);

        // stopThread during an exchange waits for its end and drops its map.
        thread.setDevice(d, 60000);
        QTRY_COMPARE_WITH_TIMEOUT(m_line.port()->semaphore().available(), 0, 5000);
        QVERIFY(!d->hasDeviceInfoParam("PV"));
        thread.stopThread();
        QVERIFY(!thread.isRunning());
        QVERIFY(d->hasDeviceInfoParam("PV"));
        QVERIFY(!maps.wait(200));
        QCOMPARE(maps.count(), last);
    }

    void startRetargetAndStop()
    {
        Device* d = device(3);
        QVERIFY(d);
        PeriodThread thread;
        QSignalSpy maps(&thread, &PeriodThread::responsePV);
        auto* timer = thread.findChild<QTimer*>();
        QVERIFY(timer);

        // A thread never started: stop does nothing, the mark stays.
        d->setDeviceTagState(Device::TagStateRead | Device::TagStatePolled);
        thread.stopThread();
        QCOMPARE(d->deviceTagState(), Device::TagStateRead | Device::TagStatePolled);
        d->setDeviceTagState(Device::TagStateRead);
        // Bad input is refused and starts nothing.
        thread.setDevice(nullptr, 1000);
        thread.setDevice(d, 0);
        QVERIFY(!thread.isRunning());
        QCOMPARE(d->deviceTagState(), int(Device::TagStateRead));

        // One cycle at once, long before the first tick; the device is marked.
        thread.setDevice(d, 60000);
        QVERIFY(d->deviceTagState() & Device::TagStatePolled);
        QTRY_COMPARE_WITH_TIMEOUT(maps.count(), 1, 10000);
        // A new period on the running thread: one more cycle at once.
        thread.setDevice(d, 50000);
        QTRY_COMPARE_WITH_TIMEOUT(maps.count(), 2, 10000);
        QCOMPARE(timer->interval(), 50000);
        QVERIFY(timer->isActive());
        thread.stopThread();
        QVERIFY(!timer->isActive());
        QCOMPARE(d->deviceTagState(), int(Device::TagStateRead));
        QCOMPARE(maps.count(), 2);
        QCOMPARE(m_line.sim().line().requestCount(), 2);
        // A stopped thread starts again.
        thread.setDevice(d, 60000);
        QTRY_COMPARE_WITH_TIMEOUT(maps.count(), 3, 10000);
    }
};

QTEST_GUILESS_MAIN(TestPeriodThread)
#include "tst_periodthread.moc"
