// SPDX-License-Identifier: MIT
#include "platform/login/ExecLine.h"

#include <gtest/gtest.h>

using platform::execLine;
using platform::programOfExecLine;

namespace {

struct QuotedPath
{
    const char *path;
    const char *line;
};

class ExecLineTest : public ::testing::TestWithParam<QuotedPath>
{
};

} // namespace

TEST_P(ExecLineTest, quotesByTheSpecification)
{
    EXPECT_EQ(execLine(QString::fromUtf8(GetParam().path)), QString::fromUtf8(GetParam().line));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ExecLineTest,
    ::testing::Values(QuotedPath{"/usr/bin/quillery", "/usr/bin/quillery"},
                      QuotedPath{"/opt/Schöne-Dinge_1.0/q,[]{}!^",
                                 "/opt/Schöne-Dinge_1.0/q,[]{}!^"},
                      QuotedPath{"/a b", "\"/a b\""}, QuotedPath{"/a\tb", "\"/a\tb\""},
                      QuotedPath{"/a\nb", "\"/a\nb\""}, QuotedPath{"/a\"b", "\"/a\\\"b\""},
                      QuotedPath{"/a'b", "\"/a'b\""}, QuotedPath{"/a\\b", "\"/a\\\\b\""},
                      QuotedPath{"/$HOME", "\"/\\$HOME\""}, QuotedPath{"/`id`", "\"/\\`id\\`\""},
                      QuotedPath{"/a>b", "\"/a>b\""}, QuotedPath{"/a<b", "\"/a<b\""},
                      QuotedPath{"/~", "\"/~\""}, QuotedPath{"/a|b", "\"/a|b\""},
                      QuotedPath{"/a&b", "\"/a&b\""}, QuotedPath{"/a;b", "\"/a;b\""},
                      QuotedPath{"/a*b", "\"/a*b\""}, QuotedPath{"/a?b", "\"/a?b\""},
                      QuotedPath{"/a#b", "\"/a#b\""}, QuotedPath{"/a(b", "\"/a(b\""},
                      QuotedPath{"/a)b", "\"/a)b\""}, QuotedPath{"/a=b", "/a=b"},
                      QuotedPath{"/100%", "env /100%%"}, QuotedPath{"/%f", "env /%%f"},
                      QuotedPath{"/%% x", "env \"/%%%% x\""}));

TEST(ExecLine, envCannotBeGivenAPathThatLooksLikeAVariable)
{
    EXPECT_EQ(execLine(QStringLiteral("/a=b/100%")), std::nullopt);
}

TEST(ExecLine, theProgramIsTheFirstArgumentUnquoted)
{
    EXPECT_EQ(programOfExecLine(QStringLiteral("/usr/bin/a --b c")), QStringLiteral("/usr/bin/a"));
    EXPECT_EQ(programOfExecLine(QStringLiteral("  \"/a b\\\"\\$\" %u")), QStringLiteral("/a b\"$"));
    EXPECT_EQ(programOfExecLine(QStringLiteral("/a\\ b c")), QStringLiteral("/a b"));
    EXPECT_EQ(programOfExecLine(QStringLiteral("/a' b\\'c")), QStringLiteral("/a b\\c"));
}

TEST(ExecLine, aLineWithoutAProgramNamesNone)
{
    EXPECT_EQ(programOfExecLine(QString()), std::nullopt);
    EXPECT_EQ(programOfExecLine(QStringLiteral("  ")), std::nullopt);
    EXPECT_EQ(programOfExecLine(QStringLiteral("\"/opt/quill")), std::nullopt);
    EXPECT_EQ(programOfExecLine(QStringLiteral("/a \"b")), std::nullopt);
    EXPECT_EQ(programOfExecLine(QStringLiteral("/a\\")), std::nullopt);
}
