// SPDX-License-Identifier: MIT
// Every text of the settings and of the first-run setup goes through the translation, and has room.
// Each window is looked at twice: with texts that are marked, and with the German ones, which are
// longer. The recorder has a table of texts of its own, which is German both times.
#include "KeyboardShortcuts/LocalizationTable.h"
#include "Quillery_Mac/app/HistoryLimit.h"
#include "Quillery_Mac/app/MissingHere.h"
#include "Quillery_Mac/app/Translation.h"
#include "Quillery_Mac/settings/RecorderCocoa.h"
#include "Quillery_Mac/settings/SettingsView.h"
#include "Quillery_Mac/settings/onboarding/FirstLoadView.h"
#include "tests/support/AlertWatch.h"
#include "tests/translation/MarkingTranslator.h"
#include "tests/translation/ShownTexts.h"
#include "tests/views/SettingsFixture.h"

#include <QAction>
#include <QTranslator>

#include <array>
#include <memory>
#include <optional>

using KeyboardShortcuts::Key;
using KeyboardShortcuts::LocalizationTable;
using KeyboardShortcuts::Modifier;
using KeyboardShortcuts::Name;
using KeyboardShortcuts::RecorderCocoa;
using KeyboardShortcuts::Shortcut;

namespace {

enum class Texts { Marked, German };

const Shortcut kWidest(Key::space,
                       Modifier::Control | Modifier::Option | Modifier::Shift | Modifier::Command);
const Shortcut kOfTheMenu(Key::comma, Modifier::Control);

QString own(const QString &text)
{
    return MarkingTranslator::mark(text);
}

/// The recorder's German texts, without those that are missing and English therefore.
QStringList germanTable()
{
    using namespace KeyboardShortcuts::textKey;
    constexpr auto kKeys =
        std::to_array<QLatin1String>({kRecordShortcut, kPressShortcut, kUsedByMenuItem,
                                      kUsedBySystem, kCanBeChanged, kForceUse});
    const LocalizationTable english((QLocale(QLocale::English)));
    const LocalizationTable german((QLocale(QLocale::German)));
    QStringList texts{german.text(kOk)};
    for (const QLatin1String key : kKeys) {
        if (german.text(key) != english.text(key))
            texts.append(german.text(key).remove(QStringLiteral("%1")));
    }
    return texts;
}

class EverySettingsText : public SettingsFixture,
                          public ::testing::WithParamInterface<Texts>,
                          protected AlertWatch
{
protected:
    EverySettingsText()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        if (GetParam() == Texts::German)
            installTranslation(*qApp);
        else
            translator.emplace();
        for (QString &key : layout.texts)
            key = own(key);
        layout.texts[43] = QStringLiteral(",");
        menuItem.setText(own(QStringLiteral("&Preferences")));
        menuItem.setShortcut(Qt::CTRL | Qt::Key_Comma);
    }
    ~EverySettingsText() override
    {
        qDeleteAll(qApp->findChildren<QTranslator *>());
        QLocale::setDefault(QLocale::c());
    }

    static void expectTranslated(QWidget &window)
    {
        if (GetParam() == Texts::Marked) {
            EXPECT_EQ(unmarked(window, germanTable()), "");
        }
        EXPECT_EQ(clipped(window), "");
    }

    SettingsView &showSettings()
    {
        settings = std::make_unique<SettingsView>(
            defaults,
            KeyboardShortcuts::RecorderLinks{systemShortcuts,
                                             [this] { return QList<QAction *>{&menuItem}; }},
            kHistoryLimits, &updater);
        show(*settings);
        return *settings;
    }

    /// The recorder of the paste menu's shortcut begins to record.
    RecorderCocoa &startRecording()
    {
        auto &recorder = *showSettings().findChild<RecorderCocoa *>();
        EXPECT_TRUE(QTest::qWaitFor([&recorder] { return recorder.canBecomeKeyView(); }));
        recorder.setFocus();
        EXPECT_TRUE(recorder.isRecording());
        return recorder;
    }

