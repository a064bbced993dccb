// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QObject;

namespace platform {

/// The questions that the single instance puts to the session bus, each with a deadline.
class SessionBus
{
public:
    enum class Answer {
        Yes,
        No,
        None, ///< the other side does not answer in time, or not at all
    };

    /// Connects to the session's bus. Null when the session has none, or one that does not answer.
    /// A bus is never started.
    static std::unique_ptr<SessionBus> create();

    /// Offers the object's adaptors under the program's path.
    bool publish(QObject &object);

    /// Asks for the program's name. No: somebody has it.
    Answer requestName();

    /// Asks the one who has the name to activate. No: nobody has it any more.
    Answer activateOwner();

private:
    SessionBus() = default;
};

} // namespace platform
