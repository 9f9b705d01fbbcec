#include "scenario.h"
#include "simline.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace hartsim;

namespace {

// A scenario with one generic device at address 0 and the given extra text
// inside its object.
QByteArray oneDevice(const char* extra)
{
    return QByteArray(R"({ "devices": [ { "model": "generic", "polling_address": 0)") + extra + "} ] }";
}

QByteArray withFault(const char* fault)
{
    return oneDevice((QByteArray(R"(, "faults": [ )") + fault + " ]").constData());
}

} // namespace

class TestScenario : public QObject
{
    Q_OBJECT

private slots:
    void demo();
    void errors_data();
    void errors();
    void errorsInAFile();
    void faults_data();
    void faults();
    void applyRefusesATakenAddress();
    void timingIsOptional();
};

void TestScenario::demo()
{
    Scenario scenario;
    QString error;
    QVERIFY2(scenario.loadFile(Scenario::DemoPath, &error), qPrintable(error));
    QVERIFY(scenario.hasTiming());
    QCOMPARE(scenario.turnaroundMs(), 20);
    QVERIFY(scenario.faults().isEmpty());
    QCOMPARE(scenario.pollingAddresses(), (QList<int>{0, 1, 2, 3}));

    SimLine line;
    QVERIFY2(scenario.apply(line, &error), qPrintable(error));
    QCOMPARE(line.timing(), SimLine::Timing::Line);
    QCOMPARE(line.pollingAddresses(), (QList<int>{0, 1, 2, 3}));
    const QStringList models{"TCV-C", "QP-1C", "pH-7702", "generic"};
    const QStringList tags{"TT-101", "PT-102", "AT-103", "FT-104"};
    for (int address = 0; address < 4; ++address) {
        QVERIFY(line.withDevice(address, [&](SimDevice& device) {
            QCOMPARE(device.model(), models.at(address));
            QCOMPARE(device.param("tag").toString(), tags.at(address));
            QVERIFY(!device.param("message").toString().isEmpty());
        }));
    }
    // The scenario gave its devices away.
    QVERIFY(scenario.pollingAddresses().isEmpty());
}

void TestScenario::errors_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message"); // a part of the error text

    QTest::newRow("syntax error") << QByteArray("{\n  \"devices\": [\n    { \"model\": \"generic\",, }\n  ]\n}")
                                  << "test.json:3:";
    QTest::newRow("not an object") << QByteArray("[]") << "one JSON object";
    QTest::newRow("unknown top-level key")
        << QByteArray(R"({ "devices": [], "devcies": [] })") << "unknown key \"devcies\"";
    QTest::newRow("no devices") << QByteArray(R"({ "timing": "fast" })") << "\"devices\"";
    QTest::newRow("devices not an array") << QByteArray(R"({ "devices": {} })") << "\"devices\" must be";
    QTest::newRow("unknown timing") << QByteArray(R"({ "timing": "slow", "devices": [] })") << "\"timing\"";
    QTest::newRow("turnaround negative") << QByteArray(R"({ "turnaround_ms": -1, "devices": [] })")
                                         << "\"turnaround_ms\" is -1";
    QTest::newRow("device not an object") << QByteArray(R"({ "devices": [ 3 ] })") << "devices[0] must be an object";
    QTest::newRow("model missing") << QByteArray(R"({ "devices": [ { "polling_address": 0 } ] })") << "\"model\"";
    QTest::newRow("unknown model") << QByteArray(R"({ "devices": [ { "model": "XT-9", "polling_address": 0 } ] })")
                                   << "unknown model \"XT-9\"";
    QTest::newRow("polling address missing")
        << QByteArray(R"({ "devices": [ { "model": "generic" } ] })") << "\"polling_address\" is required";
    QTest::newRow("polling address 64") << QByteArray(
                                               R"({ "devices": [ { "model": "generic", "polling_address": 64 } ] })")
                                        << "outside 0..63";
    QTest::newRow("polling address not whole")
        << QByteArray(R"({ "devices": [ { "model": "generic", "polling_address": 1.5 } ] })") << "must be an integer";
    QTest::newRow("polling address a string")
        << QByteArray(R"({ "devices": [ { "model": "generic", "polling_address": "1" } ] })") << "must be an integer";
    QTest::newRow("duplicate polling address")
        << QByteArray(R"({ "devices": [ { "model": "generic", "polling_address": 2 },
                                        { "model": "hart5", "polling_address": 2 } ] })")
        << "devices[1]: polling address 2 is taken";
    QTest::newRow("parameter of the wrong type") << oneDevice(R"(, "tag": 5)") << "\"tag\"";
    QTest::newRow("unknown parameter") << oneDevice(R"(, "colour": "red")") << "\"colour\"";
    QTest::newRow("faults not an array") << oneDevice(R"(, "faults": {})") << "\"faults\" must be an array";
    QTest::newRow("fault not an object") << withFault("1") << "faults[0] must be an object";
    QTest::newRow("fault kind missing") << withFault(R"({ "command": 3 })") << "\"kind\"";
    QTest::newRow("unknown fault kind") << withFault(R"({ "kind": "splt" })") << "unknown fault kind \"splt\"";
    QTest::newRow("required key missing") << withFault(R"({ "kind": "split", "at": 5 })") << "\"pause_ms\" is required";
    QTest::newRow("key of another kind") << withFault(R"({ "kind": "delay", "delay_ms": 5, "at": 2 })")
                                         << "key \"at\" does not belong";
    QTest::newRow("noise not hexadecimal") << withFault(R"({ "kind": "noise", "noise": "zz" })") << "hexadecimal";
    QTest::newRow("count negative") << withFault(R"({ "kind": "burst", "count": -1 })") << "\"count\" is -1";
    QTest::newRow("split at 0") << withFault(R"({ "kind": "split", "at": 0, "pause_ms": 1 })") << "\"at\" is 0";
    QTest::newRow("keep_data not a boolean")
        << withFault(R"({ "kind": "response_code", "code": 5, "keep_data": 1 })") << "\"keep_data\"";
    QTest::newRow("an error in the second device")
        << QByteArray(R"({ "devices": [ { "model": "generic", "polling_address": 0 },
                                        { "model": "generic", "polling_address": 1, "faults": [ { "kind": "x" } ] } ] })")
        << "devices[1]: faults[0]";
}

