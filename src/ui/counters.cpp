#include "ui/counters.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::Literals::StringLiterals;

namespace ui {

Counters::Counters(QWidget* parent)
    : QWidget(parent),
      m_total(new QLabel(this)),
      m_current(new QLabel(this)),
      m_most(new QLabel(this))
{
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(12);
    for (QLabel* const label : {m_total, m_current, m_most}) {
        label->setTextFormat(Qt::PlainText);
        line->addWidget(label);
    }
    // Named after the whole, so that each counter of a screen has a name of its own.
    connect(this, &QObject::objectNameChanged, this, [this](const QString& name) {
        m_total->setObjectName(name + u"_gokei"_s);
        m_current->setObjectName(name + u"_genzai"_s);
        m_most->setObjectName(name + u"_saidai"_s);
    });
    reset();
}

void Counters::setTotal(qint64 number)
{
    m_total->setText(u"合計:"_s + QString::number(number));
}

void Counters::setCurrent(qint64 number)
{
    m_current->setText(u"現在:"_s + QString::number(number));
}

void Counters::setMost(qint64 number)
{
    m_most->setText(u"最大:"_s + QString::number(number));
}

void Counters::reset()
{
    setTotal(0);
    setCurrent(0);
    setMost(0);
}

QString Counters::text() const
{
    return m_total->text() + u' ' + m_current->text() + u' ' + m_most->text();
}

} // namespace ui
