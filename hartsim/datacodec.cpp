#include "datacodec.h"

#include <cstring>

namespace hartsim {

void DataCodec::putFloat(QByteArray& data, float value)
{
    quint32 bits;
    std::memcpy(&bits, &value, sizeof bits);
    putUInt(data, bits, 4);
}

QByteArray DataCodec::floatBytes(double value)
{
    QByteArray data;
    putFloat(data, float(value));
    return data;
}

void DataCodec::putUInt(QByteArray& data, quint32 value, int size)
{
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        data.append(char((value >> shift) & 0xFF));
}

float DataCodec::getFloat(const QByteArray& data, int offset)
{
    const quint32 bits = getUInt(data, offset, 4);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

quint32 DataCodec::getUInt(const QByteArray& data, int offset, int size)
{
    quint32 value = 0;
    for (int k = 0; k < size; ++k) {
        const int at = offset + k;
        value = (value << 8) | (at >= 0 && at < data.size() ? quint8(data.at(at)) : 0u);
    }
    return value;
}

QByteArray DataCodec::packAscii(const QString& text, int chars)
{
    QByteArray codes;
    for (int k = 0; k < chars; ++k) {
        char c = k < text.size() ? text.at(k).toUpper().toLatin1() : ' ';
        // The HART set is 0x20 to 0x5F; its code is the low six bits.
        if (c < 0x20 || c > 0x5F)
            c = '?';
        codes.append(char(c & 0x3F));
    }
    QByteArray packed;
    for (int k = 0; k + 3 < codes.size(); k += 4) {
        const quint32 group = (quint32(quint8(codes[k])) << 18) | (quint32(quint8(codes[k + 1])) << 12) |
                              (quint32(quint8(codes[k + 2])) << 6) | quint32(quint8(codes[k + 3]));
        putUInt(packed, group, 3);
    }
    return packed;
}

QString DataCodec::unpackAscii(const QByteArray& packed)
{
    QString text;
    for (int k = 0; k + 2 < packed.size(); k += 3) {
        const quint32 group = getUInt(packed, k, 3);
        for (int shift = 18; shift >= 0; shift -= 6) {
            const quint8 code = (group >> shift) & 0x3F;
            // Codes 0x00 to 0x1F stand for 0x40 to 0x5F.
            text.append(QLatin1Char(char(code < 0x20 ? code | 0x40 : code)));
        }
    }
    return text;
}

} // namespace hartsim
