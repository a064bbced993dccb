// SPDX-License-Identifier: MIT
// The first-run setup, walked through by key and mouse.
#include "Quillery_Mac/settings/onboarding/FirstLoadView.h"

#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/settings/HistorySizeSlider.h"
#include "Quillery_Mac/settings/onboarding/ClipHistoryToggleView.h"
#include "Quillery_Mac/settings/onboarding/SummaryView.h"
#include "Quillery_Mac/settings/onboarding/WelcomeView.h"
#include "tests/views/SettingsFixture.h"

#include <QLabel>
#include <QPushButton>

namespace {

class FirstLoadViewTest : public SettingsFixture
{
protected:
    FirstLoadView &open()
    {
        view =
            std::make_unique<FirstLoadView>(defaults, recorderLinks(), [this] { return missing; });
        show(*view);
        return *view;
    }

    QPushButton &button(const char *text) const
    {
        const auto buttons = view->findChildren<QPushButton *>();
        for (QPushButton *one : buttons) {
            if (one->text() == QLatin1String(text))
                return *one;
        }
        throw std::runtime_error(text);
    }
    bool hasButton(const char *text) const
    {
        const auto buttons = view->findChildren<QPushButton *>();
        return std::any_of(buttons.begin(), buttons.end(), [text](const QPushButton *one) {
            return one->text() == QLatin1String(text);
        });
    }
    void click(const char *text) const { QTest::mouseClick(&button(text), Qt::LeftButton); }
    void next(int times) const
    {
        for (int time = 0; time < times; ++time)
            click("Next");
    }

    QWidget &page(std::size_t index) const { return *view->flow.views.at(index); }
    /// Once nothing slides any more.
    bool isAlone(std::size_t index) const
    {
        return QTest::qWaitFor([this, index] {
            for (std::size_t other = 0; other < view->flow.views.size(); ++other) {
                if (page(other).isVisible() != (other == index))
                    return false;
            }
            return page(index).pos() == QPoint(0, 0);
        });
    }

    static QStringList texts(const QWidget &page)
    {
        QStringList result;
        for (const QLabel *label : page.findChildren<QLabel *>()) {
            if (label->isVisible() && !label->text().isEmpty())
                result.append(label->text());
        }
        return result;
    }

    std::unique_ptr<FirstLoadView> view;
    QString missing;
};

} // namespace

TEST_F(FirstLoadViewTest, isTitledWhenItIsShown)
{
    open();

    EXPECT_EQ(view->windowTitle(), QStringLiteral("Quillery Setup"));
}

TEST_F(FirstLoadViewTest, thePagesHaveTheirTexts)
{
    open();
    EXPECT_EQ(texts(page(0)), (QStringList{QStringLiteral("Welcome to Quillery"),
                                           QStringLiteral("Let's quickly set up some key "
                                                          "features.")}));
    next(1);
    EXPECT_TRUE(texts(page(1)).contains(
        QStringLiteral("Choose a keyboard shortcut to bring up the Paste menu")));
    EXPECT_TRUE(texts(page(1)).contains(QStringLiteral("Default: Shift + Command + V: ")));
    next(1);
    EXPECT_TRUE(texts(page(2)).contains(
        QStringLiteral("Choose a keyboard shortcut to quickly add a new Snippet")));
    EXPECT_TRUE(texts(page(2)).contains(QStringLiteral("Default: Shift + Command + C: ")));
    next(1);
    EXPECT_EQ(texts(page(3)),
              (QStringList{QStringLiteral("Enabling Clipboard History will save all your copied "
                                          "text for future pasting from all your iCloud devices:"),
                           QStringLiteral("What's the maximum number of items we should keep in "
                                          "your Clipboard History?"),
                           QStringLiteral("20"),
                           QStringLiteral("Enable this option to make sure Quillery automatically "
                                          "loads each time you restart your computer:")}));
    next(1);
    EXPECT_EQ(texts(page(4)),
              (QStringList{QStringLiteral("✔️ Your Paste hotkey is ⇧⌘V"),
                           QStringLiteral("✔️ Your Add Snippet hotkey is ⇧⌘C"),
                           QStringLiteral("✔️ Clipboard History is Enabled"),
                           QStringLiteral("✔️ Storing a maximum of 20 items in "
                                          "History."),
                           QStringLiteral("✔️ Autolaunch at login is Disabled")}));
}

