// SPDX-License-Identifier: MIT
// What the store costs at its limits: a full library of 32,767 snippets of 1 KB, a full history,
// and a text of 50 MB. Times of single steps are given as percentiles, in milliseconds.
#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/LiveFetch.h"
#include "Quillery_Mac/store/Snippet.h"
#include "Quillery_Mac/store/SnippetMatcher.h"
#include "bench/Percentiles.h"
#include "bench/SampleStores.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <future>

namespace {

constexpr int kFullLibrary = 32767;
constexpr qsizetype kSnippetBytes = 1024;
constexpr int kFullHistory = 998;
constexpr qsizetype kLongText = 50 << 20;

Stores &fullLibrary()
{
    static const std::unique_ptr<Stores> stores = [] {
        auto full = std::make_unique<Stores>();
        Words words;
        for (int order = 0; order < kFullLibrary; ++order) {
            auto *snippet = full->view().insert<Snippet>();
            snippet->setId(QUuid::createUuid());
            snippet->setOrder(static_cast<qint16>(order));
            snippet->setTitle(QString::fromUtf8(words.text(20)));
            snippet->setContent(words.text(kSnippetBytes));
        }
        static_cast<void>(full->view().save());
        full->open();
        return full;
    }();
    return *stores;
}

double residentMegabytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const double pages = statm.readAll().split(' ').value(1).toDouble();
    return pages * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1 << 20);
}

// The recording pass of a full history.
void record(ManagedObjectContext &context, const QByteArray &text)
{
    qint16 position = 1;
    for (Clip *clip : context.fetch<Clip>()) {
        clip->setPosition(++position);
        if (position > kFullHistory)
            context.deleteObject(*clip);
    }
    auto *clip = context.insert<Clip>();
    clip->setId(QUuid::createUuid());
    clip->setContent(text);
    clip->setPosition(1);
    static_cast<void>(context.save());
}

void fillHistory(const Stores &stores)
{
    Words words;
    for (qint16 position = 1; position <= kFullHistory; ++position) {
        auto *clip = stores.view().insert<Clip>();
        clip->setId(QUuid::createUuid());
        clip->setPosition(position);
        clip->setContent(words.text(kSnippetBytes));
    }
    static_cast<void>(stores.view().save());
}

void openFullLibrary(benchmark::State &state)
{
    Stores &stores = fullLibrary();
    std::vector<double> load;
    std::vector<double> fetch;
    for (auto step : state) {
        QElapsedTimer timer;
        timer.start();
        stores.open();
        load.push_back(milliseconds(timer));
        timer.start();
        benchmark::DoNotOptimize(stores.view().fetch<Snippet>());
        fetch.push_back(milliseconds(timer));
    }
    report(state, "load", load);
    report(state, "fetch", fetch);
    ::malloc_trim(0);
    const double before = residentMegabytes();
    QElapsedTimer timer;
    timer.start();
    for (const Snippet *snippet : stores.view().fetch<Snippet>())
        benchmark::DoNotOptimize(snippet->content());
    state.counters["read_all_texts_ms"] = milliseconds(timer);
    state.counters["MB_kept_by_reading_all_texts"] = residentMegabytes() - before;
}
BENCHMARK(openFullLibrary)->Unit(benchmark::kMillisecond)->Iterations(10);

// One change of a full library until a live list has it.
void changeOneOfMany(benchmark::State &state)
{
    const Stores &stores = fullLibrary();
    LiveFetch<Snippet> items(stores.view());
    Snippet *snippet = items.results().at(kFullLibrary / 2);
    for (auto step : state) {
        snippet->setExpanded(!snippet->expanded());
        benchmark::DoNotOptimize(items.results());
    }
    static_cast<void>(stores.view().save());
}
BENCHMARK(changeOneOfMany)->Unit(benchmark::kMillisecond)->Iterations(50);

// All numbers of a full library move by one: the save that an insertion in front of it needs.
void renumberAll(benchmark::State &state)
{
    const Stores &stores = fullLibrary();
    const auto snippets = stores.view().fetch<Snippet>();
    std::vector<double> save;
    for (auto step : state) {
        for (Snippet *snippet : snippets)
            snippet->setOrder(static_cast<qint16>(kFullLibrary - 1 - snippet->order()));
        QElapsedTimer timer;
        timer.start();
        static_cast<void>(stores.view().save());
        save.push_back(milliseconds(timer));
    }
    report(state, "save", save);
}
BENCHMARK(renumberAll)->Unit(benchmark::kMillisecond)->Iterations(6);

