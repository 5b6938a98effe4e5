#include "customer/screens/kokyaku_files.h"

#include "customer/screens/shortcut_desk.h"
#include "ui/list_view.h"
#include "ui_kokyaku_files.h"

using namespace Qt::StringLiterals;

namespace customer {

kokyaku_files::kokyaku_files(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::kokyaku_files>())
{
    m_ui->setupUi(this);
}

kokyaku_files::~kokyaku_files() = default;

void kokyaku_files::initialize(const Desk& desk)
{
    m_shortcuts =
        std::make_unique<ShortcutDesk>(desk, ShortcutOwner::Case, *m_ui->ListView7, *m_ui->Command6,
                                       *m_ui->Command7, u"件名が選択されていません。"_s);
    clear();
}

void kokyaku_files::showFilesOf(const core::RecordKey& ofCase, const QString& title)
{
    renameCase(ofCase, title);
    m_shortcuts->showOwner(ofCase);
}

void kokyaku_files::renameCase(const core::RecordKey& ofCase, const QString& title)
{
    m_ui->lblKanren->setCaption(ofCase.isNone() ? u"件名が選択されていません。"_s
                                                : u"【 "_s + title + u" 】関連ﾌｧｲﾙ表示"_s);
}

void kokyaku_files::refill()
{
    m_shortcuts->refill();
}

void kokyaku_files::clear()
{
    showFilesOf({}, {});
}

ui::ListView& kokyaku_files::view()
{
    return *m_ui->ListView7;
}

} // namespace customer
