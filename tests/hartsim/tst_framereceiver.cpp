#include "framereceiver.h"

#include <QtTest>

using hartsim::FrameReceiver;
using hartsim::SimFrame;

namespace {

QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

// Requests with their checksums summed by hand.
const char* const req3 = "FF FF FF FF FF 02 83 01 00 80";                // short 3, command 1
const char* const req3Bad = "FF FF FF FF FF 02 83 01 00 81";             // the same, checksum off by one
const char* const reqLong = "FF FF FF FF FF 82 A6 0A 12 34 56 01 00 5F"; // long, command 1
const char* const reqBroadcast = "FF FF 82 80 00 00 00 00 0B 06 11 22 33 44 55 66 78";
const char* const reqDataFF = "FF FF 02 80 11 02 FF FF 91"; // command 17, data FF FF
const char* const resp3 = "FF FF FF FF FF 06 83 01 07 00 00 20 42 C8 00 00 29";

// Splits bytes into pieces of the given sizes; the rest goes in a last piece.
QByteArrayList pieces(const QByteArray& bytes, const QList<int>& sizes)
{
    QByteArrayList out;
    int at = 0;
    for (const int size : sizes) {
        out << bytes.mid(at, size);
        at += size;
    }
    if (at < bytes.size())
        out << bytes.mid(at);
    return out;
}

QByteArrayList oneByteEach(const QByteArray& bytes)
{
    QByteArrayList out;
    for (const char c : bytes)
        out << QByteArray(1, c);
    return out;
}

QList<int> everyMs(int count, int step)
{
    QList<int> times;
    for (int i = 0; i < count; ++i)
        times << i * step;
    return times;
}

} // namespace

class TestFrameReceiver : public QObject
{
    Q_OBJECT

private slots:
    void feed_data();
    void feed();
    void firstByteTime();
    void gapOnEmptyFeed();
    void fields();
};

void TestFrameReceiver::feed_data()
{
    QTest::addColumn<QByteArrayList>("chunks");
    QTest::addColumn<QList<int>>("times");        // arrival of each chunk, in ms
    QTest::addColumn<QByteArrayList>("expected"); // the frames found, as bytes
    QTest::addColumn<QList<int>>("drops");        // too few preambles, delimiter, checksum, gap
    QTest::addColumn<int>("noise");

    const QList<int> none{0, 0, 0, 0};

    QTest::newRow("whole short request") << QByteArrayList{hx(req3)} << QList<int>{0} << QByteArrayList{hx(req3)}
                                         << none << 0;
    QTest::newRow("byte by byte") << oneByteEach(hx(req3)) << everyMs(10, 9) << QByteArrayList{hx(req3)} << none << 0;
    QTest::newRow("pieces split in the address and before the checksum")
        << pieces(hx(reqLong), {7, 6}) << QList<int>{0, 20, 40} << QByteArrayList{hx(reqLong)} << none << 0;
    QTest::newRow("noise before the preambles")
        << QByteArrayList{hx("00 12 FE") + hx(req3)} << QList<int>{0} << QByteArrayList{hx(req3)} << none << 3;
    QTest::newRow("two preambles are enough") << QByteArrayList{hx("FF FF 02 83 01 00 80")} << QList<int>{0}
                                              << QByteArrayList{hx("FF FF 02 83 01 00 80")} << none << 0;
    QTest::newRow("one preamble is not") << QByteArrayList{hx("FF 02 83 01 00 80")} << QList<int>{0} << QByteArrayList{}
                                         << QList<int>{1, 0, 0, 0} << 4;
    QTest::newRow("many preambles") << QByteArrayList{QByteArray(20, char(0xFF)) + hx("02 83 01 00 80")}
                                    << QList<int>{0}
                                    << QByteArrayList{QByteArray(20, char(0xFF)) + hx("02 83 01 00 80")} << none << 0;
    QTest::newRow("bad checksum, then a good frame") << QByteArrayList{hx(req3Bad), hx(req3)} << QList<int>{0, 50}
                                                     << QByteArrayList{hx(req3)} << QList<int>{0, 0, 1, 0} << 0;
    QTest::newRow("a response is not a request")
        << QByteArrayList{hx(resp3)} << QList<int>{0} << QByteArrayList{} << QList<int>{0, 1, 0, 0} << 11;
    QTest::newRow("unknown delimiter, then a good frame")
        << QByteArrayList{hx("FF FF FF 41") + hx(req3)} << QList<int>{0} << QByteArrayList{hx(req3)}
        << QList<int>{0, 1, 0, 0} << 0;
    QTest::newRow("data bytes of FF") << QByteArrayList{hx(reqDataFF)} << QList<int>{0} << QByteArrayList{hx(reqDataFF)}
                                      << none << 0;
    QTest::newRow("two frames in one read") << QByteArrayList{hx(req3) + hx(reqLong)} << QList<int>{0}
                                            << QByteArrayList{hx(req3), hx(reqLong)} << none << 0;
    QTest::newRow("pause longer than the gap drops the frame")
        << pieces(hx(req3), {7}) << QList<int>{0, 150} << QByteArrayList{} << QList<int>{0, 0, 0, 1} << 3;
    QTest::newRow("pause as long as the gap keeps it")
        << pieces(hx(req3), {7}) << QList<int>{0, 100} << QByteArrayList{hx(req3)} << none << 0;
    QTest::newRow("cut frame, then a fresh one after a pause")
        << QByteArrayList{hx("FF FF FF FF FF 02 83"), hx(reqLong)} << QList<int>{0, 500} << QByteArrayList{hx(reqLong)}
        << QList<int>{0, 0, 0, 1} << 0;
}

