// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/AddSnippet.h"

#include "Quillery_Mac/editor/ExactTextEdit.h"
#include "Quillery_Mac/ui/FieldPasting.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/logic/StoreTestSupport.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

class AddSnippetTest : public StoreTest
{
protected:
    void TearDown() override { form.reset(); }

    AddSnippet &show(bool copy = false)
    {
        form = std::make_unique<AddSnippet>(view(), pasteboard, copy);
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
        return *form;
    }

    void addItem(const char *title, qint16 order, bool isFolder = false)
    {
        Snippet &item = *addSnippet(QString::fromUtf8(title), order);
        item.setId(QUuid::createUuid());
        item.setIsFolder(isFolder);
    }

    // "title order" of every item, in order.
    std::vector<std::string> places() const
    {
        std::vector<std::string> result;
        for (const Snippet *item : view().fetch<Snippet>()) {
            const QString title = item->title().value_or(QStringLiteral("missing"));
            result.push_back(title.toStdString() + ' ' + std::to_string(item->order()));
        }
        return result;
    }
    Snippet &named(const char *title) const
    {
        for (Snippet *item : view().fetch<Snippet>()) {
            if (item->title() == QString::fromUtf8(title))
                return *item;
        }
        ADD_FAILURE() << title;
        return *view().fetch<Snippet>().front();
    }

    QComboBox &picker() const { return *form->findChild<QComboBox *>(); }
    QLineEdit &line(const char *name) const
    {
        for (QLineEdit *field : form->findChildren<QLineEdit *>()) {
            if (field->accessibleName() == QString::fromUtf8(name))
                return *field;
        }
        ADD_FAILURE() << name;
        return *form->findChild<QLineEdit *>();
    }
    ExactTextEdit &content() const { return *form->findChild<ExactTextEdit *>(); }
    QPushButton &button(const char *name) const
    {
        for (QPushButton *candidate : form->findChildren<QPushButton *>()) {
            if (candidate->text() == QString::fromUtf8(name))
                return *candidate;
        }
        ADD_FAILURE() << name;
        return *form->findChild<QPushButton *>();
    }
    // As a user does, from the last chosen entry on.
    void choose(const char *entry)
    {
        picker().setFocus();
        const int index = picker().findText(QString::fromUtf8(entry));
        ASSERT_GE(index, 0);
        while (picker().currentIndex() < index)
            QTest::keyClick(&picker(), Qt::Key_Down);
    }

    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    FakePasteboard pasteboard;
    std::unique_ptr<AddSnippet> form;
};

using Places = std::vector<std::string>;

} // namespace

TEST_F(AddSnippetTest, aFreshFormIsEmptyWithTheCursorInTheTitle)
{
    show();

    EXPECT_EQ(form->title.value(), QString());
    EXPECT_EQ(form->text.value(), QByteArray());
    EXPECT_EQ(form->newFolder.value(), QString());
    EXPECT_EQ(form->selectedFolder.value(), -1);
    EXPECT_FALSE(form->doCopy);
    EXPECT_TRUE(line("Title").hasFocus());
    EXPECT_EQ(form->focusedField.value(), AddSnippet::Field::title);
    EXPECT_EQ(form->width(), 420);
}

TEST_F(AddSnippetTest, screenReadersKnowTheFormAsADialog)
{
    show();
    form->setWindowTitle(QStringLiteral("Add Snippet"));

    const QAccessibleInterface *dialog = QAccessible::queryAccessibleInterface(form.get());

    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_EQ(dialog->text(QAccessible::Name), QStringLiteral("Add Snippet"));
}

TEST_F(AddSnippetTest, screenReadersKnowThePickerByItsNameWithTheChoiceAsItsValue)
{
    addItem("Office", 7, true);
    show();
    QAccessibleInterface *known = QAccessible::queryAccessibleInterface(&picker());

    EXPECT_EQ(known->role(), QAccessible::ComboBox);
    EXPECT_EQ(known->text(QAccessible::Name), QStringLiteral("Folder"));
    EXPECT_EQ(known->text(QAccessible::Value), QStringLiteral("None"));
    choose("Office");
    EXPECT_EQ(known->text(QAccessible::Name), QStringLiteral("Folder"));
    EXPECT_EQ(known->text(QAccessible::Value), QStringLiteral("Office"));
    EXPECT_EQ(known->text(QAccessible::Description), QStringLiteral("Office"));

    EXPECT_TRUE(known->state().collapsed);
    known->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(known->state().expanded);
    EXPECT_EQ(known->child(0)->role(), QAccessible::List);
    known->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(known->state().collapsed);
}

