// Numbers of the test program's resources. For C++ and for resources.
#pragma once

#define IDR_TEST_FRAME 2100
#define IDD_TEST_DIALOG 2101
#define IDC_TEST_OPEN 33000
#define IDC_TEST_NOBODY 33001
#define IDS_TEST_PANE 33002
#define IDC_TEST_EDIT 101
#define IDC_TEST_CHECK 102
#define IDC_TEST_RADIO_1 103
#define IDC_TEST_RADIO_2 104
#define IDC_TEST_NUMBER 105
#define IDC_TEST_PUSH 33003
