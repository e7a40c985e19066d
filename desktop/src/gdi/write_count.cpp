#include "write_count.h"

#include "../world.h"

namespace desktop {

namespace {

struct Watched {
  std::shared_ptr<const Surface> surface;
  RECT part{};
  std::vector<unsigned> counts;
};

Watched& TheWatched() {
  static auto& watched = *new Watched;
  return watched;
}

const RegisterReset g_reset(200, [] { EndWriteCount(); });

}  // namespace

bool g_countsWrites = false;

void BeginWriteCount(std::shared_ptr<const Surface> surface, const RECT& part) {
  Watched& watched = TheWatched();
  watched.surface = std::move(surface);
  watched.part = part;
  const auto pixels =
      static_cast<size_t>(part.right - part.left) * static_cast<size_t>(part.bottom - part.top);
  watched.counts.assign(pixels, 0);
  g_countsWrites = true;
}

std::vector<unsigned> EndWriteCount() {
  g_countsWrites = false;
  Watched ended;
  std::swap(ended, TheWatched());
  return std::move(ended.counts);
}

void CountWriteOn(const Surface* surface, const RECT& piece) {
  Watched& watched = TheWatched();
  RECT area;
  if (surface != watched.surface.get() || !IntersectRect(&area, &piece, &watched.part)) return;
  const auto width = static_cast<size_t>(watched.part.right - watched.part.left);
  for (int y = area.top; y < area.bottom; ++y) {
    const size_t row = static_cast<size_t>(y - watched.part.top) * width;
    for (int x = area.left; x < area.right; ++x)
      ++watched.counts[row + static_cast<size_t>(x - watched.part.left)];
  }
}

}  // namespace desktop