TEST_F(AddSnippetTest, thePickerOffersTheFoldersInOrder)
{
    addItem("b", 7, true);
    addItem("snippet", 2);
    addItem("a", 9, true);
    show();

    QStringList texts;
    QList<int> codes;
    for (int i = 0; i < picker().count(); ++i) {
        texts.append(picker().itemText(i));
        codes.append(picker().itemData(i).toInt());
    }
    EXPECT_EQ(texts, (QStringList{QStringLiteral("None"), QStringLiteral("b"), QStringLiteral("a"),
                                  QStringLiteral("Create new folder...")}));
    EXPECT_EQ(codes, (QList<int>{-1, 7, 9, -10}));
    EXPECT_EQ(picker().currentText(), QStringLiteral("None"));
}

TEST_F(AddSnippetTest, theSecondOfTwoFoldersWithOneNumberCanBeChosen)
{
    addItem("one", 7, true);
    addItem("two", 7, true);
    show();

    choose("two");

    EXPECT_EQ(picker().currentText(), QStringLiteral("two"));
    EXPECT_EQ(form->selectedFolder.value(), 7);
}

TEST_F(AddSnippetTest, withNoneTheSnippetIsTheFirst)
{
    addItem("a", 0);
    addItem("b", 1, true);
    show();
    QTest::keyClicks(&line("Title"), QStringLiteral("new"));
    QTest::keyClicks(&content(), QStringLiteral("text"));

    QTest::mouseClick(&button("Add Snippet"), Qt::LeftButton);

    EXPECT_EQ(places(), (Places{"new 0", "a 1", "b 2"}));
    const Snippet &added = named("new");
    EXPECT_EQ(added.content(), QByteArray("text"));
    EXPECT_FALSE(added.isFolder());
    EXPECT_TRUE(added.id());
    EXPECT_LT(added.timestamp()->secsTo(QDateTime::currentDateTimeUtc()), 60);
    EXPECT_FALSE(view().hasChanges());
    EXPECT_FALSE(form->isVisible());
}

TEST_F(AddSnippetTest, inAFolderTheSnippetIsTheFirstMember)
{
    addItem("top", 3);
    addItem("folder", 4, true);
    addItem("member", 5);
    addItem("other", 7, true);
    show();
    choose("folder");
    EXPECT_EQ(form->selectedFolder.value(), 4);

    form->title = QStringLiteral("new");
    form->addSnippet();

    EXPECT_EQ(places(), (Places{"top 3", "folder 4", "new 5", "member 6", "other 8"}));
}

TEST_F(AddSnippetTest, aNewFolderComesLastAndTheSnippetRightBehindIt)
{
    addItem("a", 2);
    addItem("z", 9);
    show();
    choose("Create new folder...");
    QTest::keyClicks(&line("New folder name:"), QStringLiteral("House"));
    QTest::keyClicks(&line("Title"), QStringLiteral("new"));

    form->addSnippet();

    EXPECT_EQ(places(), (Places{"a 2", "z 9", "House 10", "new 11"}));
    EXPECT_TRUE(named("House").isFolder());
    EXPECT_FALSE(named("House").expanded());
    EXPECT_EQ(named("House").content(), QByteArray(""));
    EXPECT_FALSE(named("new").isFolder());
}

TEST_F(AddSnippetTest, aNewFolderInAnEmptyStoreIsNumberOne)
{
    show();
    form->selectedFolder = folderChoice::kCreateNew;
    form->newFolder = QStringLiteral("folder");
    form->title = QStringLiteral("new");

    form->addSnippet();

    EXPECT_EQ(places(), (Places{"folder 1", "new 2"}));
}

TEST_F(AddSnippetTest, theFieldForTheNewFolderAppearsAndTakesTheCursor)
{
    show();
    const int height = form->height();
    EXPECT_FALSE(line("New folder name:").isVisible());

    choose("Create new folder...");
    settle();

    EXPECT_TRUE(line("New folder name:").isVisible());
    EXPECT_TRUE(line("New folder name:").hasFocus());
    EXPECT_GT(form->height(), height);
    EXPECT_EQ(form->width(), 420);
    form->selectedFolder = folderChoice::kNone;
    settle();
    EXPECT_FALSE(line("New folder name:").isVisible());
    EXPECT_EQ(form->height(), height);
}

