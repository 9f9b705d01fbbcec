#include "debugqt.h"
#include "device.h"
#include "qjsonsettings.h"
#include "tag.h"

#include <QDir>
#include <QFile>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

// A tag with its types set, as the window and the conversions depend on them.
void setTypes(Tag& tag, int serverType, int deviceType)
{
    tag.setServerType(Tag::ServerType(serverType));
    tag.setDeviceType(Tag::DeviceType(deviceType));
}

} // namespace

class TestTag : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void defaults();
    void typeTexts_data();
    void typeTexts();
    void typeTextsAreExact_data();
    void typeTextsAreExact();
    void accessTexts_data();
    void accessTexts();
    void address_data();
    void address();
    void bitWindow_data();
    void bitWindow();
    void read_data();
    void read();
    void readWriteOnly();
    void readInvalidDeviceTypeKeepsValue();
    void write_data();
    void write();
    void writeRefused_data();
    void writeRefused();
    void setValueAlwaysSignals();
    void valueFromValues_data();
    void valueFromValues();
    void limits_data();
    void limits();
    void nan_data();
    void nan();
    void configGroup_data();
    void configGroup();
    void messageLogDepth();
    void underADevice();
    void saveLoadRoundTrip();
    void byteorderIsNotLoaded();
    void loadMissingAndWrongKeys();
    void waiterIsReleasedByARead();

private:
    QScopedPointer<QTemporaryDir> m_dir;
    QString m_startDir;
};

void TestTag::initTestCase()
{
    DebugQt::instance(0x8ED0007, nullptr);
    m_startDir = QDir::currentPath();
}

void TestTag::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    QVERIFY(QDir::setCurrent(m_dir->path()));
}

void TestTag::cleanup()
{
    QDir::setCurrent(m_startDir);
}

void TestTag::defaults()
{
    Tag tag;
    QCOMPARE(tag.type(), 4);
    QCOMPARE(tag.addressText(), QStringLiteral("0"));
    QCOMPARE(tag.property("byteorder").toString(), QStringLiteral("0123"));
    QCOMPARE(tag.property("modified").toBool(), false);
    QCOMPARE(tag.property("value").toDouble(), 0.0);
    QCOMPARE(tag.messageLogDepth(), 10000);
    QVERIFY(tag.limits().isEmpty());
    QVERIFY(tag.values().isEmpty());
    QVERIFY(tag.createChild() == nullptr);
    // Without a parent the name is the pattern itself, and so the full name.
    QCOMPARE(tag.fullName(), tag.name());
    QCOMPARE(tag.processingTime(), 0);
    QVERIFY(tag.device() == nullptr);
}

void TestTag::typeTexts_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("serverText");
    QTest::addColumn<QString>("deviceText");
    QTest::addColumn<int>("length");

    QTest::newRow("0") << 0 << "bool"
                       << "bit" << 1;
    QTest::newRow("1") << 1 << "int16"
                       << "int16" << 2;
    QTest::newRow("2") << 2 << "uint16"
                       << "uint16" << 2;
    QTest::newRow("3") << 3 << "int32"
                       << "int32" << 4;
    QTest::newRow("4") << 4 << "uint32"
                       << "uint32" << 4;
    QTest::newRow("5") << 5 << "float32"
                       << "float32" << 4;
    QTest::newRow("6") << 6 << "float64"
                       << "float64" << 8;
    QTest::newRow("7") << 7 << "Invalid"
                       << "Invalid" << 0;
    QTest::newRow("-1") << -1 << "Invalid"
                        << "Invalid" << 0;
    QTest::newRow("100") << 100 << "Invalid"
                         << "Invalid" << 0;
}

void TestTag::typeTexts()
{
    QFETCH(int, type);
    QFETCH(QString, serverText);
    QFETCH(QString, deviceText);
    QFETCH(int, length);

    QCOMPARE(Tag::serverTypeToString(type), serverText);
    QCOMPARE(Tag::deviceTypeToString(type), deviceText);
    QCOMPARE(Tag::deviceTypeLength(type), length);
    const bool valid = type >= 0 && type <= 6;
    QCOMPARE(int(Tag::serverTypeFromString(serverText)), valid ? type : int(Tag::ServerInvalid));
    QCOMPARE(int(Tag::deviceTypeFromString(deviceText)), valid ? type : int(Tag::DeviceInvalid));
}

