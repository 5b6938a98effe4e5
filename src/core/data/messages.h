#pragma once

#include <QString>

#include <optional>

namespace core {

// The caption of all message boxes and the main windows.
inline constexpr char16_t AppTitleText[] = u"コルヴァン３";

// Icon and buttons of a message box, by their numbers.
enum class MessageStyle {
    Critical = 16,               // OK
    CriticalOkCancel = 17,       // OK, Cancel
    Exclamation = 48,            // OK
    ExclamationYesNo = 52,       // Yes, No
    Information = 64,            // OK
    InformationYesNoCancel = 67, // Yes, No, Cancel
    InformationYesNo = 68        // Yes, No
};

enum class Answer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

// The button that Enter presses at once: OK or Yes, or No where something would be lost.
enum class DefaultButton { First, No };

// Asks and tells the user. Screens and data rooms reach message boxes only through this.
class Messages {
public:
    virtual ~Messages() = default;

    // Shows a modal box and gives the button that closed it (Cancel or No when it was closed by its
    // frame and has such a button). `details` are folded away, for whoever looks into a fault.
    virtual Answer show(MessageStyle style, const QString& text, const QString& title,
                        const QString& details = {},
                        DefaultButton button = DefaultButton::First) = 0;
    // Asks for a text; nullopt when the user cancelled. `secret` hides what is typed.
    virtual std::optional<QString> askText(const QString& prompt, const QString& title,
                                           bool secret) = 0;

    // Style 16, 48, 64, and 52 with true for Yes; the title is the program's.
    void refuse(const QString& text, const QString& details = {});
    void warn(const QString& text);
    void tell(const QString& text);
    bool confirm(const QString& text, DefaultButton button = DefaultButton::First);
};

} // namespace core
