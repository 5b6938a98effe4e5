#pragma once

#include <QString>

namespace core {

class Messages;

// What came of handing something to the desktop.
enum class Opened {
    Yes,
    Missing,  // the file is not there; the text is no address
    NoProgram // nothing takes it
};

// The shell's "open" verb. A path is never taken for an address, nor the other way round.
class Opener {
public:
    virtual ~Opener() = default;
    // Hands a file to the program that the desktop has for it. Only an absolute path of this
    // machine leads to a file: one with a drive letter is missing here.
    virtual Opened openFile(const QString& path) = 0;
    // Hands a web address or a "mailto:" address to the program that the desktop has for it.
    virtual Opened openAddress(const QString& address) = 0;
    // Shows the help, over the window that is used now: the file where the desktop has a program
    // for it, else the same pages in a window of this program. False when neither can be had.
    virtual bool openHelp(const QString& helpFile) = 0;
};

// The same for screens: what could not be opened is told.
void openFileOrTell(Opener& opener, Messages& messages, const QString& path);
void openAddressOrTell(Opener& opener, Messages& messages, const QString& address);

} // namespace core
