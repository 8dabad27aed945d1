// Loading the current language's menus and texts at start-up.
#include "graphics/bitmap.h"
#include "kit/faces.h"
#include "shell/language.h"
#include "shell/menus.h"
#include "shell/text_table.h"
#include "util/folders.h"

static const char* const LANGUAGE_FILE = "Vocalog.txt";
// The Korean glyph sheet in the menus folder, named as the art generator writes it.
static const char* const KOREAN_SHEET = "korean:menu_text.bmp";

void MACIBM_load_text() {
    Text folder;
    language_folder(folders.path[FOLDER_TEXTS], folder);
    if (language_is_korean()) {
        Text sheet;
        int32_t w = 0, h = 0;
        str_join(folders.path[FOLDER_MENUS], KOREAN_SHEET, sheet);
        OGL_texbmp(BMP_TEXTURE, OGL_TEX_KOREAN, BMP_MAGENTA_CLEAR, sheet, &w, &h);
    }
    MACIBM_load_menus(LANGUAGE_FILE);
    Text path;
    str_join(folder, LANGUAGE_FILE, path);
    text_file_read(path);
}
