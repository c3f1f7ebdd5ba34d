#include "UploadProgress.h"

std::atomic<double> &uploadPercent()
{
    static std::atomic<double> percent{0.0};
    return percent;
}
