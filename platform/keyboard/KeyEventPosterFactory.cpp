// SPDX-License-Identifier: MIT
#include "platform/keyboard/KeyEventPosterFactory.h"

#include "platform/keyboard/NullKeyEventPoster.h"
#include "platform/keyboard/X11KeyEventPoster.h"
#include "platform/log/Log.h"

namespace platform {

std::unique_ptr<KeyEventPoster> makeKeyEventPoster(Pasteboard &pasteboard)
{
    std::unique_ptr<KeyEventPoster> poster = X11KeyEventPoster::create(pasteboard);
    if (poster == nullptr)
        poster = std::make_unique<NullKeyEventPoster>();
    qCInfo(logKeyboard) << "Key events:" << poster->backendId();
    return poster;
}

} // namespace platform
