// The numbers of the program's resources. Macros, because the resource compiler reads this as well.
#pragma once

// The program's own icon: the lowest number, because the shell shows the first icon of a file.
#define IDI_APP 1

// Picture n of the program's image list Im1, counted from 1, is the icon IDI_PICTURES + n. There is
// no icon for 15: that place takes the pictures that come from the shell.
#define IDI_PICTURES 100
#define IDI_NO_ICON 101
#define IDI_MENU 102
#define IDI_BACK 103
#define IDI_REVERT 104
#define IDI_HOME 105
#define IDI_OPTIONS 106
#define IDI_EDIT 107
#define IDI_NEW 108
#define IDI_REMOVE 109
#define IDI_BROWSE 110
#define IDI_MOVE_UP 111
#define IDI_MOVE_DOWN 112
#define IDI_OPEN 113
#define IDI_SAVE 114
#define IDI_HELP 116
#define IDI_FONT 117
#define IDI_APPLY 118
#define IDI_CANCEL 119

// The dialogs and their controls.
#define IDD_SOPEN 200
#define IDC_OPEN_EXISTING 201
#define IDC_CREATE_NEW 202
#define IDC_PATH 203
#define IDC_BROWSE 204

#define IDD_OPTIONS 210
// Four option buttons, in the order of the stored values.
#define IDC_O1 211
#define IDC_SUPPORT 215

// The support window: its labels and boxes by the names that the system gives them.
#define IDD_SUPPORT 220
#define IDC_LABEL1 221
#define IDC_LABEL5 222
#define IDC_TEXT4 223
#define IDC_TEXT1 224
// Four count boxes, in the order of CountBox.
#define IDC_TEXT2 225
#define IDC_TEXT3 229
// Check boxes, in the order of kServerSystems and kWorkstationSystems.
#define IDC_CHECK1 230
#define IDC_CHECK2 235
#define IDC_COMMAND1 241
#define IDC_COMMAND3 242
