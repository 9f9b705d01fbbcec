#include "columns.h"
#include "debugqt.h"
#include "device.h"
#include "tag.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSemaphore>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

#include <limits>

namespace {

QVariantMap json(const char* text)
{
    return QJsonDocument::fromJson(text).object().toVariantMap();
}

// A tag with its types set, as the window and the conversions depend on them.
void setTypes(Tag& tag, int serverType, int deviceType)
{
    tag.setServerType(Tag::ServerType(serverType));
    tag.setDeviceType(Tag::DeviceType(deviceType));
}

const double NaN = std::numeric_limits<double>::quiet_NaN();
const double Inf = std::numeric_limits<double>::infinity();

} // namespace

class TestTag : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0007, nullptr); }

    void typeAndAccessTexts()
    {
        const struct
        {
            int type;
            const char* server;
            const char* device;
            int length;
        } types[] = {{0, "bool", "bit", 1},        {1, "int16", "int16", 2},     {2, "uint16", "uint16", 2},
                     {3, "int32", "int32", 4},     {4, "uint32", "uint32", 4},   {5, "float32", "float32", 4},
                     {6, "float64", "float64", 8}, {7, "Invalid", "Invalid", 0}, {-1, "Invalid", "Invalid", 0}};
        for (const auto& t : types) {
            QCOMPARE(Tag::serverTypeToString(t.type), QLatin1String(t.server));
            QCOMPARE(Tag::deviceTypeToString(t.type), QLatin1String(t.device));
            QCOMPARE(Tag::deviceTypeLength(t.type), t.length);
            const int back = t.length > 0 ? t.type : 7;
            QCOMPARE(int(Tag::serverTypeFromString(QLatin1String(t.server))), back);
            QCOMPARE(int(Tag::deviceTypeFromString(QLatin1String(t.device))), back);
        }
        // The name of 0 differs between the lists.
        QCOMPARE(Tag::deviceTypeFromString(QStringLiteral("bool")), Tag::DeviceInvalid);
        QCOMPARE(Tag::serverTypeFromString(QStringLiteral("bit")), Tag::ServerInvalid);

        const char* const access[] = {"ReadOnly", "WriteOnly", "ReadWrite"};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(Tag::accessToString(i), QLatin1String(access[i]));
            QCOMPARE(int(Tag::accessFromString(QLatin1String(access[i]))), i);
        }
        QCOMPARE(Tag::accessToString(3), QStringLiteral("Invalid"));
        QCOMPARE(Tag::accessToString(-1), QStringLiteral("Invalid"));
        QCOMPARE(Tag::accessFromString(QStringLiteral("readonly")), Tag::AccessInvalid);
    }

    void addressAndGroup()
    {
        // Hexadecimal with one mark, "0x" before or "h" after; else decimal.
        const QList<QPair<QString, int>> addresses = {{"0X1a", 26}, {"1aH", 26},  {"010", 10},
                                                      {"1A", 0},    {"0x1Ah", 0}, {"0x", 0}};
        Tag tag;
        for (const auto& [text, number] : addresses) {
            tag.setAddress(text);
            QCOMPARE(tag.address(), number);
        }

        tag.setConfigGroup({QStringLiteral("Channel"), QStringLiteral("Ch 1")});
        QCOMPARE(tag.configGroupID(), QStringLiteral("Channel"));
        QCOMPARE(tag.configGroupName(), QStringLiteral("Ch 1"));
        QVERIFY(tag.isChannel());
        tag.setConfigGroup({QStringLiteral("channel")});
        QCOMPARE(tag.configGroupID(), QString());
        QCOMPARE(tag.configGroupName(), QString());
        QVERIFY(!tag.isChannel());
    }

    void bitWindow()
    {
        // The upper end is cut to the width, the lower one to the width - 1, and
        // the other end follows; without a type nothing stands above 0. An end
        // of -99 is left unset; toFirst sets the upper end before the lower.
        const struct
        {
            int type, from, to;
            bool toFirst;
            int expectedFrom, expectedTo;
        } windows[] = {{2, -99, 99, false, 0, 16}, {2, 99, -99, false, 15, 15}, {2, 4, 2, false, 2, 2},
                       {2, 9, 6, true, 9, 9},      {7, 0, -99, false, -1, 0},   {7, -99, 5, false, 0, 0},
                       {7, -99, -3, false, -3, -3}};
        for (const auto& w : windows) {
            Tag tag;
            tag.setDeviceType(Tag::DeviceType(w.type));
            if (w.toFirst)
                tag.setExtractBitTo(w.to);
            if (w.from != -99)
                tag.setExtractBitFrom(w.from);
            if (!w.toFirst && w.to != -99)
                tag.setExtractBitTo(w.to);
            QCOMPARE(QPoint(tag.extractBitFrom(), tag.extractBitTo()), QPoint(w.expectedFrom, w.expectedTo));
        }
    }

    void conversions_data()
    {
        // raw: lowest byte first
        // bits: QPoint(from, to) when extracting
        // value: read from raw; invalid: the value stays
        // written: written gives raw; invalid: not written
        addColumns<int, int, QByteArray, QVariant, QVariant, QVariant>(
            {"serverType", "deviceType", "raw", "bits", "value", "written"});
        const QVariant whole;
        const QVariant none;

        QTest::newRow("bool, empty buffer") << 0 << 1 << QByteArray() << whole << QVariant(false) << none;
        QTest::newRow("bool, first byte only") << 0 << 1 << hx("00 01") << whole << QVariant(false) << none;
        QTest::newRow("bool whatever the device type") << 0 << 7 << hx("80") << whole << QVariant(true) << none;
        QTest::newRow("bit") << 1 << 0 << hx("04") << whole << QVariant(true) << none;
        QTest::newRow("bit, 7") << 0 << 0 << hx("01") << whole << QVariant(true) << QVariant(7);
        QTest::newRow("int16, sign extended") << 1 << 1 << hx("FE FF") << whole << QVariant(-2) << QVariant(-2);
        QTest::newRow("int16, -2.7 cut toward zero")
            << 1 << 1 << hx("FE FF") << whole << QVariant(-2) << QVariant(-2.7);
        QTest::newRow("int16, not a number") << 1 << 1 << hx("00 00") << whole << QVariant(0) << QVariant("abc");
        QTest::newRow("uint16") << 2 << 2 << hx("FE FF") << whole << QVariant(65534u) << QVariant(65534);
        QTest::newRow("int32") << 3 << 3 << hx("FE FF FF FF") << whole << QVariant(-2) << QVariant(-2);
        QTest::newRow("uint32, as text") << 4 << 4 << hx("FF FF FF FF") << whole << QVariant(4294967295u)
                                         << QVariant("4294967295");
        QTest::newRow("float32") << 5 << 5 << hx("00 00 C0 3F") << whole << QVariant(1.5f) << QVariant(1.5);
        QTest::newRow("float64") << 6 << 6 << hx("00 00 00 00 00 00 02 C0") << whole << QVariant(-2.25)
                                 << QVariant(-2.25);
        QTest::newRow("invalid device type: the value stays") << 1 << 7 << hx("05 00") << whole << none << none;
        QTest::newRow("uint16, bits 8 to 11")
            << 2 << 2 << hx("00 A5") << QVariant(QPoint(8, 11)) << QVariant(5u) << none;
    }

    void conversions()
    {
        QFETCH(int, serverType);
        QFETCH(int, deviceType);
        QFETCH(QByteArray, raw);
        QFETCH(QVariant, bits);
        QFETCH(QVariant, value);
        QFETCH(QVariant, written);

        Tag tag;
        setTypes(tag, serverType, deviceType);
        tag.setAccess(Tag::ReadOnly);
        tag.setRawBuffer(raw);
        if (bits.isValid()) {
            tag.setUseBitExtraction(true);
            tag.setExtractBitFrom(bits.toPoint().x());
            tag.setExtractBitTo(bits.toPoint().y());
        }
        const QVariant before(QStringLiteral("before"));
        tag.setValue(before);
        QSignalSpy changed(&tag, &Tag::valueChanged);
        const QVariant result = tag.read();
        const QVariant expected = value.isValid() ? value : before;
        QCOMPARE(result, expected);
        QCOMPARE(result.typeId(), expected.typeId());
        QCOMPARE(changed.count(), value.isValid() ? 1 : 0);
        QCOMPARE(tag.state(), int(ServerItem::StateGood));
        if (!written.isValid())
            return;

        // Written over a longer buffer: the type's bytes replace it.
        tag.setAccess(Tag::WriteOnly);
        tag.setRawBuffer(hx("AA AA AA AA AA AA AA AA AA"));
        changed.clear();
        QVERIFY(tag.write(written));
        QCOMPARE(tag.rawBuffer().toHex(' '), raw.toHex(' '));
        QCOMPARE(tag.value(), written);
        QCOMPARE(changed.count(), 1);
    }

    void refused_data()
    {
        addColumns<int, int, bool, QString>({"access", "deviceType", "write", "error"});

        const QString accessError = "Config error(invalid access type)";
        QTest::newRow("read of a write-only tag") << int(Tag::WriteOnly) << 1 << false << accessError;
        QTest::newRow("write to a read-only tag") << int(Tag::ReadOnly) << 1 << true << accessError;
        // The value is taken, the buffer is not.
        QTest::newRow("write, invalid device type")
            << int(Tag::ReadWrite) << 7 << true << "Invalid device type of tag 'Level'";
    }

    void refused()
    {
        QFETCH(int, access);
        QFETCH(int, deviceType);
        QFETCH(bool, write);

        Tag tag;
        tag.setName(QStringLiteral("Level"));
        setTypes(tag, 1, deviceType);
        tag.setAccess(Tag::OpcAccessType(access));
        tag.setRawBuffer(hx("12 34"));
        tag.setValue(QStringLiteral("before"));
        QSignalSpy changed(&tag, &Tag::valueChanged);
        QSignalSpy state(&tag, &ServerItem::stateChanged);
        QVERIFY(write ? !tag.write(5) : !tag.read().isValid());
        QCOMPARE(tag.errorCode(), 3);
        QTEST(tag.errorText(), "error");
        QCOMPARE(tag.rawBuffer(), hx("12 34"));
        const bool accessRefused = deviceType != 7;
        QCOMPARE(tag.value(), accessRefused ? QVariant(QStringLiteral("before")) : QVariant(5));
        QCOMPARE(changed.count(), accessRefused ? 0 : 1);
        QCOMPARE(state.count(), accessRefused ? 0 : 1);
    }

    void setValueAlwaysSignals()
    {
        Tag tag;
        QSignalSpy changed(&tag, &Tag::valueChanged);
        QSignalSpy writeRequest(&tag, &Tag::writeRequest);
        tag.setTimeStamp(QDateTime());
        tag.setValue(3);
        tag.setValue(3);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed.at(1).at(0), QVariant(3));
        QVERIFY(tag.timestamp().isValid());

        tag.writeValueScheduled(9);
        QCOMPARE(tag.value(), QVariant(9));
        QCOMPARE(writeRequest.count(), 1);
        QCOMPARE(changed.count(), 2);
    }

    void valueFromValues_data()
    {
        addColumns<QVariantMap, QString, QVariant, QString>({"values", "prefix", "value", "text"});

        QTest::newRow("no values") << QVariantMap() << "" << QVariant(5) << "5";
        QTest::newRow("prefix and a zero") << QVariantMap{{"st05", "zero five"}} << "st" << QVariant(5) << "zero five";
        QTest::newRow("without zero first") << QVariantMap{{"st5", "a"}, {"st05", "b"}} << "st" << QVariant(5) << "a";
        QTest::newRow("plain key ignored with a prefix") << QVariantMap{{"5", "five"}} << "st" << QVariant(5) << "5";
        QTest::newRow("a text value") << QVariantMap{{"on", "switched on"}} << "st" << QVariant("on") << "switched on";
        QTest::newRow("a fraction") << QVariantMap{{"st2.5", "x"}} << "st" << QVariant(2.5) << "2.5";
    }

    void valueFromValues()
    {
        QFETCH(QVariantMap, values);
        QFETCH(QString, prefix);
        QFETCH(QVariant, value);

        Tag tag;
        tag.setValues(values);
        tag.setProperty("values_prefix", prefix);
        tag.setValue(value);
        QTEST(tag.valueFromValues(), "text");
    }

    void valueChecks_data()
    {
        addColumns<QVariantList, QVariant, bool, bool>({"limits", "value", "limitsOut", "nan"});

        const QVariantList range{0, 10};
        QTest::newRow("at the low limit") << range << QVariant(0) << false << false;
        QTest::newRow("below") << range << QVariant(-0.5) << true << false;
        QTest::newRow("above") << range << QVariant(10.5) << true << false;
        QTest::newRow("one limit") << QVariantList{0} << QVariant(-5) << false << false;
        QTest::newRow("NaN") << range << QVariant(NaN) << false << true;
        QTest::newRow("-inf") << range << QVariant(-Inf) << true << true;
    }

    void valueChecks()
    {
        QFETCH(QVariantList, limits);
        QFETCH(QVariant, value);
        Tag tag;
        tag.setLimits(limits);
        tag.setValue(value);
        QTEST(tag.isValueLimitsOut(), "limitsOut");
        QTEST(tag.isValueNaN(), "nan");
    }

    void underADevice()
    {
        Device device;
        device.setPriority(7);
        device.setPollingPeriod(2500);
        auto* first = new Tag(&device);
        device.insertChild(-1, first);
        QCOMPARE(first->name(), QStringLiteral("Tag1"));
        QCOMPARE(first->fullName(), device.fullName() + QStringLiteral("/Tag1"));
        QCOMPARE(first->property("priority").toInt(), 7);
        QCOMPARE(first->property("period").toInt(), 2500);

        // The device's error text goes to the tag with each read.
        device.setErrorText(QStringLiteral("device text"));
        setTypes(*first, 1, 1);
        first->read();
        QCOMPARE(first->errorText(), QStringLiteral("device text"));

        // The oldest lines of the log go beyond its depth.
        first->setMessageLogDepth(3);
        for (int i = 1; i <= 5; ++i)
            first->appendModbusMessage(QString::number(i));
        QCOMPARE(first->messageLog(), (QList<QString>{"3", "4", "5"}));
    }

    void saveAndLoad()
    {
        const QVariantMap map = json(R"({"name": "Level", "enabled": false, "address": "0x1F", "priority": 3,
            "polling_period": 750, "server_type": "uint16", "device_type": "int32", "access": "WriteOnly",
            "comment": "tank level", "read_func": 3, "write_func": 16, "byteorder": "3210", "byteorder_enabled": true,
            "use_bit_extraction": true, "extract_bit_from": 4, "extract_bit_to": 11, "config_group": ["channel", "Ch 2"],
            "value": 12.5, "limits": [0.0, 100.0], "values": {"st1": "on"}, "modified": true})");
        Tag tag;
        QVERIFY(tag.load(map));
        QCOMPARE(tag.address(), 31);
        QVERIFY(tag.isChannel());
        // The byte order is written, and never read back.
        QCOMPARE(tag.property("byteorder").toString(), QStringLiteral("0123"));
        tag.setProperty("byteorder", QStringLiteral("3210"));
        tag.setProperty("byteorder_enabled", true);
        QCOMPARE(tag.save(), map);

        // The file's JSON carries no NaN.
        tag.setValue(NaN);
        QCOMPARE(tag.save().value(QStringLiteral("value")), QVariant(0.0));

        // A missing key gives an empty or zero value, but the name stays, a
        // missing value is 0 and the group is read only when present.
        QVERIFY(tag.load(QVariantMap()));
        QCOMPARE(tag.name(), QStringLiteral("Level"));
        QCOMPARE(tag.value(), QVariant(0));
        QCOMPARE(tag.configGroup().size(), 2);
        QCOMPARE(tag.serverType(), Tag::ServerInvalid);
        QCOMPARE(tag.access(), Tag::AccessInvalid);

        // Values of the wrong type load as what they can be, and never more. The
        // type comes first: it bounds the window.
        QVERIFY(tag.load(json(R"({"device_type": "uint16", "extract_bit_from": "abc", "extract_bit_to": 99,
            "limits": "x", "values": 5, "config_group": "channel", "priority": {}})")));
        QCOMPARE(tag.extractBitFrom(), 0);
        QCOMPARE(tag.extractBitTo(), 16);
        QVERIFY(tag.configGroup().isEmpty() && tag.limits().isEmpty() && tag.values().isEmpty());
        QCOMPARE(tag.property("priority").toInt(), 0);
    }

    void waiterIsReleasedByARead()
    {
        Tag tag;
        setTypes(tag, 1, 1);
        tag.setRawBuffer(hx("07 00"));
        QSemaphore started;
        QScopedPointer<QThread> waiter(QThread::create([&] {
            started.release();
            tag.waitTagRequested();
        }));
        waiter->start();
        started.acquire();
        // The waiter may not be waiting yet when a read ends; each read wakes
        // whoever waits, so one of them releases it.
        for (int reads = 0; reads < 1000 && !waiter->wait(10); ++reads) {
            tag.tagRequesting();
            QCOMPARE(tag.read(), QVariant(7));
        }
        QVERIFY(waiter->isFinished());
        // The mutex was given back by every read: the next request can take it.
        tag.tagRequesting();
        QVERIFY(tag.write(9));
    }
};

QTEST_GUILESS_MAIN(TestTag)
#include "tst_tag.moc"
