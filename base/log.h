// The log "Error.out": alert lines and the OpenGL report.
#pragma once

// Opens the log for writing, replacing an older file. A log that cannot be opened
// swallows what is written to it.
void MACIBM_log_open(const char* path);
void MACIBM_log_line(const char* line);  // the line and a line end
void MACIBM_log_text(const char* text);  // as it stands
void MACIBM_log_close();
bool MACIBM_log_is_open();
