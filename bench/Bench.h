#pragma once

#include <QElapsedTimer>
#include <QString>

#include <chrono>
#include <ctime>
#include <functional>
#include <optional>
#include <vector>

// What the measurements share: how they sample, and the one table that they print.
//
// Times differ from machine to machine and from moment to moment. So every figure stands beside a floor: the least that such a
// thing takes here, sampled in the same run and by turns with it, so that noise falls on both. Samples become a median and the
// interval that holds the true median in 95 of 100 runs, whatever the noise is like. An aim is met or missed when that interval lies
// on one side of it, and undecided when it does not. Nor is a time on the clock said to miss its aim while the machine is busy.
namespace quillmere::bench {

using Samples = std::vector<double>;

struct Estimate {
    double median = 0;
    double low = 0;
    double high = 0;
};

// Of six samples at least; fewer tell no such interval, and low and high are then the outermost.
Estimate estimate(Samples samples);

// At most so much: the figure itself, its multiple of the floor, or what it has more than the floor.
struct Aim {
    enum class Of { Figure, Multiple, Excess } of;
    double most;
};

inline Aim atMost(double most)
{
    return {Aim::Of::Figure, most};
}

inline Aim timesFloor(double most)
{
    return {Aim::Of::Multiple, most};
}

inline Aim aboveFloor(double most)
{
    return {Aim::Of::Excess, most};
}

struct Row {
    QString what;
    const char *unit;
    Samples figure;
    QString floorName;
    Samples floor; // sampled by turns with the figure
    std::optional<Aim> aim;
};

// Prints a row of the table, and notes whether an aim was missed.
void print(const Row &row);

// What main() returns: 1 when an aim was missed.
int exitCode();

// Of the renderer that this process and those it starts draw with: "software", "OpenGL".
const char *rendererName();
bool drawsInSoftware();

// Whether the program was told "quick": fewer samples, for a look in passing.
bool isQuick(int argc, char *argv[]);

double millisecondsOf(auto &&work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

// Of all threads of this process: for work that waits for nothing, on which others of the machine weigh less.
double processorMillisecondsOf(auto &&work)
{
    const std::clock_t begin = std::clock();
    work();
    return 1e3 * double(std::clock() - begin) / CLOCKS_PER_SEC;
}

// A measurement of something that did not happen is none.
void check(bool condition, const char *what);

// Handles events until the condition holds, for a minute at most.
void runUntil(const std::function<bool()> &condition, const char *what);
void runFor(std::chrono::milliseconds time);

// Of the machine's monotonic clock, which all processes share.
qint64 nanoseconds();

// The part of the memory in use that a process is accountable for, together with those it started (MB).
double proportionalMemory(qint64 process);
// The part of it that no file stands behind.
double anonymousMemory(qint64 process);

// What this process has used of the processors so far (ms).
double processorTime();

} // namespace quillmere::bench
