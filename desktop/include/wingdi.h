// Drawing: device contexts, graphics objects, regions, bitmaps and fonts.
//
// Where this desktop differs from Windows: the map mode is always MM_TEXT without scaling, world
// transforms, paths, metafiles, palettes and printing are absent, and text comes from one built-in
// pixel face whatever LOGFONTW asks for (size, weight, slope, underline and strike-out are kept).
#pragma once

#include "windef.h"

// Raster operations of two operands.
#define R2_BLACK 1
#define R2_NOTMERGEPEN 2
#define R2_MASKNOTPEN 3
#define R2_NOTCOPYPEN 4
#define R2_MASKPENNOT 5
#define R2_NOT 6
#define R2_XORPEN 7
#define R2_NOTMASKPEN 8
#define R2_MASKPEN 9
#define R2_NOTXORPEN 10
#define R2_NOP 11
#define R2_MERGENOTPEN 12
#define R2_COPYPEN 13
#define R2_MERGEPENNOT 14
#define R2_MERGEPEN 15
#define R2_WHITE 16
#define R2_LAST 16

// Raster operations of three operands; bits 16 to 23 are the truth table.
#define SRCCOPY ((DWORD)0x00CC0020)
#define SRCPAINT ((DWORD)0x00EE0086)
#define SRCAND ((DWORD)0x008800C6)
#define SRCINVERT ((DWORD)0x00660046)
#define SRCERASE ((DWORD)0x00440328)
#define NOTSRCCOPY ((DWORD)0x00330008)
#define NOTSRCERASE ((DWORD)0x001100A6)
#define MERGECOPY ((DWORD)0x00C000CA)
#define MERGEPAINT ((DWORD)0x00BB0226)
#define PATCOPY ((DWORD)0x00F00021)
#define PATPAINT ((DWORD)0x00FB0A09)
#define PATINVERT ((DWORD)0x005A0049)
#define DSTINVERT ((DWORD)0x00550009)
#define BLACKNESS ((DWORD)0x00000042)
#define WHITENESS ((DWORD)0x00FF0062)
#define NOMIRRORBITMAP ((DWORD)0x80000000)
#define CAPTUREBLT ((DWORD)0x40000000)
#define MAKEROP4(fore, back) ((DWORD)((((DWORD)(back) << 8) & 0xFF000000u) | (DWORD)(fore)))

#define GDI_ERROR (0xFFFFFFFFu)
#define ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3
#define RGN_ERROR ERROR

#define RGN_AND 1
#define RGN_OR 2
#define RGN_XOR 3
#define RGN_DIFF 4
#define RGN_COPY 5
#define RGN_MIN RGN_AND
#define RGN_MAX RGN_COPY

#define BLACKONWHITE 1
#define WHITEONBLACK 2
#define COLORONCOLOR 3
#define HALFTONE 4
#define MAXSTRETCHBLTMODE 4
#define STRETCH_ANDSCANS BLACKONWHITE
#define STRETCH_ORSCANS WHITEONBLACK
#define STRETCH_DELETESCANS COLORONCOLOR
#define STRETCH_HALFTONE HALFTONE

#define ALTERNATE 1
#define WINDING 2

#define LAYOUT_RTL 0x00000001

#define TA_NOUPDATECP 0
#define TA_UPDATECP 1
#define TA_LEFT 0
#define TA_RIGHT 2
#define TA_CENTER 6
#define TA_TOP 0
#define TA_BOTTOM 8
#define TA_BASELINE 24
#define TA_RTLREADING 256

#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004
#define ETO_RTLREADING 0x0080
#define ETO_PDY 0x2000

#define TRANSPARENT 1
#define OPAQUE 2
#define BKMODE_LAST 2

#define MM_TEXT 1

#define ABSOLUTE 1
#define RELATIVE 2

// Stock objects.
#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE 15
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17
#define DC_BRUSH 18
#define DC_PEN 19
#define STOCK_LAST 19

#define CLR_INVALID 0xFFFFFFFFu

