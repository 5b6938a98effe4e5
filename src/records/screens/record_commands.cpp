#include "records/screens/record_commands.h"

#include "records/screens/selection.h"
#include "ui/icons.h"

#include <QAction>
#include <QToolBar>

namespace records {

RecordCommands::RecordCommands(const Desk& desk, const Selection& selection, QWidget* window)
    : QObject(window), m_desk(desk), m_selection(selection), m_window(window)
{
    connect(&selection, &Selection::changed, this, &RecordCommands::showSelection);
}

void RecordCommands::add(const QList<Command>& commands)
{
    for (const Command& command : commands) {
        auto* const action = new QAction(command.caption, this);
        action->setObjectName(command.name);
        connect(action, &QAction::triggered, this, [run = command.run] { run(); });
        if (!command.key.isEmpty()) {
            action->setShortcut(command.key);
            m_window->addAction(action);
        }
        m_actions.insert(command.name, action);
        m_commands.append(command);
    }
    showSelection();
}

QAction* RecordCommands::action(const QString& name) const
{
    QAction* const found = m_actions.value(name);
    Q_ASSERT(found);
    return found;
}

QAction* RecordCommands::entryFor(const QString& command, const QString& name)
{
    QAction* const original = action(command);
    const QString key = original->shortcut().toString(QKeySequence::NativeText);
    auto* const entry = new QAction(original->text() + u'\t' + key, this);
    entry->setObjectName(name);
    entry->setEnabled(original->isEnabled());
    connect(original, &QAction::enabledChanged, entry, &QAction::setEnabled);
    connect(entry, &QAction::triggered, original, &QAction::trigger);
    return entry;
}

void RecordCommands::addTools(QToolBar& bar, QAction* before)
{
    for (const Command& command : std::as_const(m_commands)) {
        if (command.tool.isEmpty())
            continue;
        QAction* const original = action(command.name);
        auto* const tool = new QAction(ui::icon(command.icon), command.toolText, this);
        tool->setObjectName(command.tool);
        tool->setToolTip(command.tip);
        connect(tool, &QAction::triggered, original, &QAction::trigger);
        m_tools.insert(command.name, tool);
        bar.insertAction(before, tool);
        bar.widgetForAction(tool)->setFocusPolicy(Qt::TabFocus);
    }
    showSelection();
}

void RecordCommands::showSelection()
{
    for (const Command& command : std::as_const(m_commands)) {
        const bool possible = !command.possible || command.possible(m_selection);
        action(command.name)->setEnabled(possible);
        if (QAction* const tool = m_tools.value(command.name))
            tool->setEnabled(possible);
    }
}

EditForm* RecordCommands::open(FormMaker form, const Opening& opening)
{
    EditForm* const opened = form(m_desk, opening, m_window);
    opened->setAttribute(Qt::WA_DeleteOnClose);
    opened->open();
    return opened;
}

EditForm* RecordCommands::openRecord(FormMaker form, const RecordTable& table,
                                     const core::RecordKey& shown, const QString& caption)
{
    if (shown.isNone())
        return nullptr;
    std::optional<Record> record = readOrTell(m_desk.file, table, shown);
    if (!record)
        return nullptr;
    record->key = shown;
    return open(form, {Opening::Mode::Change, caption, {}, record});
}

} // namespace records
