// The services Vocalog asks of the machine it runs on; every platform layer implements these.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdio>

// ---- system services (platform/posix) ----

// Milliseconds since the system started; wraps like a 32-bit tick counter.
uint32_t plat_ticks_ms();

// The folder of the running executable, with its trailing separator. False when unknown.
bool plat_program_folder(char* out, size_t size);

// The process's working folder, with its trailing separator. False when unknown.
bool plat_current_folder(char* out, size_t size);

// The per-user data folder the suite's programs share, with its trailing separator:
// $XDG_DATA_HOME/Zephyra/ or ~/.local/share/Zephyra/. Nothing is created here.
bool plat_user_folder(char* out, size_t size);

// Creates `folder` (ending with its separator) and the folders above it that are missing.
bool plat_make_folders(const char* folder);

// Calls `each` for every entry of `folder` (platform form, with or without a trailing
// separator) in the order the system returns them, "." and ".." included, until `each`
// returns false. Returns the number of entries handed over, or -1 when the folder cannot
// be searched.
using PlatListFn = bool (*)(const char* name, bool is_folder, void* ctx);
int plat_list_folder(const char* folder, PlatListFn each, void* ctx);

// The size of the large pages plat_large_pages asks for; tables meant for them are aligned to it.
constexpr size_t PLAT_LARGE_PAGE = 2u << 20;
// Asks for [start, start + size) to be backed by large pages where the system has them, so
// that a big table filled in one go costs a few page faults instead of thousands. Nothing
// happens where it cannot.
void plat_large_pages(void* start, size_t size);

// ---- saving a file (platform/posix) ----

// How a save writes its file: a new file put in place of the target at the end (the target
// holds the old or the new data, never a mix), or the target itself overwritten when its
// folder cannot take a new file.
enum : int32_t { PLAT_SAVE_REPLACE = 0, PLAT_SAVE_IN_PLACE = 1 };
constexpr int32_t PLAT_ERR_NOT_REGULAR = -1;  // PlatSave::error: the target is no regular file
constexpr size_t PLAT_PATH_MAX = 4096;

struct PlatSave {
    int fd;             // open for writing; -1 when there is no file
    int32_t how;        // PLAT_SAVE_*
    int32_t error;      // why it failed: an errno value or PLAT_ERR_NOT_REGULAR; 0 when it did not
    char target[PLAT_PATH_MAX];  // the file written: the path given, its links followed
    char temp[PLAT_PATH_MAX];    // a named temporary file, where no unnamed one can be made
};

// Opens a save of `path`. Symbolic links are followed to the file they name; that file must
// be a regular file or not exist yet, and must be writable. The data goes to a file without
// a name in the target's folder, with the target's mode (a new file: 0666 less the umask),
// which only plat_save_end links in, so a killed process leaves nothing behind. A folder
// that takes no new file makes the save write the target in place. False (error set, no
// file open) when the target cannot be saved.
bool plat_save_begin(const char* path, PlatSave* save);
// Ends the save with `fd` still open: with `keep` the new file replaces the target; without,
// it is dropped. A save in place is left to the caller, who truncates and closes the file.
// False (error set) when the replacement fails. The caller closes `fd` afterwards.
bool plat_save_end(PlatSave* save, bool keep);
// The reason text of a PlatSave error.
const char* plat_save_reason(int32_t error);

// Opens `path` for reading only when it names a regular file (links followed); a FIFO, a
// device or a folder never blocks or reads as data. The open file, or null (errno set).
FILE* plat_open_regular(const char* path);

// ---- user-facing services (platform/sdl or platform/null) ----

// Sounds the system's default alert beep (where there is one).
void plat_beep();

// Shows `text` modally with `title`, an information icon and a single OK button, and
// returns when the user dismisses it. Without a display it writes the text to standard
// error and returns at once; it never blocks a headless run.
void plat_message_box(const char* title, const char* text);

// Shows or hides the system's pointer over the window (hidden while the program draws its own).
void plat_show_pointer(bool shown);
bool plat_pointer_shown();

// ---- display, window and OpenGL context (platform/sdl; platform/null has no window) ----

// One display mode of the primary display. `fields` names the members the system filled
// in (PLAT_MODE_*); a mode qualifies for a switch only when all three are named.
enum : uint32_t { PLAT_MODE_WIDTH = 1, PLAT_MODE_HEIGHT = 2, PLAT_MODE_BITS = 4 };
struct PlatDisplayMode {
    uint32_t fields;
    int32_t width, height;  // pixels
    int32_t bits;           // colour bits per pixel
    int32_t refresh_hz;     // 0 when unknown
};

