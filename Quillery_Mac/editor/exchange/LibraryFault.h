// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// The sentences that tell what is wrong with a file, in the user's language: LibraryFault::tr().
class LibraryFault
{
    Q_DECLARE_TR_FUNCTIONS(LibraryFault)
};
