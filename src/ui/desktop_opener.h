#pragma once

#include "core/data/opener.h"

namespace ui {

// Hands files and addresses to the desktop.
class DesktopOpener : public core::Opener {
public:
    core::Opened openFile(const QString& path) override;
    core::Opened openAddress(const QString& address) override;
    bool openHelp(const QString& helpFile) override;
};

} // namespace ui
