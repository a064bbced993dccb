// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/RecorderCocoa.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "Quillery_Mac/settings/LocalEventMonitor.h"
#include "Quillery_Mac/settings/MainMenu.h"
#include "Quillery_Mac/settings/RecorderAccessible.h"
#include "Quillery_Mac/ui/ClearButton.h"
#include "Quillery_Mac/ui/SheetAlert.h"
#include "platform/hotkeys/SystemShortcuts.h"
#include "platform/keyboard/KeyboardLayout.h"

#include <QAccessible>
#include <QHideEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShowEvent>
#include <QTimer>

#include <utility>

namespace KeyboardShortcuts {

namespace {

constexpr quint32 kWatchedEvents = LocalEventMonitor::KeyDownMask |
                                   LocalEventMonitor::LeftMouseUpMask |
                                   LocalEventMonitor::RightMouseUpMask;

} // namespace

// A hot key is told from inside the desktop's event; an alert must not run there.
RecorderCocoa::RecorderCocoa(const Name &name, const RecorderLinks &links, OnChange change,
                             QWidget *parent)
    : RecorderFace(parent)
    , onChange(std::move(change))
    , m_links(links)
    , m_shortcutName(name)
{
    installRecorderAccessibility();
    setPlaceholder(m_texts.text(textKey::kRecordShortcut));
    reserveRoomFor({placeholder(), m_texts.text(textKey::kPressShortcut)});
    setCanBecomeKey(false);
    connect(&cancelButton(), &QAbstractButton::clicked, this, [this] {
        setStringValue(QString());
        controlTextDidChange();
    });
    connect(&notifications(), &Notifications::shortcutByNameDidChange, this,
            [this](const Name &changed) {
                if (changed == m_shortcutName)
                    refreshDisplay();
            });
    connect(&notifications(), &Notifications::didPressWhilePaused, this,
            &RecorderCocoa::handleHotKey, Qt::QueuedConnection);
    if (platform::KeyboardLayout *layout = keyboardLayout())
        connect(layout, &platform::KeyboardLayout::changed, this, &RecorderCocoa::refreshDisplay);
    refreshDisplay();
}

RecorderCocoa::~RecorderCocoa()
{
    controlTextDidEndEditing();
}

void RecorderCocoa::setShortcutName(const Name &name)
{
    if (std::exchange(m_shortcutName, name) != name)
        refreshDisplay();
}

void RecorderCocoa::showEvent(QShowEvent *event)
{
    RecorderFace::showEvent(event);
    if (!event->spontaneous())
        viewDidMoveToWindow(window());
}

void RecorderCocoa::hideEvent(QHideEvent *event)
{
    RecorderFace::hideEvent(event);
    if (!event->spontaneous())
        viewDidMoveToWindow(nullptr);
}

void RecorderCocoa::focusInEvent(QFocusEvent *event)
{
    RecorderFace::focusInEvent(event);
    becomeFirstResponder();
}

void RecorderCocoa::focusOutEvent(QFocusEvent *event)
{
    RecorderFace::focusOutEvent(event);
    controlTextDidEndEditing();
}

// The press has given the keyboard to the field if it may have it.
void RecorderCocoa::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (hasFocus())
        becomeFirstResponder();
}

// Where there is nothing else that Tab reaches, it leaves the field all the same. That it did not
// move is not said: the views around the field would try again, and come back to it.
bool RecorderCocoa::focusNextPrevChild(bool next)
{
    const bool hasMoved = RecorderFace::focusNextPrevChild(next);
    if (!hasFocus())
        return hasMoved;
    clearFocus();
    return true;
}

bool RecorderCocoa::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window) {
        if (event->type() == QEvent::WindowActivate)
            preventBecomingKey();
        else if (event->type() == QEvent::WindowDeactivate)
            windowDidResignKey();
    }
    return RecorderFace::eventFilter(watched, event);
}

void RecorderCocoa::blur()
{
    if (QWidget *firstResponder = window()->focusWidget())
        firstResponder->clearFocus();
    controlTextDidEndEditing();
}

void RecorderCocoa::blurForTab()
{
    controlTextDidEndEditing();
}

void RecorderCocoa::makeFirstResponder()
{
    setFocus(Qt::OtherFocusReason);
}

void RecorderCocoa::pressClearButton()
{
    if (!stringValue().isEmpty())
        cancelButton().click();
}

void RecorderCocoa::beep()
{
    m_links.beep();
}

std::optional<int> RecorderCocoa::runAlert(const RecorderAlert &alert)
{
    static_assert(kAlertFirstButton == SheetAlert::kFirstButton);
    const QPointer<RecorderCocoa> self(this);
    const SheetAlert sheet{alert.message, alert.informativeText, alert.buttons};
    const std::optional<int> answer = sheet.run(m_window);
    return self ? answer : std::nullopt;
}

