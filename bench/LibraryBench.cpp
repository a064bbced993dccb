// SPDX-License-Identifier: MIT
// What the library window costs at its limit of 32,767 items, folders of ten among them: opening
// it, scrolling, searching, dropping a row so that every item gets another number, and typing in a
// long text. A step ends when its rows, or its text, are painted. Times are percentiles in
// milliseconds.
#include "Quillery_Mac/app/Funcs.h"
#include "Quillery_Mac/editor/ContentViewMac.h"
#include "Quillery_Mac/editor/ExactTextEdit.h"
#include "Quillery_Mac/editor/SnippetDetailMac.h"
#include "Quillery_Mac/store/Snippet.h"
#include "Quillery_Mac/store/SnippetMatcher.h"
#include "Quillery_Mac/ui/ThinScrollBar.h"
#include "bench/Percentiles.h"
#include "bench/SampleStores.h"
#include "tests/fakes/FakePasteboard.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QKeyEvent>
#include <QTextCursor>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kFullLibrary = 32767;
constexpr int kGroup = 11; // a folder and its ten members
constexpr qsizetype kSnippetBytes = 1024;
constexpr qsizetype kLongText = 10 << 20;
constexpr std::chrono::seconds kPaintBound{60};

void fill(ManagedObjectContext &view)
{
    Words words;
    for (int order = 0; order < kFullLibrary; ++order) {
        auto *snippet = view.insert<Snippet>();
        snippet->setId(QUuid::createUuid());
        snippet->setOrder(static_cast<qint16>(order));
        snippet->setTitle(QString::fromUtf8(words.text(20)));
        const bool isFolder = order % kGroup == 0;
        snippet->setIsFolder(isFolder);
        snippet->setExpanded(isFolder);
        if (!isFolder)
            snippet->setContent(words.text(kSnippetBytes));
    }
    if (!view.save()) {
        std::fputs("The library cannot be written.\n", stderr);
        std::exit(1);
    }
}

/// Sees when a part of a window is painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(const QWidget &part)
        : m_part(part)
    {
        qApp->installEventFilter(this);
    }

    /// Runs the event loop until the part, or something in it, has been painted since the watch
    /// began.
    void wait() const
    {
        const QDeadlineTimer bound(kPaintBound);
        while (!m_isPainted) {
            if (bound.hasExpired()) {
                std::fputs("Nothing was painted.\n", stderr);
                std::exit(1);
            }
            QCoreApplication::processEvents();
        }
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            const auto *widget = static_cast<QWidget *>(watched);
            m_isPainted = m_isPainted || widget == &m_part || m_part.isAncestorOf(widget);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    const QWidget &m_part;
    bool m_isPainted = false;
};

/// A full library with everything that its window is connected to, as the program has it.
class Library
{
public:
    Library() { fill(stores.view()); }

    /// As at a start of the program: nothing was read yet.
    void startAnew()
    {
        close();
        matcher.release();
        stores.open();
    }
    ContentViewMac &open()
    {
        m_window = std::make_unique<ContentViewMac>(
            EditorLinks{stores.view(), funcs, matcher, pasteboard,
                        [this] { matcher.prepare(stores.container()); }});
        const PaintWatch watch(m_window->list());
        m_window->show();
        watch.wait();
        return *m_window;
    }
    void close()
    {
        m_window.reset();
        QCoreApplication::processEvents();
    }

    Stores stores;
    SnippetMatcher matcher;

private:
    Funcs funcs{[](bool /*copy*/, ManagedObjectContext & /*context*/) { return new QWidget; },
                [](QWidget & /*window*/) {}};
    FakePasteboard pasteboard;
    std::unique_ptr<ContentViewMac> m_window;
};

Library &fullLibrary()
{
    static const auto library = std::make_unique<Library>();
    return *library;
}

/// The time that an action takes until a part of the window is painted.
template <class Action>
double timeToPaint(const QWidget &part, Action action)
{
    // What an earlier step left to do is not of this one.
    QCoreApplication::processEvents();
    const PaintWatch watch(part);
    QElapsedTimer timer;
    timer.start();
    action();
    watch.wait();
    return milliseconds(timer);
}

void press(QWidget &widget, int key, const QString &text = QString())
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

void openLibrary(benchmark::State &state)
{
    Library &library = fullLibrary();
    std::vector<double> first;
    std::vector<double> again;
    for (auto step : state) {
        for (const bool isFirst : {true, false}) {
            if (isFirst)
                library.startAnew();
            else
                library.close();
            QElapsedTimer timer;
            timer.start();
            library.open();
            (isFirst ? first : again).push_back(milliseconds(timer));
        }
    }
    library.close();
    report(state, "first", first);
    report(state, "again", again);
}
BENCHMARK(openLibrary)->Unit(benchmark::kMillisecond)->Iterations(20);

