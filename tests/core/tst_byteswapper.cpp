#include "byteswapper.h"

#include <QtTest>

class TestByteSwapper : public QObject
{
    Q_OBJECT

private slots:
    void convert_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QByteArray>("expected");

        QTest::newRow("reverse four") << QByteArray::fromHex("01020304") << "3210" << QByteArray::fromHex("04030201");
        QTest::newRow("word swap") << QByteArray::fromHex("01020304") << "2301" << QByteArray::fromHex("03040102");
        QTest::newRow("repeat a byte") << QByteArray::fromHex("0102") << "00" << QByteArray::fromHex("0101");
        QTest::newRow("source shorter than rule") << QByteArray::fromHex("0102") << "210" << QByteArray();
        QTest::newRow("empty rule keeps the length") << QByteArray::fromHex("0102") << "" << QByteArray(2, '\0');
    }

    void convert()
    {
        QFETCH(QByteArray, source);
        QFETCH(QString, rule);
        QTEST(ByteSwapper::convert(source, rule), "expected");
    }

    void inverseRule_data()
    {
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QString>("expected");

        QTest::newRow("pairs") << "0123" << QString("1032");
        QTest::newRow("reversal is not inverted") << "3210" << QString("2301");
        QTest::newRow("empty") << "" << QString("");
    }

    void inverseRule()
    {
        QFETCH(QString, rule);
        QTEST(ByteSwapper::inverseRule(rule), "expected");
    }

    void swapByteorder_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<int>("size");
        QTest::addColumn<QByteArray>("expected");

        QTest::newRow("two floats") << QByteArray::fromHex("3f800000 40490fdb") << 4
                                    << QByteArray::fromHex("0000803f db0f4940");
        QTest::newRow("pairs") << QByteArray::fromHex("010203040506") << 2 << QByteArray::fromHex("020104030605");
        QTest::newRow("five bytes, size 4") << QByteArray::fromHex("0102030405") << 4 << QByteArray();
        QTest::newRow("size 0 refused") << QByteArray::fromHex("01") << 0 << QByteArray();
    }

    void swapByteorder()
    {
        QFETCH(QByteArray, source);
        QFETCH(int, size);
        QTEST(ByteSwapper::swap_byteorder(source, size), "expected");
    }
};

QTEST_GUILESS_MAIN(TestByteSwapper)
#include "tst_byteswapper.moc"
