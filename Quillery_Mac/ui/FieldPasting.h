// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace platform {
class Pasteboard;
} // namespace platform

/// Lets the program's text fields paste from the pasteboard that it has read already.
///
/// The toolkit itself asks the owner of the clipboard and waits for the answer: seconds for an
/// owner that hangs, and also for the pasteboard, which is served by the very thread that waits.
/// Installed once on the application object, by the entry type. Main thread.
class FieldPasting : public QObject
{
    Q_OBJECT

public:
    /// @param pasteboard must outlive the object
    explicit FieldPasting(platform::Pasteboard &pasteboard, QObject *parent = nullptr);

protected:
    /// Takes over the paste keys, and drops the middle click, of line edits and text edits.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool paste(QObject &field);

    platform::Pasteboard &m_pasteboard;
};
