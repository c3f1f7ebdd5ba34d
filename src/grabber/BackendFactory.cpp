// Chooses the capture back end for the running session.
#include "CaptureBackend.h"
#include "FakeBackend.h"
#include "X11CaptureBackend.h"

namespace {

class UnsupportedBackend : public CaptureBackend
{
public:
    QString unsupportedReason() const override
    {
        return QStringLiteral("screen capture is not supported in this session");
    }
    QRect desktopGeometry() override { return {}; }
    QRect monitorUnderPointer() override { return {}; }
    QImage grab(const QRect &) override { return {}; }
    QList<TopLevelWindow> topLevelWindows() override { return {}; }
    QRect windowWithoutShadowMargins(const TopLevelWindow &) override { return {}; }
};

} // namespace

std::unique_ptr<CaptureBackend> createCaptureBackend()
{
    if (qgetenv("QUILLO_GRABBER_BACKEND") == "fake")
        return std::make_unique<FakeBackend>(qgetenv("QUILLO_FAKE_CANCEL") == "1");
    // A Wayland session without X (no DISPLAY) has nothing we can read.
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        auto x11 = std::make_unique<X11CaptureBackend>();
        if (x11->isConnected())
            return x11;
    }
    return std::make_unique<UnsupportedBackend>();
}
