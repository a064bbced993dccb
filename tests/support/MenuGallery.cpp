// SPDX-License-Identifier: MIT
// Renders every state of the paste menu to pictures, to be looked at beside the drawings it was
// built from: menu_gallery <folder>, with QT_QPA_PLATFORM=offscreen and QT_SCALE_FACTOR for the
// scale, LANG for the language.
#include "Quillery_Mac/app/Translation.h"
#include "Quillery_Mac/clipboard/ClipHistoryView.h"
#include "Quillery_Mac/menu/MenuRow.h"
#include "Quillery_Mac/menu/SnippetMenuView.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/Tokens.h"
#include "tests/support/GalleryPalettes.h"
#include "tests/support/MenuBench.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QTest>

#include <cstdio>

namespace {

void fill(MenuBench &bench)
{
    bench.addSnippet(QStringLiteral("Signature"), "Kind regards");
    bench.addSnippet(QStringLiteral("Meeting link"), "https://meet.example.org");
    bench.addFolder(QStringLiteral("Replies"));
    bench.addSnippet(QStringLiteral("Thanks, on it"), "Thanks");
    bench.addSnippet(QStringLiteral("Out of office"), "I am away and read");
    bench.addSnippet(QStringLiteral("Ask for an invoice"), "Could you send");
    bench.addFolder(QStringLiteral("Code"));
    bench.addSnippet(QStringLiteral("Bash header"), "set -euo pipefail; cd");
    bench.addSnippet(QStringLiteral("SQL: newest rows"), "SELECT * FROM orders");
    bench.addSnippet(QString(), "  \nLicense line, from the text");
    bench.addFolder(QStringLiteral("Addresses"));
    bench.addSnippet(QStringLiteral("Office"), "Lindenweg 4, 8005 Z\u00fcrich");
    const std::vector<QByteArray> clips{
        "Lindenweg 4, 8005 Z\xc3\xbcrich",
        "https://tracker.example.org/projects/atlas/issues/4211",
        "SELECT id, title\nFROM snippet\nWHERE id = 4",
        "Could you send me the signed contract by",
        "git rebase --onto main feature~3 feature",
        "DE89 3704 0044 0532 0130 00",
        "def fold(text):\n\treturn unicodedata.normalize(text)",
        "Bis sp\xc3\xa4ter, ich bringe Kuchen mit \xf0\x9f\x8d\xb0",
        "\xd8\xb4\xd9\x83\xd8\xb1\xd8\xa7 \xd8\xac\xd8\xb2\xd9\x8a\xd9\x84\xd8\xa7\xd8\x8c "
        "\xd8\xa5\xd9\x84\xd9\x89 \xd8\xa7\xd9\x84\xd9\x84\xd9\x82\xd8\xa7\xd8\xa1",
        "#2460C4",
        "Dear Ms Okafor,\n\nthank you for your call this morning\n" + QByteArray(11, '\n'),
        "0041 44 555 01 82",
        "Please find attached the minutes of our meeting",
        " \t ",
        QByteArray(4000, 'x'),
        QByteArray("line\n").repeated(500)};
    for (const QByteArray &clip : clips)
        bench.addClip(clip);
}

QImage picture(MenuBench &bench)
{
    // Until a folder that opened has come to rest.
    QTest::qWait(2 * tokens::kFolderMotion);
    QRect all = bench.panel.geometry();
    const bool hasPopover = bench.panel.hasPopover() && bench.panel.popover().isOpen();
    if (hasPopover)
        all |= bench.panel.popover().geometry();
    all.adjust(-12, -12, 12, 12);
    const qreal ratio = bench.panel.devicePixelRatioF();
    QImage image(all.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(QApplication::palette().window().color().lightness() > 128 ? 0xffdcdfe6
                                                                          : 0xff131416);
    QPainter painter(&image);
    painter.drawPixmap(bench.panel.pos() - all.topLeft(), bench.panel.grab());
    if (hasPopover)
        painter.drawPixmap(bench.panel.popover().pos() - all.topLeft(),
                           bench.panel.popover().grab());
    return image;
}

class Gallery
{
public:
    Gallery(QDir folder, QString prefix)
        : m_folder(std::move(folder))
        , m_prefix(std::move(prefix))
    {
    }

    void shoot(MenuBench &bench, const char *name)
    {
        const QString file = m_folder.filePath(m_prefix + QLatin1String(name) + u".png");
        if (!picture(bench).save(file))
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
    }

private:
    QDir m_folder;
    QString m_prefix;
};

// Left and right as for left-to-right reading.
void press(MenuBench &bench, std::initializer_list<Qt::Key> keys)
{
    const bool isMirrored = QApplication::layoutDirection() == Qt::RightToLeft;
    for (const Qt::Key key : keys) {
        const bool isSideways = key == Qt::Key_Left || key == Qt::Key_Right;
        const Qt::Key opposite = key == Qt::Key_Left ? Qt::Key_Right : Qt::Key_Left;
        QTest::keyClick(bench.menu, isMirrored && isSideways ? opposite : key);
    }
}

void shootPointerMenu(Gallery &gallery)
{
    MenuBench bench;
    bench.windows.composited = true;
    fill(bench);
    bench.show();
    gallery.shoot(bench, "plain");
    press(bench, {Qt::Key_Down});
    gallery.shoot(bench, "history-by-arrow");
    press(bench, {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down});
    gallery.shoot(bench, "history");
    auto *row = static_cast<ClipButton *>(bench.history()->column().rowWidget(1));
    bench.history()->isSelected = row->item;
    row->confirmDelete = true;
    gallery.shoot(bench, "history-confirming");
    press(bench, {Qt::Key_Left, Qt::Key_Down, Qt::Key_Return});
    gallery.shoot(bench, "clear-confirming");
    bench.show();
    QTest::keyClick(bench.menu, 'd');
    press(bench, {Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_Up});
    gallery.shoot(bench, "snippets-search");
    bench.menu->escape();
    bench.show();
    QTest::keyClick(bench.menu, 'q');
    QTest::keyClick(bench.menu, 'x');
    gallery.shoot(bench, "snippets-no-match");
}

void shootMenuBar(Gallery &gallery)
{
    MenuBench bench;
    bench.windows.composited = true;
    bench.updater.canCheck = false;
    fill(bench);
    bench.show(MenuBench::Form::MenuBar, {1000, 30});
    bench.menu->currentActive = optionWords::kSnippetEditor;
    gallery.shoot(bench, "menu-bar");
    bench.menu->currentActive = std::nullopt;
    press(bench, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Down,
                  Qt::Key_Down, Qt::Key_Right, Qt::Key_Down});
    gallery.shoot(bench, "menu-bar-snippets-left");
    bench.show(MenuBench::Form::MenuBar, {1000, 480});
    press(bench, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right});
    gallery.shoot(bench, "menu-bar-snippets-up");
    bench.defaults.setBoolean(SettingsKeys::kClipHistory.key(), false);
    bench.hint.clear();
    bench.show(MenuBench::Form::MenuBar);
    gallery.shoot(bench, "menu-bar-history-off");
}

