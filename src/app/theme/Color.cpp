#include "app/theme/Color.h"

#include <optional>

namespace quillmere {

namespace {

std::optional<quint64> hexDigit(QChar character)
{
    const char16_t c = character.unicode();
    if (c >= u'0' && c <= u'9') {
        return c - u'0';
    }
    if (c >= u'a' && c <= u'f') {
        return c - u'a' + 10;
    }
    if (c >= u'A' && c <= u'F') {
        return c - u'A' + 10;
    }
    return {};
}

QStringView trimmed(QStringView text)
{
    while (!text.isEmpty() && !text.front().isLetterOrNumber()) {
        text = text.mid(1);
    }
    while (!text.isEmpty() && !text.back().isLetterOrNumber()) {
        text.chop(1);
    }
    return text;
}

} // namespace

QColor Color::hex(const QString &text)
{
    const QStringView digits = trimmed(text);
    quint64 value = 0;
    for (const QChar character : digits) {
        const auto digit = hexDigit(character);
        if (!digit) {
            break;
        }
        value = value << 4 | *digit;
    }
    const auto channel = [value](int shift) { return int(value >> shift & 0xFF); };
    switch (digits.size()) {
    case 3:
        return QColor(int(value >> 8 & 0xF) * 17, int(value >> 4 & 0xF) * 17, int(value & 0xF) * 17);
    case 6:
        return QColor(channel(16), channel(8), channel(0));
    case 8:
        return QColor(channel(16), channel(8), channel(0), channel(24));
    default:
        return QColor(1, 1, 0, 1);
    }
}

QColor Color::faded(const QColor &color, double opacity)
{
    QColor result = color;
    result.setAlphaF(float(opacity));
    return result;
}

} // namespace quillmere
