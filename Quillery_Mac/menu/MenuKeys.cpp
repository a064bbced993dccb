// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/MenuKeys.h"

#include "Quillery_Mac/menu/MenuView.h"
#include "Quillery_Mac/ui/TintedButton.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <array>
#include <utility>

namespace {

struct NamedKey
{
    int key;
    MenuKey::Kind kind;
};

constexpr std::array<NamedKey, 8> kNamedKeys{{
    {Qt::Key_Up, MenuKey::Kind::Up},
    {Qt::Key_Down, MenuKey::Kind::Down},
    {Qt::Key_Left, MenuKey::Kind::Left},
    {Qt::Key_Right, MenuKey::Kind::Right},
    {Qt::Key_Return, MenuKey::Kind::Return},
    {Qt::Key_Enter, MenuKey::Kind::Return},
    {Qt::Key_Space, MenuKey::Kind::Space},
    {Qt::Key_Escape, MenuKey::Kind::Escape},
}};

constexpr Qt::KeyboardModifiers kForeign = Qt::ControlModifier | Qt::AltModifier;

MenuKey::Kind mirrored(MenuKey::Kind kind)
{
    if (kind == MenuKey::Kind::Left)
        return MenuKey::Kind::Right;
    return kind == MenuKey::Kind::Right ? MenuKey::Kind::Left : kind;
}

// A key that is held down repeats; these must not act on what the first press brought up.
bool actsOnce(const MenuKey &key)
{
    return key.kind == MenuKey::Kind::Return || key.kind == MenuKey::Kind::Space ||
           key.kind == MenuKey::Kind::Escape || key.kind == MenuKey::Kind::Character;
}

// The keys by which a button presses itself, and by which the keyboard goes on to the next one.
bool isButtonsOwn(const QWidget &receiver, const QKeyEvent &event)
{
    return qobject_cast<const TintedButton *>(&receiver) != nullptr &&
           (event.key() == Qt::Key_Space || event.key() == Qt::Key_Tab ||
            event.key() == Qt::Key_Backtab);
}

} // namespace

std::optional<MenuKey> menuKey(const QKeyEvent &event, Qt::LayoutDirection direction)
{
    if (event.modifiers() & kForeign)
        return std::nullopt;
    const auto named = std::find_if(kNamedKeys.begin(), kNamedKeys.end(),
                                    [&event](NamedKey row) { return row.key == event.key(); });
    if (named != kNamedKeys.end()) {
        return MenuKey{direction == Qt::RightToLeft ? mirrored(named->kind) : named->kind, {}};
    }
    const QString text = event.text();
    if (event.modifiers() & Qt::MetaModifier || text.size() != 1 ||
        !MenuState::chars.contains(text.front()))
        return std::nullopt;
    return MenuKey{MenuKey::Kind::Character, text.front()};
}

MenuKeys::MenuKeys(MenuView &menu)
    : m_menu(menu)
{
    // On the application, as a key goes to whatever has the focus in the menu or its popover.
    QCoreApplication::instance()->installEventFilter(this);
}

bool MenuKeys::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if ((!isPress && event->type() != QEvent::ShortcutOverride) || !isOurs(watched))
        return false;
    auto &receiver = *static_cast<QWidget *>(watched);
    auto &key = static_cast<QKeyEvent &>(*event);
    if (!isPress) {
        // No shortcut of the program takes a key from an open menu.
        key.accept();
        return true;
    }
    return handle(receiver, key);
}

bool MenuKeys::isOurs(QObject *watched) const
{
    const auto *widget = qobject_cast<const QWidget *>(watched);
    return widget != nullptr && m_menu.isVisible() && m_menu.isWindowOfMenu(*widget->window());
}

bool MenuKeys::handle(QWidget &receiver, QKeyEvent &event)
{
    m_menu.motion().keyPressed();
    if (pressButton(receiver, event))
        return true;
    if (isButtonsOwn(receiver, event))
        return false;
    const std::optional<MenuKey> key = menuKey(event, m_menu.layoutDirection());
    const bool isText =
        !key || key->kind == MenuKey::Kind::Character || key->kind == MenuKey::Kind::Space;
    if (isText && m_menu.searchField() != nullptr)
        return handleText(receiver, event);
    if (key && !(event.isAutoRepeat() && actsOnce(*key)))
        perform(*key);
    event.accept();
    return key.has_value();
}

// A button of the confirmation that has the keyboard is pressed by Return as by Space.
bool MenuKeys::pressButton(QWidget &receiver, const QKeyEvent &event) const
{
    auto *button = qobject_cast<TintedButton *>(&receiver);
    if (button == nullptr || (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter))
        return false;
    if (!event.isAutoRepeat())
        button->click();
    return true;
}

bool MenuKeys::handleText(QWidget &receiver, QKeyEvent &event)
{
    constexpr Qt::KeyboardModifiers kNotText = Qt::AltModifier | Qt::MetaModifier;
    QLineEdit *field = m_menu.searchField();
    const bool isMove = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    const bool isSomebodyElses =
        (event.modifiers() & kNotText) && !event.text().isEmpty() && event.text().front().isPrint();
    if (isMove || isSomebodyElses) {
        event.accept();
        return true;
    }
    // What the field leaves, such as a modifier by itself, goes on to its parents.
    if (&receiver == field || receiver.isAncestorOf(field))
        return false;
    // The keyboard is on its way to the popover: what was typed meanwhile is not lost.
    QKeyEvent copy(event.type(), event.key(), event.modifiers(), event.text(), event.isAutoRepeat(),
                   static_cast<quint16>(event.count()));
    QCoreApplication::sendEvent(field, &copy);
    event.accept();
    return true;
}

void MenuKeys::perform(const MenuKey &key)
{
    switch (key.kind) {
    case MenuKey::Kind::Up:
        m_menu.up();
        break;
    case MenuKey::Kind::Down:
        m_menu.down();
        break;
    case MenuKey::Kind::Left:
        m_menu.left();
        break;
    case MenuKey::Kind::Right:
        m_menu.right();
        break;
    case MenuKey::Kind::Return:
    case MenuKey::Kind::Space:
        m_menu.select();
        m_menu.offerConfirmation();
        break;
    case MenuKey::Kind::Escape:
        m_menu.escape();
        break;
    case MenuKey::Kind::Character:
        m_menu.quickKey(key.character);
        break;
    }
}
