// Fills a tree with very many items, a slice at a time, so that the window stays alive meanwhile.
#pragma once

#include <VornComCtl.h>

class BulkFill {
 public:
  // Adds a document that will hold count items, in groups of a thousand. Ends a filling under way.
  void Start(CVornTreeCtrl& tree, int count, int image, int selectedImage);
  // Adds the next slice; false when nothing is left to do. Ends early if the document has gone.
  bool Step();
  // Leaves what is there.
  void Cancel() { m_document = nullptr; }
  // To be told by the tree's hook: the item, with all below it, goes.
  void NoteDeletion(CVornTreeItem* item);

  bool IsRunning() const { return m_document != nullptr; }
  int Done() const { return m_done; }
  int Total() const { return m_total; }
  // What the slices took so far, in seconds.
  double Seconds() const { return m_seconds; }

 private:
  void Add();

  CVornTreeCtrl* m_tree = nullptr;
  CVornTreeItem* m_document = nullptr;  // null while none is being filled
  CVornTreeItem* m_group = nullptr;
  int m_image = -1;
  int m_selectedImage = -1;
  int m_done = 0;
  int m_total = 0;
  double m_seconds = 0;
};
