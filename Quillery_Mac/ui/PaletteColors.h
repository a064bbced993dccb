// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

/// The colours of our own drawing, all derived from the palette that a widget has while it paints.
///
/// The active group is always used: the menu and its popovers are one thing for the user, and a
/// highlight must not fade in the one that has not the keyboard right now.
namespace paletteColors {

/// Black and white, or a desktop theme that is meant for it: no quiet greys, thicker edges.
bool isHighContrast(const QPalette &palette);
bool isDark(const QPalette &palette);

QColor window(const QPalette &palette);
QColor base(const QPalette &palette);
/// The ground of a column beside the main one.
QColor sidebar(const QPalette &palette);
/// The ground of a group of settings.
QColor card(const QPalette &palette);
QColor text(const QPalette &palette);
QColor disabledText(const QPalette &palette);
/// Second lines, tallies, glyphs at rest.
QColor quietText(const QPalette &palette);
/// Readable on Base in every theme.
QColor placeholder(const QPalette &palette);
QColor divider(const QPalette &palette);
QColor windowEdge(const QPalette &palette);
QColor controlEdge(const QPalette &palette);
/// What lights up under the pointer without being the accent.
QColor hoverGround(const QPalette &palette);
/// The accent, and what is written on it.
QColor highlight(const QPalette &palette);
QColor pressedHighlight(const QPalette &palette);
QColor highlightedText(const QPalette &palette);

/// How thick edges and dividers are, in points.
qreal lineWidth(const QPalette &palette);
/// The contrast of two opaque colours, 1 to 21, as the accessibility guidelines for the web
/// compute it.
qreal contrast(const QColor &one, const QColor &other);

} // namespace paletteColors
