// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/OpenDrag.h"

#include <QDrag>
#include <QDropEvent>
#include <QWidget>

void afterDrag(const QDropEvent &event, QObject &receiver, std::function<void()> command)
{
    const QDrag *drag = event.source() != nullptr ? event.source()->findChild<QDrag *>() : nullptr;
    if (drag == nullptr)
        command();
    else
        QObject::connect(drag, &QObject::destroyed, &receiver, std::move(command),
                         Qt::QueuedConnection);
}

void deleteAfterDrag(QWidget &widget)
{
    const QDrag *drag = widget.findChild<QDrag *>();
    if (drag == nullptr) {
        widget.deleteLater();
        return;
    }
    QObject::connect(drag, &QObject::destroyed, &widget, &QObject::deleteLater,
                     Qt::QueuedConnection);
    QDrag::cancel();
}

void closeAfterDrag(QWidget &window)
{
    if (!window.testAttribute(Qt::WA_DeleteOnClose) || window.findChild<QDrag *>() == nullptr)
        return;
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    deleteAfterDrag(window);
}
