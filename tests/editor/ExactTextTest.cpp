// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/ExactText.h"
#include "Quillery_Mac/editor/ShownText.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <numeric>

namespace {

QString shown(const QByteArray &utf8)
{
    ExactText text;
    text.setUtf8(utf8);
    return text.shown();
}

// What the field would show, kept up to date by the changes alone.
struct Follower
{
    void apply(const ExactText::Change &change)
    {
        shown.replace(change.at, change.removed, change.inserted);
    }
    void apply(const std::vector<ExactText::Change> &changes)
    {
        for (const ExactText::Change &change : changes)
            apply(change);
    }

    QString shown;
};

// The same text as a plain list: for every unit shown, the bytes behind it. Half a pair stands
// without bytes behind the half that has them.
class Model
{
public:
    struct Unit
    {
        QByteArray bytes;
        bool isInside = false;
    };

    int size() const { return static_cast<int>(m_units.size()); }
    bool isInside(int unit) const { return unit < size() && m_units[unit].isInside; }
    void replace(int at, int removed, const QList<Unit> &units)
    {
        m_units.remove(at, removed);
        for (qsizetype i = 0; i < units.size(); ++i)
            m_units.insert(at + i, units.at(i));
    }
    QByteArray utf8() const
    {
        return std::accumulate(m_units.begin(), m_units.end(), QByteArray(),
                               [](QByteArray all, const Unit &unit) { return all + unit.bytes; });
    }

private:
    QList<Unit> m_units;
};

const QList<QByteArray> &pieces()
{
    static const QList<QByteArray> kPieces{
        "a",    "b",         " ",      "\t",           "\n",           "\r\n",
        "\r",   "\u00a0",    "\u2029", "\xef\xb7\x90", "\xef\xb7\x91", "\u2028",
        "\x07", "\u05d0",    "\u0301", "\U0001f469",   "\u200d",       QByteArray(1, '\0'),
        "\xff", "\xc3",      "\xa9",   "\xed\xa0\x80", "\ufeff",       "\u20ac",
        "\x82", "\U0001f3fd"};
    return kPieces;
}

QList<Model::Unit> unitsOf(QByteArrayView utf8)
{
    QList<Model::Unit> units;
    while (!utf8.empty()) {
        const shownText::Character first = shownText::first(utf8);
        units.append({utf8.first(first.bytes).toByteArray(), false});
        if (first.units() == 2)
            units.append({QByteArray(), true});
        utf8 = utf8.sliced(first.bytes);
    }
    return units;
}

class RandomEdits : public ::testing::TestWithParam<quint32>
{
protected:
    int boundary(int from)
    {
        int at = from + random.bounded(model.size() - from + 1);
        while (at > from && model.isInside(at))
            --at;
        return at;
    }

    void edit()
    {
        const int at = boundary(0);
        const int end = random.bounded(6) == 0 ? std::min(boundary(at), at + 12) : at;
        const int removed = model.isInside(end) ? end + 1 - at : end - at;
        QByteArray inserted;
        for (auto count = random.bounded(4); count > 0; --count)
            inserted += pieces().at(random.bounded(pieces().size()));
        model.replace(at, removed, unitsOf(inserted));
        follower.apply(text.replace(at, removed, inserted));
        versions.append(text.utf8());
    }

    QRandomGenerator random{GetParam()};
    ExactText text;
    Model model;
    Follower follower;
    QList<QByteArray> versions{QByteArray()};
};

} // namespace

TEST(ShownTextTest, everyLineEndIsShownAsOne)
{
    EXPECT_EQ(shown("a\nb\r\nc\rd\u2029e\xef\xb7\x90"
                    "f\xef\xb7\x91g"),
              QStringLiteral("a\nb\nc\nd\ne\nf\ng"));
    EXPECT_EQ(shown("\r\r\n\n\r"), QStringLiteral("\n\n\n\n"));
}

TEST(ShownTextTest, otherCharactersAreShownAsTheyAre)
{
    const QString text = QStringLiteral("\u00a0\t\u2028\ufeff\x01\u05d0\U0001f469\u200d\U0001f4bb");
    EXPECT_EQ(shown(text.toUtf8()), text);
    EXPECT_EQ(shown(QByteArray("a\0b", 3)), QString(u'a') + QChar(0) + u'b');
}

