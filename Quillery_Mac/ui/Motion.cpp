// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/Motion.h"

#include <QStyle>
#include <QWidget>

namespace motion {

int duration(const QWidget &widget, int milliseconds)
{
    const int styled =
        widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget);
    return styled > 0 ? milliseconds : 0;
}

} // namespace motion
