// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QtGlobal>

/// The measures that all views share, in points (device-independent pixels) unless a name says
/// otherwise. Heights that grow with the font are given as what is added to a line of text.
namespace tokens {

inline constexpr int kMenuWidth = 250;
inline constexpr int kMenuRowPadding = 10;    ///< text to window edge, on every side
inline constexpr int kMenuHighlightInset = 4; ///< highlight to window edge; the rest is inside it
inline constexpr int kMenuChevron = 12;

inline constexpr int kListWidth = 300;
inline constexpr int kListRowPadding = 7; ///< on every side
inline constexpr int kListSlot = 16;      ///< a folder's chevron, or nothing
inline constexpr int kListSlotGap = 6;
inline constexpr int kMemberIndent = 22;
inline constexpr int kDeleteButton = 16;
inline constexpr int kTextGap = 8;  ///< a row's text to what follows it
inline constexpr int kSmallGap = 6; ///< between what follows the text
inline constexpr int kHistoryMaximumHeight = 400;
inline constexpr int kSnippetsMaximumHeight = 360;
inline constexpr int kListMinimumHeight = 120;

inline constexpr int kPopoverMargin = 4; ///< popover edge to list
inline constexpr int kPopoverGap = 4;    ///< menu to popover, and popover to the work area's edge
inline constexpr int kSearchFieldHeight = 28;
inline constexpr int kSearchFieldGap = 4;

inline constexpr int kLibraryRowHeight = 28;
inline constexpr int kLibraryRowPadding = 12; ///< added to a line of text that is taller than that
inline constexpr int kDropStrip = 14;
inline constexpr int kToolbarHeight = 44;

inline constexpr int kScrollBar = 6;
inline constexpr int kScrollBarInset = 2;
inline constexpr int kScrollGutter = 10;

inline constexpr int kTintedButtonHeight = 22;
inline constexpr int kTintedButtonPadding = 10;
inline constexpr int kFocusRing = 2;
inline constexpr int kFocusRingClearance = 1;

inline constexpr int kSwitchWidth = 36;
inline constexpr int kSwitchHeight = 20;
inline constexpr int kSettingsWidth = 500;
inline constexpr int kSettingsMargin = 20; ///< window edge to card
inline constexpr int kCardGap = 16;
inline constexpr int kCardPadding = 12;
inline constexpr int kCardRowHeight = 44; ///< at least
inline constexpr QSize kSetupSize{480, 350};
inline constexpr int kSetupMargin = 32; ///< on both sides
inline constexpr int kSetupButtonWidth = 76;

inline constexpr qreal kCardRadius = 8;
inline constexpr qreal kWindowRadius = 10;
/// How opaque the menu's ground is where what is behind it is blurred. Quiet text, which has a
/// contrast of 4.5 on the plain ground, keeps 3 over black and over white.
inline constexpr float kBlurredGround = 0.9F;
inline constexpr qreal kHighlightRadius = 6;
inline constexpr qreal kTintedButtonRadius = 5;

inline constexpr qreal kTallyFont = 0.85; ///< times the desktop's font
inline constexpr qreal kHintFont = 0.92;
inline constexpr qreal kPageHeadingFont = 1.55;

inline constexpr int kFolderMotion = 120;  ///< milliseconds
inline constexpr int kLibraryMotion = 150; ///< milliseconds
inline constexpr int kSwitchMotion = 100;  ///< milliseconds
inline constexpr int kPageMotion = 180;    ///< milliseconds

} // namespace tokens
