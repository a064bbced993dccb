// SPDX-License-Identifier: MIT
#pragma once

#include <QProperty>
#include <QWidget>

#include <span>

class HistorySizeSlider;
class QLabel;

/// The slider over the history sizes under its caption, with the chosen number of entries beside
/// it.
class HistorySizeRow : public QWidget
{
    Q_OBJECT

public:
    enum class Ends { Labelled, Plain };

    /// @param caption  stands above the slider and names it
    /// @param ends     whether the smallest and the largest size stand at the slider's ends
    /// @param position the stored position; must outlive the row
    /// @param values   the sizes; must outlive the row
    HistorySizeRow(const QString &caption, Ends ends, QProperty<double> &position,
                   std::span<const int> values, QWidget *parent = nullptr);

    HistorySizeSlider &slider() const { return *m_slider; }

private:
    QLabel *makeNumber();
    QLabel *makeEnd(int value);

    HistorySizeSlider *m_slider;
    QPropertyNotifier m_observer;
};
