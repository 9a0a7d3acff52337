// The daily news: a plain text file a day, named after the day's stamp with ".txt". It begins with
// "It's a new day!", and every line of it ends in a line feed and a carriage return, in this order.
#pragma once

namespace morvek {

// Appends the line that the caller, by his name on the board, joined the game.
void newsJoined();

// Shows the day's news in pieces of a line, or of 49 characters where a line is longer, and waits
// for a key. No menu leads here yet.
void showNews();

} // namespace morvek
