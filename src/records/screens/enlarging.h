#pragma once

#include <QList>
#include <QObject>

class QAbstractButton;
class QButtonGroup;
class QSplitter;

namespace ui {
class UserSettings;
}

namespace records {

// One of the lists over one another can be made large by its option button; a second press gives
// all of them the sizes that they had before.
class Enlarging : public QObject {
    Q_OBJECT

public:
    // The buttons in the order of the splitter's parts.
    Enlarging(QSplitter& lists, const QList<QAbstractButton*>& options, QObject* parent);

    // Which list is large, and the sizes from before, under a name.
    void restore(const QString& name, const ui::UserSettings& settings);
    void save(const QString& name, ui::UserSettings& settings) const;

private:
    void enlarge(int list);
    void giveBack();
    void showButton(int list);

    QSplitter& m_lists;
    QButtonGroup* m_options;
    int m_large = -1; // none is
    QList<int> m_before;
    bool m_justChosen = false; // the press that chose a list is no second one
};

} // namespace records
