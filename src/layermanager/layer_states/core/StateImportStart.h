#pragma once

#include <QString>

/// Where the next import of layer states starts, for the life of the module.
struct StateImportStart
{
    static constexpr int kLayerStateFiles = 3; ///< their place in the list of file kinds

    inline static QString s_folder;
    inline static int s_filter = -1; ///< -1: the file dialog's own choice
};
