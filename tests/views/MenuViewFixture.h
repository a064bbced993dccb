// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/clipboard/ClipHistoryView.h"
#include "Quillery_Mac/menu/MenuRow.h"
#include "Quillery_Mac/menu/SnippetMenuView.h"
#include "tests/support/MenuBench.h"

#include <QApplication>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

/// Drives a menu as a user does: with keys into whatever has the keyboard, and a pointer that
/// moves.
class MenuViewFixture : public ::testing::Test
{
protected:
    /// A key goes to the window that the group gave the keyboard to.
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(focus(), static_cast<Qt::Key>(key), modifiers);
    }
    void type(const QString &text) { QTest::keyClicks(focus(), text); }
    QWidget *focus() const
    {
        QWidget *window = bench.windows.keyboardWindow;
        QWidget *inside = window != nullptr ? window->focusWidget() : nullptr;
        return inside != nullptr ? inside : bench.menu;
    }

    static void moveTo(QWidget &widget, QPoint position)
    {
        QWidget *window = widget.window();
        QTest::mouseMove(window->windowHandle(), widget.mapTo(window, position));
    }
    static void moveOnto(QWidget &widget) { moveTo(widget, widget.rect().center()); }
    static void click(QWidget &widget)
    {
        moveOnto(widget);
        QWidget *window = widget.window();
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(window, widget.rect().center()));
    }

    MenuRow &row(const QString &word) const { return *bench.menu->rowOf(word); }
    bool gives() const { return controls::isSet(bench.menu->controls.value(), controls::kGive); }
    std::optional<QString> active() const { return bench.menu->currentActive.value(); }
    std::optional<QString> open() const { return bench.menu->openPopover.value(); }

    ClipButton &clipRow(int index) const
    {
        return *static_cast<ClipButton *>(bench.menu->clipHistoryView()->column().rowWidget(index));
    }
    Row &snippetRow(int index) const
    {
        return *static_cast<Row *>(bench.menu->snippetMenu()->column().rowWidget(index));
    }
    QString highlightedSnippet() const
    {
        const auto selected = bench.menu->snippetMenu()->isSelected.value();
        return selected ? selected->snippet->title().value_or(QString()) : QString();
    }
    QString highlightedClip() const
    {
        const Clip *clip = bench.menu->clipHistoryView()->isSelected.value();
        return clip != nullptr ? QString::fromUtf8(clip->content().value_or(QByteArray()))
                               : QString();
    }
    QStringList clipTexts()
    {
        QStringList texts;
        for (const Clip *clip : bench.context().fetch<Clip>())
            texts.append(QString::fromUtf8(clip->content().value_or(QByteArray())));
        return texts;
    }

    /// With three clips "one", "two", "three" in the history.
    void addClips()
    {
        for (const char *text : {"one", "two", "three"})
            bench.addClip(QByteArray(text));
    }

    static QStringList list(std::initializer_list<const char *> words)
    {
        QStringList result;
        for (const char *word : words)
            result.append(QString::fromUtf8(word));
        return result;
    }

    static bool eventually(const std::function<bool()> &condition)
    {
        return QTest::qWaitFor(condition, 5000);
    }

    MenuBench bench;
};
