// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QFocusEvent>
#include <QObject>
#include <QProperty>
#include <QWidget>

#include <map>
#include <optional>

/// Which of some fields has the keyboard, as a cell: setting it moves the focus, and where the user
/// moves the focus the cell follows. Belongs to the view whose fields they are.
template <class Field>
class FocusState : public QObject
{
public:
    explicit FocusState(QProperty<std::optional<Field>> &cell)
        : m_cell(cell)
        , m_observer(cell.addNotifier([this] { moveFocus(); }))
    {
    }

    /// @param widget must outlive the object or be a child of the view
    void add(Field field, QWidget &widget)
    {
        m_widgets[field] = &widget;
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            m_cell = fieldOf(watched);
        else if (event->type() == QEvent::FocusOut && isLeaving(*event) &&
                 m_cell.value() == fieldOf(watched))
            m_cell = std::nullopt;
        return false;
    }

private:
    // While another window or a menu is in front, the field still is the one.
    static bool isLeaving(const QEvent &event)
    {
        const Qt::FocusReason reason = static_cast<const QFocusEvent &>(event).reason();
        return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
               reason != Qt::MenuBarFocusReason;
    }
    std::optional<Field> fieldOf(const QObject *watched) const
    {
        for (const auto &[field, widget] : m_widgets) {
            if (widget == watched)
                return field;
        }
        return std::nullopt;
    }
    void moveFocus()
    {
        const auto place = m_cell.value() ? m_widgets.find(*m_cell.value()) : m_widgets.end();
        if (place != m_widgets.end() && !place->second->hasFocus())
            place->second->setFocus(Qt::OtherFocusReason);
    }

    QProperty<std::optional<Field>> &m_cell;
    std::map<Field, QWidget *> m_widgets;
    QPropertyNotifier m_observer;
};
