// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/ChildProcess.h"

#include <memory>
#include <ostream>

/// A running window manager on the test session's display; it ends with the object. One at a time.
class WindowManager
{
public:
    enum class Kind { None, Openbox, Xfwm4, I3 };

    /// Returns when the window manager manages windows; fails the test if it does not start.
    explicit WindowManager(Kind kind);
    ~WindowManager();
    Q_DISABLE_COPY_MOVE(WindowManager)

private:
    std::unique_ptr<ChildProcess> m_process;
};

/// For the names of tests.
void PrintTo(WindowManager::Kind kind, std::ostream *out);
