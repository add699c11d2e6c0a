#pragma once

#include "ports/messages.h"

#include <map>
#include <ostream>
#include <string>

namespace veldrane {

// Messages without a person: each is printed, a question together with the answer taken for it, which is the one that
// loses nothing (Cancel, else No). A question whose answer the command line has told is not asked at all.
//
//   Save Changes?: This project has been modified and changes have not been saved.
//       Do you want to save Shop first?
//       Answer: Cancel
class ConsoleMessages : public Messages
{
  public:
    using AnswersByTitle = std::map<std::string, Answer>;

    // A told answer that a question does not offer is passed over.
    explicit ConsoleMessages(std::ostream& out, AnswersByTitle told = {});

    Answer Ask(const Question& question) override;

  private:
    std::ostream& out_;
    AnswersByTitle told_;
};

} // namespace veldrane
