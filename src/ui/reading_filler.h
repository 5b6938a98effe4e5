#pragma once

#include "ui/name_reading.h"

#include <QObject>
#include <QString>

#include <optional>

class QInputMethodEvent;
class QLineEdit;

namespace ui {

// Fills a reading with the half-width katakana of what stands in the name beside it and was typed
// there, as long as the user has not typed a reading of his own: a name that is corrected corrects
// its reading. Lives as long as the name field.
class ReadingFiller : public QObject {
    Q_OBJECT

public:
    ReadingFiller(QLineEdit* name, QLineEdit* reading);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void compose(const QInputMethodEvent& event);
    void nameEdited(const QString& text);
    void nameChanged(const QString& text);
    void fill();

    QLineEdit* m_name;
    QLineEdit* m_reading;
    QString m_composed;                 // the last text of the conversion that was all kana
    std::optional<QString> m_converted; // what the commit that comes now was converted from
    NameReading m_known;
    bool m_isEdited = false; // by the user; told of in two signals
    QString m_filled;        // what this has put into the reading so far
};

} // namespace ui
