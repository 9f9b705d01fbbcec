#ifndef FILETHREAD_H
#define FILETHREAD_H

#include <QDateTime>
#include <QIODevice>
#include <QList>
#include <QMutex>
#include <QStringList>
#include <QThread>
#include <QVariantMap>
#include <QWaitCondition>

#include <functional>

// Writes polled readings to CSV archive files on a thread of its own, so that
// a slow disk never stalls polling or the interface.
//
// Producers (the main thread) format each reading into a line at once and
// queue it; the worker takes the queue and appends it to the file, opening
// and closing the file for each batch, so that a reader always sees whole
// batches. The worker is woken when a batch is full or on flushData, and
// writes again before it sleeps as long as lines are waiting.
//
// Parameters of setParameters:
//   "name"             base name of generated files (required)
//   "date"             start of the file (required); replaced at a new day
//   "write_line_count" batch size in lines; 0 or absent keeps the present one
//   "archive_path"     root directory; empty: "./archives"
//   "archive_type"     free text for the header
//   "file_name"        a fixed file; empty: <root>/yyyy/MM/dd/<name>_hh_mm_ss.csv
//   "full_name"        free text for the header, the device's full name
//
// The file is text in the local 8-bit encoding. Its first line is the header
// "<full_name> ; <archive_type> ; dd.MM.yyyy hh:mm:ss ; @ ; -1 ;"; each reading
// is "<number>;yyyy-MM-dd hh:mm:ss;<PV>;<output_current>;[<statusCode>;]
// [<SV>;][<TV>;][<QV>;]" with two decimals. Without a fixed name a new file is
// started in a new dated directory at each change of day; a file deleted while
// the archive runs is made again.
//
// The owner calls flushData when it stops an archive. The destructor writes
// what is still queued before it returns, so nothing queued is lost.
class FileThread : public QThread
{
    Q_OBJECT

public:
    explicit FileThread(QObject* parent = nullptr);
    ~FileThread() override;

    // Takes the parameters and prepares the file: the directory is made, a
    // new or empty file gets the header, and the numbering goes on from the
    // line count of an existing one. Lines still queued for the previous
    // file go to that file.
    bool setParameters(const QVariantMap& map);
    // The header and one reading's line of an archive, as the table's own
    // export writes them too.
    static QString headerLine(const QString& fullName, const QString& archiveType, const QDateTime& start);
    static QString archiveLine(int number, const QDateTime& time, const QVariantMap& map);
    // Queues one reading, a map of PeriodThread::responsePV. False when the
    // archive is not ready or a new day's file cannot be made.
    bool appendHARTDataToWrite(const QVariantMap& map);
    // Queues one line of any text, taken as written at the given time.
    bool appendTextToWrite(const QString& line, const QDateTime& time);
    // Writes what is queued without waiting for a full batch.
    void flushData();
    // Starts a new day's file when time is on another day than the present
    // file; true when the present file stays or the new one is ready.
    bool checkDateTimeForChangeFile(const QDateTime& time);
    QString errorString() const;
    QString fileName() const;
    // Where the present time comes from; QDateTime::currentDateTime unless a
    // test sets a clock of its own.
    void setClock(std::function<QDateTime()> clock);

signals:
    void writeLines(const QString& fileName, int count);
    void error(const QString& errorString);
    void changeFile();

protected:
    void run() override;

private:
    // Lines bound for one file; count is the file's line number after them.
    struct Batch
    {
        QString fileName;
        QStringList lines;
        int count = 0;
    };

    // All of these expect the mutex held.
    bool prepare(const QVariantMap& map);
    bool createArchiveFile();
    bool changeFileIfNewDay(const QDateTime& time);
    void sealQueue();
    void wakeWorker();
    void appendLine(const QString& line);
    QList<Batch> takeQueue();
    void report(const QString& text);

    // Without the mutex.
    void serveQueue();
    bool writeBatch(const Batch& batch);
    void emitReports();

    QString m_path;
    QString m_fileName;
    QIODevice::OpenMode m_mode = QIODevice::NotOpen;
    QVariantMap m_map;
    QDateTime m_dateTime;
    bool m_bIsReadyToWrite = false;
    QString m_errorString;
    mutable QMutex mutex;
    QWaitCondition cond;
    bool quit = false;
    QStringList m_requestList;
    int m_requestSize = 10;
    int m_count = 0;

    // Lines of an earlier file (the day before, or before setParameters),
    // and lines a failed write gave back, oldest first.
    QList<Batch> m_sealed;
    // The worker is in its loop or about to enter it.
    bool m_serving = false;
    // Signals to emit once the mutex is released.
    QStringList m_pendingErrors;
    bool m_pendingChange = false;
    std::function<QDateTime()> m_clock;
};

#endif // FILETHREAD_H
