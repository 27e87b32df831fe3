#include "FlatMemory.h"

#include "platform/ProcessMemory.h"

#include <QCoreApplication>
#include <QPixmapCache>
#include <QQmlEngine>

#include <algorithm>
#include <malloc.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

qint64 allocated()
{
    const auto info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

qint64 resident()
{
    QFile file(u"/proc/self/statm"_s);
    file.open(QIODevice::ReadOnly);
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

qint64 median(QList<qint64> values)
{
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

QString kilobytes(qint64 bytes)
{
    return QString::number(bytes / 1000) + u" kB"_s;
}

} // namespace

void FlatMemory::sample()
{
    m_engine.collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_engine.trimComponentCache();
    QPixmapCache::clear();
    malloc_trim(0);
    m_allocated.append(allocated());
    m_resident.append(resident());
}

QString FlatMemory::complaint(qint64 mostAllocated, qint64 mostResident) const
{
    if (!memoryIsMeasurable) {
        return {};
    }
    const qint64 moreAllocated = growthOf(m_allocated).bytes();
    const qint64 moreResident = growthOf(m_resident).bytes();
    if (moreAllocated <= mostAllocated && moreResident <= mostResident) {
        return {};
    }
    return u"Memory grows: "_s + story();
}

QString FlatMemory::story() const
{
    const Growth allocated = growthOf(m_allocated);
    const Growth resident = growthOf(m_resident);
    return u"allocated %1, later %2 (%3 more); resident %4, later %5 (%6 more)"_s.arg(kilobytes(allocated.early),
        kilobytes(allocated.late), kilobytes(allocated.bytes()), kilobytes(resident.early), kilobytes(resident.late),
        kilobytes(resident.bytes()));
}

FlatMemory::Growth FlatMemory::growthOf(const QList<qint64> &samples)
{
    Q_ASSERT(samples.size() >= 8);
    const QList<qint64> warm = samples.mid(samples.size() / 4);
    const qsizetype half = warm.size() / 2;
    return {median(warm.first(half)), median(warm.sliced(half))};
}

} // namespace quillmere::testing
