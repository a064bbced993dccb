// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QObject;

namespace platform {

/// Lists the values of a GSettings schema by running GLib's gsettings program, without waiting.
///
/// The library itself would stay in this process, with its threads and its bus connection, for a
/// few lines that are wanted while somebody records a shortcut.
///
/// @param schema  its id, with ":" and a path if it has no fixed one
/// @param handler called once from the event loop, while `asker` exists; with lines of the form
///                "SCHEMA KEY VALUE", or an empty text without such a program or schema. The
///                program is ended together with `asker`.
void listSettings(const QString &schema, QObject &asker,
                  const std::function<void(const QString &)> &handler);

} // namespace platform
