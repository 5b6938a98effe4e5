#include "ui/window_placement.h"

#include "ui/user_settings.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>

using namespace Qt::Literals::StringLiterals;

namespace ui {
namespace {

QString nameOf(const QWidget& part)
{
    return part.window()->objectName() + u'/' + part.objectName();
}

QString headerName(const QHeaderView& header)
{
    return nameOf(*header.parentWidget()) + u"/columns"_s;
}

} // namespace

void restoreWindow(QWidget& window, const UserSettings& settings)
{
    window.restoreGeometry(settings.value(window.objectName() + u"/window"_s));
    window.resize(window.size().boundedTo(roomFor(window)));
}

void saveWindow(const QWidget& window, UserSettings& settings)
{
    settings.setValue(window.objectName() + u"/window"_s, window.saveGeometry());
}

void restoreSplitter(QSplitter& splitter, const UserSettings& settings)
{
    splitter.restoreState(settings.value(nameOf(splitter)));
}

void saveSplitter(const QSplitter& splitter, UserSettings& settings)
{
    settings.setValue(nameOf(splitter), splitter.saveState());
}

void restoreHeader(QHeaderView& header, const UserSettings& settings)
{
    header.restoreState(settings.value(headerName(header)));
}

void saveHeader(const QHeaderView& header, UserSettings& settings)
{
    settings.setValue(headerName(header), header.saveState());
}

QRect areaFor(const QWidget& window, const QRect& kept)
{
    const QScreen* const there = QGuiApplication::screenAt(kept.center());
    return (there ? there : window.screen())->availableGeometry();
}

QSize roomFor(const QWidget& window)
{
    constexpr QSize Frame(8, 40); // title bar included
    return window.screen()->availableSize() - Frame;
}

QRect fitInto(const QRect& area, QRect rectangle)
{
    rectangle.setSize(rectangle.size().boundedTo(area.size()));
    rectangle.moveLeft(qBound(area.left(), rectangle.left(), area.right() - rectangle.width() + 1));
    rectangle.moveTop(qBound(area.top(), rectangle.top(), area.bottom() - rectangle.height() + 1));
    return rectangle;
}

} // namespace ui
