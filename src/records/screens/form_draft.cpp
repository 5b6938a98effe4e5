#include "records/screens/form_draft.h"

#include "core/data/clock.h"
#include "core/data/messages.h"
#include "core/data/shared.h"
#include "records/screens/form_state.h"
#include "text/dates.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace records {
namespace {

// The write itself takes its time too.
constexpr int LongestUnwritten = 1500; // milliseconds

const QString KeptText = u"保存していない入力を残しました。次に開いた時に続けられます。"_s;
const QString KeptInMemoryText =
    u"保存していない入力を残しました。プログラムを終了するまでは続けられます。"_s;
const QString NotWrittenText = u"入力途中の控えをファイルに残せません。"_s;

QString questionAbout(const Draft& draft)
{
    return u"前回、保存されずに閉じた入力があります。\r\n続きから入力しますか？\r\n\r\n対象： "_s
        + draft.subject + u"\r\n入力： "_s + text::formatDate(draft.typed.date()) + u' '
        + text::formatTime(draft.typed.time())
        + u"\r\n\r\n「いいえ」を選ぶと、この入力は破棄されます。\r\n「キャンセル」を選ぶと残してお"
          u"き、"
          "次に開いた時にもう一度確認します。"_s;
}

} // namespace

void tellKeptDrafts(const Desk& desk)
{
    const QStringList subjects = desk.drafts.subjects();
    if (!subjects.isEmpty())
        desk.say(u"保存していない入力が残っています： "_s + subjects.join(u"、"_s));
}

FormDraft::FormDraft(const Desk& desk, std::function<std::optional<Draft>()> unsaved)
    : m_desk(desk), m_unsaved(std::move(unsaved))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(LongestUnwritten);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        write();
        tellFailure();
    });
    // The end of the session, and that of the program by other ways than closing its windows.
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &FormDraft::write,
            Qt::DirectConnection);
    connect(qGuiApp, &QCoreApplication::aboutToQuit, this, &FormDraft::write);
}

std::optional<Draft> FormDraft::offer(const QString& name, const FormState& shown)
{
    for (const Draft& draft : m_desk.drafts.of(name)) {
        const bool isNews = !FormState::fromText(draft.edited).changedFrom(shown).isEmpty();
        const core::Answer answer = isNews ? ask(draft) : core::Answer::No;
        if (answer == core::Answer::Cancel)
            break;
        if (answer == core::Answer::Yes) {
            m_draft = draft;
            return draft;
        }
        m_desk.drafts.drop(draft.id);
    }
    return std::nullopt;
}

core::Answer FormDraft::ask(const Draft& draft) const
{
    return m_desk.shared.messages.show(core::MessageStyle::InformationYesNoCancel,
                                       questionAbout(draft),
                                       QString::fromUtf16(core::AppTitleText));
}

void FormDraft::watch(const QWidget& form)
{
    FormState::watch(form, this, "typed()");
}

// Not restarted by what is typed later: nobody may type for longer than that without a trace.
void FormDraft::typed()
{
    if (!m_timer.isActive())
        m_timer.start();
}

bool FormDraft::write()
{
    m_timer.stop();
    std::optional<Draft> now = m_unsaved();
    if (!now) {
        if (m_draft.id != 0)
            m_desk.drafts.drop(m_draft.id);
        m_draft = {};
        return false;
    }
    if (m_draft.id != 0 && now->holdsSameAs(m_draft))
        return true;
    now->id = m_draft.id;
    now->typed = m_desk.shared.clock.now();
    m_desk.drafts.keep(&*now);
    m_draft = *now;
    return true;
}

void FormDraft::close()
{
    if (write())
        m_desk.say(m_desk.drafts.isWritten() ? KeptText : KeptInMemoryText);
    tellFailure();
}

void FormDraft::tellFailure() const
{
    const QString reason = m_desk.drafts.takeFailure();
    if (!reason.isEmpty())
        m_desk.say(NotWrittenText + u' ' + reason);
}

} // namespace records
