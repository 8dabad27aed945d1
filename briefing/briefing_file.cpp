// The menu commands of the briefing: about, write the briefing file, quit.
#include "briefing/briefing_file.h"

#include <initializer_list>

#include "briefing/composer.h"
#include "briefing/request.h"
#include "base/alert.h"
#include "base/shutdown.h"
#include "platform/platform.h"
#include "util/prefs.h"
#include "util/text.h"

static const char BRIEFING_FILE[] = "Vocalog.txt";

void brief_put_paragraphs(OutFile* f) {
    for (const char* p : {brief_req.intro, brief_req.dep_wx, brief_req.enroute_wx, brief_req.dest_wx}) {
        out_text(f, p);
        out_text(f, "\n\n");
    }
}

int32_t brief_save(const char* path) {
    out_clear(&fio_out);
    if (fio_out.file) out_close(&fio_out);
    out_clear(&fio_out);
    out_open(&fio_out, path, false);
    brief_put_paragraphs(&fio_out);
    out_close(&fio_out);
    return out_good(&fio_out) ? 1 : 0;
}

void brief_write_file(int32_t command) {
    if (command == CMD_ABOUT) MACIBM_alert(0, "", "", "", "", ALERT_ABOUT);
    if (command == CMD_WRITE_BRIEFING) {
        MACIBM_alert(0, "I will now create a file called 'Vocalog.txt' with this briefing in it.",
                     "You may print it for reference during your flight.",
                     "This is common practice in real aviation.", "", ALERT_NOTE);
        brief_compose();
        if (!brief_save(BRIEFING_FILE)) {
            // The pilot was just told the file is being written: say where it could not be.
            Text path = "";
            plat_current_folder(path, sizeof path - sizeof BRIEFING_FILE);
            str_append(path, BRIEFING_FILE);
            MACIBM_alert(0, "I could not save the briefing file!", path,
                         "Could the folder be read-only, or the disk full?", "", ALERT_NOTE);
        }
    }
    if (command == CMD_QUIT) quit_requested = 1;
}
