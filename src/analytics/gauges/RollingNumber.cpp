#include "analytics/gauges/RollingNumber.h"

#include "app/theme/Motion.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillmere {

namespace {

constexpr double duration = 0.3; // seconds
constexpr double travel = 0.4;   // of the height

} // namespace

RollingNumber::RollingNumber(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    m_roll.setStartValue(0.0);
    m_roll.setEndValue(1.0);
    m_roll.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_roll, &QVariantAnimation::valueChanged, this, [this] { update(); });
    layOut();
}

void RollingNumber::setText(const QString &text)
{
    if (m_text == text) {
        return;
    }
    m_before = m_text;
    m_text = text;
    layOut();
    m_roll.stop();
    m_roll.setDuration(m_before.isEmpty() ? 0 : Motion::ofData(duration));
    m_roll.start();
    update();
    emit textChanged();
}

void RollingNumber::setFont(const QFont &font)
{
    if (m_font != font) {
        m_font = font;
        layOut();
        update();
        emit fontChanged();
    }
}

void RollingNumber::setColor(const QColor &color)
{
    if (m_color != color) {
        m_color = color;
        update();
        emit colorChanged();
    }
}

void RollingNumber::layOut()
{
    const QFontMetricsF metrics(m_font);
    m_cellWidth = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
        m_cellWidth = std::max(m_cellWidth, std::ceil(metrics.horizontalAdvance(QChar(digit))));
    }
    // Room for what rolls out as well.
    const auto cells = double(std::max(m_text.size(), m_before.size()));
    setImplicitSize(cells * m_cellWidth, std::ceil(metrics.height()));
}

void RollingNumber::paint(QPainter *painter)
{
    ++m_paintings;
    painter->setFont(m_font);
    painter->setPen(m_color);
    const double progress = m_roll.state() == QAbstractAnimation::Running ? m_roll.currentValue().toDouble() : 1;
    const double direction = m_text.toDouble() < m_before.toDouble() ? -1 : 1;
    const double distance = direction * travel * height();

    // A digit that is the same in both stays where it is, as long as it has the same place.
    const bool equallyLong = m_text.size() == m_before.size();
    const double left = (width() - double(m_text.size()) * m_cellWidth) / 2;
    const double leftBefore = (width() - double(m_before.size()) * m_cellWidth) / 2;
    const qsizetype places = std::max(m_text.size(), m_before.size());
    for (qsizetype fromRight = 0; fromRight < places; ++fromRight) {
        const qsizetype i = m_text.size() - 1 - fromRight;
        const qsizetype before = m_before.size() - 1 - fromRight;
        const bool stays = equallyLong && m_text.at(i) == m_before.at(before);
        if (before >= 0 && !stays && progress < 1) {
            drawCharacter(*painter, m_before.at(before), leftBefore + double(before) * m_cellWidth,
                -progress * distance, 1 - progress);
        }
        if (i >= 0) {
            const double shift = stays ? 0 : (1 - progress) * distance;
            drawCharacter(*painter, m_text.at(i), left + double(i) * m_cellWidth, shift, stays ? 1 : progress);
        }
    }
}

void RollingNumber::drawCharacter(QPainter &painter, QChar character, double x, double shift, double opacity) const
{
    painter.setOpacity(opacity);
    painter.drawText(QRectF(x, shift, m_cellWidth, height()), Qt::AlignCenter, QString(character));
}

} // namespace quillmere
