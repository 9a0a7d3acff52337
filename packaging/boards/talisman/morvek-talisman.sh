#!/bin/sh
# Add this script to Talisman's doors. Talisman starts it with the number of the node. Copy it and
# morvek.sh into the game directory, and set your board's directory here:
board="/home/bbs/talisman"
exec "$(dirname "$0")/morvek.sh" -D "$board/temp/$1" -STDIO -LOG morvek.log
