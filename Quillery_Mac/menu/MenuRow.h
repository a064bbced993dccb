// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/Row.h"

class MenuState;

/// What the rows of the menu have in common: a label, an option word, maybe a hint or a chevron,
/// and the highlight that the menu's state gives them.
class MenuRow : public Row
{
    Q_OBJECT

public:
    enum class Ending { None, Chevron };

    /// @param word the row's option word
    MenuRow(MenuState &state, PointerMotion &motion, const QString &label, const QString &word,
            Ending ending, QWidget *parent);

    const QString &word() const { return m_word; }
    /// Shown at the row's end in the quiet colour, for example a shortcut; it never mirrors.
    void setHint(const QString &hint);

    bool isHighlighted() const override;
    QString name() const override { return m_label; }
    QString description() const override { return m_hint; }
    QSize sizeHint() const override;

protected:
    MenuState &state() const { return m_state; }
    /// Where the label ends at the latest, in left-to-right terms.
    virtual qreal labelEnd() const;
    void paintEvent(QPaintEvent *event) override;

private:
    void drawHint(QPainter &painter) const;
    qreal hintWidth() const;

    MenuState &m_state;
    QString m_label;
    QString m_word;
    QString m_hint;
    Ending m_ending;
};
