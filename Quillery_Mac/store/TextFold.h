// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QLocale>
#include <QString>

#include <memory>

/// Brings texts that a search takes for the same to the same bytes: without case, accents and
/// width, by the rules of a language (in Turkish, "I" goes with "ı"). Not thread-safe: one per
/// thread.
class TextFold
{
public:
    explicit TextFold(const QLocale &locale = QLocale());
    ~TextFold();
    Q_DISABLE_COPY_MOVE(TextFold)

    /// The folded form of UTF-8 text as UTF-8. One text contains another one for the user when its
    /// folded form contains the other's. Invalid bytes fold to U+FFFD.
    QByteArray foldedUtf8(QByteArrayView utf8);
    QByteArray folded(const QString &text) { return foldedUtf8(text.toUtf8()); }

private:
    class Table;

    void appendAscii(QByteArrayView ascii, QByteArray &result) const;
    /// Answers whether the result may hold characters to be joined.
    bool appendOthers(QByteArrayView utf8, QByteArray &result) const;

    std::unique_ptr<Table> m_table;
};
