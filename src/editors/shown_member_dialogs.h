#pragma once

#include "datasource/catalog.h"
#include "datasource/class_names.h"
#include "datasource/procedure_method.h"
#include "editors/editor_dialogs.h"
#include "editors/member_dialogs.h"
#include "ports/settings.h"
#include "preview/preview.h"

#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace veldrane {

struct MemberSurroundings;

// What the dialogs of members work with. All that is referred to must outlive it.
struct MemberDialogPorts
{
    EditorDialogs& Dialogs;
    ProjectNames Names; // who is asked and told
    PreviewSource Generated;
    Settings& UserSettings;

    // The catalog as it is when it is asked first; nothing while no data source is open.
    std::function<std::unique_ptr<Catalog>()> Source;

    // A property on a field of the table has got another data type.
    std::function<void()> DataTypeChanged;
};

// Shows the dialogs of members.
class ShownMemberDialogs : public MemberDialogs
{
  public:
    explicit ShownMemberDialogs(MemberDialogPorts ports) : ports_(std::move(ports)) {}

    bool AddMethod(KZMClass& item) override;
    bool EditMethod(KZMClass& item, const std::shared_ptr<TTCMethod>& method) override;
    bool AddBuiltInMethods(KZMClass& item) override;

    bool PickProcedures(KZMClass& item, SPs& picked) override;
    bool AddProcedure(KZMClass& item, const std::shared_ptr<SP>& procedure) override;
    bool EditProcedure(KZMClass& item, const std::shared_ptr<TTCMethod>& method) override;

    bool AddEvent(KZMClass& item) override;
    bool EditEvent(KZMClass& item, const std::shared_ptr<ttcEvent>& event) override;
    bool AddBuiltInEvents(KZMClass& item) override;

    bool FieldProperties(KZMClass& item, const std::shared_ptr<TTCProperty>& property) override;
    bool AddProperty(KZMClass& item) override;
    bool EditProperty(KZMClass& item, const std::shared_ptr<TTCProperty>& property) override;
    bool AddBuiltInProperties(KZMClass& item) override;

  private:
    bool Use(KZMClass& item, const std::function<bool(const MemberSurroundings&)>& use);

    // Makes the form about a member of the class, the one that is given or a new one, and shows it.
    template <class Form, class... Member>
    bool ShowForm(KZMClass& item, const Member&... member);

    [[nodiscard]] ProcedureEdit EditOf(const std::shared_ptr<SP>& procedure, KZMClass& item) const;

    MemberDialogPorts ports_;
};

} // namespace veldrane