void TestTag::typeTextsAreExact_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("serverType");
    QTest::addColumn<int>("deviceType");

    // The name of 0 differs between the lists.
    QTest::newRow("bool") << "bool" << 0 << int(Tag::DeviceInvalid);
    QTest::newRow("bit") << "bit" << int(Tag::ServerInvalid) << 0;
    QTest::newRow("upper case") << "Int16" << int(Tag::ServerInvalid) << int(Tag::DeviceInvalid);
    QTest::newRow("blank behind") << "float32 " << int(Tag::ServerInvalid) << int(Tag::DeviceInvalid);
    QTest::newRow("empty") << "" << int(Tag::ServerInvalid) << int(Tag::DeviceInvalid);
}

void TestTag::typeTextsAreExact()
{
    QFETCH(QString, text);
    QFETCH(int, serverType);
    QFETCH(int, deviceType);
    QCOMPARE(int(Tag::serverTypeFromString(text)), serverType);
    QCOMPARE(int(Tag::deviceTypeFromString(text)), deviceType);
}

void TestTag::accessTexts_data()
{
    QTest::addColumn<int>("access");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("back");

    QTest::newRow("0") << 0 << "ReadOnly" << 0;
    QTest::newRow("1") << 1 << "WriteOnly" << 1;
    QTest::newRow("2") << 2 << "ReadWrite" << 2;
    QTest::newRow("3") << 3 << "Invalid" << int(Tag::AccessInvalid);
    QTest::newRow("-1") << -1 << "Invalid" << int(Tag::AccessInvalid);
}

void TestTag::accessTexts()
{
    QFETCH(int, access);
    QFETCH(QString, text);
    QFETCH(int, back);
    QCOMPARE(Tag::accessToString(access), text);
    QCOMPARE(int(Tag::accessFromString(text)), back);
    QCOMPARE(int(Tag::accessFromString(text.toLower())), int(Tag::AccessInvalid));
}

void TestTag::address_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");

    QTest::newRow("0x1A") << "0x1A" << 26;
    QTest::newRow("0X1a") << "0X1a" << 26;
    QTest::newRow("1Ah") << "1Ah" << 26;
    QTest::newRow("1aH") << "1aH" << 26;
    QTest::newRow("26") << "26" << 26;
    QTest::newRow("FFh") << "FFh" << 255;
    QTest::newRow("010 is decimal") << "010" << 10;
    QTest::newRow("0x10 is not") << "0x10" << 16;
    QTest::newRow("10h") << "10h" << 16;
    QTest::newRow("hex digits without a mark") << "1A" << 0;
    QTest::newRow("mark alone") << "h" << 0;
    QTest::newRow("prefix alone") << "0x" << 0;
    QTest::newRow("both marks") << "0x1Ah" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestTag::address()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    Tag tag;
    tag.setAddress(text);
    QCOMPARE(tag.address(), number);
    QCOMPARE(tag.addressText(), text);
}

