#include "debugqt.h"

#include <malloc.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

DebugQt* DebugQt::m_instance = nullptr;
const char* const DebugQt::prefix = "__DEBUGQT_PREFIX__";

namespace {

// The handler splits the prefix on blanks, so none may stand inside an item.
QByteArray withoutBlanks(const char* text)
{
    QByteArray item(text ? text : "");
    item.replace(' ', '_');
    return item.isEmpty() ? QByteArray("?") : item;
}

struct LevelWord
{
    unsigned int bit;
    const char* word;
};

const LevelWord levelWords[] = {
    {DebugQt::LevelErr, "err: "},   {DebugQt::LevelWarn, "warn: "}, {DebugQt::LevelInfo, "info: "},
    {DebugQt::LevelUsr1, "usr1: "}, {DebugQt::LevelUsr2, "usr2: "},
};

} // namespace

DebugQt::DebugQt(unsigned int flags, QObject* parent) : QObject(parent), m_flags(flags)
{
    m_instance = this;
    m_prevhandler = qInstallMessageHandler(msg_handler);
}

DebugQt* DebugQt::instance(unsigned int flags, QObject* parent)
{
    if (!m_instance)
        new DebugQt(flags, parent);
    return m_instance;
}

void DebugQt::addclass(const QString& className, unsigned int flags)
{
    m_mapclasses.insert(className, flags);
}

void DebugQt::delclass(const QString& className)
{
    m_mapclasses.remove(className);
}

void DebugQt::emit_msg(const QString& line)
{
    emit msg(line);
}

bool DebugQt::formatLine(const QString& text, QString& line) const
{
    if (!text.startsWith(QLatin1String(prefix))) {
        line = text;
        return true;
    }

    int star = text.indexOf(QLatin1String(" * "));
    if (star < 0)
        star = text.size();
    const QStringList parts = text.left(star).split(QLatin1Char(' '), Qt::KeepEmptyParts);
    const unsigned int level = parts.value(1).toUInt(nullptr, 10);
    const QString file = parts.value(2);
    const QString function = parts.value(3);
    const QString lineNo = parts.value(4);
    const QString className = parts.value(5);

    const auto cls = m_mapclasses.constFind(className);
    const unsigned int mask = cls != m_mapclasses.constEnd() ? cls.value() : m_flags;
    if (!(level & mask))
        return false;

    line.clear();
    if (mask & ShowLevel) {
        for (const LevelWord& lw : levelWords)
            if (level & lw.bit)
                line += QLatin1String(lw.word);
    }
    if (mask & (ShowDate | ShowTime)) {
        struct timeval tv;
        gettimeofday(&tv, nullptr);
        struct tm tmv;
        localtime_r(&tv.tv_sec, &tmv);
        char buf[64];
        if (mask & ShowDate) {
            snprintf(buf, sizeof buf, "%02d.%02d.%02d ", tmv.tm_year + 1900 - 2000, tmv.tm_mon + 1, tmv.tm_mday);
            line += QLatin1String(buf);
        }
        if (mask & ShowTime) {
            snprintf(buf, sizeof buf, "%02d:%02d:%02d.%06li ", tmv.tm_hour, tmv.tm_min, tmv.tm_sec,
                     static_cast<long>(tv.tv_usec));
            line += QLatin1String(buf);
        }
    }
    if (mask & ShowPidTid) {
        char buf[48];
        snprintf(buf, sizeof buf, "%u/%u ", static_cast<unsigned>(getpid()), static_cast<unsigned>(gettid()));
        line += QLatin1String(buf);
    }
    if (mask & ShowMemory) {
        const struct mallinfo2 mi = mallinfo2();
        char buf[64];
        snprintf(buf, sizeof buf, "%zu/%zu ", mi.uordblks, mi.fordblks);
        line += QLatin1String(buf);
    }
    if (mask & ShowFileLine)
        line += file + QLatin1Char('[') + lineNo + QLatin1String("] ");
    if ((mask & ShowClass) && (mask & ShowFunction))
        line += className + QLatin1String("::") + function + QLatin1String("() ");
    else if (mask & ShowFunction)
        line += function + QLatin1String("() ");
    if (!line.isEmpty())
        line += QLatin1String(": ");
    if (mask & ShowMessage)
        line += text.mid(star + 5);
    return true;
}

void DebugQt::msg_handler(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    DebugQt* self = m_instance;
    QString line;
    if (!self) {
        line = text;
    } else if (!self->formatLine(text, line)) {
        return;
    }
    if (line.isEmpty())
        return;

    const QByteArray utf8 = line.toUtf8();
    switch (type) {
    case QtDebugMsg:
    case QtInfoMsg:
        fprintf(stderr, "%s\n", utf8.constData());
        break;
    case QtWarningMsg:
        fprintf(stderr, "Warning: %s\n", utf8.constData());
        break;
    case QtCriticalMsg:
        fprintf(stderr, "Critical: %s\n", utf8.constData());
        break;
    case QtFatalMsg:
        fprintf(stderr, "Fatal: %s\n", utf8.constData());
        abort();
    }
    if (self && self->m_emitting)
        self->emit_msg(line);
}

DebugLine::DebugLine(unsigned int level, const char* file, const char* function, int line, const char* className)
    : m_stream(&m_text), m_file(file), m_function(function), m_line(line)
{
    m_stream.noquote() << DebugQt::prefix << level << withoutBlanks(file) << withoutBlanks(function) << line
                       << withoutBlanks(className) << "*" << 0;
    m_stream.quote();
}

DebugLine::~DebugLine()
{
    QMessageLogger(m_file, m_line, m_function).debug("%s", m_text.toUtf8().constData());
}
