#include "framereceiver.h"
#include "simdevicetestutil.h"

#include <numeric>

using hartsim::FrameReceiver;
using hartsim::SimFrame;
using simtest::hx;

namespace {

// Requests with their checksums summed by hand.
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

class TestFrameReceiver : public QObject
{
    Q_OBJECT

private slots:
    void feed_data()
    {
        QTest::addColumn<QByteArrayList>("chunks");
        QTest::addColumn<int>("step");                // ms between the chunks
        QTest::addColumn<QByteArrayList>("expected"); // the frames found, as bytes
        QTest::addColumn<QList<int>>("drops");        // too few preambles, delimiter, checksum, gap
        QTest::addColumn<int>("noise");

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
