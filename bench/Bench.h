#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

// What the measurements share. Times differ from machine to machine and from run to run; so each is a median, and stands
// beside a floor that was measured in the same run.
namespace quillmere::bench {

double millisecondsOf(auto &&work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

inline double medianOf(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// A measurement of something that did not happen is none.
inline void check(bool condition, const char *what)
{
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::exit(2);
    }
}

} // namespace quillmere::bench
