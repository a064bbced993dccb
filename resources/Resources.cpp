// SPDX-License-Identifier: MIT
#include "resources/Resources.h"

#include <QDir>

void initializeResources()
{
    Q_INIT_RESOURCE(quillery);
}
