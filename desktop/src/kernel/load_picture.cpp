// Bitmaps, icons and cursors of modules and of files, made with documented drawing calls.
#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include <windows.h>

#include "gdi/window_dc.h"
#include "kernel.h"
#include "resource.h"
#include "system_pictures.h"
#include "world.h"

namespace desktop {

namespace {

constexpr size_t kFileHeaderSize = 14;
constexpr DWORD kIconVersion = 0x00030000;

// A device-independent bitmap as it lies in a resource: header, colours, bits.
struct PackedDib {
  std::vector<uint8_t> bytes;
  size_t bitsAt = 0;

  BITMAPINFO* Info() { return reinterpret_cast<BITMAPINFO*>(bytes.data()); }
  const BITMAPINFOHEADER& Header() const { return *reinterpret_cast<const BITMAPINFOHEADER*>(bytes.data()); }
  const void* Bits() const { return bytes.data() + bitsAt; }
  size_t Colors() const {
    const BITMAPINFOHEADER& header = Header();
    if (header.biBitCount > 8) return header.biClrUsed;
    return header.biClrUsed ? header.biClrUsed : size_t{1} << header.biBitCount;
  }
  RGBQUAD* Palette() { return reinterpret_cast<RGBQUAD*>(bytes.data() + Header().biSize); }
};

// Bytes of the pixels that the header promises; 0 for a compressed or an impossible one.
size_t BitsSize(const BITMAPINFOHEADER& header) {
  constexpr LONG kLargest = 1 << 15;
  const LONG height = std::abs(header.biHeight);
  if (header.biWidth <= 0 || header.biWidth > kLargest || height <= 0 || height > kLargest) return 0;
  const size_t stride = (static_cast<size_t>(header.biWidth) * header.biBitCount + 31) / 32 * 4;
  return stride * static_cast<size_t>(height);
}

// Takes the bytes when they hold all that their header promises.
bool ReadDib(const uint8_t* data, size_t size, PackedDib& dib) {
  if (size < sizeof(BITMAPINFOHEADER)) return false;
  dib.bytes.assign(data, data + size);
  const BITMAPINFOHEADER& header = dib.Header();
  if (header.biSize < sizeof(BITMAPINFOHEADER) || header.biSize > size || header.biPlanes != 1) return false;
  if (header.biBitCount == 0 || header.biBitCount > 32) return false;
  const size_t masks =
      header.biCompression == BI_BITFIELDS && header.biSize == sizeof(BITMAPINFOHEADER) ? 12 : 0;
  dib.bitsAt = header.biSize + masks + dib.Colors() * sizeof(RGBQUAD);
  if (dib.bitsAt > size) return false;
  const size_t needed = BitsSize(header);
  return needed > 0 && size - dib.bitsAt >= needed;
}

// LR_LOADMAP3DCOLORS: three greys become the colours of the face, shadow and light of buttons.
void MapButtonColors(PackedDib& dib) {
  if (dib.Header().biBitCount > 8) return;
  const auto replace = [](RGBQUAD& entry, BYTE grey, int index) {
    if (entry.rgbRed != grey || entry.rgbGreen != grey || entry.rgbBlue != grey) return;
    const COLORREF color = GetSysColor(index);
    entry = {GetBValue(color), GetGValue(color), GetRValue(color), 0};
  };
  RGBQUAD* palette = dib.Palette();
  for (size_t i = 0; i < dib.Colors(); ++i) {
    const RGBQUAD before = palette[i];
    replace(palette[i], 0x80, COLOR_3DSHADOW);
    if (memcmp(&before, &palette[i], sizeof before) != 0) continue;
    replace(palette[i], 0xC0, COLOR_3DFACE);
    if (memcmp(&before, &palette[i], sizeof before) != 0) continue;
    replace(palette[i], 0xDF, COLOR_3DLIGHT);
  }
}

HBITMAP MakeSection(HDC dc, PackedDib& dib) {
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(dc, dib.Info(), DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap) std::memcpy(bits, dib.Bits(), BitsSize(dib.Header()));
  return bitmap;
}

HBITMAP MakeStretched(HDC dc, PackedDib& dib, int cx, int cy) {
  const HBITMAP bitmap = CreateCompatibleBitmap(dc, cx, cy);
  const HDC memory = bitmap ? CreateCompatibleDC(dc) : nullptr;
  if (!memory) {
    if (bitmap) DeleteObject(bitmap);
    return nullptr;
  }
  const HGDIOBJ before = SelectObject(memory, bitmap);
  StretchDIBits(memory, 0, 0, cx, cy, 0, 0, dib.Header().biWidth, std::abs(dib.Header().biHeight), dib.Bits(),
                dib.Info(), DIB_RGB_COLORS, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
  return bitmap;
}

bool IsMonochrome(PackedDib& dib) {
  if (dib.Header().biBitCount != 1 || dib.Colors() < 2) return false;
  const RGBQUAD* palette = dib.Palette();
  const auto isGrey = [](const RGBQUAD& c, BYTE v) {
    return c.rgbRed == v && c.rgbGreen == v && c.rgbBlue == v;
  };
  return (isGrey(palette[0], 0) && isGrey(palette[1], 255)) ||
         (isGrey(palette[0], 255) && isGrey(palette[1], 0));
}

HBITMAP MakeBitmap(PackedDib& dib, int cx, int cy, UINT flags) {
  if (flags & LR_LOADMAP3DCOLORS) MapButtonColors(dib);
  const HDC screen = GetDC(nullptr);
  if (!screen) return nullptr;
  const int width = dib.Header().biWidth;
  const int height = std::abs(dib.Header().biHeight);
  HBITMAP bitmap = nullptr;
  if ((cx && cx != width) || (cy && cy != height)) {
    bitmap = MakeStretched(screen, dib, cx ? cx : width, cy ? cy : height);
  } else if (flags & LR_CREATEDIBSECTION) {
    bitmap = MakeSection(screen, dib);
  } else if ((flags & LR_MONOCHROME) || IsMonochrome(dib)) {
    bitmap = CreateBitmap(width, height, 1, 1, nullptr);
    if (bitmap)
      SetDIBits(screen, bitmap, 0, static_cast<UINT>(height), dib.Bits(), dib.Info(), DIB_RGB_COLORS);
  } else {
    bitmap = CreateDIBitmap(screen, &dib.Info()->bmiHeader, CBM_INIT, dib.Bits(), dib.Info(), DIB_RGB_COLORS);
  }
  ReleaseDC(nullptr, screen);
  return bitmap;
}

bool ReadDibFile(LPCWSTR fileName, PackedDib& dib) {
  std::ifstream file(NativePath(fileName), std::ios::binary);
  const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
  if (bytes.size() < kFileHeaderSize || bytes[0] != 'B' || bytes[1] != 'M') {
    SetLastError(file.is_open() ? ERROR_RESOURCE_DATA_NOT_FOUND : ERROR_FILE_NOT_FOUND);
    return false;
  }
  return ReadDib(bytes.data() + kFileHeaderSize, bytes.size() - kFileHeaderSize, dib);
}

HBITMAP LoadDib(HINSTANCE module, LPCWSTR name, int cx, int cy, UINT flags) {
  PackedDib dib;
  if (flags & LR_LOADFROMFILE) return ReadDibFile(name, dib) ? MakeBitmap(dib, cx, cy, flags) : nullptr;
  const ResourceBytes resource = LoadBytes(module, name, RT_BITMAP);
  if (!resource.data || !ReadDib(resource.data, resource.size, dib)) return nullptr;
  return MakeBitmap(dib, cx, cy, flags);
}

// Chooses the best of a group of pictures, and makes it.
HICON LoadFromGroup(HINSTANCE module, LPCWSTR name, bool isIcon, int cx, int cy, UINT flags) {
  const ResourceBytes group = LoadBytes(module, name, isIcon ? RT_GROUP_ICON : RT_GROUP_CURSOR);
  if (!group.data) return nullptr;
  const int id = LookupIconIdFromDirectoryEx(const_cast<PBYTE>(group.data), isIcon, cx, cy, flags);
  const ResourceBytes picture =
      id ? LoadBytes(module, MAKEINTRESOURCE(id), isIcon ? RT_ICON : RT_CURSOR) : ResourceBytes{};
  if (!picture.data) return nullptr;
  return CreateIconFromResourceEx(const_cast<PBYTE>(picture.data), static_cast<DWORD>(picture.size), isIcon,
                                  kIconVersion, cx, cy, flags);
}

// Shared icons and cursors are loaded once and live as long as their module.
using SharedKey = std::tuple<HINSTANCE, WORD, std::wstring, bool, int, int>;
std::map<SharedKey, HICON>& Shared() {
  static auto& shared = *new std::map<SharedKey, HICON>;
  return shared;
}

const RegisterReset g_reset(0, [] { Shared().clear(); });

HICON LoadShared(HINSTANCE module, LPCWSTR name, bool isIcon, int cx, int cy, UINT flags) {
  const ResourceKey key = ResourceKey::From(name);
  const SharedKey slot{module, key.id, key.name, isIcon, cx, cy};
  {
    WorldLock lock(WorldMutex());
    const auto found = Shared().find(slot);
    if (found != Shared().end()) return found->second;
  }
  const HICON made = module ? LoadFromGroup(module, name, isIcon, cx, cy, flags)
                            : (isIcon ? MakeSystemIcon(key.id) : MakeSystemCursor(key.id));
  if (!made) return nullptr;
  WorldLock lock(WorldMutex());
  const auto [entry, isNew] = Shared().emplace(slot, made);
  // Another thread may have been faster.
  if (!isNew) DestroyIcon(made);
  ShareIcon(entry->second);
  return entry->second;
}

HICON LoadPicture(HINSTANCE module, LPCWSTR name, bool isIcon, int cx, int cy, UINT flags) {
  if (flags & LR_LOADFROMFILE) {
    SetLastError(ERROR_NOT_SUPPORTED);
    return nullptr;
  }
  if (flags & LR_DEFAULTSIZE) {
    if (!cx) cx = GetSystemMetrics(isIcon ? SM_CXICON : SM_CXCURSOR);
    if (!cy) cy = GetSystemMetrics(isIcon ? SM_CYICON : SM_CYCURSOR);
  }
  // The pictures of the system belong to no module.
  if ((flags & LR_SHARED) || !module) return LoadShared(module, name, isIcon, cx, cy, flags | LR_SHARED);
  return LoadFromGroup(module, name, isIcon, cx, cy, flags);
}

}  // namespace

void ForgetPicturesOf(HINSTANCE module) {
  std::erase_if(Shared(), [=](const auto& entry) { return std::get<0>(entry.first) == module; });
}

}  // namespace desktop

HANDLE LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int cx, int cy, UINT flags) {
  if (!name && (flags & LR_LOADFROMFILE)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  switch (type) {
    case IMAGE_BITMAP: return desktop::LoadDib(module, name, cx, cy, flags);
    case IMAGE_ICON: return desktop::LoadPicture(module, name, true, cx, cy, flags);
    case IMAGE_CURSOR: return desktop::LoadPicture(module, name, false, cx, cy, flags);
    default: SetLastError(ERROR_INVALID_PARAMETER); return nullptr;
  }
}

HBITMAP LoadBitmapW(HINSTANCE module, LPCWSTR name) {
  return static_cast<HBITMAP>(LoadImageW(module, name, IMAGE_BITMAP, 0, 0, 0));
}

HICON LoadIconW(HINSTANCE module, LPCWSTR name) {
  return static_cast<HICON>(LoadImageW(module, name, IMAGE_ICON, 0, 0, LR_SHARED | LR_DEFAULTSIZE));
}

HCURSOR LoadCursorW(HINSTANCE module, LPCWSTR name) {
  return static_cast<HCURSOR>(LoadImageW(module, name, IMAGE_CURSOR, 0, 0, LR_SHARED | LR_DEFAULTSIZE));
}
