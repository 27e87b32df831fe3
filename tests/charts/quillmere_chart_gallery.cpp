// Shows the charts and small gauges in a window. With the name of a file it writes a picture there.

#include "app/theme/Theme.h"
#include "charts/ChartGallery.h"
#include "platform/Environment.h"

#include <QGuiApplication>
#include <QImage>
#include <QQmlEngine>
#include <QQuickView>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmere;

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const auto environment = Environment::real();
    environment->animations = argc <= 1;
    Theme::registerFaces();

    QQuickView view;
    view.engine()->addImportPath(u"qrc:/qt/qml"_s);
    view.setColor(Theme::background());
    view.setInitialProperties(testing::chartGallery());
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(1200, 1360);
    view.setSource(QUrl(u"qrc:/Charts.qml"_s));
    view.show();
    if (!view.rootObject() || !QTest::qWaitForWindowExposed(&view)) {
        return 1;
    }
    if (argc > 1) {
        return view.grabWindow().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    }
    return QGuiApplication::exec();
}
