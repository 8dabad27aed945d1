// The briefing screen: the two airport pickers, the aircraft, the altitude, the briefing button
// and the four paragraphs; the program's draw hook.
#pragma once

// Installs what the kit calls up into the briefing for: the airport code search.
void brief_screen_install();

// One pass of the screen: every element drawn, that pass's input handled.
void brief_draw_screen();