// One keystroke: the text is folded, and every snippet asked whether it matches.
void searchKeystroke(benchmark::State &state)
{
    const Stores &stores = fullLibrary();
    const auto snippets = stores.view().fetch<Snippet>();
    SnippetMatcher matcher;
    QElapsedTimer timer;
    timer.start();
    matcher.prepare(stores.container());
    state.counters["prepare_main_ms"] = milliseconds(timer);
    matcher.setSearchText(QStringLiteral("x"));
    for (const Snippet *snippet : snippets)
        matcher.matches(*snippet);
    state.counters["first_search_ms"] = milliseconds(timer);

    // Typed, taken back, and pasted texts; the last ones are in few or no snippets.
    const QStringList texts{QStringLiteral("hello there"), QStringLiteral("the end"),
                            QStringLiteral("çé"),          QStringLiteral("EE TT"),
                            QStringLiteral("zzzz"),        QStringLiteral("漢字")};
    std::vector<double> typed;
    std::vector<double> pasted;
    const auto search = [&](const QString &text, std::vector<double> &times) {
        timer.start();
        matcher.setSearchText(text);
        for (const Snippet *snippet : snippets)
            benchmark::DoNotOptimize(matcher.matches(*snippet));
        times.push_back(milliseconds(timer));
    };
    for (auto step : state) {
        for (const QString &text : texts) {
            for (qsizetype length = 1; length <= text.size(); ++length)
                search(text.first(length), typed);
            for (qsizetype length = text.size(); length-- > 1;)
                search(text.first(length), typed);
            search(QStringLiteral("#"), pasted);
            search(text, pasted);
        }
    }
    report(state, "typed", typed);
    report(state, "pasted", pasted);
}
BENCHMARK(searchKeystroke)->Unit(benchmark::kMillisecond)->Iterations(10);

// A search that is typed while the texts are still being folded: how long each run of it keeps the
// main thread, until everything is found.
void searchWhilePreparing(benchmark::State &state)
{
    const Stores &stores = fullLibrary();
    const auto snippets = stores.view().fetch<Snippet>();
    std::vector<double> runs;
    std::vector<double> complete;
    for (auto step : state) {
        SnippetMatcher matcher;
        QElapsedTimer all;
        bool isComplete = false;
        const auto search = [&] {
            QElapsedTimer timer;
            timer.start();
            matcher.setSearchText(QStringLiteral(" "));
            isComplete = true;
            for (const Snippet *snippet : snippets)
                isComplete = matcher.matches(*snippet) && isComplete;
            runs.push_back(milliseconds(timer));
        };
        QObject::connect(&matcher, &SnippetMatcher::moreAnswers, &matcher, search);
        all.start();
        matcher.prepare(stores.container());
        search();
        while (!isComplete)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        complete.push_back(milliseconds(all));
        stores.container().waitForBackgroundTasks();
    }
    report(state, "run", runs);
    report(state, "complete", complete);
}
BENCHMARK(searchWhilePreparing)->Unit(benchmark::kMillisecond)->Iterations(5);

// One copy into a full history: in all, and what of it falls on the main thread (the merge).
void recordOneClip(benchmark::State &state)
{
    const Stores stores;
    fillHistory(stores);
    stores.view().fetch<Clip>();
    const QByteArray text(kSnippetBytes, 'x');
    std::vector<double> all;
    std::vector<double> main;
    for (auto step : state) {
        QElapsedTimer timer;
        timer.start();
        double done = 0;
        std::promise<void> recorded;
        stores.container().performBackgroundTask([&](ManagedObjectContext &context) {
            record(context, text);
            done = milliseconds(timer);
            recorded.set_value();
        });
        recorded.get_future().wait();
        QElapsedTimer merging;
        merging.start();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(stores.view().fetch<Clip>());
        main.push_back(milliseconds(merging));
        all.push_back(done + main.back());
    }
    report(state, "all", all);
    report(state, "main", main);
}
BENCHMARK(recordOneClip)->Unit(benchmark::kMillisecond)->Iterations(300);

