// A whole host application: a window that is painted without flicker.
#include <VornComCtl.h>

#include <cstdio>

class Panel : public CWnd {
  void OnPaint() {
    CVornDC dc;
    if (!dc.BeginPaint(this)) return;
    dc.FillBack(RGB(20, 120, 220));
    dc.EndPaint(nullptr);
  }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Panel, CWnd)
  ON_WM_PAINT()
END_MESSAGE_MAP()

CWinApp theApp;

int main() {
  if (!AfxInitVornComCtl()) return 1;
  Panel panel;
  if (!panel.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_POPUP | WS_VISIBLE, CRect(10, 10, 90, 60),
                      nullptr, 0)) {
    return 2;
  }
  panel.UpdateWindow();
  const COLORREF seen = CClientDC(&panel).GetPixel(5, 5);
  panel.DestroyWindow();
  std::printf("%s: painted %06lx\n", VORNCOMCTL_get_module_info(1), static_cast<unsigned long>(seen));
  return seen == RGB(20, 120, 220) ? 0 : 3;
}
