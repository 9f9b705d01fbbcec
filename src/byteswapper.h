#ifndef BYTESWAPPER_H
#define BYTESWAPPER_H

#include <QByteArray>
#include <QString>

// Byte reordering of values on the wire.
class ByteSwapper
{
public:
    // rule: one decimal digit per output byte, the index of the input byte to
    // take ("3210" reverses four bytes). Bytes past the rule's length are not
    // copied. Empty when the source is shorter than the rule.
    static QByteArray convert(const QByteArray& source, const QString& rule);
    // The rule with the characters of each pair swapped: "0123" gives "1032".
    static QString inverseRule(const QString& rule);
    // Reverses the bytes within each block of size bytes; empty when the
    // source is not a whole number of blocks. size must not be 0.
    static QByteArray swap_byteorder(const QByteArray& source, int size);
};

#endif // BYTESWAPPER_H
