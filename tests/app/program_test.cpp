#include "app/program/program.h"

#include "core/screens/dopen.h"
#include "core/screens/menu.h"
#include "customer/data/customer_file.h"
#include "customer/screens/kokyaku.h"
#include "records/screens/edit_form.h"
#include "support/core/data/core_test.h"
#include "support/recording_opener.h"
#include "support/user_settings.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

// Which screen follows which, and what the program keeps between them.
class ProgramTest : public CoreTest {
protected:
    void SetUp() override
    {
        openFolder();
        restart();
    }
    void TearDown() override
    {
        program.reset();
        QApplication::setQuitOnLastWindowClosed(true);
        CoreTest::TearDown();
    }

    template <typename Screen> Screen* shown()
    {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            auto* const screen = qobject_cast<Screen*>(window);
            if (screen && screen->isVisible())
                return screen;
        }
        return nullptr;
    }
    QString pathOf(const QString& name)
    {
        return core::dataFile(folder(), core::DataKind::Customer,
                              add(core::DataKind::Customer, name).name);
    }
    QWidget* open(const QString& path)
    {
        const auto opened = program->open(core::DataKind::Customer, path, storage::Mode::ReadWrite);
        return opened ? opened->mainScreen : nullptr;
    }
    // The form for a new customer, over a main screen.
    static records::EditForm& newCustomer(QWidget& screen)
    {
        screen.findChild<QAction*>(u"MenuUserListKyakuAdd"_s)->trigger();
        for (auto* const form : screen.findChildren<records::EditForm*>()) {
            if (form->isVisible())
                return *form;
        }
        qFatal("no form is open");
    }
    // Types a new customer's name over what the form shows, closes it, and gives what it showed.
    QString typeInto(const QString& path, const QString& typed)
    {
        QWidget* const screen = open(path);
        records::EditForm& form = newCustomer(*screen);
        const QString found = name(form).text();
        if (!typed.isEmpty())
            name(form).setText(typed);
        form.close();
        screen->close();
        return found;
    }
    void restart()
    {
        program.reset();
        program = std::make_unique<Program>(shared, opener, userSettings, file(u"控え"_s));
    }
    static QLineEdit& name(const records::EditForm& form)
    {
        return *form.findChild<QLineEdit*>(u"txtkokyaku_1"_s);
    }

    RecordingOpener opener;
    FakeUserSettings userSettings;
    std::unique_ptr<Program> program;
};

TEST_F(ProgramTest, TheMenuComesBackWhenAMainScreenIsClosed)
{
    const QString path = pathOf(u"本店"_s);
    EXPECT_EQ(shown<core::menu>(), nullptr);
    QWidget* const screen = open(path);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(shown<customer::kokyaku>(), screen);
    shared.CustomerDataPath = path;
    screen->close();
    EXPECT_NE(shown<core::menu>(), nullptr);
    EXPECT_EQ(shared.CustomerDataPath, QString());
    EXPECT_NE(open(path), nullptr) << "the file was let go";
}

TEST_F(ProgramTest, TheChooserOpensForItsKind)
{
    program->showChooser(core::DataKind::Customer);
    EXPECT_NE(shown<core::dopen>(), nullptr);
    EXPECT_TRUE(program->has(core::DataKind::Customer));
    EXPECT_FALSE(program->has(core::Screen::Exchange));
}

TEST_F(ProgramTest, AFileThatCannotBeOpenedIsToldAndShowsNothing)
{
    EXPECT_EQ(open(file(u"無い.mdb"_s)), nullptr);
    EXPECT_TRUE(messages.takeText().startsWith(u"データファイルを開けませんでした。\r\n"_s));
    EXPECT_EQ(shown<customer::kokyaku>(), nullptr);
}

// What was typed and not saved belongs to its data file, and stays with it.
TEST_F(ProgramTest, DraftsAreKeptForEachFile)
{
    const QString one = pathOf(u"本店"_s);
    const QString other = pathOf(u"支店"_s);
    EXPECT_EQ(typeInto(one, u"加藤"_s), QString());
    EXPECT_EQ(typeInto(other, {}), QString());
    EXPECT_TRUE(messages.takeBoxes().isEmpty()) << "another file's text is not offered";

    restart();
    ASSERT_TRUE(ChangeDataFile(shared, entries(core::DataKind::Customer).last(), u"新本店"_s, {}));
    messages.takeBoxes();
    messages.willAnswer(core::Answer::Cancel);
    EXPECT_EQ(typeInto(core::dataFile(folder(), core::DataKind::Customer, u"新本店"_s), {}),
              QString());
    EXPECT_EQ(messages.takeBoxes().size(), 1);
    EXPECT_EQ(typeInto(pathOf(u"本店"_s), {}), QString());
    EXPECT_TRUE(messages.takeBoxes().isEmpty()) << "a new file under the old name has none";
}

} // namespace
