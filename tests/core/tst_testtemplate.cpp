#include "debugqt.h"
#include "testtemplate.h"

#include <QTemporaryDir>
#include <QtTest>

class TestTestTemplate : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        DebugQt::instance(0, nullptr);
    }

    void check_data()
    {
        QTest::addColumn<QByteArray>("commands");
        QTest::addColumn<QString>("error"); // a part of the reason; empty: accepted

        QTest::newRow("good") << QByteArray(R"([{"number": 6, "parameters": {"polling_address": [1, 2, 0]},
                                                 "cycles": 5, "read_cmd": 7, "print": ["tag"], "close_port": true}])")
                              << QString();
        QTest::newRow("syntax") << QByteArray("[{\"number\": 1,}]") << "line 2: ";
        QTest::newRow("commands a text") << QByteArray("\"1, 2\"") << "\"commands\" of \"device\" is not a list";
        QTest::newRow("commands empty") << QByteArray("[]") << "\"commands\" of \"device\" is not a list";
        QTest::newRow("entry a number") << QByteArray("[1]") << "command 1: not an object";
        QTest::newRow("no number") << QByteArray(R"([{"number": 1}, {"cycles": 2}])")
                                   << "command 2: \"number\" must be";
        QTest::newRow("number a text") << QByteArray(R"([{"number": "1"}])") << "\"number\" must be";
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
        const QString fileName = m_dir.filePath(QStringLiteral("t.tpl"));
        QFile file(fileName);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("{\"template\": \"General\",\n \"device\": {\"tag\": \"T1\", \"commands\": " + commands + "}}");
        file.close();

        QVariantMap test;
        QString reason;
        QCOMPARE(TestTemplate::read(fileName, &test, &reason), error.isEmpty());
        if (!error.isEmpty()) {
            QVERIFY2(reason.contains(error), qPrintable(reason));
            return;
        }
        // Defaults filled in: the name from the file, one cycle; the device's values apart.
        QCOMPARE(test.value("name").toString(), QStringLiteral("t"));
        QCOMPARE(TestTemplate::commands(test).value(0).toMap().value("cycles").toInt(), 5);
        QCOMPARE(TestTemplate::expectedValues(test), (QVariantMap{{"tag", "T1"}}));
    }

    void valueForCycle()
    {
        // A list shorter than the cycles starts again from its first value.
        const QVariantList values{1, 2, 0};
        QStringList taken;
        for (int cycle = 1; cycle <= 5; ++cycle)
            taken << TestTemplate::valueForCycle(values, cycle).toString();
        QCOMPARE(taken.join(QLatin1Char(',')), QStringLiteral("1,2,0,1,2"));
    }
};

QTEST_GUILESS_MAIN(TestTestTemplate)
#include "tst_testtemplate.moc"
