#include "support/customer/screens/main_screen_test.h"

#include "records/screens/edit_form.h"
#include "ui/counters.h"
#include "ui/list_view.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

void MainScreenTest::openScreen(storage::Mode mode)
{
    auto opened = std::make_unique<customer::CustomerFile>(messages, clock);
    ASSERT_TRUE(customer::OpenCustomerFile(*opened, path(), mode));
    screenFile = opened.get();
    shared.CustomerDataPath = path();
    screen = std::make_unique<customer::kokyaku>(std::move(opened), shared, opener, files, drafts,
                                                 userSettings);
    screen->show();
    QApplication::setActiveWindow(screen.get());
}

void MainScreenTest::closeScreen()
{
    for (const storage::Error& error : screenFile->connection.errors())
        ADD_FAILURE() << "failed in the screen's file: " << error.message.toStdString();
    screen->close();
}

void MainScreenTest::TearDown()
{
    if (screen && screen->isVisible())
        closeScreen();
    screen.reset();
    OpenCustomerTest::TearDown();
}

ui::ListView& MainScreenTest::list(int number)
{
    return control<ui::ListView>(qPrintable(u"ListView"_s + QString::number(number)));
}

QStringList MainScreenTest::cells(int number, int column)
{
    QStringList texts;
    const QAbstractItemModel* const model = list(number).model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, column).data().toString());
    return texts;
}

QString MainScreenTest::caption(const char* name)
{
    return control<QLabel>(name).accessibleName();
}

void MainScreenTest::expectCounters(const char* name, const QString& expected)
{
    const auto& counters = control<ui::Counters>(name);
    EXPECT_TRUE(QTest::qWaitFor([&] { return counters.text() == expected; }))
        << name << ": " << counters.text().toStdString()
        << "\nexpected: " << expected.toStdString();
}

void MainScreenTest::choose(const QStringList& path)
{
    auto& tree = control<QTreeWidget>("TreeView1");
    QTreeWidgetItem* item = tree.topLevelItem(0);
    for (const QString& wanted : path) {
        QTreeWidgetItem* found = nullptr;
        for (int i = 0; i < item->childCount() && !found; ++i) {
            if (item->child(i)->text(0) == wanted)
                found = item->child(i);
        }
        ASSERT_NE(found, nullptr) << wanted.toStdString();
        item->setExpanded(true);
        item = found;
    }
    tree.scrollToItem(item);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
    EXPECT_EQ(tree.currentItem(), item);
}

records::EditForm& MainScreenTest::form()
{
    for (records::EditForm* const each : screen->findChildren<records::EditForm*>()) {
        if (each->isVisible())
            return *each;
    }
    qFatal("no edit screen is open");
}

void MainScreenTest::save(const QList<std::pair<const char*, QString>>& texts)
{
    for (const auto& [name, text] : texts) {
        if (auto* const line = form().findChild<QLineEdit*>(QLatin1String(name)))
            line->setText(text);
        else
            form().findChild<QPlainTextEdit*>(QLatin1String(name))->setPlainText(text);
    }
    form().findChild<QPushButton*>(u"Command1"_s)->click();
}

void MainScreenTest::trigger(const char* action)
{
    control<QAction>(action).trigger();
}

void MainScreenTest::chooseRow(int listNumber, int row)
{
    ui::ListView& view = list(listNumber);
    const QModelIndex index = view.model()->index(row, 0);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

void MainScreenTest::clickHeader(int listNumber, int column)
{
    QHeaderView& header = *list(listNumber).header();
    const QPoint place(header.sectionViewportPosition(column) + 10, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
}
