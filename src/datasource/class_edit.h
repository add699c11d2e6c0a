#pragma once

#include "datasource/catalog.h"
#include "model/class.h"
#include "ports/error_report.h"
#include "ports/messages.h"
#include "text/code_page.h"

#include <string_view>

namespace veldrane {

// The module under which the rules about a class report their failures.
inline constexpr std::string_view kClassEditorModule = "frmAddEditClass";

// A class while it is made or changed, with what the rules about it may use. It lives as long as the editor of the
// class.
struct ClassEdit
{
    KZMClass& Class;
    Catalog* Source = nullptr; // nothing when no data source is open
    veldrane::Messages& Messages;
    ErrorReport& Errors;
    const text::CodePage& CodePage;
    bool KeysFailed =
        false; // an attempt to read the keys has failed: from then on only an identity column is looked for
    bool FieldLeftOut = false; // a field of the table could not become a property, which was told
};

} // namespace veldrane
