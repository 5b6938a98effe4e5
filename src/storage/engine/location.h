#pragma once

#include <QString>

namespace storage {

namespace engine {
class Engine;
}

// Where data lies, and with that which engine keeps it.
class Location {
public:
    // A data file by its path; the embedded engine keeps it.
    Location(const QString& file) : m_name(file) {} // implicit: most locations are paths
    // What another engine knows by a name. The engine must live as long as the location is used.
    Location(engine::Engine& keeper, const QString& name) : m_keeper(&keeper), m_name(name) {}

    engine::Engine& engine() const;
    const QString& name() const { return m_name; }

private:
    engine::Engine* m_keeper = nullptr;
    QString m_name;
};

} // namespace storage
