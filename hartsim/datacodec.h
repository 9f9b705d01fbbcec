#ifndef HARTSIM_DATACODEC_H
#define HARTSIM_DATACODEC_H

#include <QByteArray>
#include <QString>

namespace hartsim {

// The encodings of HART data fields: big-endian integers and IEEE 754 singles,
// and packed ASCII (four 6-bit characters in three bytes).
class DataCodec
{
public:
    static void putFloat(QByteArray& data, float value);
    static QByteArray floatBytes(double value);
    static void putUInt(QByteArray& data, quint32 value, int size);
    // Reads beyond the end of data give 0 (NaN is not made up for floats: a
    // short field reads as the bytes present followed by zeros).
    static float getFloat(const QByteArray& data, int offset);
    static quint32 getUInt(const QByteArray& data, int offset, int size);

    // Packs text, padded with blanks or cut to chars characters (a multiple
    // of 4), into chars * 3 / 4 bytes. Lower case is taken as upper case;
    // characters outside the HART set become '?'.
    static QByteArray packAscii(const QString& text, int chars);
    // Unpacks every character; trailing blanks are kept.
    static QString unpackAscii(const QByteArray& packed);
};

} // namespace hartsim

#endif // HARTSIM_DATACODEC_H
