#include "core/screens/menu.h"

#include "core/data/main_database.h"
#include "core/data/menu_texts.h"
#include "core/data/messages.h"
#include "core/data/opener.h"
#include "core/data/shared.h"
#include "core/screens/screen_flow.h"
#include "core/screens/screen_icons.h"
#include "core/screens/version.h"
#include "ui_menu.h"

#include <QCloseEvent>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace core {

namespace {

enum Button { Administration, Customers, Repairs, Exchange, Compaction, Help, Version, Exit };

// Whether the user went to the control by key; coming back to the window is no such choice.
bool isFocusByKey(const QEvent& event)
{
    if (event.type() != QEvent::FocusIn)
        return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::OtherFocusReason;
}

} // namespace

menu::menu(Shared& shared, ScreenFlow& flow, Opener& opener, QWidget* parent)
    : QWidget(parent), m_ui(new Ui::menu), m_shared(shared), m_flow(flow), m_opener(opener)
{
    m_ui->setupUi(this);
    m_Command1 = {m_ui->Command1_0, m_ui->Command1_1, m_ui->Command1_2, m_ui->Command1_3,
                  m_ui->Command1_4, m_ui->Command1_5, m_ui->Command1_6, m_ui->Command1_7};
    const QString icons[] = {u"administration"_s, u"customers"_s, u"repairs"_s, u"exchange"_s,
                             u"optimise"_s,       u"help"_s,      u"version"_s, u"exit"_s};

    m_shared.EndOnMenuClose = true;
    m_descriptions = readMenuTexts(m_shared.programFolder);
    m_descriptions.resize(ButtonCount);
    for (int i = 0; i < ButtonCount; ++i) {
        QPushButton* const button = m_Command1[static_cast<size_t>(i)];
        button->setIcon(screenIcon(icons[i]));
        button->setAccessibleDescription(m_descriptions[i]);
        button->installEventFilter(this);
        connect(button, &QPushButton::clicked, this, [this, i] { Command1_Click(i); });
    }
    m_ui->Picture1->installEventFilter(this);
    auto* const help = new QShortcut(QKeySequence::HelpContents, this);
    connect(help, &QShortcut::activated, this, &menu::showHelp);
}

menu::~menu() = default;

bool menu::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->Picture1) {
        if (event->type() == QEvent::MouseMove)
            Picture1_MouseMove();
    } else if (event->type() == QEvent::Enter || isFocusByKey(*event)) {
        for (int i = 0; i < ButtonCount; ++i) {
            if (watched == m_Command1[static_cast<size_t>(i)])
                Command1_MouseMove(i);
        }
    }
    return QWidget::eventFilter(watched, event);
}

void menu::Command1_MouseMove(int index)
{
    if (m_ui->Label1->text() == m_descriptions[index])
        return;
    m_ui->Label1->setText(m_descriptions[index]);
    m_ui->Label1->repaint();
}

void menu::Picture1_MouseMove()
{
    if (m_ui->Label1->text().isEmpty())
        return;
    m_ui->Label1->clear();
    m_ui->Label1->repaint();
}

void menu::Command1_Click(int index)
{
    switch (index) {
    case Administration:
        leaveFor(Screen::Login);
        break;
    case Customers:
        leaveForChooser(DataKind::Customer);
        break;
    case Repairs:
        leaveForChooser(DataKind::Repair);
        break;
    case Exchange:
        leaveFor(Screen::Exchange);
        break;
    case Compaction:
        leaveFor(Screen::Optimisation);
        break;
    case Help:
        showHelp();
        break;
    case Version:
        version(m_shared.messages, m_opener, this).exec();
        break;
    case Exit:
        m_shared.EndOnMenuClose = true;
        close();
        break;
    }
}

void menu::leaveFor(Screen screen)
{
    if (!m_flow.has(screen)) {
        tellMissing();
        return;
    }
    m_shared.EndOnMenuClose = false;
    close();
    m_flow.show(screen);
}

void menu::leaveForChooser(DataKind kind)
{
    if (!m_flow.has(kind)) {
        tellMissing();
        return;
    }
    m_shared.EndOnMenuClose = false;
    close();
    m_flow.showChooser(kind);
}

void menu::tellMissing()
{
    m_shared.messages.tell(u"この画面はまだありません。"_s);
}

void menu::showHelp()
{
    if (!m_opener.openHelp(m_shared.HelpFilePath))
        m_shared.messages.refuse(u"ヘルプを開けませんでした。"_s);
}

void menu::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (!m_shared.EndOnMenuClose)
        return;
    CloseMainDatabase(m_shared);
    m_flow.endProgram();
}

} // namespace core
