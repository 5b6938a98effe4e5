#include "ui/typed_edit.h"

#include "core/data/messages.h"
#include "text/typed_dates.h"
#include "ui/input_method_off.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTimeEdit>

using namespace Qt::StringLiterals;

namespace ui {
namespace {

constexpr qsizetype LongestText = 40;
const QString TypedSigns = u"0123456789/-.:()年月日時分火水木金土曜"_s;

// Another window, or a list of this one, has the keyboard for a while.
bool comesBack(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
}

} // namespace

template <typename Edit>
TypedEdit<Edit>::TypedEdit(const QList<int>& widths, QWidget* parent)
    : Edit(parent), m_typing(*this->lineEdit(), widths)
{
    m_former = this->dateTime();
    // Qt's own field follows the cursor from section to section and puts the text right meanwhile.
    QObject::disconnect(this->lineEdit(), &QLineEdit::cursorPositionChanged, this, nullptr);
    switchInputMethodOff(*this);
    switchInputMethodOff(*this->lineEdit());
    this->lineEdit()->installEventFilter(this);
    QObject::connect(this, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& value) {
        if (!m_edits)
            m_former = value;
        entered();
    });
}

// Takes what was typed for the value.
template <typename Edit> void TypedEdit<Edit>::settle()
{
    this->interpretText();
    m_former = this->dateTime();
}

// The value follows each step as soon as the text can be read: a save by key takes it from there.
template <typename Edit> template <typename Step> void TypedEdit<Edit>::edit(const Step& step)
{
    m_edits = true;
    step();
    m_edits = false;
}

template <typename Edit> bool TypedEdit<Edit>::judge()
{
    if (isReadable()) {
        settle();
        return true;
    }
    const QString typed = this->lineEdit()->text();
    this->interpretText(); // the last value on the way
    this->setDateTime(m_former);
    if (m_messages)
        m_messages->warn(typed.trimmed().isEmpty() ? u"空白は"_s + refusal()
                                                   : u"『 "_s + typed + u" 』は"_s + refusal());
    this->setFocus(Qt::OtherFocusReason);
    m_typing.select(0);
    return false;
}

template <typename Edit> void TypedEdit<Edit>::showStored(const QString& text)
{
    m_stored = text;
    auto* const label = this->parentWidget()
        ? this->parentWidget()->template findChild<QLabel*>(u"stored"_s + this->objectName())
        : nullptr;
    if (!label)
        return;
    label->setTextFormat(Qt::PlainText);
    label->setText(text.isEmpty() ? QString() : u"保存されている値: "_s + text);
    label->setVisible(!text.isEmpty());
}

template <typename Edit> void TypedEdit<Edit>::stepBy(int steps)
{
    const int part = m_typing.current();
    settle();
    const QDateTime next = stepped(part < 0 ? 0 : part, steps);
    if (next.isValid())
        this->setDateTime(next);
    m_former = this->dateTime();
    m_typing.select(part);
    entered();
}

template <typename Edit>
QValidator::State TypedEdit<Edit>::validate(QString& text, int& /*cursor*/) const
{
    return read(text) ? QValidator::Acceptable : QValidator::Intermediate;
}

template <typename Edit> void TypedEdit<Edit>::fixup(QString& /*text*/) const {}

template <typename Edit> QDateTime TypedEdit<Edit>::dateTimeFromText(const QString& text) const
{
    return read(text).value_or(this->dateTime());
}

template <typename Edit> QString TypedEdit<Edit>::textFromDateTime(const QDateTime& value) const
{
    return write(value);
}

template <typename Edit> QAbstractSpinBox::StepEnabled TypedEdit<Edit>::stepEnabled() const
{
    return this->isReadOnly() ? QAbstractSpinBox::StepNone
                              : QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled;
}

// Text that comes composed after all (full-width digits, say) is taken as typed.
template <typename Edit> bool TypedEdit<Edit>::event(QEvent* event)
{
    if (event->type() == QEvent::InputMethod) {
        const QString committed = static_cast<QInputMethodEvent*>(event)->commitString();
        if (!committed.isEmpty()) {
            QInputMethodEvent ended;
            Edit::event(&ended); // what was being composed goes
            return type(committed);
        }
    }
    return Edit::event(event);
}

