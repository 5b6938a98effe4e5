#include "records/screens/enlarging.h"

#include "ui/pane_keys.h"
#include "ui/user_settings.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace records {
namespace {

constexpr double LargeShare = 0.55; // of the height

} // namespace

Enlarging::Enlarging(QSplitter& lists, const QList<QAbstractButton*>& options, QObject* parent)
    : QObject(parent), m_lists(lists), m_options(new QButtonGroup(this))
{
    for (qsizetype i = 0; i < options.size(); ++i)
        m_options->addButton(options.at(i), static_cast<int>(i));
    connect(m_options, &QButtonGroup::idToggled, this, [this](int list, bool chosen) {
        if (chosen)
            enlarge(list);
    });
    connect(m_options, &QButtonGroup::idClicked, this, [this] {
        if (!m_justChosen)
            giveBack();
    });
}

void Enlarging::enlarge(int list)
{
    if (m_large < 0)
        m_before = m_lists.sizes();
    else
        m_lists.setSizes(m_before);
    m_large = list;
    ui::giveShare(m_lists, list, LargeShare);
    m_justChosen = true;
    QTimer::singleShot(0, this, [this] { m_justChosen = false; });
}

void Enlarging::giveBack()
{
    m_lists.setSizes(m_before);
    m_large = -1;
    showButton(-1);
}

void Enlarging::showButton(int list)
{
    const QSignalBlocker blocker(m_options);
    m_options->setExclusive(false);
    for (QAbstractButton* const option : m_options->buttons())
        option->setChecked(m_options->id(option) == list);
    m_options->setExclusive(true);
}

void Enlarging::save(const QString& name, ui::UserSettings& settings) const
{
    QByteArrayList kept{QByteArray::number(m_large)};
    for (const int size : m_before)
        kept.append(QByteArray::number(size));
    settings.setValue(name, kept.join(' '));
}

void Enlarging::restore(const QString& name, const ui::UserSettings& settings)
{
    QList<int> kept;
    for (const QByteArray& number : settings.value(name).split(' '))
        kept.append(number.toInt());
    if (kept.size() != m_lists.count() + 1 || kept.first() < 0 || kept.first() >= m_lists.count())
        return;
    m_large = kept.takeFirst();
    m_before = kept;
    showButton(m_large);
}

} // namespace records
