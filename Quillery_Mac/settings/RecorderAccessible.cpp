// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/RecorderAccessible.h"

#include "Quillery_Mac/settings/RecorderCocoa.h"

#include <QAccessibleWidget>

namespace KeyboardShortcuts {

namespace {

/// A field that takes no text. Its name is its caption and the shortcut in words: the signs that it
/// shows are read out differently by every screen reader, or not at all.
class RecorderAccessible : public QAccessibleWidget
{
public:
    explicit RecorderAccessible(RecorderCocoa *recorder)
        : QAccessibleWidget(recorder, QAccessible::Button)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        QString text = QAccessibleWidget::text(kind);
        const QString words = static_cast<RecorderCocoa *>(widget())->words();
        if (kind != QAccessible::Name || words.isEmpty())
            return text;
        return text.isEmpty() ? words : text.trimmed() + u' ' + words;
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
