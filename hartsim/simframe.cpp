#include "simframe.h"

namespace hartsim {

namespace {

QByteArray frameBody(quint8 delimiter, const QByteArray& address, quint8 command, const QByteArray& payload)
{
    QByteArray body;
    body.reserve(4 + address.size() + payload.size());
    body.append(char(delimiter));
    body.append(address);
    body.append(char(command));
    body.append(char(quint8(payload.size())));
    body.append(payload);
    body.append(char(SimFrame::checksum(body)));
    return body;
}

} // namespace

SimFrame::SimFrame(int preambles, quint8 delimiter, const QByteArray& address, quint8 command, const QByteArray& data)
    : m_preambles(preambles), m_delimiter(delimiter), m_address(address), m_command(command), m_data(data)
{}

bool SimFrame::fromPrimaryMaster() const
{
    return !m_address.isEmpty() && (quint8(m_address.at(0)) & PrimaryMasterBit);
}

int SimFrame::pollingAddress() const
{
    if (m_address.size() != 1)
        return -1;
    return quint8(m_address.at(0)) & 0x3F;
}

bool SimFrame::isBroadcast() const
{
    if (!isLong())
        return false;
    if (quint8(m_address.at(0)) & 0x3F)
        return false;
    for (int i = 1; i < m_address.size(); ++i) {
        if (m_address.at(i) != 0)
            return false;
    }
    return true;
}

QByteArray SimFrame::toBytes() const
{
    return QByteArray(qMax(0, m_preambles), char(0xFF)) + frameBody(m_delimiter, m_address, m_command, m_data);
}

quint8 SimFrame::checksum(const QByteArray& bytes)
{
    quint8 sum = 0;
    for (const char c : bytes)
        sum ^= quint8(c);
    return sum;
}

QByteArray SimFrame::buildRequest(int preambles, const QByteArray& address, quint8 command, const QByteArray& data)
{
    const quint8 delimiter = address.size() == 5 ? LongRequest : ShortRequest;
    return QByteArray(qMax(0, preambles), char(0xFF)) + frameBody(delimiter, address, command, data);
}

QByteArray SimFrame::buildResponse(int preambles, const QByteArray& requestAddress, quint8 command, quint8 responseCode,
                                   quint8 deviceStatus, const QByteArray& data, bool burst)
{
    const quint8 delimiter = requestAddress.size() == 5 ? LongResponse : ShortResponse;
    QByteArray address = requestAddress;
    if (burst && !address.isEmpty())
        address[0] = char(quint8(address.at(0)) | BurstBit);
    QByteArray payload;
    payload.append(char(responseCode));
    payload.append(char(deviceStatus));
    payload.append(data.left(MaxResponseData));
    return QByteArray(qMax(0, preambles), char(0xFF)) + frameBody(delimiter, address, command, payload);
}

QString SimFrame::hex(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' '));
}

} // namespace hartsim
