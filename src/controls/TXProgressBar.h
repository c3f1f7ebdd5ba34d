#pragma once
// The upload panel's progress bar: a flat #6FC5AC strip 2 px high with 2 px rounded ends,
// as wide as value / (maximum - minimum) of the bar. While animating and shown it redraws
// at 30 Hz; the timer stops when the bar is hidden, stopped or reaches its maximum.

#include <QColor>
#include <QProgressBar>
#include <QTimer>

class TXProgressBar : public QProgressBar
{
    Q_OBJECT
public:
    explicit TXProgressBar(QWidget *parent = nullptr);
    ~TXProgressBar() override;

    // The value with its fraction (QProgressBar keeps whole numbers only).
    void setDoubleValue(double value);
    double doubleValue() const { return m_value; }

    void startAnimation();
    void stopAnimation();
    bool isAnimating() const { return m_animating; }
    bool isRedrawTimerActive() const { return m_animator.isActive(); }

    // Advanced by 1.0 at each redraw; draws nothing of its own.
    double progressOffset() const { return m_progressOffset; }

    // The strip drawn for the current value, in widget coordinates (empty: nothing drawn).
    QRectF stripRect() const;

    static QColor barColour() { return QColor(0x6F, 0xC5, 0xAC); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void updateTimer();

    QTimer m_animator;
    double m_value = 0.0;
    double m_progressOffset = 0.0;
    bool m_animating = false;
};
