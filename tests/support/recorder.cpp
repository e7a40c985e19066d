#include "support/recorder.h"

#include <algorithm>

namespace support {
namespace {

// Told to windows whenever the system likes, and different from one system to the next.
constexpr UINT kHousekeeping[] = {WM_NCHITTEST,     WM_SETCURSOR,      WM_GETICON,       WM_GETTEXT,
                                  WM_GETTEXTLENGTH, WM_IME_SETCONTEXT, WM_IME_NOTIFY,    WM_IME_REQUEST,
                                  WM_QUERYUISTATE,  WM_NCMOUSEMOVE,    WM_UPDATEUISTATE, WM_CHANGEUISTATE};

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string Required(const std::string& line) {
  return line.starts_with('?') ? Trimmed(line.substr(1)) : line;
}

}  // namespace

// A window whose messages are recorded.
class Recorder::Subclass {
 public:
  Subclass(Recorder& recorder, HWND window, std::string name)
      : m_recorder(recorder), m_window(window), m_name(std::move(name)) {
    // Not the window's own data: that belongs to whoever made it.
    m_next = this;
    std::swap(m_next, t_first);
    m_old = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
  }

  ~Subclass() {
    Restore();
    for (Subclass** link = &t_first; *link; link = &(*link)->m_next) {
      if (*link != this) continue;
      *link = m_next;
      break;
    }
  }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    for (Subclass* s = t_first; s; s = s->m_next) {
      if (s->m_window == window) return s->Receive(message, wParam, lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }

  LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    m_recorder.RecordMessage(m_name, message, wParam, lParam);
    const HWND window = m_window;
    const WNDPROC old = m_old;
    if (message == WM_NCDESTROY) Restore();
    return CallWindowProcW(old, window, message, wParam, lParam);
  }

  void Restore() {
    if (m_window && IsWindow(m_window)) {
      SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_old));
    }
    m_window = nullptr;
  }

  static thread_local Subclass* t_first;

  Recorder& m_recorder;
  HWND m_window;
  std::string m_name;
  WNDPROC m_old;
  Subclass* m_next;
};

thread_local Recorder::Subclass* Recorder::Subclass::t_first = nullptr;

namespace {
thread_local int t_muted = 0;
}

Recorder::Mute::Mute() { ++t_muted; }

Recorder::Mute::~Mute() { --t_muted; }

Recorder::Recorder() { Everything(); }

Recorder::~Recorder() {
  if (!m_lines.empty()) ADD_FAILURE() << "nobody read these lines of the log:\n" << Text();
}

void Recorder::Watch(HWND window, std::string name) {
  m_watched.push_back(std::make_unique<Subclass>(*this, window, std::move(name)));
}

void Recorder::Only(std::initializer_list<UINT> messages) { m_only = messages; }

void Recorder::Except(std::initializer_list<UINT> messages) {
  m_except.insert(m_except.end(), messages.begin(), messages.end());
}

void Recorder::Everything() {
  m_only.clear();
  m_except.assign(std::begin(kHousekeeping), std::end(kHousekeeping));
}

bool Recorder::Wanted(UINT message) const {
  const auto in = [message](const std::vector<UINT>& list) {
    return std::find(list.begin(), list.end(), message) != list.end();
  };
  return m_only.empty() ? !in(m_except) : in(m_only);
}

void Recorder::Note(const std::string& line) {
  if (t_muted == 0) m_lines.push_back(Trimmed(line));
}

void Recorder::RecordMessage(const std::string& name, UINT message, WPARAM wParam, LPARAM lParam) {
  if (Wanted(message)) Note(name + " " + DescribeMessage(message, wParam, lParam));
}

void Recorder::Clear() { m_lines.clear(); }

std::string Recorder::Text() const {
  std::string text;
  for (const std::string& line : m_lines) text += line + "\n";
  return text;
}

testing::AssertionResult Recorder::Matches(const std::string& expected) {
  const std::vector<std::string> wanted = SplitLines(expected);
  std::vector<std::string> actual;
  actual.swap(m_lines);
  if (LinesMatch(wanted, actual)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the log differs\n" << SideBySide(wanted, actual);
}

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start <= text.size()) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string line = Trimmed(text.substr(start, end - start));
    if (!line.empty()) lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

bool LinesMatch(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
  // reachable[i]: the first i actual lines can be explained by the expected lines seen so far.
  std::vector<bool> reachable(actual.size() + 1, false);
  reachable[0] = true;
  for (const std::string& line : expected) {
    const bool optional = line.starts_with('?');
    const std::string wanted = Required(line);
    std::vector<bool> next(actual.size() + 1, false);
    for (std::size_t i = 0; i <= actual.size(); ++i) {
      if (!reachable[i]) continue;
      if (optional) next[i] = true;
      if (i < actual.size() && actual[i] == wanted) next[i + 1] = true;
    }
    reachable.swap(next);
  }
  return reachable[actual.size()];
}

std::string SideBySide(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
  constexpr std::size_t kColumn = 48;
  std::string text;
  std::size_t e = 0;
  std::size_t a = 0;
  while (e < expected.size() || a < actual.size()) {
    const bool both = e < expected.size() && a < actual.size();
    const bool same = both && Required(expected[e]) == actual[a];
    if (!same && e < expected.size() && expected[e].starts_with('?')) {
      ++e;
      continue;
    }
    std::string left = e < expected.size() ? expected[e++] : "";
    left.resize(std::max(left.size(), kColumn), ' ');
    text += (same ? "   " : " ! ") + left + " | " + (a < actual.size() ? actual[a++] : "") + "\n";
  }
  return text;
}

}  // namespace support
