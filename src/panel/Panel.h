#pragma once
// A frameless window that hangs from the tray icon, floats above other windows and takes
// keyboard focus. It reports losing focus, Escape and closing to its controller.

#include <QWidget>

class BackgroundView;

class Panel : public QWidget
{
    Q_OBJECT
public:
    explicit Panel(const QColor &background, QWidget *parent = nullptr);

    BackgroundView *backgroundView() const { return m_background; }

signals:
    void windowDidResignKey();
    void cancelOperation();  // Escape
    void windowWillClose();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    BackgroundView *m_background;
};