template <typename Edit> bool TypedEdit<Edit>::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == this->lineEdit() && event->type() == QEvent::MouseButtonRelease
        && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        watched->event(event);
        if (!this->lineEdit()->hasSelectedText())
            m_typing.select(m_typing.current());
        return true;
    }
    return Edit::eventFilter(watched, event);
}

// The keys that choose a part.
template <typename Edit> bool TypedEdit<Edit>::moves(const QKeyEvent& event)
{
    const int part = m_typing.current();
    if (part < 0 || event.modifiers() & ~Qt::KeypadModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Left:
        m_typing.select(part - 1);
        return true;
    case Qt::Key_Right:
        m_typing.select(part + 1);
        return true;
    case Qt::Key_Home:
        m_typing.select(0);
        return true;
    case Qt::Key_End:
        m_typing.select(INT_MAX);
        return true;
    default:
        return false;
    }
}

template <typename Edit> bool TypedEdit<Edit>::type(const QString& typed)
{
    QString taken;
    for (const QChar sign : text::plainTyped(typed)) {
        if (TypedSigns.contains(sign))
            taken += sign;
    }
    if (!taken.isEmpty() && !this->isReadOnly()) {
        edit([&] { m_typing.type(taken, this->lineEdit()->text() == write(this->dateTime())); });
        entered();
    }
    return true;
}

template <typename Edit> void TypedEdit<Edit>::paste()
{
    const QString text = QGuiApplication::clipboard()->text().simplified().left(LongestText);
    if (text.isEmpty() || this->isReadOnly())
        return;
    edit([&] { m_typing.paste(text); });
    if (isReadable())
        settle();
    entered();
}

template <typename Edit> void TypedEdit<Edit>::keyPressEvent(QKeyEvent* event)
{
    const QString typed = event->text();
    const bool types = !typed.isEmpty() && typed.front().isPrint()
        && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_F4
        || (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier)) {
        dropDown();
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (types) {
        type(typed);
    } else if (!moves(*event) && !(enter && !judge())) {
        // Qt's own for dates goes by its sections.
        edit([&] {
            QAbstractSpinBox::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call)
        });
        if (this->lineEdit()->isModified())
            entered();
    }
}

// The line's own would paste into the part.
template <typename Edit> void TypedEdit<Edit>::contextMenuEvent(QContextMenuEvent* event)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(u"コピー(&C)\tCtrl+C"_s, this->lineEdit(), &QLineEdit::copy);
    QAction* const paste =
        menu->addAction(u"貼り付け(&P)\tCtrl+V"_s, this, [this] { this->paste(); });
    paste->setObjectName(u"edit-paste"_s);
    paste->setEnabled(!QGuiApplication::clipboard()->text().isEmpty());
    menu->addAction(u"すべて選択(&A)\tCtrl+A"_s, this->lineEdit(), &QLineEdit::selectAll);
    menu->popup(event->globalPos());
    event->accept();
}

template <typename Edit> void TypedEdit<Edit>::focusInEvent(QFocusEvent* event)
{
    QAbstractSpinBox::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    if (!comesBack(event->reason()) && event->reason() != Qt::MouseFocusReason)
        m_typing.select(0);
}

template <typename Edit> void TypedEdit<Edit>::focusOutEvent(QFocusEvent* event)
{
    const bool readable = isReadable();
    if (readable && !comesBack(event->reason()))
        settle();
    if (readable) {
        Edit::focusOutEvent(event);
        return;
    }
    // Qt's own would put the former value back, and nobody would know.
    QWidget::focusOutEvent(event); // NOLINT(bugprone-parent-virtual-call)
    this->lineEdit()->event(event);
    if (!comesBack(event->reason()))
        // A box opened in here would mix up the change of focus that is going on.
        QMetaObject::invokeMethod(
            this, [this] { return this->isVisible() && judge(); }, Qt::QueuedConnection);
}

// Qt's own walks through the sections.
template <typename Edit> bool TypedEdit<Edit>::focusNextPrevChild(bool next)
{
    return QAbstractSpinBox::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

template class TypedEdit<QDateEdit>;
template class TypedEdit<QTimeEdit>;

} // namespace ui
