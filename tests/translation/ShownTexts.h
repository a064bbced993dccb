// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <string>

class QWidget;

/// Those texts that the window shows, or tells a screen reader, and that bear no mark of
/// MarkingTranslator; one a line. The program's name needs none.
///
/// @param others texts that are translated by other means, and pass
std::string unmarked(QWidget &window, const QStringList &others = {});

/// The texts of labels, buttons and recorders that the window has no room for, one a line.
std::string clipped(const QWidget &window);
