#include "debugqt.h"
#include "helpviewer.h"
#include "scratchdir.h"

#include <QPlainTextEdit>
#include <QStringEncoder>
#include <QtTest>

class TestHelpViewer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init() { QVERIFY(m_dir.enter()); }
    void cleanup() { m_dir.leave(); }

    void content_data()
    {
        QTest::addColumn<QString>("text"); // none: no file
        QTest::addColumn<QByteArray>("encoding");
        QTest::addColumn<QString>("shown");
        const QString russian = QStringLiteral("Руководство оператора\nНастройка порта: 1200 бод, «нечётность».\n");
        QTest::newRow("CP-1251") << russian << QByteArray("windows-1251") << russian;
        QTest::newRow("UTF-8") << russian << QByteArray("UTF-8") << russian;
        QTest::newRow("missing file") << QString() << QByteArray() << "Can't open help file";
    }

    void content()
    {
        QFETCH(QString, text);
        QFETCH(QByteArray, encoding);
        QString path = m_dir.filePath(QStringLiteral("missing.txt"));
        if (!text.isNull()) {
            QStringEncoder encoder(encoding.constData());
            const QByteArray bytes = encoder.encode(text);
            QVERIFY(encoder.isValid() && !encoder.hasError());
            path = m_dir.writeFile(QStringLiteral("manual.txt"), bytes);
            QVERIFY(!path.isEmpty());
        }
        HelpViewer viewer;
        viewer.setContentFromFile(m_dir.writeFile(QStringLiteral("old.txt"), "old text"));
        viewer.setContentFromFile(path);
        QTEST(viewer.text(), "shown");
        QCOMPARE(viewer.findChild<QPlainTextEdit*>()->textCursor().position(), 0);
        QVERIFY(viewer.findChild<QPlainTextEdit*>()->isReadOnly());
    }

    // The Russian manual is CP-1251, the English one UTF-8.
    void builtInManuals_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("title");
        QTest::newRow("Russian") << ":/doc/calvane.txt" << QStringLiteral("CALVANE — КОНФИГУРАТОР HART-ПРИБОРОВ");
        QTest::newRow("English") << ":/doc/calvane_en.txt"
                                 << "CALVANE - HART DEVICE CONFIGURATOR";
    }

    void builtInManuals()
    {
        QFETCH(QString, path);
        HelpViewer viewer;
        viewer.setContentFromFile(path);
        QTEST(viewer.text().section(QLatin1Char('\n'), 0, 0), "title");
    }

private:
    ScratchDir m_dir;
};

QTEST_MAIN(TestHelpViewer)
#include "tst_helpviewer.moc"
