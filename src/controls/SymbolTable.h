#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// Where the icon font "Quillmere Symbols" has the glyph of a symbol name.
class SymbolTable : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    // One character, or an empty text for a name that the font does not have.
    Q_INVOKABLE static QString glyph(const QString &name);
};

} // namespace quillmere
