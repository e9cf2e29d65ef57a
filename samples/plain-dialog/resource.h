#pragma once

#define IDD_MAIN 100
#define IDD_PERSON 101
#define IDD_NOTES 102
#define IDD_SHEET 103

#define IDC_TABS 200
#define IDC_STATUS 201
#define IDC_NAME 202
#define IDC_MAIL 203
#define IDC_NOTES 204
#define IDC_SHEET 205
