#include "bt.h"

#include <QtTest>

namespace {
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

class TestBackTrace : public QObject
{
    Q_OBJECT

private slots:
    void frameParse_data()
    {
        QTest::addColumn<QString>("symbolLine");
        QTest::addColumn<QString>("parts"); // path|file|raw signature|signature|offset
        QTest::addColumn<QString>("printable");

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

void TestBackTrace::captureNamesTheCaller()
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
    QVERIFY2(text.contains(QLatin1String("TestBackTrace::captureNamesTheCaller()")), qPrintable(text));

    // A second capture replaces the first.
    captureDeeper(trace, 3);
    QVERIFY(trace.framesCount() >= first + 3);
    QCOMPARE(int(trace.frames().size()), trace.framesCount());
}

QTEST_GUILESS_MAIN(TestBackTrace)
#include "tst_bt.moc"
