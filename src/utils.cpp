#include "utils.h"

#include "debugqt.h"
#include "qjsonsettings.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>

#include <algorithm>

#include <unistd.h>

QVariant vmap_get(const QVariantMap& map, const QString& path)
{
    const QStringList keys = path.split(QLatin1Char('/'), Qt::KeepEmptyParts);
    QVariant value = map.value(keys.first());
    for (int i = 1; i < keys.size(); ++i) {
        if (value.typeId() != QMetaType::QVariantMap)
            return QVariant();
        value = value.toMap().value(keys.at(i));
    }
    return value;
}

QVariant vmap_get(const QVariantMap& map, const QString& path, const QVariant& defaultValue)
{
    const QStringList keys = path.split(QLatin1Char('/'), Qt::KeepEmptyParts);
    if (keys.size() > 1)
        return defaultValue;
    return map.value(keys.first());
}

void vmap_put(QVariantMap& map, const QString& path, const QVariant& value)
{
    if (path.isEmpty()) {
        if (value.canConvert<QVariantMap>()) {
            vmap_merge(value.toMap(), map);
        } else {
            SDBG(LevelErr) << "dont understand"
                           << "path =" << path << "map =" << map << "value =" << value << "segfault";
        }
        return;
    }
    const QStringList keys = path.split(QLatin1Char('/'), Qt::KeepEmptyParts);
    if (keys.size() == 1) {
        map.insert(keys.first(), value);
        return;
    }
    // Copies of the maps along the path, the outermost first; a missing key or
    // a value that is not a map in the way starts an empty map.
    QList<QVariantMap> chain;
    const QVariantMap* current = &map;
    for (int i = 0; i < keys.size() - 1; ++i) {
        const QVariant step = current->value(keys.at(i));
        chain.append(step.canConvert<QVariantMap>() ? step.toMap() : QVariantMap());
        current = &chain.last();
    }
    chain.last().insert(keys.last(), value);
    for (int i = chain.size() - 1; i > 0; --i)
        chain[i - 1].insert(keys.at(i), chain.at(i));
    map.insert(keys.first(), chain.first());
}

void vmap_merge(const QVariantMap& source, QVariantMap& target)
{
    for (auto it = source.constBegin(); it != source.constEnd(); ++it)
        target.insert(it.key(), it.value());
}

void vmap_merge_new(const QVariantMap& source, QVariantMap& target)
{
    for (auto it = source.constBegin(); it != source.constEnd(); ++it)
        if (!target.contains(it.key()))
            target.insert(it.key(), it.value());
}

void saveConfig(const QVariantMap& data, const QString& fileName)
{
    QJsonSettings settings(fileName, nullptr);
    // The presence of "app" decides whether "common" is copied: older files
    // kept the application part under that name.
    if (data.contains(QStringLiteral("app")))
        settings.setValue(QStringLiteral("common"), data.value(QStringLiteral("common")).toMap());
    if (data.contains(QStringLiteral("srv")))
        settings.setValue(QStringLiteral("srv"), data.value(QStringLiteral("srv")).toMap());
}

QVariantMap loadConfig(const QString& fileName)
{
    QJsonSettings settings(fileName, nullptr);
    QVariantMap data;
    data.insert(QStringLiteral("app"), settings.value(QStringLiteral("app")).toMap());
    data.insert(QStringLiteral("srv"), settings.value(QStringLiteral("srv")).toMap());
    return data;
}

QString searchConfigFile(const QCoreApplication* application, const QString& name)
{
    QStringList candidates;
    candidates << QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QDir::separator() + name
               << QDir::currentPath() + QDir::separator() + name;
    if (application)
        candidates << application->applicationDirPath() + QDir::separator() + name;
    for (const QString& candidate : candidates)
        if (QFile::exists(candidate))
            return candidate;
    return QString();
}

QString searchHelpFile(const QString& name)
{
    const QString local = QCoreApplication::applicationDirPath() + QDir::separator() + name;
    if (QFile::exists(local))
        return local;
    return QStringLiteral(":/%1").arg(name);
}

QString byteBufferToString(const char* data, int size)
{
    if (size <= 0)
        return QString();
    return QString::fromLatin1(QByteArray(data, size).toHex(' '));
}

QString twoHexDigits(int value)
{
    return QStringLiteral("%1").arg(value & 0xFF, 2, 16, QLatin1Char('0')).toUpper();
}

QString byteBufferToString16(const char* data, int size)
{
    QStringList bytes;
    for (int i = 0; i < size; ++i) {
        const QString hex = QStringLiteral("%1").arg(static_cast<unsigned char>(data[i]), 2, 16, QLatin1Char('0'));
        bytes << QStringLiteral("0x") + hex.toUpper() + QLatin1Char('h');
    }
    return bytes.join(QLatin1Char(' '));
}

QByteArray stringToByteArray(const QString& text)
{
    SDBG(LevelInfo) << text;
    static const QRegularExpression token(
        QRegularExpression::anchoredPattern(QStringLiteral("(0[xX][0-9a-fA-F][0-9a-fA-F][hH])")));
    static const QRegularExpression hMark(QStringLiteral("[hH]"));
    QByteArray bytes;
    const QStringList parts = text.split(QLatin1Char(' '), Qt::KeepEmptyParts);
    for (QString part : parts) {
        if (!token.match(part).hasMatch())
            continue;
        part.remove(hMark);
        const int value = part.mid(2).toInt(nullptr, 16);
        SDBG(LevelInfo) << value;
        bytes.append(static_cast<char>(value & 0xFF));
    }
    SDBG(LevelInfo) << byteBufferToString16(bytes.constData(), bytes.size());
    return bytes;
}

unsigned int extract_bits(unsigned char* data, int offset, int count)
{
    if (!data || offset < 0 || count <= 0 || offset + count > 64)
        return 0;
    // Only the bytes that hold the field are read.
    quint64 word = 0;
    const int bytes = (offset + count + 7) / 8;
    for (int i = 0; i < bytes; ++i)
        word |= static_cast<quint64>(data[i]) << (8 * i);
    word <<= 64 - offset - count;
    word >>= 64 - count;
    return static_cast<unsigned int>(word);
}

void mySleep(int milliseconds)
{
    usleep(static_cast<useconds_t>(milliseconds) * 1000);
}

void myUSleep(int microseconds)
{
    usleep(static_cast<useconds_t>(microseconds));
}

void runWhileEventLoopTurns(const std::function<void()>& job)
{
    QEventLoop loop;
    QThread* worker = QThread::create(job);
    // Queued behind every event the job posted, so those are all delivered
    // before the loop ends.
    QObject::connect(worker, &QThread::finished, &loop, &QEventLoop::quit, Qt::QueuedConnection);
    worker->start();
    loop.exec();
    worker->wait();
    delete worker;
}

void waitWhileEventLoopTurns(int milliseconds, const std::function<bool()>& stop)
{
    const QDeadlineTimer deadline(milliseconds);
    for (qint64 left = deadline.remainingTime(); left > 0 && !stop(); left = deadline.remainingTime()) {
        QEventLoop loop;
        QTimer::singleShot(std::min<qint64>(left, 20), &loop, &QEventLoop::quit);
        loop.exec();
    }
}
