/* OpenDoor.h: the door toolkit's interface, by which a game talks to the caller of a bulletin
 * board. C linkage; one session a process; every text is in the board's 8-bit character set. */
#ifndef MORVEK_OPENDOOR_H
#define MORVEK_OPENDOOR_H

#if defined(__GNUC__)
#define OD_PRINTF_LIKE __attribute__((format(printf, 1, 2)))
#define OD_NORETURN __attribute__((noreturn))
#else
#define OD_PRINTF_LIKE
#define OD_NORETURN
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef struct {
    char user_name[36]; /* the caller's name as the board knows it; may be empty */
    char user_ansi;     /* 1: the caller has ANSI graphics */
    int user_timelimit; /* whole minutes the caller has left, at most 32767 */
    int od_node;        /* the board's node number, 1 when it named none */

    /* Set by the program before od_parse_cmd_line: what -VERSION prints. */
    char od_prog_name[40];
    char od_prog_version[40];
} tODControl;

/* What the library knows of the caller, valid from od_init on, and of the program. */
extern tODControl od_control;

/* Reads the toolkit's options; a bad one ends the program with status 1 and the usage on stderr. */
void od_parse_cmd_line(int argc, char* argv[]);

/* Opens the session: finds the caller, his drop file and his terminal, or ends with status 1. */
void od_init(void);

/* Flushes, resets the colour, restores the terminal and ends the process with errorlevel. With one
 * that is not 0 a board's caller gets up to three seconds, or until a key, to read the last line.
 */
OD_NORETURN void od_exit(int errorlevel, int hangUp);

/* Sets the colour of what follows by PC numbers: foreground 0..15, background 0..7. */
void od_set_color(int foreground, int background);

/* Asks the terminal what is not known of it: whether it has ANSI graphics, its character set, and
 * its width; waits at most a second for an answer. */
void od_autodetect(int flags);

/* Clears the screen (a form feed without ANSI graphics); the colour stays. With ANSI graphics it
 * first waits, unless a key is there, long enough to read the lines that were completed since the
 * caller's last key: 25 milliseconds a character, two seconds at most. */
void od_clr_scr(void);

/* Formats as printf does, then obeys the colour codes between backquotes in the whole result. */
void od_printf(const char* format, ...) OD_PRINTF_LIKE;

/* Shows size bytes as they are, but for control bytes; localEcho has no meaning here. */
void od_disp(const char* text, int size, int localEcho);

/* Shows a string as it is, but for control bytes. */
void od_disp_str(const char* text);

/* Moves the cursor, both 1-based; without ANSI graphics it pads the line up to the column. */
void od_set_cursor(int row, int column);

/* The next key; with wait 0, 0 when none is there. */
char od_get_key(int wait);

/* Waits for one of the options, in either case, and returns it as it stands in them. */
char od_get_answer(const char* options);

/* Edits one line in text, which has room for maxLength bytes and a NUL. The text that is in it is
 * shown: the first printable key replaces it, a backspace keeps the rest of it, Return takes it as
 * it is. Only printable keys from min to max enter the text. */
void od_input_str(char* text, int maxLength, unsigned char min, unsigned char max);

/* Shows the display file name.ans, or name.asc to a caller without ANSI graphics or with fewer than
 * 80 columns, unless a hot key is already typed, and waits for one of the hot keys, in either case;
 * returns it as it stands in hotkeys. If these are digits and letters, the arrows are 8, 4, 6 and
 * 2, and Home, PgUp, End and PgDn are 7, 9, 1 and 3; keys that number a list from 1 are left alone.
 */
char od_hotkey_menu(const char* name, const char* hotkeys, int wait);

#ifdef __cplusplus
}
#endif

#endif
