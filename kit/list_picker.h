// The list picker: one entry of a long table chosen by pointing, scrolling or typing. The list
// is always centred on the selected entry, so scrolling moves the selection itself.
#pragma once
#include <cstdint>

constexpr int32_t LIST_NAME_SIZE = 40;  // names: entry i at byte 40 i, up to 39 characters
constexpr int32_t LIST_TAG_SIZE = 5;    // tags: entry i at byte 5 i, up to 4 characters
constexpr int32_t LIST_ROWS_HALF = 10;  // rows shown above and below the selected one
constexpr float LIST_ROW_H = 10.0f;
constexpr int32_t SEARCH_NAME = 0, SEARCH_CODE = 1;  // search_field: the active field
constexpr int32_t SEARCH_CODE_LEN = 4;

// (x, y) is the left end of the rows at the height of the selected row.
//  zone                                   | input     | effect
//  x .. x + 270, y - 105 .. y + 105       | press     | the row under the pointer is selected
//                                         |           | (rows are 10 high, row 0 from y - 5 up
//                                         |           | to y + 5); returns 1
//  scroll bar at x + 302, y - 130..y + 130| see scroll_bar.h, on the index
//  x .. x + 232, y - 157 .. y - 137       | press     | name field active, search emptied; 1
//  x + 235 .. x + 275, same band          | press     | code field active, search emptied; 1
//  (mode 998 and 999 have no search fields; the bands above do nothing there)
//  name field active                      | key down  | index = first entry from 0 whose whole
//                                         |           | name is not below the search (case-blind)
//  code field active                      | every pass| search cut to 4 and upper-cased
//                                         | key down  | index = the entry the code search finds,
//                                         |           | else 0
//  Every pass the index ends within first .. last; last < first shows only the box.
int32_t BTN_list_picker(float x, float y, const char* names, const char* tags, int32_t* index, int32_t first,
                        int32_t last, int32_t mode, char* search, int32_t* search_field);

// The code search the application installs (the airport table's look-up): writes the index of
// the entry with `code` and returns 1, or returns 0. Without one a code finds nothing.
using CodeSearchFn = int8_t (*)(const char* code, int32_t kind, int32_t* index_out);
void BTN_set_code_search(CodeSearchFn fn);
// The kind handed to the code search: 1, airports, for every picker of this program.
extern int32_t BTN_search_kind;

// The name search alone: from entry 0, the first entry in first .. last - 1 whose name is
// not below `text` in a case-blind comparison of whole names; else where the walk stopped.
int32_t BTN_list_find_name(const char* names, int32_t first, int32_t last, const char* text);

void list_picker_reset();  // no code search, kind 1
