#include "core/screens/dopen.h"

#include "core/data/messages.h"
#include "core/data/shared.h"
#include "core/screens/info.h"
#include "core/screens/screen_flow.h"
#include "ui/enter_moves_on.h"
#include "ui/plain_tip.h"
#include "ui_dopen.h"

using namespace Qt::StringLiterals;

namespace core {

dopen::dopen(Shared& shared, ScreenFlow& flow, DataFileOpener& opener, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::dopen), m_shared(shared), m_flow(flow), m_opener(opener)
{
    m_ui->setupUi(this);
    connect(m_ui->ListView1, &QTreeWidget::itemActivated, this, &dopen::Command1_Click);
    connect(m_ui->Command1, &QPushButton::clicked, this, &dopen::Command1_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->CreateData, &QPushButton::clicked, this, &dopen::createData);
    connect(this, &QDialog::finished, this, &dopen::Form_Unload);
    new ui::EnterMovesOn(this, m_ui->Command1);
}

dopen::~dopen() = default;

void dopen::prepare(DataKind kind)
{
    m_kind = kind;
    QRadioButton* const chosen = kind == DataKind::Customer ? m_ui->Option1 : m_ui->Option2;
    chosen->setChecked(true);
    // The menu chose the kind; the options only show it.
    m_ui->Option1->setEnabled(chosen == m_ui->Option1);
    m_ui->Option2->setEnabled(chosen == m_ui->Option2);

    const auto listed = ListDataFilesForOpen(m_shared, kind);
    m_entries = listed.value_or(QList<DataFileEntry>());
    if (!listed)
        m_ui->emptyNote->setText(u"データの一覧を読めませんでした。原因を取り除いてから、この画面を"
                                 "閉じて、メニューからもう一度開いて下さい。"_s);
    m_ui->ListView1->clear();
    for (const DataFileEntry& entry : m_entries) {
        auto* const item = new QTreeWidgetItem(QStringList{entry.name});
        item->setToolTip(0, ui::plainTip(entry.name)); // it may be too long for the list
        m_ui->ListView1->addTopLevelItem(item);
    }
    const bool isEmpty = m_entries.isEmpty();
    m_ui->emptyNote->setVisible(isEmpty);
    m_ui->CreateData->setVisible(isEmpty && listed);
    m_ui->Command1->setEnabled(!isEmpty);
    if (!isEmpty)
        m_ui->ListView1->setCurrentItem(m_ui->ListView1->topLevelItem(0));
    if (isEmpty && listed)
        m_ui->CreateData->setFocus();
    else
        m_ui->ListView1->setFocus();
}

// The first data file is made by the administrator.
void dopen::createData()
{
    m_openedFromMenu = false;
    accept();
    m_flow.show(Screen::Login);
}

void dopen::Command1_Click()
{
    const int row = m_ui->ListView1->indexOfTopLevelItem(m_ui->ListView1->currentItem());
    if (row < 0)
        return;
    const DataFileEntry entry = m_entries[row];
    if (!passwordIsKnown(entry))
        return;
    const std::optional<OpenedDataFile> opened = openEntry(entry);
    if (!opened)
        return;
    accept();
    auto* const notice = new info(opened->notice, opened->mainScreen);
    notice->setAttribute(Qt::WA_DeleteOnClose);
    notice->show();
    notice->activateWindow();
}

bool dopen::passwordIsKnown(const DataFileEntry& entry)
{
    if (entry.password.isEmpty())
        return true;
    const std::optional<QString> typed = m_shared.messages.askText(
        u"ﾊﾟｽﾜｰﾄﾞﾛｯｸされています,ﾊﾟｽﾜｰﾄﾞを入力して下さい。"_s, m_shared.AppTitle, true);
    if (!typed)
        return false;
    if (*typed != entry.password) {
        m_shared.messages.refuse(u"ﾊﾟｽﾜｰﾄﾞが違います。"_s);
        return false;
    }
    return true;
}

std::optional<OpenedDataFile> dopen::openEntry(const DataFileEntry& entry)
{
    const bool wasOpenedFromMenu = std::exchange(m_openedFromMenu, false);
    const storage::Mode mode =
        m_ui->ChkDB->isChecked() ? storage::Mode::ShareExclusive : storage::Mode::ReadWrite;
    QString& path =
        m_kind == DataKind::Customer ? m_shared.CustomerDataPath : m_shared.RepairDataPath;
    path = dataFile(m_shared.programFolder, m_kind, entry.name);

    std::optional<OpenedDataFile> opened = m_opener.open(m_kind, path, mode);
    if (!opened) {
        path.clear();
        m_openedFromMenu = wasOpenedFromMenu;
    }
    return opened;
}

void dopen::Form_Unload()
{
    if (m_openedFromMenu)
        m_flow.show(Screen::Menu);
}

} // namespace core
