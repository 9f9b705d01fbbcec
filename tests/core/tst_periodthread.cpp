#include "debugqt.h"
#include "device.h"
#include "modelline.h"
#include "periodthread.h"
#include "periodthread33.h"

#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

using hartsim::Fault;

namespace {

// The keys of a good map with these variables after PV.
QStringList goodKeys(const QString& variables)
{
    QStringList keys = {"PV", "PVUnitCodeText", "output_current", "DateTime", "statusCode", "statusText"};
    for (const QString& v : variables.split(' ', Qt::SkipEmptyParts))
        keys << v << v + "UnitCodeText";
    return sorted(keys);
}

QVariantMap mapOf(const QList<QVariant>& signal)
{
    return signal.at(0).toMap();
}

} // namespace

class TestPeriodThread : public QObject
{
    Q_OBJECT

    ModelLine m_line;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init() { QVERIFY(m_line.start()); }
    void cleanup() { m_line.stop(); }

    void goodMaps_data()
    {
        // "changes" go to the simulator after the first map; "first" and "last"
        // are the variables after PV before and after them; "status" is
        // "statusCode|statusText" of the last map.
        addColumns<int, QVariantMap, QString, QString, QString>({"address", "changes", "first", "last", "status"});
        const auto row = [](const char* name, int address, const char* changes, const char* first, const char* last,
                            const char* status) {
            QTest::newRow(name) << address << vmap(changes) << QString(first) << QString(last) << QString(status);
        };
        row("pressure converter, no QV", 1, "", "SV TV", "SV TV", "00 00|");
        // Command 3 answers only up to the first variable not assigned.
        row("SV no longer delivered", 3, "SV_dev_variable_code=250", "SV TV QV", "", "00 00|");
        row("SV of unit 250", 3, "var_1_unit=250", "SV TV QV", "TV QV", "00 00|");
        // Loop current fixed (0x08) and SV out of its limits (0x02).
        row("device status", 3, "fixed_current=12.0; var_1_value=200.0", "SV TV QV", "SV TV QV",
            "00 0A|*** Analogue output fixed\n*** Non-primary variable out of limits");
    }

    void goodMaps()
    {
        QFETCH(int, address);
        QFETCH(QVariantMap, changes);
        QFETCH(QString, first);
        QFETCH(QString, last);

        Device* d = m_line.identifyAndClearLog(QStringLiteral("Custom"), address);
        QVERIFY(d);
        PeriodThread thread;
        QSignalSpy maps(&thread, &PeriodThread::responsePV);
        const QDateTime begin = QDateTime::currentDateTime();
        thread.setDevice(d, 20);
        QTRY_VERIFY_WITH_TIMEOUT(!maps.isEmpty(), 10000);
        m_line.sim.setParams(address, changes);
        // The cycle under way may have started before the change.
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 3, 10000);
        thread.stopThread();

        const QVariantMap map = mapOf(maps.last());
        for (const auto& [each, variables] : {qMakePair(mapOf(maps.first()), first), qMakePair(map, last)}) {
            QCOMPARE(sorted(each.keys()), goodKeys(variables));
            QCOMPARE(each.value("PVUnitCodeText").toString(), QStringLiteral("kPa"));
            QCOMPARE(each.value("PV").typeId(), int(QMetaType::Float));
            const QDateTime time = each.value("DateTime").toDateTime();
            QVERIFY(time >= begin && time <= QDateTime::currentDateTime());
        }
        QTEST(map.value("statusCode").toString() + '|' + map.value("statusText").toString(), "status");
        // The last map holds what the device keeps from the last read.
        QCOMPARE(map.value("PV"), d->getDeviceInfo("PV"));
        QCOMPARE(map.value("output_current"), d->getDeviceInfo("output_current"));
        // One command 3 for each map, and one more when stopThread dropped a result.
        int polls = 0;
        for (const hartsim::RequestRecord& record : m_line.sim.line().requests())
            polls += record.command == 3 ? 1 : 0;
        QVERIFY2(polls == maps.count() || polls == maps.count() + 1, qPrintable(QString::number(polls)));
    }

    void failedCycles()
    {
        Device* d = m_line.identifyAndClearLog(QStringLiteral("Custom"), 3);
        QVERIFY(d);
        // Good first: the failure map then shows the current of the last good read.
        QVERIFY(d->readDevice(3));
        const QVariant current = d->getDeviceInfo("output_current");
        QVERIFY(current.toFloat() > 3.9f);
        const int faultId = m_line.sim.addFault(3, fault(Fault::BadChecksum, 3));

        PeriodThread thread;
        QSignalSpy maps(&thread, &PeriodThread::responsePV);
        thread.setDevice(d, 20);
        // A failure does not stop the polling.
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 2, 20000);
        QVERIFY(m_line.sim.line().removeFault(faultId));
        // The cycle under way may still fail; the one after it is good.
        const int failed = int(maps.count());
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= failed + 2, 20000);
        thread.stopThread();
        QVERIFY(mapOf(maps.last()).contains("statusText"));

        // Every "***" of the error starts a line of its own.
        const QVariantMap map = mapOf(maps.first());
        QCOMPARE(sorted(map.keys()), sorted({"PV", "output_current", "DateTime", "statusCode", "errorText"}));
        VERIFY_NO_MISMATCH(
            mismatches(map, {{"PV", 0.0},
                             {"output_current", current},
                             {"errorText", "Response command parsing error: \n*** Checksum is wrong!"}}));
    }

    void startRetargetAndStop()
    {
        Device* d = m_line.identifyAndClearLog(QStringLiteral("Custom"), 3);
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
        QCOMPARE(m_line.sim.line().requestCount(), 2);
        // A stopped thread starts again.
        thread.setDevice(d, 60000);
        QTRY_COMPARE_WITH_TIMEOUT(maps.count(), 3, 10000);
    }

    void failedSlotCycles()
    {
        // A variable the device lacks: every cycle fails, and polling goes on.
        Device* d = m_line.identifyAndClearLog(QStringLiteral("Custom"), 2);
        QVERIFY(d);
        PeriodThread33 thread;
        QSignalSpy maps(&thread, &PeriodThread33::responsePeriodThrd33);
        thread.setDevice(d, 20, 9, 250, 250, 250);
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 2, 20000);
        thread.stopThread();
        // A code of 250 is not used and stays out of the request.
        QCOMPARE(m_line.sim.record(1).data, hx("09"));

        // Every "***" of the error starts a line of its own.
        const QVariantMap map = mapOf(maps.first());
        QCOMPARE(sorted(map.keys()), sorted({"slot_0_value", "statusCode", "errorText"}));
        VERIFY_NO_MISMATCH(mismatches(map, {{"slot_0_value", 0.0},
                                            {"statusCode", "02 00"},
                                            {"errorText", "Command error (error code 2): \n*** wrong choice"}}));
    }
};

QTEST_GUILESS_MAIN(TestPeriodThread)
#include "tst_periodthread.moc"
