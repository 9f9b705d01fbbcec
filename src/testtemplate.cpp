#include "testtemplate.h"

#include "configvalue.h"
#include "qjsonsettings.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace {

const char* const CommandsKey = "commands";

// A number without a fraction, from min to max.
bool wholeNumber(const QVariant& value, int min, int max, int* out)
{
    if (!ConfigValue::isNumber(value))
        return false;
    const double number = value.toDouble();
    if (!std::isfinite(number) || number != std::floor(number) || number < min || number > max)
        return false;
    *out = int(number);
    return true;
}

bool isScalar(const QVariant& value)
{
    return ConfigValue::isNumber(value) || ConfigValue::isText(value) || value.typeId() == QMetaType::Bool;
}

bool isListOf(const QVariant& value, bool (*element)(const QVariant&))
{
    if (value.typeId() != QMetaType::QVariantList)
        return false;
    const QVariantList list = value.toList();
    for (const QVariant& item : list) {
        if (!element(item))
            return false;
    }
    return true;
}

} // namespace

bool TestTemplate::read(const QString& fileName, QVariantMap* test, QString* error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = tr("cannot open the file: %1").arg(file.errorString());
        return false;
    }
    int line = 0;
    QString reason;
    if (!QJsonSettings::parse(file.readAll(), test, &line, &reason)) {
        *error = tr("line %1: %2").arg(line).arg(reason);
        return false;
    }
    return check(test, fileName, error);
}

bool TestTemplate::check(QVariantMap* test, const QString& fileName, QString* error)
{
    for (const char* key : {"name", "template", "description"}) {
        const QVariant value = test->value(QLatin1String(key));
        if (value.isValid() && !ConfigValue::isText(value)) {
            *error = tr("\"%1\" is not a text").arg(QLatin1String(key));
            return false;
        }
    }
    if (!test->contains(QStringLiteral("template"))) {
        *error = tr("it names no \"template\"");
        return false;
    }
    if (test->value(QStringLiteral("name")).toString().isEmpty())
        test->insert(QStringLiteral("name"), QFileInfo(fileName).completeBaseName());

    const QVariant deviceValue = test->value(QStringLiteral("device"));
    if (!ConfigValue::isMap(deviceValue)) {
        *error = tr("it has no \"device\" object");
        return false;
    }
    QVariantMap device = deviceValue.toMap();
    QVariantList commands = device.value(QLatin1String(CommandsKey)).toList();
    if (device.value(QLatin1String(CommandsKey)).typeId() != QMetaType::QVariantList || commands.isEmpty()) {
        *error = tr("\"commands\" of \"device\" is not a list of commands");
        return false;
    }
    for (int k = 0; k < commands.size(); ++k) {
        if (!ConfigValue::isMap(commands.at(k))) {
            *error = tr("command %1: not an object").arg(k + 1);
            return false;
        }
        QVariantMap command = commands.at(k).toMap();
        if (!checkCommand(&command, k, error))
            return false;
        commands[k] = command;
    }
    device.insert(QLatin1String(CommandsKey), commands);
    test->insert(QStringLiteral("device"), device);
    return true;
}

bool TestTemplate::checkCommand(QVariantMap* command, int index, QString* error)
{
    const QString where = tr("command %1: ").arg(index + 1);
    int number = 0;
    if (!wholeNumber(command->value(QStringLiteral("number")), 0, 255, &number)) {
        *error = where + tr("\"number\" must be a HART command from 0 to 255");
        return false;
    }
    command->insert(QStringLiteral("number"), number);
    if (!command->contains(QStringLiteral("cycles")))
        command->insert(QStringLiteral("cycles"), DefaultCycles);

    struct Range
    {
        const char* key;
        int min;
        int max;
    };
    for (const Range& range : {Range{"cycles", 1, MaxCycles}, Range{"read_cmd", 0, 255}, Range{"delay", 0, MaxDelayMs},
                               Range{"read_delay", 0, MaxDelayMs}}) {
        const QString key = QLatin1String(range.key);
        if (!command->contains(key))
            continue;
        int value = 0;
        if (!wholeNumber(command->value(key), range.min, range.max, &value)) {
            *error = where + tr("\"%1\" must be a whole number from %2 to %3").arg(key).arg(range.min).arg(range.max);
            return false;
        }
        command->insert(key, value);
    }

    const QVariant description = command->value(QStringLiteral("description"));
    if (description.isValid() && !ConfigValue::isText(description)) {
        *error = where + tr("\"description\" is not a text");
        return false;
    }
    const QVariant print = command->value(QStringLiteral("print"));
    if (print.isValid() && !isListOf(print, &ConfigValue::isText)) {
        *error = where + tr("\"print\" must be a list of value names");
        return false;
    }
    const QVariant closePort = command->value(QStringLiteral("close_port"));
    if (closePort.isValid() && closePort.typeId() != QMetaType::Bool) {
        *error = where + tr("\"close_port\" must be true or false");
        return false;
    }
    const QVariant parameters = command->value(QStringLiteral("parameters"));
    if (parameters.isValid()) {
        const QVariantMap values = parameters.toMap();
        bool good = ConfigValue::isMap(parameters) && !values.isEmpty();
        for (auto it = values.constBegin(); good && it != values.constEnd(); ++it)
            good = isListOf(it.value(), &isScalar) && !it.value().toList().isEmpty();
        if (!good) {
            *error = where + tr("\"parameters\" must give each value name a list of values, one for each cycle");
            return false;
        }
    }
    return true;
}

QVariantList TestTemplate::commands(const QVariantMap& test)
{
    return test.value(QStringLiteral("device")).toMap().value(QLatin1String(CommandsKey)).toList();
}

QVariantMap TestTemplate::expectedValues(const QVariantMap& test)
{
    QVariantMap values = test.value(QStringLiteral("device")).toMap();
    values.remove(QLatin1String(CommandsKey));
    return values;
}

QVariant TestTemplate::valueForCycle(const QVariantList& values, int cycle)
{
    if (values.isEmpty() || cycle < 1)
        return QVariant();
    return values.at((cycle - 1) % values.size());
}
