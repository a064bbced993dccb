// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/SnippetDetailMac.h"

#include "Quillery_Mac/editor/ExactTextEdit.h"
#include "Quillery_Mac/editor/LineField.h"
#include "Quillery_Mac/editor/TextFrame.h"
#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/Snippet.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "platform/log/Fatal.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr const char *kSourceFile = "Quillery_Mac/SnippetDetailMac";

constexpr qreal kCaptionFont = 1.08; // times the desktop's font
constexpr qreal kTitleFont = 1.3;
constexpr int kTitleWidth = 400;
constexpr int kMargin = 20;
constexpr int kTopMargin = 8; // the toolbar has its own
constexpr int kCaptionGap = 12;
constexpr int kSectionGap = 16;
constexpr int kFrameGap = 8;

QLabel *makeCaption(const QString &text, QWidget &field)
{
    auto *caption = new QLabel(text);
    caption->setTextFormat(Qt::PlainText);
    caption->setBuddy(&field);
    field.setAccessibleName(text);
    return caption;
}

// The error's description is its text; what else is known of it is its kind.
QString userInfo(const platform::Error &error)
{
    const auto name = [](platform::Error::Kind kind) {
        switch (kind) {
        case platform::Error::Kind::Unavailable:
            return QLatin1String("unavailable");
        case platform::Error::Kind::Taken:
            return QLatin1String("taken");
        case platform::Error::Kind::NotFound:
            return QLatin1String("not found");
        case platform::Error::Kind::TimedOut:
            return QLatin1String("timed out");
        case platform::Error::Kind::Refused:
            return QLatin1String("refused");
        case platform::Error::Kind::Io:
            return QLatin1String("input or output");
        }
        return QLatin1String();
    };
    return QStringLiteral("[\"kind\": \"%1\"]").arg(name(error.kind));
}

bool contains(const std::vector<ManagedObject *> &objects, const Snippet *snippet)
{
    return std::ranges::find(objects, snippet) != objects.end();
}

[[noreturn]] void unresolved(const platform::Error &error)
{
    platform::fatalError(QStringLiteral("Unresolved error %1, %2").arg(error.text, userInfo(error)),
                         kSourceFile);
}

// The save waits for a long text that is being written; the view does not live that long.
void failIfPutOffSaveFails(ManagedObjectContext &context)
{
    auto *watch = new QObject(&context);
    QObject::connect(&context, &ManagedObjectContext::putOffSaveFailed, watch, unresolved);
    QObject::connect(&context, &ManagedObjectContext::didSave, watch, [watch](StoreKind kind) {
        if (kind == StoreKind::Snippets)
            watch->deleteLater();
    });
}

} // namespace

SnippetDetailMac::SnippetDetailMac(ManagedObjectContext &context, Snippet &edited, QWidget *parent)
    : QWidget(parent)
    , viewContext(context)
    , snippet(&edited)
    , m_context(&context)
    , m_title(new LineField)
    , m_frame(new TextFrame(TextFrame::Edge::Accent))
    , m_content(&m_frame->field())
{
    build();
    // An optional attribute is edited as a text that is there.
    if (!edited.title())
        edited.setTitle(QStringLiteral(""));
    if (!edited.content())
        edited.setContent(QByteArray(""));
    showTitle();
    m_content->setUtf8(edited.content().value_or(QByteArray()));
    m_textRevision = edited.textRevision();
    m_content->moveCursor(QTextCursor::End);
    m_content->verticalScrollBar()->setValue(0);
    connect(m_title, &QLineEdit::textChanged, this, &SnippetDetailMac::titleEdited);
    connect(m_content, &ExactTextEdit::edited, this, &SnippetDetailMac::contentEdited);
    connect(&context, &ManagedObjectContext::objectsDidChange, this,
            &SnippetDetailMac::objectsChanged);
    // An object that is made and deleted in one turn of the event loop is in no notice.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (snippet && snippet->isDeleted())
                letGo();
        },
        Qt::QueuedConnection);
}

SnippetDetailMac::~SnippetDetailMac()
{
    disappear();
}

