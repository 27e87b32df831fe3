#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The vocabulary of DocumentationView.
namespace DocumentationVocabulary {
Q_NAMESPACE
QML_NAMED_ELEMENT(DocumentationVocabulary)

enum class DocCategory { GettingStarted, FineTuning, Datasets, Models, Api, Shortcuts };
Q_ENUM_NS(DocCategory)

// "Getting Started", "Fine-Tuning", "Datasets", "Models", "API Reference", "Keyboard Shortcuts".
QString rawValue(DocCategory category);

} // namespace DocumentationVocabulary

// The categories of the documentation: what each is called in the column and which page it opens.
class DocCategories : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QList<int> all READ all CONSTANT)

public:
    using DocCategory = DocumentationVocabulary::DocCategory;

    // In the order of the column.
    static QList<int> all();

    // For the eye, and so translated.
    Q_INVOKABLE static QString title(quillmere::DocumentationVocabulary::DocCategory category);
    Q_INVOKABLE static QString icon(quillmere::DocumentationVocabulary::DocCategory category);
    Q_INVOKABLE static QUrl page(quillmere::DocumentationVocabulary::DocCategory category);
};

} // namespace quillmere
