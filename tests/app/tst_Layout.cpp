#include "app/Tour.h"
#include "support/PseudoTranslator.h"

#include <QQuickWindow>

using namespace Qt::StringLiterals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

enum class Language { English, Lengthened, RightToLeft };

// Lines of text bring air of their own above and below, and letters lean over their edges by a hair.
constexpr double air = 2;
constexpr double hair = 1;

QString wordsFor(const QQuickItem *item)
{
    const QRectF place = placeOf(item);
    return u"%1 \"%2\" at %3, %4, %5 by %6"_s
        .arg(
            QString::fromLatin1(item->metaObject()->className()).section(u'_', 0, 0), item->property("text").toString())
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height());
}

bool isText(const QQuickItem *item)
{
    return item->inherits("QQuickText") && !item->property("text").toString().isEmpty();
}

// Where a text's letters are in the window, whatever the size of its item.
QRectF inkOf(const QQuickItem *text)
{
    const double left = text->property("leftPadding").toDouble();
    const double right = text->property("rightPadding").toDouble();
    const double top = text->property("topPadding").toDouble();
    const double bottom = text->property("bottomPadding").toDouble();
    const QSizeF ink(text->property("contentWidth").toDouble(), text->property("contentHeight").toDouble());
    const QRectF room(left, top, text->width() - left - right, text->height() - top - bottom);
    QPointF corner = room.topLeft();
    switch (text->property("effectiveHorizontalAlignment").toInt()) {
    case Qt::AlignRight:
        corner.rx() = room.right() - ink.width();
        break;
    case Qt::AlignHCenter:
        corner.rx() = room.center().x() - ink.width() / 2;
        break;
    default:
        break;
    }
    switch (text->property("verticalAlignment").toInt()) {
    case Qt::AlignBottom:
        corner.ry() = room.bottom() - ink.height();
        break;
    case Qt::AlignVCenter:
        corner.ry() = room.center().y() - ink.height() / 2;
        break;
    default:
        break;
    }
    return text->mapRectToScene(QRectF(corner, ink)).adjusted(hair, air, -hair, -air);
}

// What bounds a text that stands in it: a card, a button, a region that clips.
bool isPanel(const QQuickItem *item)
{
    if (item->clip()) {
        return true;
    }
    if (item->inherits("QQuickRectangle")) {
        const QColor color = item->property("color").value<QColor>();
        return color.alpha() > 0;
    }
    return QString::fromLatin1(item->metaObject()->className()).contains(u"Button"_s);
}

// Where what scrolls ends is no edge.
bool scrolls(const QQuickItem *item)
{
    return item->inherits("QQuickFlickable") && item->property("contentHeight").toDouble() > item->height();
}

} // namespace

// There is room for every text, in the smallest window and in larger ones, in longer languages and in those from right to left, at the
// scale and the size of fonts that the process was started with.
class tst_Layout : public QObject {
    Q_OBJECT

private slots:
    void init() { failOnWarnings(); }
    void cleanupTestCase()
    {
        m_tour.reset();
        qInfo("%d texts were seen", m_texts);
    }

    void hasRoomForEachText_data()
    {
        QTest::addColumn<Language>("language");
        QTest::addColumn<QString>("place");
        const auto rows = [](const char *name, Language language) {
            for (const QString &place : Tour::places()) {
                QTest::addRow("%s, %s", qPrintable(place), name) << language << place;
            }
        };
        rows("in English", Language::English);
        if (!isScaled()) {
            rows("in a longer language", Language::Lengthened);
            rows("from right to left", Language::RightToLeft);
        }
    }
    void hasRoomForEachText()
    {
        QFETCH(Language, language);
        QFETCH(QString, place);
        speaks(language);
        QVERIFY(m_tour->goesTo(place));
        QStringList complaints = whatIsWrong(language);
        if (language == Language::English && !isScaled()) {
            for (const QSize size : {QSize(1440, 900), QSize(1920, 1080), QSize(2560, 1440)}) {
                m_tour->window()->resize(size);
                settle();
                for (const QString &complaint : whatIsWrong(language)) {
                    complaints.append(u"%1 by %2: "_s.arg(size.width()).arg(size.height()) + complaint);
                }
            }
        }
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u"\n"_s)));
    }

