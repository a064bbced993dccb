// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

// The colours of the drawings that the galleries are looked at beside.

inline QPalette lightPalette()
{
    QPalette palette(QColor(0xf3f4f6), QColor(0xf3f4f6));
    palette.setColor(QPalette::WindowText, QColor(0x1b1d22));
    palette.setColor(QPalette::Text, QColor(0x1b1d22));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(0x6a6d74));
    palette.setColor(QPalette::Highlight, QColor(0x2360c4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x8e9299));
    return palette;
}

inline QPalette darkPalette()
{
    QPalette palette(QColor(0x26282d), QColor(0x26282d));
    palette.setColor(QPalette::WindowText, QColor(0xe8eaed));
    palette.setColor(QPalette::Text, QColor(0xe8eaed));
    palette.setColor(QPalette::Base, QColor(0x1a1c20));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9a9da4));
    palette.setColor(QPalette::Highlight, QColor(0x2e6bd6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x74777e));
    return palette;
}

inline QPalette contrastPalette()
{
    QPalette palette(Qt::black, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}
