#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class QQmlEngine;

namespace quillmere::testing {

// Whether a program that does the same over and over keeps the memory that it has. A sample is taken now and then, after all
// that can be given back has been given back: what is allocated (malloc's own count, from which nothing hides but the
// engine's objects) and what is resident (which has them too, but also holes). The first quarter of the samples warms the
// caches and does not count; of the others the median of the early half is compared with that of the late half.
class FlatMemory {
public:
    explicit FlatMemory(QQmlEngine &engine) : m_engine(engine) { }

    void sample();

    // Nothing where the memory is flat, otherwise what has grown, in words. The allowances are in bytes.
    QString complaint(qint64 mostAllocated, qint64 mostResident) const;
    // The samples' figures, for the record.
    QString story() const;

private:
    struct Growth {
        qint64 early = 0;
        qint64 late = 0;
        qint64 bytes() const { return late - early; }
    };
    static Growth growthOf(const QList<qint64> &samples);

    QQmlEngine &m_engine;
    QList<qint64> m_allocated;
    QList<qint64> m_resident;
};

} // namespace quillmere::testing
