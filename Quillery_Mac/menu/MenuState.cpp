// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/MenuState.h"

#include "Quillery_Mac/ui/ListMoves.h"

namespace {

OptionFlags only(const QString &word)
{
    return {{word, true}};
}

bool hasPopover(const QString &word)
{
    return word == optionWords::kHistory || word == optionWords::kSnippets;
}

} // namespace

const QString MenuState::chars = QStringLiteral("abcdefghijklmnopqrstuvwxyz1234567890"
                                                ",./?'\"-+!@#$%^&*()`~"
                                                "ABCDEFGHIJKLMNOPQRSTUVWXYZ");

MenuState::MenuState()
    : m_popoverObserver(showPopover.addNotifier([this] { popoversChanged(); }))
    , m_selectedObserver(isSelected.addNotifier([this] { selectedChanged(); }))
{
}

void MenuState::up()
{
    if (isGiven())
        command(controls::kUp);
    else
        move(Step::Up);
}

void MenuState::down()
{
    if (isGiven())
        command(controls::kDown);
    else
        move(Step::Down);
}

void MenuState::right()
{
    if (isGiven()) {
        command(controls::kRight);
        return;
    }
    const std::optional<QString> active = currentActive.value();
    if (!active || !hasPopover(*active))
        return;
    OptionFlags flags = showPopover.value();
    flags[*active] = true;
    showPopover = flags;
    controls::set(controls, controls::kGive, true);
}

void MenuState::left()
{
    controls::set(controls, controls::kGive, false);
    showPopover = OptionFlags();
}

void MenuState::select()
{
    if (isGiven())
        command(controls::kSelect);
    else if (currentActive.value() == optionWords::kClear)
        clearAlert = true;
    else
        isSelected = currentActive.value();
}

void MenuState::quickKey(QChar character)
{
    passedSearch = QString(character);
    passedSearchNoEntry = true;
    activateOnly(optionWords::kSnippets);
    controls::set(controls, controls::kGive, true);
}

void MenuState::actionRowHovered(const QString &word, bool inside)
{
    if (passedSearchNoEntry.value())
        return;
    if (inside)
        currentActive = word;
    hoverOver = OptionFlags{{word, inside}};
    showPopover = OptionFlags();
}

// The maps are replaced once, not emptied first: entering the row of the popover that is open must
// not close and reopen it.
void MenuState::popoverRowEntered(const QString &word, qsizetype count)
{
    currentActive = word;
    hoverOver = OptionFlags();
    showPopover = count > 0 ? only(word) : OptionFlags();
}

void MenuState::setOptions(const QStringList &words)
{
    options = words;
    const auto isGone = [&words](const QString &word) { return !words.contains(word); };
    if (currentActive.value() && isGone(*currentActive.value()))
        currentActive = std::nullopt;
    if (isGone(optionWords::kClear))
        clearAlert = false;
    for (QProperty<OptionFlags> *flags : {&showPopover, &hoverOver}) {
        OptionFlags kept = flags->value();
        if (kept.removeIf(
                [&isGone](const OptionFlags::iterator &flag) { return isGone(flag.key()); }) > 0)
            flags->setValue(kept);
    }
}

bool MenuState::isHighlighted(const QString &word) const
{
    return hoverOver.value().value(word, false) || currentActive.value() == word;
}

void MenuState::move(Step step)
{
    const QStringList words = options.value();
    std::optional<int> from;
    if (currentActive.value() && words.contains(*currentActive.value()))
        from = static_cast<int>(words.indexOf(*currentActive.value()));
    const int count = static_cast<int>(words.size());
    const std::optional<int> to =
        step == Step::Up ? listMoves::up(from, count) : listMoves::down(from, count);
    if (to)
        activateOnly(words.at(*to));
    else
        currentActive = std::nullopt;
}

void MenuState::activateOnly(const QString &word)
{
    hoverOver = only(word);
    currentActive = word;
    showPopover = only(word);
}

void MenuState::command(const QString &word)
{
    const Controls given{{controls::kGive, true}};
    controls = given;
    controls::set(controls, word, true);
}

bool MenuState::isGiven() const
{
    return controls::isSet(controls.value(), controls::kGive);
}

void MenuState::popoversChanged()
{
    std::optional<QString> wanted;
    for (const QString &word : {optionWords::kHistory, optionWords::kSnippets}) {
        if (showPopover.value().value(word, false))
            wanted = word;
    }
    const std::optional<QString> before = openPopover.value();
    if (wanted == before)
        return;
    if (before)
        popoverClosed(*before);
    openPopover = wanted;
}

void MenuState::popoverClosed(const QString &word)
{
    controls = Controls{{controls::kGive, false}};
    overHistory = false;
    if (word != optionWords::kSnippets)
        return;
    passedSearch = std::nullopt;
    passedSearchNoEntry = false;
}

// Return on the row of a popover keeps the popover open; only the right arrow hands the keyboard
// over. An action row takes its own word back.
void MenuState::selectedChanged()
{
    const std::optional<QString> word = isSelected.value();
    if (!word || !hasPopover(*word))
        return;
    isSelected = std::nullopt;
    OptionFlags flags = showPopover.value();
    flags[*word] = true;
    showPopover = flags;
}
