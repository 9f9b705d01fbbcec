// How long one HART exchange takes through HartPort, against the time the
// line itself needs.
//
// A simulated device answers on a pseudo-terminal with the timing of a real
// 1200-baud modem: 11 bits a character, the request's own time on the wire,
// a turnaround, then the answer byte by byte. For commands 0, 1 and 3, in
// short and long frames, the benchmark times many exchanges and prints the
// median, the line time (request and answer characters plus the turnaround),
// their ratio, and the time the transaction thread's fixed waits predict:
// 5 ms before sending, the sleep of size * 9.1525 + 50 ms after it, and the
// byte timeout that closes the answer. The difference between the measured
// median and that prediction is what the program itself costs.
//
// Usage: bench_hartport [exchanges per command, default 25] [turnaround ms, default 20]

#include "debugqt.h"
#include "hartcommand.h"
#include "hartport.h"
#include "simdevice.h"
#include "simline.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

struct Case
{
    const char* name;
    bool longFrame;
    unsigned char command;
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2.0;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    // Quiet: only errors reach standard error while timing.
    DebugQt::instance(DebugQt::LevelErr | DebugQt::ShowLevel | DebugQt::ShowMessage, nullptr);
    const int rounds = argc > 1 ? std::max(3, atoi(argv[1])) : 25;
    const int turnaround = argc > 2 ? std::max(0, atoi(argv[2])) : 20;

    hartsim::SimLine line;
    QString error;
    auto device = hartsim::SimDevice::create(QStringLiteral("generic"), {{"polling_address", 0}}, &error);
    if (!device || !line.addDevice(std::move(device), &error)) {
        std::fprintf(stderr, "simulator: %s\n", qPrintable(error));
        return 1;
    }
    line.setTiming(hartsim::SimLine::Timing::Line);
    line.setTurnaroundMs(turnaround);
    const QString path = line.startPty(QString(), &error);
    if (path.isEmpty()) {
        std::fprintf(stderr, "simulator: %s\n", qPrintable(error));
        return 1;
    }

    HartPort port(nullptr, path);
    if (!port.open()) {
        std::fprintf(stderr, "open %s: %s\n", qPrintable(path), qPrintable(port.errorText()));
        return 1;
    }
    QByteArray response;
    QVariantMap identity;
    if (!port.sendZeroCommand(0, response, true) || !port.parseCommandZeroResponse(response, identity)) {
        std::fprintf(stderr, "command 0: %s\n", qPrintable(port.errorText()));
        return 1;
    }
    const QByteArray longAddress = identity.value(QStringLiteral("address")).toByteArray();

    const double charMs = 1000.0 * 11.0 / 1200.0;
    const int byteTimeout = port.byteTimeout();
    std::printf("HART exchange through HartPort: %d exchanges per command, 1200 baud, 11 bits a character "
                "(%.3f ms), turnaround %d ms, byte timeout %d ms\n",
                rounds, charMs, turnaround, byteTimeout);
    std::printf("%-14s %5s %5s %10s %9s %7s %10s %7s\n", "command", "req", "resp", "median ms", "line ms", "ratio",
                "expect ms", "diff");

    const Case cases[] = {{"0 short", false, 0}, {"1 short", false, 1}, {"3 short", false, 3},
                          {"0 long", true, 0},   {"1 long", true, 1},   {"3 long", true, 3}};
    bool failed = false;
    for (const Case& c : cases) {
        std::vector<double> times;
        int requestBytes = 0;
        int responseBytes = 0;
        for (int k = 0; k < rounds; ++k) {
            QElapsedTimer clock;
            clock.start();
            const bool ok = c.longFrame ? port.sendCommand(longAddress, c.command, QByteArray(), response, true)
                                        : port.sendCommand(quint8(0), c.command, QByteArray(), response, true);
            const double ms = clock.nsecsElapsed() / 1e6;
            if (!ok) {
                std::fprintf(stderr, "%s: %s\n", c.name, qPrintable(port.errorText()));
                failed = true;
                continue;
            }
            times.push_back(ms);
            requestBytes = int(port.lastRequest().size());
            responseBytes = int(port.lastResponse().size());
        }
        if (times.empty())
            continue;
        const double measured = median(times);
        const double lineMs = (requestBytes + responseBytes) * charMs + turnaround;
        // The thread sleeps 5 ms, writes, sleeps for the modem; the answer
        // ends when its last byte is in; a pause of the byte timeout closes it.
        const double sleepEnd = int(requestBytes * 9.1525 + 50.0);
        const double answerEnd = requestBytes * charMs + turnaround + responseBytes * charMs;
        const double expected = 5.0 + std::max(sleepEnd, answerEnd) + byteTimeout;
        std::printf("%-14s %5d %5d %10.1f %9.1f %7.2f %10.1f %+7.1f\n", c.name, requestBytes, responseBytes, measured,
                    lineMs, measured / lineMs, expected, measured - expected);
    }
    port.close();
    line.stop();
    return failed ? 1 : 0;
}
