#include "SelectionOverlay.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QWindow>

namespace {
const QColor kShade(0, 0, 0, 110);
const QColor kAccent(70, 150, 255);
const QColor kWindowFill(70, 150, 255, 70);
} // namespace

SelectionOverlay::SelectionOverlay(const QImage &frozen, const QRect &desktop,
                                   const QList<TopLevelWindow> &windows, Mode mode, qreal uiScale)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::X11BypassWindowManagerHint)
    , m_frozen(frozen)
    , m_desktop(desktop)
    , m_windows(windows)
    , m_mode(mode)
    , m_scale(uiScale)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setGeometry(desktop);
    m_grabRetry = new QTimer(this);
    m_grabRetry->setInterval(20);
    connect(m_grabRetry, &QTimer::timeout, this, &SelectionOverlay::tryGrab);
}

QRect SelectionOverlay::selectedArea() const
{
    return dragRect().translated(m_desktop.topLeft());
}

QRect SelectionOverlay::dragRect() const
{
    // Both corners' pixels belong to the selection only as its edges: a drag from (10,10) to
    // (110,60) selects 100x50 pixels.
    return QRect(m_anchor, m_pointer).normalized().adjusted(0, 0, -1, -1);
}

QRect SelectionOverlay::labelRect() const
{
    const int w = qRound(110 * m_scale), h = qRound(24 * m_scale), gap = qRound(14 * m_scale);
    QRect r(m_pointer + QPoint(gap, gap), QSize(w, h));
    if (r.right() > width())
        r.moveRight(m_pointer.x() - gap);
    if (r.bottom() > height())
        r.moveBottom(m_pointer.y() - gap);
    return r;
}

QRect SelectionOverlay::decoratedBounds() const
{
    const int pad = qRound(4 * m_scale);
    QRect r = m_mode == Mode::Area ? (m_dragging ? dragRect().united(labelRect()) : labelRect())
                                   : m_hovered.frame.translated(-m_desktop.topLeft());
    return r.adjusted(-pad, -pad, pad, pad);
}

void SelectionOverlay::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_grabTries = 0;
    m_grabRetry->start();
}

// The overlay only works with the keyboard and pointer to itself; the grabs can fail for a
// moment while another client holds them, so they are retried for about two seconds.
void SelectionOverlay::tryGrab()
{
    QWindow *window = windowHandle();
    const bool grabbed = window && window->setKeyboardGrabEnabled(true) && window->setMouseGrabEnabled(true);
    if (grabbed) {
        m_grabRetry->stop();
        activateWindow();
        setFocus();
        // Seen by scripts and tests: the overlay is ready for input.
        setWindowTitle(QStringLiteral("quillo-screencapture overlay"));
        hoverAt(mapFromGlobal(QCursor::pos()));
    } else if (++m_grabTries > 100) {
        m_grabRetry->stop();
        finish(Outcome::NoInput);
    }
}

void SelectionOverlay::hoverAt(const QPoint &widgetPos)
{
    const QRect before = decoratedBounds();
    m_pointer = widgetPos;
    if (m_mode == Mode::Window) {
        m_hovered = {};
        const QPoint at = widgetPos + m_desktop.topLeft();
        for (const TopLevelWindow &w : std::as_const(m_windows)) {
            if (w.frame.contains(at)) {
                m_hovered = w;
                break;
            }
        }
    }
    update(before.united(decoratedBounds()));
}

void SelectionOverlay::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QRect dirty = event->rect();
    painter.drawImage(dirty, m_frozen, dirty);
    if (m_mode == Mode::Window) {
        if (m_hovered.id != 0) {
            const QRect r = m_hovered.frame.translated(-m_desktop.topLeft());
            painter.fillRect(r, kWindowFill);
            painter.setPen(QPen(kAccent, qMax(1.0, 2 * m_scale)));
            painter.drawRect(r.adjusted(0, 0, -1, -1));
        }
        return;
    }
    if (!m_dragging)
        return;
    const QRect selection = dragRect();
    QRegion shade(dirty);
    shade -= selection;
    painter.setClipRegion(shade);
    painter.fillRect(dirty, kShade);
    painter.setClipping(false);
    painter.setPen(QPen(kAccent, 1));
    painter.drawRect(selection.adjusted(-1, -1, 0, 0));

    const QRect label = labelRect();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(20, 20, 20, 200));
    painter.drawRoundedRect(label, 4 * m_scale, 4 * m_scale);
    QFont font = painter.font();
    font.setPixelSize(qRound(13 * m_scale));
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(label, Qt::AlignCenter,
                     QStringLiteral("%1 × %2").arg(selection.width()).arg(selection.height()));
}

void SelectionOverlay::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::RightButton) {
        finish(Outcome::Cancelled);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    if (m_mode == Mode::Window) {
        hoverAt(event->position().toPoint());
        if (m_hovered.id != 0)
            finish(Outcome::Window);
        return;
    }
    m_anchor = m_pointer = event->position().toPoint();
    m_dragging = true;
    update();
}

void SelectionOverlay::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging) {
        const QRect before = decoratedBounds();
        m_pointer = event->position().toPoint();
        update(before.united(decoratedBounds()));
    } else {
        hoverAt(event->position().toPoint());
    }
}

void SelectionOverlay::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_dragging)
        return;
    m_pointer = event->position().toPoint();
    m_dragging = false;
    if (dragRect().width() > 0 && dragRect().height() > 0)
        finish(Outcome::Area);
    else
        update(); // a click without a drag selects nothing: start again
}

void SelectionOverlay::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        finish(Outcome::Cancelled);
    } else if (event->key() == Qt::Key_Space && !m_dragging) {
        m_mode = m_mode == Mode::Area ? Mode::Window : Mode::Area;
        m_hovered = {};
        hoverAt(m_pointer);
        update();
    }
}

void SelectionOverlay::finish(Outcome outcome)
{
    if (m_outcome != Outcome::Pending)
        return;
    m_outcome = outcome;
    if (QWindow *window = windowHandle()) {
        window->setKeyboardGrabEnabled(false);
        window->setMouseGrabEnabled(false);
    }
    hide();
    emit done();
}
