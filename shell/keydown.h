// A key-down as the program sees it: the application's key hook, typed text, the Return click.
#pragma once
#include <cstdint>

void MACIBM_keydown(uint32_t virtual_key);
