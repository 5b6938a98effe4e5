#pragma once

#include "core/data/record_key.h"

#include <QWidget>

#include <memory>

namespace Ui {
class kokyaku_files;
}
namespace ui {
class ListView;
}

namespace customer {

struct Desk;
class ShortcutDesk;

// The related files of the chosen case (ListView7).
class kokyaku_files : public QWidget {
    Q_OBJECT

public:
    explicit kokyaku_files(QWidget* parent = nullptr);
    ~kokyaku_files() override;

    void initialize(const Desk& desk);
    // Shows the files of a case; none: the list is empty.
    void showFilesOf(const core::RecordKey& ofCase, const QString& title);
    // The caption bears this title; the list stays.
    void renameCase(const core::RecordKey& ofCase, const QString& title);
    void refill();
    void clear();
    ui::ListView& view();

private:
    std::unique_ptr<Ui::kokyaku_files> m_ui;
    std::unique_ptr<ShortcutDesk> m_shortcuts;
};

} // namespace customer
