#include "ui/plain_tip.h"
#include "ui/window_placement.h"

#include <QTextDocument>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

TEST(PlaceBeside, CoversNoneOfTheRectangles)
{
    const QRect bar(44, 54, 1280, 40);
    const QRect list(360, 620, 950, 90);
    const struct {
        QRect area;
        QSize size;
        QList<QRect> covered;
        std::optional<QRect> place;
    } table[] = {
        {{0, 0, 1366, 768}, {610, 166}, {bar, list}, QRect(756, 454, 610, 166)},
        {{0, 0, 911, 512},
         {610, 166},
         {{0, 0, 911, 60}, {300, 400, 611, 80}},
         QRect(301, 234, 610, 166)},
        // Cut to the room beside, and nothing where not even the least fits.
        {{0, 0, 911, 512},
         {460, 420},
         {{0, 0, 911, 60}, {300, 90, 611, 422}},
         QRect(0, 92, 300, 420)},
        {{0, 0, 911, 512}, {460, 420}, {{0, 0, 911, 60}, {100, 90, 811, 422}}, std::nullopt},
        {{100, 0, 400, 300}, {200, 100}, {{900, 900, 10, 10}}, QRect(300, 200, 200, 100)},
    };
    for (const auto& row : table)
        EXPECT_EQ(ui::placeBeside(row.area, row.size, {200, 100}, row.covered), row.place);
}

TEST(PlainTip, ShowsMarkupAsItIs)
{
    for (const QString& text :
         {u"<b>太字</b> & <i>\n二行目"_s, u"山田 <a@example.jp>"_s, u"普通"_s}) {
        QTextDocument shown;
        const QString tip = ui::plainTip(text);
        if (Qt::mightBeRichText(tip))
            shown.setHtml(tip);
        else
            shown.setPlainText(tip);
        EXPECT_EQ(shown.toPlainText(), text);
    }
}

} // namespace
