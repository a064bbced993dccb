// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/settings/SwitchRow.h"
#include "login_item/LaunchAtLogin.h"

namespace LaunchAtLogin {

/// A switch for the launch at login. It shows the state that the desktop has, also when a change
/// failed or something else changed it.
class Toggle : public SwitchRow
{
    Q_OBJECT

public:
    /// Labelled "Launch at login".
    explicit Toggle(QWidget *parent = nullptr);
    /// With another text, verbatim.
    explicit Toggle(const QString &label, Text kind = Text::OneLine, QWidget *parent = nullptr);
    /// With a view of the caller's, see SwitchRow.
    explicit Toggle(QWidget &label, QWidget *parent = nullptr);

private:
    void follow();
    void refresh();

    Observable &m_launchAtLogin = observable();
};

} // namespace LaunchAtLogin
