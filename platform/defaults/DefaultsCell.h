// SPDX-License-Identifier: MIT
#pragma once

#include "platform/defaults/DefaultsValue.h"

#include <QProperty>

namespace platform {

/// A state cell that stands for a key of the defaults: whatever is put into the cell is stored, and
/// whatever changes the key, another view or an edit of the file, shows in the cell. Main thread
/// only; must not outlive the defaults.
///
/// @tparam T   what the cell holds: bool, double or QString
/// @tparam Key the type of the key's default, as DefaultsKey has it
template <typename T, typename Key = T>
class DefaultsCell
{
public:
    DefaultsCell(Defaults &defaults, DefaultsKey<Key> key)
        : m_defaults(defaults)
        , m_key(key)
        , m_cell(readDefault(defaults, key))
        , m_write(m_cell.addNotifier([this] { write(); }))
        , m_read(QObject::connect(&defaults, &Defaults::changed, &defaults,
                                  [this](const QString &changed) {
                                      if (changed == m_key.key())
                                          m_cell = readDefault(m_defaults, m_key);
                                  }))
    {
    }
    ~DefaultsCell() { QObject::disconnect(m_read); }
    Q_DISABLE_COPY_MOVE(DefaultsCell)

    T value() const { return m_cell.value(); }
    void setValue(const T &value) { m_cell = value; }

    /// For bindings and observers.
    QProperty<T> &cell() { return m_cell; }

private:
    void write()
    {
        // Only what differs is written: an unset key with its default in force stays unset.
        if (readDefault(m_defaults, m_key) != m_cell.value())
            writeDefault(m_defaults, m_key.key(), m_cell.value());
    }

    Defaults &m_defaults;
    DefaultsKey<Key> m_key;
    QProperty<T> m_cell;
    QPropertyNotifier m_write;
    QMetaObject::Connection m_read;
};

} // namespace platform
