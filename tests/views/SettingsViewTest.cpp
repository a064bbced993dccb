// SPDX-License-Identifier: MIT
// The settings window, used by key and mouse.
#include "Quillery_Mac/settings/SettingsView.h"

#include "Quillery_Mac/app/HistoryLimit.h"
#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/settings/CheckForUpdatesViewModel.h"
#include "Quillery_Mac/settings/HistorySizeSlider.h"
#include "Quillery_Mac/settings/LaunchAtLoginToggle.h"
#include "Quillery_Mac/settings/UpdaterSettingsView.h"
#include "Quillery_Mac/ui/Switch.h"
#include "tests/fakes/FakeUpdater.h"
#include "tests/views/SettingsFixture.h"

#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>

#include <cmath>

namespace {

class SettingsViewTest : public SettingsFixture
{
protected:
    SettingsView &open()
    {
        view = std::make_unique<SettingsView>(defaults, recorderLinks(), kHistoryLimits, &updater);
        show(*view);
        return *view;
    }

    HistorySizeSlider &slider() const { return *view->findChild<HistorySizeSlider *>(); }
    QString number() const { return labelWithNumber()->text(); }

    QLabel *labelWithNumber() const
    {
        const auto labels = slider().parentWidget()->findChildren<QLabel *>();
        for (QLabel *label : labels) {
            if (label->font().weight() == QFont::DemiBold)
                return label;
        }
        return nullptr;
    }

    std::optional<double> storedSize() const
    {
        const auto text = stored(SettingsKeys::kHistorySize);
        return text ? std::optional(text->toDouble()) : std::nullopt;
    }

    std::unique_ptr<SettingsView> view;
};

} // namespace

TEST_F(SettingsViewTest, hasItsGroupsInTheirOrder)
{
    open();

    const QStringList expected{QStringLiteral("Keep Clipboard History"),
                               QStringLiteral("Max clipboard history items:"),
                               QStringLiteral("Paste keyboard shortcut:"),
                               QStringLiteral("Add Snippet keyboard shortcut:"),
                               QStringLiteral("Launch at login"),
                               QStringLiteral("Automatically check for updates"),
                               QStringLiteral("Automatically download updates")};
    EXPECT_EQ(namesFromTop(*view, expected), expected);
}

TEST_F(SettingsViewTest, openingItWritesNothing)
{
    defaults.setNumber(SettingsKeys::kHistorySize.key(), 12.5);
    const QByteArray before = file();

    open();
    QCoreApplication::processEvents();

    EXPECT_EQ(file(), before);
    EXPECT_EQ(storedSize(), 12.5);
    EXPECT_TRUE(updater.calls.isEmpty());
}

TEST_F(SettingsViewTest, theHistorySwitchWritesAtOnceAndHidesTheSlider)
{
    open();
    EXPECT_TRUE(slider().isVisible());
    const int tall = view->height();

    QTest::mouseClick(&switchNamed(*view, "Keep Clipboard History"), Qt::LeftButton);

    EXPECT_EQ(stored(SettingsKeys::kClipHistory), QStringLiteral("false"));
    EXPECT_FALSE(slider().isVisible());
    QCoreApplication::processEvents();
    EXPECT_LT(view->sizeHint().height(), tall);
}

TEST_F(SettingsViewTest, turningTheHistoryOnShowsTheSliderAtTheStoredPosition)
{
    defaults.setBoolean(SettingsKeys::kClipHistory.key(), false);
    defaults.setNumber(SettingsKeys::kHistorySize.key(), 7);
    open();
    EXPECT_FALSE(slider().isVisible());

    QTest::mouseClick(&switchNamed(*view, "Keep Clipboard History"), Qt::LeftButton);

    EXPECT_TRUE(slider().isVisible());
    EXPECT_EQ(slider().value(), 7);
    EXPECT_EQ(number(), QStringLiteral("200"));
}

TEST_F(SettingsViewTest, aClickOnTheTextOfASwitchIsOneOnTheSwitch)
{
    open();
    QWidget *row = switchNamed(*view, "Keep Clipboard History").parentWidget();

    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, QPoint(10, row->height() / 2));

    EXPECT_EQ(stored(SettingsKeys::kClipHistory), QStringLiteral("false"));
}

