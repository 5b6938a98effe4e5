#pragma once

#include "core/data/opener.h"

#include <QStringList>

// Stands in for the desktop: keeps what it was asked to open.
class RecordingOpener : public core::Opener {
public:
    core::Opened openFile(const QString& path) override
    {
        opened.append(path);
        return outcome;
    }

    core::Opened openAddress(const QString& address) override { return openFile(address); }
    bool openHelp(const QString& helpFile) override
    {
        return openFile(helpFile) == core::Opened::Yes;
    }

    QStringList opened;
    core::Opened outcome = core::Opened::Yes;
};
