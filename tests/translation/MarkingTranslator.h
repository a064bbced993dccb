// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QTranslator>

#include <algorithm>

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
    /// A text without a letter needs no translation; every letter of others has come through it.
    static bool isMarked(const QString &text)
    {
        const QString rest = unmarkedPart(text);
        return std::none_of(rest.begin(), rest.end(), [](QChar c) { return c.isLetter(); });
    }
    /// What stands outside of all brackets.
    static QString unmarkedPart(const QString &text)
    {
        QString rest;
        int depth = 0;
        for (const QChar c : text) {
            if (c == u'\u27e6')
                ++depth;
            else if (c == u'\u27e7')
                --depth;
            else if (depth == 0)
                rest += c;
        }
        return rest;
    }
};
