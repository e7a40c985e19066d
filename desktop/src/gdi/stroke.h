// Lines drawn with the pen of a DC. Coordinates are those of the surface. The lock is held.
#pragma once

#include <vector>

#include <windows.h>

#include "paint.h"

namespace desktop {

class Stroke {
 public:
  explicit Stroke(DeviceContext& dc);

  // False for the null pen.
  bool Draws() const { return m_draws; }
  int Width() const { return m_width; }
  bool IsInsideFrame() const { return m_insideFrame; }

  // From one point to another without the last pixel. Dashes go on where the last line ended.
  void Line(POINT from, POINT to);
  // The outline of a region: its pixels that touch its outside.
  void Outline(const Region& region);

 private:
  void Wide(POINT from, POINT to);
  void Thin(POINT from, POINT to);
  void Plot(const Canvas& canvas, int x, int y, bool on);
  bool DashAt(long long position) const;

  DeviceContext& m_dc;
  bool m_draws = false;
  bool m_insideFrame = false;
  int m_width = 1;
  BYTE m_rop = 0xf0;
  uint32_t m_word = 0;
  uint32_t m_gapWord = 0;
  bool m_fillsGaps = false;
  std::vector<DWORD> m_dashes;  // on, off, on, off...; empty when solid
  long long m_period = 0;
  long long m_phase = 0;
};

}  // namespace desktop
