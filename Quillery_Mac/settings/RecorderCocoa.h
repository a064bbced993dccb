// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/LocalizationTable.h"
#include "KeyboardShortcuts/Name.h"
#include "KeyboardShortcuts/RecorderHandler.h"
#include "Quillery_Mac/settings/RecorderFace.h"
#include "Quillery_Mac/settings/RecorderLinks.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

namespace KeyboardShortcuts {

class LocalEventMonitor;

/// The field in which the user sets, changes and removes the shortcut of a name.
///
/// It records while it has the keyboard: the next chord becomes the shortcut. Opening its window or
/// coming back to it never starts that by itself. While it records, no shortcut of the program
/// acts. Who places it gives it its accessible name; screen readers hear the shortcut in words
/// after it. Main thread only.
class RecorderCocoa : public RecorderFace, private RecorderField
{
    Q_OBJECT

public:
    /// Told after the user has stored or removed a shortcut. May destroy the field.
    using OnChange = std::function<void(const std::optional<Shortcut> &shortcut)>;

    explicit RecorderCocoa(const Name &name, const RecorderLinks &links, OnChange onChange = {},
                           QWidget *parent = nullptr);
    ~RecorderCocoa() override;
    Q_DISABLE_COPY_MOVE(RecorderCocoa)

    const Name &shortcutName() const { return m_shortcutName; }
    bool isRecording() const { return m_eventMonitor != nullptr; }
    /// Whether Tab and clicks reach the field.
    bool canBecomeKeyView() const { return m_canBecomeKey; }

    void setShortcutName(const Name &name);

    /// The shortcut that is shown, with the names of its keys ("Shift+Super+V"); empty without one.
    const QString &words() const { return m_words; }

    OnChange onChange;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // RecorderField.
    void blur() override;
    void blurForTab() override;
    void makeFirstResponder() override;
    void pressClearButton() override;
    void beep() override;
    std::optional<int> runAlert(const RecorderAlert &alert) override;
    void store(const Shortcut &shortcut) override;

    void viewDidMoveToWindow(QWidget *window);
    void windowDidResignKey();
    void preventBecomingKey();
    void setCanBecomeKey(bool canBecomeKey);

    void becomeFirstResponder();
    void controlTextDidChange();
    void controlTextDidEndEditing();

    QEvent *handleEvent(QEvent *event);
    void handleHotKey(const Shortcut &shortcut);
    RecorderSurroundings surroundings() const;

    void refreshDisplay();
    void showShortcut(const std::optional<Shortcut> &shortcut);
    void describe();
    void tellChange(const std::optional<Shortcut> &shortcut) const;

    const LocalizationTable m_texts;
    RecorderLinks m_links;
    Name m_shortcutName;
    QString m_words; ///< of the shortcut that is shown
    bool m_canBecomeKey = false;
    std::unique_ptr<LocalEventMonitor> m_eventMonitor; ///< only while recording
    QPointer<QWidget> m_window; ///< that the field stands in while it is shown
};

} // namespace KeyboardShortcuts
