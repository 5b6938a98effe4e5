#pragma once

#include "ui/user_settings.h"

#include <QHash>

// A user's settings that end with the test.
class FakeUserSettings : public ui::UserSettings {
public:
    QByteArray value(const QString& name) const override { return values.value(name); }
    void setValue(const QString& name, const QByteArray& value) override
    {
        values.insert(name, value);
    }

    QHash<QString, QByteArray> values;
};
