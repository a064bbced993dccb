// SPDX-License-Identifier: MIT
// The library window by keys and mouse.
#include "Quillery_Mac/app/Funcs.h"
#include "Quillery_Mac/editor/AddSnippet.h"
#include "Quillery_Mac/editor/ContentViewMac.h"
#include "Quillery_Mac/editor/LibraryActions.h"
#include "Quillery_Mac/editor/LibraryRowView.h"
#include "Quillery_Mac/editor/SnippetDetailMac.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "tests/editor/LibraryFixture.h"
#include "tests/fakes/FakePasteboard.h"

#include <QAccessible>
#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProxyStyle>
#include <QSplitter>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace {

/// Hears what screen readers are told, while it lives. One at a time.
class AccessibleEvents
{
public:
    AccessibleEvents()
    {
        heardOf().clear();
        setActive(true);
        QAccessible::installUpdateHandler([](QAccessibleEvent *event) {
            heardOf().emplace_back(event->type(), event->object());
        });
    }
    ~AccessibleEvents()
    {
        QAccessible::installUpdateHandler(nullptr);
        setActive(false);
    }
    Q_DISABLE_COPY_MOVE(AccessibleEvents)

    bool heard(QAccessible::Event type, const QObject &object) const
    {
        const auto &all = heardOf();
        return std::find(all.begin(), all.end(), std::pair(type, &object)) != all.end();
    }
    /// Whether the last of its type was of that object.
    bool isLast(QAccessible::Event type, const QObject &object) const
    {
        const auto &all = heardOf();
        const auto last = std::find_if(all.rbegin(), all.rend(),
                                       [type](const auto &one) { return one.first == type; });
        return last != all.rend() && last->second == &object;
    }

private:
    // As a screen reader does that starts. The display of these tests has none.
    static void setActive(bool active)
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
    }
    // The handler is a plain function.
    static std::vector<std::pair<QAccessible::Event, const QObject *>> &heardOf()
    {
        static std::vector<std::pair<QAccessible::Event, const QObject *>> events;
        return events;
    }
};

class LibraryViewTest : public LibraryFixture
{
protected:
    ContentViewMac &show()
    {
        EXPECT_TRUE(view().save());
        window = std::make_unique<ContentViewMac>(
            EditorLinks{view(), funcs, matcher, pasteboard, [] {}});
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QCoreApplication::processEvents();
        return *window;
    }
    void TearDown() override
    {
        window.reset();
        LibraryFixture::TearDown();
    }

    LibraryState &state() { return window->state(); }

    /// A row's widget, which must be in view.
    LibraryRowView &rowView(const std::string &title)
    {
        for (const auto &[number, widget] : window->list().column().rowsInView()) {
            auto *row = static_cast<LibraryRowView *>(widget);
            if (row->name().toStdString() == title)
                return *row;
        }
        throw std::runtime_error("no row " + title);
    }
    Names shown()
    {
        Names titles;
        for (const ShownRow &row : state().rows())
            titles.push_back((row.folder != nullptr ? "  " : "") + titleOf(*row.row->item));
        return titles;
    }
    std::string selection()
    {
        const Snippet *item = state().selected();
        return item != nullptr ? titleOf(*item) : "(none)";
    }
    void click(const std::string &title)
    {
        QTest::mouseClick(&rowView(title), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget()
                                                               : window.get(),
                        static_cast<Qt::Key>(key), modifiers);
        QCoreApplication::processEvents();
    }
    QStringList toolbarTexts()
    {
        QStringList texts;
        for (const QAction *action : window->findChild<QToolBar *>()->actions()) {
            if (action->isVisible())
                texts.append(action->text());
        }
        return texts;
    }
    /// An entry of the menu bar, as it is when its menu has been opened.
    QAction &menuAction(const char *text)
    {
        for (const QAction *entry : window->menuBar()->actions()) {
            entry->menu()->popup({});
            entry->menu()->close();
            for (QAction *action : entry->menu()->actions()) {
                if (action->text() == QString::fromUtf8(text))
                    return *action;
            }
        }
        throw std::runtime_error(text);
    }
    QPlainTextEdit &text() { return *window->detail()->findChild<QPlainTextEdit *>(); }

