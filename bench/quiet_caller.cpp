#include "quiet_caller.h"

#include "OpenDoor.h"

#include <cstdlib>

tODControl od_control;

namespace morvek::bench {

char (*quietKey)() = nullptr;

} // namespace morvek::bench

extern "C" {

void od_parse_cmd_line(int, char*[]) {}
void od_init(void) {}
void od_exit(int errorlevel, int) { std::exit(errorlevel); }
void od_set_color(int, int) {}
void od_autodetect(int) {}
void od_clr_scr(void) {}
void od_printf(const char*, ...) {}
void od_disp(const char*, int, int) {}
void od_disp_str(const char*) {}
void od_set_cursor(int, int) {}
char od_get_key(int) { return ' '; }
char od_get_answer(const char* options) { return *options; }
void od_input_str(char*, int, unsigned char, unsigned char) {}
char od_hotkey_menu(const char*, const char*, int) { return morvek::bench::quietKey(); }

} // extern "C"
