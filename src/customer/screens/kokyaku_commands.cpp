#include "customer/screens/kokyaku_commands.h"

#include "records/data/record_check.h"
#include "customer/data/logs.h"
#include "customer/screens/upkenmei.h"
#include "customer/screens/upkokyaku.h"
#include "customer/screens/upkrog.h"
#include "customer/screens/upkyotei.h"
#include "text/dates.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace customer {

KokyakuCommands::KokyakuCommands(const Desk& desk, std::function<Selection()> selection,
                                 QWidget* window)
    : QObject(window), m_desk(desk), m_selection(std::move(selection)), m_window(window)
{
    m_actions = {
        action(u"MenuUserListKyakuAdd"_s, u"顧客を追加(&N)"_s, &KokyakuCommands::addNewCustomer),
        action(u"MenuUserListKyakuSansyoAdd"_s, u"顧客を参照追加(&S)"_s,
               &KokyakuCommands::addCustomerLike),
        action(u"MenuUserListKenAdd"_s, u"件名を追加(&K)"_s, &KokyakuCommands::addNewCase),
        action(u"MenuKenListKenAdd"_s, u"件名を追加(&K)"_s, &KokyakuCommands::addCaseFromCases),
        action(u"MenuKenListRogAdd"_s, u"ログを追加(&L)"_s, &KokyakuCommands::addLogFromCases),
        action(u"MenuRogListAdd"_s, u"ログを追加(&L)"_s, &KokyakuCommands::addLogFromLogs),
        action(u"MenuYoteiAdd"_s, u"予定を追加(&Y)"_s, &KokyakuCommands::addSchedule),
        action(u"MenuUserListKyakuEdit"_s, u"顧客を編集(&E)"_s, &KokyakuCommands::editCustomer),
        action(u"MenuKenListKenEdit"_s, u"件名を編集(&E)"_s, &KokyakuCommands::editCase),
        action(u"MenuRogListEdit"_s, u"ログを編集(&E)"_s, &KokyakuCommands::editLog)};
    const std::pair<QAction*, Qt::Key> keys[] = {{m_actions.MenuUserListKyakuAdd, Qt::Key_N},
                                                 {m_actions.MenuUserListKenAdd, Qt::Key_K},
                                                 {m_actions.MenuRogListAdd, Qt::Key_L},
                                                 {m_actions.MenuYoteiAdd, Qt::Key_Y}};
    for (const auto& [each, key] : keys) {
        each->setShortcut(Qt::CTRL | key);
        m_window->addAction(each);
    }
}

QAction* KokyakuCommands::action(const QString& name, const QString& caption,
                                 void (KokyakuCommands::*run)())
{
    auto* const made = new QAction(caption, this);
    made->setObjectName(name);
    connect(made, &QAction::triggered, this, run);
    return made;
}

void KokyakuCommands::showSelection()
{
    const Selection selected = m_selection();
    for (QAction* const each : {m_actions.MenuUserListKyakuSansyoAdd, m_actions.MenuUserListKenAdd,
                                m_actions.MenuUserListKyakuEdit}) {
        each->setEnabled(!selected.customer.isNone());
    }
    for (QAction* const each :
         {m_actions.MenuKenListRogAdd, m_actions.MenuRogListAdd, m_actions.MenuKenListKenEdit})
        each->setEnabled(!selected.ofCase.isNone());
    m_actions.MenuKenListKenAdd->setEnabled(!selected.customer.isNone()
                                            || !selected.ofCase.isNone());
    m_actions.MenuRogListEdit->setEnabled(!selected.log.isNone());
}

void KokyakuCommands::addNewCustomer()
{
    open(new upkokyaku(m_desk.file, m_desk.drafts, {}, m_window), u"新しい顧客を追加する"_s,
         &KokyakuCommands::customerWritten);
}

void KokyakuCommands::addCustomerLike()
{
    const Selection selected = m_selection();
    const std::optional<KeptCustomer> like =
        records::readOrTell(m_desk.file, [&] { return readCustomer(m_desk.file, selected.customer); });
    if (!like)
        return;
    open(new upkokyaku(m_desk.file, m_desk.drafts,
                       {true, {}, like->fields, selected.customer.updateId}, m_window),
         u"【 "_s + selected.customerName + u" 】参照追加"_s, &KokyakuCommands::customerWritten);
}

