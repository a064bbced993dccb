// SPDX-License-Identifier: MIT
#include "platform/defaults/SettingsText.h"

#include <QByteArrayView>

#include <algorithm>

namespace platform {

namespace {

constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");
constexpr QByteArrayView kSection("General");

bool isComment(QByteArrayView line)
{
    return line.startsWith(';') || line.startsWith('#');
}

/// Names of sections are printable ASCII. A line that only begins like a header, or has other bytes
/// in it, is a damaged one, and ends no section.
bool isHeader(QByteArrayView line)
{
    return line.size() >= 2 && line.startsWith('[') && line.endsWith(']') &&
           std::ranges::all_of(line, [](char c) { return c >= ' ' && c <= '~'; });
}

bool isOurs(QByteArrayView header)
{
    const QByteArrayView name = header.sliced(1, header.size() - 2).trimmed();
    return name.compare(kSection, Qt::CaseInsensitive) == 0;
}

QByteArrayView lineEndOf(QByteArrayView line)
{
    if (line.endsWith("\r\n"))
        return "\r\n";
    return line.endsWith('\n') ? QByteArrayView("\n") : QByteArrayView();
}

} // namespace

SettingsText::SettingsText(const QByteArray &bytes)
{
    qsizetype begin = 0;
    if (bytes.startsWith(kByteOrderMark)) {
        m_byteOrderMark = kByteOrderMark.toByteArray();
        begin = kByteOrderMark.size();
    }
    while (begin < bytes.size()) {
        const qsizetype end = bytes.indexOf('\n', begin);
        const qsizetype next = end < 0 ? bytes.size() : end + 1;
        m_lines.append(bytes.sliced(begin, next - begin));
        begin = next;
    }
    visit([this](const Setting &setting) { m_settings.insert(setting.key, setting.value); });
}

QByteArray SettingsText::bytes() const
{
    return m_byteOrderMark + m_lines.join();
}

void SettingsText::set(const QString &key, const QByteArray &value)
{
    m_settings.insert(key, value);
    const QByteArray content = key.toUtf8() + '=' + value;
    const QList<qsizetype> lines = linesOf(key);
    if (!lines.isEmpty()) {
        QByteArray &line = m_lines[lines.last()];
        line = content + lineEndOf(line).toByteArray();
        return;
    }
    qsizetype end = visit([](const Setting &) {});
    if (end < 0) {
        insertLine(m_lines.size(), '[' + kSection.toByteArray() + ']');
        end = m_lines.size();
    }
    insertLine(end, content);
}

void SettingsText::remove(const QString &key)
{
    m_settings.remove(key);
    const QList<qsizetype> lines = linesOf(key);
    for (auto line = lines.crbegin(); line != lines.crend(); ++line)
        m_lines.removeAt(*line);
}

// What stands above the first header belongs to the section too.
qsizetype SettingsText::visit(const std::function<void(const Setting &)> &visitor) const
{
    qsizetype end = -1;
    bool isInSection = true;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const QByteArrayView line = QByteArrayView(m_lines.at(i)).trimmed();
        const qsizetype equals = line.indexOf('=');
        if (isHeader(line)) {
            isInSection = isOurs(line);
            end = isInSection ? i + 1 : end;
        } else if (isInSection && !isComment(line) && equals > 0) {
            end = i + 1;
            visitor({i, QString::fromUtf8(line.first(equals).trimmed()),
                     line.sliced(equals + 1).trimmed().toByteArray()});
        }
    }
    return end;
}

QList<qsizetype> SettingsText::linesOf(const QString &key) const
{
    QList<qsizetype> lines;
    visit([&lines, &key](const Setting &setting) {
        if (setting.key == key)
            lines.append(setting.line);
    });
    return lines;
}

void SettingsText::insertLine(qsizetype index, const QByteArray &content)
{
    const QByteArray end = lineEnd();
    if (index > 0 && lineEndOf(m_lines.at(index - 1)).isEmpty())
        m_lines[index - 1] += end;
    m_lines.insert(index, content + end);
}

QByteArray SettingsText::lineEnd() const
{
    const QByteArrayView first = m_lines.isEmpty() ? QByteArrayView() : lineEndOf(m_lines.first());
    return first.isEmpty() ? QByteArray("\n") : first.toByteArray();
}

} // namespace platform
