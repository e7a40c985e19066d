// Public operations of the control, with arguments of any kind.
#include <iterator>

#include "scene.h"

namespace fuzz {

namespace {

using Call = void (*)(Scene&, const Step&);

void InsertSimple(Scene& scene, const Step& step) {
  scene.Keep(scene.tree.InsertItem(scene.Text(step.first), step.first % 6 - 1, step.first % 5 - 1,
                                   scene.Item(step.second), scene.Item(step.third),
                                   static_cast<unsigned __int64>(step.first % 7)));
}

void InsertUnder(Scene& scene, const Step& step) {
  scene.Keep(scene.tree.InsertItem(scene.Text(step.third), 0, 1, scene.Item(step.second)));
}

void InsertRecord(Scene& scene, const Step& step) {
  STINSERTSTRUCT insert{};
  insert.hParent = scene.Item(step.second);
  insert.hInsertAfter = step.third % 2 ? STI_LAST : scene.Item(step.third);
  insert.item.mask = step.third & 0x7F;
  wchar_t text[] = L"du texte";
  insert.item.pszText = text;
  insert.item.cchTextMax = step.third % std::size(text);
  insert.item.state = insert.item.stateMask = static_cast<unsigned>(step.third) << (step.second % 17);
  insert.item.iImage = scene.Number(step.third);
  insert.item.iSelectedImage = step.second % 5 - 1;
  insert.item.cChildren = step.second & 1;
  scene.Keep(scene.tree.InsertItem(&insert));
}

void UseRecord(Scene& scene, const Step& step) {
  STITEM record{};
  record.mask = step.third & 0x7F;
  record.hItem = scene.Item(step.second);
  wchar_t text[] = L"autre texte";
  record.pszText = text;
  record.cchTextMax = step.third % std::size(text);
  record.state = record.stateMask = step.third;
  scene.tree.SetItem(&record);
  scene.tree.GetItem(&record);
}

// Another thread may add items and ask for layout. The window's own thread waits for it, so that a message
// sent across would never be answered.
void InsertFromAnotherThread(Scene& scene, const Step& step) {
  if (scene.InHook()) return;
  struct Work {
    Scene& scene;
    CVornTreeItem* parent;
    CVornTreeItem* made;
  } work{scene, scene.Item(step.second), nullptr};
  const auto run = [](void* parameter) -> DWORD {
    Work& mine = *static_cast<Work*>(parameter);
    mine.scene.tree.SetRedraw(FALSE);
    mine.made = mine.scene.tree.InsertItem(L"ailleurs", 0, 1, mine.parent);
    mine.scene.tree.SetRedraw(TRUE);
    return 0;
  };
  const auto answer = std::exchange(scene.tree.answer, nullptr);
  HANDLE thread = CreateThread(nullptr, 0, run, &work, 0, nullptr);
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
  scene.tree.answer = answer;
  scene.Keep(work.made);
}

int CALLBACK CompareData(LPARAM a, LPARAM b, LPARAM) { return a < b ? -1 : a > b; }

void Sort(Scene& scene, const Step& step) {
  STSORTCB sort{scene.Item(step.second), CompareData, 0};
  if (step.third % 2) {
    scene.tree.SortChildren(&sort);
  } else {
    scene.tree.SortChildrenByName(sort.hParent);
  }
}

void Look(Scene& scene, const Step& step) {
  HostileTree& tree = scene.tree;
  CVornTreeItem* const item = scene.Item(step.second);
  CString text;
  tree.GetItemFullText(item, text);
  tree.GetItemFromFullPathName(text);
  tree.GetItemFromName(scene.Text(step.third), item, step.first % 7);
  tree.GetItemFromItemData(step.third % 7, item);
  tree.GetItemPosition(item);
  tree.GetNextItem(item, step.third % 12);
  tree.IsParentItemOf(item, scene.Item(step.third));
  tree.GetLastVisibleItem(item);
  tree.GetPrevVisibleItem(item);
  tree.GetNextVisibleItem(item);
  tree.GetVisibleCount();
  CVornTreeItemArray items, selection;
  tree.GetHiddenItems(items);
  tree.GetParentList(item, items);
  tree.GetCurrentSelection(selection);  // shares the manager's own list: not to be added to
}

void LookAtScreen(Scene& scene, const Step& step) {
  unsigned int zone = 0;
  CRect rect;
  scene.tree.GetItemRect(scene.tree.HitTest(scene.Point(step.second, step.third), &zone), rect,
                         step.first & 1);
  int cx = 0, cy = 0;
  scene.tree.GetSize(cx, cy);
  scene.tree.GetItemRect(scene.Item(step.second), rect, 1);
}

void ChangeStyle(Scene& scene, const Step& step) {
  if (scene.tree.GetSafeHwnd() == nullptr) return;
  constexpr DWORD kStyles[] = {STS_HASBUTTONS,    STS_HASLINES,      STS_LINESATROOT, STS_EDITLABELS,
                               STS_SHOWSELALWAYS, STS_EXPANDEDIMAGE, STS_CHECKBOXES,  STS_IMAGEBUTTONS,
                               STS_HOTTRACK,      STS_LEFTDRAG,      STS_RIGHTDRAG,   STS_SCROLLONEXPAND,
                               STS_FOREIGNDROPS,  WS_DISABLED,       WS_BORDER,       WS_VSCROLL};
  const DWORD style = kStyles[step.second % std::size(kStyles)];
  scene.tree.ModifyStyle(step.third % 2 ? style : 0, step.third % 2 ? 0 : style);
}

void Resize(Scene& scene, const Step& step) {
  if (scene.tree.GetSafeHwnd() != nullptr) scene.tree.MoveWindow(10, 10, step.second, step.third);
}

void EndTheWindow(Scene& scene, const Step& step) {
  if (step.second % 16 == 0 && scene.tree.GetSafeHwnd() != nullptr) scene.tree.DestroyWindow();
}

void EndTheBox(Scene& scene, const Step& step) {
  if (scene.Box() != nullptr && step.second % 4 == 0) ::DestroyWindow(scene.Box());
}

void ShowABox(Scene& scene, const Step& step) {
  if (step.second % 32 == 0) ::MessageBoxW(scene.frame, L"?", L"?", MB_OK);
}

void Disable(Scene& scene, const Step& step) {
  if (scene.tree.GetSafeHwnd() != nullptr) scene.tree.EnableWindow(step.second % 2);
}

void Show(Scene& scene, const Step& step) {
  if (scene.tree.GetSafeHwnd() != nullptr) scene.tree.ShowWindow(step.second % 2 ? SW_SHOW : SW_HIDE);
}

// Twice in a row: what is done often in a host. Each takes the scene s and the step p.
const Call kCalls[] = {
    InsertSimple,
    InsertUnder,
    InsertUnder,
    InsertUnder,
    InsertRecord,
    UseRecord,
    InsertFromAnotherThread,
    Sort,
    Look,
    LookAtScreen,
    ChangeStyle,
    ChangeStyle,
    Resize,
    EndTheWindow,
    EndTheBox,
    ShowABox,
    Disable,
    Show,
    [](Scene& s, const Step& p) { s.tree.DeleteItem(s.Item(p.second)); },
    [](Scene& s, const Step& p) {
      if (p.third % 8 == 0) s.tree.DeleteAllItems(s.Item(p.second));
    },
    [](Scene& s, const Step& p) { s.tree.MoveItem(s.Item(p.second), s.Item(p.third), STI_LAST); },
    [](Scene& s, const Step& p) {
      s.Keep(s.tree.CreateShortcut(s.Item(p.second), s.Item(p.third), STI_FIRST));
    },
    [](Scene& s, const Step& p) { s.tree.SetItemText(s.Item(p.second), s.Text(p.third)); },
    [](Scene& s, const Step& p) { s.tree.SetItemData(s.Item(p.second), p.third); },
    [](Scene& s, const Step& p) {
      s.tree.SetItemImage(s.Item(p.second), p.third % 6 - 1, s.Number(p.third));
    },
    [](Scene& s, const Step& p) { s.tree.SetItemImageState(s.Item(p.second), p.third % 6 - 1); },
    [](Scene& s, const Step& p) { s.tree.SetItemState(s.Item(p.second), 1u << (p.third % 24)); },
    [](Scene& s, const Step& p) { s.tree.ModifyItemState(s.Item(p.second), p.third, 1u << (p.first % 24)); },
    [](Scene& s, const Step& p) { s.tree.SetCheckBox(s.Item(p.second), p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.SetItemCheck(s.Item(p.second), p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.SetItemBold(s.Item(p.second), p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.SetItemFont(s.Item(p.second), s.Font(p.third)); },
    [](Scene& s, const Step& p) { s.tree.UpdateItemFont(s.Item(p.second), 1u << (p.third % 12)); },
    [](Scene& s, const Step& p) { s.tree.SetItemTextColor(s.Item(p.second), RGB(p.third, 0, 0)); },
    [](Scene& s, const Step& p) { s.tree.SetItemBkColor(s.Item(p.second), RGB(0, p.third, 0)); },
    [](Scene& s, const Step& p) { s.tree.SetImageList(s.Images(p.second), VornTreeImageList(p.third % 4)); },
    [](Scene& s, const Step& p) { s.tree.DetachImageList(VornTreeImageList(p.third % 4)); },
    [](Scene& s, const Step& p) { s.tree.SetFont(s.Font(p.second), p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.SetBkColor(p.second % 2 ? ST_CLR_NONE : RGB(p.third, p.third, 0)); },
    [](Scene& s, const Step& p) { s.tree.SetItemVisibility(s.Item(p.second), p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.LockItemVisibility(s.Item(p.second), p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.UnlockItemVisibility(s.Item(p.second)); },
    [](Scene& s, const Step& p) { s.tree.SetDocumentDisplay(p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.Expand(s.Item(p.second), p.third % 7u | ((p.first & 3u) << 14)); },
    [](Scene& s, const Step& p) { s.tree.Expand(s.Item(p.second), STE_EXPAND); },
    [](Scene& s, const Step& p) { s.tree.EnsureVisible(s.Item(p.second)); },
    [](Scene& s, const Step& p) { s.tree.SetFirstVisible(s.Item(p.second)); },
    [](Scene& s, const Step& p) { s.tree.SelectSetFirstVisible(s.Item(p.second)); },
    [](Scene& s, const Step& p) { s.tree.Select(s.Item(p.second), p.third % 16); },
    [](Scene& s, const Step& p) { s.tree.SelectItem(s.Item(p.second), p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.UnselectItem(s.Item(p.second)); },
    [](Scene& s, const Step& p) { s.tree.ClearSelection(s.Item(p.second)); },
    [](Scene& s, const Step& p) { s.tree.UpdateSelection(s.Item(p.second), 1u << (p.third % 12)); },
    [](Scene& s, const Step& p) { s.tree.ModifySelectionType(p.second & 0x3Fu, p.third & 0x3Fu); },
    [](Scene& s, const Step& p) { s.tree.EnableMultipleSelection(p.second & 1); },
    [](Scene& s, const Step& p) { s.tree.EnableSelectionByDocuments(p.second & 1); },
    [](Scene& s, const Step& p) { s.tree.EnableAutoSelection(p.second & 1); },
    [](Scene& s, const Step& p) { s.tree.EditLabel(s.Item(p.second)); },
    [](Scene& s, const Step& p) { s.tree.EditLabel(s.Item(p.second)); },
    [](Scene& s, const Step&) { s.tree.EndLabelEdit(); },
    [](Scene& s, const Step& p) { s.tree.IsTreeCtrlEditMessage(p.second % 2 ? WM_COPY : WM_PASTE, 0, 0); },
    [](Scene& s, const Step& p) { s.tree.SetRedraw(p.second % 2); },
    [](Scene& s, const Step&) { s.tree.SetRedraw(TRUE); },
    [](Scene& s, const Step&) { s.tree.UpdateTree(); },
    [](Scene& s, const Step&) { s.tree.CalcLayout(); },
    [](Scene& s, const Step& p) { s.tree.UpdateItem(s.Item(p.second), p.third & 1); },
    [](Scene& s, const Step& p) { s.tree.GetItemSize(s.Item(p.second)); },
    [](Scene& s, const Step& p) { s.tree.SetIndent(static_cast<unsigned>(s.Number(p.second))); },
    [](Scene& s, const Step& p) { s.tree.SetItemSpacing(CVornTreeCtrl::ItemSpacing(p.second % 4)); },
    [](Scene& s, const Step& p) { s.tree.SetScrollPos(p.second & 1, s.Number(p.third)); },
    [](Scene& s, const Step& p) {
      s.tree.DoScroll(p.second & 1, p.third % 10, static_cast<unsigned>(s.Number(p.first)));
    },
    [](Scene& s, const Step& p) { s.tree.OnTypeAhead(p.second, 0); },
    [](Scene& s, const Step& p) { s.tree.NotifyParent(p.second, s.Item(p.second), s.Item(p.third)); },
    [](Scene& s, const Step&) { s.tree.SetFocus(); },
    [](Scene& s, const Step&) { s.frame.SetFocus(); },
    [](Scene& s, const Step&) {
      s.tree.Invalidate();
      s.tree.UpdateWindow();
    },
    [](Scene& s, const Step& p) { s.Wait(p.second % 16); },
    [](Scene& s, const Step& p) {
      if (p.second % 64 == 0) s.Wait(s.tree.GetLabelEditDuration());
    },
    [](Scene& s, const Step&) {
      VornTreeEditContextMenuSetCallback(nullptr);
      s.Pump();
    },
    [](Scene& s, const Step& p) { CVornTreeCtrl::GetPointerFromHandle(s.Window(p.second)); },
};

}  // namespace

void CallSomething(Scene& scene, const Step& step) { kCalls[step.first % std::size(kCalls)](scene, step); }

}  // namespace fuzz
