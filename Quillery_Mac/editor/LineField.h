// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/ExactField.h"

#include <QLineEdit>
#include <QStringList>

/// A one-line field of the desktop's style, whose placeholder can be read in every theme and whose
/// context menu waits for no other program.
///
/// It holds texts of any length. Of a long one it shows the start, and behind it a sign that stands
/// for all the rest: who deletes, replaces, copies or brings back the sign does so with the rest.
class LineField : public QLineEdit, public ExactField
{
    Q_OBJECT

public:
    explicit LineField(QWidget *parent = nullptr);

    /// What the user sees and what the signs stand for. text() has the signs themselves.
    QString wholeText() const;
    /// Shows another text, and forgets what could be undone.
    void setWholeText(const QString &text);

    void insertUtf8(const QByteArray &utf8) override;

protected:
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    qsizetype room() const;
    QString folded(const QString &whole, qsizetype room);
    QString unfolded(const QString &shown) const;
    void insertAnew(const QString &inserted);
    void takeColors();

    QStringList m_rests; ///< what the signs stand for, one after the other
    bool m_isTakingColors = false;
};
