// SPDX-License-Identifier: MIT
// Records clips and saves snippets in the stores of the folder given as its argument until it is
// killed, and writes a line for each one that was reported as saved: "clip <id>" or "snippet <id>".
#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "Quillery_Mac/store/Snippet.h"

#include <QCoreApplication>
#include <QTimer>

#include <unistd.h>

namespace {

constexpr int kKeptClips = 100;

void report(const char *what, const QUuid &id)
{
    const QByteArray line = what + (' ' + id.toByteArray(QUuid::WithoutBraces)) + '\n';
    if (::write(STDOUT_FILENO, line.constData(), static_cast<std::size_t>(line.size())) < 0)
        QCoreApplication::exit(1);
}

void record(ManagedObjectContext &context)
{
    int position = 1;
    for (Clip *clip : context.fetch<Clip>()) {
        clip->setPosition(static_cast<qint16>(++position));
        if (position > kKeptClips)
            context.deleteObject(*clip);
    }
    auto *clip = context.insert<Clip>();
    const QUuid id = QUuid::createUuid();
    clip->setId(id);
    clip->setPosition(1);
    clip->setContent(QByteArray(1000 + position * 300, 'x'));
    if (context.save())
        report("clip", id);
}

void saveSnippet(ManagedObjectContext &context)
{
    const auto snippets = context.fetch<Snippet>();
    if (snippets.size() >= kKeptClips)
        context.deleteObject(*snippets.front());
    for (Snippet *snippet : snippets)
        snippet->setExpanded(!snippet->expanded());
    auto *snippet = context.insert<Snippet>();
    const QUuid id = QUuid::createUuid();
    snippet->setId(id);
    if (context.save())
        report("snippet", id);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const PersistenceController stores(QCoreApplication::arguments().value(1));
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&stores] {
        stores.container->performBackgroundTask(record);
        saveSnippet(stores.container->viewContext());
    });
    timer.start(0);
    return QCoreApplication::exec();
}
