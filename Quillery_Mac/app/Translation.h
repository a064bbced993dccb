// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QCoreApplication;

/// The language, out of those there is a translation for, that a user wants to read most; empty if
/// that is English, in which the texts are written. Regions fall back to their language ("de-AT" to
/// "de"). A language that comes after English in the user's list is not taken, although no file
/// says that English is there.
///
/// @param wanted what the user reads, the dearest first: QLocale::uiLanguages()
/// @param isThere whether there is a translation into a language, "de" or "pt_BR"
QString translationLanguage(const QStringList &wanted,
                            const std::function<bool(const QString &)> &isThere);

/// Shows the program's texts in the user's language, if there is a translation, and those of Qt
/// too, if the system has them. Qt's own texts are not translated alone: a window in two languages
/// helps nobody, and for Arabic or Hebrew they would mirror windows full of English.
/// Called once, before the first window; the language is asked from QLocale, thus from LANGUAGE,
/// LC_ALL, LC_MESSAGES and LANG. Without a translation nothing is loaded.
void installTranslation(QCoreApplication &application);
