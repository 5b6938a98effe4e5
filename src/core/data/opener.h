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
    // Shows the help, over the window that is used now: the file where the desktop has a program
    // for it, else the same pages in a window of this program. False when neither can be had.
    virtual bool openHelp(const QString& helpFile) = 0;
};

} // namespace core
