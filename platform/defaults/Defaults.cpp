// SPDX-License-Identifier: MIT
#include "platform/defaults/Defaults.h"

#include "platform/defaults/SettingsValue.h"
#include "platform/log/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

#include <cmath>
#include <utility>

namespace platform {

namespace {

std::optional<QString> textOf(const std::optional<QByteArray> &value)
{
    return value ? textOfSettingsValue(*value) : std::nullopt;
}

} // namespace

Defaults::Defaults(const QString &file, QObject *parent)
    : QObject(parent)
    , m_file(file)
{
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    read();
    m_announced = m_text.settings();
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &Defaults::fileChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &Defaults::fileChanged);
    watch();
}

QString Defaults::standardFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Quillery/Quillery.conf");
}

bool Defaults::contains(const QString &key) const
{
    return m_text.settings().contains(key);
}

std::optional<QString> Defaults::string(const QString &key) const
{
    return textOf(value(key));
}

bool Defaults::boolean(const QString &key, bool fallback) const
{
    const QString text = string(key).value_or(QString()).trimmed().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        return true;
    if (text == QLatin1String("false") || text == QLatin1String("0"))
        return false;
    return fallback;
}

double Defaults::number(const QString &key, double fallback) const
{
    const std::optional<QString> text = string(key);
    if (!text)
        return fallback;
    bool isNumber = false;
    const double value = text->trimmed().toDouble(&isNumber);
    return isNumber || std::isinf(value) ? value : fallback;
}

void Defaults::setString(const QString &key, const QString &value)
{
    store(key, value);
}

void Defaults::setBoolean(const QString &key, bool value)
{
    store(key, value ? QStringLiteral("true") : QStringLiteral("false"));
}

void Defaults::setNumber(const QString &key, double value)
{
    store(key, QString::number(value, 'g', QLocale::FloatingPointShortest));
}

void Defaults::remove(const QString &key)
{
    if (contains(key))
        change(key, std::nullopt);
}

Defaults::Value Defaults::value(const QString &key) const
{
    const auto found = m_text.settings().constFind(key);
    return found == m_text.settings().cend() ? std::nullopt : Value(*found);
}

void Defaults::store(const QString &key, const QString &text)
{
    if (string(key) != text)
        change(key, settingsValueOf(text));
}

// The file may have changed since it was read last; the watcher tells later.
void Defaults::change(const QString &key, const Value &value)
{
    m_unsaved.insert(key, value);
    const bool isKnown = read();
    apply(key, value);
    if (isKnown && write())
        m_unsaved.clear();
    else
        qCWarning(logApp).noquote() << "Settings cannot be written:" << m_file;
    watch();
    if (value)
        m_announced.insert(key, *value);
    else
        m_announced.remove(key);
    emit changed(key);
}

void Defaults::apply(const QString &key, const Value &value)
{
    if (value)
        m_text.set(key, *value);
    else
        m_text.remove(key);
}

/// @return false if there is something that cannot be read, and so must not be replaced
bool Defaults::read()
{
    // Only a file is opened: a pipe would keep us waiting.
    const QFileInfo info(m_file);
    if (!info.isFile())
        return !info.exists();
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    if (bytes.isEmpty() || bytes == m_bytes)
        return true;
    m_bytes = bytes;
    m_text = SettingsText(bytes);
    for (auto entry = m_unsaved.cbegin(); entry != m_unsaved.cend(); ++entry)
        apply(entry.key(), entry.value());
    return true;
}

// Without flush() the toolkit takes a write that a full disk has cut short for a success.
bool Defaults::write()
{
    const QByteArray bytes = m_text.bytes();
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    QSaveFile file(m_file);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
                           file.flush() && file.commit();
    if (isWritten)
        m_bytes = bytes;
    return isWritten;
}

// Editors and our own writes replace the file, which ends a watch on it: the folder is watched too,
// and the file's watch is set up anew after every change.
void Defaults::watch()
{
    const QString folder = QFileInfo(m_file).absolutePath();
    if (QFileInfo::exists(folder) && !m_watcher.directories().contains(folder))
        m_watcher.addPath(folder);
    if (QFileInfo(m_file).isFile() && !m_watcher.files().contains(m_file))
        m_watcher.addPath(m_file);
}

void Defaults::fileChanged()
{
    read();
    watch();
    const QHash<QString, QByteArray> before = std::exchange(m_announced, m_text.settings());
    QStringList changes;
    for (auto entry = m_announced.cbegin(); entry != m_announced.cend(); ++entry) {
        const auto old = before.constFind(entry.key());
        const bool isSame =
            old != before.cend() &&
            (*old == *entry || textOfSettingsValue(*old) == textOfSettingsValue(*entry));
        if (!isSame)
            changes += entry.key();
    }
    for (auto entry = before.cbegin(); entry != before.cend(); ++entry) {
        if (!m_announced.contains(entry.key()))
            changes += entry.key();
    }
    for (const QString &key : std::as_const(changes))
        emit changed(key);
}

} // namespace platform
