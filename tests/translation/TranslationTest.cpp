// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/Translation.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

const QStringList kAvailable{QStringLiteral("de"), QStringLiteral("pt_BR")};

QString chosen(const QStringList &wanted)
{
    return translationLanguage(
        wanted, [](const QString &language) { return kAvailable.contains(language); });
}

QString quit()
{
    return QCoreApplication::translate("MenuView", "Quit", "ends the program");
}

/// Gives the program a user of another language for the time of a test.
class Translation : public ::testing::Test
{
protected:
    void TearDown() override
    {
        qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
        QLocale::setDefault(QLocale::c());
    }

    static void installFor(const QLocale &locale)
    {
        QLocale::setDefault(locale);
        installTranslation(*QCoreApplication::instance());
    }
    static qsizetype translators()
    {
        return QCoreApplication::instance()->findChildren<QTranslator *>().size();
    }
};

} // namespace

TEST(TranslationLanguage, isTheUsersOwn)
{
    EXPECT_EQ(chosen({QStringLiteral("de")}), QStringLiteral("de"));
    EXPECT_EQ(chosen({QStringLiteral("pt-BR"), QStringLiteral("pt")}), QStringLiteral("pt_BR"));
}

TEST(TranslationLanguage, ofARegionIsThatOfAllItsRegions)
{
    EXPECT_EQ(chosen({QStringLiteral("de-AT"), QStringLiteral("de-Latn-AT")}),
              QStringLiteral("de"));
    EXPECT_EQ(chosen({QStringLiteral("pt-PT"), QStringLiteral("pt")}), QString());
}

TEST(TranslationLanguage, isTheFirstOfTheUsersThatIsThere)
{
    EXPECT_EQ(chosen({QStringLiteral("fr-FR"), QStringLiteral("fr"), QStringLiteral("de")}),
              QStringLiteral("de"));
}

TEST(TranslationLanguage, isNoneForWhoReadsEnglishFirst)
{
    EXPECT_EQ(chosen({QStringLiteral("en-US"), QStringLiteral("en"), QStringLiteral("de")}),
              QString());
    EXPECT_EQ(chosen({QStringLiteral("fr"), QStringLiteral("en"), QStringLiteral("de")}),
              QString());
    EXPECT_EQ(chosen({QStringLiteral("C"), QStringLiteral("de")}), QString());
    EXPECT_EQ(chosen({}), QString());
}

TEST_F(Translation, isInstalledForAGerman)
{
    installFor(QLocale(QLocale::German, QLocale::Switzerland));

    EXPECT_EQ(quit(), QStringLiteral("Beenden"));
}

TEST_F(Translation, doesNotLoadAnythingForOthers)
{
    for (const QLocale::Language language : {QLocale::C, QLocale::English, QLocale::Arabic}) {
        installFor(QLocale(language));

        EXPECT_EQ(quit(), QStringLiteral("Quit"));
        EXPECT_EQ(translators(), 0);
    }
}
