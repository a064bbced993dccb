// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/LaunchAtLoginToggle.h"

#include "Quillery_Mac/ui/Switch.h"

namespace LaunchAtLogin {

Toggle::Toggle(QWidget *parent)
    : Toggle(tr("Launch at login"), Text::OneLine, parent)
{
}

Toggle::Toggle(const QString &label, Text kind, QWidget *parent)
    : SwitchRow(label, kind, parent)
{
    follow();
}

Toggle::Toggle(QWidget &label, QWidget *parent)
    : SwitchRow(label, parent)
{
    follow();
}

void Toggle::follow()
{
    connect(&m_launchAtLogin, &Observable::changed, this, &Toggle::refresh);
    connect(&control(), &QAbstractButton::clicked, this, [this](bool isOn) {
        m_launchAtLogin.setEnabled(isOn);
        refresh();
    });
    refresh();
}

void Toggle::refresh()
{
    control().setChecked(m_launchAtLogin.isEnabled());
}

} // namespace LaunchAtLogin
