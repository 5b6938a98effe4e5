#include "ui/page_scroll_bar.h"

#include <QHash>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QToolTip>

#include <algorithm>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace ui {
namespace {

int bounded(qint64 page)
{
    return static_cast<int>(std::clamp<qint64>(page, 1, std::numeric_limits<int>::max()));
}

} // namespace

PageScrollBar::PageScrollBar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent)
{
    setTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    setPages(1, 1);
    connect(this, &QScrollBar::valueChanged, this, [this](int page) {
        setToolTip(placeText(page));
        emit placeChanged(placeText(page));
        emit pageChosen(page);
    });
    connect(this, &QScrollBar::sliderMoved, this, [this](int page) {
        QToolTip::showText(mapToGlobal(QPoint(width() / 2, -2 * height())), placeText(page), this);
    });
}

void PageScrollBar::setPages(qint64 page, qint64 count)
{
    QSignalBlocker blocker(this);
    setRange(1, bounded(count));
    setSingleStep(1);
    setPageStep(qMax(1, maximum() / 10));
    setValue(bounded(page));
    blocker.unblock();
    const bool several = maximum() > 1;
    setEnabled(several);
    setVisible(several);
    setToolTip(placeText(value()));
    emit placeChanged(several ? placeText(value()) : QString());
    update();
}

// The base class has left and right the wrong way round for a scroll bar that takes keys.
void PageScrollBar::keyPressEvent(QKeyEvent* event)
{
    static const QHash<int, SliderAction> actions{
        {Qt::Key_Left, SliderSingleStepSub},  {Qt::Key_Up, SliderSingleStepSub},
        {Qt::Key_Right, SliderSingleStepAdd}, {Qt::Key_Down, SliderSingleStepAdd},
        {Qt::Key_PageUp, SliderPageStepSub},  {Qt::Key_PageDown, SliderPageStepAdd},
        {Qt::Key_Home, SliderToMinimum},      {Qt::Key_End, SliderToMaximum},
    };
    const SliderAction action = actions.value(event->key(), SliderNoAction);
    if (action == SliderNoAction)
        QScrollBar::keyPressEvent(event);
    else
        triggerAction(action);
}

QString PageScrollBar::placeText(int page) const
{
    return QString::number(page) + u" / "_s + QString::number(maximum()) + u" ページ"_s;
}

} // namespace ui
