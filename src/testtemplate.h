#ifndef TESTTEMPLATE_H
#define TESTTEMPLATE_H

#include <QCoreApplication>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

// A device test template: a JSON object (the syntax of every file of the
// settings store) with "name", "template", "description" and "device", whose
// "commands" list the exchanges of the test in running order. Each command
// has "number" and may have "description", "cycles", "print", "parameters"
// (a write: each key a device value, its list the value of each cycle),
// "read_cmd", "read_delay", "delay" and "close_port". The other values of
// "device" are what the test expects of the device when it starts.
//
// A template is checked as a whole when it is read, so that a run never
// meets a malformed entry half-way: a file with one wrong value is refused,
// with a reason that names the entry and the key.
class TestTemplate
{
    Q_DECLARE_TR_FUNCTIONS(TestTemplate)

public:
    static constexpr int DefaultCycles = 1;
    static constexpr int MaxCycles = 10000;
    static constexpr int MaxDelayMs = 60000;

    // Reads and checks a template file. False, with a reason of one line,
    // when the file cannot serve as a test.
    static bool read(const QString& fileName, QVariantMap* test, QString* error);
    // Checks a template read from a file; a command without "cycles" gets
    // DefaultCycles, and a template without "name" is named after its file.
    static bool check(QVariantMap* test, const QString& fileName, QString* error);

    // The commands of a checked template, each a map.
    static QVariantList commands(const QVariantMap& test);
    // What the test expects of the device at its start: "device" without
    // its "commands".
    static QVariantMap expectedValues(const QVariantMap& test);
    // The value of a write parameter in a cycle (from 1). A list shorter than
    // the cycles starts again from its first value.
    static QVariant valueForCycle(const QVariantList& values, int cycle);

private:
    static bool checkCommand(QVariantMap* command, int index, QString* error);
};

#endif // TESTTEMPLATE_H
