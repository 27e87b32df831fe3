#include "tools/documentation/DocCategories.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

using DocumentationVocabulary::DocCategory;

struct Entry {
    DocCategory category;
    const char *title;
    const char *icon;
    const char *page; // the QML type
};

constexpr std::array<Entry, 6> entries{{
    {DocCategory::GettingStarted, QT_TRANSLATE_NOOP("DocCategories", "Getting Started"), "play.circle",
        "GettingStartedContent"},
    {DocCategory::FineTuning, QT_TRANSLATE_NOOP("DocCategories", "Fine-Tuning"), "bolt", "FineTuningDocsContent"},
    {DocCategory::Datasets, QT_TRANSLATE_NOOP("DocCategories", "Datasets"), "cylinder.split.1x2",
        "DatasetsDocsContent"},
    {DocCategory::Models, QT_TRANSLATE_NOOP("DocCategories", "Models"), "cpu", "ModelsDocsContent"},
    {DocCategory::Api, QT_TRANSLATE_NOOP("DocCategories", "API Reference"), "curlybraces", "APIReferenceContent"},
    {DocCategory::Shortcuts, QT_TRANSLATE_NOOP("DocCategories", "Keyboard Shortcuts"), "keyboard",
        "KeyboardShortcutsContent"},
}};

const Entry &entryOf(DocCategory category)
{
    return entries.at(size_t(category));
}

} // namespace

QString DocumentationVocabulary::rawValue(DocCategory category)
{
    return QString::fromLatin1(entryOf(category).title);
}

QList<int> DocCategories::all()
{
    QList<int> all;
    for (const Entry &entry : entries) {
        all.append(int(entry.category));
    }
    return all;
}

QString DocCategories::title(DocCategory category)
{
    return QCoreApplication::translate("DocCategories", entryOf(category).title);
}

QString DocCategories::icon(DocCategory category)
{
    return QString::fromLatin1(entryOf(category).icon);
}

QUrl DocCategories::page(DocCategory category)
{
    return QUrl(u"qrc:/qt/qml/Quillmere/Tools/%1.qml"_s.arg(QString::fromLatin1(entryOf(category).page)));
}

} // namespace quillmere
