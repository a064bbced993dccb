// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/Funcs.h"

#include "Quillery_Mac/app/WindowPlacement.h"

#include <utility>

Funcs::Funcs(BuildAddSnippet buildAddSnippet, Activate activate, QObject *parent)
    : QObject(parent)
    , m_buildAddSnippet(std::move(buildAddSnippet))
    , m_activate(std::move(activate))
{
}

void Funcs::openAddSnippetWindow(bool copy, ManagedObjectContext &context)
{
    QWidget *view = m_buildAddSnippet(copy, context);
    view->setAttribute(Qt::WA_DeleteOnClose);
    view->setWindowTitle(tr("Add Snippet"));
    centreOnScreen(*view);
    window = view;
    std::erase_if(m_windows, [](const QPointer<QWidget> &opened) { return opened.isNull(); });
    m_windows.emplace_back(view);
    m_activate(*view);
}

void Funcs::closeWindows()
{
    for (const QPointer<QWidget> &opened : std::exchange(m_windows, {}))
        delete opened;
}
