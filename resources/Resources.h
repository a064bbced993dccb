// SPDX-License-Identifier: MIT
#pragma once

/// Makes the files under ":/quillery" (system images, application icon) available. A static
/// library's resources are not registered by themselves; calling this again costs nothing.
void initializeResources();

/// The same for the translations, ":/quillery/translations/quillery_<language>.qm".
void initializeTranslations();
