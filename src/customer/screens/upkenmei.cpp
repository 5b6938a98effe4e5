#include "customer/screens/upkenmei.h"

#include "core/data/clock.h"
#include "customer/data/cases.h"
#include "ui/enter_moves_on.h"
#include "ui_upkenmei.h"

using namespace Qt::StringLiterals;

namespace customer {

upkenmei::upkenmei(const records::Desk& desk, const records::Opening& opening, QWidget* parent)
    : EditForm(desk, caseTable(), opening, parent), m_ui(std::make_unique<Ui::upkenmei>())
{
    m_ui->setupUi(this);
    const QDate today = desk.file.clock.today();
    m_ui->Combo1->addItems({QString::fromUtf16(OpenState), QString::fromUtf16(FinishedState)});
    m_ui->DTPicker1->setDate(today);
    m_ui->DTPicker2->setDate(today);
    m_ui->DTPicker1->setClock(desk.file.clock);
    m_ui->DTPicker2->setClock(desk.file.clock);
    connect(m_ui->chkYotei, &QCheckBox::toggled, this, &upkenmei::chkYotei_Click);
    fields().bind(m_ui->DTPicker1, u"登録日"_s);
    fields().bind(m_ui->kenmei1, u"件名"_s);
    fields().bind(m_ui->kenmei2, u"備考"_s);
    fields().bind(m_ui->Combo1, u"判定"_s);
    fields().bind(m_ui->chkkenmei, u"K印字"_s);
    fields().bind(m_ui->DTPicker2, u"予定日"_s, m_ui->chkYotei);
    auto* const enter = new ui::EnterMovesOn(this, m_ui->Command1);
    enter->keepLineBreaksIn(m_ui->kenmei2);
    if (!isAdding()) {
        const QString finished = opening.record->text(u"完了日");
        m_ui->lblKanryo->setText(finished.isEmpty() ? QString() : u"完了日 "_s + finished);
    }
    initialize(
        {m_ui->Command1, m_ui->Command2, m_ui->Command3, m_ui->chkrenzo, m_ui->kenmei1, u"件名"_s},
        u"upkenmei"_s);
}

upkenmei::~upkenmei() = default;

void upkenmei::chkYotei_Click(bool planned)
{
    m_ui->DTPicker2->setEnabled(planned);
}

} // namespace customer
