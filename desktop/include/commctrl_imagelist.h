// Image lists: strips of equally sized pictures with masks, overlays and dragging.
#pragma once

#include "windef.h"
#include "wingdi.h"

struct _IMAGELIST;
using HIMAGELIST = _IMAGELIST*;

#define CLR_NONE 0xFFFFFFFFu
#define CLR_DEFAULT 0xFF000000u

#define ILC_MASK 0x00000001
#define ILC_COLOR 0x00000000
#define ILC_COLORDDB 0x000000FE
#define ILC_COLOR4 0x00000004
#define ILC_COLOR8 0x00000008
#define ILC_COLOR16 0x00000010
#define ILC_COLOR24 0x00000018
#define ILC_COLOR32 0x00000020
#define ILC_PALETTE 0x00000800

#define ILD_NORMAL 0x00000000
#define ILD_TRANSPARENT 0x00000001
#define ILD_BLEND25 0x00000002
#define ILD_BLEND50 0x00000004
#define ILD_MASK 0x00000010
#define ILD_IMAGE 0x00000020
#define ILD_ROP 0x00000040
#define ILD_OVERLAYMASK 0x00000F00
#define ILD_PRESERVEALPHA 0x00001000
#define ILD_SCALE 0x00002000
#define ILD_DPISCALE 0x00004000
#define ILD_SELECTED ILD_BLEND50
#define ILD_FOCUS ILD_BLEND25
#define ILD_BLEND ILD_BLEND50
#define INDEXTOOVERLAYMASK(i) ((UINT)(i) << 8)
#define INDEXTOSTATEIMAGEMASK(i) ((UINT)(i) << 12)

#define ILS_NORMAL 0x00000000
#define ILS_GLOW 0x00000001
#define ILS_SHADOW 0x00000002
#define ILS_SATURATE 0x00000004
#define ILS_ALPHA 0x00000008

#define ILCF_MOVE 0x00000000
#define ILCF_SWAP 0x00000001

struct _IMAGEINFO {
  HBITMAP hbmImage;
  HBITMAP hbmMask;
  int Unused1;
  int Unused2;
  RECT rcImage;
};
using IMAGEINFO = _IMAGEINFO;
using LPIMAGEINFO = IMAGEINFO*;

struct _IMAGELISTDRAWPARAMS {
  DWORD cbSize;
  HIMAGELIST himl;
  int i;
  HDC hdcDst;
  int x;
  int y;
  int cx;
  int cy;
  int xBitmap;
  int yBitmap;
  COLORREF rgbBk;
  COLORREF rgbFg;
  UINT fStyle;
  DWORD dwRop;
  DWORD fState;
  DWORD Frame;
  COLORREF crEffect;
};
using IMAGELISTDRAWPARAMS = _IMAGELISTDRAWPARAMS;
using LPIMAGELISTDRAWPARAMS = IMAGELISTDRAWPARAMS*;

// A handle that is null, stale or no handle at all makes each of these fail.
DESKTOP_API HIMAGELIST WINAPI ImageList_Create(int width, int height, UINT flags, int initial, int grow);
DESKTOP_API BOOL WINAPI ImageList_Destroy(HIMAGELIST list);
DESKTOP_API int WINAPI ImageList_GetImageCount(HIMAGELIST list);
DESKTOP_API BOOL WINAPI ImageList_SetImageCount(HIMAGELIST list, UINT count);
DESKTOP_API int WINAPI ImageList_Add(HIMAGELIST list, HBITMAP image, HBITMAP mask);
DESKTOP_API int WINAPI ImageList_AddMasked(HIMAGELIST list, HBITMAP image, COLORREF mask);
DESKTOP_API int WINAPI ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon);
DESKTOP_API BOOL WINAPI ImageList_Replace(HIMAGELIST list, int index, HBITMAP image, HBITMAP mask);
DESKTOP_API BOOL WINAPI ImageList_Remove(HIMAGELIST list, int index);
DESKTOP_API BOOL WINAPI ImageList_Copy(HIMAGELIST destination, int to, HIMAGELIST source, int from,
                                       UINT flags);
DESKTOP_API COLORREF WINAPI ImageList_SetBkColor(HIMAGELIST list, COLORREF color);
DESKTOP_API COLORREF WINAPI ImageList_GetBkColor(HIMAGELIST list);
DESKTOP_API BOOL WINAPI ImageList_SetOverlayImage(HIMAGELIST list, int index, int overlay);
DESKTOP_API BOOL WINAPI ImageList_Draw(HIMAGELIST list, int index, HDC dc, int x, int y, UINT style);
DESKTOP_API BOOL WINAPI ImageList_DrawEx(HIMAGELIST list, int index, HDC dc, int x, int y, int width,
                                         int height, COLORREF background, COLORREF foreground, UINT style);
DESKTOP_API BOOL WINAPI ImageList_DrawIndirect(IMAGELISTDRAWPARAMS* params);
DESKTOP_API BOOL WINAPI ImageList_GetIconSize(HIMAGELIST list, int* width, int* height);
DESKTOP_API BOOL WINAPI ImageList_SetIconSize(HIMAGELIST list, int width, int height);
DESKTOP_API BOOL WINAPI ImageList_GetImageInfo(HIMAGELIST list, int index, IMAGEINFO* info);
DESKTOP_API BOOL WINAPI ImageList_GetImageRect(HIMAGELIST list, int index, RECT* rect);
DESKTOP_API HICON WINAPI ImageList_GetIcon(HIMAGELIST list, int index, UINT style);
DESKTOP_API HIMAGELIST WINAPI ImageList_Duplicate(HIMAGELIST list);
DESKTOP_API HIMAGELIST WINAPI ImageList_Merge(HIMAGELIST first, int firstIndex, HIMAGELIST second,
                                              int secondIndex, int dx, int dy);
DESKTOP_API HIMAGELIST WINAPI ImageList_LoadImageW(HINSTANCE instance, LPCWSTR name, int width, int grow,
                                                   COLORREF mask, UINT type, UINT flags);

// Dragging: one picture at a time, drawn over a window between DragEnter and DragLeave.
DESKTOP_API BOOL WINAPI ImageList_BeginDrag(HIMAGELIST list, int index, int hotX, int hotY);
DESKTOP_API void WINAPI ImageList_EndDrag();
DESKTOP_API BOOL WINAPI ImageList_DragEnter(HWND window, int x, int y);
DESKTOP_API BOOL WINAPI ImageList_DragLeave(HWND window);
DESKTOP_API BOOL WINAPI ImageList_DragMove(int x, int y);
DESKTOP_API BOOL WINAPI ImageList_DragShowNolock(BOOL show);
DESKTOP_API BOOL WINAPI ImageList_SetDragCursorImage(HIMAGELIST list, int index, int hotX, int hotY);
DESKTOP_API HIMAGELIST WINAPI ImageList_GetDragImage(POINT* position, POINT* hotSpot);

#define ImageList_AddIcon(list, icon) ImageList_ReplaceIcon(list, -1, icon)
#define ImageList_ExtractIcon(instance, list, index) ImageList_GetIcon(list, index, 0)
#define ImageList_RemoveAll(list) ImageList_Remove(list, -1)
#define ImageList_LoadImage ImageList_LoadImageW
#define ImageList_LoadBitmap(instance, name, width, grow, mask) \
  ImageList_LoadImageW(instance, name, width, grow, mask, 0, 0)
