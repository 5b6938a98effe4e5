#include "ui/application_look.h"

#include "ui/icons.h"
#include "ui/test_ids.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QLocale>
#include <QProxyStyle>
#include <QTranslator>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace ui {
namespace {

// Message boxes bear the program's own drawings, whatever the desktop's theme has.
class HouseStyle : public QProxyStyle {
public:
    HouseStyle() : QProxyStyle(u"Fusion"_s) {}

    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option,
                       const QWidget* widget) const override
    {
        switch (standard) {
        case SP_MessageBoxCritical:
            return icon(u"critical"_s);
        case SP_MessageBoxWarning:
            return icon(u"warning"_s);
        case SP_MessageBoxInformation:
            return icon(u"information"_s);
        case SP_MessageBoxQuestion:
            return icon(u"help"_s);
        default:
            return QProxyStyle::standardIcon(standard, option, widget);
        }
    }
};

// The desktop's size is taken where it says one that can be read.
qreal fontSize()
{
    constexpr qreal Least = 10; // points
    return std::max(Least, QApplication::font().pointSizeF());
}

void loadJapaneseTexts(QApplication& application)
{
    auto* const texts = new QTranslator(&application);
    if (texts->load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(texts);
}

} // namespace

void setUpApplication(QApplication& application)
{
    // Weekdays and calendars are Japanese on any machine.
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    QApplication::setStyle(new HouseStyle);
    QFont font({u"Noto Sans CJK JP"_s, u"IPAGothic"_s});
    font.setPointSizeF(fontSize());
    QApplication::setFont(font);
    loadJapaneseTexts(application);
    QApplication::setWindowIcon(icon(u"corvane"_s));
    offerTestIds(application);
}

} // namespace ui
