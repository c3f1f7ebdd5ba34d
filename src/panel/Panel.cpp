#include "Panel.h"

#include "BackgroundView.h"

#include <QKeyEvent>

Panel::Panel(const QColor &background, QWidget *parent)
    // A pop-up: no window manager decides where it goes or whether it gets the keyboard,
    // and a click outside closes it. The click that closes it is not passed on, so a click
    // on the tray icon only closes the panel.
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint),
      m_background(new BackgroundView(background, this))
{
    setAttribute(Qt::WA_NoMouseReplay);
    m_background->lower();
}

void Panel::setOpensUpward(bool upward)
{
    if (m_upward == upward)
        return;
    m_upward = upward;
    m_background->setOpensUpward(upward);
    const QPoint shift(0, upward ? BackgroundView::kRaise : -BackgroundView::kRaise);
    for (QWidget *child : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (child != m_background)
            child->move(child->pos() + shift);
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

void Panel::hideEvent(QHideEvent *event)
{
    // Qt hides a pop-up itself on a click outside it: that is a loss of focus.
    emit windowDidResignKey();
    QWidget::hideEvent(event);
}

void Panel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_background->setGeometry(rect());
}
