#pragma once
// What the panels and the capture code ask of the application delegate.

class ApplicationHub
{
public:
    virtual ~ApplicationHub() = default;

    virtual void togglePanel() = 0;
    virtual void openUploadPanel() = 0;
    virtual void closeUploadPanel() = 0;
    virtual void closeUploadPanelSlowly() = 0;
    virtual void splashWindow() = 0;
    virtual void splashWindowClose() = 0;
    // Set while the upload panel shows an upload: panel, shoot and hot keys do nothing.
    virtual bool uploadBlocked() const = 0;

    // The running application's delegate (null in tests that run without one).
    static ApplicationHub *instance();
    static void setInstance(ApplicationHub *hub);
};
