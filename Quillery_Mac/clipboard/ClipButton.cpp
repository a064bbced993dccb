// SPDX-License-Identifier: MIT
#include "Quillery_Mac/clipboard/ClipButton.h"

#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PlainText.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/TintedButton.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QAbstractButton>
#include <QPainter>

namespace {

class DeleteButton : public QAbstractButton
{
public:
    DeleteButton(std::function<QColor()> color, QWidget *parent)
        : QAbstractButton(parent)
        , m_color(std::move(color))
    {
        setFocusPolicy(Qt::NoFocus);
        setAccessibleName(ClipButton::tr("Delete"));
        setMouseTracking(true);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        constexpr qreal kDown = 0.7;
        painter.setOpacity(isDown() ? kDown : 1);
        systemImage::draw(painter, QStringLiteral("multiply.circle.fill"), {0, 0},
                          tokens::kDeleteButton, m_color());
    }

private:
    std::function<QColor()> m_color;
};

} // namespace

void pasteClip(Clip &clip, platform::Pasteboard &pasteboard, QProperty<bool> &doPaste,
               ManagedObjectContext &context)
{
    writePlainText(pasteboard, clip.content());
    doPaste = true;
    context.deleteObject(clip);
    static_cast<void>(context.save());
}

ClipButton::ClipButton(const ClipButtonLinks &links, QWidget *parent)
    : Row(links.motion, parent)
    , funcs(links.funcs)
    , doPaste(links.doPaste)
    , context(links.context)
    , isSelected(links.isSelected)
    , show(links.show)
    , m_pasteboard(links.pasteboard)
    , m_confirmObserver(confirmDelete.addNotifier([this] {
        refreshButtons();
        emit confirmDeleteChanged();
    }))
{
}

void ClipButton::setItem(Clip *clip, bool isConfirming)
{
    if (item != clip)
        forgetPointer();
    item = clip;
    m_text = clip != nullptr ? historyRowText(clip->preview()) : RowText();
    confirmDelete = isConfirming;
    refreshHighlight();
    refreshButtons();
    update();
}

bool ClipButton::isHighlighted() const
{
    return item != nullptr && isSelected.value() == item;
}

QString ClipButton::name() const
{
    return m_text.text;
}

QString ClipButton::description() const
{
    return m_text.tally;
}

QString ClipButton::help() const
{
    if (item == nullptr)
        return {};
    const TextPreview preview = item->preview();
    return preview.isLineCountExact ? preview.start : preview.start + u'\u2026';
}

void ClipButton::activate()
{
    // Pasting closes the menu, which empties this row.
    if (Clip *clip = item)
        pasteClip(*clip, m_pasteboard, doPaste, context);
}

void ClipButton::pointerEntered()
{
    isSelected = item;
}

bool ClipButton::isTarget(QPointF position) const
{
    // A press that just misses one of the buttons must not paste.
    return Row::isTarget(position) && !(confirmDelete.value() && !textRect().contains(position));
}

void ClipButton::deleteClip()
{
    if (item == nullptr)
        return;
    context.deleteObject(*item);
    static_cast<void>(context.save());
    confirmDelete = false;
    emit deleted();
}

void ClipButton::refreshButtons()
{
    const bool isConfirming = item != nullptr && confirmDelete.value();
    const bool offersDelete = isHighlighted() && !isConfirming;
    if (offersDelete && m_delete == nullptr) {
        m_delete = new DeleteButton([this] { return textColor(); }, this);
        connect(m_delete, &QAbstractButton::clicked, this, [this] { confirmDelete = true; });
        placeButtons();
    }
    if (isConfirming && m_confirm == nullptr)
        makeConfirmation();
    if (m_delete != nullptr)
        m_delete->setVisible(offersDelete);
    if (m_confirm != nullptr) {
        m_cancel->setVisible(isConfirming);
        m_confirm->setVisible(isConfirming);
    }
    update();
}

void ClipButton::makeConfirmation()
{
    m_cancel = new TintedButton(tr("Cancel"), TintedButton::Role::Cancel, this);
    //: The button that really deletes; beside "Cancel" in a narrow row.
    m_confirm = new TintedButton(tr("Confirm?"), TintedButton::Role::Destructive, this);
    connect(m_cancel, &QAbstractButton::clicked, this, [this] { confirmDelete = false; });
    connect(m_confirm, &QAbstractButton::clicked, this, &ClipButton::deleteClip);
    placeButtons();
}

void ClipButton::placeButtons()
{
    const QRectF whole = rect();
    const auto place = [&whole, this](QWidget *button, qreal right, QSizeF size) {
        const QRectF box(right - size.width(), (whole.height() - size.height()) / 2, size.width(),
                         size.height());
        button->setGeometry(drawing::mirrored(box, whole, layoutDirection()).toRect());
    };
    const qreal end = width() - tokens::kListRowPadding;
    if (m_delete != nullptr)
        place(m_delete, end, {tokens::kDeleteButton, tokens::kDeleteButton});
    if (m_confirm == nullptr)
        return;
    const qreal confirmEnd = end + TintedButton::margin();
    place(m_confirm, confirmEnd, m_confirm->sizeHint());
    place(m_cancel, confirmEnd - m_confirm->sizeHint().width(), m_cancel->sizeHint());
}

// Where the text may stand; what follows it has its place even while it is not shown.
QRectF ClipButton::textRect() const
{
    qreal end = width() - tokens::kListRowPadding;
    if (confirmDelete.value() && m_confirm != nullptr) {
        end -= m_cancel->sizeHint().width() + m_confirm->sizeHint().width() -
               2 * TintedButton::margin();
    } else {
        end -= tokens::kDeleteButton;
    }
    const QRectF room(tokens::kListRowPadding, 0, end - tokens::kTextGap - tokens::kListRowPadding,
                      height());
    return drawing::mirrored(room, rect(), layoutDirection());
}

void ClipButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawGround(painter, rect());
    drawText(painter);
}

void ClipButton::drawText(QPainter &painter) const
{
    const Qt::LayoutDirection reading = layoutDirection();
    QRectF room = drawing::mirrored(textRect(), rect(), reading);
    if (!m_text.tally.isEmpty() && !confirmDelete.value()) {
        const QFont small = drawing::scaled(font(), tokens::kTallyFont);
        const qreal width = QFontMetricsF(small).horizontalAdvance(m_text.tally);
        const qreal end = room.right() + tokens::kTextGap - tokens::kSmallGap;
        const QRectF tally(end - width, 0, width + 1, height());
        drawing::drawLine(painter, drawing::mirrored(tally, rect(), reading),
                          {m_text.tally, small, quietColor(), {}, reading});
        room.setRight(tally.left() - tokens::kTextGap);
    }
    drawing::drawLine(
        painter, drawing::mirrored(room, rect(), reading),
        {m_text.text, font(), m_text.isQuiet ? quietColor() : textColor(), quietColor(), reading});
}

void ClipButton::resizeEvent(QResizeEvent *event)
{
    Row::resizeEvent(event);
    placeButtons();
}
