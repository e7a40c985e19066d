// What the window part asks of the drawing part.
#pragma once

#include <memory>

#include <windows.h>

#include "region.h"
#include "surface.h"

namespace desktop {

// Where a window DC draws.
struct DrawTarget {
  std::shared_ptr<Surface> surface;
  POINT origin{};  // of the DC's device point (0, 0), in surface coordinates
  SIZE extent{};   // of the window or client area, for GetClipBox and the like
  Region visible;  // in surface coordinates: what may be written; covered parts are out of it
};

// A DC on a target, with default attributes. window is what WindowFromDC answers. Null on failure.
HDC CreateWindowDC(const DrawTarget& target, HWND window);
// A window moved or was covered while its DC is out: draws to the new target from now on.
void RetargetWindowDC(HDC dc, const DrawTarget& target);
// Back to default attributes (for a DC that GetDC hands out again).
void ResetDC(HDC dc);
// Deselects everything and frees the DC. False if it is not a window DC.
bool DestroyWindowDC(HDC dc);

// Number of live DCs, of live GDI objects other than the stock ones (icons and cursors count too),
// and of image lists.
int LiveDCs();
int LiveGdiObjects();
int LiveImageLists();
// Frees all of them, for a reset of the desktop.
void ResetGdi();

// The brush of a system colour, alive as long as the desktop; it follows the colour. Null for a bad index.
HBRUSH SystemColorBrush(int index);

// Makes an icon or cursor belong to the desktop or a module: DestroyIcon leaves it alone, and it does not
// count as live.
void ShareIcon(HICON icon);

// Draws a cursor or icon with its top left corner at a point of a surface.
void DrawIconOnSurface(HICON icon, Surface& surface, int x, int y);

}  // namespace desktop
