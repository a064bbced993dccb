// SPDX-License-Identifier: MIT
#pragma once

#include "platform/defaults/SettingsText.h"

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QString>

#include <optional>

namespace platform {

/// The user's defaults: one flat set of keys in `$XDG_CONFIG_HOME/Quillery/Quillery.conf`.
///
/// One object per process, owned by the entry type, main thread only; values of a background task
/// are copied out before it starts. Edits of the file by hand are noticed; a file that is deleted,
/// emptied or cannot be read any more says nothing, and what it said last holds.
///
/// A write changes its own key, keeps everything else that the file says at that moment, and
/// replaces the file as a whole (a new file, renamed over the old one). What cannot be written is
/// kept in memory and goes out with the next write.
class Defaults : public QObject
{
    Q_OBJECT

public:
    /// @param file absolute path of the INI file; it and its folder need not exist
    explicit Defaults(const QString &file, QObject *parent = nullptr);

    /// The file that the XDG base directories name for this user.
    static QString standardFile();

    /// Whether anything at all stands under `key`.
    bool contains(const QString &key) const;
    /// The text under `key`; none when there is nothing or the value is a list or of another type
    /// that has no text.
    std::optional<QString> string(const QString &key) const;
    /// The truth under `key` ("true", "false", "1", "0"); `fallback` when there is nothing that
    /// reads as one.
    bool boolean(const QString &key, bool fallback) const;
    /// The number under `key`, infinities and NaN included, one too large counting as infinite;
    /// `fallback` when there is nothing, or a text that is no number.
    double number(const QString &key, double fallback) const;

    void setString(const QString &key, const QString &value);
    void setBoolean(const QString &key, bool value);
    void setNumber(const QString &key, double value);
    void remove(const QString &key);

signals:
    /// The value under `key` is another one now, whoever changed it.
    void changed(const QString &key);

private:
    /// What is to stand under a key; none for nothing.
    using Value = std::optional<QByteArray>;

    Value value(const QString &key) const;
    void store(const QString &key, const QString &text);
    void change(const QString &key, const Value &value);
    bool read();
    bool write();
    void apply(const QString &key, const Value &value);
    void fileChanged();
    void watch();

    const QString m_file;
    QFileSystemWatcher m_watcher;
    QByteArray m_bytes; ///< what the file held when it was read or written last
    SettingsText m_text;
    QHash<QString, Value> m_unsaved;
    QHash<QString, QByteArray> m_announced; ///< the settings that listeners know of
};

} // namespace platform
