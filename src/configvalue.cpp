#include "configvalue.h"

#include <climits>
#include <cmath>

bool ConfigValue::isNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return true;
    default:
        return false;
    }
}

bool ConfigValue::toInt(const QVariant& value, int* out)
{
    bool ok = false;
    int number = 0;
    if (isNumber(value)) {
        const double d = value.toDouble();
        ok = std::isfinite(d) && d >= double(INT_MIN) && d <= double(INT_MAX);
        number = ok ? int(d) : 0;
    } else if (isText(value)) {
        number = value.toString().trimmed().toInt(&ok);
    }
    if (ok)
        *out = number;
    return ok;
}

bool ConfigValue::toBool(const QVariant& value, bool* out)
{
    if (value.typeId() == QMetaType::Bool) {
        *out = value.toBool();
        return true;
    }
    int number = 0;
    if (isNumber(value) && toInt(value, &number)) {
        *out = number != 0;
        return true;
    }
    if (isText(value)) {
        const QString text = value.toString().trimmed().toLower();
        if (text == QLatin1String("true") || text == QLatin1String("1")) {
            *out = true;
            return true;
        }
        if (text == QLatin1String("false") || text == QLatin1String("0")) {
            *out = false;
            return true;
        }
    }
    return false;
}

bool ConfigValue::toText(const QVariant& value, QString* out)
{
    if (!isText(value))
        return false;
    *out = value.toString();
    return true;
}
