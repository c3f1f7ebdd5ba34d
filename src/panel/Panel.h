#pragma once
// A frameless pop-up that hangs from the tray icon, floats above other windows and takes
// the keyboard. It reports losing focus, Escape and closing to its controller.

#include <QWidget>

class BackgroundView;

class Panel : public QWidget
{
    Q_OBJECT
public:
    explicit Panel(const QColor &background, QWidget *parent = nullptr);

    BackgroundView *backgroundView() const { return m_background; }
    // Hanging above the icon, the clear strip is at the top: the content moves down by it.
    void setOpensUpward(bool upward);

signals:
    void windowDidResignKey();
    void cancelOperation();  // Escape
    void windowWillClose();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    BackgroundView *m_background;
    bool m_upward = false;
};
