#include "columns.h"
#include "debugqt.h"
#include "filethread.h"
#include "readingsmodel.h"
#include "scratchdir.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QtTest>

#include <limits>

namespace {

const QDateTime Start(QDate(2026, 1, 2), QTime(14, 3, 5));

QStringList fileLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {QStringLiteral("<missing %1>").arg(path)};
    QStringList lines = QString::fromLocal8Bit(file.readAll()).split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

QVariantMap parameters(const QVariantMap& changes = QVariantMap())
{
    QVariantMap map{{"name", "N"},
                    {"date", Start},
                    {"write_line_count", 10},
                    {"archive_path", "arch"},
                    {"archive_type", "HART"},
                    {"file_name", ""},
                    {"full_name", "P1/Pump {PT-1}"}};
    for (auto it = changes.constBegin(); it != changes.constEnd(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

QVariantMap reading(double pv, const QDateTime& time)
{
    return {{"PV", float(pv)}, {"output_current", 4.0f}, {"DateTime", time}, {"statusCode", "00 00"}};
}

// The line of reading(pv, time) numbered n.
QString row(int n, double pv, const QDateTime& time)
{
    return QStringLiteral("%1;%2;%3;4.00;00 00;").arg(n).arg(time.toString("yyyy-MM-dd hh:mm:ss")).arg(pv, 0, 'f', 2);
}

QString header(const QDateTime& date)
{
    return QStringLiteral("P1/Pump {PT-1} ; HART ; %1 ; @ ; -1 ;").arg(date.toString("dd.MM.yyyy hh:mm:ss"));
}

// A reading for the table, "second" seconds into 2026.
QVariantMap tableReading(int second, bool failed = false)
{
    QVariantMap map{{"DateTime", QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addSecs(second)},
                    {"PV", float(second) + 0.25f},
                    {"output_current", 4.5f},
                    {"statusCode", "00 00"}};
    map.insert(failed ? QVariantMap{{"errorText", "Response timeout (370ms)"}}
                      : QVariantMap{{"SV", 1.5f}, {"TV", std::numeric_limits<float>::quiet_NaN()}, {"statusText", ""}});
    return map;
}

} // namespace

class TestFileThread : public QObject
{
    Q_OBJECT

    static QString path(const QString& relative) { return QDir::current().absoluteFilePath(relative); }

    ScratchDir m_dir;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }
    void init() { QVERIFY(m_dir.enter()); }
    void cleanup() { m_dir.leave(); }

    void namesAndHeader_data()
    {
        addColumns<QVariantMap, QString>({"changes", "file"});

        QTest::newRow("dated directories") << QVariantMap() << "arch/2026/01/02/N_14_03_05.csv";
        QTest::newRow("default root") << QVariantMap{{"archive_path", ""}} << "archives/2026/01/02/N_14_03_05.csv";
        QTest::newRow("fixed name in the root") << QVariantMap{{"file_name", "fixed.csv"}} << "arch/fixed.csv";
        QTest::newRow("fixed name with its directory")
            << QVariantMap{{"file_name", "x/y/fixed.csv"}} << "x/y/fixed.csv";
    }

    void namesAndHeader()
    {
        QFETCH(QVariantMap, changes);
        QFETCH(QString, file);

        FileThread thread;
        QVERIFY2(thread.setParameters(parameters(changes)), qPrintable(thread.errorString()));
        QCOMPARE(thread.fileName(), QDir::cleanPath(path(file)));
        QCOMPARE(fileLines(path(file)), QStringList{header(Start)});
        // The worker starts with the first full batch or flush, not here.
        QVERIFY(!thread.isRunning());
    }

    void lineFormat_data()
    {
        addColumns<QVariantMap, QString>({"data", "line"});

        const QDateTime t(QDate(2026, 1, 2), QTime(15, 4, 6));
        const QVariantMap all{{"PV", 62.5f},      {"output_current", 14.0f},
                              {"DateTime", t},    {"statusCode", "00 40"},
                              {"SV", 23.25f},     {"TV", 12.0f},
                              {"QV", 50.75f},     {"PVUnitCodeText", "kPa"},
                              {"statusText", "x"}};
        QVariantMap noStatus = all;
        noStatus.remove("statusCode");

        QTest::newRow("all fields") << all << "1;2026-01-02 15:04:06;62.50;14.00;00 40;23.25;12.00;50.75;";
        QTest::newRow("no status code") << noStatus << "1;2026-01-02 15:04:06;62.50;14.00;23.25;12.00;50.75;";
        // Without a time of its own the reading takes the clock's.
        QTest::newRow("no time") << QVariantMap{{"PV", 62.5f}, {"output_current", 14.0f}, {"statusCode", "00 40"}}
                                 << "1;2026-01-02 16:00:00;62.50;14.00;00 40;";
    }

    void lineFormat()
    {
        QFETCH(QVariantMap, data);
        QFETCH(QString, line);

        QString file;
        {
            FileThread thread;
            thread.setClock([] { return QDateTime(QDate(2026, 1, 2), QTime(16, 0)); });
            QVERIFY(thread.setParameters(parameters()));
            file = thread.fileName();
            QVERIFY(thread.appendHARTDataToWrite(data));
            // One line of a batch of ten: only the destructor writes it.
        }
        QCOMPARE(fileLines(file), (QStringList{header(Start), line}));
    }

    void existingFixedFile_data()
    {
        addColumns<QByteArray, QStringList>({"content", "expected"});

        const QString head = "old ; x ; 01.01.2026 00:00:00 ; @ ; -1 ;";
        // The numbering goes on from the line count, the header included; an
        // appended text line counts too.
        const QDateTime t(QDate(2026, 1, 2), QTime(15, 0));
        QTest::newRow("header and two lines")
            << (head + "\n1;a;\n2;b;\n").toLocal8Bit()
            << QStringList{head, "1;a;", "2;b;", row(4, 1.5, t), "# note", row(6, 2.5, t)};
        // A line cut short keeps its place and gets its line end.
        QTest::newRow("last line without a line end")
            << (head + "\n1;a;").toLocal8Bit() << QStringList{head, "1;a;", row(3, 1.5, t), "# note", row(5, 2.5, t)};
        QTest::newRow("empty file gets the header")
            << QByteArray() << QStringList{header(Start), row(1, 1.5, t), "# note", row(3, 2.5, t)};
    }

    void existingFixedFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, expected);

        const QString file = m_dir.writeFile("fixed/archive.csv", content);
        QVERIFY(!file.isEmpty());
        {
            FileThread thread;
            QVERIFY(thread.setParameters(parameters({{"file_name", file}})));
            QCOMPARE(fileLines(file), expected.mid(0, expected.size() - 3));
            // A fixed file never changes, also on another day.
            const QDateTime t(QDate(2026, 1, 2), QTime(15, 0));
            QSignalSpy changed(&thread, &FileThread::changeFile);
            QVERIFY(thread.appendHARTDataToWrite(reading(1.5, t)));
            QVERIFY(thread.appendTextToWrite("# note", t.addDays(3)));
            QVERIFY(thread.appendHARTDataToWrite(reading(2.5, t)));
            QCOMPARE(changed.count(), 0);
            QCOMPARE(thread.fileName(), file);
        }
        QCOMPARE(fileLines(file), expected);
    }

