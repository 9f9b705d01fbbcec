#include "debugqt.h"
#include "qjsonsettings.h"
#include "scratchdir.h"

#include <QRegularExpression>
#include <QtTest>

class TestQJsonSettings : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0007, nullptr); }
    void init() { QVERIFY(m_dir.enter()); }
    void cleanup() { m_dir.leave(); }

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

QTEST_GUILESS_MAIN(TestQJsonSettings)
#include "tst_qjsonsettings.moc"
