// Windows without memory, handles or hooks: a zero result each time, and nothing left behind.
#include <VornComCtl.h>
#include <afxcmn.h>
#include <afxext.h>

#include "each_failure.h"

namespace {

using faults::Kind;

void FreeWrappers() {
  AfxLockTempMaps();
  AfxUnlockTempMaps();
}

class WindowFault : public testing::TestWithParam<Kind> {
 protected:
  // Registered before anything fails.
  const CString m_class = AfxRegisterWndClass(CS_DBLCLKS);
};

// Runs with each failure; the wrappers of the thread are made anew in each run.
// Of calls, those of the system for its own painting may fail without harm.
long RunAll(Kind kind, std::function<bool()> act, std::function<bool()> complete,
            std::function<void()> cleanUp) {
  faults::Experiment experiment;
  experiment.prepare = FreeWrappers;
  experiment.act = std::move(act);
  experiment.complete = std::move(complete);
  experiment.cleanUp = std::move(cleanUp);
  experiment.mayWorkAllTheSame = kind == Kind::Call;
  return faults::RunWithEachFailure(kind, experiment);
}

TEST_P(WindowFault, CreateEx) {
  CWnd window;
  RunAll(
      GetParam(),
      [&] {
        return window.CreateEx(0, m_class, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 90, 60), nullptr, 0) !=
               FALSE;
      },
      [&] { return ::IsWindow(window.m_hWnd) && CWnd::FromHandlePermanent(window.m_hWnd) == &window; },
      [&] { window.DestroyWindow(); });
}

TEST_P(WindowFault, SubclassWindow) {
  const HWND raw =
      ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
  CWnd window;
  RunAll(
      GetParam(), [&] { return window.SubclassWindow(raw) != FALSE; }, [&] { return window.m_hWnd == raw; },
      [&] { window.UnsubclassWindow(); });
  ::DestroyWindow(raw);
}

// Makes a child, a timer, a font and an image list of its own while it is created.
class CBusyWnd : public CWnd {
 public:
  CEdit m_edit;
  CFont m_font;
  CImageList m_images;

  BOOL Make() {
    return CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 90, 60), nullptr, 0);
  }

 protected:
  afx_msg int OnCreate(LPCREATESTRUCTW cs) {
    constexpr int refused = -1;
    if (CWnd::OnCreate(cs) == refused) return refused;
    const bool made = m_edit.Create(WS_VISIBLE, CRect(0, 0, 30, 20), this, 5) && SetTimer(1, 1000) != 0 &&
                      m_font.CreatePointFont(90, L"Tahoma") &&
                      m_images.Create(16, 16, ILC_COLOR24 | ILC_MASK, 1, 1);
    return made ? 0 : refused;
  }
  afx_msg void OnDestroy() {
    m_font.DeleteObject();
    m_images.DeleteImageList();
    CWnd::OnDestroy();
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBusyWnd, CWnd)
  ON_WM_CREATE()
  ON_WM_DESTROY()
END_MESSAGE_MAP()

TEST_P(WindowFault, AWindowThatMakesMoreInWmCreate) {
  CBusyWnd window;
  RunAll(
      GetParam(),
      [&] {
        try {
          return window.Make() != FALSE;
        } catch (CException* e) {  // AfxRegisterWndClass is documented to throw
          e->Delete();
          return false;
        }
      },
      [&] { return window.m_edit.m_hWnd && window.m_font.m_hObject && window.m_images.m_hImageList; },
      [&] {
        window.DestroyWindow();
        window.m_font.DeleteObject();
        window.m_images.DeleteImageList();
      });
}

class CFaultFrame : public CFrameWnd {
 public:
  CFaultFrame() { m_bAutoDelete = FALSE; }
};

TEST_P(WindowFault, Frame) {
  CFaultFrame frame;
  faults::Experiment experiment;
  experiment.prepare = FreeWrappers;
  experiment.act = [&] {
    try {
      return frame.Create(nullptr, L"cadre", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 90, 60)) != FALSE;
    } catch (CMemoryException* e) {  // the copy of the title
      e->Delete();
      return false;
    }
  };
  experiment.cleanUp = [&] { frame.DestroyWindow(); };
  experiment.mayWorkAllTheSame = true;  // a layout that cannot be deferred is left out
  faults::RunWithEachFailure(GetParam(), experiment);
}

// ---- One paint -----------------------------------------------------------------------------------

class CPaintingWnd : public CWnd {
 public:
  bool m_painted = false;

 protected:
  afx_msg void OnPaint() {
    CVornDC dc;
    if (!dc.BeginPaint(this)) return;
    dc.FillBack(RGB(255, 255, 255));
    CPen pen;
    if (!pen.CreatePen(PS_SOLID, 1, RGB(255, 0, 0))) return;
    CPen* const earlier = dc.SelectObject(&pen);
    if (earlier == nullptr) return;
    dc.MoveTo(0, 0);
    dc.LineTo(20, 20);
    dc.SelectObject(earlier);
    m_painted = dc.SwapBuffers() != 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPaintingWnd, CWnd)
  ON_WM_PAINT()
END_MESSAGE_MAP()

COLORREF PixelOf(CWnd& window) {
  CClientDC dc(&window);
  return dc.GetPixel(5, 5);
}

TEST_P(WindowFault, OnePaintThroughABuffer) {
  CPaintingWnd window;
  ASSERT_TRUE(window.CreateEx(0, m_class, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 90, 60), nullptr, 0));
  const long failures = RunAll(
      GetParam(),
      [&] {
        window.m_painted = false;
        window.Invalidate(FALSE);
        window.UpdateWindow();
        return window.m_painted;
      },
      [&] { return PixelOf(window) == RGB(255, 0, 0); },
      [&] {
        window.ValidateRect(nullptr);
        CClientDC dc(&window);
        dc.SetPixel(5, 5, RGB(0, 0, 0));
      });
  EXPECT_GT(failures, 3) << "buffer, bitmap, context, pen";
}

TEST_P(WindowFault, CaptureOfAWindow) {
  CPaintingWnd window;
  ASSERT_TRUE(window.CreateEx(0, m_class, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 90, 60), nullptr, 0));
  CBitmap* captured = nullptr;
  RunAll(
      GetParam(),
      [&] {
        CVornDC dc;
        const CRect area(0, 0, 20, 20);
        captured = dc.GetWindowCapture(&window, &area, nullptr);
        return captured != nullptr;
      },
      [&] {
        BITMAP size = {};
        return captured->GetBitmap(&size) != 0 && size.bmWidth == 20 && size.bmHeight == 20;
      },
      [&] {
        delete captured;
        captured = nullptr;
      });
}

INSTANTIATE_TEST_SUITE_P(Each, WindowFault, testing::Values(Kind::Allocation, Kind::Call));

}  // namespace
