#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// Colours told by hexadecimal digits and by word.
class Color : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QColor blue READ blue CONSTANT)
    Q_PROPERTY(QColor green READ green CONSTANT)
    Q_PROPERTY(QColor red READ red CONSTANT)
    Q_PROPERTY(QColor orange READ orange CONSTANT)
    Q_PROPERTY(QColor yellow READ yellow CONSTANT)
    Q_PROPERTY(QColor purple READ purple CONSTANT)
    Q_PROPERTY(QColor cyan READ cyan CONSTANT)
    Q_PROPERTY(QColor gray READ gray CONSTANT)

public:
    // A colour of the sRGB space from 3 (RGB), 6 (RRGGBB) or 8 (AARRGGBB) characters, after everything that is neither
    // letter nor digit is gone from both ends. As many hexadecimal digits as stand at the front are read; none read as
    // 0. Any other length gives the colour of channels 1, 1, 0 at alpha 1 (out of 255): next to black, next to
    // invisible.
    Q_INVOKABLE static QColor hex(const QString &text);

    // The same colour at another opacity.
    Q_INVOKABLE static QColor faded(const QColor &color, double opacity);

    static QColor blue() { return QColor(0x0A, 0x84, 0xFF); }
    static QColor green() { return QColor(0x32, 0xD7, 0x4B); }
    static QColor red() { return QColor(0xFF, 0x45, 0x3A); }
    static QColor orange() { return QColor(0xFF, 0x9F, 0x0A); }
    static QColor yellow() { return QColor(0xFF, 0xD6, 0x0A); }
    static QColor purple() { return QColor(0xBF, 0x5A, 0xF2); }
    static QColor cyan() { return QColor(0x5A, 0xC8, 0xF5); }
    static QColor gray() { return QColor(0x98, 0x98, 0x9D); }
};

} // namespace quillmere
