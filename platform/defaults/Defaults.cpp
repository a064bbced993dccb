// SPDX-License-Identifier: MIT
#include "platform/defaults/Defaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cmath>

namespace platform {

Defaults::Defaults(const QString &file, QObject *parent)
    : QObject(parent)
{
    QDir().mkpath(QFileInfo(file).absolutePath());
    m_settings = std::make_unique<QSettings>(file, QSettings::IniFormat);
    m_known = snapshot();
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &Defaults::fileChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &Defaults::fileChanged);
    watch();
}

Defaults::~Defaults() = default;

QString Defaults::standardFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Quillery/Quillery.conf");
}

bool Defaults::contains(const QString &key) const
{
    return m_settings->contains(key);
}

std::optional<QString> Defaults::string(const QString &key) const
{
    const QVariant value = m_settings->value(key);
    // A comma in a value that was written by hand makes QSettings see a list.
    if (!value.isValid() || value.typeId() == QMetaType::QStringList)
        return std::nullopt;
    return value.toString();
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
    return isNumber ? value : fallback;
}

void Defaults::setString(const QString &key, const QString &value)
{
    store(key, value);
}

void Defaults::setBoolean(const QString &key, bool value)
{
    store(key, value);
}

void Defaults::setNumber(const QString &key, double value)
{
    store(key, value);
}

void Defaults::remove(const QString &key)
{
    if (!contains(key))
        return;
    m_settings->remove(key);
    m_settings->sync();
    m_known.remove(key);
    watch();
    emit changed(key);
}

void Defaults::store(const QString &key, const QVariant &value)
{
    if (contains(key) && m_settings->value(key).toString() == value.toString())
        return;
    m_settings->setValue(key, value);
    m_settings->sync();
    m_known.insert(key, m_settings->value(key));
    watch();
    emit changed(key);
}

// Editors and QSettings replace the file, which ends a watch on it: the folder is watched too, and
// the file's watch is set up anew after every change.
void Defaults::watch()
{
    const QString file = m_settings->fileName();
    const QString folder = QFileInfo(file).absolutePath();
    if (QFileInfo::exists(folder) && !m_watcher.directories().contains(folder))
        m_watcher.addPath(folder);
    if (QFile::exists(file) && !m_watcher.files().contains(file))
        m_watcher.addPath(file);
}

void Defaults::fileChanged()
{
    m_settings->sync();
    watch();
    const QVariantMap before = std::exchange(m_known, snapshot());
    QStringList keys = before.keys() + m_known.keys();
    keys.removeDuplicates();
    for (const QString &key : std::as_const(keys)) {
        if (before.value(key).toString() != m_known.value(key).toString() ||
            before.contains(key) != m_known.contains(key)) {
            emit changed(key);
        }
    }
}

QVariantMap Defaults::snapshot() const
{
    QVariantMap values;
    const QStringList keys = m_settings->allKeys();
    for (const QString &key : keys)
        values.insert(key, m_settings->value(key));
    return values;
}

} // namespace platform
