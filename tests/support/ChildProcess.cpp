// SPDX-License-Identifier: MIT
#include "tests/support/ChildProcess.h"

#include <vector>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kStartDeadline = 30000; // milliseconds
constexpr int kEndDeadline = 2000;    // xfwm4 now and then sleeps over its SIGTERM

[[noreturn]] void become(const QList<QByteArray> &command, int output)
{
    ChildProcess::endWithParent();
    dup2(output, STDOUT_FILENO);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDERR_FILENO);
    std::vector<char *> arguments;
    for (const QByteArray &argument : command)
        arguments.push_back(const_cast<char *>(argument.constData()));
    arguments.push_back(nullptr);
    execvp(arguments.front(), arguments.data());
    _exit(127);
}

} // namespace

ChildProcess::ChildProcess(const QList<QByteArray> &command)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_output = ends[0];
    m_process = fork();
    if (m_process == 0)
        become(command, ends[1]);
    close(ends[1]);
}

ChildProcess::~ChildProcess()
{
    if (m_process > 0) {
        kill(m_process, SIGTERM);
        if (!endsWithin(kEndDeadline))
            kill(m_process, SIGKILL);
        waitForEnd();
    }
    close(m_output);
}

QByteArray ChildProcess::readLine()
{
    QByteArray line;
    char letter = 0;
    pollfd waited{m_output, POLLIN, 0};
    while (poll(&waited, 1, kStartDeadline) == 1 && read(m_output, &letter, 1) == 1 &&
           letter != '\n') {
        line.append(letter);
    }
    return line;
}

QByteArray ChildProcess::readAll()
{
    QByteArray all;
    char buffer[4096];
    for (;;) {
        const ssize_t count = read(m_output, buffer, sizeof buffer);
        if (count <= 0)
            return all;
        all.append(buffer, count);
    }
}

int ChildProcess::waitForEnd()
{
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool ChildProcess::endsWithin(int milliseconds) const
{
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, m_process, 0));
    pollfd waited{handle, POLLIN, 0};
    const bool hasEnded = poll(&waited, 1, milliseconds) == 1;
    close(handle);
    return hasEnded;
}

void ChildProcess::sendSignal(int number) const
{
    kill(m_process, number);
}

void ChildProcess::endWithParent()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}
