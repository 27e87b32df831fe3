#include "charts/DenseLine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace quillmere {

namespace {

// A pixel is looked at in so many slices beside one another, which is what smooths steep edges.
constexpr int slices = 8;

// What a slice holds of the line or of its stroke: all from `top` to `bottom`.
struct Span {
    double top = std::numeric_limits<double>::infinity();
    double bottom = -std::numeric_limits<double>::infinity();

    void include(double from, double to)
    {
        top = std::min(top, from);
        bottom = std::max(bottom, to);
    }
};

// By slice, of which each begins half a slice before the pixels' own: so the pen, which is measured from the middle of one to the middle
// of another, comes out as wide as it is.
std::vector<Span> spansOf(const QPolygonF &line, int count)
{
    std::vector<Span> spans;
    spans.resize(size_t(count));
    for (qsizetype i = 1; i < line.size(); ++i) {
        const QPointF from(line[i - 1].x() * slices + 0.5, line[i - 1].y());
        const QPointF to(line[i].x() * slices + 0.5, line[i].y());
        const double slope = to.x() > from.x() ? (to.y() - from.y()) / (to.x() - from.x()) : 0;
        const int first = std::clamp(int(from.x()), 0, count - 1);
        const int last = std::clamp(int(to.x()), 0, count - 1);
        for (int slice = first; slice <= last; ++slice) {
            const double enters = slice == first ? from.y() : from.y() + (slice - from.x()) * slope;
            const double leaves = slice == last ? to.y() : from.y() + (slice + 1 - from.x()) * slope;
            spans[size_t(slice)].include(std::min(enters, leaves), std::max(enters, leaves));
        }
    }
    return spans;
}

// What a round pen covers on its way through these, by the pixels' own slices.
std::vector<Span> stroked(const std::vector<Span> &spans, double radius)
{
    const auto count = int(spans.size()) - 1;
    std::vector<Span> stroke;
    stroke.resize(size_t(count));
    const int reach = int(radius * slices) + 1;
    for (int aside = 1 - reach; aside <= reach; ++aside) {
        const double distance = (aside - 0.5) / slices;
        if (std::abs(distance) >= radius) {
            continue;
        }
        const double rise = std::sqrt(radius * radius - distance * distance);
        for (int slice = std::max(0, -aside); slice < std::min(count, count + 1 - aside); ++slice) {
            const int beside = slice + aside;
            const Span &touched = spans[size_t(beside)];
            stroke[size_t(slice)].include(touched.top - rise, touched.bottom + rise);
        }
    }
    return stroke;
}

} // namespace

QImage denseLine(const QPolygonF &line, double width, const QColor &color, QSize size)
{
    if (size.isEmpty()) {
        return {};
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const std::vector<Span> stroke = stroked(spansOf(line, size.width() * slices + 1), width / 2);

    std::array<QRgb, 256> shades{}; // by how much of a pixel is covered
    for (size_t i = 0; i < shades.size(); ++i) {
        const QRgb full = color.rgba();
        shades[i] = qPremultiply(qRgba(qRed(full), qGreen(full), qBlue(full), qAlpha(full) * int(i) / 255));
    }
    auto *const pixels = reinterpret_cast<QRgb *>(image.bits());
    const qsizetype stride = image.bytesPerLine() / qsizetype(sizeof(QRgb));
    std::vector<float> covered(size_t(size.height()));
    for (int column = 0; column < size.width(); ++column) {
        int first = size.height();
        int last = -1;
        for (int slice = column * slices; slice < (column + 1) * slices; ++slice) {
            const double top = std::max(0.0, stroke[size_t(slice)].top);
            const double bottom = std::min(double(size.height()), stroke[size_t(slice)].bottom);
            if (top >= bottom) {
                continue;
            }
            const int begin = int(top);
            const int end = int(std::ceil(bottom));
            for (int row = begin; row < end; ++row) {
                covered[size_t(row)] += float(std::min(bottom, row + 1.0) - std::max(top, double(row)));
            }
            first = std::min(first, begin);
            last = std::max(last, end - 1);
        }
        for (int row = first; row <= last; ++row) {
            float &share = covered[size_t(row)];
            pixels[row * stride + column] = shades[size_t(std::lround(share * 255 / slices))];
            share = 0;
        }
    }
    return image;
}

} // namespace quillmere
