#pragma once

#include <QList>
#include <QSize>
#include <QString>

#include <functional>

class QImage;

namespace quillmere::testing {

class Stage;

// A state of a screen: what it is called, which is also the name of its picture, and how it comes about.
struct Shot {
    QString name; // "training-hovered": the screen, then the state
    std::function<void(Stage &)> set;
    QSize size = smallest;
    // What is photographed where the window alone does not do.
    std::function<QImage(Stage &)> photograph = {};

    static constexpr QSize smallest{1200, 800};
    static constexpr QSize large{1920, 1200};
};

// Every screen in every state.
QList<Shot> catalogue();

} // namespace quillmere::testing
