// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/SheetAlert.h"

#include <QAbstractButton>
#include <QEventLoop>
#include <QFont>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

// The box belongs to its window and may be destroyed with it while the loop runs. So it lives on
// the heap, and nothing here uses it afterwards without asking whether it is still there.

namespace {

constexpr auto kIndex = "alertButton";

void emphasise(const QMessageBox &box)
{
    // What happened stands out from what can be done about it.
    auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr)
        return;
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
}

} // namespace

std::optional<int> SheetAlert::run(QWidget *view) const
{
    const QPointer<QMessageBox> box = makeBox(view != nullptr ? view->window() : nullptr);
    std::optional<int> answer;
    QEventLoop loop;
    QObject::connect(box, &QObject::destroyed, &loop, &QEventLoop::quit);
    QObject::connect(box, &QMessageBox::finished, &loop, [&answer, &loop, &box] {
        const QAbstractButton *clicked = box->clickedButton();
        answer = kFirstButton + (clicked != nullptr ? clicked->property(kIndex).toInt() : 0);
        loop.quit();
    });
    box->setWindowModality(view != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    box->show();
    loop.exec();
    delete box;
    return answer;
}

QMessageBox *SheetAlert::makeBox(QWidget *window) const
{
    auto *box =
        new QMessageBox(QMessageBox::Warning, QString(), message, QMessageBox::NoButton, window);
    box->setTextFormat(Qt::PlainText);
    emphasise(*box);
    box->setInformativeText(informativeText);
    // Where each button stands is the desktop's choice, which goes by their roles.
    for (const QString &text : buttons) {
        const bool isFirst = box->buttons().isEmpty();
        const auto index = static_cast<int>(box->buttons().size());
        box->addButton(text, isFirst ? QMessageBox::AcceptRole : QMessageBox::ActionRole)
            ->setProperty(kIndex, index);
    }
    if (buttons.isEmpty())
        box->addButton(QMessageBox::Ok)->setIcon({}); // as plain as the buttons with texts of ours
    for (QAbstractButton *button : box->buttons()) {
        if (button->property(kIndex).toInt() != 0)
            continue;
        box->setDefaultButton(qobject_cast<QPushButton *>(button));
        box->setEscapeButton(button);
    }
    return box;
}
