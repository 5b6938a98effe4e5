#include "core/data/messages.h"

namespace core {

namespace {

QString title()
{
    return QString::fromUtf16(AppTitleText);
}

} // namespace

void Messages::refuse(const QString& text, const QString& details)
{
    show(MessageStyle::Critical, text, title(), details);
}

void Messages::warn(const QString& text)
{
    show(MessageStyle::Exclamation, text, title());
}

void Messages::tell(const QString& text)
{
    show(MessageStyle::Information, text, title());
}

bool Messages::confirm(const QString& text, DefaultButton button)
{
    return show(MessageStyle::ExclamationYesNo, text, title(), {}, button) == Answer::Yes;
}

} // namespace core
