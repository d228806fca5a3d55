#pragma once

#include <QString>

struct SaveReport;

/// What a save changed, counted: "14 layer records changed, all other 48,211 records identical."
/// `isLaterSave`: the file was saved before, and the counts are still against the file as it was
/// opened.
QString recordsSentence(const SaveReport& report, bool isLaterSave = false);
