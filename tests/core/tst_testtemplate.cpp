#include "debugqt.h"
#include "scratchdir.h"
#include "testtemplate.h"

#include <QtTest>

class TestTestTemplate : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.enter());
        DebugQt::instance(0, nullptr);
    }

    void check_data()
    {
        QTest::addColumn<QByteArray>("commands");
        QTest::addColumn<QString>("error"); // a part of the reason; empty: accepted

        // Each number at its maximum, and a second command without cycles.
        QTest::newRow("good") << QByteArray(R"([{"number": 255, "parameters": {"polling_address": [1, 2, 0]},
                                                 "cycles": 10000, "read_cmd": 255, "delay": 60000, "read_delay": 60000,
                                                 "print": ["tag"], "close_port": true}, {"number": 0}])")
                              << QString();
        QTest::newRow("syntax") << QByteArray("[{\"number\": 1,}]") << "line 2: ";
        QTest::newRow("commands a text") << QByteArray("\"1, 2\"") << "\"commands\" of \"device\" is not a list";
        QTest::newRow("commands empty") << QByteArray("[]") << "\"commands\" of \"device\" is not a list";
        QTest::newRow("entry a number") << QByteArray("[1]") << "command 1: not an object";
        QTest::newRow("no number") << QByteArray(R"([{"number": 1}, {"cycles": 2}])")
                                   << "command 2: \"number\" must be";
        QTest::newRow("cycles negative") << QByteArray(R"([{"number": 1, "cycles": -1}])")
                                         << "\"cycles\" must be a whole number from 1 to 10000";
        QTest::newRow("cycles huge") << QByteArray(R"([{"number": 1, "cycles": 1e9}])") << "\"cycles\" must be";
        QTest::newRow("cycles fraction") << QByteArray(R"([{"number": 1, "cycles": 1.5}])") << "\"cycles\" must be";
        QTest::newRow("print a text") << QByteArray(R"([{"number": 1, "print": "PV"}])") << "\"print\" must be";
        QTest::newRow("parameter a text")
            << QByteArray(R"([{"number": 6, "parameters": {"polling_address": "1"}}])") << "\"parameters\" must give";
        QTest::newRow("parameter empty") << QByteArray(R"([{"number": 6, "parameters": {"polling_address": []}}])")
                                         << "\"parameters\" must give";
        QTest::newRow("close_port a text")
            << QByteArray(R"([{"number": 1, "close_port": "yes"}])") << "\"close_port\" must be";
    }

    void check()
    {
        QFETCH(QByteArray, commands);
        QFETCH(QString, error);
        const QString fileName = m_dir.writeFile(
            "t.tpl", "{\"template\": \"General\",\n \"device\": {\"tag\": \"T1\", \"commands\": " + commands + "}}");

        QVariantMap test;
        QString reason;
        QCOMPARE(TestTemplate::read(fileName, &test, &reason), error.isEmpty());
        if (!error.isEmpty()) {
            QVERIFY2(reason.contains(error), qPrintable(reason));
            return;
        }
        // Defaults filled in: the name from the file, one cycle; the device's values apart.
        QCOMPARE(test.value("name").toString(), QStringLiteral("t"));
        QCOMPARE(TestTemplate::commands(test).value(0).toMap().value("cycles").toInt(), 10000);
        QCOMPARE(TestTemplate::commands(test).value(1).toMap().value("cycles").toInt(), 1);
        QCOMPARE(TestTemplate::expectedValues(test), (QVariantMap{{"tag", "T1"}}));
    }

    void valueForCycle()
    {
        // A list shorter than the cycles starts again from its first value.
        QStringList taken;
        for (int cycle = 1; cycle <= 5; ++cycle)
            taken << TestTemplate::valueForCycle({1, 2, 0}, cycle).toString();
        QCOMPARE(taken.join(QLatin1Char(',')), QStringLiteral("1,2,0,1,2"));
    }
};

QTEST_GUILESS_MAIN(TestTestTemplate)
#include "tst_testtemplate.moc"
