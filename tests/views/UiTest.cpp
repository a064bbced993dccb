// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/LazyColumn.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/ThinScrollBar.h"
#include "Quillery_Mac/ui/WindowNotifications.h"
#include "tests/views/MenuViewFixture.h"

#include <QLabel>
#include <QPainter>

#include <set>

namespace {

QPalette palette(QColor window, QColor text)
{
    QPalette result;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        result.setColor(group, QPalette::Window, window);
        result.setColor(group, QPalette::WindowText, text);
        result.setColor(group, QPalette::Base, window);
        result.setColor(group, QPalette::Text, text);
    }
    return result;
}

/// Labels that show their row's number.
class NumberRows : public LazyColumnRows
{
public:
    int rowCount() const override { return count; }
    int kindOfRow(int row) const override { return row % 2; }
    QWidget *makeRow(int kind, QWidget *parent) override
    {
        ++made;
        auto *label = new QLabel(parent);
        label->setProperty("kind", kind);
        return label;
    }
    void bindRow(QWidget &widget, int row) override
    {
        EXPECT_EQ(widget.property("kind").toInt(), row % 2);
        static_cast<QLabel &>(widget).setText(QString::number(row));
    }
    void unbindRow(QWidget &widget) override { static_cast<QLabel &>(widget).clear(); }

    int count = 1000;
    int made = 0;
};

class MenuColors : public MenuViewFixture
{
protected:
    ~MenuColors() override { QApplication::setPalette(m_before); }

    /// The colour inside a highlighted row, away from its text.
    QColor highlightShown()
    {
        const Row &shown = row(optionWords::kHistory);
        const QImage image = bench.panel.grab().toImage();
        const QPoint place = shown.mapTo(&bench.panel, QPoint(shown.width() / 2, 6));
        return image.pixelColor(place * image.devicePixelRatio());
    }

private:
    QPalette m_before = QApplication::palette();
};

} // namespace

TEST(PointerMotion, aFractionOfAPointIsNoMoveButASlowDriftIsOne)
{
    PointerMotion motion;
    motion.restAt(QPointF(100, 100));
    EXPECT_FALSE(motion.hasMovedTo(QPointF(100.5, 99.5)));
    EXPECT_FALSE(motion.isInUse());
    EXPECT_TRUE(motion.hasMovedTo(QPointF(101, 100)));
    EXPECT_TRUE(motion.isInUse());
    EXPECT_FALSE(motion.hasMovedTo(QPointF(101.6, 100)));
    EXPECT_TRUE(motion.hasMovedTo(QPointF(102.2, 100)));
    motion.keyPressed();
    EXPECT_FALSE(motion.isInUse());
}

TEST(LazyColumn, hasWidgetsForTheRowsInViewOnlyAndUsesThemAgain)
{
    NumberRows rows;
    LazyColumn column(rows, nullptr);
    column.setRowHeight(30);
    column.resize(300, 300);
    column.show();
    EXPECT_EQ(column.rowsInView().size(), 10U);
    for (int value = 0; value <= column.scrollBar().maximum(); value += 100)
        column.scrollBar().setValue(value);
    column.scrollBar().setValue(column.scrollBar().maximum());
    EXPECT_EQ(static_cast<QLabel *>(column.rowWidget(999))->text(), QStringLiteral("999"));
    EXPECT_LT(rows.made, 20);
}

TEST(LazyColumn, theGutterExistsOnlyWhenItIsNeeded)
{
    NumberRows rows;
    rows.count = 10;
    LazyColumn column(rows, nullptr);
    column.setRowHeight(30);
    column.resize(300, 300);
    column.show();
    EXPECT_FALSE(column.scrollBar().isVisible());
    EXPECT_EQ(column.rowWidget(0)->width(), 300);
    rows.count = 11;
    column.reload();
    EXPECT_TRUE(column.scrollBar().isVisible());
    EXPECT_EQ(column.rowWidget(0)->width(), 290);
    EXPECT_EQ(column.scrollBar().geometry(), QRect(290, 0, 10, 300));
}

