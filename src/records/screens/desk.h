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

// What the windows of one open data file work with. All of it lives longer than they do.
struct Desk {
    DataFile& file;
    core::Shared& shared;
    core::Opener& opener;
    ui::FileChooser& files;
    Drafts& drafts;
    ui::UserSettings& userSettings;
};

} // namespace records
