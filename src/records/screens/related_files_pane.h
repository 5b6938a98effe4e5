#pragma once

#include "core/data/record_key.h"

#include <QWidget>

#include <memory>

namespace Ui {
class related_files_pane;
}
namespace ui {
class ListView;
}

namespace records {

struct Desk;
struct RelatedFiles;
class RelatedFilesList;

// The related files of the chosen record (ListView7).
class RelatedFilesPane : public QWidget {
    Q_OBJECT

public:
    explicit RelatedFilesPane(QWidget* parent = nullptr);
    ~RelatedFilesPane() override;

    // `noOwner`: caption and message while no owner is chosen.
    void initialize(const Desk& desk, const RelatedFiles& kind, const QString& noOwner);
    // Shows the files of a record; none: the list is empty.
    void showFilesOf(const core::RecordKey& owner, const QString& title);
    // The caption bears this title; the list stays.
    void renameOwner(const core::RecordKey& owner, const QString& title);
    void refill();
    void clear();
    ui::ListView& view();

private:
    std::unique_ptr<Ui::related_files_pane> m_ui;
    std::unique_ptr<RelatedFilesList> m_shortcuts;
    QString m_noOwner;
};

} // namespace records
