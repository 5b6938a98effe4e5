#include "core/screens/admin.h"

#include "core/data/administrator.h"
#include "core/data/main_access.h"
#include "core/data/shared.h"
#include "core/screens/screen_flow.h"
#include "ui/enter_moves_on.h"
#include "ui/password_field.h"
#include "ui/scrolling_body.h"
#include "ui_admin.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>

namespace core {

admin::admin(Shared& shared, ScreenFlow& flow, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::admin), m_shared(shared)
{
    m_ui->setupUi(this);
    ui::scrollBody(*this);
    m_ui->ListView1->header()->resizeSection(0, 320);
    connect(m_ui->Option1, &QRadioButton::toggled, this, &admin::Option_Click);
    // Coming to the list by Tab selects nothing yet.
    connect(m_ui->ListView1, &QTreeWidget::itemSelectionChanged, this, &admin::ListView1_ItemClick);
    connect(m_ui->Command1, &QPushButton::clicked, this, &admin::Command1_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &admin::Command2_Click);
    connect(m_ui->Command3, &QPushButton::clicked, this, &admin::Command3_Click);
    connect(m_ui->Command4, &QPushButton::clicked, this, &admin::Command4_Click);
    connect(m_ui->Command5, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, [&flow] { flow.show(Screen::Menu); });
    auto* const remove = new QShortcut(QKeySequence::Delete, m_ui->ListView1);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &admin::Command3_Click);
    new ui::EnterMovesOn(this, nullptr);

    ui::hidePassword(*m_ui->Text1_1);
    ui::hidePassword(*m_ui->Text2_1);
    m_ui->ListView1->installEventFilter(this);
    m_ui->Command4->setEnabled(false); // until there is something to change
    fillList(0);
    if (m_entries.isEmpty())
        m_ui->Text1_0->setFocus(); // the first name is typed at once
}

admin::~admin() = default;

// An arrow key in a list of one entry moves to no other one, so it would choose none.
bool admin::eventFilter(QObject* watched, QEvent* event)
{
    const QTreeWidget& list = *m_ui->ListView1;
    if (event->type() == QEvent::KeyPress && list.selectedItems().isEmpty()
        && list.topLevelItemCount() > 0) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            m_ui->ListView1->setCurrentItem(list.topLevelItem(0), 0,
                                            QItemSelectionModel::ClearAndSelect
                                                | QItemSelectionModel::Rows);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

// What was refused is to be mended.
void admin::focusOn(QLineEdit& refused)
{
    refused.setFocus();
    refused.selectAll();
}

DataKind admin::kind() const
{
    return m_ui->Option1->isChecked() ? DataKind::Customer : DataKind::Repair;
}

std::optional<DataFileEntry> admin::selectedEntry() const
{
    const QList<QTreeWidgetItem*> selected = m_ui->ListView1->selectedItems();
    if (selected.isEmpty())
        return std::nullopt;
    return m_entries[m_ui->ListView1->indexOfTopLevelItem(selected.first())];
}

void admin::fillList(qint64 selectedNumber)
{
    const QSignalBlocker quiet(m_ui->ListView1);
    const auto listed = ListDataFiles(m_shared, kind());
    m_entries = listed.value_or(QList<DataFileEntry>());
    if (listed)
        showAdministrator();
    m_ui->emptyNote->setVisible(!listed);
    m_ui->ListView1->clear();
    for (const DataFileEntry& entry : m_entries) {
        auto* const item = new QTreeWidgetItem({entry.name, entry.password});
        m_ui->ListView1->addTopLevelItem(item);
        if (entry.number == selectedNumber)
            m_ui->ListView1->setCurrentItem(item);
    }
    enableButtons();
}

void admin::refill(qint64 selectedNumber)
{
    if (isMainDatabaseOpen(m_shared))
        fillList(selectedNumber);
}

void admin::showAdministrator()
{
    if (m_administratorIsShown)
        return; // what is being typed stays
    const std::optional<Administrator> kept = LoadAdministrator(m_shared);
    if (!kept)
        return; // empty fields must not be saved as the administrator's
    m_administratorIsShown = true;
    m_ui->Command4->setEnabled(true);
    m_ui->Text2_0->setText(kept->name);
    m_ui->Text2_1->setText(kept->password);
}

void admin::showEntry(const DataFileEntry& entry)
{
    m_ui->Text1_0->setText(entry.name);
    m_ui->Text1_1->setText(entry.password);
}

void admin::enableButtons()
{
    const bool isSelected = selectedEntry().has_value();
    m_ui->Command2->setEnabled(isSelected);
    m_ui->Command3->setEnabled(isSelected);
}

void admin::Option_Click()
{
    fillList(0);
    showEntry({});
}

void admin::ListView1_ItemClick()
{
    enableButtons();
    if (const std::optional<DataFileEntry> entry = selectedEntry())
        showEntry(*entry);
}

void admin::Command1_Click()
{
    const QString name = m_ui->Text1_0->text();
    if (!AddDataFile(m_shared, kind(), name, m_ui->Text1_1->text())) {
        focusOn(*m_ui->Text1_0);
        return;
    }
    showEntry({});
    fillList(0);
    m_ui->Text1_0->setFocus();
}

void admin::Command2_Click()
{
    const std::optional<DataFileEntry> entry = selectedEntry();
    if (!entry)
        return;
    // Also after a failure: the row can be changed although the file kept its name.
    const bool changed =
        ChangeDataFile(m_shared, *entry, m_ui->Text1_0->text(), m_ui->Text1_1->text());
    refill(entry->number);
    if (!changed)
        focusOn(*m_ui->Text1_0);
}

void admin::Command3_Click()
{
    const std::optional<DataFileEntry> entry = selectedEntry();
    if (!entry)
        return;
    const bool removed = DeleteDataFile(m_shared, *entry);
    refill(removed ? 0 : entry->number); // another copy may have been faster
    if (removed)
        showEntry({});
}

void admin::Command4_Click()
{
    if (!SaveAdministrator(m_shared, {m_ui->Text2_0->text(), m_ui->Text2_1->text()}))
        focusOn(*m_ui->Text2_0);
}

} // namespace core
