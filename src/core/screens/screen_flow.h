#pragma once

#include "core/data/data_kind.h"
#include "storage/connection.h"

#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace core {

enum class Screen { Menu, Login, Admin, Exchange, Optimisation };

// How screens hand over to one another. The program implements it; tests stand in for it.
class ScreenFlow {
public:
    virtual ~ScreenFlow() = default;
    // Whether the program has that screen, and the main screen of that kind of data.
    virtual bool has(Screen screen) const = 0;
    virtual bool has(DataKind kind) const = 0;
    virtual void show(Screen screen) = 0;
    // Shows the data-file chooser for a kind, marked as opened from the menu.
    virtual void showChooser(DataKind kind) = 0;
    // Ends the program at once, whatever screens are still open.
    virtual void endProgram() = 0;
};

// A data file that was opened, with its main screen showing.
struct OpenedDataFile {
    QWidget* mainScreen = nullptr;
    QStringList notice; // the lines of the notice
};

// Opens data files in their subsystem, so that the chooser knows neither of them.
class DataFileOpener {
public:
    virtual ~DataFileOpener() = default;
    // Opens the file and shows the kind's main screen. nullopt when it cannot be opened; the user
    // has been told why.
    virtual std::optional<OpenedDataFile> open(DataKind kind, const QString& path,
                                               storage::Mode mode) = 0;
};

} // namespace core
