#pragma once
// The grabber's command line: quillo-screencapture [-i | -w] [-o] [-t<type>] <file>

#include <QString>
#include <QStringList>

struct GrabberOptions
{
    enum class Mode { Screen, Selection, Window };

    Mode mode = Mode::Screen;
    bool shadow = true;       // window captures keep a drop shadow unless -o
    QString type = QStringLiteral("jpg");
    QString file;
    bool help = false;
    QString error;            // set when the line cannot be used

    static GrabberOptions parse(const QStringList &arguments); // without the program name
    static QString usage();
};
