/* The numbers of the pages' dialogs, of what stands on them, and of their texts. Read by the resource compiler, too. */
#pragma once

/* A page's title has its dialog's number, what it is for the next one. */
#define PAGE_GENERAL 300
#define PAGE_SKIN 302

/* On every page. */
#define PAGE_PICTURE 310
#define PAGE_STATUS 311

/* What a control is for stands under its number. */
#define GENERAL_SIDE 320
#define GENERAL_PLACE 321
#define GENERAL_WIDTH 322
#define GENERAL_GAP 323
#define GENERAL_MARGIN 324
#define GENERAL_EDGES 325
#define GENERAL_CLOSE 326
#define SKIN_FOLDER 330
#define SKIN_FILE 331
#define SKIN_SETTINGS 332
#define SKIN_LIST 333
#define SKIN_FAULTS 334

/* What stands in place of the faults where there are none. */
#define TEXT_NO_FAULTS 336

/* The choices of a list, in the order of their values; one more than the last is no text. */
#define CHOICES_SIDE 340
#define CHOICES_PLACE 350
