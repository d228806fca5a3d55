#pragma once

#include <cstdint>

/// File versions that the generator writes, by the year of the format.
enum class DrawingVersion { V2000, V2004, V2013, V2018 };

/// What a generated drawing holds. Equal options give equal bytes, on every platform.
struct DrawingOptions
{
    int layers = 100; ///< records of the LAYER table, "0" and "Defpoints" included; at least 2
    std::int64_t entities = 10'000; ///< in model space; sheets and blocks add a few of their own
    int blocks = 12; ///< at least 1
    int layouts = 2; ///< sheets beside the model tab; at least 1
    DrawingVersion version = DrawingVersion::V2004;
    std::uint64_t seed = 1;
    bool binary = false; ///< binary DXF with codes of two bytes, else text

    bool isAtLeast(DrawingVersion other) const { return version >= other; }
};

/// "AC1018" and the like.
const char* versionName(DrawingVersion version);
