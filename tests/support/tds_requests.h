#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace veldrane::testing {

// What a caller says who wants to log on.
struct TdsLogin
{
    std::uint32_t Version = 0; // of the protocol
    std::string User;
    std::string Password;
    std::string Database;
};

// A call of a procedure by its name, without the database in front of it. A parameter that was not given is not there.
struct TdsCall
{
    std::string Procedure;
    std::map<std::string, std::string> Parameters; // by the name with its "@"

    [[nodiscard]] std::optional<std::string> Find(const std::string& parameter) const;
};

// Each throws std::out_of_range for bytes that end too early, ReadTdsCall also std::invalid_argument for a parameter of
// another type than text and number.
[[nodiscard]] TdsLogin ReadTdsLogin(std::string_view bytes);
[[nodiscard]] TdsCall ReadTdsCall(std::string_view bytes, std::uint32_t version);
[[nodiscard]] std::string ReadTdsBatch(std::string_view bytes, std::uint32_t version);

} // namespace veldrane::testing
