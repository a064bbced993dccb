// SPDX-License-Identifier: MIT
#include "login_item/LaunchAtLogin.h"

#include "platform/log/Log.h"
#include "platform/login/LoginItem.h"
#include "platform/login/NullLoginItem.h"

#include <QScopedValueRollback>

namespace LaunchAtLogin {

namespace {

struct State
{
    platform::NullLoginItem nowhere{QStringLiteral("launch at login was not set up")};
    platform::LoginItem *item = &nowhere;
    QMetaObject::Connection connection;
    bool isSetting = false; ///< what changes on the way is not announced
};

State &state()
{
    static State instance;
    return instance;
}

void itemChanged()
{
    if (!state().isSetting)
        emit observable().changed();
}

platform::Result<void> enable(platform::LoginItem &item)
{
    // An old entry may start another copy of the program. If it stays, it is written over.
    if (item.isEnabled())
        static_cast<void>(item.unregisterItem());
    return item.registerItem();
}

platform::Result<void> change(bool isEnabled)
{
    const QScopedValueRollback<bool> isSetting(state().isSetting, true);
    platform::LoginItem &item = *state().item;
    return isEnabled ? enable(item) : item.unregisterItem();
}

void logFailure(bool isEnabled, const platform::Error &error)
{
    qCCritical(logLaunchAtLogin, "Failed to %s launch at login: %s",
               isEnabled ? "enable" : "disable", error.text.toUtf8().constData());
}

} // namespace

void setUp(platform::LoginItem &item)
{
    tearDown();
    state().item = &item;
    state().connection =
        QObject::connect(&item, &platform::LoginItem::changed, &observable(), itemChanged);
}

void tearDown()
{
    QObject::disconnect(state().connection);
    state().item = &state().nowhere;
}

bool isEnabled()
{
    return state().item->isEnabled();
}

void setEnabled(bool isEnabled)
{
    if (const platform::Result<void> result = change(isEnabled); !result)
        logFailure(isEnabled, result.error());
    emit observable().changed();
}

Observable &observable()
{
    static Observable instance;
    return instance;
}

bool wasLaunchedAtLogin()
{
    return state().item->hasStartedThisProcess();
}

} // namespace LaunchAtLogin
