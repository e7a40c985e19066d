// CVornTreeCtrl: what an item looks like - text, data, images, state, check marks, colours.
#include "../VornTreeCtrl.h"
#include "RedrawHold.h"
#include "TreeCheck.h"
#include "VornTreeItem.h"
#include "WithMemory.h"

namespace {

// As many characters of the record's text as it asks for.
CString TextOf(const STITEM& record) {
  if (record.pszText == nullptr || record.cchTextMax < 1) return {};
  const size_t length = wcsnlen(record.pszText, static_cast<size_t>(record.cchTextMax));
  return {record.pszText, static_cast<int>(length)};
}

// Gives an item the label that make returns. False when memory is short, and then it keeps its own.
template <class Make>
bool Relabel(CVornTreeItem* item, Make make) {
  const CString before = item->m_strText;
  if (vorn::RunWithMemory([&] { item->SetText(make()); })) return true;
  item->m_strText = before;
  return false;
}

}  // namespace

// --- Record forms ----------------------------------------------------------------------------------

int CVornTreeCtrl::GetItem(STITEM* record) {
  if (record == nullptr || !IsItemValid(record->hItem)) return 0;
  CVornTreeItem* item = record->hItem;
  if (record->mask & STIF_TEXT) {
    record->pszText = const_cast<wchar_t*>(item->GetText());
    record->cchTextMax = item->m_strText.GetLength();
  }
  if (record->mask & STIF_IMAGE) item->GetImages(&record->iImage, &record->iSelectedImage);
  if (record->mask & STIF_PARAM) record->lParam = static_cast<LPARAM>(item->GetData());
  if (record->mask & STIF_CHILDREN) record->cChildren = ItemHasChildren(item);
  record->state = item->GetState();  // whatever the mask says
  return 1;
}

int CVornTreeCtrl::SetItem(STITEM* hostsRecord) {
  const vorn::OperationCheck check(this);
  if (hostsRecord == nullptr || !IsOwnItem(hostsRecord->hItem)) return 0;
  const STITEM record = *hostsRecord;  // hooks may change the host's
  CVornTreeItem* const item = record.hItem;
  const vorn::RedrawHold hold(this);
  if ((record.mask & STIF_TEXT) && !Relabel(item, [&record] { return TextOf(record); })) return 0;
  if (record.mask & STIF_IMAGE) SetItemImage(item, record.iImage, -1);
  if (record.mask & STIF_SELECTEDIMAGE) SetItemImage(item, record.iImage, record.iSelectedImage);
  if (record.mask & STIF_PARAM) SetItemData(item, static_cast<unsigned __int64>(record.lParam));
  if (record.mask & STIF_STATE) ApplyState(item, record);
  if ((record.mask & STIF_CHILDREN) && record.cChildren == 1 && IsItemValid(item)) {
    item->ModifyState(0, STIS_HASCHILDREN);
  }
  return 1;
}

// --- Text and data ---------------------------------------------------------------------------------

const wchar_t* CVornTreeCtrl::GetItemText(CVornTreeItem* item) {
  if (IsItemValid(item)) return item->GetText();
  // Meant: the one buffer also answers for every other invalid item, and keeps "Root" once asked for.
  static wchar_t rootText[5];
  if (item == STI_ROOT) wmemcpy(rootText, L"Root", 5);
  return rootText;
}

int CVornTreeCtrl::SetItemText(CVornTreeItem* item, const wchar_t* text) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  if (!Relabel(item, [text] { return text; })) return 0;
  UpdateItem(item, 1);
  return 1;
}

unsigned __int64 CVornTreeCtrl::GetItemData(CVornTreeItem* item) const {
  return IsItemValid(item) ? item->GetData() : 0;
}

void CVornTreeCtrl::SetItemData(CVornTreeItem* item, unsigned __int64 data) {
  const vorn::OperationCheck check(this);
  if (IsItemValid(item)) item->SetData(data);
}

// --- Images ----------------------------------------------------------------------------------------

int CVornTreeCtrl::GetItemImage(CVornTreeItem* item, int& image, int& selectedImage) const {
  if (!IsItemValid(item)) return 0;
  item->GetImages(&image, &selectedImage);
  return 1;
}

