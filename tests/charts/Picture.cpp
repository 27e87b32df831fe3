#include "charts/Picture.h"

#include "app/theme/Theme.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

void collect(const QQuickItem *below, const QString &type, QList<QQuickItem *> &found)
{
    for (QQuickItem *child : below->childItems()) {
        const QString name = QString::fromLatin1(child->metaObject()->className());
        if (child->isVisible() && (name == u"quillmere::"_s + type || name.startsWith(type + u"_QML"_s))) {
            found.append(child);
        }
        collect(child, type, found);
    }
}

} // namespace

Picture::Picture(const QString &qml, QObject *given)
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    QAccessible::setActive(true);
    environment.animations = false;
    Theme::registerFaces();
    view.engine()->addImportPath(u"qrc:/qt/qml"_s);
    view.setColor(Qt::black);
    view.resize(800, 600);

    auto *component = new QQmlComponent(view.engine(), &view);
    const QString text = u"import QtQuick\nimport Quillmere.Charts\nimport Quillmere.Theme\n"
                         "Item {\nid: root\nproperty QtObject given\nwidth: 800\nheight: 600\n"_s
        + qml + u"\n}"_s;
    component->setData(text.toUtf8(), QUrl(u"qrc:/Picture.qml"_s));
    auto *root =
        qobject_cast<QQuickItem *>(component->createWithInitialProperties({{u"given"_s, QVariant::fromValue(given)}}));
    if (!root) {
        qFatal("%s", qPrintable(component->errorString()));
    }
    view.setContent({}, component, root);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) {
        qFatal("The window is not shown.");
    }
}

QQuickItem *Picture::item(const QString &name) const
{
    auto *found = view.rootObject()->findChild<QQuickItem *>(name);
    if (!found) {
        qFatal("There is no %s.", qPrintable(name));
    }
    return found;
}

QList<QQuickItem *> Picture::all(const QString &type, const QQuickItem *in) const
{
    QList<QQuickItem *> found;
    collect(in, type, found);
    return found;
}

QStringList Picture::labels(const QQuickItem *in) const
{
    QStringList texts;
    for (const QQuickItem *label : all(u"Label"_s, in)) {
        texts.append(label->property("text").toString());
    }
    return texts;
}

QImage Picture::grab()
{
    return view.grabWindow().convertToFormat(QImage::Format_RGB32);
}

QColor Picture::at(const QQuickItem *item, QPointF place)
{
    const QPointF inWindow = item->mapToScene(place);
    return grab().pixelColor(int(std::floor(inWindow.x())), int(std::floor(inWindow.y())));
}

bool isLike(const QColor &color, const QColor &other, int tolerance)
{
    return std::abs(color.red() - other.red()) <= tolerance && std::abs(color.green() - other.green()) <= tolerance
        && std::abs(color.blue() - other.blue()) <= tolerance;
}

bool isDark(const QColor &color)
{
    // Grid lines are no brighter.
    return color.lightness() < 50;
}

} // namespace quillmere::testing