TEST_F(AddSnippetTest, nothingMovesSidewaysWhenTheFieldAppears)
{
    show();
    const int before = content().mapTo(form.get(), QPoint()).x();
    form->selectedFolder = folderChoice::kCreateNew;
    settle();
    EXPECT_EQ(content().mapTo(form.get(), QPoint()).x(), before);
}

TEST_F(AddSnippetTest, emptyTextsAreAllowed)
{
    show();
    form->addSnippet();

    ASSERT_EQ(view().count<Snippet>(), 1);
    EXPECT_EQ(answer(snippetsFile(), "SELECT typeof(title) || ':' || title || ',' || "
                                     "length(content) FROM Snippet"),
              "text:,0");
}

TEST_F(AddSnippetTest, textsAreTakenAsTheyWereTyped)
{
    const FieldPasting pasting(pasteboard);
    const QByteArray bytes("  a\r\nb\r\xff\xc2\xa0\t ");
    pasteboard.text = bytes;
    show();
    QTest::keyClicks(&line("Title"), QStringLiteral("  t  "));
    content().setFocus();
    QTest::keyClick(&content(), Qt::Key_V, Qt::ControlModifier);
    form->addSnippet();

    EXPECT_EQ(named("  t  ").content(), bytes);
}

TEST_F(AddSnippetTest, returnInATitleFieldAdds)
{
    show();
    QTest::keyClicks(&line("Title"), QStringLiteral("new"));
    QTest::keyClick(&line("Title"), Qt::Key_Return);
    EXPECT_EQ(places(), Places{"new 0"});
    EXPECT_FALSE(form->isVisible());

    show();
    form->selectedFolder = folderChoice::kCreateNew;
    QTest::keyClick(&line("New folder name:"), Qt::Key_Enter);
    EXPECT_EQ(view().count<Snippet>(), 3);
}

TEST_F(AddSnippetTest, inTheTextReturnIsTextAndControlReturnAdds)
{
    show();
    content().setFocus();
    QTest::keyClicks(&content(), QStringLiteral("a"));
    QTest::keyClick(&content(), Qt::Key_Return);
    EXPECT_EQ(form->text.value(), "a\n");
    EXPECT_EQ(view().count<Snippet>(), 0);

    QTest::keyClick(&content(), Qt::Key_Return, Qt::ControlModifier);

    ASSERT_EQ(view().count<Snippet>(), 1);
    EXPECT_EQ(view().fetch<Snippet>().front()->content(), QByteArray("a\n"));
    EXPECT_FALSE(form->isVisible());
}

TEST_F(AddSnippetTest, escapeAndCancelChangeNothing)
{
    for (const bool byKey : {true, false}) {
        show();
        QTest::keyClicks(&line("Title"), QStringLiteral("new"));
        content().setFocus();
        if (byKey)
            QTest::keyClick(&content(), Qt::Key_Escape);
        else
            QTest::mouseClick(&button("Cancel"), Qt::LeftButton);

        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(view().count<Snippet>(), 0);
        EXPECT_FALSE(view().hasChanges());
    }
}

