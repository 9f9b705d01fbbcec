#ifndef CONFIGVALUE_H
#define CONFIGVALUE_H

#include <QString>
#include <QVariant>

// Strict reading of values from a configuration file. Each reader gives false
// when the value cannot stand for what is asked (a list where a number
// belongs, a text that is no number) and leaves the output alone then, so a
// malformed file loads what it can and says what it could not.
class ConfigValue
{
public:
    static bool isNumber(const QVariant& value);
    static bool isText(const QVariant& value) { return value.typeId() == QMetaType::QString; }
    static bool isMap(const QVariant& value) { return value.typeId() == QMetaType::QVariantMap; }
    // A number in the int range, or a text that is one.
    static bool toInt(const QVariant& value, int* out);
    // A boolean, a number (0 false), or the text "true", "false", "1", "0".
    static bool toBool(const QVariant& value, bool* out);
    // A text.
    static bool toText(const QVariant& value, QString* out);
};

#endif // CONFIGVALUE_H