    void midnightStartsANewFile()
    {
        const QDateTime begin(QDate(2026, 1, 2), QTime(23, 59, 58));
        const QDateTime before = begin.addSecs(1);
        const QDateTime after(QDate(2026, 1, 3), QTime(0, 0, 1));
        FileThread thread;
        QVERIFY(thread.setParameters(parameters({{"date", begin}})));
        const QString oldFile = thread.fileName();
        QSignalSpy changed(&thread, &FileThread::changeFile);
        QSignalSpy written(&thread, &FileThread::writeLines);
        QVERIFY(thread.appendHARTDataToWrite(reading(1.0, before)));
        QVERIFY(thread.appendHARTDataToWrite(reading(2.0, before)));
        QVERIFY(thread.appendHARTDataToWrite(reading(3.0, after)));
        QCOMPARE(changed.count(), 1);
        const QString newFile = path("arch/2026/01/03/N_00_00_01.csv");
        QCOMPARE(thread.fileName(), newFile);

        // The lines of the old day go to the old file, first, without a flush.
        QTRY_VERIFY_WITH_TIMEOUT(!written.isEmpty(), 10000);
        QCOMPARE(fileLines(oldFile), (QStringList{header(begin), row(1, 1, before), row(2, 2, before)}));
        thread.flushData();
        QTRY_COMPARE_WITH_TIMEOUT(written.count(), 2, 10000);
        QCOMPARE(written.at(0), (QVariantList{oldFile, 2}));
        QCOMPARE(written.at(1), (QVariantList{newFile, 1}));
        QCOMPARE(fileLines(newFile), (QStringList{header(after), row(1, 3, after)}));
    }

