#include "core/data/menu_texts.h"
#include "core/data/splash_colour.h"
#include "support/core/data/core_test.h"
#include "text/code_page.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(CoreTest, MenuTextsAreReadInEitherEncoding)
{
    EXPECT_THAT(core::readMenuTexts(folder()), IsEmpty());
    const QString texts = u"管理者\r\n\r\n修理管理\n"_s;
    for (const QByteArray& bytes : {texts.toUtf8(), "\xEF\xBB\xBF" + texts.toUtf8(),
                                    text::toCp932(texts), texts.toUtf8().chopped(1)}) {
        writeFile(u"menu.ini"_s, bytes);
        EXPECT_THAT(core::readMenuTexts(folder()), ElementsAre(u"管理者"_s, u""_s, u"修理管理"_s));
    }
    writeFile(u"menu.ini"_s, {});
    EXPECT_THAT(core::readMenuTexts(folder()), IsEmpty());
}

TEST(SplashColour, RoundsHalvesToEvenAndIsNeverBlack)
{
    const std::pair<double, int> indexes[] = {{0.0, 1},         {0.5 / 14, 2}, {1.5 / 14, 2},
                                              {1.51 / 14, 3},   {0.5, 8},      {12.5 / 14, 14},
                                              {13.49 / 14, 14}, {0.999999, 15}};
    for (const auto& [fraction, index] : indexes)
        EXPECT_EQ(core::splashColourIndex(fraction), index) << fraction;
}
