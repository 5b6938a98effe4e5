#include "ui/user_settings.h"

#include <QSettings>

using namespace Qt::Literals::StringLiterals;

namespace ui {
namespace {

QSettings openSettings()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"corvane"_s, u"screens"_s);
}

} // namespace

QByteArray StoredUserSettings::value(const QString& name) const
{
    return openSettings().value(name).toByteArray();
}

void StoredUserSettings::setValue(const QString& name, const QByteArray& value)
{
    openSettings().setValue(name, value);
}

} // namespace ui
