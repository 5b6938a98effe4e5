#pragma once

#include <QObject>
#include <QString>

class QInputMethodEvent;
class QLineEdit;

namespace ui {

// Fills a reading with the half-width katakana of what is typed for the name beside it, as long as
// the user has not typed a reading of his own. Lives as long as the name field.
class ReadingFiller : public QObject {
    Q_OBJECT

public:
    ReadingFiller(QLineEdit* name, QLineEdit* reading);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void compose(const QInputMethodEvent& event);
    void append(const QString& typed);
    void nameChanged(const QString& text);

    QLineEdit* m_name;
    QLineEdit* m_reading;
    QString m_composed; // the last text of the conversion that was all kana
    QString m_filled;   // what this has put into the reading so far
};

} // namespace ui
