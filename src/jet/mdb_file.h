#pragma once

#include "jet/header_page.h"
#include "jet/jet_file.h"

#include <memory>
#include <string>

namespace veldrane::jet {

// A file read through libmdb, which knows the cipher of the pages, which pages are a table's, and how a row is laid
// out.
class MdbFile : public JetFile
{
  public:
    // `path` is of a file whose header has been read. Throws Refusal(kDamaged) if libmdb makes nothing of it.
    MdbFile(const std::string& path, const HeaderPage& header);
    ~MdbFile() override;

    [[nodiscard]] Version FileVersion() const override { return header_.FileVersion; }
    [[nodiscard]] const TextDecoder& Text() const override { return text_; }
    [[nodiscard]] std::string Page(std::uint32_t number) override;
    void ForEachRow(std::uint32_t definitionPage, const std::function<void(const Cells&)>& take) override;
    [[nodiscard]] std::string StoredPiece(std::uint32_t place) override;

  private:
    struct Handle;

    HeaderPage header_;
    TextDecoder text_;
    std::unique_ptr<Handle> handle_;
};

} // namespace veldrane::jet
