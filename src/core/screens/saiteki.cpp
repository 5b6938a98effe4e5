#include "core/screens/saiteki.h"

#include "core/data/optimise.h"
#include "core/data/shared.h"
#include "core/screens/screen_flow.h"
#include "ui/enter_moves_on.h"
#include "ui_saiteki.h"

using namespace Qt::StringLiterals;

namespace core {

saiteki::saiteki(Shared& shared, ScreenFlow& flow, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::saiteki), m_shared(shared)
{
    m_ui->setupUi(this);
    m_ui->ListView1->header()->resizeSection(0, 280);
    connect(m_ui->Command1, &QPushButton::clicked, this, &saiteki::Command1_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, [&flow] { flow.show(Screen::Menu); });
    new ui::EnterMovesOn(this, nullptr);

    const auto listed = ListDataFilesForOpen(m_shared, std::nullopt);
    m_entries = listed.value_or(QList<DataFileEntry>());
    if (!listed)
        m_ui->emptyNote->setText(u"データの一覧を読めませんでした。原因を取り除いてから、この画面を"
                                 "閉じて、メニューからもう一度開いて下さい。"_s);
    m_ui->emptyNote->setVisible(m_entries.isEmpty());
    for (const DataFileEntry& entry : m_entries)
        m_ui->ListView1->addTopLevelItem(new QTreeWidgetItem({entry.name, rowKind(entry.kind)}));
    m_ui->ListView1->setCurrentItem(m_ui->ListView1->topLevelItem(0));
    m_ui->Command1->setEnabled(!m_entries.isEmpty());
}

saiteki::~saiteki() = default;

void saiteki::Command1_Click()
{
    const int row = m_ui->ListView1->indexOfTopLevelItem(m_ui->ListView1->currentItem());
    if (row < 0)
        return;
    setCursor(Qt::WaitCursor);
    Optimise(m_shared, m_entries[row], [this] { unsetCursor(); });
}

} // namespace core