    /// Where a strip of a row is in the list.
    QPoint onStrip(const std::string &title, Strip strip)
    {
        LibraryRowView &row = rowView(title);
        const int y = strip == Strip::Above ? 3 : row.height() - 3;
        return row.mapTo(&window->list(), QPoint(60, y));
    }
    /// The pointer comes with a drag, and stops over a point.
    bool moveOver(const QMimeData &mime, QPoint point)
    {
        return moveOver(window->list(), mime, point);
    }
    bool moveOver(QWidget &target, const QMimeData &mime, QPoint point)
    {
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(point, actions, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        QDragMoveEvent move(point, actions, &mime, Qt::LeftButton, Qt::NoModifier);
        move.ignore();
        QApplication::sendEvent(&target, &move);
        return move.isAccepted();
    }
    bool dropOn(QWidget &target, const QMimeData &mime, QPoint point)
    {
        return actionOfDrop(target, mime, point) != Qt::IgnoreAction;
    }
    /// What the source of a drag is told: to delete what it gave, for a move. Nothing if the drop
    /// is refused.
    Qt::DropAction actionOfDrop(QWidget &target, const QMimeData &mime, QPoint point)
    {
        moveOver(target, mime, point);
        QDropEvent event(point, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton,
                         Qt::NoModifier);
        event.setDropAction(Qt::MoveAction);
        event.ignore();
        QApplication::sendEvent(&target, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    std::unique_ptr<QMimeData> rowData()
    {
        auto mime = std::make_unique<QMimeData>();
        mime->setData(QStringLiteral("application/x-quillery-row"), QByteArray());
        return mime;
    }

    /// The entry of the menu bar with that text.
    QAction &entry(const char *text)
    {
        for (const QAction *menu : window->menuBar()->actions()) {
            for (QAction *entry : menu->menu()->actions()) {
                if (entry->text().remove(u'&') == QLatin1String(text))
                    return *entry;
            }
        }
        throw std::runtime_error(text);
    }
    static QMenu *contextMenu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }
    static QRect onScreen(const QWidget &widget)
    {
        return {widget.mapToGlobal(QPoint()), widget.size()};
    }

    QAccessibleInterface &list()
    {
        return *QAccessible::queryAccessibleInterface(&window->list().column());
    }
    /// The names of what is below, as a screen reader goes through it; members indented.
    static Names outline(const QAccessibleInterface &above, const std::string &indent = {})
    {
        Names names;
        for (int i = 0; i < above.childCount(); ++i) {
            const QAccessibleInterface &row = *above.child(i);
            names.push_back(indent + row.text(QAccessible::Name).toStdString());
            for (const std::string &name : outline(row, indent + "  "))
                names.push_back(name);
        }
        return names;
    }

    FakePasteboard pasteboard;
    SnippetMatcher matcher{QLocale(QLocale::English)};
    Funcs funcs{[](bool, ManagedObjectContext &) { return new QWidget; }, [](QWidget &) {}};
    std::unique_ptr<ContentViewMac> window;
};

TEST_F(LibraryViewTest, anEmptyLibraryShowsThePlaceholder)
{
    show();

    EXPECT_EQ(window->detail(), nullptr);
    const auto labels = window->findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
        return label->isVisible() &&
               label->text() ==
                   QStringLiteral("<-- Select a Snippet. Press + to create a new Snippet");
    }));
    EXPECT_EQ(window->list().column().rowsInView().size(), 0U);
}

TEST_F(LibraryViewTest, theToolbarHasItsOrderAndDeleteOnlyWhileSomethingIsSelected)
{
    snippet("a");
    show();
    EXPECT_EQ(toolbarTexts(),
              (QStringList{QStringLiteral("Add Snippet"), QStringLiteral("Add Folder")}));

    click("a");

    EXPECT_EQ(toolbarTexts(),
              (QStringList{QStringLiteral("Add Snippet"), QStringLiteral("Add Folder"),
                           QStringLiteral("Delete")}));
    EXPECT_NE(window->detail(), nullptr);
    press(Qt::Key_F6);
    press(Qt::Key_Delete);
    EXPECT_EQ(toolbarTexts().size(), 2);
    EXPECT_EQ(window->detail(), nullptr);
    EXPECT_EQ(shown(), Names{});
}

