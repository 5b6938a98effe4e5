#include "records/screens/upyotei.h"

#include "core/data/clock.h"
#include "records/data/schedule.h"
#include "ui/enter_moves_on.h"
#include "ui_upyotei.h"

using namespace Qt::StringLiterals;

namespace records {

upyotei::upyotei(const Desk& desk, const Opening& opening, const QString& name, QWidget* parent)
    : EditForm(desk, scheduleTable(), opening, parent), m_ui(std::make_unique<Ui::upyotei>())
{
    m_ui->setupUi(this);
    m_ui->DTPicker7->setDate(opening.day.isValid() ? opening.day : desk.file.clock.today());
    m_ui->DTPicker6->setTime(QTime(0, 0));
    m_ui->DTPicker7->setClock(desk.file.clock);
    fields().bind(m_ui->DTPicker7, u"日付"_s);
    fields().bind(m_ui->DTPicker6, u"時刻"_s);
    fields().bind(m_ui->yotei1, u"予定"_s);
    new ui::EnterMovesOn(this, m_ui->Command1);
    initialize({m_ui->Command1, m_ui->Command2, m_ui->Command3, m_ui->chkrenzo, m_ui->DTPicker7,
                u"予定"_s},
               name);
}

upyotei::~upyotei() = default;

} // namespace records
