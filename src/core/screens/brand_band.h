#pragma once

#include <QColor>
#include <QWidget>

namespace core {

// The colours of the program's own drawn grounds, the same under a light and a dark theme.
inline constexpr QColor BrandDark(0x23, 0x39, 0x5b);
inline constexpr QColor BrandMiddle(0x35, 0x57, 0x84);
inline constexpr QColor BrandPale(0xee, 0xf3, 0xf9);
inline constexpr QColor BrandAccent(0xf2, 0xb8, 0x4b);

// A band with the program's sign and name, for the head of a screen.
class BrandBand : public QWidget {
    Q_OBJECT

public:
    explicit BrandBand(QWidget* parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace core
