#pragma once

#include <QString>

struct SaveReport;

/// What a save changed, counted: "14 layer records changed, all other 48,211 records identical."
QString recordsSentence(const SaveReport& report);
