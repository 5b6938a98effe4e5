#pragma once

#include <QLabel>

namespace ui {

// The caption over a list: takes what room there is and cuts a longer text with an ellipsis; the
// whole text is its tip.
class CaptionLabel : public QLabel {
    Q_OBJECT

public:
    explicit CaptionLabel(QWidget* parent = nullptr);

    void setCaption(const QString& caption);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void cut();

    QString m_caption;
};

} // namespace ui
