// Support bits of a node, as Mesnet keeps them: any sum of the three, 0 for a free node.
#pragma once

namespace havuz {

constexpr int kRotationXHeld = 1;
constexpr int kRotationYHeld = 2;
constexpr int kTranslationHeld = 4; // all three translations in the analysis; settlement in the window's words

constexpr bool HoldsRotationX(int mesnet) { return (mesnet & kRotationXHeld) != 0; }
constexpr bool HoldsRotationY(int mesnet) { return (mesnet & kRotationYHeld) != 0; }
constexpr bool HoldsTranslation(int mesnet) { return (mesnet & kTranslationHeld) != 0; }

} // namespace havuz