#define BS_SOLID 0
#define BS_NULL 1
#define BS_HOLLOW BS_NULL
#define BS_HATCHED 2
#define BS_PATTERN 3
#define BS_INDEXED 4
#define BS_DIBPATTERN 5

#define HS_HORIZONTAL 0
#define HS_VERTICAL 1
#define HS_FDIAGONAL 2
#define HS_BDIAGONAL 3
#define HS_CROSS 4
#define HS_DIAGCROSS 5

#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_DASHDOT 3
#define PS_DASHDOTDOT 4
#define PS_NULL 5
#define PS_INSIDEFRAME 6
#define PS_USERSTYLE 7
#define PS_ALTERNATE 8
#define PS_STYLE_MASK 0x0000000F
#define PS_ENDCAP_ROUND 0x00000000
#define PS_ENDCAP_SQUARE 0x00000100
#define PS_ENDCAP_FLAT 0x00000200
#define PS_ENDCAP_MASK 0x00000F00
#define PS_JOIN_ROUND 0x00000000
#define PS_JOIN_BEVEL 0x00001000
#define PS_JOIN_MITER 0x00002000
#define PS_JOIN_MASK 0x0000F000
#define PS_COSMETIC 0x00000000
#define PS_GEOMETRIC 0x00010000
#define PS_TYPE_MASK 0x000F0000

#define AD_COUNTERCLOCKWISE 1
#define AD_CLOCKWISE 2

// GetDeviceCaps.
#define DRIVERVERSION 0
#define TECHNOLOGY 2
#define HORZSIZE 4
#define VERTSIZE 6
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMBRUSHES 16
#define NUMPENS 18
#define NUMFONTS 22
#define NUMCOLORS 24
#define CURVECAPS 28
#define LINECAPS 30
#define POLYGONALCAPS 32
#define TEXTCAPS 34
#define CLIPCAPS 36
#define RASTERCAPS 38
#define ASPECTX 40
#define ASPECTY 42
#define ASPECTXY 44
#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define SIZEPALETTE 104
#define NUMRESERVED 106
#define COLORRES 108
#define PHYSICALWIDTH 110
#define PHYSICALHEIGHT 111
#define DESKTOPVERTRES 117
#define DESKTOPHORZRES 118
#define DT_RASDISPLAY 1
#define RC_BITBLT 1
#define RC_PALETTE 0x0100

// GetObjectType and GetCurrentObject.
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_DC 3
#define OBJ_METADC 4
#define OBJ_PAL 5
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define OBJ_REGION 8
#define OBJ_METAFILE 9
#define OBJ_MEMDC 10
#define OBJ_EXTPEN 11

// Fonts.
#define LF_FACESIZE 32
#define LF_FULLFACESIZE 64
#define FW_DONTCARE 0
#define FW_THIN 100
#define FW_LIGHT 300
#define FW_NORMAL 400
#define FW_REGULAR 400
#define FW_MEDIUM 500
#define FW_SEMIBOLD 600
#define FW_BOLD 700
#define FW_HEAVY 900
#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define SYMBOL_CHARSET 2
#define OEM_CHARSET 255
#define OUT_DEFAULT_PRECIS 0
#define OUT_TT_PRECIS 4
#define CLIP_DEFAULT_PRECIS 0
#define DEFAULT_QUALITY 0
#define DRAFT_QUALITY 1
#define PROOF_QUALITY 2
#define NONANTIALIASED_QUALITY 3
#define ANTIALIASED_QUALITY 4
#define CLEARTYPE_QUALITY 5
#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_DONTCARE 0x00
#define FF_ROMAN 0x10
#define FF_SWISS 0x20
#define FF_MODERN 0x30
#define TMPF_FIXED_PITCH 0x01
#define TMPF_VECTOR 0x02
#define TMPF_TRUETYPE 0x04
#define TMPF_DEVICE 0x08
#define RASTER_FONTTYPE 0x0001
#define DEVICE_FONTTYPE 0x0002
#define TRUETYPE_FONTTYPE 0x0004

