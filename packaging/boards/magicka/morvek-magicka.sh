#!/bin/sh
# The script that Magicka starts for Morvek (see doors.ini). Magicka gives it the number of the node.
# Copy it into the game directory, and morvek.sh beside it; write your board's directory here:
board=/home/bbs/magicka
exec "$(dirname "$0")/morvek.sh" -D "$board/node$1" -STDIO -ONECALLER morvek.lock
