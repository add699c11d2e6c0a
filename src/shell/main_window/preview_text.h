#pragma once

#include "ports/file_dialogs.h"
#include "ports/file_system.h"
#include "ports/messages.h"
#include "shell/main_window/preview_pane.h"
#include "text/code_page.h"

#include <cstddef>
#include <string>
#include <vector>

// What leaves the preview as text.
namespace veldrane {

// For the clipboard: the rows' texts from the top, whatever their order here, with LF between them. Rows that are not
// there are passed over.
[[nodiscard]] std::string CopiedText(const PreviewPane& pane, std::vector<std::size_t> rows);

// The same of all rows.
[[nodiscard]] std::string CopiedText(const PreviewPane& pane);

// Where a preview is saved to. All must outlive the call.
struct PreviewSaving
{
    FileDialogs& Dialogs;
    FileSystem& Files;
    Messages& Asking;
    const text::CodePage& CodePage; // that of generated files
};

// Asks for a file and writes all rows into it, each ended by CR LF, in the code page. False if the person cancels or
// the file can't be written, which is told; characters that became "?" are told too.
bool SavePreview(const PreviewPane& pane, const PreviewSaving& saving);

} // namespace veldrane
