#!/bin/sh
# An MBSE menu starts this script. MBSE writes DOOR.SYS into $HOME, the caller's home directory.
# Copy this script and morvek.sh into the game directory.
# Callers with system accounts share the game's files by their group.
umask 007
exec "$(dirname "$0")/morvek.sh" -D "$HOME" -STDIO -LOG morvek.log