void KokyakuCommands::editCustomer()
{
    const Selection selected = m_selection();
    if (selected.customer.isNone())
        return;
    const std::optional<KeptCustomer> kept =
        records::readOrTell(m_desk.file, [&] { return readCustomer(m_desk.file, selected.customer); });
    if (!kept)
        return;
    auto* const form = new upkokyaku(m_desk.file, m_desk.drafts,
                                     {false, selected.customer, kept->fields}, m_window);
    connect(form, &records::EditForm::removed, this, &KokyakuCommands::customerRemoved);
    open(form, u"顧客情報を編集"_s, &KokyakuCommands::customerWritten);
}

void KokyakuCommands::addNewCase()
{
    const Selection selected = m_selection();
    if (!selected.customer.isNone())
        openNewCase(selected.customer, selected.customerName);
}

// The list may hold the cases of all customers: the new one is for the customer of the case that
// is selected there.
void KokyakuCommands::addCaseFromCases()
{
    const Selection selected = m_selection();
    if (selected.ofCase.isNone()) {
        addNewCase();
        return;
    }
    const std::optional<KeptCustomer> owner =
        records::readOrTell(m_desk.file, [&]() -> std::optional<KeptCustomer> {
            const std::optional<KeptCase> shown = readCase(m_desk.file, selected.ofCase);
            return shown ? readOwner(m_desk.file, shown->customerId, shown->key.mark)
                         : std::nullopt;
        });
    if (owner)
        openNewCase(owner->key, owner->fields.texts[DisplayName]);
}

void KokyakuCommands::openNewCase(const core::RecordKey& customer, const QString& name)
{
    open(new upkenmei(m_desk.file, m_desk.drafts, customer, m_window),
         u"【 "_s + name + u" 】件名追加"_s, &KokyakuCommands::caseWritten);
}

void KokyakuCommands::editCase()
{
    const Selection selected = m_selection();
    if (selected.ofCase.isNone())
        return;
    std::optional<KeptCase> kept =
        records::readOrTell(m_desk.file, [&] { return readCase(m_desk.file, selected.ofCase); });
    if (!kept)
        return;
    kept->key = selected.ofCase;
    auto* const form = new upkenmei(m_desk.file, m_desk.drafts, *kept, m_window);
    connect(form, &records::EditForm::removed, this, &KokyakuCommands::caseRemoved);
    open(form, u" 件名情報を編集"_s, &KokyakuCommands::caseWritten);
}

void KokyakuCommands::addLogFromCases()
{
    openLogForm(u" 】ログ追加"_s);
}

void KokyakuCommands::addLogFromLogs()
{
    openLogForm(u" 】ログを追加"_s);
}

void KokyakuCommands::openLogForm(const QString& caption)
{
    const Selection selected = m_selection();
    if (selected.ofCase.isNone())
        return;
    open(new upkrog(m_desk.file, m_desk.drafts, selected.ofCase, m_window),
         u"【 "_s + selected.caseTitle + caption, &KokyakuCommands::logWritten);
}

void KokyakuCommands::editLog()
{
    const Selection selected = m_selection();
    if (selected.log.isNone())
        return;
    std::optional<KeptLog> kept =
        records::readOrTell(m_desk.file, [&] { return readLog(m_desk.file, selected.log); });
    if (!kept)
        return;
    kept->key = selected.log;
    open(new upkrog(m_desk.file, m_desk.drafts, *kept, m_window), u"ログ情報を編集"_s,
         &KokyakuCommands::logWritten);
}

void KokyakuCommands::addSchedule()
{
    const QDate day = m_selection().day;
    open(new upkyotei(m_desk.file, m_desk.drafts, day, m_window),
         u"【 "_s + text::formatDate(day) + u" 】予定追加"_s, &KokyakuCommands::scheduleWritten);
}

void KokyakuCommands::editSchedule(const core::RecordKey& key)
{
    if (key.isNone())
        return;
    std::optional<records::KeptScheduleEntry> kept =
        records::readOrTell(m_desk.file, [&] { return records::readScheduleEntry(m_desk.file, key); });
    if (!kept)
        return;
    kept->key = key;
    open(new upkyotei(m_desk.file, m_desk.drafts, *kept, m_window), u"予定情報を編集"_s,
         &KokyakuCommands::scheduleWritten);
}

void KokyakuCommands::open(records::EditForm* form, const QString& caption,
                           void (KokyakuCommands::*told)())
{
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->setWindowTitle(caption);
    connect(form, &records::EditForm::written, this, told);
    form->open();
}

} // namespace customer
