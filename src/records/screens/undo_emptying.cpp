#include "records/screens/undo_emptying.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace records {
namespace {

bool canUndo(const QObject* field)
{
    if (const auto* const line = qobject_cast<const QLineEdit*>(field))
        return line->isUndoAvailable();
    const auto* const text = qobject_cast<const QPlainTextEdit*>(field);
    return text && text->document()->isUndoAvailable();
}

} // namespace

UndoEmptying::UndoEmptying(QWidget* form, std::function<bool()> isPossible,
                           std::function<void()> undo)
    : QObject(form), m_isPossible(std::move(isPossible)), m_undo(std::move(undo))
{
    for (QWidget* const widget : form->findChildren<QWidget*>())
        widget->installEventFilter(this);
}

bool UndoEmptying::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo) || canUndo(watched)
        || !m_isPossible())
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress)
        m_undo();
    return true;
}

} // namespace records
