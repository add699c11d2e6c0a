#pragma once

#include "datasource/jet/jet_database.h"

#include <string>
#include <string_view>
#include <variant>

namespace veldrane {

// That a file is not read.
struct JetRefusal
{
    std::string Reason; // one of those in answer_format.h
    std::string Words;  // for a person; may be empty
};

using JetAnswer = std::variant<JetDatabase, JetRefusal>;

// Takes an answer of the form of answer_format.h apart. Nothing of it is trusted: each record has to be one of that
// form, behind the record that it belongs to and with its number of fields; types and attributes have to be some that a
// Jet file can have, names neither empty nor too long, texts well-formed and without NUL. Throws RuntimeError (5) for
// any other text; the description names the line. An answer of more than a million records is not looked at: no sound
// file makes one, so that it is told as a refusal for damage.
[[nodiscard]] JetAnswer ReadJetAnswer(std::string_view text);

} // namespace veldrane
