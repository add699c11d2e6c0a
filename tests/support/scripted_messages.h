#pragma once

#include "ports/messages.h"

#include <deque>
#include <initializer_list>
#include <vector>

namespace veldrane::testing {

// Answers from a script, in order; when the script is at its end, with the question's default. Keeps what was asked.
class ScriptedMessages : public Messages
{
  public:
    ScriptedMessages(std::initializer_list<Answer> answers = {}) : answers_(answers) {}

    Answer Ask(const Question& question) override
    {
        asked_.push_back(question);
        if (answers_.empty())
            return question.Default;
        const Answer answer = answers_.front();
        answers_.pop_front();
        return answer;
    }

    [[nodiscard]] const std::vector<Question>& Asked() const { return asked_; }

    void Add(Answer answer) { answers_.push_back(answer); }

    void Forget() { asked_.clear(); }

  private:
    std::deque<Answer> answers_;
    std::vector<Question> asked_;
};

} // namespace veldrane::testing
