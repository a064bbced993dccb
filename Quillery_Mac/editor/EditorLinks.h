// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class Funcs;
class ManagedObjectContext;
class SnippetMatcher;

namespace platform {
class Pasteboard;
} // namespace platform

/// What the library window is connected to; all of it outlives the window.
struct EditorLinks
{
    ManagedObjectContext &viewContext;
    Funcs &funcs;
    SnippetMatcher &matcher;
    platform::Pasteboard &pasteboard;
    /// A search may begin: a good moment to prepare for it.
    std::function<void()> searchMayBegin = [] {};
};
