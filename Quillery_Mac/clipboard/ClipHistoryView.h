// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/clipboard/ClipButton.h"
#include "Quillery_Mac/store/LiveFetch.h"
#include "Quillery_Mac/ui/Controls.h"
#include "Quillery_Mac/ui/LazyColumn.h"
#include "Quillery_Mac/ui/PointerMotion.h"

#include <QProperty>
#include <QWidget>

#include <optional>
#include <set>

/// What a history list is connected to; all of it outlives the list.
struct ClipHistoryLinks
{
    ManagedObjectContext &context;
    Funcs &funcs;
    QProperty<bool> &doPaste;      ///< the menu's paste request
    QProperty<Controls> &controls; ///< the menu's command map
    QProperty<bool> &show;         ///< whether the history is shown
    platform::Pasteboard &pasteboard;
    PointerMotion &motion;
};

/// The recorded clips, newest first, in the popover of a menu. Acts on the commands of `controls`
/// while "give" is true. Main thread only.
class ClipHistoryView : public QWidget, private LazyColumnRows
{
    Q_OBJECT

public:
    explicit ClipHistoryView(const ClipHistoryLinks &links, QWidget *parent = nullptr);
    ~ClipHistoryView() override;

    ManagedObjectContext &context;
    Funcs &funcs;
    LiveFetch<Clip> items;
    QProperty<bool> &doPaste;
    QProperty<Controls> &controls;
    QProperty<Clip *> isSelected{nullptr};
    QProperty<bool> &show;

    /// The popover closes: acts on nothing any more, and lets go of the clips.
    void release();

    QSize sizeHint() const override;
    LazyColumn &column() { return m_column; }

signals:
    /// The pointer came into the list, or left it.
    void pointerInside(bool inside);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    int rowCount() const override;
    int kindOfRow(int row) const override;
    QWidget *makeRow(int kind, QWidget *parent) override;
    void bindRow(QWidget &widget, int row) override;
    void unbindRow(QWidget &widget) override;

    void itemsChanged();
    void controlsChanged();
    void selectionChanged();
    void moveTo(std::optional<int> row);
    std::optional<int> selectedRow() const;
    void rememberConfirming(const ClipButton &row);
    int rowHeight() const;

    PointerMotion &m_motion;
    platform::Pasteboard &m_pasteboard;
    std::vector<Clip *> m_clips;
    std::set<const Clip *> m_confirming; ///< stays with the clip when its row scrolls away
    LazyColumn m_column;
    bool m_isReleased = false;
    QPropertyNotifier m_controlsObserver;
    QPropertyNotifier m_selectionObserver;
};