void TestFrameReceiver::feed()
{
    QFETCH(QByteArrayList, chunks);
    QFETCH(QList<int>, times);
    QFETCH(QByteArrayList, expected);
    QFETCH(QList<int>, drops);
    QFETCH(int, noise);
    QCOMPARE(times.size(), chunks.size());

    FrameReceiver receiver(100);
    QByteArrayList found;
    for (int i = 0; i < chunks.size(); ++i) {
        const QList<SimFrame> frames = receiver.feed(chunks.at(i), times.at(i));
        for (const SimFrame& frame : frames)
            found << frame.toBytes();
    }
    QCOMPARE(found, expected);
    QCOMPARE(receiver.dropped(FrameReceiver::TooFewPreambles), drops.at(0));
    QCOMPARE(receiver.dropped(FrameReceiver::BadDelimiter), drops.at(1));
    QCOMPARE(receiver.dropped(FrameReceiver::BadChecksum), drops.at(2));
    QCOMPARE(receiver.dropped(FrameReceiver::Gap), drops.at(3));
    QCOMPARE(receiver.droppedTotal(), drops.at(0) + drops.at(1) + drops.at(2) + drops.at(3));
    QCOMPARE(receiver.noiseBytes(), qint64(noise));
    QCOMPARE(receiver.takeDrops().size(), receiver.droppedTotal());
    QVERIFY(!receiver.inFrame());
}

void TestFrameReceiver::firstByteTime()
{
    // The time a request spent on the wire is counted from its first preamble,
    // not from noise before it nor from its last piece.
    FrameReceiver receiver;
    QVERIFY(receiver.feed(hx("00 00"), 5).isEmpty());
    QVERIFY(receiver.feed(hx("FF FF FF"), 10).isEmpty());
    QVERIFY(receiver.inFrame());
    const QList<SimFrame> frames = receiver.feed(hx("FF FF 02 83 01 00 80"), 40);
    QCOMPARE(frames.size(), 1);
    QCOMPARE(frames.first().firstByteMs(), qint64(10));
}

void TestFrameReceiver::gapOnEmptyFeed()
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
    QVERIFY(receiver.takeDrops().isEmpty());
    // The rest of the frame after the pause is only noise.
    QVERIFY(receiver.feed(hx("00 80"), 1100).isEmpty());
    QCOMPARE(receiver.noiseBytes(), qint64(2));
}

void TestFrameReceiver::fields()
{
    FrameReceiver receiver;
    const QList<SimFrame> frames = receiver.feed(hx(reqBroadcast), 0);
    QCOMPARE(frames.size(), 1);
    const SimFrame& frame = frames.first();
    QCOMPARE(frame.preambles(), 2);
    QCOMPARE(int(frame.delimiter()), 0x82);
    QCOMPARE(frame.address(), hx("80 00 00 00 00"));
    QCOMPARE(int(frame.command()), 11);
    QCOMPARE(frame.data(), hx("11 22 33 44 55 66"));
    QVERIFY(frame.isLong());
    QVERIFY(frame.isBroadcast());
    QVERIFY(frame.fromPrimaryMaster());
}

QTEST_GUILESS_MAIN(TestFrameReceiver)
#include "tst_framereceiver.moc"
