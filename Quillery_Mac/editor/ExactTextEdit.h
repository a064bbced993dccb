// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/ExactText.h"
#include "Quillery_Mac/ui/ExactField.h"

#include <QPlainTextEdit>

/// A multi-line text field over bytes, of which it keeps every one: line ends of all kinds, control
/// characters, zero bytes, and bytes that are no valid UTF-8. Texts of ten million bytes can be
/// edited in it, also without a single line end. Main thread only.
///
/// The toolkit's document only shows the text; what was typed into it is carried over to an
/// ExactText, which also remembers what can be undone: the document's own memory of that would lose
/// the line ends.
class ExactTextEdit : public QPlainTextEdit, public ExactField
{
    Q_OBJECT

public:
    explicit ExactTextEdit(QWidget *parent = nullptr);

    /// The text as it stands, without copying it.
    const QByteArray &utf8() const { return m_text.utf8(); }
    /// Shows another text; nothing can be undone then. Not announced by edited().
    void setUtf8(const QByteArray &utf8);
    /// The text was changed elsewhere: cursor and history stay. Not announced by edited().
    void become(const QByteArray &utf8);

    void insertUtf8(const QByteArray &utf8) override;

    // In place of the base class's functions of these names, which know nothing of the bytes.
    void undo();
    void redo();

signals:
    /// The user changed the text.
    void edited();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    /// A selection was dropped within the field; what it holds is `utf8`. One step of the history.
    void moveSelection(const QTextCursor &selection, int destination, const QByteArray &utf8);

private:
    void documentChanged(int at, int removed, int added);
    void documentSettled();
    QString shownInDocument(int at, int count) const;
    void show(const ExactText::Change &change);
    void breakLongLine(int at);
    void alignText();
    void finish(const std::vector<ExactText::Change> &changes);

    bool handleKey(const QKeyEvent &event);
    bool leaveByTab(const QKeyEvent &event);
    void stepOverBreak(const QKeyEvent &event);

    ExactText m_text;
    QByteArray m_incoming; ///< what is being written into the document right now, if it is known
    std::optional<QByteArray> m_dropped; ///< during a drop, what is to be inserted after it
    bool m_isShowing = false;
    bool m_isEdited = false;
};
