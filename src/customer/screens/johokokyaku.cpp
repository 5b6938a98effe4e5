#include "customer/screens/johokokyaku.h"

#include "core/data/messages.h"
#include "core/data/opener.h"
#include "customer/data/cases.h"
#include "customer/data/log_list.h"
#include "customer/screens/desk.h"
#include "customer/screens/shortcut_desk.h"
#include "text/lines.h"
#include "ui/twips.h"
#include "ui/window_placement.h"
#include "ui_johokokyaku.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace customer {

johokokyaku::johokokyaku(const Desk& desk, const Settings& settings, QWidget* parent)
    : QWidget(parent, Qt::Tool),
      m_ui(std::make_unique<Ui::johokokyaku>()),
      m_desk(desk),
      m_settings(settings),
      m_items({u"項目名"_s, u"内容"_s}),
      m_deliveries({u"納入日"_s, u"ﾒｰｶｰ"_s, u"品名"_s, u"型番"_s, u"ｼﾘｱﾙ"_s, u"定価"_s, u"売値"_s,
                    u"仕切"_s, u"備考"_s}),
      m_logs({u"記録日"_s, u"記録者"_s, u"ログ"_s})
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_ShowWithoutActivating); // the keyboard stays with the list
    QFont large = m_ui->lblName->font();
    large.setBold(true);
    m_ui->lblName->setFont(large);
    addInfoRows();
    m_shortcuts = std::make_unique<ShortcutDesk>(desk, ShortcutOwner::Customer, *m_ui->ListView6,
                                                 *m_ui->Command4, *m_ui->Command5,
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
    for (int i = 0; i < CustomerFieldCount; ++i) {
        const QString column = customerColumn(static_cast<CustomerField>(i));
        auto* const value = new QLabel(m_ui->info);
        value->setTextFormat(Qt::PlainText);
        value->setWordWrap(true);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        value->setAccessibleName(column);
        m_ui->infoRows->addRow(column, value);
        m_values[static_cast<std::size_t>(i)] = value;
    }
}

bool johokokyaku::showCustomer(const core::RecordKey& key)
{
    const std::optional<KeptCustomer> kept = readCustomer(m_desk.file, key);
    if (!kept)
        return false;
    if (kept->key.updateId != m_kept.key.updateId)
        showLogs({}, {});
    fill(*kept);
    return true;
}

bool johokokyaku::showCase(const core::RecordKey& key)
{
    const std::optional<KeptCase> kept = readCase(m_desk.file, key);
    const std::optional<KeptCustomer> owner =
        kept ? readOwner(m_desk.file, kept->customerId, kept->key.mark) : std::nullopt;
    if (!owner)
        return false;
    fill(*owner);
    showLogs(kept->key, kept->fields.title);
    return true;
}

void johokokyaku::fill(const KeptCustomer& kept)
{
    const bool another = kept.key.updateId != m_kept.key.updateId;
    m_kept = kept;
    m_ui->lblName->setText(kept.fields.texts[DisplayName]);
    const QString copies = kept.fields.texts[DisplayName] + u" の内容をコピー"_s;
    m_ui->UserText->setAccessibleName(copies);
    // A tip would take a name like <b> for marked-up text.
    m_ui->UserText->setToolTip(u"<qt>"_s + copies.toHtmlEscaped() + u"</qt>"_s);
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i]->setText(text::toWidgetLines(kept.fields.texts[i]));
    m_ui->MAIL->setEnabled(!kept.fields.texts[Email].isEmpty());
    m_ui->URL->setEnabled(!kept.fields.texts[WebAddress].isEmpty());
    if (another)
        m_shortcuts->showOwner(kept.key);
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
    Settings all = m_settings;
    all.logsShown = 0; // one page: there are no page keys here
    const ListFilter filter = logsOfCase(ofCase, title);
    m_ui->lblRog->setText(filter.caption);
    m_ui->ListView3->fill(openLogList(m_desk.file, filter, std::nullopt, all));
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

void johokokyaku::moveToKeptPlace()
{
    const QPoint kept(ui::pixelsFromTwips(m_settings.detailLeft),
                      ui::pixelsFromTwips(m_settings.detailTop));
    const QRect wanted(kept, size());
    QRect seen = ui::fitInto(ui::areaFor(*this, wanted), wanted);
    // A place that was never saved is 0, 0, where the window would hide the index.
    if (kept.isNull())
        seen.moveTopRight(screen()->availableGeometry().topRight());
    move(seen.topLeft());
}

void johokokyaku::MAIL_Click()
{
    openTarget(u"mailto:"_s + m_kept.fields.texts[Email]);
}

void johokokyaku::URL_Click()
{
    openTarget(m_kept.fields.texts[WebAddress]);
}

void johokokyaku::openTarget(const QString& target)
{
    core::openAddressOrTell(m_desk.opener, m_desk.file.messages, target);
}

void johokokyaku::UserText_Click()
{
    QGuiApplication::clipboard()->setText(customerText(m_kept.fields));
}

void johokokyaku::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void johokokyaku::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    if (event->isAccepted())
        emit closed();
}

} // namespace customer
