#pragma once

#include "storage/base/error.h"

#include <QDate>
#include <QString>

#include <cstdint>
#include <optional>

namespace programs::demo {

struct Size {
    int customers = 100;
    int repairs = 100;
    std::uint64_t seed = 1;
    QDate today; // what the sample's days are counted from
};

// Makes a program folder: main.mdb, the templates, and one registered customer file and repair file
// called 見本. The same size, seed and day give the same rows. Exists when the folder has such
// files.
std::optional<storage::Error> makeFolderWithSamples(const QString& folder, const Size& size);

// The name under which both sample files are registered.
inline constexpr char16_t SampleName[] = u"見本";

} // namespace programs::demo
