#include "core/screens/msgboxf.h"

#include "core/data/shared.h"
#include "ui_msgboxf.h"

using namespace Qt::StringLiterals;

namespace core {

msgboxf::msgboxf(Shared& shared, const QString& question, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::msgboxf), m_shared(shared)
{
    m_ui->setupUi(this);
    m_ui->Label1->setText(question);
    setAccessibleDescription(question);
    m_shared.DialogAnswer = u"0"_s;
    connect(m_ui->Command1, &QPushButton::clicked, this, &msgboxf::Command1_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &QDialog::reject);
}

msgboxf::~msgboxf() = default;

void msgboxf::Command1_Click()
{
    m_shared.DialogAnswer = u"1"_s;
    accept();
}

} // namespace core
