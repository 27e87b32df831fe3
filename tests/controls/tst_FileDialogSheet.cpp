// The dialog for files, as it is used by mouse, keyboard and assistive programs. What it lists is tested at FileDialog.

#include "controls/Scene.h"
#include "platform/FileDialog.h"
#include "support/Waiting.h"
#include "support/Window.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;

class tst_FileDialogSheet : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("HOME", QFile::encodeName(m_folder->path()));
        QDir(m_folder->path()).mkdir(u"archive"_s);
        for (const QString &name : {u"alpha.json"_s, u"beta.csv"_s, u"gamma.txt"_s}) {
            QFile file(m_folder->filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("{}\n") == 3);
        }
        m_picked.reset();
        m_scene = std::make_unique<Scene>(u"FileDialogSheet {}"_s);
        m_window = std::make_unique<Window>(m_scene->view);
    }
    void cleanup()
    {
        m_window.reset();
        m_scene.reset();
    }

    void isNotThereUntilAFileIsToBePicked()
    {
        QVERIFY(!sheet());
        opens();
        QCOMPARE(placeOf(sheet()).size(), QSizeF(720, 520));
        QVERIFY(m_window->shows(u"Choose a Dataset"_s));
        QVERIFY(m_window->shows(u"JSON, plain text, CSV"_s));
        QCOMPARE(names(), QStringList({u"archive"_s, u"alpha.json"_s, u"beta.csv"_s, u"gamma.txt"_s}));
        QCOMPARE(current(), u"archive"_s);
        QCOMPARE(m_window->field(u"Folder or file"_s)->property("text").toString(), m_folder->path());
    }

    void beginsANameFromRightToLeftAtTheLeftToo()
    {
        QVERIFY(QFile::rename(m_folder->filePath(u"gamma.txt"_s), m_folder->filePath(u"שלום.txt"_s)));
        opens();
        const QQuickItem *name = m_window->text(u"שלום.txt"_s);
        QCOMPARE(name->property("effectiveHorizontalAlignment").toInt(), int(Qt::AlignLeft));
    }

    void picksByADoubleClick()
    {
        opens();
        const QQuickItem *row = this->row(u"beta.csv"_s);
        m_window->click(row);
        QCOMPARE(current(), u"beta.csv"_s);
        QVERIFY(FileDialog::shared().isUp());
        QTest::mouseDClick(&m_scene->view, Qt::LeftButton, {}, placeOf(row).center().toPoint());
        QVERIFY(picks(u"beta.csv"_s));
        QTRY_VERIFY(!sheet());
    }

    void picksByTheButton()
    {
        opens();
        m_window->click(row(u"gamma.txt"_s));
        m_window->click(m_window->button(u"Open"_s));
        QVERIFY(picks(u"gamma.txt"_s));
    }

    void picksByTheKeyboard()
    {
        opens();
        m_window->press(Qt::Key_Down);
        QCOMPARE(current(), u"alpha.json"_s);
        m_window->press(Qt::Key_End);
        QCOMPARE(current(), u"gamma.txt"_s);
        m_window->press(Qt::Key_Down);
        QCOMPARE(current(), u"gamma.txt"_s);
        m_window->press(Qt::Key_Home);
        QCOMPARE(current(), u"archive"_s);
        m_window->press(Qt::Key_PageDown);
        QCOMPARE(current(), u"gamma.txt"_s);
        m_window->press(Qt::Key_PageUp);
        QCOMPARE(current(), u"archive"_s);
        m_window->press(Qt::Key_Down);
        m_window->press(Qt::Key_Return);
        QVERIFY(picks(u"alpha.json"_s));
    }

    void findsANameByItsLetters()
    {
        opens();
        m_window->type(u"b"_s);
        QCOMPARE(current(), u"beta.csv"_s);
        // What belongs to another name goes on from the letters before: there is no name with "bal".
        m_window->type(u"al"_s);
        QCOMPARE(current(), u"beta.csv"_s);
    }

    void findsTheFirstNameByItsLetters()
    {
        opens();
        m_window->press(Qt::Key_End);
        m_window->type(u"ar"_s);
        QCOMPARE(current(), u"archive"_s);
    }

    void goesThroughFoldersByTheKeyboard()
    {
        opens();
        m_window->press(Qt::Key_Return);
        QTRY_VERIFY(m_window->shows(u"Nothing here to choose"_s));
        QCOMPARE(FileDialog::shared().folder(), m_folder->filePath(u"archive"_s));
        QVERIFY(!m_window->button(u"Open"_s)->isEnabled());
        m_window->press(Qt::Key_Backspace);
        QTRY_COMPARE(names().size(), 4);
        QCOMPARE(current(), u"archive"_s);
        QVERIFY(m_window->button(u"Open"_s)->isEnabled());
        m_window->click(m_window->button(u"Up One Folder"_s));
        QTRY_COMPARE(FileDialog::shared().folder(), QFileInfo(m_folder->path()).path());
    }

    void goesToATypedPath()
    {
        opens();
        QQuickItem *path = m_window->field(u"Folder or file"_s);
        m_window->click(path);
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->type(u"nowhere"_s);
        m_window->press(Qt::Key_Return);
        QTRY_VERIFY(m_window->shows(u"No such file or directory"_s));
        // It stays where it is, and the keyboard in what is to be put right.
        QCOMPARE(names().size(), 4);
        QVERIFY(path->hasActiveFocus());
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->type(u"~/alpha.json"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(picks(u"alpha.json"_s));
    }

    void saysOnceWhatIsWrongWhereNothingIsListed()
    {
        opens();
        m_window->press(Qt::Key_Return);
        QTRY_VERIFY(m_window->shows(u"Nothing here to choose"_s));
        m_window->click(m_window->field(u"Folder or file"_s));
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->type(u"nowhere"_s);
        m_window->press(Qt::Key_Return);
        QTRY_VERIFY(m_window->shows(u"No such file or directory"_s));
        QVERIFY(m_window->shows(u"JSON, plain text, CSV"_s));
    }

    void closesWithoutAFile_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("Escape") << true;
        QTest::newRow("Cancel") << false;
    }
    void closesWithoutAFile()
    {
        QFETCH(bool, byKey);
        // Twice: it opens again.
        for (int i = 0; i < 2; ++i) {
            opens();
            if (byKey) {
                m_window->press(Qt::Key_Escape);
            } else {
                m_window->click(m_window->button(u"Cancel"_s));
            }
            QTRY_VERIFY(m_picked.has_value());
            QVERIFY(m_picked->isEmpty());
            QTRY_VERIFY(!sheet());
            QVERIFY(!FileDialog::shared().isUp());
        }
    }

    void isUsedByAssistivePrograms()
    {
        opens();
        QVERIFY(m_window->control(QAccessible::List, m_folder->path()));
        QQuickItem *beta = m_window->control(QAccessible::ListItem, u"beta.csv"_s);
        QVERIFY(beta);
        QAccessible::queryAccessibleInterface(beta)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QVERIFY(picks(u"beta.csv"_s));
    }

