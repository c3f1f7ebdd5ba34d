#pragma once
// The overlay modes (-i, -w): the only ones that start a GUI.

#include "CaptureBackend.h"
#include "GrabberOptions.h"

struct CaptureResult
{
    enum class Status { Captured, Cancelled, Failed };
    Status status = Status::Failed;
    QImage image;
    QString error;
};

CaptureResult runInteractiveCapture(CaptureBackend &backend, const GrabberOptions &options,
                                    int &argc, char **argv);
