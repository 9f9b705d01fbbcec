#include "plotsettings.h"

#include <QDateTime>

#include <algorithm>
#include <cmath>

namespace {

// Edges are kept within these bounds, so that a span and the number of ticks
// stay finite: for times about 30 000 years either side of 1970, which
// QDateTime still handles.
constexpr double LimitX = 1e12;
constexpr double LimitY = 1e300;

// Makes [lo, hi] an interval the rounding can divide: non-finite edges
// replaced (by the other edge, or by 0 to 10 when neither is usable), edges
// in order, and a span too narrow to be told apart from its middle (or below
// 1e-200, where the powers of ten run out) widened about that middle by
// halfWidth(middle).
template <typename HalfWidth>
void makeUsable(double& lo, double& hi, double limit, HalfWidth halfWidth)
{
    const bool loUsable = std::isfinite(lo);
    const bool hiUsable = std::isfinite(hi);
    if (!loUsable && !hiUsable) {
        lo = 0;
        hi = 10;
    } else if (!loUsable) {
        lo = hi;
    } else if (!hiUsable) {
        hi = lo;
    }
    lo = std::clamp(lo, -limit, limit);
    hi = std::clamp(hi, -limit, limit);
    if (lo > hi)
        std::swap(lo, hi);
    const double middle = lo / 2 + hi / 2;
    if (hi - lo <= std::abs(middle) * 1e-9 || hi - lo < 1e-200) {
        const double half = halfWidth(middle);
        lo = middle - half;
        hi = middle + half;
    }
}

// The number of steps between the multiples of step that enclose [lo, hi],
// at least minTicks; hi moves up when the minimum adds steps, so that every
// tick stays on a multiple.
void snapToSteps(double& lo, double& hi, int& ticks, double step, int minTicks, double origin = 0)
{
    const double first = std::floor((lo + origin) / step);
    const double last = std::ceil((hi + origin) / step);
    ticks = static_cast<int>(std::max(last - first, double(minTicks)));
    lo = first * step - origin;
    hi = lo + ticks * step;
}

} // namespace

void PlotSettings::scroll(int dx, int dy)
{
    const double stepX = spanX() / std::max(numXTicks, 1);
    minX += dx * stepX;
    maxX += dx * stepX;
    const double stepY = spanY() / std::max(numYTicks, 1);
    minY += dy * stepY;
    maxY += dy * stepY;
}

void PlotSettings::adjust()
{
    adjustXAxis();
    adjustYAxis();
}

void PlotSettings::adjustXAxis()
{
    // A single moment becomes a minute around it.
    makeUsable(minX, maxX, LimitX, [](double) { return 30.0; });
    const double grossStep = spanX() / std::max(targetXTicks, 1);
    double step = 1;
    if (grossStep <= 60) {
        for (double s : {1, 2, 5, 10, 15, 20, 30, 60})
            if (s <= grossStep)
                step = s;
    } else if (grossStep <= 3600) {
        for (double s : {60, 120, 300, 600, 900, 1200, 1800, 3600})
            if (s <= grossStep)
                step = s;
    } else if (grossStep <= 12 * 3600) {
        step = std::floor(grossStep / 3600) * 3600;
    } else if (grossStep <= 24 * 3600) {
        step = 43200;
    } else {
        step = 86400;
    }
    // Ticks fall on round times of the local clock, so hours and days start
    // where the user's clock says they do.
    const double offset = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(minX)).offsetFromUtc();
    snapToSteps(minX, maxX, numXTicks, step, 6, offset);
}

void PlotSettings::adjustYAxis()
{
    // A constant value gets a tenth of itself either side, zero (or next to
    // nothing) gets 1.
    makeUsable(minY, maxY, LimitY,
               [](double middle) { return std::abs(middle) < 1e-100 ? 1.0 : std::abs(middle) / 10; });
    const double grossStep = spanY() / std::max(targetYTicks, 1);
    double step = std::pow(10.0, std::floor(std::log10(grossStep)));
    if (grossStep >= 5 * step)
        step *= 5;
    else if (grossStep >= 2 * step)
        step *= 2;
    snapToSteps(minY, maxY, numYTicks, step, 5);
}
