#pragma once

#include "core/data/shared.h"
#include "customer/screens/kokyaku.h"
#include "records/data/draft_store.h"
#include "support/customer/data/customer_test.h"
#include "support/fake_file_chooser.h"
#include "support/recording_opener.h"
#include "support/user_settings.h"

#include <QTest>

class QTreeWidget;
class QTreeWidgetItem;

namespace records {
class EditForm;
}
namespace ui {
class ListView;
}

// A test on the customer main screen over a scratch file. What a test puts into the file goes
// through `file`, as another copy of the program would do it.
class MainScreenTest : public OpenCustomerTest {
protected:
    void TearDown() override;

    // Opens the screen on the scratch file and gives it the focus.
    void openScreen(storage::Mode mode = storage::Mode::ReadWrite);
    void closeScreen();

    // A control by its name; the test ends when it is not there.
    template <typename Widget> Widget& control(const char* name)
    {
        auto* const found = screen->findChild<Widget*>(QLatin1String(name));
        if (!found)
            qFatal("no control %s", name);
        return *found;
    }
    ui::ListView& list(int number);
    // The shown text of a list's column, row by row.
    QStringList cells(int number, int column);
    QString caption(const char* name);
    // The counters, which follow the rows, come to show this.
    void expectCounters(const char* name, const QString& expected);
    // Makes the node with these captions below the root the chosen one of TreeView1.
    void choose(const QStringList& path);
    // The edit screen that is open over the main screen; the test ends when there is none.
    records::EditForm& form();
    // Types into its fields, by name, and saves.
    void save(const QList<std::pair<const char*, QString>>& texts);
    void trigger(const char* action);
    void chooseRow(int listNumber, int row);
    void clickHeader(int listNumber, int column);

    core::Shared shared{messages, clock};
    RecordingOpener opener;
    FakeFileChooser files;
    records::Drafts drafts;
    FakeUserSettings userSettings;
    std::unique_ptr<customer::kokyaku> screen;
    customer::CustomerFile* screenFile = nullptr;
};
