#pragma once

#include <string>

namespace veldrane {

enum class Answer
{
    Ok,
    Cancel,
    Yes,
    No,
};

enum class Buttons
{
    Ok,
    OkCancel,
    YesNo,
    YesNoCancel,
};

enum class MessageIcon
{
    None,
    Information,
    Question,
    Warning,
    Critical,
};

// One message box, whole: what it says and what may be answered.
struct Question
{
    std::string Title;
    std::string Text; // line breaks are CR LF, as the generated text has them
    Buttons Offered = Buttons::Ok;
    MessageIcon Icon = MessageIcon::None;
    Answer Default = Answer::Ok;
};

// What is said to and asked of the person in front of the program.
class Messages
{
  public:
    virtual ~Messages() = default;

    // Shows the question and returns the answer: one of those that `Offered` allows. Never throws.
    virtual Answer Ask(const Question& question) = 0;

    // Shows a text that needs no answer but OK.
    void Tell(std::string title, std::string text, MessageIcon icon = MessageIcon::None)
    {
        Ask({.Title = std::move(title), .Text = std::move(text), .Icon = icon});
    }
};

} // namespace veldrane
