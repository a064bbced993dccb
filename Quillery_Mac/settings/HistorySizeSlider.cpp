// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/HistorySizeSlider.h"

#include <QAccessibleWidget>

#include <algorithm>
#include <cmath>

namespace {

/// Tells the number of entries where others tell the position.
class HistorySizeAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit HistorySizeAccessible(HistorySizeSlider *slider)
        : QAccessibleWidget(slider, QAccessible::Slider)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value)
            return QString::number(slider()->entries());
        return QAccessibleWidget::text(kind);
    }
    QVariant currentValue() const override { return slider()->entries(); }
    void setCurrentValue(const QVariant &value) override { slider()->setEntries(value.toInt()); }
    QVariant maximumValue() const override { return slider()->values().back(); }
    QVariant minimumValue() const override { return slider()->values().front(); }
    QVariant minimumStepSize() const override { return 1; }

private:
    HistorySizeSlider *slider() const { return static_cast<HistorySizeSlider *>(widget()); }
};

QAccessibleInterface *makeSettingsAccessible(const QString &, QObject *object)
{
    if (auto *slider = qobject_cast<HistorySizeSlider *>(object))
        return new HistorySizeAccessible(slider);
    return nullptr;
}

} // namespace

void installSettingsAccessibility()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeSettingsAccessible);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

HistorySizeSlider::HistorySizeSlider(std::span<const int> values, QWidget *parent)
    : QSlider(Qt::Horizontal, parent)
    , m_values(values)
{
    installSettingsAccessibility();
    setRange(0, static_cast<int>(values.size()) - 1);
    setSingleStep(1);
    setPageStep(1);
    setTickInterval(1);
    setTickPosition(QSlider::TicksBelow);
}

void HistorySizeSlider::bind(QProperty<double> &position)
{
    m_observer = position.addNotifier([this, &position] { show(position.value()); });
    show(position.value());
    connect(this, &QSlider::valueChanged, this, [this, &position](int value) {
        if (!m_isShowing)
            position = value;
    });
    // Where the slider stands at an end because the stored position lies beyond it, choosing that
    // end is no change of the slider.
    connect(this, &QSlider::actionTriggered, this,
            [this, &position] { position = sliderPosition(); });
}

int HistorySizeSlider::entries() const
{
    return m_values[static_cast<std::size_t>(value())];
}

void HistorySizeSlider::setEntries(int entries)
{
    const auto found = std::lower_bound(m_values.begin(), m_values.end(), entries);
    setValue(static_cast<int>(found - m_values.begin()));
    triggerAction(SliderMove); // chosen, also where it stood there already
}

// The stored position may be any number; the slider stands at the nearest that it has.
void HistorySizeSlider::show(double position)
{
    const double inside = std::isnan(position) ? 0 : std::clamp<double>(position, 0, maximum());
    m_isShowing = true;
    setValue(static_cast<int>(inside));
    m_isShowing = false;
}
