// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantAnimation>
#include <QWidget>

#include <vector>

class QLabel;

/// Shows one page at a time; the next one slides in from the reading end, an earlier one from the
/// other side. Every other page is hidden, so that neither keyboard nor pointer reaches it: what
/// slides out is a picture.
class PageStack : public QWidget
{
    Q_OBJECT

public:
    explicit PageStack(QWidget *parent = nullptr);

    /// Takes the page over, behind those that it has.
    void addPage(QWidget *page);
    /// The page on screen, from now on also for the keyboard, however long it slides.
    void show(int page);

    /// The size in which every page has room, at least `width` points wide.
    QSize sizeFor(int width) const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void place(qreal progress);
    void endMotion();

    std::vector<QWidget *> m_pages;
    int m_current = 0;
    int m_former = 0;
    QLabel *m_leaving; ///< the picture of the former page; hidden while nothing moves
    QVariantAnimation m_motion;
};
