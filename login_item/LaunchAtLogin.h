// SPDX-License-Identifier: MIT
#pragma once

#include "login_item/Observable.h"

namespace platform {
class LoginItem;
} // namespace platform

/// Whether the program starts when the user logs in.
///
/// Nothing is stored here: the desktop's list of login items is the only truth, and every question
/// reads it. Main thread only. Before setUp() the program is not on the list and cannot be put
/// there.
namespace LaunchAtLogin {

/// Gives the facility the desktop's list. Called once, before the first view; `item` must live
/// until tearDown() or the end of the process.
void setUp(platform::LoginItem &item);

/// Forgets the list.
void tearDown();

/// Whether this desktop starts the program at the next login.
bool isEnabled();

/// Puts the program on the list or takes it off. A program that is on it already is taken off
/// first, so that a stale entry is replaced. An error is logged and leaves the state as it is on
/// the disk; nobody is told of it otherwise.
void setEnabled(bool isEnabled);

/// The one object that views watch; lives as long as the process.
Observable &observable();

/// Whether this process was started at login, from the list.
///
/// Known where systemd runs the session (GNOME, Plasma with its systemd start) and where a session
/// manager starts the list itself (MATE, GNOME without systemd). Other sessions, as Xfce or a bare
/// one with dex, leave no sign in the process: false there, however it was started.
bool wasLaunchedAtLogin();

} // namespace LaunchAtLogin
