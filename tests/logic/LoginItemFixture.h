// SPDX-License-Identifier: MIT
#pragma once

#include "platform/login/XdgLoginItem.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// The folders of entries of a user and of a system, without our entry in either.
class LoginItemFixture : public ::testing::Test
{
protected:
    LoginItemFixture()
    {
        qunsetenv("XDG_CURRENT_DESKTOP");
        QDir().mkpath(config);
    }

    platform::XdgLoginItem makeItem() const { return platform::XdgLoginItem(program, folders); }

    static QByteArray read(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    static void write(const QString &path, const QByteArray &text)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
        file.write(text);
    }

    QStringList filesInFolder() const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                      QDir::NoDotAndDotDot);
    }

    const QByteArray goodEntry = "[Desktop Entry]\nType=Application\nName=Quillery\nExec=/bin/sh\n";
    const QByteArray hiddenEntry = goodEntry + "Hidden=true\n";

    QTemporaryDir root;
    const QString program = QStringLiteral("/bin/sh");
    const QString config = root.filePath(QStringLiteral("config"));
    const QString folder = config + QStringLiteral("/autostart");
    const QString entry = folder + QStringLiteral("/com.tarnwick.Quillery.desktop");
    const QString systemFolder = root.filePath(QStringLiteral("system/autostart"));
    const QString systemEntry = systemFolder + QStringLiteral("/com.tarnwick.Quillery.desktop");
    const QStringList folders{folder, systemFolder};
};