TEST_F(LibraryViewTest, theToolbarShowsTheImagesOfItsCommands)
{
    snippet("a");
    show();
    click("a");
    const auto drawn = [this](const QIcon &icon) {
        return icon.pixmap(QSize(16, 16), 1).toImage();
    };
    const QColor color = paletteColors::text(window->palette());
    const QList<QAction *> entries = window->findChild<QToolBar *>()->actions();
    ASSERT_EQ(entries.size(), 3);

    int i = 0;
    for (const char *name : {"plus", "folder.badge.plus", "trash"}) {
        const QImage image = systemImage::pixmap(QLatin1String(name), 16, 1, color).toImage();
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(drawn(entries[i++]->icon()), image) << name;
    }
}

TEST_F(LibraryViewTest, F9HidesTheListAndShowsItAgain)
{
    show();
    QWidget &sidebar = *window->list().parentWidget();
    ASSERT_TRUE(state().columnVisibility.value());
    ASSERT_TRUE(sidebar.isVisible());

    press(Qt::Key_F9);
    EXPECT_FALSE(state().columnVisibility.value());
    EXPECT_FALSE(sidebar.isVisible());
    EXPECT_FALSE(entry("Show Sidebar").isChecked());

    press(Qt::Key_F9);
    EXPECT_TRUE(state().columnVisibility.value());
    EXPECT_TRUE(sidebar.isVisible());
    EXPECT_TRUE(entry("Show Sidebar").isChecked());
    press(Qt::Key_F9);
    press(Qt::Key_F6);
    EXPECT_TRUE(sidebar.isVisible());
    EXPECT_TRUE(window->list().hasFocus());
}

TEST_F(LibraryViewTest, theSidebarIsAtLeast215PointsWide)
{
    show();
    auto *split = window->findChild<QSplitter *>();
    EXPECT_EQ(split->sizes().first(), 215);

    split->setSizes({10, 700});

    EXPECT_EQ(split->sizes().first(), 215);
}

TEST_F(LibraryViewTest, aRowHasAStripOfFourteenPointsAboveAndTheRestBelow)
{
    snippet("a");
    show();

    const int line = rowView("a").fontMetrics().height();
    EXPECT_EQ(rowView("a").height(), std::max(28, line + 12));
    const QPoint top = rowView("a").mapTo(&window->list(), QPoint(0, 0));
    EXPECT_EQ(window->list().placeAt(top + QPoint(5, 13)).strip, Strip::Above);
    EXPECT_EQ(window->list().placeAt(top + QPoint(5, 14)).strip, Strip::Below);
    EXPECT_EQ(window->list().placeAt(top + QPoint(5, line + 12)).row, -1);
}

TEST_F(LibraryViewTest, theChevronOpensAFolderWithoutSelectingIt)
{
    Snippet &office = folder("Office", false);
    snippet("a");
    show();

    QTest::mouseClick(&rowView("Office"), Qt::LeftButton, {}, QPoint(12, 14));

    EXPECT_TRUE(office.expanded());
    EXPECT_EQ(selection(), "(none)");
    EXPECT_EQ(shown(), (Names{"Office", "  a"}));
    EXPECT_TRUE(rowView("Office").isExpanded());
}

TEST_F(LibraryViewTest, arrowKeysSelectAndOpenAndClose)
{
    snippet("a");
    Snippet &office = folder("Office", false);
    snippet("b");
    show();

    press(Qt::Key_F6);
    press(Qt::Key_End);
    EXPECT_EQ(selection(), "Office");
    press(Qt::Key_F6);
    press(Qt::Key_Right);
    EXPECT_TRUE(office.expanded());
    press(Qt::Key_Down);
    EXPECT_EQ(selection(), "b");
    press(Qt::Key_F6);
    press(Qt::Key_Left);
    EXPECT_EQ(selection(), "Office");
    press(Qt::Key_F6);
    press(Qt::Key_Left);
    EXPECT_FALSE(office.expanded());
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(selection(), "a");
}

TEST_F(LibraryViewTest, choosingARowPutsTheCursorIntoItsEditor)
{
    snippet("a");
    show();

    click("a");

    EXPECT_EQ(QApplication::focusWidget(), &text());
}

TEST_F(LibraryViewTest, whatIsTypedAsTitleShowsInTheListAtOnceAndIsSavedWithTheNextSelection)
{
    Snippet &a = snippet("a");
    snippet("b");
    show();
    click("a");
    auto *title = window->detail()->findChild<QLineEdit *>();
    title->setFocus();
    QTest::keyClicks(title, QStringLiteral("bc"));
    QCoreApplication::processEvents();
    EXPECT_EQ(a.title(), QStringLiteral("abc"));
    EXPECT_EQ(rowView("abc").name(), QStringLiteral("abc"));
    EXPECT_TRUE(view().hasChanges());

    click("b");

    EXPECT_FALSE(view().hasChanges());
    EXPECT_EQ(answer(snippetsFile(), "SELECT title FROM Snippet ORDER BY \"order\""), "abc");
}

