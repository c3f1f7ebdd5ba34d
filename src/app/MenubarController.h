#pragma once
// Owns the tray icon; removing the controller removes the icon.

#include <QObject>
#include <functional>

class StatusItemView;
class QSystemTrayIcon;

class MenubarController : public QObject
{
    Q_OBJECT
public:
    explicit MenubarController(std::function<void()> togglePanel, QObject *parent = nullptr);
    ~MenubarController() override;

    StatusItemView *statusItemView() const { return m_statusItemView; }
    QSystemTrayIcon *statusItem() const;

    bool hasActiveIcon() const;
    void setHasActiveIcon(bool active);

private:
    StatusItemView *m_statusItemView;
};