TEST_F(FirstLoadViewTest, onePageIsOnScreenAndTheButtonsStayWhereTheyAre)
{
    open();
    const QPoint place = button("Next").mapToGlobal(QPoint(0, 0));
    const QSize size = view->size();
    EXPECT_TRUE(isAlone(0));
    for (std::size_t index = 1; index < 5; ++index) {
        next(1);
        EXPECT_TRUE(isAlone(index)) << index;
        EXPECT_EQ(view->size(), size);
    }
    EXPECT_EQ(button("Finish").mapToGlobal(QPoint(0, 0)), place);
    click("Back");
    EXPECT_TRUE(isAlone(3));
    EXPECT_TRUE(hasButton("Next"));
}

TEST_F(FirstLoadViewTest, backIsGreyedOnTheFirstPageOnly)
{
    open();
    EXPECT_FALSE(button("Back").isEnabled());
    next(1);
    EXPECT_TRUE(button("Back").isEnabled());
    click("Back");
    EXPECT_FALSE(button("Back").isEnabled());
    EXPECT_TRUE(isAlone(0));
}

TEST_F(FirstLoadViewTest, theKeyboardAloneWalksThroughAndFinishes)
{
    open();
    for (int page = 0; page < 4; ++page)
        QTest::keyClick(view->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(isAlone(4));
    EXPECT_TRUE(view->isVisible());

    QTest::keyClick(view->focusWidget(), Qt::Key_Return);

    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(stored(SettingsKeys::kFirstLoad), QStringLiteral("false"));
}

TEST_F(FirstLoadViewTest, tabReachesNothingOnThePageThatSlidesOut)
{
    open();
    next(1);
    ASSERT_TRUE(isAlone(1));
    button("Next").setFocus();

    click("Next");
    for (int time = 0; time < 6; ++time) {
        QTest::keyClick(view.get(), Qt::Key_Tab);
        ASSERT_NE(view->focusWidget(), nullptr);
        EXPECT_FALSE(page(1).isAncestorOf(view->focusWidget()));
    }

    EXPECT_FALSE(page(1).isVisible());
    EXPECT_NE(page(2).x(), 0) << "it slid before the keys came";
    EXPECT_TRUE(isAlone(2));
    EXPECT_NE(view->focusWidget(), nullptr);
}

TEST_F(FirstLoadViewTest, aHeldReturnDoesNotRunThroughThePages)
{
    open();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);

    QCoreApplication::sendEvent(view.get(), &held);

    EXPECT_TRUE(isAlone(0));
}

TEST_F(FirstLoadViewTest, closingTheWindowByOtherMeansStoresNothing)
{
    open();
    next(4);

    QTest::keyClick(view.get(), Qt::Key_W, Qt::ControlModifier);

    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(stored(SettingsKeys::kFirstLoad), std::nullopt);
}

TEST_F(FirstLoadViewTest, everySwitchWritesAtOnce)
{
    open();
    next(3);
    Switch &history = *page(3).findChildren<Switch *>().at(0);
    Switch &launch = *page(3).findChildren<Switch *>().at(1);

    QTest::keyClick(page(3).findChild<HistorySizeSlider *>(), Qt::Key_End);
    EXPECT_EQ(stored(SettingsKeys::kHistorySize), QStringLiteral("9"));
    QTest::mouseClick(&history, Qt::LeftButton);
    EXPECT_EQ(stored(SettingsKeys::kClipHistory), QStringLiteral("false"));
    EXPECT_FALSE(page(3).findChild<HistorySizeSlider *>()->isVisible());
    QTest::mouseClick(&launch, Qt::LeftButton);
    EXPECT_TRUE(login.isOnTheList);
}

TEST_F(FirstLoadViewTest, theSummaryIsMadeOfTheValuesAsTheyStand)
{
    open();
    next(4);
    defaults.setBoolean(SettingsKeys::kClipHistory.key(), false);
    KeyboardShortcuts::setShortcut(std::nullopt, KeyboardShortcuts::Name::contextHotKey());
    login.put(true);

    EXPECT_EQ(texts(page(4)),
              (QStringList{QStringLiteral("✔️ Your Paste hotkey is "),
                           QStringLiteral("✔️ Your Add Snippet hotkey is ⇧⌘C"),
                           QStringLiteral("✔️ Clipboard History is Disabled"),
                           QStringLiteral("✔️ Autolaunch at login is Enabled")}));
}

TEST_F(FirstLoadViewTest, whatTheDesktopLacksIsToldOnTheFirstPage)
{
    missing = QStringLiteral("Something is missing.");
    open();

    EXPECT_EQ(texts(page(0)).last(), missing);
}

TEST_F(FirstLoadViewTest, whatWasMendedMeanwhileIsNotToldAgain)
{
    missing = QStringLiteral("Something is missing.");
    open();
    next(1);
    missing.clear();

    click("Back");
    ASSERT_TRUE(isAlone(0));

    EXPECT_EQ(texts(page(0)).last(), QStringLiteral("Let's quickly set up some key features."));
}
