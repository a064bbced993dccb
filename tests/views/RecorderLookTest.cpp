// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/MainMenu.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "tests/views/RecorderFixture.h"

#include <QAccessible>
#include <QLabel>

using namespace KeyboardShortcuts;

namespace {

class RecorderLookTest : public RecorderFixture
{
protected:
    RecorderLookTest() { open(); }

    /// The colour that is painted at a place of the recorder.
    QColor colorAt(const QPoint &place)
    {
        const QImage image = recorder().grab().toImage();
        return image.pixelColor(place * image.devicePixelRatio());
    }

    int width() { return recorder().intrinsicContentSize().width(); }
};

QAccessibleInterface *accessible(QWidget &widget)
{
    return QAccessible::queryAccessibleInterface(&widget);
}

} // namespace

TEST_F(RecorderLookTest, theCapsuleIsNeverNarrowerThanItsMinimum)
{
    setShortcut(Shortcut(Key::f5, {}), Name::contextHotKey());

    EXPECT_GE(width(), 130);
    EXPECT_GE(recorder().intrinsicContentSize().height(), 28);
    EXPECT_EQ(recorder().size(), recorder().sizeHint());
    EXPECT_EQ(recorder().bounds().size(), QSizeF(recorder().intrinsicContentSize()));
}

TEST_F(RecorderLookTest, theCapsuleGrowsWithItsText)
{
    const int before = width();
    layout.texts[9] = QString(30, u'w');
    emit layout.changed();

    EXPECT_GT(width(), before);
    const QFontMetrics metrics(recorder().font());
    EXPECT_GE(width(), metrics.horizontalAdvance(recorder().stringValue()) + 2 * 21);
}

TEST_F(RecorderLookTest, recordingChangesNoSize)
{
    const QSize before = recorder().sizeHint();
    const QRectF capsule = recorder().bounds();

    startRecording();

    EXPECT_EQ(recorder().sizeHint(), before);
    EXPECT_EQ(recorder().bounds(), capsule);
}

TEST_F(RecorderLookTest, theRingIsTwoPointsWideOneClearOfTheCapsuleAndOnlyWhileRecording)
{
    const QColor ring = paletteColors::highlight(recorder().palette());
    const int middle = recorder().width() / 2;
    EXPECT_NE(colorAt({middle, 0}), ring);

    startRecording();

    EXPECT_EQ(colorAt({middle, 0}), ring);
    EXPECT_EQ(colorAt({middle, 1}), ring);
    EXPECT_NE(colorAt({middle, 2}), ring);
    EXPECT_NE(colorAt({middle, 3}), ring);

    type(Qt::Key_Escape, Key::escape);
    EXPECT_NE(colorAt({middle, 0}), ring);
}

TEST_F(RecorderLookTest, theCapsuleIsOnBaseWithAnEdge)
{
    const QPalette palette = recorder().palette();
    EXPECT_EQ(colorAt({20, 8}), paletteColors::base(palette));
    EXPECT_NE(colorAt({recorder().width() / 2, 3}), paletteColors::base(palette));
}

TEST_F(RecorderLookTest, theEdgeIsTwoPointsOfFullTextInHighContrast)
{
    QPalette contrast(Qt::black, Qt::black);
    contrast.setColor(QPalette::WindowText, Qt::white);
    contrast.setColor(QPalette::Text, Qt::white);
    contrast.setColor(QPalette::Base, Qt::black);
    recorder().setPalette(contrast);
    const int middle = recorder().width() / 2;

    EXPECT_EQ(colorAt({middle, 3}), QColor(Qt::white));
    EXPECT_EQ(colorAt({middle, 4}), QColor(Qt::white));
    EXPECT_EQ(colorAt({middle, 5}), QColor(Qt::black));
}

TEST_F(RecorderLookTest, theClearButtonIsSevenPointsFromTheEnd)
{
    const QRectF capsule = recorder().bounds();
    const QRect target = recorder().cancelButton().geometry();

    EXPECT_EQ(target.right() + 1, qRound(capsule.right()));
    EXPECT_EQ((target.width() - ClearButton::kImage) / 2, 7);
    EXPECT_EQ(target.height(), qRound(capsule.height()));
}

TEST_F(RecorderLookTest, rightToLeftMovesTheClearButton)
{
    recorder().setLayoutDirection(Qt::RightToLeft);

    EXPECT_EQ(recorder().cancelButton().x(), qRound(recorder().bounds().left()));
}