void TestTag::bitWindow_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<QVariant>("from");
    QTest::addColumn<QVariant>("to");
    QTest::addColumn<bool>("toFirst");
    QTest::addColumn<int>("expectedFrom");
    QTest::addColumn<int>("expectedTo");

    const QVariant none;
    // The upper end is cut to the width, the lower one to the width - 1.
    QTest::newRow("uint16, to 99") << 2 << none << QVariant(99) << false << 0 << 16;
    QTest::newRow("uint16, from 99") << 2 << QVariant(99) << none << false << 15 << 15;
    QTest::newRow("uint16, 4 to 9") << 2 << QVariant(4) << QVariant(9) << false << 4 << 9;
    QTest::newRow("uint16, from 4 then to 2") << 2 << QVariant(4) << QVariant(2) << false << 2 << 2;
    QTest::newRow("uint16, to 6 then from 9") << 2 << QVariant(9) << QVariant(6) << true << 9 << 9;
    QTest::newRow("bit, to 99") << 0 << none << QVariant(99) << false << 0 << 8;
    QTest::newRow("bit, from 99") << 0 << QVariant(99) << none << false << 7 << 7;
    QTest::newRow("int32, from 40") << 3 << QVariant(40) << none << false << 31 << 31;
    QTest::newRow("float64, to 99") << 6 << none << QVariant(99) << false << 0 << 64;
    QTest::newRow("float64, from 99") << 6 << QVariant(99) << none << false << 63 << 63;
    QTest::newRow("invalid type, from 5") << 7 << QVariant(5) << none << false << -1 << 0;
    QTest::newRow("invalid type, from 0") << 7 << QVariant(0) << none << false << -1 << 0;
    QTest::newRow("invalid type, to 5") << 7 << none << QVariant(5) << false << 0 << 0;
    QTest::newRow("invalid type, to -3") << 7 << none << QVariant(-3) << false << -3 << -3;
}

void TestTag::bitWindow()
{
    QFETCH(int, deviceType);
    QFETCH(QVariant, from);
    QFETCH(QVariant, to);
    QFETCH(bool, toFirst);
    QFETCH(int, expectedFrom);
    QFETCH(int, expectedTo);

    Tag tag;
    tag.setDeviceType(Tag::DeviceType(deviceType));
    if (toFirst && to.isValid())
        tag.setExtractBitTo(to.toInt());
    if (from.isValid())
        tag.setExtractBitFrom(from.toInt());
    if (!toFirst && to.isValid())
        tag.setExtractBitTo(to.toInt());
    QCOMPARE(tag.extractBitFrom(), expectedFrom);
    QCOMPARE(tag.extractBitTo(), expectedTo);
}

void TestTag::read_data()
{
    QTest::addColumn<int>("serverType");
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<QByteArray>("raw");
    QTest::addColumn<QVariant>("bits"); // QPoint(from, to) when extracting
    QTest::addColumn<QVariant>("expected");

    const QVariant whole;
    // The raw buffer holds the value with its lowest byte first.
    QTest::newRow("bool, empty buffer") << 0 << 1 << QByteArray() << whole << QVariant(false);
    QTest::newRow("bool, 00") << 0 << 1 << hx("00") << whole << QVariant(false);
    QTest::newRow("bool, 01") << 0 << 1 << hx("01") << whole << QVariant(true);
    QTest::newRow("bool, first byte only") << 0 << 1 << hx("00 01") << whole << QVariant(false);
    QTest::newRow("bool whatever the device type") << 0 << 7 << hx("80") << whole << QVariant(true);
    QTest::newRow("bit") << 1 << 0 << hx("04") << whole << QVariant(true);
    QTest::newRow("bit, zero") << 1 << 0 << hx("00 FF") << whole << QVariant(false);
    QTest::newRow("int16, sign extended") << 1 << 1 << hx("FE FF") << whole << QVariant(-2);
    QTest::newRow("uint16") << 2 << 2 << hx("FE FF") << whole << QVariant(65534u);
    QTest::newRow("int16 of a longer buffer") << 1 << 1 << hx("01 02 03 04") << whole << QVariant(0x0201);
    QTest::newRow("int32") << 3 << 3 << hx("FE FF FF FF") << whole << QVariant(-2);
    QTest::newRow("uint32") << 4 << 4 << hx("FE FF FF FF") << whole << QVariant(4294967294u);
    QTest::newRow("int32 of a short buffer") << 3 << 3 << hx("01") << whole << QVariant(1);
    QTest::newRow("int16 of an empty buffer") << 3 << 1 << QByteArray() << whole << QVariant(0);
    QTest::newRow("float32") << 5 << 5 << hx("00 00 C0 3F") << whole << QVariant(1.5f);
    QTest::newRow("float32, negative") << 5 << 5 << hx("CD CC 8C C1") << whole << QVariant(-17.6f);
    QTest::newRow("float64") << 6 << 6 << hx("00 00 00 00 00 00 02 C0") << whole << QVariant(-2.25);
    QTest::newRow("server type does not convert") << 5 << 1 << hx("FF 7F") << whole << QVariant(32767);
    QTest::newRow("uint16, bits 4 to 7") << 2 << 2 << hx("F0 00") << QVariant(QPoint(4, 7)) << QVariant(15u);
    QTest::newRow("uint16, bits 8 to 11") << 2 << 2 << hx("00 A5") << QVariant(QPoint(8, 11)) << QVariant(5u);
    QTest::newRow("uint32, bits 8 to 15") << 4 << 4 << hx("78 56 34 12") << QVariant(QPoint(8, 15)) << QVariant(0x56u);
    QTest::newRow("int16, bit 15 alone") << 1 << 1 << hx("00 80") << QVariant(QPoint(15, 15)) << QVariant(1);
    QTest::newRow("uint16, window up to the width")
        << 2 << 2 << hx("34 12") << QVariant(QPoint(0, 99)) << QVariant(0x1234u);
}