TEST_F(LibraryViewTest, closingTheWindowSavesTheOpenEditor)
{
    snippet("a");
    show();
    click("a");
    QTest::keyClicks(&text(), QStringLiteral("x"));
    EXPECT_TRUE(view().hasChanges());

    window->close();

    EXPECT_FALSE(view().hasChanges());
}

TEST_F(LibraryViewTest, quittingWithAnEditorOpenSaves)
{
    snippet("a");
    show();
    click("a");
    QTest::keyClicks(&text(), QStringLiteral("x"));

    window.reset();

    EXPECT_FALSE(view().hasChanges());
}

using FatalLibraryView = LibraryViewTest;

TEST_F(FatalLibraryView, aSaveThatTheLibraryDroppedIsFatalWhenAnEditorDisappears)
{
    snippet("a");
    show();
    const char *refuse = "CREATE TRIGGER refuse BEFORE INSERT ON Snippet "
                         "BEGIN SELECT RAISE(ABORT, 'full'); END";
    execute(snippetsFile(), refuse);
    state().addSnippet();
    EXPECT_TRUE(view().hasChanges());

    EXPECT_DEATH(window->close(), "Unresolved error .*full");
    execute(snippetsFile(), "DROP TRIGGER refuse");
}

TEST_F(FatalLibraryView, whatIsTypedIsSavedBeforeAFullLibraryEndsTheProgram)
{
    snippet("a").setOrder(5);
    snippet("last").setOrder(32767);
    show();
    click("a");
    const auto typeAndEnd = [this](const auto &command) {
        tellWhenAborted(snippetsFile(), "SELECT group_concat(title || \"order\" || content) FROM "
                                        "(SELECT * FROM Snippet ORDER BY \"order\")");
        QTest::keyClicks(&text(), QStringLiteral("!"));
        command();
    };
    const char *saved = "Fatal error: order 32768 is out of range: it must be -32768 to 32767 "
                        "\\(key \"order\"\\)\nstored: a5text!,last32767text\n";

    EXPECT_DEATH(typeAndEnd([this] { state().addSnippet(); }), saved);
    EXPECT_DEATH(typeAndEnd([this] { state().dropText("dropped", std::nullopt, Strip::Above); }),
                 saved);
    EXPECT_DEATH(typeAndEnd([this] { AddSnippet(view(), pasteboard, false).addSnippet(); }), saved);
}

TEST_F(FatalLibraryView, whatIsTypedIsSavedBeforeAFolderTooManyEndsTheProgram)
{
    for (int i = 0; i < 32767; ++i)
        snippet("a");
    show();
    state().selectedItem = state().items.results().front()->id();
    const auto typeAndAdd = [this] {
        tellWhenAborted(snippetsFile(), "SELECT count(*) || max(content) FROM Snippet");
        QTest::keyClicks(&text(), QStringLiteral("!"));
        state().addFolder();
    };

    EXPECT_DEATH(typeAndAdd(), "Fatal error: order 32768 is out of range.*\nstored: 32767text!\n");
}

TEST_F(LibraryViewTest, aStoreThatCannotBeWrittenIsShownAndNothingIsSaid)
{
    snippet("a");
    snippet("b");
    folder("Office", false);
    snippet("c");
    EXPECT_TRUE(view().save());
    forgetLibrary();
    const auto user = openReadOnly();
    show();
    ASSERT_EQ(shown(), (Names{"a", "b", "Office"}));

    state().startDrag(*state().items.results()[0]);
    EXPECT_TRUE(dropOn(window->list(), *rowData(), onStrip("b", Strip::Below)));
    state().setExpanded(*state().items.results()[2], true);
    QCoreApplication::processEvents();

    EXPECT_TRUE(view().hasChanges());
    EXPECT_EQ(shown(), (Names{"a", "b", "Office"}));
    EXPECT_TRUE(window->isActiveWindow());
    EXPECT_EQ(window->findChild<QMessageBox *>(), nullptr);
    EXPECT_EQ(answer(snippetsFile(), "SELECT group_concat(title) FROM "
                                     "(SELECT title FROM Snippet ORDER BY \"order\")"),
              "a,b,Office,c");
}

