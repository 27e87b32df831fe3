#include "support/ViewTest.h"

namespace quillmere::testing {

void ViewTest::open(const QString &file, QSize size)
{
    close();
    m_view = openView(file, size);
    m_window = std::make_unique<Window>(*m_view);
}

void ViewTest::close()
{
    m_window.reset();
    m_view.reset();
}

void ViewTest::redraw()
{
    settle();
    m_view->grabWindow();
}

void ViewTest::init()
{
    failOnWarnings();
    m_world = std::make_unique<TestEnvironment>();
}

void ViewTest::cleanup()
{
    close();
    m_world.reset();
}

} // namespace quillmere::testing
