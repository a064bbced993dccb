// SPDX-License-Identifier: MIT
#include "platform/windows/X11MenuWindows.h"

#include "platform/log/Log.h"
#include "platform/windows/BlurBehind.h"
#include "platform/windows/FocuslessWindows.h"
#include "platform/x11/X11Connection.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

#include <chrono>

namespace platform {

namespace {

/// Window managers move the focus within a few milliseconds of a click; measured on openbox, xfwm4,
/// i3, KWin, mutter and metacity.
constexpr std::chrono::milliseconds kPressSettles{30};

quint32 idOf(const QWidget *window)
{
    return window == nullptr ? 0 : static_cast<quint32>(window->internalWinId());
}

/// A tool tip or a context menu of a text field that stands over the menu belongs to it.
bool isPopupOfOurs(quint32 window)
{
    const QWidget *widget = QWidget::find(window);
    return widget != nullptr &&
           (widget->windowType() == Qt::Popup || widget->windowType() == Qt::ToolTip);
}

/// Another program's grab of the keyboard, such as that of a hot key, does not move the focus.
bool isCausedByGrab(const xcb_focus_out_event_t &event)
{
    return event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB;
}

int screenNumber(const X11Connection &connection)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection.xcb()));
    int number = 0;
    for (; screens.rem > 0 && screens.data->root != connection.root(); xcb_screen_next(&screens))
        ++number;
    return number;
}

} // namespace

std::unique_ptr<X11MenuWindows> X11MenuWindows::create()
{
    std::unique_ptr<X11Connection> connection = X11Connection::create();
    if (connection == nullptr)
        return nullptr;
    return std::unique_ptr<X11MenuWindows>(new X11MenuWindows(std::move(connection)));
}

