// The whole of what a window, its parent and its hooks were told, as lines of text.
//
//   Recorder log;
//   HostWindow host({.log = &log});
//   log.Only({WM_SETFOCUS, WM_KILLFOCUS});
//   ...
//   EXPECT_LOG(log, "host WM_SETFOCUS");
//
// A comparison reads the log and empties it. A log that nobody read fails the test.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace support {

class Recorder {
 public:
  Recorder();
  ~Recorder();  // fails the test when lines are left
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  // Records the messages of any window from now on, by subclassing it until it is destroyed or the
  // recorder ends.
  void Watch(HWND window, std::string name);

  // Which messages are recorded. At first: all but those that depend on the system's own
  // housekeeping (hit tests, cursor questions, input method, icons).
  void Only(std::initializer_list<UINT> messages);
  void Except(std::initializer_list<UINT> messages);
  void Everything();

  // Adds a line of the test's own: a hook with its items, a timer, a paint.
  void Note(const std::string& line);
  void RecordMessage(const std::string& name, UINT message, WPARAM wParam, LPARAM lParam);

  // Forgets what was recorded; for the part of a scene that the test is not about.
  void Clear();

  // Compares the whole log with the lines of text, and empties it. Blanks around lines and empty
  // lines do not count. A line that starts with '?' may be missing.
  testing::AssertionResult Matches(const std::string& expected);

  std::string Text() const;

  // While one lives nothing is recorded on this thread: what happens when a scene is taken down is
  // not part of it.
  class Mute {
   public:
    Mute();
    ~Mute();
    Mute(const Mute&) = delete;
    Mute& operator=(const Mute&) = delete;
  };

 private:
  class Subclass;
  bool Wanted(UINT message) const;

  std::vector<std::string> m_lines;
  std::vector<UINT> m_only;
  std::vector<UINT> m_except;
  std::vector<std::unique_ptr<Subclass>> m_watched;
};

// "WM_SIZE 0 100x50": the name of a message and what its parameters mean.
std::string DescribeMessage(UINT message, WPARAM wParam, LPARAM lParam);

// "A", "F2", "LEFT".
std::string KeyName(UINT virtualKey);

// Matches lines with expected ones, of which those that start with '?' may be missing.
bool LinesMatch(const std::vector<std::string>& expected, const std::vector<std::string>& actual);

// The lines of a text without blanks around them, without empty ones.
std::vector<std::string> SplitLines(const std::string& text);

// Both lists beside each other, with a mark where they part.
std::string SideBySide(const std::vector<std::string>& expected, const std::vector<std::string>& actual);

}  // namespace support

#define EXPECT_LOG(recorder, text) EXPECT_TRUE((recorder).Matches(text))
