#pragma once

#include <QtGlobal>

namespace ui {

// Stored window places and sizes are in twips, 1440 to the inch; widgets count pixels of 1/96 inch
// (the window system scales those itself).
inline constexpr int TwipsPerPixel = 15;

// Rounded to the nearest pixel.
constexpr int pixelsFromTwips(qint64 twips)
{
    const qint64 half = twips < 0 ? -TwipsPerPixel / 2 : TwipsPerPixel / 2;
    return static_cast<int>((twips + half) / TwipsPerPixel);
}

constexpr qint64 twipsFromPixels(int pixels)
{
    return qint64{pixels} * TwipsPerPixel;
}

} // namespace ui