TEST(LazyColumn, scrollsAsLittleAsNeeded)
{
    NumberRows rows;
    LazyColumn column(rows, nullptr);
    column.setRowHeight(30);
    column.resize(300, 300);
    column.show();
    column.ensureVisible(9);
    EXPECT_EQ(column.scrollBar().value(), 0);
    column.ensureVisible(10);
    EXPECT_EQ(column.scrollBar().value(), 30);
    column.ensureVisible(1);
    EXPECT_EQ(column.scrollBar().value(), 30);
    column.ensureVisible(0);
    EXPECT_EQ(column.scrollBar().value(), 0);
}

TEST(LazyColumn, fewerRowsScrollBackIntoView)
{
    NumberRows rows;
    LazyColumn column(rows, nullptr);
    column.setRowHeight(30);
    column.resize(300, 300);
    column.show();
    column.ensureVisible(999);
    rows.count = 5;
    column.reload();
    EXPECT_EQ(column.rowsInView().size(), 5U);
    EXPECT_EQ(column.rowWidget(0)->y(), 0);
}

TEST(LazyColumn, theHandleDragsTheRows)
{
    NumberRows rows;
    LazyColumn column(rows, nullptr);
    column.setRowHeight(30);
    column.resize(300, 300);
    column.show();
    ThinScrollBar &bar = column.scrollBar();
    QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(5, 6));
    QTest::mouseMove(&bar, QPoint(5, 400));
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(5, 400));
    EXPECT_EQ(bar.value(), bar.maximum());
    EXPECT_NE(column.rowWidget(999), nullptr);
}

TEST(SystemImage, everyImageIsDrawnAtTheExactDeviceSizeInTheColour)
{
    for (const char *name :
         {"cloud.fog.fill", "chevron.right", "chevron.down", "multiply.circle.fill", "plus",
          "folder.badge.plus", "trash", "magnifier"}) {
        const QPixmap pixmap = systemImage::pixmap(QLatin1String(name), 16, 1.5, Qt::red);
        EXPECT_EQ(pixmap.size(), QSize(24, 24)) << name;
        EXPECT_EQ(pixmap.devicePixelRatio(), 1.5);
        const QImage image = pixmap.toImage();
        int painted = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.alpha() < 200)
                    continue;
                ++painted;
                EXPECT_EQ(pixel.rgb(), QColor(Qt::red).rgb()) << name;
            }
        }
        EXPECT_GT(painted, 20) << name;
    }
    EXPECT_TRUE(systemImage::pixmap(QStringLiteral("unknown"), 16, 1, Qt::red).isNull());
}

TEST(SystemImage, theApplicationIconHasTwoDegreesOfDetail)
{
    const QIcon icon = systemImage::applicationIcon();
    const QColor small = icon.pixmap(32).toImage().pixelColor(8, 4);
    EXPECT_EQ(small, QColor(0x1a5a70));
    const QImage large = icon.pixmap(128).toImage();
    EXPECT_EQ(large.pixelColor(60, 107), QColor(0xf4b95a));
    EXPECT_EQ(large.pixelColor(1, 1).alpha(), 0);
}

TEST(PaletteColors, theHighlightIsThatOfTheActiveGroup)
{
    QPalette mixed;
    mixed.setColor(QPalette::Active, QPalette::Highlight, Qt::blue);
    mixed.setColor(QPalette::Inactive, QPalette::Highlight, Qt::gray);
    mixed.setCurrentColorGroup(QPalette::Inactive);
    EXPECT_EQ(paletteColors::highlight(mixed), QColor(Qt::blue));
}

