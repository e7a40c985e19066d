// Fonts: creation, metrics, widths, enumeration.
#include <algorithm>
#include <cstring>
#include <memory>

#include "../world.h"
#include "bounded.h"
#include "device_context.h"
#include "text.h"
#include "typeface.h"

namespace desktop {
namespace {

void CopyName(wchar_t* to, size_t capacity, const wchar_t* name) {
  std::wcsncpy(to, name, capacity - 1);
  to[capacity - 1] = 0;
}

BYTE MetricsPitch(const Family& family) {
  BYTE pitch = (family.pitchAndFamily & 3) == FIXED_PITCH ? 0 : TMPF_FIXED_PITCH;
  auto type = static_cast<BYTE>(family.trueType ? TMPF_TRUETYPE | TMPF_VECTOR : 0);
  return static_cast<BYTE>(pitch | type | (family.pitchAndFamily & 0xf0));
}

const Family& FamilyRecord(const LOGFONTW& font) {
  const wchar_t* name = FamilyOf(font);
  const std::vector<Family>& families = Families();
  auto found = std::find_if(families.begin(), families.end(),
                            [&](const Family& family) { return std::wcscmp(family.name, name) == 0; });
  return found == families.end() ? families.front() : *found;
}

TEXTMETRICW MetricsOf(const Typeface& face, const LOGFONTW& font) {
  TEXTMETRICW metrics{};
  metrics.tmHeight = face.Height();
  metrics.tmAscent = face.Ascent();
  metrics.tmDescent = face.Height() - face.Ascent();
  metrics.tmInternalLeading = face.InternalLeading();
  metrics.tmAveCharWidth = face.AverageWidth();
  metrics.tmMaxCharWidth = face.MaxWidth();
  metrics.tmWeight = face.Weight();
  metrics.tmDigitizedAspectX = metrics.tmDigitizedAspectY = 96;
  metrics.tmFirstChar = L' ';
  metrics.tmLastChar = 0xfffc;
  metrics.tmDefaultChar = 0x1f;
  metrics.tmBreakChar = L' ';
  metrics.tmItalic = font.lfItalic ? 255 : 0;
  metrics.tmUnderlined = font.lfUnderline ? 255 : 0;
  metrics.tmStruckOut = font.lfStrikeOut ? 255 : 0;
  metrics.tmPitchAndFamily = MetricsPitch(FamilyRecord(font));
  metrics.tmCharSet = font.lfCharSet == DEFAULT_CHARSET ? static_cast<BYTE>(ANSI_CHARSET) : font.lfCharSet;
  return metrics;
}

// Everything that is asked of one family, made under the lock and told without it.
struct Announcement {
  ENUMLOGFONTEXW font{};
  TEXTMETRICW metrics{};
  DWORD type = 0;
};

Announcement Announce(const Family& family) {
  Announcement result;
  LOGFONTW& font = result.font.elfLogFont;
  font.lfHeight = family.trueType ? 32 : 13;
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = family.charSet;
  font.lfPitchAndFamily = family.pitchAndFamily;
  font.lfOutPrecision = static_cast<BYTE>(family.trueType ? 3 : 1);
  font.lfClipPrecision = 2;
  font.lfQuality = PROOF_QUALITY;
  CopyName(font.lfFaceName, LF_FACESIZE, family.name);
  CopyName(result.font.elfFullName, LF_FULLFACESIZE, family.name);
  CopyName(result.font.elfStyle, LF_FACESIZE, L"Regular");
  CopyName(result.font.elfScript, LF_FACESIZE, L"Western");
  std::shared_ptr<const Typeface> face = Typeface::For(font);
  result.metrics = MetricsOf(*face, font);
  font.lfWidth = face->AverageWidth();
  result.type = family.trueType ? TRUETYPE_FONTTYPE : RASTER_FONTTYPE;
  return result;
}

int Enumerate(HDC handle, LPCWSTR name, FONTENUMPROCW proc, LPARAM data) {
  std::vector<Announcement> announcements;
  {
    WorldLock lock(WorldMutex());
    if (!FindDC(handle) || !proc) return 0;
    for (const Family& family : Families()) {
      if (!name || !*name || wcscasecmp(name, family.name) == 0) announcements.push_back(Announce(family));
    }
  }
  int result = 1;
  for (const Announcement& one : announcements) {
    result = proc(&one.font.elfLogFont, &one.metrics, one.type, data);
    if (!result) break;
  }
  return result;
}

}  // namespace

std::unique_ptr<Font> MakeFont(const LOGFONTW& description) { return std::make_unique<Font>(description); }

const LOGFONTW& LogFontOf(const DeviceContext& dc) {
  auto* font = FindObjectAs<Font>(dc.state.font, OBJ_FONT);
  if (!font) font = FindObjectAs<Font>(GetStockObject(SYSTEM_FONT), OBJ_FONT);
  return font->log;
}

const Typeface& TypefaceOf(const DeviceContext& dc) {
  auto* font = FindObjectAs<Font>(dc.state.font, OBJ_FONT);
  if (!font) font = FindObjectAs<Font>(GetStockObject(SYSTEM_FONT), OBJ_FONT);
  if (!font->typeface) font->typeface = Typeface::For(font->log);
  return *font->typeface;
}

int TextWidth(const DeviceContext& dc, const wchar_t* text, size_t length) {
  const Typeface& face = TypefaceOf(dc);
  long long width = static_cast<long long>(Bounded(dc.state.charExtra)) * static_cast<long long>(length);
  for (size_t i = 0; i < length; ++i) width += face.Advance(text[i]);
  return static_cast<int>(std::clamp<long long>(width, 0, 0x7ffffff));
}

namespace {

// Nothing has no height either.
int HeightOfText(const DeviceContext& dc, int length) { return length == 0 ? 0 : TypefaceOf(dc).Height(); }

}  // namespace
}  // namespace desktop