TEST_F(AddSnippetTest, addSnippetIsTheDefaultButton)
{
    show();
    EXPECT_TRUE(button("Add Snippet").isDefault());
    EXPECT_FALSE(button("Cancel").isDefault());
    EXPECT_LT(button("Cancel").x(), button("Add Snippet").x());
    button("Cancel").setFocus();
    QTest::keyClick(&button("Cancel"), Qt::Key_Return);
    EXPECT_EQ(view().count<Snippet>(), 0);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(AddSnippetTest, theCopyVariantStartsWithTheCopiedText)
{
    pasteboard.text = "Lindenweg 4\r\n8005 Z\xc3\xbcrich";
    show(true);

    EXPECT_EQ(form->text.value(), *pasteboard.text);
    EXPECT_EQ(content().utf8(), *pasteboard.text);
    EXPECT_EQ(form->title.value(), QString());
    EXPECT_TRUE(line("Title").hasFocus());
    form->addSnippet();
    EXPECT_EQ(view().fetch<Snippet>().front()->content(), pasteboard.text);
}

TEST_F(AddSnippetTest, theTextIsReadWhenTheFormAppearsAndOnlyForACopy)
{
    pasteboard.text = "early";
    form = std::make_unique<AddSnippet>(view(), pasteboard, true);
    pasteboard.text = "when it appears";
    form->show();
    EXPECT_EQ(form->text.value(), "when it appears");

    EXPECT_EQ(show(false).text.value(), QByteArray());
    pasteboard.copyElsewhere("later");
    EXPECT_EQ(form->text.value(), QByteArray());
}

TEST_F(AddSnippetTest, aPasteboardWithoutTextGivesAnEmptyText)
{
    pasteboard.text = "old";
    pasteboard.copyElsewhere(std::nullopt);
    show(true);

    EXPECT_EQ(form->text.value(), QByteArray());
    EXPECT_EQ(content().utf8(), "");
}

TEST_F(AddSnippetTest, aTextThatArrivesLateFillsAnUntouchedField)
{
    show(true);
    QTest::keyClicks(&line("Title"), QStringLiteral("my title"));
    pasteboard.copyElsewhere("late");
    EXPECT_EQ(content().utf8(), "late");
    EXPECT_EQ(form->title.value(), QStringLiteral("my title"));

    QTest::keyClicks(&content(), QStringLiteral("x"));
    const QByteArray mine = content().utf8();
    pasteboard.copyElsewhere("another");
    EXPECT_EQ(content().utf8(), mine);
}

TEST_F(AddSnippetTest, whatIsCopiedWhileAnotherWindowIsInUseDoesNotReplaceTheText)
{
    pasteboard.copyElsewhere("prefilled");
    show(true);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));

    pasteboard.copyElsewhere("for the title");

    EXPECT_EQ(content().utf8(), "prefilled");
}

TEST_F(AddSnippetTest, aSecondReturnBeforeTheFormIsGoneAddsNothing)
{
    show();
    form->dismiss = [] {};
    QTest::keyClicks(&line("Title"), QStringLiteral("once"));

    QTest::keyClick(&line("Title"), Qt::Key_Return);
    QTest::keyClick(&line("Title"), Qt::Key_Return);

    EXPECT_EQ(places(), (Places{"once 0"}));
}

TEST_F(AddSnippetTest, whatIsCopiedInTheFormDoesNotReplaceItsText)
{
    pasteboard.copyElsewhere("prefilled");
    show(true);
    QTest::keyClick(&content(), Qt::Key_C, Qt::ControlModifier);

    pasteboard.copyElsewhere("fill");

    EXPECT_EQ(content().utf8(), "prefilled");
}

TEST_F(AddSnippetTest, aClipboardThatIsEmptiedLaterLeavesTheText)
{
    pasteboard.copyElsewhere("prefilled");
    show(true);

    pasteboard.copyElsewhere(std::nullopt);

    EXPECT_EQ(content().utf8(), "prefilled");
}

TEST_F(AddSnippetTest, aSaveThatFailsIsSilentAndTheNextOneWrites)
{
    addItem("a", 0);
    ASSERT_TRUE(view().save());
    show();
    QTest::keyClicks(&line("Title"), QStringLiteral("new"));
    execute(snippetsFile(), "ALTER TABLE Snippet RENAME TO Hidden");

    form->addSnippet();

    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(places(), (Places{"new 0", "a 1"}));
    EXPECT_EQ(answer(snippetsFile(), "SELECT count(*) || title FROM Hidden"), "1a");
    execute(snippetsFile(), "ALTER TABLE Hidden RENAME TO Snippet");
    ASSERT_TRUE(view().save());
    EXPECT_EQ(answer(snippetsFile(), "SELECT group_concat(title || \"order\") FROM (SELECT * FROM "
                                     "Snippet ORDER BY \"order\")"),
              "new0,a1");
}

TEST_F(AddSnippetTest, aStoreThatCannotBeWrittenClosesTheFormAndNothingIsSaid)
{
    addItem("a", 0);
    EXPECT_TRUE(view().save());
    const auto user = openReadOnly();
    show();
    QTest::keyClicks(&line("Title"), QStringLiteral("new"));

    form->addSnippet();

    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(places(), (Places{"new 0", "a 1"}));
    EXPECT_TRUE(view().hasChanges());
    const QWidgetList windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::ranges::none_of(windows, &QWidget::isVisible));
    EXPECT_EQ(answer(snippetsFile(), "SELECT group_concat(title) FROM Snippet"), "a");
}

