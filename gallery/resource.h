// Numbers of the gallery's resources.
#pragma once

#define IDR_MAINFRAME 128

#define IDS_PANE_BUFFER 200
#define IDS_PANE_SIZE 201

// One command per page, in their order.
#define ID_PAGE_FIRST 32800
#define ID_PAGE_WELCOME 32800
#define ID_PAGE_DRAWING 32801
#define ID_PAGE_ABOUT 32802
#define ID_PAGE_LAST 32802
#define ID_PAGE_NEXT 32820
#define ID_PAGE_PREVIOUS 32821