TEST_F(LibraryViewTest, theArrowsPassOverRowsThatCannotBeSelected)
{
    snippet("a");
    snippet("b").setId(std::nullopt);
    Snippet &c = snippet("c");
    show();
    click("a");
    window->list().setFocus();

    press(Qt::Key_Down);
    EXPECT_EQ(state().selectedItem.value(), c.id());

    window->list().setFocus();
    press(Qt::Key_Up);
    EXPECT_EQ(state().selected()->title(), QStringLiteral("a"));
}

TEST_F(LibraryViewTest, aSelectedItemThatGoesElsewhereLeavesThePlaceholder)
{
    Snippet &a = snippet("a");
    show();
    click("a");

    view().deleteObject(a);
    EXPECT_TRUE(view().save());

    EXPECT_TRUE(QTest::qWaitFor([this] { return window->detail() == nullptr; }));
}

TEST_F(LibraryViewTest, typingInTheSearchFieldShowsWhatMatchesAndEscapeEverything)
{
    snippet("apple");
    snippet("pear");
    show();
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(QApplication::focusWidget(), &window->searchField());

    QTest::keyClicks(&window->searchField(), QStringLiteral("PEA"));

    EXPECT_EQ(shown(), Names{"pear"});
    press(Qt::Key_Return);
    EXPECT_EQ(selection(), "pear");
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_Escape);
    EXPECT_EQ(shown(), (Names{"apple", "pear"}));
    EXPECT_EQ(selection(), "pear");
}

TEST_F(LibraryViewTest, itemsMoveByKeys)
{
    snippet("a");
    snippet("b");
    show();
    click("b");

    press(Qt::Key_Up, Qt::AltModifier);

    EXPECT_EQ(shown(), (Names{"b", "a"}));
    EXPECT_EQ(window->list().accessibleDescription(), QStringLiteral("Moved above a"));
}

TEST_F(LibraryViewTest, anItemThatIsMovedStaysInView)
{
    for (int i = 0; i < 40; ++i)
        snippet(std::to_string(i).c_str());
    show();
    click("0");

    for (int i = 0; i < 39; ++i)
        press(Qt::Key_Down, Qt::AltModifier);

    EXPECT_EQ(shown().back(), "0");
    EXPECT_EQ(rowView("0").name(), QStringLiteral("0"));
}

TEST_F(LibraryViewTest, newItemsComeByKeys)
{
    show();

    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(selection(), "New Snippet");
    EXPECT_EQ(QApplication::focusWidget(), &text());
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);

    EXPECT_EQ(selection(), "Folder");
    EXPECT_EQ(shown(), (Names{"New Snippet", "Folder"}));
}

TEST_F(LibraryViewTest, aNewSnippetPushesTheRowsBelowItDown)
{
    snippet("a");
    show();
    const int height = rowView("a").height();

    press(Qt::Key_N, Qt::ControlModifier);

    EXPECT_LT(rowView("a").y(), height);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rowView("a").y() == height; }));
}

TEST_F(LibraryViewTest, aFolderThatOpensPushesTheRowsBelowItDown)
{
    Snippet &office = folder("Office", false);
    snippet("a");
    folder("Home");
    show();
    const int height = rowView("Home").height();

    state().setExpanded(office, true);
    QCoreApplication::processEvents();

    EXPECT_LT(rowView("Home").y(), 2 * height);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rowView("Home").y() == 2 * height; }));
}

TEST_F(LibraryViewTest, nothingMovesWhereTheDesktopWantsNoMotion)
{
    class StillStyle : public QProxyStyle
    {
    public:
        int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                      QStyleHintReturn *data) const override
        {
            return hint == SH_Widget_Animation_Duration
                       ? 0
                       : QProxyStyle::styleHint(hint, option, widget, data);
        }
    };
    snippet("a");
    show();
    StillStyle style;
    window->list().column().setStyle(&style);

    state().addSnippet();

    EXPECT_EQ(rowView("a").y(), rowView("a").height());
    window.reset();
}