// By the scroll bar, and by the key, which selects too: the editor is another one at each page.
void scrollOnePage(benchmark::State &state)
{
    Library &library = fullLibrary();
    ContentViewMac &window = library.open();
    LazyColumn &column = window.list().column();
    std::vector<double> bar;
    std::vector<double> key;
    for (auto step : state) {
        bar.push_back(timeToPaint(column, [&column] {
            column.scrollBar().triggerAction(QAbstractSlider::SliderPageStepAdd);
        }));
    }
    for (int page = 0; page < 200; ++page)
        key.push_back(timeToPaint(column, [&window] { press(window.list(), Qt::Key_PageDown); }));
    library.close();
    report(state, "bar", bar);
    report(state, "key", key);
}
BENCHMARK(scrollOnePage)->Unit(benchmark::kMillisecond)->Iterations(200);

// From the key in the search field to the painted rows. The texts are prepared as in the program:
// from the moment on that the field gets the keyboard.
void searchKeystroke(benchmark::State &state)
{
    Library &library = fullLibrary();
    ContentViewMac &window = library.open();
    window.activateWindow();
    window.searchField().setFocus();
    QCoreApplication::processEvents();
    library.matcher.prepare(library.stores.container());
    library.stores.container().waitForBackgroundTasks();
    const QStringList texts{QStringLiteral("hello there"), QStringLiteral("the end"),
                            QStringLiteral("çé"), QStringLiteral("EE TT"), QStringLiteral("zzzz")};
    std::vector<double> typed;
    std::vector<double> takenBack;
    for (auto step : state) {
        for (const QString &text : texts) {
            for (const QChar letter : text)
                typed.push_back(timeToPaint(window.list(), [&window, letter] {
                    press(window.searchField(), Qt::Key_unknown, QString(letter));
                }));
            for (qsizetype length = text.size(); length > 0; --length)
                takenBack.push_back(timeToPaint(
                    window.list(), [&window] { press(window.searchField(), Qt::Key_Backspace); }));
        }
    }
    library.close();
    report(state, "typed", typed);
    report(state, "taken_back", takenBack);
}
BENCHMARK(searchKeystroke)->Unit(benchmark::kMillisecond)->Iterations(10);

// The first snippet goes to the end, and comes back: all others change places each time. The save
// and the painted rows are included.
void dropThatRenumbersAll(benchmark::State &state)
{
    Library &library = fullLibrary();
    ContentViewMac &window = library.open();
    LibraryState &rows = window.state();
    std::vector<double> times;
    const auto drop = [&](std::size_t from, std::size_t onto, Strip strip) {
        rows.startDrag(*rows.items.results().at(from));
        times.push_back(timeToPaint(window.list(), [&rows, onto, strip] {
            static_cast<void>(rows.drop(rows.rows().at(onto), strip));
        }));
    };
    for (auto step : state) {
        // The first of all is a folder, which stays where it is.
        const Snippet *dragged = rows.items.results().at(1);
        drop(1, kFullLibrary - 1, Strip::Below);
        const bool isLast = dragged->order() == kFullLibrary - 1;
        drop(kFullLibrary - 1, 1, Strip::Above);
        if (!isLast || dragged->order() != 1 || library.stores.view().hasChanges())
            state.SkipWithError("the row is not where it was dropped, or not saved");
    }
    library.close();
    report(state, "drop", times);
}
BENCHMARK(dropThatRenumbersAll)->Unit(benchmark::kMillisecond)->Iterations(15);

/// What the editor is given to type in.
QByteArray longText(bool hasLineEnds)
{
    Words words;
    QByteArray text;
    while (text.size() < kLongText)
        text += words.text(60) + (hasLineEnds ? "\n" : "");
    return text;
}

// One key in a text of 10 MB: it is in the object, and on the screen.
void typeInLongText(benchmark::State &state)
{
    Library &library = fullLibrary();
    ContentViewMac &window = library.open();
    Snippet *snippet = library.stores.view().fetch<Snippet>().at(kFullLibrary / 2);
    const std::optional<QByteArray> before = snippet->content();
    snippet->setContent(longText(state.range(0) != 0));
    QElapsedTimer timer;
    timer.start();
    window.state().selectedItem = snippet->id();
    auto *field = window.detail()->findChild<ExactTextEdit *>();
    PaintWatch(*field).wait();
    state.counters["open_ms"] = milliseconds(timer);

    std::vector<double> typed;
    for (const int place : {0, 1, 2}) {
        QTextCursor cursor = field->textCursor();
        cursor.setPosition(field->document()->characterCount() / 2 * place - (place == 2 ? 1 : 0));
        field->setTextCursor(cursor);
        QCoreApplication::processEvents();
        for (int key = 0; key < 40; ++key) {
            const qsizetype size = snippet->content().value_or(QByteArray()).size();
            typed.push_back(
                timeToPaint(*field, [field] { press(*field, Qt::Key_E, QStringLiteral("e")); }));
            if (snippet->content().value_or(QByteArray()).size() != size + 1)
                state.SkipWithError("the object does not have what was typed");
        }
    }
    for (auto step : state)
        typed.push_back(
            timeToPaint(*field, [field] { press(*field, Qt::Key_E, QStringLiteral("e")); }));
    snippet->setContent(before);
    library.close();
    report(state, "key", typed);
}
BENCHMARK(typeInLongText)
    ->Unit(benchmark::kMillisecond)
    ->ArgName("lines")
    ->Arg(1)
    ->Arg(0)
    ->Iterations(80);

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
