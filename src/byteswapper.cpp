#include "byteswapper.h"

#include <algorithm>

QByteArray ByteSwapper::convert(const QByteArray& source, const QString& rule)
{
    if (source.size() < rule.size())
        return QByteArray();
    QByteArray result(source.size(), '\0');
    for (int i = 0; i < rule.size(); ++i) {
        const int from = rule.at(i).digitValue();
        if (from >= 0 && from < source.size())
            result[i] = source.at(from);
    }
    return result;
}

QString ByteSwapper::inverseRule(const QString& rule)
{
    QString inverse = rule;
    for (int i = 0; i + 1 < inverse.size(); i += 2)
        std::swap(inverse[i], inverse[i + 1]);
    return inverse;
}

QByteArray ByteSwapper::swap_byteorder(const QByteArray& source, int size)
{
    if (size <= 0 || source.size() % size != 0)
        return QByteArray();
    QByteArray result = source;
    for (int block = 0; block < result.size(); block += size)
        std::reverse(result.begin() + block, result.begin() + block + size);
    return result;
}
