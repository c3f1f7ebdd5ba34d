#pragma once
// A panel-like arrangement of every control and image, for looking at the artwork.

#include <QWidget>

class SamplePanel : public QWidget
{
public:
    explicit SamplePanel(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
