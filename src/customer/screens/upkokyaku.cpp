#include "customer/screens/upkokyaku.h"

#include "text/lines.h"
#include "ui/enter_moves_on.h"
#include "ui/reading_filler.h"
#include "ui_upkokyaku.h"

using namespace Qt::StringLiterals;

namespace customer {

upkokyaku::upkokyaku(CustomerFile& file, records::Drafts& drafts, const Opening& opening,
                     QWidget* parent)
    : EditForm(file.messages, drafts, parent),
      m_ui(std::make_unique<Ui::upkokyaku>()),
      m_file(file),
      m_opening(opening)
{
    m_ui->setupUi(this);
    for (std::size_t i = 0; i < m_txtkokyaku.size(); ++i)
        m_txtkokyaku[i] = findChild<QLineEdit*>(u"txtkokyaku_"_s + QString::number(i));
    for (const auto& [name, reading] :
         {std::pair{DisplayName, DisplayReading}, std::pair{PersonName, PersonReading},
          std::pair{CompanyName, CompanyReading}}) {
        new ui::ReadingFiller(m_txtkokyaku[name], m_txtkokyaku[reading]);
    }
    new ui::EnterMovesOn(this, m_ui->Command1);
    initialize({m_ui->Command1, m_ui->Command2, m_ui->Command3, m_ui->chkrenzo, m_ui->txtkokyaku_0},
               opening.adding);
    fill(opening.fields);
    recordShown(u"upkokyaku "_s + QString::number(opening.key.updateId) + u' '
                + QString::number(opening.like));
}

upkokyaku::~upkokyaku() = default;

void upkokyaku::fill(const CustomerFields& fields)
{
    for (std::size_t i = 0; i < m_txtkokyaku.size(); ++i)
        m_txtkokyaku[i]->setText(fields.texts[i]);
    m_ui->txtkokyaku_15->setPlainText(text::toWidgetLines(fields.texts[Notes]));
    m_ui->chkkokyaku->setChecked(fields.print);
}

CustomerFields upkokyaku::fields() const
{
    CustomerFields entered;
    // A pasted text may have line ends in these fields too.
    for (std::size_t i = 0; i < m_txtkokyaku.size(); ++i) {
        const QString typed = m_txtkokyaku[i]->text();
        const QString& shown = m_opening.fields.texts[i];
        entered.texts[i] = typed == shown ? shown : text::toStoredLines(typed);
    }
    // Notes that were not edited keep the line ends that they came with.
    const QString notes = m_ui->txtkokyaku_15->toPlainText();
    const QString& before = m_opening.fields.texts[Notes];
    entered.texts[Notes] =
        notes == text::toWidgetLines(before) ? before : text::toStoredLines(notes);
    entered.print = m_ui->chkkokyaku->isChecked();
    return entered;
}

records::SaveResult upkokyaku::save()
{
    return isAdding() ? addCustomer(m_file, fields())
                      : changeCustomer(m_file, m_opening.key, fields());
}

records::DeleteResult upkokyaku::remove()
{
    return deleteCustomer(m_file, m_opening.key);
}

QWidget* upkokyaku::refusedField()
{
    return m_txtkokyaku[DisplayReading]->text().isEmpty() ? m_txtkokyaku[DisplayReading]
                                                          : m_txtkokyaku[DisplayName];
}

} // namespace customer
