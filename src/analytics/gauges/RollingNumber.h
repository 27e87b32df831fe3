#pragma once

#include <QColor>
#include <QFont>
#include <QQuickPaintedItem>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// A figure whose digits roll over when it changes: those that differ move up and out while the new ones come in from below, or the
// other way about when the figure falls. All digits are as wide as the widest, so that none moves to the side. It is drawn by the
// painter in one piece, which costs less than a text item for each digit.
class RollingNumber : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY fontChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit RollingNumber(QQuickItem *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);
    QFont font() const { return m_font; }
    void setFont(const QFont &font);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    void paint(QPainter *painter) override;

    // How often it was painted.
    int paintings() const { return m_paintings; }

signals:
    void textChanged();
    void fontChanged();
    void colorChanged();

private:
    void layOut();
    void drawCharacter(QPainter &painter, QChar character, double x, double shift, double opacity) const;

    QString m_text;
    QString m_before; // what rolls out
    QFont m_font;
    QColor m_color = Qt::white;
    double m_cellWidth = 0;
    QVariantAnimation m_roll; // from 0 to 1
    int m_paintings = 0;
};

} // namespace quillmere
