#pragma once

#include "core/data/opener.h"

// Hands targets to the desktop.
class DesktopOpener : public core::Opener {
public:
    bool open(const QString& target) override;
    bool openHelp(const QString& helpFile) override;
};
