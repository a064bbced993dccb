// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/RecorderHandler.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "KeyboardShortcuts/SystemConflict.h"

namespace KeyboardShortcuts {

namespace {

using Kind = RecordedKey::Kind;

/// Recording rests while the alert is shown and goes on afterwards.
std::optional<int> askAndGoOn(RecorderField &field, const RecorderAlert &alert)
{
    field.blur();
    const std::optional<int> answer = field.runAlert(alert);
    if (answer)
        field.makeFirstResponder();
    return answer;
}

bool isTakenByMenu(RecorderField &field, const Shortcut &shortcut,
                   const RecorderSurroundings &surroundings)
{
    if (!surroundings.mainMenu)
        return false;
    const auto title = titleOfItemUsing(shortcut, surroundings.mainMenu(), keyboardLayout());
    if (!title)
        return false;
    const QString format = surroundings.texts.text(textKey::kUsedByMenuItem);
    askAndGoOn(field, {format.arg(*title), {}, {}});
    return true;
}

/// Whether the system has the shortcut and the user, asked about it, does not want it all the same.
bool isLeftToSystem(RecorderField &field, const Shortcut &shortcut,
                    const RecorderSurroundings &surroundings)
{
    if (!isUsedBySystem(shortcut, surroundings.systemShortcuts))
        return false;
    const LocalizationTable &texts = surroundings.texts;
    const auto answer =
        askAndGoOn(field, {texts.text(textKey::kUsedBySystem),
                           texts.text(textKey::kCanBeChanged),
                           {texts.text(textKey::kOk), texts.text(textKey::kForceUse)}});
    return answer != kAlertSecondButton;
}

void record(RecorderField &field, const Shortcut &shortcut,
            const RecorderSurroundings &surroundings)
{
    if (isTakenByMenu(field, shortcut, surroundings) ||
        isLeftToSystem(field, shortcut, surroundings))
        return;
    field.store(shortcut);
}

/// Tab, Escape and Delete without modifiers. @return none for any other key
std::optional<EventFate> handleEditingKey(RecorderField &field, const RecordedKey &key)
{
    if (key.modifiers)
        return std::nullopt;
    switch (key.kind) {
    case Kind::Tab:
        field.blurForTab();
        return EventFate::PassOn;
    case Kind::Escape:
        field.blur();
        return EventFate::Swallow;
    case Kind::Delete:
        field.pressClearButton();
        return EventFate::Swallow;
    default:
        return std::nullopt;
    }
}

} // namespace

EventFate handleMouseUp(RecorderField &field, const QPointF &position, const QRectF &bounds)
{
    const QRectF inside = bounds.adjusted(-kClickMargin, -kClickMargin, kClickMargin, kClickMargin);
    if (inside.contains(position))
        return EventFate::Swallow;
    field.blur();
    return EventFate::PassOn;
}

EventFate handleKeyDown(RecorderField &field, const RecordedKey &key,
                        const RecorderSurroundings &surroundings)
{
    if (key.kind == Kind::Modifier)
        return EventFate::PassOn;
    if (key.isRepeat && key.kind != Kind::Tab)
        return EventFate::Swallow;
    if (const auto fate = handleEditingKey(field, key))
        return *fate;
    const bool hasModifiers = bool(key.modifiers & ~Modifiers(Modifier::Shift));
    if (!hasModifiers && key.kind != Kind::Function)
        field.beep();
    else if (key.shortcut)
        record(field, *key.shortcut, surroundings);
    return EventFate::Swallow;
}

} // namespace KeyboardShortcuts
