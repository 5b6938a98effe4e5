#include "records/screens/record_commands.h"

#include "core/data/messages.h"
#include "records/screens/selection.h"
#include "ui/icons.h"
#include "ui/paged_list_model.h"

#include <QAction>
#include <QToolBar>

#include <memory>

using namespace Qt::StringLiterals;

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

QString Written::told() const
{
    constexpr int Seen = 30; // letters of a title
    const QString what = how == How::Added ? u"追加"_s
        : how == How::Changed              ? u"変更"_s
                                           : u"削除"_s;
    const QString line = ui::oneLine(title);
    const QString shown = line.size() > Seen ? line.left(Seen) + u'…' : line;
    return kind.name + (shown.isEmpty() ? QString() : u"「"_s + shown + u'」') + u"を"_s + what
        + u"しました。"_s;
}

EditForm* RecordCommands::open(const RecordKind& kind, const Opening& opening)
{
    EditForm* const opened = kind.form(m_desk, opening, m_window);
    const auto how =
        opening.mode == Opening::Mode::Add ? Written::How::Added : Written::How::Changed;
    auto deleted = std::make_shared<bool>(false);
    connect(opened, &EditForm::removed, this, [deleted] { *deleted = true; });
    connect(opened, &EditForm::written, this, [this, &kind, how, opened, deleted] {
        const std::optional<Record>& saved = opened->savedRecord();
        if (*deleted)
            emit written({kind, Written::How::Deleted, {}, {}, m_selection.title(kind.list)});
        else if (saved)
            emit written({kind, how, saved->key, *saved, saved->text(kind.titleField)});
    });
    opened->setAttribute(Qt::WA_DeleteOnClose);
    opened->open();
    return opened;
}

EditForm* RecordCommands::openRecord(const RecordKind& kind, const core::RecordKey& shown,
                                     const QString& caption)
{
    if (shown.isNone())
        return nullptr;
    std::optional<Record> record = readOrTell(m_desk.file, kind.table, shown);
    if (!record)
        return nullptr;
    record->key = shown;
    return open(kind, {Opening::Mode::Change, caption, {}, record});
}

void RecordCommands::removeSelected(const RecordKind& kind)
{
    if (!m_selection.has(kind.list))
        return;
    if (m_selection.count(kind.list) > 1) {
        m_desk.file.messages.refuse(u"削除は１件ずつ行います。１件だけを選択して下さい。"_s);
        return;
    }
    const QString title = m_selection.title(kind.list);
    if (removeRecord(m_desk.file, kind.table, m_selection.key(kind.list)) == DeleteResult::Deleted)
        emit written({kind, Written::How::Deleted, {}, {}, title});
}

} // namespace records