TEST_F(LibraryViewTest, aRowDraggedOntoAStripShowsTheLineAndLandsThere)
{
    Snippet &a = snippet("a");
    snippet("b");
    show();
    state().startDrag(a);
    const auto mime = rowData();

    EXPECT_TRUE(moveOver(*mime, onStrip("b", Strip::Below)));
    EXPECT_TRUE(state().dropBelow.value());
    EXPECT_EQ(state().target.value().size(), 1);
    auto *line = window->list().findChild<QWidget *>(QStringLiteral("drop-line"));
    ASSERT_NE(line, nullptr);
    EXPECT_TRUE(line->isVisible());
    EXPECT_TRUE(dropOn(window->list(), *mime, onStrip("b", Strip::Below)));

    EXPECT_EQ(shown(), (Names{"b", "a"}));
    EXPECT_FALSE(line->isVisible());
    EXPECT_TRUE(state().target.value().isEmpty());
}

TEST_F(LibraryViewTest, aFolderOverTheUpperStripOfAMemberIsRefused)
{
    folder("Office");
    snippet("a");
    Snippet &home = folder("Home");
    show();
    state().startDrag(home);

    EXPECT_FALSE(moveOver(*rowData(), onStrip("a", Strip::Above)));
    EXPECT_TRUE(moveOver(*rowData(), onStrip("a", Strip::Below)));
}

TEST_F(LibraryViewTest, rowsThatScrollUnderARestingDragAreAimedAt)
{
    Snippet &first = snippet("first");
    for (int number = 0; number < 40; ++number)
        snippet("row");
    show();
    state().startDrag(first);
    EXPECT_TRUE(moveOver(*rowData(), QPoint(60, window->list().height() - 4)));
    const QMap<QUuid, bool> before = state().target.value();
    ASSERT_EQ(before.size(), 1);

    const auto isOther = [this, &before] {
        const QMap<QUuid, bool> now = state().target.value();
        return now.size() == 1 && now.firstKey() != before.firstKey();
    };
    EXPECT_TRUE(QTest::qWaitFor(isOther));
}

TEST_F(LibraryViewTest, aRowDroppedOutsideEveryRowStaysWhereItWas)
{
    Snippet &a = snippet("a");
    snippet("b");
    show();
    state().startDrag(a);
    const QPoint below(20, window->list().height() - 5);

    EXPECT_FALSE(moveOver(*rowData(), below));
    EXPECT_FALSE(dropOn(window->list(), *rowData(), below));

    EXPECT_EQ(shown(), (Names{"a", "b"}));
}

TEST_F(LibraryViewTest, aDraggedSnippetCarriesItsTextAndAFolderNone)
{
    const QByteArray bytes("one\r\n\ttwo\xc2\xa0");
    const Snippet &a = snippet("a", bytes);
    Snippet &office = folder("Office");
    office.setContent(QByteArray("a folder's"));

    const auto ofSnippet = LibraryList::dragData(a);
    EXPECT_EQ(ofSnippet->text(), QString::fromUtf8(bytes));
    EXPECT_EQ(ofSnippet->data(QStringLiteral("text/plain;charset=utf-8")), bytes);
    const auto ofFolder = LibraryList::dragData(office);
    EXPECT_FALSE(ofFolder->hasText());
    EXPECT_EQ(ofFolder->formats().size(), 1);
}

TEST_F(LibraryViewTest, aTextFromAnotherProgramBecomesASnippetWhereItIsDropped)
{
    snippet("a");
    snippet("b");
    show();
    QMimeData mime;
    const QByteArray bytes("one\r\n\ttwo\xc2\xa0");
    mime.setData(QStringLiteral("text/plain;charset=utf-8"), bytes);

    EXPECT_TRUE(moveOver(mime, onStrip("a", Strip::Below)));
    EXPECT_TRUE(dropOn(window->list(), mime, onStrip("a", Strip::Below)));

    EXPECT_EQ(shown(), (Names{"a", "", "b"}));
    EXPECT_EQ(state().selected()->content(), bytes);
    EXPECT_FALSE(view().hasChanges());
}

TEST_F(LibraryViewTest, aDroppedFileIsNoText)
{
    snippet("a");
    show();
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(QStringLiteral("/picture.png"))});

    EXPECT_FALSE(moveOver(mime, onStrip("a", Strip::Below)));
}

TEST_F(LibraryViewTest, aTextDroppedBesideTheListIsTheLastSnippet)
{
    snippet("a");
    ContentViewMac &library = show();
    library.setAcceptDrops(true); // as its scene wants
    QMimeData mime;
    mime.setText(QStringLiteral("dropped"));

    EXPECT_EQ(actionOfDrop(library, mime, QPoint(500, 200)), Qt::CopyAction);

    EXPECT_EQ(shown(), (Names{"a", ""}));
}

