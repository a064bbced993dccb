// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/PaletteColors.h"

#include <QIcon>

#include <algorithm>
#include <cmath>

namespace paletteColors {

namespace {

// Only pure black on pure white, or the reverse, comes this close to 21.
constexpr qreal kHighContrastRatio = 20.9;
constexpr qreal kReadableRatio = 4.5;
constexpr qreal kQuiet = 0.70;
constexpr int kPressedDarkening = 116; // percent, as QColor::darker() has it

QColor faded(QColor color, qreal alpha)
{
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

QColor mixed(const QColor &over, const QColor &under, qreal alpha)
{
    const auto channel = [alpha](float a, float b) {
        return static_cast<float>(alpha * qreal(a) + (1 - alpha) * qreal(b));
    };
    return QColor::fromRgbF(channel(over.redF(), under.redF()),
                            channel(over.greenF(), under.greenF()),
                            channel(over.blueF(), under.blueF()));
}

qreal linear(float channel)
{
    const qreal value = qreal(channel);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

qreal luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

QColor active(const QPalette &palette, QPalette::ColorRole role)
{
    return palette.color(QPalette::Active, role);
}

QColor line(const QPalette &palette, qreal alpha)
{
    return isHighContrast(palette) ? text(palette) : faded(text(palette), alpha);
}

} // namespace

bool isHighContrast(const QPalette &palette)
{
    return QIcon::themeName().contains(u"HighContrast", Qt::CaseInsensitive) ||
           contrast(window(palette), text(palette)) >= kHighContrastRatio;
}

bool isDark(const QPalette &palette)
{
    return luminance(window(palette)) < luminance(text(palette));
}

QColor window(const QPalette &palette)
{
    return active(palette, QPalette::Window);
}

QColor base(const QPalette &palette)
{
    return active(palette, QPalette::Base);
}

QColor text(const QPalette &palette)
{
    return active(palette, QPalette::WindowText);
}

QColor disabledText(const QPalette &palette)
{
    return palette.color(QPalette::Disabled, QPalette::WindowText);
}

QColor quietText(const QPalette &palette)
{
    return line(palette, kQuiet);
}

QColor placeholder(const QPalette &palette)
{
    const QColor ground = base(palette);
    const QColor wanted = active(palette, QPalette::PlaceholderText);
    const QColor shown = mixed(wanted, ground, qreal(wanted.alphaF()));
    if (contrast(shown, ground) >= kReadableRatio)
        return shown;
    const QColor own = active(palette, QPalette::Text);
    return isHighContrast(palette) ? own : mixed(own, ground, kQuiet);
}

QColor divider(const QPalette &palette)
{
    return line(palette, 0.15);
}

QColor sidebar(const QPalette &palette)
{
    return mixed(text(palette), window(palette), 0.04);
}

// A dark theme's fields are often darker than its windows: a card stands out from both by being
// lighter.
QColor card(const QPalette &palette)
{
    const QColor ground = base(palette);
    return luminance(ground) > luminance(window(palette)) ? ground : sidebar(palette);
}

QColor windowEdge(const QPalette &palette)
{
    return line(palette, 0.22);
}

QColor controlEdge(const QPalette &palette)
{
    return line(palette, 0.55);
}

QColor hoverGround(const QPalette &palette)
{
    return faded(text(palette), 0.08);
}

QColor highlight(const QPalette &palette)
{
    return active(palette, QPalette::Highlight);
}

QColor pressedHighlight(const QPalette &palette)
{
    return highlight(palette).darker(kPressedDarkening);
}

QColor highlightedText(const QPalette &palette)
{
    return active(palette, QPalette::HighlightedText);
}

qreal lineWidth(const QPalette &palette)
{
    return isHighContrast(palette) ? 2 : 1;
}

qreal contrast(const QColor &one, const QColor &other)
{
    const qreal first = luminance(one);
    const qreal second = luminance(other);
    const auto [darker, lighter] = std::minmax(first, second);
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace paletteColors
