#pragma once
// The colour label well's pop-up: one row of eight swatches on white (see LabelSwatches).
// A click on a swatch hands its colour to the well and records the file label index;
// a click between swatches does nothing. A click outside closes it.

#include <QPointer>
#include <QWidget>

class RWColorWell;

class RWColorPickerView : public QWidget
{
    Q_OBJECT
public:
    explicit RWColorPickerView(RWColorWell *targetColorWell);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QPointer<RWColorWell> m_target;
};
