#include "filethread.h"

#include "debugqt.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>

namespace {

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString fixed2(const QVariant& value)
{
    return QString::number(double(value.toFloat()), 'f', 2);
}

// A directory made absolute against the working directory.
QString absoluteDir(const QString& path)
{
    return QDir::toNativeSeparators(QDir::cleanPath(QDir::current().absoluteFilePath(path)));
}

} // namespace

FileThread::FileThread(QObject* parent) : QThread(parent), m_clock(&QDateTime::currentDateTime)
{}

FileThread::~FileThread()
{
    DBG(LevelInfo) << "quit file thread...";
    {
        QMutexLocker lock(&mutex);
        quit = true;
        cond.wakeOne();
    }
    wait();
    // Lines that no worker took (a batch not full yet, or a worker that ended
    // on an error) are written here, on the caller's thread.
    bool waiting = false;
    {
        QMutexLocker lock(&mutex);
        waiting = !m_requestList.isEmpty() || !m_sealed.isEmpty();
    }
    if (waiting)
        serveQueue();
    DBG(LevelInfo) << "OK";
}

void FileThread::setClock(std::function<QDateTime()> clock)
{
    QMutexLocker lock(&mutex);
    m_clock = clock ? std::move(clock) : std::function<QDateTime()>(&QDateTime::currentDateTime);
}

QString FileThread::errorString() const
{
    QMutexLocker lock(&mutex);
    return m_errorString;
}

QString FileThread::fileName() const
{
    QMutexLocker lock(&mutex);
    return m_fileName;
}

bool FileThread::setParameters(const QVariantMap& map)
{
    bool ok = false;
    {
        QMutexLocker lock(&mutex);
        // What is queued belongs to the previous file and goes there.
        sealQueue();
        ok = prepare(map);
        if (ok) {
            m_requestList.clear();
            if (!m_sealed.isEmpty())
                wakeWorker();
        }
    }
    emitReports();
    return ok;
}

bool FileThread::prepare(const QVariantMap& map)
{
    m_bIsReadyToWrite = false;
    m_errorString.clear();
    m_map = map;
    if (m_map.value(QStringLiteral("name")).toString().isEmpty()) {
        m_errorString = tr("Name is empty.");
        return false;
    }
    const QDateTime date = m_map.value(QStringLiteral("date")).toDateTime();
    DBG(LevelInfo) << "date" << date.toString(QStringLiteral("dd:MM:yyyy hh:mm:ss"));
    if (date.isNull() || !date.isValid()) {
        m_errorString = tr("Date is invalid.");
        return false;
    }
    // A count below 1 would make every line a batch of its own and more.
    const int size = m_map.value(QStringLiteral("write_line_count")).toInt();
    if (size > 0)
        m_requestSize = size;
    m_dateTime = date;
    if (!createArchiveFile())
        return false;
    m_bIsReadyToWrite = true;
    return true;
}

bool FileThread::createArchiveFile()
{
    const QString separator = QDir::separator();
    const QString name = m_map.value(QStringLiteral("name")).toString();
    const QString fixedName = m_map.value(QStringLiteral("file_name")).toString();
    QString root = m_map.value(QStringLiteral("archive_path")).toString();
    if (root.isEmpty())
        root = QDir::toNativeSeparators(QStringLiteral("./archives"));

    QString path;
    QString directory;
    QString file;
    if (fixedName.isEmpty()) {
        path = absoluteDir(root);
        const QDate day = m_dateTime.date();
        const QTime time = m_dateTime.time();
        directory = path + separator + day.toString(QStringLiteral("yyyy")) + separator +
                    day.toString(QStringLiteral("MM")) + separator + day.toString(QStringLiteral("dd"));
        file = QStringLiteral("%1%2%3_%4_%5_%6.csv")
                   .arg(directory, separator, name, twoDigits(time.hour()), twoDigits(time.minute()),
                        twoDigits(time.second()));
    } else {
        const QFileInfo info(fixedName);
        const bool hasDirectory = QDir::fromNativeSeparators(fixedName).contains(QLatin1Char('/'));
        path = absoluteDir(hasDirectory ? info.path() : root);
        directory = path;
        file = directory + separator + info.fileName();
    }

    if (!QDir().mkpath(directory)) {
        m_errorString = tr("Can't create archive path %1").arg(directory);
        return false;
    }

    QFile archive(file);
    const bool existed = archive.exists();
    const QIODevice::OpenMode mode = existed ? QIODevice::ReadWrite : QIODevice::WriteOnly;
    if (!archive.open(mode)) {
        m_errorString = tr("Can't open %1 for write, error code %2").arg(file).arg(int(archive.error()));
        report(m_errorString);
        return false;
    }
    int count = 0;
    if (existed && archive.size() > 0) {
        // The numbering goes on from the line count, the header included.
        QByteArray line;
        while (!archive.atEnd()) {
            line = archive.readLine();
            ++count;
        }
        // A last line cut short (a crash during a write) gets its line end,
        // so that the next line does not run on in it.
        if (!line.endsWith('\n') && (archive.write("\n", 1) != 1 || !archive.flush())) {
            m_errorString = tr("Write error in file %1, error code %2").arg(file).arg(int(archive.error()));
            report(m_errorString);
            return false;
        }
    } else {
        const QString header = headerLine(m_map.value(QStringLiteral("full_name")).toString(),
                                          m_map.value(QStringLiteral("archive_type")).toString(), m_dateTime) +
                               QLatin1Char('\n');
        const QByteArray data = header.toLocal8Bit();
        if (archive.write(data) != data.size() || !archive.flush()) {
            m_errorString = tr("Write error in file %1, error code %2").arg(file).arg(int(archive.error()));
            report(m_errorString);
            return false;
        }
    }
    archive.close();
    m_path = path;
    m_fileName = file;
    m_mode = mode;
    m_count = count;
    return true;
}

