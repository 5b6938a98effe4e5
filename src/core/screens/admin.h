#pragma once

#include "core/data/registry.h"

#include <QDialog>

#include <memory>
#include <optional>

class QLineEdit;

namespace Ui {
class admin;
}

namespace core {

class ScreenFlow;
struct Shared;

// The administration screen: the registry of data files, and the administrator's name and password.
class admin : public QDialog {
    Q_OBJECT

public:
    admin(Shared& shared, ScreenFlow& flow, QWidget* parent = nullptr);
    ~admin() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void focusOn(QLineEdit& refused);
    void Option_Click();
    void ListView1_ItemClick();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();

    DataKind kind() const;
    std::optional<DataFileEntry> selectedEntry() const;
    // Lists the files of the kind anew, selecting the one with that row number. What stands in the
    // fields is left alone.
    void fillList(qint64 selectedNumber);
    // The same after a change. When main.mdb has failed meanwhile, the user knows, and the list
    // stays for the next try.
    void refill(qint64 selectedNumber);
    // Fills the administrator's fields, once they can be read.
    void showAdministrator();
    void showEntry(const DataFileEntry& entry);
    void enableButtons();

    std::unique_ptr<Ui::admin> m_ui;
    Shared& m_shared;
    QList<DataFileEntry> m_entries; // as listed
    bool m_administratorIsShown = false;
};

} // namespace core
