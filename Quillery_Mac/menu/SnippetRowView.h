// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/Snippets.h"
#include "Quillery_Mac/ui/Row.h"
#include "Quillery_Mac/ui/RowText.h"

#include <QMap>
#include <QUuid>

#include <optional>

class SnippetMenuState;

/// What the two kinds of rows of the snippet menu have in common: one line with a slot in front of
/// it, and the highlight that goes by row.
class SnippetRowView : public Row
{
    Q_OBJECT

public:
    SnippetRowView(SnippetMenuState &state, PointerMotion &motion, QWidget *parent);

    /// Shows another row, or none.
    virtual void setRow(std::optional<SnippetRow> row);

    bool isHighlighted() const override;
    QString name() const override { return m_text.text; }

protected:
    SnippetMenuState &state() const { return m_state; }
    const std::optional<SnippetRow> &row() const { return m_row; }
    void pointerEntered() override;
    /// Draws what stands in the slot, a square of the menu's image size at `topLeft`.
    virtual void drawSlot(QPainter &painter, QPointF topLeft) const;
    void paintEvent(QPaintEvent *event) override;

private:
    SnippetMenuState &m_state;
    std::optional<SnippetRow> m_row;
    RowText m_text;
};
