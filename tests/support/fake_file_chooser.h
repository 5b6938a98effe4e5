#pragma once

#include "ui/file_chooser.h"

#include <QStringList>

#include <utility>

// Stands in for the file dialog: chooses the path that the test has set and records the filters.
class FakeFileChooser : public ui::FileChooser {
public:
    QString chooseFile(QWidget*, const QString&, const QString& filter) override
    {
        filters.append(filter);
        return std::exchange(chosen, {});
    }

    QString chosen;
    QStringList filters;
};
