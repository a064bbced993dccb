// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/SnippetMenuState.h"
#include "Quillery_Mac/store/LiveFetch.h"
#include "Quillery_Mac/store/Snippet.h"
#include "Quillery_Mac/ui/LazyColumn.h"
#include "Quillery_Mac/ui/PointerMotion.h"
#include "Quillery_Mac/ui/SearchField.h"

#include <QWidget>

class Funcs;

/// What a snippet menu is connected to; all of it outlives the menu.
struct SnippetMenuLinks
{
    ManagedObjectContext &context;
    Funcs &funcs;
    QProperty<bool> &doPaste;
    QProperty<Controls> &controls;
    platform::Pasteboard &pasteboard;
    PointerMotion &motion;
    SnippetMatcher &matcher;
};

/// The list from which a snippet is picked: a search field, and below it all snippets and folders,
/// in the popover of a menu. Main thread only.
class SnippetMenuView : public QWidget, public SnippetMenuState, private LazyColumnRows
{
    Q_OBJECT

public:
    explicit SnippetMenuView(const SnippetMenuLinks &links,
                             const std::optional<QString> &passedSearch = std::nullopt,
                             QWidget *parent = nullptr);
    ~SnippetMenuView() override;

    ManagedObjectContext &context;
    Funcs &funcs;
    LiveFetch<Snippet> items;

    /// The popover closes: acts on nothing any more, and lets go of the snippets.
    void release();

    QSize sizeHint() const override;
    SearchField &searchField() { return m_field; }
    LazyColumn &column() { return m_column; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum Kind { kSnippetKind, kFolderKind };

    int rowCount() const override;
    int kindOfRow(int row) const override;
    QWidget *makeRow(int kind, QWidget *parent) override;
    void bindRow(QWidget &widget, int row) override;
    void unbindRow(QWidget &widget) override;

    void observe();
    void rowsAreOthers();
    void selectionChanged();
    void revealSelection();
    const SnippetRow &rowAt(int row) const { return rows()[static_cast<std::size_t>(row)]; }
    int rowHeight() const;

    PointerMotion &m_motion;
    SearchField m_field;
    LazyColumn m_column;
    std::vector<QPropertyNotifier> m_observers;
};
