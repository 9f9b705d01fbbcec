#include "columns.h"
#include "framereceiver.h"
#include "simframe.h"

#include <QtTest>

#include <numeric>

using hartsim::FrameReceiver;
using hartsim::SimFrame;

namespace {

QByteArray pre(int count)
{
    return QByteArray(count, char(0xFF));
}

const QByteArray req3 = hx("FF FF FF FF FF 02 83 01 00 80"); // short 3, command 1
const QByteArray reqLong = hx("FF FF FF FF FF 82 A6 0A 12 34 56 01 00 5F");

QByteArrayList bytewise(const QByteArray& bytes)
{
    QByteArrayList out;
    for (const char c : bytes)
        out << QByteArray(1, c);
    return out;
}

} // namespace

// The frames the simulator builds, and the requests it finds in what the line
// brings. Every frame below was summed by hand, byte by byte, and is written
// out as it must appear on the wire.
class TestFrameReceiver : public QObject
{
    Q_OBJECT

private slots:
    void build()
    {
        QCOMPARE(SimFrame::buildRequest(5, hx("03"), 1), pre(5) + hx("02 03 01 00 00"));
        QCOMPARE(SimFrame::buildRequest(5, hx("80"), 6, hx("05")), pre(5) + hx("02 80 06 01 05 80"));
        QCOMPARE(SimFrame::buildRequest(2, hx("80 00 00 00 00"), 11, hx("11 22 33 44 55 66")),
                 pre(2) + hx("82 80 00 00 00 00 0B 06 11 22 33 44 55 66 78"));
        // Preambles, address, command, code, status and data; the short and
        // long answers, with and without the burst bit, are summed by hand in
        // the line's fault tests.
        QCOMPARE(SimFrame::buildResponse(0, hx("01"), 6, 7, 0x10, {}), hx("06 01 06 02 07 10 14"));
        // The byte count cannot exceed 255: two status bytes and 253 data
        // bytes. 253 bytes of 0x11 sum to 0x11; 06 ^ 80 ^ 05 ^ FF = 0x7C, and
        // 0x11 ^ 0x7C = 0x6D.
        QCOMPARE(SimFrame::buildResponse(2, hx("80"), 5, 0, 0, QByteArray(300, char(0x11))),
                 pre(2) + hx("06 80 05 FF 00 00") + QByteArray(253, char(0x11)) + hx("6D"));
        // The log shows bytes in lower case.
        QCOMPARE(SimFrame::hex(hx("02 8A ff")), QStringLiteral("02 8a ff"));
    }

    void addressing_data()
    {
        addColumns<QByteArray, bool, int, bool>({"address", "primary", "pollingAddress", "broadcast"});

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

    void feed_data()
    {
        // step: ms between the chunks
        // expected: the frames found, as bytes
        // drops: too few preambles, delimiter, checksum, gap
        addColumns<QByteArrayList, int, QByteArrayList, QList<int>, int>(
            {"chunks", "step", "expected", "drops", "noise"});

        const QList<int> none{0, 0, 0, 0};
        const QByteArray two = hx("FF FF 02 83 01 00 80");
        QTest::newRow("byte by byte") << bytewise(req3) << 9 << QByteArrayList{req3} << none << 0;
        QTest::newRow("noise before the preambles")
            << QByteArrayList{hx("00 12 FE") + req3} << 0 << QByteArrayList{req3} << none << 3;
        QTest::newRow("two preambles are enough") << QByteArrayList{two} << 0 << QByteArrayList{two} << none << 0;
        QTest::newRow("one preamble is not")
            << QByteArrayList{two.mid(1)} << 0 << QByteArrayList{} << QList<int>{1, 0, 0, 0} << 4;
        QTest::newRow("bad checksum, then a good frame") << QByteArrayList{hx("FF FF 02 83 01 00 81"), req3} << 50
                                                         << QByteArrayList{req3} << QList<int>{0, 0, 1, 0} << 0;
        QTest::newRow("unknown delimiter, then a good frame")
            << QByteArrayList{hx("FF FF FF 41") + req3} << 0 << QByteArrayList{req3} << QList<int>{0, 1, 0, 0} << 0;
        QTest::newRow("data bytes of FF") << QByteArrayList{hx("FF FF 02 80 11 02 FF FF 91")} << 0
                                          << QByteArrayList{hx("FF FF 02 80 11 02 FF FF 91")} << none << 0;
        QTest::newRow("two frames in one read")
            << QByteArrayList{req3 + reqLong} << 0 << QByteArrayList{req3, reqLong} << none << 0;
        QTest::newRow("pause longer than the gap drops the frame")
            << QByteArrayList{req3.left(7), req3.mid(7)} << 101 << QByteArrayList{} << QList<int>{0, 0, 0, 1} << 3;
        QTest::newRow("pause as long as the gap keeps it")
            << QByteArrayList{req3.left(7), req3.mid(7)} << 100 << QByteArrayList{req3} << none << 0;
        QTest::newRow("cut frame, then a fresh one after a pause")
            << QByteArrayList{req3.left(7), reqLong} << 500 << QByteArrayList{reqLong} << QList<int>{0, 0, 0, 1} << 0;
    }

    void feed()
    {
        QFETCH(QByteArrayList, chunks);
        QFETCH(int, step);

        FrameReceiver receiver(100);
        QByteArrayList found;
        for (int i = 0; i < chunks.size(); ++i) {
            for (const SimFrame& frame : receiver.feed(chunks.at(i), i * step))
                found << frame.toBytes();
        }
        QTEST(found, "expected");
        QList<int> dropped;
        for (int reason = 0; reason < FrameReceiver::DropReasonCount; ++reason)
            dropped << receiver.dropped(FrameReceiver::DropReason(reason));
        QTEST(dropped, "drops");
        QCOMPARE(receiver.droppedTotal(), std::accumulate(dropped.begin(), dropped.end(), 0));
        QTEST(int(receiver.noiseBytes()), "noise");
        QCOMPARE(receiver.takeDrops().size(), receiver.droppedTotal());
        QVERIFY(!receiver.inFrame());
    }

    void firstByteTime()
    {
        // The time a request spent on the wire is counted from its first
        // preamble, not from noise before it nor from its last piece.
        FrameReceiver receiver;
        QVERIFY(receiver.feed(hx("00 00"), 5).isEmpty());
        QVERIFY(receiver.feed(hx("FF FF FF"), 10).isEmpty());
        const QList<SimFrame> frames = receiver.feed(hx("FF FF 02 83 01 00 80"), 40);
        QCOMPARE(frames.size(), 1);
        QCOMPARE(frames.first().firstByteMs(), qint64(10));
    }

    void gapOnEmptyFeed()
    {
        FrameReceiver receiver(50);
        QVERIFY(receiver.feed(hx("FF FF FF 02 83 01"), 1000).isEmpty());
        QCOMPARE(receiver.gapDeadlineMs(), qint64(1050));
        QVERIFY(receiver.feed(QByteArray(), 1050).isEmpty());
        QVERIFY(receiver.inFrame());
        QVERIFY(receiver.feed(QByteArray(), 1051).isEmpty());
        QVERIFY(!receiver.inFrame());
        const QList<FrameReceiver::Drop> drops = receiver.takeDrops();
        QCOMPARE(drops.size(), 1);
        QCOMPARE(drops.first().reason, FrameReceiver::Gap);
        QCOMPARE(drops.first().bytes, hx("FF FF FF 02 83 01"));
    }
};

QTEST_GUILESS_MAIN(TestFrameReceiver)
#include "tst_framereceiver.moc"
