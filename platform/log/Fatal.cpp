// SPDX-License-Identifier: MIT
#include "platform/log/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace platform {

void fatalError(const QString &message, const char *sourceFile)
{
    QString line = message;
    line.replace(u'\n', u' ');
    if (sourceFile)
        std::fprintf(stderr, "%s: ", sourceFile);
    std::fprintf(stderr, "Fatal error: %s\n", line.toUtf8().constData());
    std::fflush(stderr);
    std::abort();
}

} // namespace platform
