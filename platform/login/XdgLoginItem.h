// SPDX-License-Identifier: MIT
#pragma once

#include "platform/login/LoginItem.h"

#include <QFileSystemWatcher>
#include <QStringList>

namespace platform {

/// The login item of desktops that follow the Desktop Application Autostart Specification: the
/// entry com.tarnwick.Quillery.desktop in the user's folder "autostart". An entry of that name in a
/// folder of the whole system counts while the user has none, and is switched off by a user's entry
/// that says Hidden.
///
/// An entry is written as a whole or not at all. A link in its place is replaced and is lost even
/// if the new entry cannot be written.
class XdgLoginItem : public LoginItem
{
    Q_OBJECT

public:
    /// @param program absolute path of what the entry starts
    /// @param folders absolute paths of the folders of entries: the user's own, then those of the
    ///                whole system, the most important first; none of them need exist
    XdgLoginItem(const QString &program, const QStringList &folders, QObject *parent = nullptr);
    ~XdgLoginItem() override;

    /// The folders that the XDG base directories name for this user.
    static QStringList standardFolders();

    QString backendId() const override;
    Availability availability() const override;
    bool isEnabled() const override;
    Result<void> registerItem() override;
    Result<void> unregisterItem() override;
    bool hasStartedThisProcess() const override;

private:
    Result<void> write(const QByteArray &text);
    Result<void> remove();
    void watch();
    void lookAgain();

    QString m_program;
    QStringList m_entries; ///< our entry in each folder, the one that counts most first
    QFileSystemWatcher m_watcher;
    bool m_wasEnabled = false;
    bool m_hasStartedThisProcess = false;
};

} // namespace platform