TEST(ShownTextTest, everyInvalidByteIsOneSign)
{
    const auto invalid = [](int count) { return QString(count, QChar::ReplacementCharacter); };
    EXPECT_EQ(shown("\xff"), invalid(1));
    EXPECT_EQ(shown("\xc3"), invalid(1));
    EXPECT_EQ(shown("\xe2\x82"), invalid(2));
    EXPECT_EQ(shown("\xc0\xaf"), invalid(2));
    EXPECT_EQ(shown("\xe0\x9f\xbf"), invalid(3));
    EXPECT_EQ(shown("\xed\xa0\x80"), invalid(3));
    EXPECT_EQ(shown("\xf0\x8f\xbf\xbf"), invalid(4));
    EXPECT_EQ(shown("\xf4\x90\x80\x80"), invalid(4));
    EXPECT_EQ(shown("\xc3\x41"), invalid(1) + u'A');
}

TEST(ShownTextTest, halfAPairThatIsTypedBecomesASignOfItsOwn)
{
    EXPECT_EQ(shownText::toUtf8(QString(QChar(0xd800)).append(u'x')), "\xef\xbf\xbdx");
    EXPECT_EQ(shownText::toUtf8(QString(QChar(0xdc00))), "\xef\xbf\xbd");
    EXPECT_EQ(shownText::toUtf8(QString::fromUtf8("\U0001f469")), "\U0001f469");
}

TEST(ExactTextTest, anEmptyTextTakesAnEdit)
{
    ExactText text;

    const ExactText::Change change = text.replace(0, 0, "a\r\nb");

    EXPECT_EQ(text.utf8(), "a\r\nb");
    EXPECT_EQ(text.length(), 3);
    EXPECT_EQ(change.inserted, QStringLiteral("a\nb"));
}

TEST(ExactTextTest, anEditLeavesTheLineEndsAroundItAlone)
{
    ExactText text;
    text.setUtf8("one\r\ntwo\rthree\n");

    text.replace(4, 1, "T");
    EXPECT_EQ(text.utf8(), "one\r\nTwo\rthree\n");
    text.replace(3, 1, {});
    EXPECT_EQ(text.utf8(), "oneTwo\rthree\n");
}

TEST(ExactTextTest, aPartHasItsOwnBytes)
{
    ExactText text;
    text.setUtf8("a\r\n\xff\u20ac");

    EXPECT_EQ(text.utf8(1, 2), "\r\n\xff");
    EXPECT_EQ(text.shown(2, 2), QString(QChar::ReplacementCharacter) + u'\u20ac');
}

TEST(ExactTextTest, whatComesToStandSideBySideStaysTwoCharacters)
{
    ExactText text;
    text.setUtf8("\rX\n\xc3Y\xa9");
    Follower follower{text.shown()};

    follower.apply(text.replace(1, 1, {}));
    follower.apply(text.replace(3, 1, {}));

    EXPECT_EQ(text.utf8(), "\r\n\xc3\xa9");
    EXPECT_EQ(text.length(), 4);
    EXPECT_EQ(text.shown(), follower.shown);
    text.replace(1, 0, "Z");
    EXPECT_EQ(text.utf8(), "\rZ\n\xc3\xa9");
}

TEST(ExactTextTest, halfAPairThatIsLeftIsASignOfItsOwn)
{
    ExactText text;
    text.setUtf8("a\U0001f469z");

    text.follow(1, 1, {});

    EXPECT_EQ(text.utf8(), "a\xef\xbf\xbdz");
    EXPECT_EQ(text.length(), 3);
    text.undo();
    EXPECT_EQ(text.utf8(), "a\U0001f469z");
}

TEST(ExactTextTest, aChangeFromElsewhereReplacesOnlyWhatDiffers)
{
    ExactText text;
    text.setUtf8("one\r\ntwo \u00e8");

    const auto change = text.become("one\r\ntwo \u00e9");

    ASSERT_TRUE(change);
    EXPECT_EQ(change->at, 8);
    EXPECT_EQ(change->removed, 1);
    EXPECT_EQ(change->inserted, QStringLiteral("\u00e9"));
    EXPECT_FALSE(text.become("one\r\ntwo \u00e9"));
    text.undo();
    EXPECT_EQ(text.utf8(), "one\r\ntwo \u00e8");
}

