#pragma once
// The upload panel's progress bar: a flat #6FC5AC strip, 2 px high.

#include <QProgressBar>

class TXProgressBar : public QProgressBar
{
    Q_OBJECT
public:
    explicit TXProgressBar(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
