#include "MenubarController.h"

#include "StatusItemView.h"

#include <QSystemTrayIcon>

MenubarController::MenubarController(std::function<void()> togglePanel, QObject *parent)
    : QObject(parent), m_statusItemView(new StatusItemView(this))
{
    m_statusItemView->setImage(QIcon(QStringLiteral(":/icons/statusicon_black")));
    m_statusItemView->setAlternateImage(QIcon(QStringLiteral(":/icons/statusicon_white")));
    m_statusItemView->setUploadImage(QIcon(QStringLiteral(":/icons/statusicon_white")));
    m_statusItemView->setAction(std::move(togglePanel));
    m_statusItemView->statusItem()->show();
}

MenubarController::~MenubarController()
{
    m_statusItemView->statusItem()->hide();
}

QSystemTrayIcon *MenubarController::statusItem() const
{
    return m_statusItemView->statusItem();
}

bool MenubarController::hasActiveIcon() const
{
    return m_statusItemView->isHighlighted();
}

void MenubarController::setHasActiveIcon(bool active)
{
    m_statusItemView->setHighlighted(active);
}
