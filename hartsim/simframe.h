#ifndef HARTSIM_SIMFRAME_H
#define HARTSIM_SIMFRAME_H

#include <QByteArray>
#include <QString>
#include <QtGlobal>

namespace hartsim {

// One request as the simulator received it from a master, and the simulator's
// own frame arithmetic.
//
// On the wire a frame is: preambles (0xFF, not covered by the checksum), the
// delimiter (0x02 short request, 0x82 long request, 0x06 short response, 0x86
// long response), the address (1 byte short, 5 bytes long; bit 7 of the first
// byte is the primary master, bit 6 the burst bit), the command, the byte count,
// on a response two status bytes, the data, and the checksum: the exclusive or
// of every byte from the delimiter through the last data byte.
class SimFrame
{
public:
    static constexpr quint8 ShortRequest = 0x02;
    static constexpr quint8 LongRequest = 0x82;
    static constexpr quint8 ShortResponse = 0x06;
    static constexpr quint8 LongResponse = 0x86;
    static constexpr quint8 PrimaryMasterBit = 0x80;
    static constexpr quint8 BurstBit = 0x40;
    // The most data a response can carry: the byte count holds the two status
    // bytes too.
    static constexpr int MaxResponseData = 253;

    SimFrame() = default;
    SimFrame(int preambles, quint8 delimiter, const QByteArray& address, quint8 command, const QByteArray& data);

    int preambles() const { return m_preambles; }
    quint8 delimiter() const { return m_delimiter; }
    // The address bytes as received, master and burst bits included.
    QByteArray address() const { return m_address; }
    quint8 command() const { return m_command; }
    QByteArray data() const { return m_data; }
    bool isLong() const { return m_address.size() == 5; }
    // Bit 7 of the first address byte.
    bool fromPrimaryMaster() const;
    // The polling address of a short frame (the low six bits), -1 on a long one.
    int pollingAddress() const;
    // A long frame whose address bits (master and burst bits aside) are all zero.
    bool isBroadcast() const;

    // Arrival time of the first preamble byte, in the receiver's milliseconds.
    qint64 firstByteMs() const { return m_firstByteMs; }
    void setFirstByteMs(qint64 ms) { m_firstByteMs = ms; }

    // The frame as bytes, from the first preamble through the checksum.
    QByteArray toBytes() const;

    // Exclusive or of all the bytes given: pass the frame from its delimiter
    // through its last data byte.
    static quint8 checksum(const QByteArray& bytes);

    // A request frame: preambles, delimiter 0x02 for a 1-byte address or 0x82
    // for a 5-byte one, the address as given, command, byte count, data and
    // checksum. Tests and tools use it to play the master.
    static QByteArray buildRequest(int preambles, const QByteArray& address, quint8 command,
                                   const QByteArray& data = QByteArray());

    // A response to a request with the given address: preambles, delimiter 0x06
    // (1-byte address) or 0x86 (5-byte address), the request's address as it
    // was received, with bit 6 set when burst, the command, the byte count
    // (2 + data size), the response code and device status bytes, the data
    // (cut to MaxResponseData bytes) and the checksum.
    static QByteArray buildResponse(int preambles, const QByteArray& requestAddress, quint8 command,
                                    quint8 responseCode, quint8 deviceStatus, const QByteArray& data,
                                    bool burst = false);

    // Bytes as lower-case hexadecimal pairs separated by blanks, for logs.
    static QString hex(const QByteArray& bytes);

private:
    int m_preambles = 0;
    quint8 m_delimiter = 0;
    QByteArray m_address;
    quint8 m_command = 0;
    QByteArray m_data;
    qint64 m_firstByteMs = 0;
};

} // namespace hartsim

#endif // HARTSIM_SIMFRAME_H
