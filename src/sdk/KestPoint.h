#pragma once

/// A point of a drawing, in drawing units of the world.
struct KestPoint
{
    double x = 0;
    double y = 0;
    double z = 0;
};
