#include "columns.h"
#include "unibaseinput.h"

#include <QLocale>
#include <QMouseEvent>
#include <QtTest>

class TestUniBaseInput : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void notations_data()
    {
        // shown: the text that stays in the field
        // value: the int value, or the float times 1000
        addColumns<QString, QString, bool, int>({"typed", "shown", "isFloat", "value"});

        QTest::newRow("decimal") << "101" << QString("101") << false << 101;
        QTest::newRow("negative") << "-7" << QString("-7") << false << -7;
        QTest::newRow("binary") << "101b" << QString("101b") << false << 5;
        QTest::newRow("hex suffix") << "ffh" << QString("ffh") << false << 255;
        QTest::newRow("hex prefix") << "0x1F" << QString("0x1F") << false << 31;
        QTest::newRow("1011h is hex") << "1011h" << QString("1011h") << false << 0x1011;
        QTest::newRow("float point") << "1.25" << QString("1.25") << true << 1250;
        QTest::newRow("float comma") << "2,5" << QString("2,5") << true << 2500;
        // The validator lets a text through that no notation takes: the last
        // good one comes back.
        QTest::newRow("refused") << "12x" << QString("12") << false << 12;
        QTest::newRow("lone sign waits") << "-" << QString("-") << false << 12;
    }

    void notations()
    {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(bool, isFloat);
        QFETCH(int, value);

        UniBaseInput input;
        input.setValidator(nullptr); // the grammar alone decides here
        input.setText(QStringLiteral("12"));
        QSignalSpy changed(&input, qOverload<const QVariant&>(&UniBaseInput::valueChanged));
        input.setText(typed);
        QCOMPARE(input.text(), shown);
        QCOMPARE(input.isFloatValueValid(), isFloat);
        if (isFloat)
            QCOMPARE(qRound(input.floatValue() * 1000), value);
        else
            QCOMPARE(input.intValue(), value);
        QCOMPARE(changed.size(), shown == typed && typed != QLatin1String("-") ? 1 : 0);
    }

    void shownByBase_data()
    {
        addColumns<int, int, QString>({"base", "value", "shown"});

        QTest::newRow("2") << 2 << 5 << "101b";
        QTest::newRow("8") << 8 << 8 << "10o";
        QTest::newRow("10 signed") << 10 << -1 << "-1";
        QTest::newRow("16") << 16 << 255 << "0xFF";
    }

    void shownByBase()
    {
        QFETCH(int, base);
        QFETCH(int, value);

        UniBaseInput input;
        input.setBase(base);
        input.setIntValue(value);
        QTEST(input.text(), "shown");
        QCOMPARE(input.intSign(), value < 0);
    }

    void ctrlDoubleClickCycles()
    {
        UniBaseInput input;
        input.setBase(16);
        input.setIntValue(-1);
        const QStringList expected = {"-1", "4294967295", "0xFFFFFFFF", "-1"};
        for (const QString& text : expected) {
            QTest::mouseDClick(&input, Qt::LeftButton, Qt::ControlModifier);
            QCOMPARE(input.text(), text);
        }
        // A float has one notation.
        input.setFloatValue(1.5f);
        QTest::mouseDClick(&input, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(input.text(), QStringLiteral("1.5"));
    }
};

QTEST_MAIN(TestUniBaseInput)
#include "tst_unibaseinput.moc"
