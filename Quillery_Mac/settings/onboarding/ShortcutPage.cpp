// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/ShortcutPage.h"

#include "Quillery_Mac/settings/RecorderCocoa.h"
#include "Quillery_Mac/settings/onboarding/PageHeading.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using KeyboardShortcuts::Name;
using KeyboardShortcuts::RecorderCocoa;
using KeyboardShortcuts::RecorderLinks;

ShortcutPage::ShortcutPage(const QString &heading, const QString &defaultText, const Name &name,
                           const RecorderLinks &recorder, QWidget *parent)
    : QWidget(parent)
{
    auto *caption = new QLabel(defaultText, this);
    caption->setTextFormat(Qt::PlainText);
    auto *field = new RecorderCocoa(name, recorder);
    field->setAccessibleName(defaultText.trimmed());
    setAccessibleName(heading);

    auto *line = new QHBoxLayout;
    line->setSpacing(0);
    line->addStretch(1);
    line->addWidget(caption);
    line->addWidget(field);
    line->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(tokens::kSetupMargin, 0, tokens::kSetupMargin, 0);
    column->setSpacing(tokens::kCardPadding);
    column->addStretch(1);
    column->addWidget(new PageHeading(heading, this));
    column->addLayout(line);
    column->addStretch(1);
}

PasteMenuShortcutView::PasteMenuShortcutView(const RecorderLinks &recorder, QWidget *parent)
    : ShortcutPage(tr("Choose a keyboard shortcut to bring up the Paste menu"),
                   tr("Default: Shift + Command + V: "), Name::contextHotKey(), recorder, parent)
{
}

AddSnippetShortcutView::AddSnippetShortcutView(const RecorderLinks &recorder, QWidget *parent)
    : ShortcutPage(tr("Choose a keyboard shortcut to quickly add a new Snippet"),
                   tr("Default: Shift + Command + C: "), Name::addHotKey(), recorder, parent)
{
}
