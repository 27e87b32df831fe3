// The order of versions, of which the lines of the input are three.
#include "Fuzz.h"

#include "app/UpdateManager.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillmere::fuzz {

namespace {

bool isNewer(const QString &version, const QString &newerThan)
{
    return UpdateManager::isVersion(version, newerThan);
}

QList<qint64> numbersOf(const QString &version)
{
    static const QRegularExpression wholeNumber(u"\\A[+-]?[0-9]+\\z"_s);
    QList<qint64> numbers;
    for (const QString &piece : version.split(u'.')) {
        bool fits = false;
        const qint64 number = piece.toLongLong(&fits);
        if (fits && wholeNumber.match(piece).hasMatch()) {
            numbers.append(number);
        }
    }
    return numbers;
}

bool isNewerByHand(const QString &version, const QString &newerThan)
{
    const QList<qint64> candidate = numbersOf(version);
    const QList<qint64> present = numbersOf(newerThan);
    for (qsizetype i = 0; i < std::max(candidate.size(), present.size()); ++i) {
        if (candidate.value(i) != present.value(i)) {
            return candidate.value(i) > present.value(i);
        }
    }
    return false;
}

} // namespace

void feed(const QByteArray &input)
{
    const QStringList lines = QString::fromUtf8(input).split(u'\n');
    const QString a = lines.value(0);
    const QString b = lines.value(1);
    const QString c = lines.value(2);
    HOLDS(isNewer(a, b) == isNewerByHand(a, b));
    HOLDS(!isNewer(a, a));
    HOLDS(!isNewer(a, b) || !isNewer(b, a));
    HOLDS(!isNewer(a, b) || !isNewer(b, c) || isNewer(a, c));
    HOLDS(isNewer(a, b) || isNewer(b, c) || !isNewer(a, c));
}

} // namespace quillmere::fuzz
