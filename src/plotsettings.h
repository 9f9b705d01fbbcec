#ifndef PLOTSETTINGS_H
#define PLOTSETTINGS_H

// One view of the trend plot: the edges of both axes and the number of grid
// intervals on each. The X axis is a time in seconds since the Unix epoch.
// adjust() rounds a view to tidy ticks: round numbers (1, 2 or 5 times a power
// of ten) on Y, and times a clock shows on X.
class PlotSettings
{
public:
    PlotSettings() = default;

    // Moves the view by whole grid intervals, dx on X and dy on Y.
    void scroll(int dx, int dy);
    void adjust();
    void adjustXAxis();
    void adjustYAxis();
    double spanX() const { return maxX - minX; }
    double spanY() const { return maxY - minY; }

    double minX = 0;
    double maxX = 10;
    int numXTicks = 5;
    double minY = 0;
    double maxY = 10;
    int numYTicks = 5;
    int targetYTicks = 5;
    int targetXTicks = 6;
};

#endif // PLOTSETTINGS_H
