// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/app/Funcs.h"
#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/menu/MenuView.h"
#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "Quillery_Mac/store/Snippet.h"
#include "Quillery_Mac/store/SnippetMatcher.h"
#include "Quillery_Mac/ui/PanelWindow.h"
#include "Quillery_Mac/ui/Popover.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeMenuWindows.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakeUpdater.h"

#include <QCloseEvent>
#include <QStringList>
#include <QTemporaryDir>

/// A panel that dismisses its group when it is closed, as the program's panels do.
class BenchPanel : public PanelWindow
{
public:
    using PanelWindow::PanelWindow;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        menuWindows().dismiss();
        event->accept();
    }
};

/// A menu over a store in a folder of its own, with fakes for everything of the desktop.
class MenuBench
{
public:
    enum class Form { MenuBar, AtPointer };

    MenuBench()
    {
        funcs.openWindow = [this](const QString &scene) { openedScenes.append(scene); };
        environment.addShortcutHint = [this] { return hint; };
        environment.terminate = [this] { ++terminations; };
    }
    ~MenuBench() { panel.setContent(nullptr); }
    Q_DISABLE_COPY_MOVE(MenuBench)

    /// Builds a fresh menu and shows it, as each opening does.
    MenuView &show(Form form = Form::AtPointer, QPoint origin = {100, 100})
    {
        MenuView::Options options;
        options.contextMenu = form == Form::AtPointer;
        options.window = form == Form::AtPointer ? &panel : nullptr;
        options.updaterController = hasUpdater ? &updater : nullptr;
        options.dismiss = [this] {
            ++dismissals;
            panel.close();
        };
        menu = new MenuView(environment, pasteNow, options);
        panel.setContent(menu);
        panel.move(origin);
        windows.present(panel);
        return *menu;
    }

    Snippet &addSnippet(const QString &title, const std::optional<QByteArray> &content = "text")
    {
        return add(title, content, false);
    }
    Snippet &addFolder(const QString &title) { return add(title, std::nullopt, true); }

    /// The newest first.
    Clip &addClip(const std::optional<QByteArray> &content)
    {
        auto &clip = *context().insert<Clip>();
        clip.setId(QUuid::createUuid());
        clip.setContent(content);
        clip.setPosition(++lastPosition);
        return clip;
    }

    ManagedObjectContext &context() { return controller.container->viewContext(); }
    SnippetMenuView *snippets() { return menu->snippetMenu(); }
    ClipHistoryView *history() { return menu->clipHistoryView(); }

    QTemporaryDir folder;
    PersistenceController controller{folder.filePath(QStringLiteral("data"))};
    platform::Defaults defaults{folder.filePath(QStringLiteral("Quillery.conf"))};
    FakePasteboard pasteboard;
    FakeMenuWindows windows;
    FakeDesktop desktop;
    SnippetMatcher matcher{QLocale(QLocale::English)};
    QList<bool> addWindows; ///< the copy flag of every add-snippet window opened directly
    QStringList openedScenes;
    Funcs funcs{[this](bool copy, ManagedObjectContext &) {
                    addWindows.append(copy);
                    return new QWidget;
                },
                [](QWidget &) {}};
    MenuEnvironment environment{funcs,   context(), defaults, pasteboard, windows,
                                desktop, matcher,   {},       [] {},      {}};
    FakeUpdater updater;
    bool hasUpdater = true;
    QString hint = QStringLiteral("\u21e7\u2318C");
    QProperty<bool> pasteNow{false};
    int terminations = 0;
    int dismissals = 0;
    BenchPanel panel{windows};
    MenuView *menu = nullptr; ///< the one shown last; gone once the event loop ran after closing

private:
    Snippet &add(const QString &title, const std::optional<QByteArray> &content, bool isFolder)
    {
        auto &snippet = *context().insert<Snippet>();
        snippet.setId(QUuid::createUuid());
        if (!title.isNull())
            snippet.setTitle(title);
        snippet.setContent(content);
        snippet.setIsFolder(isFolder);
        snippet.setOrder(lastOrder++);
        return snippet;
    }

    qint16 lastOrder = 0;
    qint16 lastPosition = 0;
};
