// Fonts as the drawing code sees them. All of it expects that the lock is held.
#pragma once

#include <memory>

#include <windows.h>

#include "object.h"

namespace desktop {

class DeviceContext;
class Typeface;

struct Font : GdiObject {
  explicit Font(const LOGFONTW& description) : GdiObject(OBJ_FONT), log(description) {}
  int Describe(int size, void* buffer) const override { return DescribeAs(&log, sizeof(log), size, buffer); }

  LOGFONTW log;
  std::shared_ptr<const Typeface> typeface;  // made on first use
};

std::unique_ptr<Font> MakeFont(const LOGFONTW& description);

// The face selected into a DC, and what its LOGFONTW says.
const Typeface& TypefaceOf(const DeviceContext& dc);
const LOGFONTW& LogFontOf(const DeviceContext& dc);

// The width of text with the DC's character spacing.
int TextWidth(const DeviceContext& dc, const wchar_t* text, size_t length);

}  // namespace desktop
