// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/FirstLoadView.h"

#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/settings/onboarding/ClipHistoryToggleView.h"
#include "Quillery_Mac/settings/onboarding/NextButton.h"
#include "Quillery_Mac/settings/onboarding/PageStack.h"
#include "Quillery_Mac/settings/onboarding/ShortcutPage.h"
#include "Quillery_Mac/settings/onboarding/SummaryView.h"
#include "Quillery_Mac/settings/onboarding/WelcomeView.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

constexpr int kButtonsBelow = 16;

} // namespace

FirstLoadView::FirstLoadView(platform::Defaults &defaults,
                             const KeyboardShortcuts::RecorderLinks &recorder, Missing missing,
                             QWidget *parent)
    : QWidget(parent)
    , firstLoad(defaults, SettingsKeys::kFirstLoad)
    , dismiss([this] { window()->close(); })
    , m_missing(std::move(missing))
    , m_pages(new PageStack(this))
{
    makePages(defaults, recorder);
    m_buttons = new NextButton(flow, this);
    auto *line = new QVBoxLayout;
    line->setContentsMargins(tokens::kSetupMargin, 0, tokens::kSetupMargin, kButtonsBelow);
    line->addWidget(m_buttons);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_pages, 1);
    column->addLayout(line);
    followFlow();
    fitSize();
    setFocusProxy(&m_buttons->forwardButton());
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this,
            [this] { window()->close(); });
}

void FirstLoadView::makePages(platform::Defaults &defaults,
                              const KeyboardShortcuts::RecorderLinks &recorder)
{
    m_welcome = new WelcomeView;
    flow.views = {m_welcome, new PasteMenuShortcutView(recorder),
                  new AddSnippetShortcutView(recorder), new ClipHistoryToggleView(defaults, values),
                  new SummaryView(defaults, values)};
    for (QWidget *page : flow.views)
        m_pages->addPage(page);
}

void FirstLoadView::followFlow()
{
    m_observers.push_back(flow.currentView.addNotifier([this] {
        const QList<int> path = flow.currentView.value();
        if (path.isEmpty())
            tellMissing(); // what was missing may have been mended on the other pages
        // What has the keyboard may be on the page that is left.
        if (QWidget *focus = focusWidget(); focus == nullptr || m_pages->isAncestorOf(focus))
            m_buttons->forwardButton().setFocus();
        m_pages->show(path.isEmpty() ? 0 : path.last());
    }));
    m_observers.push_back(flow.dismiss.addNotifier([this] {
        if (!flow.dismiss.value())
            return;
        firstLoad.setValue(false);
        dismiss();
    }));
}

// One fixed size, on all pages; larger where the desktop's font needs it.
void FirstLoadView::fitSize()
{
    const int buttons = m_buttons->sizeHint().height() + kButtonsBelow;
    const QSize pages = m_pages->sizeFor(tokens::kSetupSize.width());
    setFixedSize(QSize(pages.width(), pages.height() + buttons).expandedTo(tokens::kSetupSize));
}

void FirstLoadView::showEvent(QShowEvent *event)
{
    window()->setWindowTitle(tr("Quillery Setup"));
    tellMissing();
    QWidget::showEvent(event);
}

void FirstLoadView::tellMissing()
{
    m_welcome->setMissing(m_missing ? m_missing() : QString());
}

void FirstLoadView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if ((event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) &&
        m_buttons != nullptr)
        fitSize();
}

// Return goes forward from every control that has no use for it.
void FirstLoadView::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == 0 && !event->isAutoRepeat())
        m_buttons->forwardButton().click();
    else
        QWidget::keyPressEvent(event);
}
