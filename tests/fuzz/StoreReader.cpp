// SPDX-License-Identifier: MIT
// Does everything with the stores of the folder given as its argument that the program does, and
// ends with 0: whatever stands in the files, this must not go wrong.
#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "Quillery_Mac/store/PersistentHistory.h"
#include "Quillery_Mac/store/Snippet.h"
#include "Quillery_Mac/store/SnippetMatcher.h"

#include <QCoreApplication>

namespace {

template <class Object>
void useAll(ManagedObjectContext &context)
{
    for (Object *object : context.fetch<Object>()) {
        static_cast<void>(object->preview());
        static_cast<void>(object->id());
        object->setContent(object->content());
    }
    static_cast<void>(context.save());
    const auto objects = context.fetch<Object>();
    if (!objects.empty())
        context.deleteObject(*objects.front());
    context.insert<Object>();
    static_cast<void>(context.save());
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const PersistenceController stores(QCoreApplication::arguments().value(1));
    PersistentContainer &container = *stores.container;
    SnippetMatcher matcher;
    matcher.prepare(container);
    matcher.setSearchText(QStringLiteral("e"));
    for (const Snippet *snippet : container.viewContext().fetch<Snippet>())
        static_cast<void>(matcher.matches(*snippet));
    for (const StoreKind kind : kStoreKinds) {
        static_cast<void>(container.history(kind).addConsumer(QStringLiteral("reader")));
        static_cast<void>(container.history(kind).transactionsAfter(0));
    }
    useAll<Clip>(container.viewContext());
    useAll<Snippet>(container.viewContext());
    container.performBackgroundTask(useAll<Clip>);
    container.performBackgroundTask(useAll<Snippet>);
    container.waitForBackgroundTasks();
    QCoreApplication::processEvents();
    return 0;
}
