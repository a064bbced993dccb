// SPDX-License-Identifier: MIT
#pragma once

#include <QProperty>
#include <QWidget>

class Switch;

/// A text with a switch at the end of its line. A click on the text is one on the switch.
class SwitchRow : public QWidget
{
    Q_OBJECT

public:
    /// How long a text may be: it takes one line, or as many as it needs.
    enum class Text { OneLine, Wrapped };

    explicit SwitchRow(const QString &label, Text kind = Text::OneLine, QWidget *parent = nullptr);
    /// With a view of the caller's in the text's place; the row owns it, and the switch takes its
    /// accessible name.
    explicit SwitchRow(QWidget &label, QWidget *parent = nullptr);

    /// From now on the switch shows the cell, and what the user switches is put into it. Once only;
    /// the cell must outlive the row.
    void bind(QProperty<bool> &cell);

    QWidget &label() const { return *m_label; }
    Switch &control() const { return *m_switch; }

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QWidget *m_label;
    Switch *m_switch;
    QPropertyNotifier m_observer;
};
