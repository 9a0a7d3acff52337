#!/bin/sh
# The script that an MBSE menu starts for Morvek. MBSE writes DOOR.SYS into the caller's home
# directory, in which the script finds itself. Copy it into the game directory, and morvek.sh beside
# it.
# Callers with accounts of their own share the game's files by their group.
umask 007
exec "$(dirname "$0")/morvek.sh" -D "$HOME" -STDIO -ONECALLER morvek.lock -LOG morvek.log
