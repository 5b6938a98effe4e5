#pragma once

#include "core/data/messages.h"

namespace ui {

// Message boxes over the window that is active when they are shown.
class MessageBoxes : public core::Messages {
public:
    core::Answer show(core::MessageStyle style, const QString& text, const QString& title,
                      const QString& details = {},
                      core::DefaultButton button = core::DefaultButton::First) override;
    std::optional<QString> askText(const QString& prompt, const QString& title,
                                   bool secret) override;
};

} // namespace ui
