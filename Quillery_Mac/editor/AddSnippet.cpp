// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/AddSnippet.h"

#include "Quillery_Mac/editor/ExactTextEdit.h"
#include "Quillery_Mac/editor/FormAccessible.h"
#include "Quillery_Mac/editor/LineField.h"
#include "Quillery_Mac/editor/OpenDrag.h"
#include "Quillery_Mac/editor/SnippetOrder.h"
#include "Quillery_Mac/editor/TextFrame.h"
#include "Quillery_Mac/ui/RowText.h"
#include "platform/pasteboard/Pasteboard.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

constexpr int kWidth = 420;
constexpr int kMargin = 20;
constexpr int kGap = 12;
constexpr int kButtonGap = 8;
constexpr int kButtonPadding = 6; // beside the style's
constexpr int kButtonsGap = 20;   // beside the gap of the rows
constexpr int kFieldHeight = 28;
constexpr int kTextHeight = 120;
// The first line of the text stands so far below the frame's edge.
constexpr int kTextInset = 8;

// A program that is slow to hand over what was copied has been answered by then; what comes later
// is another copy.
constexpr std::chrono::seconds kLateText{5};

// By keys, or by the menu that opens.
bool isCopying(const QEvent &event)
{
    if (event.type() == QEvent::MouseButtonPress)
        return static_cast<const QMouseEvent &>(event).button() == Qt::RightButton;
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    return key.matches(QKeySequence::Copy) || key.matches(QKeySequence::Cut);
}

} // namespace

AddSnippet::AddSnippet(ManagedObjectContext &managedContext, platform::Pasteboard &pasteboard,
                       bool copy, QWidget *parent)
    : QWidget(parent)
    , dismiss([this] { window()->close(); })
    , context(managedContext)
    , items(managedContext)
    , doCopy(copy)
    , m_pasteboard(pasteboard)
    , m_grid(new QGridLayout(this))
    , m_title(new LineField(this))
    , m_frame(new TextFrame(TextFrame::Edge::Control, this))
    , m_text(&m_frame->field())
    , m_folder(new Picker(this))
    , m_newFolder(new LineField(this))
{
    installFormAccessibility();
    build();
    fillPicker();
    bind();
    showChoice();
}

void AddSnippet::build()
{
    m_grid->setSizeConstraint(QLayout::SetFixedSize);
    m_grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_grid->setHorizontalSpacing(kGap);
    m_grid->setVerticalSpacing(kGap);
    m_frame->setFixedHeight(kTextHeight);
    m_frame->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_folder->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (QWidget *field : {static_cast<QWidget *>(m_title), static_cast<QWidget *>(m_folder),
                           static_cast<QWidget *>(m_newFolder)})
        field->setMinimumHeight(kFieldHeight);

    addRow(tr("Title"), *m_title, *m_title);
    addRow(tr("Content"), *m_frame, *m_text);
    addRow(tr("Folder"), *m_folder, *m_folder);
    addRow(tr("New folder name:"), *m_newFolder, *m_newFolder);
    int widest = 0;
    for (QLabel *caption : m_captions) {
        caption->ensurePolished();
        widest = std::max(widest, caption->sizeHint().width());
    }
    m_grid->setColumnMinimumWidth(0, widest);
    m_grid->setColumnMinimumWidth(1, kWidth - 2 * kMargin - kGap - widest);
    m_grid->addWidget(makeButtons(), m_grid->rowCount(), 0, 1, 2);
}

void AddSnippet::addRow(const QString &caption, QWidget &field, QWidget &focused)
{
    auto *label = new QLabel(caption, this);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(&focused);
    focused.setAccessibleName(caption);
    const int row = m_grid->rowCount();
    if (&field != &focused) {
        // Beside a field of many lines the caption stands by the first one.
        label->setContentsMargins(0, kTextInset, 0, 0);
        m_grid->addWidget(label, row, 0, Qt::AlignTrailing | Qt::AlignTop);
    } else {
        m_grid->addWidget(label, row, 0, Qt::AlignTrailing | Qt::AlignVCenter);
    }
    m_grid->addWidget(&field, row, 1);
    m_captions.push_back(label);
}

QWidget *AddSnippet::makeButtons()
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, kButtonsGap, 0, 0);
    layout->setSpacing(kButtonGap);
    layout->addStretch();
    const auto add = [&](const QString &name, auto action) {
        auto *button = new QPushButton(name, row);
        button->setMinimumSize(button->sizeHint().width() + 2 * kButtonPadding, kFieldHeight);
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, action);
        layout->addWidget(button);
        return button;
    };
    add(tr("Cancel"), &AddSnippet::cancel);
    add(tr("Add Snippet"), &AddSnippet::addSnippet)->setDefault(true);
    return row;
}

