#ifndef UTILS_H
#define UTILS_H

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <functional>

class QCoreApplication;

// Path-addressed access to nested value maps: "a/b/c" is the key c in the map
// under b in the map under a.
QVariant vmap_get(const QVariantMap& map, const QString& path);
// Only a one-key path is looked up; a longer path gives defaultValue as it is.
QVariant vmap_get(const QVariantMap& map, const QString& path, const QVariant& defaultValue);
void vmap_put(QVariantMap& map, const QString& path, const QVariant& value);
void vmap_merge(const QVariantMap& source, QVariantMap& target);
void vmap_merge_new(const QVariantMap& source, QVariantMap& target);

// Whole configuration files with the keys "app" and "srv".
void saveConfig(const QVariantMap& data, const QString& fileName);
QVariantMap loadConfig(const QString& fileName);
QString searchConfigFile(const QCoreApplication* application, const QString& name);
QString searchHelpFile(const QString& name);

// "0a ff 12": two lower-case hex digits a byte, one blank between.
QString byteBufferToString(const char* data, int size);
// "0x0Ah 0xFFh": the form device files keep bytes in; stringToByteArray reads it back.
QString byteBufferToString16(const char* data, int size);
// The low byte of value as two upper-case hexadecimal digits: "0A".
QString twoHexDigits(int value);
QByteArray stringToByteArray(const QString& text);
// count bits from bit offset of a little-endian word at data; bit 0 is the lowest bit of data[0].
unsigned int extract_bits(unsigned char* data, int offset, int count);

void mySleep(int milliseconds);
void myUSleep(int microseconds);

// Runs job on a thread of its own and returns when it is done, while the
// calling thread's event loop turns: a window stays painted and its clicks
// (a Cancel) are taken during an exchange that blocks for half a second.
// Signals the job emits to the caller's objects arrive as queued events,
// all of them before this returns.
void runWhileEventLoopTurns(const std::function<void()>& job);
// Waits for milliseconds with the event loop turning; stops early as soon as
// stop() says so.
void waitWhileEventLoopTurns(int milliseconds, const std::function<bool()>& stop);

#endif // UTILS_H