    void deletedFileIsMadeAgain()
    {
        FileThread thread;
        QSignalSpy written(&thread, &FileThread::writeLines);
        QSignalSpy errors(&thread, &FileThread::error);
        QVERIFY(thread.setParameters(parameters({{"write_line_count", 2}})));
        const QString file = thread.fileName();
        const QDateTime t = Start.addSecs(1);
        for (int k = 1; k <= 2; ++k)
            QVERIFY(thread.appendHARTDataToWrite(reading(k, t)));
        QTRY_COMPARE_WITH_TIMEOUT(written.count(), 1, 10000);
        QVERIFY(QFile::remove(file));

        // The next batch makes the file again with its header and keeps its
        // numbers; later lines count from the new file's start.
        for (int k = 3; k <= 4; ++k)
            QVERIFY(thread.appendHARTDataToWrite(reading(k, t)));
        QTRY_COMPARE_WITH_TIMEOUT(written.count(), 2, 10000);
        for (int k = 5; k <= 6; ++k)
            QVERIFY(thread.appendHARTDataToWrite(reading(k, t)));
        QTRY_COMPARE_WITH_TIMEOUT(written.count(), 3, 10000);
        QCOMPARE(fileLines(file), (QStringList{header(Start), row(3, 3, t), row(4, 4, t), row(1, 5, t), row(2, 6, t)}));
        QCOMPARE(errors.count(), 0);
    }

    void failedAppendKeepsTheLines()
    {
        FileThread thread;
        QSignalSpy written(&thread, &FileThread::writeLines);
        QSignalSpy errors(&thread, &FileThread::error);
        QVERIFY(thread.setParameters(parameters({{"write_line_count", 2}})));
        const QString file = thread.fileName();
        // A directory in the file's place: the append fails.
        QVERIFY(QFile::remove(file));
        QVERIFY(QDir().mkpath(file));
        QVERIFY(thread.appendHARTDataToWrite(reading(1, Start)));
        QVERIFY(thread.appendHARTDataToWrite(reading(2, Start)));
        QTRY_COMPARE_WITH_TIMEOUT(errors.count(), 1, 10000);
        QCOMPARE(errors.at(0).at(0).toString(),
                 QStringLiteral("Can't open %1 for append, error code %2").arg(file).arg(int(QFileDevice::OpenError)));
        QCOMPARE(thread.errorString(), errors.at(0).at(0).toString());
        QTRY_VERIFY_WITH_TIMEOUT(!thread.isRunning(), 10000);

        // Once the place is free the next flush starts the worker again, and
        // the lines of the failed batch come first.
        QVERIFY(QDir().rmdir(file));
        QVERIFY(thread.appendHARTDataToWrite(reading(3, Start)));
        thread.flushData();
        QTRY_COMPARE_WITH_TIMEOUT(written.count(), 2, 10000);
        QCOMPARE(fileLines(file), (QStringList{header(Start), row(1, 1, Start), row(2, 2, Start), row(3, 3, Start)}));
        QCOMPARE(errors.count(), 1);
    }

