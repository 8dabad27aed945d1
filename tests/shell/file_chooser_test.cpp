// The file chooser driven through the event pass: each frame's swap posts the next scripted
// input, as the window would deliver it between passes.
#include <filesystem>

#include "shell/file_chooser.h"
#include "tests/shell/shell_fixture.h"
#include "util/file_types.h"
#include "util/folder_list.h"

namespace fs = std::filesystem;

// One frame's input: a press at a point of the dialog's panel, or keys.
struct Input {
    float x = -1, y = -1;
    std::vector<uint32_t> keys;
};
static Input at(float x, float y) { return {x, y, {}}; }
static Input row(int k) { return at(100, 168 - 10.0f * (float)k); }  // k rows below the selected one
static const Input UP = at(163, 287), CANCEL = at(163, 52), RETURN{-1, -1, {PLAT_VK_RETURN}};

static std::vector<Input> script;
static size_t next_input;
constexpr size_t FORCED_OUT = 1000;

// Posts the next frame's input; once the script is spent, a dialog still open is closed.
static int32_t on_swap() {
    if (next_input < script.size()) {
        const Input& in = script[next_input++];
        for (uint32_t vk : in.keys) plat_post_message({PLAT_MSG_KEYDOWN, vk, 0, 0});
        if (in.x >= 0) {
            const uint32_t px = (uint32_t)(in.x + panel_x), py = (uint32_t)(768 - (in.y + panel_y));
            for (uint32_t m : {PLAT_MSG_MOUSEMOVE, PLAT_MSG_LBUTTONDOWN, PLAT_MSG_LBUTTONUP})
                plat_post_message({m, 0, (intptr_t)(py << 16 | px), 0});
        }
    } else if (next_input++ > script.size() + 3 && screen_is_modal(cur_screen)) {
        next_input = FORCED_OUT, MACIBM_open_screen(SCREEN_MAIN);
    }
    return 1;
}

class Chooser : public Shell {
protected:
    S root = test_temp_dir(), prog = root + "Sim: 2025/";  // a program folder holding a ":"
    void SetUp() override {
        Shell::SetUp();
        listing_reset(), chooser_reset();
        for (S f : {"B.acf", "a.ACF", "notes.txt", "Heavy/x.acf", "Heavy/y.acf",
                    "Heavy/Zeppelin NT, a name far too long to show.acf", "../Output/FMS plans/KSFO-KLAX.fms"})
            fs::create_directories(fs::path(prog + "Aircraft/" + f).parent_path()), test_write_file(prog + "Aircraft/", f, "");
        folders_fill(prog.c_str(), prog.c_str());
        MACIBM_window_proc(nullptr, PLAT_MSG_PAINT, 0, 0);
        OGL_set_swap(on_swap);
    }
    void TearDown() override { Shell::TearDown(), fs::remove_all(root); }
};

TEST_F(Chooser, WalksPicksTypesAndCancels) {
    const S keep_name = "keep.acf", keep_path = "Aircraft:keep.acf";
    const S typed = S(37, 'q');  // 'Q' pressed 37 times after the name it starts with
    struct Row {  // the expected path and work folder below the program folder
        const char* what;
        int32_t screen, type;
        std::vector<Input> inputs;
        int32_t result;
        S name, path, work;
    } rows[] = {
        // B.acf, Heavy, a.ACF: Heavy is the middle; inside it Zeppelin.., x.acf, y.acf.
        {"pick a folder, then a file above", 998, FILE_TYPE_AIRCRAFT, {row(0), row(-1)}, 1,
         "Zeppelin NT, a name far too long to show.acf", "Aircraft/Heavy/Zeppelin NT, a name far too long to show.acf",
         "Aircraft/Heavy/"},
        {"no way up from a plan's own folder", 998, FILE_TYPE_FLIGHT_PLAN, {UP, CANCEL}, 0, keep_name, keep_path,
         "Output/FMS plans/"},
        {"a file pick does not save", 999, FILE_TYPE_AIRCRAFT, {row(-1), CANCEL}, 0, keep_name, keep_path, "Aircraft/"},
        {"typed names are cut to 30", 999, FILE_TYPE_TEXT,
         {Input{-1, -1, std::vector<uint32_t>(typed.size(), 'Q')}, RETURN}, 1, (keep_name + typed).substr(0, 30),
         (keep_name + typed).substr(0, 30), ""},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.what);
        script = r.inputs, next_input = 0;
        str_copy(prog.c_str(), work_folder());
        Text name, path;
        str_copy(keep_name.c_str(), name), str_copy(keep_path.c_str(), path);
        const int32_t result = opensave(r.screen, r.type, name, path);
        // Closed by the frame that answers the last input, back on the screen it came from.
        EXPECT_TRUE(next_input == r.inputs.size() + 1 && cur_screen == SCREEN_MAIN);
        EXPECT_EQ(std::tuple(result, S(name), S(path), S(work_folder())),
                  std::tuple(r.result, r.name, r.result ? prog + r.path : r.path, prog + r.work));
    }
}