// Device-independent bitmaps.
#define BI_RGB 0
#define BI_RLE8 1
#define BI_RLE4 2
#define BI_BITFIELDS 3
#define DIB_RGB_COLORS 0
#define DIB_PAL_COLORS 1
#define CBM_INIT 0x04

#define AC_SRC_OVER 0x00
#define AC_SRC_ALPHA 0x01

#define GRADIENT_FILL_RECT_H 0x00000000
#define GRADIENT_FILL_RECT_V 0x00000001
#define GRADIENT_FILL_TRIANGLE 0x00000002

#define RDH_RECTANGLES 1

#define RGB(r, g, b) ((COLORREF)((DWORD)(BYTE)(r) | ((DWORD)(BYTE)(g) << 8) | ((DWORD)(BYTE)(b) << 16)))
#define GetRValue(rgb) ((BYTE)((rgb)&0xff))
#define GetGValue(rgb) ((BYTE)(((rgb) >> 8) & 0xff))
#define GetBValue(rgb) ((BYTE)(((rgb) >> 16) & 0xff))

struct tagBITMAP {
  LONG bmType;
  LONG bmWidth;
  LONG bmHeight;
  LONG bmWidthBytes;
  WORD bmPlanes;
  WORD bmBitsPixel;
  LPVOID bmBits;
};
using BITMAP = tagBITMAP;
using PBITMAP = BITMAP*;
using LPBITMAP = BITMAP*;

struct tagRGBQUAD {
  BYTE rgbBlue;
  BYTE rgbGreen;
  BYTE rgbRed;
  BYTE rgbReserved;
};
using RGBQUAD = tagRGBQUAD;

struct tagBITMAPINFOHEADER {
  DWORD biSize;
  LONG biWidth;
  LONG biHeight;
  WORD biPlanes;
  WORD biBitCount;
  DWORD biCompression;
  DWORD biSizeImage;
  LONG biXPelsPerMeter;
  LONG biYPelsPerMeter;
  DWORD biClrUsed;
  DWORD biClrImportant;
};
using BITMAPINFOHEADER = tagBITMAPINFOHEADER;
using PBITMAPINFOHEADER = BITMAPINFOHEADER*;
using LPBITMAPINFOHEADER = BITMAPINFOHEADER*;

struct tagBITMAPINFO {
  BITMAPINFOHEADER bmiHeader;
  RGBQUAD bmiColors[1];
};
using BITMAPINFO = tagBITMAPINFO;
using PBITMAPINFO = BITMAPINFO*;
using LPBITMAPINFO = BITMAPINFO*;

struct __attribute__((packed)) tagBITMAPFILEHEADER {
  WORD bfType;
  DWORD bfSize;
  WORD bfReserved1;
  WORD bfReserved2;
  DWORD bfOffBits;
};
using BITMAPFILEHEADER = tagBITMAPFILEHEADER;

struct tagDIBSECTION {
  BITMAP dsBm;
  BITMAPINFOHEADER dsBmih;
  DWORD dsBitfields[3];
  HANDLE dshSection;
  DWORD dsOffset;
};
using DIBSECTION = tagDIBSECTION;

struct tagLOGPEN {
  UINT lopnStyle;
  POINT lopnWidth;
  COLORREF lopnColor;
};
using LOGPEN = tagLOGPEN;

struct tagEXTLOGPEN {
  DWORD elpPenStyle;
  DWORD elpWidth;
  UINT elpBrushStyle;
  COLORREF elpColor;
  ULONG_PTR elpHatch;
  DWORD elpNumEntries;
  DWORD elpStyleEntry[1];
};
using EXTLOGPEN = tagEXTLOGPEN;

struct tagLOGBRUSH {
  UINT lbStyle;
  COLORREF lbColor;
  ULONG_PTR lbHatch;
};
using LOGBRUSH = tagLOGBRUSH;
using LPLOGBRUSH = LOGBRUSH*;

