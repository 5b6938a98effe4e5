#pragma once

#include <QString>

class QWidget;

namespace ui {

// The common file dialog; tests stand in for it.
class FileChooser {
public:
    virtual ~FileChooser() = default;
    // Asks for one file that is there. `filter` as "All(*.*)|*.*": names and patterns by turns.
    // Empty when the user cancelled.
    virtual QString chooseFile(QWidget* parent, const QString& title, const QString& filter) = 0;
};

// The desktop's own dialog; opens where the last file was chosen.
class FileDialogs : public FileChooser {
public:
    QString chooseFile(QWidget* parent, const QString& title, const QString& filter) override;

private:
    QString m_lastFolder;
};

} // namespace ui
