// A new character: a name, one of eight classes, six rolled abilities, a club and some cloth.
//
// The name check is an odd one, and the game keeps it: only the character in slot 0 can forbid a
// name, and a "no" to "You are as ..." asks for another name but keeps the first.
#pragma once

namespace morvek {

// Asks for the character's name. Set `nameChecked` to 0 before calling.
void enterName();

// Asks for the class, rolls the abilities and hands out the kit.
void chooseClass();

// Rolls four dice and adds the three highest: 3 to 18, left in `rollResult`.
void rollAbility();

} // namespace morvek