struct tagLOGFONTW {
  LONG lfHeight;
  LONG lfWidth;
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  WCHAR lfFaceName[LF_FACESIZE];
};
using LOGFONTW = tagLOGFONTW;
using LOGFONT = LOGFONTW;
using LPLOGFONTW = LOGFONTW*;
using LPLOGFONT = LOGFONTW*;

struct tagENUMLOGFONTEXW {
  LOGFONTW elfLogFont;
  WCHAR elfFullName[LF_FULLFACESIZE];
  WCHAR elfStyle[LF_FACESIZE];
  WCHAR elfScript[LF_FACESIZE];
};
using ENUMLOGFONTEXW = tagENUMLOGFONTEXW;
using ENUMLOGFONTEX = ENUMLOGFONTEXW;

struct tagTEXTMETRICW {
  LONG tmHeight;
  LONG tmAscent;
  LONG tmDescent;
  LONG tmInternalLeading;
  LONG tmExternalLeading;
  LONG tmAveCharWidth;
  LONG tmMaxCharWidth;
  LONG tmWeight;
  LONG tmOverhang;
  LONG tmDigitizedAspectX;
  LONG tmDigitizedAspectY;
  WCHAR tmFirstChar;
  WCHAR tmLastChar;
  WCHAR tmDefaultChar;
  WCHAR tmBreakChar;
  BYTE tmItalic;
  BYTE tmUnderlined;
  BYTE tmStruckOut;
  BYTE tmPitchAndFamily;
  BYTE tmCharSet;
};
using TEXTMETRICW = tagTEXTMETRICW;
using TEXTMETRIC = TEXTMETRICW;
using LPTEXTMETRICW = TEXTMETRICW*;
using LPTEXTMETRIC = TEXTMETRICW*;

struct tagABC {
  int abcA;
  UINT abcB;
  int abcC;
};
using ABC = tagABC;

struct _RGNDATAHEADER {
  DWORD dwSize;
  DWORD iType;
  DWORD nCount;
  DWORD nRgnSize;
  RECT rcBound;
};
using RGNDATAHEADER = _RGNDATAHEADER;

struct _RGNDATA {
  RGNDATAHEADER rdh;
  char Buffer[1];
};
using RGNDATA = _RGNDATA;
using LPRGNDATA = RGNDATA*;

struct _BLENDFUNCTION {
  BYTE BlendOp;
  BYTE BlendFlags;
  BYTE SourceConstantAlpha;
  BYTE AlphaFormat;
};
using BLENDFUNCTION = _BLENDFUNCTION;

using COLOR16 = USHORT;
struct _TRIVERTEX {
  LONG x;
  LONG y;
  COLOR16 Red;
  COLOR16 Green;
  COLOR16 Blue;
  COLOR16 Alpha;
};
using TRIVERTEX = _TRIVERTEX;
using PTRIVERTEX = TRIVERTEX*;
struct _GRADIENT_RECT {
  ULONG UpperLeft;
  ULONG LowerRight;
};
using GRADIENT_RECT = _GRADIENT_RECT;
struct _GRADIENT_TRIANGLE {
  ULONG Vertex1;
  ULONG Vertex2;
  ULONG Vertex3;
};
using GRADIENT_TRIANGLE = _GRADIENT_TRIANGLE;

using FONTENUMPROCW = int(CALLBACK*)(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM);
using FONTENUMPROC = FONTENUMPROCW;
using LINEDDAPROC = void(CALLBACK*)(int, int, LPARAM);
struct tagDEVMODEW;
using DEVMODEW = tagDEVMODEW;

// Device contexts.
DESKTOP_API HDC WINAPI CreateCompatibleDC(HDC dc);
DESKTOP_API HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const tagDEVMODEW* mode);
DESKTOP_API HDC WINAPI CreateICW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const tagDEVMODEW* mode);
DESKTOP_API BOOL WINAPI DeleteDC(HDC dc);
DESKTOP_API int WINAPI SaveDC(HDC dc);
DESKTOP_API BOOL WINAPI RestoreDC(HDC dc, int level);
DESKTOP_API BOOL WINAPI CancelDC(HDC dc);
DESKTOP_API int WINAPI GetDeviceCaps(HDC dc, int index);
DESKTOP_API BOOL WINAPI GdiFlush();
DESKTOP_API DWORD WINAPI GdiSetBatchLimit(DWORD limit);
DESKTOP_API HWND WINAPI WindowFromDC(HDC dc);

