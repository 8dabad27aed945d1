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
