#include "ui/help_viewer.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Where the links of the shown page lead.
QSet<QUrl> linksOf(const QTextBrowser& page)
{
    QSet<QUrl> links;
    for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (part.fragment().charFormat().isAnchor())
                links.insert(page.source().resolved(part.fragment().charFormat().anchorHref()));
        }
    }
    return links;
}

TEST(HelpViewer, HasAllPagesAndEveryLinkLeadsToOne)
{
    QWidget owner;
    ui::HelpViewer::showOver(&owner);
    auto* const viewer = owner.findChild<ui::HelpViewer*>();
    ASSERT_TRUE(viewer);
    auto& contents = *viewer->findChild<QListWidget*>();
    auto& page = *viewer->findChild<QTextBrowser*>();
    const QList<QUrl> pages = ui::HelpViewer::pages();
    ASSERT_EQ(contents.count(), pages.size());

    contents.setCurrentRow(0);
    EXPECT_EQ(linksOf(page), QSet<QUrl>(pages.begin() + 1, pages.end()));
    for (int row = 0; row < contents.count(); ++row) {
        contents.setCurrentRow(row);
        EXPECT_FALSE(contents.item(row)->text().isEmpty()) << row;
        EXPECT_GT(page.toPlainText().size(), 50) << row;
        for (const QUrl& link : linksOf(page))
            EXPECT_TRUE(pages.contains(link)) << link.toString().toStdString();
    }
    page.backward();
    EXPECT_EQ(contents.currentRow(), contents.count() - 2) << "the contents follow the page";
}

TEST(HelpViewer, FindsAWordFromTheOtherEndToo)
{
    QWidget owner;
    ui::HelpViewer::showOver(&owner);
    auto& page = *owner.findChild<QTextBrowser*>();
    auto& sought = *owner.findChild<QLineEdit*>();
    sought.setText(u"暗号化"_s);
    page.moveCursor(QTextCursor::End);
    QTest::keyClick(&sought, Qt::Key_Return);
    EXPECT_EQ(page.textCursor().selectedText(), u"暗号化"_s);
    sought.setText(u"どこにもない語"_s);
    QTest::keyClick(&sought, Qt::Key_Return);
    EXPECT_EQ(page.textCursor().selectedText(), u"暗号化"_s);
}

} // namespace
