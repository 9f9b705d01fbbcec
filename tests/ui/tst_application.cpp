#include "application.h"
#include "appsettings.h"
#include "debugqt.h"

#include <QProcess>
#include <QtTest>

#include <csignal>

class TestApplication : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0007, nullptr); }

    void languages()
    {
        // A key is the last two parts of the name; other files are no translation.
        QTemporaryDir dir;
        for (const char* name : {"ru_ru.qm", "a_b_c.qm", "russian.qm", "xx_yy.txt"})
            QVERIFY(QFile::copy(QStringLiteral(":/lang/ru_ru.qm"), dir.filePath(name)));
        QVERIFY(writeFile(dir.filePath("broken_qm.qm"), "no translation"));
        const QStringList before = Application::availableLanguages(); // the table is process-wide
        QSet<QString> expected(before.begin(), before.end());
        expected << "ru_RU"
                 << "b_C";
        Application::loadTranslations(dir.path());
        QStringList languages = Application::availableLanguages();
        QCOMPARE(QSet<QString>(languages.begin(), languages.end()), expected);

        Application::loadTranslations(":/lang");
        languages = Application::availableLanguages();
        QVERIFY(languages.contains("en_US"));
        const QString busy = "*** device is busy", russian = "*** устройство занято";
        // An unknown language keeps the name of the last one and the source texts.
        const QList<QStringList> steps = {{"ru_RU", "ru_RU", russian},
                                          {"en_US", "en_US", busy},
                                          {"ru_RU", "ru_RU", russian},
                                          {"de_DE", "ru_RU", busy}};
        for (const QStringList& step : steps) {
            Application::setLanguage(step.at(0));
            QCOMPARE(Application::language(), step.at(1));
            QCOMPARE(QCoreApplication::translate("HartCommand", "*** device is busy"), step.at(2));
        }
    }

    void styleSheetsFromDataDirectoryFirst()
    {
        // Every style sheet of the data directory in name order, none of the working directory's.
        QTemporaryDir data, work;
        QVERIFY(QDir().mkpath(data.filePath("css")) && QDir().mkpath(work.filePath("css")));
        const QMap<QString, QByteArray> files{{"b.css", "B"}, {"a.css", "A"}, {"c.txt", "C"}, {"d.css", "Д"}};
        for (auto it = files.cbegin(); it != files.cend(); ++it)
            QVERIFY(writeFile(data.filePath("css/" + it.key()), it.value()));
        QVERIFY(writeFile(work.filePath("css/a.css"), "W"));
        const QString start = QDir::currentPath();
        QDir::setCurrent(data.path());
        AppSettings settings; // the data directory is where the process stands now
        QDir::setCurrent(work.path());
        auto* app = static_cast<Application*>(qApp);
        app->loadCss();
        QDir::setCurrent(start);
        QCOMPARE(qApp->styleSheet(), QStringLiteral("ABД"));
        qApp->setStyleSheet(QString());
        const QStringList css{"*.css"};
        QCOMPARE(app->readAllFiles(data.filePath("none"), css), QString());
        QCOMPARE(app->readAllFiles(QString(), css), QString());
    }

    void exitBySignal_data()
    {
        QTest::addColumn<int>("signo"); // sent from outside; none: the process faults itself
        QTest::addColumn<int>("exitCode");
        QTest::newRow("a real fault") << 0 << 139;
        QTest::newRow("SIGTERM") << int(SIGTERM) << 0;
    }

    void exitBySignal()
    {
        QFETCH(int, signo);
        QProcess child;
        child.start(QCoreApplication::applicationDirPath() + QStringLiteral("/sigchild"), {signo ? "wait" : "fault"});
        QVERIFY(child.waitForStarted());
        if (signo) {
            QVERIFY(child.waitForReadyRead(10000));
            QCOMPARE(child.readAllStandardOutput(), QByteArray("ready\n"));
            ::kill(pid_t(child.processId()), signo);
        }
        QVERIFY(child.waitForFinished(10000));
        const QString err = QString::fromUtf8(child.readAllStandardError());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QTEST(child.exitCode(), "exitCode");
        const int caught = signo ? signo : SIGSEGV;
        QVERIFY2(err.contains(QStringLiteral("signal %1('%2') catched").arg(caught).arg(strsignal(caught))),
                 qPrintable(err));
        // The stack of a fault, down to the handler.
        QCOMPARE(err.contains(QLatin1String("\n*** Segmentation fault ***\nBT: obtained ")), !signo);
        if (!signo)
            QVERIFY2(err.contains(QLatin1String("sig_handler")), qPrintable(err));
    }

private:
    static bool writeFile(const QString& name, const QByteArray& text)
    {
        QFile file(name);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
    }
};

int main(int argc, char* argv[])
{
    Application app(argc, argv);
    TestApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_application.moc"
