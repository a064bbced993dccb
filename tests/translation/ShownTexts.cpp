// SPDX-License-Identifier: MIT
#include "tests/translation/ShownTexts.h"

#include "Quillery_Mac/settings/RecorderFace.h"
#include "Quillery_Mac/ui/ClearButton.h"
#include "tests/translation/MarkingTranslator.h"

#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>

#include <gtest/gtest.h>

#include <limits>

using KeyboardShortcuts::RecorderFace;

namespace {

class UnmarkedTexts
{
public:
    explicit UnmarkedTexts(const QStringList &others)
        : m_others(others)
    {
    }

    QStringList of(QWidget &window)
    {
        look(window.windowTitle());
        lookAt(QAccessible::queryAccessibleInterface(&window));
        for (const QWidget *widget : window.findChildren<QWidget *>())
            lookAt(*widget);
        for (const QAction *action : window.findChildren<QAction *>()) {
            look(action->text());
            look(action->toolTip());
        }
        EXPECT_GT(m_count, 0);
        return m_unmarked;
    }

private:
    void look(const QString &text)
    {
        ++m_count;
        if (!MarkingTranslator::isMarked(text) && text != QStringLiteral("Quillery") &&
            !m_others.contains(MarkingTranslator::unmarkedPart(text)))
            m_unmarked.append(text);
    }

    void lookAt(const QWidget &widget)
    {
        look(widget.toolTip());
        if (const auto *line = qobject_cast<const QLineEdit *>(&widget))
            look(line->placeholderText());
        if (const auto *face = qobject_cast<const RecorderFace *>(&widget)) {
            look(face->placeholder());
            look(face->stringValue());
        }
    }

    void lookAt(QAccessibleInterface *thing)
    {
        if (thing == nullptr || !thing->isValid())
            return;
        look(thing->text(QAccessible::Name));
        look(thing->text(QAccessible::Description));
        for (int i = 0; i < thing->childCount(); ++i)
            lookAt(thing->child(i));
    }

    const QStringList m_others;
    QStringList m_unmarked;
    int m_count = 0;
};

/// A text and the room for it, both in the coordinates of its widget.
struct Shown
{
    QString text;
    QSize taken;
    QSize room;
};

Shown shownBy(const QLabel &label)
{
    constexpr int kAnyHeight = std::numeric_limits<short>::max();
    const QSize room = label.contentsRect().size();
    const int flags = label.wordWrap() ? Qt::TextWordWrap : 0;
    const QRect taken =
        label.fontMetrics().boundingRect({0, 0, room.width(), kAnyHeight}, flags, label.text());
    return {label.text(), taken.size(), room};
}

Shown shownBy(const QPushButton &button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    const QRect room =
        button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    return {button.text(), button.fontMetrics().size(Qt::TextShowMnemonic, button.text()),
            room.size()};
}

// The text is in the middle: what the image of the button takes at one end it lacks at the other
// too. Without one it may reach into the round ends, by half.
Shown shownBy(const RecorderFace &face)
{
    const bool isEmpty = face.stringValue().isEmpty();
    const QString text = isEmpty ? face.placeholder() : face.stringValue();
    const QSize bounds = face.bounds().size().toSize();
    const int ends =
        isEmpty ? bounds.height() / 2 : face.cancelButton().width() + ClearButton::kImage;
    return {text,
            face.fontMetrics().size(Qt::TextSingleLine, text),
            {bounds.width() - ends, bounds.height()}};
}

Shown shownBy(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        return shownBy(*label);
    if (const auto *button = qobject_cast<const QPushButton *>(&widget))
        return shownBy(*button);
    if (const auto *face = qobject_cast<const RecorderFace *>(&widget))
        return shownBy(*face);
    return {};
}

bool isInside(const QWidget &window, const QWidget &widget)
{
    for (const QWidget *one = &widget; one != &window; one = one->parentWidget()) {
        if (!one->parentWidget()->rect().contains(one->geometry()))
            return false;
    }
    return true;
}

} // namespace

std::string unmarked(QWidget &window, const QStringList &others)
{
    return UnmarkedTexts(others).of(window).join(u'\n').toStdString();
}

std::string clipped(const QWidget &window)
{
    QStringList texts;
    int count = 0;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const Shown shown = shownBy(*widget);
        if (shown.text.isEmpty() || !widget->isVisibleTo(&window))
            continue;
        ++count;
        if (shown.taken.boundedTo(shown.room) != shown.taken || !isInside(window, *widget))
            texts.append(shown.text);
    }
    EXPECT_GT(count, 0);
    return texts.join(u'\n').toStdString();
}