TEST(ExactTextTest, typingIsUndoneWordByWord)
{
    ExactText text;
    int at = 0;
    for (const char key : QByteArray("ab cd"))
        text.follow(at++, 0, QByteArray(1, key));

    text.undo();
    EXPECT_EQ(text.utf8(), "ab ");
    text.undo();
    EXPECT_EQ(text.utf8(), "");
    EXPECT_FALSE(text.history().canUndo());
    text.redo();
    text.redo();
    EXPECT_EQ(text.utf8(), "ab cd");
    EXPECT_FALSE(text.history().canRedo());
}

TEST(ExactTextTest, deletionsInARowAreUndoneTogether)
{
    ExactText text;
    text.setUtf8("abcdef");
    text.follow(3, 1, {});
    text.follow(2, 1, {});
    text.follow(2, 1, {});

    text.undo();

    EXPECT_EQ(text.utf8(), "abcdef");
}

TEST(ExactTextTest, anEditForgetsWhatWasUndone)
{
    ExactText text;
    text.replace(0, 0, "one");
    text.undo();
    text.replace(0, 0, "two");

    EXPECT_TRUE(text.redo().empty());
    EXPECT_EQ(text.utf8(), "two");
}

TEST(ExactTextTest, aGroupIsUndoneAndDoneAgainTogether)
{
    ExactText text;
    text.setUtf8("one two");
    text.history().beginGroup();
    text.replace(0, 4, {});
    text.replace(3, 0, " one");
    text.history().endGroup();
    ASSERT_EQ(text.utf8(), "two one");

    text.undo();
    EXPECT_EQ(text.utf8(), "one two");
    text.redo();
    EXPECT_EQ(text.utf8(), "two one");
}

TEST(ExactTextTest, aHistoryThatIsTooLongLosesItsStartOnly)
{
    const QByteArray block(8 << 20, 'x');
    ExactText text;
    for (int i = 0; i < 12; ++i)
        text.replace(0, text.length(), block + QByteArray::number(i));

    text.undo();
    EXPECT_TRUE(text.utf8().endsWith("x10"));
    while (text.history().canUndo())
        text.undo();
    EXPECT_FALSE(text.utf8().isEmpty());
}

TEST(ExactTextTest, aLongLineIsBrokenWithoutAByteMoreOrLess)
{
    ExactText text;
    text.setUtf8(QByteArray(50000, 'x') + "\r\nend");

    EXPECT_EQ(text.utf8(), QByteArray(50000, 'x') + "\r\nend");
    const QStringList lines = text.shown().split(u'\n');
    EXPECT_GT(lines.size(), 10);
    for (const QString &line : lines)
        EXPECT_LE(line.size(), 2 * ShownMap::kLongLine);
    EXPECT_EQ(lines.join(QString()).size(), 50003);
    const int firstBreak = static_cast<int>(lines.front().size());
    EXPECT_TRUE(text.isBreak(firstBreak));
    EXPECT_FALSE(text.isBreak(firstBreak - 1));
    EXPECT_EQ(text.utf8(firstBreak - 1, 3), "xx");
    EXPECT_FALSE(text.isBreak(text.length() - 4));
}

TEST(ExactTextTest, aLineIsBrokenAfterABlankAndNeverInsideASign)
{
    ExactText words;
    words.setUtf8(QByteArray("seven. ").repeated(2000));
    const QStringList wordLines = words.shown().split(u'\n');
    for (const QString &line : wordLines)
        EXPECT_TRUE(line.endsWith(u' ')) << line.right(10).toStdString();

    const QByteArray family("\U0001f469\u200d\U0001f469\u200d\U0001f467");
    ExactText signs;
    signs.setUtf8(family.repeated(3000));
    const QStringList signLines = signs.shown().split(u'\n');
    ASSERT_GT(signLines.size(), 2);
    for (const QString &line : signLines)
        EXPECT_EQ(line.size() % QString::fromUtf8(family).size(), 0);
}

