#include "logwidget.h"
#include "modalanswerer.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

class TestLogWidget : public QObject
{
    Q_OBJECT

private slots:
    void shownSavedSearched_data()
    {
        QTest::addColumn<QString>("search"); // the search buttons work with a text only
        QTest::addColumn<int>("limit");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<QString>("shown");
        QStringList lines;
        for (int i = 1; i <= 101; ++i)
            lines << QString::number(i);
        QTest::newRow("no mark") << "" << 100 << QStringList{"TX 82 a6"} << "TX 82 a6";
        QTest::newRow("every mark inside breaks") << "b" << 100 << QStringList{"a*** b*** c"} << "a\n*** b\n*** c";
        QTest::newRow("mark first: as it stands") << "*" << 100 << QStringList{"*** a*** b"} << "*** a*** b";
        QTest::newRow("broken lines count") << "" << 2 << QStringList{"a*** b", "c"} << "*** b\nc";
        QTest::newRow("100 lines kept") << "100" << 100 << lines.mid(0, 100) << lines.mid(0, 100).join('\n');
        QTest::newRow("101st drops the 1st") << "" << 100 << lines << lines.mid(1).join('\n');
        QTest::newRow("saved in UTF-8") << "нет" << 100 << QStringList{"ошибка*** нет"} << "ошибка\n*** нет";
    }

    void shownSavedSearched()
    {
        QFETCH(int, limit);
        QFETCH(QStringList, messages);
        QFETCH(QString, shown);
        LogWidget log;
        log.setLinesCount(limit);
        for (const QString& message : messages)
            log.appendLogMessage(0, message);
        QCOMPARE(log.findChild<QPlainTextEdit*>()->toPlainText(), shown);

        QTemporaryDir dir;
        ModalAnswerer answerer({dir.filePath("hart.log")});
        log.findChild<QPushButton*>("btnSaveAs")->click();
        QFile file(dir.filePath("hart.log"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(file.readAll()), shown);

        QFETCH(QString, search);
        log.findChild<QLineEdit*>("txtSearch")->setText("x");
        log.findChild<QLineEdit*>("txtSearch")->setText(search);
        QCOMPARE(log.findChild<QPushButton*>("btnSearchUp")->isEnabled(), !search.isEmpty());
        QCOMPARE(log.findChild<QPushButton*>("btnSearchDown")->isEnabled(), !search.isEmpty());
    }
};

QTEST_MAIN(TestLogWidget)
#include "tst_logwidget.moc"
