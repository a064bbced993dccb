// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/settings/RecorderCocoa.h"

#include <QWidget>

namespace KeyboardShortcuts {

/// A field for a shortcut as views place it: alone, or in a row after its label.
class Recorder : public QWidget
{
    Q_OBJECT

public:
    using OnChange = RecorderCocoa::OnChange;

    /// The field alone. Who places it gives control() its accessible name.
    Recorder(const Name &name, const RecorderLinks &links, OnChange onChange = {},
             QWidget *parent = nullptr);
    /// A row with a plain text, which is also the field's accessible name.
    Recorder(const Name &name, const RecorderLinks &links, const QString &label,
             OnChange onChange = {}, QWidget *parent = nullptr);
    /// A row with a view of the caller's; the row owns it. The field takes its accessible name.
    Recorder(const Name &name, const RecorderLinks &links, QWidget &label, OnChange onChange = {},
             QWidget *parent = nullptr);

    bool hasLabel() const { return m_label != nullptr; }
    QWidget *label() const { return m_label; }
    RecorderCocoa &control() const { return *m_control; }

    const Name &name() const { return m_control->shortcutName(); }
    const OnChange &onChange() const { return m_control->onChange; }
    void setName(const Name &name) { m_control->setShortcutName(name); }
    void setOnChange(OnChange onChange) { m_control->onChange = std::move(onChange); }

private:
    QWidget *m_label = nullptr;
    RecorderCocoa *m_control;
};

} // namespace KeyboardShortcuts
