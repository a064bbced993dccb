// SPDX-License-Identifier: MIT
#pragma once

#include "platform/login/LoginItem.h"

namespace platform {

/// The login item of a desktop that starts no program for us. Never enabled; every change fails.
class NullLoginItem : public LoginItem
{
    Q_OBJECT

public:
    /// @param reason one plain sentence for the log
    explicit NullLoginItem(const QString &reason, QObject *parent = nullptr);

    QString backendId() const override;
    Availability availability() const override;
    bool isEnabled() const override;
    Result<void> registerItem() override;
    Result<void> unregisterItem() override;
    bool hasStartedThisProcess() const override;

private:
    QString m_reason;
};

} // namespace platform
