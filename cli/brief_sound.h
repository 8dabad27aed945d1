// vocalog-brief's spoken forms of the briefing: its spoken text, a WAV file, the loudspeaker.
#pragma once

// Runs after the written briefing: prints the spoken text when `say_text`, writes the sound
// to `wav` when not null, and plays it when `speak`. Returns the program's exit code: 0, or
// 3 when the briefing could not be made into sound, written or played (a message on
// standard error says why).
int brief_sound(bool say_text, const char* wav, bool speak);
