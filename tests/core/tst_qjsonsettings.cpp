#include "debugqt.h"
#include "qjsonsettings.h"
#include "scratchdir.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {
QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void writeFile(const QString& name, const QByteArray& content)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}
} // namespace

class TestQJsonSettings : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> m_dir;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0007, nullptr); }

    void init()
    {
        m_dir.reset(new QTemporaryDir);
        QVERIFY(m_dir->isValid());
    }

    void roundTripThroughSecondObject()
    {
        const QString name = m_dir->filePath(QStringLiteral("rt.json"));
        const QVariantMap nested{{QStringLiteral("inner"), QVariantMap{{QStringLiteral("x"), 1.5}}},
                                 {QStringLiteral("list"), QVariantList{1, QStringLiteral("two"), true}}};
        {
            QJsonSettings settings(name);
            settings.setValue(QStringLiteral("srv"), nested);
            settings.setValue(QStringLiteral("Key"), QStringLiteral("upper"));
            settings.setValue(QStringLiteral("key"), QStringLiteral("lower"));
            settings.setValue(QStringLiteral("flag"), false);
            settings.setValue(QStringLiteral("nan"), std::nan(""));
            settings.sync();
            QCOMPARE(settings.status(), QSettings::NoError);
        }
        // QSettings keeps what it wrote in a per-process cache keyed by file
        // name: read a copy, so that the values really come from the text.
        const QString copy = m_dir->filePath(QStringLiteral("copy.json"));
        QVERIFY(QFile::copy(name, copy));
        QJsonSettings back(copy);
        QCOMPARE(back.status(), QSettings::NoError);
        // A nested object is one map value, not a group of flattened keys.
        QCOMPARE(back.childKeys().size(), 5);
        QCOMPARE(back.value(QStringLiteral("srv")).toMap().value(QStringLiteral("inner")).toMap(),
                 nested.value(QStringLiteral("inner")).toMap());
        QCOMPARE(back.value(QStringLiteral("srv")).toMap().value(QStringLiteral("list")).toList().at(1).toString(),
                 QStringLiteral("two"));
        QCOMPARE(back.value(QStringLiteral("Key")).toString(), QStringLiteral("upper"));
        QCOMPARE(back.value(QStringLiteral("key")).toString(), QStringLiteral("lower"));
        QCOMPARE(back.value(QStringLiteral("flag")).toBool(), false);
        // JSON has no NaN: it is written as null, and a double read from it is 0.
        QCOMPARE(back.value(QStringLiteral("nan")).toDouble(), 0.0);
        QVERIFY(contentOf(name).contains("\n    \"Key\": \"upper\""));
    }

    void unreadableFileIsKept_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("line");

        QTest::newRow("dangling comma, found on line 5") << QByteArray("{\n  \"app\": {\n    \"a\": 1\n  ,\n}\n") << 5;
        QTest::newRow("garbage after the object") << QByteArray("{\"a\": 1}\n\nxyz") << 3;
        QTest::newRow("array at the top") << QByteArray("[1, 2]") << 1;
    }

    void unreadableFileIsKept()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, line);
        const QString name = m_dir->filePath(QStringLiteral("user.cfg"));
        writeFile(name, content);

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
        writeFile(name, content);
        logOf([&] { QJsonSettings(name).allKeys(); });

        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().contains(QStringLiteral("parse error at line: %1 ,").arg(line)),
                 qPrintable(errors.first()));
        QCOMPARE(contentOf(name + QStringLiteral(".corrupt")), content);
        QVERIFY(!QFile::exists(name + QStringLiteral(".corrupt.1")));
    }
};

QTEST_GUILESS_MAIN(TestQJsonSettings)
#include "tst_qjsonsettings.moc"
