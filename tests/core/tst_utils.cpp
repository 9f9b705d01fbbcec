#include "byteswapper.h"
#include "columns.h"
#include "debugqt.h"
#include "qjsonsettings.h"
#include "scratchdir.h"
#include "utils.h"

#include <QTemporaryDir>
#include <QtTest>

static QVariantMap sample()
{
    return {{"a", QVariantMap{{"b", QVariantMap{{"c", 3}, {"", "empty key"}}}}}, {"s", "text"}, {"n", 5}};
}

class TestUtils : public QObject
{
    Q_OBJECT

private slots:
    void vmapGet()
    {
        const QVariantMap map = sample();
        QCOMPARE(vmap_get(map, "n"), QVariant(5));
        QCOMPARE(vmap_get(map, "a/b/c"), QVariant(3));
        QCOMPARE(vmap_get(map, "s/b"), QVariant()); // through a string: no conversion
        // The default stands for two keys or more, even when the value is there.
        QCOMPARE(vmap_get(map, "zz", "dflt"), QVariant());
        QCOMPARE(vmap_get(map, "a/b", "dflt"), QVariant("dflt"));
    }

    void vmapPut()
    {
        // A new top key, a nested one replaced, a scalar in the way that
        // becomes a map.
        for (const char* path : {"k", "a/b/c", "n/b"}) {
            QVariantMap map = sample();
            vmap_put(map, path, path);
            QCOMPARE(vmap_get(map, path), QVariant(path));
            // Siblings along the path survive.
            QCOMPARE(vmap_get(map, "s"), QVariant("text"));
            QCOMPARE(vmap_get(map, "a/b/"), QVariant("empty key"));
        }

        // An empty path takes a map, merged in, and refuses anything else.
        DebugQt::instance(0x8ED0007, nullptr);
        QVariantMap map = sample();
        const QStringList log = logOf([&] { vmap_put(map, QString(), 5); });
        QCOMPARE(map, sample());
        QCOMPARE(log.size(), 1);
        QVERIFY(log.first().contains(QLatin1String("dont understand")));
        vmap_put(map, QString(), QVariantMap{{"s", 1}, {"t", 2}});
        QCOMPARE(map.value("s"), QVariant(1));
        QCOMPARE(map.value("t"), QVariant(2));
    }

    void vmapMerge()
    {
        const QVariantMap source{{"a", 1}, {"b", QVariantMap{{"x", 1}}}};
        QVariantMap all{{"a", 0}, {"b", QVariantMap{{"y", 2}}}};
        QVariantMap onlyNew = all;
        vmap_merge(source, all);
        QCOMPARE(all, source); // no recursion: b is replaced whole
        onlyNew.insert("c", 3);
        vmap_merge_new(source, onlyNew);
        QCOMPARE(onlyNew, (QVariantMap{{"a", 0}, {"b", QVariantMap{{"y", 2}}}, {"c", 3}}));
    }

    void hexText()
    {
        const QByteArray bytes("\x00\xff\x7e", 3);
        QCOMPARE(byteBufferToString(bytes.constData(), 3), QString("00 ff 7e"));
        QCOMPARE(byteBufferToString(bytes.constData(), 0), QString());
        QCOMPARE(byteBufferToString16(bytes.constData(), 3), QString("0x00h 0xFFh 0x7Eh"));
        QCOMPARE(stringToByteArray("0x00h 0xFFh 0x7Eh"), bytes);
        // Only tokens of two digits between the marks count.
        QCOMPARE(stringToByteArray("0x0Ah 0xFFH zz 0x1h"), QByteArray("\x0a\xff", 2));
    }

    void extractBits()
    {
        QByteArray data = hx("b5 3c 01 80 00 00 00 ff");
        auto* bytes = reinterpret_cast<unsigned char*>(data.data());
        QCOMPARE(extract_bits(bytes, 0, 4), 0x5u);
        QCOMPARE(extract_bits(bytes, 4, 8), 0xCBu); // across bytes
        QCOMPARE(extract_bits(bytes, 31, 1), 1u);   // the top bit of the fourth byte
        QCOMPARE(extract_bits(bytes, 0, 32), 0x80013CB5u);
        QCOMPARE(extract_bits(bytes, 60, 8), 0u); // beyond 64 bits
    }

    void configFileHelpers()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString file = dir.filePath(QStringLiteral("c.json"));
        const QVariantMap srv{{"port", QVariantMap{{"name", "COM1"}}}};
        saveConfig({{"app", QVariantMap()}, {"common", QVariantMap{{"k", 1}}}, {"srv", srv}}, file);
        const QVariantMap back = loadConfig(file);
        QCOMPARE(back.value("srv").toMap(), srv);
        // "app" asks for the copy of "common"; "app" itself is read back empty.
        QCOMPARE(QJsonSettings(file).value("common").toMap().value("k").toInt(), 1);
        QVERIFY(back.value("app").toMap().isEmpty());
    }

    void byteOrder()
    {
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

QTEST_GUILESS_MAIN(TestUtils)
#include "tst_utils.moc"
