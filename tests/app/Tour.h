#pragma once

#include "app/Quillmere_StudioApp.h"
#include "app/SidebarItem.h"
#include "support/TestEnvironment.h"
#include "support/Window.h"

#include <QTemporaryDir>

#include <memory>

namespace quillmere::testing {

// The whole program in its window, taken from one of its places to the next: a destination, a tab or a page of it, a sheet, a menu,
// an alert. Nothing on the way is found by a text, so that the tour is the same in every language. Each place is made afresh; one
// program serves all of a session's.
class Tour {
public:
    static QStringList places();
    // One row of test data for each place, in a column "place".
    static void addRows();

    explicit Tour(QSize size = {1200, 800});
    ~Tour();

    // False where the way there is blocked.
    bool goesTo(const QString &place);

    QQuickWindow *window() const;
    Window &eyes() { return *m_eyes; }
    FakeClock &clock() { return m_world->clock; }
    // What takes input there: the topmost sheet, popover, menu or alert, or else the window's content.
    QQuickItem *foremost() const;
    // By QML type, "Card" say; the item itself or the nearest around it that is one. Null where there is none.
    static QQuickItem *around(QQuickItem *item, const QString &type);

private:
    struct Place;
    static const QList<Place> &table();

    void starts(bool signedIn);
    bool isSignedIn() const;
    // Dismisses what the place before has put up.
    void turnsBack();
    QQuickItem *content() const;
    QQuickItem *destination() const;
    bool selects(SidebarItem::Case item);
    bool turns(const char *property, const QVariant &value);
    bool clicks(const QString &type, qsizetype index = 0);
    bool shows(const QString &type, qsizetype atLeast = 1);
    bool isStill();
    bool entersAddress();
    bool entersCode();
    bool chooses(qsizetype steps);
    bool selectsNode(int index);

    QSize m_size;
    QTemporaryDir m_home;
    std::unique_ptr<TestEnvironment> m_world;
    std::unique_ptr<Quillmere_StudioApp> m_studio;
    std::unique_ptr<Window> m_eyes;
};

// A test that takes one tour through all of its functions, which Qt's warnings fail.
class TourTest : public QObject {
    Q_OBJECT

protected:
    std::unique_ptr<Tour> m_tour;

protected slots:
    void initTestCase();
    void init();
    void cleanupTestCase();
};

// What an item shows of a part of itself: not what lies outside of the regions that clip it.
QRectF visiblePart(const QQuickItem *item, QRectF part);
bool isWithin(const QQuickItem *item, const QQuickItem *whole);

} // namespace quillmere::testing
