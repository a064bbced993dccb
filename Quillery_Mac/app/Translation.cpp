// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/Translation.h"

#include "platform/log/Log.h"
#include "resources/Resources.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

QString fileOf(const QString &language)
{
    return QStringLiteral(":/quillery/translations/quillery_%1.qm").arg(language);
}

bool isSource(const QString &language)
{
    return language == QLatin1String("C") || language == QLatin1String("en") ||
           language.startsWith(QLatin1String("en_"));
}

/// Whether there is something to install; it then belongs to the application.
bool install(QCoreApplication &application, const QString &file, const QString &folder = {})
{
    auto *translator = new QTranslator(&application);
    if (translator->load(file, folder) && QCoreApplication::installTranslator(translator))
        return true;
    delete translator;
    return false;
}

} // namespace

QString translationLanguage(const QStringList &wanted,
                            const std::function<bool(const QString &)> &isThere)
{
    for (QString language : wanted) {
        language.replace(u'-', u'_');
        if (isSource(language))
            return {};
        while (!language.isEmpty()) {
            if (isThere(language))
                return language;
            language.truncate(qMax(qsizetype{0}, language.lastIndexOf(u'_')));
        }
    }
    return {};
}

void installTranslation(QCoreApplication &application)
{
    const QString language =
        translationLanguage(QLocale().uiLanguages(), [](const QString &candidate) {
            initializeTranslations();
            return QFile::exists(fileOf(candidate));
        });
    if (language.isEmpty())
        return;
    if (!install(application, fileOf(language)))
        qCWarning(logApp) << "The translation is damaged:" << language;
    else
        install(application, QStringLiteral("qtbase_") + language,
                QLibraryInfo::path(QLibraryInfo::TranslationsPath));
}
