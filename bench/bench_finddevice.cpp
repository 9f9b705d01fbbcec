// How long the device search takes to scan a line, against the waits that the
// link prescribes for the same requests.
//
// The demo line of the simulator (four instruments at polling addresses 0 to
// 3) runs with the timing of a real 1200-baud modem: 11 bits a character, the
// request's own time on the wire, a turnaround of 20 ms, then the answer byte
// by byte. The search dialog scans the addresses from first up to last (not
// included), with command 0 at each and command 13 for each device found,
// as a user starts it. The time it takes is set against the sum of what the
// transaction thread must wait for the same requests, taken from the
// simulator's own log of what it received and sent: 120 ms to open the line
// (the modem's break and the settling after it); for each request 5 ms
// before sending, then the later of the sleep of size * 9.1525 + 50 ms and
// the end of the answer, then the byte timeout that closes the answer; for a
// request that no device answers, 5 ms, the sleep and the whole response
// timeout. The difference is what the program itself costs, the window's
// progress at every address included.
//
// Usage: bench_finddevice [first address, default 0] [last address, default 64]

#include "debugqt.h"
#include "demoline.h"
#include "finddevicedialog.h"
#include "hartport.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressDialog>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>
#include <cstdio>

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // Quiet: an address without a device is a response timeout, which the
    // link logs as an error.
    DebugQt::instance(0, nullptr);
    const int first = argc > 1 ? std::clamp(atoi(argv[1]), 0, 63) : 0;
    const int last = argc > 2 ? std::clamp(atoi(argv[2]), first, 64) : 64;

    hartsim::SimLine line;
    const QString path = startDemoLine(line, hartsim::SimLine::Timing::Line);
    if (path.isEmpty())
        return 1;

    FindDeviceDialog* dialog = FindDeviceDialog::instance(nullptr);
    dialog->addPorts({path}, true);
    dialog->findChild<QSpinBox*>(QStringLiteral("spnAddressFrom"))->setValue(first);
    dialog->findChild<QSpinBox*>(QStringLiteral("spnAddressTo"))->setValue(last);
    const int responseTimeout = dialog->hartPort().responseTimeout();
    const int byteTimeout = dialog->hartPort().byteTimeout();

    // The progress texts as a user sees them, watched while the scan runs.
    QStringList shown;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, dialog, [dialog, &shown]() {
        if (auto* progress = dialog->findChild<QProgressDialog*>()) {
            if (!shown.contains(progress->labelText()))
                shown << progress->labelText();
        }
    });
    watch.start(2);

    QElapsedTimer clock;
    clock.start();
    dialog->on_btnStart_clicked();
    const double measured = clock.nsecsElapsed() / 1e6;
    watch.stop();

    const double charMs = 1000.0 * 11.0 / 1200.0;
    const int turnaround = line.turnaroundMs();
    double expected = 50.0 + 70.0;
    int answered = 0;
    int silent = 0;
    const QList<hartsim::RequestRecord> requests = line.requests();
    for (const hartsim::RequestRecord& record : requests) {
        const int requestBytes = int(record.raw.size());
        const double sleepEnd = int(requestBytes * 9.1525 + 50.0);
        if (record.answered) {
            const double answerEnd = requestBytes * charMs + turnaround + record.answer.size() * charMs;
            expected += 5.0 + std::max(sleepEnd, answerEnd) + byteTimeout;
            ++answered;
        } else {
            expected += 5.0 + sleepEnd + responseTimeout;
            ++silent;
        }
    }
    int progressTexts = 0;
    for (const QString& text : std::as_const(shown))
        progressTexts += text.startsWith(QLatin1String("Search by address "));

    std::printf("Device search on the demo line (4 devices), 1200 baud with line timing, turnaround %d ms, "
                "response timeout %d ms, byte timeout %d ms\n",
                turnaround, responseTimeout, byteTimeout);
    std::printf("addresses scanned        %d (%d to %d)\n", last - first, first, last - 1);
    std::printf("devices found            %d\n", int(dialog->findChild<QTableWidget*>()->rowCount()));
    std::printf("requests                 %d answered, %d without answer\n", answered, silent);
    std::printf("progress shown           %d of %d addresses\n", progressTexts, last - first);
    std::printf("scan                     %10.1f ms\n", measured);
    std::printf("waits of the link        %10.1f ms\n", expected);
    std::printf("difference               %+10.1f ms (%+.2f %%)\n", measured - expected,
                expected > 0 ? 100.0 * (measured - expected) / expected : 0.0);
    delete dialog;
    line.stop();
    return 0;
}
