#pragma once

#include <QByteArray>
#include <QString>

namespace ui {

// What a user's own desk looks like: window places, splitter and column sizes. Nothing that the
// data files keep stands here.
class UserSettings {
public:
    virtual ~UserSettings() = default;
    // Empty when nothing was stored under the name.
    virtual QByteArray value(const QString& name) const = 0;
    virtual void setValue(const QString& name, const QByteArray& value) = 0;
};

// Kept in the user's configuration folder. A folder that cannot be written costs the memory, no
// more.
class StoredUserSettings : public UserSettings {
public:
    QByteArray value(const QString& name) const override;
    void setValue(const QString& name, const QByteArray& value) override;
};

} // namespace ui
