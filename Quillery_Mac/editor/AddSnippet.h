// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/FocusState.h"
#include "Quillery_Mac/store/LiveFetch.h"
#include "Quillery_Mac/store/Snippet.h"

#include <QElapsedTimer>
#include <QProperty>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class ExactTextEdit;
class LineField;
class Picker;
class QGridLayout;
class QLabel;
class TextFrame;

namespace platform {
class Pasteboard;
} // namespace platform

/// What `AddSnippet::selectedFolder` holds when it is not the `order` of a folder.
namespace folderChoice {
inline constexpr qint16 kNone = -1;
inline constexpr qint16 kCreateNew = -10;
} // namespace folderChoice

/// The form that makes one snippet, in a folder if the user wants, which it can make too. As large
/// as its content. Main thread only.
class AddSnippet : public QWidget
{
    Q_OBJECT

public:
    enum class Field { title, text, newFolder };

    /// @param copy fills the text from the pasteboard when the form appears
    /// @param pasteboard outlives the form, as the context does
    AddSnippet(ManagedObjectContext &managedContext, platform::Pasteboard &pasteboard, bool copy,
               QWidget *parent = nullptr);

    /// Closes the form's window, unless it is set to something else.
    std::function<void()> dismiss;
    ManagedObjectContext &context;
    LiveFetch<Snippet> items;
    QProperty<QString> title;
    /// As UTF-8.
    QProperty<QByteArray> text;
    QProperty<QString> newFolder;
    /// A folder's `order`, or a folderChoice.
    QProperty<qint16> selectedFolder{folderChoice::kNone};
    const bool doCopy;
    QProperty<std::optional<Field>> focusedField;

    /// Makes the snippet, saves and dismisses the form. A save that fails is dropped: the objects
    /// stay in the context for the next one.
    void addSnippet();
    /// Dismisses the form and changes nothing.
    void cancel();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Entry
    {
        qint16 code;
        QString title;
        friend bool operator==(const Entry &, const Entry &) = default;
    };

    void build();
    void addRow(const QString &caption, QWidget &field, QWidget &focused);
    QWidget *makeButtons();
    void bind();

    void appear();
    void takeText();
    void takeLateText();

    std::vector<Entry> entries();
    void fillPicker();
    void showChoice();

    platform::Pasteboard &m_pasteboard;
    QGridLayout *m_grid;
    std::vector<QLabel *> m_captions;
    LineField *m_title;
    TextFrame *m_frame;
    ExactTextEdit *m_text;
    Picker *m_folder;
    LineField *m_newFolder;
    std::vector<Entry> m_entries; ///< what the picker offers
    FocusState<Field> m_focus{focusedField};
    std::vector<QPropertyNotifier> m_observers;
    QElapsedTimer m_sinceAppeared; ///< not started before
    bool m_isTextTouched = false;
    bool m_isAdded = false;
    bool m_wasInUse = false;
};
