#include "scenario.h"
#include "simline.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace hartsim;

namespace {

QByteArray devices(const char* list)
{
    return QByteArray(R"({ "devices": [ )") + list + " ] }";
}

// One generic device at address 0 with the given extra text in its object.
QByteArray oneDevice(const char* extra)
{
    return devices((QByteArray(R"({ "model": "generic", "polling_address": 0)") + extra + " }").constData());
}

} // namespace

class TestScenario : public QObject
{
    Q_OBJECT

private slots:
    void demo()
    {
        Scenario scenario;
        QString error;
        QVERIFY2(scenario.loadFile(Scenario::DemoPath, &error), qPrintable(error));
        QCOMPARE(scenario.turnaroundMs(), 20);
        SimLine line;
        QVERIFY2(scenario.apply(line, &error), qPrintable(error));
        QCOMPARE(line.timing(), SimLine::Timing::Line);
        QStringList devices;
        for (const int address : line.pollingAddresses())
            line.withDevice(address, [&](SimDevice& d) { devices << d.model() + ' ' + d.param("tag").toString(); });
        QCOMPARE(devices, (QStringList{"TCV-C TT-101", "QP-1C PT-102", "pH-7702 AT-103", "generic FT-104"}));
        // The scenario gave its devices away.
        QVERIFY(scenario.pollingAddresses().isEmpty());
    }

    void errors_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("message"); // a part of the error text