void TestTag::read()
{
    QFETCH(int, serverType);
    QFETCH(int, deviceType);
    QFETCH(QByteArray, raw);
    QFETCH(QVariant, bits);
    QFETCH(QVariant, expected);

    Tag tag;
    setTypes(tag, serverType, deviceType);
    tag.setAccess(Tag::ReadOnly);
    tag.setRawBuffer(raw);
    if (bits.isValid()) {
        tag.setUseBitExtraction(true);
        tag.setExtractBitFrom(bits.toPoint().x());
        tag.setExtractBitTo(bits.toPoint().y());
    }
    QSignalSpy changed(&tag, &Tag::valueChanged);
    const QVariant result = tag.read();
    QCOMPARE(result, expected);
    QCOMPARE(result.typeId(), expected.typeId());
    QCOMPARE(tag.value(), expected);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(tag.errorCode(), 1);
    QCOMPARE(tag.state(), int(ServerItem::StateGood));
    QVERIFY(tag.timestamp().isValid());
    // Reading never changes the raw bytes.
    QCOMPARE(tag.rawBuffer(), raw);
}

void TestTag::readWriteOnly()
{
    Tag tag;
    setTypes(tag, 1, 1);
    tag.setAccess(Tag::WriteOnly);
    tag.setRawBuffer(hx("05 00"));
    tag.setValue(QStringLiteral("before"));
    QSignalSpy changed(&tag, &Tag::valueChanged);
    QSignalSpy state(&tag, &ServerItem::stateChanged);
    QVERIFY(!tag.read().isValid());
    QCOMPARE(tag.errorCode(), 3);
    QCOMPARE(tag.value(), QVariant(QStringLiteral("before")));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(state.count(), 0);
    QCOMPARE(tag.state(), int(ServerItem::StateNotTried));
}

void TestTag::readInvalidDeviceTypeKeepsValue()
{
    Tag tag;
    setTypes(tag, 1, 7);
    tag.setRawBuffer(hx("05 00"));
    tag.setValue(42);
    QCOMPARE(tag.read(), QVariant(42));
    QCOMPARE(tag.errorCode(), 1);
}

