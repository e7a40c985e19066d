// Numbers of the library's resources. Read by the resource compiler too: plain #defines only.
#ifndef VORNCOMCTL_RESOURCES_VORNRESOURCE_H
#define VORNCOMCTL_RESOURCES_VORNRESOURCE_H

// Bitmaps. All are strips of images; the transparent colour is given in brackets.
#define IDB_VORN_SHORTCUT 130    // mark of a shortcut, 7 pixels (0x00FF00)
#define IDB_VORN_CHECKBOXES 138  // empty, checked, 16 pixels (0xFF00FF)
#define IDB_VORN_BUTTONS 5002    // plus, minus, 9 pixels (0xFF00FF)
#define IDB_VORN_BAR 6000        // close, float beside, float above or below, 10 pixels (0xFF00FF)

// Cursors
#define IDC_VORN_MOVE_SEVERAL 5010
#define IDC_VORN_COPY_SEVERAL 5011
#define IDC_VORN_TREE 5012
#define IDC_VORN_NODROP_SEVERAL 5013
#define IDC_VORN_COPY_ONE 5014
#define IDC_VORN_NODROP_ONE 5015

// Menus, each one pop-up, and their commands
#define IDR_VORN_RDRAG 5005
#define IDR_VORN_CONTEXT 5006
#define ID_VORN_RDRAG_COPY 5006
#define ID_VORN_RDRAG_SHORTCUT 5007
#define ID_VORN_RDRAG_CANCEL 5008
#define ID_VORN_RDRAG_MOVE 5009
#define ID_VORN_PREFERENCES 5040

// Commands of a bar's own buttons; their captions have the same numbers.
#define ID_VORN_BAR_CLOSE 6000
#define ID_VORN_BAR_FLOAT 6001

// Strings
#define IDS_VORN_PREFERENCES 5010

// Preferences: colours and display
#define IDD_VORN_GENERAL 5020
#define IDC_VORN_BACK_DEFAULT 5021
#define IDC_VORN_BACK_CUSTOM 5022
#define IDC_VORN_TEXT_DEFAULT 5023
#define IDC_VORN_TEXT_CUSTOM 5024
#define IDC_VORN_FONT 5025
#define IDC_VORN_FONT_SIZE 5026
#define IDC_VORN_SAMPLE 5027

// Preferences: mouse
#define IDD_VORN_MOUSE 5030
#define IDC_VORN_LABEL_EDIT 5031
#define IDC_VORN_EDIT_DELAY 5032
#define IDC_VORN_TOOLTIPS 5050

// Preferences: drag and drop
#define IDD_VORN_DND 5031
#define IDC_VORN_DND 5033
#define IDC_VORN_MARGIN_CX 5034
#define IDC_VORN_MARGIN_CY 5035
#define IDC_VORN_DND_STANDARD 5051
#define IDC_VORN_DND_ADVANCED 5052
#define IDC_VORN_DND_ARRANGE 5053
#define IDC_VORN_IMAGE_RIGHT 5054
#define IDC_VORN_IMAGE_POINT 5055

#endif
