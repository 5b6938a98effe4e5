#pragma once

#include "core/data/messages.h"

#include <QList>

#include <gtest/gtest.h>

// Stands in for the message boxes: records what was shown and gives the answers queued beforehand.
// The test fails when a question comes without an answer, when an answer was never asked for, and
// when a box was shown that the test never took.
class ScriptedMessages : public core::Messages {
public:
    struct Box {
        int style = 0; // 0 = a box that asks for a text
        QString text;
        QString title = QString::fromUtf16(core::AppTitleText);
        QString details = {};     // an engine's words, which are no part of what the box says
        bool noByDefault = false; // what Enter presses is asked for by itself

        bool operator==(const Box& other) const
        {
            return style == other.style && text == other.text && title == other.title;
        }
        friend void PrintTo(const Box& box, std::ostream* out)
        {
            *out << '[' << box.style << "] " << box.text.toStdString() << " ("
                 << box.title.toStdString() << ')';
        }
    };

    ~ScriptedMessages() override
    {
        if (!m_answers.isEmpty() || !m_typed.isEmpty())
            ADD_FAILURE() << "queued answers that nobody asked for: "
                          << m_answers.size() + m_typed.size();
        if (!m_boxes.isEmpty())
            ADD_FAILURE() << "boxes that the test did not look at: "
                          << testing::PrintToString(m_boxes);
    }

    // Queues the answer to the next box that has more than an OK button.
    void willAnswer(core::Answer answer) { m_answers.append(answer); }
    // Queues the text typed into the next box that asks for one; nullopt cancels it.
    void willType(const std::optional<QString>& text) { m_typed.append(text); }

    // What was shown since the last call, oldest first.
    QList<Box> takeBoxes() { return std::exchange(m_boxes, {}); }
    // The text of the only box shown since the last call; a failure when it was not just one.
    QString takeText()
    {
        const QList<Box> boxes = takeBoxes();
        EXPECT_EQ(boxes.size(), 1) << testing::PrintToString(boxes);
        return boxes.isEmpty() ? QString() : boxes.last().text;
    }

    core::Answer show(core::MessageStyle style, const QString& text, const QString& title,
                      const QString& details = {},
                      core::DefaultButton button = core::DefaultButton::First) override
    {
        m_boxes.append(
            {static_cast<int>(style), text, title, details, button == core::DefaultButton::No});
        if (style == core::MessageStyle::Critical || style == core::MessageStyle::Exclamation
            || style == core::MessageStyle::Information)
            return core::Answer::Ok;
        if (m_answers.isEmpty()) {
            ADD_FAILURE() << "no answer queued for: " << text.toStdString();
            return style == core::MessageStyle::CriticalOkCancel
                    || style == core::MessageStyle::InformationYesNoCancel
                ? core::Answer::Cancel
                : core::Answer::No;
        }
        return m_answers.takeFirst();
    }

    std::optional<QString> askText(const QString& prompt, const QString& title, bool) override
    {
        m_boxes.append({0, prompt, title, {}});
        if (m_typed.isEmpty()) {
            ADD_FAILURE() << "no text queued for: " << prompt.toStdString();
            return std::nullopt;
        }
        return m_typed.takeFirst();
    }

private:
    QList<Box> m_boxes;
    QList<core::Answer> m_answers;
    QList<std::optional<QString>> m_typed;
};
