// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/Controls.h"

#include <QProperty>
#include <QString>
#include <QStringList>

#include <optional>

/// The option words of the rows that are not action rows; an action row's word is its label.
namespace optionWords {

inline const QString kHistory = QStringLiteral("history");
inline const QString kClear = QStringLiteral("clear");
inline const QString kSnippets = QStringLiteral("snippets");
inline const QString kQuickAdd = QStringLiteral("Quick Add...");
inline const QString kSnippetEditor = QStringLiteral("Snippet Editor...");
inline const QString kSettings = QStringLiteral("Settings...");
inline const QString kCheckForUpdates = QStringLiteral("Check for Updates...");
inline const QString kQuit = QStringLiteral("Quit");

} // namespace optionWords

/// The menu without its windows: the state cells, and what keys and pointer do to them. Main thread
/// only.
///
/// While "give" of `controls` is false the menu owns the keyboard, else the list of the open
/// popover does. A command never acts later than the key press that made it: what a list left lying
/// is dropped before the next command and when the popover closes.
class MenuState
{
public:
    MenuState();
    Q_DISABLE_COPY_MOVE(MenuState)

    QProperty<OptionFlags> hoverOver;
    QProperty<OptionFlags> showPopover;
    QProperty<bool> overHistory{false};
    QProperty<bool> clearAlert{false};
    QProperty<bool> clipHistory{true};
    QProperty<bool> doPaste{false};
    /// The words of the rows now shown, in row order.
    QProperty<QStringList> options;
    QProperty<bool> contextMenu{false};
    QProperty<bool> showSettings{false};
    QProperty<bool> showAdd{false};
    QProperty<std::optional<QString>> currentActive;
    QProperty<Controls> controls{Controls{{controls::kGive, false}}};
    QProperty<std::optional<QString>> isSelected;
    QProperty<std::optional<QString>> passedSearch;
    /// True from a quick key until the snippets popover closes: the pointer that happens to lie
    /// over an action row does not close what the key opened.
    QProperty<bool> passedSearchNoEntry{false};
    static const QString chars;

    /// The row whose popover is open; follows `showPopover`.
    QProperty<std::optional<QString>> openPopover;

    void up();
    void down();
    void right();
    void left();
    void select();
    void quickKey(QChar character);

    /// The pointer moved onto an action row, or off it.
    void actionRowHovered(const QString &word, bool inside);
    /// The pointer moved onto the row of a popover; `count`: how many things its list holds.
    void popoverRowEntered(const QString &word, qsizetype count);

    /// The rows now shown are those of `words`, in this order; what belongs to others is let go.
    void setOptions(const QStringList &words);
    bool isHighlighted(const QString &word) const;

private:
    enum class Step { Up, Down };

    void move(Step step);
    void activateOnly(const QString &word);
    void command(const QString &word);
    bool isGiven() const;
    void popoversChanged();
    void popoverClosed(const QString &word);
    void selectedChanged();

    QPropertyNotifier m_popoverObserver;
    QPropertyNotifier m_selectedObserver;
};
