// SPDX-License-Identifier: MIT
#include "resources/Resources.h"

#include <QDir>

void initializeResources()
{
    Q_INIT_RESOURCE(quillery);
}

void initializeTranslations()
{
    Q_INIT_RESOURCE(translations);
}