// Attributes. A setter returns the old value.
DESKTOP_API COLORREF WINAPI SetTextColor(HDC dc, COLORREF color);
DESKTOP_API COLORREF WINAPI GetTextColor(HDC dc);
DESKTOP_API COLORREF WINAPI SetBkColor(HDC dc, COLORREF color);
DESKTOP_API COLORREF WINAPI GetBkColor(HDC dc);
DESKTOP_API int WINAPI SetBkMode(HDC dc, int mode);
DESKTOP_API int WINAPI GetBkMode(HDC dc);
DESKTOP_API UINT WINAPI SetTextAlign(HDC dc, UINT align);
DESKTOP_API UINT WINAPI GetTextAlign(HDC dc);
DESKTOP_API int WINAPI SetTextCharacterExtra(HDC dc, int extra);
DESKTOP_API int WINAPI GetTextCharacterExtra(HDC dc);
DESKTOP_API int WINAPI SetROP2(HDC dc, int rop);
DESKTOP_API int WINAPI GetROP2(HDC dc);
DESKTOP_API int WINAPI SetMapMode(HDC dc, int mode);
DESKTOP_API int WINAPI GetMapMode(HDC dc);
DESKTOP_API int WINAPI SetPolyFillMode(HDC dc, int mode);
DESKTOP_API int WINAPI GetPolyFillMode(HDC dc);
DESKTOP_API int WINAPI SetStretchBltMode(HDC dc, int mode);
DESKTOP_API int WINAPI GetStretchBltMode(HDC dc);
DESKTOP_API int WINAPI SetArcDirection(HDC dc, int direction);
DESKTOP_API int WINAPI GetArcDirection(HDC dc);
DESKTOP_API DWORD WINAPI SetLayout(HDC dc, DWORD layout);
DESKTOP_API DWORD WINAPI GetLayout(HDC dc);
DESKTOP_API COLORREF WINAPI SetDCBrushColor(HDC dc, COLORREF color);
DESKTOP_API COLORREF WINAPI GetDCBrushColor(HDC dc);
DESKTOP_API COLORREF WINAPI SetDCPenColor(HDC dc, COLORREF color);
DESKTOP_API COLORREF WINAPI GetDCPenColor(HDC dc);
DESKTOP_API BOOL WINAPI SetBrushOrgEx(HDC dc, int x, int y, LPPOINT old);
DESKTOP_API BOOL WINAPI GetBrushOrgEx(HDC dc, LPPOINT origin);
DESKTOP_API BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT old);
DESKTOP_API BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT origin);
DESKTOP_API BOOL WINAPI OffsetViewportOrgEx(HDC dc, int x, int y, LPPOINT old);
DESKTOP_API BOOL WINAPI SetWindowOrgEx(HDC dc, int x, int y, LPPOINT old);
DESKTOP_API BOOL WINAPI GetWindowOrgEx(HDC dc, LPPOINT origin);
DESKTOP_API BOOL WINAPI OffsetWindowOrgEx(HDC dc, int x, int y, LPPOINT old);
DESKTOP_API BOOL WINAPI SetViewportExtEx(HDC dc, int x, int y, LPSIZE old);
DESKTOP_API BOOL WINAPI GetViewportExtEx(HDC dc, LPSIZE extent);
DESKTOP_API BOOL WINAPI SetWindowExtEx(HDC dc, int x, int y, LPSIZE old);
DESKTOP_API BOOL WINAPI GetWindowExtEx(HDC dc, LPSIZE extent);
DESKTOP_API BOOL WINAPI GetDCOrgEx(HDC dc, LPPOINT origin);
DESKTOP_API BOOL WINAPI DPtoLP(HDC dc, LPPOINT points, int count);
DESKTOP_API BOOL WINAPI LPtoDP(HDC dc, LPPOINT points, int count);
DESKTOP_API COLORREF WINAPI GetNearestColor(HDC dc, COLORREF color);

