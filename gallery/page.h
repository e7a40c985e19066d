// A page of the gallery: a title, and a painted area or a window of its own.
#pragma once

#include <afxwin.h>

#include <memory>

#include "command_line.h"
#include "theme.h"

class GalleryPage {
 public:
  virtual ~GalleryPage() = default;

  virtual CString Title() const = 0;
  virtual CString Subtitle() const = 0;

  // A page with a window makes it as the view's child, without showing it.
  virtual bool Create(CWnd&) { return true; }
  // The window, which covers the page's area; null for a painted page.
  virtual CWnd* Window() { return nullptr; }
  // Paints into area; coordinates are those of the view.
  virtual void Paint(CDC&, const CRect&, theme::Fonts&) {}
  // The mouse is at point, in the coordinates of the view. Returns what is to be painted anew.
  virtual CRect TrackMouse(CPoint, const CRect&) { return CRect(); }
  // The view has painted a buffer of this size. Returns what shows it and is out of date now.
  virtual CRect NotePaint(CSize, const CRect&) { return CRect(); }

  // The gallery stands on the screen: time for what takes long.
  virtual void Start() {}
  // Work for idle time; true if there is more.
  virtual bool Idle() { return false; }
  // What the status bar says of the page; empty for nothing of its own.
  virtual CString Detail() { return CString(); }
  virtual CString State() const { return CString(); }
  // Of the work under way, 0 to 100; -1 if there is none.
  virtual int Progress() const { return -1; }
};

std::unique_ptr<GalleryPage> MakeTreePage(const CommandLine& commandLine);
std::unique_ptr<GalleryPage> MakeWelcomePage();
std::unique_ptr<GalleryPage> MakeDrawingPage();
std::unique_ptr<GalleryPage> MakeAboutPage();