void TestTag::write_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<QVariant>("input");
    QTest::addColumn<QByteArray>("raw");

    QTest::newRow("bit, true") << 0 << QVariant(true) << hx("01");
    QTest::newRow("bit, 0") << 0 << QVariant(0) << hx("00");
    QTest::newRow("bit, 7") << 0 << QVariant(7) << hx("01");
    QTest::newRow("int16, -2") << 1 << QVariant(-2) << hx("FE FF");
    QTest::newRow("int16, 70000 truncated") << 1 << QVariant(70000) << hx("70 11");
    QTest::newRow("int16, 2.7") << 1 << QVariant(2.7) << hx("02 00");
    QTest::newRow("int16, -2.7") << 1 << QVariant(-2.7) << hx("FE FF");
    QTest::newRow("int16, text") << 1 << QVariant(QStringLiteral("258")) << hx("02 01");
    QTest::newRow("int16, not a number") << 1 << QVariant(QStringLiteral("abc")) << hx("00 00");
    QTest::newRow("uint16, 65535") << 2 << QVariant(65535) << hx("FF FF");
    QTest::newRow("int32, -2") << 3 << QVariant(-2) << hx("FE FF FF FF");
    QTest::newRow("uint32, as text") << 4 << QVariant(QStringLiteral("4294967295")) << hx("FF FF FF FF");
    QTest::newRow("float32, 1.5") << 5 << QVariant(1.5) << hx("00 00 C0 3F");
    QTest::newRow("float64, -2.25") << 6 << QVariant(-2.25) << hx("00 00 00 00 00 00 02 C0");
}

void TestTag::write()
{
    QFETCH(int, deviceType);
    QFETCH(QVariant, input);
    QFETCH(QByteArray, raw);

    Tag tag;
    setTypes(tag, deviceType == 0 ? 0 : deviceType, deviceType);
    tag.setAccess(Tag::WriteOnly);
    tag.setRawBuffer(hx("AA AA AA AA AA AA AA AA AA"));
    QSignalSpy changed(&tag, &Tag::valueChanged);
    QVERIFY(tag.write(input));
    QCOMPARE(tag.rawBuffer().toHex(' '), raw.toHex(' '));
    QCOMPARE(tag.value(), input);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(tag.errorCode(), 1);
    QCOMPARE(tag.state(), int(ServerItem::StateGood));
}

void TestTag::writeRefused_data()
{
    QTest::addColumn<int>("access");
    QTest::addColumn<int>("deviceType");

    QTest::newRow("read only") << int(Tag::ReadOnly) << 1;
    QTest::newRow("invalid access") << int(Tag::AccessInvalid) << 1;
    QTest::newRow("invalid device type") << int(Tag::ReadWrite) << 7;
}

void TestTag::writeRefused()
{
    QFETCH(int, access);
    QFETCH(int, deviceType);

    Tag tag;
    setTypes(tag, 1, deviceType);
    tag.setAccess(Tag::OpcAccessType(access));
    tag.setRawBuffer(hx("12 34"));
    QVERIFY(!tag.write(5));
    QCOMPARE(tag.errorCode(), 3);
    QVERIFY(!tag.errorText().isEmpty());
    QCOMPARE(tag.rawBuffer(), hx("12 34"));
}

void TestTag::setValueAlwaysSignals()
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
    const QDateTime when(QDate(2020, 1, 2), QTime(3, 4, 5));
    tag.setTimeStamp(when);
    QCOMPARE(tag.timestamp(), when);

    tag.writeValueScheduled(9);
    QCOMPARE(tag.value(), QVariant(9));
    QCOMPARE(writeRequest.count(), 1);
}

void TestTag::valueFromValues_data()
{
    QTest::addColumn<QVariantMap>("values");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("no values") << QVariantMap() << "" << QVariant(5) << "5";
    QTest::newRow("plain key") << QVariantMap{{"5", "five"}} << "" << QVariant(5) << "five";
    QTest::newRow("prefixed key") << QVariantMap{{"st5", "five"}} << "st" << QVariant(5) << "five";
    QTest::newRow("prefix and a zero") << QVariantMap{{"st05", "zero five"}} << "st" << QVariant(5) << "zero five";
    QTest::newRow("without zero first") << QVariantMap{{"st5", "a"}, {"st05", "b"}} << "st" << QVariant(5) << "a";
    QTest::newRow("plain key ignored with a prefix") << QVariantMap{{"5", "five"}} << "st" << QVariant(5) << "5";
    QTest::newRow("no entry") << QVariantMap{{"st1", "one"}} << "st" << QVariant(7) << "7";
    QTest::newRow("a text value") << QVariantMap{{"on", "switched on"}} << "st" << QVariant("on") << "switched on";
    QTest::newRow("a fraction") << QVariantMap{{"st2.5", "x"}} << "st" << QVariant(2.5) << "2.5";
}