TEST_F(RecorderLookTest, isKnownByItsCaptionAndItsShortcutInWords)
{
    QAccessibleInterface *interface = accessible(recorder());

    EXPECT_EQ(interface->role(), QAccessible::Button);
    EXPECT_EQ(interface->text(QAccessible::Name), caption + QStringLiteral(" Shift+Super+V"));
    EXPECT_EQ(interface->text(QAccessible::Description), QStringLiteral("Shift+Super+V"));
    EXPECT_EQ(recorder().toolTip(), QStringLiteral("Shift+Super+V"));
}

TEST_F(RecorderLookTest, anEmptyFieldIsDescribedByWhatToDo)
{
    setShortcut(std::nullopt, Name::contextHotKey());
    EXPECT_EQ(recorder().accessibleDescription(), QStringLiteral("Record Shortcut"));
    EXPECT_TRUE(recorder().toolTip().isEmpty());

    startRecording();
    EXPECT_EQ(recorder().accessibleDescription(), QStringLiteral("Press Shortcut"));
}

TEST_F(RecorderLookTest, pressingItForAScreenReaderStartsRecording)
{
    QAccessibleActionInterface *action = accessible(recorder())->actionInterface();
    ASSERT_TRUE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));

    action->doAction(QAccessibleActionInterface::pressAction());

    EXPECT_TRUE(recorder().isRecording());
}

TEST_F(RecorderLookTest, theClearButtonIsKnownByItsName)
{
    QAccessibleInterface *interface = accessible(recorder().cancelButton());

    EXPECT_EQ(interface->role(), QAccessible::Button);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Clear Shortcut"));
    EXPECT_EQ(recorder().cancelButton().toolTip(), QStringLiteral("Clear Shortcut"));
}

TEST_F(RecorderLookTest, theTextsAreInTheUsersLanguage)
{
    QLocale::setDefault(QLocale(QLocale::German));
    const RecorderCocoa german(Name::addHotKey(), links());

    EXPECT_EQ(german.placeholder(), QStringLiteral("Kürzel aufnehmen"));
}

TEST_F(RecorderLookTest, withALabelItIsARow)
{
    auto *label = qobject_cast<QLabel *>(row->label());

    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(row->hasLabel());
    EXPECT_EQ(label->text(), caption);
    EXPECT_LT(label->geometry().right(), recorder().x());
    EXPECT_EQ(recorder().geometry().right(), row->rect().right());
}

TEST_F(RecorderLookTest, withoutALabelItIsTheFieldAlone)
{
    Recorder alone(Name::addHotKey(), links());

    EXPECT_FALSE(alone.hasLabel());
    EXPECT_EQ(alone.sizeHint(), alone.control().sizeHint());
}

TEST(MainMenu, itemsHaveTheirTitlesKeysAndModifiers)
{
    QMenu menu;
    QAction *quit = menu.addAction(QStringLiteral("&Quit && Rest"));
    quit->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Q),
                        QKeySequence(Qt::META | Qt::ALT | Qt::SHIFT | Qt::Key_X)});

    const auto items = menuItems(menu.actions());

    ASSERT_EQ(items.size(), 3U);
    for (const MenuItem &item : items)
        EXPECT_EQ(item.title, QStringLiteral("Quit & Rest"));
    EXPECT_TRUE(items[0].keyEquivalent.isEmpty());
    EXPECT_EQ(items[1].keyEquivalent, QStringLiteral("q"));
    EXPECT_EQ(items[1].keyEquivalentModifierMask, Modifiers(Modifier::Control));
    EXPECT_EQ(items[2].keyEquivalent, QStringLiteral("x"));
    EXPECT_EQ(items[2].keyEquivalentModifierMask,
              Modifier::Command | Modifier::Option | Modifier::Shift);
}

TEST(MainMenu, keysThatTypeNothingAndSequencesHaveNoKeyEquivalent)
{
    QMenu menu;
    menu.addAction(QStringLiteral("Reload"))->setShortcut(Qt::Key_F5);
    menu.addAction(QStringLiteral("Two"))
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K, Qt::CTRL | Qt::Key_C));

    for (const MenuItem &item : menuItems(menu.actions()))
        EXPECT_TRUE(item.keyEquivalent.isEmpty());
}

TEST(MainMenu, submenusAreFollowed)
{
    QMenu menu;
    menu.addMenu(QStringLiteral("Outer"))
        ->addMenu(QStringLiteral("Inner"))
        ->addAction(QStringLiteral("Item"))
        ->setShortcut(Qt::CTRL | Qt::Key_I);

    const auto items = menuItems(menu.actions());

    ASSERT_EQ(items.size(), 1U);
    ASSERT_EQ(items[0].submenu.size(), 1U);
    ASSERT_EQ(items[0].submenu[0].submenu.size(), 2U);
    EXPECT_EQ(items[0].submenu[0].submenu[1].keyEquivalent, QStringLiteral("i"));
}
