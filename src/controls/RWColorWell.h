#pragma once
// The colour label well: a 10 px dot in a thin black ring (empty ring: no label; pale
// grey dot: disabled). A click opens a row of eight swatches under it; choosing a swatch
// sets the well's colour, closes the row, records the file label index in
// LiveSettings::finderLabelIndex and emits colorChosen.

#include <QColor>
#include <QPointer>
#include <QWidget>

#include "RWColorPickerView.h"

class RWColorWell : public QWidget
{
    Q_OBJECT
public:
    explicit RWColorWell(QWidget *parent = nullptr);
    ~RWColorWell() override;

    QColor color() const { return m_color; }
    // Sets the colour only; the label index is left as it is.
    void setColor(const QColor &color);

    // Called by the swatch picker: sets the colour and closes the picker.
    void setColorAndClose(const QColor &color);

    bool isPickerOpen() const;
    // The swatch picker (created on first opening; null before).
    RWColorPickerView *picker() const { return m_picker; }
    // The dot's rectangle in widget coordinates.
    QRectF dotRect() const;

    QSize sizeHint() const override;

signals:
    void colorChosen(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void openPicker();

    QColor m_color = Qt::transparent;
    QPointer<RWColorPickerView> m_picker;
};
