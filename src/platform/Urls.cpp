#include "platform/Urls.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

int effectivePort(const QUrl &url)
{
    return url.port(url.scheme() == u"https"_s ? 443 : 80);
}

// QUrl overlooks a broken escape before a letter beyond ASCII, and then takes every other escape in the text for plain text too.
bool hasBrokenEscape(const QString &text)
{
    static const QRegularExpression broken(u"%(?![0-9A-Fa-f]{2})"_s);
    return text.contains(broken);
}

} // namespace

std::optional<QUrl> parseUrl(const QString &text)
{
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid() || hasBrokenEscape(text)) {
        return {};
    }
    return url;
}

std::optional<QUrl> parseWebUrl(const QString &text)
{
    const bool printable =
        std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c >= u'\x21' && c <= u'\x7e'; });
    auto url = printable ? parseUrl(text) : std::nullopt;
    if (!url || (url->scheme() != u"http"_s && url->scheme() != u"https"_s) || url->host().isEmpty()) {
        return {};
    }
    return url;
}

bool isSameOrigin(const QUrl &a, const QUrl &b)
{
    return a.scheme() == b.scheme() && a.host() == b.host() && effectivePort(a) == effectivePort(b);
}

} // namespace quillmere
