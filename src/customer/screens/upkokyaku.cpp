#include "customer/screens/upkokyaku.h"

#include "customer/data/customers.h"
#include "ui/enter_moves_on.h"
#include "ui/reading_filler.h"
#include "ui_upkokyaku.h"

using namespace Qt::StringLiterals;

namespace customer {

upkokyaku::upkokyaku(const records::Desk& desk, const records::Opening& opening, QWidget* parent)
    : EditForm(desk, customerTable(), opening, parent), m_ui(std::make_unique<Ui::upkokyaku>())
{
    m_ui->setupUi(this);
    const QStringList& columns = customerTexts();
    for (qsizetype i = 0; i + 1 < columns.size(); ++i)
        fields().bind(findChild<QLineEdit*>(u"txtkokyaku_"_s + QString::number(i)), columns.at(i));
    fields().bind(m_ui->txtkokyaku_15, columns.last());
    fields().bind(m_ui->chkkokyaku, u"Y印字"_s);
    new ui::ReadingFiller(m_ui->txtkokyaku_1, m_ui->txtkokyaku_0);
    new ui::ReadingFiller(m_ui->txtkokyaku_3, m_ui->txtkokyaku_2);
    new ui::ReadingFiller(m_ui->txtkokyaku_8, m_ui->txtkokyaku_7);
    new ui::EnterMovesOn(this, m_ui->Command1);
    initialize({m_ui->Command1, m_ui->Command2, m_ui->Command3, m_ui->chkrenzo, m_ui->txtkokyaku_0,
                u"表示名"_s},
               u"upkokyaku"_s);
}

upkokyaku::~upkokyaku() = default;

} // namespace customer
