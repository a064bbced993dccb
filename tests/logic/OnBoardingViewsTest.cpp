// SPDX-License-Identifier: MIT
// The setup's pages without their windows, and the texts of settings and summary.
#include "Quillery_Mac/settings/onboarding/OnBoardingViews.h"

#include "Quillery_Mac/app/HistoryLimit.h"
#include "Quillery_Mac/app/MissingHere.h"
#include "Quillery_Mac/settings/HistorySizeText.h"
#include "Quillery_Mac/settings/onboarding/SummaryText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

class OnBoardingViewsTest : public ::testing::Test
{
protected:
    OnBoardingViewsTest() { flow.views.assign(5, nullptr); }

    void forward(int times)
    {
        for (int time = 0; time < times; ++time)
            flow.forward();
    }

    onBoardingViews flow;
    const QString next = QStringLiteral("Next");
    const QString finish = QStringLiteral("Finish");
};

DesktopAbilities everything()
{
    DesktopAbilities abilities;
    abilities.hasShortcuts = true;
    abilities.canType = true;
    abilities.hasTray = true;
    return abilities;
}

QString sizeText(double position)
{
    return historySize::text(position, kHistoryLimits);
}

} // namespace

TEST_F(OnBoardingViewsTest, startsOnTheFirstPage)
{
    EXPECT_TRUE(flow.currentView.value().isEmpty());
    EXPECT_FALSE(flow.dismiss.value());
    EXPECT_EQ(flow.pointer.value(), 0);
    EXPECT_EQ(flow.buttonText.value(), next);
}

TEST_F(OnBoardingViewsTest, forwardPushesPageAfterPageAndTheLastOneFinishes)
{
    for (int page = 1; page <= 3; ++page) {
        flow.forward();
        EXPECT_EQ(flow.pointer.value(), page);
        EXPECT_EQ(flow.buttonText.value(), next);
    }
    flow.forward();
    EXPECT_EQ(flow.currentView.value(), (QList<int>{1, 2, 3, 4}));
    EXPECT_EQ(flow.buttonText.value(), finish);
    EXPECT_FALSE(flow.dismiss.value());

    flow.forward();
    EXPECT_TRUE(flow.dismiss.value());
    EXPECT_EQ(flow.currentView.value(), (QList<int>{1, 2, 3, 4}));
}

TEST_F(OnBoardingViewsTest, backOnTheFirstPageChangesNothing)
{
    flow.back();

    EXPECT_EQ(flow.pointer.value(), 0);
    EXPECT_TRUE(flow.currentView.value().isEmpty());
    EXPECT_EQ(flow.buttonText.value(), next);
}

TEST_F(OnBoardingViewsTest, backFromTheSummaryShowsNextAndForwardAgainFinish)
{
    forward(4);

    flow.back();
    EXPECT_EQ(flow.buttonText.value(), next);
    EXPECT_EQ(flow.pointer.value(), 3);
    EXPECT_EQ(flow.currentView.value(), (QList<int>{1, 2, 3}));

    flow.forward();
    EXPECT_EQ(flow.buttonText.value(), finish);
}

TEST(SummaryTextTest, namesEverythingInItsOrder)
{
    EXPECT_EQ(summaryLines({.pasteShortcut = QStringLiteral("⇧⌘V"),
                            .addShortcut = QStringLiteral("⇧⌘C"),
                            .isHistoryOn = true,
                            .historyEntries = QStringLiteral("20"),
                            .launchesAtLogin = true}),
              (QStringList{QStringLiteral("✔️ Your Paste hotkey is ⇧⌘V"),
                           QStringLiteral("✔️ Your Add Snippet hotkey is ⇧⌘C"),
                           QStringLiteral("✔️ Clipboard History is Enabled"),
                           QStringLiteral("✔️ Storing a maximum of 20 items in History."),
                           QStringLiteral("✔️ Autolaunch at login is Enabled")}));
}

TEST(SummaryTextTest, withTheHistoryOffThereIsNoStoringLineAndAClearedShortcutLeavesNothing)
{
    EXPECT_EQ(summaryLines({}),
              (QStringList{QStringLiteral("✔️ Your Paste hotkey is "),
                           QStringLiteral("✔️ Your Add Snippet hotkey is "),
                           QStringLiteral("✔️ Clipboard History is Disabled"),
                           QStringLiteral("✔️ Autolaunch at login is Disabled")}));
}

TEST(SummaryTextTest, withoutANumberTheStoringLineStays)
{
    SetupSummary historyOn;
    historyOn.isHistoryOn = true;

    EXPECT_EQ(summaryLines(historyOn).at(3),
              QStringLiteral("✔️ Storing a maximum of  items in History."));
}

TEST(HistorySizeTextTest, showsTheNumberOfEveryPosition)
{
    const QStringList expected{QStringLiteral("1"),   QStringLiteral("5"),   QStringLiteral("10"),
                               QStringLiteral("20"),  QStringLiteral("30"),  QStringLiteral("50"),
                               QStringLiteral("100"), QStringLiteral("200"), QStringLiteral("500"),
                               QStringLiteral("1000")};
    for (int position = 0; position < expected.size(); ++position)
        EXPECT_EQ(sizeText(position), expected.at(position));
    EXPECT_EQ(sizeText(2.5), QStringLiteral("10"));
}

TEST(HistorySizeTextTest, aPositionThatIsNoFiniteNumberInsideTheRangeShowsNone)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double position :
         {-1.0, -0.1, 9.5, 10.0, 1e300, kInfinity, -kInfinity, std::nan("")})
        EXPECT_EQ(sizeText(position), QString()) << position;
}

TEST(MissingHereTest, nothingIsToldWhereEverythingIsInPlace)
{
    EXPECT_EQ(missingHere(everything()), QString());
}

TEST(MissingHereTest, eachLackHasASentenceOfItsOwn)
{
    const DesktopAbilities all = everything();
    DesktopAbilities noTray = all;
    noTray.hasTray = false;
    DesktopAbilities refused = noTray;
    refused.refusedShortcuts = {QStringLiteral("⇧⌘V")};
    DesktopAbilities bothRefused = noTray;
    bothRefused.refusedShortcuts = {QStringLiteral("⇧⌘V"), QStringLiteral("⇧⌘C")};
    DesktopAbilities noTyping = refused;
    noTyping.canType = false;
    DesktopAbilities noShortcuts = all;
    noShortcuts.hasShortcuts = false;
    const QStringList sentences{missingHere(noTray),      missingHere(refused),
                                missingHere(bothRefused), missingHere(noTyping),
                                missingHere(noShortcuts), missingHere({})};

    EXPECT_EQ(QSet<QString>(sentences.begin(), sentences.end()).size(), sentences.size());
    for (const QString &sentence : sentences) {
        EXPECT_TRUE(sentence.endsWith(u'.'));
        EXPECT_EQ(sentence.count(u'.'), 1);
    }
    EXPECT_TRUE(missingHere(refused).contains(QStringLiteral("⇧⌘V")));
    EXPECT_TRUE(missingHere(bothRefused).contains(QStringLiteral("⇧⌘V")));
    EXPECT_TRUE(missingHere(bothRefused).contains(QStringLiteral("⇧⌘C")));
}