// Mode number `index` (0, 1, 2, ...) of the primary display in the system's order; false
// past the last one.
bool plat_display_mode(int32_t index, PlatDisplayMode* mode);

// Whether windows can be shown to a person. Without a display the windowed layer falls back
// to an offscreen driver; that counts only when VOCALOG_OFFSCREEN=1 asks for it (tests).
bool plat_display_present();
// Asks for a temporary switch of the primary display into `mode` (one that
// plat_display_mode listed). False when the system refuses it. Where modes can only be
// changed for a full-screen window, the switch is made when the window is created (and
// that creation fails if the system then refuses it).
bool plat_display_switch(const PlatDisplayMode* mode);
// Back to the user's normal mode; nothing when no switch was made.
void plat_display_restore();

// Creates the hidden, borderless top-level window at (0, 0) of width x height pixels,
// prepared for a double-buffered RGBA OpenGL context with `colour_bits` colour bits and a
// depth buffer (32 bits asked for, the nearest the system has accepted); no alpha,
// stencil or accumulation buffers. Queues the creation message (PLAT_MSG_CREATE). False
// when it cannot, leaving nothing open.
bool plat_window_create(int32_t width, int32_t height, int32_t colour_bits);
// Shows the window and queues a paint message.
void plat_window_show();
// Creates the window's OpenGL context (compatibility profile) and makes it current on the
// calling thread. False when either step fails.
bool plat_gl_create_context();
bool plat_gl_make_current();
// The three steps above in one call, for programs and tests that need a context quickly.
bool plat_window_open(int32_t width, int32_t height, int32_t colour_bits);
// Destroys the context and the window (in that order); the display mode is left alone.
// Safe to call when nothing is open.
void plat_window_close();
bool plat_window_is_open();
void* plat_window_handle();  // opaque; null when there is no window
// The size of the window's drawable in pixels (0 x 0 when there is none).
void plat_window_size(int32_t* width, int32_t* height);

// The address of an OpenGL entry point of the current context's library, or null.
void* plat_gl_proc(const char* name);
// Presents the back buffer.
void plat_gl_swap();
// Asks for `interval` vertical blanks per swap (1: vsync, 0: none). False when refused.
bool plat_gl_swap_interval(int32_t interval);
// The depth and colour bits of the current context's framebuffer (0 when unknown).
void plat_gl_buffer_bits(int32_t* colour_bits, int32_t* depth_bits);

// Waits until at least `interval_us` microseconds have passed since the previous call
// returned (the first call returns at once). Keeps a polling loop from running faster
// than it needs to. With `wake_on_input` the wait also ends as soon as the window has a
// message pending, so a long idle interval never delays a key or a pointer move.
void plat_pace(uint32_t interval_us, bool wake_on_input);

// ---- window messages ----
// Numbered as the Windows messages they stand for; the window handler treats them alike.
enum : uint32_t {
    PLAT_MSG_CREATE = 0x0001,
    PLAT_MSG_DESTROY = 0x0002,
    PLAT_MSG_PAINT = 0x000F,      // the window's contents must be redrawn (expose)
    PLAT_MSG_CLOSE = 0x0010,      // the user asked to close the window
    PLAT_MSG_KEYDOWN = 0x0100,    // wparam: virtual key (PLAT_VK_* below, letters 'A'..'Z', digits '0'..'9')
    PLAT_MSG_MOUSEMOVE = 0x0200,  // lparam: x in the low 16 bits, y in the next 16 (window pixels, y down)
    PLAT_MSG_LBUTTONDOWN = 0x0201,
    PLAT_MSG_LBUTTONUP = 0x0202,
    PLAT_MSG_RBUTTONDOWN = 0x0204,
    PLAT_MSG_RBUTTONUP = 0x0205,
};