// Objects.
DESKTOP_API HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
DESKTOP_API HGDIOBJ WINAPI GetCurrentObject(HDC dc, UINT type);
DESKTOP_API BOOL WINAPI DeleteObject(HGDIOBJ object);
DESKTOP_API HGDIOBJ WINAPI GetStockObject(int index);
DESKTOP_API int WINAPI GetObjectW(HANDLE object, int size, LPVOID buffer);
DESKTOP_API DWORD WINAPI GetObjectType(HGDIOBJ object);
DESKTOP_API BOOL WINAPI UnrealizeObject(HGDIOBJ object);
DESKTOP_API HPEN WINAPI CreatePen(int style, int width, COLORREF color);
DESKTOP_API HPEN WINAPI CreatePenIndirect(const LOGPEN* pen);
DESKTOP_API HPEN WINAPI ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD count,
                                     const DWORD* pattern);
DESKTOP_API HBRUSH WINAPI CreateSolidBrush(COLORREF color);
DESKTOP_API HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF color);
DESKTOP_API HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap);
DESKTOP_API HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH* brush);

// Clipping.
DESKTOP_API int WINAPI SelectClipRgn(HDC dc, HRGN region);
DESKTOP_API int WINAPI ExtSelectClipRgn(HDC dc, HRGN region, int mode);
DESKTOP_API int WINAPI IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
DESKTOP_API int WINAPI ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);
DESKTOP_API int WINAPI OffsetClipRgn(HDC dc, int dx, int dy);
DESKTOP_API int WINAPI GetClipBox(HDC dc, LPRECT box);
DESKTOP_API int WINAPI GetClipRgn(HDC dc, HRGN region);
DESKTOP_API int WINAPI GetRandomRgn(HDC dc, HRGN region, int code);
DESKTOP_API BOOL WINAPI PtVisible(HDC dc, int x, int y);
DESKTOP_API BOOL WINAPI RectVisible(HDC dc, const RECT* rect);
#define SYSRGN 4

// Regions.
DESKTOP_API HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom);
DESKTOP_API HRGN WINAPI CreateRectRgnIndirect(const RECT* rect);
DESKTOP_API HRGN WINAPI CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height);
DESKTOP_API HRGN WINAPI CreateEllipticRgn(int left, int top, int right, int bottom);
DESKTOP_API HRGN WINAPI CreateEllipticRgnIndirect(const RECT* rect);
DESKTOP_API HRGN WINAPI CreatePolygonRgn(const POINT* points, int count, int mode);
DESKTOP_API HRGN WINAPI ExtCreateRegion(const void* transform, DWORD size, const RGNDATA* data);
DESKTOP_API int WINAPI CombineRgn(HRGN result, HRGN first, HRGN second, int mode);
DESKTOP_API int WINAPI GetRgnBox(HRGN region, LPRECT box);
DESKTOP_API int WINAPI OffsetRgn(HRGN region, int dx, int dy);
DESKTOP_API BOOL WINAPI SetRectRgn(HRGN region, int left, int top, int right, int bottom);
DESKTOP_API BOOL WINAPI EqualRgn(HRGN first, HRGN second);
DESKTOP_API BOOL WINAPI PtInRegion(HRGN region, int x, int y);
DESKTOP_API BOOL WINAPI RectInRegion(HRGN region, const RECT* rect);
DESKTOP_API DWORD WINAPI GetRegionData(HRGN region, DWORD size, LPRGNDATA data);
DESKTOP_API BOOL WINAPI FillRgn(HDC dc, HRGN region, HBRUSH brush);
DESKTOP_API BOOL WINAPI FrameRgn(HDC dc, HRGN region, HBRUSH brush, int width, int height);
DESKTOP_API BOOL WINAPI PaintRgn(HDC dc, HRGN region);
DESKTOP_API BOOL WINAPI InvertRgn(HDC dc, HRGN region);

