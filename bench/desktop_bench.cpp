// The in-memory desktop: messages, blits, text.
#include <windows.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

namespace {

constexpr int kSide = 500;
const wchar_t kLabel[] = L"A label of usual length";

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return message == WM_USER ? static_cast<LRESULT>(wParam) + 1
                            : ::DefWindowProcW(window, message, wParam, lParam);
}

// A window that answers WM_USER.
class BenchWindow {
 public:
  BenchWindow() {
    WNDCLASSW info{};
    info.lpfnWndProc = Procedure;
    info.hInstance = ::GetModuleHandleW(nullptr);
    info.lpszClassName = L"VornBench";
    ::RegisterClassW(&info);
    m_window = ::CreateWindowExW(0, info.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 0, 0, kSide, kSide,
                                 nullptr, nullptr, info.hInstance, nullptr);
  }
  ~BenchWindow() { ::DestroyWindow(m_window); }
  BenchWindow(const BenchWindow&) = delete;
  BenchWindow& operator=(const BenchWindow&) = delete;
  operator HWND() const { return m_window; }

 private:
  HWND m_window;
};

// A memory DC with a bitmap of kSide by kSide pixels.
class BenchCanvas {
 public:
  BenchCanvas() : m_dc(::CreateCompatibleDC(nullptr)) {
    const HDC screen = ::GetDC(nullptr);
    m_bitmap = ::CreateCompatibleBitmap(screen, kSide, kSide);
    ::ReleaseDC(nullptr, screen);
    m_old = ::SelectObject(m_dc, m_bitmap);
  }
  ~BenchCanvas() {
    ::SelectObject(m_dc, m_old);
    ::DeleteObject(m_bitmap);
    ::DeleteDC(m_dc);
  }
  BenchCanvas(const BenchCanvas&) = delete;
  BenchCanvas& operator=(const BenchCanvas&) = delete;
  operator HDC() const { return m_dc; }

 private:
  HDC m_dc;
  HBITMAP m_bitmap;
  HGDIOBJ m_old;
};

void SentMessages(benchmark::State& state) {
  BenchWindow window;
  for (auto _ : state) benchmark::DoNotOptimize(::SendMessageW(window, WM_USER, 1, 2));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(SentMessages);

void PostedMessages(benchmark::State& state) {
  BenchWindow window;
  MSG message;
  for (auto _ : state) {
    ::PostMessageW(window, WM_USER, 1, 2);
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(PostedMessages);

void Blit500(benchmark::State& state) {
  BenchCanvas source, target;
  for (auto _ : state) ::BitBlt(target, 0, 0, kSide, kSide, source, 0, 0, SRCCOPY);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Blit500);

// What a blit of that size cannot be faster than.
void Copy500(benchmark::State& state) {
  std::vector<std::uint32_t> source(kSide * kSide, 1), target(kSide * kSide);
  for (auto _ : state) {
    std::memcpy(target.data(), source.data(), source.size() * sizeof(source[0]));
    benchmark::DoNotOptimize(target.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Copy500);

void BlitToWindow500(benchmark::State& state) {
  BenchWindow window;
  BenchCanvas source;
  const HDC dc = ::GetDC(window);
  for (auto _ : state) ::BitBlt(dc, 0, 0, kSide, kSide, source, 0, 0, SRCCOPY);
  ::ReleaseDC(window, dc);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BlitToWindow500);

void TextExtents(benchmark::State& state) {
  BenchCanvas canvas;
  const HGDIOBJ old = ::SelectObject(canvas, ::GetStockObject(DEFAULT_GUI_FONT));
  const int length = static_cast<int>(std::wcslen(kLabel));
  SIZE size{};
  for (auto _ : state) {
    benchmark::DoNotOptimize(::GetTextExtentPoint32W(canvas, kLabel, length, &size));
  }
  ::SelectObject(canvas, old);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(TextExtents);

void TextDrawn(benchmark::State& state) {
  BenchCanvas canvas;
  const HGDIOBJ old = ::SelectObject(canvas, ::GetStockObject(DEFAULT_GUI_FONT));
  const int length = static_cast<int>(std::wcslen(kLabel));
  for (auto _ : state) ::TextOutW(canvas, 10, 10, kLabel, length);
  ::SelectObject(canvas, old);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(TextDrawn);

}  // namespace