TEST_F(LibraryViewTest, anImportIsUndoneOnceByTheEditMenu)
{
    snippet("a");
    show();
    QFile file(LibraryFixture::StoreTest::folder.filePath(QStringLiteral("more.json")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "{\"format\": \"Quillery library\", \"version\": 1, \"items\": [{\"title\": \"More\"}]}");
    file.close();
    EXPECT_FALSE(menuAction("Undo I&mport").isEnabled());

    menuAction("&Import\u2026").trigger();
    auto *dialog = window->findChild<QFileDialog *>();
    ASSERT_NE(dialog, nullptr);
    emit dialog->fileSelected(file.fileName());
    dialog->close();
    EXPECT_EQ(shown(), (Names{"a", "More"}));

    QAction &undo = menuAction("Undo I&mport");
    EXPECT_TRUE(undo.isEnabled());
    undo.trigger();
    EXPECT_EQ(shown(), Names{"a"});
    EXPECT_EQ(answer(snippetsFile(), "SELECT group_concat(title) FROM Snippet"), "a");
    EXPECT_FALSE(menuAction("Undo I&mport").isEnabled());
}

TEST_F(LibraryViewTest, rowsAreKnownToScreenReaders)
{
    Snippet &office = folder("Office", false);
    snippet("a");
    show();
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(&rowView("Office"));

    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("Office"));
    EXPECT_TRUE(row->state().expandable);
    EXPECT_TRUE(row->state().collapsed);
    EXPECT_FALSE(row->state().selected);
    click("Office");
    EXPECT_TRUE(row->state().selected);
    state().setExpanded(office, true);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&rowView("Office"))->state().expanded);
}

TEST_F(LibraryViewTest, screenReadersKnowAFoldersRowsAsItsChildren)
{
    snippet("a");
    Snippet &office = folder("Office");
    snippet("b");
    snippet("c");
    folder("Empty");
    show();

    EXPECT_EQ(list().role(), QAccessible::List);
    EXPECT_EQ(list().text(QAccessible::Name), QStringLiteral("Snippets"));
    EXPECT_EQ(outline(list()), (Names{"a", "Office", "  b", "  c", "Empty"}));
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(&rowView("c"));
    EXPECT_EQ(row->parent()->text(QAccessible::Name), QStringLiteral("Office"));
    EXPECT_EQ(row->parent()->indexOfChild(row), 1);
    EXPECT_EQ(row->parent()->parent(), &list());
    EXPECT_EQ(list().indexOfChild(row->parent()), 1);
    EXPECT_EQ(list().indexOfChild(row), -1);

    state().setExpanded(office, false);
    EXPECT_EQ(outline(list()), (Names{"a", "Office", "Empty"}));
}

TEST_F(LibraryViewTest, screenReadersKnowTheRowsOutOfViewToo)
{
    folder("Office");
    for (int i = 0; i < 40; ++i)
        snippet(std::to_string(i).c_str());
    folder("Last", false);
    show();
    ASSERT_LT(window->list().column().rowsInView().size(), 40U);

    QAccessibleInterface *office = list().child(0);
    ASSERT_EQ(list().childCount(), 2);
    ASSERT_EQ(office->childCount(), 40);
    QAccessibleInterface *hidden = office->child(39);
    EXPECT_EQ(hidden->text(QAccessible::Name), QStringLiteral("39"));
    EXPECT_EQ(hidden->role(), QAccessible::ListItem);
    EXPECT_TRUE(hidden->state().offscreen);
    EXPECT_FALSE(office->state().offscreen);
    EXPECT_EQ(hidden->parent(), office);
    EXPECT_EQ(office->indexOfChild(hidden), 39);
    EXPECT_EQ(office->child(39), hidden);
    EXPECT_TRUE(list().child(1)->state().collapsed);

    hidden->actionInterface()->doAction(QAccessibleActionInterface::pressAction());

    EXPECT_EQ(selection(), "39");
    EXPECT_FALSE(hidden->state().offscreen);
    EXPECT_TRUE(hidden->state().selected);
    EXPECT_EQ(list().child(0)->indexOfChild(QAccessible::queryAccessibleInterface(&rowView("39"))),
              39);
    EXPECT_TRUE(list().child(0)->state().offscreen);
}

