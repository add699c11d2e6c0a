#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// What each target defines. The fuzzer calls it with inputs of its own making, replay.cpp with those of files.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace veldrane::testing {

// The input as text; it lives as long as the input.
[[nodiscard]] std::string_view TextOf(const std::uint8_t* data, std::size_t size);

// Cuts the first field off the input: it ends at the next NUL, or with the input.
[[nodiscard]] std::string_view TakeField(std::string_view& input);

// Ends the process with the text unless the property holds: that is how a fuzzer learns of a finding.
void Require(bool holds, std::string_view property);

} // namespace veldrane::testing
