// SPDX-License-Identifier: MIT
#pragma once

#include "Precompiled.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>
