#include "records/screens/status_line.h"

#include "records/screens/desk.h"

#include <QAccessible>
#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace records {
namespace {

constexpr int Seen = 8000; // ms

} // namespace

void Desk::say(const QString& text) const
{
    if (status)
        status->say(text);
}

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent),
      m_text(new QLabel(this)),
      m_button(new QPushButton(u"表示する (Ctrl+G)"_s, this)),
      m_goOn(new QAction(u"保存した記録へ移動(&G)"_s, this))
{
    setObjectName(u"StatusLine"_s);
    m_text->setObjectName(u"StatusMessage"_s);
    m_text->setTextFormat(Qt::PlainText);
    // A long text shall not widen the window.
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_button->setObjectName(u"StatusGoOn"_s);
    m_button->setAccessibleName(u"表示する"_s);
    m_button->setVisible(false);
    m_goOn->setObjectName(u"MenuGoOn"_s);
    m_goOn->setShortcut(Qt::CTRL | Qt::Key_G);
    m_goOn->setEnabled(false);
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(12, 0, 12, 0);
    line->addWidget(m_text, 1);
    line->addWidget(m_button);
    m_silence.setSingleShot(true);
    m_silence.setInterval(Seen);
    connect(&m_silence, &QTimer::timeout, m_text, &QLabel::clear);
    connect(m_button, &QPushButton::clicked, m_goOn, &QAction::trigger);
    connect(m_goOn, &QAction::triggered, this, [this] {
        const auto offered = std::exchange(m_offered, {});
        say({});
        if (offered)
            offered();
    });
}

void StatusLine::say(const QString& text)
{
    m_offered = {};
    m_button->setVisible(false);
    m_goOn->setEnabled(false);
    show(text);
    m_silence.start();
}

void StatusLine::offer(const QString& text, const std::function<void()>& goOn)
{
    m_silence.stop();
    m_offered = goOn;
    m_button->setVisible(true);
    m_goOn->setEnabled(true);
    show(text);
}

void StatusLine::show(const QString& text)
{
    m_text->setText(text);
    m_text->setToolTip(text.toHtmlEscaped());
    if (text.isEmpty())
        return;
    QAccessibleEvent said(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
}

QString StatusLine::text() const
{
    return m_text->text();
}

} // namespace records
