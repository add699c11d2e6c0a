#pragma once

#include "ports/messages.h"

#include <optional>
#include <string>
#include <utility>

// What the rules would tell the person, without telling it.
namespace veldrane {

// Hears in the person's place, and answers with the default.
class HeardMessages : public Messages
{
  public:
    Answer Ask(const Question& question) override
    {
        if (!first_)
            first_ = question;
        return question.Default;
    }

    [[nodiscard]] std::optional<Question>& First() { return first_; }

  private:
    std::optional<Question> first_;
};

// The first box that `body` shows to the messages that it is given; none if it shows none.
template <class Body>
[[nodiscard]] std::optional<Question> WhatIsTold(Body&& body)
{
    HeardMessages messages;
    body(messages);
    return std::move(messages.First());
}

} // namespace veldrane
