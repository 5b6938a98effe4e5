#pragma once

#include "core/screens/screen_flow.h"
#include "records/data/draft_store.h"
#include "ui/file_chooser.h"

#include <QList>
#include <QPointer>

#include <map>
#include <memory>

namespace core {
class Opener;
struct Shared;
} // namespace core
namespace ui {
class UserSettings;
}

// The running program: creates the screens and hands over from one to the next.
class Program : public core::ScreenFlow, public core::DataFileOpener {
public:
    // `stateFolder`: where this user's drafts are kept; empty: nowhere.
    Program(core::Shared& shared, core::Opener& opener, ui::UserSettings& userSettings,
            const QString& stateFolder = {});
    ~Program() override; // closes the screens that are still open

    // Shows the splash screen.
    void start();

    bool has(core::Screen screen) const override;
    bool has(core::DataKind kind) const override;
    void show(core::Screen screen) override;
    void showChooser(core::DataKind kind) override;
    void endProgram() override;
    std::optional<core::OpenedDataFile> open(core::DataKind kind, const QString& path,
                                             storage::Mode mode) override;

private:
    std::optional<core::OpenedDataFile> openCustomers(const QString& path, storage::Mode mode);
    records::Drafts& draftsOf(const QString& path);
    // Shows a screen that deletes itself when it is closed.
    void open(QWidget* screen);

    core::Shared& m_shared;
    core::Opener& m_opener;
    ui::UserSettings& m_userSettings;
    ui::FileDialogs m_files;
    std::shared_ptr<records::DraftStore> m_draftStore;
    std::map<QString, records::Drafts> m_drafts; // by the data file's path
    QList<QPointer<QWidget>> m_screens;
};
