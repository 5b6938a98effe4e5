#include "core/screens/login.h"

#include "core/data/administrator.h"
#include "core/data/messages.h"
#include "core/data/shared.h"
#include "core/screens/screen_flow.h"
#include "ui/enter_moves_on.h"
#include "ui/password_field.h"
#include "ui_login.h"

using namespace Qt::StringLiterals;

namespace core {

login::login(Shared& shared, ScreenFlow& flow, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::login), m_shared(shared), m_flow(flow)
{
    m_ui->setupUi(this);
    m_Text1 = {m_ui->Text1_0, m_ui->Text1_1};
    ui::hidePassword(*m_ui->Text1_1);
    m_ui->Label1->setText(u"初期値は管理者名：｢Admin｣ ﾊﾟｽﾜｰﾄﾞ：｢｣"_s);
    connect(m_ui->Command1, &QPushButton::clicked, this, &login::Command1_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &login::Form_Unload);
    new ui::EnterMovesOn(this, m_ui->Command1);
}

login::~login() = default;

void login::Command1_Click()
{
    const std::optional<bool> matches =
        CheckAdministrator(m_shared, m_Text1[0]->text(), m_Text1[1]->text());
    if (!matches)
        return; // nothing is wrong with what was typed
    if (*matches) {
        m_loggedIn = true;
        accept();
        return;
    }
    m_shared.messages.refuse(u"管理者名 または パスワードが違います。"_s);
    m_Text1[1]->setFocus();
    m_Text1[1]->selectAll();
}

void login::Form_Unload()
{
    m_flow.show(m_loggedIn ? Screen::Admin : Screen::Menu);
}

} // namespace core
