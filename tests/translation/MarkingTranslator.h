// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QTranslator>

/// Translates every text into itself in brackets, so that a text that goes around the translation
/// is seen.
class MarkingTranslator : public QTranslator
{
public:
    MarkingTranslator() { QCoreApplication::installTranslator(this); }
    ~MarkingTranslator() override { QCoreApplication::removeTranslator(this); }
    Q_DISABLE_COPY_MOVE(MarkingTranslator)

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return mark(QString::fromUtf8(source));
    }

    static QString mark(const QString &text) { return u'\u27e6' + text + u'\u27e7'; }
    /// A text without a letter needs no translation.
    static bool isMarked(const QString &text)
    {
        return text.contains(u'\u27e6') ||
               std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    }
};
