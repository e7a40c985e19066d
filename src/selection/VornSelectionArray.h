// The documents of a tree with their selection managers, by address of the document.
#pragma once

#include "../core/VornComCtlApi.h"
#include "../core/VornSortedArray.h"
#include "../tree/VornTreeTypes.h"

class CVornTreeCtrl;
class CVornTreeSelection;

struct tagAssocSelItem {
  CVornTreeItem* pDocument;      // not owned; the key
  CVornTreeSelection* pManager;  // owned
};

// Owns its records and their managers from FindOrCreateManager until RemoveDocument or RemoveAllDocuments.
class VORNCOMCTL_API CVornSelectionArray : public TVornSortedArray_byValue<tagAssocSelItem*, CVornTreeItem*> {
 public:
  CVornSelectionArray();

  int IsLower(tagAssocSelItem*& a, tagAssocSelItem*& b) override;
  int IsEqual(tagAssocSelItem*& a, tagAssocSelItem*& b) override;
  int IsLowerAdv(tagAssocSelItem*& record, CVornTreeItem*& document) override;
  int IsEqualAdv(tagAssocSelItem*& record, CVornTreeItem*& document) override;

  // The manager of a document, made if need be. Null for an invalid item or when memory is short.
  CVornTreeSelection* FindOrCreateManager(CVornTreeCtrl* tree, CVornTreeItem* document);
  bool HasManager(const CVornTreeSelection* manager) const;
  void RemoveDocument(CVornTreeItem* document);
  void RemoveDeadDocuments();
  void RemoveAllDocuments();
};
