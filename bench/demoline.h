#ifndef BENCH_DEMOLINE_H
#define BENCH_DEMOLINE_H

// The simulator's demo line (four instruments at polling addresses 0 to 3)
// on a pseudo-terminal, for the benchmarks.

#include "scenario.h"
#include "simline.h"

#include <QString>

#include <cstdio>

// Starts the line with this timing; its path, or an empty one after a line
// on standard error that says why.
inline QString startDemoLine(hartsim::SimLine& line, hartsim::SimLine::Timing timing)
{
    QString error;
    QString path;
    if (hartsim::Scenario::load(QString::fromLatin1(hartsim::Scenario::DemoPath), line, &error)) {
        line.setTiming(timing);
        path = line.startPty(QString(), &error);
    }
    if (path.isEmpty())
        std::fprintf(stderr, "simulator: %s\n", qPrintable(error));
    return path;
}

#endif // BENCH_DEMOLINE_H
