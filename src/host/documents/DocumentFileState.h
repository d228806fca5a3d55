#pragma once

#include "io/files/DrawingLock.h"
#include "io/files/FileLayout.h"

#include <memory>
#include <optional>

/// What the host knows about the file of an open drawing, beside its path.
struct DocumentFileState
{
    std::unique_ptr<DrawingLock> lock; ///< null: the drawing is read-only, or locks are not kept
    bool isReadOnly = false; ///< the user wanted it so
    bool ignoresLock = false; ///< the user edits although another process does
    bool hasBackup = false; ///< the file as it was before this session is kept, or there was none
    int saves = 0; ///< of this session, to whatever file
    FileIdentity identity; ///< when it was read or written
    std::optional<FileIdentity> noticed; ///< the change that the user was told of last
    std::optional<FileLayout> layout; ///< when it was written; unknown until somebody asks
};