using namespace desktop;

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font) {
  WorldLock lock(WorldMutex());
  if (!font) return nullptr;
  LOGFONTW description = *font;
  description.lfFaceName[LF_FACESIZE - 1] = 0;
  return static_cast<HFONT>(AddObject(MakeFont(description)));
}

HFONT WINAPI CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                         DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                         DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCWSTR face) {
  LOGFONTW font{};
  font.lfHeight = height;
  font.lfWidth = width;
  font.lfEscapement = escapement;
  font.lfOrientation = orientation;
  font.lfWeight = weight;
  font.lfItalic = static_cast<BYTE>(italic);
  font.lfUnderline = static_cast<BYTE>(underline);
  font.lfStrikeOut = static_cast<BYTE>(strikeOut);
  font.lfCharSet = static_cast<BYTE>(charSet);
  font.lfOutPrecision = static_cast<BYTE>(outPrecision);
  font.lfClipPrecision = static_cast<BYTE>(clipPrecision);
  font.lfQuality = static_cast<BYTE>(quality);
  font.lfPitchAndFamily = static_cast<BYTE>(pitchAndFamily);
  if (face) CopyName(font.lfFaceName, LF_FACESIZE, face);
  return CreateFontIndirectW(&font);
}

BOOL WINAPI GetTextMetricsW(HDC handle, LPTEXTMETRICW metrics) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !metrics) return FALSE;
  *metrics = MetricsOf(TypefaceOf(*dc), LogFontOf(*dc));
  return TRUE;
}

int WINAPI GetTextFaceW(HDC handle, int count, LPWSTR face) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc) return 0;
  const wchar_t* name = FamilyOf(LogFontOf(*dc));
  int length = static_cast<int>(std::wcslen(name)) + 1;
  if (!face) return length;
  if (count <= 0) return 0;
  CopyName(face, static_cast<size_t>(count), name);
  return std::min(count, length);
}

BOOL WINAPI GetTextExtentPoint32W(HDC handle, LPCWSTR text, int length, LPSIZE extent) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !extent || length < 0 || (!text && length > 0)) return FALSE;
  *extent = {TextWidth(*dc, text, static_cast<size_t>(length)), HeightOfText(*dc, length)};
  return TRUE;
}

BOOL WINAPI GetTextExtentPointW(HDC dc, LPCWSTR text, int length, LPSIZE extent) {
  return GetTextExtentPoint32W(dc, text, length, extent);
}

BOOL WINAPI GetTextExtentExPointW(HDC handle, LPCWSTR text, int length, int maxExtent, LPINT fit,
                                  LPINT partial, LPSIZE extent) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !extent || length < 0 || (!text && length > 0)) return FALSE;
  const Typeface& face = TypefaceOf(*dc);
  int width = 0;
  int fitting = 0;
  for (int i = 0; i < length; ++i) {
    width = Bounded(width + face.Advance(text[i]) + Bounded(dc->state.charExtra));
    if (fit && width > maxExtent && fitting == i) continue;
    if (width <= maxExtent && fitting == i) fitting = i + 1;
    // Without a limit all partial widths are wanted.
    if (partial && (!fit || fitting == i + 1)) partial[i] = width;
  }
  if (fit) *fit = fitting;
  *extent = {width, HeightOfText(*dc, length)};
  return TRUE;
}

BOOL WINAPI GetCharWidth32W(HDC handle, UINT first, UINT last, LPINT widths) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !widths || first > last || last > 0x10ffff) return FALSE;
  const Typeface& face = TypefaceOf(*dc);
  for (UINT c = first; c <= last; ++c) *widths++ = face.Advance(static_cast<wchar_t>(c));
  return TRUE;
}

BOOL WINAPI GetCharWidthW(HDC dc, UINT first, UINT last, LPINT widths) {
  return GetCharWidth32W(dc, first, last, widths);
}

BOOL WINAPI GetCharABCWidthsW(HDC handle, UINT first, UINT last, ABC* widths) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !widths || first > last || last > 0x10ffff) return FALSE;
  const Typeface& face = TypefaceOf(*dc);
  for (UINT c = first; c <= last; ++c)
    *widths++ = {0, static_cast<UINT>(face.Advance(static_cast<wchar_t>(c)) - 1), 1};
  return TRUE;
}

int WINAPI EnumFontsW(HDC dc, LPCWSTR face, FONTENUMPROCW proc, LPARAM data) {
  return Enumerate(dc, face, proc, data);
}

int WINAPI EnumFontFamiliesW(HDC dc, LPCWSTR face, FONTENUMPROCW proc, LPARAM data) {
  return Enumerate(dc, face, proc, data);
}

int WINAPI EnumFontFamiliesExW(HDC dc, LPLOGFONTW font, FONTENUMPROCW proc, LPARAM data, DWORD) {
  if (!font) return 0;
  LOGFONTW wanted = *font;
  wanted.lfFaceName[LF_FACESIZE - 1] = 0;
  if (wanted.lfCharSet != DEFAULT_CHARSET && wanted.lfCharSet != ANSI_CHARSET) return 1;
  return Enumerate(dc, wanted.lfFaceName, proc, data);
}