TEST(ExactTextTest, editsAtABreakHitTheBytesBesideIt)
{
    const QByteArray bytes(20000, 'x');
    ExactText text;
    text.setUtf8(bytes);
    const int firstBreak = static_cast<int>(text.shown().indexOf(u'\n'));

    text.replace(firstBreak, 0, "before");
    text.replace(firstBreak + 7, 0, "after");
    EXPECT_EQ(text.utf8(), bytes.left(firstBreak) + "beforeafter" + bytes.mid(firstBreak));
    EXPECT_TRUE(text.isBreak(firstBreak + 6));

    Follower follower{text.shown()};
    follower.apply(text.replace(firstBreak + 6, 1, {}));
    EXPECT_EQ(text.utf8(), bytes.left(firstBreak) + "beforeafter" + bytes.mid(firstBreak));
    EXPECT_EQ(text.shown(), follower.shown);

    follower.apply(text.replace(firstBreak, text.length() - firstBreak, {}));
    EXPECT_EQ(text.utf8(), bytes.left(firstBreak));
    EXPECT_EQ(text.shown(), follower.shown);
}

TEST(ExactTextTest, everythingBehindABreakCanGoAndComeBack)
{
    const QByteArray bytes(5000, 'x');
    ExactText text;
    text.setUtf8(bytes);
    const int firstBreak = static_cast<int>(text.shown().indexOf(u'\n'));
    Follower follower{text.shown()};

    follower.apply(text.replace(firstBreak + 1, text.length() - firstBreak - 1, {}));
    EXPECT_EQ(text.length(), firstBreak + 1);
    EXPECT_EQ(text.shown(), follower.shown);
    follower.apply(text.replace(firstBreak + 1, 0, "end"));
    EXPECT_EQ(text.shown(), follower.shown);
    EXPECT_EQ(text.utf8(), bytes.left(firstBreak) + "end");
    follower.apply(text.undo());
    follower.apply(text.undo());
    EXPECT_EQ(text.utf8(), bytes);
    EXPECT_EQ(text.shown(), follower.shown);
}

TEST(ExactTextTest, linesThatGrewLongAreBrokenAnew)
{
    ExactText text;
    text.setUtf8("start\n");
    text.follow(6, 0, QByteArray(10000, 'x'));
    ASSERT_EQ(text.length(), 10006);
    Follower follower{text.shown()};

    follower.apply(text.breakLines(6, 10000));

    EXPECT_EQ(text.shown(), follower.shown);
    EXPECT_GT(text.length(), 10006);
    EXPECT_EQ(text.utf8(), "start\n" + QByteArray(10000, 'x'));
}

TEST_P(RandomEdits, agreeWithAPlainListAndCanAllBeUndoneAndDoneAgain)
{
    constexpr int kEdits = 10000;
    for (int i = 0; i < kEdits; ++i) {
        edit();
        ASSERT_EQ(text.utf8(), model.utf8()) << "edit " << i;
        ASSERT_EQ(text.length(), model.size()) << "edit " << i;
        ASSERT_EQ(text.shown(), follower.shown) << "edit " << i;
    }

    // Edits that changed nothing, and those that joined an earlier one, have no step of their own.
    qsizetype version = versions.size() - 1;
    while (text.history().canUndo()) {
        follower.apply(text.undo());
        ASSERT_EQ(text.shown(), follower.shown);
        while (version >= 0 && versions.at(version) != text.utf8())
            --version;
        ASSERT_GE(version, 0);
    }
    EXPECT_TRUE(text.utf8().isEmpty());
    while (text.history().canRedo()) {
        follower.apply(text.redo());
        ASSERT_EQ(text.shown(), follower.shown);
    }
    EXPECT_EQ(text.utf8(), versions.last());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, ::testing::Values(1U, 2U, 3U));

// The whole budget of a key press is 16 ms, of which this is one part; the limit here only finds
// what takes more than a pass over the text, on a loaded machine.
TEST(ExactTextTest, anEditInTenMillionBytesTakesOnePassOverThem)
{
    const QByteArray lines =
        QByteArray("one line of text, fifty bytes long, with its end\r\n").repeated(200000);
    for (const QByteArray &bytes : {lines, QByteArray(10000000, 'x')}) {
        ExactText text;
        text.setUtf8(bytes);
        QByteArray shared = text.utf8();
        std::vector<qint64> times;
        for (int i = 0; i < 21; ++i) {
            QElapsedTimer timer;
            timer.start();
            text.follow(text.length() / 2, 0, "y");
            shared = text.utf8();
            times.push_back(timer.nsecsElapsed());
        }
        std::ranges::nth_element(times, times.begin() + 10);
        EXPECT_LT(times[10], 150'000'000);
        EXPECT_EQ(text.utf8().size(), bytes.size() + 21);
    }
}
