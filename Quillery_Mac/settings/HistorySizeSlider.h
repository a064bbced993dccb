// SPDX-License-Identifier: MIT
#pragma once

#include <QProperty>
#include <QSlider>

#include <span>

/// The slider over the history sizes. What the user does with it is stored at once; it never stores
/// anything by itself, also when it cannot stand at the stored position.
class HistorySizeSlider : public QSlider
{
    Q_OBJECT

public:
    /// @param values the sizes, at least one; they must outlive the slider
    explicit HistorySizeSlider(std::span<const int> values, QWidget *parent = nullptr);

    /// From now on the slider shows the cell, and what the user chooses is put into it. Once only;
    /// the cell must outlive the slider.
    void bind(QProperty<double> &position);

    /// The number of entries that the slider stands for; screen readers read it.
    int entries() const;
    /// Chooses the smallest size that is not below `entries`, as a screen reader's user does.
    void setEntries(int entries);
    std::span<const int> values() const { return m_values; }

private:
    void show(double position);

    std::span<const int> m_values;
    QPropertyNotifier m_observer;
    bool m_isShowing = false;
};

/// Makes sliders over history sizes known to screen readers by their number of entries; once per
/// process is enough, further calls do nothing.
void installSettingsAccessibility();
