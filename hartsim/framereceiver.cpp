#include "framereceiver.h"

namespace hartsim {

namespace {
const int MaxKeptDrops = 64;
}

FrameReceiver::FrameReceiver(int gapMs) : m_gapMs(gapMs)
{}

QList<SimFrame> FrameReceiver::feed(const QByteArray& bytes, qint64 nowMs)
{
    QList<SimFrame> frames;
    if (m_state != State::Search && nowMs - m_lastByteMs > m_gapMs)
        drop(Gap);
    if (bytes.isEmpty())
        return frames;
    m_lastByteMs = nowMs;

    for (const char c : bytes) {
        const quint8 byte = quint8(c);
        if (m_state != State::Search)
            m_gathered.append(c);
        switch (m_state) {
        case State::Search:
            if (byte == 0xFF) {
                m_state = State::Preamble;
                m_preambles = 1;
                m_firstByteMs = nowMs;
                m_gathered = QByteArray(1, c);
            } else {
                ++m_noiseBytes;
            }
            break;
        case State::Preamble:
            if (byte == 0xFF) {
                ++m_preambles;
            } else if (m_preambles < 2) {
                drop(TooFewPreambles);
            } else if (byte == SimFrame::ShortRequest || byte == SimFrame::LongRequest) {
                m_delimiter = byte;
                m_addressSize = byte == SimFrame::LongRequest ? 5 : 1;
                m_address.clear();
                m_state = State::Address;
            } else {
                drop(BadDelimiter);
            }
            break;
        case State::Address:
            m_address.append(c);
            if (m_address.size() == m_addressSize)
                m_state = State::Command;
            break;
        case State::Command:
            m_command = byte;
            m_state = State::Count;
            break;
        case State::Count:
            m_count = byte;
            m_data.clear();
            m_state = m_count == 0 ? State::Checksum : State::Data;
            break;
        case State::Data:
            m_data.append(c);
            if (m_data.size() == m_count)
                m_state = State::Checksum;
            break;
        case State::Checksum: {
            // Everything gathered after the preambles, less this byte.
            const QByteArray covered = m_gathered.mid(m_preambles, m_gathered.size() - m_preambles - 1);
            if (SimFrame::checksum(covered) != byte) {
                drop(BadChecksum);
            } else {
                SimFrame frame(m_preambles, m_delimiter, m_address, m_command, m_data);
                frame.setFirstByteMs(m_firstByteMs);
                frames.append(frame);
                restart();
            }
            break;
        }
        }
    }
    return frames;
}

void FrameReceiver::reset()
{
    restart();
}

int FrameReceiver::droppedTotal() const
{
    int total = 0;
    for (const int n : m_dropped)
        total += n;
    return total;
}

void FrameReceiver::resetCounters()
{
    for (int& n : m_dropped)
        n = 0;
    m_noiseBytes = 0;
    m_drops.clear();
}

QList<FrameReceiver::Drop> FrameReceiver::takeDrops()
{
    QList<Drop> drops;
    drops.swap(m_drops);
    return drops;
}

const char* FrameReceiver::reasonName(DropReason reason)
{
    switch (reason) {
    case TooFewPreambles:
        return "too few preambles";
    case BadDelimiter:
        return "not a request delimiter";
    case BadChecksum:
        return "wrong checksum";
    case Gap:
        return "pause inside the frame";
    case DropReasonCount:
        break;
    }
    return "?";
}

void FrameReceiver::drop(DropReason reason)
{
    ++m_dropped[reason];
    if (m_drops.size() >= MaxKeptDrops)
        m_drops.removeFirst();
    m_drops.append(Drop{reason, m_gathered});
    restart();
}

void FrameReceiver::restart()
{
    m_state = State::Search;
    m_preambles = 0;
    m_address.clear();
    m_data.clear();
    m_gathered.clear();
}

} // namespace hartsim
