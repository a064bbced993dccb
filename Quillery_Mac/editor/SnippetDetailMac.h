// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/FocusState.h"

#include <QPointer>
#include <QProperty>
#include <QWidget>

#include <optional>

class ExactTextEdit;
class LineField;
class ManagedObjectContext;
class QLabel;
class Snippet;
struct ObjectChanges;
class TextFrame;

/// Edits the title and the text of one snippet or folder in place. What is typed goes into the
/// object at once; what changes in the object, by whomever, shows at once. Main thread only.
///
/// Nothing is saved but by disappear().
class SnippetDetailMac : public QWidget
{
    Q_OBJECT

public:
    enum class Field { titleField, contentField };

    /// @param context outlives what the view does; the view may be destroyed after it
    /// @param edited belongs to `context`; the view lets go of it when it is deleted
    SnippetDetailMac(ManagedObjectContext &context, Snippet &edited, QWidget *parent = nullptr);
    ~SnippetDetailMac() override;

    ManagedObjectContext &viewContext;
    /// What is edited; null when it was deleted, and nothing can be edited then.
    Snippet *snippet;
    QProperty<std::optional<Field>> focusedField;

    /// The view goes from the screen: saves the context. Called by the owner when another object is
    /// selected, the window closes or the program quits, and by the destructor; does nothing for a
    /// view that is not on the screen or was called already. Shown again, the view saves again.
    ///
    /// A save that fails is fatal.
    void disappear();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void build();
    void takeFonts();
    void appear();

    void objectsChanged(const ObjectChanges &changes);
    void letGo();
    void showTitle();
    void showContent();
    void titleEdited();
    void contentEdited();
    template <typename Edit>
    void editText(Edit edit);

    QPointer<ManagedObjectContext> m_context; ///< `viewContext` as long as it exists
    QLabel *m_titleCaption;
    QLabel *m_contentCaption;
    LineField *m_title;
    TextFrame *m_frame;
    ExactTextEdit *m_content;
    FocusState<Field> m_focus{focusedField};
    quint64 m_textRevision = 0; ///< of the texts that are shown
    bool m_isShowing = false;   ///< what changes in the fields is not the user's doing
    bool m_isOnScreen = false;
};
