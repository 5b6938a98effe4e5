#pragma once

#include <QList>
#include <QUrl>
#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace ui {

// The help pages of docs/help in a window: the table of contents, a page, and a search in it.
class HelpViewer : public QWidget {
    Q_OBJECT

public:
    // Shows the help in front of a window, and goes with it; nullptr: on its own.
    static void showOver(QWidget* owner);
    // The pages in the order of the table of contents, the first with the table itself.
    static QList<QUrl> pages();

private:
    explicit HelpViewer(QWidget* owner);

    QWidget* makeBar();
    void addKeys();
    void showChosenPage();
    void followPage();
    void find(bool backward);
    bool findOnce(bool backward);

    QListWidget* m_contents;
    QTextBrowser* m_page;
    QLineEdit* m_sought;
    QLabel* m_note; // what came of the search
};

} // namespace ui
