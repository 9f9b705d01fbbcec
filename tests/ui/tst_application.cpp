#include "application.h"
#include "appsettings.h"
#include "debugqt.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <csignal>

class TestApplication : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        DebugQt::instance(0x8ED0007, nullptr);
        QVERIFY(m_dir.isValid());
    }

    void translationKeys_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("keys");

        QTest::newRow("ru_ru") << QStringList{"ru_ru.qm"} << QStringList{"ru_RU"};
        QTest::newRow("three parts use the last two") << QStringList{"a_b_c.qm"} << QStringList{"b_C"};
        QTest::newRow("no underscore, not a translation") << QStringList{"russian.qm"} << QStringList{};
        QTest::newRow("not a translation file") << QStringList{"xx_yy.txt"} << QStringList{};
    }

    void translationKeys()
    {
        QFETCH(QStringList, files);
        QFETCH(QStringList, keys);

        QTemporaryDir dir;
        for (const QString& name : files)
            QVERIFY(QFile::copy(QStringLiteral(":/lang/ru_ru.qm"), dir.filePath(name)));
        // The table is process-wide: compare what this directory adds.
        const QStringList beforeList = Application::availableLanguages();
        const QSet<QString> before(beforeList.begin(), beforeList.end());
        Application::loadTranslations(dir.path());
        const QStringList afterList = Application::availableLanguages();
        const QSet<QString> after(afterList.begin(), afterList.end());
        QCOMPARE(after - before, QSet<QString>(keys.begin(), keys.end()) - before);
        for (const QString& key : keys)
            QVERIFY(after.contains(key));
    }

    void languages()
    {
        Application::loadTranslations(":/lang");
        const QStringList languages = Application::availableLanguages();
        QVERIFY(languages.contains("ru_RU") && languages.contains("en_US"));
        const QString busy = "*** device is busy";
        const QStringList steps = {"ru_RU", "en_US", "ru_RU", "de_DE"};
        const QStringList shown = {"ru_RU", "en_US", "ru_RU", "ru_RU"};
        // An unknown language keeps the name of the last one and the source texts.
        const QStringList texts = {"*** устройство занято", busy, "*** устройство занято", busy};
        for (int i = 0; i < steps.size(); ++i) {
            Application::setLanguage(steps.at(i));
            QCOMPARE(Application::language(), shown.at(i));
            QCOMPARE(QCoreApplication::translate("HartCommand", "*** device is busy"), texts.at(i));
        }
    }

    void styleSheetsFromDataDirectoryFirst()
    {
        QTemporaryDir data, work;
        auto put = [](const QString& name, const QByteArray& text) {
            QDir().mkpath(QFileInfo(name).absolutePath());
            QFile f(name);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(text);
        };
        put(data.filePath(QStringLiteral("css/a.css")), "QLabel { color: red; }");
        put(work.filePath(QStringLiteral("css/a.css")), "QLabel { color: blue; }");

        const QString start = QDir::currentPath();
        QDir::setCurrent(data.path());
        AppSettings settings; // the data directory is where the process stands now
        QDir::setCurrent(work.path());
        static_cast<Application*>(qApp)->loadCss();
        QDir::setCurrent(start);
        QCOMPARE(qApp->styleSheet(), QStringLiteral("QLabel { color: red; }"));
        qApp->setStyleSheet(QString());
    }

    void readAllFilesInNameOrder()
    {
        auto* app = static_cast<Application*>(qApp);
        QTemporaryDir dir;
        const QList<QPair<QString, QByteArray>> files = {
            {"b.css", "B"}, {"a.css", "A"}, {"c.txt", "C"}, {"d.css", "\xd0\x94"}};
        for (const auto& f : files) {
            QFile file(dir.filePath(f.first));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(f.second);
        }
        QCOMPARE(app->readAllFiles(dir.path(), QStringList(QStringLiteral("*.css"))), QStringLiteral("AB\u0414"));
        QCOMPARE(app->readAllFiles(dir.filePath(QStringLiteral("none")), QStringList(QStringLiteral("*.css"))),
                 QString());
        QCOMPARE(app->readAllFiles(QString(), QStringList(QStringLiteral("*.css"))), QString());
    }

    void exitBySignal_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("signo");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<bool>("stackPrinted");

        QTest::newRow("SIGSEGV from outside") << "wait" << int(SIGSEGV) << 139 << true;
        QTest::newRow("a real fault") << "fault" << 0 << 139 << true;
        QTest::newRow("SIGTERM") << "wait" << int(SIGTERM) << 0 << false;
        QTest::newRow("SIGHUP") << "wait" << int(SIGHUP) << 0 << false;
    }

    void exitBySignal()
    {
        QFETCH(QString, mode);
        QFETCH(int, signo);
        QFETCH(int, exitCode);
        QFETCH(bool, stackPrinted);

        QProcess child;
        child.start(QCoreApplication::applicationDirPath() + QStringLiteral("/sigchild"), {mode});
        QVERIFY(child.waitForStarted());
        if (signo) {
            QVERIFY(child.waitForReadyRead(10000));
            QCOMPARE(child.readAllStandardOutput(), QByteArray("ready\n"));
            ::kill(pid_t(child.processId()), signo);
        }
        QVERIFY(child.waitForFinished(10000));
        const QString err = QString::fromUtf8(child.readAllStandardError());
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), exitCode);
        const int expectedSigno = signo ? signo : SIGSEGV;
        QVERIFY2(
            err.contains(QStringLiteral("signal %1('%2') catched").arg(expectedSigno).arg(strsignal(expectedSigno))),
            qPrintable(err));
        QCOMPARE(err.contains(QLatin1String("\n*** Segmentation fault ***\nBT: obtained ")), stackPrinted);
        if (stackPrinted)
            QVERIFY2(err.contains(QLatin1String("sig_handler")), qPrintable(err));
    }

private:
    QTemporaryDir m_dir;
};

int main(int argc, char* argv[])
{
    Application app(argc, argv);
    TestApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_application.moc"
