#pragma once

#include "customer/data/customer_file.h"

namespace core {
class Opener;
struct Shared;
} // namespace core
namespace records {
class Drafts;
} // namespace records
namespace ui {
class FileChooser;
class UserSettings;
} // namespace ui

namespace customer {

// What the screens of one open customer file work with. All of it lives longer than they do.
struct Desk {
    CustomerFile& file;
    core::Shared& shared;
    core::Opener& opener;
    ui::FileChooser& files;
    records::Drafts& drafts;
    ui::UserSettings& userSettings;
};

} // namespace customer
