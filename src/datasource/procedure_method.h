#pragma once

#include "datasource/typed_name.h"
#include "generator/outputs.h"
#include "model/class.h"
#include "model/signal.h"
#include "model/stored_procedures.h"
#include "ports/error_report.h"
#include "ports/messages.h"
#include "text/code_page.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
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
    ErrorReport& Errors;
    const text::CodePage& CodePage;

    // The lines that are generated for the procedure as a method of the class.
    std::function<TTCOutputs(const SP& procedure)> Preview = [](const SP& /*procedure*/) { return TTCOutputs(); };
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

// The rows for the parameters of a procedure.
[[nodiscard]] std::vector<ParameterRow> ParameterRows(const SP& procedure);

// The box that refuses a procedure which no project can hold; nothing if one can: its name and those of its parameters
// have a place in the code page, and no two parameters have one name.
[[nodiscard]] std::optional<Question> ProcedureRefusal(const SP& procedure, const text::CodePage& codePage);

// Whether a project can hold the procedure. If not, the person is told.
[[nodiscard]] bool ProcedureFitsProject(const SP& procedure, const text::CodePage& codePage, Messages& messages);

enum class ProcedureNaming
{
    Done,
    NameTaken,   // a member of the class has the name
    NotWritable, // a name can't enter the project, or is too long for the language, which was told
};

// The rules of the dialog in which the method gets its name. Only OK changes the class.
class frmAddEditSP
{
  public:
    explicit frmAddEditSP(ProcedureEdit edit);

    [[nodiscard]] std::string Caption() const;
    [[nodiscard]] std::vector<ParameterRow> lstParameters() const { return ParameterRows(*edit_.Procedure); }

    std::string txtMethodName; // as the person types it

    // What is wrong with the text of the control, in the words of the box that OK would show; "" if nothing.
    [[nodiscard]] std::string Trouble(std::string_view control) const;

    // The procedure as OK would leave it, and the class that calls it.
    [[nodiscard]] std::shared_ptr<SP> Edited() const;
    [[nodiscard]] const KZMClass& Owner() const { return edit_.Class; }

    // The lines that are generated for it.
    [[nodiscard]] TTCOutputs Preview() const { return edit_.Preview(*Edited()); }

    // Refuses a procedure that no project can hold. Cleans the name, telling the person if it had to be changed, and
    // adds or renames the method; a renamed one is the last of its class. The class is as it was unless the answer is
    // Done.
    [[nodiscard]] ProcedureNaming NameMethod();

    // The same, and tells of a name that is taken. False if the dialog stays. A failure is reported.
    [[nodiscard]] bool cmdOK_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

    Signal<std::string_view> FocusWanted; // by the control of this name

  private:
    [[nodiscard]] TypedName NameRules() const;
    [[nodiscard]] ProcedureNaming AddMethod();
    [[nodiscard]] ProcedureNaming RenameMethod();

    ProcedureEdit edit_;
};

} // namespace veldrane
