#pragma once

#include <QString>

#include <optional>

namespace core {

struct Shared;

struct Administrator {
    QString name;
    QString password; // empty for none

    bool operator==(const Administrator& other) const = default;
};

// Whether name and password are the administrator's, letter case included. False too when there is
// no administrator row; nullopt when main.mdb cannot be read: the user has been told why.
std::optional<bool> CheckAdministrator(Shared& shared, const QString& name,
                                       const QString& password);

// The administrator's name and password; both empty when there is no row. nullopt when main.mdb
// cannot be read: the user has been told why.
std::optional<Administrator> LoadAdministrator(Shared& shared);

// Writes both and tells the user. False when the row could not be written; the user is told that
// too.
bool SaveAdministrator(Shared& shared, const Administrator& entered);

} // namespace core
