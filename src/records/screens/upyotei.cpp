#include "records/screens/upyotei.h"

#include "core/data/clock.h"
#include "text/lines.h"
#include "ui/enter_moves_on.h"
#include "ui_upyotei.h"

using namespace Qt::StringLiterals;

namespace records {

upyotei::upyotei(DataFile& file, Drafts& drafts, QWidget* parent, QDate day, bool adding)
    : EditForm(file.messages, drafts, parent), m_ui(std::make_unique<Ui::upyotei>()), m_file(file)
{
    m_ui->setupUi(this);
    m_ui->DTPicker7->setDate(day.isValid() ? day : file.clock.today());
    m_ui->DTPicker6->setTime(QTime(0, 0));
    new ui::EnterMovesOn(this, m_ui->Command1);
    initialize({m_ui->Command1, m_ui->Command2, m_ui->Command3, m_ui->chkrenzo, m_ui->DTPicker7},
               adding);
}

upyotei::upyotei(DataFile& file, Drafts& drafts, QDate day, QWidget* parent)
    : upyotei(file, drafts, parent, day, true)
{
    recordShown(u"upyotei +"_s);
}

upyotei::upyotei(DataFile& file, Drafts& drafts, const KeptScheduleEntry& kept,
                 QWidget* parent)
    : upyotei(file, drafts, parent, kept.entry.date, false)
{
    m_kept = kept;
    if (kept.entry.time.isValid())
        m_ui->DTPicker6->setTime(kept.entry.time);
    m_ui->yotei1->setPlainText(text::toWidgetLines(kept.entry.text));
    m_filled = entry();
    recordShown(u"upyotei "_s + QString::number(kept.key.updateId));
}

upyotei::~upyotei() = default;

ScheduleEntry upyotei::entry() const
{
    const QString shown = m_ui->yotei1->toPlainText();
    const QString& before = m_kept.entry.text;
    return {m_ui->DTPicker7->date(), m_ui->DTPicker6->time(),
            shown == text::toWidgetLines(before) ? before : text::toStoredLines(shown)};
}

SaveResult upyotei::save()
{
    return isAdding() ? addScheduleEntry(m_file, entry())
                      : changeScheduleEntry(m_file, m_kept.key, entry(), &m_filled);
}

DeleteResult upyotei::remove()
{
    return deleteScheduleEntry(m_file, m_kept.key);
}

QWidget* upyotei::refusedField()
{
    return m_ui->yotei1;
}

} // namespace records
