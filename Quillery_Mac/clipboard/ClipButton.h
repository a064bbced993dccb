// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/ui/Row.h"
#include "Quillery_Mac/ui/RowText.h"

#include <QProperty>

#include <functional>

class Funcs;
class ManagedObjectContext;
class QAbstractButton;
class TintedButton;

namespace platform {
class Pasteboard;
}

/// What every row of a history list shares with the list; outlives the rows.
struct ClipButtonLinks
{
    Funcs &funcs;
    QProperty<bool> &doPaste;
    ManagedObjectContext &context;
    QProperty<Clip *> &isSelected;
    QProperty<bool> &show;
    platform::Pasteboard &pasteboard;
    PointerMotion &motion;
};

/// One row of the clip history: a click pastes the clip, a small button deletes it after a
/// confirmation in the row.
class ClipButton : public Row
{
    Q_OBJECT

public:
    ClipButton(const ClipButtonLinks &links, QWidget *parent);

    /// Shows another clip, or none.
    void setItem(Clip *clip, bool isConfirming);

    Clip *item = nullptr;
    Funcs &funcs;
    QProperty<bool> &doPaste;
    ManagedObjectContext &context;
    QProperty<Clip *> &isSelected;
    QProperty<bool> confirmDelete{false};
    QProperty<bool> &show;

    bool isHighlighted() const override;
    QString name() const override;
    QString description() const override;
    QString help() const override;
    void activate() override;
    /// Shows which buttons the row has now.
    void refreshButtons();

signals:
    void confirmDeleteChanged();
    /// The user confirmed: `clip` is deleted and saved.
    void deleted();

protected:
    void pointerEntered() override;
    bool isTarget(QPointF position) const override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void deleteClip();
    void makeConfirmation();
    void placeButtons();
    QRectF textRect() const;
    void drawText(QPainter &painter) const;

    platform::Pasteboard &m_pasteboard;
    RowText m_text;
    QAbstractButton *m_delete = nullptr; ///< this and the next two are made when first needed
    TintedButton *m_cancel = nullptr;
    TintedButton *m_confirm = nullptr;
    QPropertyNotifier m_confirmObserver;
};

/// Pastes a clip: its content goes to the pasteboard, `doPaste` is raised, and the clip is deleted,
/// as it comes back as the newest one. A save that fails is dropped.
void pasteClip(Clip &clip, platform::Pasteboard &pasteboard, QProperty<bool> &doPaste,
               ManagedObjectContext &context);
