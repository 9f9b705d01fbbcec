#include "simframe.h"

#include <QtTest>

using hartsim::SimFrame;

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

QByteArray pre(int count)
{
    return QByteArray(count, char(0xFF));
}

} // namespace

// Every expected frame below was summed by hand, byte by byte, and is written
// out as it must appear on the wire.
class TestSimFrame : public QObject
{
    Q_OBJECT

private slots:
    void buildRequest_data();
    void buildRequest();
    void buildResponse_data();
    void buildResponse();
    void responseDataIsCut();
    void addressing_data();
    void addressing();
};

void TestSimFrame::buildRequest_data()
{
    QTest::addColumn<int>("preambles");
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("short 3, primary, command 1")
        << 5 << hx("83") << 1 << QByteArray() << hx("FF FF FF FF FF 02 83 01 00 80");
    QTest::newRow("short 3, secondary, command 1")
        << 5 << hx("03") << 1 << QByteArray() << hx("FF FF FF FF FF 02 03 01 00 00");
    QTest::newRow("short 0, command 6 with data")
        << 5 << hx("80") << 6 << hx("05") << hx("FF FF FF FF FF 02 80 06 01 05 80");
    QTest::newRow("long, command 1") << 5 << hx("A6 0A 12 34 56") << 1 << QByteArray()
                                     << hx("FF FF FF FF FF 82 A6 0A 12 34 56 01 00 5F");
    QTest::newRow("broadcast 11, two preambles") << 2 << hx("80 00 00 00 00") << 11 << hx("11 22 33 44 55 66")
                                                 << hx("FF FF 82 80 00 00 00 00 0B 06 11 22 33 44 55 66 78");
}

void TestSimFrame::buildRequest()
{
    QFETCH(int, preambles);
    QFETCH(QByteArray, address);
    QFETCH(int, command);
    QFETCH(QByteArray, data);
    QTEST(SimFrame::buildRequest(preambles, address, quint8(command), data), "expected");
}

void TestSimFrame::buildResponse_data()
{
    QTest::addColumn<int>("preambles");
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("burst");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("short, command 1 with PV") << 5 << hx("83") << 1 << 0 << 0 << hx("20 42 C8 00 00") << false
                                              << pre(5) + hx("06 83 01 07 00 00 20 42 C8 00 00 29");
    QTest::newRow("long, configuration changed, no data") << 5 << hx("A6 0A 12 34 56") << 0 << 0 << 0x40 << QByteArray()
                                                          << false << pre(5) + hx("86 A6 0A 12 34 56 00 02 00 40 18");
    QTest::newRow("short burst sets bit 6")
        << 3 << hx("80") << 3 << 0 << 0 << QByteArray() << true << pre(3) + hx("06 C0 03 02 00 00 C7");
    QTest::newRow("secondary master, write protected")
        << 5 << hx("01") << 6 << 7 << 0x10 << QByteArray() << false << pre(5) + hx("06 01 06 02 07 10 14");
    QTest::newRow("long burst, secondary master") << 20 << hx("26 0A 12 34 56") << 9 << 0 << 0 << hx("01") << true
                                                  << pre(20) + hx("86 66 0A 12 34 56 09 03 00 00 01 91");
    QTest::newRow("no preambles") << 0 << hx("83") << 1 << 0 << 0 << hx("20 42 C8 00 00") << false
                                  << hx("06 83 01 07 00 00 20 42 C8 00 00 29");
}

void TestSimFrame::buildResponse()
{
    QFETCH(int, preambles);
    QFETCH(QByteArray, address);
    QFETCH(int, command);
    QFETCH(int, code);
    QFETCH(int, status);
    QFETCH(QByteArray, data);
    QFETCH(bool, burst);
    QTEST(SimFrame::buildResponse(preambles, address, quint8(command), quint8(code), quint8(status), data, burst),
          "expected");
}

void TestSimFrame::responseDataIsCut()
{
    // The byte count cannot exceed 255: two status bytes and 253 data bytes.
    const QByteArray data(300, char(0x11));
    const QByteArray frame = SimFrame::buildResponse(2, hx("80"), 5, 0, 0, data);
    QCOMPARE(frame.size(), 2 + 4 + 2 + 253 + 1);
    QCOMPARE(quint8(frame.at(5)), quint8(0xFF));
    // 253 bytes of 0x11 sum to 0x11; then 06 ^ 80 ^ 05 ^ FF = 0x7C, and 0x11 ^ 0x7C = 0x6D.
    QCOMPARE(quint8(frame.back()), quint8(0x6D));
    // The log shows bytes in lower case.
    QCOMPARE(SimFrame::hex(hx("02 8A ff")), QStringLiteral("02 8a ff"));
}

void TestSimFrame::addressing_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<bool>("isLong");
    QTest::addColumn<bool>("primary");
    QTest::addColumn<int>("pollingAddress");
    QTest::addColumn<bool>("broadcast");

    QTest::newRow("short primary 3") << hx("83") << false << true << 3 << false;
    QTest::newRow("short secondary 63") << hx("3F") << false << false << 63 << false;
    QTest::newRow("short with burst bit") << hx("C5") << false << true << 5 << false;
    QTest::newRow("short 0 is not broadcast") << hx("80") << false << true << 0 << false;
    QTest::newRow("long device") << hx("A6 0A 12 34 56") << true << true << -1 << false;
    QTest::newRow("long broadcast primary") << hx("80 00 00 00 00") << true << true << -1 << true;
    QTest::newRow("long broadcast secondary") << hx("00 00 00 00 00") << true << false << -1 << true;
    QTest::newRow("long broadcast with burst bit") << hx("C0 00 00 00 00") << true << true << -1 << true;
    QTest::newRow("long, last byte set") << hx("80 00 00 00 01") << true << true << -1 << false;
}

void TestSimFrame::addressing()
{
    QFETCH(QByteArray, address);
    const SimFrame frame(5, address.size() == 5 ? SimFrame::LongRequest : SimFrame::ShortRequest, address, 0, {});
    QTEST(frame.isLong(), "isLong");
    QTEST(frame.fromPrimaryMaster(), "primary");
    QTEST(frame.pollingAddress(), "pollingAddress");
    QTEST(frame.isBroadcast(), "broadcast");
}

QTEST_GUILESS_MAIN(TestSimFrame)
#include "tst_simframe.moc"