X11MenuWindows::X11MenuWindows(std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
    , m_focus(*m_connection)
    , m_presses(*m_connection)
    , m_gap(*m_connection)
{
    // Asking for the native window of a popover would make the widgets inside its menu native too.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    m_pressTimer.setSingleShot(true);
    m_pressTimer.setInterval(kPressSettles);
    connect(&m_pressTimer, &QTimer::timeout, this, &X11MenuWindows::pressSettled);
    connect(&m_presses, &OutsidePresses::pressed, this, &X11MenuWindows::pressed);
    connect(m_connection.get(), &X11Connection::received, this, &X11MenuWindows::handle);
}

X11MenuWindows::~X11MenuWindows() = default;

QString X11MenuWindows::backendId() const
{
    return QStringLiteral("x11");
}

Availability X11MenuWindows::availability() const
{
    return {true, {}};
}

void X11MenuWindows::prepare(QWidget &window)
{
    window.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    window.setAttribute(Qt::WA_ShowWithoutActivating);
}

void X11MenuWindows::present(QWidget &menu)
{
    m_pressTimer.stop();
    if (!hasFocus())
        m_focus.remember();
    m_menu = &menu;
    m_isPresented = true;
    show(menu);
    m_isKey = true;
    m_presses.start();
    qApp->installEventFilter(this);
    watchActiveWindow(true);
    m_activeWindow = m_focus.active();
    // A menu that cannot get the keyboard would never hear that it lost it.
    if (!take(menu))
        QMetaObject::invokeMethod(this, &X11MenuWindows::resign, Qt::QueuedConnection);
}

void X11MenuWindows::showPopover(QWidget &popover)
{
    if (!m_popovers.contains(&popover))
        m_popovers.append(&popover);
    show(popover);
    coverGap();
}

void X11MenuWindows::hidePopover(QWidget &popover)
{
    if (m_isKey && m_menu != nullptr && m_focus.current() == idOf(&popover))
        take(*m_menu);
    m_popovers.removeAll(&popover);
    popover.hide();
    coverGap();
}

void X11MenuWindows::giveKeyboardTo(QWidget &window)
{
    if (m_isKey)
        take(window);
}

void X11MenuWindows::dismiss()
{
    if (!std::exchange(m_isPresented, false))
        return;
    if (hasFocus())
        m_focus.giveBack();
    hideAll();
    resign();
}

bool X11MenuWindows::isKey() const
{
    return m_isKey;
}

// A compositor owns a selection named after its screen (EWMH, "_NET_WM_CM_Sn").
bool X11MenuWindows::isComposited() const
{
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(screenNumber(*m_connection));
    const auto owner =
        m_connection->reply(xcb_get_selection_owner_reply,
                            xcb_get_selection_owner(m_connection->xcb(), m_connection->atom(name)));
    return owner != nullptr && owner->owner != XCB_WINDOW_NONE;
}

bool X11MenuWindows::canBlur() const
{
    return isComposited() && canBlurBehind(*m_connection);
}

void X11MenuWindows::blurBehind(QWidget &window, qreal radius)
{
    const auto id = static_cast<quint32>(window.winId());
    X11Connection::syncToolkit();
    const qreal ratio = window.devicePixelRatio();
    platform::blurBehind(*m_connection, id, QSizeF(window.size()) * ratio, radius * ratio);
}

bool X11MenuWindows::isInGroup(quint32 window) const
{
    if (window == 0)
        return false;
    return idOf(m_menu) == window || m_gap.window() == window ||
           std::any_of(m_popovers.begin(), m_popovers.end(),
                       [window](const auto &popover) { return idOf(popover) == window; });
}

bool X11MenuWindows::hasFocus() const
{
    return isInGroup(m_focus.current());
}

// The focus can only go to a window that the server has mapped, and the events of a window are
// selected for each connection by itself.
void X11MenuWindows::show(QWidget &window)
{
    if (!window.isVisible())
        describe(window);
    window.show();
    window.raise();
    X11Connection::syncToolkit();
    const quint32 mask = XCB_EVENT_MASK_FOCUS_CHANGE;
    m_connection->check(xcb_change_window_attributes_checked(m_connection->xcb(), idOf(&window),
                                                             XCB_CW_EVENT_MASK, &mask));
}

// The type is for compositors, which choose shadow and animation by it; no window manager sees the
// window, so no bar lists it. The toolkit would call it a utility window.
void X11MenuWindows::describe(QWidget &window)
{
    const auto id = static_cast<quint32>(window.winId());
    X11Connection::syncToolkit();
    const xcb_atom_t type = m_connection->atom("_NET_WM_WINDOW_TYPE_POPUP_MENU");
    m_connection->check(xcb_change_property_checked(m_connection->xcb(), XCB_PROP_MODE_REPLACE, id,
                                                    m_connection->atom("_NET_WM_WINDOW_TYPE"),
                                                    XCB_ATOM_ATOM, 32, 1, &type));
}

bool X11MenuWindows::take(QWidget &window)
{
    const bool isTaken = m_focus.take(idOf(&window));
    if (!isTaken)
        qCWarning(logWindows) << "The server does not give the keyboard to the menu";
    return isTaken;
}

void X11MenuWindows::watchActiveWindow(bool isWatched)
{
    const quint32 mask = isWatched ? XCB_EVENT_MASK_PROPERTY_CHANGE : XCB_EVENT_MASK_NO_EVENT;
    m_connection->check(xcb_change_window_attributes_checked(
        m_connection->xcb(), m_connection->root(), XCB_CW_EVENT_MASK, &mask));
}

// A busy window manager may name the program that we came over only after the menu is up.
void X11MenuWindows::activeWindowChanged()
{
    const quint32 active = m_focus.active();
    if (active == XCB_NONE || active == m_activeWindow || m_focus.isRememberedIn(active) ||
        isFocusless(*m_connection, active))
        return;
    if (hasFocus()) {
        m_focus.remember(active);
        m_focus.giveBack();
    }
    resign();
}

void X11MenuWindows::handle(const xcb_generic_event_t &event)
{
    if (!m_isKey)
        return;
    const int type = event.response_type & 0x7f;
    if (type == XCB_PROPERTY_NOTIFY &&
        reinterpret_cast<const xcb_property_notify_event_t &>(event).atom ==
            m_connection->atom("_NET_ACTIVE_WINDOW")) {
        activeWindowChanged();
        return;
    }
    if (type != XCB_FOCUS_OUT)
        return;
    if (isCausedByGrab(reinterpret_cast<const xcb_focus_out_event_t &>(event)))
        return;
    // The event may be an old one, or of a move within the group: what counts is the focus now.
    if (!hasFocus())
        resign();
}

// Measured against the windows on the server, not against widget geometry: right at every scale. A
// context menu may have closed before we look; then the press that it got tells, and it comes
// before or after this one.
void X11MenuWindows::pressed(quint32 window, quint32 time)
{
    if (!m_isKey || isInGroup(window) || isPopupOfOurs(window) || time == m_insidePressTime)
        return;
    if (isFocusless(*m_connection, managedUnderPointer(*m_connection, window)))
        return;
    m_pressTime = time;
    m_pressTimer.start();
}

bool X11MenuWindows::eventFilter(QObject *receiver, QEvent *event)
{
    const auto *window = qobject_cast<QWindow *>(receiver);
    // A popover grows and shrinks with what it shows.
    if (event->type() == QEvent::Resize && window != nullptr && isOurs(*window)) {
        X11Connection::syncToolkit();
        coverGap();
    }
    if (event->type() == QEvent::MouseButtonPress && window != nullptr && isOurs(*window)) {
        m_insidePressTime = static_cast<QMouseEvent *>(event)->timestamp();
        if (m_insidePressTime == m_pressTime)
            m_pressTimer.stop();
    }
    return MenuWindows::eventFilter(receiver, event);
}

bool X11MenuWindows::isOurs(const QWindow &window) const
{
    return window.type() == Qt::Popup || window.type() == Qt::ToolTip ||
           isInGroup(static_cast<quint32>(window.winId()));
}

void X11MenuWindows::pressSettled()
{
    if (hasFocus())
        m_focus.giveBack();
    resign();
}

void X11MenuWindows::coverGap()
{
    if (m_menu == nullptr || m_popovers.isEmpty() || m_popovers.constLast() == nullptr)
        m_gap.hide();
    else
        m_gap.coverBetween(idOf(m_menu), idOf(m_popovers.constLast()));
}

void X11MenuWindows::hideAll()
{
    m_gap.hide();
    const QList<QPointer<QWidget>> popovers = std::exchange(m_popovers, {});
    for (const QPointer<QWidget> &popover : popovers) {
        if (popover != nullptr)
            popover->hide();
    }
    const QPointer<QWidget> menu = std::exchange(m_menu, nullptr);
    if (menu != nullptr)
        menu->hide();
}

void X11MenuWindows::resign()
{
    m_pressTimer.stop();
    m_presses.stop();
    qApp->removeEventFilter(this);
    if (!std::exchange(m_isKey, false))
        return;
    watchActiveWindow(false);
    emit resigned();
}

} // namespace platform
