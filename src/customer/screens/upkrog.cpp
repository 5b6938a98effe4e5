#include "customer/screens/upkrog.h"

#include "core/data/clock.h"
#include "customer/data/logs.h"
#include "ui/enter_moves_on.h"
#include "ui_upkrog.h"

using namespace Qt::StringLiterals;

namespace customer {

upkrog::upkrog(const records::Desk& desk, const records::Opening& opening, QWidget* parent)
    : LogForm(desk, logTable(), opening, parent), m_ui(std::make_unique<Ui::upkrog>())
{
    m_ui->setupUi(this);
    m_ui->DTPicker2->setDate(desk.file.clock.today());
    m_ui->DTPicker2->setClock(desk.file.clock);
    offerRecorders(m_ui->Combo2, [&file = desk.file] { return recorderNames(file); });
    fields().bind(m_ui->DTPicker2, u"登録日"_s);
    fields().bind(m_ui->Combo2, u"記録者"_s);
    fields().bind(m_ui->Rrogu, u"Rログ"_s);
    auto* const enter = new ui::EnterMovesOn(this, m_ui->Command1);
    enter->keepLineBreaksIn(m_ui->Rrogu);
    // Several entries of a day are written one after the other.
    continueWith(m_ui->Rrogu, {m_ui->DTPicker2, m_ui->Combo2});
    QWidget* const first = isAdding() ? static_cast<QWidget*>(m_ui->DTPicker2) : m_ui->Rrogu;
    initialize({m_ui->Command1, m_ui->Command2, m_ui->Command3, m_ui->chkrenzo, first, u"Rログ"_s},
               u"upkrog"_s);
}

upkrog::~upkrog() = default;

} // namespace customer
