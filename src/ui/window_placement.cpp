#include "ui/window_placement.h"

#include "ui/user_settings.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>
#include <QWidget>

#include <algorithm>
#include <set>
#include <tuple>

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

QMargins frameOf(const QWidget& window)
{
    const QWidget* shown = &window;
    while (!shown->isVisible() && shown->parentWidget())
        shown = shown->parentWidget()->window();
    const QRect outer = shown->frameGeometry();
    const QRect inner = shown->geometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

QRect outerRectOf(const QWidget& window)
{
    return {window.pos(), window.size().grownBy(frameOf(window))};
}

void placeOnScreen(QWidget& window, const QRect& outer)
{
    const QRect seen = fitInto(areaFor(window, outer), outer);
    window.resize(seen.size().shrunkBy(frameOf(window)));
    window.move(seen.topLeft());
}

std::optional<QRect> placeBeside(const QRect& area, const QSize& size, const QSize& least,
                                 const QList<QRect>& covered)
{
    std::set<int> columns{area.left(), area.right() + 1};
    std::set<int> rows{area.top(), area.bottom() + 1};
    for (const QRect& each : covered) {
        const QRect seen = each & area;
        columns.insert({seen.left(), seen.right() + 1});
        rows.insert({seen.top(), seen.bottom() + 1});
    }
    std::optional<QRect> best;
    const auto rank = [](const QRect& place) {
        return std::tuple(place.width() * place.height(), place.bottom(), place.right());
    };
    const auto consider = [&](const QRect& room) {
        const bool isFree =
            std::ranges::none_of(covered, [&](const QRect& each) { return each.intersects(room); });
        const QSize cut = size.boundedTo(room.size());
        if (!isFree || cut != cut.expandedTo(least.boundedTo(size)))
            return;
        QRect place(QPoint(), cut);
        place.moveBottomRight(room.bottomRight());
        if (!best || rank(place) > rank(*best))
            best = place;
    };
    for (const int left : columns) {
        for (const int right : columns) {
            for (const int top : rows) {
                for (const int bottom : rows)
                    consider(QRect(QPoint(left, top), QPoint(right - 1, bottom - 1)));
            }
        }
    }
    return best;
}

} // namespace ui
