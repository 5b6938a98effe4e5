#include "app/program/program.h"

#include "core/data/messages.h"
#include "core/data/shared.h"
#include "core/screens/admin.h"
#include "core/screens/dopen.h"
#include "core/screens/login.h"
#include "core/screens/menu.h"
#include "core/screens/saiteki.h"
#include "core/screens/top.h"
#include "customer/data/customer_file.h"
#include "customer/data/notice.h"
#include "customer/screens/kokyaku.h"

#include <QApplication>
#include <QScreen>

using namespace Qt::StringLiterals;
using core::Screen;

Program::Program(core::Shared& shared, core::Opener& opener, ui::UserSettings& userSettings,
                 const QString& stateFolder)
    : m_shared(shared),
      m_opener(opener),
      m_userSettings(userSettings),
      m_draftStore(std::make_shared<records::DraftStore>(stateFolder))
{
    m_shared.dataFileMoved = [store = m_draftStore](const QString& from, const QString& to) {
        store->fileMoved(from, to);
    };
    // The end of the program is the end of the menu, not of whatever window is closed last.
    QApplication::setQuitOnLastWindowClosed(false);
}

Program::~Program()
{
    m_shared.dataFileMoved = {};
    for (const QPointer<QWidget>& screen : m_screens)
        delete screen;
}

void Program::start()
{
    open(new core::top(m_shared, *this));
}

bool Program::has(Screen screen) const
{
    return screen != Screen::Exchange;
}

bool Program::has(core::DataKind kind) const
{
    return kind == core::DataKind::Customer;
}

void Program::show(Screen screen)
{
    switch (screen) {
    case Screen::Menu:
        open(new core::menu(m_shared, *this, m_opener));
        break;
    case Screen::Login:
        open(new core::login(m_shared, *this));
        break;
    case Screen::Admin:
        open(new core::admin(m_shared, *this));
        break;
    case Screen::Optimisation:
        open(new core::saiteki(m_shared, *this));
        break;
    case Screen::Exchange:
        break;
    }
}

void Program::showChooser(core::DataKind kind)
{
    auto* const chooser = new core::dopen(m_shared, *this, *this);
    chooser->prepare(kind);
    chooser->markOpenedFromMenu();
    open(chooser);
}

void Program::endProgram()
{
    QCoreApplication::exit();
}

std::optional<core::OpenedDataFile> Program::open(core::DataKind kind, const QString& path,
                                                  storage::Mode mode)
{
    return has(kind) ? openCustomers(path, mode) : std::nullopt;
}

std::optional<core::OpenedDataFile> Program::openCustomers(const QString& path, storage::Mode mode)
{
    auto file = std::make_unique<customer::CustomerFile>(m_shared.messages, m_shared.clock);
    if (!customer::OpenCustomerFile(*file, path, mode))
        return std::nullopt;
    const QStringList notice = customer::noticeLines(*file);
    auto* const screen = new customer::kokyaku(std::move(file), m_shared, m_opener, m_files,
                                               draftsOf(path), m_userSettings);
    QObject::connect(screen, &customer::kokyaku::closed, screen, [this] {
        m_shared.CustomerDataPath.clear();
        show(Screen::Menu);
    });
    open(screen);
    return core::OpenedDataFile{screen, notice};
}

records::Drafts& Program::draftsOf(const QString& path)
{
    m_draftStore->takeOver();
    return m_drafts.try_emplace(path, m_draftStore, path).first->second;
}

void Program::open(QWidget* screen)
{
    screen->setAttribute(Qt::WA_DeleteOnClose);
    m_screens.removeAll(nullptr);
    m_screens.append(screen);
    if (!screen->testAttribute(Qt::WA_Moved)) { // not put where the user left it
        if (!screen->testAttribute(Qt::WA_Resized))
            screen->adjustSize();
        const QRect area = screen->screen()->availableGeometry();
        screen->move(area.center() - screen->rect().center());
    }
    screen->show();
    screen->raise();
    screen->activateWindow();
}
