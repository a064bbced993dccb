// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QDropEvent;
class QObject;
class QWidget;

// A drag that began in this program belongs to the widget where it began, and a loop of the toolkit
// works with it until it is over. Everything else goes on meanwhile. Main thread.

/// Calls `command` when the drag that a drop event belongs to is over: at once for one of another
/// program; for a text of ours after its field is done with it, as the field may go by the command.
/// Not called if the receiver of the event is gone by then.
void afterDrag(const QDropEvent &event, QObject &receiver, std::function<void()> command);

/// Deletes the widget as soon as the event loop comes to it. A drag that began in it is given up,
/// and the widget goes when that is over.
void deleteAfterDrag(QWidget &widget);

/// For the close event of a window that is perhaps deleted when it closes: makes that wait in the
/// same way.
void closeAfterDrag(QWidget &window);
