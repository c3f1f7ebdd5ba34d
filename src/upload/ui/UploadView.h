#pragma once
// The upload panel's background: calibrated white 0.1 at alpha 0.9, square corners against
// the tray and round ones away from it, with a clear 10 px strip on the far side.

#include <QColor>
#include <QPainterPath>
#include <QWidget>

class UploadView : public QWidget
{
    Q_OBJECT
public:
    static constexpr double kRaise = 10.0;
    static constexpr double kRadius = 10.0;

    explicit UploadView(QWidget *parent = nullptr);

    // Opening above a bottom tray flips the shape: round corners on top.
    void setOpensUpward(bool upward);
    bool opensUpward() const { return m_upward; }

    static QColor fillColour() { return QColor::fromRgbF(0.1f, 0.1f, 0.1f, 0.9f); }
    // The filled shape, clipped to the view.
    QPainterPath shape() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_upward = false;
};
