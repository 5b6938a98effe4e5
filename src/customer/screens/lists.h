#pragma once

// The lists of the main screen by their numbers in its selection.
namespace customer::Lists {

inline constexpr int Customers = 0;
inline constexpr int Cases = 1;
inline constexpr int Logs = 2;
inline constexpr int Schedule = 3;

} // namespace customer::Lists
