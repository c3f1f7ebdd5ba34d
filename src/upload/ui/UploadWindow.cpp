#include "UploadWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>

UploadWindow::UploadWindow(QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void UploadWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        emit closeRequested();
        return;
    }
    QWidget::keyPressEvent(event);
}

bool UploadWindow::event(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate && isVisible())
        emit closeRequested();
    return QWidget::event(event);
}

void UploadWindow::closeEvent(QCloseEvent *event)
{
    // The controller hides the window itself, after the fade.
    event->ignore();
    emit closeRequested();
}
