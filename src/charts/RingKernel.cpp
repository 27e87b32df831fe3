#include "charts/RingKernel.h"

#include <QPointF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillmere {

namespace {

constexpr double start = 135; // degrees, clockwise from the right
constexpr double sweep = 270;
constexpr double glowOpacity = 0.3;
constexpr int glowSteps = 8; // for each pixel of distance
constexpr size_t mostColors = 4;

QPointF onCircle(double radius, double place)
{
    const double angle = (start + place * sweep) * std::numbers::pi / 180;
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

double lengthOf(const QPointF &point)
{
    return std::hypot(point.x(), point.y());
}

// How much of a pixel is covered by a stroke whose middle line runs that far from it.
double coverage(double distance, double halfStroke)
{
    return std::clamp(halfStroke - distance + 0.5, 0.0, 1.0);
}

// What of a stroke's light arrives that far from its middle line when it is blurred.
double blurred(double distance, double halfStroke, double deviation)
{
    const double unit = deviation * std::numbers::sqrt2;
    return (std::erf((distance + halfStroke) / unit) - std::erf((distance - halfStroke) / unit)) / 2;
}

QRgb over(QRgb below, QRgb color, double opacity)
{
    const auto mix = [&](int channel, int under) { return qRound(channel * opacity + under * (1 - opacity)); };
    return qRgba(mix(qRed(color), qRed(below)), mix(qGreen(color), qGreen(below)), mix(qBlue(color), qBlue(below)),
        mix(255, qAlpha(below)));
}

} // namespace

std::shared_ptr<RingKernel> RingKernel::of(const Shape &shape)
{
    static std::vector<std::weak_ptr<RingKernel>> kernels;
    std::erase_if(kernels, [](const auto &kernel) { return kernel.expired(); });
    for (const auto &each : kernels) {
        auto kernel = each.lock();
        if (kernel->shape() == shape) {
            return kernel;
        }
    }
    auto made = std::make_shared<RingKernel>(shape);
    kernels.push_back(made);
    return made;
}

RingKernel::RingKernel(const Shape &shape) : m_shape(shape)
{
    const double radius = shape.diameter / 2 * shape.scale;
    const double halfStroke = shape.strokeWidth / 2 * shape.scale;
    // Half of what is told is the blur's deviation, at three times of which next to nothing is left of it.
    const double deviation = shape.glow / 2 * shape.scale;
    m_reach = halfStroke + std::max(1.0, 3 * deviation);
    // An even number of pixels, so that the middle of the picture lies between two of them, whatever the shape.
    m_side = 2 * int(std::ceil(radius + m_reach));
    for (int i = 0; i <= int(m_reach * glowSteps) + 1; ++i) {
        m_glow.push_back(
            deviation > 0 ? float(glowOpacity * blurred(double(i) / glowSteps, halfStroke, deviation)) : 0);
    }

    const auto pixels = size_t(m_side) * size_t(m_side);
    m_places.reserve(pixels);
    m_distances.reserve(pixels);
    m_unlit.reserve(pixels);
    const QPointF first = onCircle(radius, 0);
    const QPointF last = onCircle(radius, 1);
    for (int y = 0; y < m_side; ++y) {
        for (int x = 0; x < m_side; ++x) {
            const QPointF point(x + 0.5 - m_side / 2.0, y + 0.5 - m_side / 2.0);
            const double angle = std::atan2(point.y(), point.x()) * 180 / std::numbers::pi;
            const double along = std::fmod(angle - start + 720, 360);
            // In the gap the nearer of the two ends counts.
            const bool inGap = along > sweep;
            const bool atEnd = along < (sweep + 360) / 2;
            const double place = inGap ? (atEnd ? 1 : 0) : along / sweep;
            const double distance =
                inGap ? lengthOf(point - (atEnd ? last : first)) : std::abs(lengthOf(point) - radius);
            m_places.push_back(float(place));
            m_distances.push_back(float(distance));
            m_unlit.push_back(over(0, shape.track, coverage(distance, halfStroke) * qAlpha(shape.track) / 255.0));
        }
    }
}

QRgb RingKernel::litPixel(size_t index, double distance, QRgb color) const
{
    const double halfStroke = m_shape.strokeWidth / 2 * m_shape.scale;
    const double opacity = (0.5 + 0.5 * double(m_places[index])) * qAlpha(color) / 255.0;
    const QRgb glowing = over(m_unlit[index], color, double(m_glow[size_t(distance * glowSteps)]) * opacity);
    return over(glowing, color, coverage(distance, halfStroke) * opacity);
}

const std::vector<QRgb> &RingKernel::lit(QRgb color)
{
    const auto found = std::find_if(m_lit.begin(), m_lit.end(), [&](const auto &each) { return each.first == color; });
    if (found != m_lit.end()) {
        return found->second;
    }
    if (m_lit.size() == mostColors) {
        m_lit.erase(m_lit.begin());
    }
    std::vector<QRgb> pixels(m_unlit.size());
    for (size_t i = 0; i < pixels.size(); ++i) {
        const auto distance = double(m_distances[i]);
        pixels[i] = distance < m_reach ? litPixel(i, distance, color) : m_unlit[i];
    }
    return m_lit.emplace_back(color, std::move(pixels)).second;
}

QImage RingKernel::draw(double fraction, const QColor &color)
{
    QImage picture(m_side, m_side, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(m_shape.scale);
    auto *pixels = reinterpret_cast<QRgb *>(picture.bits());
    if (!(fraction > 0)) {
        std::copy(m_unlit.begin(), m_unlit.end(), pixels);
        return picture;
    }

    const auto end = float(std::min(fraction, 1.0));
    const std::vector<QRgb> &lit = this->lit(color.rgba());
    for (size_t i = 0; i < m_unlit.size(); ++i) {
        pixels[i] = m_places[i] <= end ? lit[i] : m_unlit[i];
    }

    // The round end, beyond the last place that is lit.
    const QPointF cap = onCircle(m_shape.diameter / 2 * m_shape.scale, double(end));
    const auto pixelsBefore = [this](double place) {
        return std::clamp(int(std::lround(place + m_side / 2.0)), 0, m_side);
    };
    for (int y = pixelsBefore(cap.y() - m_reach); y < pixelsBefore(cap.y() + m_reach); ++y) {
        for (int x = pixelsBefore(cap.x() - m_reach); x < pixelsBefore(cap.x() + m_reach); ++x) {
            const size_t i = size_t(y) * size_t(m_side) + size_t(x);
            const double distance = lengthOf(QPointF(x + 0.5 - m_side / 2.0, y + 0.5 - m_side / 2.0) - cap);
            if (m_places[i] > end && distance < m_reach) {
                pixels[i] = litPixel(i, distance, color.rgba());
            }
        }
    }
    return picture;
}

} // namespace quillmere
