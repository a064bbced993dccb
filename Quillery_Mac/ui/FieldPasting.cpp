// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/FieldPasting.h"

#include "Quillery_Mac/ui/ExactField.h"
#include "platform/pasteboard/Pasteboard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace {

/// A UTF-16 unit comes from at most three bytes of UTF-8.
constexpr qsizetype kMaxBytesPerUnit = 3;

void insert(QLineEdit &field, const QByteArray &utf8)
{
    // Of a text of 50 MB a plain line edit can take only the start.
    if (auto *exact = dynamic_cast<ExactField *>(&field))
        exact->insertUtf8(utf8);
    else
        field.insert(QString::fromUtf8(utf8.left(field.maxLength() * kMaxBytesPerUnit)));
}

template <typename TextEdit>
void insert(TextEdit &field, const QByteArray &utf8)
{
    if (auto *exact = dynamic_cast<ExactField *>(&field))
        exact->insertUtf8(utf8);
    else
        field.insertPlainText(QString::fromUtf8(utf8));
    field.ensureCursorVisible();
}

/// @return whether `object` is a field of that type, which then has `utf8` unless it is read-only
template <typename Field>
bool pasteInto(QObject &object, const std::optional<QByteArray> &utf8)
{
    auto *field = qobject_cast<Field *>(&object);
    if (field == nullptr)
        return false;
    if (utf8 && !field->isReadOnly())
        insert(*field, *utf8);
    return true;
}

/// A text edit gets its mouse events through its viewport.
bool isField(const QObject *object)
{
    return qobject_cast<const QLineEdit *>(object) != nullptr ||
           qobject_cast<const QTextEdit *>(object) != nullptr ||
           qobject_cast<const QPlainTextEdit *>(object) != nullptr;
}

} // namespace

FieldPasting::FieldPasting(platform::Pasteboard &pasteboard, QObject *parent)
    : QObject(parent)
    , m_pasteboard(pasteboard)
{
    qApp->installEventFilter(this);
}

bool FieldPasting::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->matches(QKeySequence::Paste)) {
        return paste(*watched);
    }
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent *>(event)->button() == Qt::MiddleButton) {
        return isField(watched) || isField(watched->parent());
    }
    return false;
}

bool FieldPasting::paste(QObject &field)
{
    const std::optional<QByteArray> text = m_pasteboard.string();
    return pasteInto<QLineEdit>(field, text) || pasteInto<QTextEdit>(field, text) ||
           pasteInto<QPlainTextEdit>(field, text);
}
