// How long the trend plot takes to draw what a day and more of polling gives:
// four curves of 300 000 points, one a second (some 83 hours), a noisy signal
// on a slow drift, in a plot of 1200x600 pixels. Two figures: the full
// redraw (a scroll, a zoom or a resize does one), and the append of one point
// inside the view, which the polling does every period for every curve. For
// comparison, the full redraw drawing every point, and in point mode.
//
// Usage: bench_plotter [redraws, default 50] [appends, default 10000]

#include "plotter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace {

const int Curves = 4;
const int Points = 300000;
const double Start = 1700000000; // 14.11.2023 22:13:20 UTC

double signal(QRandomGenerator& random, int curve, int i)
{
    const double drift = 10 * curve + 5 * std::sin(i / 20000.0 + curve);
    return drift + random.generateDouble() - 0.5;
}

// Mean and worst of the full redraws, in milliseconds; the first, which
// warms the caches, left out.
void redraws(Plotter& plotter, int count, const char* what)
{
    std::vector<double> times;
    for (int i = 0; i <= count; ++i) {
        QElapsedTimer timer;
        timer.start();
        plotter.setCurZoomPlotSettings(plotter.getCurZoomPlotSettings());
        const double ms = timer.nsecsElapsed() / 1e6;
        if (i > 0)
            times.push_back(ms);
    }
    std::sort(times.begin(), times.end());
    std::printf("%s, %d curves x %d points, %dx%d: mean %.1f ms, median %.1f ms, worst %.1f ms\n", what, Curves, Points,
                plotter.width(), plotter.height(), std::accumulate(times.begin(), times.end(), 0.0) / times.size(),
                times[times.size() / 2], times.back());
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int redrawCount = argc > 1 ? std::max(1, atoi(argv[1])) : 50;
    const int appendCount = argc > 2 ? std::clamp(atoi(argv[2]), 1, 100000) : 10000;

    Plotter plotter;
    plotter.resize(1200, 600);
    plotter.setMaxPoints(Points);
    QRandomGenerator random(2023);
    for (int curve = 0; curve < Curves; ++curve) {
        QVector<QPointF> data(Points);
        for (int i = 0; i < Points; ++i)
            data[i] = QPointF(Start + i, signal(random, curve, i));
        plotter.setCurveData(curve, data);
        plotter.setCurveName(curve, QStringLiteral("Curve %1").arg(curve));
    }
    // Room on the right for the appends, which stay inside the view.
    PlotSettings settings;
    settings.minX = Start;
    settings.maxX = Start + Points + appendCount;
    settings.minY = -6;
    settings.maxY = 10 * Curves + 6;
    settings.adjust();
    plotter.setPlotSettings(settings);

    redraws(plotter, redrawCount, "full redraw");
    plotter.setDecimation(false);
    redraws(plotter, std::min(redrawCount, 10), "full redraw, every point drawn");
    plotter.setDecimation(true);
    plotter.setDrawPolyline(false);
    redraws(plotter, redrawCount, "full redraw in point mode");
    plotter.setDrawPolyline(true);
    plotter.setCurZoomPlotSettings(settings);

    // Every curve at its limit: each append drops the oldest point too. Now
    // and then the list of a curve runs out of room at its end and moves its
    // points, which is the worst case.
    int inside = 0;
    double total = 0;
    double worst = 0;
    QElapsedTimer timer;
    for (int i = 0; i < appendCount; ++i) {
        for (int curve = 0; curve < Curves; ++curve) {
            const QPointF point(Start + Points + i, signal(random, curve, Points + i));
            timer.start();
            inside += plotter.addpendCurveData(curve, point);
            const double ms = timer.nsecsElapsed() / 1e6;
            total += ms;
            worst = std::max(worst, ms);
        }
    }
    std::printf("append inside the view, %d x %d curves at %d points: mean %.4f ms, worst %.2f ms, %d of %d inside\n",
                appendCount, Curves, Points, total / (double(appendCount) * Curves), worst, inside,
                appendCount * Curves);
    return inside == appendCount * Curves ? 0 : 1;
}
