#pragma once

struct HostOptions;

/// Runs the program in a window, or draws a picture of it. The exit code of the process.
int runWindowProgram(int argc, char** argv, const HostOptions& options);
