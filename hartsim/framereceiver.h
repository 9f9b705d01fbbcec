#ifndef HARTSIM_FRAMERECEIVER_H
#define HARTSIM_FRAMERECEIVER_H

#include "simframe.h"

#include <QByteArray>
#include <QList>

namespace hartsim {

// Finds the masters' requests in the byte stream of a line, as a slave does.
//
// A request needs at least two preambles (0xFF) before its delimiter, 0x02
// with a 1-byte address or 0x82 with a 5-byte address. Bytes before the
// preambles are noise and are skipped. Any other delimiter (responses of
// another slave, expansion bytes, garbage) drops what was gathered and the
// search starts again with the next byte; so does a frame whose checksum is
// wrong, which a slave never answers, and a frame in which the line falls
// silent for longer than the gap time.
class FrameReceiver
{
public:
    enum DropReason {
        TooFewPreambles, // fewer than two 0xFF before a byte that is not 0xFF
        BadDelimiter,    // enough preambles, then a byte that starts no request
        BadChecksum,     // a whole frame whose checksum does not match
        Gap,             // a pause longer than the gap time inside a frame
        DropReasonCount
    };

    struct Drop
    {
        DropReason reason;
        QByteArray bytes; // what was gathered of the frame, preambles included
    };

    explicit FrameReceiver(int gapMs = 100);

    // Takes the bytes read at time nowMs (milliseconds on any steady clock) and
    // returns the complete, valid requests they finish. An empty array only
    // checks the gap time: a partial frame older than that is dropped.
    QList<SimFrame> feed(const QByteArray& bytes, qint64 nowMs);

    // Forgets a partial frame without counting it.
    void reset();

    void setGapMs(int ms) { m_gapMs = ms; }
    int gapMs() const { return m_gapMs; }

    // True while a frame has begun (a preamble or more received).
    bool inFrame() const { return m_state != State::Search; }
    // When the partial frame will be dropped for silence, if no byte comes
    // before; meaningful only while inFrame().
    qint64 gapDeadlineMs() const { return m_lastByteMs + m_gapMs; }

    // Counters since construction or resetCounters().
    int dropped(DropReason reason) const { return m_dropped[reason]; }
    int droppedTotal() const;
    qint64 noiseBytes() const { return m_noiseBytes; }
    void resetCounters();
    // The drops since the last call, oldest first (at most the last 64).
    QList<Drop> takeDrops();

    static const char* reasonName(DropReason reason);

private:
    enum class State { Search, Preamble, Address, Command, Count, Data, Checksum };

    void drop(DropReason reason);
    void restart();

    int m_gapMs;
    State m_state = State::Search;
    qint64 m_lastByteMs = 0;
    qint64 m_firstByteMs = 0;
    int m_preambles = 0;
    quint8 m_delimiter = 0;
    int m_addressSize = 0;
    QByteArray m_address;
    quint8 m_command = 0;
    int m_count = 0;
    QByteArray m_data;
    QByteArray m_gathered;

    int m_dropped[DropReasonCount] = {};
    qint64 m_noiseBytes = 0;
    QList<Drop> m_drops;
};

} // namespace hartsim

#endif // HARTSIM_FRAMERECEIVER_H
