// SPDX-License-Identifier: MIT
#include "tests/support/TestFolder.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Signals from the terminal are for the tests: this still has work when those have ended.
constexpr auto kRemover = "trap '' HUP INT TERM; read -r _; rm -rf -- \"$1\"";

} // namespace

TestFolder::TestFolder()
    : m_path(QDir::tempPath().toLocal8Bit() + "/quillery-tests-XXXXXX")
{
    if (mkdtemp(m_path.data()) == nullptr) {
        std::perror("the folder for temporary files");
        std::exit(EXIT_FAILURE);
    }
    // Some tests look at files as another user, who has to get there.
    chmod(m_path.constData(), S_IRWXU | S_IXGRP | S_IXOTH);
    qputenv("TMPDIR", m_path);
    startRemover();
}

TestFolder::~TestFolder()
{
    close(m_lifeline);
    waitpid(m_remover, nullptr, 0);
}

void TestFolder::startRemover()
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_lifeline = ends[1];
    m_remover = fork();
    if (m_remover == 0) {
        dup2(ends[0], STDIN_FILENO);
        execlp("sh", "sh", "-c", kRemover, "sh", m_path.constData(), nullptr);
        _exit(EXIT_FAILURE);
    }
    close(ends[0]);
}