// Pixels, lines and shapes.
DESKTOP_API COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color);
DESKTOP_API BOOL WINAPI SetPixelV(HDC dc, int x, int y, COLORREF color);
DESKTOP_API COLORREF WINAPI GetPixel(HDC dc, int x, int y);
DESKTOP_API BOOL WINAPI MoveToEx(HDC dc, int x, int y, LPPOINT old);
DESKTOP_API BOOL WINAPI GetCurrentPositionEx(HDC dc, LPPOINT position);
DESKTOP_API BOOL WINAPI LineTo(HDC dc, int x, int y);
DESKTOP_API BOOL WINAPI Polyline(HDC dc, const POINT* points, int count);
DESKTOP_API BOOL WINAPI PolylineTo(HDC dc, const POINT* points, DWORD count);
DESKTOP_API BOOL WINAPI PolyPolyline(HDC dc, const POINT* points, const DWORD* counts, DWORD polylines);
DESKTOP_API BOOL WINAPI Polygon(HDC dc, const POINT* points, int count);
DESKTOP_API BOOL WINAPI PolyPolygon(HDC dc, const POINT* points, const int* counts, int polygons);
DESKTOP_API BOOL WINAPI Rectangle(HDC dc, int left, int top, int right, int bottom);
DESKTOP_API BOOL WINAPI RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height);
DESKTOP_API BOOL WINAPI Ellipse(HDC dc, int left, int top, int right, int bottom);
DESKTOP_API BOOL WINAPI Arc(HDC dc, int left, int top, int right, int bottom, int x1, int y1, int x2, int y2);
DESKTOP_API BOOL WINAPI LineDDA(int x1, int y1, int x2, int y2, LINEDDAPROC proc, LPARAM data);

// Blits.
DESKTOP_API BOOL WINAPI PatBlt(HDC dc, int x, int y, int width, int height, DWORD rop);
DESKTOP_API BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                               int sourceY, DWORD rop);
DESKTOP_API BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                                   int sourceY, int sourceWidth, int sourceHeight, DWORD rop);
DESKTOP_API BOOL WINAPI MaskBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                                int sourceY, HBITMAP mask, int maskX, int maskY, DWORD rop4);
DESKTOP_API BOOL WINAPI TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                                       int sourceY, int sourceWidth, int sourceHeight, UINT transparent);
DESKTOP_API BOOL WINAPI GdiTransparentBlt(HDC dc, int x, int y, int width, int height, HDC source,
                                          int sourceX, int sourceY, int sourceWidth, int sourceHeight,
                                          UINT transparent);
DESKTOP_API BOOL WINAPI AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                                   int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend);
DESKTOP_API BOOL WINAPI GdiAlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                                      int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend);
DESKTOP_API BOOL WINAPI GradientFill(HDC dc, PTRIVERTEX vertices, ULONG vertexCount, PVOID mesh,
                                     ULONG meshCount, ULONG mode);
DESKTOP_API BOOL WINAPI GdiGradientFill(HDC dc, PTRIVERTEX vertices, ULONG vertexCount, PVOID mesh,
                                        ULONG meshCount, ULONG mode);

// Bitmaps.
DESKTOP_API HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel,
                                        const void* bits);
DESKTOP_API HBITMAP WINAPI CreateBitmapIndirect(const BITMAP* bitmap);
DESKTOP_API HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height);
DESKTOP_API HBITMAP WINAPI CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits,
                                            HANDLE section, DWORD offset);
DESKTOP_API HBITMAP WINAPI CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD init,
                                          const void* bits, const BITMAPINFO* info, UINT usage);
DESKTOP_API int WINAPI GetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, LPVOID bits,
                                 LPBITMAPINFO info, UINT usage);
DESKTOP_API int WINAPI SetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, const void* bits,
                                 const BITMAPINFO* info, UINT usage);
DESKTOP_API int WINAPI SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int sourceX,
                                         int sourceY, UINT start, UINT lines, const void* bits,
                                         const BITMAPINFO* info, UINT usage);
