// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/LocalizationTable.h"

#include "platform/log/Fatal.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

// The macro declares a function, which must not be a member of a namespace.
static void initializeBundle()
{
    Q_INIT_RESOURCE(KeyboardShortcuts_KeyboardShortcuts);
}

namespace KeyboardShortcuts {

namespace {

QString tableOf(const QString &bundle, const QString &language)
{
    return QStringLiteral("%1/%2.json").arg(bundle, language);
}

/// The file of the first language that has one. Regions and scripts have no tables of their own.
QString preferredTable(const QString &bundle, const QLocale &locale, const QString &fallback)
{
    for (const QString &language : locale.uiLanguages()) {
        QString table = tableOf(bundle, language.section(u'-', 0, 0).section(u'_', 0, 0));
        if (QFile::exists(table))
            return table;
    }
    return fallback;
}

} // namespace

LocalizationTable::LocalizationTable(const QLocale &locale, const QString &bundle)
{
    initializeBundle();
    const QString english = tableOf(bundle, QStringLiteral("en"));
    if (!QFile::exists(english)) {
        platform::fatalError(
            QStringLiteral("unable to find bundle named KeyboardShortcuts_KeyboardShortcuts"));
    }
    read(english);
    read(preferredTable(bundle, locale, english));
}

QString LocalizationTable::text(QLatin1String key) const
{
    return m_texts.value(key, key);
}

void LocalizationTable::read(const QString &file)
{
    QFile table(file);
    if (!table.open(QIODevice::ReadOnly))
        return;
    const QJsonObject texts = QJsonDocument::fromJson(table.readAll()).object();
    for (auto text = texts.begin(); text != texts.end(); ++text)
        m_texts.insert(text.key(), text.value().toString());
}

} // namespace KeyboardShortcuts
