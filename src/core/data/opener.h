#pragma once

#include <QString>

namespace core {

// The shell's "open" verb: files, web addresses, "mailto:" addresses.
class Opener {
public:
    virtual ~Opener() = default;
    // Hands the target to the program that the desktop has for it. False when a file is not there
    // or nothing takes the target.
    virtual bool open(const QString& target) = 0;
};

} // namespace core
