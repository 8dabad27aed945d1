// The application's hooks: installed function pointers, called by the shell.
#include "shell/app_hooks.h"

static AppDrawFn draw_fn = nullptr;
static AppKeyFn key_fn = nullptr;
static AppMenuFn menu_fn = nullptr;
static AppStartFn start_fn = nullptr;

void app_set_hooks(AppDrawFn draw, AppKeyFn key, AppMenuFn menu_cmd) {
    draw_fn = draw;
    key_fn = key;
    menu_fn = menu_cmd;
}

void app_draw() {
    if (draw_fn) draw_fn();
}

void app_key(int32_t key_class, int32_t key) {
    if (key_fn) key_fn(key_class, key);
}

void app_menu_cmd(int32_t command) {
    if (menu_fn) menu_fn(command);
}

void app_set_start_work(AppStartFn fn) { start_fn = fn; }

void app_start_work() {
    if (start_fn) start_fn();
}
