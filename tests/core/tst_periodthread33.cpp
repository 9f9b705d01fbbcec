#include "debugqt.h"
#include "device.h"
#include "modelline.h"
#include "periodthread33.h"

#include <QSignalSpy>
#include <QtTest>

class TestPeriodThread33 : public QObject
{
    Q_OBJECT

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
        // "units" of the four slots: none for a slot not read.
        addColumns<int, QList<int>, QByteArray, QVariantList>({"address", "codes", "request", "units"});
        // A code of 250 is not used and stays out of the request.
        QTest::newRow("pH meter, three codes")
            << 2 << QList<int>{1, 4, 6, 250} << hx("010406") << QVariantList{32, 36, 59, QVariant()};
        QTest::newRow("pH meter, four codes")
            << 2 << QList<int>{0, 1, 2, 3} << hx("00010203") << QVariantList{59, 32, 36, 36};
        QTest::newRow("generic") << 3 << QList<int>{3, 2, 1, 0} << hx("03020100") << QVariantList{57, 19, 32, 12};
    }

    void goodMaps()
    {
        QFETCH(int, address);
        QFETCH(QList<int>, codes);
        QFETCH(QVariantList, units);

        Device* d = m_line.identifyAndClearLog(QStringLiteral("Custom"), address);
        QVERIFY(d);
        PeriodThread33 thread;
        QSignalSpy maps(&thread, &PeriodThread33::responsePeriodThrd33);
        thread.setDevice(d, 20, codes[0], codes[1], codes[2], codes[3]);
        QVERIFY(d->deviceTagState() & Device::TagStatePolled);
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 2, 20000);
        thread.stopThread();
        QVERIFY(!thread.isRunning());
        QCOMPARE(d->deviceTagState() & Device::TagStatePolled, 0);

        QStringList keys = {"statusCode", "statusText"};
        for (int slot = 0; slot < 4; ++slot) {
            QCOMPARE(d->getDeviceInfo(QStringLiteral("slot_%1_code").arg(slot)).toInt(), codes[slot]);
            keys << QStringLiteral("slot_%1_value").arg(slot) << QStringLiteral("slot_%1_unit_code").arg(slot);
        }
        for (const QList<QVariant>& signal : maps) {
            const QVariantMap map = signal.at(0).toMap();
            QCOMPARE(sorted(map.keys()), sorted(keys));
            QCOMPARE(map.value("statusCode").toString(), QStringLiteral("00 00"));
            for (int slot = 0; slot < 4; ++slot) {
                const QVariant value = map.value(QStringLiteral("slot_%1_value").arg(slot));
                QCOMPARE(map.value(QStringLiteral("slot_%1_unit_code").arg(slot)), units[slot]);
                QCOMPARE(value.typeId(), units[slot].isValid() ? int(QMetaType::Float) : int(QMetaType::UnknownType));
            }
        }
        const QList<hartsim::RequestRecord> log = m_line.sim().line().requests();
        QVERIFY(log.size() >= 2);
        for (const hartsim::RequestRecord& record : log) {
            QCOMPARE(int(record.command), 33);
            QTEST(record.data, "request");
        }
    }

    void failedCycles()
    {
        // A variable the device lacks: every cycle fails, and polling goes on.
        Device* d = m_line.identifyAndClearLog(QStringLiteral("Custom"), 2);
        QVERIFY(d);
        PeriodThread33 thread;
        QSignalSpy maps(&thread, &PeriodThread33::responsePeriodThrd33);
        thread.setDevice(d, 20, 9, 250, 250, 250);
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 2, 20000);
        thread.stopThread();

        // Every "***" of the error starts a line of its own.
        const QVariantMap map = maps.at(0).at(0).toMap();
        QCOMPARE(sorted(map.keys()), sorted({"slot_0_value", "statusCode", "errorText"}));
        VERIFY_NO_MISMATCH(mismatches(map, {{"slot_0_value", 0.0},
                                            {"statusCode", "02 00"},
                                            {"errorText", "Command error (error code 2): \n*** wrong choice"}}));
    }
};

QTEST_GUILESS_MAIN(TestPeriodThread33)
#include "tst_periodthread33.moc"
