/* The numbers of the texts in the string tables. Read by the resource compiler, too. */
#pragma once

#define TEXT_TABS 201
#define TEXT_TAB_NUMBER 202
#define TEXT_NUMBER_OF 203
#define TEXT_CLOSE 204
#define TEXT_PREVIOUS 205
#define TEXT_NEXT 206
#define TEXT_MENU 207
#define TEXT_SWITCH 208
#define TEXT_PRESS 209
