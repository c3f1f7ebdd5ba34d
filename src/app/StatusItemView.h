#pragma once
// The tray icon. Draws "statusicon_black", or "statusicon_white" while highlighted
// (the panel is open); a left click sends the action; globalRect() is where the icon is.

#include <QIcon>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <functional>

class QScreen;
class QSystemTrayIcon;

class StatusItemView : public QObject
{
    Q_OBJECT
public:
    explicit StatusItemView(QObject *parent = nullptr);
    ~StatusItemView() override;

    QSystemTrayIcon *statusItem() const { return m_statusItem; }

    bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted);
    void setImage(const QIcon &image);
    void setAlternateImage(const QIcon &image);
    void setUploadImage(const QIcon &image) { m_uploadImage = image; }
    QIcon image() const { return m_image; }
    QIcon alternateImage() const { return m_alternateImage; }

    void setAction(std::function<void()> action) { m_action = std::move(action); }

    // The icon's rectangle on screen. Where the tray host tells nothing (a D-Bus tray),
    // the pointer position at the last click, else the pointer position now.
    QRect globalRect() const;
    // The screen that holds the icon.
    QScreen *screen() const;

    // How many times the shown icon was replaced (the icon is only swapped on a change).
    int redrawCount() const { return m_redraws; }

private:
    void redraw();

    QSystemTrayIcon *m_statusItem;
    QIcon m_image;
    QIcon m_alternateImage;
    QIcon m_uploadImage;
    bool m_highlighted = false;
    std::function<void()> m_action;
    QPoint m_lastClick{-1, -1};
    int m_redraws = 0;
};
