// Numbers of the resources of the desktop tests.
#define IDS_HELLO 1
#define IDS_EMPTY 2
#define IDS_LONG 17
#define IDM_TEST 10
#define IDB_TEST 20
#define IDC_TEST 21
#define IDI_TEST 22
#define IDD_TEST 30
#define IDR_DATA 40
#define IDR_KEYS 50

#define ID_OPEN 200
#define ID_CLOSE 201
#define ID_RECENT 202

#define IDC_LABEL 100
#define IDC_NAME 101
#define IDC_BOLD 102
#define IDC_LEFT 103
#define IDC_RIGHT 104
#define IDC_LIST 105
