// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class ExactTextEdit;

/// The rounded frame round a multi-line field, which shows who has the keyboard.
class TextFrame : public QWidget
{
    Q_OBJECT

public:
    /// The frame's colour while the field has not the keyboard.
    enum class Edge { Accent, Control };

    explicit TextFrame(Edge edge, QWidget *parent = nullptr);

    ExactTextEdit &field() const { return *m_field; }

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const Edge m_edge;
    ExactTextEdit *m_field;
};
