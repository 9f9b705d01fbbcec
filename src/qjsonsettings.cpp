#include "qjsonsettings.h"

#include "debugqt.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

namespace {
QSettings::Format g_format = QSettings::InvalidFormat;
}

QJsonSettings::QJsonSettings(const QString& fileName, QObject* parent) : QSettings(fileName, format(), parent)
{}

QJsonSettings::QJsonSettings(const QString& organization, const QString& application, QObject* parent)
    : QSettings(format(), QSettings::UserScope, organization, application, parent)
{}

QSettings::Format QJsonSettings::format()
{
    if (g_format == QSettings::InvalidFormat)
        g_format = QSettings::registerFormat(QStringLiteral("json"), jsonReadFunc, jsonWriteFunc, Qt::CaseSensitive);
    return g_format;
}

bool QJsonSettings::parse(const QByteArray& content, QVariantMap* map, int* line, QString* reason)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError) {
        *reason = error.errorString();
        *line = int(content.left(error.offset).count('\n')) + 1;
        return false;
    }
    if (!document.isObject()) {
        *reason = QStringLiteral("the top level is not an object");
        *line = 1;
        return false;
    }
    *map = document.object().toVariantMap();
    return true;
}

bool QJsonSettings::jsonReadFunc(QIODevice& device, QSettings::SettingsMap& map)
{
    const QByteArray content = device.readAll();
    QString reason;
    int line = 0;
    if (parse(content, &map, &line, &reason))
        return true;

    SDBG(LevelErr) << "parse error at line:" << line << "," << reason;
    if (auto* file = qobject_cast<QFile*>(&device))
        keepUnreadableCopy(file->fileName(), content);
    return false;
}

bool QJsonSettings::jsonWriteFunc(QIODevice& device, const QSettings::SettingsMap& map)
{
    device.write(QJsonDocument(QJsonObject::fromVariantMap(map)).toJson(QJsonDocument::Indented));
    return true;
}

QString QJsonSettings::keepUnreadableCopy(const QString& fileName, const QByteArray& content)
{
    if (fileName.isEmpty())
        return QString();
    const QString base = fileName + QStringLiteral(".corrupt");
    for (int n = 0; n < 1000; ++n) {
        const QString candidate = n == 0 ? base : QStringLiteral("%1.%2").arg(base).arg(n);
        QFile copy(candidate);
        if (copy.exists()) {
            if (copy.open(QIODevice::ReadOnly) && copy.readAll() == content)
                return candidate; // kept already
            continue;
        }
        if (copy.open(QIODevice::WriteOnly) && copy.write(content) == content.size() && copy.flush()) {
            SDBG(LevelWarn) << "unreadable file" << fileName << "kept as" << candidate;
            return candidate;
        }
        SDBG(LevelWarn) << "cannot keep a copy of the unreadable file" << fileName << ":" << copy.errorString();
        return QString();
    }
    return QString();
}
