// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/LibraryState.h"
#include "Quillery_Mac/store/SnippetMatcher.h"
#include "tests/logic/StoreTestSupport.h"

#include <QCoreApplication>
#include <QSignalSpy>

/// A library over a store of its own.
class LibraryFixture : public StoreTest
{
protected:
    using Names = std::vector<std::string>;

    Snippet &snippet(const char *title, const std::optional<QByteArray> &content = "text")
    {
        Snippet &added = *addSnippet(QString::fromUtf8(title), static_cast<qint16>(m_next++));
        added.setContent(content);
        added.setId(QUuid::createUuid());
        return added;
    }
    Snippet &folder(const char *title, bool expanded = true)
    {
        Snippet &added = snippet(title, std::nullopt);
        added.setIsFolder(true);
        added.setExpanded(expanded);
        return added;
    }

    LibraryState &library()
    {
        if (!m_library) {
            EXPECT_TRUE(view().save());
            m_library = std::make_unique<LibraryState>(view(), m_matcher);
            m_library->rebuild();
            // What was made so far is announced: an object that nobody heard of is not told of when
            // it goes.
            QCoreApplication::processEvents();
        }
        return *m_library;
    }
    void forgetLibrary() { m_library.reset(); }

    void select(const Snippet &item) { library().selectedItem = item.id(); }

    static std::string titleOf(const Snippet &item)
    {
        return item.title().value_or(QString()).toStdString();
    }

    /// The titles of all items in their order, a folder's with a colon.
    Names sequence()
    {
        Names titles;
        for (const Snippet *item : library().items.results())
            titles.push_back(titleOf(*item) + (item->isFolder() ? ":" : ""));
        return titles;
    }
    std::vector<int> orders()
    {
        std::vector<int> numbers;
        for (const Snippet *item : library().items.results())
            numbers.push_back(item->order());
        return numbers;
    }
    /// The rows in view, members indented.
    Names rows()
    {
        Names titles;
        for (const ShownRow &shown : library().rows()) {
            const bool isGone = shown.row->item == nullptr;
            titles.push_back((shown.folder != nullptr ? "  " : "") +
                             (isGone ? "(gone)" : titleOf(*shown.row->item)));
        }
        return titles;
    }
    ShownRow row(const std::string &title)
    {
        for (const ShownRow &shown : library().rows()) {
            if (shown.row->item != nullptr && titleOf(*shown.row->item) == title)
                return shown;
        }
        ADD_FAILURE() << "no row " << title;
        return {};
    }
    bool drag(Snippet &item, const std::string &onto, Strip strip)
    {
        library().startDrag(item);
        return library().drop(row(onto), strip);
    }
    std::string selectedTitle()
    {
        const Snippet *item = library().selected();
        return item != nullptr ? titleOf(*item) : "(none)";
    }

    void TearDown() override { m_library.reset(); }

private:
    SnippetMatcher m_matcher{QLocale(QLocale::English)};
    std::unique_ptr<LibraryState> m_library;
    int m_next = 0;
};
