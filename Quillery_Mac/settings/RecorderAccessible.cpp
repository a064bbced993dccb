// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/RecorderAccessible.h"

#include "Quillery_Mac/settings/RecorderCocoa.h"

#include <QAccessibleWidget>

namespace KeyboardShortcuts {

namespace {

/// A field that takes no text: what it shows is its description.
class RecorderAccessible : public QAccessibleWidget
{
public:
    explicit RecorderAccessible(RecorderCocoa *recorder)
        : QAccessibleWidget(recorder, QAccessible::Button)
    {
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString &action) override
    {
        if (action == pressAction() && widget()->isEnabled())
            widget()->setFocus(Qt::OtherFocusReason);
    }
};

QAccessibleInterface *makeRecorderAccessible(const QString &, QObject *object)
{
    auto *recorder = qobject_cast<RecorderCocoa *>(object);
    return recorder != nullptr ? new RecorderAccessible(recorder) : nullptr;
}

} // namespace

void installRecorderAccessibility()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeRecorderAccessible);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

} // namespace KeyboardShortcuts