void RecorderCocoa::store(const Shortcut &shortcut)
{
    const QPointer<RecorderCocoa> self(this);
    showShortcut(shortcut);
    setShortcut(shortcut, m_shortcutName);
    tellChange(shortcut);
    if (self)
        blur();
}

void RecorderCocoa::viewDidMoveToWindow(QWidget *window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (m_window == nullptr) {
        controlTextDidEndEditing();
        // It would get the keyboard back as soon as it is shown again.
        clearFocus();
        return;
    }
    m_window->installEventFilter(this);
    preventBecomingKey();
    // So that the desktop has answered when the first chord is pressed.
    m_links.systemShortcuts.refresh();
}

void RecorderCocoa::windowDidResignKey()
{
    controlTextDidEndEditing();
    if (QWidget *firstResponder = m_window->focusWidget())
        firstResponder->clearFocus();
}

// A window that comes to the front gives the keyboard to the first field that takes it.
void RecorderCocoa::preventBecomingKey()
{
    setCanBecomeKey(false);
    QTimer::singleShot(0, this, [this] { setCanBecomeKey(true); });
}

void RecorderCocoa::setCanBecomeKey(bool canBecomeKey)
{
    m_canBecomeKey = canBecomeKey;
    setFocusPolicy(canBecomeKey ? Qt::StrongFocus : Qt::NoFocus);
}

void RecorderCocoa::becomeFirstResponder()
{
    if (isRecording())
        return;
    setPlaceholder(m_texts.text(textKey::kPressShortcut));
    setShowsRing(true);
    setPaused(true);
    // What another program or the window manager holds comes here only so: what a grab of the whole
    // keyboard takes is taken from the grabs of single keys.
    grabKeyboard();
    m_links.systemShortcuts.refresh();
    m_eventMonitor = std::make_unique<LocalEventMonitor>(
        kWatchedEvents, [self = QPointer<RecorderCocoa>(this)](QEvent *event) {
            return self ? self->handleEvent(event) : event;
        });
    m_eventMonitor->start();
    describe();
}

// The field was emptied.
void RecorderCocoa::controlTextDidChange()
{
    const QPointer<RecorderCocoa> self(this);
    setShortcut(std::nullopt, m_shortcutName);
    tellChange(std::nullopt);
    if (!self)
        return;
    refreshDisplay();
    if (stringValue().isEmpty())
        makeFirstResponder();
}

void RecorderCocoa::controlTextDidEndEditing()
{
    if (!isRecording())
        return;
    m_eventMonitor.reset();
    setPaused(false);
    releaseKeyboard();
    setPlaceholder(m_texts.text(textKey::kRecordShortcut));
    setShowsRing(false);
    describe();
}

// A click on the clear button is the button's.
QEvent *RecorderCocoa::handleEvent(QEvent *event)
{
    EventFate fate = EventFate::PassOn;
    if (event->type() == QEvent::KeyPress) {
        fate = handleKeyDown(*this, RecordedKey::fromEvent(static_cast<QKeyEvent &>(*event)),
                             surroundings());
    } else if (!cancelButton().isDown()) {
        const auto &click = static_cast<const QMouseEvent &>(*event);
        fate = handleMouseUp(*this, mapFromGlobal(click.globalPosition()), bounds());
    }
    return fate == EventFate::PassOn ? event : nullptr;
}

void RecorderCocoa::handleHotKey(const Shortcut &shortcut)
{
    if (isRecording())
        handleKeyDown(*this, RecordedKey::fromShortcut(shortcut), surroundings());
}

RecorderSurroundings RecorderCocoa::surroundings() const
{
    const auto mainMenu = m_links.mainMenu;
    return {m_links.systemShortcuts,
            [mainMenu] { return mainMenu ? menuItems(mainMenu()) : std::vector<MenuItem>(); },
            m_texts};
}

void RecorderCocoa::refreshDisplay()
{
    showShortcut(getShortcut(m_shortcutName));
}

void RecorderCocoa::showShortcut(const std::optional<Shortcut> &shortcut)
{
    setStringValue(shortcut ? shortcut->description() : QString());
    m_words = shortcut ? shortcut->spokenDescription() : QString();
    describe();
}

void RecorderCocoa::describe()
{
    setToolTip(m_words);
    setAccessibleDescription(m_words.isEmpty() ? placeholder() : m_words);
    QAccessibleEvent nameChange(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&nameChange);
}

void RecorderCocoa::tellChange(const std::optional<Shortcut> &shortcut) const
{
    if (const OnChange tell = onChange)
        tell(shortcut);
}

} // namespace KeyboardShortcuts
