#ifndef QJSONSETTINGS_H
#define QJSONSETTINGS_H

#include <QSettings>

class QIODevice;

// QSettings on a JSON file: the keys of the one top-level object are the
// settings keys, and a nested object is a QVariantMap value. A file that does
// not parse reads as empty, with status FormatError and one err line; a copy
// of it is kept beside it (".corrupt") before anything can overwrite it.
class QJsonSettings : public QSettings
{
    Q_OBJECT

public:
    QJsonSettings(const QString& fileName, QObject* parent = nullptr);
    QJsonSettings(const QString& organization, const QString& application, QObject* parent = nullptr);

    static QSettings::Format format();

    static bool jsonReadFunc(QIODevice& device, QSettings::SettingsMap& map);
    // The syntax of every file of the store: one JSON object. False, with
    // the line (from 1) and the reason, for a text that is not one.
    static bool parse(const QByteArray& content, QVariantMap* map, int* line, QString* reason);
    static bool jsonWriteFunc(QIODevice& device, const QSettings::SettingsMap& map);

    // Where a copy of an unreadable file goes: name.corrupt, then
    // name.corrupt.1 and up, never over an earlier copy with other content.
    static QString keepUnreadableCopy(const QString& fileName, const QByteArray& content);
};

#endif // QJSONSETTINGS_H