TEST_F(LibraryViewTest, aRowOutOfViewIsNoRowAnyMoreWhenThereAreFewer)
{
    Snippet &office = folder("Office");
    for (int i = 0; i < 40; ++i)
        snippet(std::to_string(i).c_str());
    show();
    QAccessibleInterface *hidden = list().child(0)->child(39);

    state().setExpanded(office, false);

    EXPECT_FALSE(hidden->isValid());
    EXPECT_EQ(hidden->text(QAccessible::Name), QString());
    EXPECT_EQ(hidden->childCount(), 0);
    EXPECT_TRUE(hidden->state().invalid);
}

TEST_F(LibraryViewTest, screenReadersOpenAndCloseFolders)
{
    Snippet &office = folder("Office", false);
    snippet("a");
    show();
    QAccessibleActionInterface *actions = list().child(0)->actionInterface();
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));

    actions->doAction(QAccessibleActionInterface::toggleAction());

    EXPECT_TRUE(office.expanded());
    EXPECT_EQ(outline(list()), (Names{"Office", "  a"}));
    QAccessibleActionInterface *ofSnippet = list().child(0)->child(0)->actionInterface();
    EXPECT_FALSE(ofSnippet->actionNames().contains(QAccessibleActionInterface::toggleAction()));
}

TEST_F(LibraryViewTest, screenReadersHearOfANewTitleOfARow)
{
    Snippet &a = snippet("a");
    show();
    const AccessibleEvents events;

    a.setTitle(QStringLiteral("renamed"));
    QCoreApplication::processEvents();

    EXPECT_TRUE(events.heard(QAccessible::NameChanged, rowView("renamed")));
}

TEST_F(LibraryViewTest, toScreenReadersTheSelectedRowHasTheFocusOfTheList)
{
    snippet("a");
    show();
    click("a");
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(&rowView("a"));
    EXPECT_FALSE(row->state().focused);
    const AccessibleEvents events;

    press(Qt::Key_F6);
    QCoreApplication::processEvents();

    EXPECT_TRUE(row->state().focused);
    EXPECT_EQ(list().focusChild(), row);
    EXPECT_TRUE(events.isLast(QAccessible::Focus, rowView("a")));
}

TEST_F(LibraryViewTest, theItemMenuOpensAndClosesTheSelectedFolder)
{
    Snippet &office = folder("Office", false);
    snippet("a");
    show();
    EXPECT_FALSE(entry("Open Folder").isEnabled());

    click("Office");
    entry("Open Folder").trigger();

    EXPECT_TRUE(office.expanded());
    entry("Close Folder").trigger();
    EXPECT_FALSE(office.expanded());
    state().setExpanded(office, true);
    EXPECT_TRUE(entry("Close Folder").isEnabled());
    click("a");
    EXPECT_FALSE(entry("Open Folder").isEnabled());
}

TEST_F(LibraryViewTest, theMenuKeyShowsTheMenuOfTheSelectedRowAtTheRow)
{
    folder("Office");
    snippet("a");
    show();
    click("a");
    press(Qt::Key_F6);

    press(Qt::Key_F10, Qt::ShiftModifier);

    ASSERT_NE(contextMenu(), nullptr);
    EXPECT_TRUE(onScreen(rowView("a")).adjusted(0, 0, 0, 2).contains(contextMenu()->pos()));
    EXPECT_TRUE(contextMenu()->actions().contains(&entry("Open Folder")));
    contextMenu()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(contextMenu(), nullptr);

    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&window->list(), &menuKey);

    ASSERT_NE(contextMenu(), nullptr);
    EXPECT_TRUE(onScreen(rowView("a")).adjusted(0, 0, 0, 2).contains(contextMenu()->pos()));
    contextMenu()->close();
}

TEST_F(LibraryViewTest, everythingInTheToolbarIsInTheMenusToo)
{
    snippet("a");
    show();
    click("a");
    QStringList entries;
    for (const QAction *menu : window->menuBar()->actions()) {
        for (const QAction *entry : menu->menu()->actions())
            entries.append(entry->text().remove(u'&'));
    }

    for (const QString &text : toolbarTexts())
        EXPECT_TRUE(entries.contains(text)) << text.toStdString();
    EXPECT_TRUE(entries.contains(QStringLiteral("Export Library…")));
    EXPECT_TRUE(entries.contains(QStringLiteral("Import…")));
}

} // namespace
