// The application's hooks that the shell calls: drawing, keys and menu commands.
#pragma once
#include <cstdint>

using AppDrawFn = void (*)();
using AppKeyFn = void (*)(int32_t key_class, int32_t key);
using AppMenuFn = void (*)(int32_t command);

// The application installs its functions once; a hook not installed does nothing.
void app_set_hooks(AppDrawFn draw, AppKeyFn key, AppMenuFn menu_cmd);

void app_draw();                                // each drawn pass, on the application's screens
void app_key(int32_t key_class, int32_t key);   // every key-down, unless screen 999 is current
void app_menu_cmd(int32_t command);             // a menu item was picked

// Work the application starts during start-up once the folder table and preferences are read,
// just before the window opens, so that it runs beside the window's and GL's set-up (which
// take the most time of a start). Installed before MACIBM_init; at most once per start.
using AppStartFn = void (*)();
void app_set_start_work(AppStartFn fn);
void app_start_work();
