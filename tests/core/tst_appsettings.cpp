#include "appsettings.h"
#include "debugqt.h"
#include "qjsonsettings.h"
#include "scratchdir.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {
void writeFile(const QString& name, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(name).absolutePath());
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

QVariantMap appKeysOf(const QString& name)
{
    return QJsonSettings(name).value(QStringLiteral("app")).toMap();
}

QString pointerOf()
{
    return QJsonSettings(AppSettings::startup_cfg_fn()).value(QStringLiteral("cfg_filename")).toString();
}
} // namespace

class TestAppSettings : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0007, nullptr); }
    void init() { QVERIFY(m_dir.enter()); }
    void cleanup() { m_dir.leave(); }

    void firstStartInEmptyDirectory()
    {
        AppSettings settings;
        QCOMPARE(AppSettings::data_dir(), QFileInfo(m_dir.filePath("cfg")).absolutePath());
        QVERIFY(settings.load());

        const QString cfg = m_dir.filePath("cfg/calvane.cfg");
        QVERIFY(QFileInfo(m_dir.filePath("cfg")).isDir());
        QCOMPARE(pointerOf(), cfg);
        QCOMPARE(AppSettings::cfg_fn(), cfg);
        QCOMPARE(settings.language, QStringLiteral("ru_RU"));
        QCOMPARE(settings.bPrimaryMaster, true);
        QCOMPARE(settings.logViewLinesLimit, 1000);
        QCOMPARE(settings.testsPath, m_dir.filePath("tests"));
        // The default configuration comes from the resources, and can be saved over.
        QVERIFY(QFileInfo(cfg).isWritable());
        QCOMPARE(settings.log_flags, QStringList({QStringLiteral("ERR"), QStringLiteral("WARN")}));
        QVERIFY(settings.save());
    }

    void logViewLinesLimit_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("limit");

        QTest::newRow("0") << QByteArray("0") << 1000;
        QTest::newRow("10000") << QByteArray("10000") << 1000;
        QTest::newRow("-1") << QByteArray("-1") << 1000;
        QTest::newRow("9999") << QByteArray("9999") << 9999;
        QTest::newRow("1") << QByteArray("1") << 1;
        QTest::newRow("a string") << QByteArray("\"lots\"") << 1000;
    }

    void logViewLinesLimit()
    {
        QFETCH(QByteArray, value);
        const QString cfg = m_dir.filePath("cfg/my.cfg");
        writeFile(cfg, "{\"app\": {\"log_view_lines_limit\": " + value + "}}");
        AppSettings settings;
        settings.loadConfig(cfg);
        QTEST(settings.logViewLinesLimit, "limit");
    }

    void keysReadButNotWritten()
    {
        const QString cfg = m_dir.filePath("cfg/my.cfg");
        writeFile(cfg, R"({"app": {"log_file_enabled": true, "log_view_lines_limit": 50, "language": "en_US"},
                           "srv": {"name": "Server"}})");
        AppSettings settings;
        settings.loadConfig(cfg);
        QCOMPARE(settings.log_file_enabled, true);
        QCOMPARE(settings.logViewLinesLimit, 50);
        QVERIFY(settings.save());

        const QVariantMap app = appKeysOf(cfg);
        QVERIFY(!app.contains(QStringLiteral("log_file_enabled")));
        QVERIFY(!app.contains(QStringLiteral("log_view_lines_limit")));
        QCOMPARE(app.value(QStringLiteral("language")).toString(), QStringLiteral("en_US"));

        AppSettings again;
        again.loadConfig(cfg);
        QCOMPARE(again.log_file_enabled, false);
        QCOMPARE(again.logViewLinesLimit, 1000);
        QCOMPARE(again.serverData.value(QStringLiteral("name")).toString(), QStringLiteral("Server"));
    }

    void roundTripThroughSecondObject()
    {
        AppSettings settings;
        settings.load();
        const QByteArray binary("\x00\x01\xff\xfe\x80\"\\ text", 12);
        settings.geometry = binary;
        settings.splitter = QByteArray(300, '\xAA');
        settings.bPrimaryMaster = false;
        settings.log_flags = QStringList{QStringLiteral("INFO")};
        settings.currentItemName = QStringLiteral("Server/Port 1/TT-101");
        settings.font = QFont(QStringLiteral("DejaVu Sans"), 17);
        settings.language = QStringLiteral("en_US");
        QVERIFY(settings.save());

        // Read a copy: QSettings would otherwise serve its cache of the file.
        const QString copy = AppSettings::cfg_fn() + QStringLiteral(".copy");
        QVERIFY(QFile::copy(AppSettings::cfg_fn(), copy));
        AppSettings back;
        back.loadConfig(copy);
        QCOMPARE(back.geometry, binary);
        QCOMPARE(back.splitter, settings.splitter);
        QCOMPARE(back.bPrimaryMaster, false);
        QCOMPARE(back.log_flags, settings.log_flags);
        QCOMPARE(back.currentItemName, settings.currentItemName);
        QCOMPARE(back.font.pointSize(), 17);
        QCOMPARE(back.language, QStringLiteral("en_US"));

        // Without the key the primary master is the default again.
        writeFile(copy, "{\"app\": {}}");
        back.loadConfig(copy);
        QCOMPARE(back.bPrimaryMaster, true);
    }

    void configFilePointer()
    {
        AppSettings settings;
        AppSettings::set_cfg_fn(QStringLiteral("plant.cfg"));
        const QString expected = m_dir.filePath("cfg/plant.cfg");
        QCOMPARE(AppSettings::cfg_fn(), expected);
        QCOMPARE(pointerOf(), expected);

        // An empty name clears the file in use and leaves the pointer alone.
        AppSettings::set_cfg_fn(QString());
        QVERIFY(AppSettings::cfg_fn().isEmpty());
        QCOMPARE(pointerOf(), expected);
        QVERIFY(!settings.save());

        // A failed save leaves the pointer too. A path below a plain file
        // cannot be created, not even by root.
        settings.load();
        const QString before = pointerOf();
        writeFile(m_dir.filePath("plain"), "x");
        AppSettings::set_cfg_fn(m_dir.filePath("plain/sub.cfg"));
        writeFile(AppSettings::startup_cfg_fn(), QStringLiteral("{\"cfg_filename\": \"%1\"}").arg(before).toUtf8());
        QVERIFY(!settings.save());
        QCOMPARE(pointerOf(), before);
    }

    void pointerToDeletedFile()
    {
        const QString gone = m_dir.filePath("cfg/plant.cfg");
        writeFile(m_dir.filePath("cfg/startup.cfg"), QStringLiteral("{\"cfg_filename\": \"%1\"}").arg(gone).toUtf8());
        AppSettings settings;
        QVERIFY(settings.load());
        QCOMPARE(settings.language, QStringLiteral("ru_RU"));
        QVERIFY(settings.serverData.isEmpty());
        QCOMPARE(AppSettings::cfg_fn(), gone);
        QCOMPARE(pointerOf(), gone);
        QVERIFY(!QFile::exists(gone));

        settings.language = QStringLiteral("en_US");
        QVERIFY(settings.save());
        QCOMPARE(appKeysOf(gone).value(QStringLiteral("language")).toString(), QStringLiteral("en_US"));
    }

    void syntaxErrorLosesNothing()
    {
        const QString cfg = m_dir.filePath("cfg/calvane.cfg");
        const QByteArray broken = "{\n \"app\": {\"language\": \"en_US\"},\n \"srv\": {\"name\": \n}";
        writeFile(cfg, broken);
        writeFile(m_dir.filePath("cfg/startup.cfg"), QStringLiteral("{\"cfg_filename\": \"%1\"}").arg(cfg).toUtf8());

        AppSettings settings;
        const QStringList errors = logOf([&] { settings.load(); }).filter(QRegularExpression("^__DEBUGQT_PREFIX__ 1 "));

        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().contains(QLatin1String("parse error at line: 4")), qPrintable(errors.first()));
        QVERIFY(settings.serverData.isEmpty());
        QCOMPARE(settings.language, QStringLiteral("ru_RU"));
        QCOMPARE(AppSettings::cfg_fn(), cfg);

        QVERIFY(settings.save());
        QFile kept(cfg + QStringLiteral(".corrupt"));
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), broken);
        // The saved file is good JSON again.
        QFile saved(cfg);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QJsonObject app =
            QJsonDocument::fromJson(saved.readAll()).object().value(QStringLiteral("app")).toObject();
        QCOMPARE(app.value(QStringLiteral("language")).toString(), QStringLiteral("ru_RU"));
    }
};

QTEST_GUILESS_MAIN(TestAppSettings)
#include "tst_appsettings.moc"
