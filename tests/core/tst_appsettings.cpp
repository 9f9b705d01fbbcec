#include "appsettings.h"
#include "debugqt.h"
#include "qjsonsettings.h"
#include "scratchdir.h"

#include <QDir>
#include <QRegularExpression>
#include <QtTest>

namespace {
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

    void writePointer(const QString& target)
    {
        m_dir.writeFile("cfg/startup.cfg", QStringLiteral("{\"cfg_filename\": \"%1\"}").arg(target).toUtf8());
    }

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0007, nullptr); }
    void init() { QVERIFY(m_dir.enter()); }
    void cleanup() { m_dir.leave(); }

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
        settings.serverData = {{"name", "Server"}};
        // These two are read from the file and never written to it.
        settings.log_file_enabled = true;
        settings.logViewLinesLimit = 50;
        QVERIFY(settings.save());

        // Read a copy: QSettings would otherwise serve its cache of the file.
        const QString copy = m_dir.filePath("cfg/calvane.cfg.copy");
        QVERIFY(QFile::copy(AppSettings::cfg_fn(), copy));
        QVERIFY(!appKeysOf(copy).contains(QStringLiteral("log_file_enabled")));
        QVERIFY(!appKeysOf(copy).contains(QStringLiteral("log_view_lines_limit")));
        AppSettings back;
        back.loadConfig(copy);
        QCOMPARE((QVariantList{back.geometry, back.splitter, back.bPrimaryMaster, back.log_flags, back.currentItemName,
                               back.font.pointSize(), back.language, back.serverData, back.log_file_enabled,
                               back.logViewLinesLimit}),
                 (QVariantList{binary, settings.splitter, false, settings.log_flags, settings.currentItemName, 17,
                               "en_US", settings.serverData, false, 1000}));

        // Without the key the primary master is the default again.
        // A font not understood and a limit out of range leave what was there.
        m_dir.writeFile("cfg/calvane.cfg.copy", R"({"app": {"log_file_enabled": true, "log_view_lines_limit": 50}})");
        back.loadConfig(copy);
        QCOMPARE(back.bPrimaryMaster, true);
        QCOMPARE(back.log_file_enabled, true);
        QCOMPARE(back.logViewLinesLimit, 50);
        m_dir.writeFile("cfg/calvane.cfg.copy", R"({"app": {"font": "a,b,c", "log_view_lines_limit": 10000}})");
        back.loadConfig(copy);
        QCOMPARE(back.font.pointSize(), 17);
        QCOMPARE(back.logViewLinesLimit, 50);
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
        m_dir.writeFile("plain", "x");
        AppSettings::set_cfg_fn(m_dir.filePath("plain/sub.cfg"));
        writePointer(before);
        QVERIFY(!settings.save());
        QCOMPARE(pointerOf(), before);
    }

    void pointerToDeletedFile()
    {
        const QString gone = m_dir.filePath("cfg/plant.cfg");
        AppSettings settings;
        QCOMPARE(AppSettings::data_dir(), QFileInfo(m_dir.filePath("cfg")).absolutePath());
        writePointer(gone);
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

    // QJsonSettings, which the settings are read with, keeps a file it cannot
    // read aside.
    void unreadableFileIsKept_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("line");

        QTest::newRow("dangling comma, found on line 5") << QByteArray("{\n  \"app\": {\n    \"a\": 1\n  ,\n}\n") << 5;
        QTest::newRow("array at the top") << QByteArray("[1, 2]") << 1;
    }

    void unreadableFileIsKept()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, line);
        const QString name = m_dir.writeFile("user.cfg", content);

        QSettings::Status status = QSettings::NoError;
        QStringList keys{"none read"};
        const QStringList errors = logOf([&] {
                                       QJsonSettings settings(name);
                                       status = settings.status();
                                       keys = settings.allKeys();
                                       settings.setValue("app", QVariantMap{{"b", 2}});
                                       settings.sync();
                                   }).filter(QRegularExpression("^__DEBUGQT_PREFIX__ 1 "));
        QCOMPARE(status, QSettings::FormatError);
        QCOMPARE(keys, QStringList());
        // A second reader of the same bad content makes no second copy.
        m_dir.writeFile("user.cfg", content);
        logOf([&] { QJsonSettings(name).allKeys(); });

        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().contains(QStringLiteral("parse error at line: %1 ,").arg(line)),
                 qPrintable(errors.first()));
        QCOMPARE(m_dir.readFile("user.cfg.corrupt"), content);
        QVERIFY(!QFile::exists(name + ".corrupt.1"));
    }
};

QTEST_GUILESS_MAIN(TestAppSettings)
#include "tst_appsettings.moc"
