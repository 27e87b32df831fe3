#pragma once

#include <QImage>
#include <QRect>

namespace quillmere::testing {

// How a picture differs from its reference.
struct Difference {
    qsizetype pixels = 0; // that are visibly another colour; all of them where the sizes differ
    QRect place;          // around these
    QImage drawing;       // reference, picture, and where they differ, side by side

    explicit operator bool() const { return pixels > 0; }
};

// A channel may be off by as much as processors round differently; from the next step on a pixel differs.
constexpr int roundingTolerance = 2;

Difference compare(const QImage &reference, const QImage &picture);

// Around all pixels that are not exactly the same in two pictures of one size.
QRect changedPart(const QImage &one, const QImage &other);

} // namespace quillmere::testing
