// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/Pasteboard.h"

/// Makes `content` the general pasteboard's plain text; a missing content is the empty text.
inline void writePlainText(platform::Pasteboard &pasteboard,
                           const std::optional<QByteArray> &content)
{
    pasteboard.clearContents();
    pasteboard.setString(content.value_or(QByteArray("")));
}