void TestTag::valueFromValues()
{
    QFETCH(QVariantMap, values);
    QFETCH(QString, prefix);
    QFETCH(QVariant, value);
    QFETCH(QString, text);

    Tag tag;
    tag.setValues(values);
    tag.setProperty("values_prefix", prefix);
    tag.setValue(value);
    QCOMPARE(tag.valueFromValues(), text);
}

void TestTag::limits_data()
{
    QTest::addColumn<QVariantList>("limits");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("out");

    const QVariantList range{0, 10};
    QTest::newRow("inside") << range << QVariant(5) << false;
    QTest::newRow("at the low limit") << range << QVariant(0) << false;
    QTest::newRow("at the high limit") << range << QVariant(10.0) << false;
    QTest::newRow("below") << range << QVariant(-0.5) << true;
    QTest::newRow("above") << range << QVariant(10.5) << true;
    QTest::newRow("no limits") << QVariantList() << QVariant(1e9) << false;
    QTest::newRow("one limit") << QVariantList{0} << QVariant(-5) << false;
    QTest::newRow("three limits") << QVariantList{0, 1, 2} << QVariant(-5) << false;
}

void TestTag::limits()
{
    QFETCH(QVariantList, limits);
    QFETCH(QVariant, value);
    QFETCH(bool, out);
    Tag tag;
    tag.setLimits(limits);
    tag.setValue(value);
    QCOMPARE(tag.isValueLimitsOut(), out);
}

void TestTag::nan_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("nan");

    QTest::newRow("NaN") << QVariant(std::numeric_limits<double>::quiet_NaN()) << true;
    QTest::newRow("float NaN") << QVariant(std::numeric_limits<float>::quiet_NaN()) << true;
    QTest::newRow("inf") << QVariant(std::numeric_limits<double>::infinity()) << true;
    QTest::newRow("-inf") << QVariant(-std::numeric_limits<double>::infinity()) << true;
    QTest::newRow("number") << QVariant(1.5) << false;
    QTest::newRow("zero") << QVariant(0) << false;
}

void TestTag::nan()
{
    QFETCH(QVariant, value);
    QFETCH(bool, nan);
    Tag tag;
    tag.setValue(value);
    QCOMPARE(tag.isValueNaN(), nan);
}

void TestTag::configGroup_data()
{
    QTest::addColumn<QStringList>("group");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("channel");

    QTest::newRow("channel") << QStringList{"Channel", "Ch 1"} << "Channel"
                             << "Ch 1" << true;
    QTest::newRow("lower case") << QStringList{"channel", "x"} << "channel"
                                << "x" << true;
    QTest::newRow("other group") << QStringList{"chan", "x"} << "chan"
                                 << "x" << false;
    QTest::newRow("one entry") << QStringList{"channel"} << ""
                               << "" << false;
    QTest::newRow("empty") << QStringList() << ""
                           << "" << false;
}

void TestTag::configGroup()
{
    QFETCH(QStringList, group);
    QFETCH(QString, id);
    QFETCH(QString, name);
    QFETCH(bool, channel);
    Tag tag;
    tag.setConfigGroup(group);
    QCOMPARE(tag.configGroupID(), id);
    QCOMPARE(tag.configGroupName(), name);
    QCOMPARE(tag.isChannel(), channel);
}

void TestTag::messageLogDepth()
{
    Tag tag;
    tag.setMessageLogDepth(3);
    for (int i = 1; i <= 5; ++i)
        tag.appendModbusMessage(QString::number(i));
    QCOMPARE(tag.messageLog(), (QList<QString>{"3", "4", "5"}));
}

