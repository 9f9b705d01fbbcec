#include "debugqt.h"
#include "device.h"
#include "modelline.h"
#include "periodthread33.h"

#include <QSignalSpy>
#include <QtTest>

using hartsim::Fault;

namespace {

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

class TestPeriodThread33 : public QObject
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
        QTest::addColumn<QList<int>>("codes");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QVariantList>("units"); // of the four slots; none for a slot not read

        // A code of 250 is not used and stays out of the request.
        QTest::newRow("pH meter, three codes")
            << 2 << QList<int>{1, 4, 6, 250} << QByteArray::fromHex("010406") << QVariantList{32, 36, 59, QVariant()};
        QTest::newRow("pH meter, four codes")
            << 2 << QList<int>{0, 1, 2, 3} << QByteArray::fromHex("00010203") << QVariantList{59, 32, 36, 36};
        QTest::newRow("generic") << 3 << QList<int>{3, 2, 1, 0} << QByteArray::fromHex("03020100")
                                 << QVariantList{57, 19, 32, 12};
    }

    void goodMaps()
    {
        QFETCH(int, address);
        QFETCH(QList<int>, codes);
        QFETCH(QVariantList, units);

        Device* d = device(address);
        QVERIFY(d);
        PeriodThread33 thread;
        QSignalSpy maps(&thread, &PeriodThread33::responsePeriodThrd33);
        thread.setDevice(d, 20, codes[0], codes[1], codes[2], codes[3]);
        QVERIFY(d->deviceTagState() & Device::TagStatePolled);
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 2, 20000);
        thread.stopThread();
        QVERIFY(!thread.isRunning());
        QCOMPARE(d->deviceTagState() & Device::TagStatePolled, 0);

        for (int slot = 0; slot < 4; ++slot)
            QCOMPARE(d->getDeviceInfo(QStringLiteral("slot_%1_code").arg(slot)).toInt(), codes[slot]);
        QStringList keys = {"statusCode", "statusText"};
        for (int slot = 0; slot < 4; ++slot)
            keys << QStringLiteral("slot_%1_value").arg(slot) << QStringLiteral("slot_%1_unit_code").arg(slot);
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

    void failedCycles_data()
    {
        QTest::addColumn<QList<int>>("codes");
        QTest::addColumn<bool>("answered");
        QTest::addColumn<QString>("statusCode");
        QTest::addColumn<QString>("errorPart");

        QTest::newRow("no answer") << QList<int>{1, 4, 6, 250} << false << "" << QString("Response timeout");
        QTest::newRow("variable the device lacks") << QList<int>{9, 250, 250, 250} << true << "02 00"
                                                   << QString("Command error (error code 2): \n*** wrong choice");
        QTest::newRow("no variable chosen") << QList<int>{250, 250, 250, 250} << true << "05 00"
                                            << QString("\n*** too few data bytes have been received");
    }

    void failedCycles()
    {
        QFETCH(QList<int>, codes);
        QFETCH(bool, answered);
        QFETCH(QString, statusCode);
        QFETCH(QString, errorPart);

        Device* d = device(2);
        QVERIFY(d);
        if (!answered) {
            Fault fault;
            fault.kind = Fault::NoAnswer;
            fault.command = 33;
            m_line.sim().addFault(2, fault);
        }
        PeriodThread33 thread;
        QSignalSpy maps(&thread, &PeriodThread33::responsePeriodThrd33);
        thread.setDevice(d, 20, codes[0], codes[1], codes[2], codes[3]);
        QTRY_VERIFY_WITH_TIMEOUT(maps.count() >= 2, 20000);
        thread.stopThread();

        const QVariantMap map = maps.at(0).at(0).toMap();
        QCOMPARE(sorted(map.keys()), sorted({"slot_0_value", "statusCode", "errorText"}));
        QCOMPARE(map.value("slot_0_value").typeId(), int(QMetaType::Double));
        QCOMPARE(map.value("slot_0_value").toDouble(), 0.0);
        QCOMPARE(map.value("statusCode").toString(), statusCode);
        const QString error = map.value("errorText").toString();
        QVERIFY2(error.contains(errorPart), qPrintable(error));
        QCOMPARE(error.count("***"), error.count("\n***"));
    }
};

QTEST_GUILESS_MAIN(TestPeriodThread33)
#include "tst_periodthread33.moc"
