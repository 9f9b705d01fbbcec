#include "byteswapper.h"

#include <QtTest>

class TestByteSwapper : public QObject
{
    Q_OBJECT

private slots:
    void convertAndSwap()
    {
        const auto hx = [](const char* hex) { return QByteArray::fromHex(hex); };
        // Byte i of the result is the source's byte named by digit i of the rule.
        QCOMPARE(ByteSwapper::convert(hx("01020304"), "3210"), hx("04030201"));
        QCOMPARE(ByteSwapper::convert(hx("0102"), "00"), hx("0101"));
        QCOMPARE(ByteSwapper::convert(hx("0102"), "210"), QByteArray()); // the source is shorter than the rule
        QCOMPARE(ByteSwapper::convert(hx("0102"), ""), hx("0000"));      // an empty rule keeps the length

        // The inverse swaps neighbours: a reversal is not inverted.
        QCOMPARE(ByteSwapper::inverseRule("0123"), QString("1032"));
        QCOMPARE(ByteSwapper::inverseRule("3210"), QString("2301"));
        QCOMPARE(ByteSwapper::inverseRule(""), QString());

        QCOMPARE(ByteSwapper::swap_byteorder(hx("3f800000 40490fdb"), 4), hx("0000803f db0f4940"));
        QCOMPARE(ByteSwapper::swap_byteorder(hx("0102030405"), 4), QByteArray());
        QCOMPARE(ByteSwapper::swap_byteorder(hx("01"), 0), QByteArray());
    }
};

QTEST_GUILESS_MAIN(TestByteSwapper)
#include "tst_byteswapper.moc"
