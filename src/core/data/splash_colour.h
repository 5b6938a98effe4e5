#pragma once

#include <QtGlobal>

namespace core {

// The index (1 to 15, never black) into the 16-colour palette for a random fraction from 0 to below
// 1: the fraction times 14 plus 1, an exact half going to the even neighbour.
int splashColourIndex(double fraction);

// Entry 0 to 15 of the standard 16-colour palette, as 0xRRGGBB.
quint32 paletteColour(int index);

} // namespace core
