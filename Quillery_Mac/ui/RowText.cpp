// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/RowText.h"

#include "Quillery_Mac/store/TextPreview.h"
#include "Quillery_Mac/ui/LineBreakSign.h"

#include <QCoreApplication>

namespace {

constexpr int kMostCountedLines = 99;

bool isLineBreak(QChar c)
{
    return c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == u'\u0085' ||
           c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

void appendBlank(QString &line)
{
    if (!line.isEmpty() && !line.endsWith(u' '))
        line.append(u' ');
}

void appendBreak(QString &line)
{
    if (line.isEmpty())
        return;
    appendBlank(line);
    line.append(kLineBreakSign);
    line.append(u' ');
}

void cutTo(QString &line, qsizetype length)
{
    if (line.size() <= length)
        return;
    if (line.at(length - 1).isHighSurrogate())
        --length;
    line.truncate(length);
}

QString blankText()
{
    return QCoreApplication::translate("RowText", "Blank text", "one with nothing but blanks");
}

QString tally(const TextPreview &preview)
{
    if (preview.lineCount < 2)
        return {};
    if (preview.lineCount > kMostCountedLines)
        return QCoreApplication::translate("RowText", "99+ lines", "beside a text: its length");
    const int count = static_cast<int>(preview.lineCount);
    if (preview.isLineCountExact)
        return QCoreApplication::translate("RowText", "%n lines", "2 to 99", count);
    return QCoreApplication::translate("RowText", "%n+ lines", "this many at least", count);
}

} // namespace

QString oneLine(const QString &text)
{
    QString line;
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size && line.size() <= kRowCharacters; ++i) {
        const QChar c = text.at(i);
        if (isLineBreak(c)) {
            if (c == u'\r' && i + 1 < size && text.at(i + 1) == u'\n')
                ++i;
            appendBreak(line);
        } else if (c.isSpace()) {
            appendBlank(line);
        } else if (c.category() != QChar::Other_Control) {
            line.append(c);
        }
    }
    cutTo(line, kRowCharacters);
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

RowText historyRowText(const TextPreview &preview)
{
    const QString line = oneLine(preview.start);
    if (line.isEmpty())
        return {blankText(), true, tally(preview)};
    return {line, false, tally(preview)};
}

RowText titleRowText(const QString &title, const TextPreview &preview)
{
    const QString line = oneLine(title);
    if (!line.isEmpty())
        return {line, false, {}};
    if (preview.start.isEmpty())
        return {
            QCoreApplication::translate("RowText", "Untitled", "a snippet or a folder"), true, {}};
    const QString text = oneLine(preview.start);
    if (text.isEmpty())
        return {blankText(), true, {}};
    const qsizetype end = text.indexOf(kLineBreakSign);
    return {text.left(end < 0 ? text.size() : end).trimmed(), true, {}};
}
