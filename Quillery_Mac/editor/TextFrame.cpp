// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/TextFrame.h"

#include "Quillery_Mac/editor/ExactTextEdit.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr qreal kRadius = 8;
// The document keeps four more points round its text.
constexpr int kPadding = 4;

} // namespace

TextFrame::TextFrame(Edge edge, QWidget *parent)
    : QWidget(parent)
    , m_edge(edge)
    , m_field(new ExactTextEdit)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    layout->addWidget(m_field);
    setFocusProxy(m_field);
    m_field->setFrameShape(QFrame::NoFrame);
    // The ground has round corners, so it is drawn here.
    m_field->viewport()->setAutoFillBackground(false);
    m_field->installEventFilter(this);
}

void TextFrame::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paletteColors::base(palette()));
    painter.drawRoundedRect(rect(), kRadius, kRadius);
    const bool hasFocus = m_field->hasFocus();
    const bool isAccent = hasFocus || m_edge == Edge::Accent;
    drawing::strokeInside(painter, rect(), kRadius,
                          hasFocus ? tokens::kFocusRing : paletteColors::lineWidth(palette()),
                          isAccent ? paletteColors::highlight(palette())
                                   : paletteColors::controlEdge(palette()));
}

bool TextFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(watched, event);
}
