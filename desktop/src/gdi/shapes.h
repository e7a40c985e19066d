// Filled shapes as regions.
#pragma once

#include <windows.h>

#include "region.h"

namespace desktop {

// A rectangle whose corners are quarters of an ellipse of the given size.
Region RoundedRegion(const RECT& rect, int width, int height);
// The inside of closed polygons by a polygon fill mode. Counts are at least 2.
Region PolygonRegion(const POINT* points, const int* counts, int polygons, int mode);

}  // namespace desktop
