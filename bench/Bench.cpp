#include "Bench.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

using namespace Qt::StringLiterals;

namespace quillmere::bench {

namespace {

bool anAimWasMissed = false;

QString written(double value)
{
    const double size = std::abs(value);
    return QString::number(value, 'f', size < 0.1 ? 3 : size < 10 ? 2 : 1);
}

QString written(const Estimate &estimate)
{
    return u"%1 [%2, %3]"_s.arg(written(estimate.median), written(estimate.low), written(estimate.high));
}

// What the aim speaks of. Pair by pair where figure and floor were sampled by turns, so that noise which lasts cancels out.
Samples compared(const Row &row, Aim::Of of)
{
    if (of == Aim::Of::Figure) {
        return row.figure;
    }
    const bool inTurns = row.floor.size() == row.figure.size();
    const double floor = estimate(row.floor).median;
    Samples compared;
    for (std::size_t i = 0; i < row.figure.size(); ++i) {
        const double least = inTurns ? row.floor[i] : floor;
        compared.push_back(of == Aim::Of::Multiple ? row.figure[i] / least : row.figure[i] - least);
    }
    return compared;
}

// More programs want to run than there are processors, so that some of every time on the clock was spent waiting for one.
bool isMachineBusy()
{
    double load = 0;
    return getloadavg(&load, 1) == 1 && load > QThread::idealThreadCount();
}

QString verdict(const Row &row)
{
    const Estimate found = estimate(compared(row, row.aim->of));
    if (found.high <= row.aim->most) {
        return u"met"_s;
    }
    if (row.aim->of == Aim::Of::Figure && QByteArrayView(row.unit) == "ms" && isMachineBusy()) {
        return u"undecided (busy machine)"_s;
    }
    if (found.low > row.aim->most) {
        anAimWasMissed = true;
        return u"missed"_s;
    }
    return u"undecided"_s;
}

QString aimOf(const Row &row)
{
    const QString most = QString::number(row.aim->most);
    switch (row.aim->of) {
    case Aim::Of::Multiple:
        return u"%1 x floor"_s.arg(most);
    case Aim::Of::Excess:
        return u"floor + %1 %2"_s.arg(most, QLatin1String(row.unit));
    case Aim::Of::Figure:
        break;
    }
    return u"%1 %2"_s.arg(most, QLatin1String(row.unit));
}

void printHeading()
{
    std::printf("%-48s %-8s %3s  %-4s %-26s %8s  %-22s %-24s %-22s %-16s %s\n", "what", "in", "n", "unit",
        "median [95 %]", "worst", "floor", "median [95 %]", "times floor [95 %]", "aim: at most", "verdict");
}

} // namespace

Estimate estimate(Samples samples)
{
    check(!samples.empty(), "Nothing was sampled.");
    std::sort(samples.begin(), samples.end());
    const auto count = int(samples.size());
    const double median = (samples[std::size_t((count - 1) / 2)] + samples[std::size_t(count / 2)]) / 2;
    // The true median lies outside the outermost but `k` when at most `k` samples fell on one side of it: tosses of a coin.
    int outside = 0;
    double tail = std::pow(0.5, count);
    double chance = tail;
    for (int k = 1; k <= count / 2; ++k) {
        chance *= double(count - k + 1) / k;
        if (2 * (tail + chance) > 0.05) {
            break;
        }
        tail += chance;
        outside = k;
    }
    return {median, samples[std::size_t(outside)], samples[std::size_t(count - 1 - outside)]};
}

void print(const Row &row)
{
    static const bool headed = [] {
        printHeading();
        return true;
    }();
    Q_UNUSED(headed)
    const auto text = [](const QString &text) { return text.toUtf8(); };
    std::printf("%-48s %-8s %3d  %-4s %-26s %8s  %-22s %-24s %-22s %-16s %s\n", text(row.what).constData(),
        rendererName(), int(row.figure.size()), row.unit, text(written(estimate(row.figure))).constData(),
        text(written(*std::max_element(row.figure.cbegin(), row.figure.cend()))).constData(),
        text(row.floorName).constData(), row.floor.empty() ? "" : text(written(estimate(row.floor))).constData(),
        row.floor.empty() || estimate(row.floor).median <= 0
            ? ""
            : text(written(estimate(compared(row, Aim::Of::Multiple)))).constData(),
        row.aim ? text(aimOf(row)).constData() : "", row.aim ? text(verdict(row)).constData() : "");
    std::fflush(stdout);
}

int exitCode()
{
    return anAimWasMissed ? 1 : 0;
}

bool drawsInSoftware()
{
    return qEnvironmentVariable("QT_QUICK_BACKEND") == u"software"_s;
}

const char *rendererName()
{
    return !qEnvironmentVariableIsSet("QT_QUICK_BACKEND") ? "-" : drawsInSoftware() ? "software" : "OpenGL";
}

bool isQuick(int argc, char *argv[])
{
    return argc > 1 && QByteArrayView(argv[1]) == "quick";
}

void check(bool condition, const char *what)
{
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::exit(2);
    }
}

void runUntil(const std::function<bool()> &condition, const char *what)
{
    bool isLate = false;
    QTimer watchdog;
    QObject::connect(&watchdog, &QTimer::timeout, [&isLate] { isLate = true; });
    watchdog.start(std::chrono::minutes(1));
    while (!condition()) {
        check(!isLate, what);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void runFor(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

qint64 nanoseconds()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

namespace {

double memory(qint64 process, const QByteArray &key)
{
    double megabytes = 0;
    QFile own(u"/proc/%1/smaps_rollup"_s.arg(process));
    if (own.open(QFile::ReadOnly)) {
        for (const QByteArray &line : own.readAll().split('\n')) {
            if (line.startsWith(key)) {
                megabytes += line.mid(key.size()).trimmed().split(' ').first().toDouble() * 1024 / 1e6;
            }
        }
    }
    for (const QString &thread : QDir(u"/proc/%1/task"_s.arg(process)).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile started(u"/proc/%1/task/%2/children"_s.arg(process).arg(thread));
        if (started.open(QFile::ReadOnly)) {
            for (const QByteArray &child : started.readAll().simplified().split(' ')) {
                megabytes += child.isEmpty() ? 0 : memory(child.toLongLong(), key);
            }
        }
    }
    return megabytes;
}

} // namespace

double proportionalMemory(qint64 process)
{
    return memory(process, "Pss:");
}

double anonymousMemory(qint64 process)
{
    return memory(process, "Pss_Anon:");
}

double processorTime()
{
    return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC;
}

} // namespace quillmere::bench