void TestScenario::errors()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, message);

    Scenario scenario;
    QString error;
    QVERIFY(!scenario.loadJson(json, "test.json", &error));
    QVERIFY2(error.contains(message), qPrintable(error));
    QVERIFY(error.startsWith("test.json:"));
    // Nothing is loaded, and nothing reaches a line.
    QVERIFY(scenario.pollingAddresses().isEmpty());
    QVERIFY(scenario.faults().isEmpty());
    SimLine line;
    QVERIFY(scenario.apply(line, &error));
    QVERIFY(line.pollingAddresses().isEmpty());
    QVERIFY(line.faults().isEmpty());
}

void TestScenario::errorsInAFile()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath("broken.json");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "{\n    \"timing\": \"fast\",\n    \"devices\": [\n        { \"model\": \"generic\" \"polling_address\": 0 "
        "}\n    ]\n}\n");
    file.close();

    SimLine line;
    QString error;
    QVERIFY(!Scenario::load(path, line, &error));
    QVERIFY2(error.startsWith(path + ":4:"), qPrintable(error));
    QVERIFY2(error.contains("JSON syntax error"), qPrintable(error));
    QVERIFY(line.pollingAddresses().isEmpty());
    QCOMPARE(line.timing(), SimLine::Timing::Fast);
    // The file is read, never written.
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("\"model\": \"generic\" \"polling_address\""));

    const QString missing = dir.filePath("none.json");
    QVERIFY(!Scenario::load(missing, line, &error));
    QVERIFY2(error.startsWith(missing + ": cannot read"), qPrintable(error));
}

void TestScenario::faults_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QVariantMap>("fields"); // those that differ from a fresh fault

    QTest::newRow("no answer, defaults") << QByteArray(R"({ "kind": "no_answer" })") << int(Fault::NoAnswer)
                                         << QVariantMap();
    QTest::newRow("bad checksum on command 3, twice")
        << QByteArray(R"({ "kind": "bad_checksum", "command": 3, "count": 2 })") << int(Fault::BadChecksum)
        << QVariantMap{{"command", 3}, {"count", 2}};
    QTest::newRow("noise") << QByteArray(R"({ "kind": "noise", "noise": "00 3a 7E" })") << int(Fault::Noise)
                           << QVariantMap{{"noise", QByteArray::fromHex("003A7E")}};
    QTest::newRow("split") << QByteArray(R"({ "kind": "split", "command": 3, "count": 1, "at": 5, "pause_ms": 30 })")
                           << int(Fault::Split)
                           << QVariantMap{{"command", 3}, {"count", 1}, {"at", 5}, {"pauseMs", 30}};
    QTest::newRow("delay") << QByteArray(R"({ "kind": "delay", "delay_ms": 250 })") << int(Fault::Delay)
                           << QVariantMap{{"delayMs", 250}};
    QTest::newRow("wrong address") << QByteArray(R"({ "kind": "wrong_address" })") << int(Fault::WrongAddress)
                                   << QVariantMap();
    QTest::newRow("burst") << QByteArray(R"({ "kind": "burst" })") << int(Fault::Burst) << QVariantMap();
    QTest::newRow("response code") << QByteArray(R"({ "kind": "response_code", "code": 32 })")
                                   << int(Fault::ResponseCode) << QVariantMap{{"code", 32}};
    QTest::newRow("response code keeping data")
        << QByteArray(R"({ "kind": "response_code", "code": 8, "keep_data": true })") << int(Fault::ResponseCode)
        << QVariantMap{{"code", 8}, {"keepData", true}};
    QTest::newRow("preambles") << QByteArray(R"({ "kind": "preambles", "preambles": 20 })") << int(Fault::Preambles)
                               << QVariantMap{{"preambles", 20}};
    QTest::newRow("wrong command") << QByteArray(R"({ "kind": "wrong_command" })") << int(Fault::WrongCommand)
                                   << QVariantMap();
    QTest::newRow("truncate") << QByteArray(R"({ "kind": "truncate", "length": 7 })") << int(Fault::Truncate)
                              << QVariantMap{{"length", 7}};
}