DESKTOP_API int WINAPI StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                                     int sourceWidth, int sourceHeight, const void* bits,
                                     const BITMAPINFO* info, UINT usage, DWORD rop);
DESKTOP_API UINT WINAPI GetDIBColorTable(HDC dc, UINT start, UINT count, RGBQUAD* colors);
DESKTOP_API UINT WINAPI SetDIBColorTable(HDC dc, UINT start, UINT count, const RGBQUAD* colors);
DESKTOP_API LONG WINAPI GetBitmapBits(HBITMAP bitmap, LONG size, LPVOID bits);
DESKTOP_API LONG WINAPI SetBitmapBits(HBITMAP bitmap, DWORD size, const void* bits);
DESKTOP_API BOOL WINAPI GetBitmapDimensionEx(HBITMAP bitmap, LPSIZE dimension);
DESKTOP_API BOOL WINAPI SetBitmapDimensionEx(HBITMAP bitmap, int width, int height, LPSIZE old);

// Fonts and text.
DESKTOP_API HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font);
DESKTOP_API HFONT WINAPI CreateFontW(int height, int width, int escapement, int orientation, int weight,
                                     DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet,
                                     DWORD outPrecision, DWORD clipPrecision, DWORD quality,
                                     DWORD pitchAndFamily, LPCWSTR face);
DESKTOP_API BOOL WINAPI GetTextMetricsW(HDC dc, LPTEXTMETRICW metrics);
DESKTOP_API int WINAPI GetTextFaceW(HDC dc, int count, LPWSTR face);
DESKTOP_API BOOL WINAPI GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, LPSIZE extent);
DESKTOP_API BOOL WINAPI GetTextExtentPointW(HDC dc, LPCWSTR text, int length, LPSIZE extent);
DESKTOP_API BOOL WINAPI GetTextExtentExPointW(HDC dc, LPCWSTR text, int length, int maxExtent, LPINT fit,
                                              LPINT partial, LPSIZE extent);
DESKTOP_API BOOL WINAPI GetCharWidth32W(HDC dc, UINT first, UINT last, LPINT widths);
DESKTOP_API BOOL WINAPI GetCharWidthW(HDC dc, UINT first, UINT last, LPINT widths);
DESKTOP_API BOOL WINAPI GetCharABCWidthsW(HDC dc, UINT first, UINT last, ABC* widths);
DESKTOP_API BOOL WINAPI TextOutW(HDC dc, int x, int y, LPCWSTR text, int length);
DESKTOP_API BOOL WINAPI ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                                    UINT length, const INT* dx);
DESKTOP_API int WINAPI EnumFontsW(HDC dc, LPCWSTR face, FONTENUMPROCW proc, LPARAM data);
DESKTOP_API int WINAPI EnumFontFamiliesW(HDC dc, LPCWSTR face, FONTENUMPROCW proc, LPARAM data);
DESKTOP_API int WINAPI EnumFontFamiliesExW(HDC dc, LPLOGFONTW font, FONTENUMPROCW proc, LPARAM data,
                                           DWORD flags);

#define CreateDC CreateDCW
#define CreateIC CreateICW
#define CreateFont CreateFontW
#define CreateFontIndirect CreateFontIndirectW
#define EnumFonts EnumFontsW
#define EnumFontFamilies EnumFontFamiliesW
#define EnumFontFamiliesEx EnumFontFamiliesExW
#define ExtTextOut ExtTextOutW
#define GetCharABCWidths GetCharABCWidthsW
#define GetCharWidth GetCharWidthW
#define GetCharWidth32 GetCharWidth32W
#define GetObject GetObjectW
#define GetTextExtentExPoint GetTextExtentExPointW
#define GetTextExtentPoint GetTextExtentPointW
#define GetTextExtentPoint32 GetTextExtentPoint32W
#define GetTextFace GetTextFaceW
#define GetTextMetrics GetTextMetricsW
#define TextOut TextOutW

#include "winuser_drawing.h"
