#include "ui/message_boxes.h"

#include "ui/deletion_hold.h"
#include "ui/enter_moves_on.h"
#include "ui/password_field.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTextEdit>

using namespace Qt::Literals::StringLiterals;
using core::Answer;
using core::MessageStyle;

namespace ui {
namespace {

struct Look {
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
};

Look lookOf(MessageStyle style)
{
    switch (style) {
    case MessageStyle::Critical:
        return {QMessageBox::Critical, QMessageBox::Ok};
    case MessageStyle::CriticalOkCancel:
        return {QMessageBox::Critical, QMessageBox::Ok | QMessageBox::Cancel};
    case MessageStyle::Exclamation:
        return {QMessageBox::Warning, QMessageBox::Ok};
    case MessageStyle::ExclamationYesNo:
        return {QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No};
    case MessageStyle::Information:
        return {QMessageBox::Information, QMessageBox::Ok};
    case MessageStyle::InformationYesNoCancel:
        return {QMessageBox::Information, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel};
    case MessageStyle::InformationYesNo:
        return {QMessageBox::Information, QMessageBox::Yes | QMessageBox::No};
    }
    return {QMessageBox::NoIcon, QMessageBox::Ok};
}

// The texts stand here and not in Qt's translations, which a machine may lack.
void nameButtons(QMessageBox& box)
{
    const std::pair<QMessageBox::StandardButton, QString> names[] = {
        {QMessageBox::Ok, u"OK"_s},
        {QMessageBox::Cancel, u"キャンセル"_s},
        {QMessageBox::Yes, u"はい(&Y)"_s},
        {QMessageBox::No, u"いいえ(&N)"_s},
    };
    for (const auto& [button, name] : names) {
        if (QAbstractButton* const found = box.button(button))
            found->setText(name);
    }
}

// What the box answers when it is closed without a choice.
QMessageBox::StandardButton escapeButton(QMessageBox::StandardButtons buttons)
{
    if (buttons & QMessageBox::Cancel)
        return QMessageBox::Cancel;
    return buttons & QMessageBox::No ? QMessageBox::No : QMessageBox::NoButton;
}

Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Cancel:
        return Answer::Cancel;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Ok;
    }
}

// Folded away behind a button, which Qt names anew, by its own translations, at each press: after
// that the press comes here.
void addDetails(QMessageBox& box, const QString& details)
{
    if (details.isEmpty())
        return;
    box.setDetailedText(details);
    const auto* const text = box.findChild<QTextEdit*>();
    for (QPushButton* const button : box.findChildren<QPushButton*>()) {
        if (!text || box.standardButton(button) != QMessageBox::NoButton)
            continue;
        const auto nameButton = [button, text] {
            button->setText(text->isVisible() ? u"詳細を隠す(&D)"_s : u"詳細を表示(&D)"_s);
        };
        nameButton();
        QObject::connect(button, &QAbstractButton::clicked, button, nameButton,
                         Qt::QueuedConnection);
    }
}

} // namespace

Answer MessageBoxes::show(MessageStyle style, const QString& text, const QString& title,
                          const QString& details, core::DefaultButton button)
{
    const Look look = lookOf(style);
    const DeletionHold hold;
    QMessageBox box(look.icon, title, text, look.buttons, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText); // names of customers may look like mark-up
    nameButtons(box);
    addDetails(box, details);
    const bool asks = look.buttons & QMessageBox::Yes;
    if (button == core::DefaultButton::No)
        box.setDefaultButton(QMessageBox::No);
    else
        box.setDefaultButton(asks ? QMessageBox::Yes : QMessageBox::Ok);
    const auto way = escapeButton(look.buttons);
    if (way != QMessageBox::NoButton)
        box.setEscapeButton(way);
    const int pressed = box.exec();
    // A program that ends closes the box without any button: that is nobody's consent.
    return answerOf(box.clickedButton() || way == QMessageBox::NoButton ? pressed : way);
}

std::optional<QString> MessageBoxes::askText(const QString& prompt, const QString& title,
                                             bool secret)
{
    const DeletionHold hold;
    QInputDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    dialog.setOkButtonText(u"OK"_s);
    dialog.setCancelButtonText(u"キャンセル"_s);
    if (auto* const field = dialog.findChild<QLineEdit*>(); field && secret)
        hidePassword(*field);
    // Enter that confirms a kana conversion must not close the box.
    if (const auto* const buttons = dialog.findChild<QDialogButtonBox*>())
        new EnterMovesOn(&dialog, buttons->button(QDialogButtonBox::Ok));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue();
}

} // namespace ui
