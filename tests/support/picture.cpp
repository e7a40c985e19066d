#include "support/picture.h"

#include <algorithm>

#include "support/recorder.h"

namespace support {
namespace {

BITMAPINFO TopDown32(int width, int height) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

std::string FailureFile() {
  const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
  if (!test) return "failed.png";
  return std::string("failed-") + test->test_suite_name() + "." + test->name() + ".png";
}

}  // namespace

std::uint32_t Picture::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width || y >= height) return 0xFFFFFFFF;
  return pixels[static_cast<std::size_t>(y) * width + x];
}

Picture Picture::Part(const RECT& part) const {
  Picture result{part.right - part.left, part.bottom - part.top, {}};
  for (int y = part.top; y < part.bottom; ++y) {
    for (int x = part.left; x < part.right; ++x) result.pixels.push_back(At(x, y));
  }
  return result;
}

int Picture::Count(std::uint32_t color) const {
  return static_cast<int>(std::count(pixels.begin(), pixels.end(), color));
}

RECT Picture::Bounds(std::uint32_t background) const {
  RECT r = {width, height, 0, 0};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      if (At(x, y) == background) continue;
      r = {std::min<int>(r.left, x), std::min<int>(r.top, y), std::max<int>(r.right, x + 1),
           std::max<int>(r.bottom, y + 1)};
    }
  }
  return r.right > r.left ? r : RECT{};
}

Picture CaptureDc(HDC dc, int x, int y, int width, int height) {
  Picture picture{width, height, {}};
  if (width <= 0 || height <= 0) return picture;
  const BITMAPINFO info = TopDown32(width, height);
  void* bits = nullptr;
  const HDC memory = CreateCompatibleDC(dc);
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, dc, x, y, SRCCOPY);
  GdiFlush();
  const auto* first = static_cast<const std::uint32_t*>(bits);
  picture.pixels.assign(first, first + static_cast<std::size_t>(width) * height);
  for (std::uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFF;
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
  return picture;
}

Picture CaptureWindow(HWND window) {
  RECT r = {};
  GetWindowRect(window, &r);
  const HDC dc = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
  Picture picture = CaptureDc(dc, 0, 0, r.right - r.left, r.bottom - r.top);
  ReleaseDC(window, dc);
  return picture;
}

Picture CaptureClient(HWND window) {
  RECT frame = {};
  RECT client = {};
  POINT origin = {};
  GetWindowRect(window, &frame);
  GetClientRect(window, &client);
  ClientToScreen(window, &origin);
  OffsetRect(&client, origin.x - frame.left, origin.y - frame.top);
  return CaptureWindow(window).Part(client);
}

std::uint32_t Rgb(COLORREF color) {
  return static_cast<std::uint32_t>(GetRValue(color)) << 16 |
         static_cast<std::uint32_t>(GetGValue(color)) << 8 | GetBValue(color);
}

const Palette& DefaultPalette() {
  static const Palette palette = {{0xFFFFFF, '.'}, {0x000000, '#'}, {0xFF0000, 'r'}, {0x00FF00, 'g'},
                                  {0x0000FF, 'b'}, {0xFFFF00, 'y'}, {0x00FFFF, 'c'}, {0xFF00FF, 'm'},
                                  {0x808080, 'o'}, {0xC0C0C0, 's'}, {0xD4D0C8, 'f'}, {0x404040, 'k'},
                                  {0x0A246A, 'h'}};
  return palette;
}

std::string ToArt(const Picture& picture, const Palette& palette) {
  std::string art;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const auto found = palette.find(picture.At(x, y));
      art += found == palette.end() ? '?' : found->second;
    }
    art += '\n';
  }
  return art;
}

testing::AssertionResult LooksLike(const Picture& picture, const std::string& art, const Palette& palette) {
  const std::vector<std::string> expected = SplitLines(art);
  const std::vector<std::string> actual = SplitLines(ToArt(picture, palette));
  if (expected == actual) return testing::AssertionSuccess();
  const std::string file = FailureFile();
  SavePng(picture, file);
  return testing::AssertionFailure() << "the picture differs; saved as " << file << "\n"
                                     << SideBySide(expected, actual);
}

Canvas::Canvas(int width, int height, COLORREF color) : m_width(width), m_height(height) {
  const BITMAPINFO info = TopDown32(width, height);
  void* bits = nullptr;
  m_dc = CreateCompatibleDC(nullptr);
  m_bitmap = CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  m_old = SelectObject(m_dc, m_bitmap);
  const RECT all = {0, 0, width, height};
  const HBRUSH brush = CreateSolidBrush(color);
  FillRect(m_dc, &all, brush);
  DeleteObject(brush);
}

Canvas::~Canvas() {
  SelectObject(m_dc, m_old);
  DeleteObject(m_bitmap);
  DeleteDC(m_dc);
}

Picture Canvas::Read() const {
  // Through the bitmap, so that the DC's origins and clipping play no part.
  Picture picture{m_width, m_height, {}};
  picture.pixels.resize(static_cast<std::size_t>(m_width) * m_height);
  BITMAPINFO info = TopDown32(m_width, m_height);
  GdiFlush();
  GetDIBits(m_dc, m_bitmap, 0, static_cast<UINT>(m_height), picture.pixels.data(), &info, DIB_RGB_COLORS);
  for (std::uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFF;
  return picture;
}

}  // namespace support