QString FileThread::headerLine(const QString& fullName, const QString& archiveType, const QDateTime& start)
{
    return QStringLiteral("%1 ; %2 ; %3 ; %4 ; %5 ;")
        .arg(fullName, archiveType, start.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")), QStringLiteral("@"),
             QStringLiteral("-1"));
}

QString FileThread::archiveLine(int number, const QDateTime& time, const QVariantMap& map)
{
    QString line =
        QStringLiteral("%1;%2;%3;%4;")
            .arg(QString::number(number), time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")),
                 fixed2(map.value(QStringLiteral("PV"))), fixed2(map.value(QStringLiteral("output_current"))));
    if (map.contains(QStringLiteral("statusCode")))
        line += QStringLiteral("%1;").arg(map.value(QStringLiteral("statusCode")).toString());
    for (const char* key : {"SV", "TV", "QV"}) {
        if (map.contains(QLatin1String(key)))
            line += QStringLiteral("%1;").arg(fixed2(map.value(QLatin1String(key))));
    }
    return line;
}

bool FileThread::appendHARTDataToWrite(const QVariantMap& map)
{
    bool ok = false;
    {
        QMutexLocker lock(&mutex);
        if (!m_bIsReadyToWrite)
            return false;
        QDateTime time = map.value(QStringLiteral("DateTime")).toDateTime();
        if (time.isNull() || !time.isValid())
            time = m_clock();
        if (changeFileIfNewDay(time)) {
            ++m_count;
            appendLine(archiveLine(m_count, time, map));
            ok = true;
        }
    }
    emitReports();
    return ok;
}

bool FileThread::appendTextToWrite(const QString& line, const QDateTime& time)
{
    bool ok = false;
    {
        QMutexLocker lock(&mutex);
        if (!m_bIsReadyToWrite)
            return false;
        if (changeFileIfNewDay(time.isValid() ? time : m_clock())) {
            appendLine(line);
            ++m_count;
            ok = true;
        }
    }
    emitReports();
    return ok;
}

void FileThread::appendLine(const QString& line)
{
    m_requestList.append(line);
    if (m_requestList.size() >= m_requestSize)
        wakeWorker();
}

void FileThread::flushData()
{
    QMutexLocker lock(&mutex);
    if (!m_bIsReadyToWrite && m_sealed.isEmpty())
        return;
    DBG(LevelInfo) << "flushData" << m_requestList.size();
    wakeWorker();
}

bool FileThread::checkDateTimeForChangeFile(const QDateTime& time)
{
    bool ok = false;
    {
        QMutexLocker lock(&mutex);
        if (!m_bIsReadyToWrite)
            return false;
        ok = changeFileIfNewDay(time.isValid() ? time : m_clock());
    }
    emitReports();
    return ok;
}