    /// Presses the other shortcut while one is recorded, and looks at the alert that comes.
    void expectTranslatedAlert(const Shortcut &shortcut)
    {
        setShortcut(shortcut, Name::addHotKey());
        startRecording();
        atAlert([](QMessageBox &alert) {
            expectTranslated(alert);
            alert.close();
        });
        hotkeys.press(static_cast<quint32>(shortcut.carbonKeyCode),
                      static_cast<quint32>(shortcut.carbonModifiers));
        EXPECT_TRUE(QTest::qWaitFor([this] { return alerts == 1; }));
    }

    FirstLoadView &showSetup(const DesktopAbilities &abilities)
    {
        setup = std::make_unique<FirstLoadView>(defaults, recorderLinks(),
                                                [abilities] { return missingHere(abilities); });
        show(*setup);
        return *setup;
    }

    /// Goes to the next page, and waits until nothing slides any more.
    void nextPage() const
    {
        setup->flow.forward();
        const auto page = static_cast<std::size_t>(setup->flow.pointer.value());
        EXPECT_TRUE(QTest::qWaitFor([this, page] {
            return !setup->flow.views.at(page - 1)->isVisible() &&
                   setup->flow.views.at(page)->pos() == QPoint(0, 0);
        }));
    }

    std::optional<MarkingTranslator> translator;
    QAction menuItem;
    std::unique_ptr<SettingsView> settings;
    std::unique_ptr<FirstLoadView> setup;
};

std::string nameOf(const ::testing::TestParamInfo<Texts> &info)
{
    return info.param == Texts::Marked ? "marked" : "german";
}

} // namespace

INSTANTIATE_TEST_SUITE_P(In, EverySettingsText, ::testing::Values(Texts::Marked, Texts::German),
                         nameOf);

TEST_P(EverySettingsText, ofTheSettingsIsTranslated)
{
    expectTranslated(showSettings());

    settings->clipHistory.setValue(false);
    expectTranslated(*settings);
}

TEST_P(EverySettingsText, ofARecorderIsTranslated)
{
    setShortcut(std::nullopt, Name::addHotKey());

    RecorderCocoa &recorder = startRecording();
    expectTranslated(*settings);
    setShortcut(std::nullopt, Name::contextHotKey());
    expectTranslated(*settings);
    recorder.clearFocus();
    setShortcut(kWidest, Name::contextHotKey());
    QCoreApplication::processEvents();
    expectTranslated(*settings);
}

TEST_P(EverySettingsText, ofTheAlertForAChordOfTheMenuIsTranslated)
{
    expectTranslatedAlert(kOfTheMenu);
}

TEST_P(EverySettingsText, ofTheAlertForAChordOfTheSystemIsTranslated)
{
    systemShortcuts.enabled = {{static_cast<quint32>(kWidest.carbonKeyCode),
                                static_cast<quint32>(kWidest.carbonModifiers)}};

    expectTranslatedAlert(kWidest);
}

TEST_P(EverySettingsText, ofTheSetupIsTranslated)
{
    showSetup({.hasShortcuts = true, .canType = true, .hasTray = true, .refusedShortcuts = {}});

    for (std::size_t page = 0; page < setup->flow.views.size(); ++page) {
        if (page > 0)
            nextPage();
        expectTranslated(*setup);
    }
}

TEST_P(EverySettingsText, ofASetupWithWideShortcutsAndWithoutAHistoryIsTranslated)
{
    setShortcut(kWidest, Name::contextHotKey());
    setShortcut(std::nullopt, Name::addHotKey());
    showSetup({.hasShortcuts = true, .canType = true, .hasTray = true, .refusedShortcuts = {}});
    defaults.setBoolean(QStringLiteral("clipHistory"), false);
    login.put(true);

    for (std::size_t page = 1; page < setup->flow.views.size(); ++page) {
        nextPage();
        expectTranslated(*setup);
    }
}

TEST_P(EverySettingsText, ofWhatTheDesktopLacksIsTranslated)
{
    const QString refused = own(QStringLiteral("Chord"));
    for (const DesktopAbilities &abilities :
         {DesktopAbilities{false, true, false, {}}, DesktopAbilities{false, true, true, {}},
          DesktopAbilities{true, false, true, {}}, DesktopAbilities{true, true, true, {refused}},
          DesktopAbilities{true, true, true, {refused, refused}},
          DesktopAbilities{true, true, false, {}}})
        expectTranslated(showSetup(abilities));
}
