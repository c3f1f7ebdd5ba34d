#pragma once
// The upload panel's frameless top-level window: Escape and losing focus ask to close.

#include <QWidget>

class UploadWindow : public QWidget
{
    Q_OBJECT
public:
    explicit UploadWindow(QWidget *parent = nullptr);

signals:
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
};
