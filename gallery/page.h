// A page of the gallery: a title and a painted area.
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
  // Paints into area; coordinates are those of the view.
  virtual void Paint(CDC& dc, const CRect& area, theme::Fonts& fonts) = 0;
  // The mouse is at point, in the coordinates of the view. Returns what is to be painted anew.
  virtual CRect TrackMouse(CPoint point, const CRect& area);
  // The view has painted a buffer of this size. Returns what shows it and is out of date now.
  virtual CRect NotePaint(CSize buffer, const CRect& area);
};

inline CRect GalleryPage::TrackMouse(CPoint, const CRect&) { return CRect(); }
inline CRect GalleryPage::NotePaint(CSize, const CRect&) { return CRect(); }

std::unique_ptr<GalleryPage> MakeWelcomePage(const CommandLine& commandLine);
std::unique_ptr<GalleryPage> MakeDrawingPage();
std::unique_ptr<GalleryPage> MakeAboutPage();
