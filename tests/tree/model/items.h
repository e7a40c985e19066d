// Items without the library's help: made, linked and deleted by the test.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "VornComCtl.h"
#include "tree/model/VornTreeItem.h"

namespace items {

// A root and what a test hangs below it; all of it goes at the end. The items belong to no control.
class Grove : public testing::Test {
 protected:
  Grove() : root(new CVornTreeItem(nullptr)) {
    root->m_nLevel = 0;
    root->m_nState = STIS_EXPANDED;
  }
  ~Grove() override {
    root->DestroyChildren();
    delete root;
  }

  CVornTreeItem* Add(CVornTreeItem* parent, const wchar_t* text = L"") {
    CVornTreeItem* const item = new CVornTreeItem(nullptr);
    item->SetText(text);
    parent->InsertAfter(item, nullptr);
    return item;
  }

  // The children of an item, by label.
  static std::wstring Children(const CVornTreeItem* parent) {
    std::wstring labels;
    const CVornTreeItem* before = nullptr;
    for (const CVornTreeItem* child = parent->m_pFirstChild; child != nullptr;
         child = child->m_pNextSibling) {
      EXPECT_EQ(child->m_pParent, parent);
      EXPECT_EQ(child->m_pPrevSibling, before);
      labels += child->GetText();
      before = child;
    }
    EXPECT_EQ(parent->m_pLastChild, before);
    return labels;
  }

  // Descendants, rows and hidden items below.
  static std::string Counts(const CVornTreeItem* item) {
    return std::to_string(item->m_nDescendants) + " " + std::to_string(item->m_nVisibleDescendants) + " " +
           std::to_string(item->m_nHiddenDescendants);
  }

  CVornTreeItem* const root;
};

}  // namespace items
