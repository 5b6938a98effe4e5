#include "ui/application_look.h"

#include "ui/icons.h"
#include "ui/test_ids.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::Literals::StringLiterals;

namespace ui {
namespace {

constexpr qreal FontSize = 10; // points

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
    QApplication::setStyle(u"Fusion"_s);
    QFont font({u"Noto Sans CJK JP"_s, u"IPAGothic"_s});
    font.setPointSizeF(FontSize);
    QApplication::setFont(font);
    loadJapaneseTexts(application);
    QApplication::setWindowIcon(icon(u"corvane"_s));
    offerTestIds(application);
}

} // namespace ui
