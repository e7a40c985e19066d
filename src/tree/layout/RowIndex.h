// The rows of a tree by number, with the extents of all of them. Internal.
//
// Which items are rows, and how much room they take, is told by a walk. This keeps what such a walk has
// found, and is mended when single rows come and go, so that a tree of a million rows need not be walked
// for each of them. Whatever is not mended makes it stale: the next question walks again.
//
// It answers only while the counts of rows in the items are exact, for then all ways of walking agree.
// After some operations they are not; the caller then has to walk itself.
#pragma once

#include <memory>
#include <vector>

class CVornTreeItem;

namespace vorn {

class RowIndex {
 public:
  // Makes it ready to answer for the rows below root. false: it cannot, until something changes.
  bool Prepare(CVornTreeItem* root);
  bool IsReady() const { return m_state == State::Ready; }

  // --- Answers; only when ready ---
  int GetCount() const { return m_count; }
  // The row with this number, or null.
  CVornTreeItem* At(int index) const;
  // The number of a row; -1 for an item that is none.
  int IndexOf(const CVornTreeItem* item) const;
  // The greatest right end of a label and the sum of the heights. Asks items for what changed.
  void GetExtent(int& widest, int& height);

  // --- News ---
  // Something changed that is not told by the rest.
  void SetStale() { m_state = State::Stale; }
  // A child was linked.
  void OnLinked(CVornTreeItem* root, CVornTreeItem* item);
  // A child is about to be unlinked, with all below it.
  void OnUnlinking(CVornTreeItem* root, CVornTreeItem* item);
  // An item's height or label has changed.
  void OnResized(const CVornTreeItem* item);
  void OnAllResized();

 private:
  enum class State { Stale, Ready, Inexact };

  // A stretch of rows.
  struct Block {
    size_t ordinal = 0;  // its place among the blocks
    std::vector<CVornTreeItem*> rows;
  };

  struct Extent {
    int count = 0;
    int height = 0;
    int widest = 0;
    bool known = false;  // height and widest are up to date
  };

  static constexpr size_t kFullBlock = 512;
  static constexpr size_t kFreshBlock = 384;
  // So many changes with no question between them are not worth mending: a host fills or empties the tree.
  static constexpr int kMostChanges = 1000;

  bool Build(CVornTreeItem* root);
  void Clear();
  void Append(CVornTreeItem* item);
  void NoteBlock(const CVornTreeItem* item, unsigned number);
  void AddBlock(size_t ordinal);
  void Renumber(size_t first);
  void Split(size_t ordinal);
  void Measure(size_t ordinal);
  Block& BlockAt(size_t ordinal) const { return *m_blocks[m_order[ordinal]]; }
  const Block* BlockOf(const CVornTreeItem* item, size_t* within) const;
  int PlaceFor(const CVornTreeItem* root, const CVornTreeItem* item) const;
  bool CountChange();
  void Insert(CVornTreeItem* item, int index);
  void Remove(int index, int count);

  State m_state = State::Stale;
  int m_count = 0;
  int m_changes = 0;
  std::vector<std::unique_ptr<Block>> m_blocks;  // by number
  std::vector<unsigned> m_order;                 // numbers of the blocks in use, by place
  std::vector<Extent> m_extents;                 // by place
  std::vector<unsigned> m_blockOf;               // the block that last had an item, by the number of its slot
};

}  // namespace vorn