bool FileThread::changeFileIfNewDay(const QDateTime& time)
{
    if (!m_map.value(QStringLiteral("file_name")).toString().isEmpty())
        return true;
    // Only the date counts: a clock set back a day starts a new file too.
    if (time.date() == m_dateTime.date())
        return true;

    // The lines waiting belong to the old file and go there.
    sealQueue();
    if (!m_sealed.isEmpty())
        wakeWorker();

    const QDateTime previous = m_dateTime;
    m_dateTime = time;
    m_map.insert(QStringLiteral("date"), time);
    if (!createArchiveFile()) {
        // The old file stays; the next reading tries the new day again.
        m_dateTime = previous;
        m_map.insert(QStringLiteral("date"), previous);
        return false;
    }
    DBG(LevelInfo) << "new file" << m_fileName;
    m_pendingChange = true;
    return true;
}

void FileThread::sealQueue()
{
    if (m_requestList.isEmpty())
        return;
    m_sealed.append(Batch{m_fileName, m_requestList, m_count});
    m_requestList.clear();
}

void FileThread::wakeWorker()
{
    if (m_serving) {
        cond.wakeOne();
        return;
    }
    // A worker that left its loop after an error is on its way out and
    // needs the mutex no more; it is started anew.
    if (isRunning())
        wait();
    m_serving = true;
    start();
}

QList<FileThread::Batch> FileThread::takeQueue()
{
    QList<Batch> batches;
    batches.swap(m_sealed);
    if (!m_requestList.isEmpty()) {
        batches.append(Batch{m_fileName, m_requestList, m_count});
        m_requestList.clear();
    }
    return batches;
}

void FileThread::report(const QString& text)
{
    m_pendingErrors.append(text);
}

void FileThread::emitReports()
{
    QStringList errors;
    bool changed = false;
    {
        QMutexLocker lock(&mutex);
        errors.swap(m_pendingErrors);
        changed = m_pendingChange;
        m_pendingChange = false;
    }
    for (const QString& text : errors)
        emit error(text);
    if (changed)
        emit changeFile();
}

void FileThread::run()
{
    {
        QMutexLocker lock(&mutex);
        if (!m_bIsReadyToWrite && m_sealed.isEmpty()) {
            m_serving = false;
            return;
        }
    }
    serveQueue();
    DBG(LevelInfo) << ">>>>>>>>> run OK";
}

void FileThread::serveQueue()
{
    QMutexLocker lock(&mutex);
    m_serving = true;
    forever
    {
        QList<Batch> batches = takeQueue();
        if (batches.isEmpty()) {
            // Lines queued during a write are written before the worker
            // sleeps; it sleeps only with nothing to write.
            if (quit)
                break;
            cond.wait(&mutex);
            continue;
        }
        lock.unlock();
        int written = 0;
        while (written < batches.size() && writeBatch(batches.at(written)))
            ++written;
        lock.relock();
        if (written < batches.size()) {
            // The lines not written wait, oldest first, for the next full
            // batch or flush, which starts the worker again.
            m_sealed = batches.mid(written) + m_sealed;
            break;
        }
    }
    m_serving = false;
}

bool FileThread::writeBatch(const Batch& batch)
{
    QFile file(batch.fileName);
    if (!file.exists()) {
        bool recovered = true;
        {
            QMutexLocker lock(&mutex);
            // The present file was removed while the archive runs: it is made
            // again with its header. A file of an earlier day is made again
            // by the append below.
            if (batch.fileName == m_fileName) {
                DBG(LevelWarn) << "file" << batch.fileName << "was deleted";
                const QVariantMap map = m_map;
                if (!prepare(map)) {
                    m_errorString =
                        tr("Reinitialization error - File %1 was deleted, %2").arg(batch.fileName, m_errorString);
                    report(m_errorString);
                    recovered = false;
                }
            }
        }
        emitReports();
        if (!recovered)
            return false;
    }

    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        const QString text = tr("Can't open %1 for append, error code %2").arg(batch.fileName).arg(int(file.error()));
        {
            QMutexLocker lock(&mutex);
            m_errorString = text;
        }
        emit error(text);
        return false;
    }
    DBG(LevelInfo) << "### write request" << batch.lines.size();
    auto writeError = [&]() {
        const QString text = tr("Write error in file %1, error code %2").arg(batch.fileName).arg(int(file.error()));
        {
            QMutexLocker lock(&mutex);
            m_errorString = text;
        }
        emit error(text);
        file.unsetError();
    };
    for (const QString& line : batch.lines) {
        const QByteArray data = (line + QLatin1Char('\n')).toLocal8Bit();
        if (file.write(data) != data.size())
            writeError();
    }
    if (!file.flush())
        writeError();
    file.close();
    emit writeLines(batch.fileName, batch.count);
    return true;
}
