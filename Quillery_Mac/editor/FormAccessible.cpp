// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/FormAccessible.h"

#include "Quillery_Mac/editor/AddSnippet.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

namespace {

class PickerAccessible : public QAccessibleWidget
{
public:
    explicit PickerAccessible(Picker *picker)
        : QAccessibleWidget(picker, QAccessible::ComboBox)
    {
    }

    // The texts of the desktop's protocol are name and description; it has no value that is one.
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value || kind == QAccessible::Description)
            return picker()->currentText();
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const bool isOpen = picker()->view()->isVisible();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = isOpen;
        state.collapsed = !isOpen;
        return state;
    }

    /// The list of the choices.
    int childCount() const override { return 1; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(picker()->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *candidate) const override
    {
        return candidate != nullptr && candidate->object() == picker()->view() ? 0 : -1;
    }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }

    QStringList actionNames() const override
    {
        return {QAccessibleActionInterface::showMenuAction(),
                QAccessibleActionInterface::pressAction()};
    }
    void doAction(const QString &action) override
    {
        if (!actionNames().contains(action) || !picker()->isEnabled())
            return;
        if (picker()->view()->isVisible())
            picker()->hidePopup();
        else
            picker()->showPopup();
    }

private:
    Picker *picker() const { return static_cast<Picker *>(widget()); }
};

QAccessibleInterface *makeFormAccessible(const QString &, QObject *object)
{
    if (auto *picker = qobject_cast<Picker *>(object))
        return new PickerAccessible(picker);
    if (auto *form = qobject_cast<AddSnippet *>(object))
        return new QAccessibleWidget(form, QAccessible::Dialog);
    return nullptr;
}

} // namespace

void installFormAccessibility()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeFormAccessible);
        return true;
    }();
    Q_UNUSED(isInstalled)
}
