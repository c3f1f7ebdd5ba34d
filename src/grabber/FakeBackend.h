#pragma once
// A back end for the tests of the application: every mode "captures" the same 320x200
// gradient at once, or plays a user who cancels when QUILLO_FAKE_CANCEL=1.

#include "CaptureBackend.h"

class FakeBackend : public CaptureBackend
{
public:
    explicit FakeBackend(bool cancels) : m_cancels(cancels) {}

    bool needsInteraction() const override { return false; }
    bool userCancels() const override { return m_cancels; }
    QRect desktopGeometry() override { return QRect(0, 0, 320, 200); }
    QRect monitorUnderPointer() override { return desktopGeometry(); }
    QImage grab(const QRect &area) override;
    QList<TopLevelWindow> topLevelWindows() override { return {}; }
    QRect windowWithoutShadowMargins(const TopLevelWindow &window) override { return window.frame; }

    static QImage gradient();

private:
    bool m_cancels;
};