TEST_F(AddSnippetTest, aNumberOutsideTheRangeIsFatal)
{
    addItem("last", 32767);
    show();
    EXPECT_DEATH(form->addSnippet(), "order 32768 is out of range");
    EXPECT_DEATH(
        {
            form->selectedFolder = folderChoice::kCreateNew;
            form->addSnippet();
        },
        "order 32768 is out of range");
    form->selectedFolder = 32767;
    EXPECT_DEATH(form->addSnippet(), "order 32768 is out of range");
}

TEST_F(AddSnippetTest, noFolderIsMadeWithoutRoomForItsSnippet)
{
    addItem("last", 32766);
    EXPECT_TRUE(view().save());
    show();
    form->selectedFolder = folderChoice::kCreateNew;

    const auto add = [this] {
        tellWhenAborted(snippetsFile(), "SELECT group_concat(title) FROM Snippet");
        form->addSnippet();
    };

    EXPECT_DEATH(add(), "order 32768 is out of range.*\nstored: last\n");
}

TEST_F(AddSnippetTest, theChoiceIsANumberEvenWhenTheStoreChanges)
{
    addItem("folder", 4, true);
    show();
    choose("folder");

    named("folder").setOrder(6);
    settle();
    EXPECT_EQ(form->selectedFolder.value(), 4);
    EXPECT_EQ(picker().currentIndex(), -1);
    addItem("other", 4, true);
    settle();
    EXPECT_EQ(picker().currentText(), QStringLiteral("other"));
    view().deleteObject(named("other"));
    settle();

    form->title = QStringLiteral("new");
    form->addSnippet();
    EXPECT_EQ(places(), (Places{"new 5", "folder 7"}));
}

TEST_F(AddSnippetTest, cellsAndFieldsFollowEachOther)
{
    show();
    form->title = QStringLiteral("a");
    form->text = "b\r\n";
    form->newFolder = QStringLiteral("c");
    EXPECT_EQ(line("Title").text(), QStringLiteral("a"));
    EXPECT_EQ(content().utf8(), "b\r\n");
    EXPECT_EQ(line("New folder name:").text(), QStringLiteral("c"));

    form->focusedField = AddSnippet::Field::text;
    EXPECT_TRUE(content().hasFocus());
    content().moveCursor(QTextCursor::End);
    QTest::keyClicks(&content(), QStringLiteral("d"));
    EXPECT_EQ(form->text.value(), "b\r\nd");
}

TEST_F(AddSnippetTest, itClosesTheWindowItStandsIn)
{
    QWidget window;
    auto *inner = new AddSnippet(view(), pasteboard, false, &window);
    window.show();
    ASSERT_TRUE(inner->isVisible());

    inner->cancel();

    EXPECT_FALSE(window.isVisible());
}

TEST_F(AddSnippetTest, veryLongTextsAreTaken)
{
    show();
    const QByteArray bytes(10000000, 'x');
    form->text = bytes;
    QTest::keyClicks(&content(), QStringLiteral("y"));
    form->addSnippet();

    EXPECT_EQ(view().fetch<Snippet>().front()->content()->size(), 10000001);
}

TEST_F(AddSnippetTest, aLongTitleAndALongFolderNameAreTakenWhole)
{
    const FieldPasting pasting(pasteboard);
    const QString name = QStringLiteral(" \U0001f469b\n").repeated(2000000);
    pasteboard.copyElsewhere(name.toUtf8());
    show();
    form->selectedFolder = folderChoice::kCreateNew;

    for (const char *field : {"Title", "New folder name:"})
        QTest::keyClick(&line(field), Qt::Key_V, Qt::ControlModifier);
    form->addSnippet();

    const std::vector<Snippet *> items = view().fetch<Snippet>();
    ASSERT_EQ(items.size(), 2U);
    for (const Snippet *item : items)
        EXPECT_TRUE(item->title() == name);
}

TEST_F(AddSnippetTest, theCaptionsStandInOrder)
{
    show();
    QStringList captions;
    for (const QLabel *label : form->findChildren<QLabel *>())
        captions.append(label->text());
    EXPECT_EQ(captions,
              (QStringList{QStringLiteral("Title"), QStringLiteral("Content"),
                           QStringLiteral("Folder"), QStringLiteral("New folder name:")}));
}
