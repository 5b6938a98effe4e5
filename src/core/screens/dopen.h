#pragma once

#include "core/data/registry.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class dopen;
}

namespace core {

class DataFileOpener;
struct OpenedDataFile;
class ScreenFlow;
struct Shared;

// The data-file chooser.
class dopen : public QDialog {
    Q_OBJECT

public:
    dopen(Shared& shared, ScreenFlow& flow, DataFileOpener& opener, QWidget* parent = nullptr);
    ~dopen() override;

    // Lists the files of a kind, with the first selected and the focus on the list.
    void prepare(DataKind kind);
    // A chooser opened from the menu shows it again when it is closed without opening a file.
    void markOpenedFromMenu() { m_openedFromMenu = true; }

private:
    void Command1_Click();
    void createData();
    void Form_Unload();
    bool passwordIsKnown(const DataFileEntry& entry);
    std::optional<OpenedDataFile> openEntry(const DataFileEntry& entry);

    std::unique_ptr<Ui::dopen> m_ui;
    Shared& m_shared;
    ScreenFlow& m_flow;
    DataFileOpener& m_opener;
    DataKind m_kind = DataKind::Customer;
    QList<DataFileEntry> m_entries; // as listed
    bool m_openedFromMenu = false;
};

} // namespace core
