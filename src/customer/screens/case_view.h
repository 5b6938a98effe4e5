#pragma once

#include "core/data/record_key.h"
#include "records/data/list_description.h"
#include "records/data/settings.h"

#include <QDate>
#include <QObject>
#include <QString>

class QMenu;

namespace records {
class IndexPane;
class ListPane;
struct Desk;
class Selection;
} // namespace records

namespace customer {

// What the case list shows: the cases of the chosen customer, those of a node of the case index, of
// a day, with a text, or the one of a log.
class CaseView : public QObject {
    Q_OBJECT

public:
    // All of it lives longer.
    CaseView(records::ListPane& list, records::IndexPane& index, const records::Desk& desk,
             const records::Settings& settings, records::Selection& selection);

    // Shows the cases of a customer; the index goes to 個々.
    void showCasesOf(const core::RecordKey& customer, const QString& name);
    // Shows one case alone (of a log) and selects it.
    void showCase(const core::RecordKey& ofCase);
    // Shows the cases registered on or planned for a day, or those that hold a text.
    void showDay(QDate day);
    void showText(const QString& text);
    // Goes back to 個々 with nothing selected, as after a case was deleted.
    void returnToSingle();
    // No customer is chosen any more: the cases of a single one go.
    void forgetCustomer();
    void refill();
    // The captions of this customer's cases bear its new name.
    void renameCustomer(const core::RecordKey& customer, const QString& name);
    // The case index, whose choice is kept.
    records::IndexPane& index() { return m_index; }
    // The columns of dates that 件名表示日 asks for.
    void showDateColumns();
    // The choices of the case index, to be chosen by key or by menu.
    void addViewsTo(QMenu& menu);

    // What is shown beside the nodes of the index, as text that finds it again; empty when a node
    // is.
    QString shownOutside() const { return m_outside; }
    void showOutside(const QString& kept);

signals:
    // Something was chosen to be shown, beside the customer's own cases.
    void shown();
    // A search for a text has shown so many cases.
    void searched(qint64 hits);

private:
    void showNode(const records::ListFilter& filter);
    bool showOutsideIndex(const records::ListFilter& filter, const QString& kept);

    records::ListPane& m_list;
    records::IndexPane& m_index;
    const records::Desk& m_desk;
    const records::Settings& m_settings;
    records::ListFilter m_ofCustomer; // of the customer chosen last; without a condition: none
    QString m_outside;
    bool m_searching = false; // the hits are to be told
    bool m_isOutside = false; // a case of a log is, too
};

} // namespace customer