// A text of 50 MB: what of it falls on the main thread, and what recording costs while it is there.
void longText(benchmark::State &state)
{
    const QByteArray text(kLongText, 'x');
    std::vector<double> recorded;
    std::vector<double> next;
    std::vector<double> read;
    std::vector<double> preview;
    std::vector<double> deleted;
    for (auto step : state) {
        const Stores stores;
        fillHistory(stores);
        stores.view().fetch<Clip>();
        const auto timed = [&](auto &times, auto action) {
            QElapsedTimer timer;
            timer.start();
            action();
            times.push_back(milliseconds(timer));
        };
        const auto recordNow = [&](const QByteArray &content) {
            stores.container().performBackgroundTask(
                [content](ManagedObjectContext &context) { record(context, content); });
            stores.container().waitForBackgroundTasks();
        };
        timed(recorded, [&] { recordNow(text); });
        timed(next, [&] { recordNow("next"); });
        Clip *clip = stores.view().fetch<Clip>().at(1);
        timed(preview, [&] { benchmark::DoNotOptimize(clip->preview()); });
        timed(read, [&] { benchmark::DoNotOptimize(clip->content()); });
        timed(deleted, [&] {
            stores.view().deleteObject(*clip);
            static_cast<void>(stores.view().save());
        });
        QCoreApplication::processEvents();
    }
    report(state, "record", recorded);
    report(state, "record_next", next);
    report(state, "main_preview", preview);
    report(state, "main_read", read);
    report(state, "main_delete", deleted);
}
BENCHMARK(longText)->Unit(benchmark::kMillisecond)->Iterations(5);

// Saves of the main thread while texts of 50 MB are being recorded and written back: how long the
// calls keep it. Saves that were put off are counted.
void saveDuringLongText(benchmark::State &state)
{
    const QByteArray text(kLongText, 'x');
    const Stores stores;
    fillHistory(stores);
    auto *snippet = stores.view().insert<Snippet>();
    static_cast<void>(stores.view().save());
    std::vector<double> save;
    double putOff = 0;
    for (auto step : state) {
        std::atomic<bool> isDone = false;
        for (int copy = 0; copy < 3; ++copy) {
            stores.container().performBackgroundTask(
                [text](ManagedObjectContext &context) { record(context, text); });
        }
        stores.container().performBackgroundTask(
            [&isDone](ManagedObjectContext &) { isDone = true; });
        while (!isDone) {
            stores.view().fetch<Clip>().back()->setDevice(QString::number(save.size()));
            snippet->setExpanded(!snippet->expanded());
            QElapsedTimer timer;
            timer.start();
            const auto saved = stores.view().save();
            save.push_back(milliseconds(timer));
            putOff += saved && *saved == Saved::Later ? 1 : 0;
            QCoreApplication::processEvents();
            QThread::msleep(5);
        }
        stores.container().waitForBackgroundTasks();
    }
    report(state, "main_save", save);
    state.counters["saves"] = static_cast<double>(save.size());
    state.counters["saves_put_off"] = putOff;
}
BENCHMARK(saveDuringLongText)->Unit(benchmark::kMillisecond)->Iterations(5);

// Many copies in a row: memory and files stay as they are.
void recordManyClips(benchmark::State &state)
{
    const Stores stores;
    fillHistory(stores);
    stores.view().fetch<Clip>();
    Words words;
    const auto recordSome = [&](int count) {
        for (int copy = 0; copy < count; ++copy) {
            stores.container().performBackgroundTask(
                [text = words.text(kSnippetBytes)](ManagedObjectContext &context) {
                    record(context, text);
                });
            stores.container().waitForBackgroundTasks();
            QCoreApplication::processEvents();
        }
    };
    recordSome(500);
    const double before = residentMegabytes();
    for (auto step : state)
        recordSome(static_cast<int>(state.range(0)));
    state.counters["MB_before"] = before;
    state.counters["MB_after"] = residentMegabytes();
}
BENCHMARK(recordManyClips)->Unit(benchmark::kSecond)->Arg(10000)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
