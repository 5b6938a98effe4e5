#include "customer/screens/upkenmei.h"

#include "core/data/clock.h"
#include "text/lines.h"
#include "ui/enter_moves_on.h"
#include "ui_upkenmei.h"

using namespace Qt::StringLiterals;

namespace customer {

upkenmei::upkenmei(CustomerFile& file, records::Drafts& drafts, QWidget* parent, bool adding)
    : EditForm(file.messages, drafts, parent), m_ui(std::make_unique<Ui::upkenmei>()), m_file(file)
{
    m_ui->setupUi(this);
    m_ui->Combo1->addItems({QString::fromUtf16(OpenState), QString::fromUtf16(FinishedState)});
    m_ui->DTPicker1->setDate(file.clock.today());
    m_ui->DTPicker2->setDate(file.clock.today());
    connect(m_ui->chkYotei, &QCheckBox::toggled, this, &upkenmei::chkYotei_Click);
    auto* const enter = new ui::EnterMovesOn(this, m_ui->Command1);
    enter->keepLineBreaksIn(m_ui->kenmei2);
    initialize({m_ui->Command1, m_ui->Command2, m_ui->Command3, m_ui->chkrenzo, m_ui->kenmei1},
               adding);
}

upkenmei::upkenmei(CustomerFile& file, records::Drafts& drafts, const core::RecordKey& customer,
                   QWidget* parent)
    : upkenmei(file, drafts, parent, true)
{
    m_customer = customer;
    recordShown(u"upkenmei + "_s + QString::number(customer.updateId));
}

upkenmei::upkenmei(CustomerFile& file, records::Drafts& drafts, const KeptCase& kept, QWidget* parent)
    : upkenmei(file, drafts, parent, false)
{
    m_kept = kept;
    fill(kept);
    m_filled = fields();
    recordShown(u"upkenmei "_s + QString::number(kept.key.updateId));
}

upkenmei::~upkenmei() = default;

void upkenmei::chkYotei_Click(bool planned)
{
    m_ui->DTPicker2->setEnabled(planned);
}

void upkenmei::fill(const KeptCase& kept)
{
    if (kept.fields.registered.isValid())
        m_ui->DTPicker1->setDate(kept.fields.registered);
    m_ui->kenmei1->setText(kept.fields.title);
    m_ui->kenmei2->setPlainText(text::toWidgetLines(kept.fields.notes));
    if (m_ui->Combo1->findText(kept.fields.state, Qt::MatchFixedString | Qt::MatchCaseSensitive)
        < 0)
        m_ui->Combo1->addItem(kept.fields.state); // from elsewhere: shown as it is stored
    m_ui->Combo1->setCurrentText(kept.fields.state);
    m_ui->chkkenmei->setChecked(kept.fields.print);
    m_ui->chkYotei->setChecked(kept.fields.planned.isValid());
    if (kept.fields.planned.isValid())
        m_ui->DTPicker2->setDate(kept.fields.planned);
    if (!kept.finished.isEmpty())
        m_ui->lblKanryo->setText(u"完了日 "_s + kept.finished);
}

CaseFields upkenmei::fields() const
{
    CaseFields entered;
    entered.registered = m_ui->DTPicker1->date();
    entered.title = m_ui->kenmei1->text();
    const QString notes = m_ui->kenmei2->toPlainText();
    const QString& before = m_kept.fields.notes;
    entered.notes = notes == text::toWidgetLines(before) ? before : text::toStoredLines(notes);
    entered.state = m_ui->Combo1->currentText();
    entered.print = m_ui->chkkenmei->isChecked();
    if (m_ui->chkYotei->isChecked())
        entered.planned = m_ui->DTPicker2->date();
    return entered;
}

records::SaveResult upkenmei::save()
{
    return isAdding() ? addCase(m_file, m_customer, fields())
                      : changeCase(m_file, m_kept.key, fields(), &m_filled);
}

records::DeleteResult upkenmei::remove()
{
    return deleteCase(m_file, m_kept.key);
}

} // namespace customer
