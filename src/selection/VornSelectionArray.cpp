#include "VornSelectionArray.h"

#include <cstdint>
#include <memory>
#include <new>

#include "../tree/model/VornTreeItem.h"
#include "VornTreeSelection.h"

namespace {

std::uintptr_t AddressOf(const CVornTreeItem* item) { return reinterpret_cast<std::uintptr_t>(item); }

}  // namespace

CVornSelectionArray::CVornSelectionArray() { SetEmptyData(nullptr); }

int CVornSelectionArray::IsLower(tagAssocSelItem*& a, tagAssocSelItem*& b) {
  return AddressOf(a->pDocument) < AddressOf(b->pDocument);
}

int CVornSelectionArray::IsEqual(tagAssocSelItem*& a, tagAssocSelItem*& b) {
  return a->pDocument == b->pDocument;
}

int CVornSelectionArray::IsLowerAdv(tagAssocSelItem*& record, CVornTreeItem*& document) {
  return AddressOf(record->pDocument) < AddressOf(document);
}

int CVornSelectionArray::IsEqualAdv(tagAssocSelItem*& record, CVornTreeItem*& document) {
  return record->pDocument == document;
}

CVornTreeSelection* CVornSelectionArray::FindOrCreateManager(CVornTreeCtrl* tree, CVornTreeItem* document) {
  if (!IsItemValid(document)) return nullptr;
  if (tagAssocSelItem** found = FindAdv(document)) return (*found)->pManager;
  std::unique_ptr<tagAssocSelItem> record(new (std::nothrow) tagAssocSelItem{document, nullptr});
  std::unique_ptr<CVornTreeSelection> manager(new (std::nothrow) CVornTreeSelection(tree));
  if (record == nullptr || manager == nullptr || !Add(record.get(), nullptr)) return nullptr;
  record->pManager = manager.release();
  return record.release()->pManager;
}

bool CVornSelectionArray::HasManager(const CVornTreeSelection* manager) const {
  for (long i = 0; i < GetSize(); ++i) {
    if ((*this)[i]->pManager == manager) return true;
  }
  return false;
}

void CVornSelectionArray::RemoveDocument(CVornTreeItem* document) {
  tagAssocSelItem** found = FindAdv(document);
  if (found == nullptr) return;
  const std::unique_ptr<tagAssocSelItem> record(*found);
  RemoveAt(static_cast<long>(found - Array()));
  delete record->pManager;
}

void CVornSelectionArray::RemoveDeadDocuments() {
  tagAssocSelItem** const list = Array();
  const long count = GetSize();
  long kept = 0;
  for (long i = 0; i < count; ++i) {
    if (IsItemValid(list[i]->pDocument)) {
      list[kept++] = list[i];
    } else {
      delete list[i]->pManager;
      delete list[i];
    }
  }
  Remove(kept, count - kept);
}

void CVornSelectionArray::RemoveAllDocuments() {
  for (long i = 0; i < GetSize(); ++i) {
    delete (*this)[i]->pManager;
    delete (*this)[i];
  }
  RemoveAll();
}
