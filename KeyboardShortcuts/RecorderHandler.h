// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/LocalizationTable.h"
#include "KeyboardShortcuts/MenuItem.h"
#include "KeyboardShortcuts/RecordedKey.h"

#include <QPointF>
#include <QRectF>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace platform {
class SystemShortcuts;
}

/// What an event means to a field that records a shortcut. Nothing here knows a window.
namespace KeyboardShortcuts {

/// A question or message that goes before everything else in its window.
struct RecorderAlert
{
    QString message;
    QString informativeText; ///< empty: none
    QStringList buttons;     ///< the first is the default one; none: the desktop's "OK"
};

/// The answers of an alert: this one for its first button, one more for the second, and so on.
inline constexpr int kAlertFirstButton = 1000;
inline constexpr int kAlertSecondButton = 1001;

/// What recording does to the field that records. To blur is to make the window's first responder
/// nothing, which ends recording. Main thread only.
class RecorderField
{
public:
    RecorderField() = default;
    virtual ~RecorderField() = default;
    Q_DISABLE_COPY_MOVE(RecorderField)

    virtual void blur() = 0;
    /// Blurs so that the Tab that is passed on next moves the focus on from here.
    virtual void blurForTab() = 0;
    virtual void makeFirstResponder() = 0;
    /// Empties the field and with it the shortcut; nothing while there is no clear button.
    virtual void pressClearButton() = 0;
    virtual void beep() = 0;
    /// Returns when the user has answered.
    /// @return none if the field went away meanwhile; it must not be touched any more then
    virtual std::optional<int> runAlert(const RecorderAlert &alert) = 0;
    /// Shows and stores the shortcut, tells who listens, and blurs. The field may be gone after it.
    virtual void store(const Shortcut &shortcut) = 0;
};

/// What a new shortcut is compared with, and the words for it.
struct RecorderSurroundings
{
    const platform::SystemShortcuts &systemShortcuts;
    std::function<std::vector<MenuItem>()> mainMenu;
    const LocalizationTable &texts;
};

enum class EventFate { PassOn, Swallow };

/// How far outside of the field a click still counts as one inside, in points, on each side.
inline constexpr qreal kClickMargin = 3;

/// @param position where the button was let go, in the coordinates of `bounds`
EventFate handleMouseUp(RecorderField &field, const QPointF &position, const QRectF &bounds);

EventFate handleKeyDown(RecorderField &field, const RecordedKey &key,
                        const RecorderSurroundings &surroundings);

} // namespace KeyboardShortcuts
