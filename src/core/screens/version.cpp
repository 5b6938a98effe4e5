#include "core/screens/version.h"

#include "core/data/opener.h"
#include "core/data/program_version.h"
#include "text/width.h"
#include "ui/enter_moves_on.h"
#include "ui_version.h"

using namespace Qt::StringLiterals;

namespace core {

version::version(Messages& messages, Opener& opener, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::version), m_messages(messages), m_opener(opener)
{
    m_ui->setupUi(this);
    m_ui->Label1->setText(versionText());
    m_ui->Label2->setText(text::toFullWidth(u"ｺﾙｳﾞｧﾝ "_s + versionText()));
    connect(m_ui->Command1, &QPushButton::clicked, this, &version::Command1_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &version::Command2_Click);
    connect(m_ui->Command3, &QPushButton::clicked, this, &QDialog::reject);
    new ui::EnterMovesOn(this, nullptr);
    m_ui->Command3->setFocus();
}

version::~version() = default;

void version::Command1_Click()
{
    openAddressOrTell(m_opener, m_messages, m_ui->Text1->text());
}

void version::Command2_Click()
{
    const QString address = m_ui->Text2->text();
    const QString scheme = u"mailto:"_s;
    const bool hasScheme = address.left(scheme.size()).toLower() == scheme;
    openAddressOrTell(m_opener, m_messages, hasScheme ? address : scheme + address);
}

} // namespace core
