// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/EditorLinks.h"
#include "Quillery_Mac/editor/LibraryList.h"
#include "Quillery_Mac/editor/LibraryState.h"
#include "Quillery_Mac/ui/SearchField.h"

#include <QMainWindow>

class LibraryActions;
class LibraryToolbar;
class QLabel;
class QSplitter;
class QVBoxLayout;
class SnippetDetailMac;

/// The library window: the list of all snippets and folders, and the editor of the selected one.
/// Main thread only.
class ContentViewMac : public QMainWindow
{
    Q_OBJECT

public:
    explicit ContentViewMac(const EditorLinks &links, QWidget *parent = nullptr);
    /// The open editor disappears, and so saves.
    ~ContentViewMac() override;

    LibraryState &state() { return m_state; }
    LibraryList &list() { return *m_list; }
    SearchField &searchField() { return *m_search; }
    LibraryActions &actions() { return *m_actions; }
    /// The editor of the selected item; null while the placeholder is shown.
    SnippetDetailMac *detail() const { return m_detail; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *buildSidebar();
    QWidget *buildDetailColumn();
    void takeText(QDropEvent &event) const;
    void observe();
    void showDetail();
    void dropDetail();
    void showColumns();
    void takeColors();

    EditorLinks m_links;
    LibraryState m_state;
    SearchField *m_search = nullptr;
    LibraryList *m_list = nullptr;
    LibraryActions *m_actions = nullptr;
    LibraryToolbar *m_toolbar = nullptr;
    QSplitter *m_split = nullptr;
    QWidget *m_sidebar = nullptr;
    QVBoxLayout *m_detailColumn = nullptr;
    QLabel *m_placeholder = nullptr;
    SnippetDetailMac *m_detail = nullptr;
    Snippet *m_shown = nullptr; ///< the object that m_detail edits; only compared, never read
    std::vector<QPropertyNotifier> m_observers;
};
