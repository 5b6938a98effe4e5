#include "core/data/splash_colour.h"

#include <array>
#include <cmath>

namespace core {

int splashColourIndex(double fraction)
{
    return static_cast<int>(std::nearbyint(fraction * 14 + 1)); // rounds halves to even by default
}

quint32 paletteColour(int index)
{
    static constexpr std::array<quint32, 16> Palette = {
        0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
        0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
    return Palette.at(static_cast<size_t>(index));
}

} // namespace core
