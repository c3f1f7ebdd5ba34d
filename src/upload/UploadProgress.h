#pragma once
// How far the running upload has come, 0..100. Written by the transfer's progress
// callback on the upload worker, read by the poll timer and the upload panel.

#include <atomic>

std::atomic<double> &uploadPercent();
