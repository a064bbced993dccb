// SPDX-License-Identifier: MIT
#pragma once

#include "hotkey/KeyCombo.h"

#include <QObject>
#include <QUuid>

#include <functional>

namespace hotkey {

/// One hot key: from its creation to its end, except while it is paused, its combo reaches this
/// program whatever window has the keyboard. A combo that the desktop refuses does nothing; pausing
/// and resuming asks anew. Owned by whoever creates it, main thread only.
class HotKey : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<void()>;

    explicit HotKey(const KeyCombo &keyCombo, Handler onKeyDown = {}, Handler onKeyUp = {});
    ~HotKey() override;

    QUuid identifier() const { return m_identifier; }
    const KeyCombo &keyCombo() const { return m_keyCombo; }

    /// While true the combo is not ours.
    bool isPaused() const { return m_isPaused; }
    void setPaused(bool isPaused);

    /// Called when the key goes down and up; may be empty, and may end this object.
    Handler keyDownHandler;
    Handler keyUpHandler;

private:
    const QUuid m_identifier = QUuid::createUuid();
    const KeyCombo m_keyCombo;
    bool m_isPaused = false;
};

} // namespace hotkey