void TestTag::underADevice()
{
    Device device;
    device.setPriority(7);
    device.setPollingPeriod(2500);
    auto* first = new Tag(&device);
    device.insertChild(-1, first);
    auto* second = new Tag(&device);
    device.insertChild(-1, second);

    QCOMPARE(first->name(), QStringLiteral("Tag1"));
    QCOMPARE(second->name(), QStringLiteral("Tag2"));
    QVERIFY(first->device() == &device);
    QCOMPARE(first->fullName(), device.fullName() + QStringLiteral("/Tag1"));
    QCOMPARE(first->property("priority").toInt(), 7);
    QCOMPARE(first->property("period").toInt(), 2500);
    QCOMPARE(first->processingTime(), device.processingTime());

    // The device's error text goes to the tag with each read.
    device.setErrorText(QStringLiteral("device text"));
    first->setDeviceType(Tag::DeviceInt16);
    first->setServerType(Tag::ServerInt16);
    first->read();
    QCOMPARE(first->errorText(), QStringLiteral("device text"));
}

void TestTag::saveLoadRoundTrip()
{
    Tag tag;
    tag.setName(QStringLiteral("Level"));
    tag.setProperty("enabled", false);
    tag.setAddress(QStringLiteral("0x1F"));
    tag.setProperty("priority", 3);
    tag.setProperty("period", 750);
    setTypes(tag, 2, 3);
    tag.setAccess(Tag::WriteOnly);
    tag.setProperty("comment", QStringLiteral("tank level"));
    tag.setProperty("read_func", 3);
    tag.setProperty("write_func", 16);
    tag.setProperty("byteorder_enabled", true);
    tag.setUseBitExtraction(true);
    tag.setExtractBitFrom(4);
    tag.setExtractBitTo(11);
    tag.setConfigGroup({QStringLiteral("channel"), QStringLiteral("Ch 2")});
    tag.setValue(12.5);
    tag.setLimits({0.0, 100.0});
    tag.setValues({{QStringLiteral("st1"), QStringLiteral("on")}});
    tag.setProperty("modified", true);
    const QVariantMap saved = tag.save();
    QCOMPARE(saved.size(), 21);

    {
        QJsonSettings settings(QStringLiteral("tag.cfg"));
        settings.setValue(QStringLiteral("tag"), saved);
        settings.sync();
        QCOMPARE(settings.status(), QSettings::NoError);
    }
    // Read a copy: QSettings would otherwise serve its cache of the file.
    QVERIFY(QFile::copy(QStringLiteral("tag.cfg"), QStringLiteral("tag-copy.cfg")));
    const QVariantMap read = QJsonSettings(QStringLiteral("tag-copy.cfg")).value(QStringLiteral("tag")).toMap();
    QCOMPARE(read.size(), 21);

    Tag back;
    QVERIFY(back.load(read));
    QCOMPARE(back.name(), QStringLiteral("Level"));
    QCOMPARE(back.isEnabled(), false);
    QCOMPARE(back.address(), 31);
    QCOMPARE(back.property("priority").toInt(), 3);
    QCOMPARE(back.property("period").toInt(), 750);
    QCOMPARE(int(back.serverType()), 2);
    QCOMPARE(int(back.deviceType()), 3);
    QCOMPARE(int(back.access()), int(Tag::WriteOnly));
    QCOMPARE(back.property("comment").toString(), QStringLiteral("tank level"));
    QCOMPARE(back.property("read_func").toInt(), 3);
    QCOMPARE(back.property("write_func").toInt(), 16);
    QCOMPARE(back.useBitExtraction(), true);
    QCOMPARE(back.extractBitFrom(), 4);
    QCOMPARE(back.extractBitTo(), 11);
    QCOMPARE(back.configGroupName(), QStringLiteral("Ch 2"));
    QVERIFY(back.isChannel());
    QCOMPARE(back.value().toDouble(), 12.5);
    QCOMPARE(back.limits().size(), 2);
    QCOMPARE(back.limits().at(1).toDouble(), 100.0);
    QCOMPARE(back.values().value(QStringLiteral("st1")).toString(), QStringLiteral("on"));
    QCOMPARE(back.property("modified").toBool(), true);
    // Everything but the two byte order keys comes back as it went.
    QVariantMap again = back.save();
    QVariantMap expected = saved;
    for (const QString& key : {QStringLiteral("byteorder"), QStringLiteral("byteorder_enabled")}) {
        again.remove(key);
        expected.remove(key);
    }
    QCOMPARE(again, expected);
}