TEST(PaletteColors, blackAndWhiteIsHighContrast)
{
    const QPalette strong = palette(Qt::black, Qt::white);
    EXPECT_TRUE(paletteColors::isHighContrast(strong));
    EXPECT_EQ(paletteColors::quietText(strong), QColor(Qt::white));
    EXPECT_EQ(paletteColors::windowEdge(strong), QColor(Qt::white));
    EXPECT_EQ(paletteColors::lineWidth(strong), 2);
    EXPECT_FALSE(paletteColors::isHighContrast(palette(QColor(0xf3f4f6), QColor(0x1b1d22))));
}

TEST(PaletteColors, aThemeMadeForItIsHighContrast)
{
    const QString before = QIcon::themeName();
    const QPalette plain = palette(QColor(0xf3f4f6), QColor(0x1b1d22));

    QIcon::setThemeName(QStringLiteral("HighContrastInverse"));
    EXPECT_TRUE(paletteColors::isHighContrast(plain));
    QIcon::setThemeName(before);
    EXPECT_FALSE(paletteColors::isHighContrast(plain));
}

TEST(PaletteColors, aPlaceholderThatIsTooFaintIsRaised)
{
    QPalette faint = palette(QColor(0xf3f4f6), QColor(0x1b1d22));
    faint.setColor(QPalette::Active, QPalette::PlaceholderText, QColor(0xc0c0c0));
    const QColor ground = paletteColors::base(faint);
    EXPECT_GE(paletteColors::contrast(paletteColors::placeholder(faint), ground), 4.5);
    faint.setColor(QPalette::Active, QPalette::PlaceholderText, QColor(0x505050));
    EXPECT_EQ(paletteColors::placeholder(faint), QColor(0x505050));
}

TEST_F(MenuColors, aNewPaletteShowsWhileTheMenuIsOpen)
{
    QPalette blue = palette(QColor(0xf3f4f6), QColor(0x1b1d22));
    blue.setColor(QPalette::Active, QPalette::Highlight, QColor(0x2360c4));
    QApplication::setPalette(blue);
    bench.show();
    press(Qt::Key_Down);
    EXPECT_TRUE(eventually([this] { return highlightShown() == QColor(0x2360c4); }));
    QPalette green = blue;
    green.setColor(QPalette::Active, QPalette::Highlight, QColor(0x208020));
    QApplication::setPalette(green);
    EXPECT_TRUE(eventually([this] { return highlightShown() == QColor(0x208020); }));
}

TEST_F(MenuColors, cornersAreRoundOnlyWithACompositor)
{
    bench.show();
    EXPECT_EQ(bench.panel.grab().toImage().pixelColor(0, 0).alpha(), 255);
    bench.panel.hide();
    bench.windows.composited = true;
    bench.show();
    EXPECT_EQ(bench.panel.grab().toImage().pixelColor(0, 0).alpha(), 0);
}

TEST_F(MenuColors, theGroundIsSeeThroughOnlyWhereWhatIsBehindIsBlurred)
{
    const auto groundAlpha = [](QWidget &window) {
        const QImage image = window.grab().toImage();
        return image.pixelColor(QPoint(window.width() / 2, 2) * image.devicePixelRatio()).alpha();
    };
    bench.windows.composited = true;
    bench.show();
    EXPECT_EQ(groundAlpha(bench.panel), 255);
    EXPECT_TRUE(bench.windows.blurredSizes.empty());
    bench.panel.hide();

    bench.windows.blurs = true;
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    press(Qt::Key_A);
    Popover &popover = bench.panel.popover();
    EXPECT_LT(groundAlpha(bench.panel), 255);
    EXPECT_LT(groundAlpha(popover), 255);
    const int before = popover.height();
    for (int i = 0; i < 10; ++i)
        bench.addSnippet(QStringLiteral("a"));
    EXPECT_TRUE(eventually([&] { return popover.height() > before; }));
    EXPECT_EQ(bench.windows.blurredSizes[&bench.panel], bench.panel.size());
    EXPECT_EQ(bench.windows.blurredSizes[&popover], popover.size());
    bench.panel.hide();

    QApplication::setPalette(palette(Qt::black, Qt::white));
    bench.show();
    EXPECT_TRUE(eventually([&] { return groundAlpha(bench.panel) == 255; }));
}

