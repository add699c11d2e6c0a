#pragma once

#include "model/class.h"
#include "model/stored_procedures.h"
#include "ports/messages.h"
#include "text/code_page.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Naming the method of a class that calls a stored procedure.
namespace veldrane {

enum class ProcedureMode
{
    Add = 0,
    Edit = 1,
};

// What the naming of a method works on.
struct ProcedureEdit
{
    ProcedureMode Mode = ProcedureMode::Add;
    std::shared_ptr<SP> Procedure;
    KZMClass& Class;
    std::string Key; // of the method in the class, when it is edited
    veldrane::Messages& Messages;
    const text::CodePage& CodePage;
};

// A row of the list of parameters.
struct ParameterRow
{
    std::string Name;
    std::string Direction; // as DirectionText
    std::string DataType;
};

// "Input", "In/Out", "Output" or "Return"; "" for a number that is no direction.
[[nodiscard]] std::string_view DirectionText(std::int32_t direction);

// Whether a project can hold the procedure: its name and those of its parameters have a place in the code page, and no
// two parameters have one name. If not, the person is told.
[[nodiscard]] bool ProcedureFitsProject(const SP& procedure, const text::CodePage& codePage, Messages& messages);

enum class ProcedureNaming
{
    Done,
    NameTaken,   // a member of the class has the name
    NotWritable, // a name can't enter the project, which was told
};

// The rules of the dialog in which the method gets its name. Only OK changes the class.
class frmAddEditSP
{
  public:
    explicit frmAddEditSP(ProcedureEdit edit);

    [[nodiscard]] std::string Caption() const;
    [[nodiscard]] std::vector<ParameterRow> lstParameters() const;

    // OK: cleans the name, telling the person if it had to be changed, and adds or renames the method; a renamed one is
    // the last of its class. The dialog stays unless the answer is Done: the class is as it was then.
    [[nodiscard]] ProcedureNaming cmdOK_Click();

    std::string txtMethodName; // as the person types it

  private:
    [[nodiscard]] ProcedureNaming AddMethod();
    [[nodiscard]] ProcedureNaming RenameMethod();

    ProcedureEdit edit_;
};

} // namespace veldrane
