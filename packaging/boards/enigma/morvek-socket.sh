#!/bin/bash
# Starts Morvek for ENiGMA½ with `io: "socket"`: the board waits at a port of this machine for the
# door to connect. The port is the first argument; the program's options follow. Copy this script
# and morvek.sh into the game directory.
exec 3<>"/dev/tcp/127.0.0.1/$1" || exit 1
# The board handles telnet, so the program uses the socket as standard input and output.
exec "$(dirname "$0")/morvek.sh" "${@:2}" -STDIO <&3 >&3 3>&-
