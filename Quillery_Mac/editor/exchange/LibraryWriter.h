// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Result.h"

#include <QString>

class ManagedObjectContext;

/// Writes all snippets and folders of the context to a file, unsaved changes included, as
/// docs/library-file.md says. The same library gives the same bytes. The file is complete or, if
/// something fails, as it was before.
/// Errors: Io if the file cannot be written or the text of a snippet cannot be read.
platform::Result<void> exportLibrary(ManagedObjectContext &context, const QString &path);
