#include "records/screens/related_files_pane.h"

#include "records/screens/related_files_list.h"
#include "ui/list_view.h"
#include "ui_related_files_pane.h"

using namespace Qt::StringLiterals;

namespace records {

RelatedFilesPane::RelatedFilesPane(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::related_files_pane>())
{
    m_ui->setupUi(this);
}

RelatedFilesPane::~RelatedFilesPane() = default;

void RelatedFilesPane::initialize(const Desk& desk, const RelatedFiles& kind,
                                  const QString& noOwner)
{
    m_noOwner = noOwner;
    m_shortcuts = std::make_unique<RelatedFilesList>(desk, kind, *m_ui->ListView7, *m_ui->Command6,
                                                     *m_ui->Command7, noOwner);
    clear();
}

void RelatedFilesPane::showFilesOf(const core::RecordKey& owner, const QString& title)
{
    renameOwner(owner, title);
    m_shortcuts->showOwner(owner);
}

void RelatedFilesPane::renameOwner(const core::RecordKey& owner, const QString& title)
{
    m_ui->lblKanren->setCaption(owner.isNone() ? m_noOwner
                                               : u"【 "_s + title + u" 】関連ﾌｧｲﾙ表示"_s);
}

void RelatedFilesPane::refill()
{
    m_shortcuts->refill();
}

void RelatedFilesPane::clear()
{
    showFilesOf({}, {});
}

ui::ListView& RelatedFilesPane::view()
{
    return *m_ui->ListView7;
}

} // namespace records