private:
    void opens()
    {
        m_picked.reset();
        FileRequest request{
            u"Choose a Dataset"_s, u"JSON, plain text, CSV"_s, {u"application/json"_s, u"text/plain"_s, u"text/csv"_s}};
        FileDialog::shared().pick(std::move(request)).then([this](Result<QList<QUrl>> picked) { m_picked = *picked; });
        QTRY_VERIFY(sheet() && m_window->all(u"FileDialogRow"_s).size() == 4);
    }

    bool picks(const QString &name) const
    {
        return eventually([this] { return m_picked.has_value(); })
            && *m_picked == QList<QUrl>{QUrl::fromLocalFile(m_folder->filePath(name))};
    }

    QQuickItem *sheet() const { return m_window->control(QAccessible::Dialog, u"Choose a Dataset"_s); }
    QQuickItem *row(const QString &name) const { return m_window->control(QAccessible::ListItem, name); }
    QStringList names() const
    {
        QStringList names;
        for (const QQuickItem *row : m_window->all(u"FileDialogRow"_s)) {
            names.append(row->property("identifier").toString());
        }
        return names;
    }
    QString current() const
    {
        for (const QQuickItem *row : m_window->all(u"FileDialogRow"_s)) {
            if (row->property("isCurrent").toBool()) {
                return row->property("identifier").toString();
            }
        }
        return u"(none)"_s;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Scene> m_scene;
    std::unique_ptr<Window> m_window;
    std::optional<QList<QUrl>> m_picked;
};

QTEST_MAIN(tst_FileDialogSheet)
#include "tst_FileDialogSheet.moc"
