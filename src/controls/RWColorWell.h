#pragma once
// The colour label well: a 10-point dot; a click opens a row of eight swatches.
// Choosing a swatch sets the well's colour and the process-wide finderLabelIndex.

#include <QColor>
#include <QWidget>

class RWColorWell : public QWidget
{
    Q_OBJECT
public:
    explicit RWColorWell(QWidget *parent = nullptr);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

signals:
    void colorChosen(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QColor m_color = Qt::transparent;
};
