// SPDX-License-Identifier: MIT
#pragma once

#include "platform/login/LoginItem.h"

#include <QStringList>

#include <optional>
#include <utility>

/// A list of login items in memory that writes down what is asked of it.
class FakeLoginItem : public platform::LoginItem
{
public:
    QString backendId() const override { return QStringLiteral("fake"); }
    platform::Availability availability() const override { return {true, {}}; }
    bool isEnabled() const override { return isOnTheList; }

    platform::Result<void> registerItem() override
    {
        calls += QStringLiteral("register");
        return answer(registerError, true);
    }

    platform::Result<void> unregisterItem() override
    {
        calls += QStringLiteral("unregister");
        return answer(unregisterError, false);
    }

    bool hasStartedThisProcess() const override { return isStartedFromTheList; }

    /// As another program does, or the user by hand.
    void put(bool isOn)
    {
        if (std::exchange(isOnTheList, isOn) != isOn)
            emit changed();
    }

    bool isOnTheList = false;
    bool isStartedFromTheList = false;
    QStringList calls;
    std::optional<platform::Error> registerError;
    std::optional<platform::Error> unregisterError;

private:
    platform::Result<void> answer(const std::optional<platform::Error> &error, bool isOn)
    {
        if (error)
            return tl::unexpected(*error);
        put(isOn);
        return {};
    }
};
