#pragma once

#include <deque>
#include <optional>
#include <utility>
#include <vector>

#include "base/desk/Desk.h"

/// A desk host for one test: records what is shown and asked, answers from a script. Installs
/// itself for its lifetime and brings the earlier host back.
///
///     ScriptedDesk desk;
///     desk.Answer(L"New name").Cancel();
///     ...
///     EXPECT_EQ(desk.messages.size(), 0u);
class ScriptedDesk final : public DeskHost {
public:
    struct Message {
        CString text;
        MessageIcon icon = MessageIcon::standard;
    };
    struct Question {
        NameKind kind = NameKind::system;
        CString dllType;
        CString presentName;
    };

    ScriptedDesk() : m_earlier(Desk::Install(this)) {}
    ~ScriptedDesk() override { Desk::Install(m_earlier); }
    ScriptedDesk(const ScriptedDesk&) = delete;
    ScriptedDesk& operator=(const ScriptedDesk&) = delete;

    /// The next question is answered with `name`.
    ScriptedDesk& Answer(const CString& name)
    {
        m_answers.emplace_back(name);
        return *this;
    }
    /// The next question is cancelled, as is every one behind the end of the script.
    ScriptedDesk& Cancel()
    {
        m_answers.emplace_back(std::nullopt);
        return *this;
    }
    /// True when every answer of the script was asked for.
    bool ScriptUsedUp() const { return m_answers.empty(); }

    void ShowMessage(const CString& text, MessageIcon icon) override { messages.push_back({text, icon}); }
    bool AskName(NameKind kind, const CString& dllType, CString& name) override
    {
        questions.push_back({kind, dllType, name});
        if (m_answers.empty()) {
            return false;
        }
        const std::optional<CString> answer = std::move(m_answers.front());
        m_answers.pop_front();
        if (answer) {
            name = *answer;
        }
        return answer.has_value();
    }

    std::vector<Message> messages;
    std::vector<Question> questions;

private:
    DeskHost* m_earlier;
    std::deque<std::optional<CString>> m_answers;
};
