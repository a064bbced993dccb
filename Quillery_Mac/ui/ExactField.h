// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// A text field that takes what is pasted whole and byte by byte, where the toolkit's own fields
/// would change its line ends or cut it.
class ExactField
{
public:
    virtual ~ExactField() = default;

    /// Puts the bytes in the place of the selection, as pasting does.
    virtual void insertUtf8(const QByteArray &utf8) = 0;

protected:
    ExactField() = default;
    Q_DISABLE_COPY_MOVE(ExactField)
};
