#include "bt.h"
#include "columns.h"
#include "debugqt.h"

#include <QRegularExpression>
#include <QTemporaryFile>
#include <QtTest>

#include <unistd.h>

namespace {

// Runs f with standard error going to a file and returns what was written.
template <typename F>
QByteArray stderrOf(F f)
{
    QTemporaryFile file;
    if (!file.open())
        return "cannot open temporary file";
    fflush(stderr);
    const int saved = dup(2);
    dup2(file.handle(), 2);
    f();
    fflush(stderr);
    dup2(saved, 2);
    close(saved);
    file.seek(0);
    return file.readAll();
}

const QString wire = QStringLiteral("__DEBUGQT_PREFIX__ %1 src/port.cpp getBufferFromInt 677 Port * 0 int: 5 ");

// Captures from depth extra frames further in; the empty asm after the call
// keeps the compiler from turning the recursion into a loop.
__attribute__((noinline)) void captureDeeper(BackTrace& trace, int depth)
{
    if (depth > 0)
        captureDeeper(trace, depth - 1);
    else
        trace.here(0);
    asm volatile("");
}

} // namespace

class TestDebugQt : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        DebugQt::instance(0x8ED0007, nullptr);
        // Later calls return the same object and leave its mask as it is.
        QCOMPARE(DebugQt::instance(0x8ED0003, nullptr)->flags(), 0x8ED0007u);
    }

    void init()
    {
        DebugQt* d = DebugQt::instance(0, nullptr);
        d->set_flags(0x8ED0007);
        for (const QString& cls : d->mapclasses().keys())
            d->delclass(cls);
        d->set_emitting(false);
    }

    void layout_data()
    {
        addColumns<uint, QString, QString>({"mask", "text", "pattern"});

        const QString info = wire.arg(4);
        QTest::newRow("entry mask") << 0x8ED0007u << info
                                    << "info: \\d\\d:\\d\\d:\\d\\d\\.\\d{6} \\d+/\\d+ src/port.cpp\\[677\\] "
                                       "Port::getBufferFromInt\\(\\) : int: 5 ";
        QTest::newRow("levels only") << 0x7u << info << "";
        QTest::newRow("class without function")
            << (0x4u | DebugQt::ShowClass | DebugQt::ShowMessage) << info << "int: 5 ";
        QTest::newRow("function without class")
            << (0x4u | DebugQt::ShowFunction | DebugQt::ShowMessage) << info << "getBufferFromInt\\(\\) : int: 5 ";
        QTest::newRow("date, year first") << (0x4u | DebugQt::ShowDate) << info << "\\d\\d\\.\\d\\d\\.\\d\\d : ";
        QTest::newRow("memory") << (0x4u | DebugQt::ShowMemory) << info << "\\d+/\\d+ : ";
        QTest::newRow("foreign text, mask 0") << 0u << "QWidget::show: some trouble"
                                              << "QWidget::show: some trouble";
    }

    void layout()
    {
        QFETCH(uint, mask);
        QFETCH(QString, text);
        QFETCH(QString, pattern);
        DebugQt* d = DebugQt::instance(0, nullptr);
        d->set_flags(mask);
        QString line = QStringLiteral("untouched");
        QVERIFY(d->formatLine(text, line));
        QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(line).hasMatch(),
                 qPrintable(line));
    }

    void classMask()
    {
        // A class of its own mask: 0 silences it, else it has its own layout.
        DebugQt* d = DebugQt::instance(0, nullptr);
        QString out;
        d->addclass(QStringLiteral("Port"), 0);
        QVERIFY(!d->formatLine(wire.arg(4), out));
        d->addclass(QStringLiteral("Port"), 0x4u | DebugQt::ShowLevel | DebugQt::ShowMessage);
        QVERIFY(d->formatLine(wire.arg(4), out));
        QCOMPARE(out, QStringLiteral("info: : int: 5 "));
        // Another class still goes by the global mask.
        QVERIFY(d->formatLine(QString(wire).replace(QLatin1String(" Port "), QLatin1String(" Tag ")).arg(4), out));
        QVERIFY(out.contains(QLatin1String("Tag::getBufferFromInt()")));
    }

    void printing_data()
    {
        addColumns<uint, int, QString, QByteArray>({"mask", "type", "text", "printed"});

        const QString info = wire.arg(4);
        const uint mesg = 0x4u | DebugQt::ShowMessage;
        QTest::newRow("debug") << mesg << int(QtDebugMsg) << info << QByteArray("int: 5 \n");
        QTest::newRow("foreign warning") << 0u << int(QtWarningMsg) << "Qt says no"
                                         << QByteArray("Warning: Qt says no\n");
        QTest::newRow("foreign critical") << 0u << int(QtCriticalMsg) << "bad" << QByteArray("Critical: bad\n");
        QTest::newRow("empty line, nothing at all") << 0x4u << int(QtDebugMsg) << info << QByteArray();
        QTest::newRow("dropped") << 0x1u << int(QtDebugMsg) << info << QByteArray();
    }

    void printing()
    {
        QFETCH(uint, mask);
        QFETCH(int, type);
        QFETCH(QString, text);
        QFETCH(QByteArray, printed);
        DebugQt* d = DebugQt::instance(0, nullptr);
        d->set_flags(mask);
        d->set_emitting(true);
        QSignalSpy sent(d, &DebugQt::msg);
        QCOMPARE(stderrOf([&] { DebugQt::msg_handler(QtMsgType(type), QMessageLogContext(), text); }), printed);
        // What is printed is sent too, without the mark of its type.
        QCOMPARE(sent.count(), printed.isEmpty() ? 0 : 1);
        if (!printed.isEmpty())
            QVERIFY(printed.endsWith(sent.at(0).at(0).toString().toUtf8() + '\n'));
    }

    // The back trace the crash handler prints.
    void frameParse_data()
    {
        // parts: path|file|raw signature|signature|offset
        addColumns<QString, QString, QString>({"symbolLine", "parts", "printable"});

        QTest::newRow("plain C symbol") << "/usr/lib/x86_64-linux-gnu/libc.so.6(__libc_start_main+0x8a) [0x7f3a2c1]"
                                        << QString("/usr/lib/x86_64-linux-gnu|libc.so.6|__libc_start_main||0x7f3a2c1")
                                        << "/usr/lib/x86_64-linux-gnu/libc.so.6: __libc_start_main [0x7f3a2c1]";
        QTest::newRow("mangled member")
            << "./calvane(_ZN6Device4readEiR10QByteArray+0x1c) [0x55d0]"
            << QString(".|calvane|_ZN6Device4readEiR10QByteArray|Device::read(int, QByteArray&)|0x55d0")
            << "./calvane: Device::read(int, QByteArray&) [0x55d0]";
        QTest::newRow("no parentheses") << "/lib/libfoo.so [0xabc]" << QString("/lib||||0xabc") << "/lib/:  [0xabc]";
        QTest::newRow("empty name before +")
            << "./prog(+0x1234) [0x5555]" << QString(".|prog|||0x5555") << "./prog:  [0x5555]";
        QTest::newRow("no path") << "prog(main+0x10) [0x1]" << QString("|prog|main||0x1") << "/prog: main [0x1]";
        QTest::newRow("slash inside the symbol stops the pass")
            << "/a/b(f/g+0x1) [0x2]" << QString("/a|b|||") << "/a/b:  []";
    }

    void frameParse()
    {
        QFETCH(QString, symbolLine);
        const Frame f(symbolLine.toStdString());
        QTEST(QString::fromStdString(f.path() + '|' + f.file() + '|' + f.signatureRaw() + '|' + f.signature() + '|' +
                                     f.offset()),
              "parts");
        QTEST(QString::fromStdString(f.printable()), "printable");
    }

    // Out of the class: a member defined inline has a hidden symbol, which
    // the trace cannot name.
    void captureNamesTheCaller();
};

void TestDebugQt::captureNamesTheCaller()
{
    BackTrace trace;
    trace.here(0);
    const int first = trace.framesCount();
    QVERIFY(first > 2);
    QCOMPARE(int(trace.frames().size()), first);

    const QString text = QString::fromStdString(trace.printable());
    QVERIFY(text.startsWith(QStringLiteral("BT: obtained %1 stack frames.\n").arg(first)));
    QCOMPARE(text.count(QLatin1Char('\n')), first + 1);
    // The capture keeps its own frame, and the test's, by their demangled names.
    QVERIFY2(text.contains(QLatin1String("BackTrace::here(unsigned int)")), qPrintable(text));
    QVERIFY2(text.contains(QLatin1String("TestDebugQt::captureNamesTheCaller()")), qPrintable(text));

    // A second capture replaces the first.
    captureDeeper(trace, 3);
    QVERIFY(trace.framesCount() >= first + 3);
    QCOMPARE(int(trace.frames().size()), trace.framesCount());
}

QTEST_GUILESS_MAIN(TestDebugQt)
#include "tst_debugqt.moc"
