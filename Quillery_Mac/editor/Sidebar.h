// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/SearchField.h"

#include <QWidget>

class LibraryList;
class LibraryState;

/// The first column of the library window: the search field, and below it the list.
class Sidebar : public QWidget
{
    Q_OBJECT

public:
    Sidebar(LibraryState &state, QWidget *parent);

    SearchField &searchField() { return *m_search; }
    LibraryList &list() { return *m_list; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool searchKey(int key);

    LibraryState &m_state;
    SearchField *m_search;
    LibraryList *m_list;
    QPropertyNotifier m_searchObserver;
};
