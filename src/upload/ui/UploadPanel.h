#pragma once
// The upload progress panel under the tray icon: "Uploading Quillo" with the progress bar,
// then "URL Copied to Clipboard" or "Error Uploading Screenshot". Driven by the upload
// notifications; posts "uploadStarted" once it has faded in and "uploadEnded" once it has
// faded out. Escape or losing focus closes it.

#include <QObject>
#include <QPointer>
#include <QRect>
#include <functional>
#include <memory>

class QLabel;
class QPropertyAnimation;
class QWidget;
class TXProgressBar;
class UploadView;
class UploadWindow;
namespace Ui { class Upload; }

class UploadPanel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool hasActivePanel READ hasActivePanel WRITE setHasActivePanel NOTIFY hasActivePanelChanged)
public:
    // Answers the tray icon's rectangle in global coordinates (empty when unknown).
    using IconRect = std::function<QRect()>;

    static constexpr int kWidth = 280;
    static constexpr int kHeight = 60;
    static constexpr int kFadeMilliseconds = 300;

    explicit UploadPanel(IconRect iconRect, QObject *parent = nullptr);
    ~UploadPanel() override;

    bool hasActivePanel() const { return m_hasActivePanel; }
    void setHasActivePanel(bool active);  // opens or closes when the value changes

    void openPanel();
    void closePanel();
    // The icon's rectangle, or a 1 px rectangle at the pointer when the icon has none.
    QRect statusRectForWindow() const;
    bool opensUpward() const;

    // Notification handlers ("TestNotification", "TestNotification2", "TestNotification3";
    // "TestNotification4").
    void receiveTestNotification(const QString &name);
    void receiveTestNotification4();

    QWidget *window() const;
    UploadView *backgroundView() const;
    QLabel *uploadLabel() const;
    QLabel *copiedLabel() const;
    TXProgressBar *progressIndicator() const;
    QWidget *progressBounds() const;

signals:
    void hasActivePanelChanged(bool active);

private:
    void fade(double to, std::function<void()> done);
    void setFlipped(bool upward);

    IconRect m_iconRect;
    std::unique_ptr<Ui::Upload> m_ui;
    QPointer<UploadWindow> m_window;
    QPointer<QPropertyAnimation> m_fade;
    bool m_hasActivePanel = false;
};
