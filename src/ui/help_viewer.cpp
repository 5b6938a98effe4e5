#include "ui/help_viewer.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// A static library's resources are not loaded by themselves; the macro must stand outside of any
// namespace.
static void registerPages()
{
    Q_INIT_RESOURCE(help);
}

namespace ui {

namespace {

QString titleOf(const QUrl& page)
{
    QTextBrowser reader;
    reader.setSource(page);
    return reader.documentTitle();
}

} // namespace

HelpViewer::HelpViewer(QWidget* owner)
    : QWidget(owner, Qt::Window),
      m_contents(new QListWidget),
      m_page(new QTextBrowser),
      m_sought(new QLineEdit),
      m_note(new QLabel)
{
    registerPages();
    setObjectName(u"helpViewer"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"コルヴァン３ ヘルプ"_s);
    m_contents->setAccessibleName(u"目次"_s);
    m_page->setAccessibleName(u"ヘルプの本文"_s);
    for (const QUrl& page : pages())
        m_contents->addItem(titleOf(page));

    auto* const split = new QSplitter;
    split->addWidget(m_contents);
    split->addWidget(m_page);
    split->setStretchFactor(1, 1);
    split->setSizes({220, 580});
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(makeBar());
    layout->addWidget(split, 1);
    resize(800, 600);

    connect(m_contents, &QListWidget::currentRowChanged, this, &HelpViewer::showChosenPage);
    connect(m_page, &QTextBrowser::sourceChanged, this, &HelpViewer::followPage);
    addKeys();
    m_contents->setCurrentRow(0);
    m_contents->setFocus();
}

void HelpViewer::showOver(QWidget* owner)
{
    auto* viewer = qobject_cast<HelpViewer*>(owner); // help is asked for in the help itself
    if (!viewer && owner)
        viewer = owner->findChild<HelpViewer*>(QString(), Qt::FindDirectChildrenOnly);
    if (!viewer) {
        viewer = new HelpViewer(owner);
        const QRect area = viewer->screen()->availableGeometry();
        viewer->move(area.center() - viewer->rect().center());
    }
    viewer->show();
    viewer->raise();
    viewer->activateWindow();
}

QWidget* HelpViewer::makeBar()
{
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins({});

    auto* const back = new QPushButton(u"戻る(&B)"_s);
    back->setEnabled(false);
    connect(back, &QPushButton::clicked, m_page, &QTextBrowser::backward);
    connect(m_page, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    auto* const label = new QLabel(u"ページ内を探す(&F)"_s);
    label->setBuddy(m_sought);
    m_sought->setAccessibleName(u"ページ内を探す"_s);
    m_sought->setClearButtonEnabled(true);
    connect(m_sought, &QLineEdit::returnPressed, this, [this] { find(false); });

    layout->addWidget(back);
    layout->addStretch(1);
    layout->addWidget(m_note);
    layout->addWidget(label);
    layout->addWidget(m_sought);
    return bar;
}

void HelpViewer::addKeys()
{
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Back, this), &QShortcut::activated, m_page,
            &QTextBrowser::backward);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_sought,
            qOverload<>(&QWidget::setFocus));
    connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this, [this] { find(false); });
    connect(new QShortcut(Qt::SHIFT | Qt::Key_F3, this), &QShortcut::activated, this,
            [this] { find(true); });
}

QList<QUrl> HelpViewer::pages()
{
    QList<QUrl> urls;
    for (const char* const page : {"index", "first", "start", "desk", "customers", "cases",
                                   "schedule", "admin", "keys", "trouble"})
        urls.append(QUrl(u"qrc:/help/"_s + QLatin1String(page) + u".html"_s));
    return urls;
}

void HelpViewer::showChosenPage()
{
    const QUrl page = pages().at(m_contents->currentRow());
    if (m_page->source() != page)
        m_page->setSource(page);
}

// A link or 戻る led to a page: it is the chosen one in the contents too.
void HelpViewer::followPage()
{
    const qsizetype row = pages().indexOf(m_page->source());
    if (row >= 0)
        m_contents->setCurrentRow(static_cast<int>(row));
}

void HelpViewer::find(bool backward)
{
    m_note->clear();
    if (m_sought->text().isEmpty() || findOnce(backward))
        return;
    // Once more from the other end.
    const QTextCursor present = m_page->textCursor();
    m_page->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (!findOnce(backward)) {
        m_page->setTextCursor(present);
        m_note->setText(u"見つかりません。"_s);
    }
}

bool HelpViewer::findOnce(bool backward)
{
    return m_page->find(m_sought->text(),
                        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags());
}

} // namespace ui
