#include "bulk_fill.h"

#include <algorithm>
#include <chrono>

#include "french.h"

namespace {

constexpr int kGroup = 1000;   // a group with its items
constexpr int kSlice = 10000;  // items per step: a few hundredths of a second

}  // namespace

void BulkFill::Start(CVornTreeCtrl& tree, int count, int image, int selectedImage) {
  m_tree = &tree;
  m_image = image;
  m_selectedImage = selectedImage;
  m_group = nullptr;
  m_done = 0;
  m_total = count;
  m_seconds = 0;
  m_document = tree.InsertItem(french::Count(count, L"élément", L"éléments"), image, selectedImage);
}

bool BulkFill::Step() {
  if (!IsRunning()) return false;
  const auto start = std::chrono::steady_clock::now();
  m_tree->SetRedraw(FALSE);
  const int end = std::min(m_done + kSlice, m_total);
  while (m_done < end) Add();
  if (m_done == m_total) m_tree->Expand(m_document, STE_EXPAND);
  m_tree->SetRedraw(TRUE);
  m_seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  if (m_done == m_total) m_document = nullptr;
  return IsRunning();
}

void BulkFill::Add() {
  const bool first = m_group == nullptr || m_done % kGroup == 0;
  CString text;
  text.Format(first ? L"Groupe %d" : L"Élément %d", first ? m_done / kGroup + 1 : m_done + 1);
  CVornTreeItem* const item =
      m_tree->InsertItem(text, m_image, m_selectedImage, first ? m_document : m_group);
  if (first) m_group = item;
  ++m_done;
}

void BulkFill::NoteDeletion(CVornTreeItem* item) {
  if (!IsRunning()) return;
  if (item == STI_ROOT || item == m_document) {
    Cancel();
  } else if (m_group != nullptr && m_tree->IsParentItemOf(item, m_group)) {
    // The items of the group that has gone go on in a group of their own.
    m_group = nullptr;
  }
}
