// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

class ClearButton;

namespace KeyboardShortcuts {

/// How a field for a shortcut looks: a capsule with a centred text, a button that clears it at its
/// end, and a ring. Around the capsule stands room for the ring, so that nothing moves when it
/// comes.
class RecorderFace : public QWidget
{
    Q_OBJECT

public:
    /// The least width of the capsule, in points.
    static constexpr double minimumWidth = 130.0;

    /// The text; empty: the placeholder is shown in its stead.
    const QString &stringValue() const { return m_stringValue; }
    const QString &placeholder() const { return m_placeholder; }

    /// Shown exactly while there is a text.
    ClearButton &cancelButton() const { return *m_cancelButton; }

    /// The room around the capsule, on each side, in points.
    static int margin();
    /// The capsule, in the widget's coordinates.
    QRectF bounds() const;
    /// The size of the capsule.
    QSize intrinsicContentSize() const;
    QSize sizeHint() const override;

protected:
    explicit RecorderFace(QWidget *parent);

    /// Makes the field wide enough for each of these placeholders.
    void reserveRoomFor(const QStringList &placeholders);
    void setStringValue(const QString &text);
    void setPlaceholder(const QString &text);
    void setShowsRing(bool showsRing);

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void placeCancelButton();
    void drawText(QPainter &painter) const;
    /// The text as it is drawn, the same way round in every language.
    QString isolatedValue() const;

    QStringList m_placeholders;
    QString m_stringValue;
    QString m_placeholder;
    bool m_showsRing = false;
    ClearButton *m_cancelButton;
};

} // namespace KeyboardShortcuts
