#pragma once

#include "jet/jet_file.h"
#include "jet/refusal.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace veldrane::testing {

// A file whose pages, rows and stored pieces a test puts in. Pages may have any size.
class MemoryJetFile : public jet::JetFile
{
  public:
    explicit MemoryJetFile(jet::Version version) : version_(version), text_(version, 1252) {}

    using Row = std::vector<std::optional<std::string>>;

    std::map<std::uint32_t, std::string> Pages;
    std::map<std::uint32_t, std::vector<Row>> Rows; // by the page of the table's definition
    std::map<std::uint32_t, std::string> Pieces;

    [[nodiscard]] jet::Version FileVersion() const override { return version_; }
    [[nodiscard]] const jet::TextDecoder& Text() const override { return text_; }
    [[nodiscard]] std::string Page(std::uint32_t number) override { return At(Pages, number); }
    [[nodiscard]] std::string StoredPiece(std::uint32_t place) override { return At(Pieces, place); }

    void ForEachRow(std::uint32_t definitionPage, const std::function<void(const jet::Cells&)>& take) override
    {
        for (const Row& row : Rows[definitionPage])
            take(jet::Cells(row.begin(), row.end()));
    }

  private:
    static std::string At(const std::map<std::uint32_t, std::string>& bytes, std::uint32_t number)
    {
        const auto found = bytes.find(number);
        if (found == bytes.end())
            throw jet::Damaged("not there");
        return found->second;
    }

    jet::Version version_;
    jet::TextDecoder text_;
};

} // namespace veldrane::testing
