#pragma once

#include <QObject>

class QAbstractItemView;

namespace ui {

// Of several lists in a window only the one with the focus shows its selection in colour, the
// others in grey. The view owns it.
class SelectionColour : public QObject {
    Q_OBJECT

public:
    explicit SelectionColour(QAbstractItemView& view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show(bool focused);

    QAbstractItemView& m_view;
};

} // namespace ui
