#pragma once

#include "core/data/messages.h"

namespace ui {

// Message boxes over the window that is active when they are shown. Yes or OK is the default
// button, as the style's number has it.
class MessageBoxes : public core::Messages {
public:
    core::Answer show(core::MessageStyle style, const QString& text, const QString& title,
                      const QString& details = {}) override;
    std::optional<QString> askText(const QString& prompt, const QString& title,
                                   bool secret) override;
};

} // namespace ui
