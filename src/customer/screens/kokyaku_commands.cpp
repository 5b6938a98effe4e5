#include "customer/screens/kokyaku_commands.h"

#include "customer/data/cases.h"
#include "customer/data/customers.h"
#include "customer/data/logs.h"
#include "customer/screens/lists.h"
#include "customer/screens/upkenmei.h"
#include "customer/screens/upkokyaku.h"
#include "customer/screens/upkrog.h"
#include "customer/screens/upkyotei.h"
#include "records/data/record_check.h"
#include "records/data/schedule.h"
#include "records/screens/selection.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace customer {
namespace {

using Mode = records::Opening::Mode;

template <int... List> bool hasAnyOf(const records::Selection& selected)
{
    return (selected.has(List) || ...);
}

const auto HasCustomer = hasAnyOf<Lists::Customers>;
const auto HasCase = hasAnyOf<Lists::Cases>;

template <int List> bool hasOneOf(const records::Selection& selected)
{
    return selected.hasOne(List);
}

const records::RecordKind& customerKind()
{
    static const records::RecordKind kind{Lists::Customers, u"顧客"_s, u"表示名"_s, customerTable(),
                                          records::makeForm<upkokyaku>};
    return kind;
}

const records::RecordKind& caseKind()
{
    static const records::RecordKind kind{Lists::Cases, u"件名"_s, u"件名"_s, caseTable(),
                                          records::makeForm<upkenmei>};
    return kind;
}

const records::RecordKind& logKind()
{
    static const records::RecordKind kind{Lists::Logs, u"ログ"_s, u"Rログ"_s, logTable(),
                                          records::makeForm<upkrog>};
    return kind;
}

const records::RecordKind& scheduleKind()
{
    static const records::RecordKind kind{Lists::Schedule, u"予定"_s, u"予定"_s,
                                          records::scheduleTable(), records::makeForm<upkyotei>};
    return kind;
}

} // namespace

KokyakuCommands::KokyakuCommands(const records::Desk& desk, const records::Selection& selection,
                                 QWidget* window)
    : RecordCommands(desk, selection, window), m_desk(desk), m_selected(selection)
{
    add({
        {u"MenuUserListKyakuAdd"_s,
         u"顧客を追加(&N)"_s,
         [this] {
             open(customerKind(), {Mode::Add, u"新しい顧客を追加する"_s});
         },
         {},
         Qt::CTRL | Qt::Key_N,
         u"ToolKyakuAdd"_s,
         u"顧客を追加"_s,
         u"新しい顧客を追加する"_s,
         u"customer_add"_s},
        {u"MenuUserListKyakuSansyoAdd"_s, u"顧客を参照追加(&S)"_s, [this] { addCustomerLike(); },
         HasCustomer},
        {u"MenuUserListKenAdd"_s, u"件名を追加(&K)"_s, [this] { addNewCase(); }, HasCustomer,
         Qt::CTRL | Qt::Key_K, u"ToolKenAdd"_s, u"件名を追加"_s, u" 件名を追加"_s, u"case_add"_s},
        {u"MenuKenListKenAdd"_s, u"件名を追加(&K)"_s, [this] { addCaseFromCases(); },
         hasAnyOf<Lists::Customers, Lists::Cases>},
        {u"MenuKenListRogAdd"_s, u"ログを追加(&L)"_s, [this] { addLog(u" 】ログ追加"_s); },
         HasCase},
        {u"MenuRogListAdd"_s, u"ログを追加(&L)"_s, [this] { addLog(u" 】ログを追加"_s); }, HasCase,
         Qt::CTRL | Qt::Key_L, u"ToolRogAdd"_s, u"ログを追加"_s, u" ログを追加"_s, u"log_add"_s},
        {u"MenuYoteiAdd"_s,
         u"予定を追加(&Y)"_s,
         [this] { addSchedule(); },
         {},
         Qt::CTRL | Qt::Key_Y,
         u"ToolYoteiAdd"_s,
         u"予定を追加"_s,
         u"新しい予定を追加する"_s,
         u"schedule_add"_s},
        {u"MenuUserListKyakuEdit"_s, u"顧客を編集(&E)"_s, [this] { editCustomer(); }, HasCustomer},
        {u"MenuKenListKenEdit"_s, u"件名を編集(&E)"_s, [this] { editCase(); }, HasCase},
        {u"MenuRogListEdit"_s, u"ログを編集(&E)"_s, [this] { editLog(); }, hasAnyOf<Lists::Logs>},
        {u"MenuYoteiEdit"_s, u"予定を編集(&E)"_s, [this] { editSchedule(); },
         hasAnyOf<Lists::Schedule>},
        {u"MenuUserListKyakuDelete"_s, u"顧客を削除(&D)\tDel"_s,
         [this] { removeFrom(Lists::Customers); }, hasOneOf<Lists::Customers>},
        {u"MenuKenListKenDelete"_s, u"件名を削除(&D)\tDel"_s, [this] { removeFrom(Lists::Cases); },
         hasOneOf<Lists::Cases>},
        {u"MenuRogListDelete"_s, u"ログを削除(&D)\tDel"_s, [this] { removeFrom(Lists::Logs); },
         hasOneOf<Lists::Logs>},
        {u"MenuYoteiDelete"_s, u"予定を削除(&D)\tDel"_s, [this] { removeFrom(Lists::Schedule); },
         hasOneOf<Lists::Schedule>},
    });
}

