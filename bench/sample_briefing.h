// The briefing of the bundled sample world that speech benchmarks say: KSFO to KLAX in the
// C172SP at 6500 feet, seed 7, from the sample world staged in the program's folder.
#pragma once
#include <string>

#include "briefing/aircraft.h"
#include "briefing/airports.h"
#include "briefing/composer.h"
#include "briefing/request.h"
#include "briefing/world.h"
#include "platform/platform.h"
#include "util/folders.h"
#include "util/random.h"
#include "util/text.h"

// Composes it into brief_req; false when the sample world is not there.
inline bool bench_sample_briefing() {
    char sim[STR_SIZE], user[STR_SIZE] = "";
    if (!plat_program_folder(sim, sizeof sim)) return false;
    folders_fill(sim, user);
    if (brief_load_world() != 1) return false;
    if (apt_find_code("KSFO", 1, &brief_req.departure) != 1 || apt_find_code("KLAX", 1, &brief_req.destination) != 1)
        return false;
    const std::string acf = std::string(sim) + "Aircraft/C172SP.acf";
    str_copy(acf.c_str(), brief_req.aircraft_path);
    str_copy("C172SP.acf", brief_req.aircraft_name);
    if (acf_read(0, brief_req.aircraft_path) != 1) return false;
    brief_req.speed = speed_from_aircraft();
    brief_req.altitude = 6500.0f;
    rand_set_state(7);
    brief_compose();
    return true;
}