        QTest::newRow("no file") << QByteArray() << ": cannot read";
        QTest::newRow("syntax error") << QByteArray("{\n  \"devices\": [\n    { \"model\": \"generic\",, }\n  ]\n}")
                                      << ":3:27: JSON syntax error";
        QTest::newRow("not an object") << QByteArray("[]") << "one JSON object";
        QTest::newRow("unknown top-level key")
            << QByteArray(R"({ "devices": [], "devcies": [] })") << "unknown key \"devcies\"";
        QTest::newRow("unknown timing") << QByteArray(R"({ "timing": "slow", "devices": [] })") << "\"timing\"";
        QTest::newRow("unknown model") << devices(R"({ "model": "XT-9", "polling_address": 0 })")
                                       << "unknown model \"XT-9\"";
        QTest::newRow("polling address 64")
            << devices(R"({ "model": "generic", "polling_address": 64 })") << "outside 0..63";
        QTest::newRow("duplicate polling address")
            << devices(R"({ "model": "generic", "polling_address": 2 }, { "model": "hart5", "polling_address": 2 })")
            << "devices[1]: polling address 2 is taken";
        QTest::newRow("flag of the wrong type") << oneDevice(R"(, "malfunction": 1)") << "\"malfunction\" must be true";
        QTest::newRow("unknown parameter") << oneDevice(R"(, "colour": "red")") << "\"colour\"";
        QTest::newRow("unknown fault kind")
            << oneDevice(R"(, "faults": [ { "kind": "splt" } ])") << "unknown fault kind \"splt\"";
        QTest::newRow("required key missing")
            << oneDevice(R"(, "faults": [ { "kind": "split", "at": 5 } ])") << "\"pause_ms\" is required";
        QTest::newRow("an error in the second device") << devices(R"({ "model": "generic", "polling_address": 0 },
                          { "model": "generic", "polling_address": 1, "faults": [ { "kind": "x" } ] })")
                                                       << "devices[1]: faults[0]";
    }

    void errors()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, message);
        QTemporaryDir dir;
        const QString path = dir.filePath("test.json");
        QFile file(path);
        QVERIFY(json.isNull() || (file.open(QIODevice::WriteOnly) && file.write(json) == json.size()));
        file.close();
        Scenario scenario;
        QString error;
        QVERIFY(!scenario.loadFile(path, &error));
        QVERIFY2(error.startsWith(path + ':') && error.contains(message), qPrintable(error));
        // Nothing is loaded, and nothing reaches a line.
        SimLine line;
        QVERIFY(scenario.apply(line, &error));
        QVERIFY(line.pollingAddresses().isEmpty());
        QVERIFY(line.faults().isEmpty());
    }

    void faults()
    {
        // Each fault reaches the line for the device it is listed with, its
        // keys as given and the others as a fresh fault's.
        Scenario scenario;
        QString error;
        QVERIFY2(scenario.loadJson(R"({ "devices": [ { "model": "generic", "polling_address": 1 },
            { "model": "generic", "polling_address": 0, "faults": [
                { "kind": "no_answer" }, { "kind": "bad_checksum", "command": 3, "count": 2 },
                { "kind": "noise", "noise": "00 3a 7E" }, { "kind": "split", "at": 5, "pause_ms": 30 },
                { "kind": "delay", "delay_ms": 250 }, { "kind": "response_code", "code": 8, "keep_data": true },
                { "kind": "preambles", "preambles": 20 }, { "kind": "truncate", "length": 7 } ] } ] })",
                                   "test.json", &error),
                 qPrintable(error));
        SimLine line;
        QVERIFY2(scenario.apply(line, &error), qPrintable(error));
        // kind, command, count, at, pause, delay, code, keep data, preambles, length
        const QList<QList<int>> expected{
            {Fault::NoAnswer, -1, 0, 0, 0, 0, 0, 0, 0, 0},   {Fault::BadChecksum, 3, 2, 0, 0, 0, 0, 0, 0, 0},
            {Fault::Noise, -1, 0, 0, 0, 0, 0, 0, 0, 0},      {Fault::Split, -1, 0, 5, 30, 0, 0, 0, 0, 0},
            {Fault::Delay, -1, 0, 0, 0, 250, 0, 0, 0, 0},    {Fault::ResponseCode, -1, 0, 0, 0, 0, 8, 1, 0, 0},
            {Fault::Preambles, -1, 0, 0, 0, 0, 0, 0, 20, 0}, {Fault::Truncate, -1, 0, 0, 0, 0, 0, 0, 0, 7}};
        QList<QList<int>> actual;
        for (const Fault& f : line.faults()) {
            QCOMPARE(f.pollingAddress, 0);
            QCOMPARE(f.noise, f.kind == Fault::Noise ? QByteArray::fromHex("003A7E") : QByteArray());
            actual << QList<int>{f.kind,    f.command, f.count,    f.at,        f.pauseMs,
                                 f.delayMs, f.code,    f.keepData, f.preambles, f.length};
        }
        QCOMPARE(actual, expected);
    }

    void applyKeepsTheLineAsItIs()
    {
        SimLine line;
        line.setTiming(SimLine::Timing::Line);
        line.setTurnaroundMs(35);
        QString error;
        QVERIFY(line.addDevice(SimDevice::create("hart5", {{"polling_address", 1}}, &error), &error));
        // A taken address: nothing of the scenario is applied.
        Scenario taken;
        QVERIFY(taken.loadJson(R"({ "timing": "fast", "devices": [
                                      { "model": "generic", "polling_address": 0, "faults": [ { "kind": "burst" } ] },
                                      { "model": "generic", "polling_address": 1 } ] })",
                               "test.json", &error));
        QVERIFY(!taken.apply(line, &error));
        QVERIFY2(error.contains("polling address 1"), qPrintable(error));
        QCOMPARE(line.pollingAddresses(), QList<int>{1});
        QVERIFY(line.faults().isEmpty());
        QCOMPARE(line.timing(), SimLine::Timing::Line);
        // Without timing keys the line keeps its own.
        Scenario untimed;
        QVERIFY(
            untimed.loadJson(R"({ "description": "two", "devices": [ { "model": "hart5", "polling_address": 5 } ] })",
                             "test.json", &error));
        QCOMPARE(untimed.description(), QStringLiteral("two"));
        QVERIFY(untimed.apply(line, &error));
        QCOMPARE(line.timing(), SimLine::Timing::Line);
        QCOMPARE(line.turnaroundMs(), 35);
        QCOMPARE(line.pollingAddresses(), (QList<int>{1, 5}));
    }
};

QTEST_GUILESS_MAIN(TestScenario)
#include "tst_scenario.moc"
