#pragma once

#include <QByteArrayList>

#include <cstdio>

/// The program: the arguments behind its name, and the streams that it prints and complains to.
/// Answers the exit code.
int runCompanion(const QByteArrayList& arguments, std::FILE* output, std::FILE* errors);