void TestTag::byteorderIsNotLoaded()
{
    Tag tag;
    tag.setProperty("byteorder", QStringLiteral("3210"));
    tag.setProperty("byteorder_enabled", true);
    const QVariantMap saved = tag.save();
    QCOMPARE(saved.value(QStringLiteral("byteorder")).toString(), QStringLiteral("3210"));
    QCOMPARE(saved.value(QStringLiteral("byteorder_enabled")).toBool(), true);

    Tag back;
    QVERIFY(back.load(saved));
    QCOMPARE(back.property("byteorder").toString(), QStringLiteral("0123"));
    QCOMPARE(back.property("byteorder_enabled").toBool(), false);
}

void TestTag::loadMissingAndWrongKeys()
{
    Tag tag;
    tag.setName(QStringLiteral("Keep"));
    tag.setValue(5);
    tag.setLimits({1, 2});
    tag.setValues({{QStringLiteral("1"), QStringLiteral("one")}});
    tag.setConfigGroup({QStringLiteral("channel"), QStringLiteral("x")});

    // A missing key gives an empty or zero value, but the name stays and a
    // missing value is 0.
    QVERIFY(tag.load(QVariantMap()));
    QCOMPARE(tag.name(), QStringLiteral("Keep"));
    QCOMPARE(tag.value(), QVariant(0));
    QVERIFY(tag.limits().isEmpty());
    QVERIFY(tag.values().isEmpty());
    QCOMPARE(tag.configGroup().size(), 2); // read only when present
    QCOMPARE(int(tag.serverType()), int(Tag::ServerInvalid));
    QCOMPARE(int(tag.access()), int(Tag::AccessInvalid));
    QCOMPARE(tag.address(), 0);

    // Values of the wrong type load as what they can be, and never more.
    const QVariantMap wrong{{"name", QVariantList{1}},
                            {"device_type", "uint16"},
                            {"extract_bit_from", "abc"},
                            {"extract_bit_to", 99},
                            {"limits", "x"},
                            {"values", 5},
                            {"config_group", "channel"},
                            {"priority", QVariantMap()}};
    QVERIFY(tag.load(wrong));
    QCOMPARE(tag.name(), QStringLiteral("Keep"));
    QCOMPARE(tag.extractBitFrom(), 0);
    QCOMPARE(tag.extractBitTo(), 16);
    QVERIFY(tag.limits().isEmpty());
    QVERIFY(tag.values().isEmpty());
    QVERIFY(tag.configGroup().isEmpty());
    QCOMPARE(tag.property("priority").toInt(), 0);
}

namespace {

class Waiter : public QThread
{
public:
    explicit Waiter(Tag* tag) : m_tag(tag) {}
    QSemaphore started;

protected:
    void run() override
    {
        started.release();
        m_tag->waitTagRequested();
    }

private:
    Tag* m_tag;
};

} // namespace

void TestTag::waiterIsReleasedByARead()
{
    Tag tag;
    setTypes(tag, 1, 1);
    tag.setRawBuffer(hx("07 00"));
    Waiter waiter(&tag);
    waiter.start();
    waiter.started.acquire();
    // The waiter may not be waiting yet when a read ends; each read wakes
    // whoever waits, so one of them releases it.
    for (int reads = 0; reads < 1000 && !waiter.wait(10); ++reads) {
        tag.tagRequesting();
        QCOMPARE(tag.read(), QVariant(7));
    }
    QVERIFY(waiter.isFinished());
    // The mutex was given back by every read: the next request can take it.
    tag.tagRequesting();
    QVERIFY(tag.write(9));
    QCOMPARE(tag.rawBuffer(), hx("09 00"));
}

QTEST_GUILESS_MAIN(TestTag)
#include "tst_tag.moc"
