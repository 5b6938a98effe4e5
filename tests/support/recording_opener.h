#pragma once

#include "core/data/opener.h"

#include <QStringList>

// Stands in for the desktop: keeps what it was asked to open.
class RecordingOpener : public core::Opener {
public:
    bool open(const QString& target) override
    {
        opened.append(target);
        return succeeds;
    }

    bool openHelp(const QString& helpFile) override { return open(helpFile); }

    QStringList opened;
    bool succeeds = true;
};