void AddSnippet::bind()
{
    m_focus.add(Field::title, *m_title);
    m_focus.add(Field::text, *m_text);
    m_focus.add(Field::newFolder, *m_newFolder);
    setFocusProxy(m_title);

    connect(m_title, &QLineEdit::textChanged, this, [this] { title = m_title->wholeText(); });
    connect(m_newFolder, &QLineEdit::textChanged, this,
            [this] { newFolder = m_newFolder->wholeText(); });
    connect(m_text, &ExactTextEdit::edited, this, [this] {
        m_isTextTouched = true;
        text = m_text->utf8();
    });
    connect(m_folder, &QComboBox::activated, this, [this](int index) {
        selectedFolder = static_cast<qint16>(m_folder->itemData(index).toInt());
    });
    connect(m_folder, &QComboBox::currentTextChanged, this, [this] {
        QAccessibleEvent event(m_folder, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&event);
    });
    const auto show = [](LineField &field, const QString &now) {
        if (field.wholeText() != now)
            field.setWholeText(now);
    };
    m_observers.push_back(title.addNotifier([this, show] { show(*m_title, title.value()); }));
    m_observers.push_back(
        newFolder.addNotifier([this, show] { show(*m_newFolder, newFolder.value()); }));
    m_observers.push_back(text.addNotifier([this] {
        if (m_text->utf8() != text.value())
            m_text->setUtf8(text.value());
    }));
    m_observers.push_back(selectedFolder.addNotifier([this] { showChoice(); }));
    connect(&items, &LiveFetchBase::changed, this, &AddSnippet::fillPicker);
    connect(&m_pasteboard, &platform::Pasteboard::changed, this, &AddSnippet::takeLateText);

    for (auto *field : findChildren<QWidget *>())
        field->installEventFilter(this);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(Qt::CTRL | key, this);
        connect(shortcut, &QShortcut::activated, this, &AddSnippet::addSnippet);
    }
}

void AddSnippet::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous() && !m_sinceAppeared.isValid())
        appear();
}

void AddSnippet::closeEvent(QCloseEvent *event)
{
    closeAfterDrag(*this);
    event->accept();
}

void AddSnippet::appear()
{
    m_sinceAppeared.start();
    if (doCopy)
        takeText();
    focusedField = Field::title;
}

void AddSnippet::takeText()
{
    text = m_pasteboard.string().value_or(QByteArray());
}

// What was copied for this form may still have been on its way when the form appeared.
void AddSnippet::takeLateText()
{
    if (doCopy && !m_isTextTouched && m_sinceAppeared.isValid() && m_pasteboard.string() &&
        !m_sinceAppeared.hasExpired(std::chrono::milliseconds(kLateText).count()))
        takeText();
}

// Copies that the user goes elsewhere to make are not for this form. What was copied for it may
// come before the form is in use.
void AddSnippet::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        return;
    if (isActiveWindow())
        m_wasInUse = true;
    else if (m_wasInUse)
        m_isTextTouched = true;
}

bool AddSnippet::eventFilter(QObject *watched, QEvent *event)
{
    if (isCopying(*event))
        m_isTextTouched = true;
    return QWidget::eventFilter(watched, event);
}

// The fields and buttons have used the keys that mean something to them.
void AddSnippet::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel))
        cancel();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        addSnippet();
    else
        QWidget::keyPressEvent(event);
}

std::vector<AddSnippet::Entry> AddSnippet::entries()
{
    //: No folder.
    std::vector<Entry> result{{folderChoice::kNone, tr("None")}};
    for (const Snippet *item : items.results()) {
        if (item->isFolder())
            result.push_back(
                {item->order(), titleRowText(item->title().value_or(QString()), {}).text});
    }
    result.push_back({folderChoice::kCreateNew, tr("Create new folder...")});
    return result;
}

void AddSnippet::fillPicker()
{
    std::vector<Entry> now = entries();
    if (now == m_entries)
        return;
    m_entries = std::move(now);
    m_folder->clear();
    for (const Entry &entry : m_entries)
        m_folder->addItem(entry.title, entry.code);
    m_folder->setCurrentIndex(m_folder->findData(selectedFolder.value()));
}

void AddSnippet::showChoice()
{
    // Of two folders with one number the chosen one stays.
    if (m_folder->currentIndex() < 0 || m_folder->currentData().toInt() != selectedFolder.value())
        m_folder->setCurrentIndex(m_folder->findData(selectedFolder.value()));
    const bool isNew = selectedFolder.value() == folderChoice::kCreateNew;
    m_captions.back()->setVisible(isNew);
    m_newFolder->setVisible(isNew);
    if (isNew)
        focusedField = Field::newFolder;
}

void AddSnippet::addSnippet()
{
    // A second Return may come before the form, which is closed by then, is destroyed.
    if (std::exchange(m_isAdded, true))
        return;
    const QByteArray empty("");
    const QByteArray content = text.value().isEmpty() ? empty : text.value();
    qint64 place = qint64(selectedFolder.value()) + 1;
    if (selectedFolder.value() == folderChoice::kCreateNew) {
        const std::vector<Snippet *> &all = items.results();
        const qint64 folderPlace = all.empty() ? 1 : qint64(all.back()->order()) + 1;
        place = folderPlace + 1;
        // There is no folder without its snippet.
        for (const qint64 needed : {folderPlace, place})
            static_cast<void>(snippetOrder::place(context, needed));
        snippetOrder::insert(context, {newFolder.value(), empty, true, false}, folderPlace);
    }
    snippetOrder::insert(context, {title.value(), content, false, false}, place);
    // What was not written stays changed, and the next save writes it.
    static_cast<void>(context.save());
    dismiss();
}

void AddSnippet::cancel()
{
    dismiss();
}
