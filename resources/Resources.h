// SPDX-License-Identifier: MIT
#pragma once

/// Makes the files under ":/quillery" (system images, application icon) available. A static
/// library's resources are not registered by themselves; calling this again costs nothing.
void initializeResources();