private:
    // Where the process was started with another scale or other fonts, one language will do.
    static bool isScaled()
    {
        return qEnvironmentVariableIsSet("QT_SCALE_FACTOR") || qEnvironmentVariableIsSet("QT_FONT_DPI");
    }

    void speaks(Language language)
    {
        if (m_tour && language == m_language) {
            return;
        }
        m_language = language;
        m_tour.reset();
        m_translator.reset();
        if (language != Language::English) {
            m_translator = std::make_unique<PseudoTranslator>(language == Language::Lengthened
                    ? PseudoTranslator::Script::Lengthened
                    : PseudoTranslator::Script::RightToLeft);
        }
        m_tour = std::make_unique<Tour>();
    }

    QStringList whatIsWrong(Language language)
    {
        const QList<QQuickItem *> items = itemsIn(m_tour->foremost());
        QStringList complaints;
        QList<std::pair<QQuickItem *, QRectF>> texts;
        QList<std::pair<QQuickItem *, QRectF>> controls;
        for (QQuickItem *item : items) {
            if (isText(item)) {
                ++m_texts;
                texts.append({item, visiblePart(item, inkOf(item))});
                // Whole paragraphs are cut after some lines.
                const bool isShortened =
                    item->property("truncated").toBool() && item->property("lineCount").toInt() == 1;
                if (language == Language::English && isShortened) {
                    complaints.append(u"shortened: "_s + wordsFor(item));
                }
                complaints += edgesCrossedBy(item);
            }
            // The user lays the nodes of the canvas where they are.
            if (item->activeFocusOnTab() && !Tour::around(item, u"NodeView"_s)) {
                controls.append({item, visiblePart(item, placeOf(item))});
            }
        }
        for (const auto &list : {texts, controls}) {
            for (qsizetype i = 0; i < list.size(); ++i) {
                for (qsizetype j = i + 1; j < list.size(); ++j) {
                    const auto &[one, itsPart] = list[i];
                    const auto &[other, itsOwn] = list[j];
                    const QRectF shared = itsPart & itsOwn;
                    if (shared.width() > 0.5 && shared.height() > 0.5 && !isWithin(one, other)
                        && !isWithin(other, one)) {
                        complaints.append(u"over one another: "_s + wordsFor(one) + u" and "_s + wordsFor(other));
                    }
                }
            }
        }
        return complaints;
    }

    static QStringList edgesCrossedBy(QQuickItem *text)
    {
        QStringList crossed;
        // The user lays the nodes of the canvas where they are, beyond its edges too.
        const QQuickItem *node = Tour::around(text, u"NodeView"_s);
        QRectF ink = inkOf(text);
        for (const QQuickItem *outer = text->parentItem(); outer && outer != node; outer = outer->parentItem()) {
            const QRectF edges = placeOf(outer);
            const bool scrolledAway = scrolls(outer);
            if (isPanel(outer) && !edges.isEmpty()) {
                const bool across = ink.left() < edges.left() || ink.right() > edges.right();
                const bool down = ink.top() < edges.top() || ink.bottom() > edges.bottom();
                if (across || (down && !scrolledAway)) {
                    crossed.append(u"over the edge: "_s + wordsFor(text) + u" in "_s + wordsFor(outer));
                }
            }
            if (scrolledAway) {
                // Further out only the region itself has a place.
                ink &= edges;
                if (ink.isEmpty()) {
                    break;
                }
            }
        }
        return crossed;
    }

    Language m_language = Language::English;
    std::unique_ptr<PseudoTranslator> m_translator;
    std::unique_ptr<Tour> m_tour;
    int m_texts = 0;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_Layout)
#include "tst_Layout.moc"
