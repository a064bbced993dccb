// SPDX-License-Identifier: MIT
#include "updater/Updater.h"
