// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Result.h"

#include <QByteArrayView>
#include <QString>

/// Reads JSON (RFC 8259) piece by piece, in the order in which it stands, and knows where each
/// piece begins: Qt's reader cannot tell the line of a value that is out of place. After the first
/// error every function answers with nothing and every list has ended, so that only the caller's
/// last step need ask for the error. Never deeper than the caller goes.
///
/// What is `expected` somewhere is a sentence in English, marked for LibraryFault::tr(), which is
/// asked for it only when it is needed: there are hundreds of thousands of pieces in a file.
class JsonReader
{
public:
    /// `bytes` must be UTF-8 and outlive the reader.
    explicit JsonReader(QByteArrayView bytes);

    /// Where the next piece begins, in bytes.
    qsizetype position();

    /// Goes into the object or array that must begin here with `bracket`.
    void enter(char bracket, const char *expected);
    /// Whether the object or array, which ends with `bracket`, has another element; goes out of it
    /// if not.
    bool hasMore(char bracket);
    /// Whether a text begins here.
    bool isText();

    /// The name of an element of an object.
    QString key();
    QString text(const char *expected);
    bool truth(const char *expected);
    /// A whole number.
    qint64 number(const char *expected);
    /// Nothing but space may follow.
    void end();

    /// Refuses what begins at byte `position`. The first refusal stays.
    void fail(qsizetype position, const QString &reason);
    void fail(qsizetype position, const char *expected);
    const std::optional<platform::Error> &error() const { return m_error; }

private:
    void skipSpace();
    char next() const { return m_at < m_bytes.size() ? m_bytes[m_at] : '\0'; }
    bool take(QByteArrayView word);
    QString quoted();
    void appendPlain(QString &text);
    void appendEscape(QString &text);
    char16_t codeUnit();

    QByteArrayView m_bytes;
    qsizetype m_at = 0;
    bool m_isFirst = true; ///< no element of the innermost list was read
    std::optional<platform::Error> m_error;
};
