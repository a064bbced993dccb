// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/settings/Recorder.h"
#include "Quillery_Mac/ui/ClearButton.h"
#include "platform/keyboard/KeyCodes.h"
#include "tests/fakes/FakeSystemShortcuts.h"
#include "tests/logic/KeyboardShortcutsTest.h"
#include "tests/support/AlertWatch.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

/// A window with a field, the recorder of the paste menu's shortcut, and a button; typed into and
/// clicked as a window system does it.
class RecorderFixture : public KeyboardShortcutsTest, protected AlertWatch
{
protected:
    using Shortcut = KeyboardShortcuts::Shortcut;
    using Key = KeyboardShortcuts::Key;
    using Name = KeyboardShortcuts::Name;

    RecorderFixture() { QLocale::setDefault(QLocale(QLocale::English)); }
    ~RecorderFixture() override
    {
        window.reset();
        QLocale::setDefault(QLocale::system());
    }

    void open()
    {
        window = std::make_unique<QWidget>();
        field = new QLineEdit(window.get());
        row = new KeyboardShortcuts::Recorder(
            Name::contextHotKey(), links(), caption,
            [this](const std::optional<Shortcut> &shortcut) { changes.push_back(shortcut); });
        button = new QPushButton(QStringLiteral("Button"), window.get());
        auto *column = new QVBoxLayout(window.get());
        column->setContentsMargins(20, 20, 20, 20);
        column->setSpacing(20);
        column->addWidget(field);
        column->addWidget(row);
        column->addWidget(button);
        bringToFront(*window);
    }

    /// Shows a window and lets it become key.
    static void bringToFront(QWidget &shown)
    {
        shown.show();
        shown.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&shown));
        QCoreApplication::processEvents();
    }

    KeyboardShortcuts::RecorderLinks links()
    {
        return {system, [this] { return menu.actions(); }, [this] { ++beeps; }};
    }

    KeyboardShortcuts::RecorderCocoa &recorder() { return row->control(); }

    void startRecording()
    {
        clickAt(recorder().rect().center());
        ASSERT_TRUE(recorder().isRecording());
    }

    /// Presses and lets go of a mouse button at a place of the recorder, which may be outside.
    void clickAt(const QPoint &place, Qt::MouseButton mouse = Qt::LeftButton)
    {
        QTest::mouseClick(window->windowHandle(), mouse, {}, recorder().mapTo(window.get(), place));
    }

    static void sendKey(QEvent::Type type, int key, Key position, Qt::KeyboardModifiers modifiers,
                        bool isRepeat = false)
    {
        const auto scanCode =
            platform::x11KeycodeFromCarbon(static_cast<int>(position.rawValue)).value_or(0);
        QWindowSystemInterface::handleExtendedKeyEvent(nullptr, type, key, modifiers, scanCode, 0,
                                                       0, QString(), isRepeat);
        QCoreApplication::processEvents();
    }

    static void type(int key, Key position, Qt::KeyboardModifiers modifiers = {})
    {
        sendKey(QEvent::KeyPress, key, position, modifiers);
        sendKey(QEvent::KeyRelease, key, position, modifiers);
    }

    /// Answers the next alert as soon as it is shown, with the button of this text.
    void answerAlert(const QString &text)
    {
        atAlert([text](QMessageBox &alert) {
            for (QAbstractButton *answer : alert.buttons()) {
                if (answer->text().remove(u'&') == text)
                    answer->click();
            }
        });
    }

    std::optional<Shortcut> shortcut() const
    {
        return KeyboardShortcuts::getShortcut(Name::contextHotKey());
    }

    const QString caption = QStringLiteral("Paste keyboard shortcut:");
    FakeSystemShortcuts system;
    QMenu menu;
    int beeps = 0;
    std::vector<std::optional<Shortcut>> changes;
    std::unique_ptr<QWidget> window;
    QLineEdit *field = nullptr;
    KeyboardShortcuts::Recorder *row = nullptr;
    QPushButton *button = nullptr;
};
