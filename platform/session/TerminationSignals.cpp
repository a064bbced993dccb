// SPDX-License-Identifier: MIT
#include "platform/session/TerminationSignals.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace platform {

namespace {

sigset_t watchedSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&set, number);
    return set;
}

} // namespace

void TerminationSignals::block()
{
    const sigset_t set = watchedSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
    , m_notifier(QSocketNotifier::Read)
{
    block();
    const sigset_t set = watchedSignals();
    m_descriptor = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    if (m_descriptor < 0)
        return;
    m_notifier.setSocket(m_descriptor);
    m_notifier.setEnabled(true);
    connect(&m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::readSignal);
}

TerminationSignals::~TerminationSignals()
{
    m_notifier.setEnabled(false);
    if (m_descriptor >= 0)
        close(m_descriptor);
    const sigset_t set = watchedSignals();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

void TerminationSignals::readSignal()
{
    signalfd_siginfo info{};
    if (read(m_descriptor, &info, sizeof info) == static_cast<ssize_t>(sizeof info))
        emit received();
}

} // namespace platform
