// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>
#include <QObject>

#include <optional>

class MenuView;
class QKeyEvent;
class QWidget;

/// What a key means to a menu.
struct MenuKey
{
    enum class Kind { Up, Down, Left, Right, Return, Space, Escape, Character };

    Kind kind;
    QChar character; ///< of Kind::Character

    friend bool operator==(const MenuKey &, const MenuKey &) = default;
};

/// Reads a key press. The modifiers of the shortcut that summoned the menu may still be held: Shift
/// and Super are ignored for the named keys; Control and Alt make any key somebody else's. A
/// character is what the layout produced, Shift allowed for it, but not Control, Alt or Super. In
/// right-to-left reading left and right change places, as the popovers do.
std::optional<MenuKey> menuKey(const QKeyEvent &event, Qt::LayoutDirection direction);

/// Routes every key press in the windows of a menu: the menu's keys to its handlers, text to the
/// search field of the open snippets popover wherever the focus is. Lives as long as the menu.
class MenuKeys : public QObject
{
    Q_OBJECT

public:
    explicit MenuKeys(MenuView &menu);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isOurs(QObject *watched) const;
    bool handle(QWidget &receiver, QKeyEvent &event);
    bool pressButton(QWidget &receiver, const QKeyEvent &event) const;
    bool handleText(QWidget &receiver, QKeyEvent &event);
    void perform(const MenuKey &key);

    MenuView &m_menu;
};
