#pragma once

struct HostOptions;

/// Runs the program without a window. The exit code of the process.
int runBatchProgram(const HostOptions& options);
