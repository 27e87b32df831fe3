#pragma once

#include <QColor>
#include <QImage>

#include <memory>
#include <utility>
#include <vector>

namespace quillmere {

// Draws a ring of three quarters of a circle, open at the bottom, of which a part is lit from the lower left on. A gauge in motion
// draws it sixty times a second, so what does not depend on the part is worked out once per shape: for each pixel its place along
// the ring, its unlit colour, and for each colour in use its lit one. A drawing then is one choice per pixel, and the round end of
// the lit part, which is worked out anew in a small box.
class RingKernel {
public:
    struct Shape {
        double diameter = 0; // of the stroke's middle line; this and the others in points
        double strokeWidth = 0;
        double glow = 0; // how far the light of the lit part reaches
        QRgb track = 0;
        double scale = 1; // pixels per point

        bool operator==(const Shape &) const = default;
    };

    // Rings of one shape share one. Only for the main thread.
    static std::shared_ptr<RingKernel> of(const Shape &shape);

    explicit RingKernel(const Shape &shape);

    const Shape &shape() const { return m_shape; }
    // Of the picture, in pixels; the ring's middle is the picture's.
    int side() const { return m_side; }

    // With the part from 0 to `fraction` lit: from half of the colour's opacity at the ring's start to all of it at its end,
    // with a glow of the colour. At 0 nothing is lit. Fractions beyond 1, or none at all (NaN), count as 1 and 0.
    QImage draw(double fraction, const QColor &color);

private:
    QRgb litPixel(size_t index, double distance, QRgb color) const;
    const std::vector<QRgb> &lit(QRgb color);

    Shape m_shape;
    double m_reach = 0; // of stroke and glow from the ring's middle line, in pixels
    int m_side = 0;
    std::vector<float> m_glow;      // by distance
    std::vector<float> m_places;    // 0 to 1 along the ring
    std::vector<float> m_distances; // from the ring's middle line, in pixels
    std::vector<QRgb> m_unlit;      // premultiplied
    std::vector<std::pair<QRgb, std::vector<QRgb>>> m_lit;
};

} // namespace quillmere