TEST(WindowNotification, tellsTheObserversOfTheWindowAndThoseOfAny)
{
    QWidget first;
    QWidget second;
    WindowNotification notification;
    QStringList told;
    notification.addObserver(&first, [&told](QWidget &) { told.append(QStringLiteral("first")); });
    notification.addObserver(nullptr, [&told](QWidget &) { told.append(QStringLiteral("any")); });
    notification.post(second);
    notification.post(first);
    EXPECT_EQ(told.join(u' '), QStringLiteral("any first any"));
}

TEST(WindowNotification, observersMayRemoveThemselvesAndOthersWhileTheyAreTold)
{
    QWidget window;
    WindowNotification notification;
    int calls = 0;
    WindowNotification::Token own = 0;
    WindowNotification::Token other = 0;
    own = notification.addObserver(nullptr, [&](QWidget &) {
        ++calls;
        notification.removeObserver(own);
        notification.removeObserver(other);
        notification.addObserver(nullptr, [&calls](QWidget &) { calls += 100; });
    });
    other = notification.addObserver(nullptr, [&calls](QWidget &) { calls += 10; });
    notification.post(window);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(notification.observerCount(), 1U);
    notification.post(window);
    EXPECT_EQ(calls, 101);
}

TEST(WindowNotifications, ordinaryWindowsAreWatchedAndMenuWindowsAreNot)
{
    WindowNotifications notifications;
    notifications.watchApplication();
    QList<QWidget *> resigned;
    notifications.didResignKey.addObserver(
        nullptr, [&resigned](QWidget &window) { resigned.append(&window); });
    int closed = 0;
    notifications.willClose.addObserver(nullptr, [&closed](QWidget &) { ++closed; });
    QWidget plain;
    FakeMenuWindows windows;
    PanelWindow panel(windows);
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&plain, &deactivate);
    QApplication::sendEvent(&panel, &deactivate);
    plain.show();
    plain.close();
    EXPECT_TRUE(resigned.contains(&plain));
    EXPECT_FALSE(resigned.contains(&panel));
    EXPECT_EQ(closed, 1);
}

TEST(LazyColumn, rowsThatComeInAreInPlaceAtOnceAndOnlySeemToSlide)
{
    NumberRows rows;
    rows.count = 6;
    LazyColumn column(rows, nullptr);
    column.setRowHeight(30);
    column.resize(300, 300);
    column.show();
    rows.count = 10;
    column.slide(2, 4);
    EXPECT_EQ(column.rowsInView().size(), 10U);
    EXPECT_LT(column.rowWidget(6)->y(), 180);
    const QWidget &last = *column.rowWidget(5);
    EXPECT_FALSE(last.mask().isEmpty());
    EXPECT_FALSE(last.mask().intersects(last.rect())) << "what has no room yet is not seen";
    EXPECT_TRUE(QTest::qWaitFor([&column] { return column.rowWidget(6)->y() == 180; }));
    EXPECT_TRUE(column.rowWidget(5)->mask().isEmpty());
    rows.count = 6;
    column.slide(2, -4);
    EXPECT_EQ(column.rowsInView().size(), 6U);
    EXPECT_TRUE(QTest::qWaitFor([&column] { return column.rowWidget(2)->y() == 60; }));
}

TEST(LazyColumn, newRowsEndASlide)
{
    NumberRows rows;
    rows.count = 6;
    LazyColumn column(rows, nullptr);
    column.setRowHeight(30);
    column.resize(300, 300);
    column.show();
    column.slide(2, 2);
    column.reload();
    EXPECT_EQ(column.rowWidget(5)->y(), 150);
}
