#pragma once
// A panel's background: a rounded rectangle raised by 10 px past the edge that meets
// the tray, so the corners there are square and a 10 px strip at the far edge stays clear.

#include <QColor>
#include <QPainterPath>
#include <QWidget>

class BackgroundView : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kRaise = 10;  // the clear strip, in pixels

    explicit BackgroundView(QColor fill, QWidget *parent = nullptr);

    // The panel hangs above the icon instead of below it: the rounding flips.
    void setOpensUpward(bool upward);
    bool opensUpward() const { return m_upward; }

    static QPainterPath shape(const QSize &size, bool upward);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void updateMask();

    QColor m_fill;
    bool m_upward = false;
};
