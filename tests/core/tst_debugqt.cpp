#include "debugqt.h"

#include <QRegularExpression>
#include <QTemporaryFile>
#include <QtTest>

#include <unistd.h>

namespace {

QStringList g_raw;

void captureRaw(QtMsgType, const QMessageLogContext&, const QString& text)
{
    g_raw << text;
}

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

    void macroWireForm()
    {
        g_raw.clear();
        const QtMessageHandler previous = qInstallMessageHandler(captureRaw);
        const int line = __LINE__ + 1;
        DBG(LevelWarn) << "count:" << 42 << QStringLiteral("name") << 'c';
        SDBG(LevelErr | DebugQt::LevelInfo);
        qInstallMessageHandler(previous);

        QCOMPARE(g_raw.size(), 2);
        QCOMPARE(g_raw.at(0), QStringLiteral("__DEBUGQT_PREFIX__ 2 tests/core/tst_debugqt.cpp macroWireForm %1 "
                                             "TestDebugQt * 0 count: 42 \"name\" c ")
                                  .arg(line));
        QCOMPARE(g_raw.at(1), QStringLiteral("__DEBUGQT_PREFIX__ 5 tests/core/tst_debugqt.cpp macroWireForm %1 "
                                             "static * 0 ")
                                  .arg(line + 1));
    }

    void layout_data()
    {
        QTest::addColumn<uint>("mask");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("kept");
        QTest::addColumn<QString>("pattern");

        const QString info = wire.arg(4);
        QTest::newRow("entry mask") << 0x8ED0007u << info << true
                                    << "info: \\d\\d:\\d\\d:\\d\\d\\.\\d{6} \\d+/\\d+ src/port.cpp\\[677\\] "
                                       "Port::getBufferFromInt\\(\\) : int: 5 ";
        QTest::newRow("level not in mask") << 0x8ED0003u << info << false << "";
        QTest::newRow("levels only") << 0x7u << info << true << "";
        QTest::newRow("time without message")
            << (0x4u | DebugQt::ShowTime) << info << true << "\\d\\d:\\d\\d:\\d\\d\\.\\d{6} : ";
        QTest::newRow("class without function")
            << (0x4u | DebugQt::ShowClass | DebugQt::ShowMessage) << info << true << "int: 5 ";
        QTest::newRow("function without class") << (0x4u | DebugQt::ShowFunction | DebugQt::ShowMessage) << info << true
                                                << "getBufferFromInt\\(\\) : int: 5 ";
        QTest::newRow("date, year first")
            << (0x4u | DebugQt::ShowDate) << info << true << "\\d\\d\\.\\d\\d\\.\\d\\d : ";
        QTest::newRow("memory") << (0x4u | DebugQt::ShowMemory) << info << true << "\\d+/\\d+ : ";
        QTest::newRow("sum of levels gives every word") << (0x63u | DebugQt::ShowLevel | DebugQt::ShowMessage)
                                                        << wire.arg(0x63) << true << "err: warn: usr1: usr2: : int: 5 ";
        QTest::newRow("foreign text, mask 0")
            << 0u << "QWidget::show: some trouble" << true << "QWidget::show: some trouble";
        QTest::newRow("message with no items") << 0x8ED0007u << "__DEBUGQT_PREFIX__ 1 a.cpp f 3 static * 0 " << true
                                               << "err: .* a.cpp\\[3\\] static::f\\(\\) : ";
    }

    void layout()
    {
        QFETCH(uint, mask);
        QFETCH(QString, text);
        QFETCH(bool, kept);
        QFETCH(QString, pattern);

        DebugQt* d = DebugQt::instance(0, nullptr);
        d->set_flags(mask);
        QString line = QStringLiteral("untouched");
        QCOMPARE(d->formatLine(text, line), kept);
        if (kept) {
            const QRegularExpression re(QRegularExpression::anchoredPattern(pattern));
            QVERIFY2(re.match(line).hasMatch(), qPrintable(line));
        }
    }

    void classMask_data()
    {
        QTest::addColumn<uint>("classMask");
        QTest::addColumn<bool>("kept");
        QTest::addColumn<QString>("line");

        QTest::newRow("mask 0 silences the class") << 0u << false << "";
        QTest::newRow("own layout") << (0x4u | DebugQt::ShowLevel | DebugQt::ShowMessage) << true << "info: : int: 5 ";
    }

    void classMask()
    {
        QFETCH(uint, classMask);
        QFETCH(bool, kept);

        DebugQt* d = DebugQt::instance(0, nullptr);
        d->addclass(QStringLiteral("Port"), classMask);
        QString out;
        QCOMPARE(d->formatLine(wire.arg(4), out), kept);
        if (kept)
            QTEST(out, "line");
        // Another class still goes by the global mask.
        QVERIFY(d->formatLine(QString(wire).replace(QLatin1String(" Port "), QLatin1String(" Tag ")).arg(4), out));
        QVERIFY(out.contains(QLatin1String("Tag::getBufferFromInt()")));
    }

    void printing_data()
    {
        QTest::addColumn<uint>("mask");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("printed");

        const QString info = wire.arg(4);
        const uint mesg = 0x4u | DebugQt::ShowMessage;
        QTest::newRow("debug") << mesg << int(QtDebugMsg) << info << QByteArray("int: 5 \n");
        QTest::newRow("foreign warning") << 0u << int(QtWarningMsg) << "Qt says no"
                                         << QByteArray("Warning: Qt says no\n");
        QTest::newRow("foreign critical") << 0u << int(QtCriticalMsg) << "bad" << QByteArray("Critical: bad\n");
        QTest::newRow("empty line, nothing at all") << 0x4u << int(QtDebugMsg) << info << QByteArray();
        QTest::newRow("dropped") << 0x1u << int(QtDebugMsg) << info << QByteArray();
        QTest::newRow("utf-8") << mesg << int(QtDebugMsg)
                               << QStringLiteral("__DEBUGQT_PREFIX__ 4 a.cpp f 1 static * 0 \u0414\u0430 ")
                               << QByteArray("\xd0\x94\xd0\xb0 \n");
    }

    void printing()
    {
        QFETCH(uint, mask);
        QFETCH(int, type);
        QFETCH(QString, text);

        DebugQt::instance(0, nullptr)->set_flags(mask);
        const QByteArray out = stderrOf([&] { DebugQt::msg_handler(QtMsgType(type), QMessageLogContext(), text); });
        QTEST(out, "printed");
    }

    void signalFollowsPrinting()
    {
        DebugQt* d = DebugQt::instance(0, nullptr);
        d->set_flags(0x4u | DebugQt::ShowMessage);
        QSignalSpy spy(d, &DebugQt::msg);

        stderrOf([] { SDBG(LevelInfo) << "not sent"; });
        QCOMPARE(spy.count(), 0);

        d->set_emitting(true);
        stderrOf([] {
            SDBG(LevelInfo) << "sent";
            SDBG(LevelErr) << "dropped";
        });
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("sent "));
    }
};

QTEST_GUILESS_MAIN(TestDebugQt)
#include "tst_debugqt.moc"
