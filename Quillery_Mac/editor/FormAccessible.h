// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

/// A picker that screen readers know by its name, with the choice as its value and description.
/// Others reach them on this desktop under the name of what is chosen, whatever they are for.
class Picker : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;
};

/// Makes pickers, and the form AddSnippet as a dialog, known to screen readers; once per process is
/// enough, further calls do nothing.
void installFormAccessibility();
