#pragma once

#include "records/screens/edit_form.h"

class QComboBox;
class QMouseEvent;

namespace records {

// What the log editors of both kinds of data file have alike: the list of recorders that drops down
// when its field takes the focus.
class LogForm : public EditForm {
    Q_OBJECT

protected:
    using EditForm::EditForm;

    // `names` gives the recorders to be offered; asked again after each save.
    void offerRecorders(QComboBox* field, const std::function<QStringList()>& names);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillCombo2();
    bool clickedBeside(const QMouseEvent& press);
    void Combo2_GotFocus();

    QComboBox* m_Combo2 = nullptr;
    std::function<QStringList()> m_names;
};

} // namespace records
