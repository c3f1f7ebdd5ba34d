// quillo-screencapture: captures the screen, a dragged selection or a window into a file.
// Exit status: 0 written, 1 cancelled by the user (no file), 2 error (one line on stderr).
// The full-screen path starts no GUI: it grabs, encodes and writes.

#include "CaptureBackend.h"
#include "Encoders.h"
#include "GrabberOptions.h"
#include "InteractiveCapture.h"
#include "WindowShadow.h"

#include <QSaveFile>

#include <cstdio>

namespace {

int fail(const QString &message)
{
    fprintf(stderr, "quillo-screencapture: %s\n", qPrintable(message));
    return 2;
}

// Writes through a temporary file in the target folder, renamed into place when complete.
int save(const QImage &captured, const GrabberOptions &options)
{
    const QImage image = Encoders::keepsAlpha(options.type) ? captured : WindowShadow::flatten(captured);
    QSaveFile file(options.file);
    if (!file.open(QIODevice::WriteOnly))
        return fail(QStringLiteral("cannot write %1: %2").arg(options.file, file.errorString()));
    QString error;
    if (!Encoders::encode(image, options.type, &file, &error)) {
        file.cancelWriting();
        return fail(error);
    }
    if (!file.commit())
        return fail(QStringLiteral("cannot write %1: %2").arg(options.file, file.errorString()));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const GrabberOptions options = GrabberOptions::parse(arguments);
    if (options.help) {
        fputs(qPrintable(GrabberOptions::usage()), stdout);
        return 0;
    }
    if (!options.error.isEmpty()) {
        fprintf(stderr, "quillo-screencapture: %s\n%s", qPrintable(options.error),
                qPrintable(GrabberOptions::usage()));
        return 2;
    }

    std::unique_ptr<CaptureBackend> backend = createCaptureBackend();
    if (!backend->unsupportedReason().isEmpty())
        return fail(backend->unsupportedReason());

    if (!backend->needsInteraction()) {
        if (backend->userCancels())
            return 1;
        return save(backend->grab(backend->monitorUnderPointer()), options);
    }
    if (options.mode == GrabberOptions::Mode::Screen) {
        const QImage image = backend->grab(backend->monitorUnderPointer());
        return image.isNull() ? fail(backend->lastError()) : save(image, options);
    }
    const CaptureResult result = runInteractiveCapture(*backend, options, argc, argv);
    switch (result.status) {
    case CaptureResult::Status::Captured:
        return save(result.image, options);
    case CaptureResult::Status::Cancelled:
        return 1;
    case CaptureResult::Status::Failed:
        break;
    }
    return fail(result.error);
}
