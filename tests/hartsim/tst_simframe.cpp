#include "simdevicetestutil.h"
#include "simframe.h"

using hartsim::SimFrame;
using simtest::hx;

// Every expected frame below was summed by hand, byte by byte, and is written
// out as it must appear on the wire.
class TestSimFrame : public QObject
{
    Q_OBJECT

    static QByteArray pre(int count) { return QByteArray(count, char(0xFF)); }

private slots:
    void buildRequest()
    {
        QCOMPARE(SimFrame::buildRequest(5, hx("03"), 1), pre(5) + hx("02 03 01 00 00"));
        QCOMPARE(SimFrame::buildRequest(5, hx("80"), 6, hx("05")), pre(5) + hx("02 80 06 01 05 80"));
        QCOMPARE(SimFrame::buildRequest(2, hx("80 00 00 00 00"), 11, hx("11 22 33 44 55 66")),
                 pre(2) + hx("82 80 00 00 00 00 0B 06 11 22 33 44 55 66 78"));
    }

    void buildResponse()
    {
        // Preambles, address, command, code, status, data and burst.
        QCOMPARE(SimFrame::buildResponse(5, hx("83"), 1, 0, 0, hx("20 42 C8 00 00")),
                 pre(5) + hx("06 83 01 07 00 00 20 42 C8 00 00 29"));
        QCOMPARE(SimFrame::buildResponse(5, hx("A6 0A 12 34 56"), 0, 0, 0x40, {}),
                 pre(5) + hx("86 A6 0A 12 34 56 00 02 00 40 18"));
        QCOMPARE(SimFrame::buildResponse(0, hx("01"), 6, 7, 0x10, {}), hx("06 01 06 02 07 10 14"));
        QCOMPARE(SimFrame::buildResponse(20, hx("26 0A 12 34 56"), 9, 0, 0, hx("01"), true),
                 pre(20) + hx("86 66 0A 12 34 56 09 03 00 00 01 91"));
    }

    void responseDataIsCut()
    {
        // The byte count cannot exceed 255: two status bytes and 253 data
        // bytes. 253 bytes of 0x11 sum to 0x11; 06 ^ 80 ^ 05 ^ FF = 0x7C, and
        // 0x11 ^ 0x7C = 0x6D.
        const QByteArray frame = SimFrame::buildResponse(2, hx("80"), 5, 0, 0, QByteArray(300, char(0x11)));
        QCOMPARE(frame, pre(2) + hx("06 80 05 FF 00 00") + QByteArray(253, char(0x11)) + hx("6D"));
        // The log shows bytes in lower case.
        QCOMPARE(SimFrame::hex(hx("02 8A ff")), QStringLiteral("02 8a ff"));
    }

    void addressing_data()
    {
        QTest::addColumn<QByteArray>("address");
        QTest::addColumn<bool>("primary");
        QTest::addColumn<int>("pollingAddress");
        QTest::addColumn<bool>("broadcast");

        QTest::newRow("short primary 3") << hx("83") << true << 3 << false;
        QTest::newRow("short secondary 63") << hx("3F") << false << 63 << false;
        QTest::newRow("short with burst bit") << hx("C5") << true << 5 << false;
        QTest::newRow("short 0 is not broadcast") << hx("80") << true << 0 << false;
        QTest::newRow("long device") << hx("A6 0A 12 34 56") << true << -1 << false;
        QTest::newRow("long broadcast secondary") << hx("00 00 00 00 00") << false << -1 << true;
        QTest::newRow("long broadcast with burst bit") << hx("C0 00 00 00 00") << true << -1 << true;
        QTest::newRow("long, first byte 20 set") << hx("A0 00 00 00 00") << true << -1 << false;
        QTest::newRow("long, last byte set") << hx("80 00 00 00 01") << true << -1 << false;
    }

    void addressing()
    {
        QFETCH(QByteArray, address);
        const SimFrame frame(5, address.size() == 5 ? SimFrame::LongRequest : SimFrame::ShortRequest, address, 0, {});
        QTEST(frame.fromPrimaryMaster(), "primary");
        QTEST(frame.pollingAddress(), "pollingAddress");
        QTEST(frame.isBroadcast(), "broadcast");
    }
};

QTEST_GUILESS_MAIN(TestSimFrame)
#include "tst_simframe.moc"
