#include "shell/platform/console_messages.h"

#include "shell/platform/console_text.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

// By Buttons: what may be answered, the answer that loses nothing first.
const std::vector<Answer>& OfferedBy(Buttons buttons)
{
    static const std::vector<Answer> kOk{Answer::Ok};
    static const std::vector<Answer> kOkCancel{Answer::Cancel, Answer::Ok};
    static const std::vector<Answer> kYesNo{Answer::No, Answer::Yes};
    static const std::vector<Answer> kYesNoCancel{Answer::Cancel, Answer::No, Answer::Yes};
    switch (buttons) {
    case Buttons::OkCancel:
        return kOkCancel;
    case Buttons::YesNo:
        return kYesNo;
    case Buttons::YesNoCancel:
        return kYesNoCancel;
    case Buttons::Ok:
        break;
    }
    return kOk;
}

std::string_view NameOf(Answer answer)
{
    switch (answer) {
    case Answer::Cancel:
        return "Cancel";
    case Answer::Yes:
        return "Yes";
    case Answer::No:
        return "No";
    case Answer::Ok:
        break;
    }
    return "OK";
}

} // namespace

ConsoleMessages::ConsoleMessages(std::ostream& out, AnswersByTitle told) : out_(out), told_(std::move(told)) {}

Answer ConsoleMessages::Ask(const Question& question)
{
    const std::vector<Answer>& offered = OfferedBy(question.Offered);
    const auto told = told_.find(question.Title);
    if (told != told_.end() && std::find(offered.begin(), offered.end(), told->second) != offered.end())
        return told->second;
    const Answer answer = offered.front();
    std::string shown = ConsoleText(question.Title.empty() ? question.Text : question.Title + ": " + question.Text);
    shown += '\n';
    if (question.Offered != Buttons::Ok)
        shown.append(kConsoleIndent).append("Answer: ").append(NameOf(answer)).append("\n");
    out_ << shown << std::flush; // whole, however many programs write there
    return answer;
}

} // namespace veldrane
