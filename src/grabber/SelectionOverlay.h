#pragma once
// The frozen full-desktop overlay of -i and -w: the screenshot taken before it opened is its
// background. Area mode: drag a rectangle. Window mode: the window under the pointer is
// highlighted and a click picks it. Space switches modes; Escape or a right click cancels.
// Widget pixels are device pixels (the grabber runs Qt without high-DPI scaling), so the
// result needs no mapping; the decorations are scaled by uiScale instead.

#include "CaptureBackend.h"

#include <QWidget>

class QTimer;

class SelectionOverlay : public QWidget
{
    Q_OBJECT
public:
    enum class Mode { Area, Window };
    enum class Outcome { Pending, Area, Window, Cancelled, NoInput };

    SelectionOverlay(const QImage &frozen, const QRect &desktop, const QList<TopLevelWindow> &windows,
                     Mode mode, qreal uiScale);

    Outcome outcome() const { return m_outcome; }
    QRect selectedArea() const;   // desktop coordinates, for Outcome::Area
    TopLevelWindow selectedWindow() const { return m_hovered; }

signals:
    void done();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void finish(Outcome outcome);
    void tryGrab();
    QRect dragRect() const;
    QRect labelRect() const;
    QRect decoratedBounds() const;
    void hoverAt(const QPoint &widgetPos);

    QImage m_frozen;
    QRect m_desktop;
    QList<TopLevelWindow> m_windows;
    Mode m_mode;
    qreal m_scale;
    Outcome m_outcome = Outcome::Pending;
    bool m_dragging = false;
    QPoint m_anchor, m_pointer;
    TopLevelWindow m_hovered;
    QTimer *m_grabRetry = nullptr;
    int m_grabTries = 0;
};