void KokyakuCommands::addCustomerLike()
{
    const std::optional<records::Record> like =
        records::readOrTell(m_desk.file, customerTable(), m_selected.key(Lists::Customers));
    if (!like)
        return;
    open(customerKind(),
         {Mode::Add, u"【 "_s + m_selected.title(Lists::Customers) + u" 】参照追加"_s, {}, like});
}

void KokyakuCommands::editCustomer()
{
    openRecord(customerKind(), m_selected.key(Lists::Customers), u"顧客情報を編集"_s);
}

void KokyakuCommands::addNewCase()
{
    if (m_selected.has(Lists::Customers))
        openNewCase(m_selected.key(Lists::Customers), m_selected.title(Lists::Customers));
}

// The list may hold the cases of all customers: the new one is for the customer of the case that
// is selected there.
void KokyakuCommands::addCaseFromCases()
{
    if (!m_selected.has(Lists::Cases)) {
        addNewCase();
        return;
    }
    const std::optional<records::Record> owner = records::readOrTell(m_desk.file, [&] {
        const auto shown =
            records::readRecord(m_desk.file, caseTable(), m_selected.key(Lists::Cases));
        return shown ? readOwner(m_desk.file, shown->number(u"ユーザーID"), shown->key.mark)
                     : std::nullopt;
    });
    if (owner)
        openNewCase(owner->key, owner->text(u"表示名"));
}

void KokyakuCommands::openNewCase(const core::RecordKey& customer, const QString& name)
{
    open(caseKind(), {Mode::Add, u"【 "_s + name + u" 】件名追加"_s, {customer}});
}

void KokyakuCommands::editCase()
{
    openRecord(caseKind(), m_selected.key(Lists::Cases), u" 件名情報を編集"_s);
}

void KokyakuCommands::addLog(const QString& captionEnd)
{
    if (!m_selected.has(Lists::Cases))
        return;
    open(logKind(),
         {Mode::Add,
          u"【 "_s + m_selected.title(Lists::Cases) + captionEnd,
          {m_selected.key(Lists::Cases)}});
}

void KokyakuCommands::editLog()
{
    openRecord(logKind(), m_selected.key(Lists::Logs), u"ログ情報を編集"_s);
}

void KokyakuCommands::addSchedule()
{
    const QDate day = m_selected.day();
    open(scheduleKind(),
         {Mode::Add, u"【 "_s + text::formatDate(day) + u" 】予定追加"_s, {}, {}, day});
}

void KokyakuCommands::editSchedule()
{
    openRecord(scheduleKind(), m_selected.key(Lists::Schedule), u"予定情報を編集"_s);
}

void KokyakuCommands::removeFrom(int list)
{
    for (const records::RecordKind* const kind :
         {&customerKind(), &caseKind(), &logKind(), &scheduleKind()}) {
        if (kind->list == list)
            removeSelected(*kind);
    }
}

} // namespace customer
