// The table of graphics objects, their lives, and the calls that treat all kinds alike.
#include "object.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "../world.h"
#include "bitmap.h"
#include "device_context.h"
#include "handle_table.h"
#include "icon.h"
#include "image_list.h"
#include "window_dc.h"

namespace desktop {
namespace {

// Never destroyed: handles may still be used while other statics die.
HandleTable<GdiObject>& Objects() {
  static auto& table = *new HandleTable<GdiObject>(1);
  return table;
}

bool IsDC(const GdiObject& object) { return object.type == OBJ_DC || object.type == OBJ_MEMDC; }

}  // namespace

int DescribeAs(const void* record, int recordSize, int size, void* buffer) {
  if (!buffer) return recordSize;
  int count = std::clamp(size, 0, recordSize);
  std::memcpy(buffer, record, static_cast<size_t>(count));
  return count;
}

int GdiObject::Describe(int, void*) const { return 0; }

HGDIOBJ AddStockObject(std::unique_ptr<GdiObject> object) {
  object->stock = true;
  return Objects().Add(std::move(object));
}

HGDIOBJ AddObject(std::unique_ptr<GdiObject> object) {
  if (FailsHere()) return nullptr;
  return Objects().Add(std::move(object));
}

GdiObject* FindObject(HGDIOBJ handle) { return Objects().Find(handle); }

Pen* FindPen(HGDIOBJ handle) {
  GdiObject* object = FindObject(handle);
  bool isPen = object && (object->type == OBJ_PEN || object->type == OBJ_EXTPEN);
  return isPen ? static_cast<Pen*>(object) : nullptr;
}

Brush* FindBrush(HGDIOBJ handle) { return FindObjectAs<Brush>(handle, OBJ_BRUSH); }

Bitmap* FindBitmap(HGDIOBJ handle) { return FindObjectAs<Bitmap>(handle, OBJ_BITMAP); }

Region* RegionFromHandle(HRGN handle) {
  auto* object = FindObjectAs<RegionObject>(handle, OBJ_REGION);
  return object ? &object->region : nullptr;
}

DeviceContext* FindDC(HDC handle) {
  GdiObject* object = FindObject(handle);
  return object && IsDC(*object) ? static_cast<DeviceContext*>(object) : nullptr;
}

void HoldObject(HGDIOBJ handle) {
  if (GdiObject* object = FindObject(handle)) ++object->selections;
}

void LetObjectGo(HGDIOBJ handle) {
  GdiObject* object = FindObject(handle);
  if (!object) return;
  if (--object->selections == 0 && object->doomed) FreeObject(handle);
}

void FreeObject(HGDIOBJ handle) { Objects().Remove(handle); }

int LiveDCs() {
  int count = 0;
  Objects().ForEach([&](void*, GdiObject& object) { count += IsDC(object) ? 1 : 0; });
  return count;
}

int LiveGdiObjects() {
  int count = LiveIcons();
  Objects().ForEach([&](void*, GdiObject& object) { count += !object.stock && !IsDC(object) ? 1 : 0; });
  return count;
}

void ResetGdi() {
  ResetImageLists();
  ResetIcons();
  std::vector<HGDIOBJ> dcs;
  Objects().ForEach([&](void* handle, GdiObject& object) {
    if (IsDC(object)) dcs.push_back(handle);
  });
  for (HGDIOBJ dc : dcs) FreeDC(*FindDC(static_cast<HDC>(dc)));
  std::vector<HGDIOBJ> rest;
  Objects().ForEach([&](void* handle, GdiObject& object) {
    if (!object.stock) rest.push_back(handle);
  });
  for (HGDIOBJ object : rest) FreeObject(object);
}

}  // namespace desktop

using namespace desktop;

BOOL WINAPI DeleteObject(HGDIOBJ handle) {
  WorldLock lock(WorldMutex());
  GdiObject* object = FindObject(handle);
  if (!object) return FALSE;
  if (IsDC(*object)) return DeleteDC(static_cast<HDC>(handle));
  if (object->stock) return TRUE;
  if (object->selections > 0) {
    object->doomed = true;
    return TRUE;
  }
  FreeObject(handle);
  return TRUE;
}

DWORD WINAPI GetObjectType(HGDIOBJ handle) {
  WorldLock lock(WorldMutex());
  GdiObject* object = FindObject(handle);
  return object ? object->type : 0;
}

int WINAPI GetObjectW(HANDLE handle, int size, LPVOID buffer) {
  WorldLock lock(WorldMutex());
  GdiObject* object = FindObject(handle);
  return object ? object->Describe(size, buffer) : 0;
}

BOOL WINAPI UnrealizeObject(HGDIOBJ handle) {
  WorldLock lock(WorldMutex());
  return FindObject(handle) ? TRUE : FALSE;
}
