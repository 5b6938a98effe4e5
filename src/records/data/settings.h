#pragma once

#include "records/data/data_file.h"

#include <QHash>
#include <QList>
#include <QString>

#include <utility>

// The settings row of a data file (設定, 設定ID = 1): whole numbers by column.
namespace records {

// A column of the settings row and what stands for it where it is missing or Null.
struct Setting {
    QStringView column = {};
    int otherwise = 0;
    int forNull = otherwise;

    bool operator==(const Setting& other) const { return column == other.column; }
};

using SettingValues = QList<std::pair<Setting, int>>;

// The settings as they were read, with those changed since.
class Settings {
public:
    int operator[](const Setting& setting) const;
    void set(const Setting& setting, int value);

private:
    friend Settings readSettings(DataFile& file);
    QHash<QString, storage::Value> m_values; // of the columns that are there
};

// The settings of the open file; those that stand for missing ones when they cannot be read.
Settings readSettings(DataFile& file);
// Writes some settings and leaves the others alone; makes the row with its defaults when it is
// missing. The user is told of a failure; false then.
bool saveSettings(DataFile& file, const SettingValues& values);
// The same, and the settings in memory follow.
bool saveSettings(DataFile& file, Settings& settings, const SettingValues& values);

} // namespace records
