#include "Panel.h"

#include "BackgroundView.h"

#include <QKeyEvent>

Panel::Panel(const QColor &background, QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_background(new BackgroundView(background, this))
{
    setAttribute(Qt::WA_ShowWithoutActivating, false);
    m_background->lower();
}

bool Panel::event(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate && isVisible())
        emit windowDidResignKey();
    return QWidget::event(event);
}

void Panel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        emit cancelOperation();
        return;
    }
    QWidget::keyPressEvent(event);
}

void Panel::closeEvent(QCloseEvent *event)
{
    emit windowWillClose();
    QWidget::closeEvent(event);
}

void Panel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_background->setGeometry(rect());
}
