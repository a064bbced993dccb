// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QWidget;

/// One kind of notification about windows, with its observers. Main thread only.
class WindowNotification
{
public:
    using Observer = std::function<void(QWidget &window)>;
    /// Names an added observer; never used twice.
    using Token = quint64;

    /// @param window only notifications of this window are handed on; null: of any window
    Token addObserver(const QWidget *window, Observer observer);
    /// Does nothing if the observer is gone already. An observer may remove itself or others while
    /// it is called.
    void removeObserver(Token token);
    /// Calls the observers, in the order in which they were added. One that is added meanwhile is
    /// not called.
    void post(QWidget &window);

    std::size_t observerCount() const { return m_entries.size(); }

private:
    struct Entry
    {
        Token token;
        const QWidget *window;
        Observer observer;
    };

    std::vector<Entry> m_entries;
    Token m_lastToken = 0;
};

/// Who got the keyboard, who lost it, and who closes, for all windows of the program. Ordinary
/// windows are watched here, from watchApplication() on; the menu windows, which are key together
/// with their popovers, are posted by those who present them. Owned by the entry type.
class WindowNotifications : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void watchApplication();

    WindowNotification didBecomeKey;
    WindowNotification didResignKey;
    WindowNotification willClose;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
