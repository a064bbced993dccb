// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <sys/types.h>

/// The folder for temporary files of one test program, gone with it however it ends.
///
/// While the object exists, TMPDIR names the folder. It is removed by a small process that waits
/// for the end of this one, because the child of a death test, and a test program that crashes,
/// remove nothing. To be created first thing in main(), before any thread.
class TestFolder
{
public:
    TestFolder();
    /// Returns when the folder is gone.
    ~TestFolder();
    Q_DISABLE_COPY_MOVE(TestFolder)

    /// Absolute path.
    const QByteArray &path() const { return m_path; }
    /// The process that removes the folder; a child of this one.
    pid_t remover() const { return m_remover; }

private:
    void startRemover();

    QByteArray m_path;
    pid_t m_remover = -1;
    int m_lifeline = -1; ///< the remover waits for the end of this pipe
};
