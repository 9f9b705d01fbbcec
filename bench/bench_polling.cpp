// Polling a line of four instruments with the archive on, for a long time.
//
// The demo line of the simulator (a temperature converter, a pressure
// converter, a pH meter and a generic device), answering at once, is polled
// by one PeriodThread per device on one port, and every reading goes to one
// FileThread per device, as the measurement tab runs them. At the end the
// benchmark prints the readings per second, the lines in the archive against
// the readings emitted (they must be equal: nothing lost), and the resident
// memory of the process after a warm-up, at half time and at the end (it
// must not grow with the number of readings). The logs that are bounded by
// design (the device's message log, the simulator's request log) are kept
// short here, so that their filling up to their bounds does not hide a leak.
//
// Usage: bench_polling [seconds, default 600] [period ms, default 100]

#include "debugqt.h"
#include "demoline.h"
#include "device.h"
#include "filethread.h"
#include "periodthread.h"
#include "port.h"
#include "server.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

long residentKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    return -1;
}

int linesIn(const QString& root)
{
    int lines = 0;
    const QStringList files = QDir(root).entryList({QStringLiteral("*.csv")}, QDir::Files);
    for (const QString& name : files) {
        QFile file(QDir(root).filePath(name));
        if (file.open(QIODevice::ReadOnly))
            lines += int(file.readAll().count('\n')) - 1; // the header
    }
    for (const QString& dir : QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        lines += linesIn(QDir(root).filePath(dir));
    return lines;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    DebugQt::instance(DebugQt::LevelErr | DebugQt::ShowLevel | DebugQt::ShowMessage, nullptr);
    const int seconds = argc > 1 ? std::max(5, atoi(argv[1])) : 600;
    const int period = argc > 2 ? std::max(1, atoi(argv[2])) : 100;

    QTemporaryDir data;
    QDir::setCurrent(data.path());

    hartsim::SimLine line;
    const QString path = startDemoLine(line, hartsim::SimLine::Timing::Fast);
    if (path.isEmpty())
        return 1;

    Server server;
    Port* port = server.addPort(QStringLiteral("Line"));
    port->setSerialName(path);
    const char* const templates[] = {"TCV-C", "QP-1C", "pH-7702", "General"};
    std::vector<std::unique_ptr<PeriodThread>> pollers;
    std::vector<std::unique_ptr<FileThread>> archives;
    long emitted = 0;
    long failed = 0;
    for (int address = 0; address < 4; ++address) {
        Device* device = port->addDevice(QStringLiteral("D%1").arg(address), QLatin1String(templates[address]), -1);
        device->setAddress(address);
        device->setMessageLogDepth(100);
        if (!device->readDevice(0)) {
            std::fprintf(stderr, "device %d: %s\n", address, qPrintable(device->errorText()));
            return 1;
        }
        auto archive = std::make_unique<FileThread>();
        const QVariantMap parameters{{"name", QStringLiteral("D%1").arg(address)},
                                     {"date", QDateTime::currentDateTime()},
                                     {"archive_path", data.filePath(QStringLiteral("archives"))},
                                     {"full_name", device->fullName()},
                                     {"archive_type", QStringLiteral("bench")}};
        if (!archive->setParameters(parameters)) {
            std::fprintf(stderr, "archive: %s\n", qPrintable(archive->errorString()));
            return 1;
        }
        auto poller = std::make_unique<PeriodThread>();
        FileThread* sink = archive.get();
        QObject::connect(poller.get(), &PeriodThread::responsePV, &app, [&, sink](const QVariantMap& map) {
            if (map.contains(QStringLiteral("errorText")))
                ++failed;
            if (sink->appendHARTDataToWrite(map))
                ++emitted;
        });
        pollers.push_back(std::move(poller));
        archives.push_back(std::move(archive));
        pollers.back()->setDevice(device, period);
    }

    QElapsedTimer clock;
    clock.start();
    const long rssBefore = residentKb();
    long rssStart = 0;
    long rssMid = 0;
    QTimer trimSimulatorLog;
    QObject::connect(&trimSimulatorLog, &QTimer::timeout, &app, [&] { line.clearLog(); });
    trimSimulatorLog.start(1000);
    QTimer::singleShot(seconds * 100, &app, [&] { rssStart = residentKb(); });
    QTimer::singleShot(seconds * 500, &app, [&] { rssMid = residentKb(); });
    long rssEnd = 0;
    QTimer::singleShot(seconds * 1000, &app, [&] {
        rssEnd = residentKb();
        QCoreApplication::quit();
    });
    app.exec();
    const double elapsed = clock.elapsed() / 1000.0;

    for (auto& poller : pollers)
        poller->stopThread();
    QCoreApplication::processEvents(); // readings already queued to this thread
    for (auto& archive : archives)
        archive->flushData();
    archives.clear(); // the destructors write what is still queued
    const int lines = linesIn(data.filePath(QStringLiteral("archives")));

    std::printf("Polling the demo line (4 devices on one port, simulator answering at once), period %d ms, "
                "archive on\n",
                period);
    std::printf("duration            %10.1f s\n", elapsed);
    std::printf("readings emitted    %10ld (%ld failed)\n", emitted, failed);
    std::printf("readings per second %10.2f\n", emitted / elapsed);
    std::printf("archive lines       %10d %s\n", lines, lines == emitted ? "(equal: nothing lost)" : "(MISMATCH)");
    std::printf("resident memory     %10ld kB before polling, %ld kB after a tenth of the time, %ld kB at half time, "
                "%ld kB at the end\n",
                rssBefore, rssStart, rssMid, rssEnd);
    port->closeHart();
    line.stop();
    return lines == emitted ? 0 : 1;
}
