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
    void vmapGet_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("withDefault");
        QTest::addColumn<QVariant>("expected");

        QTest::newRow("top key") << "n" << false << QVariant(5);
        QTest::newRow("nested") << "a/b/c" << false << QVariant(3);
        QTest::newRow("doubled slash is the empty key") << "a/b/" << false << QVariant(QStringLiteral("empty key"));
        QTest::newRow("missing nested") << "a/x/c" << false << QVariant();
        QTest::newRow("through a string, no conversion") << "s/b" << false << QVariant();
        QTest::newRow("missing top") << "zz" << false << QVariant();
        QTest::newRow("default unused for one key") << "zz" << true << QVariant();
        QTest::newRow("default for two keys even if present") << "a/b" << true << QVariant(QStringLiteral("dflt"));
    }

    void vmapGet()
    {
        QFETCH(QString, path);
        QFETCH(bool, withDefault);
        const QVariant got = withDefault ? vmap_get(sample(), path, QStringLiteral("dflt")) : vmap_get(sample(), path);
        QTEST(got, "expected");
    }

    void vmapPut_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("readPath");

        QTest::newRow("new top key") << "k" << QVariant(7) << "k";
        QTest::newRow("replace nested") << "a/b/c" << QVariant(9) << "a/b/c";
        QTest::newRow("create nested") << "x/y/z" << QVariant(QStringLiteral("v")) << "x/y/z";
        QTest::newRow("scalar in the way becomes a map") << "n/b" << QVariant(1) << "n/b";
    }

    void vmapPut()
    {
        QFETCH(QString, path);
        QFETCH(QVariant, value);
        QFETCH(QString, readPath);

        QVariantMap map = sample();
        vmap_put(map, path, value);
        QCOMPARE(vmap_get(map, readPath), value);
        // Siblings along the path survive.
        QCOMPARE(vmap_get(map, QStringLiteral("s")), QVariant(QStringLiteral("text")));
        if (path.startsWith(QLatin1String("a/")))
            QCOMPARE(vmap_get(map, QStringLiteral("a/b/")), QVariant(QStringLiteral("empty key")));
    }

    void vmapPutEmptyPathScalarIsRefused()
    {
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

    void hexText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("plain");
        QTest::addColumn<QString>("marked");

        QTest::newRow("empty") << QByteArray() << QString() << QString();
        QTest::newRow("one") << QByteArray("\x0a", 1) << "0a" << QString("0x0Ah");
        QTest::newRow("several") << QByteArray("\x00\xff\x7e", 3) << "00 ff 7e" << QString("0x00h 0xFFh 0x7Eh");
    }

    void hexText()
    {
        QFETCH(QByteArray, bytes);
        QTEST(byteBufferToString(bytes.constData(), bytes.size()), "plain");
        QTEST(byteBufferToString16(bytes.constData(), bytes.size()), "marked");
        QCOMPARE(::stringToByteArray(byteBufferToString16(bytes.constData(), bytes.size())), bytes);
    }

    void stringToByteArray_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("wrong tokens skipped") << "0x0Ah 0xFFH zz 0x1h" << QByteArray("\x0a\xff", 2);
        QTest::newRow("plain hex not taken") << "0A ff" << QByteArray();
        QTest::newRow("doubled blank") << "0x01h  0X02H" << QByteArray("\x01\x02", 2);
        QTest::newRow("three digits") << "0x123h" << QByteArray();
    }

    void stringToByteArray()
    {
        QFETCH(QString, text);
        QTEST(::stringToByteArray(text), "bytes");
    }

    void extractBits_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("count");
        QTest::addColumn<uint>("value");

        const QByteArray data = QByteArray::fromHex("b5 3c 01 80 00 00 00 ff");
        QTest::newRow("low nibble") << data << 0 << 4 << 0x5u;
        QTest::newRow("across bytes") << data << 4 << 8 << 0xCBu;
        QTest::newRow("one bit") << data << 16 << 1 << 1u;
        QTest::newRow("top bit of the fourth byte") << data << 31 << 1 << 1u;
        QTest::newRow("32 bits") << data << 0 << 32 << 0x80013CB5u;
        QTest::newRow("last byte") << data << 56 << 8 << 0xFFu;
        QTest::newRow("only the bytes needed") << QByteArray::fromHex("f0") << 4 << 4 << 0xFu;
    }

    void extractBits()
    {
        QFETCH(QByteArray, data);
        QFETCH(int, offset);
        QFETCH(int, count);
        QTEST(extract_bits(reinterpret_cast<unsigned char*>(data.data()), offset, count), "value");
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
};

QTEST_GUILESS_MAIN(TestUtils)
#include "tst_utils.moc"
