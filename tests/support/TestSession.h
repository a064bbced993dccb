// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/ChildProcess.h"
#include "tests/support/TestFolder.h"

#include <memory>

/// A desktop session of a test program's own: an X server with a keyboard and a mouse, a session
/// bus and empty folders for everything that programs keep.
///
/// The server (Xephyr) is shown on another one (Xvfb). Key and button events that are made on that
/// outer server arrive in the inner one from its real keyboard and mouse, so a key that "the user"
/// holds can be told from one that a program types. Exports DISPLAY and the rest; to be created
/// before the application object. All numbers are free ones, and nothing outlives the object.
class TestSession
{
public:
    TestSession();
    ~TestSession();
    Q_DISABLE_COPY_MOVE(TestSession)

    static TestSession &current();

    /// The outer display, on which the user's hands are (UserInput).
    QByteArray outerDisplay() const { return m_outerDisplay; }
    QByteArray display() const { return m_display; }
    /// Absolute path of a folder that is removed in the end.
    const QByteArray &folder() const { return m_folder.path(); }

    static constexpr int kWidth = 1280;
    static constexpr int kHeight = 800;

private:
    void endServices() const;

    TestFolder m_folder;
    std::unique_ptr<ChildProcess> m_outer;
    QByteArray m_outerDisplay;
    std::unique_ptr<ChildProcess> m_inner;
    QByteArray m_display;
    std::unique_ptr<ChildProcess> m_bus;
};