// Virtual-key codes (the Windows values) of the keys that are not letters or digits.
enum : uint32_t {
    PLAT_VK_BACK = 0x08, PLAT_VK_TAB = 0x09, PLAT_VK_RETURN = 0x0D, PLAT_VK_SHIFT = 0x10,
    PLAT_VK_CONTROL = 0x11, PLAT_VK_MENU = 0x12, PLAT_VK_PAUSE = 0x13, PLAT_VK_CAPITAL = 0x14,
    PLAT_VK_ESCAPE = 0x1B, PLAT_VK_SPACE = 0x20, PLAT_VK_PRIOR = 0x21, PLAT_VK_NEXT = 0x22,
    PLAT_VK_END = 0x23, PLAT_VK_HOME = 0x24, PLAT_VK_LEFT = 0x25, PLAT_VK_UP = 0x26,
    PLAT_VK_RIGHT = 0x27, PLAT_VK_DOWN = 0x28, PLAT_VK_INSERT = 0x2D, PLAT_VK_DELETE = 0x2E,
    PLAT_VK_NUMPAD0 = 0x60,  // .. PLAT_VK_NUMPAD0 + 9
    PLAT_VK_MULTIPLY = 0x6A, PLAT_VK_ADD = 0x6B, PLAT_VK_SUBTRACT = 0x6D, PLAT_VK_DECIMAL = 0x6E,
    PLAT_VK_DIVIDE = 0x6F,
    PLAT_VK_F1 = 0x70,  // .. PLAT_VK_F1 + 11 (F12)
    PLAT_VK_OEM_1 = 0xBA,       // ;:
    PLAT_VK_OEM_PLUS = 0xBB,    // =+
    PLAT_VK_OEM_COMMA = 0xBC,   // ,<
    PLAT_VK_OEM_MINUS = 0xBD,   // -_
    PLAT_VK_OEM_PERIOD = 0xBE,  // .>
    PLAT_VK_OEM_2 = 0xBF,       // /?
    PLAT_VK_OEM_3 = 0xC0,       // `~
    PLAT_VK_OEM_4 = 0xDB,       // [{
    PLAT_VK_OEM_5 = 0xDC,       // \|
    PLAT_VK_OEM_6 = 0xDD,       // ]}
    PLAT_VK_OEM_7 = 0xDE,       // '"
};

// Bits of PlatMessage::held: the modifier keys down when the message was generated.
enum : uint32_t { PLAT_HELD_SHIFT = 1, PLAT_HELD_CTRL = 2 };

struct PlatMessage {
    uint32_t message;  // PLAT_MSG_*
    uintptr_t wparam;
    intptr_t lparam;
    uint32_t held;  // PLAT_HELD_* at the moment of the message
};

// Takes the next pending message of the window (gathering the system's events first);
// false when none is pending.
bool plat_peek_message(PlatMessage* msg);
// Appends a message to the pending ones, behind those already queued (used for the
// messages the layer makes up itself, and by tests).
void plat_post_message(const PlatMessage& msg);
// Drops every pending message and forgets the held keys.
void plat_reset_messages();
// Whether PLAT_VK_SHIFT or PLAT_VK_CONTROL was down at the last message taken by
// plat_peek_message (the key state the message handler sees).
bool plat_key_held(uint32_t virtual_key);

// ---- speech synthesis (platform/posix: libespeak-ng, loaded when first asked for) ----

// Loads the speech engine and its American English voice. The first answer stands for the
// rest of the run; false when the library or its voice data is missing, and
// plat_speech_error() then says what is missing. ESPEAK_DATA_PATH, when set, names the
// folder of the voice data (or the folder that holds espeak-ng-data/).
bool plat_speech_open();
const char* plat_speech_error();  // "" while nothing failed
int32_t plat_speech_rate();       // samples a second of the synthesised sound; 0 before open
// Synthesises `text` (ASCII) on the calling thread, handing mono 16-bit samples to `sink` as
// they are made; a sink returning false stops the synthesis. Never two at once. False when
// the engine failed or the sink stopped it.
using PlatSpeechSinkFn = bool (*)(const int16_t* samples, int32_t count, void* ctx);
bool plat_speech_say(const char* text, PlatSpeechSinkFn sink, void* ctx);

// ---- audio output (platform/sdl; platform/null has none) ----

// Fills `out` with the next `count` mono 16-bit samples; runs on the audio thread.
using PlatAudioPullFn = void (*)(int16_t* out, int32_t count, void* ctx);
// Opens the default output at `rate` samples a second and starts pulling samples. False
// when there is no audio output; plat_audio_error() then says why.
bool plat_audio_open(int32_t rate, PlatAudioPullFn pull, void* ctx);
const char* plat_audio_error();
// Stops pulling and releases the output; safe when nothing is open and from any thread
// other than the audio thread.
void plat_audio_close();
