// The drawing surface and the options without memory or drawing objects: 0 or null, and as if new.
#include <VornComCtl.h>

#include <memory>

#include "each_failure.h"

namespace {

using faults::Kind;

void FreeWrappers() {
  AfxLockTempMaps();
  AfxUnlockTempMaps();
}

// A memory context with a bitmap, for a target or a source.
class Canvas {
 public:
  Canvas() {
    m_dc.CreateCompatibleDC(nullptr);
    m_bitmap.CreateBitmap(20, 20, 1, 32, nullptr);
    m_earlier = ::SelectObject(m_dc, m_bitmap);
  }
  ~Canvas() { ::SelectObject(m_dc, m_earlier); }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  CDC* Dc() { return &m_dc; }

 private:
  CBitmap m_bitmap;
  CDC m_dc;
  HGDIOBJ m_earlier;
};

class SurfaceFault : public testing::TestWithParam<Kind> {
 protected:
  long Run(std::function<bool()> act, std::function<void()> cleanUp) {
    faults::Experiment experiment;
    experiment.prepare = FreeWrappers;
    experiment.act = std::move(act);
    experiment.cleanUp = std::move(cleanUp);
    return faults::RunWithEachFailure(GetParam(), experiment);
  }

  Canvas m_canvas;
};

TEST_P(SurfaceFault, BeginPaintOnAContext) {
  CVornDC dc;
  const long failures = Run(
      [&] {
        const bool begun = dc.BeginPaint(m_canvas.Dc()) != 0;
        EXPECT_EQ(begun, dc.GetSafeHdc() != nullptr);
        return begun;
      },
      [&] { dc.EndPaint(nullptr); });
  EXPECT_GE(failures, 2) << "a context and a bitmap";
}

TEST_P(SurfaceFault, CreateBitmapCapture) {
  CVornDC dc;
  const long failures = Run(
      [&] {
        const bool created = dc.CreateBitmapCapture(8, 8) != 0;
        EXPECT_EQ(created, dc.GetSafeHdc() != nullptr);
        return created;
      },
      [&] { dc.EndPaint(nullptr); });
  EXPECT_GE(failures, 2) << "a context and a bitmap";
}

TEST_P(SurfaceFault, GetCapturedBitmap) {
  CVornDC dc;
  HBITMAP taken = nullptr;
  ASSERT_EQ(dc.CreateBitmapCapture(8, 8), 1);
  const long failures = Run(
      [&] {
        CBitmap* const bitmap = dc.GetCapturedBitmap();
        taken = bitmap ? static_cast<HBITMAP>(bitmap->GetSafeHandle()) : nullptr;
        return taken != nullptr;
      },
      [&] {
        if (taken) ::DeleteObject(taken);
        taken = nullptr;
      });
  EXPECT_GE(failures, 1);
}

TEST_P(SurfaceFault, GetDCCapture) {
  CVornDC dc;
  std::unique_ptr<CBitmap> taken;
  const long failures = Run(
      [&] {
        taken.reset(dc.GetDCCapture(m_canvas.Dc(), CRect(2, 2, 9, 9), nullptr));
        EXPECT_EQ(dc.GetSafeHdc(), nullptr);
        return taken != nullptr;
      },
      [&] { taken.reset(); });
  EXPECT_GE(failures, 2) << "a context and a bitmap";
}

TEST_P(SurfaceFault, OptionsKeepTheirFont) {
  CFont first, second;
  LOGFONTW wanted{};
  wanted.lfHeight = -12;
  ASSERT_TRUE(first.CreateFontIndirect(&wanted));
  wanted.lfHeight = -20;
  ASSERT_TRUE(second.CreateFontIndirect(&wanted));
  CVornTreeOptions options(nullptr);
  Run(
      [&] {
        options.SetFont(&second, 0);
        const bool changed = options.GetDefaultHeight() == 24;
        LOGFONTW font{};
        EXPECT_TRUE(options.GetFont()->GetLogFont(&font));
        EXPECT_EQ(font.lfHeight, changed ? -20 : -12);
        return changed;
      },
      [&] { options.SetFont(&first, 0); });
}

TEST_P(SurfaceFault, OptionsAreMadeWithDefaults) {
  Run(
      [] {
        CVornTreeOptions options(nullptr);
        EXPECT_EQ(options.GetIndent(), 20u);
        EXPECT_EQ(options.GetBkColor(), ::GetSysColor(COLOR_WINDOW));
        return true;
      },
      [] {});
}

INSTANTIATE_TEST_SUITE_P(Each, SurfaceFault, testing::Values(Kind::Allocation, Kind::Call));

}  // namespace
