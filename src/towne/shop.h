#pragma once

namespace morvek {

// The weapon shop and the armour shop: each shows its menu until the caller returns to Towne.
void weaponShop();
void armourShop();

// The buying screens: each sells until the caller leaves it. An item bought takes the place of
// the player's own.
void buyWeapon();
void buyArmour();

// Offer to buy the player's weapon or armour from him, once.
void sellWeapon();
void sellArmour();

} // namespace morvek
