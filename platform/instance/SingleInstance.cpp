// SPDX-License-Identifier: MIT
#include "platform/instance/SingleInstance.h"

#include "platform/instance/ApplicationAdaptor.h"
#include "platform/instance/LockedInstance.h"
#include "platform/instance/SessionBus.h"
#include "platform/log/Log.h"

namespace platform {

SingleInstance::SingleInstance()
{
    auto *adaptor = new ApplicationAdaptor(actionNames(), this);
    connect(adaptor, &ApplicationAdaptor::userActed, this, &SingleInstance::userActed);
    connect(adaptor, &ApplicationAdaptor::activated, this, &SingleInstance::activated);
    connect(adaptor, &ApplicationAdaptor::actionActivated, this, &SingleInstance::actionActivated);
}

SingleInstance::~SingleInstance() = default;

QStringList SingleInstance::actionNames()
{
    return {QStringLiteral("paste-menu"),
            QStringLiteral("add-from-selection"),
            QStringLiteral("welcome-view"),
            QStringLiteral("add-snippet"),
            QStringLiteral("add-snippet-copy"),
            QStringLiteral("quillery"),
            QStringLiteral("settings"),
            QStringLiteral("check-for-updates"),
            QStringLiteral("quit")};
}

// The lock comes first, and with a bus too: it is all that a start without the bus on the same
// display can see of us, and we of it.
bool SingleInstance::acquire()
{
    if (!acquireLock())
        return false;
    switch (claimName()) {
    case Claim::Won:
        break;
    case Claim::Lost:
        m_lock.reset();
        return false;
    case Claim::NoBus:
        if (m_lock == nullptr)
            qCWarning(logApp) << "No place for a lock: a second instance would not be noticed";
        break;
    }
    return true;
}

// Is listening at once: another start may come while the bus is asked.
bool SingleInstance::acquireLock()
{
    m_lock = LockedInstance::create();
    if (m_lock == nullptr)
        return true;
    if (!m_lock->isFirst()) {
        m_lock->activateFirst();
        return false;
    }
    connect(m_lock.get(), &LockedInstance::activated, this, [this] {
        emit userActed(0);
        emit activated();
    });
    m_lock->listen();
    return true;
}

// The running instance may end between the two questions; then its name is free at the second try.
SingleInstance::Claim SingleInstance::claimName()
{
    constexpr int kTries = 2;
    const std::unique_ptr<SessionBus> bus = SessionBus::create();
    if (bus == nullptr || !bus->publish(*this))
        return Claim::NoBus;
    for (int i = 0; i < kTries; ++i) {
        switch (bus->requestName()) {
        case SessionBus::Answer::Yes:
            return Claim::Won;
        case SessionBus::Answer::None:
            return Claim::NoBus;
        case SessionBus::Answer::No:
            break;
        }
        if (bus->activateOwner() != SessionBus::Answer::No)
            return Claim::Lost;
    }
    return Claim::Lost;
}

} // namespace platform
