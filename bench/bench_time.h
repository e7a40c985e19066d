// What the programs that time the tree share: a clock and labels.
#pragma once

#include <chrono>
#include <cstddef>
#include <cwchar>
#include <ctime>
#include <vector>

// Nanoseconds of processor time, which other programs do not disturb; on Windows, where that comes in
// large steps, nanoseconds by the clock.
inline double Now() {
#ifdef _WIN32
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::nano>(since).count();
#else
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
#endif
}

// Labels of twelve letters in no order, made beforehand.
class Labels {
 public:
  explicit Labels(std::size_t count) : m_text(count * kSize) {
    for (std::size_t i = 0; i < count; ++i) {
      const unsigned mixed = static_cast<unsigned>(i) * 2654435761u;
      std::swprintf(&m_text[i * kSize], kSize, L"item%08x", mixed);
    }
  }
  const wchar_t* operator[](std::size_t i) const { return &m_text[i * kSize]; }

 private:
  static constexpr std::size_t kSize = 13;
  std::vector<wchar_t> m_text;
};
