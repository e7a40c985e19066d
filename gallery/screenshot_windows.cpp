// On Windows: the window's own pixels, as a PNG file without compression.
#include <array>
#include <cstdint>
#include <vector>

#include "screenshot.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

// A window's pixels, 32 bits each, top row first.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> values;
};

Pixels ReadWindow(HWND window) {
  RECT rect;
  if (!::GetWindowRect(window, &rect)) return {};
  Pixels pixels{rect.right - rect.left, rect.bottom - rect.top, {}};
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof info.bmiHeader, pixels.width, -pixels.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HDC source = ::GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
  const HDC memory = ::CreateCompatibleDC(source);
  const HBITMAP bitmap = ::CreateDIBSection(source, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap != nullptr) {
    const HGDIOBJ former = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, pixels.width, pixels.height, source, 0, 0, SRCCOPY);
    ::GdiFlush();
    const auto* const first = static_cast<const std::uint32_t*>(bits);
    pixels.values.assign(first, first + static_cast<std::ptrdiff_t>(pixels.width) * pixels.height);
    ::SelectObject(memory, former);
    ::DeleteObject(bitmap);
  }
  ::DeleteDC(memory);
  ::ReleaseDC(window, source);
  return pixels;
}

void Append32(Bytes& out, std::uint32_t value) {
  for (const int shift : {24, 16, 8, 0}) out.push_back(static_cast<std::uint8_t>(value >> shift));
}

std::uint32_t Crc(const std::uint8_t* data, std::size_t size) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (std::size_t i = 0; i < size; ++i) {
    crc ^= data[i];
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~crc;
}

void AppendChunk(Bytes& out, const char* type, const Bytes& data) {
  Append32(out, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = out.size();
  out.insert(out.end(), type, type + 4);
  out.insert(out.end(), data.begin(), data.end());
  Append32(out, Crc(out.data() + start, out.size() - start));
}

// Rows of red, green, blue, each behind a zero: no filter.
Bytes Rows(const Pixels& pixels) {
  Bytes rows;
  auto value = pixels.values.begin();
  for (int y = 0; y < pixels.height; ++y) {
    rows.push_back(0);
    for (int x = 0; x < pixels.width; ++x, ++value) {
      for (const int shift : {16, 8, 0}) rows.push_back(static_cast<std::uint8_t>(*value >> shift));
    }
  }
  return rows;
}

// The data in stored blocks of the deflate format.
Bytes Stored(const Bytes& data) {
  constexpr std::size_t kBlock = 0xFFFF;
  Bytes out = {0x78, 0x01};
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (std::size_t at = 0; at < data.size(); at += kBlock) {
    const std::size_t size = data.size() - at < kBlock ? data.size() - at : kBlock;
    out.push_back(at + size == data.size() ? 1 : 0);
    for (const std::size_t word : {size, ~size}) {
      out.push_back(static_cast<std::uint8_t>(word));
      out.push_back(static_cast<std::uint8_t>(word >> 8));
    }
    for (std::size_t i = at; i < at + size; ++i) {
      out.push_back(data[i]);
      a = (a + data[i]) % 65521;
      b = (b + a) % 65521;
    }
  }
  Append32(out, (b << 16) | a);
  return out;
}

Bytes Png(const Pixels& pixels) {
  Bytes out = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  Bytes head;
  Append32(head, static_cast<std::uint32_t>(pixels.width));
  Append32(head, static_cast<std::uint32_t>(pixels.height));
  head.insert(head.end(), {8, 2, 0, 0, 0});
  AppendChunk(out, "IHDR", head);
  AppendChunk(out, "IDAT", Stored(Rows(pixels)));
  AppendChunk(out, "IEND", {});
  return out;
}

}  // namespace

bool SaveScreenshot(HWND window, const wchar_t* path) {
  const Pixels pixels = ReadWindow(window);
  if (pixels.values.empty()) return false;
  const Bytes png = Png(pixels);
  const HANDLE file =
      ::CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool done = ::WriteFile(file, png.data(), static_cast<DWORD>(png.size()), &written, nullptr) &&
                    written == png.size();
  return ::CloseHandle(file) && done;
}
