// SPDX-License-Identifier: MIT
// Random use of the library against a model of it that is too plain to be wrong.
#include "tests/editor/LibraryFixture.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <map>
#include <numeric>

namespace {

constexpr int kOperations = 10000;
constexpr quint32 kSeed = 20;
constexpr int kMostItems = 40;

/// The library as a list of names; a folder's starts with a capital F.
using Model = QStringList;

bool isFolder(const QString &name)
{
    return name.startsWith(u'F');
}

int groupEnd(const Model &model, int first)
{
    int end = first + 1;
    while (isFolder(model[first]) && end < model.size() && !isFolder(model[end]))
        ++end;
    return end;
}

/// Takes the group out, and puts it back in front of what stood at `destination`.
void move(Model &model, int first, int count, int destination)
{
    const Model taken = model.mid(first, count);
    int place = destination;
    if (destination > first)
        place = std::max(first, destination - count);
    for (int i = 0; i < count; ++i)
        model.removeAt(first);
    for (int i = 0; i < count; ++i)
        model.insert(place + i, taken[i]);
}

std::map<QString, QStringList> membersOf(const Model &model)
{
    std::map<QString, QStringList> members;
    for (int i = 0; i < model.size(); i = groupEnd(model, i)) {
        if (isFolder(model[i]))
            members[model[i]] = model.mid(i + 1, groupEnd(model, i) - i - 1);
    }
    return members;
}

class LibraryModelTest : public LibraryFixture
{
protected:
    int below(int end) { return m_random.bounded(end); }

    Snippet &item(int place) { return *library().items.results()[static_cast<std::size_t>(place)]; }

    /// Gives what was just made a name, and puts it into the model by its number: behind everything
    /// with the same one, as it is the newest.
    void adopt(const QString &name, int order)
    {
        ASSERT_NE(library().selected(), nullptr);
        library().selected()->setTitle(name);
        library().selected()->setExpanded(true);
        library().save();
        const auto place = std::upper_bound(numbers.cbegin(), numbers.cend(), order);
        model.insert(place - numbers.cbegin(), name);
        numbers.insert(place, order);
    }

    void create()
    {
        const bool isSelecting = !model.isEmpty() && below(3) > 0;
        const int above = isSelecting ? below(static_cast<int>(model.size())) : -1;
        library().selectedItem = isSelecting ? item(above).id() : std::nullopt;
        if (below(3) == 0) {
            library().addFolder();
            adopt(QStringLiteral("F%1").arg(m_made++), static_cast<int>(model.size()) + 1);
        } else {
            library().addSnippet();
            const int order = isSelecting ? numbers[static_cast<std::size_t>(above)] + 1 : 0;
            for (int &number : numbers)
                number += number >= order ? 1 : 0;
            adopt(QStringLiteral("s%1").arg(m_made++), order);
        }
    }

    void remove()
    {
        const int place = below(static_cast<int>(model.size()));
        library().selectedItem = item(place).id();
        library().deleteSelected();
        model.removeAt(place);
        numbers.erase(numbers.cbegin() + place);
    }

    void drag()
    {
        const int from = below(static_cast<int>(model.size()));
        const int onto = below(static_cast<int>(model.size()));
        const Strip strip = below(2) == 0 ? Strip::Above : Strip::Below;
        const bool isRowMember = !isFolder(model[onto]) && hasFolderAbove(onto);
        const auto before = membersOf(model);
        const bool hadTopLevel = !isFolder(model[0]);
        const int count = groupEnd(model, from) - from;

        library().startDrag(item(from));
        const bool isTaken = library().drop(row(model[onto].toStdString()), strip);

        const bool isRefused = isFolder(model[from]) && isRowMember && strip == Strip::Above;
        ASSERT_EQ(isTaken, !isRefused);
        if (isRefused)
            return;
        int destination = onto + (strip == Strip::Below ? 1 : 0);
        if (strip == Strip::Below && isFolder(model[onto]) && isFolder(model[from]))
            destination = groupEnd(model, onto);
        const bool keepsGroups =
            isFolder(model[from]) && (isFolder(model[onto]) || strip == Strip::Above);
        const QString moved = model[from];
        move(model, from, count, destination);
        std::iota(numbers.begin(), numbers.end(), 0);
        if (keepsGroups && !hadTopLevel) {
            ASSERT_EQ(membersOf(model)[moved], before.at(moved));
        }
    }

    bool hasFolderAbove(int place) const
    {
        const auto end = model.cbegin() + place;
        return std::any_of(model.cbegin(), end, isFolder);
    }

    Model model;
    std::vector<int> numbers; ///< the `order` of each

private:
    QRandomGenerator m_random{kSeed};
    int m_made = 0;
};

/// The name without the colon of a folder.
QString plain(const std::string &name)
{
    return QString::fromStdString(name).remove(u':');
}

TEST_F(LibraryModelTest, tenThousandRandomOperationsAgreeWithThePlainModel)
{
    for (int i = 0; i < kOperations; ++i) {
        const int kind = below(10);
        if (model.size() < 3 || (kind < 2 && model.size() < kMostItems))
            create();
        else if (kind == 2)
            remove();
        else
            drag();
        QStringList names;
        for (const std::string &name : sequence())
            names.append(plain(name));
        ASSERT_EQ(names, model) << "after operation " << i;
        ASSERT_EQ(orders(), numbers) << "after operation " << i;
        if (HasFatalFailure())
            return;
    }
    // On a busy machine a save may have met another write for so long that it was put off.
    EXPECT_TRUE(QTest::qWaitFor([this] { return !view().hasChanges(); }));
}

} // namespace
