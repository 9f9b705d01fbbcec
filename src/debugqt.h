#ifndef DEBUGQT_H
#define DEBUGQT_H

#include <QDebug>
#include <QMap>
#include <QObject>
#include <QString>

// The one message handler of the process. Log lines are written by the debug
// macros below; each carries a prefix (level, source file, function, line,
// class) that the handler reads to decide whether and how the line is printed.
// Messages without the prefix, Qt's own for instance, are printed as they are.
class DebugQt : public QObject
{
    Q_OBJECT

public:
    enum Flag : unsigned int {
        LevelErr = 0x1,
        LevelWarn = 0x2,
        LevelInfo = 0x4,
        LevelUsr1 = 0x20,
        LevelUsr2 = 0x40,
        ShowMessage = 0x10000,
        ShowDate = 0x20000,
        ShowTime = 0x40000,
        ShowPidTid = 0x80000,
        ShowMemory = 0x100000,
        ShowFileLine = 0x200000,
        ShowFunction = 0x400000,
        ShowLevel = 0x800000,
        ShowClass = 0x8000000,
    };

    static DebugQt* instance(unsigned int flags, QObject* parent);

    unsigned int flags() const { return m_flags; }
    void set_flags(unsigned int flags) { m_flags = flags; }
    const QMap<QString, unsigned int>& mapclasses() const { return m_mapclasses; }
    void addclass(const QString& className, unsigned int flags);
    void delclass(const QString& className);
    bool emitting() const { return m_emitting; }
    void set_emitting(bool on) { m_emitting = on; }
    void emit_msg(const QString& line);

    static void msg_handler(QtMsgType type, const QMessageLogContext& context, const QString& text);

    // Builds the printed line for one message text under the current masks.
    // Returns false when the message is dropped by its level; an empty line
    // with true means nothing is printed either.
    bool formatLine(const QString& text, QString& line) const;

    // The wire prefix of the debug macro; the handler recognises a message by it.
    static const char* const prefix;

signals:
    void msg(const QString& line);

private:
    DebugQt(unsigned int flags, QObject* parent);

    unsigned int m_flags;
    QMap<QString, unsigned int> m_mapclasses;
    QtMessageHandler m_prevhandler = nullptr;
    bool m_emitting = false;
    static DebugQt* m_instance;
};

// One log message in the making: collects the items the way QDebug writes
// them (a character literal as it stands, a QString in double quotes, numbers
// in decimal, a blank after each) behind the prefix, and hands the text to the
// Qt message channel when the statement ends.
class DebugLine
{
public:
    DebugLine(unsigned int level, const char* file, const char* function, int line, const char* className);
    ~DebugLine();
    DebugLine(const DebugLine&) = delete;
    DebugLine& operator=(const DebugLine&) = delete;

    template <typename T>
    DebugLine& operator<<(const T& item)
    {
        m_stream << item;
        return *this;
    }

private:
    QString m_text;
    QDebug m_stream;
    const char* m_file;
    const char* m_function;
    int m_line;
};

// In a member function of a QObject class: the class is the object's own.
#define DBG(level) DebugLine(DebugQt::level, __FILE__, __func__, __LINE__, metaObject()->className())
// In a free function, a static member or a class without a meta-object.
#define SDBG(level) DebugLine(DebugQt::level, __FILE__, __func__, __LINE__, "static")

#endif // DEBUGQT_H
