// SPDX-License-Identifier: MIT
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace platform {

/// The user's defaults: one flat set of keys in `$XDG_CONFIG_HOME/Quillery/Quillery.conf`.
///
/// One object per process, owned by the entry type, main thread only; values() of a background task
/// are copied out before it starts. Writes replace the file as a whole (a new file, renamed over
/// the old one). A file that cannot be written keeps the values in memory. Edits of the file by
/// hand are noticed.
class Defaults : public QObject
{
    Q_OBJECT

public:
    /// @param file absolute path of the INI file; it and its folder need not exist
    explicit Defaults(const QString &file, QObject *parent = nullptr);
    ~Defaults() override;

    /// The file that the XDG base directories name for this user.
    static QString standardFile();

    /// Whether anything at all stands under `key`.
    bool contains(const QString &key) const;
    /// The text under `key`; none when there is nothing or the value is a list.
    std::optional<QString> string(const QString &key) const;
    /// The truth under `key` ("true", "false", "1", "0"); `fallback` when there is nothing that
    /// reads as one.
    bool boolean(const QString &key, bool fallback) const;
    /// The number under `key`, infinities and NaN included; `fallback` when there is none.
    double number(const QString &key, double fallback) const;

    void setString(const QString &key, const QString &value);
    void setBoolean(const QString &key, bool value);
    void setNumber(const QString &key, double value);
    void remove(const QString &key);

signals:
    /// The value under `key` is another one now, whoever changed it.
    void changed(const QString &key);

private:
    void store(const QString &key, const QVariant &value);
    void fileChanged();
    void watch();
    QVariantMap snapshot() const;

    std::unique_ptr<QSettings> m_settings;
    QFileSystemWatcher m_watcher;
    QVariantMap m_known;
};

} // namespace platform
