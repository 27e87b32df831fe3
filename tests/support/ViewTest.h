#pragma once

#include "support/TestEnvironment.h"
#include "support/Window.h"

#include <memory>

namespace quillmere::testing {

// A test of a view. Each of its functions has a world of its own and fails by whatever Qt warns about; what it opened is gone
// before that world. A derived test that has an init() or a cleanup() calls these in it.
class ViewTest : public QObject {
    Q_OBJECT

protected:
    // In the place of what is open.
    void open(const QString &file, QSize size);
    void close();
    // Makes the next picture, before which rows, columns and lists put what stands in them in its place.
    void redraw();

    std::unique_ptr<TestEnvironment> m_world;
    std::unique_ptr<QQuickView> m_view;
    std::unique_ptr<Window> m_window;

protected slots:
    void init();
    void cleanup();
};

} // namespace quillmere::testing
