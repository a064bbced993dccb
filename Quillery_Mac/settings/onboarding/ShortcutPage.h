// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Name.h"
#include "Quillery_Mac/settings/RecorderLinks.h"

#include <QWidget>

/// A page of the setup that lets the user choose one of the shortcuts.
class ShortcutPage : public QWidget
{
    Q_OBJECT

public:
    /// @param defaultText stands before the recorder, and names it
    ShortcutPage(const QString &heading, const QString &defaultText,
                 const KeyboardShortcuts::Name &name,
                 const KeyboardShortcuts::RecorderLinks &recorder, QWidget *parent = nullptr);
};

/// The page for the shortcut that opens the paste menu.
class PasteMenuShortcutView : public ShortcutPage
{
    Q_OBJECT

public:
    explicit PasteMenuShortcutView(const KeyboardShortcuts::RecorderLinks &recorder,
                                   QWidget *parent = nullptr);
};

/// The page for the shortcut that makes a snippet of the selection.
class AddSnippetShortcutView : public ShortcutPage
{
    Q_OBJECT

public:
    explicit AddSnippetShortcutView(const KeyboardShortcuts::RecorderLinks &recorder,
                                    QWidget *parent = nullptr);
};
