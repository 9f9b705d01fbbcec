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
        QTest::addColumn<QString>("text"); // written in CP-1251; none: no file
        QTest::addColumn<QString>("shown");
        const QString russian = QStringLiteral("Руководство оператора\nНастройка порта: 1200 бод, «нечётность».\n");
        QTest::newRow("russian text") << russian << russian;
        QTest::newRow("missing file") << QString() << "Can't open help file";
    }

    void content()
    {
        QFETCH(QString, text);
        QString path = m_dir.filePath(QStringLiteral("missing.txt"));
        if (!text.isNull()) {
            QStringEncoder encoder("windows-1251");
            QVERIFY(encoder.isValid());
            const QByteArray bytes = encoder.encode(text);
            QVERIFY(!encoder.hasError());
            QVERIFY(bytes != text.toUtf8());
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

private:
    ScratchDir m_dir;
};

QTEST_MAIN(TestHelpViewer)
#include "tst_helpviewer.moc"
