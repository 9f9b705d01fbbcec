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
    static bool jsonWriteFunc(QIODevice& device, const QSettings::SettingsMap& map);

    // Where a copy of an unreadable file goes: name.corrupt, then
    // name.corrupt.1 and up, never over an earlier copy with other content.
    static QString keepUnreadableCopy(const QString& fileName, const QByteArray& content);
};

#endif // QJSONSETTINGS_H
