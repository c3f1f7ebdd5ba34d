#include "GrabberOptions.h"
#include "Encoders.h"

GrabberOptions GrabberOptions::parse(const QStringList &arguments)
{
    GrabberOptions options;
    bool modeGiven = false;
    auto setMode = [&](Mode mode) {
        if (modeGiven && options.mode != mode)
            options.error = QStringLiteral("-i and -w cannot be combined");
        options.mode = mode;
        modeGiven = true;
    };
    for (int i = 0; i < arguments.size() && options.error.isEmpty(); ++i) {
        const QString &arg = arguments.at(i);
        if (arg == QLatin1String("--help")) {
            options.help = true;
            continue;
        }
        if (arg.size() < 2 || !arg.startsWith(QLatin1Char('-'))) {
            if (!options.file.isEmpty())
                options.error = QStringLiteral("only one file may be given");
            options.file = arg;
            continue;
        }
        // Flags may be grouped (-wo); -t takes the rest of its argument or the next one.
        for (int c = 1; c < arg.size() && options.error.isEmpty(); ++c) {
            switch (arg.at(c).toLatin1()) {
            case 'i': setMode(Mode::Selection); break;
            case 'w': setMode(Mode::Window); break;
            case 'o': options.shadow = false; break;
            case 'h': options.help = true; break;
            case 't': {
                QString value = arg.mid(c + 1);
                if (value.isEmpty() && i + 1 < arguments.size())
                    value = arguments.at(++i);
                options.type = Encoders::canonicalType(value);
                if (options.type.isEmpty())
                    options.error = QStringLiteral("unknown image type \"%1\"").arg(value);
                c = int(arg.size());
                break;
            }
            default:
                options.error = QStringLiteral("unknown option %1").arg(arg);
            }
        }
    }
    if (options.error.isEmpty() && !options.help && options.file.isEmpty())
        options.error = QStringLiteral("no file given");
    return options;
}

QString GrabberOptions::usage()
{
    return QStringLiteral(
        "usage: quillo-screencapture [-i | -w] [-o] [-t<type>] <file>\n"
        "  (no mode)  capture the monitor under the pointer\n"
        "  -i         drag a selection (Space: pick a window; Escape or right click: cancel)\n"
        "  -w         click a window to capture it\n"
        "  -o         capture a window without its shadow\n"
        "  -t<type>   jpg (default), png, tiff, bmp, webp or pdf\n"
        "  -h         show this help\n"
        "exit status: 0 written, 1 cancelled, 2 error\n");
}
