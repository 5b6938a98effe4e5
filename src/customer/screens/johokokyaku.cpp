#include "customer/screens/johokokyaku.h"

#include "core/data/messages.h"
#include "core/data/opener.h"
#include "customer/data/cases.h"
#include "customer/data/customers.h"
#include "customer/data/logs.h"
#include "customer/data/shortcuts.h"
#include "customer/screens/lists.h"
#include "records/data/record_list.h"
#include "records/screens/desk.h"
#include "records/screens/related_files_list.h"
#include "records/screens/selection.h"
#include "text/lines.h"
#include "ui/plain_tip.h"
#include "ui_johokokyaku.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace customer {

johokokyaku::johokokyaku(const records::Desk& desk, const records::Settings& settings,
                         const records::Selection& selection, QWidget* parent)
    : DetailWindow(parent),
      m_ui(std::make_unique<Ui::johokokyaku>()),
      m_desk(desk),
      m_settings(settings),
      m_selection(selection),
      m_items({u"項目名"_s, u"内容"_s}),
      m_deliveries({u"納入日"_s, u"ﾒｰｶｰ"_s, u"品名"_s, u"型番"_s, u"ｼﾘｱﾙ"_s, u"定価"_s, u"売値"_s,
                    u"仕切"_s, u"備考"_s}),
      m_logs({u"記録日"_s, u"記録者"_s, u"ログ"_s})
{
    m_ui->setupUi(this);
    QFont large = m_ui->lblName->font();
    large.setBold(true);
    m_ui->lblName->setFont(large);
    addInfoRows();
    m_shortcuts = std::make_unique<records::RelatedFilesList>(
        desk, customerFiles(), *m_ui->ListView6, *m_ui->Command4, *m_ui->Command5,
        u"顧客が選択されていません。"_s);
    m_ui->ListView3->setListModel(&m_logs);
    m_ui->ListView4->setListModel(&m_items);
    m_ui->ListView5->setListModel(&m_deliveries);
    connect(m_ui->MAIL, &QPushButton::clicked, this, &johokokyaku::MAIL_Click);
    connect(m_ui->URL, &QPushButton::clicked, this, &johokokyaku::URL_Click);
    connect(m_ui->UserText, &QPushButton::clicked, this, &johokokyaku::UserText_Click);
    connect(m_ui->Command3, &QPushButton::clicked, this, &QWidget::close);
}

johokokyaku::~johokokyaku() = default;

void johokokyaku::addInfoRows()
{
    for (const QString& column : customerTexts()) {
        auto* const value = new QLabel(m_ui->info);
        value->setTextFormat(Qt::PlainText);
        value->setWordWrap(true);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        value->setAccessibleName(column);
        m_ui->infoRows->addRow(column, value);
        m_values.push_back(value);
    }
}

bool johokokyaku::showRecord(int list, const core::RecordKey& key)
{
    return list == Lists::Customers ? showCustomer(key) : showCase(key);
}

bool johokokyaku::showCustomer(const core::RecordKey& key)
{
    const std::optional<records::Record> customer =
        records::readRecord(m_desk.file, customerTable(), key);
    if (!customer)
        return false;
    const bool another = customer->key.updateId != m_kept.key.updateId;
    fill(*customer);
    const auto selected = m_selection.has(Lists::Cases)
        ? records::readRecord(m_desk.file, caseTable(), m_selection.key(Lists::Cases))
        : std::nullopt;
    const bool isOwn = selected && selected->key.mark == customer->key.mark
        && selected->number(u"ユーザーID") == customer->key.id;
    if (isOwn)
        showLogs(selected->key, selected->text(u"件名"));
    else if (another)
        showLogs({}, {});
    return true;
}

bool johokokyaku::showCase(const core::RecordKey& key)
{
    const std::optional<records::Record> ofCase =
        records::readRecord(m_desk.file, caseTable(), key);
    const std::optional<records::Record> owner = ofCase
        ? readOwner(m_desk.file, ofCase->number(u"ユーザーID"), ofCase->key.mark)
        : std::nullopt;
    if (!owner)
        return false;
    fill(*owner);
    showLogs(ofCase->key, ofCase->text(u"件名"));
    return true;
}

void johokokyaku::fill(const records::Record& customer)
{
    const bool another = customer.key.updateId != m_kept.key.updateId;
    m_kept = customer;
    const QString name = customer.text(u"表示名");
    m_ui->lblName->setText(name);
    const QString copies = name + u" の内容をコピー"_s;
    m_ui->UserText->setAccessibleName(copies);
    m_ui->UserText->setToolTip(ui::plainTip(copies));
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i]->setText(
            text::toWidgetLines(customer.text(customerTexts().at(static_cast<qsizetype>(i)))));
    m_ui->MAIL->setEnabled(!customer.text(u"E-MAIL").isEmpty());
    m_ui->URL->setEnabled(!customer.text(u"URL").isEmpty());
    if (another)
        m_shortcuts->showOwner(customer.key);
    else
        m_shortcuts->refill();
}

void johokokyaku::showLogs(const core::RecordKey& ofCase, const QString& title)
{
    m_case = ofCase;
    if (ofCase.isNone()) {
        m_ui->lblRog->setText(u"件名が選択されていません。"_s);
        m_ui->ListView3->fill(nullptr);
        return;
    }
    const records::ListFilter filter = logsOfCase(ofCase, title);
    m_ui->lblRog->setText(filter.caption);
    // On one page: there are no page keys here.
    m_ui->ListView3->fill(records::openWholeList(m_desk.file, logList(), filter, m_settings));
}

void johokokyaku::refill()
{
    if (!isVisible())
        return;
    const bool filled =
        m_case.isNone() ? showCustomer(m_kept.key) : showCase(m_case) || showCustomer(m_kept.key);
    if (!filled)
        hide();
}

void johokokyaku::MAIL_Click()
{
    openTarget(u"mailto:"_s + m_kept.text(u"E-MAIL"));
}

void johokokyaku::URL_Click()
{
    openTarget(m_kept.text(u"URL"));
}

void johokokyaku::openTarget(const QString& target)
{
    core::openAddressOrTell(m_desk.opener, m_desk.file.messages, target);
}

void johokokyaku::UserText_Click()
{
    QGuiApplication::clipboard()->setText(customerText(m_kept));
}

} // namespace customer