TEST_F(SettingsViewTest, theSliderStartsAtTwentyEntries)
{
    open();

    EXPECT_EQ(slider().value(), 3);
    EXPECT_EQ(number(), QStringLiteral("20"));
    EXPECT_EQ(storedSize(), std::nullopt);
}

TEST_F(SettingsViewTest, theEndsOfTheSliderAreOneAndAThousand)
{
    open();

    QTest::keyClick(&slider(), Qt::Key_Home);
    EXPECT_EQ(number(), QStringLiteral("1"));
    EXPECT_EQ(storedSize(), 0.0);

    QTest::keyClick(&slider(), Qt::Key_End);
    EXPECT_EQ(number(), QStringLiteral("1000"));
    EXPECT_EQ(storedSize(), 9.0);

    QTest::keyClick(&slider(), Qt::Key_Left);
    EXPECT_EQ(number(), QStringLiteral("500"));
    EXPECT_EQ(storedSize(), 8.0);
}

TEST_F(SettingsViewTest, aStoredPositionOutsideTheRangeShowsNoNumberUntilOneIsChosen)
{
    defaults.setNumber(SettingsKeys::kHistorySize.key(), 12);
    open();
    EXPECT_EQ(number(), QString());
    EXPECT_EQ(slider().value(), 9);

    // Where the slider stands already.
    QTest::keyClick(&slider(), Qt::Key_End);

    EXPECT_EQ(number(), QStringLiteral("1000"));
    EXPECT_EQ(storedSize(), 9.0);
}

TEST_F(SettingsViewTest, aScreenReaderChoosesTheEndWhereTheSliderStandsAlready)
{
    defaults.setNumber(SettingsKeys::kHistorySize.key(), 12);
    open();

    QAccessible::queryAccessibleInterface(&slider())->valueInterface()->setCurrentValue(1000);

    EXPECT_EQ(number(), QStringLiteral("1000"));
    EXPECT_EQ(storedSize(), 9.0);
}

TEST_F(SettingsViewTest, aPositionThatIsNoNumberShowsNone)
{
    defaults.setNumber(SettingsKeys::kHistorySize.key(), std::nan(""));
    open();

    EXPECT_EQ(number(), QString());
    EXPECT_EQ(slider().value(), 0);
}

TEST_F(SettingsViewTest, aDragOfTheSliderIsEditing)
{
    open();
    std::vector<bool> seen;
    const auto observer =
        view->isEditing.addNotifier([&] { seen.push_back(view->isEditing.value()); });
    slider().setSliderDown(true);
    slider().setSliderPosition(5);
    slider().setSliderDown(false);

    EXPECT_EQ(seen, (std::vector<bool>{true, false}));
    EXPECT_EQ(storedSize(), 5.0);
}

TEST_F(SettingsViewTest, whatChangesElsewhereShows)
{
    open();
    SettingsView other(defaults, recorderLinks(), kHistoryLimits, &updater);
    show(other);

    QTest::keyClick(other.findChild<HistorySizeSlider *>(), Qt::Key_End);
    EXPECT_EQ(number(), QStringLiteral("1000"));

    QTest::keyClick(&switchNamed(other, "Keep Clipboard History"), Qt::Key_Space);
    EXPECT_FALSE(switchNamed(*view, "Keep Clipboard History").isChecked());
    EXPECT_FALSE(slider().isVisible());
}

TEST_F(SettingsViewTest, anEditOfTheFileShows)
{
    open();

    write("clipHistory=false\nhistorySize=0\n");

    EXPECT_TRUE(QTest::qWaitFor([this] { return !slider().isVisible(); }));
    EXPECT_EQ(number(), QStringLiteral("1"));
}

TEST_F(SettingsViewTest, screenReadersHearTheNumberOfEntries)
{
    open();
    QAccessibleInterface *known = QAccessible::queryAccessibleInterface(&slider());
    ASSERT_NE(known, nullptr);

    EXPECT_EQ(known->text(QAccessible::Name), QStringLiteral("Max clipboard history items:"));
    EXPECT_EQ(known->role(), QAccessible::Slider);
    ASSERT_NE(known->valueInterface(), nullptr);
    EXPECT_EQ(known->valueInterface()->currentValue().toInt(), 20);
    EXPECT_EQ(known->valueInterface()->maximumValue().toInt(), 1000);
    known->valueInterface()->setCurrentValue(40);
    EXPECT_EQ(number(), QStringLiteral("50"));
    EXPECT_EQ(storedSize(), 5.0);
}