void shootEmpty(Gallery &gallery)
{
    MenuBench bench;
    bench.show();
    press(bench, {Qt::Key_Down, Qt::Key_Right});
    gallery.shoot(bench, "history-empty");
    press(bench, {Qt::Key_Left, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right});
    gallery.shoot(bench, "snippets-empty");
}

void shootAll(const QDir &folder, const QString &prefix, const QPalette &palette)
{
    QApplication::setPalette(palette);
    Gallery gallery(folder, prefix);
    shootPointerMenu(gallery);
    shootMenuBar(gallery);
    shootEmpty(gallery);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: menu_gallery <folder>\n", stderr);
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
    QImage icons(16 + 48 * 8, 64 + 140, QImage::Format_RGB32);
    icons.fill(Qt::white);
    QPainter painter(&icons);
    int x = 8;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        painter.drawPixmap(x, 64, systemImage::applicationIcon().pixmap(size));
        x += size + 8;
    }
    x = 8;
    for (const char *name :
         {"cloud.fog.fill", "chevron.right", "chevron.down", "multiply.circle.fill", "plus",
          "folder.badge.plus", "trash", "magnifier"}) {
        systemImage::draw(painter, QLatin1String(name), QPointF(x, 8), 40, Qt::black);
        x += 48;
    }
    painter.end();
    return icons.save(folder.filePath(QStringLiteral("icons.png"))) ? 0 : 1;
}
