// Graphics objects and the table that holds them. All of it expects that the lock is held.
#pragma once

#include <memory>
#include <vector>

#include <windows.h>

#include "region.h"

namespace desktop {

// What a GDI handle names.
struct GdiObject {
  explicit GdiObject(DWORD objectType) : type(objectType) {}
  virtual ~GdiObject() = default;
  GdiObject(const GdiObject&) = delete;
  GdiObject& operator=(const GdiObject&) = delete;

  // GetObjectW: what it writes into the buffer, or the size needed when buffer is null.
  virtual int Describe(int size, void* buffer) const;

  DWORD type;           // OBJ_*
  bool stock = false;   // never dies
  bool doomed = false;  // deleted while selected: dies when the last DC lets it go
  int selections = 0;   // DCs, saved states included, that hold it
};

struct RegionObject : GdiObject {
  explicit RegionObject(Region r = {}) : GdiObject(OBJ_REGION), region(std::move(r)) {}
  Region region;
};

struct Pen : GdiObject {
  Pen() : GdiObject(OBJ_PEN) {}
  int Describe(int size, void* buffer) const override;

  DWORD style = PS_SOLID;  // with cap, join and type bits
  int width = 0;
  COLORREF color = 0;
  bool usesDcColor = false;
  std::vector<DWORD> dashes;  // PS_USERSTYLE
};

// The pixels of a pattern brush: a copy of the bitmap taken at creation.
struct Pattern {
  int width = 0;
  int height = 0;
  bool mono = false;  // white means background colour, black means text colour
  std::vector<uint32_t> pixels;
};

struct Brush : GdiObject {
  Brush() : GdiObject(OBJ_BRUSH) {}
  int Describe(int size, void* buffer) const override;

  UINT style = BS_SOLID;
  COLORREF color = 0;
  ULONG_PTR hatch = 0;  // LOGBRUSH::lbHatch as given
  bool usesDcColor = false;
  int systemColor = -1;  // follows this system colour
  Pattern pattern;
};

// A new handle for an object; null when a failure was asked for or the table is full.
HGDIOBJ AddObject(std::unique_ptr<GdiObject> object);
// The same without asking for a failure, for objects that belong to the desktop itself.
HGDIOBJ AddStockObject(std::unique_ptr<GdiObject> object);
GdiObject* FindObject(HGDIOBJ handle);

template <typename T>
T* FindObjectAs(HGDIOBJ handle, DWORD type) {
  GdiObject* object = FindObject(handle);
  return object && object->type == type ? static_cast<T*>(object) : nullptr;
}
Pen* FindPen(HGDIOBJ handle);
Brush* FindBrush(HGDIOBJ handle);

// Counted while a DC holds the object. Letting a doomed object go for the last time frees it.
void HoldObject(HGDIOBJ handle);
void LetObjectGo(HGDIOBJ handle);

// Frees an object whatever its state.
void FreeObject(HGDIOBJ handle);

// Resolves the "system colour index plus one" that FillRect and window classes allow.
HBRUSH ResolveBrush(HBRUSH brush);

// Copies a record into a GetObjectW buffer of `size` bytes as far as it goes.
int DescribeAs(const void* record, int recordSize, int size, void* buffer);

}  // namespace desktop