TEST_F(SettingsViewTest, aSwitchIsACheckBoxForScreenReaders)
{
    open();
    QAccessibleInterface *known =
        QAccessible::queryAccessibleInterface(&switchNamed(*view, "Launch at login"));
    ASSERT_NE(known, nullptr);

    EXPECT_EQ(known->role(), QAccessible::CheckBox);
    EXPECT_EQ(known->text(QAccessible::Name), QStringLiteral("Launch at login"));
    EXPECT_TRUE(known->state().checkable);
    EXPECT_FALSE(known->state().checked);
}

TEST_F(SettingsViewTest, theLaunchSwitchShowsWhatTheDesktopHas)
{
    open();
    Switch &launch = switchNamed(*view, "Launch at login");

    QTest::mouseClick(&launch, Qt::LeftButton);
    EXPECT_TRUE(login.isOnTheList);
    EXPECT_TRUE(launch.isChecked());

    login.put(false);
    EXPECT_FALSE(launch.isChecked());
}

TEST_F(SettingsViewTest, aLaunchSwitchTakesAViewForItsLabel)
{
    auto *label = new QLabel(QStringLiteral("With the desktop"));
    label->setAccessibleName(label->text());
    LaunchAtLogin::Toggle toggle(*label);
    show(toggle);

    EXPECT_EQ(&toggle.label(), label);
    EXPECT_EQ(toggle.control().accessibleName(), label->text());
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, label->geometry().center());
    EXPECT_TRUE(login.isOnTheList);
}

TEST_F(SettingsViewTest, aRefusedLaunchLeavesTheSwitchOff)
{
    login.registerError = platform::Error{platform::Error::Kind::Io, QStringLiteral("refused")};
    open();
    Switch &launch = switchNamed(*view, "Launch at login");

    QTest::mouseClick(&launch, Qt::LeftButton);

    EXPECT_FALSE(launch.isChecked());
}

TEST_F(SettingsViewTest, theUpdateSwitchesWriteThroughAndAreReadOnce)
{
    updater.checksByItself = false;
    updater.downloadsByItself = true;
    open();
    Switch &checks = switchNamed(*view, "Automatically check for updates");
    Switch &downloads = switchNamed(*view, "Automatically download updates");
    EXPECT_FALSE(checks.isChecked());
    EXPECT_FALSE(downloads.isEnabled());
    EXPECT_TRUE(downloads.isChecked()) << "greyed out, it keeps its value";

    updater.downloadsByItself = false;
    QTest::mouseClick(&checks, Qt::LeftButton);
    EXPECT_EQ(updater.calls, (QStringList{QStringLiteral("checks on")}));
    EXPECT_TRUE(downloads.isEnabled());
    EXPECT_TRUE(downloads.isChecked());

    QTest::mouseClick(&downloads, Qt::LeftButton);
    EXPECT_EQ(updater.calls.last(), QStringLiteral("downloads off"));
    QTest::mouseClick(&checks, Qt::LeftButton);
    EXPECT_FALSE(downloads.isEnabled());
    EXPECT_FALSE(downloads.isChecked());
}

TEST_F(SettingsViewTest, withoutAnUpdaterThereIsNothingToSetForIt)
{
    view = std::make_unique<SettingsView>(defaults, recorderLinks(), kHistoryLimits, nullptr);

    EXPECT_EQ(view->findChild<UpdaterSettingsView *>(), nullptr);
}

TEST_F(SettingsViewTest, controlWClosesTheWindow)
{
    open();

    QTest::keyClick(view.get(), Qt::Key_W, Qt::ControlModifier);

    EXPECT_FALSE(view->isVisible());
}

TEST(CheckForUpdatesViewModelTest, followsTheUpdater)
{
    FakeUpdater updater;
    updater.canCheck = false;
    const CheckForUpdatesViewModel model(updater);
    EXPECT_FALSE(model.canCheckForUpdates.value());

    updater.setCanCheck(true);

    EXPECT_TRUE(model.canCheckForUpdates.value());
}
