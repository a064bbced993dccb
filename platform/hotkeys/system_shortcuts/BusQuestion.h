// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

#include <functional>

class QObject;

namespace platform {

/// A method of a service on the session's bus.
struct BusQuestion
{
    QString service;
    QString path;
    QString interface;
    QString method;
    QVariantList arguments = {};
};

/// Puts the question without waiting, and without starting a service that does not run. The
/// process must have connected to its session bus before: connecting could wait for a bus that
/// hangs.
///
/// @param signature the D-Bus signature that the answer must have
/// @param handler   called once from the event loop, while `asker` exists; with the answer's first
///                  argument, or an invalid value if there is no bus, no such service, no answer in
///                  time, or one of another shape
void askBus(const BusQuestion &question, const QString &signature, QObject &asker,
            const std::function<void(const QVariant &)> &handler);

} // namespace platform
