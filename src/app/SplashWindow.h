#pragma once
// The welcome card shown on the first launch, centred on the screen that holds the icon.

#include <QWidget>
#include <memory>

class StatusItemView;
namespace Ui { class MainMenu; }

class SplashWindow : public QWidget
{
    Q_OBJECT
public:
    explicit SplashWindow(StatusItemView *icon);
    ~SplashWindow() override;

    void present();

signals:
    void closeSplash();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::unique_ptr<Ui::MainMenu> m_ui;
    StatusItemView *m_icon;
};