void TestScenario::faults()
{
    QFETCH(QByteArray, json);
    QFETCH(int, kind);
    QFETCH(QVariantMap, fields);

    const QByteArray text = R"({ "devices": [ { "model": "generic", "polling_address": 1 },
                                             { "model": "generic", "polling_address": 0, "device_id": 7,
                                               "faults": [ )" +
                            json + " ] } ] }";
    Scenario scenario;
    QString error;
    QVERIFY2(scenario.loadJson(text, "test.json", &error), qPrintable(error));
    QCOMPARE(scenario.faults().size(), 1);
    SimLine line;
    QVERIFY2(scenario.apply(line, &error), qPrintable(error));
    QCOMPARE(line.faults().size(), 1);
    const Fault f = line.faults().first();
    const Fault fresh;
    QCOMPARE(int(f.kind), kind);
    QCOMPARE(f.pollingAddress, 0);
    QCOMPARE(f.command, fields.value("command", fresh.command).toInt());
    QCOMPARE(f.count, fields.value("count", fresh.count).toInt());
    QCOMPARE(f.noise, fields.value("noise", fresh.noise).toByteArray());
    QCOMPARE(f.at, fields.value("at", fresh.at).toInt());
    QCOMPARE(f.pauseMs, fields.value("pauseMs", fresh.pauseMs).toInt());
    QCOMPARE(f.delayMs, fields.value("delayMs", fresh.delayMs).toInt());
    QCOMPARE(f.code, fields.value("code", fresh.code).toInt());
    QCOMPARE(f.keepData, fields.value("keepData", fresh.keepData).toBool());
    QCOMPARE(f.preambles, fields.value("preambles", fresh.preambles).toInt());
    QCOMPARE(f.length, fields.value("length", fresh.length).toInt());
}

void TestScenario::applyRefusesATakenAddress()
{
    SimLine line;
    QString error;
    QVERIFY(line.addDevice(SimDevice::create("hart5", {{"polling_address", 1}}, &error), &error));

    Scenario scenario;
    QVERIFY(scenario.loadJson(R"({ "timing": "line", "devices": [
                                     { "model": "generic", "polling_address": 0, "faults": [ { "kind": "burst" } ] },
                                     { "model": "generic", "polling_address": 1 } ] })",
                              "test.json", &error));
    QVERIFY(!scenario.apply(line, &error));
    QVERIFY2(error.contains("polling address 1"), qPrintable(error));
    QCOMPARE(line.pollingAddresses(), QList<int>{1});
    QVERIFY(line.faults().isEmpty());
    QCOMPARE(line.timing(), SimLine::Timing::Fast);
}

void TestScenario::timingIsOptional()
{
    SimLine line;
    line.setTiming(SimLine::Timing::Line);
    line.setTurnaroundMs(35);
    Scenario scenario;
    QString error;
    QVERIFY(scenario.loadJson(R"({ "description": "two", "devices": [ { "model": "hart5", "polling_address": 5,
                                     "tag": "AB-1" } ] })",
                              "test.json", &error));
    QVERIFY(!scenario.hasTiming());
    QVERIFY(!scenario.hasTurnaround());
    QCOMPARE(scenario.description(), QStringLiteral("two"));
    QVERIFY(scenario.apply(line, &error));
    QCOMPARE(line.timing(), SimLine::Timing::Line);
    QCOMPARE(line.turnaroundMs(), 35);
    QCOMPARE(line.pollingAddresses(), QList<int>{5});
}

QTEST_GUILESS_MAIN(TestScenario)
#include "tst_scenario.moc"
