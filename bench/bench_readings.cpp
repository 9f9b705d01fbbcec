// The table of the measurement tab at its limit of 300 000 readings.
//
// Fills the table's model with 300 000 readings of a device with four
// variables and prints the heap it holds (malloc's count of bytes in use,
// before and after). Then, with the table view on screen (offscreen
// platform) and scrolled to the last row, it times the readings that arrive
// at the limit, each of which drops the oldest row: first the table alone,
// then the whole measurement tab (table, displays and a trend plot of PV
// holding the same readings), as a poll
// delivers them. Goals: at most 64 MB for the table, at most 1 ms a reading.
//
// Usage: bench_readings [readings timed, default 5000]

#include "measurewidget.h"
#include "readingsmodel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTableView>

#include <cmath>
#include <cstdio>
#include <functional>
#include <malloc.h>

namespace {

QVariantMap reading(qint64 second)
{
    const double t = double(second);
    QVariantMap map;
    map.insert(QStringLiteral("DateTime"), QDateTime::fromSecsSinceEpoch(1767225600 + second));
    map.insert(QStringLiteral("PV"), float(25 + 3 * std::sin(t / 600)));
    map.insert(QStringLiteral("output_current"), float(8 + std::sin(t / 600)));
    map.insert(QStringLiteral("SV"), float(110 + std::cos(t / 900)));
    map.insert(QStringLiteral("TV"), float(4.5));
    map.insert(QStringLiteral("QV"), float(21 + std::sin(t / 60)));
    map.insert(QStringLiteral("PVUnitCodeText"), QStringLiteral("°C"));
    map.insert(QStringLiteral("statusCode"), QStringLiteral("00 00"));
    map.insert(QStringLiteral("statusText"), QString());
    return map;
}

size_t heapInUse()
{
    malloc_trim(0);
    return mallinfo2().uordblks;
}

double timeReadings(int count, qint64 first, const std::function<void(const QVariantMap&)>& deliver)
{
    // The maps are made before the clock runs: they come from the poll.
    QList<QVariantMap> maps;
    for (int i = 0; i < count; ++i)
        maps << reading(first + i);
    QElapsedTimer clock;
    clock.start();
    for (const QVariantMap& map : std::as_const(maps)) {
        deliver(map);
        QCoreApplication::processEvents();
    }
    return double(clock.nsecsElapsed()) / 1e6 / count;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int timed = argc > 1 ? QByteArray(argv[1]).toInt() : 5000;
    const int limit = 300000;

    const size_t before = heapInUse();
    ReadingsModel model;
    model.setLimit(limit);
    model.setColumns(QStringLiteral("°C"), {ReadingsModel::SV, ReadingsModel::TV, ReadingsModel::QV});
    for (int i = 0; i < limit; ++i)
        model.append(reading(i));
    const size_t held = heapInUse() - before;
    std::printf("table of %d readings, 7 columns: %.1f MB of heap (%.0f bytes a reading)\n", model.rowCount(),
                double(held) / (1024.0 * 1024.0), double(held) / limit);

    const double modelMs = timeReadings(timed, limit, [&](const QVariantMap& map) { model.append(map); });
    std::printf("one reading at the limit, model alone:               %.4f ms (mean of %d)\n", modelMs, timed);

    auto timeView = [&](ReadingsModel& shown, const char* what) {
        QTableView view;
        view.setModel(&shown);
        view.resize(700, 500);
        view.show();
        view.resizeColumnsToContents();
        view.scrollToBottom();
        const double ms = timeReadings(timed, limit, [&](const QVariantMap& map) {
            shown.append(map);
            view.scrollToBottom();
        });
        std::printf("one reading and its repaint, table of %6d rows %s: %.3f ms (mean of %d)\n", shown.rowCount(), what,
                    ms, timed);
    };
    ReadingsModel small;
    small.setLimit(100);
    small.setColumns(QStringLiteral("°C"), {ReadingsModel::SV, ReadingsModel::TV, ReadingsModel::QV});
    for (int i = 0; i < 100; ++i)
        small.append(reading(i));
    timeView(small, "     ");
    timeView(model, "(limit)");

    MeasureWidget tab;
    tab.resize(1200, 700);
    tab.show();
    for (int i = 0; i < limit; ++i)
        tab.readings()->append(reading(i));
    tab.drawPlot(); // the plot holds the readings too
    const double tabMs = timeReadings(timed, limit, [&](const QVariantMap& map) { tab.showPeriodResponsePV(map); });
    std::printf("one reading and its repaint, whole tab at the limit:  %.3f ms (mean of %d), rows %d\n", tabMs, timed,
                tab.readings()->rowCount());
    return 0;
}
