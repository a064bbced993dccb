// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <functional>

namespace platform {

/// The text of a settings file as lines; those of the form "key=value" in its section [General] are
/// its settings. Of a key that stands there several times the last one counts.
///
/// What is not asked to change stays as it is, byte for byte: comments, other sections, settings
/// that nobody here knows, bytes that are no text, line ends. A line ends with its line: a quote
/// that is never closed harms no other setting.
class SettingsText
{
public:
    SettingsText() = default;
    /// @param bytes any bytes; text is UTF-8, with or without a byte order mark
    explicit SettingsText(const QByteArray &bytes);

    QByteArray bytes() const;

    /// The settings by key, with their values as they stand there; see SettingsValue.h.
    const QHash<QString, QByteArray> &settings() const { return m_settings; }

    /// Changes the setting's line, or adds one at the end of the section.
    /// @param key ASCII letters, digits, "_", "-" and "."
    void set(const QString &key, const QByteArray &value);
    /// Takes out every line of the setting.
    void remove(const QString &key);

private:
    struct Setting
    {
        qsizetype line; ///< index in m_lines
        QString key;
        QByteArray value;
    };

    /// Visits the settings in their order. @return the line below the section's last one, where a
    /// new setting belongs; -1 if there is no such section
    qsizetype visit(const std::function<void(const Setting &)> &visitor) const;
    QList<qsizetype> linesOf(const QString &key) const;
    void insertLine(qsizetype index, const QByteArray &content);
    QByteArray lineEnd() const;

    QByteArray m_byteOrderMark;
    QList<QByteArray> m_lines; ///< each with its line end, which the last one may lack
    QHash<QString, QByteArray> m_settings;
};

} // namespace platform
