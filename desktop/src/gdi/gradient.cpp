// Gradients between vertices.
#include <algorithm>

#include "../world.h"
#include "dib.h"
#include "paint.h"

namespace desktop {
namespace {

struct Channels {
  double red, green, blue;
};

Channels ChannelsOf(const TRIVERTEX& vertex) {
  return {static_cast<double>(vertex.Red), static_cast<double>(vertex.Green),
          static_cast<double>(vertex.Blue)};
}

uint32_t WordOf(const DeviceContext& dc, const Channels& c) {
  auto part = [](double value) { return static_cast<uint32_t>(std::clamp(value, 0.0, 65535.0)) >> 8; };
  uint32_t word = (part(c.red) << 16) | (part(c.green) << 8) | part(c.blue);
  return dc.IsMono() ? NearestMono(word) : word;
}

Channels Blend(const Channels& a, const Channels& b, double t) {
  return {a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t, a.blue + (b.blue - a.blue) * t};
}

void FillStripes(DeviceContext& dc, TRIVERTEX a, TRIVERTEX b, bool vertical) {
  if (vertical ? a.y > b.y : a.x > b.x) std::swap(a, b);
  POINT p = dc.ToSurface(a.x, a.y);
  POINT q = dc.ToSurface(b.x, b.y);
  if (p.x > q.x) std::swap(p.x, q.x);
  if (p.y > q.y) std::swap(p.y, q.y);
  RECT bounds = dc.Clip().Bounds();
  int length = vertical ? q.y - p.y : q.x - p.x;
  int first = std::max(0, vertical ? bounds.top - p.y : bounds.left - p.x);
  int last = std::min(length, vertical ? bounds.bottom - p.y : bounds.right - p.x);
  for (int i = first; i < last; ++i) {
    uint32_t word = WordOf(dc, Blend(ChannelsOf(a), ChannelsOf(b), static_cast<double>(i) / length));
    RECT stripe = vertical ? RECT{p.x, p.y + i, q.x, p.y + i + 1} : RECT{p.x + i, p.y, p.x + i + 1, q.y};
    FillArea(dc, stripe, SolidPaint(word), 0xf0);
  }
}

void FillTriangle(DeviceContext& dc, const TRIVERTEX& a, const TRIVERTEX& b, const TRIVERTEX& c) {
  POINT p = dc.ToSurface(a.x, a.y);
  POINT q = dc.ToSurface(b.x, b.y);
  POINT r = dc.ToSurface(c.x, c.y);
  double area = static_cast<double>(q.x - p.x) * (r.y - p.y) - static_cast<double>(r.x - p.x) * (q.y - p.y);
  if (area == 0) return;
  RECT box{std::min({p.x, q.x, r.x}), std::min({p.y, q.y, r.y}), std::max({p.x, q.x, r.x}),
           std::max({p.y, q.y, r.y})};
  Canvas canvas(dc);
  if (!canvas) return;
  ForEachPiece(dc, box, [&](const RECT& piece) {
    for (int y = piece.top; y < piece.bottom; ++y) {
      for (int x = piece.left; x < piece.right; ++x) {
        double u =
            (static_cast<double>(q.x - x) * (r.y - y) - static_cast<double>(r.x - x) * (q.y - y)) / area;
        double v =
            (static_cast<double>(r.x - x) * (p.y - y) - static_cast<double>(p.x - x) * (r.y - y)) / area;
        double w = 1 - u - v;
        if (u < 0 || v < 0 || w < 0) continue;
        Channels ca = ChannelsOf(a);
        Channels cb = ChannelsOf(b);
        Channels cc = ChannelsOf(c);
        Channels mixed{u * ca.red + v * cb.red + w * cc.red, u * ca.green + v * cb.green + w * cc.green,
                       u * ca.blue + v * cb.blue + w * cc.blue};
        canvas.Pixels().row(y)[x] = WordOf(dc, mixed);
      }
    }
  });
}

}  // namespace
}  // namespace desktop

using namespace desktop;

BOOL WINAPI GdiGradientFill(HDC handle, PTRIVERTEX vertices, ULONG vertexCount, PVOID mesh, ULONG meshCount,
                            ULONG mode) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !vertices || !mesh || !meshCount || mode > GRADIENT_FILL_TRIANGLE) return FALSE;
  if (mode == GRADIENT_FILL_TRIANGLE) {
    auto* triangles = static_cast<GRADIENT_TRIANGLE*>(mesh);
    for (ULONG i = 0; i < meshCount; ++i) {
      const GRADIENT_TRIANGLE& t = triangles[i];
      if (std::max({t.Vertex1, t.Vertex2, t.Vertex3}) >= vertexCount) return FALSE;
      FillTriangle(*dc, vertices[t.Vertex1], vertices[t.Vertex2], vertices[t.Vertex3]);
    }
    return TRUE;
  }
  auto* rects = static_cast<GRADIENT_RECT*>(mesh);
  for (ULONG i = 0; i < meshCount; ++i) {
    if (std::max(rects[i].UpperLeft, rects[i].LowerRight) >= vertexCount) return FALSE;
    FillStripes(*dc, vertices[rects[i].UpperLeft], vertices[rects[i].LowerRight],
                mode == GRADIENT_FILL_RECT_V);
  }
  return TRUE;
}

BOOL WINAPI GradientFill(HDC dc, PTRIVERTEX vertices, ULONG vertexCount, PVOID mesh, ULONG meshCount,
                         ULONG mode) {
  return GdiGradientFill(dc, vertices, vertexCount, mesh, meshCount, mode);
}
