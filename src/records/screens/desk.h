#pragma once

#include "records/data/data_file.h"

namespace core {
class Opener;
struct Shared;
} // namespace core
namespace ui {
class FileChooser;
class UserSettings;
} // namespace ui

namespace records {

class Drafts;
class StatusLine;

// What the windows of one open data file work with. All of it lives longer than they do.
struct Desk {
    DataFile& file;
    core::Shared& shared;
    core::Opener& opener;
    ui::FileChooser& files;
    Drafts& drafts;
    ui::UserSettings& userSettings;
    StatusLine* status = nullptr; // of the main screen, where there is one

    // Says what has happened, without asking for anything.
    void say(const QString& text) const;
};

} // namespace records
