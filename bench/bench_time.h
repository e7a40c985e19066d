// What the programs that time the tree share: a clock, the memory used, labels.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cwchar>
#include <ctime>
#include <vector>

#ifdef _WIN32
#include <windows.h>

#include <psapi.h>
#endif

// Measures processor time, which other programs do not disturb, in nanoseconds. On Windows that comes in
// large steps: there, what is short is measured by the clock.
class Stopwatch {
 public:
  double Elapsed() const {
    const double processor = Processor() - m_processor;
    return processor >= kTrusted ? processor : Clock() - m_clock;
  }

 private:
#ifdef _WIN32
  static constexpr double kTrusted = 200e6;
  static double Clock() {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::nano>(since).count();
  }
  static double Processor() {
    FILETIME begin, end, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &begin, &end, &kernel, &user);
    const auto number = [](const FILETIME& time) {
      return static_cast<double>(time.dwHighDateTime) * 4294967296.0 +
             static_cast<double>(time.dwLowDateTime);
    };
    constexpr double kStep = 100;
    return (number(kernel) + number(user)) * kStep;
  }
#else
  static constexpr double kTrusted = 0;
  static double Clock() { return 0; }
  static double Processor() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
  }
#endif

  double m_clock = Clock();
  double m_processor = Processor();
};

// Bytes of memory that the process uses now.
inline double UsedBytes() {
#ifdef _WIN32
  PROCESS_MEMORY_COUNTERS counters{};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
  return static_cast<double>(counters.WorkingSetSize);
#else
  constexpr double kPage = 4096;
  double all = 0, resident = 0;
  if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(file, "%lf %lf", &all, &resident) != 2) resident = 0;
    std::fclose(file);
  }
  return resident * kPage;
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
