// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/SearchField.h"

#include "Quillery_Mac/ui/ClearButton.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int kMagnifier = 16;
constexpr int kClearInset = 8;
// QLineEdit keeps this much beside its text whatever its margins are.
constexpr int kLineEditMargin = 2;
constexpr qreal kEdge = 1;

} // namespace

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent)
    , m_clear(new ClearButton(tr("Clear"), this))
    , m_ringObserver(showsRing.addNotifier([this] { update(); }))
{
    setFrame(false);
    setAccessibleName(tr("Search"));
    setPlaceholderText(tr("Search"));
    // A context menu is a window that takes the keyboard away from the menu.
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAttribute(Qt::WA_MacShowFocusRect, false);
    connect(m_clear, &QAbstractButton::clicked, this, [this] { clear(); });
    connect(this, &QLineEdit::textChanged, m_clear,
            [this](const QString &text) { m_clear->setVisible(!text.isEmpty()); });
    m_clear->hide();
    placeText();
    takeColors();
}

QSize SearchField::sizeHint() const
{
    const int line = fontMetrics().height() + 2 * tokens::kSmallGap;
    return {tokens::kListWidth, std::max(tokens::kSearchFieldHeight, line)};
}

bool SearchField::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::PaletteChange:
        takeColors();
        break;
    case QEvent::LayoutDirectionChange:
        placeText();
        placeClearButton();
        break;
    default:
        break;
    }
    return QLineEdit::event(event);
}

void SearchField::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(paletteColors::base(parentWidget()->palette()));
        painter.drawRoundedRect(rect(), tokens::kHighlightRadius, tokens::kHighlightRadius);
        const bool hasRing = showsRing.value();
        drawing::strokeInside(
            painter, rect(), tokens::kHighlightRadius, hasRing ? tokens::kFocusRing : kEdge,
            hasRing ? paletteColors::highlight(palette()) : paletteColors::controlEdge(palette()));
        const QRectF glyph(tokens::kListRowPadding, (height() - kMagnifier) / 2.0, kMagnifier,
                           kMagnifier);
        systemImage::draw(painter, QStringLiteral("magnifier"),
                          drawing::mirrored(glyph, rect(), layoutDirection()).topLeft(), kMagnifier,
                          paletteColors::quietText(palette()));
    }
    QLineEdit::paintEvent(event);
}

void SearchField::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    placeClearButton();
}

void SearchField::mouseMoveEvent(QMouseEvent *event)
{
    QLineEdit::mouseMoveEvent(event);
    event->accept();
}

void SearchField::placeText()
{
    const int before =
        tokens::kListRowPadding + kMagnifier + tokens::kListSlotGap - kLineEditMargin;
    const int after = kClearInset + ClearButton::kImage + tokens::kSmallGap - kLineEditMargin;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    setTextMargins(isMirrored ? after : before, 0, isMirrored ? before : after, 0);
}

void SearchField::placeClearButton()
{
    const QRectF place(width() - kClearInset - ClearButton::kImage,
                       (height() - ClearButton::kImage) / 2.0, ClearButton::kImage,
                       ClearButton::kImage);
    m_clear->setGeometry(drawing::mirrored(place, rect(), layoutDirection()).toRect());
}

void SearchField::takeColors()
{
    if (m_isTakingColors)
        return;
    m_isTakingColors = true;
    // The ground is drawn here, with round corners, so the base class must not fill its own; the
    // placeholder is made readable where the theme's is not.
    const QPalette around = parentWidget()->palette();
    QPalette own;
    own.setResolveMask(0);
    own.setBrush(QPalette::Base, Qt::transparent);
    own.setColor(QPalette::PlaceholderText, paletteColors::placeholder(around));
    setPalette(own);
    m_isTakingColors = false;
}
