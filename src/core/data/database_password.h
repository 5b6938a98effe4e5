#pragma once

namespace core {

// The one password of the application database and of every data file.
inline constexpr char16_t DatabasePassword[] = u"KELDA_WIRUS_PANTO";

} // namespace core
