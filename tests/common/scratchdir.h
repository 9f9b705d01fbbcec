#ifndef TESTS_SCRATCHDIR_H
#define TESTS_SCRATCHDIR_H

// A temporary working directory for each test function, and the files the
// tests write into it: nothing a test writes reaches the home directory or
// the source tree.

#include "qjsonsettings.h"

#include <QDir>
#include <QFile>
#include <QScopedPointer>
#include <QTemporaryDir>

// The lines the message handler is given while a call runs, as they come.
template <typename Call>
QStringList logOf(Call call)
{
    static QStringList lines;
    lines.clear();
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) { lines << text; });
    call();
    qInstallMessageHandler(previous);
    return lines;
}

class ScratchDir
{
public:
    ~ScratchDir() { leave(); }

    // A new directory, made current; false when it cannot be made.
    bool enter()
    {
        if (m_home.isEmpty())
            m_home = QDir::currentPath();
        m_dir.reset(new QTemporaryDir);
        return m_dir->isValid() && QDir::setCurrent(m_dir->path());
    }

    // Back to the directory the tests started in; the temporary one goes.
    void leave()
    {
        if (m_dir && !m_home.isEmpty())
            QDir::setCurrent(m_home);
        m_dir.reset();
    }

    QString filePath(const QString& name) const { return m_dir->filePath(name); }

    // Writes a file of the directory, and the directories it needs; its path,
    // or an empty text on failure.
    QString writeFile(const QString& name, const QByteArray& content) const
    {
        QFile file(filePath(name));
        QDir().mkpath(QFileInfo(file).absolutePath());
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return QString();
        return file.fileName();
    }

    QByteArray readFile(const QString& name) const
    {
        QFile file(filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
    }

    // The value stored under key in a configuration file of the directory and
    // read back (the file's text to text); invalid when writing fails.
    QVariant throughConfigFile(const QString& key, const QVariant& value, QByteArray* text = nullptr) const
    {
        const QString file = filePath(QStringLiteral("config.json"));
        {
            QJsonSettings settings(file);
            settings.setValue(key, value);
            settings.sync();
            if (settings.status() != QSettings::NoError)
                return QVariant();
        }
        if (text)
            *text = readFile(QStringLiteral("config.json"));
        // Read a copy: QSettings may serve its cache of the file it wrote.
        const QString copy = filePath(QStringLiteral("config-copy.json"));
        QFile::remove(copy);
        if (!QFile::copy(file, copy))
            return QVariant();
        return QJsonSettings(copy).value(key);
    }

private:
    QString m_home;
    QScopedPointer<QTemporaryDir> m_dir;
};

#endif // TESTS_SCRATCHDIR_H
