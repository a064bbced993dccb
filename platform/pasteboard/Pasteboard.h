// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Availability.h"

#include <QByteArray>
#include <QObject>

#include <optional>

namespace platform {

/// The general pasteboard: the text that the user copied last, in whatever program.
///
/// Built by the factory below, owned by the entry type, used on the main thread only. No call waits
/// for another program: changes are fetched in the background and published when they are complete,
/// so changeCount() and string() always speak of the same copy.
class Pasteboard : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Short name for the log, for example "x11".
    virtual QString backendId() const = 0;
    virtual Availability availability() const = 0;

    /// Counts the copies published so far; starts anywhere, only ever grows. A copy of the same
    /// text again is a change. Costs nothing (no call to the display server).
    virtual qint64 changeCount() const = 0;

    /// The plain text of the copy that changeCount() counts, as UTF-8 without a terminating zero;
    /// it may hold any code point including U+0000. None when the copy offers no text, when its
    /// owner did not answer in time, or when its owner marked it as concealed (a password). The
    /// text of an owner that answers later than that appears then, without another change.
    virtual std::optional<QByteArray> string() const = 0;

    /// Takes the pasteboard over with no content. Counts as a change.
    virtual void clearContents() = 0;

    /// Makes `utf8` the pasteboard's text. To be called after clearContents(); changes the content
    /// of that change and does not count again.
    /// @return false when the pasteboard could not be taken over
    virtual bool setString(const QByteArray &utf8) = 0;

    /// Offers the current text as the primary selection too, for programs that paste only that.
    virtual void offerAsPrimary() = 0;

    /// Copies what is selected: the primary selection's text becomes the pasteboard's, as a change
    /// of its own, once its owner has answered. Nothing changes if it offers no text, an empty or a
    /// concealed one, or if another copy comes first. For programs in which selecting is copying.
    /// Does nothing where there is no primary selection.
    virtual void adoptPrimary() = 0;

    /// Called once, on quitting: gives our text, and what was copied in our own text fields, to the
    /// session's clipboard manager if one runs, so that it outlives us. Waits at most half a
    /// second.
    virtual void handOver() = 0;

signals:
    /// changeCount() or string() is another one now.
    void changed();
};

} // namespace platform
