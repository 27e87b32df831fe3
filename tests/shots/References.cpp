#include "shots/References.h"

#include "shots/Comparison.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

// Written into the file of a part: which picture it belongs onto, and where.
const auto groundKey = u"Ground"_s;
const auto placeKey = u"Place"_s;

qint64 areaOf(const QRect &place)
{
    return qint64(place.width()) * place.height();
}

} // namespace

void References::add(const QString &name, QSize size)
{
    const QString screen = u"%1 %2x%3"_s.arg(name.section(u'-', 0, 0)).arg(size.width()).arg(size.height());
    m_before[name] = m_states[screen];
    m_states[screen].append(name);
}

QImage References::load(const QString &name) const
{
    const QImage kept(path(name));
    const QString ground = kept.text(groundKey);
    if (ground.isEmpty() || !m_before.value(name).contains(ground)) {
        return kept;
    }
    QImage picture = load(ground);
    if (!picture.isNull()) {
        const QStringList place = kept.text(placeKey).split(u' ');
        QPainter painter(&picture);
        painter.drawImage(place.value(0).toInt(), place.value(1).toInt(), kept);
    }
    return picture;
}

bool References::store(const QString &name, const QImage &picture) const
{
    QImage part = picture;
    QRect smallest = picture.rect();
    for (const QString &ground : m_before.value(name)) {
        QRect place = changedPart(load(ground), picture);
        if (place.isEmpty()) {
            place = QRect(0, 0, 1, 1);
        }
        if (areaOf(place) < areaOf(smallest)) {
            smallest = place;
            part = picture.copy(place);
            part.setText(groundKey, ground);
            part.setText(placeKey, u"%1 %2"_s.arg(place.x()).arg(place.y()));
        }
    }
    constexpr int mostCompression = 0;
    return part.save(path(name), "PNG", mostCompression);
}

QStringList References::strays() const
{
    QStringList strays = m_folder.entryList({u"*.png"_s});
    strays.removeIf([this](const QString &file) { return m_before.contains(file.chopped(4)); });
    return strays;
}

} // namespace quillmere::testing
