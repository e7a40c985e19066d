// The API's functions under their names without the W, for hosts that write ::SendMessage or ::LoadIcon,
// and for the system's own macros that do. Each calls the wide function of the same name.
#pragma once

#include <windows.h>
#include <shellapi.h>

inline BOOL AppendMenu(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
  return ::AppendMenuW(menu, flags, id, text);
}
inline LRESULT CallWindowProc(WNDPROC proc, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::CallWindowProcW(proc, window, message, wParam, lParam);
}
inline LPWSTR CharLower(LPWSTR text) { return ::CharLowerW(text); }
inline LPWSTR CharUpper(LPWSTR text) { return ::CharUpperW(text); }
inline int CompareString(LCID locale, DWORD flags, LPCWSTR a, int lengthA, LPCWSTR b, int lengthB) {
  return ::CompareStringW(locale, flags, a, lengthA, b, lengthB);
}
inline HANDLE CreateEvent(LPSECURITY_ATTRIBUTES attributes, BOOL manualReset, BOOL initialState,
                          LPCWSTR name) {
  return ::CreateEventW(attributes, manualReset, initialState, name);
}
inline HANDLE CreateFile(LPCWSTR fileName, DWORD access, DWORD shareMode, LPSECURITY_ATTRIBUTES security,
                         DWORD disposition, DWORD flags, HANDLE templateFile) {
  return ::CreateFileW(fileName, access, shareMode, security, disposition, flags, templateFile);
}
inline HFONT CreateFont(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                        DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                        DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCWSTR face) {
  return ::CreateFontW(height, width, escapement, orientation, weight, italic, underline, strikeOut, charSet,
                       outPrecision, clipPrecision, quality, pitchAndFamily, face);
}
inline HFONT CreateFontIndirect(const LOGFONTW* font) { return ::CreateFontIndirectW(font); }
inline HWND CreateWindowEx(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                           int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param) {
  return ::CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menu, instance,
                           param);
}
inline LRESULT DefWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::DefWindowProcW(window, message, wParam, lParam);
}
inline BOOL DeleteFile(LPCWSTR fileName) { return ::DeleteFileW(fileName); }
inline LRESULT DispatchMessage(const MSG* msg) { return ::DispatchMessageW(msg); }
inline BOOL DrawState(HDC dc, HBRUSH brush, DRAWSTATEPROC proc, LPARAM data, WPARAM extra, int x, int y,
                      int width, int height, UINT flags) {
  return ::DrawStateW(dc, brush, proc, data, extra, x, y, width, height, flags);
}
inline int DrawText(HDC dc, LPCWSTR text, int length, LPRECT rect, UINT format) {
  return ::DrawTextW(dc, text, length, rect, format);
}
inline int DrawTextEx(HDC dc, LPWSTR text, int length, LPRECT rect, UINT format, LPDRAWTEXTPARAMS params) {
  return ::DrawTextExW(dc, text, length, rect, format, params);
}
inline int EnumFonts(HDC dc, LPCWSTR face, FONTENUMPROCW proc, LPARAM data) {
  return ::EnumFontsW(dc, face, proc, data);
}
inline BOOL ExtTextOut(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT length,
                       const INT* dx) {
  return ::ExtTextOutW(dc, x, y, options, rect, text, length, dx);
}
inline HANDLE FindFirstFile(LPCWSTR pattern, LPWIN32_FIND_DATAW data) {
  return ::FindFirstFileW(pattern, data);
}
inline BOOL FindNextFile(HANDLE search, LPWIN32_FIND_DATAW data) { return ::FindNextFileW(search, data); }
inline HRSRC FindResource(HMODULE module, LPCWSTR name, LPCWSTR type) {
  return ::FindResourceW(module, name, type);
}
inline HWND FindWindow(LPCWSTR className, LPCWSTR title) { return ::FindWindowW(className, title); }
inline HWND FindWindowEx(HWND parent, HWND after, LPCWSTR className, LPCWSTR title) {
  return ::FindWindowExW(parent, after, className, title);
}
inline DWORD FormatMessage(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId, LPWSTR buffer,
                           DWORD size, va_list* arguments) {
  return ::FormatMessageW(flags, source, messageId, languageId, buffer, size, arguments);
}
inline BOOL GetCharABCWidths(HDC dc, UINT first, UINT last, ABC* widths) {
  return ::GetCharABCWidthsW(dc, first, last, widths);
}
inline BOOL GetCharWidth(HDC dc, UINT first, UINT last, LPINT widths) {
  return ::GetCharWidthW(dc, first, last, widths);
}
inline BOOL GetClassInfo(HINSTANCE instance, LPCWSTR name, LPWNDCLASSW wc) {
  return ::GetClassInfoW(instance, name, wc);
}
inline DWORD GetClassLong(HWND window, int index) { return ::GetClassLongW(window, index); }
inline ULONG_PTR GetClassLongPtr(HWND window, int index) { return ::GetClassLongPtrW(window, index); }
inline int GetClassName(HWND window, LPWSTR name, int size) { return ::GetClassNameW(window, name, size); }
inline UINT GetDlgItemText(HWND dialog, int id, LPWSTR text, int size) {
  return ::GetDlgItemTextW(dialog, id, text, size);
}
inline DWORD GetEnvironmentVariable(LPCWSTR name, LPWSTR buffer, DWORD size) {
  return ::GetEnvironmentVariableW(name, buffer, size);
}
inline int GetKeyNameText(LONG lParam, LPWSTR text, int size) {
  return ::GetKeyNameTextW(lParam, text, size);
}
inline BOOL GetMenuItemInfo(HMENU menu, UINT item, BOOL byPosition, LPMENUITEMINFOW info) {
  return ::GetMenuItemInfoW(menu, item, byPosition, info);
}
inline int GetMenuString(HMENU menu, UINT item, LPWSTR text, int size, UINT flags) {
  return ::GetMenuStringW(menu, item, text, size, flags);
}
inline BOOL GetMessage(LPMSG msg, HWND window, UINT first, UINT last) {
  return ::GetMessageW(msg, window, first, last);
}
inline DWORD GetModuleFileName(HMODULE module, LPWSTR fileName, DWORD size) {
  return ::GetModuleFileNameW(module, fileName, size);
}
inline HMODULE GetModuleHandle(LPCWSTR name) { return ::GetModuleHandleW(name); }
inline int GetObject(HANDLE object, int size, LPVOID buffer) { return ::GetObjectW(object, size, buffer); }
inline UINT GetPrivateProfileInt(LPCWSTR section, LPCWSTR key, INT defaultValue, LPCWSTR fileName) {
  return ::GetPrivateProfileIntW(section, key, defaultValue, fileName);
}
inline DWORD GetPrivateProfileString(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue, LPWSTR buffer,
                                     DWORD size, LPCWSTR fileName) {
  return ::GetPrivateProfileStringW(section, key, defaultValue, buffer, size, fileName);
}
inline HANDLE GetProp(HWND window, LPCWSTR name) { return ::GetPropW(window, name); }
inline DWORD GetTabbedTextExtent(HDC dc, LPCWSTR text, int length, int tabCount, const INT* tabs) {
  return ::GetTabbedTextExtentW(dc, text, length, tabCount, tabs);
}
inline BOOL GetTextExtentPoint(HDC dc, LPCWSTR text, int length, LPSIZE extent) {
  return ::GetTextExtentPointW(dc, text, length, extent);
}
inline BOOL GetTextExtentPoint32(HDC dc, LPCWSTR text, int length, LPSIZE extent) {
  return ::GetTextExtentPoint32W(dc, text, length, extent);
}
inline int GetTextFace(HDC dc, int count, LPWSTR face) { return ::GetTextFaceW(dc, count, face); }
inline BOOL GetTextMetrics(HDC dc, LPTEXTMETRICW metrics) { return ::GetTextMetricsW(dc, metrics); }
inline LONG GetWindowLong(HWND window, int index) { return ::GetWindowLongW(window, index); }
inline LONG_PTR GetWindowLongPtr(HWND window, int index) { return ::GetWindowLongPtrW(window, index); }
inline int GetWindowText(HWND window, LPWSTR text, int size) { return ::GetWindowTextW(window, text, size); }
inline int GetWindowTextLength(HWND window) { return ::GetWindowTextLengthW(window); }
inline BOOL GrayString(HDC dc, HBRUSH brush, GRAYSTRINGPROC output, LPARAM data, int length, int x, int y,
                       int width, int height) {
  return ::GrayStringW(dc, brush, output, data, length, x, y, width, height);
}
inline BOOL InsertMenu(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text) {
  return ::InsertMenuW(menu, position, flags, id, text);
}
inline BOOL InsertMenuItem(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info) {
  return ::InsertMenuItemW(menu, item, byPosition, info);
}
inline BOOL IsDialogMessage(HWND dialog, tagMSG* message) { return ::IsDialogMessageW(dialog, message); }
inline HACCEL LoadAccelerators(HINSTANCE module, LPCWSTR name) { return ::LoadAcceleratorsW(module, name); }
inline HBITMAP LoadBitmap(HINSTANCE module, LPCWSTR name) { return ::LoadBitmapW(module, name); }
inline HCURSOR LoadCursor(HINSTANCE module, LPCWSTR name) { return ::LoadCursorW(module, name); }
inline HICON LoadIcon(HINSTANCE module, LPCWSTR name) { return ::LoadIconW(module, name); }
inline HANDLE LoadImage(HINSTANCE module, LPCWSTR name, UINT type, int cx, int cy, UINT flags) {
  return ::LoadImageW(module, name, type, cx, cy, flags);
}
inline HMODULE LoadLibrary(LPCWSTR fileName) { return ::LoadLibraryW(fileName); }
inline HMENU LoadMenu(HINSTANCE module, LPCWSTR name) { return ::LoadMenuW(module, name); }
inline HMENU LoadMenuIndirect(const void* menuTemplate) { return ::LoadMenuIndirectW(menuTemplate); }
inline int LoadString(HINSTANCE module, UINT id, LPWSTR text, int size) {
  return ::LoadStringW(module, id, text, size);
}
inline int MessageBox(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
  return ::MessageBoxW(owner, text, caption, type);
}
inline BOOL ModifyMenu(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text) {
  return ::ModifyMenuW(menu, position, flags, id, text);
}
inline BOOL PeekMessage(LPMSG msg, HWND window, UINT first, UINT last, UINT remove) {
  return ::PeekMessageW(msg, window, first, last, remove);
}
inline BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::PostMessageW(window, message, wParam, lParam);
}
inline BOOL PostThreadMessage(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::PostThreadMessageW(thread, message, wParam, lParam);
}
inline ATOM RegisterClass(const WNDCLASSW* wc) { return ::RegisterClassW(wc); }
inline ATOM RegisterClassEx(const WNDCLASSEXW* wc) { return ::RegisterClassExW(wc); }
inline UINT RegisterWindowMessage(LPCWSTR name) { return ::RegisterWindowMessageW(name); }
inline HANDLE RemoveProp(HWND window, LPCWSTR name) { return ::RemovePropW(window, name); }
inline LRESULT SendDlgItemMessage(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendDlgItemMessageW(dialog, id, message, wParam, lParam);
}
inline LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendMessageW(window, message, wParam, lParam);
}
inline BOOL SendNotifyMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return ::SendNotifyMessageW(window, message, wParam, lParam);
}
inline BOOL SetDlgItemText(HWND dialog, int id, LPCWSTR text) { return ::SetDlgItemTextW(dialog, id, text); }
inline BOOL SetMenuItemInfo(HMENU menu, UINT item, BOOL byPosition, LPCMENUITEMINFOW info) {
  return ::SetMenuItemInfoW(menu, item, byPosition, info);
}
inline BOOL SetProp(HWND window, LPCWSTR name, HANDLE data) { return ::SetPropW(window, name, data); }
inline LONG SetWindowLong(HWND window, int index, LONG value) {
  return ::SetWindowLongW(window, index, value);
}
inline LONG_PTR SetWindowLongPtr(HWND window, int index, LONG_PTR value) {
  return ::SetWindowLongPtrW(window, index, value);
}
inline BOOL SetWindowText(HWND window, LPCWSTR text) { return ::SetWindowTextW(window, text); }
inline HINSTANCE ShellExecute(HWND owner, LPCWSTR operation, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder,
                              INT showCommand) {
  return ::ShellExecuteW(owner, operation, file, parameters, folder, showCommand);
}
inline BOOL SystemParametersInfo(UINT action, UINT param, PVOID data, UINT winIni) {
  return ::SystemParametersInfoW(action, param, data, winIni);
}
inline LONG TabbedTextOut(HDC dc, int x, int y, LPCWSTR text, int length, int tabCount, const INT* tabs,
                          int tabOrigin) {
  return ::TabbedTextOutW(dc, x, y, text, length, tabCount, tabs, tabOrigin);
}
inline BOOL TextOut(HDC dc, int x, int y, LPCWSTR text, int length) {
  return ::TextOutW(dc, x, y, text, length);
}
inline int TranslateAccelerator(HWND window, HACCEL table, tagMSG* message) {
  return ::TranslateAcceleratorW(window, table, message);
}
inline BOOL UnregisterClass(LPCWSTR name, HINSTANCE instance) { return ::UnregisterClassW(name, instance); }

inline HWND CreateWindow(LPCWSTR className, LPCWSTR name, DWORD style, int x, int y, int width, int height,
                         HWND parent, HMENU menu, HINSTANCE instance, LPVOID param) {
  return ::CreateWindowExW(0, className, name, style, x, y, width, height, parent, menu, instance, param);
}
inline HWND GetNextWindow(HWND window, UINT direction) { return ::GetWindow(window, direction); }
