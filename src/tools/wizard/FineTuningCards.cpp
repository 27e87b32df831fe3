#include "tools/wizard/FineTuningCards.h"

#include "app/theme/Color.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

struct Card {
    const char *title;
    const char *description;
    const char *icon;
    QColor color;
};

// Each table stands in the order of its enumeration.
const Card &card(FineTuningVocabulary::DatasetOption option)
{
    static const std::array<Card, 4> cards{{
        {QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Upload File"),
            QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "CSV, JSONL, TXT"), "arrow.up.doc.fill", Color::blue()},
        {QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Sample Dataset"),
            QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Pre-loaded examples"), "doc.text.fill", Color::green()},
        {QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Import URL"),
            QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Fetch from link"), "link.circle.fill", Color::purple()},
        {QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Database"),
            QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "SQL, MongoDB"), "cylinder.fill", Color::orange()},
    }};
    return cards.at(size_t(option));
}

const Card &card(FineTuningVocabulary::TrainingGoal goal)
{
    static const std::array<Card, 4> cards{{
        {QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "General Purpose"),
            QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Balanced performance"), "brain", Color::blue()},
        {QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Chatbot"),
            QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Optimized for dialogue"),
            "bubble.left.and.bubble.right.fill", Color::green()},
        {QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Classification"),
            QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Labeling & sorting"), "tag.fill", Color::orange()},
        {QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Code Generation"),
            QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Writing code"), "terminal.fill", Color::purple()},
    }};
    return cards.at(size_t(goal));
}

const char *description(FineTuningVocabulary::BaseModel model)
{
    static constexpr std::array<const char *, 4> descriptions{
        QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Fast & cost-effective"),
        QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "High reasoning capability"),
        QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Large context window"),
        QT_TRANSLATE_NOOP("quillmere::FineTuningCards", "Open source & flexible"),
    };
    return descriptions.at(size_t(model));
}

} // namespace

QString FineTuningCards::datasetTitle(FineTuningVocabulary::DatasetOption option)
{
    return tr(card(option).title);
}

QString FineTuningCards::datasetDescription(FineTuningVocabulary::DatasetOption option)
{
    return tr(card(option).description);
}

QString FineTuningCards::datasetIcon(FineTuningVocabulary::DatasetOption option)
{
    return QString::fromLatin1(card(option).icon);
}

QColor FineTuningCards::datasetColor(FineTuningVocabulary::DatasetOption option)
{
    return card(option).color;
}

QString FineTuningCards::modelName(FineTuningVocabulary::BaseModel model)
{
    return FineTuningVocabulary::displayName(model);
}

QString FineTuningCards::modelDescription(FineTuningVocabulary::BaseModel model)
{
    return tr(description(model));
}

QString FineTuningCards::goalTitle(FineTuningVocabulary::TrainingGoal goal)
{
    return tr(card(goal).title);
}

QString FineTuningCards::goalDescription(FineTuningVocabulary::TrainingGoal goal)
{
    return tr(card(goal).description);
}

QString FineTuningCards::goalIcon(FineTuningVocabulary::TrainingGoal goal)
{
    return QString::fromLatin1(card(goal).icon);
}

QColor FineTuningCards::goalColor(FineTuningVocabulary::TrainingGoal goal)
{
    return card(goal).color;
}

} // namespace quillmere
