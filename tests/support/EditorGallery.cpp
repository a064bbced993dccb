// SPDX-License-Identifier: MIT
// Renders the editor of one snippet and the form that makes one to pictures, to be looked at beside
// the drawings they were built from: editor_gallery <folder>, with QT_QPA_PLATFORM=offscreen and
// QT_SCALE_FACTOR for the scale, LANG for the language.
#include "Quillery_Mac/app/Translation.h"
#include "Quillery_Mac/editor/AddSnippet.h"
#include "Quillery_Mac/editor/ExactTextEdit.h"
#include "Quillery_Mac/editor/SnippetDetailMac.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/support/GalleryPalettes.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

namespace {

class Gallery
{
public:
    Gallery(QDir folder, QString prefix)
        : m_folder(std::move(folder))
        , m_prefix(std::move(prefix))
    {
    }

    void shootAll()
    {
        shootForm("form-plain", false);
        shootForm("form-selection", true);
        shootNewFolder();
        shootDetail(
            "detail", QStringLiteral("Out of office"),
            "Thank you for your message.\n\nI am away until Monday the 14th and will answer "
            "then. In urgent cases please write to the team:\nteam@example.org");
        shootDetail("detail-untitled", QString(), QByteArray());
        shootDetail("detail-right-to-left",
                    QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd"),
                    "\u05e9\u05dc\u05d5\u05dd \u05dc\u05db\u05d5\u05dc\u05dd\nand this\n"
                    "\U0001f469\u200d\U0001f469\u200d\U0001f467 \U0001f1e8\U0001f1ed");
    }

private:
    ManagedObjectContext &context() { return m_controller.container->viewContext(); }

    Snippet &add(const QString &title, bool isFolder)
    {
        auto &snippet = *context().insert<Snippet>();
        snippet.setTitle(title);
        snippet.setIsFolder(isFolder);
        snippet.setOrder(m_order++);
        return snippet;
    }

    void shoot(QWidget &window, const char *name)
    {
        window.show();
        window.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&window));
        QCoreApplication::processEvents();
        const QString file = m_folder.filePath(m_prefix + QLatin1String(name) + u".png");
        if (!window.grab().save(file))
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
    }

    void shootForm(const char *name, bool copy)
    {
        m_pasteboard.text = "Lindenweg 4\n8005 Z\u00fcrich";
        AddSnippet form(context(), m_pasteboard, copy);
        shoot(form, name);
    }

    void shootNewFolder()
    {
        add(QStringLiteral("Replies"), true);
        AddSnippet form(context(), m_pasteboard, false);
        form.title = QStringLiteral("Parking note");
        form.text = "Visitors park behind the house; ring twice.";
        form.newFolder = QStringLiteral("House");
        form.show();
        form.selectedFolder = folderChoice::kCreateNew;
        shoot(form, "form-new-folder");
    }

    void shootDetail(const char *name, const QString &title, const QByteArray &content)
    {
        Snippet &snippet = add(title, false);
        snippet.setContent(content);
        SnippetDetailMac editor(context(), snippet);
        editor.resize(545, 330);
        shoot(editor, name);
    }

    QDir m_folder;
    QString m_prefix;
    QTemporaryDir m_store;
    PersistenceController m_controller{m_store.filePath(QStringLiteral("data"))};
    FakePasteboard m_pasteboard;
    qint16 m_order = 0;
};

void shootAll(const QDir &folder, const QString &prefix, const QPalette &palette)
{
    QApplication::setPalette(palette);
    Gallery(folder, prefix).shootAll();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: editor_gallery <folder>\n", stderr);
        return 2;
    }
    installTranslation(application);
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));
    QApplication::setStyle(QStringLiteral("Fusion"));
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    shootAll(folder, QStringLiteral("light-"), lightPalette());
    shootAll(folder, QStringLiteral("dark-"), darkPalette());
    shootAll(folder, QStringLiteral("contrast-"), contrastPalette());
    QApplication::setLayoutDirection(Qt::RightToLeft);
    shootAll(folder, QStringLiteral("rtl-"), lightPalette());
    return 0;
}
