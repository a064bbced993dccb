// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/KdeShortcuts.h"

#include "platform/hotkeys/system_shortcuts/BusQuestion.h"
#include "platform/hotkeys/system_shortcuts/QtKey.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QList>

namespace platform {

namespace {

BusQuestion questionTo(const QString &path, const char *interface, const char *method)
{
    return {QStringLiteral("org.kde.kglobalaccel"), path, QString::fromLatin1(interface),
            QString::fromLatin1(method)};
}

BusQuestion questionToComponent(const QString &path, const char *method)
{
    return questionTo(path, "org.kde.kglobalaccel.Component", method);
}

/// The keys of one shortcut: six names, the keys in force, the keys by default.
QList<int> takeKeys(const QDBusArgument &infos)
{
    constexpr int kNames = 6;
    QString name;
    QList<int> keys;
    QList<int> defaults;
    infos.beginStructure();
    for (int i = 0; i < kNames; ++i)
        infos >> name;
    infos >> keys >> defaults;
    infos.endStructure();
    return keys;
}

std::vector<SymbolChord> chordsIn(const QVariant &answer)
{
    std::vector<SymbolChord> chords;
    if (!answer.isValid())
        return chords;
    const auto infos = answer.value<QDBusArgument>();
    infos.beginArray();
    while (!infos.atEnd()) {
        for (const int key : takeKeys(infos)) {
            if (const std::optional<SymbolChord> chord = chordOfQtKey(key))
                chords.push_back(*chord);
        }
    }
    infos.endArray();
    return chords;
}

} // namespace

void KdeShortcuts::ask()
{
    ++m_openQuestions;
    askBus(questionTo(QStringLiteral("/kglobalaccel"), "org.kde.KGlobalAccel", "allComponents"),
           QStringLiteral("ao"), *this, [this](const QVariant &answer) {
               const auto paths = qdbus_cast<QList<QDBusObjectPath>>(answer);
               for (const QDBusObjectPath &path : paths)
                   askComponent(path.path());
               settle();
           });
}

void KdeShortcuts::askComponent(const QString &path)
{
    ++m_openQuestions;
    askBus(questionToComponent(path, "isActive"), QStringLiteral("b"), *this,
           [this, path](const QVariant &answer) {
               if (answer.toBool())
                   askShortcuts(path);
               settle();
           });
}

void KdeShortcuts::askShortcuts(const QString &path)
{
    ++m_openQuestions;
    askBus(questionToComponent(path, "allShortcutInfos"), QStringLiteral("a(ssssssaiai)"), *this,
           [this](const QVariant &answer) {
               const std::vector<SymbolChord> chords = chordsIn(answer);
               m_chords.insert(m_chords.end(), chords.begin(), chords.end());
               settle();
           });
}

void KdeShortcuts::settle()
{
    if (--m_openQuestions == 0)
        emit answered(m_chords);
}

} // namespace platform