int CVornTreeCtrl::SetItemImage(CVornTreeItem* item, int image, int selectedImage) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  item->SetImages(image, selectedImage);
  UpdateItem(item, 1);
  return 1;
}

int CVornTreeCtrl::GetItemImageState(CVornTreeItem* item, int& image) const {
  if (!IsItemValid(item)) return 0;
  image = item->GetStateImage();
  return 1;
}

int CVornTreeCtrl::SetItemImageState(CVornTreeItem* item, int image) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  if (item->GetStateImage() == image) return 1;
  item->SetStateImage(image);
  UpdateItem(item, 1);
  return 1;
}

// --- State -----------------------------------------------------------------------------------------

unsigned long CVornTreeCtrl::GetItemState(CVornTreeItem* item) const {
  return IsItemValid(item) ? item->GetState() : 0;
}

unsigned int CVornTreeCtrl::GetItemState(CVornTreeItem* item, unsigned int mask) const {
  return IsItemValid(item) ? item->GetState() & mask : 0;
}

int CVornTreeCtrl::SetItemState(CVornTreeItem* item, unsigned long state) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  const unsigned int bits = static_cast<unsigned int>(state);
  if (bits & (STIS_BOLD | STIS_NOTBOLD)) {
    UpdateItemFont(item, bits);
    UpdateItemFont(item, bits);
  }
  item->ModifyState(item->GetState(), bits);
  return 1;
}

int CVornTreeCtrl::ModifyItemState(CVornTreeItem* item, unsigned long remove, unsigned long add) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  const unsigned int bits = static_cast<unsigned int>(add);
  if (bits & (STIS_BOLD | STIS_NOTBOLD)) UpdateItemFont(item, bits);
  item->ModifyState(static_cast<unsigned int>(remove), bits);
  return 1;
}

int CVornTreeCtrl::GetCheckBox(CVornTreeItem* item) { return IsItemValid(item) ? item->GetCheckBox() : 0; }

int CVornTreeCtrl::SetCheckBox(CVornTreeItem* item, int show) {
  const vorn::OperationCheck check(this);
  if (!IsItemValid(item)) return 0;
  item->SetCheckBox(show != 0);
  return 1;
}

int CVornTreeCtrl::GetItemCheck(CVornTreeItem* item) {
  return IsItemValid(item) && item->IsChecked() ? 1 : 0;
}

int CVornTreeCtrl::SetItemCheck(CVornTreeItem* item, int check) {
  const vorn::OperationCheck operation(this);
  if (!IsItemValid(item)) return 0;
  if (!item->GetCheckBox() && !IsActiveStyle(STS_CHECKBOXES)) return 0;
  if (!OnChecking(item)) return 0;
  if (!IsItemValid(item)) return 0;
  const int before = item->IsChecked() ? 1 : 0;
  item->SetChecked(check != 0);
  OnChecked(item);
  return before;  // the earlier mark, meant
}

bool CVornTreeCtrl::IsItemExpanded(CVornTreeItem* item) { return IsItemValid(item) && item->IsExpanded(); }

bool CVornTreeCtrl::IsItemSelected(CVornTreeItem* item) { return IsItemValid(item) && item->IsSelected(); }

// --- Colours ---------------------------------------------------------------------------------------

unsigned long CVornTreeCtrl::GetItemTextColor(CVornTreeItem* item) {
  return IsItemValid(item) ? item->GetTextColor() : ::GetSysColor(COLOR_WINDOWTEXT);
}

void CVornTreeCtrl::SetItemTextColor(CVornTreeItem* item, unsigned long color) {
  if (IsItemValid(item)) item->SetTextColor(static_cast<COLORREF>(color));
}

unsigned long CVornTreeCtrl::GetItemBkColor(CVornTreeItem* item) {
  return IsItemValid(item) ? item->GetBkColor() : GetBkColor();
}

void CVornTreeCtrl::SetItemBkColor(CVornTreeItem* item, unsigned long color) {
  if (IsItemValid(item)) item->SetBkColor(static_cast<COLORREF>(color));
}
