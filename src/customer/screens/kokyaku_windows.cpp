#include "customer/screens/kokyaku_windows.h"

#include "core/data/messages.h"
#include "customer/screens/johokokyaku.h"
#include "customer/screens/klogpreview.h"
#include "ui/twips.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace customer {
namespace {

// Whether a click in a column opens a window; by key any column does.
bool opens(int setting, int column)
{
    if (column == KokyakuWindows::BeingClicked)
        return false;
    return setting == 0 || column == KokyakuWindows::ByKey || column == setting - 1;
}

} // namespace

KokyakuWindows::KokyakuWindows(const Desk& desk, Settings& settings, QWidget* window)
    : QObject(window),
      m_desk(desk),
      m_settings(settings),
      m_detail(new johokokyaku(m_desk, settings, window)),
      m_preview(new klogpreview(desk.file, window))
{
    m_actions = {
        modeAction(u"MenuKokyakuSyosai"_s, u"顧客詳細を表示(&I)"_s, &Settings::customerDetail),
        modeAction(u"MenuKenSyosai"_s, u"件名の顧客詳細を表示(&J)"_s, &Settings::caseDetail),
        modeAction(u"MenuRogPre"_s, u"ログプレビューを表示(&P)"_s, &Settings::previewShown),
        new QAction(u"顧客詳細の表示位置を保存(&W)"_s, this)};
    m_actions.ichi->setObjectName(u"ichi"_s);
    connect(m_actions.ichi, &QAction::triggered, this, &KokyakuWindows::ichi_Click);
    for (QTimer* const timer : {&m_Timer1, &m_Timer2})
        timer->setInterval(0);
    connect(&m_Timer1, &QTimer::timeout, this, &KokyakuWindows::Timer1_Timer);
    connect(&m_Timer2, &QTimer::timeout, this, &KokyakuWindows::Timer2_Timer);
    connect(m_detail, &johokokyaku::closed, this, &KokyakuWindows::detailClosed);
    connect(m_preview, &logpreview::closed, this, [this] {
        if (!m_closing)
            m_actions.showPreview->setChecked(false);
    });
}

QAction* KokyakuWindows::modeAction(const QString& name, const QString& caption,
                                    int Settings::*mode)
{
    auto* const made = new QAction(caption, this);
    made->setObjectName(name);
    made->setCheckable(true);
    made->setChecked(m_settings.*mode == 1);
    connect(made, &QAction::toggled, this,
            [this, made, mode](bool on) { setMode(*made, mode, on); });
    return made;
}

void KokyakuWindows::setMode(QAction& action, int Settings::*mode, bool on)
{
    const int value = on ? 1 : 0;
    if (m_settings.*mode == value)
        return;
    m_settings.*mode = value;
    saveSettings(m_desk.file, {{mode, value}});
    if (&action == m_actions.showPreview) {
        m_preview->setVisible(on && !m_log.isNone());
        m_preview->showEntry(m_log);
    } else if (!on) {
        if (m_settings.customerDetail != 1 && m_settings.caseDetail != 1)
            m_detail->hide();
    } else if (&action == m_actions.showDetail) {
        m_Timer1.start();
    } else {
        m_Timer2.start();
    }
}

void KokyakuWindows::customerSelected(const core::RecordKey& key, int column)
{
    m_customer = key;
    if (key.isNone())
        return;
    const bool opened =
        m_settings.customerDetail == 1 && opens(m_settings.customerClickColumn, column);
    if (opened || m_detail->isVisible())
        m_Timer1.start();
}

void KokyakuWindows::caseSelected(const core::RecordKey& key, int column)
{
    m_case = key;
    if (key.isNone())
        return;
    const bool opened = m_settings.caseDetail == 1 && opens(m_settings.caseClickColumn, column);
    if (opened || m_detail->isVisible()) // its log tab follows the case
        m_Timer2.start();
}

void KokyakuWindows::Timer1_Timer()
{
    m_Timer1.stop();
    if (!m_customer.isNone() && m_detail->showCustomer(m_customer))
        showDetailWindow();
}

void KokyakuWindows::Timer2_Timer()
{
    m_Timer2.stop();
    if (!m_case.isNone() && m_detail->showCase(m_case))
        showDetailWindow();
}

// Each time it goes to the kept place. As long as none was kept, an open window stays where the
// user has moved it.
void KokyakuWindows::showDetailWindow()
{
    const bool placeKept = m_settings.detailLeft != 0 || m_settings.detailTop != 0;
    if (placeKept || !m_detail->isVisible())
        m_detail->moveToKeptPlace();
    m_detail->show();
}

void KokyakuWindows::detailClosed()
{
    if (m_closing)
        return;
    m_actions.showDetail->setChecked(false);
    m_actions.showCaseDetail->setChecked(false);
}

void KokyakuWindows::logSelected(const core::RecordKey& key, int column)
{
    m_log = key;
    if (m_settings.previewShown != 1)
        return;
    if (key.isNone()) {
        m_preview->hide();
    } else if (m_preview->isVisible() || opens(m_settings.logClickColumn, column)) {
        m_preview->showEntry(m_log);
        m_preview->show();
    }
}

void KokyakuWindows::refill()
{
    m_detail->refill();
    if (m_preview->isVisible())
        m_preview->showEntry(m_log);
}

void KokyakuWindows::ichi_Click()
{
    if (!m_detail->isVisible()) {
        m_desk.file.messages.tell(u"顧客詳細を表示してから実行して下さい。"_s);
        return;
    }
    if (!m_desk.file.messages.confirm(u"現在の表示位置を保存しますか？"_s))
        return;
    const int left = static_cast<int>(ui::twipsFromPixels(m_detail->pos().x()));
    const int top = static_cast<int>(ui::twipsFromPixels(m_detail->pos().y()));
    if (saveSettings(m_desk.file, {{&Settings::detailLeft, left}, {&Settings::detailTop, top}})) {
        m_settings.detailLeft = left;
        m_settings.detailTop = top;
    }
}

void KokyakuWindows::activateDetail()
{
    if (m_detail->isVisible())
        m_detail->activateWindow();
}

void KokyakuWindows::closeAll()
{
    m_closing = true;
    m_Timer1.stop();
    m_Timer2.stop();
    m_detail->close();
    m_preview->close();
}

} // namespace customer
