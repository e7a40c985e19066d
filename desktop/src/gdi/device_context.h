// Device contexts. All of it expects that the lock is held.
#pragma once

#include <memory>
#include <vector>

#include <windows.h>

#include "bitmap.h"
#include "object.h"
#include "region.h"
#include "window_dc.h"

namespace desktop {

// What SaveDC keeps and RestoreDC brings back.
struct DcState {
  HPEN pen = nullptr;
  HBRUSH brush = nullptr;
  HFONT font = nullptr;
  HBITMAP bitmap = nullptr;
  COLORREF textColor = RGB(0, 0, 0);
  COLORREF bkColor = RGB(255, 255, 255);
  COLORREF brushColor = RGB(255, 255, 255);
  COLORREF penColor = RGB(0, 0, 0);
  int bkMode = OPAQUE;
  UINT textAlign = TA_LEFT | TA_TOP;
  int charExtra = 0;
  int rop2 = R2_COPYPEN;
  int polyFillMode = ALTERNATE;
  int stretchMode = BLACKONWHITE;
  int arcDirection = AD_COUNTERCLOCKWISE;
  DWORD layout = 0;
  POINT brushOrigin{};
  POINT windowOrigin{};
  POINT viewportOrigin{};
  POINT position{};
  bool hasClip = false;
  Region clip;  // in device coordinates
};

class DeviceContext : public GdiObject {
 public:
  enum class Kind { Window, Memory, Screen };

  explicit DeviceContext(Kind dcKind)
      : GdiObject(dcKind == Kind::Memory ? OBJ_MEMDC : OBJ_DC), kind(dcKind) {}

  Kind kind;
  HDC handle = nullptr;
  HWND window = nullptr;
  DrawTarget target;  // windows; empty for a memory DC
  DcState state;
  std::vector<DcState> saved;

  // Logical to device coordinates and back. Results far outside of any surface are clamped.
  POINT ToDevice(int x, int y) const;
  POINT ToLogical(int x, int y) const;
  // Logical to surface coordinates.
  POINT ToSurface(int x, int y) const;
  RECT ToSurface(const RECT& logical) const;

  bool IsMono() const;
  // The size of the window, bitmap or screen.
  SIZE Extent() const;
  // What may be written, in surface coordinates.
  const Region& Clip();
  void ClipChanged() { m_clipValid = false; }
  // The visible region alone, in surface coordinates.
  Region Visible() const;

 private:
  Region m_clip;
  bool m_clipValid = false;
};

DeviceContext* FindDC(HDC handle);
// A new DC with default attributes. Null on failure.
HDC AddDC(std::unique_ptr<DeviceContext> dc);
// Deselects everything and frees the DC.
void FreeDC(DeviceContext& dc);
// What a new memory DC holds: one black pixel. Alive for good, and in any number of DCs at once.
HBITMAP DefaultBitmap();
// Exchanges one selected object, with its counts.
void Reselect(HGDIOBJ oldObject, HGDIOBJ newObject);

// The pixels that a DC draws on, for the time of one operation: decoded before, written back after.
class Canvas {
 public:
  explicit Canvas(DeviceContext& dc);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  const PixelView& Pixels() const { return m_pixels; }
  explicit operator bool() const { return static_cast<bool>(m_pixels); }
  // Says that this operation only reads.
  void ReadOnly() { m_bitmap = nullptr; }

 private:
  std::shared_ptr<Surface> m_surface;
  Bitmap* m_bitmap = nullptr;
  PixelView m_pixels;
};

}  // namespace desktop
