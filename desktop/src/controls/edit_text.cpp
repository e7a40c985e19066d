// EDIT: text, selection, undo and clipboard.
#include <algorithm>

#include "controls/edit.h"

namespace desktop {

// Undo is one step that grows: deletions at its edge add to the deleted text, insertions at its edge to the
// inserted length. Anything elsewhere starts it anew.
void Edit::RecordDeletion(size_t at, const std::wstring& deleted) {
  const bool grows = m_undoInserted == 0 && !m_undoText.empty();
  if (grows && at == m_undoPosition) {
    m_undoText += deleted;
  } else if (grows && at + deleted.size() == m_undoPosition) {
    m_undoText = deleted + m_undoText;
    m_undoPosition = at;
  } else {
    m_undoText = deleted;
    m_undoPosition = at;
  }
  m_undoInserted = 0;
}

void Edit::RecordInsertion(size_t at, size_t length) {
  if (at == m_undoPosition || (m_undoInserted && at == m_undoPosition + m_undoInserted)) {
    m_undoInserted += length;
    return;
  }
  m_undoPosition = at;
  m_undoInserted = length;
  m_undoText.clear();
}

void Edit::ForgetUndo() {
  m_undoText.clear();
  m_undoPosition = 0;
  m_undoInserted = 0;
}

// Text that is typed must not grow out of a control that does not scroll.
bool Edit::FitsNot() const {
  if (IsMultiline()) {
    const bool scrolls = (m_style & ES_AUTOVSCROLL) != 0;
    return !scrolls && m_lines.size() > static_cast<size_t>(VisibleLines());
  }
  if (m_style & ES_AUTOHSCROLL) return false;
  return Width(0, m_text.size()) > m_format.right - m_format.left;
}

void Edit::Replace(const std::wstring& text, Undo undo, Limit limit, bool update) {
  const Selection range = Sel();
  const size_t selected = range.high - range.low;
  if (selected == 0 && text.empty()) return;

  std::wstring inserted = Adapted(text);
  bool cut = false;
  if (limit == Limit::honored && m_limit) {
    const size_t rest = m_text.size() - selected;
    const size_t room = m_limit > rest ? m_limit - rest : 0;
    cut = inserted.size() > room;
    if (cut) inserted.resize(room);
    if (cut) Notify(EN_MAXTEXT);
  }

  const std::wstring deleted = m_text.substr(range.low, selected);
  m_text.replace(range.low, selected, inserted);
  BuildLines();
  if (limit == Limit::honored && !inserted.empty() && FitsNot()) {
    while (!inserted.empty() && FitsNot()) {
      m_text.erase(range.low + inserted.size() - 1, 1);
      inserted.pop_back();
      BuildLines();
    }
    Notify(EN_MAXTEXT);
  }

  if (undo == Undo::forgotten) {
    ForgetUndo();
  } else {
    if (selected) RecordDeletion(range.low, deleted);
    if (!inserted.empty()) RecordInsertion(range.low, inserted.size());
  }
  m_start = m_end = std::min(range.low + inserted.size(), m_text.size());
  m_modified = true;
  UpdateScrollBars();
  ScrollCaret();
  if (update) Notify(EN_UPDATE);
  InvalidateText();
  if (update) Notify(EN_CHANGE);
}

void Edit::SetSelection(size_t start, size_t end) {
  start = std::min(start, m_text.size());
  end = std::min(end, m_text.size());
  if (start == m_start && end == m_end) return;
  const bool wasEmpty = m_start == m_end;
  m_start = start;
  m_end = end;
  PlaceCaret();
  if (!wasEmpty || start != end) InvalidateText();
}

// EM_SETSEL: a start of -1 empties the selection, an end of -1 means the end of the text.
void Edit::SetSelectionByMessage(long long start, long long end) {
  if (start == -1) return SetSelection(m_end, m_end);
  const size_t length = m_text.size();
  const size_t from = std::min(static_cast<size_t>(start), length);
  const size_t to = end < 0 ? length : std::min(static_cast<size_t>(end), length);
  // The caret is at the end, which may lie before the start.
  SetSelection(from, to);
}

void Edit::DoUndo() {
  if (IsReadOnly() || (m_undoText.empty() && !m_undoInserted)) return;
  const std::wstring text = m_undoText;
  const size_t position = m_undoPosition;
  const size_t inserted = m_undoInserted;
  SetSelection(position, position + inserted);
  ForgetUndo();
  Replace(text, Undo::kept, Limit::honored, true);
  SetSelection(m_undoPosition, m_undoPosition + m_undoInserted);
  Notify(EN_CHANGE);
  ScrollCaret();
}

void Edit::Copy() const {
  const Selection range = Sel();
  if (range.low == range.high || m_password) return;
  const size_t length = range.high - range.low;
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (length + 1) * sizeof(WCHAR));
  if (!memory) return;
  m_text.copy(static_cast<LPWSTR>(GlobalLock(memory)), length, range.low);
  GlobalUnlock(memory);
  if (!OpenClipboard(Window())) {
    GlobalFree(memory);
    return;
  }
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, memory);
  CloseClipboard();
}

void Edit::Cut() {
  Copy();
  if (!IsReadOnly() && !m_password) ClearSelection(Undo::kept);
}

void Edit::Paste() {
  if (IsReadOnly() || !OpenClipboard(Window())) return;
  std::wstring text;
  bool found = false;
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  if (const auto* data = memory ? static_cast<LPCWSTR>(GlobalLock(memory)) : nullptr) {
    text.assign(data, wcsnlen(data, GlobalSize(memory) / sizeof(WCHAR)));
    found = true;
    GlobalUnlock(memory);
  }
  CloseClipboard();
  // One line takes the first line of what comes.
  if (!IsMultiline()) text.resize(std::min(text.find_first_of(L"\r\n"), text.size()));
  if (found) Replace(text, Undo::kept, Limit::honored, true);
}

std::wstring Edit::Adapted(std::wstring text) const {
  if (m_style & ES_UPPERCASE) CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  if (m_style & ES_LOWERCASE) CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

}  // namespace desktop