    void refusedParameters_data()
    {
        addColumns<QVariantMap, QString, bool>({"changes", "error", "signalled"});

        QTest::newRow("no name") << QVariantMap{{"name", ""}} << "Name is empty." << false;
        QTest::newRow("no date") << QVariantMap{{"date", QDateTime()}} << "Date is invalid." << false;
        // The root is under a plain file: no directory can be made there.
        QTest::newRow("directory not made") << QVariantMap{{"archive_path", "plain/arch"}}
                                            << "Can't create archive path %1/plain/arch/2026/01/02" << false;
        QTest::newRow("file is a directory")
            << QVariantMap{{"file_name", "plain2"}} << "Can't open %1/arch/plain2 for write, error code %2" << true;
    }

    void refusedParameters()
    {
        QFETCH(QVariantMap, changes);
        QFETCH(QString, error);
        QFETCH(bool, signalled);

        QVERIFY(!m_dir.writeFile("plain", "x").isEmpty());
        QVERIFY(QDir().mkpath(path("arch/plain2")));
        error.replace("%1", QDir::currentPath()).replace("%2", QString::number(int(QFileDevice::OpenError)));

        FileThread thread;
        QSignalSpy errors(&thread, &FileThread::error);
        const QVariantMap line = reading(1, Start);
        QVERIFY(!thread.appendHARTDataToWrite(line));
        QVERIFY(!thread.setParameters(parameters(changes)));
        QCOMPARE(thread.errorString(), error);
        QCOMPARE(errors.count(), signalled ? 1 : 0);
        if (signalled)
            QCOMPARE(errors.at(0).at(0).toString(), error);
        // Not ready: lines are refused and nothing starts.
        QVERIFY(!thread.appendHARTDataToWrite(line));
        QVERIFY(!thread.appendTextToWrite("x", Start));
        thread.flushData();
        QVERIFY(!thread.isRunning());
        QVERIFY(!QFileInfo::exists(path("archives")));
    }

    // The table of readings shows them as the archive writes them.
    void windowOfLastReadings()
    {
        ReadingsModel model;
        QCOMPARE(model.limit(), 300000);
        model.setLimit(3);
        for (int i = 0; i <= 3; ++i)
            model.append(tableReading(i));
        // The fourth reading pushed out the first.
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(model.data(model.index(0, 0)).toString(), QStringLiteral("01.01.2026 00:00:01"));
        QCOMPARE(model.data(model.index(2, 1)).toString(), QStringLiteral("3.25"));
    }

    void rowsAsShownAndExported_data()
    {
        QTest::addColumn<bool>("failed");
        QTest::addColumn<QStringList>("shown"); // the cells of the row
        QTest::addColumn<QString>("line");      // the archive's line of it

        QTest::newRow("good, TV not a number")
            << false << QStringList{"01.01.2026 00:00:07", "7.25", "4.50", "1.50", "", "00 00 "}
            << "3;2026-01-01 00:00:07;7.25;4.50;00 00;1.50;nan;";
        QTest::newRow("failed: no values")
            << true << QStringList{"01.01.2026 00:00:07", "", "", "", "", "00 00 Response timeout (370ms)"}
            << "3;2026-01-01 00:00:07;7.25;4.50;00 00;";
    }

    void rowsAsShownAndExported()
    {
        QFETCH(bool, failed);
        ReadingsModel model;
        model.setColumns("°C", {ReadingsModel::SV, ReadingsModel::TV});
        model.append(tableReading(7, failed));
        QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("PV [°C]"));
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells << model.data(model.index(0, column)).toString();
        QTEST(cells, "shown");
        QCOMPARE(model.flags(model.index(0, 1)) & Qt::ItemIsEditable, Qt::NoItemFlags);
        // The export writes the reading as the archive does.
        const QVariantMap map = model.readingMap(0);
        QTEST(FileThread::archiveLine(3, map.value("DateTime").toDateTime(), map), "line");
    }
};

QTEST_GUILESS_MAIN(TestFileThread)
#include "tst_filethread.moc"