void SnippetDetailMac::build()
{
    m_titleCaption = makeCaption(tr("Title"), *m_title);
    m_contentCaption = makeCaption(tr("Snippet"), *m_content);
    m_title->setPlaceholderText(tr("Title"));
    m_title->setFixedWidth(kTitleWidth);
    m_focus.add(Field::titleField, *m_title);
    m_focus.add(Field::contentField, *m_content);
    setFocusProxy(m_title);
    takeFonts();

    auto *titleRow = new QHBoxLayout;
    titleRow->setSpacing(kCaptionGap);
    titleRow->addWidget(m_titleCaption);
    titleRow->addWidget(m_title);
    titleRow->addStretch();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kTopMargin, kMargin, kMargin);
    column->setSpacing(0);
    column->addLayout(titleRow);
    column->addSpacing(kSectionGap);
    column->addWidget(m_contentCaption, 0, Qt::AlignLeading);
    column->addSpacing(kFrameGap);
    column->addWidget(m_frame, 1);
}

void SnippetDetailMac::takeFonts()
{
    QFont caption = drawing::scaled(font(), kCaptionFont);
    caption.setWeight(QFont::DemiBold);
    caption.setCapitalization(QFont::SmallCaps);
    m_titleCaption->setFont(caption);
    m_contentCaption->setFont(caption);
    m_title->setFont(drawing::scaled(font(), kTitleFont));
}

void SnippetDetailMac::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        takeFonts();
}

void SnippetDetailMac::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        appear();
}

void SnippetDetailMac::appear()
{
    m_isOnScreen = true;
    if (!snippet)
        return;
    focusedField = Field::titleField;
    if (!snippet->isFolder() && !snippet->title().value_or(QString()).isEmpty())
        focusedField = Field::contentField;
}

void SnippetDetailMac::disappear()
{
    if (!std::exchange(m_isOnScreen, false) || !m_context)
        return;
    const auto saved = viewContext.save();
    if (!saved)
        unresolved(saved.error());
    if (*saved == Saved::Later)
        failIfPutOffSaveFails(viewContext);
}

void SnippetDetailMac::objectsChanged(const ObjectChanges &changes)
{
    if (!snippet)
        return;
    if (contains(changes.deleted, snippet)) {
        letGo();
    } else if (contains(changes.updated, snippet) && snippet->textRevision() != m_textRevision) {
        showTitle();
        showContent();
    }
}

void SnippetDetailMac::letGo()
{
    snippet = nullptr;
    const QScopedValueRollback showing(m_isShowing, true);
    for (QWidget *widget :
         {static_cast<QWidget *>(m_titleCaption), static_cast<QWidget *>(m_contentCaption),
          static_cast<QWidget *>(m_title), static_cast<QWidget *>(m_frame)}) {
        widget->setEnabled(false);
        widget->hide();
    }
    m_title->setWholeText({});
    m_content->setUtf8({});
}

void SnippetDetailMac::showTitle()
{
    const QString title = snippet->title().value_or(QString());
    if (title == m_title->wholeText())
        return;
    const QScopedValueRollback showing(m_isShowing, true);
    const int cursor = m_title->cursorPosition();
    m_title->setWholeText(title);
    if (m_title->hasFocus())
        m_title->setCursorPosition(cursor);
}

void SnippetDetailMac::showContent()
{
    m_content->become(snippet->content().value_or(QByteArray()));
    m_textRevision = snippet->textRevision();
}

void SnippetDetailMac::titleEdited()
{
    if (m_isShowing || !snippet)
        return;
    editText([this] { snippet->setTitle(m_title->wholeText()); });
}

void SnippetDetailMac::contentEdited()
{
    if (!snippet)
        return;
    editText([this] { snippet->setContent(m_content->utf8()); });
}

// What changed elsewhere and is not shown yet must still be seen as such after a key in the other
// field.
template <typename Edit>
void SnippetDetailMac::editText(Edit edit)
{
    const bool isShown = snippet->textRevision() == m_textRevision;
    edit();
    if (isShown)
        m_textRevision = snippet->textRevision();
}
