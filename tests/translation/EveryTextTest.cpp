// SPDX-License-Identifier: MIT
// Every text that a window shows, or tells a screen reader, goes through the translation. What is
// the user's own carries the mark of a translated text here.
#include "Quillery_Mac/app/Scenes.h"
#include "Quillery_Mac/clipboard/ClipHistoryView.h"
#include "Quillery_Mac/editor/AddSnippet.h"
#include "Quillery_Mac/editor/ContentViewMac.h"
#include "Quillery_Mac/menu/SnippetMenuView.h"
#include "tests/support/MenuBench.h"
#include "tests/translation/MarkingTranslator.h"
#include "tests/translation/ShownTexts.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QString own(const char *text)
{
    return MarkingTranslator::mark(QString::fromUtf8(text));
}

class EveryText : public ::testing::Test
{
protected:
    ContentViewMac &showLibrary()
    {
        EXPECT_TRUE(bench.context().save());
        library = std::make_unique<ContentViewMac>(
            EditorLinks{bench.context(), bench.funcs, bench.matcher, bench.pasteboard, [] {}});
        library->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(library.get()));
        return *library;
    }

    MarkingTranslator translator;
    MenuBench bench;
    std::unique_ptr<ContentViewMac> library;
};

} // namespace

TEST_F(EveryText, ofTheMenuIsTranslated)
{
    bench.hint.clear();
    bench.show(MenuBench::Form::MenuBar);

    EXPECT_EQ(unmarked(bench.panel), "");
}

TEST_F(EveryText, ofTheQuestionWhetherToClearTheHistoryIsTranslated)
{
    bench.hint.clear();
    bench.show();
    bench.menu->clearAlert = true;

    EXPECT_EQ(unmarked(bench.panel), "");
}

TEST_F(EveryText, ofTheHistoryIsTranslated)
{
    bench.addClip(" \n\t");
    bench.addClip(own("three\nlines\nhere").toUtf8());
    bench.show();
    QTest::keyClick(bench.menu, Qt::Key_Down);
    QTest::keyClick(bench.menu, Qt::Key_Right);
    ASSERT_EQ(bench.history()->column().rowsInView().size(), 2U);
    static_cast<ClipButton *>(bench.history()->column().rowWidget(0))->confirmDelete = true;

    EXPECT_EQ(unmarked(bench.panel.popover()), "");
}

TEST_F(EveryText, ofTheSnippetsIsTranslated)
{
    bench.addSnippet(QString(), "");
    bench.addSnippet(QString(), " ");
    bench.addFolder(QString());
    bench.show();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(bench.menu, Qt::Key_Down);
    ASSERT_EQ(bench.snippets()->column().rowsInView().size(), 3U);

    EXPECT_EQ(unmarked(bench.panel.popover()), "");
}

TEST_F(EveryText, ofTheLibraryIsTranslated)
{
    bench.addSnippet(QString(), "");
    bench.addFolder(QString());

    EXPECT_EQ(unmarked(showLibrary()), "");
    library->state().addSnippet();
    EXPECT_EQ(unmarked(*library), "");
    library->state().addFolder();
    EXPECT_EQ(unmarked(*library), "");
}

TEST_F(EveryText, ofWhatIsNewInTheLibraryIsTranslated)
{
    showLibrary();
    library->state().addSnippet();
    EXPECT_EQ(library->state().selected()->title(), own("New Snippet"));
    library->state().addFolder();
    EXPECT_EQ(library->state().selected()->title(), own("Folder"));
}

TEST_F(EveryText, ofTheFormIsTranslated)
{
    bench.addFolder(own("folder"));
    AddSnippet form(bench.context(), bench.pasteboard, false);
    form.show();
    form.selectedFolder = folderChoice::kCreateNew;

    EXPECT_EQ(unmarked(form), "");
}

TEST_F(EveryText, ofAFailedImportIsTranslated)
{
    QFile file(bench.folder.filePath(QStringLiteral("library.json")));
    for (const QByteArray &content :
         {QByteArray("[]"), QByteArray("{\"x\": 1}"), QByteArray("\xff"), QByteArray("{"),
          QByteArray(
              "{\"format\": \"Quillery library\", \"version\": 1, \"items\": [{\"id\": 0}]}"),
          QByteArray("{}")}) {
        showLibrary();
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        for (QAction *action : library->findChildren<QAction *>()) {
            if (action->text() == own("&Import…"))
                action->trigger();
        }
        auto *dialog = library->findChild<QFileDialog *>();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), own("Import"));
        for (const QString &filter : dialog->nameFilters())
            EXPECT_TRUE(MarkingTranslator::isMarked(filter)) << filter.toStdString();
        emit dialog->fileSelected(file.fileName());
        delete dialog;

        auto *alert = library->findChild<QMessageBox *>();
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(alert->text(), own("The file was not imported. Nothing was changed."));
        // Line, and what is wrong there.
        EXPECT_EQ(alert->informativeText().count(u'\u27e6'), 2) << content.constData();
        delete alert;
    }
}

TEST_F(EveryText, ofTheWindowTitlesIsTranslated)
{
    for (const Scene &scene : makeScenes({}))
        EXPECT_TRUE(MarkingTranslator::isMarked(scene.title)) << scene.title.toStdString();
}
