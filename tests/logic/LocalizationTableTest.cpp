// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/LocalizationTable.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>

using namespace KeyboardShortcuts;

namespace {

constexpr auto kKeys = std::to_array<QLatin1String>(
    {textKey::kRecordShortcut, textKey::kPressShortcut, textKey::kUsedByMenuItem,
     textKey::kUsedBySystem, textKey::kCanBeChanged, textKey::kForceUse, textKey::kOk});

LocalizationTable tableFor(QLocale::Language language)
{
    return LocalizationTable(QLocale(language));
}

void write(const QString &file, const QByteArray &text)
{
    QFile table(file);
    ASSERT_TRUE(table.open(QIODevice::WriteOnly));
    table.write(text);
}

} // namespace

TEST(LocalizationTable, hasTheEnglishTexts)
{
    const LocalizationTable table = tableFor(QLocale::English);

    EXPECT_EQ(table.text(textKey::kRecordShortcut), QStringLiteral("Record Shortcut"));
    EXPECT_EQ(table.text(textKey::kPressShortcut), QStringLiteral("Press Shortcut"));
    EXPECT_EQ(table.text(textKey::kUsedByMenuItem),
              QStringLiteral("This shortcut already belongs to the menu item “%1”."));
    EXPECT_EQ(table.text(textKey::kUsedBySystem),
              QStringLiteral("This shortcut is already used by the desktop or another program."));
    EXPECT_EQ(table.text(textKey::kCanBeChanged),
              QStringLiteral("Choose another one, or free it in the desktop’s keyboard settings."));
    EXPECT_EQ(table.text(textKey::kForceUse), QStringLiteral("Use Anyway"));
    EXPECT_EQ(table.text(textKey::kOk), QStringLiteral("OK"));
}

TEST(LocalizationTable, theUsersLanguageIsChosen)
{
    const LocalizationTable german(QLocale(QLocale::German, QLocale::Austria));

    EXPECT_EQ(german.text(textKey::kRecordShortcut), QStringLiteral("Kürzel aufnehmen"));
}

TEST(LocalizationTable, everyLanguageHasEveryKey)
{
    const LocalizationTable english = tableFor(QLocale::English);
    const QStringList files = QDir(LocalizationTable::kBundle).entryList();
    EXPECT_EQ(files.size(), 2);

    for (const QString &file : files) {
        const QLocale locale(file.section(u'.', 0, 0));
        for (const QLatin1String key : kKeys) {
            const QString text = LocalizationTable(locale).text(key);
            EXPECT_NE(text, key) << qPrintable(file);
            EXPECT_EQ(text.count(u'%'), english.text(key).count(u'%')) << qPrintable(file);
        }
    }
}

TEST(LocalizationTable, aLanguageWithoutATableIsEnglish)
{
    const LocalizationTable icelandic = tableFor(QLocale::Icelandic);

    EXPECT_EQ(icelandic.text(textKey::kPressShortcut), QStringLiteral("Press Shortcut"));
}

TEST(LocalizationTable, whatALanguageLacksIsEnglishAndWhatAllLackIsTheKey)
{
    const QTemporaryDir bundle;
    write(bundle.filePath(QStringLiteral("en.json")),
          R"({"ok": "Fine", "press_shortcut": "Press"})");
    write(bundle.filePath(QStringLiteral("de.json")), R"({"ok": "Gut"})");

    const LocalizationTable table(QLocale(QLocale::German), bundle.path());

    EXPECT_EQ(table.text(textKey::kOk), QStringLiteral("Gut"));
    EXPECT_EQ(table.text(textKey::kPressShortcut), QStringLiteral("Press"));
    EXPECT_EQ(table.text(textKey::kForceUse), QStringLiteral("force_use_shortcut"));
}

TEST(LocalizationTableDeathTest, withoutItsBundleTheProgramStops)
{
    const QTemporaryDir empty;

    EXPECT_DEATH(LocalizationTable(QLocale(), empty.path()),
                 "unable to find bundle named KeyboardShortcuts_KeyboardShortcuts");
}
